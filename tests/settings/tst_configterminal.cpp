#include "settings/configrun.h"
#include "toolkit/childprocess.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

#include <fcntl.h>
#include <functional>
#include <memory>
#include <poll.h>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

/// `zelmora-config` in company: a person at its terminal, and others that write the same file.
class TestConfigTerminal : public QObject {
    Q_OBJECT

private slots:
    void asks_data();
    void asks();
    void doesNotAsk();
    void changedWhileItAsks();

    void waitsForAnother();
    void givesUp();
    void isNotHeldUpByACrash();
    void manyAtOnce();
};

namespace {

const QByteArray losing = "zelmora: { bin: { path = 1; }; };\nmore words";
const QByteArray question = "Saving will drop from the file:\r\n  line 2: more words\r\nSave all the same? (y/N) ";

/// A process in the surroundings of @p run.
class Child : public toolkit::ChildProcess {
public:
    explicit Child(
        const ConfigRun& run, std::function<void()> prepare = [] {})
        : ChildProcess(std::move(prepare))
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", run.path("home"));
        environment.insert("LC_ALL", "C.UTF-8");
        setProcessEnvironment(environment);
        setWorkingDirectory(run.path("."));
        setProgram(ZELMORA_CONFIG_PROGRAM);
    }

    ~Child() override
    {
        kill();
        waitForFinished();
    }

    int status() { return waitForFinished(30000) && exitStatus() == NormalExit ? exitCode() : -1; }
};

/// One at a terminal.
class AtATerminal : public Child {
public:
    AtATerminal(const ConfigRun& run, const QStringList& arguments)
        : Child(run, [this] { takeTerminal(); })
        , terminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
            qFatal("A terminal can't be made.");
        other = ::open(ptsname(terminal), O_RDWR | O_NOCTTY | O_CLOEXEC);
        setArguments(arguments);
        start();
        waitForStarted();
    }

    ~AtATerminal() override
    {
        kill();
        waitForFinished();
        ::close(other);
        ::close(terminal);
    }

    /// Whether that comes to stand on the terminal.
    bool shows(const QByteArray& text, int patience = 20000)
    {
        pollfd event {terminal, POLLIN, 0};
        while (!shown.contains(text) && poll(&event, 1, patience) == 1) {
            char bytes[1000];
            const ssize_t size = ::read(terminal, bytes, sizeof bytes);
            if (size <= 0)
                break;
            shown.append(bytes, static_cast<int>(size));
        }
        return shown.contains(text);
    }

    void type(const QByteArray& keys) const
    {
        if (::write(terminal, keys.constData(), static_cast<std::size_t>(keys.size())) != keys.size())
            qFatal("The terminal can't be written.");
    }

    QByteArray shown;

private:
    void takeTerminal() const
    {
        dup2(other, STDIN_FILENO);
        dup2(other, STDERR_FILENO);
    }

    const int terminal;
    int other = -1; ///< the process's end
};

/// As long as it lives, the folder is locked as if another program changed a file in it.
class LockedFolder {
public:
    explicit LockedFolder(const QString& path)
        : folder(open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        if (flock(folder, LOCK_EX | LOCK_NB) != 0)
            qFatal("The folder can't be locked.");
    }

    ~LockedFolder() { close(folder); }

private:
    const int folder;
};

QStringList setPath(const ConfigRun& run)
{
    return {"--file", run.file(), "set", "zelmora.bin.path", "/x"};
}

} // namespace

void TestConfigTerminal::asks_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("isDone");

    QTest::newRow("y") << QByteArray("y\n") << true;
    QTest::newRow("yes, in capitals") << QByteArray("YES\n") << true;
    QTest::newRow("n") << QByteArray("n\n") << false;
    QTest::newRow("Return alone") << QByteArray("\n") << false;
    QTest::newRow("another word") << QByteArray("sure, yes\n") << false;
    QTest::newRow("the end of the input") << QByteArray("\4") << false;
}

void TestConfigTerminal::asks()
{
    QFETCH(QByteArray, answer);
    QFETCH(bool, isDone);
    ConfigRun run;
    run.setContents(losing);
    AtATerminal program(run, setPath(run));
    QVERIFY2(program.shows(question), program.shown.constData());
    QCOMPARE(run.contents(), losing);
    program.type(answer);
    QCOMPARE(program.status(), isDone ? 0 : 1);
    QCOMPARE(run.contents(),
             isDone ? "zelmora: \n{\n    bin: \n    {\n        path = \"/x\";\n    };\n\n};\n\n" : losing);
    QCOMPARE(fileContents(run.path("a.conf~")), isDone ? losing : QByteArray());
}

void TestConfigTerminal::doesNotAsk()
{
    ConfigRun run;
    run.setContents(losing);
    AtATerminal forced(run, {"--file", run.file(), "--force", "unset", "zelmora.bin.path"});
    QCOMPARE(forced.status(), 0);
    QVERIFY(!forced.shows("(y/N)", 100));
    QVERIFY(forced.shown.contains("more words"));

    AtATerminal lossless(run, {"--file", run.path("b.conf"), "set", "zelmora.bin.path", "/x"});
    QCOMPARE(lossless.status(), 0);
    QCOMPARE(lossless.shown, QByteArray());
}

// By a program that knows no lock.
void TestConfigTerminal::changedWhileItAsks()
{
    ConfigRun run;
    run.setContents(losing);
    AtATerminal program(run, setPath(run));
    QVERIFY2(program.shows(question), program.shown.constData());
    run.setContents("zelmora: { bin: { path = 2; }; };");
    program.type("y\n");
    QCOMPARE(program.status(), 2);
    QVERIFY(program.shows("Another program has changed or removed the file"));
    QCOMPARE(run.contents(), QByteArray("zelmora: { bin: { path = 2; }; };"));
    QVERIFY(!QFile::exists(run.path("a.conf~")));
}

void TestConfigTerminal::waitsForAnother()
{
    ConfigRun run;
    auto lock = std::make_unique<LockedFolder>(run.path("."));
    Child program(run);
    program.setArguments(setPath(run));
    program.start();
    QVERIFY(program.waitForStarted());
    QVERIFY(!program.waitForFinished(1000));
    // What the other one writes at last is not lost.
    run.setContents("zelmora: { db: { dbname = z; }; };");
    lock.reset();
    QCOMPARE(program.status(), 0);
    QVERIFY2(run.contents().contains("dbname = \"z\"") && run.contents().contains("path = \"/x\""),
             run.contents().constData());
}

void TestConfigTerminal::givesUp()
{
    ConfigRun run;
    run.setContents("zelmora: { bin: { path = 2; }; };");
    const LockedFolder lock(run.path("."));
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(run.statusOf({"unset", "zelmora.bin.path"}), 2);
    QVERIFY2(clock.elapsed() >= 5000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(run.standardError,
             "Another program is changing the file " + run.file().toUtf8() + ". Try again when it is done.\n");
    QCOMPARE(run.contents(), QByteArray("zelmora: { bin: { path = 2; }; };"));
    QCOMPARE(run.statusOf({"get", "zelmora.bin.path"}), 0); // who reads does not wait
}

void TestConfigTerminal::isNotHeldUpByACrash()
{
    ConfigRun run;
    run.setContents(losing);
    AtATerminal holder(run, setPath(run));
    QVERIFY2(holder.shows(question), holder.shown.constData());
    Child second(run);
    second.setArguments({"--file", run.file(), "set", "--force", "zelmora.bin.path", "/y"});
    second.start();
    QVERIFY(second.waitForStarted());
    QVERIFY(!second.waitForFinished(500));
    holder.kill();
    QCOMPARE(second.status(), 0);
    QCOMPARE(run.statusOf({"get", "zelmora.bin.path"}), 0);
    QCOMPARE(run.standardOutput, QByteArray("/y\n"));
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.conf", "a.conf~", "home"}));
}

// Each changes what the one before has left, from the first, which makes the file, on.
void TestConfigTerminal::manyAtOnce()
{
    ConfigRun run;
    std::vector<std::unique_ptr<Child>> children;
    const QStringList groups {"doc",        "prefiscaldoc", "fiscaldoc", "receiptdoc",
                              "invoicedoc", "deliverydoc",  "reportdoc"};
    for (const QString& group : groups) {
        children.push_back(std::make_unique<Child>(run));
        children.back()->setArguments({"--file", run.file(), "set", "zelmora." + group + ".paperWidth", "40"});
        children.back()->start();
    }
    for (const auto& child : children) {
        const int status = child->status();
        QVERIFY2(status == 0, child->readAllStandardError().constData());
    }
    QCOMPARE(run.contents().count("paperWidth = \"40\";"), groups.size());
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.conf", "home"}));
}

QTEST_GUILESS_MAIN(TestConfigTerminal)
#include "tst_configterminal.moc"
