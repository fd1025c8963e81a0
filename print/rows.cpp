// Rows, titles and totals that several kinds of document share.

#include "print/printerdriver.h"

#include "print/rowlayout.h"
#include "toolkit/literals.h"

#include <QObject>

#include <utility>

using toolkit::operator""_L1;

QString PrinterDriver::descriptionRow(const QString& quantity, const QString& description, const QString& price,
                                      const QString& totalPrice, const QChar& fill, const QString& layout)
{
    const rowlayout::Widths widths {paperWidth, quantityFieldWidth, priceFieldWidth, totalPriceFieldWidth};
    noteCut(description, rowlayout::descriptionWidth(layout, widths));
    return rowlayout::row(layout, widths, quantity, description, price, totalPrice, fill);
}

void PrinterDriver::noteCut(const QString& text, int width)
{
    if (width >= 0 && text.size() > width)
        textCut(text, width);
}

void PrinterDriver::printSeparatorLine()
{
    println(QString().leftJustified(paperWidth, QLatin1Char('=')));
}

bool PrinterDriver::oneTime()
{
    return !std::exchange(oneTimeDone, true);
}

void PrinterDriver::printColumnsHeader(const QString& quantity, const QString& description, const QString& price,
                                       const QString& totalPrice)
{
    if (!oneTime())
        return;
    setBold();
    println(descriptionRow(quantity, description, price, totalPrice, QLatin1Char(' '), QStringLiteral("qdpt")));
    setCharSize();
}

/// Every row offers the titles to printColumnsHeader(): they are looked up in the catalogue once.
const PrinterDriver::ColumnTitles& PrinterDriver::columnTitles()
{
    if (titles.number.isEmpty())
        titles = {QObject::tr("Num"), QObject::tr("Description"), QObject::tr("Price"), QObject::tr("Amount")};
    return titles;
}

void PrinterDriver::printRow(const QString& quantity, const QString& description, const QString& price,
                             const QString& totalPrice, const QString& layout)
{
    println(descriptionRow(quantity, description, price, totalPrice, QLatin1Char('.'), layout));
}

void PrinterDriver::printItemRow(const QXmlAttributes& atts, const QString& layout)
{
    const ColumnTitles& columns = columnTitles();
    printColumnsHeader(columns.number, columns.description, columns.price, columns.amount);
    printRow(atts.value("number"_L1), atts.value("name"_L1), atts.value("price"_L1), atts.value("totalPrice"_L1),
             layout);
}

void PrinterDriver::printTotal(const QString& amount)
{
    printRow(QString(), QObject::tr("TOTAL"), QString(), amount, QStringLiteral("qdpt"));
}
