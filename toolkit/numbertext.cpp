#include "toolkit/numbertext.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace toolkit {

namespace {

/// Qt takes U+2212 for a minus sign too, which would make a discount of a sale; for Qt 6 a NUL ends a whole number.
/// White space may be of any kind.
bool isWrittenInAscii(const QString& number)
{
    const auto isAllowed = [](QChar c) { return (c.unicode() < 0x80 && !c.isNull()) || c.isSpace(); };
    return std::all_of(number.begin(), number.end(), isAllowed);
}

} // namespace

QString numberText(double value)
{
    // Not QString::number(): where the 16th digit is exactly a half it rounds up, C rounds to even.
    char text[32]; // "-1.23456789012345e-308" is the longest
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15);
    return QString::fromLatin1(text, static_cast<int>(end.ptr - text));
}

double toNumber(const QString& text)
{
    bool converted = false;
    const double value = text.toDouble(&converted);
    return converted && std::isfinite(value) && isWrittenInAscii(text) ? value : 0.0;
}

std::optional<int> wholeNumber(const QString& text)
{
    bool converted = false;
    const int value = text.trimmed().toInt(&converted); // Qt 6 itself knows fewer blanks
    return converted && isWrittenInAscii(text) ? std::optional<int>(value) : std::nullopt;
}

int toInteger(const QString& text)
{
    return wholeNumber(text).value_or(0);
}

} // namespace toolkit
