#include "support/job.h"
#include "support/markedtexts.h"

#include <QtTest>

namespace {

const Element taxes {"totals", {{"total", "12.20"}, {"tax", "2.20"}, {"taxrate", "22"}, {"taxable", "10.00"}}};

QStringList taxBlock()
{
    return {"setBold()",
            R"(println(""))",
            R"(println("    Taxable..............  10.00"))",
            R"(println("    TaxRate..............     22"))",
            R"(println("    Tax..................   2.20"))",
            R"(println("    TOTAL................  12.20"))",
            "setCharSize()"};
}

/// Notes what is printed as a partial order, and which sections are asked for.
class PartialOrderDriver : public RecordingDriver {
public:
    QStringList partialOrder;
    QStringList askedSections;

    void printPartialOrder(const QString& qName, const QXmlAttributes& atts) override
    {
        partialOrder += qName + ' ' + atts.value("name") + ' ' + QString::number(atts.count());
    }

    bool printSections(const QString& qName, const QXmlAttributes& atts) override
    {
        askedSections += qName;
        return RecordingDriver::printSections(qName, atts);
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

    const QString titles = R"(println("Num Description     Price Amount"))";
    const Element dish {"receipe", {{"name", "PIZZA"}, {"number", "2"}, {"price", "3.50"}, {"totalPrice", "7.00"}}};
    const QString row = R"(println("  2 PIZZA............3.50   7.00"))";
    addJob("two dishes after one row of titles, and the tax block", {dish, dish, taxes},
           QStringList {"setBold()", titles, "setCharSize()", row, row} + taxBlock());
    addJob("a dish whose name begins with = is printed",
           {{"receipe", {{"name", "=PIZZA"}, {"number", "2"}, {"price", "3.50"}, {"totalPrice", "7.00"}}}},
           {"setBold()", titles, "setCharSize()", R"(println("  2 =PIZZA...........3.50   7.00"))"});
    addJob("no attributes: dots alone", {{"receipe", {}}},
           {"setBold()", titles, "setCharSize()", R"(println("    .....................       "))"});
    addJob("a name just as wide as its column is whole",
           {{"receipe", {{"name", "ABCDEFGHIJKLMNO"}, {"number", "2"}, {"price", "3.50"}, {"totalPrice", "7.00"}}}},
           {"setBold()", titles, "setCharSize()", R"(println("  2 ABCDEFGHIJKLMNO..3.50   7.00"))"});
    addJob("a name one wider loses its last character",
           {{"receipe", {{"name", "ABCDEFGHIJKLMNOP"}, {"number", "2"}, {"price", "3.50"}, {"totalPrice", "7.00"}}}},
           {"setBold()", titles, "setCharSize()", R"(println("  2 ABCDEFGHIJKLMNO..3.50   7.00"))"});
    addJob("the tax block: bold before the empty line, size after the total", {taxes}, taxBlock());
    addJob("each tax block is printed", {taxes, taxes}, taxBlock() + taxBlock());
    addJob("a tax block with a total only", {{"totals", {{"total", "12.20"}}}},
           {"setBold()", R"(println(""))", R"(println("    Taxable..............       "))",
            R"(println("    TaxRate..............       "))", R"(println("    Tax..................       "))",
            R"(println("    TOTAL................  12.20"))", "setCharSize()"});
    addJob("the total of the tax block is not the attribute price",
           {{"totals", {{"price", "12.20"}, {"totalPrice", "12.20"}}}},
           {"setBold()", R"(println(""))", R"(println("    Taxable..............       "))",
            R"(println("    TaxRate..............       "))", R"(println("    Tax..................       "))",
            R"(println("    TOTAL................       "))", "setCharSize()"});
    addJob("amounts and rates are printed as they stand",
           {{"totals", {{"total", "123456.78"}, {"tax", "-2,2"}, {"taxrate", "abc"}, {"taxable", " 1 "}}}},
           {"setBold()", R"(println(""))", R"(println("    Taxable..............     1 "))",
            R"(println("    TaxRate..............    abc"))", R"(println("    Tax..................   -2,2"))",
            R"(println("    TOTAL................123456.78"))", "setCharSize()"});
    addJob("the customer block", {{"customer", {{"name", "Rossi"}}}},
           {R"(println("CUSTOMER"))", R"(println(1, "Rossi"))", separator()});
    addJob("the invoice's number is a section", {{"invoice", {{"serialnumber", "7"}}}},
           {R"(print(1, "Invoice Number:"))", R"(println(1, "7"))", separator()});
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

    addJob("a dish, without prices",
           {{"receipe", {{"name", "PIZZA"}, {"number", "2"}, {"price", "3.50"}, {"totalPrice", "7.00"}}}},
           {"setCharSize()", R"(println("  2 PIZZA                     "))"});
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
