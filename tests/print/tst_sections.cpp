#include "support/job.h"
#include "support/markedtexts.h"

#include <QtTest>

namespace {

/// Gives the driver the receipt's settings: those of documentSettings() and @p more.
void load(RecordingDriver& driver, const QByteArray& more = QByteArray())
{
    useSettings(documentSettings("receiptdoc", more));
    driver.loadValues("receipt");
}

void addColumns()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<Job>("job");
    QTest::addColumn<QStringList>("calls");
}

void addRow(const char* name, const QByteArray& settings, const Job& job, const QStringList& calls)
{
    QTest::newRow(name) << settings << job << calls;
}

/// Delivers the job to printSections(), which has to know each of its elements.
void checkSections()
{
    QFETCH(QByteArray, settings);
    QFETCH(Job, job);
    QFETCH(QStringList, calls);
    RecordingDriver driver;
    load(driver, settings);

    for (const Element& element : job)
        QVERIFY2(driver.printSections(element.name, xmlAttributes(element.attributes)), element.name);
    QCOMPARE(driver.takeCalls(), calls);
}

const QByteArray allFlags =
    "printGeometry = true; printHeader = true; printLogo = true; printCompany = true; printDeliveryAddress = "
    "true;"
    " printBillingAddress = true; printTelephone = true; printDate = true; printTime = true; printTable = "
    "true;"
    " printCustomer = true; printLicenseNumber = true; printFiscalCode = true; printCredit = true;"
    " printWaiter = true; printNote = true; openCashDrawer = true;";

const Attributes wholeOrderInfo {{"credit", "5.00"}, {"note", "window"}, {"waiter", "Anna"},
                                 {"table", "12"},    {"time", "20:15"},  {"date", "01/02/2006"}};

const Attributes wholeCustomer {{"fiscalcode", "RSSMRA80A01H501U"},
                                {"licensenumber", "01234567890"},
                                {"telephone", "06 123"},
                                {"deliveryaddress", "Via Po 2, Torino"},
                                {"billingaddress", "Via Roma 1, 00100 Roma"},
                                {"name", "Rossi"}};

/// Notes which operations the sections are made of.
class OperationDriver : public RecordingDriver {
public:
    QStringList operations;

    void initPrinter() override { operations += "initPrinter"; }
    void printLogo() override { operations += "printLogo"; }
    void printSeparatorLine() override { operations += "printSeparatorLine"; }
    void printGeometry(const QXmlAttributes& atts) override { note("printGeometry", atts); }
    void printPrinterInfo() override { operations += "printPrinterInfo"; }
    void printHeaders(const QXmlAttributes& atts) override { note("printHeaders", atts); }
    void printCompanyHeader(const QXmlAttributes& atts) override { note("printCompanyHeader", atts); }
    void printReceiptHeader(const QXmlAttributes& atts) override { note("printReceiptHeader", atts); }
    void printInvoiceHeader(const QXmlAttributes& atts) override { note("printInvoiceHeader", atts); }
    void printDeliveryHeader(const QXmlAttributes& atts) override { note("printDeliveryHeader", atts); }
    void printOrderInfo(const QXmlAttributes& atts) override { note("printOrderInfo", atts); }

private:
    void note(const QString& operation, const QXmlAttributes& atts) { operations += operation + ' ' + atts.value("a"); }
};

/// Hands every operation of the sections on to the engine, but draws the rule otherwise.
class OtherRuleDriver : public RecordingDriver {
public:
    void printSeparatorLine() override { println("rule"); }
};

} // namespace

/// The sections that documents share.
class TestSections : public QObject {
    Q_OBJECT

private slots:
    void init();

    void sectionsCallTheirOperations_data();
    void sectionsCallTheirOperations();
    void sectionsDrawTheDriversRule();
    void otherElementsAreNoSections_data();
    void otherElementsAreNoSections();

    void printersAreStored();
    void printersWithoutAttributesAreEmpty();
    void geometry_data();
    void geometry();
    void headers_data();
    void headers();
    void logo_data();
    void logo();
    void company_data();
    void company();
    void numbers_data();
    void numbers();
    void orderInfo_data();
    void orderInfo();
    void credit_data();
    void credit();
    void customer_data();
    void customer();
    void address_data();
    void address();

    void printerInfo();

    void labelsAreTranslated();
    void attributesAreNotTranslated();
};

void TestSections::init()
{
    useSettings(QByteArray());
}

void TestSections::sectionsCallTheirOperations_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QStringList>("operations");

    QTest::newRow("printers") << "printers" << QStringList {"initPrinter"};
    QTest::newRow("geometry") << "geometry" << QStringList {"printGeometry 1"};
    QTest::newRow("headers, then the printer") << "headers" << QStringList {"printHeaders 1", "printPrinterInfo"};
    QTest::newRow("logo") << "logo" << QStringList {"printLogo"};
    QTest::newRow("company") << "company" << QStringList {"printCompanyHeader 1"};
    QTest::newRow("receipt") << "receipt" << QStringList {"printReceiptHeader 1"};
    QTest::newRow("invoice") << "invoice" << QStringList {"printInvoiceHeader 1"};
    QTest::newRow("delivery") << "delivery" << QStringList {"printDeliveryHeader 1"};
    QTest::newRow("orderinfo") << "orderinfo" << QStringList {"printOrderInfo 1"};
}

void TestSections::sectionsCallTheirOperations()
{
    QFETCH(QString, element);
    QFETCH(QStringList, operations);
    OperationDriver driver;

    QVERIFY(driver.printSections(element, xmlAttributes({{"a", "1"}})));
    QCOMPARE(driver.operations, operations);
    QCOMPARE(driver.takeCalls(), QStringList());
}

void TestSections::sectionsDrawTheDriversRule()
{
    OtherRuleDriver driver;
    load(driver, allFlags);

    for (const char* element : {"headers", "company", "receipt", "invoice", "delivery", "orderinfo"}) {
        driver.printSections(element, QXmlAttributes());
        QCOMPARE(driver.takeCalls().last(), QString(R"(println("rule"))"));
    }
    driver.printCustomerHeader(QXmlAttributes());
    QCOMPARE(driver.takeCalls().last(), QString(R"(println("rule"))"));
}

void TestSections::otherElementsAreNoSections_data()
{
    QTest::addColumn<QString>("element");

    QTest::newRow("the customer block") << "customer";
    QTest::newRow("a row") << "receipe";
    QTest::newRow("the method") << "method";
    QTest::newRow("no name") << "";
    QTest::newRow("upper case") << "HEADERS";
    QTest::newRow("one letter in the wrong case") << "orderInfo";
    QTest::newRow("singular") << "header";
    QTest::newRow("plural") << "receipts";
    QTest::newRow("a blank after") << "company ";
    QTest::newRow("a name space") << "x:company";
}

void TestSections::otherElementsAreNoSections()
{
    QFETCH(QString, element);
    RecordingDriver driver;
    load(driver, allFlags);

    QVERIFY(!driver.printSections(element, xmlAttributes({{"name", "a"}})));
    QCOMPARE(driver.takeCalls(), QStringList());
}

void TestSections::printersAreStored()
{
    RecordingDriver driver;

    const Attributes attributes {
        {"port", "9100"}, {"ipaddress", "10.0.0.7"}, {"charsize", "2"}, {"name", "Bar"}, {"other", "x"}};
    QVERIFY(driver.printSections("printers", xmlAttributes(attributes)));
    QCOMPARE(driver.printerName, QString("Bar"));
    QCOMPARE(driver.charSize, QString("2"));
    QCOMPARE(driver.ipAddress, QString("10.0.0.7"));
    QCOMPARE(driver.port, QString("9100"));
    QCOMPARE(driver.takeCalls(), QStringList {"initPrinter()"});
}

void TestSections::printersWithoutAttributesAreEmpty()
{
    RecordingDriver driver;
    const Attributes attributes {{"name", "Bar"}, {"charsize", "2"}, {"ipaddress", "10.0.0.7"}, {"port", "9100"}};
    driver.printSections("printers", xmlAttributes(attributes));

    driver.printSections("printers", QXmlAttributes());
    QCOMPARE(driver.printerName, QString());
    QCOMPARE(driver.charSize, QString());
    QCOMPARE(driver.ipAddress, QString());
    QCOMPARE(driver.port, QString());
}

void TestSections::geometry_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<int>("lines");

    QTest::newRow("flag off") << QByteArray("topMargin = 3;") << 0;
    QTest::newRow("three lines") << QByteArray("printGeometry = true; topMargin = 3;") << 3;
    QTest::newRow("one line, with blanks around the number")
        << QByteArray("printGeometry = true; topMargin = \" 1 \";") << 1;
    QTest::newRow("absent") << QByteArray("printGeometry = true;") << 0;
    QTest::newRow("empty") << QByteArray("printGeometry = true; topMargin = ;") << 0;
    QTest::newRow("zero") << QByteArray("printGeometry = true; topMargin = 0;") << 0;
    QTest::newRow("negative") << QByteArray("printGeometry = true; topMargin = -1;") << 0;
    QTest::newRow("a word") << QByteArray("printGeometry = true; topMargin = abc;") << 0;
    QTest::newRow("a number and a word") << QByteArray("printGeometry = true; topMargin = 3 lines;") << 0;
    QTest::newRow("10,000") << QByteArray("printGeometry = true; topMargin = 10000;") << 10000;
    QTest::newRow("no more than 10,000") << QByteArray("printGeometry = true; topMargin = 20000;") << 10000;
    QTest::newRow("beyond 32 bits") << QByteArray("printGeometry = true; topMargin = 2147483648;") << 0;
}

void TestSections::geometry()
{
    QFETCH(QByteArray, settings);
    QFETCH(int, lines);
    RecordingDriver driver;
    load(driver, settings);

    QVERIFY(driver.printSections("geometry", xmlAttributes({{"topMargin", "7"}})));
    const QStringList calls = driver.takeCalls();
    QCOMPARE(calls.size(), lines);
    QCOMPARE(calls.count(R"(println(""))"), lines);
}

void TestSections::headers_data()
{
    addColumns();
    const Element printer {"printers", {{"name", "Kitchen"}}};
    const Element lines {"headers", {{"z", "Welcome"}, {"a", "to the trattoria"}, {"m", ""}, {"b", " open "}}};
    const QString center = "setCenterJustify()";

    addRow("flag off: the printer all the same", QByteArray(), {printer, lines},
           {"initPrinter()", center, R"(println("Kitchen"))", separator()});
    addRow("flag on: every attribute in the file's order, then the printer", "printHeader = true;", {printer, lines},
           {"initPrinter()", R"(println("Welcome"))", R"(println("to the trattoria"))", R"(println(""))",
            R"(println(" open "))", separator(), center, R"(println("Kitchen"))", separator()});
    addRow("flag on, no attributes: still a rule", "printHeader = true;", {printer, {"headers", {}}},
           {"initPrinter()", separator(), center, R"(println("Kitchen"))", separator()});
    addRow("no printer named: an empty line", QByteArray(), {lines}, {center, R"(println(""))", separator()});
}

void TestSections::headers()
{
    checkSections();
}

void TestSections::logo_data()
{
    addColumns();

    addRow("flag on", "printLogo = true;", {{"logo", {}}}, {"printLogo()"});
    addRow("flag off: printed all the same", QByteArray(), {{"logo", {}}}, {"printLogo()"});
}

void TestSections::logo()
{
    checkSections();
}

void TestSections::company_data()
{
    addColumns();
    const Element company {"company", {{"z", "Trattoria da Anna"}, {"address", "Via Po 2"}, {"a", "Torino"}}};

    addRow("flag off: nothing", QByteArray(), {company}, {});
    addRow("flag on: centred lines in the file's order, a rule at the left", "printCompany = true;", {company},
           {"setCharSize()", "setCenterJustify()", R"(println("Trattoria da Anna"))", R"(println("Via Po 2"))",
            R"(println("Torino"))", "setCharSize()", separator()});
    addRow("flag on, no attributes", "printCompany = true;", {{"company", {}}},
           {"setCharSize()", "setCenterJustify()", "setCharSize()", separator()});
}

void TestSections::company()
{
    checkSections();
}

void TestSections::numbers_data()
{
    addColumns();
    const Attributes number {{"number", "8"}, {"serialnumber", "7"}};

    addRow("receipt: label and number are one text", QByteArray(), {{"receipt", number}},
           {R"(println(1, "Serial Number: 7"))", separator()});
    addRow("invoice: label and number are two texts", QByteArray(), {{"invoice", number}},
           {R"(print(1, "Invoice Number:"))", R"(println(1, "7"))", separator()});
    addRow("delivery: label and number are two texts", QByteArray(), {{"delivery", number}},
           {R"(print(1, "Delivery Number:"))", R"(println(1, "7"))", separator()});
    addRow("receipt without a number", QByteArray(), {{"receipt", {}}},
           {R"(println(1, "Serial Number: "))", separator()});
    addRow("invoice without a number", QByteArray(), {{"invoice", {}}},
           {R"(print(1, "Invoice Number:"))", R"(println(1, ""))", separator()});
    addRow("delivery without a number", QByteArray(), {{"delivery", {}}},
           {R"(print(1, "Delivery Number:"))", R"(println(1, ""))", separator()});
}

void TestSections::numbers()
{
    checkSections();
}

void TestSections::orderInfo_data()
{
    addColumns();
    const Job job {{"orderinfo", wholeOrderInfo}};
    const auto addLines = [&](const char* name, const QByteArray& settings, const QStringList& lines) {
        addRow(name, settings, job, QStringList {"setCharSize()"} + lines + QStringList {separator()});
    };

    addLines("all flags off: size and rule", QByteArray(), {});
    addLines("date", "printDate = true;", {R"(print(1, "Date:"))", R"(println(1, "01/02/2006"))"});
    addLines("time", "printTime = true;", {R"(print(1, "Time:"))", R"(println(1, "20:15"))"});
    addLines("table", "printTable = true;", {R"(print(1, "Table:"))", R"(println(1, "12"))"});
    addLines("waiter", "printWaiter = true;", {R"(print(1, "Waiter:"))", R"(println(1, "Anna"))"});
    addLines("note", "printNote = true;", {R"(print(1, "Note:"))", R"(println(1, "window"))"});
    addLines("credit", "printCredit = true;", {R"(print(1, "Credit:"))", R"(println(1, "5.00"))"});
    addLines("all, in an order that is not the file's", allFlags,
             {R"(print(1, "Date:"))", R"(println(1, "01/02/2006"))", R"(print(1, "Time:"))", R"(println(1, "20:15"))",
              R"(print(1, "Table:"))", R"(println(1, "12"))", R"(print(1, "Waiter:"))", R"(println(1, "Anna"))",
              R"(print(1, "Note:"))", R"(println(1, "window"))", R"(print(1, "Credit:"))", R"(println(1, "5.00"))"});
    addRow("absent attributes leave their labels", "printDate = true; printCredit = true;", {{"orderinfo", {}}},
           {"setCharSize()", R"(print(1, "Date:"))", R"(println(1, ""))", R"(print(1, "Credit:"))", R"(println(1, ""))",
            separator()});
}

void TestSections::orderInfo()
{
    checkSections();
}

void TestSections::credit_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("earlier");
    QTest::addColumn<Job>("job");
    QTest::addColumn<QString>("credit");

    const Job five {{"orderinfo", {{"credit", "5.00"}}}};
    QTest::newRow("flag on: stored") << QByteArray("printCredit = true;") << "" << five << "5.00";
    QTest::newRow("flag on: replaces the earlier one") << QByteArray("printCredit = true;") << "1.00" << five << "5.00";
    QTest::newRow("flag on, no attribute: stored as empty")
        << QByteArray("printCredit = true;") << "1.00" << Job {{"orderinfo", {}}} << "";
    QTest::newRow("flag off: stays empty") << QByteArray() << "" << five << "";
    QTest::newRow("flag off: the earlier one is kept") << QByteArray() << "1.00" << five << "1.00";
}

void TestSections::credit()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, earlier);
    QFETCH(Job, job);
    QFETCH(QString, credit);
    RecordingDriver driver;
    load(driver, settings);
    driver.credit = earlier;

    for (const Element& element : job)
        driver.printSections(element.name, xmlAttributes(element.attributes));
    QCOMPARE(driver.credit, credit);
}

void TestSections::customer_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QStringList>("calls");

    const QStringList head {R"(println("CUSTOMER"))", R"(println(1, "Rossi"))"};
    const auto addLines = [&](const char* name, const QByteArray& settings, const QStringList& lines) {
        QTest::newRow(name) << "printCustomer = true; " + settings << head + lines + QStringList {separator()};
    };

    QTest::newRow("flag off: nothing, not even a rule") << QByteArray() << QStringList();
    QTest::newRow("flag off, all others on: nothing")
        << QByteArray(allFlags).replace("printCustomer = true;", "") << QStringList();
    addLines("the name alone", QByteArray(), {});
    addLines("billing address", "printBillingAddress = true;",
             {R"(println(1, "Via Roma 1"))", R"(println(1, "00100 Roma"))"});
    addLines("delivery address", "printDeliveryAddress = true;",
             {R"(println(1, "Via Po 2"))", R"(println(1, "Torino"))"});
    addLines("telephone", "printTelephone = true;", {R"(print(1, "Telephone:"))", R"(println(1, "06 123"))"});
    addLines("license number", "printLicenseNumber = true;",
             {R"(print(1, "License Number:"))", R"(println(1, "01234567890"))"});
    addLines("fiscal code", "printFiscalCode = true;",
             {R"(print(1, "Fiscal Code:"))", R"(println(1, "RSSMRA80A01H501U"))"});
    addLines("all, in an order that is not the file's", allFlags,
             {R"(println(1, "Via Roma 1"))", R"(println(1, "00100 Roma"))", R"(println(1, "Via Po 2"))",
              R"(println(1, "Torino"))", R"(print(1, "Telephone:"))", R"(println(1, "06 123"))",
              R"(print(1, "License Number:"))", R"(println(1, "01234567890"))", R"(print(1, "Fiscal Code:"))",
              R"(println(1, "RSSMRA80A01H501U"))"});
}

void TestSections::customer()
{
    QFETCH(QByteArray, settings);
    QFETCH(QStringList, calls);
    RecordingDriver driver;
    load(driver, settings);

    driver.printCustomerHeader(xmlAttributes(wholeCustomer));
    QCOMPARE(driver.takeCalls(), calls);
}

void TestSections::address_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("three lines, stripped")
        << "Via Roma 1, 00100 Roma ,Italy" << QStringList {"Via Roma 1", "00100 Roma", "Italy"};
    QTest::newRow("one line") << "Via Roma 1" << QStringList {"Via Roma 1"};
    QTest::newRow("an empty field in the middle ends it") << "Via Roma 1,,Roma" << QStringList {"Via Roma 1"};
    QTest::newRow("a blank field in the middle is an empty line")
        << "Via Roma 1, ,Roma" << QStringList {"Via Roma 1", "", "Roma"};
    QTest::newRow("a blank alone is an empty line") << " " << QStringList {""};
    QTest::newRow("two blank fields are two empty lines") << " ,  " << QStringList {"", ""};
    QTest::newRow("a comma at the end adds nothing") << "Via Roma 1,Roma," << QStringList {"Via Roma 1", "Roma"};
    QTest::newRow("two commas at the end add nothing") << "Roma,," << QStringList {"Roma"};
    QTest::newRow("a comma and a blank at the end add an empty line") << "Roma, " << QStringList {"Roma", ""};
    QTest::newRow("a comma at the start ends it at once") << ",Via Roma 1" << QStringList();
    QTest::newRow("a comma alone") << "," << QStringList();
    QTest::newRow("empty") << "" << QStringList();
    QTest::newRow("tabs and line ends are white space too")
        << "\tVia Roma 1\r\n,\nRoma\t" << QStringList {"Via Roma 1", "Roma"};
    QTest::newRow("inner blanks stay") << "Via   Roma  1" << QStringList {"Via   Roma  1"};
    QTest::newRow("no separator but the comma") << "Via Roma 1; Roma" << QStringList {"Via Roma 1; Roma"};
}

void TestSections::address()
{
    QFETCH(QString, value);
    QFETCH(QStringList, lines);
    QStringList calls {R"(println("CUSTOMER"))", R"(println(1, ""))"};
    for (const QString& line : lines)
        calls += QString(R"(println(1, "%1"))").arg(line);
    calls += separator();

    const QByteArray text = value.toUtf8();
    RecordingDriver driver;
    load(driver, "printCustomer = true; printBillingAddress = true;");
    driver.printCustomerHeader(xmlAttributes({{"billingaddress", text.constData()}, {"deliveryaddress", "x"}}));
    QCOMPARE(driver.takeCalls(), calls);

    load(driver, "printCustomer = true; printDeliveryAddress = true;");
    driver.printCustomerHeader(xmlAttributes({{"billingaddress", "x"}, {"deliveryaddress", text.constData()}}));
    QCOMPARE(driver.takeCalls(), calls);
}

void TestSections::printerInfo()
{
    RecordingDriver driver;
    load(driver);
    driver.printerName = "Kitchen";

    driver.printPrinterInfo();
    const QStringList expected {"setCenterJustify()", R"(println("Kitchen"))", separator()};
    QCOMPARE(driver.takeCalls(), expected);
}

void TestSections::labelsAreTranslated()
{
    RecordingDriver driver;
    load(driver, allFlags);
    const MarkedTexts marked;

    for (const char* element : {"receipt", "invoice", "delivery", "orderinfo"})
        driver.printSections(element, QXmlAttributes());
    driver.printCustomerHeader(QXmlAttributes());
    const QStringList labels = driver.takeCalls().filter("<");
    const QStringList expected {R"(println(1, "<Serial Number: >"))",
                                R"(print(1, "<Invoice Number:>"))",
                                R"(print(1, "<Delivery Number:>"))",
                                R"(print(1, "<Date:>"))",
                                R"(print(1, "<Time:>"))",
                                R"(print(1, "<Table:>"))",
                                R"(print(1, "<Waiter:>"))",
                                R"(print(1, "<Note:>"))",
                                R"(print(1, "<Credit:>"))",
                                R"(println("<CUSTOMER>"))",
                                R"(print(1, "<Telephone:>"))",
                                R"(print(1, "<License Number:>"))",
                                R"(print(1, "<Fiscal Code:>"))"};
    QCOMPARE(labels, expected);
}

void TestSections::attributesAreNotTranslated()
{
    RecordingDriver driver;
    load(driver, "printHeader = true; printCompany = true; printCustomer = true;");
    const MarkedTexts marked;

    driver.printSections("printers", xmlAttributes({{"name", "Note:"}}));
    driver.printSections("headers", xmlAttributes({{"line", "Table:"}}));
    driver.printSections("company", xmlAttributes({{"line", "Date:"}}));
    driver.printCustomerHeader(xmlAttributes({{"name", "CUSTOMER"}}));
    QCOMPARE(driver.takeCalls().filter("<"), QStringList {R"(println("<CUSTOMER>"))"});
}

QTEST_GUILESS_MAIN(TestSections)
#include "tst_sections.moc"
