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

/// At most nine @p digits, filled up with zeros behind them to @p size.
quint32 limbOf(QStringView digits, int size)
{
    quint32 limb = 0;
    for (int i = 0; i < std::max(size, static_cast<int>(digits.size())); ++i)
        limb = limb * 10 + (i < digits.size() ? digits.at(i).unicode() - u'0' : 0);
    return limb;
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
    std::size_t limb = fractionLimbs;
    for (int end = static_cast<int>(parts->whole.size()); end > 0; end -= limbDigits)
        number.limbs[limb++] = limbOf(parts->whole.left(end).right(limbDigits), 0);
    limb = fractionLimbs;
    for (int begin = 0; begin < parts->fraction.size(); begin += limbDigits)
        number.limbs[--limb] = limbOf(parts->fraction.mid(begin, limbDigits), limbDigits);
    number.negative = parts->isNegative;
    number.settleSign();
    return number;
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
    quint64 remainder = 0;
    for (auto limb = result.limbs.rbegin(); limb != result.limbs.rend(); ++limb) {
        remainder = remainder * limbBase + *limb;
        *limb = static_cast<quint32>(remainder / 100);
        remainder %= 100;
    }
    return result;
}

Decimal Decimal::roundedToHundredths() const
{
    static const Decimal half = *fromText(QStringLiteral("0.005"));
    static const Decimal hundredthOfOne = Decimal(1).hundredth();
    Decimal result = *this + half;
    const bool isBelow = result.negative && !result.isInHundredths(); // what cutting it short gives
    std::fill_n(result.limbs.begin(), fractionLimbs - 1, 0);
    quint32& limb = result.limbs[fractionLimbs - 1];
    limb -= limb % (limbBase / 100);
    result.settleSign();
    return isBelow ? result - hundredthOfOne : result;
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
        qint64 digit = qint64(greater[i]) + (isSum ? qint64(smaller[i]) : -qint64(smaller[i])) + carry;
        carry = digit < 0 ? -1 : digit >= limbBase ? 1 : 0;
        digit -= carry * limbBase;
        result[i] = static_cast<quint32>(digit);
    }
    limbs = result;
    negative = otherIsGreater ? other.negative : negative;
    settleSign();
    return *this;
}

Decimal::Product Decimal::multiplied(const Limbs& left, const Limbs& right)
{
    Product product {};
    std::size_t used = right.size(); // of its limbs
    while (used > 0 && right[used - 1] == 0)
        --used;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (left[i] == 0)
            continue;
        quint64 carry = 0;
        for (std::size_t k = 0; k < used; ++k) {
            carry += product[i + k] + quint64(left[i]) * right[k];
            product[i + k] = carry % limbBase;
            carry /= limbBase;
        }
        product[i + used] = carry;
    }
    return product;
}

Decimal Decimal::operator*(const Decimal& other) const
{
    const Product product = multiplied(limbs, other.limbs);
    Decimal result;
    for (std::size_t i = 0; i < limbs.size(); ++i)
        result.limbs[i] = static_cast<quint32>(product[i + fractionLimbs]);
    result.negative = negative != other.negative;
    result.settleSign();
    return result;
}

std::optional<Decimal> Decimal::product(const Decimal& left, const Decimal& right)
{
    const Product limbs = multiplied(left.limbs, right.limbs);
    const auto isZero = [](quint64 limb) { return limb == 0; };
    const auto begin = limbs.begin() + fractionLimbs;
    const auto end = begin + std::tuple_size<Limbs>::value - 1; // the last limb is for the sums
    const bool hasRoom = std::all_of(limbs.begin(), begin, isZero) && std::all_of(end, limbs.end(), isZero);
    return hasRoom && *begin % 100 == 0 ? std::optional(left * right) : std::nullopt;
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
