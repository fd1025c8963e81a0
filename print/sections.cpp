// The sections that most documents share: printer, headers, company, numbers, order information, customer.

#include "print/printerdriver.h"

#include "toolkit/literals.h"

#include <QObject>

using toolkit::operator""_L1;

namespace {

/// A blank, the translated label, a blank and the value on one line.
void printLabelled(PrinterDriver& driver, const char* label, const QString& value)
{
    driver.print(1, QObject::tr(label));
    driver.println(1, value);
}

/// Every attribute, whatever its name, as one line.
void printAttributeLines(PrinterDriver& driver, const QXmlAttributes& atts)
{
    for (int i = 0; i < atts.count(); ++i)
        driver.println(atts.value(i));
}

/// The lines of a comma-separated address, up to the first empty one.
void printAddress(PrinterDriver& driver, const QString& address)
{
    int begin = 0;
    while (begin < address.size()) {
        const int comma = address.indexOf(QLatin1Char(','), begin);
        const int end = comma < 0 ? address.size() : comma;
        if (end == begin)
            return;
        driver.println(1, address.mid(begin, end - begin).trimmed());
        begin = end + 1;
    }
}

} // namespace

bool PrinterDriver::printSections(const QString& qName, const QXmlAttributes& atts)
{
    struct Section {
        QLatin1String element;
        void (PrinterDriver::*print)(const QXmlAttributes& atts);
    };
    // clang-format off
    static constexpr Section sections[] = {
        {"printers"_L1, &PrinterDriver::choosePrinter},
        {"geometry"_L1, &PrinterDriver::printGeometry},
        {"headers"_L1, &PrinterDriver::printHeadersAndPrinter},
        {"logo"_L1, &PrinterDriver::printLogoSection},
        {"company"_L1, &PrinterDriver::printCompanyHeader},
        {"receipt"_L1, &PrinterDriver::printReceiptHeader},
        {"invoice"_L1, &PrinterDriver::printInvoiceHeader},
        {"delivery"_L1, &PrinterDriver::printDeliveryHeader},
        {"orderinfo"_L1, &PrinterDriver::printOrderInfo},
    };
    // clang-format on
    for (const Section& section : sections) {
        if (qName == section.element) {
            (this->*section.print)(atts);
            return true;
        }
    }
    return false;
}

void PrinterDriver::choosePrinter(const QXmlAttributes& atts)
{
    printerName = atts.value("name"_L1);
    charSize = atts.value("charsize"_L1);
    ipAddress = atts.value("ipaddress"_L1);
    port = atts.value("port"_L1);
    initPrinter();
}

void PrinterDriver::printHeadersAndPrinter(const QXmlAttributes& atts)
{
    printHeaders(atts);
    printPrinterInfo();
}

/// The print flag of the logo is not asked: whoever sends the element wants it.
void PrinterDriver::printLogoSection(const QXmlAttributes&)
{
    printLogo();
}

void PrinterDriver::printGeometry(const QXmlAttributes&)
{
    if (!printGeometryFlag)
        return;
    for (int rows = widthSetting("topMargin"_L1); rows > 0; --rows)
        println(QString());
}

void PrinterDriver::printPrinterInfo()
{
    setCenterJustify();
    println(printerName);
    printSeparatorLine();
}

void PrinterDriver::printHeaders(const QXmlAttributes& atts)
{
    if (!printHeaderFlag)
        return;
    printAttributeLines(*this, atts);
    printSeparatorLine();
}

void PrinterDriver::printCompanyHeader(const QXmlAttributes& atts)
{
    if (!printCompanyFlag)
        return;
    setCharSize();
    setCenterJustify();
    printAttributeLines(*this, atts);
    setCharSize();
    printSeparatorLine();
}

void PrinterDriver::printReceiptHeader(const QXmlAttributes& atts)
{
    println(1, QObject::tr("Serial Number: ") + atts.value("serialnumber"_L1));
    printSeparatorLine();
}

void PrinterDriver::printInvoiceHeader(const QXmlAttributes& atts)
{
    printLabelled(*this, QT_TRANSLATE_NOOP("QObject", "Invoice Number:"), atts.value("serialnumber"_L1));
    printSeparatorLine();
}

void PrinterDriver::printDeliveryHeader(const QXmlAttributes& atts)
{
    printLabelled(*this, QT_TRANSLATE_NOOP("QObject", "Delivery Number:"), atts.value("serialnumber"_L1));
    printSeparatorLine();
}

void PrinterDriver::printOrderInfo(const QXmlAttributes& atts)
{
    struct Line {
        bool PrinterDriver::*flag;
        const char* label;
        QLatin1String attribute;
    };
    static constexpr Line lines[] = {
        {&PrinterDriver::printDateFlag, QT_TRANSLATE_NOOP("QObject", "Date:"), "date"_L1},
        {&PrinterDriver::printTimeFlag, QT_TRANSLATE_NOOP("QObject", "Time:"), "time"_L1},
        {&PrinterDriver::printTableFlag, QT_TRANSLATE_NOOP("QObject", "Table:"), "table"_L1},
        {&PrinterDriver::printWaiterFlag, QT_TRANSLATE_NOOP("QObject", "Waiter:"), "waiter"_L1},
        {&PrinterDriver::printNoteFlag, QT_TRANSLATE_NOOP("QObject", "Note:"), "note"_L1},
        {&PrinterDriver::printCreditFlag, QT_TRANSLATE_NOOP("QObject", "Credit:"), "credit"_L1},
    };
    setCharSize();
    for (const Line& line : lines) {
        if (this->*line.flag)
            printLabelled(*this, line.label, atts.value(line.attribute));
    }
    if (printCreditFlag)
        credit = atts.value("credit"_L1);
    printSeparatorLine();
}

void PrinterDriver::printCustomerHeader(const QXmlAttributes& atts)
{
    if (!printCustomerFlag)
        return;
    println(QObject::tr("CUSTOMER"));
    println(1, atts.value("name"_L1));
    if (printBillingAddressFlag)
        printAddress(*this, atts.value("billingaddress"_L1));
    if (printDeliveryAddressFlag)
        printAddress(*this, atts.value("deliveryaddress"_L1));
    if (printTelephoneFlag)
        printLabelled(*this, QT_TRANSLATE_NOOP("QObject", "Telephone:"), atts.value("telephone"_L1));
    if (printLicenseNumberFlag)
        printLabelled(*this, QT_TRANSLATE_NOOP("QObject", "License Number:"), atts.value("licensenumber"_L1));
    if (printFiscalCodeFlag)
        printLabelled(*this, QT_TRANSLATE_NOOP("QObject", "Fiscal Code:"), atts.value("fiscalcode"_L1));
    printSeparatorLine();
}
