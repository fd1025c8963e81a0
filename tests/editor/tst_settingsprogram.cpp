#include "support/programrun.h"

#include <QProcess>
#include <QtTest>

/// The real `zelmora-settings` in a process of its own, with a home of its own.
class TestSettingsProgram : public QObject {
    Q_OBJECT

private slots:
    void saysWithoutADisplay_data();
    void saysWithoutADisplay();
    void isWrongWithoutADisplay_data();
    void isWrongWithoutADisplay();
    void takesAFileWhoseNameBeginsLikeAnOption();
    void takesTheOptionOfASession();
    void opensTheUsersOwnFile();
    void opensTheFileThatIsNamed();
    void theUsersOwnFileIsMissing();
    void speaksTheLanguageOfTheDocuments();
    void aChangedWidthShowsOnTheNextReceipt();
    void remembersItsSizeInTheUsersHome();
};

/// The program, and the person at its keyboard.
class Editor {
public:
    Editor(const ProgramRun& run, const QStringList& arguments)
    {
        QProcessEnvironment environment;
        environment.insert("HOME", run.path("home"));
        environment.insert("LC_ALL", "C.UTF-8");
        environment.insert("XDG_RUNTIME_DIR", runtimeFolder.path());
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("QT_PLUGIN_PATH", ZELMORA_TEST_PLUGINS);
        environment.insert("QT_QPA_GENERIC_PLUGINS", "remotecontrol");
        for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
            if (qEnvironmentVariableIsSet(name))
                environment.insert(name, qEnvironmentVariable(name));
        }
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(QFileInfo(run.path("home")).path());
        program.start(ZELMORA_SETTINGS_PROGRAM, arguments);
    }

    ~Editor()
    {
        program.kill();
        program.waitForFinished();
    }

    void press(const char* keys) { send(QByteArray("press ") + keys); }
    void type(const QByteArray& text) { send("type " + text); }

    /// Whether what is shown becomes @p expected.
    bool shows(const QString& expected)
    {
        return QTest::qWaitFor(
            [&] {
                send("show");
                while (!program.canReadLine() && program.waitForReadyRead(20000)) {
                }
                lastShown = QString::fromUtf8(program.readLine()).trimmed();
                return lastShown == expected;
            },
            20000);
    }

    /// Whether it ends by itself, as it should, and has said nothing.
    bool ends()
    {
        const bool ended = program.waitForFinished(20000) && program.exitStatus() == QProcess::NormalExit;
        said = program.readAllStandardError();
        said.replace("This plugin does not support propagateSizeHints()\n", "");
        return ended && program.exitCode() == 0 && said.isEmpty();
    }

    QString lastShown;
    QByteArray said; ///< on standard error, but for what the platform without a screen says of itself

private:
    void send(const QByteArray& line)
    {
        program.write(line + '\n');
        program.waitForBytesWritten(20000);
    }

    QTemporaryDir runtimeFolder;
    QProcess program;
};

#define COMPARE_SHOWN(editor, expected) \
    QVERIFY2((editor).shows(expected), qPrintable("It shows: " + (editor).lastShown))

/// The program without a window, in surroundings that have no display.
static void startWithoutADisplay(ProgramRun& run, const QByteArray& arguments)
{
    run.setEnvironment("settings", ZELMORA_SETTINGS_PROGRAM);
    run.startShell("exec \"$settings\" " + arguments);
}

void TestSettingsProgram::saysWithoutADisplay_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<bool>("isHelp"); // otherwise the version
    QTest::newRow("the help") << QByteArray("--help") << true;
    QTest::newRow("the help, in short") << QByteArray("-h") << true;
    QTest::newRow("the help, beside a file") << QByteArray("other.conf --help") << true;
    QTest::newRow("the version") << QByteArray("--version") << false;
    QTest::newRow("the version, in short") << QByteArray("-v") << false;
}

void TestSettingsProgram::saysWithoutADisplay()
{
    QFETCH(QByteArray, arguments);
    QFETCH(bool, isHelp);
    ProgramRun run;
    startWithoutADisplay(run, arguments);
    QVERIFY(run.ended);
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
    const QByteArray version = "zelmora-settings " ZELMORA_VERSION "\n";
    const QByteArray usage = "Usage: " ZELMORA_SETTINGS_PROGRAM " [options] [file]\n";
    if (isHelp) {
        QVERIFY2(run.standardOutput.startsWith(usage), run.standardOutput);
        const QByteArray ownFile = run.path("home/.zelmora/conf/zelmora.conf").toUtf8();
        for (const QByteArray& word : {QByteArray("--help"), QByteArray("--version"), ownFile})
            QVERIFY2(run.standardOutput.contains(word), run.standardOutput);
    } else {
        QCOMPARE(run.standardOutput, version);
    }
}

void TestSettingsProgram::isWrongWithoutADisplay_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("an option that there is not")
        << QByteArray("--nonsense") << QByteArray("Unknown option 'nonsense'.");
    QTest::newRow("a short option that there is not") << QByteArray("-x") << QByteArray("Unknown option 'x'.");
    QTest::newRow("two files") << QByteArray("one.conf two.conf") << QByteArray("Only one file can be opened.");
    QTest::newRow("a value for the help") << QByteArray("--help=me") << QByteArray("Unexpected value after '--help'.");
}

void TestSettingsProgram::isWrongWithoutADisplay()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QByteArray, reason);
    ProgramRun run;
    startWithoutADisplay(run, arguments);
    QVERIFY(run.ended);
    QCOMPARE(run.standardOutput, QByteArray());
    QCOMPARE(run.standardError, reason + "\nTry '" ZELMORA_SETTINGS_PROGRAM " --help' for more information.\n");
    QCOMPARE(run.exitStatus, 2);
}

void TestSettingsProgram::takesAFileWhoseNameBeginsLikeAnOption()
{
    ProgramRun run;
    run.setSettings("zelmora: { a = b; };");
    const QString path = run.writeFile("--help", "zelmora: { a = c; };");
    Editor editor(run, {"--", "--help"});
    COMPARE_SHOWN(editor, path + "[*] - Settings|&File|&Edit|" + path);
    editor.press("Ctrl+Q");
    QVERIFY2(editor.ends(), editor.said.constData());
}

// Which a desktop adds when it brings a session back.
void TestSettingsProgram::takesTheOptionOfASession()
{
    ProgramRun run;
    run.setSettings("zelmora: { a = b; };");
    Editor editor(run, {"-session", "1_2_3"});
    const QString path = run.path("home/.zelmora/conf/zelmora.conf");
    COMPARE_SHOWN(editor, path + "[*] - Settings|&File|&Edit|" + path);
    editor.press("Ctrl+Q");
    QVERIFY2(editor.ends(), editor.said.constData());
}

void TestSettingsProgram::opensTheUsersOwnFile()
{
    ProgramRun run;
    run.setSettings("zelmora: { a = b; };");
    Editor editor(run, {});
    const QString path = run.path("home/.zelmora/conf/zelmora.conf");
    COMPARE_SHOWN(editor, path + "[*] - Settings|&File|&Edit|" + path);
    editor.press("Ctrl+Q");
    QVERIFY2(editor.ends(), editor.said.constData());
}

void TestSettingsProgram::opensTheFileThatIsNamed()
{
    ProgramRun run;
    run.setSettings("zelmora: { a = b; };");
    const QString path = run.writeFile("caff\u00E8.xml", "<zelmora a='c'/>");
    Editor editor(run, {QFileInfo(path).fileName()}); // from the folder that it is started in
    COMPARE_SHOWN(editor, path + "[*] - Settings|&File|&Edit|" + path);
    editor.press("Ctrl+F");
    editor.type("c");
    editor.press("Return");
    COMPARE_SHOWN(editor, path + "[*] - Settings|&File|&Edit|c");
    editor.press("Ctrl+Q");
    QVERIFY2(editor.ends(), editor.said.constData());
}

void TestSettingsProgram::theUsersOwnFileIsMissing()
{
    ProgramRun run;
    Editor editor(run, {});
    const QString path = run.path("home/.zelmora/conf/zelmora.conf");
    COMPARE_SHOWN(editor, "Error in the method FileReader::open( " + path + " ): File Not Found");
    COMPARE_SHOWN(editor, "Settings|The file " + path + " cannot be read: No such file or directory");
    editor.press("Return");
    COMPARE_SHOWN(editor, "no file[*] - Settings|&File|&Edit");
    editor.press("Ctrl+Q");
    QVERIFY2(editor.ends(), editor.said.constData());
}

void TestSettingsProgram::speaksTheLanguageOfTheDocuments()
{
    ProgramRun run;
    const QFileInfo catalogue(ZELMORA_CATALOGUE);
    run.setSettings("zelmora: { language: { basedir = " + catalogue.path().toUtf8()
                    + "/; file = " + catalogue.fileName().toUtf8() + "; }; };");
    Editor editor(run, {});
    const QString path = run.path("home/.zelmora/conf/zelmora.conf");
    COMPARE_SHOWN(editor, path + "[*] - Impostazioni|&File|&Modifica|" + path);
    editor.press("Ctrl+F");
    editor.type("basedir");
    editor.press("Return");
    editor.press("F2");
    editor.type("x");
    editor.press("Ctrl+Q");
    COMPARE_SHOWN(editor, "Impostazioni|Le impostazioni sono state modificate. Salvare le modifiche?");
}

/// The lines of a receipt's script from the titles of the columns to the total, with plain line ends.
static QByteArray rowsOf(QByteArray script)
{
    script.replace("\r\n", "\n");
    const int begin = script.indexOf("nofis riga='Qt");
    return script.mid(begin, script.indexOf('\n', script.indexOf("SOMMA")) + 1 - begin);
}

void TestSettingsProgram::aChangedWidthShowsOnTheNextReceipt()
{
    ProgramRun run;
    run.setSettings(fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf"));
    run.setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path() + "/..");
    const QByteArray job = fileContents(ZELMORA_EXAMPLES "/receipt.xml");
    const QByteArray before = rowsOf(run.print(job));
    // Quantity (3), " x " (3), price (6) and total (8) leave the dish 12 characters of 32, and 20 of 40.
    QVERIFY2(before.contains("\nnofis riga='  2 x Coperto.......2.50    5.00'\n"), before);

    Editor editor(run, {});
    editor.press("Ctrl+F");
    editor.type("receiptdoc");
    editor.press("Return");
    editor.press("Ctrl+F");
    editor.type("paperWidth");
    editor.press("Return");
    editor.press("F2");
    editor.type("40");
    editor.press("Return");
    editor.press("Ctrl+S");
    editor.press("Ctrl+Q");
    QVERIFY2(editor.ends(), editor.said.constData());
    const QByteArray after = rowsOf(run.print(job));
    QVERIFY2(after.contains("\nnofis riga='  2 x Coperto...............2.50    5.00'\n"), after);

    const QByteArray page = fileContents(ZELMORA_DOCS "/settings-editor.md");
    QVERIFY(page.contains("Before, with 32:\n\n```text\n" + before + "```\n"));
    QVERIFY(page.contains("After, with 40:\n\n```text\n" + after + "```\n"));
}

void TestSettingsProgram::remembersItsSizeInTheUsersHome()
{
    ProgramRun run;
    run.setSettings("zelmora: { a = b; };");
    Editor editor(run, {});
    editor.press("Ctrl+Q");
    QVERIFY2(editor.ends(), editor.said.constData());
    QVERIFY(fileContents(run.path("home/.config/zelmora/zelmora-settings.conf")).contains("geometry="));
}

QTEST_GUILESS_MAIN(TestSettingsProgram)
#include "tst_settingsprogram.moc"
