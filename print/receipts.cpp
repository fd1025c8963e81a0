// Receipts: the customer's bill, dish by dish.

#include "print/printerdriver.h"

#include "toolkit/literals.h"

#include <QObject>

using toolkit::operator""_L1;

void PrinterDriver::printFullOrderReceipt(const QString& qName, const QXmlAttributes& atts)
{
    if (printSections(qName, atts))
        return;
    if (qName == "customer"_L1) {
        printCustomerHeader(atts);
    } else if (qName == "receipe"_L1) {
        printItemRow(atts, QStringLiteral("qxdpt"));
    } else if (qName == "total"_L1) {
        println(QString());
        printTotal(atts.value("price"_L1));
    } else if (qName == "notPaid"_L1) {
        println(QString());
        println(QObject::tr("    Amount not paid: ") + atts.value("price"_L1));
    }
}
