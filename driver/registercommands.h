#ifndef ZELMORA_DRIVER_REGISTERCOMMANDS_H
#define ZELMORA_DRIVER_REGISTERCOMMANDS_H

#include "toolkit/literals.h"

#include <QString>

/// The cash register's command language, all of it. Each command is one line that ends in CR LF; fields are written
/// as they are, without padding or escaping.
///
///     Ordinary documents                     Fiscal documents
///     nofis apri                             CLEAR (with a blank after it)
///     nofis riga='TEXT'                      CHIAVE REG
///     nofis chiudi                           VEND REP=DEPARTMENT,QTY=QUANTITY,PREZZO=PRICE,DES='DESCRIPTION'
///                                            SCONTO VAL=AMOUNT
///                                            PERCA ALIQ=RATE
///                                            =DISCOUNT*2M
///                                            HUNDREDTHSH1T, HUNDREDTHSH2T, HUNDREDTHSH3T, HUNDREDTHSH5T
///                                            CHIUS T=1
namespace registercommands {

using toolkit::operator""_L1;

/// The characters in a line of the register's roll.
constexpr int paperWidth = 32;

constexpr QLatin1String lineEnd = "\r\n"_L1;

/// Ends the text that it stands in, wherever that is.
constexpr QChar quote = u'\'';

// Framing of an ordinary document, and its lines: prefix, text, suffix.
constexpr QLatin1String openNonFiscal = "nofis apri\r\n"_L1;
constexpr QLatin1String linePrefix = "nofis riga='"_L1;
constexpr QLatin1String lineSuffix = "'\r\n"_L1;
constexpr QLatin1String closeNonFiscal = "nofis chiudi\r\n"_L1;

// Framing of a fiscal receipt.
constexpr QLatin1String clear = "CLEAR \r\n"_L1;
constexpr QLatin1String registeringMode = "CHIAVE REG\r\n"_L1;
constexpr QLatin1String closeFiscal = "CHIUS T=1\r\n"_L1;

// What stands around the fields of the fiscal commands.
constexpr QLatin1String saleDepartment = "VEND REP="_L1;
constexpr QLatin1String saleQuantity = ",QTY="_L1;
constexpr QLatin1String salePrice = ",PREZZO="_L1;
constexpr QLatin1String saleDescription = ",DES='"_L1;
constexpr QLatin1String discountAmount = "SCONTO VAL="_L1;
constexpr QLatin1String ratePercent = "PERCA ALIQ="_L1;
constexpr QLatin1String subtotalDiscountBegin = "="_L1;
constexpr QLatin1String subtotalDiscountEnd = "*2M"_L1;

// Ends of the payment commands, whose amounts are in hundredths.
constexpr QLatin1String cash = "H1T"_L1;
constexpr QLatin1String cheque = "H2T"_L1;
constexpr QLatin1String creditCard = "H3T"_L1;
constexpr QLatin1String mealTicket = "H5T"_L1;

inline QString sale(const QString& department, const QString& quantity, const QString& price,
                    const QString& description)
{
    return saleDepartment + department + saleQuantity + quantity + salePrice + price + saleDescription + description
        + lineSuffix;
}

/// A discount on the row before. @p amount is positive.
inline QString discount(const QString& amount)
{
    return discountAmount + amount + lineEnd;
}

inline QString rate(const QString& rate)
{
    return ratePercent + rate + lineEnd;
}

inline QString subtotalDiscount(const QString& percent)
{
    return subtotalDiscountBegin + percent + subtotalDiscountEnd + lineEnd;
}

inline QString payment(const QString& hundredths, QLatin1String type)
{
    return hundredths + type + lineEnd;
}

} // namespace registercommands

#endif
