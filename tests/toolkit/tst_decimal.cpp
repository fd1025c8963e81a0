#include "toolkit/decimal.h"

#include <QtTest>

using toolkit::Decimal;

/// Exact decimal numbers: how they are read, calculated and written.
class TestDecimal : public QObject {
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void sums_data();
    void sums();
    void products_data();
    void products();
    void order_data();
    void order();
    void hundredths_data();
    void hundredths();
    void rounding_data();
    void rounding();
    void manyGreatProducts();
    void productsThatHaveNoRoom();
    void decimalsOfATextAreAsked();
};

namespace {

Decimal number(const QString& text)
{
    const std::optional<Decimal> read = Decimal::fromText(text);
    if (!read)
        qFatal("%s is no number.", qPrintable(text));
    return *read;
}

const QString nines(30, '9');

} // namespace

void TestDecimal::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<QString>("written"); // empty where it is none, or too long

    const auto row = [](const char* name, const QString& text, const char* written) {
        QTest::newRow(name) << text << true << written;
    };
    const auto none = [](const char* name, const QString& text) { QTest::newRow(name) << text << false << ""; };

    row("a whole number", "12", "12.00");
    row("zero", "0", "0.00");
    row("minus zero is zero", "-0,00", "0.00");
    row("with a point", "12.5", "12.50");
    row("with a comma", "12,5", "12.50");
    row("with a minus", "-3.20", "-3.20");
    row("with a plus", "+3.20", "3.20");
    row("more decimals than two", "0.125", "0.125");
    row("zeros at both ends", "007.500", "7.50");
    row("white space around it", " \t12.50\n", "12.50");
    row("white space of another kind", QString::fromUtf8("\u00a012"), "12.00");
    row("beyond what a double holds", "12345678901234567890.01", "12345678901234567890.01");
    row("a digit in each place of thirty", "123456789012345.678901234567891", "123456789012345.678901234567891");
    row("thirty digits behind nothing", "0." + QString(28, '0') + "1", "0.00000000000000000000000000001");
    row("thirty digits", nines, "999999999999999999999999999999.00");
    QTest::newRow("thirty-one digits: a number, but not read") << nines + "9" << true << "";
    QTest::newRow("thirty-one digits, most of them zeros") << QString(31, '0') << true << "";

    none("nothing", "");
    none("blanks", "  ");
    none("a word", "abc");
    none("a currency sign", "12.50 €");
    none("a percent sign", "22%");
    none("a sign alone", "-");
    none("two signs", "--5");
    none("a blank behind the sign", "- 5");
    none("a minus that is not the keyboard's", "−5");
    none("a point without digits behind it", "12.");
    none("a point without digits before it", ".5");
    none("two points", "1.2.3");
    none("a thousands separator", "1.234,50");
    none("a blank inside", "1 234");
    none("an exponent", "1e3");
    none("digits of another script", "١٢");
    none("infinity", "inf");
}

void TestDecimal::texts()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    QFETCH(QString, written);

    QCOMPARE(toolkit::isDecimal(text), isNumber);
    const std::optional<Decimal> read = Decimal::fromText(text);
    QCOMPARE(read ? read->text() : QString(), written);
}

void TestDecimal::sums_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("sum");
    QTest::addColumn<QString>("difference");

    const auto row = [](const char* name, const char* left, const char* right, const char* sum,
                        const char* difference) { QTest::newRow(name) << left << right << sum << difference; };
    row("no binary fraction", "0.1", "0.2", "0.30", "-0.10");
    row("a carry through every digit", "999999999999.99", "0.01", "1000000000000.00", "999999999999.98");
    row("a loan through every digit", "1000000000000", "0.01", "1000000000000.01", "999999999999.99");
    row("two negative ones", "-1.50", "-2.25", "-3.75", "0.75");
    row("of different signs, the positive one greater", "5", "-2.5", "2.50", "7.50");
    row("of different signs, the negative one greater", "2.5", "-5", "-2.50", "7.50");
    row("of different signs and equal", "5", "-5", "0.00", "10.00");
    row("nothing and something", "0", "-7", "-7.00", "7.00");
}

void TestDecimal::sums()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(QString, sum);
    QFETCH(QString, difference);

    QCOMPARE((number(left) + number(right)).text(), sum);
    QCOMPARE((number(right) + number(left)).text(), sum);
    QCOMPARE((number(left) - number(right)).text(), difference);
}

void TestDecimal::products_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("product");

    const auto row = [](const char* name, const QString& left, const QString& right, const QString& product) {
        QTest::newRow(name) << left << right << product;
    };
    row("what a double has a little less of", "8.29", "100", "829.00");
    row("thirds", "3", "0.333", "0.999");
    row("of different signs", "-2", "4.50", "-9.00");
    row("of two negative ones", "-2", "-4.5", "9.00");
    row("with nothing", "-2", "0", "0.00");
    // (10^30 - 1)^2 = 10^60 - 2 * 10^30 + 1
    row("the greatest", nines, nines, QString(29, '9') + "8" + QString(29, '0') + "1.00");
    const QString least = "0." + QString(28, '0') + "1";
    row("the least", least, least, "0." + QString(57, '0') + "1");
    row("over the limbs' borders", "1000000000.000000001", "1000000001", "1000000001000000001.000000001");
}

void TestDecimal::products()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(QString, product);

    QCOMPARE((number(left) * number(right)).text(), product);
    QCOMPARE((number(right) * number(left)).text(), product);
}

void TestDecimal::order_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<int>("expected"); // -1, 0, 1

    const auto row = [](const char* name, const char* left, const char* right, int expected) {
        QTest::newRow(name) << left << right << expected;
    };
    row("equal, written otherwise", "5", "5,000", 0);
    row("the least difference", "0.00000000000000000000000000001", "0", 1);
    row("by the greatest digit first", "2000000000", "1999999999.99", 1);
    row("negative ones", "-5", "-4", -1);
    row("of different signs", "-5", "4", -1);
    row("zero and a negative one", "0", "-0.01", 1);
    row("zeros", "0", "-0", 0);
}

void TestDecimal::order()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(int, expected);

    QCOMPARE(number(left) < number(right), expected < 0);
    QCOMPARE(number(right) < number(left), expected > 0);
    QCOMPARE(number(left) == number(right), expected == 0);
    QCOMPARE(number(left) != number(right), expected != 0);
}

void TestDecimal::hundredths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isInHundredths");
    QTest::addColumn<QString>("hundredth");
    QTest::addColumn<QString>("magnitude");

    QTest::newRow("whole") << "22" << true << "0.22"
                           << "22.00";
    QTest::newRow("two decimals") << "-1.05" << true << "-0.0105"
                                  << "1.05";
    QTest::newRow("three decimals") << "1.005" << false << "0.01005"
                                    << "1.005";
    QTest::newRow("a digit far behind") << "1.00000000000000000001" << false << "0.0100000000000000000001"
                                        << "1.00000000000000000001";
    QTest::newRow("over a limb's border") << "12345678901" << true << "123456789.01"
                                          << "12345678901.00";
}

void TestDecimal::hundredths()
{
    QFETCH(QString, text);
    QFETCH(bool, isInHundredths);
    QFETCH(QString, hundredth);
    QFETCH(QString, magnitude);

    QCOMPARE(number(text).isInHundredths(), isInHundredths);
    QCOMPARE(number(text).hundredth().text(), hundredth);
    QCOMPARE(number(text).magnitude().text(), magnitude);
}

/// A million of the greatest products and no digit is lost, a hundredth of the least included.
void TestDecimal::rounding_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rounded");
    const auto row = [](const char* name, const QString& text, const char* rounded) {
        QTest::newRow(name) << text << rounded;
    };
    row("zero", "0", "0.00");
    row("hundredths stay", "-1.25", "-1.25");
    row("down", "0.124", "0.12");
    row("up", "0.126", "0.13");
    row("just between two", "0.125", "0.13");
    row("a bit below that", "0.12499999999999999999999999999", "0.12");
    row("just between two below zero", "-0.125", "-0.12");
    row("a bit below that one", "-0.12500000000000000000000000001", "-0.13");
    row("a bit above it", "-0.12499999999999999999999999999", "-0.12");
    row("down to zero", "0.0049", "0.00");
    row("half of a hundredth below zero is zero, without a sign", "-0.005", "0.00");
    row("a bit more than that", "-0.0051", "-0.01");
    row("over many nines", "999999999999999999999.995", "1000000000000000000000.00");
}

void TestDecimal::rounding()
{
    QFETCH(QString, text);
    QTEST(number(text).roundedToHundredths().text(), "rounded");
}

void TestDecimal::manyGreatProducts()
{
    const QString least = "0." + QString(28, '0') + "1";
    const Decimal greatest = number(nines) * number(nines);
    Decimal sum;
    for (int i = 0; i < 1000000; ++i)
        sum += greatest;
    sum += (number(least) * number(least)).hundredth();
    QCOMPARE(sum.text(), QString(29, '9') + "8" + QString(29, '0') + "1000000." + QString(59, '0') + "1");
}

void TestDecimal::productsThatHaveNoRoom()
{
    const auto product = [](const Decimal& left, const Decimal& right) {
        const std::optional<Decimal> found = Decimal::product(left, right);
        return found ? found->text() : QString("none");
    };
    const Decimal million(1000000);
    const Decimal great = number('1' + QString(29, '0')); // 10^29
    const Decimal small = number("0." + QString(28, '0') + '1'); // 10^-29
    QCOMPARE(product(number("-1.5"), number("2.5")), QString("-3.75"));
    QCOMPARE(product(number(nines), number(nines)), QString(29, '9') + '8' + QString(29, '0') + "1.00");
    QCOMPARE(product(great * great, million * million), '1' + QString(70, '0') + ".00");
    QCOMPARE(product(great * great, million * million * Decimal(100)), QString("none")); // 10^72
    QCOMPARE(product(great * great, great * great), QString("none"));
    QCOMPARE(product(small * small, number("0.001")), "0." + QString(60, '0') + '1');
    QCOMPARE(product(small * small, number("0.0001")), QString("none")); // a hundredth of it has no room
    QCOMPARE(product(small * small, small), QString("none"));
    QCOMPARE(product(Decimal(), great * great), QString("0.00"));
}

void TestDecimal::decimalsOfATextAreAsked()
{
    QCOMPARE(Decimal().text(), QString("0.00"));
    QCOMPARE(Decimal(-12).text(0), QString("-12"));
    QCOMPARE(Decimal(2147483647).text(1), QString("2147483647.0"));
    QCOMPARE(Decimal(std::numeric_limits<int>::min()).text(0), QString("-2147483648"));
    QCOMPARE(number("1.5").text(0), QString("1.5"));
    QVERIFY(Decimal(-1).isNegative() && !Decimal(0).isNegative() && !Decimal(1).isNegative());
}

QTEST_GUILESS_MAIN(TestDecimal)
#include "tst_decimal.moc"
