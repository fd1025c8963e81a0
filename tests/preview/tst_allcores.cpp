#include "preview/allcores.h"

#include "support/threads.h"

#include <QThread>
#include <QtTest>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <vector>

class TestAllCores : public QObject {
    Q_OBJECT

private slots:
    void everyPieceIsDoneOnce_data();
    void everyPieceIsDoneOnce();
    void severalAreDoneAtOnce();
    void anExceptionComesOut_data();
    void anExceptionComesOut();
};

using preview::onAllCores;

static void countRows()
{
    QTest::addColumn<int>("count");
    QTest::newRow("one, without a thread") << 1;
    QTest::newRow("two") << 2;
    QTest::newRow("many more than cores") << 10000;
}

void TestAllCores::everyPieceIsDoneOnce_data()
{
    countRows();
    QTest::newRow("none") << 0;
}

void TestAllCores::everyPieceIsDoneOnce()
{
    QFETCH(int, count);
    std::vector<int> done(static_cast<std::size_t>(count));
    onAllCores(count, [&](int number) { ++done[static_cast<std::size_t>(number)]; });
    QCOMPARE(done, std::vector<int>(static_cast<std::size_t>(count), 1));
}

// Each of two waits until the other one is there.
void TestAllCores::severalAreDoneAtOnce()
{
    if (QThread::idealThreadCount() < 2)
        QSKIP("There is one core.");
    std::mutex mutex;
    std::condition_variable arrival;
    int here = 0;
    int met = 0;
    onAllCores(2, [&](int) {
        std::unique_lock<std::mutex> lock(mutex);
        ++here;
        arrival.notify_all();
        if (arrival.wait_for(lock, std::chrono::seconds(20), [&] { return here == 2; }))
            ++met;
    });
    QCOMPARE(met, 2);
}

void TestAllCores::anExceptionComesOut_data()
{
    countRows();
}

void TestAllCores::anExceptionComesOut()
{
    QFETCH(int, count);
    QVERIFY_EXCEPTION_THROWN(onAllCores(count,
                                        [](int number) {
                                            if (number == 0)
                                                throw std::bad_alloc();
                                        }),
                             std::bad_alloc);
}

QTEST_GUILESS_MAIN(TestAllCores)
#include "tst_allcores.moc"
