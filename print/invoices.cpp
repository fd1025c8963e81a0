// Invoices with their tax block; delivery notes.

#include "print/printerdriver.h"

#include "toolkit/literals.h"

#include <QObject>

using toolkit::operator""_L1;

void PrinterDriver::printFullOrderInvoice(const QString& qName, const QXmlAttributes& atts)
{
    if (printSections(qName, atts))
        return;
    if (qName == "customer"_L1)
        printCustomerHeader(atts);
    else if (qName == "receipe"_L1)
        printItemRow(atts, QStringLiteral("qdpt"));
    else if (qName == "totals"_L1)
        printTaxBlock(atts);
}

void PrinterDriver::printTaxBlock(const QXmlAttributes& atts)
{
    const auto printTaxRow = [&](const QString& label, QLatin1String attribute) {
        printRow(QString(), label, QString(), atts.value(attribute), QStringLiteral("qdpt"));
    };
    setBold();
    println(QString());
    printTaxRow(QObject::tr("Taxable"), "taxable"_L1);
    printTaxRow(QObject::tr("TaxRate"), "taxrate"_L1);
    printTaxRow(QObject::tr("Tax"), "tax"_L1);
    printTotal(atts.value("total"_L1));
    setCharSize();
}

void PrinterDriver::printFullOrderDelivery(const QString& qName, const QXmlAttributes& atts)
{
    if (qName == "customer"_L1)
        printCustomerHeader(atts);
    else
        printPartialOrder(qName, atts);
}
