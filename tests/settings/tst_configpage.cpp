#include "settings/configrun.h"
#include "support/consolesteps.h"

#include <QtTest>

/// docs/zelmora-config.md is true: each command of its sessions prints what stands behind it.
class TestConfigPage : public QObject {
    Q_OBJECT

private slots:
    void sessions();
};

void TestConfigPage::sessions()
{
    ConfigRun run;
    const QVector<ConsoleStep> steps = consoleSteps(fileContents(ZELMORA_DOCS "/zelmora-config.md"));
    QVERIFY(steps.size() > 10);
    for (const ConsoleStep& step : steps) {
        run.startShell("zelmora_config() { \"$program\" \"$@\"; }\nexec 2>&1\n"
                       + QByteArray(step.command).replace("zelmora-config", "zelmora_config"));
        QByteArray output = run.standardOutput;
        output.replace(run.path("home").toUtf8(), "/home/cassa");
        QVERIFY2(output == step.output, step.command + '\n' + difference(step.output, output));
    }
}

QTEST_GUILESS_MAIN(TestConfigPage)
#include "tst_configpage.moc"
