#include "util/hlibrary.h"

#include "support/capture.h"
#include "support/settings.h"

#include <QProcess>
#include <QtTest>

/// What the library's helpers take from the settings.
class TestLibrarySettings : public QObject {
    Q_OBJECT

private slots:
    void pathWithBinaryFile_data();
    void pathWithBinaryFile();
    void copyNumber_data();
    void copyNumber();
    void copyNumberOfAnUnknownType_data();
    void copyNumberOfAnUnknownType();
    void copyNumberIsText_data();
    void copyNumberIsText();
    void copyNumberReadsTheSettingsFirst();
    void database();
    void databaseWithoutSettings();
};

namespace {

/// Tells this program to do nothing but ask for them.
const char copiesOfABill[] = "--copies-of-a-bill";

const char copies[] = "zelmora: {"
                      " doc: { copyNumber = 1; }; prefiscaldoc: { copyNumber = 2; }; fiscaldoc: { copyNumber = 3; };"
                      " receiptdoc: { copyNumber = 4; }; invoicedoc: { copyNumber = 5; };"
                      " deliverydoc: { copyNumber = 6; }; reportdoc: { copyNumber = 7; };"
                      " orderdoc: { copyNumber = 98; }; solddoc: { copyNumber = 99; }; copyNumber = 97; };";

} // namespace

void TestLibrarySettings::pathWithBinaryFile_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");

    const QByteArray folder = "zelmora: { bin: { path = \"/opt/suite/bin\"; }; };";
    QTest::newRow("a program") << folder << "till"
                               << "/opt/suite/bin/till";
    QTest::newRow("no name") << folder << ""
                             << "/opt/suite/bin/";
    QTest::newRow("a name with a folder") << folder << "/tools/till"
                                          << "/opt/suite/bin//tools/till";
    QTest::newRow("a final separator is not looked at")
        << QByteArray("zelmora: { bin: { path = \"/opt/\"; }; };") << "till"
        << "/opt//till";
    QTest::newRow("an empty setting") << QByteArray("zelmora: { bin: { path = \"\"; }; };") << "till"
                                      << "/till";
    QTest::newRow("no settings") << QByteArray() << "till"
                                 << "/till";
}

void TestLibrarySettings::pathWithBinaryFile()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, name);
    QFETCH(QString, path);
    useSettings(settings);
    QCOMPARE(HLibrary::pathWithBinaryFile(name), path);
}

void TestLibrarySettings::copyNumber_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("number");

    const auto row = [](const char* type, const char* number) { QTest::newRow(type) << type << number; };
    row("order", "1");
    row("prefiscal", "2");
    row("fiscal", "3");
    row("receipt", "4");
    row("invoice", "5");
    row("delivery", "6");
    row("report", "7");
    row("ORDER", "1");
    row("RECEIPT", "4");
    row("Delivery", "6");
    row("preFiscal", "2");
}

void TestLibrarySettings::copyNumber()
{
    QFETCH(QString, type);
    QFETCH(QString, number);
    useSettings(copies);
    QString result;

    const QByteArray output = captured(stdout, [&] { result = HLibrary::copyNumber(type); });
    QCOMPARE(result, number);
    QCOMPARE(output, QByteArray());
}

void TestLibrarySettings::copyNumberOfAnUnknownType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("lowerCase");

    QTest::newRow("a word") << "bill" << QByteArray("bill");
    QTest::newRow("upper case") << "BILL" << QByteArray("bill");
    QTest::newRow("beyond ASCII") << "CAFFÈ" << QByteArray("caff\xC3\xA8");
    QTest::newRow("empty") << "" << QByteArray();
    QTest::newRow("a blank before") << " order" << QByteArray(" order");
    QTest::newRow("a blank after") << "order " << QByteArray("order ");
    QTest::newRow("the settings group") << "doc" << QByteArray("doc");
    QTest::newRow("a document without copies of its own") << "sold" << QByteArray("sold");
}

void TestLibrarySettings::copyNumberOfAnUnknownType()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, lowerCase);
    useSettings(copies);
    QString result;

    const QByteArray output = captured(stdout, [&] { result = HLibrary::copyNumber(type); });
    QCOMPARE(result, QString("2"));
    QCOMPARE(output, "Error into HLibrary::copyNumber::documentPath: " + lowerCase + '\n');
}

void TestLibrarySettings::copyNumberIsText_data()
{
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<QString>("text");

    QTest::newRow("a word") << QByteArray("copyNumber = two;") << "two";
    QTest::newRow("leading zeros") << QByteArray("copyNumber = 002;") << "002";
    QTest::newRow("negative") << QByteArray("copyNumber = -1;") << "-1";
    QTest::newRow("blanks within quotes") << QByteArray("copyNumber = \" 2 \";") << " 2 ";
    QTest::newRow("empty") << QByteArray("copyNumber = \"\";") << "";
    QTest::newRow("absent") << QByteArray("copynumber = 2;") << "";
}

void TestLibrarySettings::copyNumberIsText()
{
    QFETCH(QByteArray, setting);
    QFETCH(QString, text);
    useSettings("zelmora: { receiptdoc: { " + setting + " }; prefiscaldoc: { copyNumber = 9; }; };");
    QCOMPARE(HLibrary::copyNumber("receipt"), text);
}

// In a process of its own, whose first look at the settings this is.
void TestLibrarySettings::copyNumberReadsTheSettingsFirst()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", "/nowhere");
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {copiesOfABill});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(),
             QByteArray("Error in the method FileReader::open( /nowhere/.zelmora/conf/zelmora.conf ): File Not Found\n"
                        "Error into HLibrary::copyNumber::documentPath: bill\n"));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
}

void TestLibrarySettings::database()
{
    useSettings("zelmora: { db: { dbname = restaurant; username = cashier; password = \" s3cret \";"
                " hostname = \"10.0.0.7\"; }; };");
    QCOMPARE(HLibrary::dbname(), QString("restaurant"));
    QCOMPARE(HLibrary::username(), QString("cashier"));
    QCOMPARE(HLibrary::password(), QString(" s3cret "));
    QCOMPARE(HLibrary::hostname(), QString("10.0.0.7"));
}

void TestLibrarySettings::databaseWithoutSettings()
{
    useSettings(QByteArray());
    QCOMPARE(HLibrary::dbname(), QString());
    QCOMPARE(HLibrary::username(), QString());
    QCOMPARE(HLibrary::password(), QString());
    QCOMPARE(HLibrary::hostname(), QString());
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 2 && QByteArray(argv[1]) == copiesOfABill)
        return HLibrary::copyNumber("bill").size();
    TestLibrarySettings test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_librarysettings.moc"
