// Fiscal receipts: each dish becomes a sale on the register. No headers, no layout.

#include "print/printerdriver.h"

#include "toolkit/literals.h"

using toolkit::operator""_L1;

void PrinterDriver::printFullOrderFiscal(const QString& qName, const QXmlAttributes& atts)
{
    // Read afresh for every element, and before its name is looked at.
    int descriptionWidth = widthSetting("descriptionWidth"_L1);
    if (descriptionWidth == 0)
        descriptionWidth = getPaperWidth();

    if (qName == "receipe"_L1) {
        const QString name = atts.value("name"_L1);
        noteCut(name, descriptionWidth);
        printRowFiscal(atts.value("department"_L1), atts.value("number"_L1), name.left(descriptionWidth),
                       atts.value("price"_L1));
    } else if (qName == "total"_L1) {
        printRowFiscal(qName, atts);
    }
}
