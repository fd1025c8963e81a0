#include "paper/receiptsums.h"
#include "paper/roll.h"
#include "rolls.h"
#include "support/registerscript.h"

#include <QtTest>

using paper::readRoll;

/// Fiscal receipts as they are drawn: what is sold, discounted and paid, and what that adds up to.
class TestFiscalReceipt : public QObject {
    Q_OBJECT

private slots:
    void plainDecimals_data();
    void plainDecimals();
    void rows_data();
    void rows();
    void sums_data();
    void sums();
    void hugePercentages();
    void theReadingIsSaidToBeOurs();
    void rowsKnowTheirPlaces();
    void quotesInDescriptionsAreMarked();
};

namespace {

const char dashes[] = "--------------------------------";

/// The rows of the receipt of @p commands without those that say that this is our reading.
QStringList drawn(const QByteArrayList& commands)
{
    const paper::Roll roll = readRoll(fiscalReceipt(commands));
    const QStringList all = textsOf(roll.documents.value(0).rows);
    return all.mid(0, all.lastIndexOf(QString()));
}

QByteArray sale(const QByteArray& quantity, const QByteArray& price)
{
    return "VEND REP=1,QTY=" + quantity + ",PREZZO=" + price + ",DES='a'";
}

} // namespace

void TestFiscalReceipt::plainDecimals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("read"); // empty where it is none
    const auto row = [](const char* name, const QString& text, const char* read = "") {
        QTest::newRow(name) << text << read;
    };
    row("digits", "12", "12.00");
    row("with a point", "7.5", "7.50");
    row("with a plus", "+1", "1.00");
    row("with a minus", "-1.25", "-1.25");
    row("three decimals", "0.125", "0.125");
    row("thirty digits", QString(30, '9'), qPrintable(QString(30, '9') + ".00"));
    row("thirty-one digits", QString(31, '9'));
    row("a comma", "7,5");
    row("a blank before it", " 1");
    row("a blank behind it", "1 ");
    row("a no-break space behind it", QString('1') + QChar(0xA0));
    row("nothing", "");
    row("a sign alone", "-");
    row("a point without digits behind it", "1.");
    row("a point without digits before it", ".5");
    row("two points", "1.2.3");
    row("an exponent", "1e5");
    row("a word", "abc");
    row("Arabic digits", QString(QChar(0x0661)));
}

void TestFiscalReceipt::plainDecimals()
{
    QFETCH(QString, text);
    const std::optional<toolkit::Decimal> read = paper::plainDecimal(text);
    QTEST(read ? read->text() : QString(), "read");
}

void TestFiscalReceipt::rows_data()
{
    QTest::addColumn<QByteArrayList>("commands");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const QByteArrayList& commands, const QStringList& expected) {
        QTest::newRow(name) << commands << expected;
    };
    const QStringList totalOf0 {dashes, "TOTAL                       0.00"};

    row("nothing", {}, totalOf0);
    row("a sale", {"VEND REP=1,QTY=3,PREZZO=2.50,DES='Coperto'"},
        {"Coperto                     7.50", "  3 x 2.50                 REP 1", dashes,
         "TOTAL                       7.50"});
    row("a price has two decimals, a quantity is as it stands", {"VEND REP=2,QTY=1.50,PREZZO=2,DES='Pesce'"},
        {"Pesce                       3.00", "  1.50 x 2.00              REP 2", dashes,
         "TOTAL                       3.00"});
    row("three decimals stay", {"VEND REP=1,QTY=0.350,PREZZO=9.99,DES='Uva'"},
        {"Uva                       3.4965", "  0.350 x 9.99             REP 1", dashes,
         "TOTAL                     3.4965"});
    row("a description that leaves just enough room",
        {"VEND REP=1,QTY=1,PREZZO=1.00,DES='" + QByteArray(27, 'x') + "'"},
        {QString(27, 'x') + " 1.00", "  1 x 1.00                 REP 1", dashes, "TOTAL                       1.00"});
    row("a description that leaves none", {"VEND REP=1,QTY=1,PREZZO=1.00,DES='" + QByteArray(28, 'x') + "'"},
        {QString(28, 'x'), "                            1.00", "  1 x 1.00                 REP 1", dashes,
         "TOTAL                       1.00"});
    row("a description longer than the paper stays whole",
        {"VEND REP=1,QTY=1,PREZZO=1,DES='" + QByteArray(40, 'x') + "'"},
        {QString(40, 'x'), "                            1.00", "  1 x 1.00                 REP 1", dashes,
         "TOTAL                       1.00"});
    row("no description", {"VEND REP=1,QTY=1,PREZZO=1,DES=''"},
        {"                            1.00", "  1 x 1.00                 REP 1", dashes,
         "TOTAL                       1.00"});
    const QByteArray price = QByteArray(29, '9');
    row("no description, and an amount as wide as the paper", {"VEND REP=1,QTY=1,PREZZO=" + price + ",DES=''"},
        {price + ".00", "  1 x " + price + ".00", "                           REP 1", dashes, "TOTAL", price + ".00"});
    row("a department of many letters", {"VEND REP=" + QByteArray(25, 'r') + ",QTY=1,PREZZO=1,DES='a'"},
        {"a                           1.00", "  1 x 1.00", "   REP " + QString(25, 'r'), dashes,
         "TOTAL                       1.00"});
    row("a sale of what is no figure", {"VEND REP=x,QTY=two,PREZZO=7,50,DES='a'"},
        {"a                              ?", "  two x 7,50               REP x", dashes,
         "TOTAL (incomplete)          0.00"});
    row("a discount", {sale("1", "7.5"), "SCONTO VAL=2.5"},
        {"a                           7.50", "  1 x 7.50                 REP 1", "SCONTO                     -2.50",
         dashes, "TOTAL                       5.00"});
    row("a discount before any sale", {"SCONTO VAL=1", sale("1", "3")},
        {"SCONTO                     -1.00", "a                           3.00", "  1 x 3.00                 REP 1",
         dashes, "TOTAL                       2.00"});
    row("a discount that is no figure", {sale("1", "3"), "SCONTO VAL=1e+20"},
        {"a                           3.00", "  1 x 3.00                 REP 1", "SCONTO 1e+20                   ?",
         dashes, "TOTAL (incomplete)          3.00"});
    row("a rate stands at its row and changes nothing", {"PERCA ALIQ=10", sale("1", "3"), "PERCA ALIQ=abc"},
        {"  ALIQ 10", "a                           3.00", "  1 x 3.00                 REP 1", "  ALIQ abc", dashes,
         "TOTAL                       3.00"});
    row("a discount on the subtotal", {sale("2", "30"), "=10*2M", sale("1", "5")},
        {"a                          60.00", "  2 x 30.00                REP 1", "=10*2M  10% of 60.00       -6.00",
         "a                           5.00", "  1 x 5.00                 REP 1", dashes,
         "TOTAL                      59.00"});
    row("a discount on the subtotal that is no figure", {sale("2", "30"), "=ten*2M"},
        {"a                          60.00", "  2 x 30.00                REP 1", "=ten*2M  ten% of 60.00         ?",
         dashes, "TOTAL (incomplete)         60.00"});
    row("a discount on a subtotal that is not known", {sale("x", "30"), "=10*2M"},
        {"a                              ?", "  x x 30.00                REP 1", "=10*2M  10% of ?               ?",
         dashes, "TOTAL (incomplete)          0.00"});
    row("all payments and the change", {sale("1", "30"), "1000H1T", "550H2T", "1000.5H3T", "600H5T"},
        {"a                          30.00", "  1 x 30.00                REP 1", dashes,
         "TOTAL                      30.00", "CASH                       10.00", "CHEQUE                      5.50",
         "CREDIT CARD               10.005", "MEAL TICKET                 6.00", "CHANGE                     1.505"});
    row("what is missing", {sale("1", "30"), "1000H1T"},
        {"a                          30.00", "  1 x 30.00                REP 1", dashes,
         "TOTAL                      30.00", "CASH                       10.00", "MISSING                    20.00"});
    row("a payment that is no figure", {sale("1", "30"), "abcH1T"},
        {"a                          30.00", "  1 x 30.00                REP 1", dashes,
         "TOTAL                      30.00", "CASH abc                       ?", "CHANGE                         ?"});
    row("payments of an incomplete sum", {sale("1", "x"), "100H1T"},
        {"a                              ?", "  1 x x                    REP 1", dashes,
         "TOTAL (incomplete)          0.00", "CASH                        1.00", "CHANGE                         ?"});
    row("the total stands before the payments behind the last amount",
        {sale("1", "3"), "100H1T", sale("1", "2"), "nofis riga='b'", "200H1T", "nofis riga='c'", "200H3T"},
        {"a                           3.00", "  1 x 3.00                 REP 1", "CASH                        1.00",
         "a                           2.00", "  1 x 2.00                 REP 1", "b", dashes,
         "TOTAL                       5.00", "CASH                        2.00", "c",
         "CREDIT CARD                 2.00", "CHANGE                      0.00"});
    row("payments before the only sale", {"500H1T", sale("1", "3")},
        {"CASH                        5.00", "a                           3.00", "  1 x 3.00                 REP 1",
         dashes, "TOTAL                       3.00", "CHANGE                      2.00"});
    row("a text line stands at its place", {"nofis riga='Tavolo 3'", sale("1", "3")},
        {"Tavolo 3", "a                           3.00", "  1 x 3.00                 REP 1", dashes,
         "TOTAL                       3.00"});
}

void TestFiscalReceipt::rows()
{
    QFETCH(QByteArrayList, commands);
    QTEST(drawn(commands), "expected");
}

void TestFiscalReceipt::sums_data()
{
    QTest::addColumn<QByteArrayList>("commands");
    QTest::addColumn<QString>("total");
    const auto row = [](const char* name, const QByteArrayList& commands, const QString& total) {
        QTest::newRow(name) << commands << total;
    };
    const QByteArray nines(30, '9');
    const QByteArray great = "1" + QByteArray(29, '0'); // 10^29
    row("tenths add up exactly", {sale("1", "0.1"), sale("1", "0.2")}, "0.30");
    row("a half of a cent becomes a cent", {sale("1", "1.25"), "=10*2M"}, "1.12"); // 0.125 becomes 0.13
    row("just below it becomes none", {sale("1", "1.2499"), "=10*2M"}, "1.1299"); // 0.12499 becomes 0.12
    row("a half of a cent below 0 becomes none", {"SCONTO VAL=1.25", "=10*2M"}, "-1.13"); // -0.125 becomes -0.12
    row("just below that becomes a cent", {"SCONTO VAL=1.2501", "=10*2M"}, "-1.1201"); // -0.12501 becomes -0.13
    row("part of a percent", {sale("1", "1000"), "=0.5*2M"}, "995.00");
    row("a percentage below 0 adds", {sale("1", "100"), "=-10*2M"}, "110.00");
    row("more than all", {sale("1", "100"), "=150*2M"}, "-50.00");
    row("one percentage behind the other", {sale("1", "100"), "=10*2M", "=10*2M"}, "81.00");
    row("a sale below 0", {sale("-1", "2.50"), sale("1", "3")}, "0.50");
    row("a discount below 0 adds", {sale("1", "3"), "SCONTO VAL=-1"}, "4.00");
    row("thirty digits", {sale(nines, "1"), sale("1", "1")}, "1" + QString(30, '0') + ".00");
    row("the product of thirty digits each", {sale(great, great)}, "1" + QString(58, '0') + ".00");
    row("thirty decimals each", {sale("0.00000000000000000000000000001", "0.00000000000000000000000000001")},
        "0." + QString(57, '0') + "1");
}

void TestFiscalReceipt::sums()
{
    QFETCH(QByteArrayList, commands);
    const QStringList rows = drawn(commands);
    const QString row = rows.filter("TOTAL").value(0);
    const QString total = row == "TOTAL" ? rows.last() : row.section(' ', -1);
    QTEST(total.trimmed(), "total");
}

/// Percentages of percentages grow beyond all figures: those are not known then, and nothing overflows.
void TestFiscalReceipt::hugePercentages()
{
    const QByteArray nines(30, '9');
    const QStringList rows = drawn({sale(nines, nines), "=" + nines + "*2M", "=" + nines + "*2M", "=1*2M"});
    QVERIFY(rows.filter("*2M").first().endsWith(" of " + QString(29, '9') + "8" + QString(29, '0') + "1.00"));
    QCOMPARE(rows.at(rows.size() - 2).trimmed(), QString("TOTAL (incomplete)"));
}

void TestFiscalReceipt::theReadingIsSaidToBeOurs()
{
    const QStringList all = textsOf(readRoll(fiscalReceipt({})).documents.first().rows);
    QCOMPARE(
        all.mid(2),
        QStringList({"", "This is our reading of the", "script: the register arranges a", "receipt in its own way."}));
}

void TestFiscalReceipt::rowsKnowTheirPlaces()
{
    const paper::Rows rows = readRoll(fiscalReceipt({sale("1", "3"), "400H1T"})).documents.first().rows;
    QStringList lines;
    for (const paper::Row& row : rows)
        lines += QString::number(row.place.line);
    // The sale's two; dashes and total, which stand before the payment; the payment; what the end brings.
    QCOMPARE(lines.mid(0, 6), QStringList({"3", "3", "4", "4", "4", "5"}));
}

void TestFiscalReceipt::quotesInDescriptionsAreMarked()
{
    const paper::Row row =
        readRoll(fiscalReceipt({"VEND REP=1,QTY=1,PREZZO=1,DES='Baba' al rum'"})).documents.first().rows.first();
    QCOMPARE(row.text, QString("Baba al rum'                1.00"));
    QCOMPARE(row.marked.size(), 1);
    QVERIFY(row.marked.first().mark == paper::Mark::BehindQuote);
    QCOMPARE(row.marked.first().begin, 4);
    QCOMPARE(row.marked.first().length, 8);
}

QTEST_APPLESS_MAIN(TestFiscalReceipt)

#include "tst_fiscalreceipt.moc"
