#include "support/checkrun.h"
#include "support/examples.h"

#include <QDirIterator>
#include <QtTest>

/// The XML schema of jobs, asked of a validator that knows nothing of ours.
class TestSchema : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void agreesWithTheCheck_data();
    void agreesWithTheCheck();
    void accepts_data();
    void accepts();
    void rejects_data();
    void rejects();
    void everyAttributeIsDescribed();

private:
    bool isValid(const QString& path);
    bool isValid(const QByteArray& job);

    CheckRun run;
    QByteArray schema;
    QByteArray remarks; ///< of the validator
};

void TestSchema::initTestCase()
{
    schema = run.output({"--schema"});
    QCOMPARE(run.exitStatus, 0);
    run.writeFile("printjob.xsd", schema);
}

bool TestSchema::isValid(const QString& path)
{
    QProcess validator;
    validator.start("xmllint", {"--noout", "--nonet", "--schema", run.path("printjob.xsd"), path});
    if (!validator.waitForFinished() || validator.exitStatus() != QProcess::NormalExit)
        qFatal("There is no xmllint.");
    remarks = validator.readAllStandardError();
    const bool isAnswer = validator.exitCode() == 0 || validator.exitCode() == 3; // 5: the schema itself is wrong
    if (!isAnswer && validator.exitCode() != 1) // 1: not well-formed
        qFatal("xmllint: %s", remarks.constData());
    return validator.exitCode() == 0;
}

bool TestSchema::isValid(const QByteArray& job)
{
    return isValid(run.writeFile("job.xml", job));
}

void TestSchema::agreesWithTheCheck_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& folder : {QString(ZELMORA_EXAMPLES), QString(ZELMORA_GOLDEN)}) {
        QDirIterator files(folder, {"*.xml"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            QTest::newRow(qPrintable(QDir(folder + "/..").relativeFilePath(path))) << path;
        }
    }
}

/// It accepts a job exactly where the check finds no unknown name, and nothing that no XML may be. It cannot know the
/// names in elements whose attributes are read in their order, nor that a method has no name at all.
void TestSchema::agreesWithTheCheck()
{
    QFETCH(QString, path);
    const QStringList faults {"unknown-method", "unknown-element", "unknown-attribute", "repeated-attribute",
                              "not-well-formed"};
    bool isFaulty = false;
    for (const QJsonValue& finding : QJsonDocument::fromJson(run.output({"--format", "json", path})).array()) {
        const QString text = finding["text"].toString();
        const bool isOutOfSight = text.contains("of \"cancelledsummary\"") || text.contains("has no \"name\"");
        isFaulty = isFaulty || (faults.contains(finding["code"].toString()) && !isOutOfSight);
    }
    QVERIFY2(isValid(path) == !isFaulty, remarks.constData());
}

void TestSchema::accepts_data()
{
    QTest::addColumn<QByteArray>("job");
    QTest::newRow("an empty root") << QByteArray("<job/>");
    QTest::newRow("the other root, with attributes") << QByteArray("<printjob a='1' b='2'/>");
    QTest::newRow("elements in any order, as often as one likes")
        << QByteArray("<job><total/><receipe/><total/><method/><receipe/></job>");
    QTest::newRow("elements in elements")
        << QByteArray("<job><receipe><variant><method name='printSold'/></variant></receipe></job>");
    QTest::newRow("text and comments") << QByteArray("<job>a<receipe>b<!-- c --></receipe></job>");
    QTest::newRow("attributes that another method reads")
        << QByteArray("<job><receipe department='1' totalPrice='2' amount='3'/></job>");
    QTest::newRow("lines under any names")
        << QByteArray("<job><headers a='1' line2='2'/><company x='1'/><cancelledsummary number='1' z='2'/></job>");
    QTest::newRow("a schema that the job names itself")
        << QByteArray("<job xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'"
                      " xsi:noNamespaceSchemaLocation='printjob.xsd'/>");
}

void TestSchema::accepts()
{
    QFETCH(QByteArray, job);
    QVERIFY2(isValid(job), remarks.constData());
}

void TestSchema::rejects_data()
{
    QTest::addColumn<QByteArray>("job");
    QTest::newRow("a misspelt element") << QByteArray("<job><recipe/></job>");
    QTest::newRow("a misspelt element in another") << QByteArray("<job><receipe><varient/></receipe></job>");
    QTest::newRow("an element in capitals") << QByteArray("<job><RECEIPE/></job>");
    QTest::newRow("a misspelt attribute") << QByteArray("<job><receipe prize='1'/></job>");
    QTest::newRow("an attribute of another element") << QByteArray("<job><total total='1'/></job>");
    QTest::newRow("a misspelt method") << QByteArray("<job><method name='printReciept'/></job>");
    QTest::newRow("another root") << QByteArray("<receipe/>");
}

void TestSchema::rejects()
{
    QFETCH(QByteArray, job);
    QVERIFY(!isValid(job));
}

/// As editors show it beside what they complete.
void TestSchema::everyAttributeIsDescribed()
{
    QXmlStreamReader xml(schema);
    QStringList bare;
    QString attribute;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("attribute"))
            attribute = xml.attributes().value("name").toString();
        else if (xml.isStartElement() && xml.name() == QLatin1String("documentation")
                 && !xml.readElementText().isEmpty())
            attribute.clear();
        else if (xml.isEndElement() && xml.name() == QLatin1String("attribute") && !attribute.isEmpty())
            bare += attribute;
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(bare, QStringList("name")); // of "method", whose values are named
}

QTEST_GUILESS_MAIN(TestSchema)
#include "tst_schema.moc"
