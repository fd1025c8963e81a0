#include "util/hlibrary.h"

#include "support/pinnedclock.h"

#include <QtTest>

#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

namespace {

/// The steps once more, in whole numbers: thousandths, cut; those of a positive amount rounded half up to hundredths,
/// those of a negative one cut.
QByteArray expectedText(double value)
{
    const int thousandths = static_cast<int>(value * 1000.0);
    const int hundredths = thousandths / 10 + (thousandths % 10 >= 5 ? 1 : 0);
    const QByteArray digits = QByteArray::number(std::abs(hundredths)).rightJustified(3, '0');
    return (hundredths < 0 ? "-" : "") + digits.chopped(2) + '.' + digits.right(2);
}

} // namespace

/// Amounts as text, and numbers by chance.
class TestNumbers : public QObject {
    Q_OBJECT

private slots:
    void truncateDecimal_data();
    void truncateDecimal();
    void everyAmount_data();
    void everyAmount();
    void hugeAmounts_data();
    void hugeAmounts();

    void randomNumber_data();
    void randomNumber();
    void randomNumberIsThatOfTheSecond();
};

void TestNumbers::truncateDecimal_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("zero") << 0.0 << "0.00";
    QTest::newRow("negative zero") << -0.0 << "0.00";
    QTest::newRow("a whole number") << 3.0 << "3.00";
    QTest::newRow("one decimal") << 1.5 << "1.50";
    QTest::newRow("12.5") << 12.5 << "12.50";
    QTest::newRow("two decimals") << 8.29 << "8.29";
    QTest::newRow("a sum that is not exact") << 0.1 + 0.2 << "0.30";
    QTest::newRow("hundreds have no decimals") << 100.0 << "100.00";

    QTest::newRow("the third decimal rounds up from 5") << 12.345 << "12.35";
    QTest::newRow("and not from 4") << 12.344 << "12.34";
    QTest::newRow("half a cent") << 0.005 << "0.01";
    QTest::newRow("a little less than half a cent") << 0.0049 << "0.00";
    QTest::newRow("the fourth decimal is cut before") << 2.0049 << "2.00";
    QTest::newRow("2.0051") << 2.0051 << "2.01";
    QTest::newRow("1.005 is less than 1005 thousandths") << 1.005 << "1.00";
    QTest::newRow("rounds to a whole number") << 0.995 << "1.00";
    QTest::newRow("rounds to one digit more") << 999.995 << "1000.00";

    QTest::newRow("negative, one decimal") << -0.5 << "-0.50";
    QTest::newRow("negative, a whole number") << -7.0 << "-7.00";
    QTest::newRow("negative amounts are cut") << -1.239 << "-1.23";
    QTest::newRow("and so are those near a whole number") << -19.999 << "-19.99";
    QTest::newRow("negative, cut to nothing") << -0.009 << "0.00";
    QTest::newRow("the smallest number") << std::numeric_limits<double>::denorm_min() << "0.00";
    QTest::newRow("the smallest number, negative") << -std::numeric_limits<double>::denorm_min() << "0.00";

    QTest::newRow("the end of the range") << 2147483.647 << "2147483.65";
    QTest::newRow("not yet a thousandth more") << 2147483.6475 << "2147483.65";
    QTest::newRow("the other end of the range") << -2147483.647 << "-2147483.64";
    QTest::newRow("beyond the range decimals are cut") << 2147483.648 << "2147483.64";
    QTest::newRow("beyond the other end") << -2147483.648 << "-2147483.64";
    QTest::newRow("beyond, near a whole number") << -9999999.999 << "-9999999.99";
    QTest::newRow("beyond, one decimal") << 4294967296.5 << "4294967296.50";
    QTest::newRow("beyond, three decimals") << 123456789.125 << "123456789.12";
    QTest::newRow("beyond, a whole number") << 3000000.0 << "3000000.00";
    QTest::newRow("10^15") << 1e15 << "1000000000000000.00";
    QTest::newRow("-10^15") << -1e15 << "-1000000000000000.00";
    QTest::newRow("10^22") << 1e22 << "10000000000000000000000.00";

    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("infinite") << infinity << "0.00";
    QTest::newRow("negative infinite") << -infinity << "0.00";
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << "0.00";
}

void TestNumbers::truncateDecimal()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(HLibrary::truncateDecimal(value), text);
}

void TestNumbers::everyAmount_data()
{
    QTest::addColumn<double>("end");
    QTest::addColumn<double>("unit"); // amounts are multiples of it; 0 for any

    QTest::newRow("a bill") << 100.0 << 0.0;
    QTest::newRow("the whole range") << 2147483.647 << 0.0;
    QTest::newRow("hundredths") << 21474836.0 << 100.0;
    QTest::newRow("thousandths") << 2147483647.0 << 1000.0;
    QTest::newRow("thousandths of small amounts") << 3000.0 << 1000.0;
}

void TestNumbers::everyAmount()
{
    QFETCH(double, end);
    QFETCH(double, unit);
    std::mt19937_64 numbers(20260704); // the same ones in every run
    std::uniform_real_distribution<double> amounts(-end, end);
    for (int i = 0; i < 20000; ++i) {
        const double amount = amounts(numbers);
        const double value = unit > 0 ? std::trunc(amount) / unit : amount;
        const QByteArray text = HLibrary::truncateDecimal(value).toUtf8();
        QVERIFY2(text == expectedText(value), text + " for " + QByteArray::number(value, 'g', 17));
    }
}

void TestNumbers::hugeAmounts_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("digits");

    QTest::newRow("10^300") << 1e300 << 301;
    QTest::newRow("the largest number") << DBL_MAX << 309;
}

void TestNumbers::hugeAmounts()
{
    QFETCH(double, value);
    QFETCH(int, digits);

    const QString text = HLibrary::truncateDecimal(value);
    QVERIFY2(QRegularExpression(QString("^\\d{%1}\\.00$").arg(digits)).match(text).hasMatch(), qPrintable(text));
    QCOMPARE(text.toDouble(), value);
    QCOMPARE(HLibrary::truncateDecimal(-value), '-' + text);
}

void TestNumbers::randomNumber_data()
{
    QTest::addColumn<QDateTime>("now");

    QTest::newRow("today") << utc("2026-07-04T13:05:09.042");
    QTest::newRow("one second later") << utc("2026-07-04T13:05:10.000");
    QTest::newRow("the beginning of time") << utc("1970-01-01T00:00:00.000");
    QTest::newRow("more seconds than 31 bits hold") << utc("2040-01-01T00:00:00.000");
}

void TestNumbers::randomNumber()
{
    QFETCH(QDateTime, now);
    std::srand(static_cast<unsigned int>(now.toSecsSinceEpoch()));
    const int expected = std::rand();

    const PinnedClock clock(now);
    QCOMPARE(HLibrary::getNewRand(), QString::number(expected));
    std::srand(1); // another seed changes nothing
    QCOMPARE(HLibrary::getNewRand(), QString::number(expected));
}

void TestNumbers::randomNumberIsThatOfTheSecond()
{
    const auto numberAt = [](const char* moment) {
        const PinnedClock clock(utc(moment));
        return HLibrary::getNewRand();
    };
    const QString number = numberAt("2026-07-04T13:05:09.000");
    QCOMPARE(numberAt("2026-07-04T13:05:09.999"), number);
    QVERIFY(numberAt("2026-07-04T13:05:10.000") != number);
    QVERIFY(number.toInt() >= 0);
}

QTEST_GUILESS_MAIN(TestNumbers)
#include "tst_numbers.moc"
