#include "editor/paperview.h"
#include "paper/cells.h"
#include "paper/painting/painting.h"
#include "support/comparedtimes.h"
#include "support/processortime.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

/// The paper as it is looked at: real keys and wheels.
class TestPaperView : public QObject {
    Q_OBJECT

private slots:
    void fitsTheWidth_data();
    void fitsTheWidth();
    void paperThatGoesPastItsEdgeIsNoSmaller();
    void largerAndSmaller();
    void theNextStepFromWhatFits();
    void fitsAgain();
    void saysThatItsScaleChanged();
    void whatStoodAtTheTopStaysThere();

    void keysScroll();
    void theWheelScrolls();
    void theWheelWithControlMakesItLarger();
    void smallTurnsOfTheWheelAddUp();

    void showsOtherPaperFromItsTop();
    void aChangeInSightMovesNothing();
    void aChangeOutOfSightIsBroughtInSight();
    void aRowThatIsGoneIsBroughtInSight();

    void showsTheDrawing_data();
    void showsTheDrawing();
    void isInTheMiddle();
    void isSharpOnAFineScreen();
    void showsThatKeysGoToIt();
    void tellsItsText();
    void tellsTheBeginningOfALongText();
    void tellsTheBeginningOfALongRow();
    void aLongPaperScrollsAtOnce();
    void aLongRowScrollsAtOnce();
};

namespace {

/// Rows with their numbers.
paper::Rows rows(int count)
{
    paper::Rows made;
    for (int i = 0; i < count; ++i)
        made += paper::Row {QString("row %1").arg(i)};
    return made;
}

paper::Sheet sheetOf(const paper::Rows& rows)
{
    return {{{{"Receipt", rows, true}}}};
}

/// Paper and its margins: 32 columns of 10 units, 10 at each side of them, 20 around.
const int paperWidth = 320 + 2 * 10 + 2 * 20;

void turnWheel(PaperView& view, int angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const QPointF middle = QRectF(view.viewport()->rect()).center();
    QWheelEvent event(middle, view.viewport()->mapToGlobal(middle.toPoint()), {}, {0, angle}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

class ShownView : public PaperView {
public:
    explicit ShownView(const paper::Sheet& sheet, const QSize& size = {500, 400})
    {
        resize(size);
        showSheet(sheet);
        show();
        activateWindow();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("The view is not active.");
        setFocus();
    }

    int top() const { return verticalScrollBar()->value(); }

    void makeAsWideAsTheDrawing()
    {
        makeLarger();
        makeSmaller(); // from here on it stays at 1, whatever room there is
        resize(size() + QSize(paperWidth - viewport()->width(), 0));
        if (scale() != 1 || viewport()->width() != paperWidth)
            qFatal("The view has not the drawing's width.");
    }
};

/// What is painted into the viewport, @p scale pixels for a point.
QImage picture(const PaperView& view, int scale = 1)
{
    QImage image(view.viewport()->size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    view.viewport()->render(&image);
    image.setDevicePixelRatio(1);
    return image;
}

QImage drawing(const paper::Sheet& sheet, int scale = 1)
{
    QString reason;
    return QImage::fromData(paper::pngDrawing(sheet, scale, reason)).convertToFormat(QImage::Format_RGB32);
}

} // namespace

void TestPaperView::fitsTheWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<double>("least");
    QTest::addColumn<double>("greatest");
    QTest::newRow("a little room") << 250 << 0.5 << 0.66;
    QTest::newRow("as much as in the window") << 300 << 0.7 << 0.79;
    QTest::newRow("more than it takes") << 600 << 1.0 << 1.0;
    QTest::newRow("no room to speak of") << 40 << 0.25 << 0.25;
}

void TestPaperView::fitsTheWidth()
{
    QFETCH(int, width);
    QFETCH(double, least);
    QFETCH(double, greatest);
    const ShownView view(sheetOf(rows(100)), {width, 300});
    QVERIFY2(view.scale() >= least && view.scale() <= greatest, qPrintable(QString::number(view.scale())));
    if (width >= 250)
        QCOMPARE(view.horizontalScrollBar()->maximum(), 0);
}

// Or a width that is being typed would make the paper jump.
void TestPaperView::paperThatGoesPastItsEdgeIsNoSmaller()
{
    ShownView view(sheetOf(rows(5)), {300, 300});
    const double before = view.scale();
    QCOMPARE(view.horizontalScrollBar()->maximum(), 0);
    const QString wide(60, 'x');
    view.updateSheet(sheetOf({{wide, {{paper::Mark::PastEdge, 32, 28}}}}));
    QCOMPARE(view.scale(), before);
    QVERIFY(view.horizontalScrollBar()->maximum() > 0);
}

void TestPaperView::largerAndSmaller()
{
    ShownView view(sheetOf(rows(5)));
    QVector<double> scales {view.scale()};
    for (; view.canBeLarger(); scales += view.scale())
        view.makeLarger();
    QCOMPARE(scales, (QVector<double> {1, 1.25, 1.5, 2, 2.5, 3, 4}));
    view.makeLarger();
    QCOMPARE(view.scale(), 4.0);
    scales = {};
    for (; view.canBeSmaller(); scales += view.scale())
        view.makeSmaller();
    QCOMPARE(scales, (QVector<double> {3, 2.5, 2, 1.5, 1.25, 1, 0.85, 0.7, 0.5, 0.35, 0.25}));
    view.makeSmaller();
    QCOMPARE(view.scale(), 0.25);
}

void TestPaperView::theNextStepFromWhatFits()
{
    ShownView larger(sheetOf(rows(5)), {300, 300});
    QVERIFY(larger.scale() > 0.7 && larger.scale() < 0.85);
    larger.makeLarger();
    QCOMPARE(larger.scale(), 0.85);
    ShownView smaller(sheetOf(rows(5)), {300, 300});
    smaller.makeSmaller();
    QCOMPARE(smaller.scale(), 0.7);
}

void TestPaperView::fitsAgain()
{
    ShownView view(sheetOf(rows(5)), {300, 300});
    const double fitting = view.scale();
    view.makeLarger();
    view.resize(350, 300);
    QCOMPARE(view.scale(), 0.85);
    view.fitWidth();
    QVERIFY(view.scale() > fitting && view.scale() < 1);
}

void TestPaperView::saysThatItsScaleChanged()
{
    ShownView view(sheetOf(rows(5)), {300, 300});
    QSignalSpy changed(&view, &PaperView::scaleChanged);
    view.resize(350, 300);
    QCOMPARE(changed.size(), 1);
    view.makeLarger();
    QCOMPARE(changed.size(), 2);
    view.resize(300, 300);
    QCOMPARE(changed.size(), 2);
}

void TestPaperView::whatStoodAtTheTopStaysThere()
{
    ShownView view(sheetOf(rows(100)));
    view.verticalScrollBar()->setValue(600);
    view.makeLarger();
    QCOMPARE(view.top(), 750);
    view.makeSmaller();
    QCOMPARE(view.top(), 600);
}

void TestPaperView::keysScroll()
{
    ShownView view(sheetOf(rows(100)));
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(view.top(), 20); // a row
    QTest::keyClick(&view, Qt::Key_Up);
    QCOMPARE(view.top(), 0);
    QTest::keyClick(&view, Qt::Key_PageDown);
    QCOMPARE(view.top(), view.viewport()->height());
    QTest::keyClick(&view, Qt::Key_End);
    // 100 rows of 20 units, 10 above and below, a title of 24, and margins of 20.
    QCOMPARE(view.top(), 2000 + 20 + 24 + 40 - view.viewport()->height());
    QTest::keyClick(&view, Qt::Key_Home);
    QCOMPARE(view.top(), 0);
    view.makeLarger();
    view.makeLarger();
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(view.horizontalScrollBar()->value(), 15);
}

void TestPaperView::theWheelScrolls()
{
    ShownView view(sheetOf(rows(100)));
    turnWheel(view, -120);
    QVERIFY(view.top() > 0);
    QCOMPARE(view.scale(), 1.0);
}

void TestPaperView::theWheelWithControlMakesItLarger()
{
    ShownView view(sheetOf(rows(100)));
    turnWheel(view, 120, Qt::ControlModifier);
    QCOMPARE(view.scale(), 1.25);
    turnWheel(view, -240, Qt::ControlModifier);
    QCOMPARE(view.scale(), 0.85);
    QCOMPARE(view.top(), 0);
}

void TestPaperView::smallTurnsOfTheWheelAddUp()
{
    ShownView view(sheetOf(rows(100)));
    for (int i = 0; i < 7; ++i)
        turnWheel(view, 15, Qt::ControlModifier);
    QCOMPARE(view.scale(), 1.0);
    turnWheel(view, 15, Qt::ControlModifier);
    QCOMPARE(view.scale(), 1.25);
}

void TestPaperView::showsOtherPaperFromItsTop()
{
    ShownView view(sheetOf(rows(100)));
    QTest::keyClick(&view, Qt::Key_End);
    view.showSheet(sheetOf(rows(90)));
    QCOMPARE(view.top(), 0);
}

void TestPaperView::aChangeInSightMovesNothing()
{
    ShownView view(sheetOf(rows(100)));
    view.verticalScrollBar()->setValue(600); // rows 28 and on
    paper::Rows changed = rows(100);
    changed[40].text = "another one";
    view.updateSheet(sheetOf(changed));
    QCOMPARE(view.top(), 600);
    view.updateSheet(sheetOf(changed));
    QCOMPARE(view.top(), 600);
}

void TestPaperView::aChangeOutOfSightIsBroughtInSight()
{
    ShownView view(sheetOf(rows(100)));
    paper::Rows changed = rows(100);
    changed[70].text = "another one";
    view.updateSheet(sheetOf(changed));
    const int top = 20 + 24 + 10 + 70 * 20;
    QVERIFY(view.top() <= top && top + 20 <= view.top() + view.viewport()->height());
    changed[3].text = "another one";
    view.updateSheet(sheetOf(changed));
    QCOMPARE(view.top(), 0);
}

void TestPaperView::aRowThatIsGoneIsBroughtInSight()
{
    ShownView view(sheetOf(rows(100)));
    paper::Rows changed = rows(100);
    changed.remove(99);
    view.updateSheet(sheetOf(changed));
    QCOMPARE(view.top(), view.verticalScrollBar()->maximum());
}

void TestPaperView::showsTheDrawing_data()
{
    QTest::addColumn<int>("top");
    QTest::newRow("from its top") << 0;
    QTest::newRow("from the middle of the title") << 31;
    QTest::newRow("from the middle of a row") << 73;
    QTest::newRow("from the last line of a row") << 1293;
    QTest::newRow("to its end") << 9999;
}

// Rows that are cut by the edge of the view too.
void TestPaperView::showsTheDrawing()
{
    QFETCH(int, top);
    paper::Rows marked = rows(100);
    marked[2].marked = {{paper::Mark::Changed, 0, 3}};
    marked[62].marked = {{paper::Mark::Changed, 0, 3}};
    const paper::Sheet sheet = sheetOf(marked);
    ShownView view(sheet, {500, 397});
    view.makeAsWideAsTheDrawing();
    view.verticalScrollBar()->setValue(top);
    view.clearFocus(); // it has a frame
    QCOMPARE(picture(view), drawing(sheet).copy(QRect(QPoint(0, view.top()), view.viewport()->size())));
}

void TestPaperView::isInTheMiddle()
{
    const ShownView view(sheetOf(rows(3)), {600, 400});
    const QImage shown = picture(view);
    const int y = 20 + 24 + 5; // on the paper, above its first row
    int left = 0;
    while (left < shown.width() && shown.pixelColor(left, y) != Qt::white)
        ++left;
    int right = shown.width() - 1;
    while (right > left && shown.pixelColor(right, y) != Qt::white)
        --right;
    QCOMPARE(right - left + 1, 340);
    QVERIFY2(qAbs(left - (shown.width() - 1 - right)) <= 1,
             qPrintable(QString("%1 and %2 of %3").arg(left).arg(right).arg(shown.width())));
}

void TestPaperView::isSharpOnAFineScreen()
{
    const paper::Sheet sheet = sheetOf(rows(10));
    ShownView view(sheet, {500, 200});
    view.makeAsWideAsTheDrawing();
    view.clearFocus();
    QCOMPARE(picture(view, 2), drawing(sheet, 2).copy(QRect(QPoint(0, 0), view.viewport()->size() * 2)));
}

void TestPaperView::showsThatKeysGoToIt()
{
    ShownView view(sheetOf(rows(3)));
    const QColor frame(0, 80, 160);
    QCOMPARE(picture(view).pixelColor(0, 0), frame);
    QCOMPARE(picture(view).pixelColor(view.viewport()->width() - 1, view.viewport()->height() - 1), frame);
    view.clearFocus();
    QCOMPARE(picture(view).pixelColor(0, 0), QColor(0xC8, 0xC8, 0xC8));
}

void TestPaperView::tellsItsText()
{
    const ShownView view(
        {{{{"Receipt", {{" TOTAL 3.00"}, {""}, {"a\x01z"}}, true}}, {{"Sold items", {{"Caffè"}}, true}}}});
    QCOMPARE(view.accessibleName(), QString("Paper"));
    QCOMPARE(view.accessibleDescription(), QString("Receipt\n TOTAL 3.00\n\na\u2401z\nSold items\nCaffè\n"));
}

void TestPaperView::tellsTheBeginningOfALongText()
{
    const ShownView view(sheetOf(rows(100000)));
    const QString text = view.accessibleDescription();
    QVERIFY(text.startsWith("Receipt\nrow 0\n"));
    QVERIFY2(text.endsWith("\nrow 499\nand 99500 more"), qPrintable(text.right(50)));
}

void TestPaperView::tellsTheBeginningOfALongRow()
{
    const ShownView view(sheetOf({{QString(100000, 'x')}}));
    QCOMPARE(view.accessibleDescription(), "Receipt\n" + QString(1000, 'x') + '\n');
}

/// What it takes to see twenty places of a view, from its beginning to its end.
static int millisecondsToScroll(PaperView& view, QScrollBar* bar)
{
    const ProcessorTime time;
    for (int i = 0; i < 20; ++i) {
        bar->setValue(bar->maximum() / 19 * i);
        picture(view);
    }
    return time.milliseconds();
}

void TestPaperView::aLongPaperScrollsAtOnce()
{
    ShownView small(sheetOf(rows(100)));
    ShownView large(sheetOf(rows(100000)));
    const ComparedTimes times([&] { return millisecondsToScroll(small, small.verticalScrollBar()); },
                              [&] { return millisecondsToScroll(large, large.verticalScrollBar()); },
                              [](int few, int many) { return many < 2 * few + 40; });
    QVERIFY2(times.hold(), times.text());
}

/// What it takes to look at the cells of a row twenty times.
static int millisecondsToLook(int columns)
{
    const QString text(columns, 'x');
    const ProcessorTime time;
    for (int i = 0; i < 20; ++i)
        paper::columns(text);
    return time.milliseconds();
}

void TestPaperView::aLongRowScrollsAtOnce()
{
    const auto rowOf = [](int columns) {
        return sheetOf({{QString(columns, 'x'), {{paper::Mark::PastEdge, 32, columns - 32}}}});
    };
    ShownView small(rowOf(200));
    ShownView large(rowOf(100000));
    // Each cell is looked at, and none out of sight is drawn: that would take twenty times as long.
    const ComparedTimes times([&] { return millisecondsToScroll(small, small.horizontalScrollBar()); },
                              [&] { return millisecondsToScroll(large, large.horizontalScrollBar()); },
                              [](int few, int many) { return many < 2 * few + 5 * millisecondsToLook(100000); });
    QVERIFY2(times.hold(), times.text());
}

QTEST_MAIN(TestPaperView)
#include "tst_paperview.moc"
