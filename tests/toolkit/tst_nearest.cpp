#include "toolkit/nearest.h"

#include "support/processortime.h"

#include <QtTest>

using toolkit::isSlip;
using toolkit::nearest;

/// What was probably meant by a name that is none.
class TestNearest : public QObject {
    Q_OBJECT

private slots:
    void nearest_data();
    void nearest();
    void slipsOfOneName();
    void longNames();
};

void TestNearest::nearest_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("meant");
    const auto row = [](const char* title, const QString& name, const QStringList& names, const QString& meant) {
        QTest::newRow(title) << name << names << meant;
    };
    const QStringList names {"receipe", "receipt", "total", "totals", "price", "totalPrice", "tax"};
    row("a letter missing", "recipe", names, "receipe");
    row("a letter too many", "priice", names, "price");
    row("another letter", "prize", names, "price");
    row("two neighbours exchanged", "pirce", names, "price");
    row("two letters missing", "totaPrce", names, "totalPrice");
    row("two letters too many", "total10", names, "total");
    row("three letters missing", "totlPrc", names, "");
    row("three letters too many", "price100", names, "");
    row("three other letters", "brise2", names, "");
    row("nothing like any", "colour", names, "");
    row("nothing", "", names, "");
    row("of no names", "price", {}, "");
    row("all letters, in capitals", "TOTALPRICE", names, "totalPrice");
    row("one letter, in lower case", "totalprice", names, "totalPrice");
    row("upper and lower case come before fewer slips", "TOTALS", {"TOTAL", "totals"}, "totals");
    row("fewer slips come first", "totalz", {"totally", "totals"}, "totals");
    row("the first of two as near", "totals", {"total", "totalsx"}, "total");
    row("the first of two as near, the other way round", "totals", {"totalsx", "total"}, "totalsx");
    row("no letter of a name of two is right", "ab", names, "");
    row("one letter of a name of two is right", "ax", names, "tax");
    row("two slips in a name of three", "foo", {"logo"}, "");
    row("two slips in a name of four", "nmae", {"name"}, "name");
    row("a name of one letter", "x", names, "");
    row("an accent is another letter", "pric\u00E8", names, "price");
    row("two other letters, none of which the name has", "zriqe", names, "price");
    row("two letters too many that it has not", "pricezq", names, "price");
    row("letters that differ by 64", "A\u0161\u0162abc", {"A!\"abc"}, "A!\"abc");
    row("two characters of two units are two slips", "\U0001F355\U0001F9C0ice", {"price"}, "price");
    row("characters of two units for others", "\U0001F355\U0001F9C0ce", {"\U0001F414\U0001F420ce"},
        "\U0001F414\U0001F420ce");
    row("a character of two units is one slip", "price\U0001F355\U0001F355", names, "price");
}

void TestNearest::nearest()
{
    QFETCH(QString, name);
    QFETCH(QStringList, names);
    QTEST(::nearest(name, names), "meant");
}

void TestNearest::slipsOfOneName()
{
    QVERIFY(isSlip("zelmora", "zelmora"));
    QVERIFY(isSlip("zelmore", "zelmora"));
    QVERIFY(isSlip("elmor", "zelmora"));
    QVERIFY(!isSlip("elmo", "zelmora"));
    QVERIFY(!isSlip("ZELmora", "zelmora"));
}

void TestNearest::longNames()
{
    const QString name(1 << 20, 'z');
    const ProcessorTime time;
    for (int i = 0; i < 10000; ++i)
        QCOMPARE(::nearest(name, {"receipe", "zzzzzzz"}), QString());
    // A walk through the name at each turn would take 10 gigabytes' time.
    QVERIFY2(time.milliseconds() < 1000, qPrintable(QString::number(time.milliseconds())));
}

QTEST_GUILESS_MAIN(TestNearest)
#include "tst_nearest.moc"
