#include "support/programrun.h"
#include "workbench.h"

#include <QtTest>

#include <memory>

/// The headers that other programs include once the build is installed.
class TestInstalledHeaders : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void allBelowOneFolder();
    void eachStandsAlone();
    void guardsNameTheLibrary();
    void programWithHeadersOfTheSameNames();
    void programWithoutTheFolder();

private:
    QStringList headers() const;

    std::unique_ptr<Workbench> workbench;
};

/// "config/config.h" of "zelmora/config/config.h".
static QString withoutFolder(const QString& header)
{
    return header.mid(8);
}

/// "CONFIG_CONFIG_H" of "config/config.h".
static QByteArray macroOf(const QString& header)
{
    return QString(header).replace(QRegularExpression("[/.]"), "_").toUpper().toLatin1();
}

/// An include of each header, between @p opening and @p closing.
static QByteArray includes(const QStringList& headers, const char* opening, const char* closing)
{
    QByteArray lines;
    for (const QString& header : headers)
        lines += "#include " + (opening + header.toUtf8()) + closing + '\n';
    return lines;
}

void TestInstalledHeaders::initTestCase()
{
    workbench = std::make_unique<Workbench>(QStringList(ZELMORA_BUILD));
}

void TestInstalledHeaders::cleanupTestCase()
{
    workbench.reset();
}

/// What programs include, such as "zelmora/config/config.h".
QStringList TestInstalledHeaders::headers() const
{
    QStringList headers;
    for (const QString& file : workbench->installedFiles("*"))
        if (file.startsWith("include/"))
            headers += file.mid(8);
    return headers;
}

void TestInstalledHeaders::allBelowOneFolder()
{
    QCOMPARE(
        headers(),
        QStringList({"zelmora/config/config.h", "zelmora/config/syncsingleton.h", "zelmora/config/zmconfiguration.h",
                     "zelmora/db/databasemanager.h", "zelmora/log/hlogmanager.h", "zelmora/log/logger.h",
                     "zelmora/toolkit/export.h", "zelmora/util/hlibrary.h", "zelmora/util/sleepthread.h"}));
}

// In a program that would be content with an older language, and without a warning: the compiler is told that these are
// no system headers.
void TestInstalledHeaders::eachStandsAlone()
{
    QByteArray project = "cmake_minimum_required(VERSION 3.25)\n"
                         "project(Headers LANGUAGES CXX)\n"
                         "set(CMAKE_CXX_STANDARD 14)\n"
                         "add_compile_options(-Wpedantic -Werror)\n"
                         "find_package(Zelmora 1.0 REQUIRED)\n"
                         "set_target_properties(Zelmora::config Zelmora::log Zelmora::util Zelmora::db\n"
                         "    PROPERTIES SYSTEM OFF)\n";
    for (const QString& header : headers()) {
        const QByteArray folder = header.section('/', 1, 1).toUtf8();
        const QByteArray component = folder == "toolkit" ? QByteArray("config") : folder; // no component of its own
        const QByteArray name = header.section('/', 2).chopped(2).toUtf8();
        workbench->addFile("headers", name + ".cpp", includes({header}, "<", ">"));
        project += "add_library(" + name + " OBJECT " + name + ".cpp)\n" + "target_link_libraries(" + name
            + " PRIVATE Zelmora::" + component + ")\n";
    }
    workbench->addFile("headers", "CMakeLists.txt", project);
    const Outcome outcome = workbench->configureAndBuild("headers");
    QVERIFY2(outcome.succeeded, outcome.said.constData());
}

// A guard that a program uses too would make its header, or ours, an empty one.
void TestInstalledHeaders::guardsNameTheLibrary()
{
    for (const QString& header : headers()) {
        const QByteArray guard = "ZELMORA_" + macroOf(withoutFolder(header)) + '\n';
        const QByteArray text = fileContents(workbench->installed("include/" + header));
        QVERIFY2(text.startsWith("#ifndef " + guard + "#define " + guard), qPrintable(header));
    }
}

// The program's own headers come first wherever the compiler looks; what each defines shows whether it was taken.
void TestInstalledHeaders::programWithHeadersOfTheSameNames()
{
    QStringList own;
    QByteArray checkNone, checkAll;
    for (const QString& header : headers()) {
        own += withoutFolder(header);
        const QByteArray macro = "OWN_" + macroOf(own.last());
        workbench->addFile("same names", own.last(), "#define " + macro + '\n');
        checkNone += "#ifdef " + macro + "\n#error The library has taken a header of the program.\n#endif\n";
        checkAll += "#ifndef " + macro + "\n#error The program has not got its own header.\n#endif\n";
    }
    QVERIFY(own.contains("config/config.h") && own.contains("log/logger.h"));

    const QByteArray project = "cmake_minimum_required(VERSION 3.25)\n"
                               "project(SameNames LANGUAGES CXX)\n"
                               "find_package(Zelmora 1.0 REQUIRED)\n"
                               "add_executable(till main.cpp)\n"
                               "target_include_directories(till BEFORE PRIVATE . config db log util)\n"
                               "target_link_libraries(till PRIVATE Zelmora::db)\n";
    const QByteArray program = "int main()\n"
                               "{\n"
                               "    SyncSingleton<HLogManager>::instance()->set(\"till\", \"\");\n"
                               "    return SyncSingleton<HLogManager>::instance()->getLog(\"\") ? 0 : 1;\n"
                               "}\n";
    workbench->makeProject("same names", project,
                           includes(headers(), "<", ">") + checkNone + includes(own, "\"", "\"")
                               + includes(own, "<", ">") + checkAll + program);
    const Outcome outcome = workbench->configureAndBuild("same names");
    QVERIFY2(outcome.succeeded, outcome.said.constData());
    QVERIFY(workbench->run(workbench->built("same names", "till"), {}).succeeded);
}

// There is one way to include a header.
void TestInstalledHeaders::programWithoutTheFolder()
{
    const QByteArray project = "cmake_minimum_required(VERSION 3.25)\n"
                               "project(WithoutFolder LANGUAGES CXX)\n"
                               "find_package(Zelmora 1.0 REQUIRED)\n"
                               "add_library(till OBJECT main.cpp)\n"
                               "target_link_libraries(till PRIVATE Zelmora::log)\n";
    workbench->makeProject("without folder", project, "#include <log/logger.h>\n");
    const Outcome outcome = workbench->configureAndBuild("without folder");
    QVERIFY(!outcome.succeeded);
    QVERIFY2(outcome.said.contains("log/logger.h: No such file or directory"), outcome.said.constData());
}

QTEST_GUILESS_MAIN(TestInstalledHeaders)
#include "tst_installedheaders.moc"
