#include "toolkit/textplaces.h"

#include <algorithm>

namespace toolkit {

namespace {

/// How many bytes after @p byte belong to the character that it begins; none where that is not UTF-8. A NUL follows the
/// last one.
int continuingBytes(const char* byte)
{
    const auto first = static_cast<unsigned char>(*byte);
    const int expected = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    int found = 0;
    while (found < expected && (static_cast<unsigned char>(byte[found + 1]) & 0xC0) == 0x80)
        ++found;
    return found == expected ? found : 0;
}

} // namespace

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
        continuing = 0;
    }
    for (const qint64 end = std::min<qint64>(offset, bytes.size()); reached < end; ++reached)
        pass(reached);
    return place;
}

void TextPlaces::pass(qint64 offset)
{
    static const char byteOrderMark[] = "\xEF\xBB\xBF";
    const char* const byte = bytes.constData() + offset; // followed by a NUL at the end
    if (continuing > 0) {
        --continuing;
        return;
    }
    continuing = continuingBytes(byte);
    if (*byte == '\n')
        place = {place.line + 1, 1};
    else if (qstrncmp(byte, byteOrderMark, 3) != 0)
        ++place.column;
}

} // namespace toolkit
