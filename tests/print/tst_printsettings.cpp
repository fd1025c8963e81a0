#include "support/capture.h"
#include "support/job.h"

#include <QtTest>

namespace {

struct Flag {
    const char* key;
    bool PrinterDriver::*member;
};

const Flag flags[] = {
    {"printGeometry", &RecordingDriver::printGeometryFlag},
    {"printHeader", &RecordingDriver::printHeaderFlag},
    {"printLogo", &RecordingDriver::printLogoFlag},
    {"printCompany", &RecordingDriver::printCompanyFlag},
    {"printDeliveryAddress", &RecordingDriver::printDeliveryAddressFlag},
    {"printBillingAddress", &RecordingDriver::printBillingAddressFlag},
    {"printTelephone", &RecordingDriver::printTelephoneFlag},
    {"printDate", &RecordingDriver::printDateFlag},
    {"printTime", &RecordingDriver::printTimeFlag},
    {"printTable", &RecordingDriver::printTableFlag},
    {"printCustomer", &RecordingDriver::printCustomerFlag},
    {"printLicenseNumber", &RecordingDriver::printLicenseNumberFlag},
    {"printFiscalCode", &RecordingDriver::printFiscalCodeFlag},
    {"printCredit", &RecordingDriver::printCreditFlag},
    {"printWaiter", &RecordingDriver::printWaiterFlag},
    {"printNote", &RecordingDriver::printNoteFlag},
    {"openCashDrawer", &RecordingDriver::openCashDrawerFlag},
};

struct Width {
    const char* key;
    int PrinterDriver::*member;
};

const Width columns[] = {
    {"quantityFieldWidth", &RecordingDriver::quantityFieldWidth},
    {"priceFieldWidth", &RecordingDriver::priceFieldWidth},
    {"totalPriceFieldWidth", &RecordingDriver::totalPriceFieldWidth},
};

QStringList flagsThatAreSet(const RecordingDriver& driver)
{
    QStringList keys;
    for (const Flag& flag : flags) {
        if (driver.*flag.member)
            keys += flag.key;
    }
    return keys;
}

/// One setting of the receipt; no text leaves the key out.
void useReceiptSetting(const QString& key, const QString& text)
{
    const QString setting = text.isNull() ? QString() : QString("%1 = %2;").arg(key, text);
    useSettings(QString("zelmora: { receiptdoc: { other = 1; %1 }; };").arg(setting).toUtf8());
}

void addNumberRows()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");

    QTest::newRow("absent") << QString() << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("a number") << "12" << 12;
    QTest::newRow("a number in quotes") << R"("12")" << 12;
    QTest::newRow("blanks around, within quotes") << R"(" 12 ")" << 12;
    QTest::newRow("leading zeros are no octal mark") << "012" << 12;
    QTest::newRow("a plus sign") << "+12" << 12;
    QTest::newRow("negative") << "-7" << -7;
    QTest::newRow("a word") << "abc" << 0;
    QTest::newRow("a number and a word") << "12 mm" << 0;
    QTest::newRow("two numbers") << "1 2" << 0;
    QTest::newRow("a decimal point") << "12.0" << 0;
    QTest::newRow("a decimal comma") << "12,5" << 0;
    QTest::newRow("hexadecimal") << "0x10" << 0;
    QTest::newRow("an exponent") << "1e2" << 0;
    QTest::newRow("one above 32 bits") << "2147483648" << 0;
    QTest::newRow("one below 32 bits") << "-2147483649" << 0;
}

/// What stands beyond the greatest width.
void addHugeWidthRows()
{
    QTest::newRow("10,000") << "10000" << 10000;
    QTest::newRow("one above 10,000") << "10001" << 10000;
    QTest::newRow("99999") << "99999" << 10000;
    QTest::newRow("the greatest of 32 bits") << "2147483647" << 10000;
    QTest::newRow("-10,000") << "-10000" << -10000;
    QTest::newRow("one below -10,000") << "-10001" << -10000;
    QTest::newRow("-99999") << "-99999" << -10000;
    QTest::newRow("the least of 32 bits") << "-2147483648" << -10000;
}

} // namespace

/// Where the settings of each document stand, and what becomes of their values.
class TestPrintSettings : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void documentPath_data();
    void documentPath();
    void documentPathOfAnUnknownType_data();
    void documentPathOfAnUnknownType();
    void valuesOfAnUnknownType();

    void columnWidths_data();
    void columnWidths();
    void eachWidthHasItsOwnKey();
    void paperWidth_data();
    void paperWidth();
    void paperRows_data();
    void paperRows();
    void styleIsDropped();

    void eachFlagAlone_data();
    void eachFlagAlone();
    void allFlags();
    void flagValues_data();
    void flagValues();

    void noSettings();
    void settingsReplaceTheEarlierOnes();
};

void TestPrintSettings::initTestCase()
{
    qputenv("LC_ALL", "C.UTF-8");
}

void TestPrintSettings::init()
{
    useSettings(QByteArray());
}

void TestPrintSettings::documentPath_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("path");

    QTest::newRow("order") << "order"
                           << "zelmora.doc.";
    QTest::newRow("prefiscal") << "prefiscal"
                               << "zelmora.prefiscaldoc.";
    QTest::newRow("fiscal") << "fiscal"
                            << "zelmora.fiscaldoc.";
    QTest::newRow("receipt") << "receipt"
                             << "zelmora.receiptdoc.";
    QTest::newRow("invoice") << "invoice"
                             << "zelmora.invoicedoc.";
    QTest::newRow("delivery") << "delivery"
                              << "zelmora.deliverydoc.";
    QTest::newRow("report") << "report"
                            << "zelmora.reportdoc.";
    QTest::newRow("sold") << "sold"
                          << "zelmora.solddoc.";
    QTest::newRow("upper case") << "ORDER"
                                << "zelmora.doc.";
    QTest::newRow("capital first letter") << "Receipt"
                                          << "zelmora.receiptdoc.";
    QTest::newRow("mixed case") << "preFiscal"
                                << "zelmora.prefiscaldoc.";
}

void TestPrintSettings::documentPath()
{
    QFETCH(QString, type);
    QFETCH(QString, path);
    RecordingDriver driver;
    QString result;

    const QByteArray output = captured(stdout, [&] { result = driver.documentPath(type); });
    QCOMPARE(result, path);
    QCOMPARE(output, QByteArray());
}

void TestPrintSettings::documentPathOfAnUnknownType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("inMessage");

    QTest::newRow("a word") << "bill" << QByteArray("bill");
    QTest::newRow("upper case") << "BILL" << QByteArray("bill");
    QTest::newRow("an accent") << "CAFFÈ" << QByteArray("caffè");
    QTest::newRow("empty") << "" << QByteArray();
    QTest::newRow("a blank before") << " Order" << QByteArray(" order");
    QTest::newRow("a blank after") << "order " << QByteArray("order ");
    QTest::newRow("the settings group") << "doc" << QByteArray("doc");
}

void TestPrintSettings::documentPathOfAnUnknownType()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, inMessage);
    RecordingDriver driver;
    QString result;

    const QByteArray output = captured(stdout, [&] { result = driver.documentPath(type); });
    QCOMPARE(result, QString("zelmora.prefiscaldoc."));
    QCOMPARE(output, "Error into PrinterDriver::documentPath:  " + inMessage + "\n");
}

void TestPrintSettings::valuesOfAnUnknownType()
{
    useSettings("zelmora: { prefiscaldoc: { paperWidth = 24; printNote = true; }; };");
    RecordingDriver driver;

    const QByteArray output = captured(stdout, [&] { driver.loadValues("Bill"); });
    QCOMPARE(output, QByteArray("Error into PrinterDriver::documentPath:  bill\n"));
    QCOMPARE(driver.docPath, QString("zelmora.prefiscaldoc."));
    QCOMPARE(driver.paperWidth, 24);
    QCOMPARE(flagsThatAreSet(driver), QStringList {"printNote"});
}

void TestPrintSettings::columnWidths_data()
{
    addNumberRows();
    addHugeWidthRows();
}

void TestPrintSettings::columnWidths()
{
    QFETCH(QString, text);
    QFETCH(int, number);

    for (const Width& column : columns) {
        useReceiptSetting(column.key, text);
        RecordingDriver driver;
        driver.loadValues("receipt");
        QCOMPARE(driver.*column.member, number);
    }
}

void TestPrintSettings::eachWidthHasItsOwnKey()
{
    useSettings("zelmora: { receiptdoc: { quantityFieldWidth = 1; priceFieldWidth = 2; totalPriceFieldWidth = 3;"
                " paperWidth = 4; paperRows = 5; }; };");
    RecordingDriver driver;

    driver.loadValues("receipt");
    QCOMPARE(driver.quantityFieldWidth, 1);
    QCOMPARE(driver.priceFieldWidth, 2);
    QCOMPARE(driver.totalPriceFieldWidth, 3);
    QCOMPARE(driver.paperWidth, 4);
    QCOMPARE(driver.paperRows, 5);
}

void TestPrintSettings::paperWidth_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");

    QTest::newRow("absent: the device's") << QString() << 30;
    QTest::newRow("empty: the device's") << "" << 30;
    QTest::newRow("zero: the device's") << "0" << 30;
    QTest::newRow("several zeros: the device's") << "000" << 30;
    QTest::newRow("a word: the device's") << "abc" << 30;
    QTest::newRow("a number and a word: the device's") << "40 mm" << 30;
    QTest::newRow("beyond 32 bits: the device's") << "2147483648" << 30;
    QTest::newRow("a number") << "40" << 40;
    QTest::newRow("one") << "1" << 1;
    QTest::newRow("blanks around, within quotes") << R"(" 12 ")" << 12;
    QTest::newRow("negative is not zero and stays") << "-5" << -5;
    addHugeWidthRows();
}

void TestPrintSettings::paperWidth()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    useReceiptSetting("paperWidth", text);
    RecordingDriver driver;

    driver.loadValues("receipt");
    QCOMPARE(driver.paperWidth, number);
}

void TestPrintSettings::paperRows_data()
{
    addNumberRows();
    QTest::newRow("a count of lines is no width: 99999 stays") << "99999" << 99999;
}

void TestPrintSettings::paperRows()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    useReceiptSetting("paperRows", text);
    RecordingDriver driver;

    driver.loadValues("receipt");
    QCOMPARE(driver.paperRows, number);
}

void TestPrintSettings::styleIsDropped()
{
    useReceiptSetting("style", "bold");
    RecordingDriver driver;

    driver.loadValues("receipt");
    QCOMPARE(driver.style, QString());
}

void TestPrintSettings::eachFlagAlone_data()
{
    QTest::addColumn<QString>("key");

    for (const Flag& flag : flags)
        QTest::newRow(flag.key) << flag.key;
}

void TestPrintSettings::eachFlagAlone()
{
    QFETCH(QString, key);
    useReceiptSetting(key, "true");
    RecordingDriver driver;

    driver.loadValues("receipt");
    QCOMPARE(flagsThatAreSet(driver), QStringList {key});
}

void TestPrintSettings::allFlags()
{
    QByteArray settings;
    QStringList keys;
    for (const Flag& flag : flags) {
        settings += QByteArray(flag.key) + " = \"true\";\n";
        keys += flag.key;
    }
    useSettings("zelmora: { receiptdoc: { " + settings + " }; };");
    RecordingDriver driver;

    driver.loadValues("receipt");
    QCOMPARE(flagsThatAreSet(driver), keys);
}

void TestPrintSettings::flagValues_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isSet");

    QTest::newRow("true in quotes") << R"("true")" << true;
    QTest::newRow("blanks outside the quotes") << R"(   "true"   )" << true;
    QTest::newRow("blanks within the quotes") << R"(" true ")" << false;
    QTest::newRow("absent") << QString() << false;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("false") << "false" << false;
    QTest::newRow("upper case") << "TRUE" << false;
    QTest::newRow("capital first letter") << "True" << false;
    QTest::newRow("yes") << "yes" << false;
    QTest::newRow("1") << "1" << false;
    QTest::newRow("the beginning of true") << "tru" << false;
    QTest::newRow("true and more") << "trues" << false;
    QTest::newRow("true with a point") << "true." << false;
}

void TestPrintSettings::flagValues()
{
    QFETCH(QString, text);
    QFETCH(bool, isSet);

    for (const Flag& flag : flags) {
        useReceiptSetting(flag.key, text);
        RecordingDriver driver;
        driver.loadValues("receipt");
        QVERIFY2(driver.*flag.member == isSet, flag.key);
    }
}

void TestPrintSettings::noSettings()
{
    RecordingDriver driver;

    driver.loadValues("receipt");
    QCOMPARE(driver.docPath, QString("zelmora.receiptdoc."));
    QCOMPARE(driver.quantityFieldWidth, 0);
    QCOMPARE(driver.priceFieldWidth, 0);
    QCOMPARE(driver.totalPriceFieldWidth, 0);
    QCOMPARE(driver.paperWidth, 30);
    QCOMPARE(driver.paperRows, 0);
    QCOMPARE(driver.style, QString());
    QCOMPARE(flagsThatAreSet(driver), QStringList());
}

void TestPrintSettings::settingsReplaceTheEarlierOnes()
{
    useSettings("zelmora: { receiptdoc: { quantityFieldWidth = 1; priceFieldWidth = 2; totalPriceFieldWidth = 3;"
                " paperWidth = 4; paperRows = 5; printNote = true; openCashDrawer = true; };"
                " invoicedoc: { printGeometry = true; }; };");
    RecordingDriver driver;
    driver.loadValues("receipt");

    driver.loadValues("invoice");
    QCOMPARE(driver.docPath, QString("zelmora.invoicedoc."));
    QCOMPARE(driver.quantityFieldWidth, 0);
    QCOMPARE(driver.priceFieldWidth, 0);
    QCOMPARE(driver.totalPriceFieldWidth, 0);
    QCOMPARE(driver.paperWidth, 30);
    QCOMPARE(driver.paperRows, 0);
    QCOMPARE(flagsThatAreSet(driver), QStringList {"printGeometry"});
}

QTEST_GUILESS_MAIN(TestPrintSettings)
#include "tst_printsettings.moc"
