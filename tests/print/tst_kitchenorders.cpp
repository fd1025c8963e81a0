#include "support/job.h"
#include "support/markedtexts.h"

#include <QtTest>

namespace {

/// Leaves every section to the print method, and notes which ones it was asked about.
class NoSectionsDriver : public RecordingDriver {
public:
    QStringList asked;

    bool printSections(const QString& qName, const QXmlAttributes&) override
    {
        asked += qName;
        return false;
    }
};

} // namespace

/// Kitchen tickets, partial and full.
class TestKitchenOrders : public QObject {
    Q_OBJECT

private slots:
    void init();

    void partialOrder_data();
    void partialOrder();
    void partialOrderWhoseSectionsAreLeftAlone();
    void fullOrder_data();
    void fullOrder();
    void fullOrderWhoseSectionsAreLeftAlone();
    void fullOrderAfterOneTimeHasNoTitles();
    void variantMark_data();
    void variantMark();
    void sectionsAreAskedFirst_data();
    void sectionsAreAskedFirst();
    void labelsAreTranslated();
};

void TestKitchenOrders::init()
{
    const QByteArray flags = "printCustomer = true; printTable = true;";
    useSettings(documentSettings("doc", flags));
}

void TestKitchenOrders::partialOrder_data()
{
    addJobColumns();

    const QString pizza = R"(println("  2 PIZZA                     "))";
    addJob("a dish", {{"receipe", {{"name", "PIZZA"}, {"number", "2"}}}}, {"setCharSize()", pizza});
    addJob("another course's dish", {{"otherreceipe", {{"name", "PIZZA"}, {"number", "2"}}}},
           {"setCharSize(1)", pizza});
    addJob("each dish sets its size, a variant none",
           {{"receipe", {{"name", "PIZZA"}, {"number", "2"}}},
            {"variant", {{"name", "cheese"}, {"number", "1"}, {"quantity", "1"}}},
            {"otherreceipe", {{"name", "PIZZA"}, {"number", "2"}}},
            {"variant", {{"name", "onion"}, {"number", "2"}, {"quantity", "-1"}}},
            {"receipe", {{"name", "PIZZA"}, {"number", "2"}}}},
           {"setCharSize()", pizza, R"(println("  1 + cheese                  "))", "setCharSize(1)", pizza,
            R"(println("  2 - onion                   "))", "setCharSize()", pizza});
    addJob("a variant before any dish", {{"variant", {{"name", "salt"}, {"quantity", "2"}}}},
           {R"(println("    2 salt                    "))"});
    addJob("prices play no part",
           {{"receipe", {{"price", "3.50"}, {"name", "PIZZA"}, {"totalPrice", "7.00"}, {"number", "2"}}}},
           {"setCharSize()", pizza});
    addJob("no attributes: an empty row", {{"receipe", {}}},
           {"setCharSize()", R"(println("                              "))"});
    addJob("a dish whose name begins with = is printed", {{"receipe", {{"name", "=PIZZA"}, {"number", "2"}}}},
           {"setCharSize()", R"(println("  2 =PIZZA                    "))"});
    addJob("the order information, and no titles", {{"orderinfo", {{"table", "12"}}}},
           {"setCharSize()", R"(print(1, "Table:"))", R"(println(1, "12"))", separator()});
    addJob("the customer block", {{"customer", {{"name", "Rossi"}}}},
           {R"(println("CUSTOMER"))", R"(println(1, "Rossi"))", separator()});
    addJob("other elements are ignored",
           elementsNamed(
               {"total", "totals", "notPaid", "receipe_type", "Receipe", "recipe", "VARIANT", "statement", "order"}),
           {});
}

void TestKitchenOrders::partialOrder()
{
    checkJob("printPartialOrder");
}

void TestKitchenOrders::partialOrderWhoseSectionsAreLeftAlone()
{
    NoSectionsDriver driver;

    const QStringList calls =
        callsOf(driver, "printPartialOrder", {{"orderinfo", {{"table", "12"}}}, {"headers", {}}, {"logo", {}}});
    const QStringList expected {"setBold()", R"(println("Num Description               "))"};
    QCOMPARE(calls, expected);
}

void TestKitchenOrders::fullOrder_data()
{
    addJobColumns();

    const QString row = R"(println("  2 PIZZA............3.50   7.00"))";
    addJob("a dish, after the titles", {dish()}, dishTitles() + QStringList {row});
    addJob("titles come once", {dish(), dish(), dish()}, dishTitles() + QStringList {row, row, row});
    addJob("a dish whose name begins with = is kept off, titles too",
           {{"receipe", {{"name", "=PIZZA"}, {"number", "2"}, {"price", "3.50"}}}}, {});
    addJob("a dish named = alone is kept off", {{"receipe", {{"name", "="}}}}, {});
    addJob("titles come with the first dish that is printed", {{"receipe", {{"name", "=PIZZA"}}}, dish()},
           dishTitles() + QStringList {row});
    addJob("a later = in the name is nothing special", {dish(" =PIZZA")},
           dishTitles() + QStringList {R"(println("  2  =PIZZA..........3.50   7.00"))"});
    addJob("a dish without a name is printed",
           {{"receipe", {{"number", "2"}, {"price", "3.50"}, {"totalPrice", "7.00"}}}},
           dishTitles() + QStringList {R"(println("  2 .................3.50   7.00"))"});
    addJob("no attributes: dots alone", {{"receipe", {}}},
           dishTitles() + QStringList {R"(println("    .....................       "))"});
    addJob("amounts are printed as they stand",
           {{"receipe", {{"name", "PIZZA"}, {"number", "2,0"}, {"price", "3,5"}, {"totalPrice", "abc"}}}},
           dishTitles() + QStringList {R"(println("2,0 PIZZA.............3,5    abc"))"});
    addJob("a variant, without titles of its own",
           {{"variant",
             {{"quantity", "1"}, {"name", "cheese"}, {"number", "2"}, {"price", "0.50"}, {"totalPrice", "1.00"}}}},
           {R"(println("  2 + cheese.........0.50   1.00"))"});
    addJob("a variant named = is printed", {{"variant", {{"quantity", "-1"}, {"name", "=salt"}}}},
           {R"(println("    - =salt..............       "))"});
    addJob("the total, bold to the end", {{"total", {{"price", "12.50"}}}},
           {R"(println(""))", "setBold()", R"(println("    TOTAL................  12.50"))"});
    addJob("the total is the attribute price alone", {{"total", {{"total", "12.50"}}}},
           {R"(println(""))", "setBold()", R"(println("    TOTAL................       "))"});
    addJob("the order information", {{"orderinfo", {{"table", "12"}}}},
           {"setCharSize()", R"(print(1, "Table:"))", R"(println(1, "12"))", separator()});
    addJob("the customer block", {{"customer", {{"name", "Rossi"}}}},
           {R"(println("CUSTOMER"))", R"(println(1, "Rossi"))", separator()});
    addJob("other elements are ignored",
           elementsNamed({"otherreceipe", "totals", "notPaid", "receipe_type", "Receipe", "Total", "order"}), {});
}

void TestKitchenOrders::fullOrder()
{
    useSettings(documentSettings("prefiscaldoc", "printCustomer = true; printTable = true;"));
    checkJob("printFullOrder");
}

void TestKitchenOrders::fullOrderWhoseSectionsAreLeftAlone()
{
    NoSectionsDriver driver;
    QCOMPARE(callsOf(driver, "printFullOrder", {{"orderinfo", {}}, {"headers", {}}, {"logo", {}}}), QStringList());
}

void TestKitchenOrders::fullOrderAfterOneTimeHasNoTitles()
{
    useSettings(documentSettings("prefiscaldoc"));
    RecordingDriver driver;
    driver.oneTime();

    const QStringList calls = callsOf(driver, "printFullOrder", {{"receipe", {{"name", "PIZZA"}, {"number", "2"}}}});
    QCOMPARE(calls, QStringList {R"(println("  2 PIZZA................       "))"});
}

void TestKitchenOrders::variantMark_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("mark");

    QTest::newRow("1") << "1"
                       << "+";
    QTest::newRow("1.0: the value counts") << "1.0"
                                           << "+";
    QTest::newRow("+1") << "+1"
                        << "+";
    QTest::newRow("01") << "01"
                        << "+";
    QTest::newRow("0.1e1") << "0.1e1"
                           << "+";
    QTest::newRow("blanks around 1") << " 1 "
                                     << "+";
    QTest::newRow("-1") << "-1"
                        << "-";
    QTest::newRow("-1.00") << "-1.00"
                           << "-";
    QTest::newRow("0") << "0"
                       << "-";
    QTest::newRow("-0") << "-0"
                        << "-";
    QTest::newRow("0.0") << "0.0"
                         << "-";
    QTest::newRow("empty") << ""
                           << "-";
    QTest::newRow("blank") << " "
                           << "-";
    QTest::newRow("a word") << "abc"
                            << "-";
    QTest::newRow("a number and a word") << "2x"
                                         << "-";
    QTest::newRow("a decimal comma is no number") << "1,0"
                                                  << "-";
    QTest::newRow("inf is no number") << "inf"
                                      << "-";
    QTest::newRow("nan is no number") << "nan"
                                      << "-";
    QTest::newRow("1e999 is no number") << "1e999"
                                        << "-";
    QTest::newRow("a minus sign that is not ASCII makes no number") << "\u22122"
                                                                    << "-";
    QTest::newRow("2") << "2"
                       << "2";
    QTest::newRow("-2") << "-2"
                        << "-2";
    QTest::newRow("2.0 stays as it stands") << "2.0"
                                            << "2.0";
    QTest::newRow("0.5") << "0.5"
                         << "0.5";
    QTest::newRow("-0.5") << "-0.5"
                          << "-0.5";
    QTest::newRow("1.5") << "1.5"
                         << "1.5";
    QTest::newRow("close to 1") << "1.0000001"
                                << "1.0000001";
    QTest::newRow("blanks around 2 stay") << " 2 "
                                          << " 2 ";
    QTest::newRow("10") << "10"
                        << "10";
}

void TestKitchenOrders::variantMark()
{
    QFETCH(QString, quantity);
    QFETCH(QString, mark);
    const QByteArray text = quantity.toUtf8();
    const Job job {{"variant", {{"name", "ham"}, {"quantity", text.constData()}}}};
    const QString description = mark + " ham";

    RecordingDriver partial;
    QCOMPARE(callsOf(partial, "printPartialOrder", job),
             QStringList {R"(println("    )" + description + QString(26 - description.size(), ' ') + R"("))"});

    useSettings(documentSettings("prefiscaldoc"));
    RecordingDriver full;
    QCOMPARE(callsOf(full, "printFullOrder", job),
             QStringList {R"(println("    )" + description + QString(21 - description.size(), '.') + R"(       "))"});
}

void TestKitchenOrders::sectionsAreAskedFirst_data()
{
    QTest::addColumn<QString>("method");

    QTest::newRow("partial order") << "printPartialOrder";
    QTest::newRow("full order") << "printFullOrder";
}

void TestKitchenOrders::sectionsAreAskedFirst()
{
    QFETCH(QString, method);
    NoSectionsDriver driver;

    callsOf(driver, method, {{"customer", {}}, {"receipe", {}}, {"variant", {}}, {"unknown", {}}});
    const QStringList expected {"customer", "receipe", "variant", "unknown"};
    QCOMPARE(driver.asked, expected);
}

void TestKitchenOrders::labelsAreTranslated()
{
    useSettings(documentSettings("prefiscaldoc"));
    const MarkedTexts marked;

    RecordingDriver full;
    const Job job {{"receipe", {{"name", "TOTAL"}, {"number", "2"}}}, {"variant", {{"name", "Num"}}}, {"total", {}}};
    const QStringList expected {"setBold()",
                                R"(println("<Num> <Description>  <Price><Amount>"))",
                                "setCharSize()",
                                R"(println("  2 TOTAL................       "))",
                                R"(println("    - Num................       "))",
                                R"(println(""))",
                                "setBold()",
                                R"(println("    <TOTAL>..............       "))"};
    QCOMPARE(callsOf(full, "printFullOrder", job), expected);

    useSettings(documentSettings("doc"));
    NoSectionsDriver partial;
    const QStringList titles {"setBold()", R"(println("<Num> <Description>             "))"};
    QCOMPARE(callsOf(partial, "printPartialOrder", {{"orderinfo", {}}}), titles);
}

QTEST_GUILESS_MAIN(TestKitchenOrders)
#include "tst_kitchenorders.moc"
