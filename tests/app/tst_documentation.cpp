#include "support/examples.h"

#include <QtTest>

/// The examples in docs/job-file.md, and the whole scripts in README.md and docs/register-script.md, are what the
/// program really prints; what docs/zelmora-print.md has it say is what it says.
class TestDocumentation : public QObject {
    Q_OBJECT

private slots:
    void everyJobFileExampleIsFound();
    void jobFileExample_data();
    void jobFileExample();
    void readmeShowsTheReceipt();
    void wholeScript_data();
    void wholeScript();
    void line_data();
    void line();
};

static const QString docs = ZELMORA_DOCS;

/// The settings that docs/job-file.md states for its examples, for all groups that they use.
static QByteArray jobFileSettings()
{
    QByteArray values = "paperWidth = 32; quantityFieldWidth = 3; priceFieldWidth = 6; totalPriceFieldWidth = 8; "
                        "topMargin = 2; descriptionWidth = 24; ";
    for (const char* flag :
         {"Geometry", "Header", "Logo", "Company", "DeliveryAddress", "BillingAddress", "Telephone", "Date", "Time",
          "Table", "Customer", "LicenseNumber", "FiscalCode", "Credit", "Waiter", "Note"})
        values += QByteArray("print") + flag + " = true; ";
    QByteArray text = "zelmora: { ";
    for (const char* group :
         {"doc", "prefiscaldoc", "fiscaldoc", "receiptdoc", "invoicedoc", "deliverydoc", "reportdoc", "solddoc"})
        text += QByteArray(group) + ": { " + values + "}; ";
    return text + "};";
}

/// The script of an example with the examples' settings, with plain line ends.
static QByteArray exampleScript(const QString& name)
{
    return ExampleRun().printExample(name).replace("\r\n", "\n");
}

void TestDocumentation::everyJobFileExampleIsFound()
{
    // All job lines but those under "Shape" are followed by their script lines.
    const QByteArray page = fileContents(docs + "/job-file.md");
    QCOMPARE(page.count("```\n\n```text\n"), page.count("```xml\n") - 1);
}

void TestDocumentation::jobFileExample_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("job");
    QTest::addColumn<QString>("lines");

    // Headings, and job lines directly followed by script lines. The common elements, which stand before the
    // first method of their own, are shown in a full order.
    const QString page = QString::fromUtf8(fileContents(docs + "/job-file.md"));
    const QRegularExpression part("^### (?<heading>.*)$|^```xml\n(?<job>[^`]*)```\n\n```text\n(?<lines>[^`]*)```$",
                                  QRegularExpression::MultilineOption);
    QString heading;
    QRegularExpressionMatchIterator parts = part.globalMatch(page);
    while (parts.hasNext()) {
        const QRegularExpressionMatch match = parts.next();
        if (!match.captured("heading").isNull() && match.captured("job").isNull()) {
            heading = match.captured("heading").remove('`');
            continue;
        }
        const QString method = heading.startsWith("print") && heading != "printers" ? heading : "printFullOrder";
        QTest::newRow(qPrintable(heading)) << method << match.captured("job") << match.captured("lines");
    }
}

void TestDocumentation::jobFileExample()
{
    QFETCH(QString, method);
    QFETCH(QString, job);
    QFETCH(QString, lines);

    ProgramRun run;
    run.setSettings(jobFileSettings());
    const QByteArray script =
        run.print(QString("<printjob><method name=\"%1\"/>%2</printjob>").arg(method, job).toUtf8());
    const bool fiscal = method.endsWith("Fiscal");
    const QByteArray opening = fiscal ? "CLEAR \nCHIAVE REG\n" : "nofis apri\n";
    const QByteArray closing = fiscal ? "CHIUS T=1\n" : "nofis chiudi\n";
    const QByteArray found = difference(opening + lines.toUtf8() + closing, QByteArray(script).replace("\r\n", "\n"));
    QVERIFY2(found.isEmpty(), found.constData());
}

void TestDocumentation::readmeShowsTheReceipt()
{
    const QByteArray readme = fileContents(docs + "/../README.md");
    const QByteArray job = fileContents(examples.filePath("receipt.xml"));
    QVERIFY2(readme.contains("```xml\n" + job + "```\n"), "The README's job is not examples/receipt.xml.");
    QVERIFY2(readme.contains("```text\n" + exampleScript("receipt.xml") + "```\n"),
             "The README's script is not that of examples/receipt.xml.");
}

void TestDocumentation::wholeScript_data()
{
    QTest::addColumn<QString>("example");
    QTest::newRow("a text document") << "receipt.xml";
    QTest::newRow("a fiscal document") << "fiscal-receipt.xml";
}

void TestDocumentation::wholeScript()
{
    QFETCH(QString, example);
    const QByteArray page = fileContents(docs + "/register-script.md");
    QVERIFY(page.contains("```text\n" + exampleScript(example) + "```\n"));
}

void TestDocumentation::line_data()
{
    QTest::addColumn<bool>("hasSettings");
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("one argument") << true << QByteArray("job.xml")
                                  << QByteArray("Usage: zelmora-print input_file output_file");
    QTest::newRow("four arguments") << true << QByteArray("job.xml script.txt 3 4")
                                    << QByteArray("Usage: zelmora-print input_file output_file");
    QTest::newRow("no settings file") << false << QByteArray("job.xml script.txt")
                                      << QByteArray("Error in the method FileReader::open( ... ): File Not Found");
    QTest::newRow("an unknown method") << true << QByteArray("unknown.xml script.txt")
                                       << QByteArray("File Format Not Supported");
    QTest::newRow("no folder for the script")
        << true << QByteArray("job.xml missing/script.txt")
        << QByteArray("PrintManager::printAbstractOrder(...): Unable To Open File");
}

void TestDocumentation::line()
{
    QFETCH(bool, hasSettings);
    QFETCH(QByteArray, arguments);
    QFETCH(QByteArray, text);
    ProgramRun run;
    if (hasSettings)
        run.setSettings(exampleSettings());
    run.writeFile("job.xml", "<job><method name=\"printSold\"/></job>");
    run.writeFile("unknown.xml", "<job><method name=\"printUnsold\"/></job>");
    run.startShell("\"$program\" " + arguments);
    QByteArray said = run.remarks();
    said.replace(printProgram().toUtf8(), "zelmora-print");
    said.replace(run.path("home/.zelmora/conf/zelmora.conf").toUtf8(), "...");
    QCOMPARE(said, text + '\n');
    QVERIFY(fileContents(docs + "/zelmora-print.md").contains("\n| `" + text + "` | "));
}

QTEST_GUILESS_MAIN(TestDocumentation)
#include "tst_documentation.moc"
