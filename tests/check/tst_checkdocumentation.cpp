#include "support/checkrun.h"
#include "support/examples.h"

#include <QtTest>

/// What the pages say of zelmora-check is what it really says.
class TestCheckDocumentation : public QObject {
    Q_OBJECT

private slots:
    void tableOfCodes();
    void readmeShowsAFaultyJob();
    void pageShowsATrace();
    void everyOptionIsOnThePage();
};

namespace {

const QString docs = ZELMORA_DOCS;

QString page()
{
    return QString::fromUtf8(fileContents(docs + "/checking.md"));
}

/// The block of @p language that follows @p heading on the page @p name.
QByteArray blockAfter(const QString& name, const QByteArray& heading, const QByteArray& language)
{
    const QByteArray text = fileContents(docs + '/' + name);
    const QByteArray opening = "\n```" + language + '\n';
    const int begin = text.indexOf(opening, text.indexOf('\n' + heading + '\n')) + opening.size();
    const int end = text.indexOf("\n```\n", begin) + 1;
    if (begin < opening.size() || end <= 0)
        qFatal("%s shows no %s.", qPrintable(name), language.constData());
    return text.mid(begin, end - begin);
}

} // namespace

void TestCheckDocumentation::tableOfCodes()
{
    QStringList documented;
    const QRegularExpression row("^\\| `([a-z-]+)` \\| (error|warning|note)((?: or \\w+)?) \\| (.*) \\|$",
                                 QRegularExpression::MultilineOption);
    QRegularExpressionMatchIterator rows = row.globalMatch(page());
    while (rows.hasNext()) {
        const QRegularExpressionMatch match = rows.next();
        documented += match.captured(1) + ": " + match.captured(2) + match.captured(3) + ": " + match.captured(4);
    }

    CheckRun run;
    QStringList listed;
    const QRegularExpression gaps("^([a-z-]+) {2,}(\\w+(?: or \\w+)?) {2,}");
    for (QString line : QString::fromUtf8(run.output({"--codes"})).split('\n', Qt::SkipEmptyParts))
        listed += line.replace(gaps, "\\1: \\2: ");
    QCOMPARE(documented, listed);
}

/// With the settings of the examples, where these do not find their catalogue.
void TestCheckDocumentation::readmeShowsAFaultyJob()
{
    CheckRun run;
    run.setSettings(exampleSettings());
    run.setEnvironment("LC_ALL", "C.UTF-8");
    const QByteArray heading = "## Before it prints";
    run.writeFile("job.xml", blockAfter("../README.md", heading, "xml"));
    const QByteArray found = difference(blockAfter("../README.md", heading, "text"), run.output({"job.xml"}));
    QVERIFY2(found.isEmpty(), found.constData());
}

void TestCheckDocumentation::pageShowsATrace()
{
    CheckRun run;
    run.setSettings(exampleSettings());
    run.setEnvironment("LC_ALL", "C.UTF-8");
    run.writeFile("job.xml", blockAfter("../README.md", "## Before it prints", "xml"));
    const QByteArray found = difference(blockAfter("checking.md", "## What each line comes from", "text"),
                                        run.output({"--trace", "job.xml"}));
    QVERIFY2(found.isEmpty(), found.constData());
}

void TestCheckDocumentation::everyOptionIsOnThePage()
{
    CheckRun run;
    const QRegularExpression option("^  (?:-[a-z], )?(--[a-z]+)", QRegularExpression::MultilineOption);
    QRegularExpressionMatchIterator options = option.globalMatch(QString::fromUtf8(run.output({"--help"})));
    QVERIFY(options.hasNext());
    while (options.hasNext()) {
        const QString name = options.next().captured(1);
        QVERIFY2(page().contains('`' + name), qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(TestCheckDocumentation)
#include "tst_checkdocumentation.moc"
