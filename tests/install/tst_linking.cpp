#include "support/programrun.h"
#include "workbench.h"

#include <QtTest>

#include <map>
#include <memory>

/// Programs that link the installed libraries, shared or static ones, by CMake or by pkg-config. The linker leaves out
/// what they do not call, as it does where nobody says otherwise on many systems.
class TestLinking : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void program_data();
    void program();
    void packageVersion();

private:
    Outcome build(Workbench& workbench, const QString& project, bool byCMake, const QString& component);

    std::map<QString, std::unique_ptr<Workbench>> workbenches;
};

static const QString sharedLibraries = "shared";
static const QString staticLibraries = "static";

static const QByteArray logging = R"(
#include <zelmora/log/hlogmanager.h>
#include <cstdio>

int main()
{
    SyncSingleton<HLogManager>::instance()->set("till", "default");
    std::puts(SyncSingleton<HLogManager>::instance()->getLog("") ? "a log" : "none");
}
)";

static const QByteArray database = R"(
#include <zelmora/db/databasemanager.h>
#include <zelmora/util/hlibrary.h>
#include <cstdio>

int main()
{
    std::puts(SyncSingleton<DatabaseManager>::instance() ? "a manager" : "none");
    return HLibrary::dbname().size();
}
)";

// Nothing of the widgets' library is called, unless SHOWS_SETTINGS says so. The box is closed as soon as it is there.
static const QByteArray paper = R"(
#ifdef SHOWS_SETTINGS
#include <zelmora/config/config.h>
#endif
#include <zelmora/util/hlibrary.h>
#include <QApplication>
#include <QTimer>
#include <QTreeWidget>
#include <cstdio>
#include <memory>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, &closing, [] {
        QWidget* const box = QApplication::activeModalWidget();
        if (!box)
            return;
        std::puts("a box");
        box->close();
    });
    closing.start(10);
#ifdef SHOWS_SETTINGS
    const std::unique_ptr<QTreeWidget> settings(libconfig::Config().newConfigListView());
#endif
    const unsigned int linesPerSheet = 1, pause = 0;
    return HLibrary::copy("two lines.txt", "copy.txt", linesPerSheet, pause) ? 0 : 1;
}
)";

void TestLinking::initTestCase()
{
    workbenches[sharedLibraries] = std::make_unique<Workbench>(QStringList(Workbench::sharedBuild()));
    workbenches[staticLibraries] = std::make_unique<Workbench>(QStringList(Workbench::staticBuild()));
}

void TestLinking::cleanupTestCase()
{
    workbenches.clear();
}

void TestLinking::program_data()
{
    QTest::addColumn<QString>("libraries");
    QTest::addColumn<bool>("byCMake");
    QTest::addColumn<QString>("component");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QString>("without"); // of the toolkit: what must not be loaded

    for (const QString& libraries : {sharedLibraries, staticLibraries}) {
        for (const bool byCMake : {true, false}) {
            const QString how = libraries + " libraries, by " + (byCMake ? "CMake: " : "pkg-config: ");
            const auto add = [&](const char* what, const char* component, const QByteArray& source,
                                 const QByteArray& output, const char* without) {
                QTest::newRow(qPrintable(how + what))
                    << libraries << byCMake << component << source << output << without;
            };
            add("a log needs neither Sql nor Widgets", "log", logging, "a log\n", "Sql|Gui|Widgets");
            add("the database needs no Widgets", "db", database, "a manager\n", "Gui|Widgets");
            add("the paper prompt has its box", "utilwidgets", paper, "a box\n", "Sql");
            add("the paper prompt shares a library with the tree view", "configwidgets",
                "#define SHOWS_SETTINGS\n" + paper,
                libraries == staticLibraries && byCMake ? "PaperWindow: Insert a new sheet\n" : "a box\n", "Sql");
            add("the paper prompt has no box", "util", paper, "PaperWindow: Insert a new sheet\n", "Sql");
        }
    }
}

/// The program of the project, which has windows of its own where it wants them.
Outcome TestLinking::build(Workbench& workbench, const QString& project, bool byCMake, const QString& component)
{
    const QByteArray name = component.toUtf8();
    workbench.addFile(project, "CMakeLists.txt",
                      "cmake_minimum_required(VERSION 3.25)\n"
                      "project(Till LANGUAGES CXX)\n"
                      "find_package(Qt" ZELMORA_QT " REQUIRED COMPONENTS Widgets)\n"
                      "find_package(Zelmora 1.0 REQUIRED COMPONENTS util "
                          + name
                          + ")\n"
                            "add_executable(till main.cpp)\n"
                            "target_link_libraries(till PRIVATE Qt" ZELMORA_QT "::Widgets Zelmora::"
                          + name + (name == "configwidgets" ? " Zelmora::util" : "") // which it does not bring along
                          + ")\n");
    if (byCMake)
        return workbench.configureAndBuild(project, {"-DCMAKE_EXE_LINKER_FLAGS=-Wl,--as-needed"});
    const std::map<QString, QString> packages {{"log", "zelmora"},
                                               {"db", "zelmora-db"},
                                               {"util", "zelmora"},
                                               {"utilwidgets", "zelmora-widgets"},
                                               {"configwidgets", "zelmora-widgets"}};
    return workbench.compile(project, packages.at(component) + ZELMORA_SUFFIX " Qt" ZELMORA_QT "Widgets");
}

void TestLinking::program()
{
    QFETCH(QString, libraries);
    QFETCH(bool, byCMake);
    QFETCH(QString, component);
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, output);
    QFETCH(QString, without);

    Workbench& workbench = *workbenches.at(libraries);
    const QString project = component + (byCMake ? " by CMake" : " by pkg-config");
    workbench.addFile(project, "main.cpp", source);
    const Outcome outcome = build(workbench, project, byCMake, component);
    QVERIFY2(outcome.succeeded, outcome.said.constData());
    const QString till = workbench.built(project, "till");

    const QString loaded = QString::fromUtf8(workbench.run("ldd", {till}).said);
    QCOMPARE(loaded.contains("libzelmora"), libraries == sharedLibraries);
    QVERIFY2(loaded.contains("libQt" ZELMORA_QT "Core"), qPrintable(loaded));
    QVERIFY2(!loaded.contains(QRegularExpression("libQt" ZELMORA_QT "(" + without + ")\\b")), qPrintable(loaded));

    ProgramRun run(till);
    run.setSettings("zelmora: { };");
    run.setEnvironment("QT_QPA_PLATFORM", "offscreen");
    run.setEnvironment("XDG_RUNTIME_DIR", run.path("."));
    run.writeFile("two lines.txt", "1\n2\n");
    run.startShell("exec \"$program\" </dev/null");
    QCOMPARE(run.standardOutput, output);
    QCOMPARE(run.exitStatus, 0);
}

void TestLinking::packageVersion()
{
    for (const auto& [libraries, workbench] : workbenches) {
        for (const char* package : {"zelmora", "zelmora-db", "zelmora-widgets"}) {
            const Outcome outcome = workbench->run("pkg-config", {"--modversion", QString(package) + ZELMORA_SUFFIX});
            QCOMPARE(outcome.said, QByteArray(ZELMORA_VERSION "\n"));
        }
    }
}

QTEST_GUILESS_MAIN(TestLinking)
#include "tst_linking.moc"
