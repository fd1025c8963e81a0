#include "toolkit/numbertext.h"

#include <QLocale>
#include <QtTest>

#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

/// Numbers to text and back, in a table and against C's "%.15g", with a decimal comma around them too.
class TestNumberText : public QObject {
    Q_OBJECT

private slots:
    void init();

    void text_data();
    void text();
    void agreesWithC_data();
    void agreesWithC();
    void centsComeOutWhole();

    void number_data();
    void number();
    void integer_data();
    void integer();
    void blanksOfAnyKindMayStandAround();
    void onlyAsciiMakesANumber();

    void decimalCommaChangesNothing();
};

namespace {

QString textOfC(double value)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.15g", value);
    return QString::fromLatin1(text);
}

double fromBits(std::uint64_t bits)
{
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

} // namespace

// snprintf() takes its decimal point from the process's locale.
void TestNumberText::init()
{
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale::c());
}

void TestNumberText::text_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("zero") << 0.0 << "0";
    QTest::newRow("negative zero keeps its sign") << -0.0 << "-0";
    QTest::newRow("a whole number has no point") << 7.0 << "7";
    QTest::newRow("no trailing zeros") << 12.50 << "12.5";
    QTest::newRow("a negative amount") << -12.25 << "-12.25";
    QTest::newRow("8.29 euro in cents") << 8.29 * 100 << "829";
    QTest::newRow("1138.81 euro in cents") << 1138.81 * 100 << "113881";
    QTest::newRow("0.07 euro in cents") << 0.07 * 100 << "7";
    QTest::newRow("a sum that binary misses by a hair") << 0.1 + 0.2 << "0.3";
    QTest::newRow("one third, cut at 15 digits") << 1.0 / 3 << "0.333333333333333";
    QTest::newRow("two thirds, rounded at 15 digits") << 2.0 / 3 << "0.666666666666667";
    QTest::newRow("15 digits are all kept") << 123456789012345.0 << "123456789012345";
    QTest::newRow("15 digits with a point are all kept") << 1234567890123.45 << "1234567890123.45";
    QTest::newRow("16 digits are rounded to 15") << 1234567890123456.0 << "1.23456789012346e+15";
    QTest::newRow("the greatest power of ten without an exponent") << 1e14 << "100000000000000";
    QTest::newRow("the least power of ten with an exponent") << 1e15 << "1e+15";
    QTest::newRow("rounding up into the exponent") << 999999999999999.9 << "1e+15";
    QTest::newRow("the least negative power without an exponent") << 0.0001 << "0.0001";
    QTest::newRow("the greatest negative power with an exponent") << 0.00001 << "1e-05";
    QTest::newRow("an exponent of three digits") << 1e100 << "1e+100";
    QTest::newRow("the greatest number") << DBL_MAX << "1.79769313486232e+308";
    QTest::newRow("the least number") << std::numeric_limits<double>::denorm_min() << "4.94065645841247e-324";
}

void TestNumberText::text()
{
    QFETCH(double, value);
    QFETCH(QString, expected);

    QCOMPARE(toolkit::numberText(value), expected);
}

void TestNumberText::agreesWithC_data()
{
    QTest::addColumn<QVector<double>>("values");

    std::mt19937_64 random(20);
    const auto below = [&random](double bound) { return std::ldexp(double(random()), -64) * bound; };
    QVector<double> amounts, anyBits, denormals, powers;
    for (int i = 0; i < 20000; ++i) {
        amounts << std::round(below(1e9)) / 100 << -std::round(below(1e9)) / 100 << below(1e7);
        const double value = fromBits(random());
        if (std::isfinite(value))
            anyBits << value;
        denormals << fromBits(random() >> 12) << -fromBits(random() >> 12);
    }
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        const double power = std::ldexp(1.0, exponent);
        powers << power << -power << std::nextafter(power, 0.0);
    }
    for (int exponent = -323; exponent <= 308; ++exponent) {
        const double power = std::pow(10.0, exponent);
        powers << power << std::nextafter(power, 0.0) << std::nextafter(power, DBL_MAX);
    }

    QTest::newRow("amounts up to ten millions") << amounts;
    QTest::newRow("any bits") << anyBits;
    QTest::newRow("denormals") << denormals;
    QTest::newRow("powers of two and of ten, and their neighbours") << powers;
}

void TestNumberText::agreesWithC()
{
    QFETCH(QVector<double>, values);

    for (const double value : qAsConst(values))
        QCOMPARE(toolkit::numberText(value), textOfC(value));
}

void TestNumberText::centsComeOutWhole()
{
    const auto centsOf = [](int cents) {
        const QString euro = QString("%1.%2").arg(cents / 100).arg(cents % 100, 2, 10, QChar('0'));
        return toolkit::numberText(toolkit::toNumber(euro) * 100);
    };
    for (int cents = 0; cents <= 200000; ++cents)
        QCOMPARE(centsOf(cents), QString::number(cents));
    for (int cents = 200000; cents <= 1000000000 - 9973; cents += 9973)
        QCOMPARE(centsOf(cents), QString::number(cents));
}

void TestNumberText::number_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");

    QTest::newRow("an amount") << "8.29" << 8.29;
    QTest::newRow("a whole number") << "12" << 12.0;
    QTest::newRow("a minus sign") << "-3.5" << -3.5;
    QTest::newRow("a plus sign") << "+3.5" << 3.5;
    QTest::newRow("leading zeros") << "007.50" << 7.5;
    QTest::newRow("no digit before the point") << ".5" << 0.5;
    QTest::newRow("no digit after the point") << "5." << 5.0;
    QTest::newRow("an exponent") << "1.5e3" << 1500.0;
    QTest::newRow("an exponent with a capital E and a sign") << "15E-1" << 1.5;
    QTest::newRow("white space around it") << " \t12.5\r\n " << 12.5;
    QTest::newRow("the greatest number") << "1.7976931348623157e308" << DBL_MAX;
    QTest::newRow("a thousand leading zeros") << QString(1000, '0') + "7.5" << 7.5;

    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("no text at all") << QString() << 0.0;
    QTest::newRow("white space alone") << " \t " << 0.0;
    QTest::newRow("a word") << "abc" << 0.0;
    QTest::newRow("a word after the number") << "12abc" << 0.0;
    QTest::newRow("a currency after the number") << "12 €" << 0.0;
    QTest::newRow("white space inside") << "1 2" << 0.0;
    QTest::newRow("two numbers") << "1.5 2.5" << 0.0;
    QTest::newRow("two points") << "1.2.3" << 0.0;
    QTest::newRow("two signs") << "--1" << 0.0;
    QTest::newRow("a sign alone") << "-" << 0.0;
    QTest::newRow("a point alone") << "." << 0.0;
    QTest::newRow("an exponent alone") << "e5" << 0.0;
    QTest::newRow("an unfinished exponent") << "1e" << 0.0;
    QTest::newRow("a decimal comma") << "8,29" << 0.0;
    QTest::newRow("thousands with commas") << "1,234" << 0.0;
    QTest::newRow("thousands with commas and a point") << "1,234.50" << 0.0;
    QTest::newRow("thousands with points and a comma") << "1.234,50" << 0.0;
    QTest::newRow("thousands with apostrophes") << "1'234" << 0.0;
    QTest::newRow("hexadecimal") << "0x10" << 0.0;
    QTest::newRow("inf") << "inf" << 0.0;
    QTest::newRow("+inf") << "+inf" << 0.0;
    QTest::newRow("-inf") << "-inf" << 0.0;
    QTest::newRow("INF") << "INF" << 0.0;
    QTest::newRow("infinity") << "infinity" << 0.0;
    QTest::newRow("nan") << "nan" << 0.0;
    QTest::newRow("NaN") << "NaN" << 0.0;
    QTest::newRow("too great for a double") << "1e999" << 0.0;
    QTest::newRow("too great for a double, negative") << "-1e999" << 0.0;
    QTest::newRow("too great for a double, written out") << QString(400, '9') << 0.0;
    QTest::newRow("too small for a double") << "1e-400" << 0.0;

    QTest::newRow("a minus sign that is not ASCII") << "\u22121" << 0.0;
    QTest::newRow("an exponent's minus sign that is not ASCII") << "15e\u22121" << 0.0;
    QTest::newRow("a hyphen that is not ASCII") << "\u20101" << 0.0;
    QTest::newRow("digits that are not ASCII") << "١٢" << 0.0;
    QTest::newRow("a no-break space and an ideographic one around it") << "\u00A012.5\u3000" << 12.5;
}

void TestNumberText::number()
{
    QFETCH(QString, text);
    QFETCH(double, expected);

    // QCOMPARE would take neighbours for equal.
    const double actual = toolkit::toNumber(text);
    QVERIFY2(actual == expected, qPrintable(textOfC(actual)));
}

void TestNumberText::integer_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");

    QTest::newRow("a number") << "12" << 12;
    QTest::newRow("a minus sign") << "-7" << -7;
    QTest::newRow("a plus sign") << "+7" << 7;
    QTest::newRow("leading zeros are no octal mark") << "012" << 12;
    QTest::newRow("white space around it") << " \t12\r\n " << 12;
    QTest::newRow("a no-break space and an ideographic one around it") << "\u00A012\u3000" << 12;
    QTest::newRow("the greatest of 32 bits") << "2147483647" << INT_MAX;
    QTest::newRow("the least of 32 bits") << "-2147483648" << INT_MIN;

    QTest::newRow("empty") << "" << 0;
    QTest::newRow("no text at all") << QString() << 0;
    QTest::newRow("a word") << "abc" << 0;
    QTest::newRow("a number and a word") << "12 mm" << 0;
    QTest::newRow("white space inside") << "1 2" << 0;
    QTest::newRow("a decimal point") << "12.0" << 0;
    QTest::newRow("an exponent") << "1e2" << 0;
    QTest::newRow("hexadecimal") << "0x10" << 0;
    QTest::newRow("one above 32 bits") << "2147483648" << 0;
    QTest::newRow("one below 32 bits") << "-2147483649" << 0;
    QTest::newRow("a minus sign that is not ASCII") << "\u22127" << 0;
    QTest::newRow("a hyphen that is not ASCII") << "\u20107" << 0;
    QTest::newRow("digits that are not ASCII") << "١٢" << 0;
}

void TestNumberText::integer()
{
    QFETCH(QString, text);
    QFETCH(int, expected);

    QCOMPARE(toolkit::toInteger(text), expected);
}

// The white space of Unicode, one of each: what the toolkit takes for it.
void TestNumberText::blanksOfAnyKindMayStandAround()
{
    const QString blanks = QStringLiteral("\t\n\v\f\r \u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006"
                                          "\u2007\u2008\u2009\u200A\u2028\u2029\u202F\u205F\u3000");
    QCOMPARE(blanks.size(), 25);
    for (const QChar blank : blanks) {
        QCOMPARE(toolkit::toNumber(blank + QString("-1.5") + blank), -1.5);
        QCOMPARE(toolkit::toInteger(blank + QString("-7") + blank), -7);
    }
    QCOMPARE(toolkit::toNumber(blanks + "-1.5" + blanks), -1.5);
    QCOMPARE(toolkit::toInteger(blanks + "-7" + blanks), -7);
}

// No other character has a part in a number, wherever it stands: neither as a sign nor as a digit, nor to be skipped,
// nor as an end.
void TestNumberText::onlyAsciiMakesANumber()
{
    for (ushort unit = 0; unit < 0xFFFF; ++unit) {
        const QChar other(unit);
        const bool isAscii = unit > 0 && unit < 0x80;
        if (isAscii || other.isSpace())
            continue;
        for (const QString& text : {other + QString("7"), '7' + QString(other), "7e" + QString(other) + '1',
                                    other + QString("7e1"), "-" + QString(other) + '7', '1' + QString(other) + '7'}) {
            QVERIFY2(toolkit::toNumber(text) == 0.0, qPrintable(text));
            QVERIFY2(toolkit::toInteger(text) == 0, qPrintable(text));
        }
    }
}

void TestNumberText::decimalCommaChangesNothing()
{
    std::setlocale(LC_NUMERIC, "it_IT.ISO-8859-15");
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    QVERIFY2(*std::localeconv()->decimal_point == ',', "LOCPATH must name the folder of the test locales");
    QCOMPARE(QLocale().decimalPoint(), QChar(','));

    QCOMPARE(toolkit::numberText(12.5), QString("12.5"));
    QCOMPARE(toolkit::numberText(1234567.5), QString("1234567.5"));
    QCOMPARE(toolkit::numberText(1e-7), QString("1e-07"));
    QCOMPARE(toolkit::toNumber("12.5"), 12.5);
    QCOMPARE(toolkit::toNumber("12,5"), 0.0);
    QCOMPARE(toolkit::toNumber("1.234,5"), 0.0);
}

QTEST_GUILESS_MAIN(TestNumberText)
#include "tst_numbertext.moc"
