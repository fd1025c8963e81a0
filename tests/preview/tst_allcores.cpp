#include "preview/allcores.h"

#include "support/threads.h"

#include <QtTest>

#include <new>
#include <vector>

class TestAllCores : public QObject {
    Q_OBJECT

private slots:
    void everyPieceIsDoneOnce_data();
    void everyPieceIsDoneOnce();
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
