#include "driver/companyprinterdriver.h"

#include "config/zmconfiguration.h"
#include "support/capture.h"
#include "support/job.h"
#include "support/registerscript.h"

#include <QtTest>

using Calls = std::function<void(CompanyPrinterDriver&)>;

Q_DECLARE_METATYPE(Calls)

namespace {

/// What a driver that gets @p calls leaves in its file.
QByteArray written(const Calls& calls)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");
    {
        CompanyPrinterDriver driver(path);
        calls(driver);
    }
    return fileContents(path);
}

/// The script of a whole job; no method at all for an empty @p method.
QByteArray script(const QString& method, const Job& job)
{
    return written([&](CompanyPrinterDriver& driver) {
        driver.startDocument();
        if (!method.isEmpty())
            selectMethod(driver, method);
        deliver(driver, job);
        driver.endDocument();
    });
}

void addCallColumns()
{
    QTest::addColumn<Calls>("calls");
    QTest::addColumn<QByteArray>("bytes");
}

void addCallRow(const char* name, const QByteArray& bytes, const Calls& calls)
{
    QTest::newRow(name) << calls << bytes;
}

void checkWritten()
{
    QFETCH(Calls, calls);
    QFETCH(QByteArray, bytes);
    QCOMPARE(written(calls), bytes);
}

/// Each operation at least once, and more lines than any buffer on the way to the file holds.
void callEverything(CompanyPrinterDriver& driver)
{
    driver.startDocument();
    selectMethod(driver, "printFullOrderFiscal");
    driver.initPrinter();
    driver.setBold();
    driver.setCenterJustify();
    driver.setCharSize();
    driver.setCharSize(2);
    driver.printLogo();
    driver.printSeparatorLine();
    driver.print(1, "a");
    driver.println(2, "b");
    driver.printRowFiscal("totals", xmlAttributes({{"cash", "5"}, {"discountRate", "10"}}));
    driver.printRowFiscal("1", "2", "PIZZA", "3.50");
    driver.printRowFiscal("1", "2", "PIZZA", "-3.50", "22");
    driver.generatePulse();
    driver.fullCut();
    selectMethod(driver, "printFullOrderReceipt");
    for (int i = 0; i < 2000; ++i)
        driver.println("PIZZA");
    driver.print(0, "unfinished");
    driver.endDocument();
}

/// Shows the justification, which only the engine sets otherwise.
class JustifiedDriver : public CompanyPrinterDriver {
public:
    using CompanyPrinterDriver::CompanyPrinterDriver;
    using PrinterDriver::justify;
};

/// Keeps the commands, and writes to no file.
class KeepingDriver : public CompanyPrinterDriver {
public:
    explicit KeepingDriver(ZMConfiguration& settings)
        : CompanyPrinterDriver(settings)
    {
    }

    QStringList commands;

private:
    void write(const QString& command) override { commands += command; }
};

} // namespace

/// The bytes of the cash register's script.
class TestCompanyPrinterDriver : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    // Lines
    void lines_data();
    void lines();
    void centring_data();
    void centring();
    void centringOfEveryLength();
    void centringIsTheRegistersOwn();
    void onlyCenterIsCentred_data();
    void onlyCenterIsCentred();
    void operationsWithoutTrace();
    void registersWord_data();
    void registersWord();
    void unfinishedLines_data();
    void unfinishedLines();

    void commandsOfADriverWithoutAFile();

    // Documents
    void framing_data();
    void framing();
    void twoMethods_data();
    void twoMethods();
    void paperWidthIs32();

    // Fiscal commands
    void amounts_data();
    void amounts();
    void discountOfTheTotals_data();
    void discountOfTheTotals();
    void payments_data();
    void payments();
    void sales_data();
    void sales();
    void salesWithRate_data();
    void salesWithRate();

    // The file
    void fileIsEmptiedFirst();
    void textIsUtf8InAUtf8Locale();
    void fileThatCannotBeOpenedIsHarmless();
    void fullDiskIsHarmless();
};

void TestCompanyPrinterDriver::initTestCase()
{
    qputenv("LC_ALL", "C.UTF-8");
}

void TestCompanyPrinterDriver::init()
{
    useSettings(QByteArray());
}

void TestCompanyPrinterDriver::lines_data()
{
    addCallColumns();

    addCallRow("a text", line("Hello"), [](auto& d) { d.println("Hello"); });
    addCallRow("an indented text", line("    abc"), [](auto& d) { d.println(4, "abc"); });
    addCallRow("pieces, each with its indentation", line("  Qty   SOMMAx"), [](auto& d) {
        d.print(2, "Qty");
        d.print(3, "TOTALE");
        d.println(0, "x");
    });
    addCallRow("an empty line", line(""), [](auto& d) { d.println(""); });
    addCallRow("a row in a layout that is none", line(""),
               [](auto& d) { d.println(d.descriptionRow("1", "PIZZA", "3.50", "3.50", QLatin1Char('.'), "qdtp")); });
    addCallRow("an indentation without text", line("   "), [](auto& d) { d.println(3, ""); });
    addCallRow("an indentation is no column: a longer text is not cut", line("  abcdef"),
               [](auto& d) { d.println(2, "abcdef"); });
    addCallRow("a long text is not cut", line(QByteArray(100, 'x')), [](auto& d) { d.println(QString(100, 'x')); });
    addCallRow("blanks stay", line(" a  b "), [](auto& d) { d.println(" a  b "); });
    addCallRow("a quote is written as it is", line("L'olio"), [](auto& d) { d.println("L'olio"); });
    addCallRow("line ends in the text are written as they are", line("2 x 3.50\nPIZZA\r"),
               [](auto& d) { d.println("2 x 3.50\nPIZZA\r"); });
    addCallRow("two lines", line("a") + line("  b"), [](auto& d) {
        d.println("a");
        d.println(2, "b");
    });
    addCallRow("a line begins afresh after a line of pieces", line("ab") + line("c"), [](auto& d) {
        d.print(0, "a");
        d.println("b");
        d.println("c");
    });
}

void TestCompanyPrinterDriver::lines()
{
    checkWritten();
}

void TestCompanyPrinterDriver::centring_data()
{
    addCallColumns();

    addCallRow("a text", line("            Hello"), [](auto& d) {
        d.setCenterJustify();
        d.println("Hello");
    });
    addCallRow("the indentation counts as content", line("               abc"), [](auto& d) {
        d.setCenterJustify();
        d.println(4, "abc");
    });
    addCallRow("pieces count together", line("             abc"), [](auto& d) {
        d.setCenterJustify();
        d.print(0, "a");
        d.print(0, "b");
        d.println("c");
    });
    addCallRow("the register's word counts with its own length", line("            SOMMA"), [](auto& d) {
        d.setCenterJustify();
        d.println("TOTALE");
    });
    addCallRow("an accent is one character", line("            Caffè"), [](auto& d) {
        d.setCenterJustify();
        d.println("Caffè");
    });
    addCallRow("it lasts", line("              a") + line("              b"), [](auto& d) {
        d.setCenterJustify();
        d.println("a");
        d.println("b");
    });
    addCallRow("setCharSize() ends it", line("              a") + line("b"), [](auto& d) {
        d.setCenterJustify();
        d.println("a");
        d.setCharSize();
        d.println("b");
    });
    addCallRow("setCharSize(3) ends it", line("a"), [](auto& d) {
        d.setCenterJustify();
        d.setCharSize(3);
        d.println("a");
    });
    addCallRow("setCharSize(0) ends it", line("a"), [](auto& d) {
        d.setCenterJustify();
        d.setCharSize(0);
        d.println("a");
    });
    addCallRow("the end of the line decides, not its first piece", line("              a"), [](auto& d) {
        d.print(0, "a");
        d.setCenterJustify();
        d.println("");
    });
}

void TestCompanyPrinterDriver::centring()
{
    checkWritten();
}

void TestCompanyPrinterDriver::centringOfEveryLength()
{
    for (int length = 0; length <= 60; ++length) {
        const int blanks = length <= 29 ? (29 - length) / 2 : 0;
        const QByteArray centred = written([&](CompanyPrinterDriver& driver) {
            driver.setCenterJustify();
            driver.println(QString(length, 'x'));
        });
        QCOMPARE(centred, line(QByteArray(blanks, ' ') + QByteArray(length, 'x')));
        const QByteArray left = written([&](CompanyPrinterDriver& driver) { driver.println(QString(length, 'x')); });
        QCOMPARE(left, line(QByteArray(length, 'x')));
    }
}

void TestCompanyPrinterDriver::centringIsTheRegistersOwn()
{
    useSettings("zelmora: { receiptdoc: { paperWidth = 80; }; };");

    const QByteArray bytes = written([](CompanyPrinterDriver& driver) {
        selectMethod(driver, "printFullOrderReceipt");
        driver.setCenterJustify();
        driver.println("Hello");
    });
    QCOMPARE(bytes, openDocument({"            Hello"}));
}

void TestCompanyPrinterDriver::onlyCenterIsCentred_data()
{
    QTest::addColumn<QString>("justify");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("center") << "center" << line("            Hello");
    QTest::newRow("left") << "left" << line("Hello");
    QTest::newRow("another letter case") << "Center" << line("Hello");
    QTest::newRow("another word") << "right" << line("Hello");
    QTest::newRow("nothing") << "" << line("Hello");
}

void TestCompanyPrinterDriver::onlyCenterIsCentred()
{
    QFETCH(QString, justify);
    QFETCH(QByteArray, bytes);
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");

    {
        JustifiedDriver driver(path);
        driver.justify = justify;
        driver.println("Hello");
        QCOMPARE(driver.justify, justify);
    }
    QCOMPARE(fileContents(path), bytes);
}

void TestCompanyPrinterDriver::operationsWithoutTrace()
{
    const QByteArray bytes = written([](CompanyPrinterDriver& driver) {
        driver.setCenterJustify();
        driver.setBold();
        driver.fullCut();
        driver.generatePulse();
        driver.printLogo();
        driver.reset();
        driver.initPrinter();
        driver.println("Hello");
    });
    QCOMPARE(bytes, line("            Hello"));
}

void TestCompanyPrinterDriver::registersWord_data()
{
    addCallColumns();

    addCallRow("twice", line("SOMMA e SOMMA"), [](auto& d) { d.println("TOTALE e TOTALE"); });
    addCallRow("twice without anything between", line("SOMMASOMMA"), [](auto& d) { d.println("TOTALETOTALE"); });
    addCallRow("within a word", line("SUBSOMMAI"), [](auto& d) { d.println("SUBTOTALEI"); });
    addCallRow("in other letter case it stays", line("Totale totale TOTALe"),
               [](auto& d) { d.println("Totale totale TOTALe"); });
    addCallRow("the English word stays", line("TOTAL"), [](auto& d) { d.println("TOTAL"); });
    addCallRow("what arises from the replacement stays", line("TOTASOMMALE"),
               [](auto& d) { d.println("TOTATOTALELE"); });
    addCallRow("split over two pieces it stays", line("TOTALE"), [](auto& d) {
        d.print(0, "TOTA");
        d.println("LE");
    });
    addCallRow("in a piece", line("SOMMA: 5"), [](auto& d) {
        d.print(0, "TOTALE: ");
        d.println("5");
    });
    addCallRow("in a fiscal description it stays", commands({"VEND REP=TOTALE,QTY=1,PREZZO=5,DES='TOTALE'"}),
               [](auto& d) { d.printRowFiscal("TOTALE", "1", "TOTALE", "5"); });
}

void TestCompanyPrinterDriver::registersWord()
{
    checkWritten();
}

void TestCompanyPrinterDriver::unfinishedLines_data()
{
    addCallColumns();

    addCallRow("print() alone writes nothing", "", [](auto& d) { d.print(2, "lost"); });
    addCallRow("lost after the last line", line("a"), [](auto& d) {
        d.println("a");
        d.print(0, "lost");
    });
    addCallRow("lost at the end of the document", commands({"nofis chiudi"}), [](auto& d) {
        d.print(0, "lost");
        d.endDocument();
    });
    addCallRow("goes on after a command", openDocument({"ab"}), [](auto& d) {
        d.print(0, "a");
        d.startSection();
        d.println("b");
    });
    addCallRow("goes on after a sale", commands({"VEND REP=1,QTY=1,PREZZO=5,DES='x'"}) + line("ab"), [](auto& d) {
        d.print(0, "a");
        d.printRowFiscal("1", "1", "x", "5");
        d.println("b");
    });
}

void TestCompanyPrinterDriver::unfinishedLines()
{
    checkWritten();
}

void TestCompanyPrinterDriver::commandsOfADriverWithoutAFile()
{
    useSettings("zelmora: { receiptdoc: { paperWidth = 3; }; };");
    ZMConfiguration settings("zelmora: { receiptdoc: { paperWidth = 5; }; };", "own.conf", "cfg");
    KeepingDriver driver(settings);
    driver.startDocument();
    selectMethod(driver, "printFullOrderReceipt");
    deliver(driver, {{"receipt", {{"serialnumber", "7"}}}});
    driver.endDocument();

    const QStringList expected {"nofis apri\r\n", "nofis riga=' Serial Number: 7'\r\n", "nofis riga='====='\r\n",
                                "nofis chiudi\r\n"};
    QCOMPARE(driver.commands, expected);
}

void TestCompanyPrinterDriver::framing_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("no method: only the end") << "" << commands({"nofis chiudi"});
    QTest::newRow("an ordinary document") << "printSold" << document({});
    QTest::newRow("a fiscal receipt") << "printFullOrderFiscal" << fiscalReceipt({});
    QTest::newRow("a summary fiscal receipt") << "printAbstractOrderFiscal" << fiscalReceipt({});
}

void TestCompanyPrinterDriver::framing()
{
    QFETCH(QString, method);
    QFETCH(QByteArray, bytes);
    QCOMPARE(script(method, {}), bytes);
}

void TestCompanyPrinterDriver::twoMethods_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("ordinary, then fiscal: closed as the fiscal one")
        << "printSold"
        << "printFullOrderFiscal" << commands({"nofis apri", "CLEAR ", "CHIAVE REG", "CHIUS T=1"});
    QTest::newRow("fiscal, then ordinary: closed as the ordinary one")
        << "printAbstractOrderFiscal"
        << "printSold" << commands({"CLEAR ", "CHIAVE REG", "nofis apri", "nofis chiudi"});
    QTest::newRow("the same twice") << "printReport"
                                    << "printReport" << commands({"nofis apri", "nofis apri", "nofis chiudi"});
}

void TestCompanyPrinterDriver::twoMethods()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QByteArray, bytes);

    const QByteArray name = second.toUtf8();
    QCOMPARE(script(first, {{"method", {{"name", name.constData()}}}}), bytes);
}

void TestCompanyPrinterDriver::paperWidthIs32()
{
    const QByteArray bytes = written([](CompanyPrinterDriver& driver) {
        QCOMPARE(driver.getPaperWidth(), 32);
        driver.loadValues("receipt");
        driver.printSeparatorLine();
    });
    QCOMPARE(bytes, line(rule()));
}

void TestCompanyPrinterDriver::amounts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("hundredths"); // empty: no command at all

    QTest::newRow("a comma") << "12,50" << QByteArray("1250");
    QTest::newRow("a point") << "12.5" << QByteArray("1250");
    QTest::newRow("a whole number") << "20" << QByteArray("2000");
    QTest::newRow("8,29") << "8,29" << QByteArray("829");
    QTest::newRow("1138,81") << "1138,81" << QByteArray("113881");
    QTest::newRow("0,07") << "0,07" << QByteArray("7");
    QTest::newRow("0,01") << "0,01" << QByteArray("1");
    QTest::newRow("9999999,99") << "9999999,99" << QByteArray("999999999");
    QTest::newRow("three decimals are not rounded") << "12,345" << QByteArray("1234.5");
    QTest::newRow("an eighth is not rounded") << "0.125" << QByteArray("12.5");
    QTest::newRow("less than a hundredth") << "0,001" << QByteArray("0.1");
    QTest::newRow("no more than 15 digits") << "1,2345678901234567" << QByteArray("123.456789012346");
    QTest::newRow("negative") << "-5" << QByteArray("-500");
    QTest::newRow("a plus sign") << "+5" << QByteArray("500");
    QTest::newRow("blanks around") << "  5,00 " << QByteArray("500");
    QTest::newRow("a leading comma") << ",5" << QByteArray("50");
    QTest::newRow("an exponent") << "1e2" << QByteArray("10000");
    QTest::newRow("1e20") << "1e20" << QByteArray("1e+22");
    QTest::newRow("zero") << "0" << QByteArray();
    QTest::newRow("zero with decimals") << "0,00" << QByteArray();
    QTest::newRow("negative zero") << "-0" << QByteArray();
    QTest::newRow("empty") << "" << QByteArray();
    QTest::newRow("blanks") << "   " << QByteArray();
    QTest::newRow("a word") << "abc" << QByteArray();
    QTest::newRow("a number and a word") << "5 euro" << QByteArray();
    QTest::newRow("thousands in Italian") << "1.138,81" << QByteArray();
    QTest::newRow("thousands in English") << "1,138.81" << QByteArray();
    QTest::newRow("infinity") << "inf" << QByteArray();
    QTest::newRow("negative infinity") << "-inf" << QByteArray();
    QTest::newRow("nan") << "nan" << QByteArray();
    QTest::newRow("beyond a double") << "1e999" << QByteArray();
    QTest::newRow("beyond a double in hundredths") << "1e307" << QByteArray();
    QTest::newRow("hexadecimal") << "0x10" << QByteArray();
    QTest::newRow("a minus sign that is not ASCII") << "\u22125" << QByteArray();
}

void TestCompanyPrinterDriver::amounts()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, hundredths);
    const QVector<QPair<const char*, QByteArray>> types {
        {"cash", "H1T"}, {"creditCard", "H3T"}, {"cheque", "H2T"}, {"ticket", "H5T"}};

    const QByteArray value = text.toUtf8();
    for (const auto& type : types) {
        const QByteArray bytes = written([&](CompanyPrinterDriver& driver) {
            driver.printRowFiscal("totals", xmlAttributes({{type.first, value.constData()}}));
        });
        QCOMPARE(bytes, commands(hundredths.isEmpty() ? QByteArrayList() : QByteArrayList {hundredths + type.second}));
    }
}

void TestCompanyPrinterDriver::discountOfTheTotals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("percent"); // empty: no command at all

    QTest::newRow("a whole number, not in hundredths") << "10" << QByteArray("10");
    QTest::newRow("a comma") << "2,5" << QByteArray("2.5");
    QTest::newRow("no trailing zeros") << "2,50" << QByteArray("2.5");
    QTest::newRow("negative") << "-3" << QByteArray("-3");
    QTest::newRow("1e20") << "1e20" << QByteArray("1e+20");
    QTest::newRow("1e307 is still a number") << "1e307" << QByteArray("1e+307");
    QTest::newRow("zero") << "0" << QByteArray();
    QTest::newRow("zero with decimals") << "0,00" << QByteArray();
    QTest::newRow("negative zero") << "-0" << QByteArray();
    QTest::newRow("empty") << "" << QByteArray();
    QTest::newRow("a word") << "abc" << QByteArray();
    QTest::newRow("a per cent sign") << "10%" << QByteArray();
    QTest::newRow("infinity") << "inf" << QByteArray();
    QTest::newRow("nan") << "nan" << QByteArray();
    QTest::newRow("a minus sign that is not ASCII") << "\u22123" << QByteArray();
}

void TestCompanyPrinterDriver::discountOfTheTotals()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, percent);

    const QByteArray value = text.toUtf8();
    QCOMPARE(written([&](CompanyPrinterDriver& driver) {
                 driver.printRowFiscal("totals", xmlAttributes({{"discountRate", value.constData()}}));
             }),
             commands(percent.isEmpty() ? QByteArrayList() : QByteArrayList {"=" + percent + "*2M"}));
}

void TestCompanyPrinterDriver::payments_data()
{
    QTest::addColumn<Job>("job"); // delivered to the fiscal operation as it is
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray all = commands({"=10*2M", "100H1T", "200H3T", "300H2T", "400H5T"});
    QTest::newRow("all, in their order")
        << Job {{"totals",
                 {{"discountRate", "10"}, {"cash", "1"}, {"creditCard", "2"}, {"cheque", "3"}, {"ticket", "4"}}}}
        << all;
    QTest::newRow("the attributes' order plays no part")
        << Job {{"totals",
                 {{"ticket", "4"}, {"cheque", "3"}, {"creditCard", "2"}, {"cash", "1"}, {"discountRate", "10"}}}}
        << all;
    QTest::newRow("some of them") << Job {{"totals", {{"ticket", "4"}, {"cash", "0"}, {"creditCard", "2"}}}}
                                  << commands({"200H3T", "400H5T"});
    QTest::newRow("all zero")
        << Job {{"totals",
                 {{"discountRate", "0"}, {"cash", "0"}, {"creditCard", "0,00"}, {"cheque", ""}, {"ticket", "-0"}}}}
        << QByteArray();
    QTest::newRow("no attributes") << Job {{"totals", {}}} << QByteArray();
    QTest::newRow("other attributes") << Job {{"totals",
                                               {{"Cash", "1"}, {"total", "2"}, {"price", "3"}, {"other", "4"}}}}
                                      << QByteArray();
    QTest::newRow("each totals writes") << Job {{"totals", {{"cash", "1"}}}, {"totals", {{"cash", "2"}}}}
                                        << commands({"100H1T", "200H1T"});
    QTest::newRow("total, in the singular, writes nothing")
        << Job {{"total", {{"cash", "1"}, {"discountRate", "10"}}}} << QByteArray();
    QTest::newRow("another letter case writes nothing")
        << Job {{"Totals", {{"cash", "1"}}}, {"TOTALS", {{"cash", "1"}}}} << QByteArray();
    QTest::newRow("no name writes nothing") << Job {{"", {{"cash", "1"}}}} << QByteArray();
}

void TestCompanyPrinterDriver::payments()
{
    QFETCH(Job, job);
    QFETCH(QByteArray, bytes);

    QCOMPARE(written([&](CompanyPrinterDriver& driver) {
                 for (const Element& element : job)
                     driver.printRowFiscal(element.name, xmlAttributes(element.attributes));
             }),
             bytes);
}

void TestCompanyPrinterDriver::sales_data()
{
    QTest::addColumn<QString>("price");
    QTest::addColumn<QByteArray>("bytes");

    const auto sale = [](const QByteArray& price) {
        return commands({"VEND REP=1,QTY=2,PREZZO=" + price + ",DES='PIZZA'"});
    };
    const auto discount = [](const QByteArray& amount) { return commands({"SCONTO VAL=" + amount}); };
    QTest::newRow("a point") << "7.50" << sale("7.50");
    QTest::newRow("a comma becomes a point, nothing else changes") << "7,50" << sale("7.50");
    QTest::newRow("every comma becomes a point") << "1,138,81" << sale("1.138.81");
    QTest::newRow("zero") << "0" << sale("0");
    QTest::newRow("zero with decimals") << "0,00" << sale("0.00");
    QTest::newRow("negative zero is not below 0") << "-0" << sale("-0");
    QTest::newRow("empty") << "" << sale("");
    QTest::newRow("blanks") << "  " << sale("  ");
    QTest::newRow("a word") << "abc" << sale("abc");
    QTest::newRow("a word with a minus sign") << "-abc" << sale("-abc");
    QTest::newRow("a negative number and a word") << "-5 euro" << sale("-5 euro");
    QTest::newRow("thousands are no number") << "-1.138,81" << sale("-1.138.81");
    QTest::newRow("blanks around stay") << " 5 " << sale(" 5 ");
    QTest::newRow("a plus sign stays") << "+5" << sale("+5");
    QTest::newRow("1e20 stays") << "1e20" << sale("1e20");
    QTest::newRow("infinity") << "inf" << sale("inf");
    QTest::newRow("negative infinity is no number") << "-inf" << sale("-inf");
    QTest::newRow("nan") << "nan" << sale("nan");
    QTest::newRow("below a double is no number") << "-1e999" << sale("-1e999");
    QTest::newRow("a minus sign that is not ASCII makes no discount") << "\u22121,50" << sale("\u22121.50");

    QTest::newRow("a discount") << "-1,00" << discount("1");
    QTest::newRow("a discount with decimals") << "-2,5" << discount("2.5");
    QTest::newRow("a discount with a point") << "-2.50" << discount("2.5");
    QTest::newRow("a discount of 0,07") << "-0,07" << discount("0.07");
    QTest::newRow("a discount of 1138,81") << "-1138,81" << discount("1138.81");
    QTest::newRow("a tiny discount") << "-0,000001" << discount("1e-06");
    QTest::newRow("a discount of 1e20") << "-1e20" << discount("1e+20");
    QTest::newRow("blanks around a discount") << " -5 " << discount("5");
}

void TestCompanyPrinterDriver::sales()
{
    QFETCH(QString, price);
    QFETCH(QByteArray, bytes);
    QCOMPARE(written([&](CompanyPrinterDriver& driver) { driver.printRowFiscal("1", "2", "PIZZA", price); }), bytes);
}

void TestCompanyPrinterDriver::salesWithRate_data()
{
    addCallColumns();

    addCallRow("a sale, then its rate", commands({"VEND REP=1,QTY=2,PREZZO=7.50,DES='PIZZA'", "PERCA ALIQ=22"}),
               [](auto& d) { d.printRowFiscal("1", "2", "PIZZA", "7,50", "22"); });
    addCallRow("a discount, then its rate", commands({"SCONTO VAL=1", "PERCA ALIQ=22"}),
               [](auto& d) { d.printRowFiscal("1", "2", "PIZZA", "-1,00", "22"); });
    addCallRow("the rate is written as it is", commands({"SCONTO VAL=1", "PERCA ALIQ= 22,50 %"}),
               [](auto& d) { d.printRowFiscal("1", "2", "PIZZA", "-1", " 22,50 %"); });
    addCallRow("no rate", commands({"SCONTO VAL=1", "PERCA ALIQ="}),
               [](auto& d) { d.printRowFiscal("1", "2", "PIZZA", "-1", ""); });
    addCallRow("the other texts are written as they are",
               commands({"VEND REP= a,b,QTY=1,5,PREZZO=5,DES='L'È  <\n>, 3,50 '"}),
               [](auto& d) { d.printRowFiscal(" a,b", "1,5", "L'È  <\n>, 3,50 ", "5"); });
    addCallRow("four empty texts", commands({"VEND REP=,QTY=,PREZZO=,DES=''"}),
               [](auto& d) { d.printRowFiscal("", "", "", ""); });
    addCallRow("centring has no effect on fiscal commands",
               commands({"VEND REP=1,QTY=2,PREZZO=5,DES='x'", "SCONTO VAL=5", "PERCA ALIQ=4", "500H1T"}), [](auto& d) {
                   d.setCenterJustify();
                   d.printRowFiscal("1", "2", "x", "5");
                   d.printRowFiscal("1", "2", "x", "-5", "4");
                   d.printRowFiscal("totals", xmlAttributes({{"cash", "5"}}));
               });
}

void TestCompanyPrinterDriver::salesWithRate()
{
    checkWritten();
}

void TestCompanyPrinterDriver::fileIsEmptiedFirst()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");

    {
        CompanyPrinterDriver(path).println("a longer line than the next");
    }
    {
        CompanyPrinterDriver(path).println("a");
    }
    QCOMPARE(fileContents(path), line("a"));
    {
        CompanyPrinterDriver driver(path);
    }
    QCOMPARE(fileContents(path), QByteArray());
}

void TestCompanyPrinterDriver::textIsUtf8InAUtf8Locale()
{
    const QByteArray bytes = written([](CompanyPrinterDriver& driver) {
        driver.println("Caffè 5 €");
        driver.printRowFiscal("1", "1", "漢", "5");
    });
    QCOMPARE(bytes, line("Caffè 5 €") + commands({"VEND REP=1,QTY=1,PREZZO=5,DES='漢'"}));
}

void TestCompanyPrinterDriver::fileThatCannotBeOpenedIsHarmless()
{
    const QTemporaryDir folder;
    QByteArray output;

    const QByteArray errors = captured(stderr, [&] {
        output = captured(stdout, [&] {
            CompanyPrinterDriver driver(folder.filePath("missing/script.txt"));
            callEverything(driver);
        });
    });
    QCOMPARE(output, QByteArray("PrintManager::printAbstractOrder(...): Unable To Open File\n"));
    QCOMPARE(errors, QByteArray());
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TestCompanyPrinterDriver::fullDiskIsHarmless()
{
    QByteArray output;

    const QByteArray errors = captured(stderr, [&] {
        output = captured(stdout, [&] {
            CompanyPrinterDriver driver("/dev/full");
            callEverything(driver);
        });
    });
    QCOMPARE(output, QByteArray());
    QCOMPARE(errors, QByteArray());
}

QTEST_GUILESS_MAIN(TestCompanyPrinterDriver)
#include "tst_companyprinterdriver.moc"
