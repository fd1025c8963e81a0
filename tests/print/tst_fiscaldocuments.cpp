#include "support/job.h"

#include <QtTest>

namespace {

/// Elements of which no fiscal receipt takes notice.
const Job otherElements =
    elementsNamed({"printers", "geometry", "headers", "logo", "company", "receipt", "invoice", "delivery", "orderinfo",
                   "customer", "variant", "otherreceipe", "totals", "Total", "notPaid", "Receipe"})
    + Job {{"orderinfo", {{"credit", "5.00"}}}, {"totals", {{"cash", "5.00"}}}};

const QByteArray allFlags = "printGeometry = true; topMargin = 2; printHeader = true; printCompany = true;"
                            " printCustomer = true; printTable = true; printCredit = true;";

/// A device of seven characters.
class NarrowDriver : public RecordingDriver {
public:
    int getPaperWidth() override { return 7; }

    QStringList cuts;

private:
    void textCut(const QString& text, int kept) override { cuts += QString("%1 to %2").arg(text).arg(kept); }
};

} // namespace

/// Fiscal receipts: what reaches the device's fiscal operations.
class TestFiscalDocuments : public QObject {
    Q_OBJECT

private slots:
    void init();

    void receipt_data();
    void receipt();
    void descriptionWidth_data();
    void descriptionWidth();
    void hugeDescriptionWidth();
    void descriptionWidthIsTheDevicesOwn();
    void whatIsCutIsSaid();
    void descriptionWidthIsReadAfreshForEachElement();
    void otherElementsDoNothing();
};

void TestFiscalDocuments::init()
{
    useSettings(documentSettings("fiscaldoc", allFlags));
}

void TestFiscalDocuments::receipt_data()
{
    addJobColumns();

    addJob("a dish", {{"receipe", {{"price", "3,50"}, {"name", "PIZZA"}, {"number", "2"}, {"department", "1"}}}},
           {R"(printRowFiscal("1", "2", "PIZZA", "3,50"))"});
    addJob("dishes in the job's order, and the total after them",
           {{"receipe", {{"name", "PIZZA"}, {"number", "2"}, {"department", "1"}, {"price", "3.50"}}},
            {"receipe", {{"name", "SCONTO"}, {"number", "1"}, {"department", "2"}, {"price", "-1.00"}}},
            {"total", {{"price", "6.00"}}}},
           {R"(printRowFiscal("1", "2", "PIZZA", "3.50"))", R"(printRowFiscal("2", "1", "SCONTO", "-1.00"))",
            R"(printRowFiscal("total", price="6.00"))"});
    addJob("no attributes: empty texts", {{"receipe", {}}}, {R"(printRowFiscal("", "", "", ""))"});
    addJob("the quantity is the attribute number, the price not the total",
           {{"receipe", {{"quantity", "9"}, {"totalPrice", "9"}, {"total", "9"}}}},
           {R"(printRowFiscal("", "", "", ""))"});
    addJob("a dish whose name begins with = is sold", {{"receipe", {{"name", "=PIZZA"}}}},
           {R"(printRowFiscal("", "", "=PIZZA", ""))"});
    addJob("texts are passed on as they stand",
           {{"receipe", {{"name", " L'È "}, {"number", "abc"}, {"department", " "}, {"price", "1.138,81"}}}},
           {R"(printRowFiscal(" ", "abc", " L'È ", "1.138,81"))"});
    addJob("the total is passed on with all its attributes in their order",
           {{"total", {{"ticket", "5"}, {"cash", "20,00"}, {"other", "x"}, {"discountRate", ""}}}},
           {R"(printRowFiscal("total", ticket="5", cash="20,00", other="x", discountRate=""))"});
    addJob("a total without attributes", {{"total", {}}}, {R"(printRowFiscal("total"))"});
    addJob("a dish type is not for this receipt", {{"receipe_type", {{"name", "PRIMI"}, {"price", "24.00"}}}}, {});
}

void TestFiscalDocuments::receipt()
{
    QFETCH(Job, job);
    QFETCH(QStringList, calls);
    RecordingDriver driver;
    QCOMPARE(callsOf(driver, "printFullOrderFiscal", job), calls);
}

void TestFiscalDocuments::descriptionWidth_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("description");

    const QString name = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    const QString deviceWide = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123";
    QTest::newRow("four") << QByteArray("descriptionWidth = 4;") << "ABCD";
    QTest::newRow("one") << QByteArray("descriptionWidth = 1;") << "A";
    QTest::newRow("blanks around the number") << QByteArray("descriptionWidth = \" 4 \";") << "ABCD";
    QTest::newRow("one less than the name") << QByteArray("descriptionWidth = 35;") << name.left(35);
    QTest::newRow("just as wide as the name") << QByteArray("descriptionWidth = 36;") << name;
    QTest::newRow("wider: not padded") << QByteArray("descriptionWidth = 50;") << name;
    QTest::newRow("absent: the device's width") << QByteArray() << deviceWide;
    QTest::newRow("empty: the device's width") << QByteArray("descriptionWidth = ;") << deviceWide;
    QTest::newRow("zero: the device's width") << QByteArray("descriptionWidth = 0;") << deviceWide;
    QTest::newRow("a word: the device's width") << QByteArray("descriptionWidth = abc;") << deviceWide;
    QTest::newRow("a number and a word: the device's width") << QByteArray("descriptionWidth = 4 mm;") << deviceWide;
    QTest::newRow("beyond 32 bits: the device's width") << QByteArray("descriptionWidth = 2147483648;") << deviceWide;
    QTest::newRow("the paper width plays no part") << QByteArray("paperWidth = 5;") << deviceWide;
    QTest::newRow("negative: nothing is cut") << QByteArray("descriptionWidth = -3;") << name;
    QTest::newRow("another document's setting plays no part")
        << QByteArray("}; receiptdoc: { descriptionWidth = 4;") << deviceWide;
}

void TestFiscalDocuments::descriptionWidth()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, description);
    useSettings(documentSettings("fiscaldoc", settings));
    RecordingDriver driver;

    const Job job {{"receipe", {{"name", "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"}}}};
    QCOMPARE(callsOf(driver, "printFullOrderFiscal", job),
             QStringList {QString(R"(printRowFiscal("", "", "%1", ""))").arg(description)});
}

void TestFiscalDocuments::hugeDescriptionWidth()
{
    useSettings(documentSettings("fiscaldoc", "descriptionWidth = 99999;"));
    RecordingDriver driver;

    const QByteArray name(10001, 'X');
    QCOMPARE(callsOf(driver, "printFullOrderFiscal", {{"receipe", {{"name", name.constData()}}}}),
             QStringList {QString(R"(printRowFiscal("", "", "%1", ""))").arg(QString(10000, 'X'))});
}

void TestFiscalDocuments::descriptionWidthIsTheDevicesOwn()
{
    NarrowDriver driver;

    QCOMPARE(callsOf(driver, "printFullOrderFiscal", {{"receipe", {{"name", "ABCDEFGHIJ"}}}}),
             QStringList {R"(printRowFiscal("", "", "ABCDEFG", ""))"});
}

void TestFiscalDocuments::whatIsCutIsSaid()
{
    NarrowDriver driver;
    callsOf(
        driver, "printFullOrderFiscal",
        {{"receipe", {{"name", "1234567"}}}, {"receipe", {{"name", "12345678"}}}, {"other", {{"name", "12345678"}}}});
    callsOf(driver, "printAbstractOrderFiscal", {{"receipe_type", {{"name", "12345678"}}}});
    QCOMPARE(driver.cuts, QStringList {"12345678 to 7"});
}

void TestFiscalDocuments::descriptionWidthIsReadAfreshForEachElement()
{
    useSettings(documentSettings("fiscaldoc", "descriptionWidth = 4;"));
    RecordingDriver driver;
    const Job job {{"receipe", {{"name", "ABCDEFGHIJ"}}}};
    QCOMPARE(callsOf(driver, "printFullOrderFiscal", job), QStringList {R"(printRowFiscal("", "", "ABCD", ""))"});

    useSettings(documentSettings("fiscaldoc", "descriptionWidth = 6;"));
    deliver(driver, job);
    QCOMPARE(driver.takeCalls(), QStringList {R"(printRowFiscal("", "", "ABCDEF", ""))"});
}

void TestFiscalDocuments::otherElementsDoNothing()
{
    RecordingDriver driver;

    QCOMPARE(callsOf(driver, "printFullOrderFiscal", otherElements), QStringList());
    QCOMPARE(driver.printerName, QString());
    QCOMPARE(driver.credit, QString());
}

QTEST_GUILESS_MAIN(TestFiscalDocuments)
#include "tst_fiscaldocuments.moc"
