#include "support/postgrescluster.h"
#include "support/programrun.h"
#include "workbench.h"

#include <QtTest>

#include <map>
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
    void build(Workbench& workbench);

    std::map<QString, std::unique_ptr<Workbench>> workbenches; ///< by the kind of libraries
    std::unique_ptr<PostgresCluster> cluster;
};

static const QString sharedLibraries = "shared libraries";
static const QString staticLibraries = "static libraries";
static const QString unique = "unique symbols";
static const QString notUnique = "no unique symbols";

void TestPlugins::initTestCase()
{
    cluster = std::make_unique<PostgresCluster>();
    workbenches[sharedLibraries] = std::make_unique<Workbench>(QStringList(Workbench::sharedBuild()));
    workbenches[staticLibraries] = std::make_unique<Workbench>(QStringList(Workbench::staticBuild()));
    for (const auto& workbench : workbenches)
        build(*workbench.second);
}

void TestPlugins::cleanupTestCase()
{
    cluster.reset();
    workbenches.clear();
}

void TestPlugins::build(Workbench& workbench)
{
    for (const QString& project : {unique, notUnique}) {
        for (const char* file : {"CMakeLists.txt", "instances.h", "instances.cpp", "main.cpp"})
            workbench.addFile(project, file, fileContents(QString(ZELMORA_PLUGINS "/") + file));
        const Outcome outcome =
            workbench.configureAndBuild(project, {"-DUNIQUE_SYMBOLS=" + QString(project == unique ? "ON" : "OFF")});
        QVERIFY2(outcome.succeeded, outcome.said.constData());
    }
}

void TestPlugins::instances_data()
{
    QTest::addColumn<QString>("libraries");
    QTest::addColumn<QString>("project");
    QTest::addColumn<QString>("program");
    QTest::addColumn<int>("count"); // of settings stores, log managers and database managers
    QTest::addColumn<int>("own"); // of a class of the program and its plug-ins
    QTest::addColumn<int>("connections");

    QTest::newRow("two plug-ins share them") << sharedLibraries << unique << "without" << 1 << 1 << 1;
    QTest::newRow("a program has its own of its own class alone")
        << sharedLibraries << unique << "linking" << 1 << 2 << 1;
    QTest::newRow("a program that exports its symbols shares that too")
        << sharedLibraries << unique << "exporting" << 1 << 1 << 1;
    QTest::newRow("without unique symbols each plug-in has its own of its own class alone")
        << sharedLibraries << notUnique << "without" << 1 << 2 << 1;
    QTest::newRow("without unique symbols the program has its own of its own class too")
        << sharedLibraries << notUnique << "linking" << 1 << 3 << 1;
    QTest::newRow("without unique symbols a program that exports its own shares them all")
        << sharedLibraries << notUnique << "exporting" << 1 << 1 << 1;

    // What keeps connections is the library's own code, which is compiled with unique symbols in both projects.
    QTest::newRow("static: two plug-ins share them") << staticLibraries << unique << "without" << 1 << 1 << 1;
    QTest::newRow("static: a program that keeps its symbols has its own")
        << staticLibraries << unique << "linking" << 2 << 2 << 2;
    QTest::newRow("static: a program that exports its symbols shares them")
        << staticLibraries << unique << "exporting" << 1 << 1 << 1;
    QTest::newRow("static, without unique symbols: each plug-in has its own")
        << staticLibraries << notUnique << "without" << 1 << 2 << 1;
    QTest::newRow("static, without unique symbols: the program has its own too")
        << staticLibraries << notUnique << "linking" << 2 << 3 << 2;
    QTest::newRow("static, without unique symbols: a program that exports its own shares them")
        << staticLibraries << notUnique << "exporting" << 1 << 1 << 1;
}

void TestPlugins::instances()
{
    QFETCH(QString, libraries);
    QFETCH(QString, project);
    QFETCH(QString, program);
    QFETCH(int, count);
    QFETCH(int, own);
    QFETCH(int, connections);

    ProgramRun run;
    run.setSettings("zelmora: { db: { dbname = " + PostgresCluster::database().toUtf8() + "; username = "
                    + PostgresCluster::user().toUtf8() + "; password = " + PostgresCluster::password().toUtf8()
                    + "; hostname = " + cluster->host().toUtf8() + "; }; };");
    run.setEnvironment("tested", workbenches.at(libraries)->built(project, program));
    run.startShell("exec \"$tested\"");

    const QByteArray each = ": " + QByteArray::number(count) + '\n';
    QCOMPARE(run.standardOutput,
             "settings" + each + "logs" + each + "databases" + each + "of a class of its own: "
                 + QByteArray::number(own) + "\nconnections: " + QByteArray::number(connections) + '\n');
    QCOMPARE(run.exitStatus, 0);
    if (connections == 1)
        QCOMPARE(run.standardError, QByteArray());
}

QTEST_GUILESS_MAIN(TestPlugins)
#include "tst_plugins.moc"
