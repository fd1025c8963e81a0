#include "print/rowlayout.h"

#include <QtTest>

namespace {

const QVector<int> usual {40, 4, 8, 8}; // paper, quantity, price, total
const QStringList pizza {"2", "PIZZA", "3.50", "7.00"}; // quantity, description, price, total
const QStringList payment {"01-02-2024: ", "Payment", "10.00", "unused"}; // date, amount, type, nothing

QString blanks(int count)
{
    return QString(count, ' ');
}

QString dots(int count)
{
    return QString(count, '.');
}

/// The pizza under another description.
QStringList named(const QString& description)
{
    return {"2", description, "3.50", "7.00"};
}

void addColumns()
{
    QTest::addColumn<QVector<int>>("widths");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("fill");
    QTest::addColumn<QString>("expected");
}

QString rowOf(const QString& layout, const QVector<int>& widths, const QStringList& texts, QChar fill)
{
    const rowlayout::Widths w {widths[0], widths[1], widths[2], widths[3]};
    return rowlayout::row(layout, w, texts[0], texts[1], texts[2], texts[3], fill);
}

void addRow(const char* name, const QVector<int>& widths, const QStringList& texts, const QString& fill,
            const QString& expected)
{
    QTest::newRow(name) << widths << texts << fill << expected;
}

void checkRow(const QString& layout)
{
    QFETCH(QVector<int>, widths);
    QFETCH(QStringList, texts);
    QFETCH(QString, fill);
    QFETCH(QString, expected);

    QCOMPARE(rowOf(layout, widths, texts, fill.at(0)), expected);
}

} // namespace

/// Rows of every layout, written out by hand.
class TestRowLayout : public QObject {
    Q_OBJECT

private slots:
    void qdpt_data();
    void qdpt();
    void qxdpt_data();
    void qxdpt();
    void qxdtDoubleLine_data();
    void qxdtDoubleLine();
    void qxd_data();
    void qxd();
    void qd_data();
    void qd();
    void dateAmountType_data();
    void dateAmountType();
    void rowLength_data();
    void rowLength();
    void unknownLayoutGivesNothing_data();
    void unknownLayoutGivesNothing();
    void descriptionWidth_data();
    void descriptionWidth();
};

void TestRowLayout::qdpt_data()
{
    addColumns();

    addRow("fills the paper", usual, pizza, ".", "   2 PIZZA..................3.50    7.00");
    addRow("pads the total with blanks and the price with the fill", usual, {"", "TOTAL", "", "12.50"}, ".",
           "     TOTAL......................   12.50");
    addRow("filled with blanks", usual, pizza, " ", "   2 PIZZA                  3.50    7.00");
    addRow("filled with a character beyond ASCII", usual, pizza, "·", "   2 PIZZA··················3.50    7.00");
    addRow("four empty texts", usual, {"", "", "", ""}, ".", "     ...........................        ");

    addRow("a description just as wide as its column is whole", usual, named("ABCDEFGHIJKLMNOPQRS"), ".",
           "   2 ABCDEFGHIJKLMNOPQRS....3.50    7.00");
    addRow("a description one wider loses its last character", usual, named("ABCDEFGHIJKLMNOPQRST"), ".",
           "   2 ABCDEFGHIJKLMNOPQRS....3.50    7.00");
    addRow("a description one narrower gets one fill character", usual, named("ABCDEFGHIJKLMNOPQR"), ".",
           "   2 ABCDEFGHIJKLMNOPQR.....3.50    7.00");
    addRow("texts just as wide as their columns", usual, {"1234", "PIZZA", "12345.67", "98765.43"}, ".",
           "1234 PIZZA..............12345.6798765.43");
    addRow("a quantity wider than its column widens the row", usual, {"12345", "PIZZA", "3.50", "7.00"}, ".",
           "12345 PIZZA..................3.50    7.00");
    addRow("a price wider than its column widens the row", usual, {"2", "PIZZA", "123456.78", "7.00"}, ".",
           "   2 PIZZA..............123456.78    7.00");
    addRow("a total wider than its column widens the row", usual, {"2", "PIZZA", "3.50", "123456.78"}, ".",
           "   2 PIZZA..................3.50123456.78");
    addRow("everything too wide: only the description is cut", usual,
           {"12345", "ABCDEFGHIJKLMNOPQRSTUVWXYZ", "123456.78", "987654.32"}, ".",
           "12345 ABCDEFGHIJKLMNOPQRS123456.78987654.32");

    addRow("a description width of one", {22, 4, 8, 8}, pizza, ".", "   2 P....3.50    7.00");
    addRow("a description width of zero", {21, 4, 8, 8}, pizza, ".", "   2 ....3.50    7.00");
    addRow("a description width of minus one neither pads nor cuts", {20, 4, 8, 8}, pizza, ".",
           "   2 PIZZA....3.50    7.00");
    addRow("a description width of minus one and nothing to print", {20, 4, 8, 8}, named(""), ".",
           "   2 ....3.50    7.00");
    addRow("a paper of zero", {0, 4, 8, 8}, pizza, ".", "   2 PIZZA....3.50    7.00");
    addRow("a negative paper", {-40, 4, 8, 8}, pizza, ".", "   2 PIZZA....3.50    7.00");

    addRow("all widths zero", {0, 0, 0, 0}, pizza, ".", "2 PIZZA3.507.00");
    addRow("columns of zero give the description the paper", {10, 0, 0, 0}, pizza, ".", "2 PIZZA....3.507.00");
    addRow("a negative quantity width pads nothing and widens the description", {40, -4, 8, 8}, pizza, ".",
           "2 PIZZA" + dots(22) + "....3.50    7.00");
    addRow("a negative price width pads nothing and widens the description", {40, 4, -8, 8}, pizza, ".",
           "   2 PIZZA" + dots(30) + "3.50    7.00");
    addRow("a negative total width pads nothing and widens the description", {40, 4, 8, -8}, pizza, ".",
           "   2 PIZZA" + dots(30) + "....3.507.00");
    addRow("a huge paper", {10000, 0, 0, 0}, pizza, ".", "2 PIZZA" + dots(9994) + "3.507.00");
    addRow("huge columns", {0, 10000, 10000, 10000}, pizza, ".",
           blanks(9999) + "2 PIZZA" + dots(9996) + "3.50" + blanks(9996) + "7.00");

    addRow("an accent is one character", usual, named("CAFFÈ"), ".", "   2 CAFFÈ..................3.50    7.00");
    addRow("characters are UTF-16 units: an emoji counts two", {24, 4, 8, 8}, named("A😀B"), ".",
           "   2 A😀....3.50    7.00");
    addRow("an emoji at the cut is split", {24, 4, 8, 8}, named("AB😀"), ".",
           "   2 AB" + QString(QChar(0xd83d)) + "....3.50    7.00");
}

void TestRowLayout::qdpt()
{
    checkRow("qdpt");
}

void TestRowLayout::qxdpt_data()
{
    addColumns();

    addRow("fills the paper", usual, pizza, ".", "   2 x PIZZA................3.50    7.00");
    addRow("filled with blanks", usual, pizza, " ", "   2 x PIZZA                3.50    7.00");
    addRow("four empty texts", usual, {"", "", "", ""}, ".", "     x .........................        ");
    addRow("no price leaves the fill in its column", usual, {"3", "PRIMI", "", "24.00"}, ".",
           "   3 x PRIMI....................   24.00");

    addRow("a description just as wide as its column is whole", usual, named("ABCDEFGHIJKLMNOPQ"), ".",
           "   2 x ABCDEFGHIJKLMNOPQ....3.50    7.00");
    addRow("a description one wider loses its last character", usual, named("ABCDEFGHIJKLMNOPQR"), ".",
           "   2 x ABCDEFGHIJKLMNOPQ....3.50    7.00");
    addRow("a quantity wider than its column widens the row", usual, {"12345", "PIZZA", "3.50", "7.00"}, ".",
           "12345 x PIZZA................3.50    7.00");
    addRow("a price wider than its column widens the row", usual, {"2", "PIZZA", "123456.78", "7.00"}, ".",
           "   2 x PIZZA............123456.78    7.00");
    addRow("a total wider than its column widens the row", usual, {"2", "PIZZA", "3.50", "123456.78"}, ".",
           "   2 x PIZZA................3.50123456.78");

    addRow("a description width of one", {24, 4, 8, 8}, pizza, ".", "   2 x P....3.50    7.00");
    addRow("a description width of zero", {23, 4, 8, 8}, pizza, ".", "   2 x ....3.50    7.00");
    addRow("a description width of minus one neither pads nor cuts", {22, 4, 8, 8}, pizza, ".",
           "   2 x PIZZA....3.50    7.00");
    addRow("all widths zero", {0, 0, 0, 0}, pizza, ".", "2 x PIZZA3.507.00");
    addRow("negative columns pad nothing and widen the description", {20, -1, -2, -3}, pizza, ".",
           "2 x PIZZA" + dots(18) + "3.507.00");
    addRow("a huge paper", {10000, 4, 8, 8}, pizza, ".", "   2 x PIZZA" + dots(9972) + "....3.50    7.00");
}

void TestRowLayout::qxdpt()
{
    checkRow("qxdpt");
}

void TestRowLayout::qxdtDoubleLine_data()
{
    addColumns();
    const QVector<int> narrow {32, 4, 8, 8};

    addRow("two lines, the second fills the paper", narrow, pizza, ".", "2 x 3.50\nPIZZA.......................7.00");
    addRow("the fill pads the total too", narrow, pizza, " ", "2 x 3.50\nPIZZA                       7.00");
    addRow("quantity and price widths play no part", {32, 20, 20, 8}, pizza, ".",
           "2 x 3.50\nPIZZA.......................7.00");
    addRow("the first line is never cut", narrow, {"1234567890123456", "PIZZA", "1234567890123456.78", "7.00"}, ".",
           "1234567890123456 x 1234567890123456.78\nPIZZA.......................7.00");
    addRow("four empty texts", narrow, {"", "", "", ""}, ".", " x \n................................");

    addRow("a description just as wide as its column is whole", narrow, named("ABCDEFGHIJKLMNOPQRSTUVWX"), ".",
           "2 x 3.50\nABCDEFGHIJKLMNOPQRSTUVWX....7.00");
    addRow("a description one wider loses its last character", narrow, named("ABCDEFGHIJKLMNOPQRSTUVWXY"), ".",
           "2 x 3.50\nABCDEFGHIJKLMNOPQRSTUVWX....7.00");
    addRow("a total wider than its column widens the second line", narrow, {"2", "PIZZA", "3.50", "123456.78"}, ".",
           "2 x 3.50\nPIZZA...................123456.78");
    addRow("a description width of one", {9, 4, 8, 8}, pizza, ".", "2 x 3.50\nP....7.00");
    addRow("a description width of zero", {8, 4, 8, 8}, pizza, ".", "2 x 3.50\n....7.00");
    addRow("a description width of minus one neither pads nor cuts", {7, 4, 8, 8}, pizza, ".",
           "2 x 3.50\nPIZZA....7.00");
    addRow("a negative total width pads nothing and widens the description", {12, 4, 8, -8}, pizza, ".",
           "2 x 3.50\nPIZZA...............7.00");
}

void TestRowLayout::qxdtDoubleLine()
{
    checkRow("qxdtDoubleLine");
}

void TestRowLayout::qxd_data()
{
    addColumns();
    const QVector<int> narrow {20, 4, 8, 8};

    addRow("fills the paper, without price and total", narrow, pizza, ".", "   2 x PIZZA........");
    addRow("filled with blanks", narrow, pizza, " ", "   2 x PIZZA        ");
    addRow("price and total widths play no part", {20, 4, 30, 30}, pizza, ".", "   2 x PIZZA........");
    addRow("four empty texts", narrow, {"", "", "", ""}, ".", "     x .............");
    addRow("a description just as wide as its column is whole", narrow, named("ABCDEFGHIJKLM"), ".",
           "   2 x ABCDEFGHIJKLM");
    addRow("a description one wider loses its last character", narrow, named("ABCDEFGHIJKLMN"), ".",
           "   2 x ABCDEFGHIJKLM");
    addRow("a quantity wider than its column widens the row", narrow, {"12345", "PIZZA", "", ""}, ".",
           "12345 x PIZZA........");
    addRow("a description width of one", {8, 4, 8, 8}, pizza, ".", "   2 x P");
    addRow("a description width of zero", {7, 4, 8, 8}, pizza, ".", "   2 x ");
    addRow("a description width of minus one neither pads nor cuts", {6, 4, 8, 8}, pizza, ".", "   2 x PIZZA");
    addRow("a negative quantity width pads nothing and widens the description", {10, -4, 8, 8}, pizza, ".",
           "2 x PIZZA......");
}

void TestRowLayout::qxd()
{
    checkRow("qxd");
}

void TestRowLayout::qd_data()
{
    addColumns();
    const QVector<int> narrow {20, 4, 8, 8};

    addRow("two short of the paper, and no dots", narrow, pizza, ".", "   2 PIZZA        ");
    addRow("filled with blanks", narrow, pizza, " ", "   2 PIZZA        ");
    addRow("price and total widths play no part", {20, 4, 30, 30}, pizza, ".", "   2 PIZZA        ");
    addRow("four empty texts", narrow, {"", "", "", ""}, ".", blanks(18));
    addRow("a description just as wide as its column is whole", narrow, named("ABCDEFGHIJKLM"), ".",
           "   2 ABCDEFGHIJKLM");
    addRow("a description one wider loses its last character", narrow, named("ABCDEFGHIJKLMN"), ".",
           "   2 ABCDEFGHIJKLM");
    addRow("a quantity wider than its column widens the row", narrow, {"12345", "PIZZA", "", ""}, ".",
           "12345 PIZZA        ");
    addRow("a description width of one", {8, 4, 8, 8}, pizza, ".", "   2 P");
    addRow("a description width of zero", {7, 4, 8, 8}, pizza, ".", "   2 ");
    addRow("a description width of minus one neither pads nor cuts", {6, 4, 8, 8}, pizza, ".", "   2 PIZZA");
    addRow("a negative quantity width pads nothing and widens the description", {10, -4, 8, 8}, pizza, ".",
           "2 PIZZA      ");
}

void TestRowLayout::qd()
{
    checkRow("qd");
}

void TestRowLayout::dateAmountType_data()
{
    addColumns();

    addRow("three short of the paper", usual, payment, ".", "01-02-2024:    Payment..........10.00");
    addRow("filled with blanks", usual, payment, " ", "01-02-2024:    Payment          10.00");
    addRow("quantity and total widths play no part", {40, 20, 8, 20}, payment, ".",
           "01-02-2024:    Payment..........10.00");
    addRow("three empty texts", usual, {"", "", "", "unused"}, ".", "               ......................");
    addRow("a date of fifteen characters", usual, {"ABCDEFGHIJKLMNO", "Payment", "10.00", ""}, ".",
           "ABCDEFGHIJKLMNOPayment..........10.00");
    addRow("a longer date is not cut and widens the row", usual, {"ABCDEFGHIJKLMNOP", "Payment", "10.00", ""}, ".",
           "ABCDEFGHIJKLMNOPPayment..........10.00");
    addRow("a middle text just as wide as its column is whole", usual, {"1: ", "ABCDEFGHIJKLMN", "10.00", ""}, ".",
           "1:             ABCDEFGHIJKLMN...10.00");
    addRow("a middle text one wider loses its last character", usual, {"1: ", "ABCDEFGHIJKLMNO", "10.00", ""}, ".",
           "1:             ABCDEFGHIJKLMN...10.00");
    addRow("a last text wider than its column widens the row", usual, {"1: ", "Payment", "123456.78", ""}, ".",
           "1:             Payment.......123456.78");
    addRow("a middle width of one", {27, 4, 8, 8}, payment, ".", "01-02-2024:    P...10.00");
    addRow("a middle width of zero", {26, 4, 8, 8}, payment, ".", "01-02-2024:    ...10.00");
    addRow("a middle width of minus one neither pads nor cuts", {25, 4, 8, 8}, payment, ".",
           "01-02-2024:    Payment...10.00");
    addRow("a negative price width pads nothing and widens the middle", {20, 4, -8, 8}, payment, ".",
           "01-02-2024:    Payment...10.00");
}

void TestRowLayout::dateAmountType()
{
    checkRow("date-amount-type");
}

void TestRowLayout::rowLength_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("shortOfThePaper");

    QTest::newRow("qdpt fills the paper") << "qdpt" << 0;
    QTest::newRow("qxdpt fills the paper") << "qxdpt" << 0;
    QTest::newRow("qxd fills the paper") << "qxd" << 0;
    QTest::newRow("qd is two short") << "qd" << 2;
    QTest::newRow("date-amount-type is three short") << "date-amount-type" << 3;
}

void TestRowLayout::rowLength()
{
    QFETCH(QString, layout);
    QFETCH(int, shortOfThePaper);

    for (int paper = 26; paper <= 80; ++paper) {
        for (const QString& description : {QString(), QString("PIZZA"), QString(100, 'X')}) {
            const QString row = rowOf(layout, {paper, 4, 8, 8}, named(description), '.');
            QCOMPARE(row.size(), paper - shortOfThePaper);
        }
    }
}

void TestRowLayout::unknownLayoutGivesNothing_data()
{
    QTest::addColumn<QString>("layout");

    QTest::newRow("no name") << "";
    QTest::newRow("another name") << "columns";
    QTest::newRow("upper case") << "QDPT";
    QTest::newRow("one letter in the wrong case") << "qxdtDoubleline";
    QTest::newRow("capital first letter") << "Date-amount-type";
    QTest::newRow("the beginning of a name") << "qxdt";
    QTest::newRow("a name and more") << "qdpts";
    QTest::newRow("a blank before") << " qdpt";
    QTest::newRow("a blank after") << "qdpt ";
}

void TestRowLayout::unknownLayoutGivesNothing()
{
    QFETCH(QString, layout);
    QCOMPARE(rowOf(layout, usual, pizza, '.'), QString());
}

void TestRowLayout::descriptionWidth_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QVector<int>>("widths");
    QTest::addColumn<int>("expected");

    QTest::newRow("qdpt") << "qdpt" << usual << 19;
    QTest::newRow("qxdpt") << "qxdpt" << usual << 17;
    QTest::newRow("qxdtDoubleLine") << "qxdtDoubleLine" << usual << 32;
    QTest::newRow("qxd") << "qxd" << usual << 33;
    QTest::newRow("qd") << "qd" << usual << 33;
    QTest::newRow("date-amount-type") << "date-amount-type" << usual << 14;
    QTest::newRow("columns wider than the paper") << "qdpt" << QVector<int> {20, 4, 8, 8} << -1;
    QTest::newRow("no layout") << "qdptx" << usual << -1;
}

void TestRowLayout::descriptionWidth()
{
    QFETCH(QString, layout);
    QFETCH(QVector<int>, widths);
    QFETCH(int, expected);
    QCOMPARE(rowlayout::descriptionWidth(layout, {widths[0], widths[1], widths[2], widths[3]}), expected);
}

QTEST_GUILESS_MAIN(TestRowLayout)
#include "tst_rowlayout.moc"
