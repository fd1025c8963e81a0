#include "documentedprograms.h"
#include "support/postgrescluster.h"
#include "support/programrun.h"
#include "support/toolkitlibraries.h"
#include "workbench.h"

#include <QtTest>

#include <memory>

/// What other programs find once the build is installed: they are built and run with that alone, as their pages say.
class TestInstalledTree : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void componentsAreTheWhole();
    void noPathOfTheBuildShows();
    void printProgramAndCatalogue();
    void checkProgramAndSchema();
    void paperProgram();
    void settingsEditor();

    void search_data();
    void search();

    void everyProgramIsFound();
    void program_data();
    void program();

    void suiteProgram();
    void suiteProgramWithoutServer();
    void suiteProgramWithWrongPassword();
    void suiteProgramWithoutDatabase();
    void suiteProgramWithoutTables();

private:
    QByteArray query(const QByteArray& sql, const QString& database = PostgresCluster::database());
    void makeDatabase();
    void makeTables();
    QByteArray ourSettings(const ProgramRun& run, const QByteArray& page) const;
    QString suiteProgramFile();
    void checkFailure(const QByteArray& password, const QByteArray& said, const QByteArray& reason,
                      const QByteArray& logged);

    std::unique_ptr<Workbench> workbench;
    std::unique_ptr<PostgresCluster> cluster;
};

static const QString docs = ZELMORA_DOCS;

static QByteArray libraryPage()
{
    return fileContents(docs + "/library.md");
}

static QByteArray suiteProgramPage()
{
    return fileContents(ZELMORA_EXAMPLES "/suite-program/README.md");
}

/// Runs @p program in the folder of @p run, without anything to read.
static void start(ProgramRun& run, const QString& program)
{
    run.setEnvironment("QT_QPA_PLATFORM", "offscreen");
    run.setEnvironment("XDG_RUNTIME_DIR", run.path(""));
    run.setEnvironment("tested", program);
    run.startShell("mkdir -p log; exec \"$tested\" </dev/null");
}

static QByteArray log(const ProgramRun& run, const char* name)
{
    return withoutTimes(fileContents(run.path(name)));
}

void TestInstalledTree::initTestCase()
{
    workbench = std::make_unique<Workbench>();
    cluster = std::make_unique<PostgresCluster>();
    query("create role till login password 'change-me'");
}

void TestInstalledTree::cleanupTestCase()
{
    cluster.reset();
    workbench.reset();
}

/// What psql prints for @p sql, as superuser.
QByteArray TestInstalledTree::query(const QByteArray& sql, const QString& database)
{
    workbench->setEnvironment("PGPASSWORD", PostgresCluster::password());
    const Outcome outcome =
        workbench->run("psql",
                       {"--host", cluster->host(), "--username", PostgresCluster::user(), "--dbname", database,
                        "--no-psqlrc", "--quiet", "--no-align", "--tuples-only", "--command", sql});
    if (!outcome.succeeded)
        qFatal("psql: %s", outcome.said.constData());
    return outcome.said;
}

/// The database of the pages, empty.
void TestInstalledTree::makeDatabase()
{
    query("drop database if exists zelmora");
    query("create database zelmora owner till");
}

/// The tables of the suite program, by the command on its page.
void TestInstalledTree::makeTables()
{
    makeDatabase();
    QVERIFY(suiteProgramPage().contains("\npsql -h localhost -U till -d zelmora -f tables.sql "));
    workbench->setEnvironment("PGPASSWORD", "change-me");
    const QString tables = workbench->installed("share/zelmora/examples/suite-program/tables.sql");
    const Outcome outcome =
        workbench->run("psql", {"-h", cluster->host(), "-U", "till", "-d", "zelmora", "-f", tables});
    QCOMPARE(outcome.said, QByteArray("CREATE TABLE\nCREATE SEQUENCE\n"));
}

/// The settings of a page for this machine: another place for the log, another server.
QByteArray TestInstalledTree::ourSettings(const ProgramRun& run, const QByteArray& page) const
{
    return documentedSettings(page)
        .replace("/var/log/zelmora", run.path("log").toUtf8())
        .replace("$HOME/.zelmora/log", run.path("log").toUtf8())
        .replace("localhost", cluster->host().toUtf8());
}

// A file of none would be in no package.
void TestInstalledTree::componentsAreTheWhole()
{
    const QString place = workbench->path("components");
    for (const char* component : {"print", "tools", "settings", "libraries", "development", "documentation"}) {
        const Outcome outcome =
            workbench->run("cmake", {"--install", ZELMORA_BUILD, "--prefix", place, "--component", component});
        QVERIFY2(outcome.succeeded, outcome.said.constData());
    }
    for (const QString& file : workbench->installedFiles("*"))
        QVERIFY2(QFile::exists(place + '/' + file), qPrintable(file));
}

void TestInstalledTree::noPathOfTheBuildShows()
{
    const QStringList files =
        workbench->installedFiles("*.cmake") + workbench->installedFiles("*.h") + workbench->installedFiles("*.pc");
    QVERIFY(files.size() > 8);
    for (const QString& file : files) {
        const QByteArray text = fileContents(workbench->installed(file));
        QVERIFY2(!text.isEmpty(), qPrintable(file));
        for (const char* place : {ZELMORA_BUILD, ZELMORA_SOURCE, "place of the installation"})
            QVERIFY2(!text.contains(place), qPrintable(file + ": " + place));
    }
}

void TestInstalledTree::printProgramAndCatalogue()
{
    const QByteArray catalogues = "share/zelmora/translations/";
    const QString examples = workbench->installed("share/zelmora/examples/");
    ProgramRun run;
    run.setSettings(fileContents(examples + "home/.zelmora/conf/zelmora.conf")
                        .replace(workbench->path("place of the installation/" + catalogues).toUtf8(), // and moved since
                                 workbench->installed(catalogues).toUtf8()));
    run.setEnvironment("installed", workbench->installed());
    run.setEnvironment("job", examples + "receipt.xml");
    run.startShell("exec \"$installed/bin/zelmora-print\" \"$job\" script.txt");

    QCOMPARE(run.standardOutput + run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
    const QByteArray found = difference(block(fileContents(docs + "/../README.md"), "text"),
                                        fileContents(run.path("script.txt")).replace("\r\n", "\n"));
    QVERIFY2(found.isEmpty(), found.constData());
}

void TestInstalledTree::checkProgramAndSchema()
{
    ProgramRun run(workbench->installed("bin/zelmora-check"));
    run.start({"--schema"});
    QCOMPARE(run.exitStatus, 0);
    QVERIFY(run.standardOutput.contains("<xs:schema "));
    QCOMPARE(fileContents(workbench->installed("share/zelmora/printjob.xsd")), run.standardOutput);
}

// It finds the print program that is installed with it, and needs neither the build nor the examples.
void TestInstalledTree::paperProgram()
{
    ProgramRun run(workbench->installed("bin/zelmora-paper"));
    run.setEnvironment("XDG_RUNTIME_DIR", run.path("."));
    run.start({"--proof", "-o", "proof.pdf"});
    QCOMPARE(run.standardOutput, QByteArray());
    QCOMPARE(run.exitStatus, 0);
    QVERIFY(fileContents(run.path("proof.pdf")).startsWith("%PDF-"));
}

// It says so when there is no file, and stays open.
void TestInstalledTree::settingsEditor()
{
    ProgramRun run;
    run.setEnvironment("installed", workbench->installed());
    run.setEnvironment("QT_QPA_PLATFORM", "offscreen");
    run.setEnvironment("XDG_RUNTIME_DIR", run.path("."));
    run.startShell("timeout 3 \"$installed/bin/zelmora-settings\" missing.conf");
    QCOMPARE(run.exitStatus, 124); // of timeout
}

/// What CMake says of a @p module of the toolkit that it is not to find.
static QByteArray missingModule(const QByteArray& module)
{
    return ZELMORA_QT[0] == '5' ? "find_package for module Qt5" + module
                                : "Failed to find required Qt component \"" + module + "\"";
}

void TestInstalledTree::search_data()
{
    QTest::addColumn<QByteArray>("wanted");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("config and log need neither Sql nor Widgets")
        << QByteArray("1.0 REQUIRED COMPONENTS config log") << true << QByteArray();
    QTest::newRow("util needs neither") << QByteArray("1.0 REQUIRED COMPONENTS util") << true << QByteArray();
    QTest::newRow("db needs Sql") << QByteArray("1.0 REQUIRED COMPONENTS db") << false << missingModule("Sql");
    QTest::newRow("utilwidgets needs Widgets")
        << QByteArray("1.0 REQUIRED COMPONENTS utilwidgets") << false << missingModule("Widgets");
    QTest::newRow("an unknown component")
        << QByteArray("1.0 REQUIRED COMPONENTS config cellar") << false
        << QByteArray("There is no component cellar; there are: config, configwidgets, log, util, utilwidgets, db.");
    QTest::newRow("an unknown component that nobody insists on")
        << QByteArray("1.0 REQUIRED COMPONENTS config OPTIONAL_COMPONENTS cellar") << true << QByteArray();
    QTest::newRow("a component that nobody insists on, without its module")
        << QByteArray("1.0 REQUIRED COMPONENTS config OPTIONAL_COMPONENTS utilwidgets") << true << QByteArray();
    QTest::newRow("version 2.0") << QByteArray("2.0 REQUIRED COMPONENTS config") << false
                                 << QByteArray("compatible with requested version \"2.0\"");
    QTest::newRow("version 0.9") << QByteArray("0.9 REQUIRED COMPONENTS config") << false
                                 << QByteArray("compatible with requested version \"0.9\"");
}

void TestInstalledTree::search()
{
    QFETCH(QByteArray, wanted);
    QFETCH(bool, found);
    QFETCH(QByteArray, said);

    const QString project = QString("search/") + QTest::currentDataTag();
    workbench->makeProject(project,
                           "cmake_minimum_required(VERSION 3.25)\n"
                           "project(Search LANGUAGES CXX)\n"
                           "find_package(Zelmora "
                               + wanted + ")\n",
                           QByteArray());
    const Outcome outcome = workbench->configure(project,
                                                 {"-DCMAKE_DISABLE_FIND_PACKAGE_Qt" ZELMORA_QT "Sql=ON",
                                                  "-DCMAKE_DISABLE_FIND_PACKAGE_Qt" ZELMORA_QT "Widgets=ON"});
    QVERIFY2(outcome.succeeded == found, outcome.said.constData());
    QVERIFY2(outcome.said.simplified().contains(said), outcome.said.constData());
}

void TestInstalledTree::everyProgramIsFound()
{
    const QByteArray page = libraryPage();
    QStringList headings;
    for (const DocumentedProgram& program : documentedPrograms(page))
        headings += program.heading;
    QCOMPARE(headings,
             QStringList({"ZMConfiguration", "Config", "The tree view", "SyncSingleton", "Logger", "HLogManager",
                          "HLibrary", "With widgets", "SleepThread", "DatabaseManager", "A connection that fails",
                          "A transaction that counts", "Receipt numbers", "Text that somebody has typed"}));
    QCOMPARE(page.count("```cpp\n// Zelmora::"), headings.size());
}

void TestInstalledTree::program_data()
{
    QTest::addColumn<DocumentedProgram>("program");
    for (const DocumentedProgram& program : documentedPrograms(libraryPage()))
        QTest::newRow(qPrintable(program.heading)) << program;
}

/// Of the toolkit, what the page's table of components says that a program needs, and what Widgets brings along.
static QSet<QString> librariesFor(const QString& component)
{
    QStringList libraries = coreLibraries();
    if (component == "db")
        libraries += toolkitLibrary("Sql");
    if (component.endsWith("widgets"))
        libraries +=
            {toolkitLibrary("Gui"), toolkitLibrary("Widgets"), toolkitLibrary("DBus")}; // the last by Qt 6's Gui
    return QSet<QString>(libraries.begin(), libraries.end());
}

void TestInstalledTree::program()
{
    QFETCH(DocumentedProgram, program);
    const QByteArray component = program.component.toUtf8();
    workbench->makeProject(program.heading,
                           block(libraryPage(), "cmake")
                               .replace("COMPONENTS config log util db", "COMPONENTS " + component)
                               .replace("Zelmora::db", "Zelmora::" + component),
                           program.source);
    const Outcome outcome = workbench->configureAndBuild(program.heading);
    QVERIFY2(outcome.succeeded, outcome.said.constData());
    const QString built = workbench->built(program.heading, "till");
    // A linker may leave out what a program has no use for.
    const QStringList libraries = toolkitLibraries(built);
    QVERIFY(libraries.contains(toolkitLibrary("Core")));
    QVERIFY2(librariesFor(program.component).contains(QSet<QString>(libraries.begin(), libraries.end())),
             qPrintable(libraries.join(' ')));

    if (component == "db")
        makeTables();
    ProgramRun run;
    run.setSettings(ourSettings(run, libraryPage()));
    start(run, built);
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.standardOutput, program.output);
    QCOMPARE(run.exitStatus, 0);

    const QByteArray records = log(run, "log/till.log");
    const QByteArray shown = withoutTimes(program.log);
    if (shown.startsWith("...\n"))
        QVERIFY2(records.endsWith('\n' + shown.mid(4)), records.constData());
    else
        QCOMPARE(records, shown);
}

/// The suite program, built at first need from what is installed.
QString TestInstalledTree::suiteProgramFile()
{
    const QString built = workbench->built("suite program", "suite-program");
    if (QFile::exists(built))
        return built;
    const QString sources = workbench->installed("share/zelmora/examples/suite-program/");
    workbench->makeProject("suite program", fileContents(sources + "CMakeLists.txt"),
                           fileContents(sources + "main.cpp"));
    const Outcome outcome = workbench->configureAndBuild("suite program");
    if (!outcome.succeeded)
        qFatal("The suite program can't be built: %s", outcome.said.constData());
    return built;
}

void TestInstalledTree::suiteProgram()
{
    const QString built = suiteProgramFile();
    const QByteArray filesRead = workbench->filesRead("suite program");
    QVERIFY(filesRead.contains(workbench->installed("include/zelmora/db/databasemanager.h").toUtf8()));
    QVERIFY2(!filesRead.contains(ZELMORA_SOURCE) && !filesRead.contains(ZELMORA_BUILD), filesRead.constData());

    makeTables();
    ProgramRun run;
    run.setSettings(ourSettings(run, suiteProgramPage()));
    start(run, built);
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.standardOutput, QByteArray("order 1, receipt 1, copies to print: 2\n"));
    QCOMPARE(block(suiteProgramPage(), "text"), run.standardOutput);
    QCOMPARE(run.exitStatus, 0);
    const QByteArray firstRun = log(run, "log/suite.log");
    QCOMPARE(firstRun, withoutTimes(block(suiteProgramPage(), "text", 1)));

    start(run, built);
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.standardOutput, QByteArray("order 2, receipt 2, copies to print: 2\n"));
    QCOMPARE(run.exitStatus, 0);
    QCOMPARE(log(run, "log/suite.log"), firstRun + firstRun);

    QCOMPARE(query("select id from orders order by id", "zelmora"), QByteArray("1\n2\n"));
    QCOMPARE(query("select last_value from receiptnumber", "zelmora"), QByteArray("2\n"));
}

/// The suite program with @p password says @p said. In its log is @p reason, and its last records are @p logged. Its
/// page knows both texts.
void TestInstalledTree::checkFailure(const QByteArray& password, const QByteArray& said, const QByteArray& reason,
                                     const QByteArray& logged)
{
    QVERIFY(suiteProgramPage().contains('"' + said + '"'));
    QVERIFY(suiteProgramPage().contains(reason));
    ProgramRun run;
    run.setSettings(ourSettings(run, suiteProgramPage()).replace("change-me", password));
    start(run, suiteProgramFile());
    QCOMPARE(run.standardOutput, QByteArray());
    QCOMPARE(run.standardError, said + '\n');
    QVERIFY(run.ended);
    QCOMPARE(run.exitStatus, 1);

    const QByteArray records = log(run, "log/suite.log");
    QVERIFY2(records.contains(reason), records.constData());
    QVERIFY2(records.endsWith(withoutTimes(logged)), records.constData());
    QVERIFY(!records.contains(password));
}

static const QByteArray noDatabase = "The database cannot be opened. The log says why.";

/// The log on the page, that of a server that is down, but of one whose socket gives the reason @p reason.
static QByteArray unopened(const QString& host, const QByteArray& reason)
{
    const QByteArray page = block(suiteProgramPage(), "text", 2);
    const QByteArray socket = "on socket \"" + host.toUtf8() + "/.s.PGSQL.5432\"";
    return page.left(page.indexOf("at \"localhost\"")) + socket + " failed: " + reason + "\n\n";
}

void TestInstalledTree::suiteProgramWithoutServer()
{
    cluster->stop();
    const QByteArray reason = "No such file or directory\n"
                              "\tIs the server running locally and accepting connections on that socket?";
    checkFailure("change-me", noDatabase, "Unable to connect", unopened(cluster->host(), reason));
    cluster->start();
}

void TestInstalledTree::suiteProgramWithWrongPassword()
{
    const QByteArray reason = "password authentication failed for user \"till\"";
    checkFailure("change-it", noDatabase, reason, unopened(cluster->host(), "FATAL:  " + reason));
}

void TestInstalledTree::suiteProgramWithoutDatabase()
{
    query("drop database if exists zelmora");
    const QByteArray reason = "database \"zelmora\" does not exist";
    checkFailure("change-me", noDatabase, reason, unopened(cluster->host(), "FATAL:  " + reason));
}

void TestInstalledTree::suiteProgramWithoutTables()
{
    makeDatabase();
    checkFailure("change-me", "There is no order. The log says why.", "relation \"orders\" does not exist",
                 "[07-04-2026 13:05:09:042] ERROR: getLastId( orders ): "
                 "select max(ID) from orders return empty result\n"
                 "[07-04-2026 13:05:09:042] DEBUG: COMMIT\n\n\n");
}

QTEST_GUILESS_MAIN(TestInstalledTree)
#include "tst_installedtree.moc"
