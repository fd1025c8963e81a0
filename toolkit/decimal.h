#ifndef ZELMORA_TOOLKIT_DECIMAL_H
#define ZELMORA_TOOLKIT_DECIMAL_H

#include <QString>

#include <array>
#include <optional>

namespace toolkit {

/// Whether @p text is a number as people write amounts: an optional sign, ASCII digits, and optionally one comma or
/// point with digits behind it; white space of any kind may stand around it. No exponent, no thousands separators.
bool isDecimal(const QString& text);

/// An exact decimal number: nothing is rounded, ever.
///
/// It has room for 81 digits before the point and 63 behind it. So the product of two numbers that were read, and that
/// product a hundredth of itself, are exact, and so are sums of them, as many as there may be.
class Decimal {
public:
    /// The longest number that is read, in digits, leading zeros included.
    static const int greatestDigits = 30;

    Decimal() = default; ///< 0
    explicit Decimal(int number);

    /// The number that @p text is for isDecimal(); nothing where it is none, or has more than greatestDigits.
    static std::optional<Decimal> fromText(const QString& text);

    bool isNegative() const { return negative; }
    /// Whether it has no more than two digits behind the point.
    bool isInHundredths() const;
    /// A hundredth of it.
    Decimal hundredth() const;
    /// In hundredths; what is just between two of them becomes the greater one: 0.125 becomes 0.13, -0.125 becomes
    /// -0.12.
    Decimal roundedToHundredths() const;
    Decimal magnitude() const;
    /// With a point, and at least @p decimals digits behind it; as many as it has.
    QString text(int decimals = 2) const;

    Decimal operator-() const;
    Decimal& operator+=(const Decimal& other);
    /// Of numbers that were read, or of sums of them.
    Decimal operator*(const Decimal& other) const;
    /// The product of any two numbers. Nothing where it, a hundredth of it, or a sum of a milliard such products might
    /// have no room.
    static std::optional<Decimal> product(const Decimal& left, const Decimal& right);

    friend bool operator==(const Decimal& left, const Decimal& right);
    friend bool operator<(const Decimal& left, const Decimal& right);

private:
    static const int fractionLimbs = 7;
    using Limbs = std::array<quint32, 16>; // nine decimal digits each, the least significant first

    /// Twice as many, of which the middle ones have room.
    using Product = std::array<quint64, 2 * std::tuple_size<Limbs>::value>;

    static bool isLess(const Limbs& left, const Limbs& right);
    static Product multiplied(const Limbs& left, const Limbs& right);
    void settleSign();

    Limbs limbs {};
    bool negative = false; ///< 0 is not
};

inline Decimal operator+(Decimal left, const Decimal& right)
{
    return left += right;
}

inline Decimal operator-(Decimal left, const Decimal& right)
{
    return left += -right;
}

inline bool operator!=(const Decimal& left, const Decimal& right)
{
    return !(left == right);
}

} // namespace toolkit

#endif
