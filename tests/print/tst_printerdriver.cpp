#include "support/capture.h"
#include "support/job.h"
#include "toolkit/textwriter.h"

#include <QtTest>

#include <optional>

namespace {

struct Method {
    const char* name;
    const char* docPath; ///< whose settings the document is printed with
    int paperWidth; ///< that those settings give in settingsOfAllDocuments
    std::optional<bool> invoice; ///< what the method makes of printDuplicate(); nothing leaves it as it is
};

const Method methods[] = {
    {"printPartialOrder", "zelmora.doc.", 41, {}},
    {"printFullOrder", "zelmora.prefiscaldoc.", 42, {}},
    {"printFullOrderReceipt", "zelmora.receiptdoc.", 44, {}},
    {"printFullOrderInvoice", "zelmora.invoicedoc.", 45, true},
    {"printFullOrderDelivery", "zelmora.deliverydoc.", 46, {}},
    {"printFullOrderFiscal", "zelmora.fiscaldoc.", 43, false},
    {"printAbstractOrder", "zelmora.doc.", 41, {}},
    {"printAbstractOrderReceipt", "zelmora.receiptdoc.", 44, {}},
    {"printAbstractOrderInvoice", "zelmora.invoicedoc.", 45, true},
    {"printAbstractOrderFiscal", "zelmora.fiscaldoc.", 43, false},
    {"printReport", "zelmora.reportdoc.", 47, {}},
    {"printSold", "zelmora.solddoc.", 48, {}},
    {"printStatementOfAccount", "zelmora.reportdoc.", 47, {}},
};

const QByteArray settingsOfAllDocuments = R"(
zelmora: {
    doc: { paperWidth = 41; };
    prefiscaldoc: { paperWidth = 42; };
    fiscaldoc: { paperWidth = 43; };
    receiptdoc: { paperWidth = 44; };
    invoicedoc: { paperWidth = 45; };
    deliverydoc: { paperWidth = 46; };
    reportdoc: { paperWidth = 47; };
    solddoc: { paperWidth = 48; };
};)";

void addMethodRows()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(methods)); ++i)
        QTest::newRow(methods[i].name) << i;
}

/// Notes how far the selection of a method has come when the section is started.
class SelectionDriver : public RecordingDriver {
public:
    void startSection() override
    {
        seen = QStringList {method, docPath, QString::number(paperWidth)};
        seen += printDuplicate() ? "duplicate" : "no duplicate";
    }

    QStringList seen;
};

/// Notes which print method each element reaches, with its name and attributes.
class DispatchDriver : public RecordingDriver {
public:
    QStringList reached;

    void printPartialOrder(const QString& q, const QXmlAttributes& a) override { note("printPartialOrder", q, a); }
    void printFullOrder(const QString& q, const QXmlAttributes& a) override { note("printFullOrder", q, a); }
    void printFullOrderReceipt(const QString& q, const QXmlAttributes& a) override
    {
        note("printFullOrderReceipt", q, a);
    }
    void printFullOrderInvoice(const QString& q, const QXmlAttributes& a) override
    {
        note("printFullOrderInvoice", q, a);
    }
    void printFullOrderDelivery(const QString& q, const QXmlAttributes& a) override
    {
        note("printFullOrderDelivery", q, a);
    }
    void printFullOrderFiscal(const QString& q, const QXmlAttributes& a) override
    {
        note("printFullOrderFiscal", q, a);
    }
    void printAbstractOrder(const QString& q, const QXmlAttributes& a) override { note("printAbstractOrder", q, a); }
    void printAbstractOrderReceipt(const QString& q, const QXmlAttributes& a) override
    {
        note("printAbstractOrderReceipt", q, a);
    }
    void printAbstractOrderInvoice(const QString& q, const QXmlAttributes& a) override
    {
        note("printAbstractOrderInvoice", q, a);
    }
    void printAbstractOrderFiscal(const QString& q, const QXmlAttributes& a) override
    {
        note("printAbstractOrderFiscal", q, a);
    }
    void printReport(const QString& q, const QXmlAttributes& a) override { note("printReport", q, a); }
    void printSold(const QString& q, const QXmlAttributes& a) override { note("printSold", q, a); }
    void printStatementOfAccount(const QString& q, const QXmlAttributes& a) override
    {
        note("printStatementOfAccount", q, a);
    }

private:
    void note(const char* print, const QString& qName, const QXmlAttributes& atts)
    {
        QString line = QString("%1: %2").arg(print, qName);
        for (int i = 0; i < atts.count(); ++i)
            line += QString(" %1=%2").arg(atts.qName(i), atts.value(i));
        reached += line;
    }
};

/// Elements that print something in one document or another.
Job everyElement()
{
    return elementsNamed({"printers",     "geometry",       "headers",         "logo",     "company", "receipt",
                          "invoice",      "delivery",       "orderinfo",       "customer", "receipe", "otherreceipe",
                          "receipe_type", "variant",        "total",           "totals",   "notPaid", "date",
                          "statement",    "statement_list", "cancelledsummary"});
}

void writeText(const QString& path, bool append, const QString& text)
{
    RecordingDriver driver(path, append);
    *driver.stream << text;
}

} // namespace

/// The engine's life cycle: its output file, the XML events, the choice of a print method and what outlives
/// it.
class TestPrinterDriver : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void newDriver();
    void startOfDocumentResetsTheDevice();
    void endOfDocumentEndsTheSection();
    void endOfDocumentWithoutMethodEndsTheSectionToo();
    void endOfElementDoesNothing();
    void hooksDoNothing();

    void sectionStartsWhenAllIsSet_data();
    void sectionStartsWhenAllIsSet();
    void elementsReachTheMethod_data();
    void elementsReachTheMethod();
    void elementsFollowTheMember();
    void onlyTheQualifiedNameCounts();
    void unknownMethod_data();
    void unknownMethod();
    void methodWithoutName();
    void unknownMethodAfterAnAcceptedOne();
    void knownMethodAfterAnUnknownOne();
    void elementsBeforeTheMethodAreIgnored();
    void secondMethodLoadsItsOwnSettings();
    void secondMethodKeepsTheRest();

    void duplicateOfTwoMethods_data();
    void duplicateOfTwoMethods();

    void fileIsMade();
    void fileIsEmptied();
    void fileIsAppendedTo();
    void fileIsAppendedToAndMade();
    void fileThatCannotBeOpened_data();
    void fileThatCannotBeOpened();
    void fileIsUtf8InAUtf8Locale();
    void lineEndsAreWrittenAsTheyAre();
};

void TestPrinterDriver::initTestCase()
{
    qputenv("LC_ALL", "C.UTF-8");
}

void TestPrinterDriver::init()
{
    useSettings(settingsOfAllDocuments);
}

void TestPrinterDriver::newDriver()
{
    RecordingDriver driver;

    QCOMPARE(driver.method, QString());
    QCOMPARE(driver.docPath, QString());
    QCOMPARE(driver.justify, QString("left"));
    QCOMPARE(driver.printerName, QString());
    QCOMPARE(driver.charSize, QString());
    QCOMPARE(driver.ipAddress, QString());
    QCOMPARE(driver.port, QString());
    QCOMPARE(driver.style, QString());
    QCOMPARE(driver.credit, QString());
    QCOMPARE(driver.printDuplicate(), false);
    QCOMPARE(driver.takeCalls(), QStringList());
}

void TestPrinterDriver::startOfDocumentResetsTheDevice()
{
    RecordingDriver driver;

    QVERIFY(driver.startDocument());
    QCOMPARE(driver.takeCalls(), QStringList {"reset()"});
}

void TestPrinterDriver::endOfDocumentEndsTheSection()
{
    RecordingDriver driver;
    selectMethod(driver, "printReport");
    driver.takeCalls();

    QVERIFY(driver.endDocument());
    QCOMPARE(driver.takeCalls(), QStringList {"endSection()"});
}

void TestPrinterDriver::endOfDocumentWithoutMethodEndsTheSectionToo()
{
    RecordingDriver driver;

    QVERIFY(driver.endDocument());
    QCOMPARE(driver.takeCalls(), QStringList {"endSection()"});
}

void TestPrinterDriver::endOfElementDoesNothing()
{
    RecordingDriver driver;
    selectMethod(driver, "printSold");
    driver.takeCalls();

    QVERIFY(driver.endElement(QString(), QString(), "receipe"));
    QVERIFY(driver.endElement(QString(), QString(), "method"));
    QCOMPARE(driver.takeCalls(), QStringList());
    QCOMPARE(driver.method, QString("printSold"));
}

void TestPrinterDriver::hooksDoNothing()
{
    RecordingDriver driver;

    driver.PrinterDriver::reset();
    driver.PrinterDriver::initPrinter();
    driver.PrinterDriver::printRowFiscal("totals", xmlAttributes({{"cash", "1"}}));
    driver.PrinterDriver::printRowFiscal("1", "2", "PIZZA", "3.50");
    QCOMPARE(driver.takeCalls(), QStringList());
}

void TestPrinterDriver::sectionStartsWhenAllIsSet_data()
{
    addMethodRows();
}

void TestPrinterDriver::sectionStartsWhenAllIsSet()
{
    QFETCH(int, index);
    const Method& method = methods[index];
    SelectionDriver driver;

    QVERIFY(driver.element("method", {{"id", "printers"}, {"name", method.name}}));
    const char* const duplicate = method.invoice.value_or(false) ? "duplicate" : "no duplicate";
    const QStringList expected {method.name, method.docPath, QString::number(method.paperWidth), duplicate};
    QCOMPARE(driver.seen, expected);
}

void TestPrinterDriver::elementsReachTheMethod_data()
{
    addMethodRows();
}

void TestPrinterDriver::elementsReachTheMethod()
{
    QFETCH(int, index);
    const QString method = methods[index].name;
    DispatchDriver driver;

    QVERIFY(selectMethod(driver, method));
    QVERIFY(driver.element("receipe", {{"name", "PIZZA"}, {"number", "2"}}));
    QVERIFY(driver.element("printers"));
    QVERIFY(driver.element("Method", {{"name", "printSold"}}));
    const QStringList expected {method + ": receipe name=PIZZA number=2", method + ": printers",
                                method + ": Method name=printSold"};
    QCOMPARE(driver.reached, expected);
}

void TestPrinterDriver::elementsFollowTheMember()
{
    DispatchDriver driver;
    selectMethod(driver, "printReport");

    driver.method = "printSold";
    QVERIFY(driver.element("receipe"));
    driver.method.clear();
    QVERIFY(driver.element("receipe"));
    driver.method = "printInvoice";
    QVERIFY(driver.element("receipe"));
    QCOMPARE(driver.reached, QStringList {"printSold: receipe"});
}

void TestPrinterDriver::onlyTheQualifiedNameCounts()
{
    DispatchDriver driver;

    QVERIFY(driver.startElement("method", "method", "job", xmlAttributes({{"name", "printInvoice"}})));
    QVERIFY(driver.startElement("x", "y", "method", xmlAttributes({{"name", "printSold"}})));
    QVERIFY(driver.startElement("method", "method", "receipe", QXmlAttributes()));
    QCOMPARE(driver.reached, QStringList {"printSold: receipe"});
}

void TestPrinterDriver::unknownMethod_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("an unknown name") << "printInvoice";
    QTest::newRow("an empty name") << "";
    QTest::newRow("all in lower case") << "printreport";
    QTest::newRow("all in upper case") << "PRINTREPORT";
    QTest::newRow("one letter in the wrong case") << "printFullorder";
    QTest::newRow("a blank before") << " printReport";
    QTest::newRow("a blank after") << "printReport ";
    QTest::newRow("the beginning of a name") << "printFull";
    QTest::newRow("a name and more") << "printReports";
    QTest::newRow("a document type") << "receipt";
}

void TestPrinterDriver::unknownMethod()
{
    QFETCH(QString, name);
    RecordingDriver driver;
    bool accepted = true;

    const QByteArray output = captured(stdout, [&] { accepted = selectMethod(driver, name); });
    QCOMPARE(output, QByteArray("File Format Not Supported\n"));
    QVERIFY(!accepted);
    QCOMPARE(driver.method, QString());
    QCOMPARE(driver.takeCalls(), QStringList());
}

void TestPrinterDriver::methodWithoutName()
{
    RecordingDriver driver;
    bool accepted = true;

    const QByteArray output = captured(stdout, [&] {
        accepted = driver.element("method", {{"Name", "printSold"}, {"id", "printSold"}});
    });
    QCOMPARE(output, QByteArray("File Format Not Supported\n"));
    QVERIFY(!accepted);
    QCOMPARE(driver.takeCalls(), QStringList());
}

void TestPrinterDriver::unknownMethodAfterAnAcceptedOne()
{
    RecordingDriver driver;
    selectMethod(driver, "printFullOrderReceipt");
    driver.takeCalls();
    bool accepted = true;

    const QByteArray output = captured(stdout, [&] { accepted = selectMethod(driver, "printInvoice"); });
    QCOMPARE(output, QByteArray("File Format Not Supported\n"));
    QVERIFY(!accepted);
    QCOMPARE(driver.method, QString());
    deliver(driver, everyElement());
    QCOMPARE(driver.takeCalls(), QStringList());
}

void TestPrinterDriver::knownMethodAfterAnUnknownOne()
{
    RecordingDriver driver;
    captured(stdout, [&] { selectMethod(driver, "printInvoice"); });

    QVERIFY(selectMethod(driver, "printSold"));
    QCOMPARE(driver.method, QString("printSold"));
    QCOMPARE(driver.takeCalls(), QStringList {"startSection()"});
}

void TestPrinterDriver::elementsBeforeTheMethodAreIgnored()
{
    RecordingDriver driver;

    for (const Element& element : everyElement())
        QVERIFY2(driver.element(element.name, element.attributes), element.name);
    QCOMPARE(driver.takeCalls(), QStringList());
    QCOMPARE(driver.printerName, QString());
}

void TestPrinterDriver::secondMethodLoadsItsOwnSettings()
{
    RecordingDriver driver;

    QVERIFY(selectMethod(driver, "printReport"));
    QVERIFY(selectMethod(driver, "printSold"));
    QCOMPARE(driver.method, QString("printSold"));
    QCOMPARE(driver.docPath, QString("zelmora.solddoc."));
    QCOMPARE(driver.paperWidth, 48);
    const QStringList expected {"startSection()", "startSection()"};
    QCOMPARE(driver.takeCalls(), expected);
}

void TestPrinterDriver::secondMethodKeepsTheRest()
{
    useSettings(documentSettings("receiptdoc", "printCredit = true;"));
    RecordingDriver driver;
    callsOf(driver, "printFullOrderReceipt",
            {{"printers", {{"name", "Bar"}, {"charsize", "2"}, {"ipaddress", "10.0.0.7"}, {"port", "9100"}}},
             {"orderinfo", {{"credit", "5.00"}}},
             {"receipe", {{"name", "PIZZA"}}}});
    driver.justify = "center";

    selectMethod(driver, "printFullOrder");
    QCOMPARE(driver.printerName, QString("Bar"));
    QCOMPARE(driver.charSize, QString("2"));
    QCOMPARE(driver.ipAddress, QString("10.0.0.7"));
    QCOMPARE(driver.port, QString("9100"));
    QCOMPARE(driver.credit, QString("5.00"));
    QCOMPARE(driver.justify, QString("center"));
    QCOMPARE(driver.oneTime(), false);
}

void TestPrinterDriver::duplicateOfTwoMethods_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("duplicate");

    for (const Method& first : methods) {
        for (const Method& second : methods) {
            const bool duplicate = second.invoice.value_or(first.invoice.value_or(false));
            QTest::addRow("%s then %s", first.name, second.name) << first.name << second.name << duplicate;
        }
    }
}

void TestPrinterDriver::duplicateOfTwoMethods()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, duplicate);
    RecordingDriver driver;

    selectMethod(driver, first);
    selectMethod(driver, second);
    QCOMPARE(driver.printDuplicate(), duplicate);
}

void TestPrinterDriver::fileIsMade()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");

    {
        RecordingDriver driver(path);
    }
    QVERIFY(QFile::exists(path));
    QCOMPARE(fileContents(path), QByteArray());
    writeText(path, false, "new");
    QCOMPARE(fileContents(path), QByteArray("new"));
}

void TestPrinterDriver::fileIsEmptied()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");
    writeText(path, false, "a longer text");

    writeText(path, false, "short");
    QCOMPARE(fileContents(path), QByteArray("short"));
    {
        RecordingDriver driver(path);
    }
    QCOMPARE(fileContents(path), QByteArray());
}

void TestPrinterDriver::fileIsAppendedTo()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");
    writeText(path, false, "first");

    writeText(path, true, "second");
    QCOMPARE(fileContents(path), QByteArray("firstsecond"));
}

void TestPrinterDriver::fileIsAppendedToAndMade()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");

    writeText(path, true, "first");
    QCOMPARE(fileContents(path), QByteArray("first"));
}

void TestPrinterDriver::fileThatCannotBeOpened_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("append");

    QTest::newRow("in a folder that does not exist") << "missing/script.txt" << false;
    QTest::newRow("in a folder that does not exist, appending") << "missing/script.txt" << true;
    QTest::newRow("a folder") << "." << false;
    QTest::newRow("a folder, appending") << "." << true;
}

void TestPrinterDriver::fileThatCannotBeOpened()
{
    QFETCH(QString, path);
    QFETCH(bool, append);
    const QTemporaryDir folder;
    bool hasStream = true;
    QStringList calls;

    const auto printJob = [&] {
        RecordingDriver driver(folder.filePath(path), append);
        hasStream = driver.stream != nullptr;
        calls = callsOf(driver, "printSold", {{"printers", {}}});
        driver.endDocument();
    };
    QByteArray output;
    const QByteArray errors = captured(stderr, [&] { output = captured(stdout, printJob); });
    QCOMPARE(output, QByteArray("PrintManager::printAbstractOrder(...): Unable To Open File\n"));
    QCOMPARE(errors, QByteArray());
    QVERIFY(!hasStream);
    QCOMPARE(calls, QStringList {"initPrinter()"});
}

void TestPrinterDriver::fileIsUtf8InAUtf8Locale()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");

    writeText(path, false, "Caffè 5 €, 漢😀");
    QCOMPARE(fileContents(path), QByteArray("Caffè 5 €, 漢😀"));
}

void TestPrinterDriver::lineEndsAreWrittenAsTheyAre()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");

    writeText(path, false, "a\r\nb\nc\r");
    QCOMPARE(fileContents(path), QByteArray("a\r\nb\nc\r"));
}

QTEST_GUILESS_MAIN(TestPrinterDriver)
#include "tst_printerdriver.moc"
