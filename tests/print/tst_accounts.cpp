#include "support/job.h"
#include "support/markedtexts.h"

#include <QtTest>

/// The customer's statement of account and the list of dishes sold.
class TestAccounts : public QObject {
    Q_OBJECT

private slots:
    void init();

    void statement_data();
    void statement();
    void movementType_data();
    void movementType();
    void movementTypeIsLookedUp_data();
    void movementTypeIsLookedUp();
    void headingIsTranslated();
    void sold_data();
    void sold();
    void nothingOfTheSoldListIsTranslated();
};

void TestAccounts::init()
{
    useSettings(documentSettings("reportdoc", "printTable = true; printCustomer = true;"));
}

void TestAccounts::statement_data()
{
    addJobColumns();

    const Element payment {"statement", {{"amount", "10.00"}, {"type", "Payment"}, {"date", "01-02-2024"}}};
    const QString row = R"(println("01-02-2024:    Payment..10.00"))";
    addJob("the heading: bold before it, a reset after it", {{"statement_list", {}}},
           {"setBold()", R"(println("Date           DescriptAmount"))", "reset()"});
    addJob("the heading comes as often as the job asks", {{"statement_list", {}}, {"statement_list", {}}},
           {"setBold()", R"(println("Date           DescriptAmount"))", "reset()", "setBold()",
            R"(println("Date           DescriptAmount"))", "reset()"});
    addJob("a movement, without any setting", {payment}, {row});
    addJob("movements in the job's order, without a heading of their own",
           {payment, {"statement", {{"date", "02-02-2024"}, {"type", "Refund"}, {"amount", "-5"}}}, payment},
           {row, R"(println("02-02-2024:    Refund......-5"))", row});
    addJob("no date: a colon and a blank", {{"statement", {{"type", "Payment"}, {"amount", "10.00"}}}},
           {R"(println(":              Payment..10.00"))"});
    addJob("no attributes", {{"statement", {}}}, {R"(println(":              .............."))"});
    addJob("a long date, with its colon and blank",
           {{"statement", {{"date", "2024-02-01 12:34"}, {"type", "Payment"}, {"amount", "10.00"}}}},
           {R"(println("2024-02-01 12:34: Payment..10.00"))"});
    addJob("amounts are printed as they stand",
           {{"statement", {{"date", "1"}, {"type", "Payment"}, {"amount", "abc"}}}},
           {R"(println("1:             Payment....abc"))"});
    addJob("the order information", {{"orderinfo", {{"table", "12"}}}},
           {"setCharSize()", R"(print(1, "Table:"))", R"(println(1, "12"))", separator()});
    addJob("other elements are ignored",
           elementsNamed({"customer", "receipe", "Statement", "statements", "statement_List", "total", "date"}), {});
}

void TestAccounts::statement()
{
    checkJob("printStatementOfAccount");
}

void TestAccounts::movementType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("printed");

    QTest::newRow("ASCII") << "Payment"
                           << "Payment.";
    QTest::newRow("an unknown type") << "Gift"
                                     << "Gift....";
    QTest::newRow("an accent of Latin-1 stays") << "Perchè"
                                                << "Perchè..";
    QTest::newRow("the last character of Latin-1") << "aÿb"
                                                   << "aÿb.....";
    QTest::newRow("the first character beyond Latin-1") << "aĀb"
                                                        << "a?b.....";
    QTest::newRow("the euro sign") << "5 €"
                                   << "5 ?.....";
    QTest::newRow("a Chinese character") << "漢"
                                         << "?.......";
    QTest::newRow("an emoji is two UTF-16 units") << "😀"
                                                  << "??......";
    QTest::newRow("percent signs stay") << "%n %1"
                                        << "%n %1...";
    QTest::newRow("empty") << ""
                           << "........";
}

void TestAccounts::movementType()
{
    QFETCH(QString, type);
    QFETCH(QString, printed);
    RecordingDriver driver;

    const QByteArray text = type.toUtf8();
    QCOMPARE(callsOf(driver, "printStatementOfAccount", {{"statement", {{"type", text.constData()}}}}),
             QStringList {QString(R"(println(":              %1......"))").arg(printed)});
}

void TestAccounts::movementTypeIsLookedUp_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("printed");

    QTest::newRow("ASCII") << "Refund"
                           << "<Refund>";
    QTest::newRow("a label's text") << "Date"
                                    << "<Date>..";
    QTest::newRow("an accent of Latin-1") << "Metà"
                                          << "<Metà>..";
    QTest::newRow("beyond Latin-1: by its question mark") << "5€"
                                                          << "<5?>....";
}

void TestAccounts::movementTypeIsLookedUp()
{
    QFETCH(QString, type);
    QFETCH(QString, printed);
    const MarkedTexts marked;
    RecordingDriver driver;

    const QByteArray text = type.toUtf8();
    const Job job {{"statement", {{"date", "Date"}, {"type", text.constData()}, {"amount", "Amount"}}}};
    QCOMPARE(callsOf(driver, "printStatementOfAccount", job),
             QStringList {QString(R"(println("Date:          %1Amount"))").arg(printed)});
}

void TestAccounts::headingIsTranslated()
{
    const MarkedTexts marked;
    RecordingDriver driver;

    const QStringList expected {"setBold()", R"(println("<Date>         <Descrip<Amount>"))", "reset()"};
    QCOMPARE(callsOf(driver, "printStatementOfAccount", {{"statement_list", {}}}), expected);
}

void TestAccounts::sold_data()
{
    addJobColumns();

    const Element dish {"receipe", {{"amount", "7.00"}, {"description", "PIZZA"}, {"quantity", "2"}}};
    const QString row = R"(println("  2 x PIZZA..............   7.00"))";
    addJob("a dish, bold", {dish}, {"setBold()", row});
    addJob("each dish is set bold", {dish, dish}, {"setBold()", row, "setBold()", row});
    addJob("no amount", {{"receipe", {{"description", "PIZZA"}, {"quantity", "2"}}}},
           {"setBold()", R"(println("  2 x PIZZA..............       "))"});
    addJob("the attributes of other documents' dishes play no part",
           {{"receipe", {{"name", "PIZZA"}, {"number", "2"}, {"price", "3.50"}, {"totalPrice", "7.00"}}}},
           {"setBold()", R"(println("    x ...................       "))"});
    addJob("a description that begins with = is printed",
           {{"receipe", {{"amount", "7.00"}, {"description", "=PIZZA"}, {"quantity", "2"}}}},
           {"setBold()", R"(println("  2 x =PIZZA.............   7.00"))"});
    addJob("the order information", {{"orderinfo", {{"table", "12"}}}},
           {"setCharSize()", R"(print(1, "Table:"))", R"(println(1, "12"))", separator()});
    addJob("other elements are ignored",
           elementsNamed({"customer", "statement", "statement_list", "Receipe", "receipe_type", "variant", "total"}),
           {});
}

void TestAccounts::sold()
{
    useSettings(documentSettings("solddoc", "printTable = true; printCustomer = true;"));
    checkJob("printSold");
}

void TestAccounts::nothingOfTheSoldListIsTranslated()
{
    useSettings(documentSettings("solddoc"));
    const MarkedTexts marked;
    RecordingDriver driver;

    const QStringList expected {"setBold()", R"(println("Num x TOTAL..............  Price"))"};
    const Job job {{"receipe", {{"amount", "Price"}, {"description", "TOTAL"}, {"quantity", "Num"}}}};
    QCOMPARE(callsOf(driver, "printSold", job), expected);
}

QTEST_GUILESS_MAIN(TestAccounts)
#include "tst_accounts.moc"
