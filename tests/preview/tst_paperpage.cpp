#include "preview/paperrun.h"
#include "support/consolesteps.h"

#include <QtTest>

/// docs/paper.md is true: each command of its sessions prints what stands behind it, and its picture is what is drawn.
class TestPaperPage : public QObject {
    Q_OBJECT

private slots:
    void sessions();
    void theProofSheet();
    void everyOptionIsOnThePage();
};

namespace {

QByteArray page()
{
    return fileContents(ZELMORA_DOCS "/paper.md");
}

} // namespace

// With the examples' settings, where these do not find their catalogue.
void TestPaperPage::sessions()
{
    PaperRun run;
    run.setSettings(exampleSettings());
    run.setEnvironment("PATH", "/usr/bin:/bin");
    makeLink(QFile::encodeName(examples.path()), run.path("examples"));
    const QVector<ConsoleStep> all = consoleSteps(page());
    QVERIFY(all.size() > 10);
    for (const ConsoleStep& step : all) {
        run.startShell("zelmora_paper() { \"$program\" \"$@\"; }\nexec 2>&1\n"
                       + QByteArray(step.command).replace("zelmora-paper", "zelmora_paper"));
        const QByteArray found = difference(step.output, run.standardOutput);
        QVERIFY2(found.isEmpty(), (step.command + '\n' + found).constData());
    }
}

void TestPaperPage::theProofSheet()
{
    PaperRun run;
    run.setSettings(exampleSettings());
    run.setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path() + "/..");
    run.start({"--proof", "-o", run.path("proof.svg")});
    QCOMPARE(run.exitStatus, 0);
    QVERIFY2(run.fileOf("proof.svg") == fileContents(ZELMORA_DOCS "/paper-proof.svg"),
             "docs/paper-proof.svg is not what is drawn: scripts/screenshot draws it.");
}

void TestPaperPage::everyOptionIsOnThePage()
{
    PaperRun run;
    run.start({"--help"});
    const QRegularExpression option("^  (?:-[a-z], )?(--[a-z]+)", QRegularExpression::MultilineOption);
    QRegularExpressionMatchIterator options = option.globalMatch(QString::fromUtf8(run.standardOutput));
    QVERIFY(options.hasNext());
    while (options.hasNext()) {
        const QByteArray name = options.next().captured(1).toUtf8();
        QVERIFY2(page().contains(name), name.constData());
    }
}

QTEST_GUILESS_MAIN(TestPaperPage)
#include "tst_paperpage.moc"
