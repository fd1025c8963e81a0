// The summaries of an order, by dish type instead of by dish: order, receipt, invoice, fiscal receipt.

#include "print/printerdriver.h"

#include "toolkit/literals.h"

using toolkit::operator""_L1;

/// The summary order is not printed at all, its headers included.
void PrinterDriver::printAbstractOrder(const QString&, const QXmlAttributes&)
{
}

void PrinterDriver::printAbstractOrderReceipt(const QString& qName, const QXmlAttributes& atts)
{
    if (printSections(qName, atts))
        return;
    if (qName == "receipe_type"_L1) {
        printTypeRow(atts);
    } else if (qName == "total"_L1) {
        println(QString());
        printTotal(atts.value("price"_L1));
    } else if (qName == "notPaid"_L1) {
        println(QString());
        // The one label that is never translated.
        println("   Corrispettivo non pagato: "_L1 + atts.value("price"_L1));
    }
}

void PrinterDriver::printAbstractOrderInvoice(const QString& qName, const QXmlAttributes& atts)
{
    if (printSections(qName, atts))
        return;
    if (qName == "customer"_L1)
        printCustomerHeader(atts);
    else if (qName == "receipe_type"_L1)
        printTypeRow(atts);
    else if (qName == "totals"_L1)
        printTaxBlock(atts);
}

void PrinterDriver::printAbstractOrderFiscal(const QString& qName, const QXmlAttributes& atts)
{
    if (qName == "receipe_type"_L1) {
        // A dish type is sold as one unit, and under its whole name.
        printRowFiscal(atts.value("department"_L1), QStringLiteral("1"), atts.value("name"_L1), atts.value("price"_L1));
    } else if (qName == "total"_L1) {
        printRowFiscal(qName, atts);
    }
}

/// The type's amount stands in the last column; the price column stays empty.
void PrinterDriver::printTypeRow(const QXmlAttributes& atts)
{
    const ColumnTitles& columns = columnTitles();
    printColumnsHeader(columns.number, columns.description, QString(), columns.price);
    printRow(atts.value("number"_L1), atts.value("name"_L1), QString(), atts.value("price"_L1),
             QStringLiteral("qxdpt"));
}
