#include "check/scriptcheck.h"
#include "support/examples.h"
#include "support/registerscript.h"

#include <QDirIterator>
#include <QTextCodec>
#include <QtTest>

using check::checkScript;
using check::Finding;
using check::Findings;

/// Findings of scripts: their codes, severities and words. What is found where is a matter of the reading of scripts.
class TestScriptCheck : public QObject {
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void suggestions_data();
    void suggestions();
    void linesThatAreAlwaysTooLong_data();
    void linesThatAreAlwaysTooLong();
    void bytesAreNamedWithTheirEncoding();
    void manyBytes_data();
    void manyBytes();
    void examplesHaveNoFault_data();
    void examplesHaveNoFault();
    void goldenScripts_data();
    void goldenScripts();
};

namespace {

/// "2:1 error no-command" for each finding.
QStringList placesOf(const Findings& findings)
{
    QStringList places;
    for (const Finding& finding : findings)
        places += QStringLiteral("%1:%2 %3 %4")
                      .arg(finding.place.line)
                      .arg(finding.place.column)
                      .arg(check::word(finding.severity), check::entry(finding.code).name);
    return places;
}

QString sale()
{
    return "VEND REP=1,QTY=1,PREZZO=7.50,DES='PIZZA'";
}

} // namespace

void TestScriptCheck::texts_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QByteArrayList& lines, const char* place, const QString& text) {
        QTest::newRow(name) << commands(lines) << place << text;
    };
    row("a word", {"Hello"}, "1:1 error no-command", "\"Hello\" is no command of the register.");
    row("a long word", {QByteArray(100, 'x')}, "1:1 error no-command",
        '"' + QString(80, 'x') + "...\" is no command of the register.");
    row("an empty line", {""}, "1:1 error no-command", "An empty line is no command of the register.");
    row("a slip", {"nofis apre"}, "1:1 error no-command",
        "\"nofis apre\" is no command of the register. Is \"nofis apri\" meant?");
    row("no closing quote", {"nofis apri", "nofis riga='a", "nofis chiudi"}, "2:1 error no-command",
        "The text has no closing quote: the command ends with '.");
    row("a sale without its price", {"VEND REP=1,QTY=1,DES='PIZZA'"}, "1:1 error no-command",
        "The sale has no \",PREZZO=\" in its place: VEND REP=, ,QTY=, ,PREZZO= and ,DES=' follow each other in a "
        "sale.");
    row("a byte-order mark", {"\xEF\xBB\xBFnofis apri"}, "1:1 error no-command",
        "A byte-order mark stands before the command, which the register takes for a part of it: save the file without "
        "it.");
    row("a line outside of a document", {"nofis riga='a'", "nofis chiudi"}, "1:1 error not-opened",
        "No document is open for this line: \"nofis apri\" must stand before it.");
    row("a closing command too much", {"nofis chiudi"}, "1:1 error not-opened",
        "No document is open that \"nofis chiudi\" could close: its opening command is missing, or this one is too "
        "much.");
    row("CHIAVE REG alone", {"CHIAVE REG", sale().toUtf8(), "CHIUS T=1"}, "1:1 error not-opened",
        "\"CLEAR \" must stand right before \"CHIAVE REG\".");
    row("a sale alone", {sale().toUtf8(), "CHIUS T=1"}, "1:1 error not-opened",
        "No fiscal receipt is open for this command: \"CLEAR \" and \"CHIAVE REG\" must stand before it.");
    row("no closing command", {"nofis apri"}, "1:1 error not-closed",
        "The document that begins here is not closed: the script ends without its \"nofis chiudi\".");
    row("a document in a document", {"nofis apri", "CLEAR ", "CHIAVE REG", sale().toUtf8(), "CHIUS T=1"},
        "2:1 error opened-twice",
        "\"CLEAR \" opens a document while another one is open: that one must be closed first.");
    row("an apostrophe", {"nofis apri", "nofis riga='l'acqua'", "nofis chiudi"}, "2:14 error quote-in-text",
        "The apostrophe ends the register's text early: write ` in its place. The text becomes: l");
    row("a blank at the end", {"nofis apri", "nofis riga='acqua' ", "nofis chiudi"}, "2:18 error quote-in-text",
        "The text ends at this quote, and the command does not end with one: \" \" stands behind the last quote.");
    row("an apostrophe and no closing quote", {"nofis apri", "nofis riga='l'acqua", "nofis chiudi"},
        "2:14 error quote-in-text",
        "The text ends at this quote, and the command does not end with one: \"acqua\" stands behind the last quote.");
    row("nothing sold", {"CLEAR ", "CHIAVE REG", "CHIUS T=1"}, "1:1 warning no-sale",
        "The fiscal receipt that begins here sells nothing.");
    row("paid too little", {"CLEAR ", "CHIAVE REG", sale().toUtf8(), "500H1T", "CHIUS T=1"},
        "4:1 warning payments-below-sum", "The payments are less than the sum of the receipt: 2.50 is missing.");
    row("too wide", {"nofis apri", "nofis riga='" + QByteArray(33, 'x') + "'", "nofis chiudi"}, "2:45 warning too-wide",
        "The line has 33 characters, and the paper 32: make the text shorter, or the columns narrower.");
}

void TestScriptCheck::texts()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, place);
    const Findings findings = checkScript(script);
    QCOMPARE(placesOf(findings), QStringList(place));
    QTEST(findings.first().text, "text");
}

void TestScriptCheck::suggestions_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("suggestion");
    const auto row = [](const char* name, const char* line, const char* suggestion) {
        QTest::newRow(name) << line << suggestion;
    };
    row("a word", "Hello", "");
    row("in capitals", "NOFIS APRI", "nofis apri");
    row("a letter too much", "nofis chiuddi", "nofis chiudi");
    row("CLEAR without its blank", "CLEAR", "CLEAR ");
    row("a blank behind a command", "CHIUS T=1 ", "CHIUS T=1");
    row("a line with a slip", "nofis rgia='a = b'", "nofis riga='a = b'");
    row("a line without its opening quote", "nofis riga=a'", "nofis riga='a'");
    row("a sale with a slip", "VED REP=1,QTY=1,PREZZO=1,DES='a'", "VEND REP=1,QTY=1,PREZZO=1,DES='a'");
    row("a sale with a slip that would still be none", "VED REP=1,QTY=1", "");
    row("a discount with a slip", "SCONTO VAL =1", "SCONTO VAL=1");
    row("a rate in small letters", "perca aliq=10", "PERCA ALIQ=10");
    row("a line in double quotes", "nofis riga=\"a \"b\" c\"", "nofis riga='a \"b\" c'");
    row("a line with a double quote alone", "nofis riga=\"", "nofis riga=''");
    row("a line without quotes", "nofis riga=a", "nofis riga='a'");
    row("an unclosed text", "nofis riga='a", "nofis riga='a'");
    row("an unclosed text in a line with a slip", "nofis rgia='a", "nofis riga='a'");
    const QString mark(QChar(QChar::ByteOrderMark));
    QTest::newRow("a byte-order mark before a command") << mark + "nofis apri"
                                                        << "nofis apri";
    QTest::newRow("a byte-order mark before an unclosed text") << mark + "nofis riga='a"
                                                               << "nofis riga='a'";
    QTest::newRow("a byte-order mark before another line") << mark + "Hello"
                                                           << "";
}

void TestScriptCheck::suggestions()
{
    QFETCH(QString, line);
    const Findings findings = checkScript(line.toUtf8());
    QCOMPARE(placesOf(findings).first(), QString("1:1 error no-command"));
    QTEST(findings.first().suggestion, "suggestion");
}

void TestScriptCheck::linesThatAreAlwaysTooLong_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QStringList>("expected");
    const QByteArray heading = "TAXRATE    TAXABLE        TAX     AMOUNT";
    const QByteArray shorterHeading = " ALIQ. IMPONIBILE    IMPOSTA    IMPORTO";
    const QByteArray rate = "    10%    1650.00     165.00    1815.00 ";
    const auto row = [](const char* name, const QByteArray& script, const QStringList& expected) {
        QTest::newRow(name) << script << expected;
    };
    row("the rate table's heading", document({heading}), {"2:45 note too-wide"});
    row("in Italian", document({shorterHeading}), {"2:45 note too-wide"});
    row("its rows", document({rate}), {"2:45 note too-wide"});
    row("what is not paid", document({"   Corrispettivo non pagato: 29.50"}), {"2:45 note too-wide"});
    row("once a document", document({heading, rate, rate}) + document({rate, rate}),
        {"2:45 note too-wide", "7:45 note too-wide"});
    row("a column of eleven characters", document({"    10%   11650.00    1165.00   12815.001 "}),
        {"2:45 warning too-wide"});
    row("a first column that is too short", document({"  10%    1650.00     165.00    1815.00"}),
        {"2:45 warning too-wide"});
    row("a column of two words", document({"    10%   1 650.00     165.00    1815.00 "}), {"2:45 warning too-wide"});
    row("another long line", document({QByteArray(33, 'x')}), {"2:45 warning too-wide"});
    row("another one beside it", document({rate, QByteArray(33, 'x'), QByteArray(33, 'x')}),
        {"2:45 note too-wide", "3:45 warning too-wide", "4:45 warning too-wide"});
}

void TestScriptCheck::linesThatAreAlwaysTooLong()
{
    QFETCH(QByteArray, script);
    QTEST(placesOf(checkScript(script)), "expected");
}

void TestScriptCheck::bytesAreNamedWithTheirEncoding()
{
    const Findings findings = checkScript(document({"a\xE8\xE9 z"}), QTextCodec::codecForName("UTF-8"));
    QCOMPARE(placesOf(findings), QStringList("2:14 warning invalid-bytes"));
    QCOMPARE(
        findings.first().text,
        QString("In the encoding UTF-8 these bytes are no characters: E8 E9. Was the script written in another one?"));
    QCOMPARE(placesOf(checkScript(document({"a\xE8\xE9 z"}), QTextCodec::codecForName("ISO-8859-1"))), QStringList());
}

void TestScriptCheck::manyBytes_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("shown");
    QTest::newRow("one") << 1 << "FF";
    QTest::newRow("five") << 5 << "FF FF FF FF FF";
    QTest::newRow("as many as are shown") << 40 << "FF" + QString(" FF").repeated(39);
    QTest::newRow("one more") << 41 << "FF" + QString(" FF").repeated(39) + "...";
}

void TestScriptCheck::manyBytes()
{
    QFETCH(int, count);
    QFETCH(QString, shown);
    const Findings findings = checkScript(document({QByteArray(count, '\xFF')}), QTextCodec::codecForName("UTF-8"));
    QCOMPARE(findings.first().code, check::Code::InvalidBytes);
    QCOMPARE(findings.first().text.section(": ", 1, 1).section(". Was", 0, 0), shown);
}

void TestScriptCheck::examplesHaveNoFault_data()
{
    QTest::addColumn<QString>("name");
    QDirIterator jobs(examples.path(), {"*.xml"});
    while (jobs.hasNext()) {
        jobs.next();
        QTest::newRow(qPrintable(jobs.fileName())) << jobs.fileName();
    }
}

void TestScriptCheck::examplesHaveNoFault()
{
    QFETCH(QString, name);
    const QStringList alwaysTooLong {"report.xml", "summary-receipt.xml"};
    ExampleRun run;
    const Findings findings = checkScript(run.printExample(name));
    QCOMPARE(findings.size(), alwaysTooLong.contains(name) ? 1 : 0);
    for (const Finding& finding : findings)
        QCOMPARE(check::word(finding.severity), QLatin1String("note"));
}

void TestScriptCheck::goldenScripts_data()
{
    QTest::addColumn<QString>("path");
    QDirIterator scripts(ZELMORA_GOLDEN, {"*.script"}, QDir::Files, QDirIterator::Subdirectories);
    while (scripts.hasNext()) {
        const QString path = scripts.next();
        QTest::newRow(qPrintable(path.section('/', -2))) << path;
    }
}

/// The print program writes no line that is no command; what else is wrong comes from the jobs: apostrophes, a second
/// document, a break.
void TestScriptCheck::goldenScripts()
{
    static const QHash<QString, QString> faulty {
        {"quotes-accents-euro-and-emoji", "quote-in-text"},
        {"texts-are-written-as-they-are", "quote-in-text"},
        {"types-with-the-catalogue", "quote-in-text"},
        {"statement-after-a-sold-list", "opened-twice"},
        {"fiscal-after-receipt", "opened-twice"},
        {"receipt-after-fiscal", "opened-twice"},
        {"second-method-prints-no-titles-again", "opened-twice"},
        {"summary-order-after-headers-of-another", "opened-twice"},
        {"headers-here-do-not-centre-the-next-document", "opened-twice"},
        {"job-cut-off-in-an-element", "not-closed"},
        {"unknown-method-stops", "not-closed"},
        {"method-without-a-name-stops", "not-closed"},
        {"no-method", "not-opened"},
    };
    QFETCH(QString, path);
    QSet<QString> errors;
    for (const Finding& finding : checkScript(fileContents(path))) {
        if (finding.severity == check::Severity::Error)
            errors += check::entry(finding.code).name;
    }
    const QString expected = faulty.value(QFileInfo(path).completeBaseName());
    QCOMPARE(QStringList(errors.values()).join(' '), expected);
}

QTEST_GUILESS_MAIN(TestScriptCheck)
#include "tst_scriptcheck.moc"
