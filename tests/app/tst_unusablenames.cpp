#include "support/unusablenames.h"

#include "config/config.h"
#include "support/capture.h"
#include "support/examples.h"
#include "support/programrun.h"
#include "support/smalljob.h"
#include "toolkit/filereplacement.h"
#include "util/hlibrary.h"

#include <QtTest>

/// File names that are no UTF-8, everywhere but in the print program, which takes them: with Qt 6 they are refused,
/// with a reason where there is somebody to read it, and nothing is written, under that name or another.
class TestUnusableNames : public QObject {
    Q_OBJECT

private slots:
    void programs_data();
    void programs();
    void window();
    void config();
    void configOfXml();
    void copies();
    void replacement();
};

namespace {

const char settings[] = "zelmora: { bin: { path = b; }; receiptdoc: { paperWidth = 20; }; };";
const char script[] = "nofis apri\r\nnofis riga='a'\r\nnofis chiudi\r\n";

/// Makes the file "untouched" where the commands leave all as it is, by any name, and ends as they do.
QByteArray watched(const QByteArray& commands)
{
    return "export LC_ALL=C.UTF-8 name=$(printf 'caff\\350')\n"
           "mkdir -p d \"$name/.zelmora/conf\"; cp a.conf \"$name.conf\"; cp a.conf "
           "\"$name/.zelmora/conf/zelmora.conf\"\n"
           "cp a.txt \"$name.txt\"; cp a.txt \"d/$name.txt\"; cp job.xml \"$name.xml\"\n"
           "look() { { find .; find . -type f -exec cksum {} +; } | LC_ALL=C sort; }\n"
           "before=$(look)\n"
        + commands
        + "\nstatus=$?\n"
          "[ \"$(look)\" = \"$before\" ] && : > untouched\n"
          "rm -rf \"$name\"* d\nexit $status\n";
}

} // namespace

void TestUnusableNames::programs_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<int>("statusOnQt5");
    const auto row = [](const char* name, const char* program, const char* commands, int statusOnQt5 = 0) {
        QTest::newRow(name) << program << QByteArray(commands) << statusOnQt5;
    };
    const char* const check = ZELMORA_CHECK_PROGRAM;
    row("a job to check", check, R"("$program" "$name.xml" 2>&1)");
    row("a job to trace", check, R"("$program" --trace "$name.xml" 2>&1)");
    row("the check's settings", check, R"("$program" --settings "$name.conf" job.xml)");
    row("the home of the check", check, R"(HOME=$PWD/$name "$program" job.xml)");

    const char* const change = ZELMORA_CONFIG_PROGRAM;
    row("a file that is set", change, R"("$program" --file "$name.conf" set zelmora.bin.path c 2>&1)");
    row("a new file that is set", change, R"("$program" --file "${name}x.conf" set zelmora.bin.path c 2>&1)");
    row("a new file in a new folder", change, R"("$program" --file "${name}x/a.conf" set zelmora.bin.path c 2>&1)");
    row("a file that is unset", change, R"("$program" --file "$name.conf" unset zelmora.bin.path 2>&1)");
    row("a value", change, R"("$program" --file "$name.conf" get zelmora.bin.path 2>&1)");
    row("a list", change, R"("$program" --file "$name.conf" list bin 2>&1)");
    row("a file that is checked", change, R"("$program" --file "$name.conf" check 2>&1)");
    row("a file with all settings", change, R"("$program" --file "${name}x.conf" new 2>&1)");
    row("a file that is converted", change, R"("$program" convert "$name.conf" b.xml 2>&1)");
    row("a file that it is converted to", change, R"("$program" convert a.conf "${name}x.xml" 2>&1)");
    row("the home of the settings", change, R"(HOME=$PWD/$name "$program" set zelmora.bin.path c 2>&1)");
    row("a home without settings", change, R"(HOME=$PWD/${name}x "$program" set zelmora.bin.path c 2>&1)");

    const char* const paper = ZELMORA_PAPER_PROGRAM;
    row("a script to draw", paper, R"("$program" "$name.txt" 2>&1)");
    row("a job to draw", paper, R"("$program" "$name.xml" 2>&1)");
    row("a text to draw into", paper, R"("$program" -o "${name}x.txt" a.txt 2>&1)");
    row("a picture to draw into", paper, R"("$program" -o "${name}x.svg" a.txt 2>&1)");
    row("a script to compare", paper, R"("$program" --compare a.txt "$name.txt" 2>&1)");
    row("a script in a folder to compare", paper, R"("$program" --compare d d 2>&1)");
    row("the paper's settings", paper, R"("$program" --settings "$name.conf" job.xml 2>&1)");
    row("settings to rehearse", paper, R"("$program" --rehearse "$name.conf" job.xml 2>&1)");
    row("the home of the paper", paper, R"(HOME=$PWD/$name "$program" job.xml 2>&1)");
    row("the place of its temporary files", paper, R"(TMPDIR=$PWD/$name "$program" job.xml 2>&1)", 2);
}

void TestUnusableNames::programs()
{
    QFETCH(QString, program);
    QFETCH(QByteArray, commands);
    QFETCH(int, statusOnQt5);
    ProgramRun run(program);
    run.setSettings(settings);
    run.writeFile("a.conf", settings);
    run.writeFile("a.txt", script);
    run.writeFile("job.xml", smallJob);
    run.startShell(watched(commands));

    QVERIFY2(run.exitStatus == (refusesNames() ? 2 : statusOnQt5), run.remarks().constData());
    const bool isSaid = run.standardOutput.contains(nameRefused)
        || run.standardOutput.contains("Invalid or incomplete multibyte or wide character");
    QVERIFY2(isSaid == refusesNames(), run.remarks().constData());
    QVERIFY(QFile::exists(run.path("untouched")) || !refusesNames());
}

// It says so in a box, and what it keeps for itself goes nowhere.
void TestUnusableNames::window()
{
    if (!refusesNames())
        QSKIP("with Qt 5 the window has all names in UTF-8");
    ProgramRun run(ZELMORA_SETTINGS_PROGRAM);
    run.writeFile("a.conf", settings);
    run.setEnvironment("QT_QPA_PLATFORM", "offscreen");
    run.startShell("name=$(printf 'caff\\350'); mkdir \"$name\" runtime; chmod 700 runtime\n"
                   "export XDG_RUNTIME_DIR=$PWD/runtime HOME=$PWD/$name\n"
                   "\"$program\" a.conf & window=$!\n"
                   "for i in 1 2 3 4 5 6 7 8 9 10 11 12; do sleep 0.25; done\n"
                   "kill $window; wait\n"
                   "find . -name '*.conf' ! -name a.conf > kept\n"
                   "there=$(ls | LC_ALL=C sort)\n"
                   "echo \"$there\" > there\n"
                   "rm -r \"$name\"*\n");
    QCOMPARE(fileContents(run.path("kept")), QByteArray());
    QCOMPARE(fileContents(run.path("there")), QByteArray("a.conf\ncaff\xe8\ncommands.sh\nhome\nkept\nruntime\n"));
}

void TestUnusableNames::config()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(unusableName());
    writeBytes(folder.filePath("a.conf"), settings);
    libconfig::Config config(folder.filePath("a.conf"), "cfg");
    config.buildConfigFile(path);
    config.buildConfigXmlFile(path + ".xml");
    QCOMPARE(namesIn(folder.path()).size(), refusesNames() ? 1 : 3);

    // Something has the name that the toolkit would make of it.
    QVERIFY(QFile::exists(path) || QFile::copy(folder.filePath("a.conf"), path));
    const QByteArray said = captured(stdout, [&] { config.readFile(path, "cfg"); });
    QCOMPARE(config.lookup("zelmora.bin.path"), QString(refusesNames() ? "" : "b"));
    QCOMPARE(said.contains("File Not Found"), refusesNames());
}

void TestUnusableNames::configOfXml()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(unusableName());
    writeBytes(path, "<zelmora><bin path='b'/></zelmora>");
    const libconfig::Config config(path, "xml");
    QCOMPARE(config.lookup("zelmora.bin.path"), QString(refusesNames() ? "" : "b"));
}

void TestUnusableNames::copies()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(unusableName());
    writeBytes(folder.filePath("a"), "bytes");
    QCOMPARE(HLibrary::copy(folder.filePath("a"), path, 0u, 0u), !refusesNames());
    HLibrary::touch(path + "-touched");
    QCOMPARE(namesIn(folder.path()).size(), refusesNames() ? 1 : 3);

    writeBytes(path, "bytes");
    QCOMPARE(HLibrary::copy(path, folder.filePath("b"), 0u, 0u), !refusesNames());
    QCOMPARE(namesIn(folder.path()).contains("b"), !refusesNames());
}

void TestUnusableNames::replacement()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(unusableName());
    const QString reason = refusesNames() ? nameRefused : "";
    QCOMPARE(toolkit::replaceFile(path, "bytes"), reason);
    QCOMPARE(toolkit::replaceFileBeside(path, "~", "bytes"), reason);
    QCOMPARE(toolkit::replaceFileBeside(folder.filePath("a-"), unusableName(), "bytes"), reason);
    QCOMPARE(toolkit::createFile(path + "x", "bytes", QString()), reason);
    QCOMPARE(toolkit::createFile(folder.filePath("like"), "bytes", path), reason);
    QCOMPARE(namesIn(folder.path()).size(), refusesNames() ? 0 : 5);
}

QTEST_GUILESS_MAIN(TestUnusableNames)
#include "tst_unusablenames.moc"
