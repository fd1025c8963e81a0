#include "check/figures.h"

#include <QDate>
#include <QRegularExpression>

namespace check {

namespace {

using Kind = vocabulary::AttributeKind;

QString withoutPercentSign(const QString& text)
{
    const QString number = text.trimmed();
    return number.endsWith(QLatin1Char('%')) ? number.chopped(1) : text;
}

/// A year of two digits is one of this century.
bool isDay(const QString& year, const QString& month, const QString& day)
{
    const int number = year.toInt() + (year.size() == 2 ? 2000 : 0);
    return QDate::isValid(number, month.toInt(), day.toInt());
}

} // namespace

bool isNumeric(Kind kind)
{
    switch (kind) {
    case Kind::Quantity:
    case Kind::VariantQuantity:
    case Kind::FiscalQuantity:
    case Kind::Amount:
    case Kind::FiscalPrice:
    case Kind::Rate:
    case Kind::BareRate:
        return true;
    case Kind::Text:
    case Kind::Description:
    case Kind::MovementType:
    case Kind::Address:
    case Kind::Date:
    case Kind::SerialNumber:
        break;
    }
    return false;
}

bool isNumber(Kind kind, const QString& text)
{
    switch (kind) {
    case Kind::VariantQuantity:
    case Kind::FiscalQuantity:
        return toolkit::isDecimal(text) && !text.contains(QLatin1Char(','));
    case Kind::FiscalPrice:
        return toolkit::isDecimal(text) && text == text.trimmed();
    case Kind::Rate:
        return toolkit::isDecimal(withoutPercentSign(text));
    default:
        return toolkit::isDecimal(text);
    }
}

std::optional<toolkit::Decimal> figure(Kind kind, const QString& text)
{
    const bool isPlain = kind == Kind::Amount || kind == Kind::Quantity; // which reading judges by itself
    if (!isPlain && !isNumber(kind, text))
        return std::nullopt;
    return toolkit::Decimal::fromText(kind == Kind::Rate ? withoutPercentSign(text) : text);
}

bool isDate(const QString& text)
{
    static const QRegularExpression dayFirst(
        QStringLiteral("^([0-9]{1,2})([/.-])([0-9]{1,2})\\2([0-9]{4}|[0-9]{2})\\z"));
    static const QRegularExpression yearFirst(QStringLiteral("^([0-9]{4})-([0-9]{1,2})-([0-9]{1,2})\\z"));
    const QString date = text.trimmed();
    QRegularExpressionMatch match = dayFirst.match(date);
    if (match.hasMatch())
        return isDay(match.captured(4), match.captured(3), match.captured(1));
    match = yearFirst.match(date);
    return match.hasMatch() && isDay(match.captured(1), match.captured(2), match.captured(3));
}

} // namespace check
