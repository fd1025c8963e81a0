#include "support/postgrescluster.h"
#include "support/programrun.h"
#include "workbench.h"

#include <QtTest>

#include <memory>

/// What a process has one of, when plug-ins that each link the library are loaded into it.
class TestPlugins : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void instances_data();
    void instances();

private:
    std::unique_ptr<Workbench> workbench;
    std::unique_ptr<PostgresCluster> cluster;
};

static const QString unique = "unique symbols";
static const QString notUnique = "no unique symbols";

void TestPlugins::initTestCase()
{
    workbench = std::make_unique<Workbench>();
    cluster = std::make_unique<PostgresCluster>();
    for (const QString& project : {unique, notUnique}) {
        for (const char* file : {"CMakeLists.txt", "instances.h", "instances.cpp", "main.cpp"})
            workbench->addFile(project, file, fileContents(QString(ZELMORA_PLUGINS "/") + file));
        const Outcome outcome =
            workbench->configureAndBuild(project, {"-DUNIQUE_SYMBOLS=" + QString(project == unique ? "ON" : "OFF")});
        QVERIFY2(outcome.succeeded, outcome.said.constData());
    }
}

void TestPlugins::cleanupTestCase()
{
    cluster.reset();
    workbench.reset();
}

void TestPlugins::instances_data()
{
    QTest::addColumn<QString>("project");
    QTest::addColumn<QString>("program");
    QTest::addColumn<int>("count");
    // What keeps connections is the library's own code, which is compiled with unique symbols in both projects.
    QTest::addColumn<int>("connections");

    QTest::newRow("two plug-ins share them") << unique << "without" << 1 << 1;
    QTest::newRow("a program that keeps its symbols has its own") << unique << "linking" << 2 << 2;
    QTest::newRow("a program that exports its symbols shares them") << unique << "exporting" << 1 << 1;
    QTest::newRow("without unique symbols each plug-in has its own") << notUnique << "without" << 2 << 1;
    QTest::newRow("without unique symbols the program has its own too") << notUnique << "linking" << 3 << 2;
    QTest::newRow("without unique symbols a program that exports its own shares them")
        << notUnique << "exporting" << 1 << 1;
}

void TestPlugins::instances()
{
    QFETCH(QString, project);
    QFETCH(QString, program);
    QFETCH(int, count);
    QFETCH(int, connections);

    ProgramRun run;
    run.setSettings("zelmora: { db: { dbname = " + PostgresCluster::database().toUtf8() + "; username = "
                    + PostgresCluster::user().toUtf8() + "; password = " + PostgresCluster::password().toUtf8()
                    + "; hostname = " + cluster->host().toUtf8() + "; }; };");
    run.setEnvironment("tested", workbench->built(project, program));
    run.startShell("exec \"$tested\"");

    const QByteArray each = ": " + QByteArray::number(count) + '\n';
    QCOMPARE(run.standardOutput,
             "settings" + each + "logs" + each + "databases" + each + "of a class of its own" + each
                 + "connections: " + QByteArray::number(connections) + '\n');
    QCOMPARE(run.exitStatus, 0);
    if (connections == 1)
        QCOMPARE(run.standardError, QByteArray());
}

QTEST_GUILESS_MAIN(TestPlugins)
#include "tst_plugins.moc"
