#ifndef ZELMORA_DRIVER_COMPANYPRINTERDRIVER_H
#define ZELMORA_DRIVER_COMPANYPRINTERDRIVER_H

#include "print/printerdriver.h"

/// The driver of the fiscal cash register: writes the register's command script (docs/register-script.md) to the
/// output file. Ordinary documents become non-fiscal lines, the two fiscal methods sales and payments.
///
/// The register has one size and weight of type: bold, size, cut, drawer and logo leave no trace in the script.
class CompanyPrinterDriver : public PrinterDriver {
public:
    /// Writes to the file @p path from its start. When it cannot be opened, nothing is written anywhere.
    explicit CompanyPrinterDriver(const QString& path);
    /// A line begun by print() and not ended is lost.
    ~CompanyPrinterDriver() override;

    int getPaperWidth() override; ///< 32, the register's roll
    void setBold() override;
    void setCharSize() override;
    void setCharSize(int size) override;
    void setCenterJustify() override;
    void fullCut() override;
    void generatePulse() override;
    void printLogo() override;
    void startSection() override;
    void endSection() override;
    /// "TOTALE" in @p text becomes "SOMMA": the register keeps the word for itself.
    void print(unsigned int width, const QString& text) override;
    void println(unsigned int width, const QString& text) override;
    void println(const QString& text) override;

    /// The discount and the payments that the element "totals" carries in its attributes "discountRate", "cash",
    /// "creditCard", "cheque" and "ticket", each if it is not 0. Any other element writes nothing.
    void printRowFiscal(const QString& qName, const QXmlAttributes& atts) override;
    /// A sale, or a discount when @p price, with "," or "." as the decimal point, is negative: then the other
    /// fields are dropped. A price that is no number counts as 0.
    void printRowFiscal(const QString& department, const QString& quantity, const QString& description,
                        const QString& price) override;
    /// The same, and the rate that goes with it.
    virtual void printRowFiscal(const QString& department, const QString& quantity, const QString& description,
                                const QString& price, const QString& rate);

protected:
    /// For a driver that takes the commands elsewhere: it writes to no file. @p settings outlive it.
    explicit CompanyPrinterDriver(ZMConfiguration& settings);
    /// Takes one whole command, its line end included. Here it goes to the file.
    virtual void write(const QString& command);

private:
    bool isFiscal() const;
    int centringBlanks();

    QString lineBuffer; ///< the line under construction, from the command's first character on
};

#endif
