#include "settings/configrun.h"

#include <QtTest>

/// docs/zelmora-config.md is true: each command of its sessions prints what stands behind it.
class TestConfigPage : public QObject {
    Q_OBJECT

private slots:
    void sessions();
};

namespace {

struct Step {
    QByteArray command;
    QByteArray output;
};

/// Those of all sessions, in their order.
QVector<Step> stepsIn(const QByteArray& page)
{
    QVector<Step> steps;
    bool isInside = false;
    for (const QByteArray& line : page.split('\n')) {
        if (line.startsWith("```"))
            isInside = line == "```console";
        else if (isInside && line.startsWith("$ "))
            steps += Step {line.mid(2), QByteArray()};
        else if (isInside)
            steps.last().output += line + '\n';
    }
    return steps;
}

} // namespace

void TestConfigPage::sessions()
{
    ConfigRun run;
    const QVector<Step> steps = stepsIn(fileContents(ZELMORA_DOCS "/zelmora-config.md"));
    QVERIFY(steps.size() > 10);
    for (const Step& step : steps) {
        run.startShell("zelmora_config() { \"$program\" \"$@\"; }\nexec 2>&1\n"
                       + QByteArray(step.command).replace("zelmora-config", "zelmora_config"));
        QByteArray output = run.standardOutput;
        output.replace(run.path("home").toUtf8(), "/home/cassa");
        QVERIFY2(output == step.output, step.command + '\n' + difference(step.output, output));
    }
}

QTEST_GUILESS_MAIN(TestConfigPage)
#include "tst_configpage.moc"
