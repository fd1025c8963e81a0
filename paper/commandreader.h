#ifndef ZELMORA_PAPER_COMMANDREADER_H
#define ZELMORA_PAPER_COMMANDREADER_H

#include <QString>

namespace paper {

/// A line of a script, as the register takes it.
struct Command {
    enum Kind {
        None, ///< it is no command
        OpenNonFiscal,
        Line,
        CloseNonFiscal,
        Clear,
        RegisteringMode,
        Sale,
        Discount,
        Rate,
        SubtotalDiscount,
        Payment,
        CloseFiscal,
    };

    Kind kind = None;
    QString text = {}; ///< of a line; the description of a sale
    QString behindQuote = {}; ///< what stands behind the quote that ends the text
    bool isTextEnded = true; ///< false: there is no such quote
    int quote = -1; ///< where it stands, in UTF-16 units of the line; -1: nowhere
    QString department = {}; ///< of a sale
    QString quantity = {}; ///< of a sale
    QString figure = {}; ///< a sale's price, a discount's amount, a percentage, the hundredths of a payment
    QLatin1String payment = {}; ///< what ends a payment's command
};

/// Reads a line, without its end.
Command readCommand(const QString& line);

} // namespace paper

#endif
