#ifndef ZELMORA_TOOLKIT_BYTEDECODER_H
#define ZELMORA_TOOLKIT_BYTEDECODER_H

#include <QByteArray>
#include <QTextCodec>

namespace toolkit {

/// Turns bytes into text one by one, so that one sees what each of them becomes. What is no character becomes U+FFFD.
class ByteDecoder {
public:
    ByteDecoder(const QTextCodec& codec, QTextCodec::ConversionFlags flags);

    /// What comes out with @p byte; mostly one character, empty where more bytes are needed.
    QString decoded(char byte);
    /// How many bytes are kept for what comes next.
    int held() const;

private:
    const QTextCodec& codec;
    QTextCodec::ConverterState state;
    QByteArray bytes; ///< of UTF-8, those that are held
};

#if QT_VERSION_MAJOR >= 6

/// Gives the pieces in which UTF-8 comes other ends, so that no character is cut off between two of them. In a piece
/// each byte that is no character is left as it is, and becomes a U+FFFD by itself; what the end of a piece holds of a
/// character that does not go on in the next becomes one U+FFFD, however many bytes it has. So a decoder that does not
/// remember anything makes of these pieces what that of Qt 5, which does, makes of those that came.
class Utf8Pieces {
public:
    /// What was held back until now, with @p piece behind it, but for a character at its end which wants more bytes.
    QByteArray next(const QByteArray& piece);

private:
    QByteArray held;
};

#endif

} // namespace toolkit

#endif
