#include "support/examples.h"

#include <QtTest>

/// The example jobs print, each to a script that a register takes.
class TestExamples : public QObject {
    Q_OBJECT

private slots:
    void example_data();
    void example();
    void everyMethodHasAnExample();
    void settingsHaveEveryKey_data();
    void settingsHaveEveryKey();
};

void TestExamples::example_data()
{
    QTest::addColumn<QString>("job");
    for (const QString& job : examples.entryList({"*.xml"}))
        QTest::newRow(qPrintable(job)) << job;
}

void TestExamples::example()
{
    QFETCH(QString, job);
    ExampleRun run;
    const QByteArray script = run.printExample(job);

    QCOMPARE(run.remarks(), QByteArray());
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

/// The text of the group @p name within "zelmora" of @p settings.
static QByteArray groupText(const QByteArray& settings, const QByteArray& name)
{
    const int begin = settings.indexOf("    " + name + ": \n");
    return begin < 0 ? QByteArray() : settings.mid(begin, settings.indexOf("    };\n", begin) - begin);
}

void TestExamples::settingsHaveEveryKey_data()
{
    QTest::addColumn<QByteArrayList>("keys");
    QTest::newRow("language") << QByteArrayList {"basedir", "file"};
    QTest::newRow("logger") << QByteArrayList {"level", "basedir", "filename", "type"};
    QTest::newRow("db") << QByteArrayList {"dbname", "username", "password", "hostname"};
    QTest::newRow("bin") << QByteArrayList {"path"};

    const QByteArrayList document {"quantityFieldWidth",
                                   "priceFieldWidth",
                                   "totalPriceFieldWidth",
                                   "paperWidth",
                                   "paperRows",
                                   "style",
                                   "printGeometry",
                                   "printHeader",
                                   "printLogo",
                                   "printCompany",
                                   "printDeliveryAddress",
                                   "printBillingAddress",
                                   "printTelephone",
                                   "printDate",
                                   "printTime",
                                   "printTable",
                                   "printCustomer",
                                   "printLicenseNumber",
                                   "printFiscalCode",
                                   "printCredit",
                                   "printWaiter",
                                   "printNote",
                                   "openCashDrawer",
                                   "topMargin"};
    for (const char* group : {"doc", "prefiscaldoc", "receiptdoc", "invoicedoc", "deliverydoc", "reportdoc"})
        QTest::newRow(group) << document + QByteArrayList {"copyNumber"};
    QTest::newRow("fiscaldoc") << document + QByteArrayList {"descriptionWidth", "copyNumber"};
    QTest::newRow("solddoc") << document;
}

void TestExamples::settingsHaveEveryKey()
{
    QFETCH(QByteArrayList, keys);
    const QString text = QString::fromUtf8(groupText(exampleSettings(), QTest::currentDataTag()));
    QByteArrayList found;
    QRegularExpressionMatchIterator lines = QRegularExpression("        (\\w+) = \"[^\"\n]+\";\n").globalMatch(text);
    while (lines.hasNext())
        found += lines.next().captured(1).toUtf8();
    QCOMPARE(found, keys);
}

QTEST_GUILESS_MAIN(TestExamples)
#include "tst_examples.moc"
