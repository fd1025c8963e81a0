#ifndef ZELMORA_TOOLKIT_NUMBERTEXT_H
#define ZELMORA_TOOLKIT_NUMBERTEXT_H

#include <QString>

#include <optional>

namespace toolkit {

/// The text of @p value as C's "%.15g" writes it, whatever the locale: 15 significant digits, no trailing
/// zeros, no decimal point for a whole number. 15 digits are the most that any decimal text keeps through a
/// double (DBL_DIG), so 8.29 * 100 reads 829 and not 828.9999999999999.
QString numberText(double value);

/// The number that @p text stands for: ASCII digits with an optional sign, "." as the decimal point and an exponent,
/// whatever the locale; white space of any kind (QChar::isSpace()) may stand around it. Text that is no number gives
/// 0, and so do "inf", "nan" and what overflows a double.
double toNumber(const QString& text);

/// The same for a whole number: no point, no exponent. What does not fit 32 bits gives 0.
int toInteger(const QString& text);
/// The same, and nothing where that is 0 because @p text is no such number.
std::optional<int> wholeNumber(const QString& text);

} // namespace toolkit

#endif
