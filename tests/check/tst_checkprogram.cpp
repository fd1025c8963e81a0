#include "support/checkrun.h"
#include "support/examples.h"
#include "support/smalljob.h"
#include "support/unusablenames.h"

#include <QDirIterator>
#include <QTextCodec>
#include <QtTest>

/// zelmora-check as a process: what it is asked, what it answers, its exit status.
class TestCheckProgram : public QObject {
    Q_OBJECT

private slots:
    void help();
    void version();
    void wrongCalls_data();
    void wrongCalls();
    void listOfCodes();
    void listOfCodesInItalian();
    void unreadable_data();
    void unreadable();
    void unreadableSettings_data();
    void unreadableSettings();
    void severalFiles();
    void standardInput();
    void ownSettings();
    void otherSettings();
    void exitStatus_data();
    void exitStatus();
    void format_data();
    void format();
    void lineBreaksInAFinding();
    void json();
    void findingsInItalian();
    void fileNamesAreBytes();
    void argumentIsNeverAToolkitOption();
    void standardOutputCannotBeWritten();
    void closedStandardStreams();
    void outOfMemory();
    void traceIsTheScript_data();
    void traceIsTheScript();
    void traceOfOneJob();
    void traceInJson();
    void traceOfWhatCannotBeRead();
    void scripts_data();
    void scripts();
    void scriptInAnotherLocale();
    void scriptsBesideJobs();
    void emptyFiles();
    void filesThatAreTooLarge();
    void traceOfAScript();
    void jobsAreReadPieceByPiece();
};

namespace {

const QByteArray tryHelp = "\nTry '" ZELMORA_CHECK_PROGRAM " --help' for more information.\n";

/// Settings that name the Italian catalogue.
const QByteArray italian = "zelmora: { language: { basedir = \"" + QFileInfo(ZELMORA_CATALOGUE).path().toUtf8()
    + "\"; file = \"/zelmora_it\"; }; };";

/// Widths of a receipt; no print flag is set.
const QByteArray widths = "zelmora: { receiptdoc: { paperWidth = 32; quantityFieldWidth = 3; priceFieldWidth = 6; "
                          "totalPriceFieldWidth = 8; }; };";

/// A job of which there are a warning, at 3:3, and a note, at 4:27, with these widths.
const QByteArray warningJob = R"(<job>
  <method name="printFullOrderReceipt"/>
  <recipe/>
  <receipe number="1"     name="Tagliatelle al ragù" price="5.00" totalPrice="5.00"/>
  <total price="5.00"/>
</job>
)";

/// A job of which there is an error, at its end tag, at 2:1.
const QByteArray errorJob = "<job>\n</job>\n";

/// Each line of @p text without the words of its finding: "job.xml:3:3: warning: [unknown-element]".
QStringList places(const QByteArray& text)
{
    QStringList lines = QString::fromUtf8(text).split('\n', Qt::SkipEmptyParts);
    const QRegularExpression words("^(.*?:\\d+:\\d+: \\w+: ).+(\\[[a-z-]+\\])$");
    return lines.replaceInStrings(words, "\\1\\2");
}

} // namespace

void TestCheckProgram::help()
{
    CheckRun run;
    const QByteArray text = run.output({"--help"});
    QCOMPARE(run.exitStatus, 0);
    QVERIFY(text.startsWith("Usage: " ZELMORA_CHECK_PROGRAM " [options] job.xml|script.txt...\n"));
    for (const QByteArray option : {"--settings", "--format", "--strict", "--quiet", "--exclude", "--trace", "--codes",
                                    "--schema", "-h, --help", "-v, --version"})
        QVERIFY2(text.contains("\n  " + option + ' '), option.constData());
    QCOMPARE(run.output({"-h"}), text);
}

void TestCheckProgram::version()
{
    CheckRun run;
    QCOMPARE(run.output({"--version"}), QByteArray("zelmora-check 1.0\n"));
    QCOMPARE(run.output({"-v"}), QByteArray("zelmora-check 1.0\n"));
    QCOMPARE(run.exitStatus, 0);
}

void TestCheckProgram::wrongCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray noJob = "There is nothing to check: name a file, or \"-\" for standard input.";
    QTest::newRow("no job") << QStringList() << noJob;
    QTest::newRow("options and no job") << QStringList {"--strict", "--quiet"} << noJob;
    QTest::newRow("a trace of no job") << QStringList {"--trace"} << noJob;
    QTest::newRow("an unknown option") << QStringList {"--stric", "job.xml"} << QByteArray("Unknown option 'stric'.");
    QTest::newRow("an option without its value")
        << QStringList {"job.xml", "--settings"} << QByteArray("Missing value after '--settings'.");
    QTest::newRow("an unknown format") << QStringList {"--format", "text", "job.xml"}
                                       << QByteArray("\"text\" is no format: take \"gcc\" or \"json\".");
    QTest::newRow("an unknown code") << QStringList {"--exclude", "wrong-sun", "job.xml"}
                                     << QByteArray("\"wrong-sun\" is no code of a finding. Is \"wrong-sum\" meant?");
}

void TestCheckProgram::wrongCalls()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, reason);
    CheckRun run;
    run.writeFile("job.xml", smallJob);
    run.start(arguments);

    QVERIFY(run.ended);
    QCOMPARE(run.exitStatus, 2);
    QCOMPARE(run.standardError, reason + tryHelp);
    QCOMPARE(run.standardOutput, QByteArray());
}

void TestCheckProgram::listOfCodes()
{
    CheckRun run;
    const QList<QByteArray> lines = run.output({"--codes"}).split('\n');
    QCOMPARE(run.exitStatus, 0);
    QCOMPARE(lines.first(), QByteArray("unreadable                 error             The file cannot be read."));
    QVERIFY(lines.contains("not-a-number               error or warning  A number is due, and the text is none."));
    QVERIFY(lines.contains("too-wide                   warning or note   A line is wider than the paper."));
    QVERIFY(lines.contains("paper-wider-than-register  note              The paper is wider than the register's 32 "
                           "characters, within which lines are centred."));
    QCOMPARE(lines.last(), QByteArray());
}

void TestCheckProgram::listOfCodesInItalian()
{
    CheckRun run;
    const int count = run.output({"--codes"}).count('\n');
    run.setSettings(italian);
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    const QByteArray list = run.output({"--codes"});
    QCOMPARE(list.count('\n'), count);
    QVERIFY2(!list.contains("The file cannot be read."), list.constData());
    QVERIFY2(list.contains("pu\xf2"), list.constData()); // "Il file non si può leggere", in the locale's encoding
}

void TestCheckProgram::unreadable_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("a file that is not there") << "missing.xml" << QByteArray("No such file or directory");
    QTest::newRow("a folder") << "home" << QByteArray("file to open is a directory");
    QTest::newRow("no name") << "" << QByteArray("No file name specified");
    QTest::newRow("a file that opens and cannot be read") << "/proc/self/mem" << QByteArray("Input/output error");
}

void TestCheckProgram::unreadable()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, reason);
    CheckRun run;
    run.setSettings("zelmora: { receiptdoc: { paperWidth = 32; }; };");
    const QByteArray faulty = "<job><method name=\"printFullOrderReceipt\"/><recipe/></job>";
    run.writeFile("faulty.xml", faulty);

    // Those before and behind it are checked all the same.
    const QByteArray text = run.output({"faulty.xml", path, "faulty.xml", "--quiet"});
    QCOMPARE(run.exitStatus, 2);
    const QList<QByteArray> lines = text.split('\n');
    QCOMPARE(lines.size(), 4);
    QVERIFY2(lines[0].startsWith("faulty.xml:1:44: warning: "), text.constData());
    QCOMPARE(lines[1], path.toUtf8() + ":1:1: error: The file cannot be read: " + reason + " [unreadable]");
    QCOMPARE(lines[2], lines[0]);
}

void TestCheckProgram::unreadableSettings_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a file that is not there") << "missing.conf";
    QTest::newRow("a folder") << "home";
    QTest::newRow("a file that opens and cannot be read") << "/proc/self/mem";
}

void TestCheckProgram::unreadableSettings()
{
    QFETCH(QString, path);
    CheckRun run;
    run.writeFile("job.xml", "<job/>"); // of which there would be something to say

    const QByteArray text = run.output({"--settings", path, "job.xml"});
    QCOMPARE(run.exitStatus, 2);
    QVERIFY2(text.startsWith(path.toUtf8() + ":1:1: error: The file cannot be read: "), text.constData());
    QVERIFY2(text.endsWith(" [unreadable]\n"), text.constData());
    QCOMPARE(text.count('\n'), 1);

    run.start({"--settings", path, "--trace", "job.xml"});
    QCOMPARE(run.exitStatus, 2);
    QCOMPARE(run.standardOutput, QByteArray());
    QVERIFY(run.standardError.startsWith("The file " + path.toUtf8() + " cannot be read: "));
}

void TestCheckProgram::severalFiles()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("a.xml", warningJob);
    run.writeFile("b.xml", errorJob);
    QCOMPARE(places(run.output({"b.xml", "a.xml", "b.xml"})),
             QStringList({"b.xml:2:1: error: [no-method]", "a.xml:3:3: warning: [unknown-element]",
                          "a.xml:4:27: note: [cut-text]", "b.xml:2:1: error: [no-method]"}));
    QCOMPARE(run.exitStatus, 1);
}

void TestCheckProgram::standardInput()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("a.xml", warningJob);
    run.writeFile("b.xml", errorJob);
    const QStringList expected {"-:3:3: warning: [unknown-element]", "-:4:27: note: [cut-text]",
                                "b.xml:2:1: error: [no-method]"};
    run.startShell(R"("$program" - b.xml < a.xml)");
    QCOMPARE(places(run.remarks().replace("\nexit status 1", "")), expected);
    run.startShell(R"(cat a.xml | "$program" - b.xml)");
    QCOMPARE(places(run.remarks().replace("\nexit status 1", "")), expected);
}

/// Those in the home, in the brace format; where there are none, a note says so.
void TestCheckProgram::ownSettings()
{
    CheckRun run;
    run.writeFile("job.xml", smallJob);
    QCOMPARE(places(run.output({"job.xml"})), QStringList("job.xml:1:6: note: [settings-missing]"));
    QCOMPARE(run.exitStatus, 0);
    run.setSettings("zelmora: { receiptdoc: { paperWidth = 40; }; };");
    QCOMPARE(places(run.output({"job.xml"})), QStringList("job.xml:1:6: note: [too-wide]"));
    QCOMPARE(run.exitStatus, 0);
}

void TestCheckProgram::otherSettings()
{
    CheckRun run;
    run.setSettings("zelmora: { receiptdoc: { paperWidth = 40; }; };");
    run.writeFile("job.xml", smallJob);
    run.writeFile("narrow.conf", "zelmora: { receiptdoc: { paperWidth = 9; }; };");
    run.writeFile("narrow.xml", "<zelmora><receiptdoc paperWidth='9'/></zelmora>");
    run.writeFile("narrow.XML", "<zelmora><receiptdoc paperWidth='9'/></zelmora>");
    for (const QString settings : {"narrow.conf", "narrow.xml", "narrow.XML"})
        QCOMPARE(places(run.output({"--settings", settings, "job.xml"})),
                 QStringList("job.xml:1:53: warning: [too-wide]"));
}

void TestCheckProgram::exitStatus_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::newRow("nothing to say") << QStringList {"fine.xml"} << 0;
    QTest::newRow("a warning") << QStringList {"warning.xml"} << 0;
    QTest::newRow("a warning that counts as an error") << QStringList {"--strict", "warning.xml"} << 1;
    QTest::newRow("a warning that would count and is left out")
        << QStringList {"--strict", "--exclude", "unknown-element", "warning.xml"} << 0;
    QTest::newRow("an error") << QStringList {"error.xml"} << 1;
    QTest::newRow("an error in one of several files") << QStringList {"error.xml", "fine.xml"} << 1;
    QTest::newRow("an error that is left out") << QStringList {"--exclude", "no-method", "error.xml"} << 0;
    QTest::newRow("an error and a file that cannot be read") << QStringList {"error.xml", "missing.xml"} << 2;
    QTest::newRow("a file that cannot be read, which is not said")
        << QStringList {"--exclude", "unreadable", "missing.xml"} << 2;
    QTest::newRow("a trace of a job with a warning") << QStringList {"--trace", "warning.xml"} << 0;
    QTest::newRow("a strict trace of it") << QStringList {"--trace", "--strict", "warning.xml"} << 1;
    QTest::newRow("a trace of a job with an error") << QStringList {"--trace", "error.xml"} << 1;
    QTest::newRow("a trace of it that leaves the error out")
        << QStringList {"--trace", "--exclude", "no-method", "error.xml"} << 0;
}

void TestCheckProgram::exitStatus()
{
    QFETCH(QStringList, arguments);
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("fine.xml", smallJob);
    run.writeFile("warning.xml", warningJob);
    run.writeFile("error.xml", errorJob);
    run.start(arguments);
    QVERIFY(run.ended);
    QTEST(run.exitStatus, "status");
}

void TestCheckProgram::format_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("expected");
    const QString warning = "job.xml:3:3: warning: [unknown-element]";
    const QString note = "job.xml:4:27: note: [cut-text]";
    QTest::newRow("none") << QStringList() << QStringList {warning, note};
    QTest::newRow("the form of compilers, asked for") << QStringList {"--format", "gcc"} << QStringList {warning, note};
    QTest::newRow("no notes") << QStringList {"--quiet"} << QStringList {warning};
    QTest::newRow("a warning that counts as an error keeps its word")
        << QStringList {"--strict", "--quiet"} << QStringList {warning};
    QTest::newRow("without a code") << QStringList {"--exclude", "unknown-element"} << QStringList {note};
    QTest::newRow("without two") << QStringList {"--exclude", "unknown-element,cut-text"} << QStringList();
}

void TestCheckProgram::format()
{
    QFETCH(QStringList, options);
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("job.xml", warningJob);
    QTEST(places(run.output(options + QStringList("job.xml"))), "expected");
}

void TestCheckProgram::lineBreaksInAFinding()
{
    CheckRun run;
    run.setSettings(widths);
    const QByteArray job = "<job><method name=\"printFullOrderReceipt\"/><receipe number=\"1\" "
                           "name=\"A text with&#10;two line breaks&#13;in it\" price=\"1\" totalPrice=\"1\"/></job>";
    run.writeFile("job.xml", job);
    const QByteArray text = run.output({"job.xml"});
    QStringList found = places(text);
    found.sort();
    QCOMPARE(found, QStringList({"job.xml:1:64: note: [cut-text]", "job.xml:1:64: warning: [control-character]"}));
    QVERIFY2(text.contains("A text with"), text.constData()); // what is cut is shown, and the break was in it
    QVERIFY2(!text.contains('\r'), text.constData());
}

void TestCheckProgram::json()
{
    CheckRun run;
    run.setSettings(widths);
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    run.writeFile("a.xml", warningJob);
    run.writeFile("b.xml", errorJob);
    QJsonParseError error;
    const QJsonDocument found =
        QJsonDocument::fromJson(run.output({"--format", "json", "a.xml", "b.xml", "missing.xml"}), &error);
    QCOMPARE(error.error, QJsonParseError::NoError);
    QStringList lines;
    for (const QJsonValue& finding : found.array()) {
        lines += QString("%1 %2 %3 %4 %5 %6")
                     .arg(finding["file"].toString(), QString::number(finding["line"].toInt()),
                          QString::number(finding["column"].toInt()), finding["severity"].toString(),
                          finding["code"].toString(), finding["suggestion"].toString("-"));
        QVERIFY(!finding["text"].toString().isEmpty());
    }
    QCOMPARE(lines,
             QStringList({"a.xml 3 3 warning unknown-element receipe", "a.xml 4 27 note cut-text -",
                          "b.xml 2 1 error no-method -", "missing.xml 1 1 error unreadable -"}));
    QVERIFY(found[1]["text"].toString().contains("Tagliatelle al "));
    QCOMPARE(run.exitStatus, 2);

    run.writeFile("fine.xml", smallJob);
    QCOMPARE(run.output({"--format", "json", "fine.xml"}), QByteArray("[]\n"));
}

void TestCheckProgram::findingsInItalian()
{
    CheckRun run;
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    run.writeFile("job.xml", errorJob);
    run.setSettings("zelmora: { receiptdoc: { paperWidth = 32; }; };");
    const QByteArray english = run.output({"job.xml"});
    run.setSettings(italian);
    const QByteArray text = run.output({"job.xml"});
    QCOMPARE(places(text), QStringList("job.xml:2:1: error: [no-method]"));
    QVERIFY(text != english);

    // With the catalogue of the settings that are named.
    run.writeFile("english.conf", "zelmora: { receiptdoc: { paperWidth = 32; }; };");
    QCOMPARE(run.output({"--settings", "english.conf", "job.xml"}), english);
}

void TestCheckProgram::fileNamesAreBytes()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("job.xml", errorJob);
    for (const QString locale : {"C.UTF-8", "it_IT.ISO-8859-15"}) {
        run.setEnvironment("LC_ALL", locale);
        for (const QByteArray name : {"caff\303\250.xml", "caff\350.xml", ":job.xml"}) {
            run.startShell("cp job.xml ./" + name + "; \"$program\" " + name + "; rm ./" + name);
            const QByteArray refusal = QByteArray(":1:1: error: The file cannot be read: ") + nameRefused;
            const QByteArray found = refusesNames() && name.contains('\350') ? refusal : ":2:1: error: ";
            QVERIFY2(run.standardOutput.startsWith(name + found), run.standardOutput.constData());
        }
    }
}

void TestCheckProgram::argumentIsNeverAToolkitOption()
{
    CheckRun run;
    run.start({"-qmljsdebugger=job", "job.xml"});
    QCOMPARE(run.exitStatus, 2);
    QVERIFY(run.standardError.contains("Unknown option"));
}

void TestCheckProgram::standardOutputCannotBeWritten()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("job.xml", warningJob);
    for (const QByteArray arguments : {"job.xml", "--trace job.xml", "--format json job.xml", "--codes", "--schema"}) {
        run.startShell("\"$program\" " + arguments + " > /dev/full");
        QCOMPARE(run.exitStatus, 2);
        QCOMPARE(run.standardError, QByteArray("Standard output cannot be written.\n"));
    }
}

void TestCheckProgram::closedStandardStreams()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("job.xml", errorJob);
    run.startShell(R"("$program" job.xml <&- >&- 2>&-)");
    QVERIFY(run.ended);
    QCOMPARE(run.exitStatus, 1);
    run.startShell(R"("$program" - <&-)");
    QCOMPARE(run.standardOutput, QByteArray("-:1:1: error: The file is empty. [unreadable]\n"));
    QCOMPARE(run.exitStatus, 2);
}

void TestCheckProgram::outOfMemory()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("The sanitizers need more memory than the limit.");
#endif
    CheckRun run;
    run.setSettings(widths);
    const QByteArray tooMuch = "<receipt serialnumber='" + QByteArray(60000000, 'y') + "'/>";
    run.writeFile("job.xml", QByteArray(smallJob).replace("</job>", tooMuch + "</job>"));
    run.startShell(R"(ulimit -v 200000; "$program" job.xml)");

    QVERIFY(run.ended);
    QCOMPARE(run.exitStatus, 2);
    QCOMPARE(run.standardError, QByteArray("There is not enough memory to check this.\n"));
}

void TestCheckProgram::traceIsTheScript_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& folder : {QString(ZELMORA_EXAMPLES), QString(ZELMORA_GOLDEN)}) {
        QDirIterator files(folder, {"*.xml"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            QTest::newRow(qPrintable(QDir(folder + "/..").relativeFilePath(path))) << path;
        }
    }
}

/// The commands of a trace are the lines that the print program writes, each at an element of the job.
void TestCheckProgram::traceIsTheScript()
{
    QFETCH(QString, path);
    const QByteArray settings = fileContents(ZELMORA_GOLDEN "/default.conf");
    ProgramRun printing;
    printing.setSettings(settings);
    printing.setEnvironment("LC_ALL", "C.UTF-8");
    const QString script = QString::fromUtf8(printing.print(fileContents(path)));

    CheckRun run;
    run.setSettings(settings);
    run.setEnvironment("LC_ALL", "C.UTF-8");
    const QJsonArray trace = QJsonDocument::fromJson(run.output({"--trace", "--format", "json", path})).array();
    QString commands;
    for (const QJsonValue& line : trace) {
        QCOMPARE(line["file"].toString(), path);
        QVERIFY(line["line"].toInt() > 0 && line["column"].toInt() > 0);
        QVERIFY(!line["element"].toString().isEmpty());
        QVERIFY(line["command"].isString() != line["reason"].isString());
        if (line["command"].isString())
            commands += line["command"].toString() + "\r\n";
    }
    QCOMPARE(commands, script);
}

namespace {

const QByteArray tracedJob = R"(<printjob>
  <logo/>
  <method name="printFullOrderReceipt"/>
  <geometry/>
  <receipe number="2" name="Coperto" price="2.50" totalPrice="5.00"/>
  <recipe/>
  <customer/>
</printjob>
)";

} // namespace

void TestCheckProgram::traceOfOneJob()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("job.xml", tracedJob);
    const QList<QByteArray> lines = run.output({"--trace", "job.xml"}).split('\n');
    QCOMPARE(lines.size(), 9);
    QVERIFY2(lines[0].startsWith("job.xml:2:3: logo: nothing: "), lines[0].constData());
    QCOMPARE(lines[1], QByteArray("job.xml:3:3: method (printFullOrderReceipt): nofis apri"));
    QVERIFY2(lines[2].startsWith("job.xml:4:3: geometry (printFullOrderReceipt): nothing: "), lines[2].constData());
    QCOMPARE(lines[3],
             QByteArray("job.xml:5:3: receipe (printFullOrderReceipt): nofis riga='Num Description    Price  Amount'"));
    QCOMPARE(lines[4],
             QByteArray("job.xml:5:3: receipe (printFullOrderReceipt): nofis riga='  2 x Coperto.......2.50    5.00'"));
    QVERIFY2(lines[5].startsWith("job.xml:6:3: recipe (printFullOrderReceipt): nothing: "), lines[5].constData());
    QVERIFY2(lines[6].startsWith("job.xml:7:3: customer (printFullOrderReceipt): nothing: "), lines[6].constData());
    QCOMPARE(lines[7], QByteArray("job.xml:8:1: printjob (printFullOrderReceipt): nofis chiudi"));
    QCOMPARE(lines[8], QByteArray());
}

void TestCheckProgram::traceInJson()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("job.xml", "<job><logo/><method name='printFullOrderReceipt'/></job>");
    const QJsonArray trace = QJsonDocument::fromJson(run.output({"--trace", "--format", "json", "job.xml"})).array();
    QCOMPARE(trace.size(), 3);
    QCOMPARE(trace[1].toObject(),
             QJsonObject({{"file", "job.xml"},
                          {"line", 1},
                          {"column", 13},
                          {"element", "method"},
                          {"method", "printFullOrderReceipt"},
                          {"command", "nofis apri"}}));
    QCOMPARE(trace[0]["element"].toString(), QString("logo"));
    QCOMPARE(trace[0]["method"].toString(), QString());
    QVERIFY(!trace[0]["reason"].toString().isEmpty());
    QCOMPARE(trace[2]["command"].toString(), QString("nofis chiudi"));
}

void TestCheckProgram::traceOfWhatCannotBeRead()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("job.xml", "<job><method name='printSold'/></job>");
    run.start({"--trace", "missing.xml", "job.xml"});
    QCOMPARE(run.exitStatus, 2);
    QCOMPARE(run.standardError, QByteArray("The file missing.xml cannot be read: No such file or directory\n"));
    QCOMPARE(run.standardOutput,
             QByteArray("job.xml:1:6: method (printSold): nofis apri\njob.xml:1:32: job (printSold): nofis chiudi\n"));
}

void TestCheckProgram::scripts_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("status");
    const auto row = [](const char* name, const QByteArray& contents, const QStringList& expected, int status) {
        QTest::newRow(name) << contents << expected << status;
    };
    const QByteArray shortScript = "nofis apri\r\nnofis riga='<job/>'\r\nnofis chiudi\r\n";
    row("a script", shortScript, {}, 0);
    row("a script with an error", shortScript + "Hello\r\n", {"file:4:1: error: [no-command]"}, 1);
    row("a script with a warning", "CLEAR \r\nCHIAVE REG\r\nCHIUS T=1\r\n", {"file:1:1: warning: [no-sale]"}, 0);
    row("a word", "Hello", {"file:1:1: error: [no-command]"}, 1);
    row("white space alone", " \n", {"file:1:1: error: [no-command]"}, 1);
    row("a job behind white space", "\n \t" + errorJob, {"file:3:1: error: [no-method]"}, 1);
    row("a job behind a byte-order mark", "\xEF\xBB\xBF" + errorJob, {"file:2:1: error: [no-method]"}, 1);
    row("a job behind very much white space", QByteArray(100000, ' ') + errorJob, {"file:2:1: error: [no-method]"}, 1);
    row("a job in UTF-16", QTextCodec::codecForName("UTF-16")->fromUnicode(QString(errorJob)),
        {"file:2:1: error: [no-method]"}, 1);
}

void TestCheckProgram::scripts()
{
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, expected);
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("file", contents);
    QCOMPARE(places(run.output({"file"})), expected);
    QTEST(run.exitStatus, "status");

    // The same through a pipe that gives one byte before the others.
    run.startShell("{ head -c 1 file; sleep 0.1; tail -c +2 file; } | \"$program\" -");
    QCOMPARE(places(run.standardOutput), expected.replaceInStrings(QRegularExpression("^file"), "-"));
    QTEST(run.exitStatus, "status");
}

void TestCheckProgram::scriptInAnotherLocale()
{
    CheckRun run;
    run.writeFile("script.txt", "nofis apri\r\nnofis riga='Caff\xE8'\r\nnofis chiudi\r\n");
    QCOMPARE(places(run.output({"script.txt"})), QStringList("script.txt:2:17: warning: [invalid-bytes]"));
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    QCOMPARE(places(run.output({"script.txt"})), QStringList());
}

void TestCheckProgram::scriptsBesideJobs()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("job.xml", warningJob);
    run.writeFile("script.txt", "nofis apri\r\n");
    QCOMPARE(places(run.output({"script.txt", "job.xml", "--quiet"})),
             QStringList({"script.txt:1:1: error: [not-closed]", "job.xml:3:3: warning: [unknown-element]"}));
    QCOMPARE(run.exitStatus, 1);
    run.output({"script.txt", "--exclude", "not-closed"});
    QCOMPARE(run.exitStatus, 0);
}

void TestCheckProgram::emptyFiles()
{
    CheckRun run;
    run.writeFile("empty", "");
    QCOMPARE(run.output({"empty"}), QByteArray("empty:1:1: error: The file is empty. [unreadable]\n"));
    QCOMPARE(run.exitStatus, 2);
    run.startShell("\"$program\" - < /dev/null");
    QCOMPARE(run.standardOutput, QByteArray("-:1:1: error: The file is empty. [unreadable]\n"));
    QCOMPARE(run.exitStatus, 2);
    run.start({"--trace", "empty"});
    QCOMPARE(run.standardOutput, QByteArray());
    QCOMPARE(run.standardError, QByteArray("The file empty is empty.\n"));
    QCOMPARE(run.exitStatus, 2);
}

// Of a script, and of settings, more than memory is to hold. A job is read piece by piece.
void TestCheckProgram::filesThatAreTooLarge()
{
    CheckRun run;
    run.startShell("truncate -s 3G large");
    QCOMPARE(run.output({"large"}),
             QByteArray("large:1:1: error: The file cannot be read: File too large [unreadable]\n"));
    QCOMPARE(run.exitStatus, 2);
    run.startShell("\"$program\" - < large");
    QCOMPARE(run.standardOutput, QByteArray("-:1:1: error: The file cannot be read: File too large [unreadable]\n"));
    run.start({"--trace", "large"});
    QCOMPARE(run.standardError, QByteArray("The file large cannot be read: File too large\n"));
    run.writeFile("job.xml", errorJob);
    QCOMPARE(run.output({"--settings", "large", "job.xml"}),
             QByteArray("large:1:1: error: The file cannot be read: File too large [unreadable]\n"));
    QCOMPARE(run.exitStatus, 2);
}

void TestCheckProgram::traceOfAScript()
{
    CheckRun run;
    run.setSettings(widths);
    run.writeFile("script.txt", "nofis apri\r\nnofis chiudi\r\n");
    run.writeFile("job.xml", errorJob);
    run.start({"--trace", "script.txt", "job.xml"});
    QCOMPARE(run.standardError, QByteArray("The file script.txt is a script: a trace is of jobs.\n"));
    QVERIFY(run.standardOutput.startsWith("job.xml:2:1: ")); // the others are traced all the same
    QCOMPARE(run.exitStatus, 2);
}

/// A job of 200 MB goes through where memory would not hold it.
void TestCheckProgram::jobsAreReadPieceByPiece()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("The sanitizers need more memory than the limit.");
#endif
    CheckRun run;
    run.setSettings(widths);
    run.startShell("{ echo '<job><method name=\"printFullOrderReceipt\"/>'; yes '<!-- nothing to print -->' | head -c "
                   "208000000; echo '</job>'; } | (ulimit -v 180000; \"$program\" -)");
    QCOMPARE(run.remarks(), QByteArray());
}

QTEST_GUILESS_MAIN(TestCheckProgram)
#include "tst_checkprogram.moc"
