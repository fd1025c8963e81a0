#include "paper/comparison.h"
#include "paper/drawing.h"
#include "paper/sheet.h"
#include "recordingcanvas.h"
#include "rolls.h"
#include "support/comparedtimes.h"
#include "support/processortime.h"
#include "support/registerscript.h"

#include <QtTest>

#include <functional>

using paper::readRoll;
using paper::Roll;

/// Scripts that nobody would write: they are read and drawn in a time in proportion to them.
class TestHostileScripts : public QObject {
    Q_OBJECT

private slots:
    void timeGrowsWithTheScript_data();
    void timeGrowsWithTheScript();
    void drawingsStayInProportion();
    void pagesOfManyDocuments();
    void nulsAreCharacters();
};

using Script = std::function<QByteArray(int size)>;
Q_DECLARE_METATYPE(Script)

namespace {

/// Everything that is done with a script.
void useAll(const QByteArray& script)
{
    const Roll roll = readRoll(script);
    paper::Sheet sheet;
    for (const paper::Document& drawn : roll.documents) {
        sheet.bands += paper::Sheet::Band {{{}, drawn.rows}, {{}, drawn.rows}};
        paper::plainText(drawn);
        paper::alignedRows(drawn.rows, drawn.rows.mid(drawn.rows.size() / 2));
    }
    paper::textDrawing(sheet, paper::Frame::Box);
    paper::svgDrawing(sheet);
    paper::looksAlike(roll, readRoll(script.left(script.size() / 2)));
}

int millisecondsFor(const QByteArray& script)
{
    const ProcessorTime time;
    useAll(script);
    return time.milliseconds();
}

/// Draws so many documents page by page.
int millisecondsForPages(int documents)
{
    paper::Sheet sheet;
    for (int i = 0; i < documents; ++i)
        sheet.bands += paper::Sheet::Band {{{}, {{"a"}}}};
    const paper::Scene scene(sheet);
    RecordingCanvas canvas;
    const ProcessorTime time;
    for (int top = 0; top < scene.size().height();) {
        const int end = scene.pageEnd(top, 1380);
        scene.draw(canvas, top, end);
        top = end;
    }
    return canvas.cells.size() == documents ? time.milliseconds() : INT_MAX; // nothing left out to be fast
}

} // namespace

void TestHostileScripts::timeGrowsWithTheScript_data()
{
    QTest::addColumn<Script>("script");
    const auto row = [](const char* name, const Script& script) { QTest::newRow(name) << script; };
    row("a long line", [](int size) { return document({QByteArray(size, 'x')}); });
    row("a long line of blanks", [](int size) { return document({QByteArray(size, ' ')}); });
    row("many lines", [](int size) { return openDocument({}) + line("a").repeated(size / 16); });
    row("many lines that are no commands", [](int size) { return QByteArray("a\n").repeated(size / 8); });
    row("many empty lines", [](int size) { return QByteArray("\n").repeated(size / 8); });
    row("many marks on one cell", [](int size) { return document({"e" + QByteArray("\xCC\x81").repeated(size / 2)}); });
    row("many marks on many cells", [](int size) { return document({QByteArray("e\xCC\x81").repeated(size / 3)}); });
    row("many quotes", [](int size) { return document({QByteArray("'").repeated(size)}); });
    row("many invalid bytes", [](int size) { return document({QByteArray("\xE8").repeated(size)}); });
    row("many runs of invalid bytes", [](int size) { return document({QByteArray("\xE8 ").repeated(size / 4)}); });
    row("many NULs", [](int size) { return document({QByteArray(size, '\0')}); });
    row("many documents", [](int size) { return document({"a"}).repeated(size / 64); });
    row("many openings", [](int size) { return QByteArray("nofis apri\n").repeated(size / 64); });
    row("many sales", [](int size) {
        return fiscalReceipt({}).chopped(11) + QByteArray("VEND REP=1,QTY=2,PREZZO=3,DES='a'\r\n").repeated(size / 64);
    });
    row("many sales in an ordinary document", [](int size) {
        return openDocument({})
            + QByteArray("VEND REP=1,QTY=2,PREZZO=3,DES='a'\r\nnofis riga='a'\r\n").repeated(size / 512);
    });
    row("many payments before many sales", [](int size) {
        return fiscalReceipt({}).chopped(11)
            + QByteArray("100H1T\r\nVEND REP=1,QTY=2,PREZZO=3,DES='a'\r\n").repeated(size / 128);
    });
    row("many names of a field", [](int size) {
        return fiscalReceipt({"VEND REP=" + QByteArray(",QTY=").repeated(size / 5) + ",PREZZO=1,DES='a'"});
    });
    row("many digits",
        [](int size) { return fiscalReceipt({"VEND REP=1,QTY=" + QByteArray(size, '9') + ",PREZZO=1,DES='a'"}); });
    row("many words", [](int size) { return document({QByteArray("a ").repeated(size / 2)}); });
}

void TestHostileScripts::timeGrowsWithTheScript()
{
    QFETCH(Script, script);
    const ComparedTimes times = growth([&](int size) { return millisecondsFor(script(size)); }, 25000);
    QVERIFY2(times.hold(), times.text());
}

void TestHostileScripts::drawingsStayInProportion()
{
    const QByteArray script = document({QByteArray(100000, 'x')}) + openDocument({}) + line("a").repeated(10000);
    paper::Sheet sheet;
    for (const paper::Document& drawn : readRoll(script).documents)
        sheet.bands += paper::Sheet::Band {{{}, drawn.rows}, {{}, drawn.rows}};
    QVERIFY(paper::textDrawing(sheet, paper::Frame::Ascii).size() < 30 * script.size());

    // One long row beside many short ones.
    const paper::Rows many = readRoll(openDocument({}) + line("a").repeated(10000)).documents.first().rows;
    paper::Rows mixed = many;
    mixed += readRoll(script).documents.first().rows;
    QVERIFY(paper::textDrawing({{{{{}, mixed}, {{}, mixed}}}}, paper::Frame::Ascii).size() < 30 * script.size());
}

/// A page takes what stands on it, not what stands on all the others.
void TestHostileScripts::pagesOfManyDocuments()
{
    const ComparedTimes times = growth(millisecondsForPages, 25000);
    QVERIFY2(times.hold(), times.text());
}

void TestHostileScripts::nulsAreCharacters()
{
    const Roll roll = readRoll(document({QByteArray("a\0b", 3)}));
    QCOMPARE(roll.faults.size(), 0);
    QCOMPARE(roll.documents.first().rows.first().text.size(), 3);
    QCOMPARE(paper::plainText(roll.documents.first()), QString("a") + QChar(0x2400) + "b\n");
}

QTEST_APPLESS_MAIN(TestHostileScripts)

#include "tst_hostilescripts.moc"
