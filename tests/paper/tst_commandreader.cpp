#include "paper/commandreader.h"

#include <QtTest>

using paper::Command;
using paper::readCommand;

/// A line of a script as a command: every one that the register knows, where its fields are cut, and what is none.
class TestCommandReader : public QObject {
    Q_OBJECT

private slots:
    void kinds_data();
    void kinds();
    void quotesEndTheText_data();
    void quotesEndTheText();
    void saleFields_data();
    void saleFields();
    void figures_data();
    void figures();
    void paymentsKnowTheirKind();
};

void TestCommandReader::kinds_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("kind");
    const auto row = [](const char* name, const char* line, Command::Kind kind) {
        QTest::newRow(name) << line << static_cast<int>(kind);
    };
    row("an ordinary document is opened", "nofis apri", Command::OpenNonFiscal);
    row("an ordinary document is closed", "nofis chiudi", Command::CloseNonFiscal);
    row("a line", "nofis riga='Hello'", Command::Line);
    row("an empty line", "nofis riga=''", Command::Line);
    row("a line without its closing quote", "nofis riga='Hello", Command::Line);
    row("the register is cleared", "CLEAR ", Command::Clear);
    row("the registering mode", "CHIAVE REG", Command::RegisteringMode);
    row("a sale", "VEND REP=1,QTY=2,PREZZO=7.50,DES='PIZZA'", Command::Sale);
    row("a discount", "SCONTO VAL=1", Command::Discount);
    row("a rate", "PERCA ALIQ=10", Command::Rate);
    row("a discount on the subtotal", "=10*2M", Command::SubtotalDiscount);
    row("cash", "2000H1T", Command::Payment);
    row("a cheque", "2000H2T", Command::Payment);
    row("a credit card", "2000H3T", Command::Payment);
    row("a meal ticket", "2000H5T", Command::Payment);
    row("a fiscal receipt is closed", "CHIUS T=1", Command::CloseFiscal);
    row("a payment of nothing readable", "abcH1T", Command::Payment);
    row("a payment of nothing at all", "H1T", Command::Payment);
    row("a payment that begins as a discount on the subtotal does", "=10H1T", Command::Payment);
    row("a discount that ends as a payment does", "SCONTO VAL=1H1T", Command::Discount);
    row("a discount on the subtotal of no percentage", "=*2M", Command::SubtotalDiscount);

    row("nothing", "", Command::None);
    row("a blank", " ", Command::None);
    row("CLEAR without its blank", "CLEAR", Command::None);
    row("CLEAR with two blanks", "CLEAR  ", Command::None);
    row("in other letters", "NOFIS APRI", Command::None);
    row("a blank behind a command", "nofis apri ", Command::None);
    row("a blank before a command", " nofis apri", Command::None);
    row("a carriage return behind a command", "nofis chiudi\r", Command::None);
    row("a line without a quote", "nofis riga=Hello", Command::None);
    row("a line with another quote", "nofis riga=\"Hello\"", Command::None);
    row("a sale without its quantity", "VEND REP=1,PREZZO=7.50,DES='PIZZA'", Command::None);
    row("a sale without its price", "VEND REP=1,QTY=2,DES='PIZZA'", Command::None);
    row("a sale without its description", "VEND REP=1,QTY=2,PREZZO=7.50", Command::None);
    row("a sale whose fields are in another order", "VEND REP=1,PREZZO=7.50,QTY=2,DES='PIZZA'", Command::None);
    row("a discount on the subtotal without its end", "=10*2", Command::None);
    row("the end of a discount on the subtotal alone", "*2M", Command::None);
    row("begin and end of a discount on the subtotal share nothing", "=2M", Command::None);
    row("a payment of a fourth kind", "2000H4T", Command::None);
    row("a payment in small letters", "2000h1t", Command::None);
    row("a blank behind a payment", "2000H1T ", Command::None);
    row("another closing", "CHIUS T=2", Command::None);
}

void TestCommandReader::kinds()
{
    QFETCH(QString, line);
    QTEST(static_cast<int>(readCommand(line).kind), "kind");
}

void TestCommandReader::quotesEndTheText_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("behind");
    QTest::addColumn<int>("quote");
    const auto row = [](const char* name, const char* line, const char* text, const char* behind, int quote) {
        QTest::newRow(name) << line << text << behind << quote;
    };
    row("a line", "nofis riga='Hello'", "Hello", "", 17);
    row("an empty line", "nofis riga=''", "", "", 12);
    row("blanks are kept", "nofis riga='  a b '", "  a b ", "", 18);
    row("no closing quote", "nofis riga='Hello", "Hello", "", -1);
    row("nothing behind the opening quote", "nofis riga='", "", "", -1);
    row("a quote within", "nofis riga='it's'", "it", "s'", 14);
    row("a quote within, and none at the end", "nofis riga='it's", "it", "s", 14);
    row("three quotes at the end", "nofis riga='a'''", "a", "''", 13);
    row("a blank behind the last quote", "nofis riga='a' ", "a", " ", 13);
    row("another kind of quote is none", "nofis riga='it\u2019s'", "it\u2019s", "", 16);
    row("a sale", "VEND REP=1,QTY=2,PREZZO=7,DES='Caffe'", "Caffe", "", 36);
    row("a quote within a sale", "VEND REP=1,QTY=2,PREZZO=7,DES='Baba' al rum'", "Baba", " al rum'", 35);
    row("a sale without its closing quote", "VEND REP=1,QTY=2,PREZZO=7,DES='Caffe", "Caffe", "", -1);
    row("a quote before the description is none of it", "VEND REP=',QTY=2,PREZZO=7,DES='Caffe'", "Caffe", "", 36);
}

void TestCommandReader::quotesEndTheText()
{
    QFETCH(QString, line);
    QFETCH(int, quote);
    const Command command = readCommand(line);
    QTEST(command.text, "text");
    QTEST(command.behindQuote, "behind");
    QCOMPARE(command.quote, quote);
    QCOMPARE(command.isTextEnded, quote >= 0);
}

void TestCommandReader::saleFields_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("fields"); // department, quantity, price, description
    const auto row = [](const char* name, const char* line, const QStringList& fields) {
        QTest::newRow(name) << line << fields;
    };
    row("a sale", "VEND REP=1,QTY=2,PREZZO=7.50,DES='PIZZA'", {"1", "2", "7.50", "PIZZA"});
    row("empty fields", "VEND REP=,QTY=,PREZZO=,DES=''", {"", "", "", ""});
    row("a comma in a field", "VEND REP=1,2,QTY=3,4,PREZZO=5,6,DES='a,b'", {"1,2", "3,4", "5,6", "a,b"});
    row("the first name counts: of a quantity", "VEND REP=1,QTY=2,QTY=3,PREZZO=4,DES='a'", {"1", "2,QTY=3", "4", "a"});
    row("the first name counts: of a price", "VEND REP=1,QTY=2,PREZZO=3,PREZZO=4,DES='a'",
        {"1", "2", "3,PREZZO=4", "a"});
    row("the first name counts: of a description", "VEND REP=1,QTY=2,PREZZO=3,DES='a,DES='", {"1", "2", "3", "a,DES="});
    row("a name before its turn is text", "VEND REP=1,PREZZO=9,QTY=2,PREZZO=3,DES='a'", {"1,PREZZO=9", "2", "3", "a"});
    row("names in small letters are text", "VEND REP=1,qty=9,QTY=2,PREZZO=3,DES='a'", {"1,qty=9", "2", "3", "a"});
}

void TestCommandReader::saleFields()
{
    QFETCH(QString, line);
    const Command command = readCommand(line);
    QTEST(QStringList({command.department, command.quantity, command.figure, command.text}), "fields");
}

void TestCommandReader::figures_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("figure");
    QTest::newRow("a discount") << "SCONTO VAL=2.5"
                                << "2.5";
    QTest::newRow("a discount of nothing") << "SCONTO VAL="
                                           << "";
    QTest::newRow("a rate") << "PERCA ALIQ=10"
                            << "10";
    QTest::newRow("a discount on the subtotal") << "=7.5*2M"
                                                << "7.5";
    QTest::newRow("a payment") << "1234.5H3T"
                               << "1234.5";
    QTest::newRow("a payment that holds the end of another") << "1H1T2H3T"
                                                             << "1H1T2";
    QTest::newRow("blanks stay") << "SCONTO VAL= 1 "
                                 << " 1 ";
}

void TestCommandReader::figures()
{
    QFETCH(QString, line);
    QTEST(readCommand(line).figure, "figure");
}

void TestCommandReader::paymentsKnowTheirKind()
{
    for (const char* end : {"H1T", "H2T", "H3T", "H5T"})
        QCOMPARE(QString(readCommand(QString("100") + end).payment), QString(end));
}

QTEST_APPLESS_MAIN(TestCommandReader)

#include "tst_commandreader.moc"
