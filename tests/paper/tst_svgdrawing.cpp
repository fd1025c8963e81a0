#include "paper/drawing.h"
#include "sheets.h"

#include <QProcess>
#include <QtTest>

using paper::Mark;
using paper::Sheet;
using paper::Strip;

/// Papers as SVG: a cell is 10 units wide and 20 high.
class TestSvgDrawing : public QObject {
    Q_OBJECT

private slots:
    void aPaper();
    void cells_data();
    void cells();
    void marks_data();
    void marks();
    void strips();
    void isWellFormed_data();
    void isWellFormed();
};

namespace {

/// The elements of the drawing without its ground: a line each.
QList<QByteArray> elements(const Sheet& sheet)
{
    const QList<QByteArray> lines = paper::svgDrawing(sheet).split('\n');
    return lines.mid(3, lines.size() - 5); // the declaration, <svg>, the ground; </svg>, behind the last line feed
}

} // namespace

void TestSvgDrawing::aPaper()
{
    // The ground is 20 units wide around the paper, which is 340 wide, and padded by 10; the title has 24 above it.
    QCOMPARE(
        paper::svgDrawing(sheetOf({"a b", "<&"}, "T")),
        QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                   "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"380\" height=\"124\" viewBox=\"0 0 380 124\" "
                   "font-family=\"monospace\" font-size=\"16\" text-anchor=\"middle\" fill=\"#000000\">\n"
                   "<rect x=\"0\" y=\"0\" width=\"380\" height=\"124\" fill=\"#c8c8c8\"/>\n"
                   "<text x=\"25\" y=\"35\">T</text>\n"
                   "<rect x=\"20\" y=\"44\" width=\"340\" height=\"60\" fill=\"#ffffff\"/>\n"
                   "<text x=\"35\" y=\"69\">a</text>\n"
                   "<text x=\"55\" y=\"69\">b</text>\n"
                   "<text x=\"35\" y=\"89\">&lt;</text>\n"
                   "<text x=\"45\" y=\"89\">&amp;</text>\n"
                   "</svg>\n"));
}

void TestSvgDrawing::cells_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QByteArray>("expected"); // the first character's element
    QTest::newRow("a letter") << "a" << QByteArray("<text x=\"35\" y=\"45\">a</text>");
    QTest::newRow("in its column") << "   a" << QByteArray("<text x=\"65\" y=\"45\">a</text>");
    QTest::newRow("a wide character stands in the middle of two columns")
        << QString(QChar(0x6F22)) << QByteArray("<text x=\"40\" y=\"45\">\xE6\xBC\xA2</text>");
    QTest::newRow("an accent of its own")
        << QString("e") + QChar(0x0301) << QByteArray("<text x=\"35\" y=\"45\">e\xCC\x81</text>");
    QTest::newRow("a control character") << QString(QChar(1))
                                         << QByteArray("<text x=\"35\" y=\"45\">\xE2\x90\x81</text>");
    QTest::newRow("half a pair") << QString(QChar(0xD800)) << QByteArray("<text x=\"35\" y=\"45\">\xE2\x90\xA6</text>");
    QTest::newRow("in the last column") << QString(31, ' ') + 'a' << QByteArray("<text x=\"345\" y=\"45\">a</text>");
}

void TestSvgDrawing::cells()
{
    QFETCH(QString, row);
    QTEST(elements(sheetOf({row})).value(1), "expected");
}

void TestSvgDrawing::marks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("mark");
    QTest::addColumn<int>("begin");
    QTest::addColumn<int>("length");
    QTest::addColumn<QList<QByteArray>>("expected"); // between the paper and the first character
    const auto row = [](const char* name, const QString& text, Mark mark, int begin, int length,
                        const QList<QByteArray>& expected) {
        QTest::newRow(name) << text << static_cast<int>(mark) << begin << length << expected;
    };
    row("behind a quote", "abc", Mark::BehindQuote, 1, 2,
        {"<rect x=\"40\" y=\"30\" width=\"20\" height=\"20\" fill=\"#ffc8c8\"/>"});
    row("past the edge, on the other side of the paper's border", QString(33, 'x'), Mark::PastEdge, 32, 1,
        {"<rect x=\"360\" y=\"30\" width=\"10\" height=\"20\" fill=\"#ffc8c8\"/>"});
    row("changed, with a bar", "abc", Mark::Changed, 0, 1,
        {"<rect x=\"20\" y=\"30\" width=\"4\" height=\"20\" fill=\"#b06000\"/>",
         "<rect x=\"30\" y=\"30\" width=\"10\" height=\"20\" fill=\"#fff0a0\"/>"});
    row("across the edge", QString(33, 'x'), Mark::BehindQuote, 31, 2,
        {"<rect x=\"340\" y=\"30\" width=\"10\" height=\"20\" fill=\"#ffc8c8\"/>",
         "<rect x=\"360\" y=\"30\" width=\"10\" height=\"20\" fill=\"#ffc8c8\"/>"});
}

void TestSvgDrawing::marks()
{
    QFETCH(QString, text);
    QFETCH(int, mark);
    QFETCH(int, begin);
    QFETCH(int, length);
    QFETCH(QList<QByteArray>, expected);
    Sheet sheet = sheetOf({text});
    sheet.bands[0][0].rows[0].marked += {static_cast<Mark>(mark), begin, length};
    QCOMPARE(elements(sheet).mid(1, expected.size()), expected);
    QVERIFY(elements(sheet).at(1 + expected.size()).startsWith("<text"));
}

void TestSvgDrawing::strips()
{
    const Sheet sheet {{{Strip {{}, rowsOf({"a"})}, Strip {"none", {}, false}, Strip {{}, rowsOf({"b", "c"})}},
                        {Strip {{}, rowsOf({"d"})}}}};
    const QList<QByteArray> drawn = elements(sheet);
    const auto contains = [&](const char* element) { return drawn.contains(element); };
    QVERIFY(contains("<rect x=\"20\" y=\"44\" width=\"340\" height=\"40\" fill=\"#ffffff\"/>"));
    QVERIFY(contains("<rect x=\"740\" y=\"44\" width=\"340\" height=\"60\" fill=\"#ffffff\"/>"));
    QVERIFY(contains("<rect x=\"20\" y=\"124\" width=\"340\" height=\"40\" fill=\"#ffffff\"/>"));
    QVERIFY(contains("<text x=\"385\" y=\"35\">n</text>"));
    QCOMPARE(paper::svgDrawing(sheet).count("#ffffff"), 3);
}

void TestSvgDrawing::isWellFormed_data()
{
    QTest::addColumn<QString>("text");
    QString all;
    for (uint codePoint = 0; codePoint < 0x3000; ++codePoint)
        all += QChar(codePoint);
    QTest::newRow("nothing") << QString();
    QTest::newRow("the first characters, and all controls") << all;
    QTest::newRow("halves of pairs, and no characters")
        << QString(QChar(0xD800)) + QChar(0xDC00 - 1) + QChar(0xFFFE) + QChar(0xFFFF);
    QTest::newRow("markup") << "</svg><!-- ]]> --><?x?>&\"'";
}

void TestSvgDrawing::isWellFormed()
{
    QFETCH(QString, text);
    QProcess xmllint;
    xmllint.start("xmllint", {"--noout", "-"});
    xmllint.write(paper::svgDrawing(sheetOf({text}, text)));
    xmllint.closeWriteChannel();
    QVERIFY(xmllint.waitForFinished());
    QCOMPARE(xmllint.readAllStandardError(), QByteArray());
    QCOMPARE(xmllint.exitCode(), 0);
}

QTEST_APPLESS_MAIN(TestSvgDrawing)

#include "tst_svgdrawing.moc"
