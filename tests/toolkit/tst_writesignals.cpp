#include "toolkit/writesignals.h"

#include "support/processstate.h"

#include <QTemporaryFile>
#include <QtTest>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <pthread.h>
#include <thread>
#include <unistd.h>

using toolkit::WriteSignalsBlocked;

namespace {

volatile sig_atomic_t arrivals = 0;

void countArrival(int)
{
    arrivals = arrivals + 1;
}

/// The error of a write to a pipe that has lost its reader.
int writeToBrokenPipe()
{
    int ends[2];
    if (pipe(ends) != 0)
        qFatal("The pipe can't be made.");
    close(ends[0]);
    errno = 0;
    const int error = write(ends[1], "x", 1) < 0 ? errno : 0;
    close(ends[1]);
    return error;
}

/// The error of a write to a file that may not grow.
int writePastTheLimit()
{
    QTemporaryFile file;
    if (!file.open())
        qFatal("The scratch file can't be made.");
    const FileSizeLimit limit(0);
    errno = 0;
    return write(file.handle(), "x", 1) < 0 ? errno : 0;
}

struct WriteSignal {
    int number;
    int (*write)(); ///< that raises it
    int error; ///< of that write
};

bool isBlocked(int signal)
{
    sigset_t mask;
    pthread_sigmask(SIG_BLOCK, nullptr, &mask);
    return sigismember(&mask, signal) == 1;
}

bool isPending(int signal)
{
    sigset_t pending;
    sigpending(&pending);
    return sigismember(&pending, signal) == 1;
}

/// As long as it lives, the thread has @p signal blocked.
class Blocked {
public:
    explicit Blocked(int signal)
    {
        sigemptyset(&set);
        sigaddset(&set, signal);
        pthread_sigmask(SIG_BLOCK, &set, nullptr);
    }

    ~Blocked() { pthread_sigmask(SIG_UNBLOCK, &set, nullptr); }

    Blocked(const Blocked&) = delete;
    Blocked& operator=(const Blocked&) = delete;

private:
    sigset_t set;
};

} // namespace

Q_DECLARE_METATYPE(WriteSignal)

/// A write that would end the process fails instead, and the thread's signals are as before.
class TestWriteSignals : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void signalArrivesWithoutIt_data();
    void signalArrivesWithoutIt();
    void signalIsDropped_data();
    void signalIsDropped();
    void bothAreDropped();
    void errorIsKept_data();
    void errorIsKept();
    void maskIsRestored();
    void blockedSignalStaysBlocked_data();
    void blockedSignalStaysBlocked();
    void pendingSignalStaysPending_data();
    void pendingSignalStaysPending();
    void otherOneIsDroppedBesideAPendingOne();
    void nested_data();
    void nested();
    void otherSignalsArrive();
    void otherThreadsAreLeftAlone();
};

namespace {

void addWriteSignals()
{
    QTest::addColumn<WriteSignal>("signal");

    QTest::newRow("a pipe without reader") << WriteSignal {SIGPIPE, writeToBrokenPipe, EPIPE};
    QTest::newRow("a file at its limit") << WriteSignal {SIGXFSZ, writePastTheLimit, EFBIG};
}

} // namespace

void TestWriteSignals::initTestCase()
{
    for (const int signal : {SIGPIPE, SIGXFSZ, SIGUSR1})
        std::signal(signal, countArrival);
}

void TestWriteSignals::init()
{
    arrivals = 0;
}

void TestWriteSignals::signalArrivesWithoutIt_data()
{
    addWriteSignals();
}

// Else the tests below would show nothing.
void TestWriteSignals::signalArrivesWithoutIt()
{
    QFETCH(WriteSignal, signal);
    QCOMPARE(signal.write(), signal.error);
    QCOMPARE(int(arrivals), 1);
}

void TestWriteSignals::signalIsDropped_data()
{
    addWriteSignals();
}

void TestWriteSignals::signalIsDropped()
{
    QFETCH(WriteSignal, signal);
    for (int times = 0; times < 3; ++times) {
        {
            const WriteSignalsBlocked blocked;
            QCOMPARE(signal.write(), signal.error);
            QCOMPARE(signal.write(), signal.error);
        }
        QVERIFY(!isPending(signal.number));
        QVERIFY(!isBlocked(signal.number));
    }
    QCOMPARE(int(arrivals), 0);
}

void TestWriteSignals::bothAreDropped()
{
    {
        const WriteSignalsBlocked blocked;
        QCOMPARE(writeToBrokenPipe(), EPIPE);
        QCOMPARE(writePastTheLimit(), EFBIG);
    }
    QCOMPARE(int(arrivals), 0);
}

void TestWriteSignals::errorIsKept_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<bool>("withSignal");

    QTest::newRow("of a broken pipe") << EPIPE << true;
    QTest::newRow("of a full disk") << ENOSPC << false;
    QTest::newRow("none") << 0 << false;
}

void TestWriteSignals::errorIsKept()
{
    QFETCH(int, error);
    QFETCH(bool, withSignal);
    {
        const WriteSignalsBlocked blocked;
        if (withSignal)
            raise(SIGPIPE);
        errno = error;
    }
    QCOMPARE(errno, error);
}

void TestWriteSignals::maskIsRestored()
{
    const Blocked other(SIGUSR1);
    {
        const WriteSignalsBlocked blocked;
        QVERIFY(isBlocked(SIGPIPE));
        QVERIFY(isBlocked(SIGXFSZ));
        QVERIFY(isBlocked(SIGUSR1));
    }
    QVERIFY(!isBlocked(SIGPIPE));
    QVERIFY(!isBlocked(SIGXFSZ));
    QVERIFY(isBlocked(SIGUSR1));
}

void TestWriteSignals::blockedSignalStaysBlocked_data()
{
    addWriteSignals();
}

void TestWriteSignals::blockedSignalStaysBlocked()
{
    QFETCH(WriteSignal, signal);
    {
        const Blocked before(signal.number);
        {
            const WriteSignalsBlocked blocked;
            QCOMPARE(signal.write(), signal.error);
        }
        QVERIFY(isBlocked(signal.number));
        QVERIFY(!isPending(signal.number));
    }
    QCOMPARE(int(arrivals), 0);
}

void TestWriteSignals::pendingSignalStaysPending_data()
{
    addWriteSignals();
}

void TestWriteSignals::pendingSignalStaysPending()
{
    QFETCH(WriteSignal, signal);
    {
        const Blocked before(signal.number);
        raise(signal.number);
        {
            const WriteSignalsBlocked blocked;
            QCOMPARE(signal.write(), signal.error);
        }
        QVERIFY(isPending(signal.number));
        QVERIFY(isBlocked(signal.number));
        QCOMPARE(int(arrivals), 0);
    }
    QCOMPARE(int(arrivals), 1);
}

void TestWriteSignals::otherOneIsDroppedBesideAPendingOne()
{
    {
        const Blocked before(SIGPIPE);
        raise(SIGPIPE);
        {
            const WriteSignalsBlocked blocked;
            QCOMPARE(writePastTheLimit(), EFBIG);
        }
        QVERIFY(!isPending(SIGXFSZ));
        QCOMPARE(int(arrivals), 0);
    }
    QCOMPARE(int(arrivals), 1);
}

void TestWriteSignals::nested_data()
{
    addWriteSignals();
}

void TestWriteSignals::nested()
{
    QFETCH(WriteSignal, signal);
    {
        const WriteSignalsBlocked outer;
        {
            const WriteSignalsBlocked inner;
            QCOMPARE(signal.write(), signal.error);
        }
        QVERIFY(isBlocked(signal.number));
        QCOMPARE(signal.write(), signal.error);
        const WriteSignalsBlocked innerWithPendingSignal;
        QCOMPARE(signal.write(), signal.error);
    }
    QVERIFY(!isBlocked(signal.number));
    QCOMPARE(int(arrivals), 0);
}

void TestWriteSignals::otherSignalsArrive()
{
    const WriteSignalsBlocked blocked;
    raise(SIGUSR1);
    QCOMPARE(int(arrivals), 1);
}

void TestWriteSignals::otherThreadsAreLeftAlone()
{
    std::atomic<int> reached {0};
    bool blockedInOther = true;
    std::thread other([&] {
        reached = 1;
        while (reached != 2)
            std::this_thread::yield();
        blockedInOther = isBlocked(SIGPIPE) || isBlocked(SIGXFSZ);
    });
    while (reached != 1)
        std::this_thread::yield();
    {
        const WriteSignalsBlocked blocked;
        reached = 2;
        other.join();
    }
    QVERIFY(!blockedInOther);
}

QTEST_GUILESS_MAIN(TestWriteSignals)
#include "tst_writesignals.moc"
