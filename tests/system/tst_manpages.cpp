#include "support/programrun.h"

#include <QtTest>

/// The man pages say what the pages in docs/ say, in the form of a manual. They are made by pandoc: without it this
/// fails.
class TestManPages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void everyPage_data();
    void everyPage();
    void optionsAreThoseOfTheProgram_data();
    void optionsAreThoseOfTheProgram();
    void callsAreShownAsCalls();
    void tables();
    void references();
    void noNameIsTorn_data();
    void noNameIsTorn();
};

static const QDir pages(ZELMORA_MAN_PAGES);

struct Page {
    const char* name;
    const char* document;
    QStringList sections; ///< those that a manual has by custom, and some of the page's own, which stand before them
};

static const Page all[] = {
    {"zelmora-print.1",
     "zelmora-print.md",
     {"NAME", "SYNOPSIS", "DESCRIPTION", "EXIT STATUS", "ENVIRONMENT", "FILES", "SEE ALSO"}},
    {"zelmora-check.1",
     "checking.md",
     {"NAME", "SYNOPSIS", "DESCRIPTION", "WHAT IT SAYS", "ALL CODES", "OPTIONS", "EXIT STATUS", "SEE ALSO"}},
    {"zelmora-config.1",
     "zelmora-config.md",
     {"NAME", "SYNOPSIS", "DESCRIPTION", "COMMANDS", "WHAT IS CHANGED", "OPTIONS", "EXIT STATUS", "FILES", "SEE ALSO"}},
    {"zelmora-paper.1", "paper.md", {"NAME", "SYNOPSIS", "DESCRIPTION", "CALLS", "OPTIONS", "EXIT STATUS", "SEE ALSO"}},
    {"zelmora-settings.1",
     "settings-editor.md",
     {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "FILES", "SEE ALSO"}},
    {"zelmora.conf.5", "settings-file.md", {"NAME", "DESCRIPTION", "GRAMMAR", "DOCUMENTS", "SEE ALSO"}},
    {"zelmora-job.5", "job-file.md", {"NAME", "DESCRIPTION", "SHAPE", "METHOD", "SEE ALSO"}},
};

/// What a terminal of @p columns columns shows of a page; warnings are a failure.
static QString shown(const QString& page, int columns = 80)
{
    ProgramRun run;
    run.setEnvironment("LC_ALL", "C.UTF-8");
    run.setEnvironment("MANWIDTH", QString::number(columns));
    run.setEnvironment("PATH", qEnvironmentVariable("PATH"));
    run.setEnvironment("page", pages.filePath(page));
    run.startShell("man --warnings --local-file \"$page\"");
    if (run.exitStatus != 0 || !run.standardError.isEmpty())
        qFatal("man %s: %s", qPrintable(page), run.standardError.constData());
    return QString::fromUtf8(run.standardOutput);
}

/// The text below a heading of the first level, up to the next.
static QString section(const QString& text, const QString& heading)
{
    const int begin = text.indexOf('\n' + heading + '\n');
    if (begin < 0)
        qFatal("There is no section %s.", qPrintable(heading));
    const int end = text.indexOf(QRegularExpression("\n\\S"), begin + heading.size());
    return text.mid(begin, end - begin);
}

/// The lines of the blocks that stand as they are, without the blanks at their beginnings and ends.
static QSet<QString> displayedLines(const QString& document)
{
    QSet<QString> lines;
    bool isInBlock = false;
    for (const QString& line : QString::fromUtf8(fileContents(ZELMORA_DOCS "/" + document)).split('\n')) {
        if (line.startsWith("```"))
            isInBlock = !isInBlock;
        else if (isInBlock)
            lines += line.trimmed();
    }
    return lines;
}

void TestManPages::initTestCase()
{
    QStringList expected;
    for (const Page& page : all)
        expected += page.name;
    expected.sort();
    QCOMPARE(pages.entryList({"*.[15]"}, QDir::Files, QDir::Name), expected);
}

void TestManPages::everyPage_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QStringList>("sections");
    for (const Page& page : all)
        QTest::newRow(page.name) << QString(page.document) << page.sections;
}

void TestManPages::everyPage()
{
    QFETCH(QString, document);
    QFETCH(QStringList, sections);
    const QString text = shown(QTest::currentDataTag());
    const QStringList lines = text.split('\n');

    QStringList found;
    for (const QString& line : lines) {
        if (sections.contains(line))
            found += line;
    }
    QCOMPARE(found, sections); // in this order
    QVERIFY2(lines.at(lines.size() - 2).startsWith("Zelmora print " ZELMORA_VERSION " "), qPrintable(lines.last()));
    QVERIFY(QRegularExpression("\nNAME\n +" + QFileInfo(QTest::currentDataTag()).completeBaseName() + " - \\w.*\\w\n")
                .match(text)
                .hasMatch());

    const QSet<QString> displayed = displayedLines(document);
    for (const QString& line : lines) {
        if (displayed.contains(line.trimmed()))
            continue;
        QVERIFY2(line.size() <= 80, qPrintable(line));
        QVERIFY2(!line.contains(QRegularExpression("\\]\\(|`|\\*\\*\\w")), qPrintable(line));
    }
}

void TestManPages::optionsAreThoseOfTheProgram_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("zelmora-check.1") << ZELMORA_CHECK_PROGRAM;
    QTest::newRow("zelmora-config.1") << ZELMORA_CONFIG_PROGRAM;
    QTest::newRow("zelmora-paper.1") << ZELMORA_PAPER_PROGRAM;
    QTest::newRow("zelmora-settings.1") << ZELMORA_SETTINGS_PROGRAM;
}

/// All names of options in @p text: "-h", "--help".
static QSet<QString> optionsIn(const QString& text, const QString& pattern)
{
    QSet<QString> options;
    const QRegularExpression lines(pattern, QRegularExpression::MultilineOption);
    const QRegularExpression names("(?<![\\w-])--?[a-z][a-z-]*");
    for (QRegularExpressionMatchIterator line = lines.globalMatch(text); line.hasNext();) {
        for (QRegularExpressionMatchIterator name = names.globalMatch(line.next().captured()); name.hasNext();)
            options += name.next().captured();
    }
    return options;
}

void TestManPages::optionsAreThoseOfTheProgram()
{
    QFETCH(QString, program);
    ProgramRun run(program);
    run.start({"--help"});
    const QSet<QString> taken = optionsIn(QString::fromUtf8(run.standardOutput), "^  (-., )?--?[a-z].*?(  |$)");
    QVERIFY(taken.contains("--help") && taken.contains("-v"));
    const QString page = shown(QTest::currentDataTag());
    const QString calls = page.contains("\nCALLS\n") ? section(page, "CALLS") : QString();
    QCOMPARE(optionsIn(calls + section(page, "OPTIONS"), "^       (zelmora-paper )?-.*$"), taken);
}

void TestManPages::callsAreShownAsCalls()
{
    const QByteArray page = fileContents(pages.filePath("zelmora-paper.1"));
    QVERIFY(page.contains("\n\\f[B]zelmora-paper\\f[R] \\f[B]--compare\\f[R] \\f[I]OLD\\f[R] \\f[I]NEW\\f[R]\n"));
    QVERIFY(shown("zelmora-paper.1").contains("\n       zelmora-paper [OPTION]... --rehearse FILE JOB...\n"));
}

void TestManPages::tables()
{
    const QString settings = shown("zelmora.conf.5");
    // One that has room.
    QVERIFY(settings.contains("\n       Key     What it does                       Has an effect in   Absent\n"
                              "       style   nothing: no document has a style   none               empty\n"));
    // One that has none: a term, what it is, and the other columns by their headings.
    QVERIFY(settings.contains("\n       totalPriceFieldWidth\n"
                              "              total column\n"
                              "              Has an effect in: prefiscaldoc, receiptdoc, invoicedoc, solddoc\n"
                              "              Absent or malformed: 0\n"));
}

void TestManPages::references()
{
    // The name of a page stands for its file, and behind other words; the page itself is no reference.
    QVERIFY(section(shown("zelmora-job.5"), "DESCRIPTION")
                .simplified()
                .contains("are in zelmora.conf(5), the commands that come out in register-script.md."));
    QVERIFY(
        section(shown("zelmora-check.1"), "DESCRIPTION").simplified().contains("what a job (zelmora-job(5)) would"));
    QCOMPARE(section(shown("zelmora.conf.5"), "SEE ALSO").simplified(),
             QString("SEE ALSO zelmora-config(1), zelmora-settings(1), zelmora-job(5) "
                     "In share/doc/zelmora/docs: library.md, register-script.md"));

    QStringList known;
    for (const Page& page : all)
        known += QString(page.name).replace(QRegularExpression("\\.(.)$"), "(\\1)");
    const QRegularExpression reference("[a-z.-]+\\([1-9]\\)");
    for (const Page& page : all) {
        for (QRegularExpressionMatchIterator found = reference.globalMatch(shown(page.name)); found.hasNext();) {
            const QString name = found.next().captured();
            QVERIFY2(known.contains(name), qPrintable(name));
        }
    }
}

void TestManPages::noNameIsTorn_data()
{
    QTest::addColumn<int>("columns");
    for (const int columns : {80, 90, 100, 120})
        QTest::newRow(qPrintable(QString("at %1 columns").arg(columns))) << columns;
}

// A hyphen at the end of a line would be one that the name does not have, or the one that a search looks for.
void TestManPages::noNameIsTorn()
{
    QFETCH(int, columns);
    for (const Page& page : all) {
        for (const QString& line : shown(page.name, columns).split('\n'))
            QVERIFY2(!line.endsWith(QChar(0x2010)), qPrintable(page.name + (": " + line)));
    }
}

QTEST_GUILESS_MAIN(TestManPages)
#include "tst_manpages.moc"
