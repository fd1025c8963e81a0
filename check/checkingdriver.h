#ifndef ZELMORA_CHECK_CHECKINGDRIVER_H
#define ZELMORA_CHECK_CHECKINGDRIVER_H

#include "driver/companyprinterdriver.h"

namespace check {

/// A line or a command of the script, as the register's driver makes it.
struct ScriptCommand {
    const QString& command; ///< whole, with its line end
    const QString& text; ///< what was to be printed: before "TOTALE" became "SOMMA", and without the centring. Empty
                         ///< where the command is no line.
    bool isLine;
    bool followsRule; ///< a separator line stands before it
};

/// Hears what the register's driver makes of the element that is being printed.
class ScriptListener {
public:
    virtual ~ScriptListener() = default;
    virtual void commandMade(const ScriptCommand& command) = 0;
    /// Of @p text only the first @p kept characters go into the row that comes next. Titles are not mentioned.
    virtual void descriptionCut(const QString& text, int kept) = 0;
};

/// The register's driver, but that its script goes to a listener and to no file.
class CheckingDriver : public CompanyPrinterDriver {
public:
    /// Neither @p settings nor @p listener is owned.
    CheckingDriver(ZMConfiguration& settings, ScriptListener& listener);

    void print(unsigned int width, const QString& text) override;
    void printSeparatorLine() override;
    void printColumnsHeader(const QString& quantity, const QString& description, const QString& price,
                            const QString& totalPrice) override;

    using PrinterDriver::paperWidth;

protected:
    void textCut(const QString& text, int kept) override;
    void write(const QString& command) override;

private:
    ScriptListener& listener;
    QString line; ///< what was printed since the last command
    bool isTitle = false;
    bool isRule = false;
    bool followsRule = false;
};

} // namespace check

#endif
