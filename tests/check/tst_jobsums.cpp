#include "check/jobfindings.h"

#include <QtTest>

/// Figures that do not agree, in each kind of document.
class TestJobSums : public QObject {
    Q_OBJECT

private slots:
    void sums_data();
    void sums();
    void bothFiguresAreShown_data();
    void bothFiguresAreShown();
};

namespace {

const QString wrong = "warning wrong-sum";

void add(const char* name, const QByteArray& method, const QByteArray& content, const QStringList& expected)
{
    QTest::newRow(name) << method << content << expected;
}

/// A row of a receipt, an invoice or a full order: 2 at 2.50, named "a".
const QByteArray five = "<receipe number='2' name='a' price='2.50' totalPrice='5.00'/>\n";

QByteArray dish(const QByteArray& number, const QByteArray& price, const QByteArray& totalPrice)
{
    return "<receipe number='" + number + "' name='a' price='" + price + "' totalPrice='" + totalPrice + "'/>";
}

QByteArray taxBlock(const QByteArray& taxable, const QByteArray& rate, const QByteArray& tax, const QByteArray& total)
{
    return "<totals taxable='" + taxable + "' taxrate='" + rate + "' tax='" + tax + "' total='" + total + "'/>";
}

} // namespace

void TestJobSums::sums_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected"); // places

    const QByteArray receipt = "printFullOrderReceipt";
    const QByteArray order = "printFullOrder";
    const QByteArray invoice = "printFullOrderInvoice";
    const QByteArray report = "printReport";

    add("number times price", receipt, dish("2", "2.50", "5.00"), {});
    add("a wrong product", receipt, dish("2", "2.50", "5.01"), {"2:43"});
    add("a wrong product of a full order", order, dish("2", "2.50", "5.01"), {"2:43"});
    add("a wrong product of an invoice", invoice, dish("2", "2.50", "5.01"), {"2:43"});
    add("a wrong product of a variant", order,
        "<variant number='2' quantity='1' name='a' price='2.50' totalPrice='5.01'/>", {"2:56"});
    add("a product without a binary fraction", receipt, dish("3", "0.10", "0.30"), {});
    add("rounded down to cents", receipt, dish("0.333", "10.01", "3.33"), {}); // 3.33333
    add("rounded up to cents", receipt, dish("0.333", "10.01", "3.34"), {});
    add("not rounded", receipt, dish("0.333", "10.01", "3.33333"), {});
    add("rounded to something else", receipt, dish("0.333", "10.01", "3.3334"), {"2:48"});
    add("a cent too many", receipt, dish("0.333", "10.01", "3.35"), {"2:48"});
    add("rounding a negative one", receipt, dish("-0.333", "10.01", "-3.34"), {});
    add("with a comma", receipt, dish("2", "2,50", "5,00"), {});
    add("no sum of what is no number", receipt, dish("2 pz", "2.50", "9.00"), {});
    add("no sum of what is missing", receipt, dish("2", "", "9.00"), {});
    add("no sum of more than thirty digits", receipt, dish("2", "1" + QByteArray(30, '0'), "9.00"), {});
    add("no product where there is no unit price", "printAbstractOrderReceipt",
        "<receipe_type number='2' name='a' price='5.00'/>", {});

    add("rows and total", receipt, five + five + "<total price='10.00'/>", {});
    add("a total ten times too high", receipt, five + five + "<total price='100.00'/>", {"4:8"});
    add("a total before the rows", receipt, "<total price='9.00'/>\n" + five, {"2:8"});
    add("every total", receipt, five + "<total price='5.00'/>\n<total price='6.00'/>", {"4:8"});
    add("variants are rows of a full order", order,
        five + "<variant number='1' quantity='1' name='a' price='0.50' totalPrice='0.50'/><total price='5.50'/>", {});
    add("and none of a receipt", receipt,
        five + "<variant number='1' quantity='1' name='a' price='0.50' totalPrice='0.50'/>\n<total price='5.50'/>",
        {"4:8"});
    add("a hidden dish is no row", order,
        five + "<receipe number='1' name='=a' price='1.00' totalPrice='1.00'/>\n<total price='6.00'/>", {"4:8"});
    add("dish types are rows", "printAbstractOrderReceipt",
        "<receipe_type number='2' name='a' price='5.00'/>\n<total price='6.00'/>", {"3:8"});
    add("a document without a row has nothing to compare", receipt, "<total price='6.00'/>", {});
    add("rows of which one is no number", receipt, five + dish("1", "1", "abc") + "<total price='9.00'/>", {});
    add("rows of which one is missing", receipt, five + dish("1", "1", "") + "<total price='9.00'/>", {});
    add("a total that is no number", receipt, five + "<total price='5.00 EUR'/>", {});
    add("discounts", receipt, five + dish("1", "-1.00", "-1.00") + "<total price='4.00'/>", {});

    add("what is not paid", receipt, five + "<total price='5.00'/><notPaid price='5.00'/>", {});
    add("more not paid than there is", receipt, five + "<total price='5.00'/>\n<notPaid price='5.01'/>", {"4:10"});
    add("the same before its total", receipt, "<notPaid price='5.01'/>\n<total price='5.00'/>", {"2:10"});
    add("the same on a summary receipt", "printAbstractOrderReceipt", "<total price='5.00'/>\n<notPaid price='5.01'/>",
        {"3:10"});
    add("not paid of an unknown total", receipt, "<total price='x'/>\n<notPaid price='5.01'/>", {});

    add("rows without tax", invoice, five + taxBlock("5.00", "10%", "0.50", "5.50"), {});
    add("rows with tax", invoice, five + taxBlock("4.55", "10%", "0.45", "5.00"), {});
    add("rows that are neither", invoice, five + taxBlock("4.00", "10%", "0.40", "4.40"), {"3:49"});
    add("rows against several rates", invoice,
        five + five + taxBlock("5.00", "10%", "0.50", "5.50") + taxBlock("5.00", "22%", "1.10", "6.10"), {});
    add("wrong rows against several rates: at the last", invoice,
        five + taxBlock("5.00", "10%", "0.50", "5.50") + '\n' + taxBlock("5.00", "22%", "1.10", "6.10"), {"4:49"});
    add("of dish types", "printAbstractOrderInvoice",
        "<receipe_type number='2' name='a' price='5.00'/>\n" + taxBlock("4.00", "10%", "0.40", "4.40"), {"3:49"});
    add("taxable and tax", invoice, taxBlock("5.00", "10%", "0.50", "5.60"), {"2:49"});
    add("the rate", invoice, taxBlock("5.00", "10%", "0.60", "5.60"), {"2:38"});
    add("the rate to a cent", invoice, taxBlock("5.00", "10%", "0.51", "5.51"), {});
    add("the rate to less than a cent more", invoice, taxBlock("5.00", "10%", "0.511", "5.511"), {"2:38"});
    add("the rate rounded", invoice, taxBlock("4.55", "10", "0.46", "5.01"), {}); // 0.455
    add("an invoice with a figure missing", invoice, five + taxBlock("", "10%", "0.40", "4.40"), {});

    add("payments of the day", report,
        "<receiptssummary number='3' firstserial='1' lastserial='3' notPaid='1' cash='2' creditCard='3' bancomat='4' "
        "other='5' total='15'/>",
        {});
    add("payments that do not make the total", report,
        "<receiptssummary number='3' firstserial='1' lastserial='3' notPaid='1' cash='2' creditCard='3' bancomat='4' "
        "other='5' total='14'/>",
        {"2:119"});
    add("a rate of the day", report, "<taxrate_item taxrate='10' taxable='5.00' tax='0.50' amount='5.50'/>", {});
    add("a rate with a wrong amount", report, "<taxrate_item taxrate='10' taxable='5.00' tax='0.50' amount='5.51'/>",
        {"2:54"});
    add("a rate with a wrong tax", report, "<taxrate_item taxrate='10' taxable='5.00' tax='0.52' amount='5.52'/>",
        {"2:43"});
    add("invoices of the day", report,
        "<invoicessummary number='3' firstserial='1' lastserial='3' taxable='5' tax='1' total='7'/>", {"2:80"});
    add("cancelled documents", report, "<cancelledsummary number='2' totals='3' a='1' b='1' c='1' d='2' e='2' f='2'/>",
        {});
    add("cancelled documents with a wrong total", report,
        "<cancelledsummary number='2' totals='4' a='1' b='1' c='1' d='2' e='2' f='2'/>", {"2:30"});
    add("a wrong number of cancelled documents", report,
        "<cancelledsummary number='3' totals='3' a='1' b='1' c='1' d='2' e='2' f='2'/>", {"2:19"});
    add("cancelled documents that are not listed", report, "<cancelledsummary number='3' totals='3'/>", {});

    add("a second method begins anew", receipt,
        five + "<total price='5.00'/><method name='printFullOrderReceipt'/><total price='7.00'/>", {});
    add("and judges what came before it", receipt,
        five + "<total price='6.00'/><method name='printFullOrderReceipt'/>\n" + five + "<total price='5.00'/>",
        {"3:8"});
    add("nothing is judged where the XML breaks off", receipt, dish("2", "2.50", "9.00") + "<a></b>", {});
    add("nothing in a fiscal receipt", "printFullOrderFiscal",
        "<receipe department='1' number='2' name='a' price='5.00'/><total price='6.00'/>", {});
    add("nothing in a list of dishes", "printSold", "<receipe quantity='2' description='a' amount='5'/>", {});
}

void TestJobSums::sums()
{
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, content);
    QFETCH(QStringList, expected);

    for (QString& place : expected)
        place += ' ' + wrong;
    QCOMPARE(inShort(findingsOf(jobOf(method, content), settingsWith(""))).filter(wrong), expected);
}

void TestJobSums::bothFiguresAreShown_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");

    QTest::newRow("of a row") << QByteArray("printFullOrderReceipt") << dish("3", "1.333", "4.10")
                              << "Number times price makes 3.999, and the row says 4.10.";
    QTest::newRow("of rows") << QByteArray("printFullOrderReceipt") << five + "<total price='500'/>"
                             << "The rows add up to 5.00, and the total says 500.00.";
    QTest::newRow("of what is not paid") << QByteArray("printFullOrderReceipt")
                                         << QByteArray("<total price='5'/><notPaid price='6,5'/>")
                                         << "6.50 is not paid, and the total is 5.00 only.";
    QTest::newRow("of a number") << QByteArray("printReport")
                                 << QByteArray("<cancelledsummary number='3' totals='1' a='1' b='1' c='1'/>")
                                 << "The cancelled documents are 1, and the number says 3.";
}

void TestJobSums::bothFiguresAreShown()
{
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, content);
    QFETCH(QString, text);
    const check::Findings findings = findingsOf(jobOf(method, content), settingsWith(""));
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings.first().text, text);
}

QTEST_GUILESS_MAIN(TestJobSums)
#include "tst_jobsums.moc"
