#include "support/job.h"
#include "support/markedtexts.h"

#include <QtTest>

namespace {

/// The calls of a section's title between two empty lines.
QStringList title(const QString& text)
{
    return {"setBold()",      "setCenterJustify()", R"(println(""))", QString(R"(println("%1"))").arg(text),
            R"(println(""))", "setCharSize()"};
}

const QStringList cancelledHeading {"setBold()", R"(println(""))", R"(print(0, "SERIAL    "))",
                                    R"(print(0, "TOTAL      "))", R"(println("TAXRATE   "))"};

const QStringList cancelledHead = title("CANCELLED DOC SUMMARY")
    + QStringList {R"(print(0, "Number..........."))", R"(println("2"))", R"(print(0, "TOTAL............"))",
                   R"(println("30.00"))"}
    + cancelledHeading;

} // namespace

/// The day's summary report, section by section.
class TestReport : public QObject {
    Q_OBJECT

private slots:
    void init();

    void period_data();
    void period();
    void prefiscals_data();
    void prefiscals();
    void receipts_data();
    void receipts();
    void taxRate_data();
    void taxRate();
    void invoices_data();
    void invoices();
    void cancelled_data();
    void cancelled();
    void sharedSections_data();
    void sharedSections();
    void dottedLabel_data();
    void dottedLabel();
    void sectionsComeInTheJobsOrder();
    void otherElementsAreIgnored();
    void labelsAreTranslated_data();
    void labelsAreTranslated();
    void dotsFollowTheTranslatedLabel();
};

void TestReport::init()
{
    useSettings(documentSettings("reportdoc", "printTable = true; printCustomer = true;"));
}

void TestReport::period_data()
{
    addJobColumns();

    addJob("both dates", {{"date", {{"enddate", "02/02/2006"}, {"begindate", "01/02/2006"}}}},
           title("SUMMARIES")
               + QStringList {R"(print(0, "BeginDate: "))", R"(println("01/02/2006"))", R"(print(0, "EndDate: "))",
                              R"(println("02/02/2006"))"});
    addJob("no dates", {{"date", {}}},
           title("SUMMARIES")
               + QStringList {R"(print(0, "BeginDate: "))", R"(println(""))", R"(print(0, "EndDate: "))",
                              R"(println(""))"});
}

void TestReport::period()
{
    checkJob("printReport");
}

void TestReport::prefiscals_data()
{
    addJobColumns();

    addJob("number and total", {{"prefiscalssummary", {{"total", "30.00"}, {"number", "2"}}}},
           title("PREFISCAL SUMMARY")
               + QStringList {R"(print(0, "Number..........."))", R"(println("2"))", R"(print(0, "TOTAL............"))",
                              R"(println("30.00"))"});
    addJob("the total is not the attribute totals", {{"prefiscalssummary", {{"totals", "30.00"}}}},
           title("PREFISCAL SUMMARY")
               + QStringList {R"(print(0, "Number..........."))", R"(println(""))", R"(print(0, "TOTAL............"))",
                              R"(println(""))"});
}

void TestReport::prefiscals()
{
    checkJob("printReport");
}

void TestReport::receipts_data()
{
    addJobColumns();
    const QString heading = R"(println("TAXRATE    TAXABLE        TAX     AMOUNT"))";

    addJob("everything",
           {{"receiptssummary",
             {{"other", "5"},
              {"bancomat", "4"},
              {"creditCard", "3"},
              {"cash", "2"},
              {"notPaid", "1"},
              {"total", "15"},
              {"lastserial", "12"},
              {"firstserial", "8"},
              {"number", "5 + 0"}}}},
           title("RECEIPTS SUMMARY")
               + QStringList {R"(print(0, "Number..........."))", R"(println("5 + 0"))",
                              R"(print(0, "Serials.........."))", R"(print(0, "8"))", R"(print(0, " - "))",
                              R"(println("12"))", R"(println("Amount not paid: 1"))", R"(println("Cash: 2"))",
                              R"(println("Credit Card: 3"))", R"(println("Bancomat: 4"))", R"(println("Other: 5"))",
                              R"(print(0, "TOTAL............"))", R"(println("15"))", R"(println(""))", separator(),
                              heading});
    addJob("nothing: every line all the same", {{"receiptssummary", {}}},
           title("RECEIPTS SUMMARY")
               + QStringList {R"(print(0, "Number..........."))", R"(println(""))", R"(print(0, "Serials.........."))",
                              R"(print(0, ""))", R"(print(0, " - "))", R"(println(""))",
                              R"(println("Amount not paid: "))", R"(println("Cash: "))", R"(println("Credit Card: "))",
                              R"(println("Bancomat: "))", R"(println("Other: "))", R"(print(0, "TOTAL............"))",
                              R"(println(""))", R"(println(""))", separator(), heading});
}

void TestReport::receipts()
{
    checkJob("printReport");
}

void TestReport::taxRate_data()
{
    addJobColumns();

    addJob("one line of 41 characters, no size or justification",
           {{"taxrate_item", {{"amount", "122.00"}, {"tax", "22.00"}, {"taxable", "100.00"}, {"taxrate", "22"}}}},
           {R"(println("    22%     100.00      22.00     122.00 "))"});
    addJob("no attributes", {{"taxrate_item", {}}}, {R"(println("      %                                  "))"});
    addJob("texts just as wide as their columns",
           {{"taxrate_item",
             {{"taxrate", "123456"}, {"taxable", "1234567.89"}, {"tax", "2345678.90"}, {"amount", "3456789.01"}}}},
           {R"(println("123456% 1234567.89 2345678.90 3456789.01 "))"});
    addJob("wider texts are not cut",
           {{"taxrate_item",
             {{"taxrate", "1234567"}, {"taxable", "12345678.90"}, {"tax", "23456789.01"}, {"amount", "34567890.12"}}}},
           {R"(println("1234567% 12345678.90 23456789.01 34567890.12 "))"});
}

void TestReport::taxRate()
{
    checkJob("printReport");
}

void TestReport::invoices_data()
{
    addJobColumns();

    addJob("everything",
           {{"invoicessummary",
             {{"total", "122"},
              {"tax", "22"},
              {"taxable", "100"},
              {"lastserial", "12"},
              {"firstserial", "8"},
              {"number", "5"}}}},
           QStringList {separator(), R"(println(""))"} + title("INVOICES SUMMARY")
               + QStringList {R"(print(0, "Number..........."))", R"(println("5"))", R"(print(0, "Serials.........."))",
                              R"(print(0, "8"))", R"(print(0, " - "))", R"(println("12"))",
                              R"(print(0, "Taxable.........."))", R"(println("100"))",
                              R"(print(0, "Tax.............."))", R"(println("22"))",
                              R"(print(0, "TOTAL............"))", R"(println("122"))"});
    addJob("nothing: every line all the same", {{"invoicessummary", {}}},
           QStringList {separator(), R"(println(""))"} + title("INVOICES SUMMARY")
               + QStringList {R"(print(0, "Number..........."))", R"(println(""))", R"(print(0, "Serials.........."))",
                              R"(print(0, ""))", R"(print(0, " - "))", R"(println(""))",
                              R"(print(0, "Taxable.........."))", R"(println(""))", R"(print(0, "Tax.............."))",
                              R"(println(""))", R"(print(0, "TOTAL............"))", R"(println(""))"});
}

void TestReport::invoices()
{
    checkJob("printReport");
}

void TestReport::cancelled_data()
{
    addJobColumns();
    const auto addRow = [](const char* name, const Attributes& rows, const QStringList& lines) {
        const Attributes attributes = Attributes {{"number", "2"}, {"totals", "30.00"}} + rows;
        addJob(name, {{"cancelledsummary", attributes}}, cancelledHead + lines);
    };

    const QStringList first {R"(print(0, "7         "))", R"(print(0, "10.00      "))", R"(println("22        "))"};
    const QStringList second {R"(print(0, "9         "))", R"(print(0, "20.00      "))", R"(println("4         "))"};
    addRow("a heading and no rows", {}, {});
    addRow("one row", {{"a", "7"}, {"b", "10.00"}, {"c", "22"}}, first);
    addRow("two rows", {{"a", "7"}, {"b", "10.00"}, {"c", "22"}, {"d", "9"}, {"e", "20.00"}, {"f", "4"}},
           first + second);
    addRow("rows are counted by place, whatever their names", {{"taxrate", "7"}, {"serial", "10.00"}, {"total", "22"}},
           first);
    addRow("a last row without a tax rate", {{"a", "7"}, {"b", "10.00"}, {"c", "22"}, {"d", "9"}, {"e", "20.00"}},
           first + QStringList {second[0], second[1], R"(println("          "))"});
    addRow("a last row of a serial alone", {{"a", "7"}, {"b", "10.00"}, {"c", "22"}, {"d", "9"}},
           first + QStringList {second[0], R"(print(0, "           "))", R"(println("          "))"});
    addRow("texts wider than their columns are not cut",
           {{"a", "12345678901"}, {"b", "123456789.01"}, {"c", "12345678901"}},
           {R"(print(0, "12345678901"))", R"(print(0, "123456789.01"))", R"(println("12345678901"))"});

    addJob("the first two attributes are skipped, number and totals found where they are",
           {{"cancelledsummary", {{"x", "1"}, {"y", "2"}, {"totals", "30.00"}, {"number", "2"}, {"z", "5"}}}},
           cancelledHead
               + QStringList {R"(print(0, "30.00     "))", R"(print(0, "2          "))", R"(println("5         "))"});
    addJob("the total is not the attribute total", {{"cancelledsummary", {{"number", "2"}, {"total", "30.00"}}}},
           title("CANCELLED DOC SUMMARY")
               + QStringList {R"(print(0, "Number..........."))", R"(println("2"))", R"(print(0, "TOTAL............"))",
                              R"(println(""))"}
               + cancelledHeading);
    addJob("no attributes", {{"cancelledsummary", {}}},
           title("CANCELLED DOC SUMMARY")
               + QStringList {R"(print(0, "Number..........."))", R"(println(""))", R"(print(0, "TOTAL............"))",
                              R"(println(""))"}
               + cancelledHeading);
}

void TestReport::cancelled()
{
    checkJob("printReport");
}

void TestReport::sharedSections_data()
{
    addJobColumns();

    addJob("the order information", {{"orderinfo", {{"table", "12"}}}},
           {"setCharSize()", R"(print(1, "Table:"))", R"(println(1, "12"))", separator()});
    addJob("a receipt's number", {{"receipt", {{"serialnumber", "7"}}}},
           {R"(println(1, "Serial Number: 7"))", separator()});
    addJob("the printer, whose name stays centred", {{"printers", {{"name", "Bar"}}}, {"headers", {}}},
           {"initPrinter()", "setCenterJustify()", R"(println("Bar"))", separator()});
}

void TestReport::sharedSections()
{
    checkJob("printReport");
}

void TestReport::dottedLabel_data()
{
    QTest::addColumn<int>("paperWidth");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("total");

    QTest::newRow("40: labels of 25 characters") << 40 << "Number..................."
                                                 << "TOTAL....................";
    QTest::newRow("22: one dot and two") << 22 << "Number."
                                         << "TOTAL..";
    QTest::newRow("21: a label just as wide") << 21 << "Number"
                                              << "TOTAL.";
    QTest::newRow("20: a label one wider is whole") << 20 << "Number"
                                                    << "TOTAL";
    QTest::newRow("16: labels of one character are whole") << 16 << "Number"
                                                           << "TOTAL";
    QTest::newRow("15: labels of none are whole") << 15 << "Number"
                                                  << "TOTAL";
    QTest::newRow("3: less than none") << 3 << "Number"
                                       << "TOTAL";
    QTest::newRow("negative") << -40 << "Number"
                              << "TOTAL";
}

void TestReport::dottedLabel()
{
    QFETCH(int, paperWidth);
    QFETCH(QString, number);
    QFETCH(QString, total);
    useSettings("zelmora: { reportdoc: { paperWidth = " + QByteArray::number(paperWidth) + "; }; };");
    RecordingDriver driver;

    const QStringList expected = title("PREFISCAL SUMMARY")
        + QStringList {QString(R"(print(0, "%1"))").arg(number), R"(println("2"))",
                       QString(R"(print(0, "%1"))").arg(total), R"(println("30.00"))"};
    QCOMPARE(callsOf(driver, "printReport", {{"prefiscalssummary", {{"number", "2"}, {"total", "30.00"}}}}), expected);
}

void TestReport::sectionsComeInTheJobsOrder()
{
    RecordingDriver driver;
    const Job job {
        {"cancelledsummary", {}}, {"taxrate_item", {}},     {"date", {}}, {"date", {}}, {"invoicessummary", {}},
        {"receiptssummary", {}},  {"prefiscalssummary", {}}};

    QStringList titles;
    for (const QString& call : callsOf(driver, "printReport", job)) {
        if (call.contains("SUMMAR") || call.contains("%"))
            titles += call;
    }
    const QStringList expected {R"(println("CANCELLED DOC SUMMARY"))",
                                R"(println("      %                                  "))",
                                R"(println("SUMMARIES"))",
                                R"(println("SUMMARIES"))",
                                R"(println("INVOICES SUMMARY"))",
                                R"(println("RECEIPTS SUMMARY"))",
                                R"(println("PREFISCAL SUMMARY"))"};
    QCOMPARE(titles, expected);
}

void TestReport::otherElementsAreIgnored()
{
    RecordingDriver driver;
    const Job job = elementsNamed({"customer", "receipe", "total", "Date", "prefiscalsummary", "receiptsummary",
                                   "taxrate_items", "cancelledSummary", "statement", "report"});
    QCOMPARE(callsOf(driver, "printReport", job), QStringList());
}

void TestReport::labelsAreTranslated_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QStringList>("calls");

    QTest::newRow("period") << "date"
                            << QStringList {R"(println("<SUMMARIES>"))", R"(print(0, "<BeginDate: >"))",
                                            R"(print(0, "<EndDate: >"))"};
    QTest::newRow("prefiscals") << "prefiscalssummary"
                                << QStringList {R"(println("<PREFISCAL SUMMARY>"))", R"(print(0, "<Number>........."))",
                                                R"(print(0, "<TOTAL>.........."))"};
    QTest::newRow("receipts")
        << "receiptssummary"
        << QStringList {R"(println("<RECEIPTS SUMMARY>"))", R"(print(0, "<Number>........."))",
                        R"(print(0, "<Serials>........"))", R"(println("<Amount not paid: >"))",
                        R"(println("<Cash: >"))",           R"(println("<Credit Card: >"))",
                        R"(println("<Bancomat: >"))",       R"(println("<Other: >"))",
                        R"(print(0, "<TOTAL>.........."))", R"(println("<TAXRATE>  <TAXABLE>      <TAX>   <AMOUNT>"))"};
    QTest::newRow("a tax rate has no label") << "taxrate_item" << QStringList();
    QTest::newRow("invoices") << "invoicessummary"
                              << QStringList {R"(println("<INVOICES SUMMARY>"))", R"(print(0, "<Number>........."))",
                                              R"(print(0, "<Serials>........"))", R"(print(0, "<Taxable>........"))",
                                              R"(print(0, "<Tax>............"))", R"(print(0, "<TOTAL>.........."))"};
    QTest::newRow("cancelled documents") << "cancelledsummary"
                                         << QStringList {R"(println("<CANCELLED DOC SUMMARY>"))",
                                                         R"(print(0, "<Number>........."))",
                                                         R"(print(0, "<TOTAL>.........."))",
                                                         R"(print(0, "<SERIAL>  "))",
                                                         R"(print(0, "<TOTAL>    "))",
                                                         R"(println("<TAXRATE> "))"};
}

void TestReport::labelsAreTranslated()
{
    QFETCH(QString, element);
    QFETCH(QStringList, calls);
    const MarkedTexts marked;
    RecordingDriver driver;

    const QByteArray name = element.toUtf8();
    const Job job {{name.constData(), {{"number", "Number"}, {"total", "TOTAL"}}}};
    QCOMPARE(callsOf(driver, "printReport", job).filter("<"), calls);
}

void TestReport::dotsFollowTheTranslatedLabel()
{
    useSettings("zelmora: { reportdoc: { paperWidth = 22; }; };");
    const MarkedTexts marked;
    RecordingDriver driver;

    const QStringList calls = callsOf(driver, "printReport", {{"prefiscalssummary", {}}});
    QVERIFY(calls.contains(R"(print(0, "<Number>"))"));
    QVERIFY(calls.contains(R"(print(0, "<TOTAL>"))"));
}

QTEST_GUILESS_MAIN(TestReport)
#include "tst_report.moc"
