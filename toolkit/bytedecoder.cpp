#include "toolkit/bytedecoder.h"

#include "toolkit/localecodec.h"
#include "toolkit/textencoder.h"

#include <QString>

#include <algorithm>

namespace toolkit {

namespace {

// By hand, since the codec of Qt 6 takes the byte behind a character that is cut off for a part of it.

/// The character that @p bytes are in UTF-8; empty where they are none, or more.
QString characterOf(const QByteArray& bytes)
{
    QString text;
    const bool isText = decodeUtf8(bytes.constData(), static_cast<int>(bytes.size()), text);
    return isText && text.toUcs4().size() == 1 ? text : QString();
}

/// How many bytes a character has that begins with @p byte; 0 where none of several does.
int sizeBehind(uchar byte)
{
    if (byte < 0xc2 || byte > 0xf4)
        return 0;
    return byte < 0xe0 ? 2 : byte < 0xf0 ? 3 : 4;
}

/// Whether a character may come of @p bytes with more behind them.
bool isBeginning(const QByteArray& bytes)
{
    const auto continues = [](char byte) { return (byte & 0xc0) == 0x80; };
    return bytes.size() < sizeBehind(static_cast<uchar>(bytes.at(0)))
        && std::all_of(bytes.begin() + 1, bytes.end(), continues);
}

/// What was held when no character comes of it is one U+FFFD, however long.
QString takeUtf8(QByteArray& held, char byte)
{
    const QByteArray bytes = held + byte;
    held.clear();
    const QString character = characterOf(bytes);
    if (!character.isEmpty())
        return character;
    if (isBeginning(bytes))
        held = bytes;
    else if (bytes.size() > 1)
        return QString(QChar::ReplacementCharacter) + takeUtf8(held, byte);
    return held.isEmpty() ? QString(QChar::ReplacementCharacter) : QString();
}

/// As many of @p bytes as a character has that begins as they do.
QByteArray firstBytes(const QByteArray& bytes)
{
    return bytes.left(sizeBehind(static_cast<uchar>(bytes.at(0))));
}

/// The end of @p bytes that is a character which wants more bytes; empty where there is none.
QByteArray cutOffCharacter(const QByteArray& bytes)
{
    for (int size = 1; size <= 3 && size <= bytes.size(); ++size) {
        const QByteArray end = bytes.right(size);
        if (isBeginning(end))
            return end;
    }
    return QByteArray();
}

/// U+FFFD.
QByteArray replacement()
{
    return QByteArrayLiteral("\xef\xbf\xbd");
}

} // namespace

QByteArray Utf8Pieces::next(const QByteArray& piece)
{
    QByteArray bytes = held + piece;
    if (!held.isEmpty() && !isBeginning(bytes) && characterOf(firstBytes(bytes)).isEmpty())
        bytes = replacement() + piece;
    held = cutOffCharacter(bytes);
    bytes.chop(held.size());
    const int broken = static_cast<int>(cutOffCharacter(bytes).size()); // by what is held now
    bytes.chop(broken);
    return bytes + replacement().repeated(broken);
}

ByteDecoder::ByteDecoder(const QTextCodec& codec, QTextCodec::ConversionFlags flags)
    : codec(codec)
    , state(flags)
{
}

QString ByteDecoder::decoded(char byte)
{
    if (!isUtf8Codec(codec))
        return codec.toUnicode(&byte, 1, &state);
    return takeUtf8(bytes, byte);
}

int ByteDecoder::held() const
{
    return isUtf8Codec(codec) ? static_cast<int>(bytes.size()) : state.remainingChars;
}

} // namespace toolkit
