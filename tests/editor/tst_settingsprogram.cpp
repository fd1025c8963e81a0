#include "support/programrun.h"

#include <QProcess>
#include <QtTest>

#include <functional>

/// The real `zelmora-settings` in a process of its own, with a home of its own.
class TestSettingsProgram : public QObject {
    Q_OBJECT

private slots:
    void saysWithoutADisplay_data();
    void saysWithoutADisplay();
    void isWrongWithoutADisplay_data();
    void isWrongWithoutADisplay();
    void isWrongWithADisplay_data();
    void isWrongWithADisplay();
    void usesEveryDotOfTheScreen();
    void takesAFileWhoseNameBeginsLikeAnOption();
    void takesAnOptionOfTheToolkit_data();
    void takesAnOptionOfTheToolkit();
    void opensTheUsersOwnFile();
    void opensTheFileThatIsNamed();
    void theUsersOwnFileIsMissing();
    void speaksTheLanguageOfTheDocuments();
    void aChangedWidthShowsOnTheNextReceipt();
    void leavesNothingBehind_data();
    void leavesNothingBehind();
    void remembersItsSizeInTheUsersHome();
    void fitsTheScreen_data();
    void fitsTheScreen();
    void fitsAScreenSmallerThanTheLast();
    void boxesStandOverTheWindow_data();
    void boxesStandOverTheWindow();
};

/// Whether @p rows stand in @p paper one below the other, with nothing between them.
static bool holdsRows(const QStringList& paper, const QStringList& rows)
{
    for (int first = 0; first + rows.size() <= paper.size(); ++first) {
        if (paper.mid(first, rows.size()) == rows)
            return true;
    }
    return false;
}

/// The program, and the person at its keyboard.
class Editor {
public:
    /// @p setting: of the environment, "NAME=value".
    Editor(const ProgramRun& run, const QStringList& arguments, const QString& setting = QString())
    {
        QProcessEnvironment environment;
        environment.insert("HOME", run.path("home"));
        environment.insert("LC_ALL", "C.UTF-8");
        environment.insert("XDG_RUNTIME_DIR", runtimeFolder.path());
        environment.insert("QT_QPA_PLATFORM", qEnvironmentVariable("QT_QPA_PLATFORM"));
        environment.insert("QT_PLUGIN_PATH", ZELMORA_TEST_PLUGINS);
        environment.insert("QT_QPA_GENERIC_PLUGINS", "remotecontrol");
        for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
            if (qEnvironmentVariableIsSet(name))
                environment.insert(name, qEnvironmentVariable(name));
        }
        environment.insert(setting.section('=', 0, 0), setting.section('=', 1));
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
    void resize(const QByteArray& size) { send("resize " + size); }
    QStringList buttons() { return answerTo("buttons").split('|'); } ///< of a box
    QStringList attributes() { return answerTo("attributes").split('|'); } ///< of the application

    /// Whether what is shown becomes @p expected.
    bool shows(const QString& expected)
    {
        return QTest::qWaitFor(
            [&] {
                lastShown = answerTo("show");
                return lastShown == expected;
            },
            20000);
    }

    /// Whether what is shown comes to begin with @p expected.
    bool showsAtFirst(const QString& expected)
    {
        return QTest::qWaitFor(
            [&] {
                lastShown = answerTo("show");
                return lastShown.startsWith(expected);
            },
            20000);
    }

    QStringList paper() { return answerTo("paper").split('\x1e'); } ///< its rows

    /// Whether @p rows come to stand on the paper.
    bool hasPaper(const QStringList& rows)
    {
        return QTest::qWaitFor(
            [&] {
                const QStringList now = paper();
                lastShown = now.join('\n');
                return holdsRows(now, rows);
            },
            20000);
    }

    using Places = QHash<QString, QRect>;

    /// Whether what the person sees becomes as @p isGood wants it.
    bool isPlaced(const std::function<bool(const Places&)>& isGood)
    {
        return QTest::qWaitFor(
            [&] {
                lastShown = answerTo("measure");
                Places places;
                for (const QString& place : lastShown.split('|', Qt::SkipEmptyParts)) {
                    const QStringList words = place.split(' ');
                    places.insert(words[0],
                                  QRect(words[1].toInt(), words[2].toInt(), words[3].toInt(), words[4].toInt()));
                }
                return isGood(places);
            },
            20000);
    }

    /// Whether it ends by itself when it is told to, as it should, and has said nothing.
    bool quits()
    {
        press("Ctrl+Q");
        const bool ended = program.waitForFinished(20000) && program.exitStatus() == QProcess::NormalExit;
        said = program.readAllStandardError();
        said.replace("This plugin does not support propagateSizeHints()\n", "");
        return ended && program.exitCode() == 0 && said.isEmpty();
    }

    /// Whether it ends when the system asks it to.
    bool endsWhenAsked()
    {
        program.terminate();
        return program.waitForFinished(20000);
    }

    QString lastShown;
    QByteArray said; ///< on standard error, but for what the platform without a screen says of itself

private:
    QString answerTo(const QByteArray& question)
    {
        send(question);
        while (!program.canReadLine() && program.waitForReadyRead(20000)) {
        }
        QString line = QString::fromUtf8(program.readLine());
        line.chop(1);
        return line;
    }

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

#define VERIFY_QUITS(editor) QVERIFY2((editor).quits(), (editor).said.constData())

/// What it shows of the file @p path when that is open and nothing else was done.
static QString openedFile(const QString& path)
{
    return path + "[*] - Settings|&File|&Edit|&View|&Paper|&Help";
}

/// The program when it is to end before it opens a window, in surroundings that have no display.
static void startWithoutADisplay(ProgramRun& run, const QByteArray& arguments)
{
    run.setEnvironment("settings", ZELMORA_SETTINGS_PROGRAM);
    run.startShell("exec \"$settings\" " + arguments);
}

static void startWithADisplay(ProgramRun& run, const QByteArray& arguments)
{
    run.setEnvironment("QT_QPA_PLATFORM", "offscreen");
    run.setEnvironment("XDG_RUNTIME_DIR", run.path("."));
    startWithoutADisplay(run, arguments);
}

void TestSettingsProgram::saysWithoutADisplay_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<bool>("isHelp"); // otherwise the version
    QTest::newRow("the help") << QByteArray("--help") << true;
    QTest::newRow("the help, in short") << QByteArray("-h") << true;
    QTest::newRow("the help, beside a file") << QByteArray("other.conf --help") << true;
    QTest::newRow("the help, beside a toolkit's option") << QByteArray("-style fusion --help") << true;
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

/// Calls that are wrong wherever they are made.
static void addWrongCalls()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("an option that there is not")
        << QByteArray("--nonsense") << QByteArray("Unknown option 'nonsense'.");
    QTest::newRow("a short option that there is not") << QByteArray("-x") << QByteArray("Unknown option 'x'.");
    QTest::newRow("an option that there is not, behind a toolkit's")
        << QByteArray("-style fusion -nonsense") << QByteArray("Unknown option 'nonsense'.");
    QTest::newRow("a toolkit's option without its value")
        << QByteArray("a.conf -style") << QByteArray("Missing value after '-style'.");
    QTest::newRow("two files") << QByteArray("one.conf two.conf") << QByteArray("Only one file can be opened.");
    QTest::newRow("two files, beside a toolkit's option")
        << QByteArray("one.conf -reverse two.conf") << QByteArray("Only one file can be opened.");
    QTest::newRow("a value for the help") << QByteArray("--help=me") << QByteArray("Unexpected value after '--help'.");
}

/// Whether the program has said @p reason and ended with the status of a wrong call.
static void compareRefusal(const ProgramRun& run, const QByteArray& reason)
{
    QVERIFY(run.ended);
    QCOMPARE(run.standardOutput, QByteArray());
    QCOMPARE(run.standardError, reason + "\nTry '" ZELMORA_SETTINGS_PROGRAM " --help' for more information.\n");
    QCOMPARE(run.exitStatus, 2);
}

void TestSettingsProgram::isWrongWithoutADisplay_data()
{
    addWrongCalls();
    // Each value would be an unknown option too, if it were not taken for a value.
    QTest::newRow("an option that there is not, behind those that need a display")
        << QByteArray("-dograb -display --a -nograb -geometry --b -testability -icon --c -widgetcount -name --d "
                      "-title --e -visual --f -qwindowtitle --g --nonsense")
        << QByteArray("Unknown option 'nonsense'.");
}

void TestSettingsProgram::isWrongWithoutADisplay()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QByteArray, reason);
    ProgramRun run;
    startWithoutADisplay(run, arguments);
    compareRefusal(run, reason);
}

void TestSettingsProgram::isWrongWithADisplay_data()
{
    addWrongCalls();
    QTest::newRow("an option of another platform")
        << QByteArray("-geometry 600x500") << QByteArray("Unknown option 'geometry'.");
    QTest::newRow("a form that the toolkit does not know")
        << QByteArray("-platform=offscreen") << QByteArray("Unknown option 'platform'.");
}

void TestSettingsProgram::isWrongWithADisplay()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QByteArray, reason);
    ProgramRun run;
    startWithADisplay(run, arguments);
    compareRefusal(run, reason);
}

// What is drawn is scaled as a whole, and its pictures are as sharp as the screen.
void TestSettingsProgram::usesEveryDotOfTheScreen()
{
    ProgramRun run;
    run.setSettings("zelmora: { bin: { path = b; }; };");
    Editor editor(run, {});
    if (qVersion()[0] > '5') // which has it so in any case
        QSKIP("no attributes are asked for");
    const QStringList attributes = editor.attributes();
    for (const char* name : {"AA_EnableHighDpiScaling", "AA_UseHighDpiPixmaps"})
        QVERIFY2(attributes.contains(name), qPrintable(attributes.join('|')));
    VERIFY_QUITS(editor);
}

void TestSettingsProgram::takesAFileWhoseNameBeginsLikeAnOption()
{
    ProgramRun run;
    run.setSettings("zelmora: { bin: { path = b; }; };");
    const QString path = run.writeFile("--help", "zelmora: { bin: { path = c; }; };");
    Editor editor(run, {"--", "--help"});
    COMPARE_SHOWN(editor, openedFile(path));
    VERIFY_QUITS(editor);
}

void TestSettingsProgram::takesAnOptionOfTheToolkit_data()
{
    QTest::addColumn<QStringList>("option");
    QTest::addColumn<QString>("setting"); // without the option, the test could not go well with it
    QTest::newRow("the platform") << QStringList {"-platform", "offscreen"} << "QT_QPA_PLATFORM=xcb";
    QTest::newRow("the platform, with two dashes") << QStringList {"--platform", "offscreen"} << "QT_QPA_PLATFORM=xcb";
    QTest::newRow("the folder of the platforms") << QStringList {"-platformpluginpath", "/"} << QString();
    QTest::newRow("the theme") << QStringList {"-platformtheme", "generic"} << QString();
    QTest::newRow("a plug-in") << QStringList {"-plugin", "remotecontrol"} << "QT_QPA_GENERIC_PLUGINS=";
    QTest::newRow("the place of the window") << QStringList {"-qwindowgeometry", "600x500"} << QString();
    QTest::newRow("the picture of the window") << QStringList {"-qwindowicon", "none.png"} << QString();
    QTest::newRow("from right to left") << QStringList {"-reverse"} << QString();
    // Which a desktop adds when it brings a session back.
    QTest::newRow("the session") << QStringList {"-session", "1_2_3"} << QString();
    QTest::newRow("the style") << QStringList {"-style", "fusion"} << QString();
    QTest::newRow("the style, in one word") << QStringList {"-style=fusion"} << QString();
    QTest::newRow("the sheet of styles") << QStringList {"-stylesheet", "/dev/null"} << QString();
}

void TestSettingsProgram::takesAnOptionOfTheToolkit()
{
    QFETCH(QStringList, option);
    QFETCH(QString, setting);
    ProgramRun run;
    run.setSettings("zelmora: { bin: { path = b; }; };");
    const QString path = run.writeFile("other.conf", "zelmora: { bin: { path = c; }; };");
    Editor editor(run, option + QStringList {path}, setting);
    COMPARE_SHOWN(editor, openedFile(path));
    VERIFY_QUITS(editor);
}

void TestSettingsProgram::opensTheUsersOwnFile()
{
    ProgramRun run;
    run.setSettings("zelmora: { bin: { path = b; }; };");
    Editor editor(run, {});
    const QString path = run.path("home/.zelmora/conf/zelmora.conf");
    COMPARE_SHOWN(editor, openedFile(path));
    VERIFY_QUITS(editor);
}

void TestSettingsProgram::opensTheFileThatIsNamed()
{
    ProgramRun run;
    run.setSettings("zelmora: { bin: { path = b; }; };");
    const QString path = run.writeFile("caff\u00E8.xml", "<zelmora><bin path='c'/></zelmora>");
    Editor editor(run, {QFileInfo(path).fileName()}); // from the folder that it is started in
    COMPARE_SHOWN(editor, openedFile(path));
    editor.press("Ctrl+2");
    editor.press("Ctrl+F");
    editor.type("c");
    editor.press("Return");
    COMPARE_SHOWN(editor, openedFile(path) + "|c");
    VERIFY_QUITS(editor);
}

void TestSettingsProgram::theUsersOwnFileIsMissing()
{
    ProgramRun run;
    Editor editor(run, {});
    const QString path = run.path("home/.zelmora/conf/zelmora.conf");
    COMPARE_SHOWN(editor, "Error in the method FileReader::open( " + path + " ): File Not Found");
    COMPARE_SHOWN(editor, openedFile(path));
    editor.press("Ctrl+S"); // nothing yet, but a file to be changed
    VERIFY_QUITS(editor);
    QCOMPARE(fileContents(path), QByteArray());
}

void TestSettingsProgram::speaksTheLanguageOfTheDocuments()
{
    ProgramRun run;
    const QFileInfo catalogue(ZELMORA_CATALOGUE);
    run.setSettings("zelmora: { language: { basedir = " + catalogue.path().toUtf8()
                    + "/; file = " + catalogue.fileName().toUtf8() + "; }; };");
    Editor editor(run, {});
    const QString path = run.path("home/.zelmora/conf/zelmora.conf");
    QVERIFY2(editor.showsAtFirst(path + "[*] - Impostazioni|&File|&Modifica|"), qPrintable(editor.lastShown));
    editor.press("Ctrl+F");
    editor.type("basedir");
    editor.press("Return");
    editor.type("x");
    editor.press("Ctrl+Q");
    COMPARE_SHOWN(editor, "Impostazioni|Le impostazioni sono state modificate. Salvare le modifiche?");
    QCOMPARE(editor.buttons(), QStringList({"Annulla", "Salva", "Scarta"})); // the toolkit's own texts
}

/// The lines of a receipt's script from the titles of the columns to the total, with plain line ends.
static QByteArray rowsOf(QByteArray script)
{
    script.replace("\r\n", "\n");
    const int begin = script.indexOf("nofis riga='Qt");
    return script.mid(begin, script.indexOf('\n', script.indexOf("SOMMA")) + 1 - begin);
}

/// The texts of these commands, as they stand on paper.
static QStringList textsOf(const QByteArray& rows)
{
    QStringList texts;
    for (const QByteArray& row : rows.trimmed().split('\n'))
        texts += QString::fromUtf8(row.mid(int(strlen("nofis riga='"))).chopped(1));
    return texts;
}

void TestSettingsProgram::aChangedWidthShowsOnTheNextReceipt()
{
    ProgramRun run;
    // With the catalogue's whole path, and nobody else who may read the password: nothing is to be said of the file.
    const QByteArray catalogues = QFileInfo(ZELMORA_CATALOGUE).path().toUtf8();
    run.setSettings(fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf")
                        .replace("\"translations/\"", '"' + catalogues + "/\""));
    setPermissions(run.path("home/.zelmora/conf/zelmora.conf"), 0600);
    const QByteArray job = fileContents(ZELMORA_EXAMPLES "/receipt.xml");
    const QByteArray before = rowsOf(run.print(job));
    // Quantity (3), " x " (3), price (6) and total (8) leave the dish 12 characters of 32, and 20 of 40.
    QVERIFY2(before.contains("\nnofis riga='  2 x Coperto.......2.50    5.00'\n"), before);

    Editor editor(run, {});
    QVERIFY(editor.showsAtFirst(run.path("home/.zelmora/conf/zelmora.conf")));
    editor.press("Ctrl+F");
    editor.type("paperWidth");
    editor.press("Return"); // in the receipt's group, with which the window begins
    QVERIFY2(editor.hasPaper(textsOf(before)), qPrintable(editor.lastShown)); // as it prints
    editor.type("40");
    // Not saved yet: the printed rows are those that the paper shows then.
    QVERIFY2(editor.hasPaper({"  2 x Coperto...............2.50    5.00"}), qPrintable(editor.lastShown));
    const QStringList paper = editor.paper();
    editor.press("Ctrl+S");
    VERIFY_QUITS(editor);
    const QByteArray after = rowsOf(run.print(job));
    QVERIFY2(holdsRows(paper, textsOf(after)), qPrintable(paper.join('\n')));
    QVERIFY2(after.contains("\nnofis riga='  2 x Coperto...............2.50    5.00'\n"), after);

    const QByteArray page = fileContents(ZELMORA_DOCS "/settings-editor.md");
    QVERIFY(page.contains("Before, with 32:\n\n```text\n" + before + "```\n"));
    QVERIFY(page.contains("After, with 40:\n\n```text\n" + after + "```\n"));
}

void TestSettingsProgram::leavesNothingBehind_data()
{
    QTest::addColumn<bool>("isAsked");
    QTest::newRow("when it is quit") << false;
    QTest::newRow("when the system asks it to end") << true;
}

// What is printed for the paper has a home of its own, with a password in it, while the window stands.
void TestSettingsProgram::leavesNothingBehind()
{
    QFETCH(bool, isAsked);
    ProgramRun run;
    run.setSettings("zelmora: { bin: { path = b; }; };");
    const QString scratch = run.path("scratch");
    QVERIFY(QDir().mkpath(scratch));
    Editor editor(run, {}, "TMPDIR=" + scratch);
    QVERIFY(QTest::qWaitFor([&] { return !filesIn(scratch).isEmpty(); }, 20000));
    if (isAsked)
        QVERIFY(editor.endsWhenAsked());
    else
        VERIFY_QUITS(editor);
    QCOMPARE(filesIn(scratch), QStringList());
}

void TestSettingsProgram::remembersItsSizeInTheUsersHome()
{
    ProgramRun run;
    run.setSettings("zelmora: { bin: { path = b; }; };");
    Editor editor(run, {});
    VERIFY_QUITS(editor);
    QVERIFY(fileContents(run.path("home/.config/zelmora/zelmora-settings.conf")).contains("geometry="));
}

// The platform without a screen has one of 800 by 600 dots all the same, and frames of two dots on each side.

static bool mainWindowFits(const Editor::Places& places)
{
    return places["screen"].contains(places["main"]) && places["main"].contains(places["status"]);
}

void TestSettingsProgram::fitsTheScreen_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<QSize>("leastSize");
    // Room for a frame, as wide as they get, may be left free.
    QTest::newRow("a small screen") << "QT_SCALE_FACTOR=1" << QSize(800, 600) << QSize(480, 550);
    QTest::newRow("at twice the scale") << "QT_SCALE_FACTOR=2" << QSize(400, 300) << QSize(380, 260);
    QTest::newRow("a screen with twice the dots") << "QT_FONT_DPI=192" << QSize(400, 300) << QSize(380, 260);
    QTest::newRow("a large screen") << "QT_SCALE_FACTOR=0.5" << QSize(1600, 1200) << QSize(480, 640);
}

void TestSettingsProgram::fitsTheScreen()
{
    QFETCH(QString, setting);
    QFETCH(QSize, screen);
    QFETCH(QSize, leastSize);
    ProgramRun run;
    run.setSettings("zelmora: { bin: { path = b; }; };");
    Editor editor(run, {}, setting);
    const auto isGood = [&](const Editor::Places& places) {
        return mainWindowFits(places) && places["screen"].size() == screen
            && places["main"].size().expandedTo(leastSize) == places["main"].size();
    };
    QVERIFY2(editor.isPlaced(isGood), qPrintable("It has: " + editor.lastShown));
    VERIFY_QUITS(editor);
}

void TestSettingsProgram::fitsAScreenSmallerThanTheLast()
{
    ProgramRun run;
    run.setSettings("zelmora: { bin: { path = b; }; };");
    {
        Editor editor(run, {}, "QT_SCALE_FACTOR=0.85"); // 941 by 705
        QVERIFY(editor.isPlaced(mainWindowFits));
        editor.resize("700 680");
        QVERIFY(editor.isPlaced([](const Editor::Places& places) { return places["main"].height() >= 680; }));
        VERIFY_QUITS(editor);
    }
    Editor editor(run, {});
    const auto isGood = [&](const Editor::Places& places) {
        return mainWindowFits(places) && places["main"].width() >= 700;
    };
    QVERIFY2(editor.isPlaced(isGood), qPrintable("It has: " + editor.lastShown));
}

void TestSettingsProgram::boxesStandOverTheWindow_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("setting");
    const QByteArray good = "zelmora: { bin: { path = b; }; };";
    const QByteArray full = good + QByteArray("other: { a = b; };").repeated(20)
        + QByteArray("a remark of some length between two groups; and a second one: { # here = too; };\n").repeated(20);
    for (const QString scale : {"1", "2"}) {
        const QString setting = "QT_SCALE_FACTOR=" + scale;
        const auto row = [&](const char* name) -> QTestData& {
            return QTest::newRow(qPrintable(QString(name) + ", at scale " + scale));
        };
        row("the first message") << QByteArray("other: { a = b; };") << QString() << setting;
        row("many things to tell") << full << "Alt+W" << setting;
        row("the dialog to open a file") << good << "Ctrl+O" << setting;
        row("the dialog to save a file") << good << "Ctrl+Shift+S" << setting;
    }
}

void TestSettingsProgram::boxesStandOverTheWindow()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, keys);
    QFETCH(QString, setting);
    ProgramRun run;
    run.setSettings(settings);
    Editor editor(run, {}, setting);
    if (!keys.isEmpty()) {
        QVERIFY(editor.isPlaced(mainWindowFits));
        editor.press(qPrintable(keys));
    }
    const auto isGood = [](const Editor::Places& places) {
        const QRect box = places["window"];
        const QPoint besides = box.center() - places["main"].center();
        const bool isAtTheEdge = !places["screen"].adjusted(2, 2, -2, -2).contains(box);
        return mainWindowFits(places) && box != places["main"] && places["screen"].contains(box)
            && box.contains(places["button"]) && places["main"].contains(box.center())
            && (isAtTheEdge || (std::abs(besides.x()) <= 15 && std::abs(besides.y()) <= 40));
    };
    QVERIFY2(editor.isPlaced(isGood), qPrintable("It has: " + editor.lastShown));
}

QTEST_GUILESS_MAIN(TestSettingsProgram)
#include "tst_settingsprogram.moc"
