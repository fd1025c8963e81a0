#include "config/syncsingleton.h"

#include "support/threads.h"

#include <QProcess>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace {

const int threadCount = 32;

/// A type for each number, because a type has its instance for the whole life of the process. Its constructor
/// takes a while, so that the threads meet in it.
template <int number>
struct Counted {
    Counted()
    {
        ++made;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        value = number;
    }

    static inline std::atomic<int> made {0};
    int value = -1;
};

/// As Counted, but the first construction fails.
template <int number>
struct FailingOnce {
    FailingOnce()
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        if (attempts++ == 0)
            throw std::runtime_error("no settings today");
        value = number;
    }

    static inline std::atomic<int> attempts {0};
    int value = -1;
};

/// Whether the threads got one good instance, made once.
template <int number>
bool oneInstanceForAll()
{
    using Singleton = SyncSingleton<Counted<number>>;
    std::vector<Counted<number>*> instances(threadCount);
    std::vector<int> values(threadCount);
    runTogether(threadCount, [&instances, &values](int i) {
        const auto at = static_cast<std::size_t>(i);
        if (i % 4 == 2)
            std::this_thread::sleep_for(std::chrono::milliseconds(5)); // comes when the instance is there
        if (i % 4 == 3)
            Singleton::createInstance();
        instances[at] = Singleton::instance();
        values[at] = instances[at]->value;
    });
    return Counted<number>::made == 1 && instances[0]
        && instances == std::vector<Counted<number>*>(threadCount, instances[0])
        && values == std::vector<int>(threadCount, number);
}

/// Whether one thread got the exception and all others one good instance.
template <int number>
bool oneFailureThenOneInstance()
{
    using Singleton = SyncSingleton<FailingOnce<number>>;
    std::atomic<int> exceptions {0};
    std::atomic<int> goodOnes {0};
    runTogether(threadCount, [&exceptions, &goodOnes](int) {
        try {
            if (Singleton::instance()->value == number)
                ++goodOnes;
        } catch (const std::runtime_error&) {
            ++exceptions;
        }
    });
    return FailingOnce<number>::attempts == 2 && exceptions == 1 && goodOnes == threadCount - 1;
}

template <int... numbers>
QVector<bool> creationRounds(std::integer_sequence<int, numbers...>)
{
    return {oneInstanceForAll<numbers>()...};
}

template <int... numbers>
QVector<bool> failureRounds(std::integer_sequence<int, numbers...>)
{
    return {oneFailureThenOneInstance<numbers>()...};
}

/// Its own end shows on standard output.
struct Settings {
    ~Settings()
    {
        std::puts("settings");
        std::fflush(stdout);
    }

    const char* name = "settings still there";
};

/// Uses the settings in its constructor, as a log does, and again at its end.
struct Log {
    Log()
        : settings(SyncSingleton<Settings>::instance())
    {
    }

    ~Log()
    {
        std::printf("log, %s\n", settings->name);
        std::fflush(stdout);
    }

    Settings* settings;
};

/// Uses the settings at its end alone.
struct LateReader {
    ~LateReader()
    {
        std::printf("late reader, %s\n", SyncSingleton<Settings>::instance()->name);
        std::fflush(stdout);
    }
};

struct Unused {
    Unused() { std::puts("unused made"); }
    ~Unused() { std::puts("unused gone"); }
};

/// Needed before main() begins.
struct Early {
    int value = 8;
};

const int earlyValue = SyncSingleton<Early>::instance()->value;
Early* const earlyInstance = SyncSingleton<Early>::instance();

/// Takes singletons as @p task says, for this process to end with them; false when there is no such task.
bool takeInstances(const QByteArray& task)
{
    if (task == "--log") {
        SyncSingleton<Log>::instance();
    } else if (task == "--settings-log") {
        SyncSingleton<Settings>::instance();
        SyncSingleton<Log>::instance();
    } else if (task == "--log-twice") {
        SyncSingleton<Log>::createInstance();
        SyncSingleton<Log>::instance();
        SyncSingleton<Settings>::instance();
    } else if (task == "--registered") {
        SyncSingleton<Settings>::registerDestruction();
        SyncSingleton<LateReader>::instance();
        SyncSingleton<Settings>::instance();
    } else if (task == "--registered-and-never-asked-for") {
        SyncSingleton<Unused>::registerDestruction();
    } else if (task == "--from-threads") {
        runTogether(threadCount, [](int) { SyncSingleton<Log>::instance(); });
    } else if (task == "--nothing") {
        static_cast<void>(&SyncSingleton<Unused>::instance);
    } else {
        return false;
    }
    return true;
}

QByteArray outputOf(const QString& task)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {task});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return "the program did not end well: " + process.readAllStandardError();
    return process.readAllStandardOutput();
}

} // namespace

/// The one instance: how it is made, by whom, and when it goes. To be run under the thread sanitizer too.
class TestSyncSingleton : public QObject {
    Q_OBJECT

private slots:
    void threadsGetOneInstance();
    void sameInstanceEveryTime();
    void typesHaveInstancesOfTheirOwn();
    void failureLeavesNoInstance();
    void failureAmongThreads();
    void staticInitialiserMayAsk();
    void endOfTheProcess_data();
    void endOfTheProcess();
};

void TestSyncSingleton::threadsGetOneInstance()
{
    QCOMPARE(creationRounds(std::make_integer_sequence<int, 20>()), QVector<bool>(20, true));
}

void TestSyncSingleton::sameInstanceEveryTime()
{
    Counted<100>* const first = SyncSingleton<Counted<100>>::instance();
    SyncSingleton<Counted<100>>::createInstance();
    QCOMPARE(SyncSingleton<Counted<100>>::instance(), first);
    QCOMPARE(Counted<100>::made.load(), 1);
}

void TestSyncSingleton::typesHaveInstancesOfTheirOwn()
{
    QCOMPARE(SyncSingleton<Counted<101>>::instance()->value, 101);
    QCOMPARE(SyncSingleton<Counted<102>>::instance()->value, 102);
}

void TestSyncSingleton::failureLeavesNoInstance()
{
    using Singleton = SyncSingleton<FailingOnce<100>>;
    QVERIFY_EXCEPTION_THROWN(Singleton::createInstance(), std::runtime_error);
    FailingOnce<100>* const instance = Singleton::instance();
    QVERIFY(instance);
    QCOMPARE(instance->value, 100);
    QCOMPARE(Singleton::instance(), instance);
    QCOMPARE(FailingOnce<100>::attempts.load(), 2);
}

void TestSyncSingleton::failureAmongThreads()
{
    QCOMPARE(failureRounds(std::make_integer_sequence<int, 5>()), QVector<bool>(5, true));
}

void TestSyncSingleton::staticInitialiserMayAsk()
{
    QCOMPARE(earlyValue, 8);
    QCOMPARE(SyncSingleton<Early>::instance(), earlyInstance);
}

void TestSyncSingleton::endOfTheProcess_data()
{
    QTest::addColumn<QString>("task");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray logFirst = "log, settings still there\nsettings\n";
    QTest::newRow("what was made inside a constructor goes after its user") << "--log" << logFirst;
    QTest::newRow("the last one made goes first") << "--settings-log" << logFirst;
    QTest::newRow("asking again changes nothing") << "--log-twice" << logFirst;
    QTest::newRow("what was registered earlier goes later")
        << "--registered" << QByteArray("late reader, settings still there\nsettings\n");
    QTest::newRow("what was registered and nobody asked for is never made")
        << "--registered-and-never-asked-for" << QByteArray();
    QTest::newRow("made from many threads") << "--from-threads" << logFirst;
    QTest::newRow("what nobody asked for is never made") << "--nothing" << QByteArray();
}

void TestSyncSingleton::endOfTheProcess()
{
    QFETCH(QString, task);
    QFETCH(QByteArray, expected);

    QCOMPARE(outputOf(task), expected);
}

int main(int argc, char** argv)
{
    if (argc == 2 && takeInstances(argv[1]))
        return 0;
    QCoreApplication application(argc, argv);
    TestSyncSingleton test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_syncsingleton.moc"
