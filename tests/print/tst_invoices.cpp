#include "support/invoicerows.h"
#include "support/markedtexts.h"
#include "support/sectionsdriver.h"

#include <QtTest>

namespace {

/// Notes what is printed as a partial order.
class PartialOrderDriver : public SectionsDriver {
public:
    QStringList partialOrder;

    void printPartialOrder(const QString& qName, const QXmlAttributes& atts) override
    {
        partialOrder += qName + ' ' + atts.value("name") + ' ' + QString::number(atts.count());
    }
};

} // namespace

/// Invoices and delivery notes.
class TestInvoices : public QObject {
    Q_OBJECT

private slots:
    void init();

    void invoice_data();
    void invoice();
    void noTitlesAfterOneTime();
    void labelsAreTranslated();

    void deliveryNote_data();
    void deliveryNote();
    void deliveryNoteIsADriversPartialOrder();
    void deliveryNoteDoesNotAskForACustomersSection();
};

void TestInvoices::init()
{
    useSettings(documentSettings("invoicedoc", "printCustomer = true;"));
}

void TestInvoices::invoice_data()
{
    addJobColumns();

    const QString row = R"(println("  2 PIZZA............3.50   7.00"))";
    addJob("two dishes after one row of titles, and the tax block", {dish(), dish(), taxes()},
           dishTitles() + QStringList {row, row} + taxBlock());
    addJob("a dish whose name begins with = is printed", {dish("=PIZZA")},
           dishTitles() + QStringList {R"(println("  2 =PIZZA...........3.50   7.00"))"});
    addJob("no attributes: dots alone", {{"receipe", {}}},
           dishTitles() + QStringList {R"(println("    .....................       "))"});
    addJob("a name just as wide as its column is whole", {dish("ABCDEFGHIJKLMNO")},
           dishTitles() + QStringList {R"(println("  2 ABCDEFGHIJKLMNO..3.50   7.00"))"});
    addJob("a name one wider loses its last character", {dish("ABCDEFGHIJKLMNOP")},
           dishTitles() + QStringList {R"(println("  2 ABCDEFGHIJKLMNO..3.50   7.00"))"});
    addInvoiceRows();
    addJob("each tax block is printed", {taxes(), taxes()}, taxBlock() + taxBlock());
    addJob("a tax block with a total only", {{"totals", {{"total", "12.20"}}}},
           {"setBold()", R"(println(""))", R"(println("    Taxable..............       "))",
            R"(println("    TaxRate..............       "))", R"(println("    Tax..................       "))",
            R"(println("    TOTAL................  12.20"))", "setCharSize()"});
    addJob("amounts and rates are printed as they stand",
           {{"totals", {{"total", "123456.78"}, {"tax", "-2,2"}, {"taxrate", "abc"}, {"taxable", " 1 "}}}},
           {"setBold()", R"(println(""))", R"(println("    Taxable..............     1 "))",
            R"(println("    TaxRate..............    abc"))", R"(println("    Tax..................   -2,2"))",
            R"(println("    TOTAL................123456.78"))", "setCharSize()"});
    addJob("other elements are ignored",
           elementsNamed({"variant", "receipe_type", "total", "notPaid", "Totals", "order"}), {});
}

void TestInvoices::invoice()
{
    checkJob("printFullOrderInvoice");
}

void TestInvoices::noTitlesAfterOneTime()
{
    RecordingDriver driver;

    driver.oneTime();
    QCOMPARE(callsOf(driver, "printFullOrderInvoice", {{"receipe", {{"name", "PIZZA"}, {"number", "2"}}}}),
             QStringList {R"(println("  2 PIZZA................       "))"});
}

void TestInvoices::labelsAreTranslated()
{
    const MarkedTexts marked;
    RecordingDriver driver;

    const Job job {{"receipe", {{"name", "Taxable"}, {"number", "2"}}}, {"totals", {{"tax", "Tax"}}}};
    const QStringList expected {"setBold()",
                                R"(println("<Num> <Description>  <Price><Amount>"))",
                                "setCharSize()",
                                R"(println("  2 Taxable..............       "))",
                                "setBold()",
                                R"(println(""))",
                                R"(println("    <Taxable>............       "))",
                                R"(println("    <TaxRate>............       "))",
                                R"(println("    <Tax>................    Tax"))",
                                R"(println("    <TOTAL>..............       "))",
                                "setCharSize()"};
    QCOMPARE(callsOf(driver, "printFullOrderInvoice", job), expected);
}

void TestInvoices::deliveryNote_data()
{
    addJobColumns();

    addJob("a dish, without prices", {dish()}, {"setCharSize()", R"(println("  2 PIZZA                     "))"});
    addJob("another course's dish and its variant",
           {{"otherreceipe", {{"name", "PIZZA"}, {"number", "2"}}},
            {"variant", {{"name", "onion"}, {"number", "2"}, {"quantity", "-1"}}}},
           {"setCharSize(1)", R"(println("  2 PIZZA                     "))",
            R"(println("  2 - onion                   "))"});
    addJob("the customer block", {{"customer", {{"name", "Rossi"}}}},
           {R"(println("CUSTOMER"))", R"(println(1, "Rossi"))", separator()});
    addJob("the order information, and no titles", {{"orderinfo", {{"table", "12"}}}},
           {"setCharSize()", R"(print(1, "Table:"))", R"(println(1, "12"))", separator()});
    addJob("the delivery's number is a section", {{"delivery", {{"serialnumber", "7"}}}},
           {R"(print(1, "Delivery Number:"))", R"(println(1, "7"))", separator()});
    addJob("other elements are ignored", elementsNamed({"total", "totals", "receipe_type", "order"}), {});
}

void TestInvoices::deliveryNote()
{
    useSettings(documentSettings("deliverydoc", "printCustomer = true; printTable = true;"));
    checkJob("printFullOrderDelivery");
}

void TestInvoices::deliveryNoteIsADriversPartialOrder()
{
    useSettings(documentSettings("deliverydoc", "printCustomer = true;"));
    PartialOrderDriver driver;

    const Job job {{"receipe", {{"name", "PIZZA"}, {"number", "2"}}},
                   {"orderinfo", {}},
                   {"unknown", {}},
                   {"customer", {{"name", "Rossi"}}}};
    const QStringList customerBlock {R"(println("CUSTOMER"))", R"(println(1, "Rossi"))", separator()};
    QCOMPARE(callsOf(driver, "printFullOrderDelivery", job), customerBlock);
    const QStringList handedOn {"receipe PIZZA 2", "orderinfo  0", "unknown  0"};
    QCOMPARE(driver.partialOrder, handedOn);
}

void TestInvoices::deliveryNoteDoesNotAskForACustomersSection()
{
    PartialOrderDriver delivery;
    callsOf(delivery, "printFullOrderDelivery", {{"customer", {}}});
    QCOMPARE(delivery.askedSections, QStringList());

    PartialOrderDriver invoice;
    callsOf(invoice, "printFullOrderInvoice", {{"customer", {}}});
    QCOMPARE(invoice.askedSections, QStringList {"customer"});
}

QTEST_GUILESS_MAIN(TestInvoices)
#include "tst_invoices.moc"
