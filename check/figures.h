#ifndef ZELMORA_CHECK_FIGURES_H
#define ZELMORA_CHECK_FIGURES_H

#include "toolkit/decimal.h"
#include "vocabulary/jobs.h"

namespace check {

/// Whether an attribute of that kind is meant as a number.
bool isNumeric(vocabulary::AttributeKind kind);
/// Whether @p text is a number as that kind of attribute takes one.
bool isNumber(vocabulary::AttributeKind kind, const QString& text);
/// Its value, without the "%" of a rate. Nothing where it is no number, or has more than 30 digits.
std::optional<toolkit::Decimal> figure(vocabulary::AttributeKind kind, const QString& text);

/// Whether @p text is a day of the calendar: day, month and a year of two or four digits with "/", "-" or "." between
/// them, or year-month-day. White space may stand around it.
bool isDate(const QString& text);

} // namespace check

#endif
