#include "support/checkrun.h"
#include "support/programrun.h"

#include <QtTest>

/// What bash, zsh and fish offer while a call is typed is what the pages say that can be typed.
class TestCompletion : public QObject {
    Q_OBJECT

private slots:
    void options_data();
    void options();
    void optionsOfCommands_data();
    void optionsOfCommands();
    void codes_data() { shells(); }
    void codes();
    void keys_data() { shells(); }
    void keys();
    void words_data();
    void words();
    void files_data();
    void files();
    void valuesAreNoOptions_data() { shells(); }
    void valuesAreNoOptions();
    void filesAreNoOptions_data() { shells(); }
    void filesAreNoOptions();
    void aProgramThatDoesNotRun_data();
    void aProgramThatDoesNotRun();

private:
    void shells();
};

namespace {

const QStringList allShells {"bash", "zsh", "fish"};

/// What @p shell offers at the end of @p line, sorted, in a folder with the files "job.xml" and "job two.xml" and the
/// folder "jobs": words without the mark that a shell puts behind a folder or before a blank, and without the option
/// that stands before "=" or the words before a comma.
QStringList offered(const QString& shell, const QString& line)
{
    ProgramRun run;
    run.setEnvironment("PATH", QFileInfo(ZELMORA_CHECK_PROGRAM).path() + ':' + qEnvironmentVariable("PATH"));
    run.setEnvironment("LC_ALL", "C.UTF-8");
    run.setEnvironment("shell", shell);
    run.setEnvironment("completions", ZELMORA_COMPLETIONS "/" + shell);
    run.setEnvironment("line", line);
    run.startShell("mkdir -p place/jobs && cd place && touch job.xml 'job two.xml' && " ZELMORA_OFFERED
                   " \"$shell\" \"$completions\" \"$line\"");
    if (run.exitStatus != 0 || !run.standardError.isEmpty())
        qFatal("%s: %s: %s", qPrintable(shell), qPrintable(line), run.standardError.constData());
    QStringList offers;
    for (QString offer : QString::fromUtf8(run.standardOutput).split('\n', Qt::SkipEmptyParts))
        offers += offer.remove('\\').remove(QRegularExpression("/$|^--[a-z]+=|^.*,"));
    offers.removeDuplicates();
    offers.sort();
    return offers;
}

/// bash leaves what was typed where nothing is offered.
bool offersNothing(const QString& shell, const QString& line)
{
    const QStringList offers = offered(shell, line);
    return offers.isEmpty() || offers == QStringList(line.section(' ', -1));
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

/// The rows of the tables below the headings @p headings of a page: their cells.
QVector<QStringList> rowsBelow(const QString& page, const QStringList& headings)
{
    QVector<QStringList> rows;
    bool isBelow = false;
    for (const QString& line : QString::fromUtf8(fileContents(ZELMORA_DOCS "/" + page)).split('\n')) {
        if (line.startsWith("## "))
            isBelow = headings.contains(line.mid(3));
        else if (isBelow && line.startsWith("| ") && !line.startsWith("|--"))
            rows += line.mid(2).split(" | ");
    }
    return rows;
}

/// The long options in @p text.
QStringList longOptions(const QString& text)
{
    QStringList names;
    for (QRegularExpressionMatchIterator found = QRegularExpression("--[a-z][a-z-]*").globalMatch(text);
         found.hasNext();)
        names += found.next().captured();
    return names;
}

/// Those that a page names in the first column of its tables of options and calls.
QStringList documentedOptions(const QString& page)
{
    QStringList options;
    for (const QStringList& row : rowsBelow(page, {"Options", "Calls"}))
        options += longOptions(row.first());
    options.removeDuplicates();
    return sorted(options);
}

/// Those that the page of zelmora-config gives to @p command.
QStringList documentedOptionsOf(const QString& command)
{
    QStringList options;
    for (const QStringList& row : rowsBelow("zelmora-config.md", {"Options"})) {
        const QString commands = row.at(1);
        const bool isNamed = commands.contains('`' + command + '`');
        if (commands.startsWith("all") ? !isNamed : isNamed)
            options += longOptions(row.first());
    }
    return sorted(options);
}

QStringList firstWords(const QByteArray& lines)
{
    QStringList words;
    for (const QString& line : QString::fromUtf8(lines).split('\n', Qt::SkipEmptyParts))
        words += line.section(' ', 0, 0);
    return sorted(words);
}

} // namespace

void TestCompletion::shells()
{
    QTest::addColumn<QString>("shell");
    for (const QString& shell : allShells)
        QTest::newRow(qPrintable(shell)) << shell;
}

void TestCompletion::options_data()
{
    QTest::addColumn<QString>("shell");
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("page");
    for (const QString& shell : allShells) {
        QTest::newRow(qPrintable(shell + " for zelmora-check")) << shell << "zelmora-check"
                                                                << "checking.md";
        QTest::newRow(qPrintable(shell + " for zelmora-config")) << shell << "zelmora-config"
                                                                 << "zelmora-config.md";
        QTest::newRow(qPrintable(shell + " for zelmora-paper")) << shell << "zelmora-paper"
                                                                << "paper.md";
        QTest::newRow(qPrintable(shell + " for zelmora-settings")) << shell << "zelmora-settings"
                                                                   << "settings-editor.md";
    }
}

void TestCompletion::options()
{
    QFETCH(QString, shell);
    QFETCH(QString, program);
    QFETCH(QString, page);
    const QStringList documented = documentedOptions(page);
    QVERIFY(documented.contains("--help"));
    QCOMPARE(offered(shell, program + " --"), documented);
}

void TestCompletion::optionsOfCommands_data()
{
    QTest::addColumn<QString>("shell");
    QTest::addColumn<QString>("command");
    for (const QString& shell : allShells) {
        for (const char* command : {"check", "list", "effective", "get", "set", "unset", "new", "convert"})
            QTest::newRow(qPrintable(shell + " for " + command)) << shell << QString(command);
    }
}

void TestCompletion::optionsOfCommands()
{
    QFETCH(QString, shell);
    QFETCH(QString, command);
    QCOMPARE(offered(shell, "zelmora-config " + command + " --"), documentedOptionsOf(command));
}

void TestCompletion::codes()
{
    QFETCH(QString, shell);
    CheckRun run;
    const QStringList codes = firstWords(run.output({"--codes"}));
    QVERIFY(codes.contains("too-wide"));
    QCOMPARE(offered(shell, "zelmora-check --exclude "), codes);
    QCOMPARE(offered(shell, "zelmora-config check --exclude "), codes);
    QCOMPARE(offered(shell, "zelmora-check --exclude too-wide,wrong-"), QStringList({"wrong-sum", "wrong-top-group"}));
}

void TestCompletion::keys()
{
    QFETCH(QString, shell);
    ProgramRun run(ZELMORA_CONFIG_PROGRAM);
    run.start({"list"});
    const QStringList keys = firstWords(run.standardOutput);
    QVERIFY(keys.contains("zelmora.receiptdoc.paperWidth"));
    for (const char* command : {"get", "set", "unset"})
        QCOMPARE(offered(shell, QString("zelmora-config %1 ").arg(command)), keys);
}

void TestCompletion::words_data()
{
    QTest::addColumn<QString>("shell");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("expected");
    for (const QString& shell : allShells) {
        const auto row = [&](const char* name, const QString& line, const QStringList& expected) {
            QTest::newRow(qPrintable(shell + ": " + name)) << shell << line << expected;
        };
        row("commands", "zelmora-config ", {"check", "convert", "effective", "get", "list", "new", "set", "unset"});
        row("commands behind an option", "zelmora-config --file a.conf u", {"unset"});
        row("groups", "zelmora-config list l", {"language", "logger"});
        row("methods", "zelmora-config effective printS", {"printSold", "printStatementOfAccount"});
        row("keys behind an option", "zelmora-config set --file a.conf zelmora.bin", {"zelmora.bin.path"});
        row("a form of the findings", "zelmora-check --format ", {"gcc", "json"});
        row("a form of the findings behind =", "zelmora-check --format=", {"gcc", "json"});
        row("the scale of a picture", "zelmora-paper --scale ", {"1", "2", "3", "4", "5", "6", "7", "8"});
    }
}

void TestCompletion::words()
{
    QFETCH(QString, shell);
    QFETCH(QString, line);
    QFETCH(QStringList, expected);
    QCOMPARE(offered(shell, line), expected);
}

void TestCompletion::files_data()
{
    QTest::addColumn<QString>("shell");
    QTest::addColumn<QString>("line");
    for (const QString& shell : allShells) {
        for (const char* line : {"zelmora-print j", "zelmora-print a.xml j", "zelmora-check j",
                                 "zelmora-check --settings j", "zelmora-paper -o j", "zelmora-config --file j",
                                 "zelmora-config convert j", "zelmora-config convert a.xml j", "zelmora-settings j"})
            QTest::newRow(qPrintable(shell + ": " + line)) << shell << QString(line);
    }
}

void TestCompletion::files()
{
    QFETCH(QString, shell);
    QFETCH(QString, line);
    QCOMPARE(offered(shell, line), QStringList({"job two.xml", "job.xml", "jobs"}));
}

void TestCompletion::valuesAreNoOptions()
{
    QFETCH(QString, shell);
    QVERIFY(offersNothing(shell, "zelmora-config set zelmora.bin.path --f"));
}

// Behind "--", which ends the options.
void TestCompletion::filesAreNoOptions()
{
    QFETCH(QString, shell);
    QVERIFY(offersNothing(shell, "zelmora-check -- --f"));
    QVERIFY(offersNothing(shell, "zelmora-config check -- --f"));
}

void TestCompletion::aProgramThatDoesNotRun_data()
{
    QTest::addColumn<QString>("program");
    for (const char* program : {"zelmora-check", "zelmora-config", "zelmora-paper", "zelmora-settings"})
        QTest::newRow(program) << QString(program);
}

// Nothing is written then: a build would take half a completion for a whole one.
void TestCompletion::aProgramThatDoesNotRun()
{
    QFETCH(QString, program);
    ProgramRun run;
    run.setEnvironment("PATH", qEnvironmentVariable("PATH"));
    run.setEnvironment("place", QFileInfo(ZELMORA_CHECK_PROGRAM).path());
    run.setEnvironment("broken", program);
    const QByteArray generate = ZELMORA_GENERATE " \"$PWD/programs\" \"$PWD/output\"";
    run.startShell("mkdir programs && ln -s \"$place\"/zelmora-* programs && " + generate
                   + " && rm -r output && ln -sf \"$(command -v false)\" \"programs/$broken\" && ! " + generate
                   + " && ! test -e output");
    QVERIFY2(run.exitStatus == 0, run.standardError.constData());
}

QTEST_GUILESS_MAIN(TestCompletion)
#include "tst_completion.moc"
