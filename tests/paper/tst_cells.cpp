#include "paper/cells.h"
#include "paper/characters.h"

#include <QtTest>

using paper::CellReader;
using paper::Shape;

Q_DECLARE_METATYPE(Shape)

/// What characters are on paper, and how a text becomes cells.
class TestCells : public QObject {
    Q_OBJECT

private slots:
    void shapes_data();
    void shapes();
    void shapesAgreeWithTheToolkit();
    void pictures_data();
    void pictures();
    void cells_data();
    void cells();
    void cellsKnowTheirText();
    void marks_data();
    void marks();
};

namespace {

QString text(uint codePoint)
{
    const char32_t character = codePoint;
    return QString::fromUcs4(&character, 1);
}

/// "0:a 1:bb" of cells: the column and what is drawn; "0=x" where it takes two columns.
QString shown(const QString& row)
{
    QStringList cells;
    CellReader reader(row);
    while (reader.next())
        cells += QString::number(reader.cell().column) + (reader.cell().width == 2 ? '=' : ':') + reader.cell().drawn;
    return cells.join(' ');
}

const QString acute = text(0x0301);
const QString han = text(0x6F22);

} // namespace

void TestCells::shapes_data()
{
    QTest::addColumn<uint>("codePoint");
    QTest::addColumn<Shape>("shape");
    const auto row = [](const char* name, uint codePoint, Shape shape) { QTest::newRow(name) << codePoint << shape; };
    row("a letter", 'a', Shape::Plain);
    row("a blank", ' ', Shape::Plain);
    row("a control character", 1, Shape::Plain);
    row("an accented letter", 0xE8, Shape::Plain);
    row("the euro sign", 0x20AC, Shape::Plain);
    row("a no-break space", 0xA0, Shape::Plain);
    row("an Arabic letter", 0x0628, Shape::Plain);
    row("a Han character", 0x6F22, Shape::Wide);
    row("a Kana character", 0x3042, Shape::Wide);
    row("a Kana character of half the width", 0xFF71, Shape::Plain);
    row("a letter of full width", 0xFF21, Shape::Wide);
    row("a Hangul syllable", 0xAC00, Shape::Wide);
    row("a pizza", 0x1F355, Shape::Wide);
    row("a heart, which is a symbol of one column", 0x2764, Shape::Plain);
    row("an ellipsis, which may be both", 0x2026, Shape::Plain);
    row("an unassigned character of a wide block", 0x2FFFD, Shape::Wide);
    row("an unassigned character of another", 0x0378, Shape::Plain);
    row("the first wide character", 0x1100, Shape::Wide);
    row("the one before it", 0x10FF, Shape::Plain);
    row("the last character of the first wide range", 0x115F, Shape::Wide);
    row("the one behind it", 0x1160, Shape::Plain);
    row("an acute accent that joins", 0x0301, Shape::Combining);
    row("a variation selector", 0xFE0F, Shape::Combining);
    row("an enclosing circle", 0x20DD, Shape::Combining);
    row("a wide mark joins, too", 0x3099, Shape::Combining);
    row("a zero-width joiner", 0x200D, Shape::Hidden);
    row("a right-to-left override", 0x202E, Shape::Hidden);
    row("a right-to-left mark", 0x200F, Shape::Hidden);
    row("an isolate", 0x2067, Shape::Hidden);
    row("a line separator", 0x2028, Shape::Hidden);
    row("a byte-order mark", 0xFEFF, Shape::Hidden);
    row("a control character of the upper half", 0x85, Shape::Hidden);
    row("half a surrogate pair", 0xD83C, Shape::Hidden);
    row("no character", 0xFFFE, Shape::Hidden);
    row("no character of the last plane", 0x10FFFF, Shape::Hidden);
    row("no number of a character", 0x110000, Shape::Plain);
}

void TestCells::shapes()
{
    QFETCH(uint, codePoint);
    QTEST(paper::shapeOf(codePoint), "shape");
}

/// Its data are of another version: only what both know is compared.
void TestCells::shapesAgreeWithTheToolkit()
{
    const uint changed = 0x1734; // a mark that takes room since version 14
    int marks = 0;
    for (uint codePoint = 0x80; codePoint <= 0x10FFFF; ++codePoint) {
        const QChar::Category category = QChar::category(codePoint);
        const bool joins = category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing;
        if (category == QChar::Other_NotAssigned || codePoint == changed)
            continue;
        marks += joins ? 1 : 0;
        QVERIFY2((paper::shapeOf(codePoint) == Shape::Combining) == joins, qPrintable(QString::number(codePoint, 16)));
        const bool hides = category == QChar::Other_Control || category == QChar::Other_Format
            || category == QChar::Other_Surrogate || category == QChar::Separator_Line
            || category == QChar::Separator_Paragraph;
        QVERIFY2((paper::shapeOf(codePoint) == Shape::Hidden) == hides, qPrintable(QString::number(codePoint, 16)));
    }
    QVERIFY(marks > 1500);
}

void TestCells::pictures_data()
{
    QTest::addColumn<uint>("codePoint");
    QTest::addColumn<uint>("picture");
    const auto row = [](const char* name, uint codePoint, uint picture) {
        QTest::newRow(name) << codePoint << picture;
    };
    row("a letter is its own", 'a', 'a');
    row("a blank is its own", ' ', ' ');
    row("NUL", 0, 0x2400);
    row("a tab", '\t', 0x2409);
    row("a carriage return", '\r', 0x240D);
    row("the last control character", 0x1F, 0x241F);
    row("DEL", 0x7F, 0x2421);
    row("the first control character of the upper half", 0x80, 0x2426);
    row("the last one", 0x9F, 0x2426);
    row("what hides", 0x200B, 0x2426);
    row("half a surrogate pair", 0xDC00, 0x2426);
    row("a combining mark is its own", 0x0301, 0x0301);
    row("a wide character is its own", 0x1F355, 0x1F355);
}

void TestCells::pictures()
{
    QFETCH(uint, codePoint);
    QFETCH(uint, picture);
    QCOMPARE(paper::picture(codePoint), picture);
    const QString unit = codePoint > 0xFFFF ? text(codePoint) : QString(QChar(codePoint));
    QCOMPARE(paper::withPictures("<" + unit + ">"), "<" + text(picture) + ">");
}

void TestCells::cells_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("expected");
    const QString blanks31(31, ' ');
    const QString circle = text(0x25CC);
    const auto row = [](const char* name, const QString& text, const QString& expected) {
        QTest::newRow(name) << text << expected;
    };
    row("nothing", "", "");
    row("letters", "ab", "0:a 1:b");
    row("a character beyond the first plane", text(0x1D400), "0:" + text(0x1D400));
    row("a wide one", 'a' + han + 'b', "0:a 1=" + han + " 3:b");
    row("a mark joins", 'e' + acute + 'x', "0:e" + acute + " 1:x");
    row("two marks join", 'e' + acute + acute + 'x', "0:e" + acute + acute + " 1:x");
    row("eight marks join, the ninth is not drawn", 'e' + acute.repeated(9) + 'x', "0:e" + acute.repeated(8) + " 1:x");
    row("a mark joins a wide one", han + acute, "0=" + han + acute);
    row("a mark with nothing before it", acute + 'x', "0:" + circle + acute + " 1:x");
    row("several marks with nothing before them", acute + acute, "0:" + circle + acute + acute);
    row("a control character", "a\tb", "0:a 1:" + text(0x2409) + " 2:b");
    row("a mark joins a picture", '\t' + acute, "0:" + text(0x2409) + acute);
    row("half a pair", QString(QChar(0xD83C)) + 'x', "0:" + text(0x2426) + " 1:x");
}

void TestCells::cells()
{
    QFETCH(QString, row);
    QTEST(shown(row), "expected");
}

void TestCells::cellsKnowTheirText()
{
    const QString row = acute + 'e' + acute.repeated(9) + text(0x1F355) + 'x';
    QStringList found;
    CellReader reader(row);
    while (reader.next())
        found += QString("%1-%2").arg(reader.cell().begin).arg(reader.cell().end);
    QCOMPARE(found, QStringList({"0-1", "1-11", "11-13", "13-14"}));
    QCOMPARE(paper::columns(row), 5);
    QCOMPARE(paper::columns(""), 0);
    // A wide character that would stand across the edge moves past it.
    const QString edge = QString(31, 'x') + han;
    QCOMPARE(shown(edge).section(' ', -1), "32=" + han);
    QCOMPARE(paper::columns(edge), 34);
    QCOMPARE(shown(QString(30, 'x') + han).section(' ', -1), "30=" + han);
    QCOMPARE(shown(QString(63, 'x') + han).section(' ', -1), "63=" + han); // there is no edge any more
}

void TestCells::marks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("begin");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("columns"); // the first and how many
    const auto row = [](const char* name, const QString& text, int begin, int length, const char* columns) {
        QTest::newRow(name) << text << begin << length << columns;
    };
    row("letters", "abcd", 1, 2, "1+2");
    row("all", "abcd", 0, 4, "0+4");
    row("a wide character", 'a' + han + 'b', 1, 1, "1+2");
    row("behind a wide character", 'a' + han + 'b', 2, 1, "3+1");
    row("a mark marks its cell", 'e' + acute + 'x', 1, 1, "0+1");
    row("what is gone from the middle", "ab", 1, 0, "1+1");
    row("what is gone from the end", "ab", 2, 0, "2+1");
    row("what is gone from nothing", "", 0, 0, "0+1");
    row("beyond the end", "ab", 5, 3, "2+1");
}

void TestCells::marks()
{
    QFETCH(QString, text);
    QFETCH(int, begin);
    QFETCH(int, length);
    const paper::MarkedColumns found =
        paper::markedColumns({text, {{paper::Mark::Changed, begin, length}}, {}}).value(0);
    QTEST(QString("%1+%2").arg(found.begin).arg(found.width), "columns");
}

QTEST_APPLESS_MAIN(TestCells)

#include "tst_cells.moc"
