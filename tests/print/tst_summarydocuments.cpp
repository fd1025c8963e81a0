#include "support/invoicerows.h"
#include "support/markedtexts.h"
#include "support/sectionsdriver.h"

#include <QtTest>

namespace {

Element firstCourses()
{
    return {"receipe_type", {{"price", "24.00"}, {"name", "PRIMI"}, {"number", "3"}}};
}

const QString firstCoursesRow = QStringLiteral(R"(println("  3 x PRIMI..............  24.00"))");

/// What a receipt and an invoice print alike.
void addTypeRows()
{
    addJob("a type, after the titles", {firstCourses()}, typeTitles() + QStringList {firstCoursesRow});
    addJob("titles come once", {firstCourses(), firstCourses()},
           typeTitles() + QStringList {firstCoursesRow, firstCoursesRow});
    addJob("the amount is the attribute price alone",
           {{"receipe_type", {{"totalPrice", "24.00"}, {"name", "PRIMI"}, {"number", "3"}}}},
           typeTitles() + QStringList {R"(println("  3 x PRIMI..............       "))"});
    addJob("no attributes: dots alone", {{"receipe_type", {}}},
           typeTitles() + QStringList {R"(println("    x ...................       "))"});
    addJob("a name one wider than its column loses its last character",
           {{"receipe_type", {{"price", "24.00"}, {"name", "ABCDEFGHIJKLMN"}, {"number", "3"}}}},
           typeTitles() + QStringList {R"(println("  3 x ABCDEFGHIJKLM......  24.00"))"});
}

} // namespace

/// The summaries of an order, by dish type: order, receipt, invoice, fiscal receipt.
class TestSummaryDocuments : public QObject {
    Q_OBJECT

private slots:
    void summaryOrderPrintsNothing_data();
    void summaryOrderPrintsNothing();
    void summaryOrderKeepsNothing();

    void summaryReceipt_data();
    void summaryReceipt();
    void summaryInvoice_data();
    void summaryInvoice();
    void summaryFiscalReceipt_data();
    void summaryFiscalReceipt();
    void otherElementsOfAFiscalReceiptDoNothing();

    void noTitlesAfterOneTime_data();
    void noTitlesAfterOneTime();
    void labelsOfTheReceiptAreTranslatedButOne();
    void labelsOfTheInvoiceAreTranslated();
};

void TestSummaryDocuments::summaryOrderPrintsNothing_data()
{
    QTest::addColumn<QString>("element");

    for (const char* name :
         {"printers", "geometry",  "headers",  "logo",    "company",      "receipt",        "invoice",
          "delivery", "orderinfo", "customer", "receipe", "otherreceipe", "receipe_type",   "variant",
          "total",    "totals",    "notPaid",  "date",    "statement",    "statement_list", "unknown"})
        QTest::newRow(name) << name;
}

void TestSummaryDocuments::summaryOrderPrintsNothing()
{
    QFETCH(QString, element);
    useSettings(documentSettings("doc",
                                 "printGeometry = true; topMargin = 2; printHeader = true; printCompany = true;"
                                 " printCustomer = true; printTable = true;"));
    SectionsDriver driver;

    const QByteArray name = element.toUtf8();
    QCOMPARE(callsOf(driver, "printAbstractOrder", {{name.constData(), {{"name", "a"}, {"price", "1"}}}}),
             QStringList());
    QCOMPARE(driver.askedSections, QStringList());
}

void TestSummaryDocuments::summaryOrderKeepsNothing()
{
    useSettings(documentSettings("doc", "printCredit = true;"));
    RecordingDriver driver;

    callsOf(driver, "printAbstractOrder", {{"printers", {{"name", "Bar"}}}, {"orderinfo", {{"credit", "5.00"}}}});
    QCOMPARE(driver.printerName, QString());
    QCOMPARE(driver.credit, QString());
    QCOMPARE(driver.oneTime(), true);
}

void TestSummaryDocuments::summaryReceipt_data()
{
    addJobColumns();

    addTypeRows();
    addJob("the total, without bold or size", {{"total", {{"price", "12.50"}}}},
           {R"(println(""))", R"(println("    TOTAL................  12.50"))"});
    addJob("the total is the attribute price alone", {{"total", {{"total", "12.50"}}}},
           {R"(println(""))", R"(println("    TOTAL................       "))"});
    addJob("what is not paid", {{"notPaid", {{"price", "5.00"}}}},
           {R"(println(""))", R"(println("   Corrispettivo non pagato: 5.00"))"});
    addJob("what is not paid, without a price", {{"notPaid", {}}},
           {R"(println(""))", R"(println("   Corrispettivo non pagato: "))"});
    addJob("no customer block", {{"customer", {{"name", "Rossi"}}}}, {});
    addJob("the order information", {{"orderinfo", {{"table", "12"}}}},
           {"setCharSize()", R"(print(1, "Table:"))", R"(println(1, "12"))", separator()});
    addJob("other elements are ignored",
           elementsNamed({"variant", "receipe", "totals", "notpaid", "receipe_types", "order"}), {});
}

void TestSummaryDocuments::summaryReceipt()
{
    useSettings(documentSettings("receiptdoc", "printCustomer = true; printTable = true;"));
    checkJob("printAbstractOrderReceipt");
}

void TestSummaryDocuments::summaryInvoice_data()
{
    addJobColumns();

    addTypeRows();
    addInvoiceRows();
    addJob("other elements are ignored", elementsNamed({"variant", "receipe", "total", "notPaid", "Totals", "order"}),
           {});
}

void TestSummaryDocuments::summaryInvoice()
{
    useSettings(documentSettings("invoicedoc", "printCustomer = true;"));
    checkJob("printAbstractOrderInvoice");
}

void TestSummaryDocuments::summaryFiscalReceipt_data()
{
    addJobColumns();

    addJob("a type is sold as one unit, whatever its number",
           {{"receipe_type", {{"price", "24,00"}, {"name", "PRIMI"}, {"number", "5"}, {"department", "1"}}}},
           {R"(printRowFiscal("1", "1", "PRIMI", "24,00"))"});
    addJob("no attributes: empty texts and one unit", {{"receipe_type", {}}}, {R"(printRowFiscal("", "1", "", ""))"});
    addJob("a name is never cut", {{"receipe_type", {{"name", "PRIMI PIATTI, ASCIUTTI E IN BRODO, E RISOTTI"}}}},
           {R"(printRowFiscal("", "1", "PRIMI PIATTI, ASCIUTTI E IN BRODO, E RISOTTI", ""))"});
    addJob("the total is passed on with all its attributes in their order",
           {{"total", {{"ticket", "5"}, {"cash", "20,00"}}}}, {R"(printRowFiscal("total", ticket="5", cash="20,00"))"});
    addJob("a dish is not for this receipt", {{"receipe", {{"name", "PIZZA"}, {"price", "3.50"}}}}, {});
}

void TestSummaryDocuments::summaryFiscalReceipt()
{
    QFETCH(Job, job);
    QFETCH(QStringList, calls);
    useSettings(documentSettings("fiscaldoc", "descriptionWidth = 4;"));
    RecordingDriver driver;
    QCOMPARE(callsOf(driver, "printAbstractOrderFiscal", job), calls);
}

void TestSummaryDocuments::otherElementsOfAFiscalReceiptDoNothing()
{
    useSettings(documentSettings("fiscaldoc",
                                 "printGeometry = true; topMargin = 2; printHeader = true; printCompany = true;"
                                 " printCustomer = true; printTable = true; printCredit = true;"));
    SectionsDriver driver;

    const Job others =
        elementsNamed({"printers", "geometry", "headers", "logo", "company", "receipt", "invoice", "delivery",
                       "orderinfo", "customer", "variant", "otherreceipe", "totals", "Total", "notPaid", "Receipe"})
        + Job {{"orderinfo", {{"credit", "5.00"}}}, {"totals", {{"cash", "5.00"}}}};
    QCOMPARE(callsOf(driver, "printAbstractOrderFiscal", others), QStringList());
    QCOMPARE(driver.askedSections, QStringList());
    QCOMPARE(driver.printerName, QString());
    QCOMPARE(driver.credit, QString());
}

void TestSummaryDocuments::noTitlesAfterOneTime_data()
{
    QTest::addColumn<QString>("method");

    QTest::newRow("receipt") << "printAbstractOrderReceipt";
    QTest::newRow("invoice") << "printAbstractOrderInvoice";
}

void TestSummaryDocuments::noTitlesAfterOneTime()
{
    QFETCH(QString, method);
    useSettings(documentSettings(method.endsWith("Receipt") ? "receiptdoc" : "invoicedoc"));
    RecordingDriver driver;

    driver.oneTime();
    QCOMPARE(callsOf(driver, method, {{"receipe_type", {{"name", "PRIMI"}, {"number", "2"}}}}),
             QStringList {R"(println("  2 x PRIMI..............       "))"});
}

void TestSummaryDocuments::labelsOfTheReceiptAreTranslatedButOne()
{
    useSettings(documentSettings("receiptdoc"));
    const MarkedTexts marked;
    RecordingDriver driver;

    const Job job {
        {"receipe_type", {{"name", "TOTAL"}, {"number", "2"}}}, {"total", {}}, {"notPaid", {{"price", "Num"}}}};
    const QStringList expected {"setBold()",      R"(println("<Num> <Description>        <Price>"))",
                                "setCharSize()",  R"(println("  2 x TOTAL..............       "))",
                                R"(println(""))", R"(println("    <TOTAL>..............       "))",
                                R"(println(""))", R"(println("   Corrispettivo non pagato: Num"))"};
    QCOMPARE(callsOf(driver, "printAbstractOrderReceipt", job), expected);
}

void TestSummaryDocuments::labelsOfTheInvoiceAreTranslated()
{
    useSettings(documentSettings("invoicedoc"));
    const MarkedTexts marked;
    RecordingDriver driver;

    const Job job {{"receipe_type", {{"name", "Taxable"}, {"number", "2"}}}, {"totals", {{"tax", "Tax"}}}};
    const QStringList expected {"setBold()",
                                R"(println("<Num> <Description>        <Price>"))",
                                "setCharSize()",
                                R"(println("  2 x Taxable............       "))",
                                "setBold()",
                                R"(println(""))",
                                R"(println("    <Taxable>............       "))",
                                R"(println("    <TaxRate>............       "))",
                                R"(println("    <Tax>................    Tax"))",
                                R"(println("    <TOTAL>..............       "))",
                                "setCharSize()"};
    QCOMPARE(callsOf(driver, "printAbstractOrderInvoice", job), expected);
}

QTEST_GUILESS_MAIN(TestSummaryDocuments)
#include "tst_summarydocuments.moc"
