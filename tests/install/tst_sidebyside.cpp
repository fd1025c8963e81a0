#include "support/programrun.h"
#include "workbench.h"

#include <QtTest>

#include <memory>

/// The libraries for Qt 5 and for Qt 6 in one place: which of them a program gets, and that neither installation harms
/// the other.
class TestSideBySide : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void commonFilesAreTheSame();
    void bothAreThere();
    void wholeInstallationForQt6();

    void choice_data();
    void choice();
    void refusal_data();
    void refusal();
    void oneOfThem_data();
    void oneOfThem();

    void bothInOneProject();
    void bothInOneProgram();
    void packages_data();
    void packages();

private:
    std::unique_ptr<Workbench> workbench; ///< with both
    std::unique_ptr<Workbench> qt5;
    std::unique_ptr<Workbench> qt6;
};

static const QByteArray program =
    "#include <zelmora/log/hlogmanager.h>\n"
    "#include <cstdio>\n"
    "\n"
    "int main()\n"
    "{\n"
    "    SyncSingleton<HLogManager>::instance()->set(\"till\", \"\");\n"
    "    std::puts(SyncSingleton<HLogManager>::instance()->getLog(\"\") ? qVersion() : \"\");\n"
    "}\n";

/// A project that does @p search.
static QByteArray project(const QByteArray& search)
{
    return "cmake_minimum_required(VERSION 3.25)\n"
           "project(Till LANGUAGES CXX)\n"
        + search;
}

static const QByteArray findZelmora = "find_package(Zelmora 1.0 REQUIRED COMPONENTS log)\n";
static const QByteArray findQt5 = "find_package(Qt5 REQUIRED COMPONENTS Core)\n";
static const QByteArray findQt6 = "find_package(Qt6 REQUIRED COMPONENTS Core)\n";
/// What the toolkit wants of a project that finds both: the one would define Qt::Core, and the other stumble over it.
static const QByteArray forBoth = "set(QT_NO_CREATE_VERSIONLESS_TARGETS ON)\n";

void TestSideBySide::initTestCase()
{
    qt5 = std::make_unique<Workbench>(QStringList(Workbench::qt5Build()));
    qt6 = std::make_unique<Workbench>(QStringList(Workbench::sharedBuild()));
    workbench = std::make_unique<Workbench>(QStringList({Workbench::qt5Build(), Workbench::sharedBuild()}));
}

void TestSideBySide::cleanupTestCase()
{
    workbench.reset();
    qt5.reset();
    qt6.reset();
}

// Whichever is installed last: headers and package are those of both.
void TestSideBySide::commonFilesAreTheSame()
{
    QStringList common;
    for (const QString& file : qt5->installedFiles("*")) {
        if (!QFile::exists(qt6->installed(file)))
            continue;
        QCOMPARE(fileContents(qt6->installed(file)), fileContents(qt5->installed(file)));
        common += file;
    }
    QCOMPARE(common.filter(QRegularExpression("^include/")), qt6->installedFiles("*.h"));
    QCOMPARE(qt5->installedFiles("*.h"), qt6->installedFiles("*.h"));
    QCOMPARE(common.filter(QRegularExpression("^lib/")),
             QStringList({"lib/cmake/Zelmora/ZelmoraConfig.cmake", "lib/cmake/Zelmora/ZelmoraConfigVersion.cmake"}));
}

void TestSideBySide::bothAreThere()
{
    QStringList expected = qt5->installedFiles("*") + qt6->installedFiles("*");
    expected.removeDuplicates();
    expected.sort();
    QCOMPARE(workbench->installedFiles("*"), expected);
    for (const char* library : {"lib/libzelmora.so.1", "lib/libzelmora-qt6.so.1", "lib/libzelmora-db-qt6.so.1",
                                "lib/libzelmora-widgets-qt6.so.1", "lib/pkgconfig/zelmora-qt6.pc"})
        QVERIFY2(expected.contains(library), library);
}

// Without a word on components: no program, and nothing that is a program's, in the place of that with Qt 5.
void TestSideBySide::wholeInstallationForQt6()
{
    const QString place = qt6->path("whole");
    const Outcome outcome = qt6->run("cmake", {"--install", ZELMORA_BUILD, "--prefix", place});
    QVERIFY2(outcome.succeeded, outcome.said.constData());
    QCOMPARE(filesIn(place), QStringList({"include", "lib"}));
}

void TestSideBySide::choice_data()
{
    QTest::addColumn<QByteArray>("search");
    QTest::addColumn<QByteArray>("version");

    QTest::newRow("nothing is said") << findZelmora << QByteArray("5");
    QTest::newRow("ZELMORA_QT names Qt 6") << "set(ZELMORA_QT 6)\n" + findZelmora << QByteArray("6");
    QTest::newRow("ZELMORA_QT names Qt 5") << "set(ZELMORA_QT 5)\n" + findZelmora << QByteArray("5");
    QTest::newRow("Qt 6 was found before") << findQt6 + findZelmora << QByteArray("6");
    QTest::newRow("Qt 5 was found before") << findQt5 + findZelmora << QByteArray("5");
    QTest::newRow("the newest toolkit was found before")
        << "find_package(QT NAMES Qt6 Qt5 REQUIRED COMPONENTS Core)\n"
           "find_package(Qt${QT_VERSION_MAJOR} REQUIRED COMPONENTS Core)\n"
            + findZelmora
        << QByteArray("6");
    QTest::newRow("both were found before, and ZELMORA_QT names Qt 6")
        << forBoth + findQt5 + findQt6 + "set(ZELMORA_QT 6)\n" + findZelmora << QByteArray("6");
    QTest::newRow("Qt 5 was found before, but ZELMORA_QT names Qt 6")
        << forBoth + findQt5 + "set(ZELMORA_QT 6)\n" + findZelmora << QByteArray("6");
    QTest::newRow("Qt 6 is found later, for something else") << forBoth + findZelmora + findQt6 << QByteArray("5");
    QTest::newRow("a second search, after Qt 6 was found for something else") << forBoth + findZelmora + findQt6
            + "find_package(Zelmora 1.0 REQUIRED COMPONENTS db)\n" << QByteArray("5");
    QTest::newRow("Qt 6 was looked for, and not found")
        << "find_package(Qt6 COMPONENTS Cellar QUIET)\n" + findQt5 + findZelmora << QByteArray("5");
}

void TestSideBySide::choice()
{
    QFETCH(QByteArray, search);
    QFETCH(QByteArray, version);

    const QString name = QString("choice/") + QTest::currentDataTag();
    workbench->makeProject(name,
                           project(search
                                   + "add_executable(till main.cpp)\n"
                                     "target_link_libraries(till PRIVATE Zelmora::log)\n"
                                     "if(NOT Zelmora_QT_VERSION_MAJOR EQUAL "
                                   + version
                                   + ")\n"
                                     "    message(FATAL_ERROR \"Zelmora_QT_VERSION_MAJOR is wrong.\")\n"
                                     "endif()\n"),
                           program);
    const Outcome outcome = workbench->configureAndBuild(name, {"-UZELMORA_QT"});
    QVERIFY2(outcome.succeeded, outcome.said.constData());

    ProgramRun run(workbench->built(name, "till"));
    run.setSettings("zelmora: { };");
    run.start({});
    QVERIFY2(run.standardOutput.startsWith(version + '.'), run.standardOutput.constData());
}

void TestSideBySide::refusal_data()
{
    QTest::addColumn<QByteArray>("search");
    QTest::addColumn<QByteArray>("reason");

    QTest::newRow("both were found before") << forBoth + findQt5 + findQt6
            + findZelmora << QByteArray("This program has found both Qt 5 and Qt 6: set ZELMORA_QT to 5 or to 6.");
    QTest::newRow("ZELMORA_QT names no toolkit")
        << "set(ZELMORA_QT 7)\n" + findZelmora << QByteArray("ZELMORA_QT is \"7\": set it to 5 or to 6.");
    QTest::newRow("a second search, for the other one") << findZelmora + "set(ZELMORA_QT 6)\n"
            + findZelmora << QByteArray("Zelmora was found for Qt 5 before, and cannot be for Qt 6 as well.");
}

void TestSideBySide::refusal()
{
    QFETCH(QByteArray, search);
    QFETCH(QByteArray, reason);

    const QString name = QString("refusal/") + QTest::currentDataTag();
    workbench->makeProject(name, project(search), program);
    const Outcome loud = workbench->configure(name, {"-UZELMORA_QT"});
    QVERIFY(!loud.succeeded);
    QVERIFY2(loud.said.simplified().contains(reason), loud.said.constData());

    const QByteArray quiet = QByteArray(search).replace("REQUIRED COMPONENTS log", "QUIET COMPONENTS log");
    workbench->makeProject(name, project(quiet + "if(Zelmora_FOUND)\n    message(FATAL_ERROR found)\nendif()\n"),
                           program);
    const Outcome outcome = workbench->configure(name, {"-UZELMORA_QT"});
    QVERIFY2(outcome.succeeded && !outcome.said.contains("Zelmora"), outcome.said.constData());
}

void TestSideBySide::oneOfThem_data()
{
    QTest::addColumn<bool>("isQt5");
    QTest::addColumn<QByteArray>("search");
    QTest::addColumn<QByteArray>("reason"); // empty where there is none

    QTest::newRow("Qt 5 alone, Qt 5 is wanted") << true << findQt5 + findZelmora << QByteArray();
    QTest::newRow("Qt 5 alone, Qt 6 is named")
        << true << "set(ZELMORA_QT 6)\n" + findZelmora
        << QByteArray("Here is no Zelmora for Qt 6, which ZELMORA_QT names, but only one for Qt 5. "
                      "Install the former too, or set ZELMORA_QT to 5.");
    QTest::newRow("Qt 5 alone, Qt 6 was found before")
        << true << findQt6 + findZelmora
        << QByteArray("Here is no Zelmora for Qt 6, which this program has found, but only one for Qt 5.");
    QTest::newRow("Qt 6 alone, Qt 6 is wanted") << false << findQt6 + findZelmora << QByteArray();
    QTest::newRow("Qt 6 alone, nothing is said")
        << false << findZelmora
        << QByteArray("Here is no Zelmora for Qt 5, which is meant where ZELMORA_QT does not name another one, "
                      "but only one for Qt 6. Install the former too, or set ZELMORA_QT to 6.");
}

void TestSideBySide::oneOfThem()
{
    QFETCH(bool, isQt5);
    QFETCH(QByteArray, search);
    QFETCH(QByteArray, reason);

    Workbench& one = isQt5 ? *qt5 : *qt6;
    const QString name = QString("one/") + QTest::currentDataTag();
    one.makeProject(name, project(search), program);
    const Outcome outcome = one.configure(name, {"-UZELMORA_QT"});
    QVERIFY2(outcome.succeeded == reason.isEmpty(), outcome.said.constData());
    QVERIFY2(outcome.said.simplified().contains(reason), outcome.said.constData());
}

// A folder of the project for each: a search holds in its own.
void TestSideBySide::bothInOneProject()
{
    workbench->makeProject("two folders", project("add_subdirectory(five)\nadd_subdirectory(six)\n"), QByteArray());
    for (const QByteArray folder : {"five", "six"}) {
        const QByteArray number = folder == "five" ? "5" : "6";
        workbench->addFile("two folders/" + folder, "main.cpp", program);
        workbench->addFile("two folders/" + folder, "CMakeLists.txt",
                           "set(ZELMORA_QT " + number + ")\n" + findZelmora + "add_executable(" + folder
                               + " main.cpp)\n"
                                 "target_link_libraries("
                               + folder + " PRIVATE Zelmora::log)\n");
    }
    const Outcome outcome = workbench->configureAndBuild("two folders", {"-UZELMORA_QT"});
    QVERIFY2(outcome.succeeded, outcome.said.constData());
    for (const char* folder : {"five", "six"}) {
        ProgramRun run(workbench->built("two folders", QString("%1/%1").arg(folder)));
        run.setSettings("zelmora: { };");
        run.start({});
        QCOMPARE(run.standardOutput.left(2), QByteArray(folder) == "five" ? QByteArray("5.") : QByteArray("6."));
    }
}

// CMake itself takes no program in which two toolkits meet.
void TestSideBySide::bothInOneProgram()
{
    workbench->makeProject("two toolkits",
                           project(forBoth + findZelmora + findQt6
                                   + "add_executable(till main.cpp)\n"
                                     "target_link_libraries(till PRIVATE Zelmora::log Qt6::Core)\n"),
                           program);
    const Outcome outcome = workbench->configure("two toolkits", {"-UZELMORA_QT"});
    QVERIFY(!outcome.succeeded);
    QVERIFY2(outcome.said.contains("QT_MAJOR_VERSION"), outcome.said.constData());
}

void TestSideBySide::packages_data()
{
    QTest::addColumn<QString>("package");
    QTest::addColumn<QByteArray>("version");
    QTest::newRow("zelmora is for Qt 5") << "zelmora" << QByteArray("5");
    QTest::newRow("zelmora-qt6 is for Qt 6") << "zelmora-qt6" << QByteArray("6");
}

void TestSideBySide::packages()
{
    QFETCH(QString, package);
    QFETCH(QByteArray, version);
    workbench->addFile(package, "main.cpp", program);
    const Outcome outcome = workbench->compile(package, package);
    QVERIFY2(outcome.succeeded, outcome.said.constData());
    ProgramRun run(workbench->built(package, "till"));
    run.setSettings("zelmora: { };");
    run.start({});
    QVERIFY2(run.standardOutput.startsWith(version + '.'), run.standardOutput.constData());
}

QTEST_GUILESS_MAIN(TestSideBySide)
#include "tst_sidebyside.moc"
