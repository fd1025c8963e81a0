#include "log/hlogmanager.h"

#include "logfile.h"
#include "support/processstate.h"
#include "support/threads.h"

#include <QProcess>
#include <QtTest>

#include <optional>
#include <thread>
#include <vector>

namespace {

/// Tells this program to log through the shared manager, asked for by many threads, and to end.
const char logAndEnd[] = "--log-and-end";

/// The shared manager as each of many threads gets it, all at the same moment.
std::vector<HLogManager*> managersOfThreads()
{
    std::vector<HLogManager*> managers(32);
    runTogether(static_cast<int>(managers.size()),
                [&managers](int i) { managers[static_cast<std::size_t>(i)] = SyncSingleton<HLogManager>::instance(); });
    return managers;
}

/// Loggers go from thread to thread, one at a time.
void logFromThread(const QString& text)
{
    std::thread([&text] { SyncSingleton<HLogManager>::instance()->getLog("suite")->error(text); }).join();
}

class ManagerInSight : public HLogManager {
public:
    using HLogManager::loggers;
};

} // namespace

/// The loggers by name: what is entered and what is found, and how long a logger lives. To be run under the address
/// and the thread sanitizer too.
class TestHLogManager : public QObject {
    Q_OBJECT

private slots:
    void init();

    void emptyAtFirst();
    void setAndGet();
    void setMakesALogger();
    void emptyNameIsDefault_data();
    void emptyNameIsDefault();
    void emptyNameEntersNull_data();
    void emptyNameEntersNull();
    void otherNamesEnterNothing_data();
    void otherNamesEnterNothing();
    void nullEntryIsReplaced();
    void replacedLoggerStaysUsable();
    void managerReleasesAll();
    void managerSkipsNull();

    void threadsGetOneManager();
    void nobodyHasSetALogger();
    void sharedManagerEndsWithTheProcess();

private:
    QString path(const char* name) const { return folder->filePath(name); }

    std::optional<QTemporaryDir> folder;
};

void TestHLogManager::init()
{
    folder.emplace();
    useLog(path("suite.log"), "APPEND", "ERROR");
}

void TestHLogManager::emptyAtFirst()
{
    const ManagerInSight manager;
    QVERIFY(manager.loggers.isEmpty());
}

void TestHLogManager::setAndGet()
{
    ManagerInSight manager;
    manager.set("a", "one");
    manager.set("a", "two");
    QCOMPARE(manager.loggers.keys(), QStringList({"one", "two"}));
    QVERIFY(manager.getLog("one"));
    QVERIFY(manager.getLog("two"));
    QVERIFY(manager.getLog("one") != manager.getLog("two"));
    QCOMPARE(manager.getLog("one"), manager.loggers.value("one"));
    QCOMPARE(manager.getLog("two"), manager.loggers.value("two"));
}

void TestHLogManager::setMakesALogger()
{
    HLogManager manager;
    manager.set("a", "one");
    manager.getLog("one")->error("x");
    QCOMPARE(records(path("suite.log")), QByteArrayList {"ERROR: x"});
}

void TestHLogManager::emptyNameIsDefault_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("an empty text") << "";
    QTest::newRow("no text") << QString();
    QTest::newRow("the name itself") << "default";
}

void TestHLogManager::emptyNameIsDefault()
{
    QFETCH(QString, name);
    ManagerInSight manager;
    manager.set("a", name);
    QCOMPARE(manager.loggers.keys(), QStringList {"default"});
    Logger* const logger = manager.loggers.value("default");
    QVERIFY(logger);
    QCOMPARE(manager.getLog(""), logger);
    QCOMPARE(manager.getLog(QString()), logger);
    QCOMPARE(manager.getLog("default"), logger);
}

void TestHLogManager::emptyNameEntersNull_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("an empty text") << "";
    QTest::newRow("no text") << QString();
}

void TestHLogManager::emptyNameEntersNull()
{
    QFETCH(QString, name);
    ManagerInSight manager;
    for (int times = 0; times < 2; ++times) {
        QVERIFY(!manager.getLog(name));
        QCOMPARE(manager.loggers.keys(), QStringList {"default"});
        QVERIFY(!manager.loggers.value("default"));
    }
}

void TestHLogManager::otherNamesEnterNothing_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("a name") << "suite";
    QTest::newRow("a blank") << " ";
    QTest::newRow("default, when spelt out") << "default";
}

void TestHLogManager::otherNamesEnterNothing()
{
    QFETCH(QString, name);
    ManagerInSight manager;
    QVERIFY(!manager.getLog(name));
    QVERIFY(manager.loggers.isEmpty());

    manager.set("a", "other");
    QVERIFY(!manager.getLog(name));
    QCOMPARE(manager.loggers.keys(), QStringList {"other"});
}

void TestHLogManager::nullEntryIsReplaced()
{
    ManagerInSight manager;
    QVERIFY(!manager.getLog(""));
    manager.set("a", "");
    QVERIFY(manager.getLog(""));
    QCOMPARE(manager.loggers.size(), 1);
}

void TestHLogManager::replacedLoggerStaysUsable()
{
    ManagerInSight manager;
    useLog(path("first.log"), "APPEND", "ERROR");
    manager.set("a", "suite");
    Logger* const first = manager.getLog("suite");
    useLog(path("second.log"), "APPEND", "ERROR");
    manager.set("a", "suite");
    Logger* const second = manager.getLog("suite");
    QVERIFY(second != first);
    QCOMPARE(manager.loggers.keys(), QStringList {"suite"});

    first->error("x");
    second->error("y");
    QCOMPARE(records(path("first.log")), QByteArrayList {"ERROR: x"});
    QCOMPARE(records(path("second.log")), QByteArrayList {"ERROR: y"});
}

void TestHLogManager::managerReleasesAll()
{
    {
        HLogManager manager;
        for (const char* name : {"suite", "", "other", "suite", "", "suite"})
            manager.set("a", name);
        QCOMPARE(timesOpen(path("suite.log")), 6);
    }
    QCOMPARE(timesOpen(path("suite.log")), 0);
}

void TestHLogManager::managerSkipsNull()
{
    {
        HLogManager manager;
        manager.set("a", "after"); // in the order of the names
        manager.set("a", "zone");
        QVERIFY(!manager.getLog(""));
        QCOMPARE(timesOpen(path("suite.log")), 2);
    }
    QCOMPARE(timesOpen(path("suite.log")), 0);
}

void TestHLogManager::threadsGetOneManager()
{
    const std::vector<HLogManager*> managers = managersOfThreads();
    QVERIFY(managers.front());
    QCOMPARE(managers, std::vector<HLogManager*>(managers.size(), managers.front()));
    QCOMPARE(SyncSingleton<HLogManager>::instance(), managers.front());
}

void TestHLogManager::nobodyHasSetALogger()
{
    QVERIFY(!SyncSingleton<HLogManager>::instance()->getLog(""));
    QVERIFY(!SyncSingleton<HLogManager>::instance()->getLog("suite"));
}

// Under the address sanitizer what is left over at the end would fail.
void TestHLogManager::sharedManagerEndsWithTheProcess()
{
    ProgramRun surroundings;
    surroundings.setSettings(logSettings(path("suite.log")));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", surroundings.path("home"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {logAndEnd});

    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(records(path("suite.log")),
             QByteArrayList({"DEBUG: Start Logger", "ERROR: x", "ERROR: y", "DEBUG: Start Logger", "ERROR: z"}));
}

int main(int argc, char** argv)
{
    if (argc == 2 && QByteArray(argv[1]) == logAndEnd) {
        HLogManager* const manager = managersOfThreads().front();
        manager->set("a", "suite");
        logFromThread("x");
        logFromThread("y");
        manager->set("a", "suite");
        logFromThread("z");
        return 0;
    }
    QCoreApplication application(argc, argv);
    TestHLogManager test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_hlogmanager.moc"
