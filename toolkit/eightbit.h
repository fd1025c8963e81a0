#ifndef ZELMORA_TOOLKIT_EIGHTBIT_H
#define ZELMORA_TOOLKIT_EIGHTBIT_H

#include <QString>

#include <algorithm>

namespace toolkit {

/// @p text after a passage through its 8-bit (Latin-1) form: every UTF-16 unit above U+00FF comes back as '?', and
/// a NUL character ends the text.
inline QString eightBit(const QString& text)
{
    const auto stays = [](QChar character) { return !character.isNull() && character <= QChar(0xFF); };
    if (std::all_of(text.begin(), text.end(), stays))
        return text; // as nearly all are: nothing is copied
    return QString::fromLatin1(text.toLatin1().constData()); // not of the array, which Qt 6 takes whole
}

} // namespace toolkit

#endif
