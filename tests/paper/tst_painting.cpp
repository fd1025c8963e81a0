#include "paper/painting/painting.h"
#include "sheets.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QtTest>

using paper::Mark;
using paper::Sheet;
using paper::Strip;

/// Papers as PNG and PDF, without a display.
class TestPainting : public QObject {
    Q_OBJECT

private slots:
    void aPictureIsAsLargeAsItsScale();
    void colours();
    void charactersStandInTheirCells();
    void everyControlCharacterHasItsPicture();
    void tooLargePicturesAreRefused();
    void tooWidePicturesAreRefused();
    void pages_data();
    void pages();
    void emptySheets();
};

namespace {

QImage picture(const Sheet& sheet, int scale = 1)
{
    QString reason;
    const QImage image = QImage::fromData(paper::pngDrawing(sheet, scale, reason), "PNG");
    if (image.isNull())
        qFatal("There is no picture: %s", qPrintable(reason));
    return image;
}

/// Whether something else than the paper's white is in the cell.
bool isInked(const QImage& image, int row, int column)
{
    const QRect cell(30 + 10 * column, 30 + 20 * row, 10, 20);
    for (int y = cell.top(); y <= cell.bottom(); ++y) {
        for (int x = cell.left(); x <= cell.right(); ++x) {
            if (image.pixelColor(x, y) != Qt::white)
                return true;
        }
    }
    return false;
}

int pageCount(const QByteArray& pdf)
{
    return pdf.count("/Type /Page\n");
}

} // namespace

void TestPainting::aPictureIsAsLargeAsItsScale()
{
    const Sheet sheet = sheetOf({"a", "b"});
    QCOMPARE(paper::drawingSize(sheet), QSize(380, 100)); // 340 and 60 of paper, and 20 around it
    QCOMPARE(picture(sheet).size(), QSize(380, 100));
    QCOMPARE(picture(sheet, 8).size(), QSize(3040, 800));
}

void TestPainting::colours()
{
    Sheet sheet = sheetOf({"a"});
    sheet.bands[0][0].rows[0].marked += {Mark::Changed, 2, 0};
    const QImage image = picture(sheet);
    QCOMPARE(image.pixelColor(2, 2), QColor(0xC8, 0xC8, 0xC8));
    QCOMPARE(image.pixelColor(200, 40), QColor(Qt::white));
    QCOMPARE(image.pixelColor(45, 31), QColor(0xFF, 0xF0, 0xA0));
    QCOMPARE(image.pixelColor(21, 40), QColor(0xB0, 0x60, 0x00));
}

void TestPainting::charactersStandInTheirCells()
{
    const QImage image = picture(sheetOf({"I   I", "", QString(31, ' ') + 'I'}));
    QVERIFY(isInked(image, 0, 0));
    for (int column = 1; column < 4; ++column)
        QVERIFY(!isInked(image, 0, column));
    QVERIFY(isInked(image, 0, 4));
    for (int column = 0; column < 32; ++column)
        QVERIFY(!isInked(image, 1, column));
    QVERIFY(isInked(image, 2, 31));
    QVERIFY(!isInked(image, 2, 30));
}

// A font without them would draw the same box for all.
void TestPainting::everyControlCharacterHasItsPicture()
{
    QVector<QImage> pictures {picture(sheetOf({" "}))};
    for (int code = 0; code <= 0x80; code = code < 0x1F ? code + 1 : std::max(code + 1, 0x7F)) {
        const QImage image = picture(sheetOf({QString(QChar(code))}));
        QVERIFY2(!pictures.contains(image), qPrintable(QString::number(code, 16)));
        pictures += image;
    }
    QCOMPARE(pictures.size(), 1 + 32 + 2);
}

void TestPainting::tooLargePicturesAreRefused()
{
    QStringList rows;
    for (int i = 0; i < 1497; ++i)
        rows += "a";
    QString reason;
    QVERIFY(!paper::pngDrawing(sheetOf(rows), 1, reason).isNull()); // 30,000 pixels
    QCOMPARE(reason, QString());
    rows += "a";
    QVERIFY(paper::pngDrawing(sheetOf(rows), 1, reason).isNull());
    QCOMPARE(reason, QString("The picture would have a side of more than 30000 pixels. A PDF breaks into pages."));
    QVERIFY(paper::pngDrawing(sheetOf(rows.mid(0, 800)), 2, reason).isNull());
}

/// A title of 2,994 columns takes 29,940 units: 10 more stand at its left, 10 between its part on the paper and that
/// beside it, and 20 at either side of all.
void TestPainting::tooWidePicturesAreRefused()
{
    const auto sheet = [](int columns) { return sheetOf({"a"}, QString(columns, 'x')); };
    QString reason;
    QCOMPARE(paper::drawingSize(sheet(2994)).width(), 30000);
    QVERIFY(!paper::pngDrawing(sheet(2994), 1, reason).isNull());
    QCOMPARE(reason, QString());
    QVERIFY(paper::pngDrawing(sheet(2995), 1, reason).isNull());
    QCOMPARE(reason, QString("The picture would have a side of more than 30000 pixels. A PDF breaks into pages."));
}

void TestPainting::pages_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("pages");
    // A page of 297 mm without margins of 10 points has room for 289.9 mm, which are 1,380 units of 0.21 mm: a margin
    // of 20, the paper's 10 before its first row, 67 rows, and part of what follows the last one. Other pages begin
    // with a row and have room for 69.
    QTest::newRow("one row") << 1 << 1;
    QTest::newRow("as many as a page has room for") << 67 << 1;
    QTest::newRow("one more") << 68 << 2;
    QTest::newRow("as many as two have room for") << 136 << 2;
    QTest::newRow("one more than that") << 137 << 3;
}

void TestPainting::pages()
{
    QFETCH(int, rows);
    QStringList texts;
    for (int i = 0; i < rows; ++i)
        texts += QString::number(i);
    const QByteArray pdf = paper::pdfDrawing(sheetOf(texts));
    QVERIFY(pdf.startsWith("%PDF-"));
    QTEST(pageCount(pdf), "pages");
}

void TestPainting::emptySheets()
{
    QCOMPARE(paper::drawingSize({}), QSize(40, 40));
    QCOMPARE(picture({}).size(), QSize(40, 40));
    QCOMPARE(pageCount(paper::pdfDrawing({})), 1);
    QCOMPARE(pageCount(paper::pdfDrawing({{{Strip {"none", {}, false}}}})), 1);
}

QTEST_MAIN(TestPainting)

#include "tst_painting.moc"
