#include "paper/drawing.h"
#include "rolls.h"
#include "sheets.h"
#include "support/registerscript.h"

#include <QtTest>

using paper::Frame;
using paper::Mark;
using paper::Row;
using paper::Sheet;
using paper::Strip;

/// Papers as text, framed and plain.
class TestTextDrawing : public QObject {
    Q_OBJECT

private slots:
    void papers_data();
    void papers();
    void boxCharacters();
    void bandsStandBelowEachOther();
    void stripsStandSideBySide();
    void marksOfOneStripMoveTheOthers();
    void longRowsDoNotMoveTheirNeighboursAway();
    void plainRows();
    void plainReceipts();
};

namespace {

const QString edge = '+' + QString(32, '-') + '+';

/// A row in its frame.
QString framed(const QString& text)
{
    return '|' + text.leftJustified(32) + '|';
}

QString lines(const QStringList& texts)
{
    return texts.join('\n') + '\n';
}

QString drawn(const Sheet& sheet)
{
    return paper::textDrawing(sheet, Frame::Ascii);
}

} // namespace

void TestTextDrawing::papers_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QStringList>("expected"); // between the upper and the lower edge
    const auto row = [](const char* name, const QByteArrayList& texts, const QStringList& expected) {
        QTest::newRow(name) << document(texts) << expected;
    };
    const QByteArray x32(32, 'x');
    row("nothing", {}, {});
    row("a line", {"Hello"}, {framed("Hello")});
    row("an empty line", {""}, {framed("")});
    row("blanks stay", {"  a  b "}, {framed("  a  b ")});
    row("up to the edge", {x32}, {framed(x32)});
    row("past the edge", {x32 + "abc"}, {framed(x32) + "abc", QString(34, ' ') + "^^^"});
    row("blanks alone do not go past the edge", {QByteArray(40, ' ')}, {framed("")});
    row("behind a quote", {"it's"}, {framed("its'"), "   ^^"});
    row("behind a quote and past the edge", {"a'" + x32},
        {framed('a' + QString(31, 'x')) + "x'", "  " + QString(31, '^') + " ^^"});
    row("a control character", {"a\tb"}, {framed(QString("a") + QChar(0x2409) + "b")});
    row("a combining mark joins", {"e\xCC\x81" + x32.left(31)}, {"|e" + QString(QChar(0x0301)) + x32.left(31) + '|'});
    row("wide characters take two columns", {QByteArray("\xE6\xBC\xA2").repeated(2)},
        {'|' + QString(2, QChar(0x6F22)) + QString(28, ' ') + '|'});
    row("a wide character across the edge moves past it",
        {x32.left(31)
         + "\xE6\xBC\xA2"
           "a"},
        {framed(x32.left(31)) + QChar(0x6F22) + 'a', QString(34, ' ') + "^^^"});
}

void TestTextDrawing::papers()
{
    QFETCH(QByteArray, script);
    QFETCH(QStringList, expected);
    const paper::Rows rows = paper::readRoll(script).documents.first().rows;
    QCOMPARE(drawn({{{Strip {{}, rows}}}}), lines(QStringList(edge) + expected + QStringList(edge)));
}

void TestTextDrawing::boxCharacters()
{
    const QString across(32, QChar(0x2500));
    const QString side = QChar(0x2502);
    QCOMPARE(paper::textDrawing(sheetOf({"a"}, "Receipt"), Frame::Box),
             lines({"Receipt", QChar(0x250C) + across + QChar(0x2510), side + QString("a").leftJustified(32) + side,
                    QChar(0x2514) + across + QChar(0x2518)}));
}

void TestTextDrawing::bandsStandBelowEachOther()
{
    const Sheet sheet {{{Strip {"one\ttwo", rowsOf({"a"})}}, {Strip {{}, rowsOf({"b"})}}}};
    QCOMPARE(drawn(sheet),
             lines({QString("one") + QChar(0x2409) + "two", edge, framed("a"), edge, "", edge, framed("b"), edge}));
    QCOMPARE(drawn({}), QString());
}

void TestTextDrawing::stripsStandSideBySide()
{
    const Sheet sheet {
        {{Strip {"left", rowsOf({"a", "b"})}, Strip {"none", {}, false}, Strip {"right", rowsOf({"c"})}}}};
    const QString gap(2, ' ');
    const QString away(34, ' ');
    QCOMPARE(drawn(sheet),
             lines({QString("left").leftJustified(34) + gap + QString("none").leftJustified(34) + gap + "right",
                    edge + gap + away + gap + edge, framed("a") + gap + away + gap + framed("c"),
                    framed("b") + gap + away + gap + edge, edge}));
}

void TestTextDrawing::marksOfOneStripMoveTheOthers()
{
    Sheet sheet {{{Strip {{}, rowsOf({"abc", "d"})}, Strip {{}, rowsOf({"axc", "d"})}}}};
    sheet.bands[0][0].rows[0].marked += {Mark::Changed, 1, 1};
    sheet.bands[0][1].rows[0].marked += {Mark::Changed, 1, 1};
    sheet.bands[0][1].rows[1].marked += {Mark::Changed, 1, 0}; // what is gone
    const QString gap(2, ' ');
    QCOMPARE(drawn(sheet),
             lines({edge + gap + edge, framed("abc") + gap + framed("axc"), "  ^" + QString(35, ' ') + '^',
                    framed("d") + gap + framed("d"), QString(38, ' ') + '^', edge + gap + edge}));
}

/// Of a row that is much too long a hundred columns are drawn where another paper stands beside it.
void TestTextDrawing::longRowsDoNotMoveTheirNeighboursAway()
{
    Row row {QString(1000, 'x')};
    row.marked += {Mark::PastEdge, 32, 968};
    const Strip strip {{}, {row}};
    const QStringList rows = drawn({{{strip, strip}}}).split('\n');
    const QString x32(32, 'x');
    QCOMPARE(rows.at(1), framed(x32) + QString(100, 'x') + "  " + framed(x32) + QString(968, 'x'));
    QCOMPARE(rows.at(2), QString(34, ' ') + QString(100, '^') + QString(36, ' ') + QString(968, '^'));
}

void TestTextDrawing::plainRows()
{
    const paper::Roll roll = paper::readRoll(document({" a ", "", "it's", QByteArray(40, 'x'), QByteArray(40, ' '),
                                                       "tab\there", "e" + QByteArray("\xCC\x81").repeated(20)}));
    QCOMPARE(paper::plainText(roll.documents.first()),
             lines({" a ", "", "its'", QString(40, 'x'), QString(40, ' '), QString("tab") + QChar(0x2409) + "here",
                    'e' + QString(20, QChar(0x0301))}));
    QCOMPARE(paper::plainText({}), QString());
}

void TestTextDrawing::plainReceipts()
{
    const paper::Roll roll = paper::readRoll(fiscalReceipt({"VEND REP=1,QTY=1,PREZZO=1,DES='a'"}));
    QCOMPARE(paper::plainText(roll.documents.first()),
             lines({"a                           1.00", "  1 x 1.00                 REP 1",
                    "--------------------------------", "TOTAL                       1.00", "",
                    "This is our reading of the", "script: the register arranges a", "receipt in its own way."}));
}

QTEST_APPLESS_MAIN(TestTextDrawing)

#include "tst_textdrawing.moc"
