#include "util/hlibrary.h"

#include "toolkit/numbertext.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>

namespace {

const int decimals = 2;

/// @p value in the shortest digits that read back as it, without an exponent. Finite.
QString plainText(double value)
{
    char text[std::numeric_limits<double>::max_exponent10 + 2]; // sign and digits of the largest number
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed);
    return QString::fromLatin1(text, static_cast<int>(end.ptr - text));
}

/// @p number, decimal text, with two decimals: what has more is cut, what has fewer gets zeros.
QString withTwoDecimals(const QString& number)
{
    const int point = number.indexOf(QLatin1Char('.'));
    if (point < 0)
        return number + QStringLiteral(".00");
    return number.left(point) + number.mid(point, 1 + decimals).leftJustified(1 + decimals, QLatin1Char('0'));
}

} // namespace

QString HLibrary::truncateDecimal(double value)
{
    if (!std::isfinite(value))
        return QStringLiteral("0.00");
    const double thousandths = std::trunc(value * 1000.0);
    if (std::fabs(thousandths) > std::numeric_limits<int>::max())
        return withTwoDecimals(plainText(value));

    const double hundredths = thousandths / 10.0;
    const double whole = std::trunc(hundredths);
    const double rounded = hundredths - whole >= 0.5 ? std::trunc(hundredths + 1.0) : whole;
    return withTwoDecimals(toolkit::numberText(static_cast<int>(rounded) / 100.0)); // an int has no -0
}

QString HLibrary::getNewRand()
{
    std::srand(static_cast<unsigned int>(std::time(nullptr)));
    return QString::number(std::rand());
}
