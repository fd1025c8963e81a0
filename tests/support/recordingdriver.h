#ifndef ZELMORA_TESTS_SUPPORT_RECORDINGDRIVER_H
#define ZELMORA_TESTS_SUPPORT_RECORDINGDRIVER_H

#include "print/printerdriver.h"

#include <QPair>
#include <QStringList>
#include <QVector>

/// Attributes in the order in which they are listed.
using Attributes = QVector<QPair<const char*, const char*>>;

/// @p attributes (UTF-8) as the reader would deliver them.
QXmlAttributes xmlAttributes(const Attributes& attributes);

/// A driver for a device that does not exist: keeps a line for each call that the engine makes, such as
/// `println(1, "abc")`. Its paper is 30 characters wide.
class RecordingDriver : public PrinterDriver {
public:
    /// The calls themselves write nothing to the output file.
    explicit RecordingDriver(const QString& path = QStringLiteral("/dev/null"), bool append = false);

    /// Delivers a start and an end tag; the result is that of the start tag.
    bool element(const char* qName, const Attributes& attributes = {});
    /// The calls since the last time this was asked.
    QStringList takeCalls();

    int getPaperWidth() override;
    void reset() override;
    void setBold() override;
    void setCharSize() override;
    void setCharSize(int size) override;
    void setCenterJustify() override;
    void fullCut() override;
    void generatePulse() override;
    void startSection() override;
    void endSection() override;
    void initPrinter() override;
    void print(unsigned int width, const QString& text) override;
    void println(unsigned int width, const QString& text) override;
    void println(const QString& text) override;
    void printRowFiscal(const QString& qName, const QXmlAttributes& atts) override;
    void printRowFiscal(const QString& department, const QString& quantity, const QString& description,
                        const QString& price) override;
    void printLogo() override;

    // The engine's state, for tests to look at.
    using PrinterDriver::charSize;
    using PrinterDriver::credit;
    using PrinterDriver::docPath;
    using PrinterDriver::ipAddress;
    using PrinterDriver::justify;
    using PrinterDriver::method;
    using PrinterDriver::openCashDrawerFlag;
    using PrinterDriver::paperRows;
    using PrinterDriver::paperWidth;
    using PrinterDriver::port;
    using PrinterDriver::priceFieldWidth;
    using PrinterDriver::printBillingAddressFlag;
    using PrinterDriver::printCompanyFlag;
    using PrinterDriver::printCreditFlag;
    using PrinterDriver::printCustomerFlag;
    using PrinterDriver::printDateFlag;
    using PrinterDriver::printDeliveryAddressFlag;
    using PrinterDriver::printerName;
    using PrinterDriver::printFiscalCodeFlag;
    using PrinterDriver::printGeometryFlag;
    using PrinterDriver::printHeaderFlag;
    using PrinterDriver::printLicenseNumberFlag;
    using PrinterDriver::printLogoFlag;
    using PrinterDriver::printNoteFlag;
    using PrinterDriver::printTableFlag;
    using PrinterDriver::printTelephoneFlag;
    using PrinterDriver::printTimeFlag;
    using PrinterDriver::printWaiterFlag;
    using PrinterDriver::quantityFieldWidth;
    using PrinterDriver::stream;
    using PrinterDriver::style;
    using PrinterDriver::totalPriceFieldWidth;

private:
    QStringList calls;
};

#endif
