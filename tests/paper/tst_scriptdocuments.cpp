#include "rolls.h"
#include "support/registerscript.h"

#include <QtTest>

using paper::readRoll;
using paper::Roll;

/// A script as documents: which command belongs to which, and what is wrong with their order and their texts.
class TestScriptDocuments : public QObject {
    Q_OBJECT

private slots:
    void faults_data();
    void faults();
    void documents_data();
    void documents();
    void lineEnds_data();
    void lineEnds();
    void marks_data();
    void marks();
    void rowsKnowTheirPlaces();
    void jobsAreTold_data();
    void jobsAreTold();
};

void TestScriptDocuments::faults_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const QByteArrayList& lines, const QStringList& expected = {}) {
        QTest::newRow(name) << commands(lines) << expected;
    };
    const QByteArray sale = "VEND REP=1,QTY=2,PREZZO=7.50,DES='PIZZA'";
    const QByteArray chars32 = QByteArray(32, 'x');

    row("nothing", {});
    row("an ordinary document", {"nofis apri", "nofis riga='Hello'", "nofis chiudi"});
    row("an ordinary document without a line", {"nofis apri", "nofis chiudi"});
    row("a fiscal receipt", {"CLEAR ", "CHIAVE REG", sale, "CHIUS T=1"});
    row("one document after the other",
        {"nofis apri", "nofis chiudi", "CLEAR ", "CHIAVE REG", sale, "CHIUS T=1", "nofis apri", "nofis chiudi"});
    row("a text line in a fiscal receipt", {"CLEAR ", "CHIAVE REG", sale, "nofis riga='Grazie'", "CHIUS T=1"});
    row("a text line between CLEAR and CHIAVE REG", {"CLEAR ", "nofis riga='a'", "CHIAVE REG", sale, "CHIUS T=1"});

    row("a line that is no command", {"nofis apri", "Hello", "nofis chiudi"}, {"2:1 no-command Hello"});
    row("an empty line", {"nofis apri", "", "nofis chiudi"}, {"2:1 no-command"});
    row("each of several", {"a", "b"}, {"1:1 no-command a", "2:1 no-command b"});
    row("a line without its closing quote", {"nofis apri", "nofis riga='a", "nofis chiudi"},
        {"2:1 no-command nofis riga='a"});
    row("a line without its closing quote, but with one within", {"nofis apri", "nofis riga='a'b", "nofis chiudi"},
        {"2:14 behind-quote b"});
    row("a sale without its closing quote", {"CLEAR ", "CHIAVE REG", sale.chopped(1), "CHIUS T=1"},
        {"3:1 no-command VEND REP=1,QTY=2,PREZZO=7.50,DES='PIZZA"});

    row("a line before any document, once for the run", {"nofis riga='a'", "nofis riga='b'", "nofis chiudi"},
        {"1:1 not-opened nofis riga='a'"});
    row("a line behind the closing command", {"nofis apri", "nofis chiudi", "nofis riga='a'"},
        {"3:1 not-opened nofis riga='a'", "3:1 not-closed nofis chiudi"});
    row("what was never opened is not opened twice", {"nofis riga='a'", "nofis apri", "nofis chiudi"},
        {"1:1 not-opened nofis riga='a'"});
    row("a sale before any document, once for the run", {sale, "SCONTO VAL=1", "PERCA ALIQ=10", "100H1T", "CHIUS T=1"},
        {"1:1 not-opened VEND REP=1,QTY=2,PREZZO=7.50,DES='PIZZA'", "4:1 payments-below-sum 13.00"});
    for (const char* command : {"SCONTO VAL=1", "PERCA ALIQ=10", "=10*2M"})
        row(qPrintable(QString("before any document: %1").arg(command)), {command, "CHIUS T=1"},
            {QString("1:1 not-opened %1").arg(command)});
    row("CHIAVE REG without CLEAR, once for the document", {"CHIAVE REG", sale, sale, "CHIUS T=1"},
        {"1:1 not-opened CHIAVE REG"});
    row("a sale without CHIAVE REG, once for the document", {"CLEAR ", sale, sale, "CHIUS T=1"},
        {"2:1 not-opened " + QString(sale)});
    row("CHIAVE REG too late", {"CLEAR ", sale, "CHIAVE REG", sale, "CHIUS T=1"}, {"2:1 not-opened " + QString(sale)});
    row("CHIAVE REG behind a sale before any document", {sale, "CHIAVE REG", sale, "CHIUS T=1"},
        {"1:1 not-opened " + QString(sale)});
    row("a closing command with nothing open", {"nofis chiudi"}, {"1:1 not-opened nofis chiudi"});
    row("a second closing command", {"CLEAR ", "CHIAVE REG", sale, "CHIUS T=1", "CHIUS T=1"},
        {"5:1 not-opened CHIUS T=1"});
    row("the closing command of the other kind leaves the document open",
        {"nofis apri", "CHIUS T=1", "nofis riga='a'", "nofis chiudi"}, {"2:1 not-opened CHIUS T=1"});
    row("the closing command of an ordinary document in a fiscal receipt",
        {"CLEAR ", "CHIAVE REG", "nofis chiudi", sale, "CHIUS T=1"}, {"3:1 not-opened nofis chiudi"});
    row("sales in an ordinary document, once for each run",
        {"nofis apri", sale, sale, "nofis riga='a'", sale, "nofis chiudi"},
        {"2:1 not-opened " + QString(sale), "5:1 not-opened " + QString(sale)});
    row("a whole receipt's commands in an ordinary document", {"nofis apri", sale, "CHIUS T=1", "nofis chiudi"},
        {"2:1 not-opened " + QString(sale)});

    row("an ordinary document that is not closed", {"nofis apri", "nofis riga='a'"}, {"1:1 not-closed nofis chiudi"});
    row("a fiscal receipt that is not closed", {"nofis apri", "nofis chiudi", "CLEAR ", "CHIAVE REG", sale},
        {"3:1 not-closed CHIUS T=1"});
    row("an ordinary document in an ordinary document", {"nofis apri", "nofis apri", "nofis chiudi"},
        {"2:1 opened-twice nofis apri"});
    row("CLEAR in an ordinary document", {"nofis apri", "CLEAR ", "CHIAVE REG", sale, "CHIUS T=1"},
        {"2:1 opened-twice CLEAR "});
    row("CHIAVE REG in an ordinary document", {"nofis apri", "CHIAVE REG", sale, "CHIUS T=1"},
        {"2:1 opened-twice CHIAVE REG"});
    row("CHIAVE REG twice", {"CLEAR ", "CHIAVE REG", sale, "CHIAVE REG", sale, "CHIUS T=1"},
        {"4:1 opened-twice CHIAVE REG"});
    row("an ordinary document in a fiscal receipt", {"CLEAR ", "CHIAVE REG", sale, "nofis apri", "nofis chiudi"},
        {"4:1 opened-twice nofis apri"});

    row("a quote within a line", {"nofis apri", "nofis riga='it's'", "nofis chiudi"}, {"2:15 quote-in-text it"});
    row("a quote within a line that has none at its end", {"nofis apri", "nofis riga='it's at l'a", "nofis chiudi"},
        {"2:15 behind-quote a"});
    row("several quotes are one fault", {"nofis apri", "nofis riga='a'b'c'", "nofis chiudi"}, {"2:14 quote-in-text a"});
    row("a quote within a sale", {"CLEAR ", "CHIAVE REG", "VEND REP=1,QTY=1,PREZZO=1,DES='Baba' al rum'", "CHIUS T=1"},
        {"3:36 quote-in-text Baba"});
    row("a blank behind the closing quote", {"nofis apri", "nofis riga='a' ", "nofis chiudi"}, {"2:14 behind-quote  "});

    row("a fiscal receipt without a sale", {"CLEAR ", "CHIAVE REG", "CHIUS T=1"}, {"1:1 no-sale"});
    row("a discount is no sale", {"CLEAR ", "CHIAVE REG", "SCONTO VAL=1", "CHIUS T=1"}, {"1:1 no-sale"});
    row("payments below the sum", {"CLEAR ", "CHIAVE REG", sale, "1000H1T", "499H3T", "CHIUS T=1"},
        {"5:1 payments-below-sum 0.01"});
    row("the last of three payments", {"CLEAR ", "CHIAVE REG", sale, "1H1T", "1H3T", "1H5T", "CHIUS T=1"},
        {"6:1 payments-below-sum 14.97"});
    row("payments of the sum", {"CLEAR ", "CHIAVE REG", sale, "1000H1T", "500H3T", "CHIUS T=1"});
    row("payments above the sum", {"CLEAR ", "CHIAVE REG", sale, "2000H1T", "CHIUS T=1"});
    row("payments below a sum that is not known",
        {"CLEAR ", "CHIAVE REG", "VEND REP=1,QTY=2,PREZZO=abc,DES='a'", sale, "1H1T", "CHIUS T=1"});
    row("a payment that is not known", {"CLEAR ", "CHIAVE REG", sale, "abcH1T", "1H1T", "CHIUS T=1"});

    row("as many characters as the paper has", {"nofis apri", "nofis riga='" + chars32 + "'", "nofis chiudi"});
    row("one character more", {"nofis apri", "nofis riga='" + chars32 + "y'", "nofis chiudi"},
        {"2:45 too-wide " + QString(chars32) + "y"});
    row("blanks alone are not too wide", {"nofis apri", "nofis riga='" + QByteArray(40, ' ') + "'", "nofis chiudi"});
    row("blanks behind a text are", {"nofis apri", "nofis riga='a" + QByteArray(32, ' ') + "'", "nofis chiudi"},
        {"2:45 too-wide a" + QString(32, ' ')});
    row("thirty-two letters of two bytes each",
        {"nofis apri", "nofis riga='" + QByteArray("\xC3\xA8").repeated(32) + "'", "nofis chiudi"});
    row("what stands behind a quote counts",
        {"nofis apri", "nofis riga='a'" + QByteArray(31, 'b') + "c'", "nofis chiudi"},
        {"2:14 quote-in-text a", "2:46 too-wide a" + QString(31, 'b') + "c'"});
    row("a description may be longer",
        {"CLEAR ", "CHIAVE REG", "VEND REP=1,QTY=1,PREZZO=1,DES='" + chars32 + "y'", "CHIUS T=1"});
}

void TestScriptDocuments::faults()
{
    QFETCH(QByteArray, script);
    QTEST(faultsOf(readRoll(script)), "expected");
}

void TestScriptDocuments::documents_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QStringList>("expected"); // what each document is, and the first column of its rows
    const auto row = [](const char* name, const QByteArrayList& lines, const QStringList& expected) {
        QTest::newRow(name) << commands(lines) << expected;
    };
    const QByteArray sale = "VEND REP=1,QTY=2,PREZZO=7.50,DES='PIZZA'";
    row("none", {"Hello"}, {});
    row("one", {"nofis apri", "nofis riga='a'", "nofis riga='b'", "nofis chiudi"}, {"a b"});
    row("two", {"nofis apri", "nofis riga='a'", "nofis chiudi", "CLEAR ", "CHIAVE REG", sale, "CHIUS T=1"},
        {"a", "fiscal"});
    row("lines that stand alone are one", {"nofis riga='a'", "nofis riga='b'"}, {"a b"});
    row("what is opened twice is two", {"nofis apri", "nofis riga='a'", "nofis apri", "nofis riga='b'", "nofis chiudi"},
        {"a", "b"});
    row("CHIAVE REG belongs to CLEAR", {"CLEAR ", "CHIAVE REG", sale, "CHIUS T=1"}, {"fiscal"});
    row("CHIAVE REG alone opens one", {"CHIAVE REG", sale, "CHIUS T=1"}, {"fiscal"});
    row("sales in an ordinary document are one of their own",
        {"nofis apri", "nofis riga='a'", sale, sale, "nofis riga='b'", "nofis chiudi"}, {"a b", "fiscal"});
    row("a document is drawn though it is not closed", {"nofis apri", "nofis riga='a'"}, {"a"});
    row("a line is drawn though its quote is missing", {"nofis apri", "nofis riga='a", "nofis chiudi"}, {"a"});
    row("no command, no row", {"nofis apri", "a", "nofis riga='b'", "nofis chiudi"}, {"b"});
}

void TestScriptDocuments::documents()
{
    QFETCH(QByteArray, script);
    QStringList found;
    for (const paper::Document& document : readRoll(script).documents)
        found += document.isFiscal ? QString("fiscal") : textsOf(document.rows).join(' ');
    QTEST(found, "expected");
}

void TestScriptDocuments::lineEnds_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QStringList>("faults");
    const auto row = [](const char* name, const QByteArray& script, const QStringList& rows,
                        const QStringList& faults = {}) { QTest::newRow(name) << script << rows << faults; };
    row("carriage return and line feed", "nofis apri\r\nnofis riga='a'\r\nnofis chiudi\r\n", {"a"});
    row("line feed alone", "nofis apri\nnofis riga='a'\nnofis chiudi\n", {"a"});
    row("no end behind the last", "nofis apri\r\nnofis riga='a'\r\nnofis chiudi", {"a"});
    row("one carriage return belongs to the end, another does not",
        "nofis apri\r\nnofis riga='a'\r\r\nnofis chiudi\r\n", {"a\r"}, {"2:14 behind-quote \r"});
    row("a carriage return alone is a character", "nofis apri\r\nnofis riga='a\rb'\r\nnofis chiudi\r\n", {"a\rb"});
    row("a carriage return at the end of the file is a character", "nofis apri\r\nnofis riga='a'\r\nnofis chiudi\r",
        {"a"}, {"1:1 not-closed nofis chiudi", "3:1 no-command nofis chiudi\r"});
    row("a form feed is a character", "nofis apri\r\nnofis riga='a\fb'\r\nnofis chiudi\r\n", {"a\fb"});
}

void TestScriptDocuments::lineEnds()
{
    QFETCH(QByteArray, script);
    const Roll roll = readRoll(script);
    QTEST(faultsOf(roll), "faults");
    QCOMPARE(roll.documents.size(), 1);
    QTEST(textsOf(roll.documents.first().rows), "rows");
}

void TestScriptDocuments::marks_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("expected");
    const QByteArray chars32 = QByteArray(32, 'x');
    QTest::newRow("none") << QByteArray("Hello") << QStringList();
    QTest::newRow("up to the edge") << chars32 << QStringList();
    QTest::newRow("past the edge") << chars32 + "abc" << QStringList("edge 32 3");
    QTest::newRow("behind a quote") << QByteArray("it's") << QStringList("quote 2 2");
    QTest::newRow("behind a quote and past the edge") << "a'" + chars32 << QStringList({"quote 1 33", "edge 32 2"});
    QTest::newRow("blanks alone") << QByteArray(40, ' ') << QStringList();
    QTest::newRow("blanks behind a text") << chars32 + "  " << QStringList("edge 32 2");
    QTest::newRow("wide characters past the edge")
        << QByteArray("\xE6\xBC\xA2").repeated(17) << QStringList("edge 16 1");
    QTest::newRow("a wide character across the edge")
        << QByteArray(31, 'x') + "\xE6\xBC\xA2" << QStringList("edge 31 1");
    QTest::newRow("combining marks take no room") << QByteArray("e\xCC\x81").repeated(32) << QStringList();
}

void TestScriptDocuments::marks()
{
    QFETCH(QByteArray, text);
    const Roll roll = readRoll(document({text}));
    QStringList found;
    for (const paper::MarkedPart& part : roll.documents.first().rows.first().marked)
        found += QString("%1 %2 %3")
                     .arg(part.mark == paper::Mark::PastEdge ? "edge" : "quote")
                     .arg(part.begin)
                     .arg(part.length);
    QTEST(found, "expected");
}

void TestScriptDocuments::rowsKnowTheirPlaces()
{
    const Roll roll = readRoll(commands({"nofis apri", "Hello", "nofis riga='a'", "nofis riga='b'", "nofis chiudi"}));
    const paper::Rows rows = roll.documents.first().rows;
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows.at(0).place.line, 3);
    QCOMPARE(rows.at(1).place.line, 4);
    QCOMPARE(rows.at(1).place.column, 1);
}

void TestScriptDocuments::jobsAreTold_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<bool>("isJob");
    const auto row = [](const char* name, const QByteArray& contents, bool isJob) {
        QTest::newRow(name) << contents << isJob;
    };
    row("a job", "<?xml version='1.0'?><a/>", true);
    row("a job behind white space", " \t\r\n<a/>", true);
    row("a job behind a byte-order mark", "\xEF\xBB\xBF<a/>", true);
    row("a job behind a byte-order mark and white space", "\xEF\xBB\xBF\n <a/>", true);
    row("a job in UTF-16, the lower byte first", QByteArray("\xFF\xFE<\0", 4), true);
    row("a job in UTF-16, the higher byte first", QByteArray("\xFE\xFF\0<", 4), true);
    row("white space in UTF-16", QByteArray("\xFE\xFF\0\n\0 \0<", 8), true);
    row("nothing", "", false);
    row("white space", " \n", false);
    row("a script", "nofis apri\r\n", false);
    row("a script with a job in it", "nofis riga='<a/>'", false);
    row("a script behind an empty line", "\r\nCLEAR \r\n", false);
}

void TestScriptDocuments::jobsAreTold()
{
    QFETCH(QByteArray, contents);
    QTEST(paper::isJob(contents), "isJob");
}

QTEST_APPLESS_MAIN(TestScriptDocuments)

#include "tst_scriptdocuments.moc"
