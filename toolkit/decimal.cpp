#include "toolkit/decimal.h"

#include <algorithm>

namespace toolkit {

namespace {

const quint32 limbBase = 1000000000;
const int limbDigits = 9;

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// Where the parts of a number stand in its text.
struct Parts {
    bool isNegative;
    QStringView whole;
    QStringView fraction; ///< empty where there is no point
};

int countDigits(QStringView text)
{
    return static_cast<int>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
}

std::optional<Parts> partsOf(const QString& text)
{
    QStringView rest = QStringView(text).trimmed();
    const bool isNegative = rest.startsWith(QLatin1Char('-'));
    if (isNegative || rest.startsWith(QLatin1Char('+')))
        rest = rest.mid(1);
    const QStringView whole = rest.left(countDigits(rest));
    rest = rest.mid(whole.size());
    if (whole.isEmpty() || rest.isEmpty())
        return whole.isEmpty() ? std::nullopt : std::optional(Parts {isNegative, whole, {}});
    const bool hasPoint = rest.at(0) == QLatin1Char('.') || rest.at(0) == QLatin1Char(',');
    const QStringView fraction = rest.mid(1);
    if (!hasPoint || fraction.isEmpty() || countDigits(fraction) != fraction.size())
        return std::nullopt;
    return Parts {isNegative, whole, fraction};
}

} // namespace

bool isDecimal(const QString& text)
{
    return partsOf(text).has_value();
}

Decimal::Decimal(int number)
    : negative(number < 0)
{
    const auto size = static_cast<quint64>(std::abs(static_cast<qint64>(number)));
    limbs[fractionLimbs] = static_cast<quint32>(size % limbBase);
    limbs[fractionLimbs + 1] = static_cast<quint32>(size / limbBase);
}

std::optional<Decimal> Decimal::fromText(const QString& text)
{
    const std::optional<Parts> parts = partsOf(text);
    if (!parts || parts->whole.size() + parts->fraction.size() > greatestDigits)
        return std::nullopt;
    Decimal number;
    for (const QStringView& part : {parts->whole, parts->fraction}) {
        for (int i = 0; i < part.size(); i += limbDigits)
            number.append(part.mid(i, limbDigits));
    }
    number.shiftDown(static_cast<int>(parts->fraction.size()));
    number.negative = parts->isNegative;
    number.settleSign();
    return number;
}

/// The number followed by @p digits, at most nine of them; of a whole number.
void Decimal::append(QStringView digits)
{
    quint64 factor = 1;
    quint64 carry = 0;
    for (const QChar digit : digits) {
        factor *= 10;
        carry = carry * 10 + (digit.unicode() - u'0');
    }
    for (std::size_t i = fractionLimbs; i < limbs.size(); ++i) {
        carry += limbs[i] * factor;
        limbs[i] = static_cast<quint32>(carry % limbBase);
        carry /= limbBase;
    }
}

/// Moves the point so many @p digits to the left.
void Decimal::shiftDown(int digits)
{
    if (digits == 0)
        return;
    const int whole = digits / limbDigits;
    std::rotate(limbs.begin(), limbs.begin() + whole, limbs.end()); // those that leave below are zeros
    quint32 divisor = 1;
    for (int i = digits % limbDigits; i > 0; --i)
        divisor *= 10;
    quint64 remainder = 0;
    for (auto limb = limbs.rbegin(); limb != limbs.rend(); ++limb) {
        remainder = remainder * limbBase + *limb;
        *limb = static_cast<quint32>(remainder / divisor);
        remainder %= divisor;
    }
}

void Decimal::settleSign()
{
    negative = negative && limbs != Limbs {};
}

bool Decimal::isInHundredths() const
{
    const auto zeros =
        std::find_if(limbs.begin(), limbs.begin() + fractionLimbs - 1, [](quint32 limb) { return limb != 0; });
    return zeros == limbs.begin() + fractionLimbs - 1 && limbs[fractionLimbs - 1] % (limbBase / 100) == 0;
}

Decimal Decimal::hundredth() const
{
    Decimal result = *this;
    result.shiftDown(2);
    return result;
}

Decimal Decimal::magnitude() const
{
    Decimal result = *this;
    result.negative = false;
    return result;
}

QString Decimal::text(int decimals) const
{
    QString digits;
    for (auto limb = limbs.rbegin(); limb != limbs.rend(); ++limb)
        digits += QString::number(*limb).rightJustified(limbDigits, QLatin1Char('0'));
    const int point = digits.size() - fractionLimbs * limbDigits;
    int end = digits.size();
    while (end > point + decimals && digits.at(end - 1) == QLatin1Char('0'))
        --end;
    int begin = 0;
    while (begin < point - 1 && digits.at(begin) == QLatin1Char('0'))
        ++begin;
    const QString fraction = digits.mid(point, end - point);
    return (negative ? QStringLiteral("-") : QString()) + digits.mid(begin, point - begin)
        + (fraction.isEmpty() ? QString() : QLatin1Char('.') + fraction);
}

Decimal Decimal::operator-() const
{
    Decimal result = *this;
    result.negative = !negative;
    result.settleSign();
    return result;
}

bool Decimal::isLess(const Limbs& left, const Limbs& right)
{
    return std::lexicographical_compare(left.rbegin(), left.rend(), right.rbegin(), right.rend());
}

Decimal& Decimal::operator+=(const Decimal& other)
{
    const bool isSum = negative == other.negative;
    const bool otherIsGreater = !isSum && isLess(limbs, other.limbs);
    const Limbs& greater = otherIsGreater ? other.limbs : limbs;
    const Limbs& smaller = otherIsGreater ? limbs : other.limbs;
    Limbs result {};
    qint64 carry = 0;
    for (std::size_t i = 0; i < limbs.size(); ++i) {
        carry += qint64(greater[i]) + (isSum ? qint64(smaller[i]) : -qint64(smaller[i]));
        const qint64 digit = carry < 0 ? carry + limbBase : carry % limbBase;
        result[i] = static_cast<quint32>(digit);
        carry = (carry - digit) / limbBase;
    }
    limbs = result;
    negative = otherIsGreater ? other.negative : negative;
    settleSign();
    return *this;
}

Decimal Decimal::operator*(const Decimal& other) const
{
    std::array<quint64, 2 * std::tuple_size<Limbs>::value> product {};
    for (std::size_t i = 0; i < limbs.size(); ++i) {
        if (limbs[i] == 0)
            continue;
        quint64 carry = 0;
        for (std::size_t k = 0; k < limbs.size(); ++k) {
            carry += product[i + k] + quint64(limbs[i]) * other.limbs[k];
            product[i + k] = carry % limbBase;
            carry /= limbBase;
        }
        product[i + limbs.size()] += carry;
    }
    Decimal result;
    for (std::size_t i = 0; i < limbs.size(); ++i)
        result.limbs[i] = static_cast<quint32>(product[i + fractionLimbs]);
    result.negative = negative != other.negative;
    result.settleSign();
    return result;
}

bool operator==(const Decimal& left, const Decimal& right)
{
    return left.negative == right.negative && left.limbs == right.limbs;
}

bool operator<(const Decimal& left, const Decimal& right)
{
    if (left.negative != right.negative)
        return left.negative;
    return left.negative ? Decimal::isLess(right.limbs, left.limbs) : Decimal::isLess(left.limbs, right.limbs);
}

} // namespace toolkit
