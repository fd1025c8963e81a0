#include "editor/placement.h"

#include <QtTest>

class TestPlacement : public QObject {
    Q_OBJECT

private slots:
    void movesIntoTheRoom_data();
    void movesIntoTheRoom();
};

void TestPlacement::movesIntoTheRoom_data()
{
    QTest::addColumn<QRect>("place");
    QTest::addColumn<QRect>("moved"); // into 800 by 560 below a panel of 40
    QTest::newRow("what is inside stays") << QRect(100, 100, 300, 200) << QRect(100, 100, 300, 200);
    QTest::newRow("what fills the room stays") << QRect(0, 40, 800, 560) << QRect(0, 40, 800, 560);
    QTest::newRow("out on the left") << QRect(-5, 100, 300, 200) << QRect(0, 100, 300, 200);
    QTest::newRow("below the panel") << QRect(100, 39, 300, 200) << QRect(100, 40, 300, 200);
    QTest::newRow("out on the right") << QRect(501, 100, 300, 200) << QRect(500, 100, 300, 200);
    QTest::newRow("out at the bottom") << QRect(100, 401, 300, 200) << QRect(100, 400, 300, 200);
    QTest::newRow("on another screen") << QRect(2000, -900, 300, 200) << QRect(500, 40, 300, 200);
    QTest::newRow("too high") << QRect(100, 100, 300, 900) << QRect(100, 40, 300, 560);
    QTest::newRow("too wide") << QRect(100, 100, 900, 200) << QRect(0, 100, 800, 200);
    QTest::newRow("larger on all sides") << QRect(-10, -10, 2000, 2000) << QRect(0, 40, 800, 560);
}

void TestPlacement::movesIntoTheRoom()
{
    QFETCH(QRect, place);
    QTEST(movedInto(place, QRect(0, 40, 800, 560)), "moved");
}

QTEST_GUILESS_MAIN(TestPlacement)
#include "tst_placement.moc"
