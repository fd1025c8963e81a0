#include "check/report.h"
#include "check/reportoptions.h"
#include "support/capture.h"
#include "support/unusablenames.h"
#include "toolkit/filenames.h"

#include <QCommandLineParser>
#include <QtTest>

using check::Code;
using check::Finding;
using check::Findings;
using check::Format;
using check::Report;
using check::ReportOptions;
using check::Severity;

Q_DECLARE_METATYPE(check::Finding)
Q_DECLARE_METATYPE(check::ReportOptions)

/// Findings as they are written, in a locale whose encoding is not UTF-8.
class TestFindingsReport : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void lines_data();
    void lines();
    void arrays_data();
    void arrays();
    void whatIsLeftOut_data();
    void whatIsLeftOut();
    void errors_data();
    void errors();
    void aWriteThatFails();
    void arguments_data();
    void arguments();
    void wrongArguments_data();
    void wrongArguments();
};

namespace {

const Finding unknownElement {Code::UnknownElement, Severity::Warning, {5, 3}, "no \"recipe\"", "receipe"};
const Finding cutText {Code::CutText, Severity::Note, {5, 12}, "cut"};
const Finding noMethod {Code::NoMethod, Severity::Error, {1, 1}, "no method"};

/// What a report writes of one file.
QByteArray written(const ReportOptions& options, const QString& file, const Findings& findings)
{
    return captured(stdout, [&] {
        Report report(options);
        report.add(file, findings);
        if (!report.finish())
            qFatal("The report can't be written.");
    });
}

QByteArray written(const ReportOptions& options, const Findings& findings)
{
    return written(options, "job.xml", findings);
}

} // namespace

void TestFindingsReport::initTestCase()
{
    qputenv("LC_ALL", "it_IT.ISO-8859-15");
    toolkit::setFileNameEncoding({});
}

void TestFindingsReport::lines_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<Findings>("findings");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* title, const QString& file, const Findings& findings, const QByteArray& expected) {
        QTest::newRow(title) << file << findings << expected;
    };
    row("nothing found", "job.xml", {}, "");
    row("one of each severity, in the order given", "/a b/job.xml", {unknownElement, cutText, noMethod},
        "/a b/job.xml:5:3: warning: no \"recipe\" [unknown-element]\n"
        "/a b/job.xml:5:12: note: cut [cut-text]\n"
        "/a b/job.xml:1:1: error: no method [no-method]\n");
    row("standard input", "-", {noMethod}, "-:1:1: error: no method [no-method]\n");
    row("places in the thousands", "job.xml", {{Code::NoMethod, Severity::Error, {12345, 67890}, "a"}},
        "job.xml:12345:67890: error: a [no-method]\n");
    row("what stands for something in a text stays", "%1%2", {{Code::NoMethod, Severity::Error, {}, "%1 %s \\n"}},
        "%1%2:1:1: error: %1 %s \\n [no-method]\n");
    row("line breaks and other control characters", "job.xml",
        {{Code::NoMethod, Severity::Error, {}, "a\r\nb\tc\x1b[1m\u0085d\u2028e\u2029f" + QString(QChar(0)) + "g\x7fh"}},
        "job.xml:1:1: error: a  b c [1m d e f g h [no-method]\n");
    row("a line break in the file's name", "a\nb.xml", {noMethod}, "a b.xml:1:1: error: no method [no-method]\n");
    // Of the bytes that the name has, which are UTF-8 to Qt 6.
    const QByteArray name = refusesNames() ? "caff\xc3\xa8.xml" : "caff\xe8.xml";
    row("accents and the euro sign in the locale's encoding", "caffè.xml",
        {{Code::NoMethod, Severity::Error, {}, "è €, 漢"}}, name + ":1:1: error: \xe8 \xa4, ? [no-method]\n");
}

void TestFindingsReport::lines()
{
    QFETCH(QString, file);
    QFETCH(Findings, findings);
    QFETCH(QByteArray, expected);
    QCOMPARE(written({}, file, findings), expected);
}

void TestFindingsReport::arrays_data()
{
    QTest::addColumn<Findings>("findings");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing found") << Findings() << "[]";
    QTest::newRow("with and without a suggestion")
        << Findings {unknownElement, cutText}
        << R"([{"file": "caffè\nbar.xml", "line": 5, "column": 3, "severity": "warning", "code": "unknown-element",
                "text": "no \"recipe\"", "suggestion": "receipe"},
               {"file": "caffè\nbar.xml", "line": 5, "column": 12, "severity": "note", "code": "cut-text",
                "text": "cut"}])";
    QTest::newRow("texts are whole")
        << Findings {{Code::NoMethod, Severity::Error, {}, "a\r\nb € 漢 \U0001F355"}}
        << R"([{"file": "caffè\nbar.xml", "line": 1, "column": 1, "severity": "error", "code": "no-method",
                "text": "a\r\nb € 漢 🍕"}])";
}

void TestFindingsReport::arrays()
{
    QFETCH(Findings, findings);
    QFETCH(QString, expected);
    ReportOptions options;
    options.format = Format::Json;
    QJsonParseError error;
    const QJsonDocument found = QJsonDocument::fromJson(written(options, "caffè\nbar.xml", findings), &error);
    QCOMPARE(error.errorString(), QString("no error occurred"));
    QVERIFY(found.isArray());
    QCOMPARE(found, QJsonDocument::fromJson(expected.toUtf8()));
}

void TestFindingsReport::whatIsLeftOut_data()
{
    QTest::addColumn<ReportOptions>("options");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray error = "job.xml:1:1: error: no method [no-method]\n";
    const QByteArray warning = "job.xml:5:3: warning: no \"recipe\" [unknown-element]\n";
    const QByteArray note = "job.xml:5:12: note: cut [cut-text]\n";
    QTest::newRow("nothing") << ReportOptions() << error + warning + note;
    QTest::newRow("notes") << ReportOptions {Format::Gcc, false, true, {}} << error + warning;
    QTest::newRow("a code") << ReportOptions {Format::Gcc, false, false, {Code::UnknownElement}} << error + note;
    QTest::newRow("two codes") << ReportOptions {Format::Gcc, false, false, {Code::CutText, Code::NoMethod}} << warning;
    QTest::newRow("nothing that is not a note: warnings that count as errors keep their word")
        << ReportOptions {Format::Gcc, true, true, {}} << error + warning;
}

void TestFindingsReport::whatIsLeftOut()
{
    QFETCH(ReportOptions, options);
    QFETCH(QByteArray, expected);
    QCOMPARE(written(options, {noMethod, unknownElement, cutText}), expected);
}

void TestFindingsReport::errors_data()
{
    QTest::addColumn<Findings>("findings");
    QTest::addColumn<ReportOptions>("options");
    QTest::addColumn<bool>("anyErrors");
    const ReportOptions plain;
    const ReportOptions strict {Format::Json, true, false, {}};
    const auto row = [](const char* title, const Findings& findings, const ReportOptions& options, bool anyErrors) {
        QTest::newRow(title) << findings << options << anyErrors;
    };
    row("nothing", {}, strict, false);
    row("a note", {cutText}, strict, false);
    row("a warning", {unknownElement}, plain, false);
    row("a warning that counts as one", {unknownElement}, strict, true);
    row("an error", {noMethod}, plain, true);
    row("an error, and a note after it", {noMethod, cutText}, plain, true);
    row("an error that is left out", {noMethod}, {Format::Gcc, false, false, {Code::NoMethod}}, false);
    row("a warning that would count and is left out", {unknownElement},
        {Format::Gcc, true, false, {Code::UnknownElement}}, false);
}

void TestFindingsReport::errors()
{
    QFETCH(Findings, findings);
    QFETCH(ReportOptions, options);
    Report report(options);
    captured(stdout, [&] {
        report.add("job.xml", findings);
        report.add("other.xml", {});
        report.finish();
    });
    QTEST(report.hasErrors(), "anyErrors");
}

void TestFindingsReport::aWriteThatFails()
{
    QFile full("/dev/full");
    QVERIFY(full.open(QIODevice::WriteOnly));
    std::fflush(stdout);
    const int kept = dup(STDOUT_FILENO);
    dup2(full.handle(), STDOUT_FILENO);
    Report report({});
    report.add("job.xml", {noMethod});
    const bool finished = report.finish();
    dup2(kept, STDOUT_FILENO);
    close(kept);
    std::clearerr(stdout);
    QVERIFY(!finished);
}

void TestFindingsReport::arguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<ReportOptions>("expected");
    const auto row = [](const char* title, const QStringList& arguments, const ReportOptions& expected) {
        QTest::newRow(title) << arguments << expected;
    };
    row("none", {}, {});
    row("the format that is taken without one", {"--format", "gcc"}, {});
    row("the other format", {"--format=json"}, {Format::Json, false, false, {}});
    row("strict", {"--strict"}, {Format::Gcc, true, false, {}});
    row("quiet", {"--quiet"}, {Format::Gcc, false, true, {}});
    row("a code", {"--exclude", "cut-text"}, {Format::Gcc, false, false, {Code::CutText}});
    row("two codes", {"--exclude", "cut-text,no-method"}, {Format::Gcc, false, false, {Code::CutText, Code::NoMethod}});
    row("codes with blanks and an empty one", {"--exclude", " cut-text ,, no-method,"},
        {Format::Gcc, false, false, {Code::CutText, Code::NoMethod}});
    row("codes twice", {"--exclude", "cut-text", "--exclude=no-method"},
        {Format::Gcc, false, false, {Code::CutText, Code::NoMethod}});
    row("no codes", {"--exclude", ""}, {});
}

void TestFindingsReport::arguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(ReportOptions, expected);
    QCommandLineParser parser;
    check::addReportOptions(parser);
    QVERIFY(parser.parse(QStringList("program") + arguments));
    ReportOptions options;
    QCOMPARE(check::readReportOptions(parser, options), QString());
    QCOMPARE(options.format, expected.format);
    QCOMPARE(options.strict, expected.strict);
    QCOMPARE(options.quiet, expected.quiet);
    QCOMPARE(options.excluded, expected.excluded);
}

void TestFindingsReport::wrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* title, const QStringList& arguments, const QString& reason) {
        QTest::newRow(title) << arguments << reason;
    };
    row("another format", {"--format", "xml"}, "\"xml\" is no format: take \"gcc\" or \"json\".");
    row("a format in capitals", {"--format", "JSON"}, "\"JSON\" is no format: take \"gcc\" or \"json\".");
    row("a code that is near one", {"--exclude", "cut-text,cut-texts"},
        "\"cut-texts\" is no code of a finding. Is \"cut-text\" meant?");
    row("a code that is near none", {"--exclude", "colour"},
        "\"colour\" is no code of a finding: \"zelmora-check --codes\" lists them.");
}

void TestFindingsReport::wrongArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    QCommandLineParser parser;
    check::addReportOptions(parser);
    QVERIFY(parser.parse(QStringList("program") + arguments));
    ReportOptions options;
    QCOMPARE(check::readReportOptions(parser, options), reason);
}

QTEST_GUILESS_MAIN(TestFindingsReport)
#include "tst_findingsreport.moc"
