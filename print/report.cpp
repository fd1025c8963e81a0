// The day's summary report: one section for each element.

#include "print/printerdriver.h"

#include "toolkit/literals.h"

#include <QObject>

using toolkit::operator""_L1;

namespace {

/// Prints the sections of the report on a driver.
class Report {
public:
    Report(PrinterDriver& driver, int paperWidth)
        : driver(driver)
        , labelWidth(paperWidth - 15)
    {
    }

    void printSection(const QString& qName, const QXmlAttributes& atts);

private:
    // The sections.
    void printPeriod(const QXmlAttributes& atts);
    void printPrefiscals(const QXmlAttributes& atts);
    void printReceipts(const QXmlAttributes& atts);
    void printTaxRate(const QXmlAttributes& atts);
    void printInvoices(const QXmlAttributes& atts);
    void printCancelled(const QXmlAttributes& atts);

    // What they are made of. Labels are keys of the translation catalogue.
    void printTitle(const char* title);
    void printDotted(const char* label, const QString& value);
    void printSerials(const QXmlAttributes& atts);
    void printCancelledRow(const QString& serial, const QString& total, const QString& taxRate);

    PrinterDriver& driver;
    const int labelWidth; ///< of a label with its dots; 0 or less prints it whole, without dots
};

void Report::printSection(const QString& qName, const QXmlAttributes& atts)
{
    struct Section {
        QLatin1String element;
        void (Report::*print)(const QXmlAttributes& atts);
    };
    static constexpr Section sections[] = {
        {"date"_L1, &Report::printPeriod},
        {"prefiscalssummary"_L1, &Report::printPrefiscals},
        {"receiptssummary"_L1, &Report::printReceipts},
        {"taxrate_item"_L1, &Report::printTaxRate},
        {"invoicessummary"_L1, &Report::printInvoices},
        {"cancelledsummary"_L1, &Report::printCancelled},
    };
    for (const Section& section : sections) {
        if (qName == section.element)
            return (this->*section.print)(atts);
    }
}

/// The title, bold and centred between two empty lines.
void Report::printTitle(const char* title)
{
    driver.setBold();
    driver.setCenterJustify();
    driver.println(QString());
    driver.println(QObject::tr(title));
    driver.println(QString());
    driver.setCharSize();
}

void Report::printDotted(const char* label, const QString& value)
{
    driver.print(0, QObject::tr(label).leftJustified(labelWidth, QLatin1Char('.')));
    driver.println(value);
}

void Report::printSerials(const QXmlAttributes& atts)
{
    driver.print(0, QObject::tr("Serials").leftJustified(labelWidth, QLatin1Char('.')));
    driver.print(0, atts.value("firstserial"_L1));
    driver.print(0, QStringLiteral(" - "));
    driver.println(atts.value("lastserial"_L1));
}

void Report::printPeriod(const QXmlAttributes& atts)
{
    printTitle(QT_TRANSLATE_NOOP("QObject", "SUMMARIES"));
    driver.print(0, QObject::tr("BeginDate: "));
    driver.println(atts.value("begindate"_L1));
    driver.print(0, QObject::tr("EndDate: "));
    driver.println(atts.value("enddate"_L1));
}

void Report::printPrefiscals(const QXmlAttributes& atts)
{
    printTitle(QT_TRANSLATE_NOOP("QObject", "PREFISCAL SUMMARY"));
    printDotted(QT_TRANSLATE_NOOP("QObject", "Number"), atts.value("number"_L1));
    printDotted(QT_TRANSLATE_NOOP("QObject", "TOTAL"), atts.value("total"_L1));
}

void Report::printReceipts(const QXmlAttributes& atts)
{
    struct Payment {
        const char* label;
        QLatin1String attribute;
    };
    static constexpr Payment payments[] = {
        {QT_TRANSLATE_NOOP("QObject", "Amount not paid: "), "notPaid"_L1},
        {QT_TRANSLATE_NOOP("QObject", "Cash: "), "cash"_L1},
        {QT_TRANSLATE_NOOP("QObject", "Credit Card: "), "creditCard"_L1},
        {QT_TRANSLATE_NOOP("QObject", "Bancomat: "), "bancomat"_L1},
        {QT_TRANSLATE_NOOP("QObject", "Other: "), "other"_L1},
    };
    printTitle(QT_TRANSLATE_NOOP("QObject", "RECEIPTS SUMMARY"));
    printDotted(QT_TRANSLATE_NOOP("QObject", "Number"), atts.value("number"_L1));
    printSerials(atts);
    for (const Payment& payment : payments)
        driver.println(QObject::tr(payment.label) + atts.value(payment.attribute));
    printDotted(QT_TRANSLATE_NOOP("QObject", "TOTAL"), atts.value("total"_L1));
    driver.println(QString());
    driver.printSeparatorLine();

    // The heading of the table whose lines printTaxRate() prints.
    const QLatin1Char blank(' ');
    driver.println(QObject::tr("TAXRATE").rightJustified(6) + blank + QObject::tr("TAXABLE").rightJustified(10) + blank
                   + QObject::tr("TAX").rightJustified(10) + blank + QObject::tr("AMOUNT").rightJustified(10));
}

/// One column wider than its heading from the second column on, and with a blank at the end.
void Report::printTaxRate(const QXmlAttributes& atts)
{
    const QLatin1Char blank(' ');
    driver.println(atts.value("taxrate"_L1).rightJustified(6) + "% "_L1 + atts.value("taxable"_L1).rightJustified(10)
                   + blank + atts.value("tax"_L1).rightJustified(10) + blank
                   + atts.value("amount"_L1).rightJustified(10) + blank);
}

void Report::printInvoices(const QXmlAttributes& atts)
{
    driver.printSeparatorLine();
    driver.println(QString());
    printTitle(QT_TRANSLATE_NOOP("QObject", "INVOICES SUMMARY"));
    printDotted(QT_TRANSLATE_NOOP("QObject", "Number"), atts.value("number"_L1));
    printSerials(atts);
    printDotted(QT_TRANSLATE_NOOP("QObject", "Taxable"), atts.value("taxable"_L1));
    printDotted(QT_TRANSLATE_NOOP("QObject", "Tax"), atts.value("tax"_L1));
    printDotted(QT_TRANSLATE_NOOP("QObject", "TOTAL"), atts.value("total"_L1));
}

/// The cancelled documents are attributes of the element itself: after the first two, every three make a row,
/// whatever their names. What is missing from the last row is empty.
void Report::printCancelled(const QXmlAttributes& atts)
{
    printTitle(QT_TRANSLATE_NOOP("QObject", "CANCELLED DOC SUMMARY"));
    printDotted(QT_TRANSLATE_NOOP("QObject", "Number"), atts.value("number"_L1));
    printDotted(QT_TRANSLATE_NOOP("QObject", "TOTAL"), atts.value("totals"_L1));
    driver.setBold();
    driver.println(QString());
    printCancelledRow(QObject::tr("SERIAL"), QObject::tr("TOTAL"), QObject::tr("TAXRATE"));
    // The list itself does not guard its end.
    const auto value = [&](int i) { return i < atts.count() ? atts.value(i) : QString(); };
    for (int i = 2; i < atts.count(); i += 3)
        printCancelledRow(value(i), value(i + 1), value(i + 2));
}

void Report::printCancelledRow(const QString& serial, const QString& total, const QString& taxRate)
{
    driver.print(0, serial.leftJustified(10));
    driver.print(0, total.leftJustified(11));
    driver.println(taxRate.leftJustified(10));
}

} // namespace

void PrinterDriver::printReport(const QString& qName, const QXmlAttributes& atts)
{
    if (!printSections(qName, atts))
        Report(*this, paperWidth).printSection(qName, atts);
}
