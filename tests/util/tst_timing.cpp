#include "util/hlibrary.h"
#include "util/sleepthread.h"

#include "support/processstate.h"

#include <QElapsedTimer>
#include <QtTest>

#include <csignal>
#include <functional>
#include <sys/time.h>
#include <type_traits>

namespace {

qint64 msecsOf(const std::function<void()>& action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    return timer.elapsed();
}

volatile sig_atomic_t interruptions = 0;

void countInterruption(int)
{
    interruptions = interruptions + 1;
}

/// A signal arrives once, that many milliseconds from now.
void interruptIn(int msecs)
{
    struct sigaction action = {};
    action.sa_handler = countInterruption; // and no SA_RESTART
    sigaction(SIGALRM, &action, nullptr);
    const itimerval once {{0, 0}, {0, msecs * 1000}};
    setitimer(ITIMER_REAL, &once, nullptr);
    interruptions = 0;
}

} // namespace

/// The two ways of waiting.
class TestTiming : public QObject {
    Q_OBJECT

private slots:
    void wholeSeconds();
    void noSeconds();
    void signalDoesNotShortenTheSleep_data();
    void signalDoesNotShortenTheSleep();

    void pauseIsAThread();
    void pauseOfATemporary_data();
    void pauseOfATemporary();
    void pauseOfAScope();
    void pauseBeginsAtOnce();
    void pausesRunSideBySide();
    void runSleeps();
    void noThreadIsLeft();
};

void TestTiming::wholeSeconds()
{
    const qint64 msecs = msecsOf([] { HLibrary::hsleep(1); });
    QVERIFY2(msecs >= 1000, QByteArray::number(msecs));
}

void TestTiming::noSeconds()
{
    const qint64 msecs = msecsOf([] { HLibrary::hsleep(0); });
    QVERIFY2(msecs < 5000, QByteArray::number(msecs));
}

void TestTiming::signalDoesNotShortenTheSleep_data()
{
    QTest::addColumn<int>("after"); // milliseconds

    QTest::newRow("early") << 200;
    QTest::newRow("late, with less than half a second left") << 700;
}

void TestTiming::signalDoesNotShortenTheSleep()
{
    QFETCH(int, after);
    const qint64 msecs = msecsOf([after] {
        interruptIn(after);
        HLibrary::hsleep(1);
    });
    QCOMPARE(int(interruptions), 1);
    QVERIFY2(msecs >= 1000, QByteArray::number(msecs));
}

void TestTiming::pauseIsAThread()
{
    QVERIFY((std::is_base_of_v<QThread, SleepThread>));
    const SleepThread pause(10);
    QVERIFY(pause.thread() == QThread::currentThread());
}

void TestTiming::pauseOfATemporary_data()
{
    QTest::addColumn<int>("length");

    QTest::newRow("none") << 0;
    QTest::newRow("one millisecond") << 1;
    QTest::newRow("30 milliseconds") << 30;
    QTest::newRow("120 milliseconds") << 120;
}

void TestTiming::pauseOfATemporary()
{
    QFETCH(int, length);
    const qint64 msecs = msecsOf([length] { SleepThread(static_cast<unsigned long>(length)); });
    QVERIFY2(msecs >= length && msecs < length + 5000, QByteArray::number(msecs));
}

void TestTiming::pauseOfAScope()
{
    const qint64 msecs = msecsOf([] {
        const SleepThread pause(30);
        QVERIFY(!pause.isFinished());
    });
    QVERIFY2(msecs >= 30, QByteArray::number(msecs));
}

void TestTiming::pauseBeginsAtOnce()
{
    SleepThread pause(50);
    QVERIFY(pause.isRunning());
    QTest::qSleep(50);
    QVERIFY(pause.wait(5000));
    QVERIFY(pause.isFinished());
}

void TestTiming::pausesRunSideBySide()
{
    const qint64 msecs = msecsOf([] {
        const SleepThread one(1000);
        const SleepThread two(1000);
        const SleepThread three(1000);
    });
    QVERIFY2(msecs >= 1000 && msecs < 2900, QByteArray::number(msecs));
}

void TestTiming::runSleeps()
{
    SleepThread pause(40);
    const qint64 msecs = msecsOf([&pause] { pause.run(); });
    QVERIFY2(msecs >= 40, QByteArray::number(msecs));
}

void TestTiming::noThreadIsLeft()
{
    const int before = threadCount();
    for (int i = 0; i < 20; ++i)
        SleepThread(1);
    QTRY_VERIFY(threadCount() <= before); // the last one is about to end, as one of before may have been
}

QTEST_GUILESS_MAIN(TestTiming)
#include "tst_timing.moc"
