// The customer's statement of account and the list of dishes sold.

#include "print/printerdriver.h"

#include "toolkit/eightbit.h"
#include "toolkit/literals.h"

#include <QObject>

using toolkit::operator""_L1;

namespace {

// clang-format off
/// The movement types that the suite sends, listed for the translation catalogue: a type is looked up there by
/// its text, and one that is not listed prints as it is.
[[maybe_unused]] const char* const movementTypes[] = {
    QT_TRANSLATE_NOOP("QObject", "Payment"),
    QT_TRANSLATE_NOOP("QObject", "Invoice"),
    QT_TRANSLATE_NOOP("QObject", "Receipt"),
    QT_TRANSLATE_NOOP("QObject", "Fiscal Receipt"),
    QT_TRANSLATE_NOOP("QObject", "Delivery"),
    QT_TRANSLATE_NOOP("QObject", "Deposit"),
    QT_TRANSLATE_NOOP("QObject", "Refund"),
    QT_TRANSLATE_NOOP("QObject", "Discount"),
    QT_TRANSLATE_NOOP("QObject", "Credit"),
    QT_TRANSLATE_NOOP("QObject", "Credit Note"),
    QT_TRANSLATE_NOOP("QObject", "Debit"),
    QT_TRANSLATE_NOOP("QObject", "Balance"),
};
// clang-format on

/// The type is a key of the catalogue in its 8-bit form. tr() takes UTF-8, whatever the text came from.
QString translatedMovementType(const QString& type)
{
    return QObject::tr(toolkit::eightBit(type).toUtf8().constData());
}

} // namespace

void PrinterDriver::printStatementOfAccount(const QString& qName, const QXmlAttributes& atts)
{
    if (printSections(qName, atts))
        return;
    const QString layout = QStringLiteral("date-amount-type");
    if (qName == "statement_list"_L1) {
        setBold();
        println(descriptionRow(QObject::tr("Date"), QObject::tr("Description"), QObject::tr("Amount"), QString(),
                               QLatin1Char(' '), layout));
        reset();
    } else if (qName == "statement"_L1) {
        printRow(atts.value("date"_L1) + ": "_L1, translatedMovementType(atts.value("type"_L1)),
                 atts.value("amount"_L1), QString(), layout);
    }
}

void PrinterDriver::printSold(const QString& qName, const QXmlAttributes& atts)
{
    if (printSections(qName, atts) || qName != "receipe"_L1)
        return;
    setBold();
    printRow(atts.value("quantity"_L1), atts.value("description"_L1), QString(), atts.value("amount"_L1),
             QStringLiteral("qxdpt"));
}
