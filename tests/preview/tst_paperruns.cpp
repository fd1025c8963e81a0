#include "preview/paperrun.h"
#include "toolkit/childprocess.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

#include <fcntl.h>
#include <functional>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

/// `zelmora-paper` and the print program: which one it runs, and what becomes of both.
class TestPaperRuns : public QObject {
    Q_OBJECT

private slots:
    void findsThePrintProgram_data();
    void findsThePrintProgram();
    void saysThatThereIsNone();
    void scriptsTakeNone();
    void saysThatItHung();
    void saysThatItFailed_data();
    void saysThatItFailed();
    void whatIsLeftBySignals_data();
    void whatIsLeftBySignals();
    void anIgnoredSignalStaysIgnored();
    void noPlaceForAHome();
    void progressOnATerminal_data();
    void progressOnATerminal();
};

namespace {

/// A folder with programs in it, and zelmora-paper among them.
class Place {
public:
    Place()
    {
        QDir(path(".")).mkpath("own/deep");
        QDir(path(".")).mkpath("bin");
        QDir(path(".")).mkpath("own/bin");
        if (!QFile::copy(ZELMORA_PAPER_PROGRAM, path("own/deep/zelmora-paper")))
            qFatal("The program can't be copied.");
    }

    QString path(const char* name) const { return folder.filePath(name); }
    QString program() const { return path("own/deep/zelmora-paper"); }

    /// A shell script; the job's path is $1, the script's $2.
    void makePrintProgram(const char* place, const QByteArray& commands) const
    {
        const QString file = QDir(path(place)).filePath("zelmora-print");
        writeBytes(file, "#!/bin/sh\n" + commands + '\n');
        setPermissions(file, 0700);
    }

    /// One that prints the line @p text.
    void makePrintProgramThatSays(const char* place, const QByteArray& text) const
    {
        makePrintProgram(place, "printf \"nofis apri\\nnofis riga='" + text + "'\\nnofis chiudi\\n\" > \"$2\"");
    }

private:
    QTemporaryDir folder {scratchFolder()};
};

/// A run of it with its temporary files in a folder of their own, for as long as this lives.
class Child : public toolkit::ChildProcess {
public:
    Child(
        const Place& place, const QStringList& arguments, std::function<void()> prepare = [] {})
        : ChildProcess(std::move(prepare))
        , temporary(place.path("temporary"))
    {
        QDir().mkpath(temporary);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TMPDIR", temporary);
        environment.insert("XDG_RUNTIME_DIR", place.path(".")); // without one the toolkit makes one
        setProcessEnvironment(environment);
        setWorkingDirectory(place.path("."));
        setProgram(place.program());
        setArguments(arguments);
    }

    ~Child() override
    {
        kill();
        waitForFinished();
    }

    const QString temporary;
};

/// One whose standard error is a terminal.
class AtATerminal : public Child {
public:
    AtATerminal(const Place& place, const QStringList& arguments)
        : Child(place, arguments, [this] { dup2(other, STDERR_FILENO); })
        , terminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
            qFatal("A terminal can't be made.");
        other = ::open(ptsname(terminal), O_RDWR | O_NOCTTY | O_CLOEXEC);
    }

    ~AtATerminal() override
    {
        kill();
        waitForFinished();
        ::close(other);
        ::close(terminal);
    }

    /// What stands on the terminal, once it is all there.
    QByteArray shown() const
    {
        QByteArray text;
        pollfd event {terminal, POLLIN, 0};
        char bytes[1000];
        while (poll(&event, 1, 200) == 1) {
            const ssize_t size = ::read(terminal, bytes, sizeof bytes);
            if (size <= 0)
                break;
            text.append(bytes, static_cast<int>(size));
        }
        return text;
    }

private:
    const int terminal;
    int other = -1; ///< the process's end
};

} // namespace

void TestPaperRuns::findsThePrintProgram_data()
{
    QTest::addColumn<QByteArrayList>("places");
    QTest::addColumn<QByteArray>("found");

    QTest::newRow("beside its own file") << QByteArrayList {"own/deep", "own/bin", "bin"} << QByteArray("own/deep");
    QTest::newRow("in bin beside its folder") << QByteArrayList {"own/bin", "bin"} << QByteArray("own/bin");
    QTest::newRow("on PATH") << QByteArrayList {"bin"} << QByteArray("bin");
}

// Called by its name, and through a link that stands elsewhere.
void TestPaperRuns::findsThePrintProgram()
{
    QFETCH(QByteArrayList, places);
    QFETCH(QByteArray, found);
    const Place place;
    for (const QByteArray& one : places)
        place.makePrintProgramThatSays(one.constData(), one);
    makeLink(QFile::encodeName(place.program()), place.path("link"));
    for (const QString& program : {place.program(), place.path("link")}) {
        PaperRun run(program);
        run.setEnvironment("PATH", "/usr/bin:" + place.path("bin") + ":/bin");
        run.writeFile("a.xml", "<j/>");
        QCOMPARE(run.statusOf({"--plain", "a.xml"}), 0);
        QCOMPARE(run.standardOutput, found + '\n');
    }
}

void TestPaperRuns::saysThatThereIsNone()
{
    const Place place;
    place.makePrintProgram("own/bin", "exit 0");
    setPermissions(place.path("own/bin/zelmora-print"), 0600);
    QDir(place.path("own/deep")).mkpath("zelmora-print");
    PaperRun run(place.program());
    run.setEnvironment("PATH", place.path("bin"));
    run.writeFile("a.xml", "<j/>");
    run.writeFile("b.xml", "<j/>");
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("a.conf", "");
    const QByteArray message = "There is no program zelmora-print: neither beside this program, nor in ../bin from "
                               "there, nor on PATH.\n";
    QCOMPARE(run.statusOf({"--plain", "a.xml", "a.txt", "b.xml"}), 2);
    QCOMPARE(run.standardError, message);
    QCOMPARE(run.standardOutput, QByteArray("one\n"));
    QCOMPARE(run.statusOf({"--proof"}), 2);
    QCOMPARE(run.standardError, message);
    QCOMPARE(run.statusOf({"--rehearse", "a.conf", "a.xml", "b.xml"}), 2);
    QCOMPARE(run.standardError, message);
    QCOMPARE(run.standardOutput, QByteArray());
}

void TestPaperRuns::scriptsTakeNone()
{
    const Place place;
    place.makePrintProgram(
        "own/deep", "touch '" + place.path("called").toUtf8() + "'; printf 'nofis apri\\nnofis chiudi\\n' > \"$2\"");
    PaperRun run(place.program());
    run.writeFile("a.txt", script({"one"}));
    QCOMPARE(run.statusOf({"a.txt"}), 0);
    QCOMPARE(run.statusOf({"--compare", "a.txt", "a.txt"}), 0);
    QVERIFY(!QFile::exists(place.path("called")));
    run.writeFile("a.xml", "<j/>");
    QCOMPARE(run.statusOf({"a.xml"}), 0);
    QVERIFY(QFile::exists(place.path("called")));
}

// What it wrote is shown, and said to be incomplete.
void TestPaperRuns::saysThatItHung()
{
    const Place place;
    place.makePrintProgram("own/deep", "printf \"nofis apri\\nnofis riga='one'\\n\" > \"$2\"; exec sleep 100");
    PaperRun run(place.program());
    run.setEnvironment("PATH", "/usr/bin:/bin");
    run.writeFile("a.xml", "<j/>");
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(run.statusOf({"--plain", "a.xml"}), 2);
    QVERIFY2(clock.elapsed() >= 10000 && clock.elapsed() < 20000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(run.standardOutput, QByteArray("one\n"));
    QVERIFY2(run.standardError.startsWith("a.xml: The print program was ended after 10 seconds.\n"
                                          "a.xml (script):1:1: error: ")
                 && run.standardError.endsWith("[not-closed]\n"),
             run.standardError.constData());
}

void TestPaperRuns::saysThatItFailed_data()
{
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("it crashed") << QByteArray("kill -s ABRT $$")
                                << QByteArray("a.xml: The print program was ended by a signal.\n");
    QTest::newRow("its libraries are not there")
        << QByteArray("exit 127") << QByteArray("a.xml: The print program ended with status 127.\n");
}

void TestPaperRuns::saysThatItFailed()
{
    QFETCH(QByteArray, commands);
    QFETCH(QByteArray, message);
    const Place place;
    place.makePrintProgram("own/deep", commands);
    PaperRun run(place.program());
    run.writeFile("a.xml", "<j/>");
    run.writeFile("a.conf", "");
    QCOMPARE(run.statusOf({"a.xml"}), 2);
    QCOMPARE(run.standardError, message);
    QCOMPARE(run.standardOutput, QByteArray());
    QCOMPARE(run.statusOf({"--rehearse", "a.conf", "a.xml"}), 2);
    QCOMPARE(run.standardError, message);
    QCOMPARE(run.statusOf({"-o", "a.txt", "a.xml"}), 2);
    QVERIFY(!QFile::exists(run.path("a.txt")));
}

void TestPaperRuns::whatIsLeftBySignals_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QStringList>("arguments");
    const auto row = [](const char* name, int signal, const QStringList& arguments) {
        QTest::newRow(name) << signal << arguments;
    };
    row("SIGTERM", SIGTERM, {"a.xml"});
    row("SIGINT", SIGINT, {"a.xml"});
    row("SIGHUP", SIGHUP, {"a.xml"});
    row("SIGQUIT", SIGQUIT, {"a.xml"});
    row("SIGUSR1", SIGUSR1, {"a.xml"});
    row("SIGUSR2", SIGUSR2, {"a.xml"});
    row("SIGALRM", SIGALRM, {"a.xml"});
    row("SIGXCPU", SIGXCPU, {"a.xml"});
    row("SIGVTALRM", SIGVTALRM, {"a.xml"});
    row("SIGPROF", SIGPROF, {"a.xml"});
    row("SIGIO", SIGIO, {"a.xml"});
    row("SIGTERM while several are printed", SIGTERM, {"a.xml", "a.xml", "a.xml"});
    row("SIGTERM while a picture is made", SIGTERM, {"-o", "a.png", "a.xml", "a.xml"});
    row("SIGTERM at a rehearsal, with two homes", SIGTERM, {"--rehearse", "a.conf", "a.xml"});
}

/// While the print program hangs.
void TestPaperRuns::whatIsLeftBySignals()
{
    QFETCH(int, signal);
    QFETCH(QStringList, arguments);
    const Place place;
    writeBytes(place.path("a.xml"), "<j/>");
    writeBytes(place.path("a.conf"), "zelmora: { };");
    place.makePrintProgram("own/deep", "echo $$ > pid.new; mv pid.new pid; exec sleep 100");
    Child child(place, arguments);
    child.start();
    QTRY_VERIFY(QFile::exists(place.path("pid")));
    QVERIFY(!filesIn(child.temporary).isEmpty());
    const int printing = fileContents(place.path("pid")).trimmed().toInt();

    QCOMPARE(::kill(static_cast<pid_t>(child.processId()), signal), 0);
    QVERIFY(child.waitForFinished(5000));
    QCOMPARE(child.exitStatus(), QProcess::CrashExit); // as anybody expects who sent it
    QCOMPARE(filesIn(child.temporary), QStringList());
    QTRY_VERIFY(::kill(printing, 0) != 0); // that is gone too
    QVERIFY(!QFile::exists(place.path("a.png")));
}

// As nohup(1) ignores one.
void TestPaperRuns::anIgnoredSignalStaysIgnored()
{
    const Place place;
    place.makePrintProgram("own/deep",
                           "kill -s HUP $PPID; sleep 0.5; printf \"nofis apri\\nnofis chiudi\\n\" > \"$2\"");
    PaperRun run(place.program());
    run.setEnvironment("PATH", "/usr/bin:/bin");
    run.writeFile("a.xml", "<j/>");
    run.startShell("trap '' HUP; exec \"$program\" --plain a.xml");
    QCOMPARE(run.remarks(), QByteArray());
}

void TestPaperRuns::noPlaceForAHome()
{
    PaperRun run;
    run.setEnvironment("TMPDIR", run.path("none"));
    run.writeFile("a.xml", "<j/>");
    QCOMPARE(run.statusOf({"a.xml"}), 2);
    QCOMPARE(run.standardError, QByteArray("No folder for the settings can be made: No such file or directory\n"));
}

void TestPaperRuns::progressOnATerminal_data()
{
    QTest::addColumn<QByteArray>("pause");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("more than a moment's work") << QByteArray("0.5") << QByteArray("/8");
    QTest::newRow("a moment's work") << QByteArray("0") << QByteArray();
}

// The line is gone at the end.
void TestPaperRuns::progressOnATerminal()
{
    QFETCH(QByteArray, pause);
    QFETCH(QByteArray, shown);
    const Place place;
    writeBytes(place.path("a.xml"), "<j/>");
    place.makePrintProgram("own/deep", "sleep " + pause + "; printf 'nofis apri\\nnofis chiudi\\n' > \"$2\"");
    QStringList arguments {"--plain"};
    for (int i = 0; i < 8; ++i)
        arguments += "a.xml";
    AtATerminal child(place, arguments);
    child.start();
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitCode(), 0);
    const QByteArray terminal = child.shown();
    QCOMPARE(terminal.isEmpty(), shown.isEmpty());
    if (shown.isEmpty())
        return;
    const QRegularExpression steps("\\A(\r\\[#* *\\] [0-8]/8)+\r +\r\\z");
    QVERIFY2(steps.match(terminal).hasMatch(), terminal.constData());
}

QTEST_GUILESS_MAIN(TestPaperRuns)
#include "tst_paperruns.moc"
