#include "recordingcanvas.h"
#include "sheets.h"

#include <QtTest>

using paper::Scene;

/// Where things stand in a drawing, and what of it is on a page. Units:
///
///     20   the title A         284   the title B
///     54   its ten rows        318   its ten rows
///     254  their end           518   their end
///     264  the paper's end     528   the paper's end; 548 that of the drawing
class TestScene : public QObject {
    Q_OBJECT

private slots:
    void pageEnds_data();
    void pageEnds();
    void parts_data();
    void parts();
};

namespace {

/// Two documents of ten rows, each of one character.
paper::Sheet sheet()
{
    paper::Sheet both = sheetOf(QString("0123456789").split(QString(), Qt::SkipEmptyParts), "A");
    both.bands += sheetOf(QString("abcdefghij").split(QString(), Qt::SkipEmptyParts), "B").bands;
    return both;
}

} // namespace

void TestScene::pageEnds_data()
{
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("end");
    QTest::newRow("room for all") << 0 << 548 << 548;
    QTest::newRow("what has no room is margin") << 0 << 518 << 548;
    QTest::newRow("the last row has none") << 0 << 517 << 498;
    QTest::newRow("room for the first row of the second") << 0 << 338 << 338;
    QTest::newRow("a title does not stand alone") << 0 << 337 << 284;
    QTest::newRow("nor half of it") << 0 << 300 << 284;
    QTest::newRow("between the documents") << 0 << 270 << 284;
    QTest::newRow("room for the first one's rows") << 0 << 254 << 284;
    QTest::newRow("not for the last of them") << 0 << 253 << 234;
    QTest::newRow("not for the first row") << 0 << 73 << 20;
    QTest::newRow("for no row at all, where one must begin") << 20 << 10 << 30;
    QTest::newRow("a second page") << 234 << 264 << 498;
}

void TestScene::pageEnds()
{
    QFETCH(int, top);
    QFETCH(int, height);
    const paper::Sheet drawn = sheet();
    QTEST(Scene(drawn).pageEnd(top, height), "end");
}

void TestScene::parts_data()
{
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("bottom");
    QTest::addColumn<QString>("cells");
    QTest::addColumn<int>("papers");
    QTest::newRow("all") << 0 << 548 << "A0123456789Babcdefghij" << 2;
    QTest::newRow("nothing but margin") << 0 << 20 << "" << 0;
    QTest::newRow("half a title") << 0 << 43 << "" << 0;
    QTest::newRow("a title") << 20 << 44 << "A" << 0;
    QTest::newRow("a second page has the title of its own document alone") << 234 << 498 << "9Babcdefghi" << 2;
    QTest::newRow("rows that are there as a whole") << 55 << 133 << "12" << 1;
    QTest::newRow("between the documents") << 264 << 284 << "" << 0;
    QTest::newRow("the last row") << 498 << 548 << "j" << 1;
    QTest::newRow("the end of the last paper") << 527 << 548 << "" << 1;
}

void TestScene::parts()
{
    QFETCH(int, top);
    QFETCH(int, bottom);
    const paper::Sheet drawn = sheet();
    RecordingCanvas record;
    Scene(drawn).draw(record, top, bottom);
    QTEST(record.cells, "cells");
    QTEST(record.papers, "papers");
}

QTEST_APPLESS_MAIN(TestScene)

#include "tst_scene.moc"
