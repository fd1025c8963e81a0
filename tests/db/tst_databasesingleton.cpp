#include "config/zmconfiguration.h"
#include "db/databasemanager.h"
#include "log/hlogmanager.h"
#include "support/threads.h"

#include <QProcess>
#include <QtTest>

/// The shared manager, whose creation makes the shared log manager, asked for from many threads at once.
class TestDatabaseSingleton : public QObject {
    Q_OBJECT

private slots:
    void createdFromThreads();
    void createdFirst_data();
    void createdFirst();
    void withoutLogger();
};

namespace {

const int threadCount = 32;

/// Tells this program to do nothing but create the shared managers, in the manner that follows.
const char createOnly[] = "--create";

/// What a thread gets of the three.
struct Instances {
    const DatabaseManager* database = nullptr;
    const HLogManager* log = nullptr;
    const ZMConfiguration* settings = nullptr;

    bool operator==(const Instances& other) const
    {
        return database == other.database && log == other.log && settings == other.settings;
    }
};

/// Every third thread begins with the database, the logs or the settings.
Instances instancesOfThread(int number)
{
    Instances instances;
    for (int step = 0; step < 3; ++step) {
        switch ((number + step) % 3) {
        case 0:
            instances.database = SyncSingleton<DatabaseManager>::instance();
            break;
        case 1:
            instances.log = SyncSingleton<HLogManager>::instance();
            break;
        default:
            instances.settings = SyncSingleton<ZMConfiguration>::instance();
        }
    }
    return instances;
}

bool oneInstanceOfEach()
{
    std::vector<Instances> instances(threadCount);
    runTogether(threadCount, [&instances](int i) { instances[static_cast<std::size_t>(i)] = instancesOfThread(i); });
    return instances[0].database && instances[0].log && instances[0].settings
        && instances == std::vector<Instances>(threadCount, instances[0]);
}

/// For a process of its own.
bool create(const QByteArray& manner)
{
    if (manner == "database")
        return SyncSingleton<DatabaseManager>::instance();
    if (manner == "log, then database")
        return SyncSingleton<HLogManager>::instance() && SyncSingleton<DatabaseManager>::instance();
    return oneInstanceOfEach();
}

} // namespace

void TestDatabaseSingleton::createdFromThreads()
{
    QVERIFY(oneInstanceOfEach());
}

void TestDatabaseSingleton::createdFirst_data()
{
    QTest::addColumn<QString>("manner");
    QTest::newRow("the database manager, which makes the log manager") << "database";
    QTest::newRow("the log manager, which the database manager finds") << "log, then database";
    for (int round = 1; round <= 10; ++round)
        QTest::newRow(qPrintable(QString("from threads, round %1").arg(round))) << "threads";
}

// A process creates them once, and deletes them at its end.
void TestDatabaseSingleton::createdFirst()
{
    QFETCH(QString, manner);

    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {createOnly, manner});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
}

// Nobody set one: it is null, and asking for it is no mistake.
void TestDatabaseSingleton::withoutLogger()
{
    QVERIFY(SyncSingleton<DatabaseManager>::instance());
    QVERIFY(!SyncSingleton<HLogManager>::instance()->getLog(QString()));
}

int main(int argc, char** argv)
{
    if (argc == 3 && QByteArray(argv[1]) == createOnly)
        return create(argv[2]) ? 0 : 1;
    QCoreApplication application(argc, argv);
    TestDatabaseSingleton test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_databasesingleton.moc"
