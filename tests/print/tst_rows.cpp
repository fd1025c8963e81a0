#include "support/job.h"

#include <QtTest>

using Print = void (PrinterDriver::*)(const QString& qName, const QXmlAttributes& atts);

Q_DECLARE_METATYPE(Print)

namespace {

/// Notes what is cut, too.
class CutDriver : public RecordingDriver {
public:
    QStringList cuts;

private:
    void textCut(const QString& text, int kept) override { cuts += QString("%1 to %2").arg(text).arg(kept); }
};

} // namespace

/// The rule, the column titles and the rows that documents share.
class TestRows : public QObject {
    Q_OBJECT

private slots:
    void init();

    void separatorLine_data();
    void separatorLine();
    void columnsHeader_data();
    void columnsHeader();
    void columnsHeaderComesOnce();
    void descriptionRowTakesTheDocumentsWidths_data();
    void descriptionRowTakesTheDocumentsWidths();
    void descriptionRowPrintsNothing();
    void whatIsCutIsSaid_data();
    void whatIsCutIsSaid();
    void oneTimeIsTrueOnce();
    void oneTimeIsEachDriversOwn();
    void columnsHeaderAfterOneTimePrintsNothing();
    void oneTimeAfterTheColumnsHeaderIsFalse();
    void titlesOfAMethodThatIsCalledDirectly_data();
    void titlesOfAMethodThatIsCalledDirectly();
};

void TestRows::init()
{
    useSettings(documentSettings("receiptdoc"));
}

void TestRows::separatorLine_data()
{
    QTest::addColumn<int>("paperWidth");
    QTest::addColumn<QString>("line");

    QTest::newRow("as wide as the paper") << 12 << "============";
    QTest::newRow("one") << 1 << "=";
    QTest::newRow("zero: an empty line") << 0 << "";
    QTest::newRow("negative: an empty line") << -5 << "";
    QTest::newRow("huge") << 10000 << QString(10000, '=');
}

void TestRows::separatorLine()
{
    QFETCH(int, paperWidth);
    QFETCH(QString, line);
    RecordingDriver driver;
    driver.paperWidth = paperWidth;

    driver.printSeparatorLine();
    QCOMPARE(driver.takeCalls(), QStringList {QString(R"(println("%1"))").arg(line)});
}

void TestRows::columnsHeader_data()
{
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QString>("line");

    QTest::newRow("four titles, filled with blanks")
        << QStringList {"Num", "Description", "Price", "Amount"} << R"(println("Num Description     Price Amount"))";
    QTest::newRow("no price") << QStringList {"Num", "Description", "", "Price"}
                              << R"(println("Num Description            Price"))";
    QTest::newRow("wider than their columns")
        << QStringList {"Number", "Description of the dish", "Unit price", "Total amount"}
        << R"(println("Number Description of Unit priceTotal amount"))";
    QTest::newRow("empty") << QStringList {"", "", "", ""} << R"(println("                                "))";
}

void TestRows::columnsHeader()
{
    QFETCH(QStringList, titles);
    QFETCH(QString, line);
    RecordingDriver driver;
    driver.loadValues("receipt");

    driver.printColumnsHeader(titles[0], titles[1], titles[2], titles[3]);
    const QStringList expected {"setBold()", line, "setCharSize()"};
    QCOMPARE(driver.takeCalls(), expected);
}

void TestRows::columnsHeaderComesOnce()
{
    RecordingDriver driver;
    driver.loadValues("receipt");
    driver.printColumnsHeader("Num", "Description", "Price", "Amount");
    driver.takeCalls();

    driver.printColumnsHeader("Num", "Description", "Price", "Amount");
    driver.printColumnsHeader("other", "titles", "", "");
    QCOMPARE(driver.takeCalls(), QStringList());
}

void TestRows::descriptionRowTakesTheDocumentsWidths_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("row");

    QTest::newRow("qdpt") << "qdpt"
                          << "  a b---------------------c      d";
    QTest::newRow("qxdpt") << "qxdpt"
                           << "  a x b-------------------c      d";
    QTest::newRow("qxdtDoubleLine") << "qxdtDoubleLine"
                                    << "a x c\nb--------------------------------d";
    QTest::newRow("qxd") << "qxd"
                         << "  a x b---------------------------";
    QTest::newRow("qd") << "qd"
                        << "  a b                           ";
    QTest::newRow("date-amount-type") << "date-amount-type"
                                      << "a              b--------------c";
    QTest::newRow("unknown") << "columns"
                             << "";
}

void TestRows::descriptionRowTakesTheDocumentsWidths()
{
    QFETCH(QString, layout);
    QFETCH(QString, row);
    RecordingDriver driver;
    driver.paperWidth = 34;
    driver.quantityFieldWidth = 3;
    driver.priceFieldWidth = 6;
    driver.totalPriceFieldWidth = 7;

    QCOMPARE(driver.descriptionRow("a", "b", "c", "d", '-', layout), row);
}

void TestRows::descriptionRowPrintsNothing()
{
    RecordingDriver driver;
    driver.loadValues("receipt");

    driver.descriptionRow("a", "b", "c", "d", '.', "qdpt");
    QCOMPARE(driver.takeCalls(), QStringList());
    QCOMPARE(driver.oneTime(), true);
}

void TestRows::whatIsCutIsSaid_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QStringList>("cuts");

    // The document leaves 15 characters for a description in "qdpt" and 26 in "qd".
    QTest::newRow("as wide as its column") << "qdpt"
                                           << "123456789012345" << QStringList();
    QTest::newRow("one wider") << "qdpt"
                               << "1234567890123456" << QStringList {"1234567890123456 to 15"};
    QTest::newRow("in a wider column") << "qd"
                                       << "1234567890123456" << QStringList();
    QTest::newRow("in no layout") << "none"
                                  << "1234567890123456" << QStringList();
}

void TestRows::whatIsCutIsSaid()
{
    QFETCH(QString, layout);
    QFETCH(QString, description);
    QFETCH(QStringList, cuts);
    CutDriver driver;
    driver.loadValues("receipt");

    driver.descriptionRow("123456", description, "1234567", "12345678", '.', layout);
    QCOMPARE(driver.cuts, cuts);
}

void TestRows::oneTimeIsTrueOnce()
{
    RecordingDriver driver;

    QCOMPARE(driver.oneTime(), true);
    QCOMPARE(driver.oneTime(), false);
    QCOMPARE(driver.oneTime(), false);
}

void TestRows::oneTimeIsEachDriversOwn()
{
    RecordingDriver first;
    RecordingDriver second;

    QCOMPARE(first.oneTime(), true);
    QCOMPARE(second.oneTime(), true);
}

void TestRows::columnsHeaderAfterOneTimePrintsNothing()
{
    RecordingDriver driver;

    driver.oneTime();
    driver.printColumnsHeader("a", "b", "c", "d");
    QCOMPARE(driver.takeCalls(), QStringList());
}

void TestRows::oneTimeAfterTheColumnsHeaderIsFalse()
{
    RecordingDriver driver;

    driver.printColumnsHeader("a", "b", "c", "d");
    QCOMPARE(driver.oneTime(), false);
}

void TestRows::titlesOfAMethodThatIsCalledDirectly_data()
{
    QTest::addColumn<Print>("print");
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("titles");

    const QString itemTitles = R"(println("Num Description     Price Amount"))";
    const QString typeTitles = R"(println("Num Description            Price"))";
    QTest::newRow("full order") << &PrinterDriver::printFullOrder << "receipe" << itemTitles;
    QTest::newRow("receipt") << &PrinterDriver::printFullOrderReceipt << "receipe" << itemTitles;
    QTest::newRow("invoice") << &PrinterDriver::printFullOrderInvoice << "receipe" << itemTitles;
    QTest::newRow("summary receipt") << &PrinterDriver::printAbstractOrderReceipt << "receipe_type" << typeTitles;
    QTest::newRow("summary invoice") << &PrinterDriver::printAbstractOrderInvoice << "receipe_type" << typeTitles;
    QTest::newRow("statement of account") << &PrinterDriver::printStatementOfAccount << "statement_list"
                                          << R"(println("Date           DescriptAmount"))";
}

void TestRows::titlesOfAMethodThatIsCalledDirectly()
{
    QFETCH(Print, print);
    QFETCH(QString, element);
    QFETCH(QString, titles);
    RecordingDriver driver;
    driver.loadValues("receipt");

    (driver.*print)(element, QXmlAttributes());
    QCOMPARE(driver.takeCalls().value(1), titles);
}

QTEST_GUILESS_MAIN(TestRows)
#include "tst_rows.moc"
