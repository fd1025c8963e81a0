#include "toolkit/textplaces.h"

#include <algorithm>

namespace toolkit {

TextPlace after(TextPlace place, QChar character)
{
    if (character == QLatin1Char('\n'))
        return {place.line + 1, 1};
    if (!character.isLowSurrogate() && character != QChar::ByteOrderMark)
        ++place.column;
    return place;
}

TextPlace after(TextPlace place, const QString& text)
{
    for (const QChar character : text)
        place = after(place, character);
    return place;
}

TextPlaces::TextPlaces(const QByteArray& bytes)
    : bytes(bytes)
{
}

TextPlace TextPlaces::at(qint64 offset)
{
    if (offset < reached) {
        reached = 0;
        place = TextPlace();
    }
    for (const qint64 end = std::min<qint64>(offset, bytes.size()); reached < end; ++reached)
        pass(reached);
    return place;
}

void TextPlaces::pass(qint64 offset)
{
    static const char byteOrderMark[] = "\xEF\xBB\xBF";
    const char* const byte = bytes.constData() + offset; // followed by a NUL at the end
    const bool continues = (static_cast<unsigned char>(*byte) & 0xC0) == 0x80;
    if (*byte == '\n')
        place = {place.line + 1, 1};
    else if (!continues && qstrncmp(byte, byteOrderMark, 3) != 0)
        ++place.column;
}

} // namespace toolkit
