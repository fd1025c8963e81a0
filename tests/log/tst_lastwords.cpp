#include "logfile.h"

#include <QtTest>

/// Logging at the end of the process, by what goes then: each row is a program with the order in which it makes its
/// manager, its loggers and the objects that log when they go. To be run under the address sanitizer too.
class TestLastWords : public QObject {
    Q_OBJECT

private slots:
    void programEnds_data();
    void programEnds();
    void logThatCannotBeOpened();
    void managerAloneReadsNoSettings();
};

/// Runs @p command with the log @p log, a path in the run's folder.
static void run(ProgramRun& program, const QByteArray& command, const QString& level, const QString& log = "log")
{
    program.setSettings(logSettings(QDir(program.path("")).filePath(log), "APPEND", level));
    program.setEnvironment("lastwords", ZELMORA_LASTWORDS);
    program.setEnvironment("MALLOC_PERTURB_", "165"); // who uses what has gone finds nonsense
    program.startShell(command);
}

/// The records without those of a logger's beginning.
static QByteArrayList wordsIn(const ProgramRun& program)
{
    QByteArrayList words = records(program.path("log"));
    words.removeAll("DEBUG: Start Logger");
    return words;
}

void TestLastWords::programEnds_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArrayList>("logged");

    const auto row = [](const char* name, const QByteArray& steps, const QByteArrayList& logged) {
        QTest::newRow(name) << "\"$lastwords\" " + steps << logged;
    };
    const auto rowBeforeMain = [](const char* name, const QByteArray& steps, const QByteArrayList& logged) {
        QTest::newRow(name) << "SPEAKER_BEFORE_MAIN=yes \"$lastwords\" " + steps << logged;
    };
    const QByteArray words = "ERROR: words";
    const QByteArray last = "ERROR: last words";

    row("the logger is set before the static object is made", "set speaker", {last});
    row("the logger is set afterwards", "manager speaker set", {last});
    row("a line has been logged in between", "manager speaker set log", {words, last});
    row("a singleton", "manager singleton set", {last});
    row("two objects", "manager singleton set speaker", {last, last});
    row("the application first, then the logger, then a singleton", "application set singleton", {last});
    row("the application first, the logger last", "application manager singleton set", {last});
    row("the application last", "manager speaker set application", {last});
    row("set by another thread", "application manager speaker set-in-a-thread", {last});
    row("set a second time", "set speaker set", {last});
    row("ended by exit()", "application manager speaker set exit", {last});
    row("set by the object that goes", "manager late-setter", {last});
    row("set before, and once more by the object that goes", "manager late-setter set", {last});
    row("set by the object that goes, the settings being older", "settings manager late-setter set", {last});
    row("a logger of the program's own", "own-logger own-speaker", {last});
    row("a logger of the program's own, first used after the object was made",
        "application own-logger own-speaker own-log", {words, last});
    rowBeforeMain("an object made before main()", "set", {last});
    rowBeforeMain("an object made before main(), and a line", "set log", {words, last});
    rowBeforeMain("an object made before main(), and another in the end", "application set singleton", {last, last});
}

void TestLastWords::programEnds()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArrayList, logged);
    for (const char* level : {"DEBUG", "ERROR"}) {
        ProgramRun program;
        run(program, command, level);
        QCOMPARE(program.standardOutput + program.standardError, QByteArray());
        QCOMPARE(program.exitStatus, 0);
        QCOMPARE(wordsIn(program), logged);
    }
}

// Its name and the line about it pass through the locale's codec.
void TestLastWords::logThatCannotBeOpened()
{
    ProgramRun program;
    program.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    run(program, "\"$lastwords\" manager late-setter", "ERROR", "missing/caff\u00E8.log");
    QCOMPARE(program.standardOutput, QByteArray("Error in the method Logger::setType(APPEND)\n"));
    QCOMPARE(program.standardError, QByteArray());
    QCOMPARE(program.exitStatus, 0);
}

// There are none, and who needs none hears nothing of it.
void TestLastWords::managerAloneReadsNoSettings()
{
    ProgramRun program;
    program.setEnvironment("lastwords", ZELMORA_LASTWORDS);
    program.startShell("\"$lastwords\" manager");
    QCOMPARE(program.standardOutput + program.standardError, QByteArray());
    QCOMPARE(program.exitStatus, 0);
}

QTEST_GUILESS_MAIN(TestLastWords)
#include "tst_lastwords.moc"
