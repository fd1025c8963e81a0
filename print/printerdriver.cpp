// The engine's life cycle, the XML events, and the table of print methods.

#include "print/printerdriver.h"

#include "config/zmconfiguration.h"
#include "toolkit/console.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/textwriter.h"

#include <QFile>

#include <optional>

using toolkit::operator""_L1;

/// What a "method" element may name, and what the name selects.
struct PrinterDriver::PrintMethod {
    QLatin1String name;
    QLatin1String documentType; ///< whose settings the document is printed with
    std::optional<bool> invoice; ///< what becomes of the member invoice; nothing leaves it as it is
    void (PrinterDriver::*print)(const QString& qName, const QXmlAttributes& atts);
};

const PrinterDriver::PrintMethod* PrinterDriver::findMethod(const QString& name)
{
    // The full order is printed with the settings of the prefiscal document, the statement with the report's.
    static constexpr PrintMethod methods[] = {
        {"printPartialOrder"_L1, "order"_L1, {}, &PrinterDriver::printPartialOrder},
        {"printFullOrder"_L1, "prefiscal"_L1, {}, &PrinterDriver::printFullOrder},
        {"printFullOrderReceipt"_L1, "receipt"_L1, {}, &PrinterDriver::printFullOrderReceipt},
        {"printFullOrderInvoice"_L1, "invoice"_L1, true, &PrinterDriver::printFullOrderInvoice},
        {"printFullOrderDelivery"_L1, "delivery"_L1, {}, &PrinterDriver::printFullOrderDelivery},
        {"printFullOrderFiscal"_L1, "fiscal"_L1, false, &PrinterDriver::printFullOrderFiscal},
        {"printAbstractOrder"_L1, "order"_L1, {}, &PrinterDriver::printAbstractOrder},
        {"printAbstractOrderReceipt"_L1, "receipt"_L1, {}, &PrinterDriver::printAbstractOrderReceipt},
        {"printAbstractOrderInvoice"_L1, "invoice"_L1, true, &PrinterDriver::printAbstractOrderInvoice},
        {"printAbstractOrderFiscal"_L1, "fiscal"_L1, false, &PrinterDriver::printAbstractOrderFiscal},
        {"printReport"_L1, "report"_L1, {}, &PrinterDriver::printReport},
        {"printSold"_L1, "sold"_L1, {}, &PrinterDriver::printSold},
        {"printStatementOfAccount"_L1, "report"_L1, {}, &PrinterDriver::printStatementOfAccount},
    };
    for (const PrintMethod& candidate : methods) {
        if (name == candidate.name)
            return &candidate;
    }
    return nullptr;
}

PrinterDriver::PrinterDriver(const QString& path, bool append)
    : config(SyncSingleton<ZMConfiguration>::instance())
    , file(std::make_unique<QFile>())
{
    const QIODevice::OpenMode mode = append ? QIODevice::WriteOnly | QIODevice::Append : QIODevice::WriteOnly;
    if (!toolkit::openAnyFile(*file, path, mode)) {
        toolkit::writeLine("PrintManager::printAbstractOrder(...): Unable To Open File");
        return;
    }
    stream = std::make_unique<toolkit::TextWriter>(*file, toolkit::TextEncoder::Encoding::Locale);
}

PrinterDriver::PrinterDriver(ZMConfiguration& settings)
    : config(&settings)
{
}

PrinterDriver::~PrinterDriver() = default;

bool PrinterDriver::startDocument()
{
    reset();
    return true;
}

bool PrinterDriver::endDocument()
{
    endSection();
    return true;
}

bool PrinterDriver::startElement(const QString&, const QString&, const QString& qName, const QXmlAttributes& atts)
{
    if (qName == "method"_L1)
        return selectMethod(atts.value("name"_L1));
    // By the member, which a driver may change, and not by what was selected.
    if (const PrintMethod* const selected = findMethod(method))
        (this->*selected->print)(qName, atts);
    return true;
}

bool PrinterDriver::endElement(const QString&, const QString&, const QString&)
{
    return true;
}

bool PrinterDriver::selectMethod(const QString& name)
{
    const PrintMethod* const selected = findMethod(name);
    if (!selected) {
        toolkit::writeLine("File Format Not Supported");
        method.clear();
        return false;
    }
    loadValues(selected->documentType);
    method = name;
    invoice = selected->invoice.value_or(invoice);
    startSection();
    return true;
}

void PrinterDriver::reset()
{
}

void PrinterDriver::initPrinter()
{
}

void PrinterDriver::textCut(const QString&, int)
{
}

void PrinterDriver::printRowFiscal(const QString&, const QXmlAttributes&)
{
}

void PrinterDriver::printRowFiscal(const QString&, const QString&, const QString&, const QString&)
{
}
