#include "check/jobfindings.h"

#include <QtTest>

/// What is found in a job's structure, names and values, each at its place.
class TestJobCheck : public QObject {
    Q_OBJECT

private slots:
    void structure_data();
    void structure();
    void names_data();
    void names();
    void nearestNames_data();
    void nearestNames();
    void values_data();
    void values();
    void numbers_data();
    void numbers();
    void dates_data();
    void dates();
    void flags_data();
    void flags();
    void missingSettings();
    void texts_data();
    void texts();
};

namespace {

void addColumns()
{
    QTest::addColumn<QByteArray>("job");
    QTest::addColumn<QStringList>("expected");
}

void row(const char* name, const QByteArray& job, const QStringList& expected)
{
    QTest::newRow(name) << job << expected;
}

void checkRow(const QByteArray& settings = settingsWith(""))
{
    QFETCH(QByteArray, job);
    QFETCH(QStringList, expected);
    QCOMPARE(inShort(findingsOf(job, settings)), expected);
}

const QByteArray receiptMethod = "<method name='printFullOrderReceipt'/>";

QByteArray receipt(const QByteArray& content)
{
    return jobOf("printFullOrderReceipt", content);
}

} // namespace

void TestJobCheck::structure_data()
{
    addColumns();

    row("a sound job", receipt("<total price='5.00'/>"), {});
    row("a byte-order mark takes no column", "\xEF\xBB\xBF<job><total price='1'/>" + receiptMethod + "</job>",
        {"1:6 warning element-before-method"});

    row("no method", "<job>\n <total price='5.00'/>\n </job>", {"3:2 error no-method"});
    row("no method in an empty root", "\n<job/>", {"2:1 error no-method"});
    row("no method in a root without content", "<job></job>", {"1:6 error no-method"});
    row("a method that is none", "<job>\n<method name='printFullOrderRecipt'/><nonsense/></job>",
        {"2:9 error unknown-method"});
    row("a method without a name", "<job>\n<method/></job>", {"2:1 error unknown-method"});
    row("a method that is the root", receiptMethod, {});
    row("a method that is the root, and none", "<method a='1' name='x'/>", {"1:15 error unknown-method"});
    row("a second method that is none ends the check", receipt("<method name='x'/><nonsense/>"),
        {"2:9 error unknown-method"});

    row("elements before the method", "<job><receipe/>\n<total price='1'/>" + receiptMethod + "</job>",
        {"1:6 warning element-before-method", "2:1 warning element-before-method"});
    row("an unknown one before the method is unknown alone", "<job><recipee/>" + receiptMethod + "</job>",
        {"1:6 warning unknown-element"});
    row("one inside an unknown one before the method", "<job><wrap><total/></wrap>" + receiptMethod + "</job>",
        {"1:6 warning unknown-element", "1:12 warning element-before-method"});
    row("a wrapper around the method is not before it", "<job><total>" + receiptMethod + "</total></job>", {});
    row("a wrapper's names are judged", "<job>\n<total prize='1'>" + receiptMethod + "</total></job>",
        {"2:8 warning unknown-attribute"});
    row("the root is never judged", "<total prize='1' prize='1'>" + receiptMethod + "</total>", {});
    row("before a method that is none", "<job><total/>\n<method name='x'/></job>",
        {"1:6 warning element-before-method", "2:9 error unknown-method"});

    row("a second method", receipt("<method name='printSold'/>"), {"2:1 warning second-method"});
    row("a method's other attributes", "<job>\n<method name='printSold' nam='1'/></job>",
        {"2:26 warning unknown-attribute"});
    row("a method's repeated name", "<job>\n<method name='printSold' name='x'/></job>",
        {"2:26 warning repeated-attribute"});

    row("a lone '&'", receipt("<receipt serialnumber='a & b'/>"), {"2:27 error not-well-formed"});
    row("cut off", "<job>" + receiptMethod + "\n<total price='1'/>\n", {"3:1 error not-well-formed"});
    row("cut off before the method: no word about that", "<job><total/>\n", {"2:1 error not-well-formed"});
    row("nothing at all", "", {"1:1 error not-well-formed"});
    row("what was found before the XML broke off stays", receipt("<nonsense/>\n<a></b>"),
        {"2:1 warning unknown-element", "3:1 warning unknown-element", "3:7 error not-well-formed"});
    row("an emoji is one column", receipt("<receipt serialnumber='\xF0\x9F\x8D\x95' a='1'/>"),
        {"2:27 warning unknown-attribute"});
}

void TestJobCheck::structure()
{
    checkRow();
}

void TestJobCheck::names_data()
{
    addColumns();

    row("an unknown element: only its name is judged", receipt("<recipe prize='1' prize='2'/>"),
        {"2:1 warning unknown-element"});
    row("an unknown attribute", receipt("<total price='1' prize='1'/>"), {"2:18 warning unknown-attribute"});
    row("the pair counts", receipt("<total price='1' total='1'/>"), {"2:18 warning unknown-attribute"});
    row("names in other letter case", receipt("<Total/><total Price='1' price='1'/>"),
        {"2:1 warning unknown-element", "2:16 warning unknown-attribute"});
    row("an element of other methods", receipt("<variant number='1'/>"), {"2:1 warning ignored-element"});
    row("the totals of an invoice in a fiscal receipt", jobOf("printFullOrderFiscal", "<totals tax='x'/>"),
        {"2:1 warning ignored-element"});
    row("a customer on a summary receipt", jobOf("printAbstractOrderReceipt", "<customer name=''/>"),
        {"2:1 warning ignored-element"});
    row("an attribute of other methods", jobOf("printPartialOrder", "<receipe number='1' name='a' price='x'/>"),
        {"2:30 warning ignored-attribute"});
    row("names inside an ignored element are judged", receipt("<variant nam='1' name='a' name='b'/>"),
        {"2:1 warning ignored-element", "2:10 warning unknown-attribute", "2:27 warning repeated-attribute"});
    row("names nested inside others", receipt("<total price='1'><totl/></total>"), {"2:18 warning unknown-element"});
    row("name space declarations are no attributes", receipt("<total xmlns='u' price='1' xmlns:p='v' prize='1'/>"),
        {"2:40 warning unknown-attribute"});

    row("a repeated attribute", receipt("<total price='5.00' price='x'/>"), {"2:21 warning repeated-attribute"});
    row("the same name in another element", receipt("<total price='5.00'/><notPaid price='5.00'/>"), {});
    row("repeated a third time", receipt("<total price='1' price='1' price='1'/>"),
        {"2:18 warning repeated-attribute", "2:28 warning repeated-attribute"});
    row("an unknown one repeated", receipt("<total price='1' a='1' a='1'/>"),
        {"2:18 warning unknown-attribute", "2:24 warning repeated-attribute"});

    row("any name in elements that print all of theirs", receipt("<company a='1' b='2'/><headers c='3'/>"),
        {"2:1 note prints-nothing", "2:23 note prints-nothing"});
    row("cancelled documents by any name",
        jobOf("printReport", "<cancelledsummary number='1' totals='5.00' a='7' b='5.00' c='10%'/>"), {});
    row("a slip among the two that cancelled documents stand behind",
        jobOf("printReport", "<cancelledsummary numbr='1' totals='5.00'/>"),
        {"2:1 warning missing-attribute", "2:19 warning unknown-attribute"});

    row("in a summary order unknown names alone",
        jobOf("printAbstractOrder", "<receipe number='x' nam='1'/><total prize='1'/><totl/><variant name=\"l'a\"/>"),
        {"1:6 note prints-nothing", "2:21 warning unknown-attribute", "2:37 warning unknown-attribute",
         "2:48 warning unknown-element"});
}

void TestJobCheck::names()
{
    checkRow();
}

void TestJobCheck::nearestNames_data()
{
    QTest::addColumn<QByteArray>("job");
    QTest::addColumn<QString>("suggestion");

    QTest::newRow("an element") << receipt("<recipe/>") << "receipe";
    QTest::newRow("an element in other letter case") << receipt("<NOTPAID/>") << "notPaid";
    QTest::newRow("of two that are as near the method's own") << jobOf("printFullOrderInvoice", "<totas/>") << "totals";
    QTest::newRow("the same, of another method") << receipt("<totas/>") << "total";
    QTest::newRow("none is near") << receipt("<nonsense/>") << "";
    QTest::newRow("an attribute") << receipt("<total price='1' prize='1'/>") << "price";
    QTest::newRow("a method") << jobOf("printfullorderreceipt", "") << "printFullOrderReceipt";
}

void TestJobCheck::nearestNames()
{
    QFETCH(QByteArray, job);
    QFETCH(QString, suggestion);
    const check::Findings findings = findingsOf(job, settingsWith(""));
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings.first().suggestion, suggestion);
    QCOMPARE(findings.first().text.contains("Is \"" + suggestion + "\" meant?"), !suggestion.isEmpty());
}

void TestJobCheck::values_data()
{
    addColumns();

    row("an absent attribute", receipt("<total/>"), {"2:1 warning missing-attribute"});
    row("an empty attribute", receipt("<total price=''/>"), {"2:8 warning missing-attribute"});
    row("several", receipt("<receipe number='1' name=''/>"),
        {"2:1 warning missing-attribute", "2:1 warning missing-attribute", "2:21 warning missing-attribute"});
    row("a blank is something", receipt("<receipt serialnumber=' '/>"), {});
    row("a variant's quantity may be missing", jobOf("printPartialOrder", "<variant number='1' name='a'/>"), {});
    row("a discount needs its price alone", jobOf("printFullOrderFiscal", "<receipe price='-1,00'/>"), {});
    row("a sale needs all", jobOf("printFullOrderFiscal", "<receipe price='1,00'/>"),
        {"2:1 warning missing-attribute", "2:1 warning missing-attribute", "2:1 warning missing-attribute"});
    row("a printer without a name", receipt("<printers charsize='1'/>\n<headers/>"), {"2:1 warning missing-attribute"});
    row("a printer with an empty name", receipt("<printers name=''/>\n<headers/>"), {"2:11 warning missing-attribute"});
    row("a printer without a name that nobody prints", receipt("<printers/>"), {});
    row("a printer that has got a name", receipt("<printers/><printers name='a'/><headers/>"), {});
    row("no attribute before the method is missing", "<job><total/>\n" + receiptMethod + "</job>",
        {"1:6 warning element-before-method"});

    row("a hidden dish", jobOf("printFullOrder", "<receipe name='=== A ===' price='x'/>"), {"2:1 note prints-nothing"});
    row("a hidden dish prints elsewhere", jobOf("printPartialOrder", "<receipe name='=A' number='1'/>"), {});
    row("payments of a fiscal receipt", jobOf("printFullOrderFiscal", "<total cash='x'/>"),
        {"2:1 note prints-nothing"});
    row("a fiscal total without payments", jobOf("printAbstractOrderFiscal", "<total cash=''/>"), {});
    row("a summary order", jobOf("printAbstractOrder", ""), {"1:6 note prints-nothing"});

    row("an incomplete row", jobOf("printReport", "<cancelledsummary number='1' totals='5.00' a='7' b='5.00'/>"),
        {"2:1 warning incomplete-row"});
    row("an empty cell of a cancelled document",
        jobOf("printReport", "<cancelledsummary number='1' totals='5.00' a='' b='5.00' c='x'/>"),
        {"2:44 warning missing-attribute", "2:58 warning not-a-number"});

    row("an entity that nobody declared", receipt("<receipt serialnumber='&agrave;7'/>"),
        {"2:10 warning unknown-entity"});
    row("two of them, one twice", receipt("<receipt serialnumber='&a;&b;&a;'/>"),
        {"2:10 warning missing-attribute", "2:10 warning unknown-entity", "2:10 warning unknown-entity"});
    row("one where it does not print", receipt("&a;<printers port='&a;' name='&b;'/><nonsense b='&a;'/>"),
        {"2:25 warning unknown-entity", "2:37 warning unknown-element"});
    row("one in the method is none of the next element's",
        "<job><method name='printFullOrderReceipt&a;'/>\n<receipt serialnumber='7'/></job>", {});
    row("entities that XML declares", receipt("<receipt serialnumber='&amp;&lt;&#65;'/>"), {});
    row("what an entity brings stands at its reference",
        "<!DOCTYPE job [<!ENTITY e '<totl/>'>]><job>" + receiptMethod + "\n &e;</job>",
        {"2:2 warning unknown-element"});
}

void TestJobCheck::values()
{
    checkRow();
}

void TestJobCheck::numbers_data()
{
    QTest::addColumn<QByteArray>("element"); // with the text in place of %
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("severity"); // empty where it is a number

    const auto numbers = [](const char* kind, const QByteArray& element, const QStringList& good,
                            const QStringList& bad) {
        for (const QString& text : good)
            QTest::addRow("%s is %s", kind, qPrintable('"' + text + '"')) << element << text << "";
        for (const QString& text : bad)
            QTest::addRow("%s is not %s", kind, qPrintable('"' + text + '"')) << element << text << "warning";
    };

    const QStringList plain {"5", "5.00", "5,00", "-5.00", "+5", " 5.00 "};
    const QStringList none {"x",
                            "5 EUR",
                            "5.",
                            ".5",
                            "1.000,00",
                            "1e3",
                            "- 5",
                            "\xE2\x88\x92"
                            "5",
                            " ",
                            "5%"};
    numbers("an amount", "printSold<receipe quantity='1' description='a' amount='@'/>", plain, none);
    numbers("a quantity", "printSold<receipe quantity='@' description='a' amount='1'/>", plain, none);
    numbers("the rate of an invoice", "printFullOrderInvoice<totals taxable='x' tax='x' total='x' taxrate='@'/>",
            plain + QStringList {"22%", "22 %", "10,5% "}, {"x", "%", "22%%", "22% tax"});
    numbers("the rate of a report", "printReport<taxrate_item taxable='x' tax='x' amount='x' taxrate='@'/>",
            {"22", "10.5"}, {"22%", "x"});
    numbers("the quantity of a variant", "printPartialOrder<variant number='1' name='a' quantity='@'/>",
            {"1", "-1", "2.5"}, {"1,0", "x"});
    numbers("a fiscal quantity", "printFullOrderFiscal<receipe department='1' number='@' name='a' price='1'/>",
            {"1", "2.5", " 2 "}, {"2,5", "x"});
    const QByteArray price = "printFullOrderFiscal<receipe department='1' number='1' name='a' price='@'/>";
    numbers("a fiscal price", price, {"5", "5.00", "5,00", "-5,00", "+5"},
            {"x", "5 EUR", "1.000,00", " 5", "5 ", " -5",
             "\xE2\x88\x92"
             "5"});
    QTest::newRow("a discount that becomes a sale") << price << "-5 EUR"
                                                    << "error";
    QTest::newRow("a discount with a blank") << price << "- 5"
                                             << "error";
    QTest::newRow("a minus alone") << price << "-"
                                   << "error";
    numbers("what is no number at all: a serial number", "printFullOrderReceipt<receipt serialnumber='@'/>",
            {"46/25", "x"}, {});
}

void TestJobCheck::numbers()
{
    QFETCH(QByteArray, element);
    QFETCH(QString, text);
    QFETCH(QString, severity);

    const int begin = element.indexOf('<');
    const QByteArray content = element.mid(begin).replace('@', text.toUtf8());
    const QByteArray attribute = element.left(element.indexOf("='@'"));
    const int column = attribute.size() - attribute.lastIndexOf(' ') - 1;
    QStringList expected;
    if (!severity.isEmpty())
        expected += QString("2:%1 %2 not-a-number").arg(attribute.size() - begin - column + 1).arg(severity);

    QStringList found;
    for (const check::Finding& finding : findingsOf(jobOf(element.left(begin), content), settingsWith(""))) {
        if (finding.code == check::Code::NotANumber && !finding.text.contains("\"x\""))
            found += inShort(finding);
        else if (finding.code == check::Code::NotANumber && text == "x"
                 && finding.place.column == attribute.size() - begin - column + 1)
            found += inShort(finding);
    }
    QCOMPARE(found, expected);
}

void TestJobCheck::dates_data()
{
    QTest::addColumn<QByteArray>("date");
    QTest::addColumn<bool>("isDate");
    for (const char* date : {"14/11/2025", "1/2/25", "14-11-2025", "14.11.25", "2025-11-14", "2025-1-4", " 14/11/2025 ",
                             "29/02/2024", "29/02/24"})
        QTest::addRow("%s", date) << QByteArray(date) << true;
    for (const char* date : {"14/11-2025", "31/02/2025", "29/02/2025", "11/14/2025", "14/11", "14/11/025", "2025/11/14",
                             "0/1/2025", "14 11 2025", "14/11/2025 21:05", "today", "25-11-14-", "14/11/20255"})
        QTest::addRow("not %s", date) << QByteArray(date) << false;
}

void TestJobCheck::dates()
{
    QFETCH(QByteArray, date);
    QFETCH(bool, isDate);
    const QByteArray job = jobOf("printStatementOfAccount", "<statement type='a' amount='1' date='" + date + "'/>");
    QCOMPARE(inShort(findingsOf(job, settingsWith(""))),
             isDate ? QStringList() : QStringList {"2:32 warning not-a-date"});
}

void TestJobCheck::flags_data()
{
    QTest::addColumn<QByteArray>("settings");
    addColumns();
    const auto with = [](const char* name, const QByteArray& settings, const QByteArray& content,
                         const QStringList& expected) {
        QTest::newRow(name) << settings << receipt(content) << expected;
    };

    with("an attribute whose flag is off", "printDate = true;", "<orderinfo date='14/11/2025' time='21:05'/>",
         {"2:30 note prints-nothing"});
    with("an empty one", "printDate = true;", "<orderinfo date='14/11/2025' time=''/>", {});
    with("a value that does not print is not judged", "", "<orderinfo date='x'/>", {"2:12 note prints-nothing"});
    with("a flag in other letter case is off", "printDate = True;", "<orderinfo date='x'/>",
         {"2:12 note prints-nothing"});
    with("an absent one whose flag is on", "printNote = true;", "<orderinfo/>", {"2:1 warning missing-attribute"});
    with("an element whose flag is off, once", "printTelephone = true;",
         "<customer name='a' telephone='1' fiscalcode='2'/>", {"2:1 note prints-nothing"});
    with("the element's own flag on", "printCustomer = true;", "<customer name='a' telephone='1'/>",
         {"2:20 note prints-nothing"});
    with("nothing to print", "", "<company/><customer name=''/>", {});
    with("a top margin", "", "<geometry/>", {"2:1 note prints-nothing"});
    with("a top margin that prints", "printGeometry = true; topMargin = 2;", "<geometry/>", {});
    with("the logo has no flag that counts", "", "<logo/>", {});
    with("lines of a heading", "", "<headers a='1'/>", {"2:1 note prints-nothing"});

    with("an address with a lost field", "printCustomer = true; printBillingAddress = true;",
         "<customer name='a' billingaddress='Via Roma 1,,Roma'/>", {"2:20 warning lost-text"});
    with("an address that begins with nothing", "printCustomer = true; printBillingAddress = true;",
         "<customer name='a' billingaddress=',Roma'/>", {"2:20 warning lost-text"});
    with("commas at its end lose nothing", "printCustomer = true; printBillingAddress = true;",
         "<customer name='a' billingaddress='Via Roma 1,,, '/>", {});
    with("a field of blanks ends nothing", "printCustomer = true; printBillingAddress = true;",
         "<customer name='a' billingaddress='Via Roma 1, ,Roma'/>", {});
    with("an address that does not print loses nothing", "printCustomer = true;",
         "<customer name='a' billingaddress='Via Roma 1,,Roma'/>", {"2:20 note prints-nothing"});
}

void TestJobCheck::flags()
{
    QFETCH(QByteArray, settings);
    checkRow(settingsWith(settings));
}

void TestJobCheck::missingSettings()
{
    ZMConfiguration store(QByteArray(), "till.conf", "cfg");
    QBuffer device;
    device.setData("<job>" + receiptMethod + "\n<method name='printSold'/></job>");
    const check::Findings findings = check::checkJob(device, {store, nullptr, "/home/till.conf"});
    QCOMPARE(inShort(findings), (QStringList {"1:6 note settings-missing", "2:1 warning second-method"}));
    QVERIFY(findings.first().text.contains("/home/till.conf"));
}

// What a person reads: the name or the figures in question, and what becomes of it.
void TestJobCheck::texts_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QByteArray>("job");
    QTest::addColumn<QString>("text");

    QTest::newRow("what was printed until the XML breaks off")
        << QByteArray() << receipt("<total price='1'/><a b=1/>")
        << "The character must not stand here. Values stand in quotes; inside them \"<\" is written &lt;, a quote "
           "&quot; "
           "or &apos;. Lines of the script until here: 3; the document is not closed.";
    for (const QByteArray more : {"<total price='1'/>", "total"})
        QTest::addRow("what stands behind the job: %s", more.constData())
            << QByteArray() << receipt("") + more
            << "The job has ended with its outermost element: nothing may stand behind it. Lines of the script until "
               "here: 1; the document is not closed.";
    QTest::newRow("that nothing was") << QByteArray() << QByteArray("<job")
                                      << "The file ends in the middle: something is still open. Nothing is printed.";
    QTest::newRow("which methods read an element")
        << QByteArray() << receipt("<totals/>")
        << "printFullOrderReceipt does not read \"totals\": it does not print. These read it: printFullOrderInvoice, "
           "printAbstractOrderInvoice.";
    QTest::newRow("the setting's line")
        << QByteArray("printDate = True;") << receipt("<orderinfo date='x'/>")
        << "\"date\" does not print: zelmora.receiptdoc.printDate is \"True\" in till.conf:5.";
    QTest::newRow("a value that looks like a place for another text")
        << QByteArray("printDate = %4;") << receipt("<orderinfo date='x'/>")
        << "\"date\" does not print: zelmora.receiptdoc.printDate is \"%4\" in till.conf:5.";
    QTest::newRow("that it is not set") << QByteArray() << receipt("<orderinfo date='x'/>")
                                        << "\"date\" does not print: zelmora.receiptdoc.printDate is not set to true.";
    const auto price = [](const QByteArray& text) {
        return jobOf("printFullOrderFiscal", "<receipe department='1' number='1' name='a' price='" + text + "'/>");
    };
    QTest::newRow("a discount that becomes a sale")
        << QByteArray() << price("-1,00 EUR")
        << "\"-1,00 EUR\" is no price: the discount becomes a sale. Write a sign, digits and one comma or point.";
    QTest::newRow("a discount that stays one, as the engine reads it")
        << QByteArray() << price("-1e2")
        << "\"-1e2\" is no price, and the discount may be another than is meant. Write a sign, digits and one comma or "
           "point.";
    QTest::newRow("a sale that the register may refuse")
        << QByteArray() << price("1e2")
        << "\"1e2\" is no price: the register gets it as it is and may refuse the sale. Write a sign, digits and one "
           "comma or point.";
    QTest::newRow("a long value is not repeated up to the half of a character")
        << QByteArray()
        << jobOf("printSold",
                 "<receipe quantity='" + QByteArray(79, 'x') + "\xF0\x9F\x8D\x95' description='a' amount='1'/>")
        << "\"" + QString(79, 'x') + "...\" is no number: it prints as it is.";
    QTest::newRow("a long name is not repeated whole")
        << QByteArray() << receipt('<' + QByteArray(100000, 'x') + "/>")
        << "No print method reads an element \"" + QString(80, 'x') + "...\": it does not print.";
}

void TestJobCheck::texts()
{
    QFETCH(QByteArray, settings);
    QFETCH(QByteArray, job);
    QFETCH(QString, text);
    const check::Findings findings = findingsOf(job, settingsWith(settings));
    QVERIFY(!findings.isEmpty());
    QCOMPARE(findings.last().text, text);
}

QTEST_GUILESS_MAIN(TestJobCheck)
#include "tst_jobcheck.moc"
