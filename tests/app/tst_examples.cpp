#include "support/examples.h"

#include <QtTest>

/// The example jobs print, each to a script that a register takes.
class TestExamples : public QObject {
    Q_OBJECT

private slots:
    void example_data();
    void example();
    void everyMethodHasAnExample();
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

QTEST_GUILESS_MAIN(TestExamples)
#include "tst_examples.moc"
