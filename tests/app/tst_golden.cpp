#include "support/programrun.h"

#include <QtTest>

/// Every job under tests/golden/, printed by the real program with the settings beside it, against the script
/// beside it. A job whose run says something on standard output has that beside it too.
class TestGolden : public QObject {
    Q_OBJECT

private slots:
    void everyMethodHasCases();
    void script_data();
    void script();
};

static const QDir golden(ZELMORA_GOLDEN);

void TestGolden::everyMethodHasCases()
{
    const QStringList methods {
        "printAbstractOrder",
        "printAbstractOrderFiscal",
        "printAbstractOrderInvoice",
        "printAbstractOrderReceipt",
        "printFullOrder",
        "printFullOrderDelivery",
        "printFullOrderFiscal",
        "printFullOrderInvoice",
        "printFullOrderReceipt",
        "printPartialOrder",
        "printReport",
        "printSold",
        "printStatementOfAccount",
    };
    QCOMPARE(golden.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name), methods);
    for (const QString& method : methods)
        QVERIFY2(QDir(golden.filePath(method)).entryList({"*.xml"}).size() >= 5, qPrintable(method));
}

void TestGolden::script_data()
{
    QTest::addColumn<QString>("stem");
    QDirIterator jobs(golden.path(), {"*.xml"}, QDir::Files, QDirIterator::Subdirectories);
    while (jobs.hasNext()) {
        const QString stem = jobs.next().chopped(4);
        QTest::newRow(qPrintable(golden.relativeFilePath(stem))) << stem;
    }
}

void TestGolden::script()
{
    QFETCH(QString, stem);
    QVERIFY2(QFile::exists(stem + ".script"), "There is no expected script beside the job.");
    QVERIFY2(QFile::exists(stem + ".conf"), "There are no settings beside the job.");

    ProgramRun run;
    run.setSettings(fileContents(stem + ".conf"));
    run.setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path());
    const QByteArray printed = run.print(fileContents(stem + ".xml"));

    const QByteArray found = difference(fileContents(stem + ".script"), printed);
    QVERIFY2(found.isEmpty(), found.constData());
    QCOMPARE(run.standardOutput, fileContents(stem + ".stdout"));
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
}

QTEST_GUILESS_MAIN(TestGolden)
#include "tst_golden.moc"
