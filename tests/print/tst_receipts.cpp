#include "support/job.h"
#include "support/markedtexts.h"

#include <QtTest>

/// The customer's bill, dish by dish.
class TestReceipts : public QObject {
    Q_OBJECT

private slots:
    void init();

    void receipt_data();
    void receipt();
    void noTitlesAfterOneTime();
    void labelsAreTranslated();
};

void TestReceipts::init()
{
    useSettings(documentSettings("receiptdoc", "printCustomer = true; printTable = true;"));
}

void TestReceipts::receipt_data()
{
    addJobColumns();

    const QString row = R"(println("  2 x PIZZA..........3.50   7.00"))";
    addJob("a dish, after the titles", {dish()}, dishTitles() + QStringList {row});
    addJob("titles come once", {dish(), dish()}, dishTitles() + QStringList {row, row});
    addJob("a dish whose name begins with = is printed", {dish("=PIZZA")},
           dishTitles() + QStringList {R"(println("  2 x =PIZZA.........3.50   7.00"))"});
    addJob("no attributes: dots alone", {{"receipe", {}}},
           dishTitles() + QStringList {R"(println("    x ...................       "))"});
    addJob("a name just as wide as its column is whole", {dish("ABCDEFGHIJKLM")},
           dishTitles() + QStringList {R"(println("  2 x ABCDEFGHIJKLM..3.50   7.00"))"});
    addJob("a name one wider loses its last character", {dish("ABCDEFGHIJKLMN")},
           dishTitles() + QStringList {R"(println("  2 x ABCDEFGHIJKLM..3.50   7.00"))"});
    addJob("amounts are printed as they stand",
           {{"receipe", {{"name", "PIZZA"}, {"number", "2,5"}, {"price", "-1,5"}, {"totalPrice", "abc"}}}},
           dishTitles() + QStringList {R"(println("2,5 x PIZZA..........-1,5    abc"))"});
    addJob("the total, without bold or size", {{"total", {{"price", "12.50"}}}},
           {R"(println(""))", R"(println("    TOTAL................  12.50"))"});
    addJob("the total is the attribute price alone", {{"total", {{"total", "12.50"}}}},
           {R"(println(""))", R"(println("    TOTAL................       "))"});
    addJob("what is not paid, neither justified nor cut", {{"notPaid", {{"price", "5.00"}}}},
           {R"(println(""))", R"(println("    Amount not paid: 5.00"))"});
    addJob("what is not paid is the attribute price alone", {{"notPaid", {{"total", "5.00"}}}},
           {R"(println(""))", R"(println("    Amount not paid: "))"});
    addJob("what is not paid may be longer than the paper", {{"notPaid", {{"price", "12345678901234567890"}}}},
           {R"(println(""))", R"(println("    Amount not paid: 12345678901234567890"))"});
    addJob("the customer block", {{"customer", {{"name", "Rossi"}}}},
           {R"(println("CUSTOMER"))", R"(println(1, "Rossi"))", separator()});
    addJob("the receipt's number is a section", {{"receipt", {{"serialnumber", "7"}}}},
           {R"(println(1, "Serial Number: 7"))", separator()});
    addJob("other elements are ignored",
           elementsNamed({"variant", "otherreceipe", "receipe_type", "totals", "notpaid", "Total", "order"}), {});
}

void TestReceipts::receipt()
{
    checkJob("printFullOrderReceipt");
}

void TestReceipts::noTitlesAfterOneTime()
{
    RecordingDriver driver;

    driver.oneTime();
    QCOMPARE(callsOf(driver, "printFullOrderReceipt", {{"receipe", {{"name", "PIZZA"}, {"number", "2"}}}}),
             QStringList {R"(println("  2 x PIZZA..............       "))"});
}

void TestReceipts::labelsAreTranslated()
{
    const MarkedTexts marked;
    RecordingDriver driver;

    const Job job {{"receipe", {{"name", "TOTAL"}, {"number", "2"}}}, {"total", {}}, {"notPaid", {{"price", "Num"}}}};
    const QStringList expected {"setBold()",      R"(println("<Num> <Description>  <Price><Amount>"))",
                                "setCharSize()",  R"(println("  2 x TOTAL..............       "))",
                                R"(println(""))", R"(println("    <TOTAL>..............       "))",
                                R"(println(""))", R"(println("<    Amount not paid: >Num"))"};
    QCOMPARE(callsOf(driver, "printFullOrderReceipt", job), expected);
}

QTEST_GUILESS_MAIN(TestReceipts)
#include "tst_receipts.moc"
