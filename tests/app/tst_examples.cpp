#include "support/programrun.h"

#include <QtTest>

/// The example jobs print, each to a script that a register takes.
class TestExamples : public QObject {
    Q_OBJECT

private slots:
    void example_data();
    void example();
    void everyMethodHasAnExample();
    void settingsHaveEveryKey();
};

static const QDir examples(ZELMORA_EXAMPLES);

void TestExamples::example_data()
{
    QTest::addColumn<QString>("job");
    for (const QString& job : examples.entryList({"*.xml"}))
        QTest::newRow(qPrintable(job)) << job;
}

void TestExamples::example()
{
    QFETCH(QString, job);
    ProgramRun run;
    run.setSettings(fileContents(examples.filePath("home/.zelmora/conf/zelmora.conf")));
    run.setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path() + "/.."); // from where the settings find it
    const QByteArray script = run.print(fileContents(examples.filePath(job)));

    QCOMPARE(run.standardOutput + run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
    const QRegularExpression ordinary("\\Anofis apri\r\n(nofis riga='[^\r\n]*'\r\n)*nofis chiudi\r\n\\z");
    const QRegularExpression fiscal("\\ACLEAR \r\nCHIAVE REG\r\n"
                                    "((VEND REP=\\d+,QTY=\\d+,PREZZO=\\d+\\.\\d\\d,DES='[^\r\n]+'"
                                    "|SCONTO VAL=\\d+(\\.\\d+)?)\r\n)+CHIUS T=1\r\n\\z");
    const QString text = QString::fromUtf8(script);
    QVERIFY2((job.contains("fiscal") ? fiscal : ordinary).match(text).hasMatch(), script.constData());
    QVERIFY2(!text.contains("TOTAL"), "The examples are printed in Italian.");
}

void TestExamples::everyMethodHasAnExample()
{
    QSet<QByteArray> methods;
    for (const QString& job : examples.entryList({"*.xml"})) {
        const QByteArray bytes = fileContents(examples.filePath(job));
        const int begin = bytes.indexOf("<method name=\"") + 14;
        methods += bytes.mid(begin, bytes.indexOf('"', begin) - begin);
    }
    QCOMPARE(methods.size(), 13);
}

void TestExamples::settingsHaveEveryKey()
{
    const QByteArray settings = fileContents(examples.filePath("home/.zelmora/conf/zelmora.conf"));
    const QByteArrayList keys {
        "quantityFieldWidth", "priceFieldWidth", "totalPriceFieldWidth", "paperWidth", "paperRows", "style",
        "printGeometry", "printHeader", "printLogo", "printCompany", "printDeliveryAddress", "printBillingAddress",
        "printTelephone", "printDate", "printTime", "printTable", "printCustomer", "printLicenseNumber",
        "printFiscalCode", "printCredit", "printWaiter", "printNote", "openCashDrawer", "topMargin"};
    for (const char* group : {"doc", "prefiscaldoc", "fiscaldoc", "receiptdoc", "invoicedoc", "deliverydoc",
                              "reportdoc", "solddoc"}) {
        const int begin = settings.indexOf("    " + QByteArray(group) + ": \n");
        QVERIFY2(begin > 0, group);
        const QByteArray body = settings.mid(begin, settings.indexOf("};", begin) - begin);
        for (const QByteArray& key : keys)
            QVERIFY2(body.contains("        " + key + " = \""), (QByteArray(group) + ": " + key).constData());
    }
    QVERIFY(settings.contains("        descriptionWidth = \""));
}

QTEST_GUILESS_MAIN(TestExamples)
#include "tst_examples.moc"
