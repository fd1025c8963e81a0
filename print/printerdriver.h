#ifndef ZELMORA_PRINT_PRINTERDRIVER_H
#define ZELMORA_PRINT_PRINTERDRIVER_H

#include <QString>
#include <QXmlDefaultHandler>

#include <memory>

class QFile;
class ZMConfiguration;

namespace toolkit {
class TextWriter;
}

/// The print engine: takes a print job as XML events, lays the document out on the paper width of its settings and
/// hands the lines to a device driver, which is a class derived from this one.
///
/// A job's element "method" selects one of thirteen print methods; every later element goes to that method as its
/// name and attributes (docs/job-file.md). Amounts are printed as the attributes give them, never calculated.
///
/// A driver implements the pure operations; it may override any virtual one. One object prints one job, from one
/// thread. Widths are counted in characters (UTF-16 units).
class PrinterDriver : public QXmlDefaultHandler {
public:
    // --- printerdriver.cpp: the output file, the XML events, the choice of the print method ---------------------

    /// Opens the output file @p path, emptying it unless @p append. When it cannot be opened, that is reported in
    /// one line on standard output, and the job runs with nothing written.
    PrinterDriver(const QString& path, bool append);
    /// Closes the file. Failed writes are not reported.
    ~PrinterDriver() override;

    bool startDocument() override;
    bool endDocument() override;
    /// False, which stops the parse, for a "method" element with an unknown name; true otherwise.
    bool startElement(const QString& namespaceURI, const QString& localName, const QString& qName,
                      const QXmlAttributes& atts) override;
    bool endElement(const QString& namespaceURI, const QString& localName, const QString& qName) override;

    // --- in the drivers: the device ------------------------------------------------------------------------------

    /// Characters on a line of the device; the paper width where the settings give none.
    virtual int getPaperWidth() = 0;
    /// Called at the start of the job and after the heading of a statement of account; does nothing here.
    virtual void reset();
    virtual void setBold() = 0;
    /// Normal size, and lines begin at the left again.
    virtual void setCharSize() = 0;
    virtual void setCharSize(int size) = 0;
    virtual void setCenterJustify() = 0;
    virtual void fullCut() = 0;
    /// Opens the cash drawer.
    virtual void generatePulse() = 0;
    /// Prints one line of "=" as wide as the paper (rows.cpp).
    virtual void printSeparatorLine();
    /// Opens and closes the document on the device.
    virtual void startSection() = 0;
    virtual void endSection() = 0;
    /// Called when the job has named its printer; does nothing here.
    virtual void initPrinter();
    /// Adds @p width blanks and then @p text to the current line.
    virtual void print(unsigned int width, const QString& text) = 0;
    /// The same, and ends the line.
    virtual void println(unsigned int width, const QString& text) = 0;
    virtual void println(const QString& text) = 0;
    /// Prints the discount and the payments of a fiscal receipt from the element @p qName.
    virtual void printRowFiscal(const QString& qName, const QXmlAttributes& atts);
    /// Sells one row of a fiscal receipt; a negative price is a discount. Like the other form it does nothing here:
    /// a device without a fiscal memory has no use for it.
    virtual void printRowFiscal(const QString& department, const QString& quantity, const QString& description,
                                const QString& price);

    // --- sections.cpp: the sections that most documents share ---------------------------------------------------
    // Each prints nothing when its print flag is off. An absent attribute is an empty text.

    /// The top margin, with printGeometryFlag: as many empty lines as the setting "topMargin" says, at most 10,000.
    virtual void printGeometry(const QXmlAttributes& atts);
    /// The printer's name, centred, and a separator; later lines stay centred. No flag.
    virtual void printPrinterInfo();
    /// Every attribute as a line, then a separator, with printHeaderFlag.
    virtual void printHeaders(const QXmlAttributes& atts);
    virtual void printLogo() = 0;
    /// Every attribute as a centred line, then a separator, with printCompanyFlag.
    virtual void printCompanyHeader(const QXmlAttributes& atts);
    /// The attribute "serialnumber" after its label, then a separator; so the next two. No flag.
    virtual void printReceiptHeader(const QXmlAttributes& atts);
    virtual void printInvoiceHeader(const QXmlAttributes& atts);
    virtual void printDeliveryHeader(const QXmlAttributes& atts);
    /// Name, addresses and numbers, with printCustomerFlag and a flag for each line but the name.
    virtual void printCustomerHeader(const QXmlAttributes& atts);
    /// Date, time, table, waiter, note and credit, each with its flag, then a separator in any case.
    virtual void printOrderInfo(const QXmlAttributes& atts);
    /// Prints the element if it is one of the shared sections, and says whether it was. The customer block is none
    /// of them: the methods that have one print it themselves.
    virtual bool printSections(const QString& qName, const QXmlAttributes& atts);

    // --- rows.cpp: rows, titles and totals ----------------------------------------------------------------------

    /// Prints the column titles, the first time only, and only if oneTime() was not called before.
    virtual void printColumnsHeader(const QString& quantity, const QString& description, const QString& price,
                                    const QString& totalPrice);
    /// True at the first call on this object and false ever after. Shared with printColumnsHeader(): whichever
    /// comes first in a document is the only one to act.
    bool oneTime();
    /// One row of the document's columns, as print/rowlayout.h says; prints nothing, and says by textCut() when the
    /// description does not fit.
    QString descriptionRow(const QString& quantity, const QString& description, const QString& price,
                           const QString& totalPrice, const QChar& fill, const QString& layout);

    // The print methods: each prints one element of its kind of document.

    // --- kitchenorders.cpp --------------------------------------------------------------------------------------

    virtual void printPartialOrder(const QString& qName, const QXmlAttributes& atts);
    virtual void printFullOrder(const QString& qName, const QXmlAttributes& atts);

    // --- receipts.cpp -------------------------------------------------------------------------------------------

    virtual void printFullOrderReceipt(const QString& qName, const QXmlAttributes& atts);

    // --- invoices.cpp -------------------------------------------------------------------------------------------

    virtual void printFullOrderInvoice(const QString& qName, const QXmlAttributes& atts);
    virtual void printFullOrderDelivery(const QString& qName, const QXmlAttributes& atts);

    // --- fiscaldocuments.cpp ------------------------------------------------------------------------------------

    virtual void printFullOrderFiscal(const QString& qName, const QXmlAttributes& atts);

    // --- summarydocuments.cpp: by dish type ---------------------------------------------------------------------

    virtual void printAbstractOrder(const QString& qName, const QXmlAttributes& atts);
    virtual void printAbstractOrderReceipt(const QString& qName, const QXmlAttributes& atts);
    virtual void printAbstractOrderInvoice(const QString& qName, const QXmlAttributes& atts);
    virtual void printAbstractOrderFiscal(const QString& qName, const QXmlAttributes& atts);

    // --- report.cpp ---------------------------------------------------------------------------------------------

    virtual void printReport(const QString& qName, const QXmlAttributes& atts);

    // --- accounts.cpp -------------------------------------------------------------------------------------------

    virtual void printSold(const QString& qName, const QXmlAttributes& atts);
    virtual void printStatementOfAccount(const QString& qName, const QXmlAttributes& atts);

    // --- The printed document -----------------------------------------------------------------------------------

    /// Whether the document wants a duplicate: true after an invoice was selected, false after a fiscal receipt.
    virtual bool printDuplicate() { return invoice; }

    // --- printsettings.cpp --------------------------------------------------------------------------------------

    /// The prefix of the settings of a document type, such as "zelmora.receiptdoc." for "receipt" in any letter
    /// case. An unknown type is reported on standard output and gives the "prefiscal" prefix.
    QString documentPath(const QString& type);
    /// Loads the settings of a document type into the widths and print flags. Absent or malformed widths are 0,
    /// and the paper width is then the device's; widths are taken within 10,000 either way. A flag is set by the
    /// exact text "true" alone.
    void loadValues(const QString& type);

protected:
    /// For a driver that writes to no file: the job is laid out with @p settings, which outlive the driver.
    explicit PrinterDriver(ZMConfiguration& settings);

    /// Called when of @p text only the first @p kept characters go into the row that is being made; does nothing here.
    virtual void textCut(const QString& text, int kept);

    ZMConfiguration* config; ///< the settings store, not owned: the process-wide one, or that of a driver's own
    QString method; ///< the print method's name; empty until one was accepted
    std::unique_ptr<QFile> file; ///< null in a driver that writes to none
    /// Writes to file in the locale's encoding; null when it is not open. After file, so that it writes what it has
    /// gathered before the file closes.
    std::unique_ptr<toolkit::TextWriter> stream;
    bool invoice = false; ///< the answer of printDuplicate()
    bool oneTimeDone = false;
    QString justify = QStringLiteral("left"); ///< of the lines to come: "left" or "center"
    QString docPath; ///< the settings prefix of the document

    // The job's "printers" element.
    QString printerName;
    QString charSize;
    QString ipAddress;
    QString port;

    // Settings of the document: widths in characters, paperRows in lines.
    int quantityFieldWidth = 0;
    int priceFieldWidth = 0;
    int totalPriceFieldWidth = 0;
    int paperWidth = 0;
    int paperRows = 0;
    QString style; ///< always empty: no document has a style
    bool printGeometryFlag = false;
    bool printHeaderFlag = false;
    bool printLogoFlag = false;
    bool printCompanyFlag = false;
    bool printDeliveryAddressFlag = false;
    bool printTelephoneFlag = false;
    bool printDateFlag = false;
    bool printTimeFlag = false;
    bool printTableFlag = false;
    bool printCustomerFlag = false;
    bool printBillingAddressFlag = false;
    bool printLicenseNumberFlag = false;
    bool printFiscalCodeFlag = false;
    bool printCreditFlag = false;
    bool printWaiterFlag = false;
    bool printNoteFlag = false;
    bool openCashDrawerFlag = false;

    QString credit; ///< attribute "credit" of the last "orderinfo" element whose credit was printed

private:
    struct PrintMethod;
    struct ColumnTitles {
        QString number;
        QString description;
        QString price;
        QString amount;
    };

    // printerdriver.cpp
    static const PrintMethod* findMethod(const QString& name);
    bool selectMethod(const QString& name);

    // sections.cpp: those that are more than one operation
    void choosePrinter(const QXmlAttributes& atts);
    void printHeadersAndPrinter(const QXmlAttributes& atts);
    void printLogoSection(const QXmlAttributes& atts);

    // rows.cpp: what several kinds of document share
    /// Says by textCut() that @p text is longer than @p width, if it is. Nothing is cut to a negative width.
    void noteCut(const QString& text, int width);
    void printRow(const QString& quantity, const QString& description, const QString& price, const QString& totalPrice,
                  const QString& layout);
    void printTotal(const QString& amount);
    const ColumnTitles& columnTitles();
    /// A dish, after the column titles if it is the first.
    void printItemRow(const QXmlAttributes& atts, const QString& layout);

    // invoices.cpp
    void printTaxBlock(const QXmlAttributes& atts);

    // summarydocuments.cpp
    /// A dish type, after the column titles if it is the first.
    void printTypeRow(const QXmlAttributes& atts);

    // printsettings.cpp
    /// The setting docPath + key as an integer, 0 when absent or malformed.
    int numberSetting(QLatin1String key) const;
    /// The same, within 10,000 either way.
    int widthSetting(QLatin1String key) const;

    ColumnTitles titles; ///< empty until columnTitles() was asked for them
};

#endif
