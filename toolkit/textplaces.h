#ifndef ZELMORA_TOOLKIT_TEXTPLACES_H
#define ZELMORA_TOOLKIT_TEXTPLACES_H

#include <QByteArray>
#include <QString>

namespace toolkit {

/// A place in a text, as editors count: the first character of a file stands at 1, 1.
struct TextPlace {
    int line = 1;
    int column = 1;
};

inline bool operator==(TextPlace left, TextPlace right)
{
    return left.line == right.line && left.column == right.column;
}

/// In the order of the text.
inline bool operator<(TextPlace left, TextPlace right)
{
    return left.line != right.line ? left.line < right.line : left.column < right.column;
}

/// The place behind @p character, which stands at @p place: a UTF-16 unit of a text, as the class below counts.
inline TextPlace after(TextPlace place, QChar character)
{
    const ushort unit = character.unicode();
    const bool isPlain = unit >= 0x20 && unit < 0x80; // as nearly all are
    if (isPlain || (unit != u'\n' && !character.isLowSurrogate() && character != QChar::ByteOrderMark))
        ++place.column;
    else if (unit == u'\n')
        place = {place.line + 1, 1};
    return place;
}
/// The place behind @p text.
TextPlace after(TextPlace place, const QString& text);

/// Works out lines and columns of bytes. Lines end at LF. A column counts a character, a tab too: a sequence of UTF-8,
/// or a byte that is part of none, as in ISO-8859-1; a byte-order mark counts none.
///
/// Fast for places that are asked for in the order of the text: each byte is looked at once then.
class TextPlaces {
public:
    explicit TextPlaces(const QByteArray& bytes);

    /// Where the byte at @p offset stands; past the end that is the place behind the last one.
    TextPlace at(qint64 offset);

private:
    void pass(qint64 offset);

    const QByteArray bytes;
    qint64 reached = 0;
    TextPlace place; ///< of the byte that was reached
    int continuing = 0; ///< bytes that still belong to the character before it
};

} // namespace toolkit

#endif
