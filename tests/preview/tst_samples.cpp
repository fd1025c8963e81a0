#include "preview/samples.h"
#include "support/examples.h"
#include "vocabulary/jobs.h"

#include <QSet>
#include <QtTest>

class TestSamples : public QObject {
    Q_OBJECT

private slots:
    void oneForEachPrintMethod();
    void theyAreTheExamples();
    void titlesTellThemApart();
    void foundByMethod();
};

using preview::Sample;
using preview::samples;

void TestSamples::oneForEachPrintMethod()
{
    QStringList methods;
    for (const vocabulary::Method& method : vocabulary::methods())
        methods += method.name;
    QStringList printed;
    for (const Sample& sample : samples()) {
        printed += sample.method;
        QVERIFY2(sample.job().contains("<method name=\"" + QByteArray(sample.method.data()) + "\"/>"),
                 sample.file.data());
    }
    QCOMPARE(printed, methods);
}

void TestSamples::theyAreTheExamples()
{
    QStringList files;
    for (const Sample& sample : samples()) {
        files += sample.file;
        QCOMPARE(sample.job(), fileContents(examples.filePath(sample.file)));
    }
    files.sort();
    QCOMPARE(files, examples.entryList({"*.xml"}, QDir::Files, QDir::Name));
}

void TestSamples::titlesTellThemApart()
{
    QSet<QString> titles;
    for (const Sample& sample : samples())
        titles += sample.title();
    QCOMPARE(titles.size(), samples().size());
    QVERIFY(!titles.contains(QString()));
}

void TestSamples::foundByMethod()
{
    QCOMPARE(preview::findSample("printReport")->title(), QString("Daily report"));
    QVERIFY(!preview::findSample("printreport"));
}

QTEST_GUILESS_MAIN(TestSamples)
#include "tst_samples.moc"
