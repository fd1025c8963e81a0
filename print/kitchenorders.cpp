// Kitchen tickets: the dishes just ordered (partial), or the whole order with prices (full).

#include "print/printerdriver.h"

#include "toolkit/literals.h"
#include "toolkit/numbertext.h"

#include <QObject>

using toolkit::operator""_L1;

namespace {

/// "-" takes an ingredient away, "+" adds one; any other quantity stands for itself. The value counts, not its
/// text; a variant without a quantity is a removal.
QString variantMark(const QString& quantity)
{
    const double value = toolkit::toNumber(quantity);
    if (value == -1.0 || value == 0.0)
        return QStringLiteral("-");
    if (value == 1.0)
        return QStringLiteral("+");
    return quantity;
}

QString variantDescription(const QXmlAttributes& atts)
{
    return variantMark(atts.value("quantity"_L1)) + QLatin1Char(' ') + atts.value("name"_L1);
}

} // namespace

void PrinterDriver::printPartialOrder(const QString& qName, const QXmlAttributes& atts)
{
    if (printSections(qName, atts))
        return;
    const auto printKitchenRow = [&](const QString& description) {
        printRow(atts.value("number"_L1), description, QString(), QString(), QStringLiteral("qd"));
    };
    if (qName == "customer"_L1) {
        printCustomerHeader(atts);
    } else if (qName == "orderinfo"_L1) {
        // Only reached in a driver whose printSections() leaves the element alone: here it is printed above.
        setBold();
        println(descriptionRow(QObject::tr("Num"), QObject::tr("Description"), QString(), QString(), QLatin1Char(' '),
                               QStringLiteral("qd")));
    } else if (qName == "receipe"_L1) {
        setCharSize();
        printKitchenRow(atts.value("name"_L1));
    } else if (qName == "otherreceipe"_L1) {
        setCharSize(1);
        printKitchenRow(atts.value("name"_L1));
    } else if (qName == "variant"_L1) {
        printKitchenRow(variantDescription(atts));
    }
}

void PrinterDriver::printFullOrder(const QString& qName, const QXmlAttributes& atts)
{
    if (printSections(qName, atts))
        return;
    if (qName == "customer"_L1) {
        printCustomerHeader(atts);
    } else if (qName == "receipe"_L1) {
        // A dish named "=..." is kept off the ticket.
        if (!atts.value("name"_L1).startsWith(QLatin1Char('=')))
            printItemRow(atts, QStringLiteral("qdpt"));
    } else if (qName == "variant"_L1) {
        printRow(atts.value("number"_L1), variantDescription(atts), atts.value("price"_L1), atts.value("totalPrice"_L1),
                 QStringLiteral("qdpt"));
    } else if (qName == "total"_L1) {
        println(QString());
        setBold();
        printTotal(atts.value("price"_L1));
    }
}
