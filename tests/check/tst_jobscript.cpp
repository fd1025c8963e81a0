#include "check/jobfindings.h"
#include "support/examples.h"
#include "toolkit/localecodec.h"

#include <QTranslator>
#include <QtTest>

/// What is found in the script that a job makes: texts that the register does not take, cuts and widths; and the trace.
class TestJobScript : public QObject {
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void fiscalTexts_data();
    void fiscalTexts();
    void widths_data();
    void widths();
    void whatAPersonReads_data();
    void whatAPersonReads();
    void attributesThatBeginAlike();
    void columnsThatBeginAlike();
    void commandOfAnAddress();
    void cutWithinACharacter();
    void labelsOfATranslation();
    void examples_data();
    void examples();
    void trace();
    void traceOfSilence_data();
    void traceOfSilence();
    void traceOfAMethodThatIsNone();
};

namespace {

const QByteArray allFlags =
    "printGeometry = true; printHeader = true; printCompany = true; printDeliveryAddress = true; printTable = true;"
    "printCustomer = true; printBillingAddress = true;";

void addColumns()
{
    QTest::addColumn<QByteArray>("job");
    QTest::addColumn<QStringList>("expected");
}

void row(const char* name, const QByteArray& job, const QStringList& expected)
{
    QTest::newRow(name) << job << expected;
}

void checkRow(const QByteArray& settings = settingsWith(allFlags))
{
    QFETCH(QByteArray, job);
    QFETCH(QStringList, expected);
    QCOMPARE(inShort(findingsOf(job, settings)), expected);
}

QByteArray receipt(const QByteArray& content)
{
    return jobOf("printFullOrderReceipt", content);
}

QByteArray dish(const QByteArray& name)
{
    return "<receipe number='1' name=\"" + name + "\" price='1.00' totalPrice='1.00'/>";
}

QByteArray movement(const QByteArray& type)
{
    return jobOf("printStatementOfAccount", "<statement date='14/11/2025' amount='1.00' type=\"" + type + "\"/>");
}

/// Notes what it hears.
class Notes : public check::JobTrace {
public:
    QStringList lines;

private:
    void commandWritten(const check::TracedElement& element, const QString& command) override
    {
        note(element, command);
    }
    void nothingWritten(const check::TracedElement& element, const QString& reason) override
    {
        note(element, "nothing: " + reason);
    }
    void note(const check::TracedElement& element, const QString& text)
    {
        const QString place = QString("%1:%2").arg(element.place.line).arg(element.place.column);
        lines += QStringList {place, element.name, element.method, text}.join(' ');
    }
};

/// Translates one text.
class OneText : public QTranslator {
public:
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return QByteArray(text) == "TOTAL" ? QString("TOTALE\tdell'ordine") : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

void TestJobScript::texts_data()
{
    addColumns();

    // A dish's description has 12 characters.
    row("an apostrophe", receipt(dish("L'acqua")), {"2:21 warning quote-in-text"});
    row("two of them are one fault", receipt(dish("L'acqua d'A")), {"2:21 warning quote-in-text"});
    row("an apostrophe that is cut off", receipt(dish("Acqua dell'oasi")),
        {"2:21 note cut-text", "2:21 warning quote-in-text"});
    row("one behind the cut", receipt(dish("Spaghetti all'uovo")), {"2:21 note cut-text"});
    row("another sign for it",
        receipt(dish("L`acqua L\xE2\x80\x99"
                     "a")),
        {});
    row("in two attributes of one line", receipt("<receipe number=\"'\" name=\"'\" price='1.00' totalPrice='1.00'/>"),
        {"2:10 warning not-a-number", "2:10 warning quote-in-text", "2:21 warning quote-in-text"});
    row("in a line of the heading", receipt("<headers a='x' b=\"l'a\"/>"), {"2:16 warning quote-in-text"});
    row("in a line of the company", receipt("<company a=\"l'a\" b='x' c=\"l'a\"/>"),
        {"2:10 warning quote-in-text", "2:24 warning quote-in-text"});
    row("in a field of an address", receipt("<customer name='a' billingaddress=\"Via, Sant'Angelo , x\"/>"),
        {"2:20 warning quote-in-text"});
    row("in a field that is lost", receipt("<customer name='a' billingaddress=\"Via,,Sant'Angelo\"/>"),
        {"2:20 warning lost-text"});
    row("in two fields, once", receipt("<customer name='a' billingaddress=\"d'A,d'B\"/>"),
        {"2:20 warning quote-in-text"});
    row("in the printer's name", receipt("<printers name=\"L'a\"/>\n<headers a='x'/>\n<headers a='x'/>"),
        {"2:11 warning quote-in-text"});
    row("in a printer's name that nobody prints", receipt("<printers name=\"L'a\"/>"), {});
    row("in what does not print", receipt("<printers port=\"L'a\"/><orderinfo table='3' waiter=\"L'a\"/>"),
        {"2:44 note prints-nothing"});
    row("in a quantity in whose place a sign prints",
        jobOf("printPartialOrder", "<variant number='1' quantity=\"2'\" name='a'/>"), {"2:21 warning not-a-number"});
    row("in a cancelled document",
        jobOf("printReport", "<cancelledsummary number='2' totals='2' a='1' b='1' c='1' d=\"l'1\" e='1' f='1'/>"),
        {"2:59 warning quote-in-text"});
    row("in a movement", movement("l'a"), {"2:44 warning quote-in-text"});

    row("a line break", receipt(dish("a\nb")), {"2:21 warning control-character"});
    row("a tab", receipt(dish("a\tb")), {"2:21 warning control-character"});
    row("a tab around a field of an address is taken away", receipt("<customer name='a' billingaddress='Via\t, x\t'/>"),
        {});
    row("a blank that does not break is none",
        receipt(dish("a\xC2\xA0"
                     "b")),
        {});
    row("a control character of Latin-1",
        receipt(dish("a\xC2\x85"
                     "b")),
        {"2:21 warning control-character"});

    row("the register's word", receipt(dish("A TOTALE")), {"2:21 note changed-text"});
    row("an apostrophe behind it", receipt(dish("TOTALE l'a")),
        {"2:21 note changed-text", "2:21 warning quote-in-text"});
    row("the register's word in two", receipt(dish("12345678TOTALE")), {"2:21 note cut-text"});
    row("the same behind an apostrophe", receipt(dish("l'12345TOTALE")),
        {"2:21 note cut-text", "2:21 warning quote-in-text"});
    row("in other letter case", receipt(dish("A Totale")), {});
    row("in a line of the company", receipt("<company a='TOTALE' b='x TOTALE'/>"),
        {"2:10 note changed-text", "2:21 note changed-text"});

    row("all letters print in UTF-8", receipt(dish("\xE2\x82\xAC \xE6\xBC\xA2 \xF0\x9F\x8D\x95")), {});
    row("a picture that is cut in two", receipt(dish("12345678901\xF0\x9F\x8D\x95")),
        {"2:21 note cut-text", "2:21 warning unprintable-character"});
    row("a movement beyond eight bits", movement("\xE2\x82\xAC \xE6\xBC\xA2 \xE2\x82\xAC"),
        {"2:44 warning unprintable-character", "2:44 warning unprintable-character"});
    row("a movement within eight bits", movement("caff\xC3\xA8"), {});
    row("a movement that is cut before it", movement("12345678\xE2\x82\xAC"), {"2:44 note cut-text"});
    row("a picture in a movement", movement("\xF0\x9F\x8D\x95"), {"2:44 warning unprintable-character"});

    row("a description as wide as its column", receipt(dish("123456789012")), {});
    row("one wider", receipt(dish("1234567890123")), {"2:21 note cut-text"});
    row("a movement", movement("123456789"), {"2:44 note cut-text"});
    row("a variant with its mark", jobOf("printPartialOrder", "<variant number='1' name='1234567890123456789012345'/>"),
        {"2:21 note cut-text"});
}

void TestJobScript::texts()
{
    checkRow();
}

void TestJobScript::fiscalTexts_data()
{
    addColumns();
    const auto sale = [](const QByteArray& department, const QByteArray& name, const QByteArray& price) {
        return jobOf("printFullOrderFiscal",
                     "<receipe department=\"" + department + "\" number='1' name=\"" + name + "\" price=\"" + price
                         + "\"/>");
    };

    row("a sound sale", sale("1", "TOTALE", "1,00"), {});
    row("an apostrophe in its description", sale("1", "L'acqua", "1,00"), {"2:36 warning quote-in-text"});
    row("one in its department ends no text", sale("1'", "a", "1,00"), {});
    row("a tab in its department", sale("\t1", "a", "1,00"), {"2:10 warning control-character"});
    row("a description that a discount does not have", sale("1", "L'acqua", "-1,00"), {});
    row("one that is cut", sale("1", "12345678901234567890123456789012345", "1,00"), {"2:36 note cut-text"});
    row("cut where nobody sees it", sale("1", "12345678901234567890123456789012345", "-1"), {});
    row("a whole name of a dish type",
        jobOf("printAbstractOrderFiscal",
              "<receipe_type department='1' price='1' name=\"" + QByteArray(50, 'x') + "'\"/>"),
        {"2:40 warning quote-in-text"});
    row("a line that is too wide is none", sale("1", QByteArray(32, 'x'), "1,00"), {});
}

void TestJobScript::fiscalTexts()
{
    checkRow();
}

void TestJobScript::widths_data()
{
    QTest::addColumn<QByteArray>("settings");
    addColumns();
    const auto with = [](const char* name, const QByteArray& settings, const QByteArray& job,
                         const QStringList& expected) { QTest::newRow(name) << settings << job << expected; };
    const QByteArray x32(32, 'x');

    with("a heading as wide as the paper", "", receipt("<headers a='" + x32 + "'/>"), {});
    with("a heading one wider", "", receipt("<headers b='x' a='" + x32 + "x'/>"), {"2:16 warning too-wide"});
    with("pictures count once", "", receipt("<headers a='" + QByteArray("\xF0\x9F\x8D\x95").repeated(32) + "'/>"), {});
    with("blanks alone", "", receipt("<headers a='" + QByteArray(40, ' ') + "'/>"), {});
    with("a line of the company", "", receipt("<company a='x' b='" + x32 + "x'/>"), {"2:16 warning too-wide"});
    with("a line that centring makes as wide", "paperWidth = 20;", receipt("<company a='x'/>"), {});
    with("the blanks of centring count", "paperWidth = 14;", receipt("<company a='x'/>"), {"2:10 warning too-wide"});
    with("the printer's name", "", receipt("<printers name='" + x32 + "x'/><headers a='x'/>"),
         {"2:11 warning too-wide"});
    with("a line with a label", "", receipt("<orderinfo table='" + x32 + "'/>"), {"2:12 warning too-wide"});
    with("of two attributes with which a line may end, the longer one", "printTime = true;",
         receipt("<orderinfo time='" + x32 + "' table='x'/>"), {"2:12 warning too-wide"});
    with("a field of an address", "", receipt("<customer name='a' billingaddress='x, " + x32 + "'/>"),
         {"2:20 warning too-wide"});
    with("the document's number", "", receipt("<receipt serialnumber='" + x32 + "'/>"), {"2:10 warning too-wide"});
    with("a row", "", receipt("<receipe number='1234' name='a' price='' totalPrice='1'/>"),
         {"2:1 warning too-wide", "2:33 warning missing-attribute"});
    with("a row of a fixed place", "", receipt("<total price='123456789'/>"), {"2:1 warning too-wide"});
    with("the document's paper counts, not the register's", "paperWidth = 40;", receipt("<headers a='" + x32 + "x'/>"),
         {"1:6 note too-wide"});
    with("a paper above the register's, once for each document", "paperWidth = 33;",
         receipt("<method name='printFullOrderReceipt'/>"),
         {"1:6 note too-wide", "2:1 warning second-method", "2:1 note too-wide"});
    with("not for what has no lines", "paperWidth = 33;", jobOf("printFullOrderFiscal", ""), {});
    with("nor for what prints nothing", "paperWidth = 33;", jobOf("printAbstractOrder", ""),
         {"1:6 note prints-nothing"});

    const QByteArray day =
        "<receiptssummary number='3' firstserial='1' lastserial='3' notPaid='1' cash='2' creditCard='3' "
        "bancomat='4' other='5' total='15'/>";
    with("the rate table's heading", "", jobOf("printReport", day), {"2:1 note too-wide"});
    with("it fits a wider paper", "paperWidth = 40;", jobOf("printReport", day), {"1:6 note too-wide"});
    with("a row of the rate table", "",
         jobOf("printReport", "<taxrate_item taxrate='10' taxable='1' tax='0.10' amount='1.10'/>"),
         {"2:1 note too-wide"});
    with("a row with a value wider than its column", "",
         jobOf("printReport", "<taxrate_item taxrate='10' taxable='12345678.00' tax='1234567.80' amount='x'/>"),
         {"2:1 warning too-wide", "2:67 warning not-a-number"});
    with("what is not paid on a summary receipt", "", jobOf("printAbstractOrderReceipt", "<notPaid price='50.00'/>"),
         {"2:1 note too-wide"});
    with("the same in three characters", "", jobOf("printAbstractOrderReceipt", "<notPaid price='5.0'/>"), {});
    with("what is not paid on a full receipt", "", receipt("<notPaid price='1234567890.00'/>"),
         {"2:10 warning too-wide"});
}

void TestJobScript::widths()
{
    QFETCH(QByteArray, settings);
    checkRow(settingsWith(allFlags + settings));
}

void TestJobScript::whatAPersonReads_data()
{
    QTest::addColumn<QByteArray>("job");
    QTest::addColumn<QString>("text");

    QTest::newRow("the command that comes of an apostrophe")
        << jobOf("printAbstractOrderFiscal", "<receipe_type department='1' price='1' name=\"L'acqua\"/>")
        << "The apostrophe ends the register's text early: write ` in its place. The command becomes: VEND "
           "REP=1,QTY=1,PREZZO=1,DES='L'acqua'";
    QTest::newRow("what a description is cut to")
        << receipt(dish("Spaghetti alla carbonara")) << "\"Spaghetti alla carbonara\" is cut to \"Spaghetti al\".";
    QTest::newRow("which character") << receipt(
        dish("a\tb")) << "The text has a tab (U+0009), which breaks the command: write a blank in its place.";
    QTest::newRow("a spelling that would print")
        << movement("\xE2\x82\xAC")
        << "The script cannot hold \"€\", euro sign (U+20AC): \"?\" prints in its place. \"EUR\" would print.";
}

void TestJobScript::whatAPersonReads()
{
    QFETCH(QByteArray, job);
    QFETCH(QString, text);
    const check::Findings findings = findingsOf(job, settingsWith(allFlags));
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings.first().text, text);
}

void TestJobScript::attributesThatBeginAlike()
{
    const check::Findings findings = findingsOf(receipt("<orderinfo waiter=\"L'acqua\" note=\"L'olio TOTALE\"/>"),
                                                settingsWith("printWaiter = true; printNote = true;"));
    QCOMPARE(inShort(findings),
             (QStringList {"2:12 warning quote-in-text", "2:29 warning quote-in-text", "2:29 note changed-text"}));
    QVERIFY2(findings.at(1).text.endsWith("nofis riga=' Note: L'olio SOMMA'"), qPrintable(findings.at(1).text));
}

void TestJobScript::columnsThatBeginAlike()
{
    const QStringList row = inShort(
        findingsOf(jobOf("printReport", "<taxrate_item taxrate=\"2'\" taxable=\"2'1\" tax=\"2'3\" amount=\"2'2\"/>"),
                   settingsWith("")));
    const QString quote = "warning quote-in-text";
    QCOMPARE(row.filter(quote), (QStringList {"2:15 " + quote, "2:28 " + quote, "2:42 " + quote, "2:52 " + quote}));
}

// Another line may end with the same words.
void TestJobScript::commandOfAnAddress()
{
    const check::Findings findings =
        findingsOf(receipt("<customer name=\"Rossi, L'Aquila\" billingaddress=\"Via Roma,L'Aquila\"/>"),
                   settingsWith("printCustomer = true; printBillingAddress = true;"));
    QCOMPARE(findings.size(), 2);
    QVERIFY2(findings.last().text.endsWith("nofis riga=' L'Aquila'"), qPrintable(findings.last().text));
}

// What is left of the character prints as "?", and no half of one is handed on.
void TestJobScript::cutWithinACharacter()
{
    const check::Findings findings = findingsOf(receipt(dish("12345678901\xF0\x9F\x8D\x95")), settingsWith(allFlags));
    QCOMPARE(findings.size(), 2);
    QCOMPARE(findings.first().text, QString::fromUtf8("\"12345678901\xF0\x9F\x8D\x95\" is cut to \"12345678901?\"."));
}

// They are not the job's: what makes trouble in them stands at the element, and the register's word is its own affair.
void TestJobScript::labelsOfATranslation()
{
    OneText translator;
    QCoreApplication::installTranslator(&translator);
    const QStringList found = inShort(findingsOf(receipt("<total price='1.00'/>"), settingsWith("paperWidth = 40;")));
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(found, (QStringList {"1:6 note too-wide", "2:1 warning control-character", "2:1 warning quote-in-text"}));
}

void TestJobScript::examples_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : ::examples.entryList({"*.xml"}))
        QTest::newRow(qPrintable(name)) << name;
}

void TestJobScript::examples()
{
    QFETCH(QString, name);
    const check::Findings findings = findingsOf(fileContents(::examples.filePath(name)), exampleSettings());
    for (const check::Finding& finding : findings)
        QVERIFY2(finding.severity == check::Severity::Note, qPrintable(inShort(finding) + ' ' + finding.text));
}

void TestJobScript::trace()
{
    Notes notes;
    findingsOf(receipt("<receipt serialnumber='7'/><headers/>"), settingsWith(""), &notes);
    const QStringList expected {
        "1:6 method printFullOrderReceipt nofis apri",
        "2:1 receipt printFullOrderReceipt nofis riga=' Serial Number: 7'",
        "2:1 receipt printFullOrderReceipt nofis riga='================================'",
        "2:28 headers printFullOrderReceipt nofis riga='              '",
        "2:28 headers printFullOrderReceipt nofis riga='================================'",
        "3:1 job printFullOrderReceipt nofis chiudi",
    };
    QCOMPARE(notes.lines, expected);
}

void TestJobScript::traceOfSilence_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& method, const QByteArray& element, const char* reason) {
        QTest::newRow(name) << method << element << reason;
    };

    const QByteArray full = "printFullOrder";
    row("unknown", full, "<nonsense/>", "no print method reads it");
    row("of other methods", full, "<totals/>", "printFullOrder does not read it");
    row("switched off", full, "<company a='1'/>", "zelmora.prefiscaldoc.printCompany is not set to true");
    row("hidden", full, "<receipe name='=a'/>", "a dish whose name begins with \"=\"");
    row("kept", full, "<printers name='a'/>", "it is only kept for the next \"headers\"");
    row("no top margin", full, "<geometry/>", "the top margin is 0");
    row("no command", full, "<logo/>", "the register has no command for it");
    row("payments", "printFullOrderFiscal", "<total cash='1'/>", "the register closes the receipt by itself");
    row("of a summary order", "printAbstractOrder", "<receipe/>", "printAbstractOrder prints nothing");
}

void TestJobScript::traceOfSilence()
{
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, element);
    QFETCH(QString, reason);
    Notes notes;
    findingsOf("<job><total/><x><method name='" + method + "'/></x>\n" + element + "</job>",
               settingsWith("printGeometry = true;"), &notes);
    QCOMPARE(notes.lines.filter("nothing: ").size(), 3);
    QCOMPARE(notes.lines.at(0), QString("1:6 total  nothing: it stands before \"method\""));
    QCOMPARE(notes.lines.at(1), QString("1:14 x  nothing: no print method reads it"));
    QVERIFY2(notes.lines.filter("nothing: ").at(2).endsWith("nothing: " + reason), qPrintable(notes.lines.join('\n')));
}

void TestJobScript::traceOfAMethodThatIsNone()
{
    Notes notes;
    findingsOf("<job><method name='nonsense'/></job>", settingsWith(""), &notes);
    QCOMPARE(notes.lines, QStringList("1:6 method  nothing: there is no print method of its name"));
}

QTEST_GUILESS_MAIN(TestJobScript)
#include "tst_jobscript.moc"
