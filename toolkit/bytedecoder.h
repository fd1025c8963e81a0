#ifndef ZELMORA_TOOLKIT_BYTEDECODER_H
#define ZELMORA_TOOLKIT_BYTEDECODER_H

#include <QByteArray>
#include <QTextCodec>

namespace toolkit {

/// Turns bytes into text one by one, so that one sees what each of them becomes. What is no character becomes U+FFFD.
class ByteDecoder {
public:
    /// Of UTF-8 all is told, whatever the flags.
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

/// Gives the pieces in which UTF-8 comes other ends, so that a decoder need not remember any of them: no character is
/// cut off between two. A byte of a piece that is no part of a character becomes a U+FFFD by itself; but what stands at
/// its end of a character that does not go on in the next becomes one U+FFFD, however many bytes it has. That is the
/// rule of Qt 5's decoder, which remembers.
class Utf8Pieces {
public:
    /// What was held back until now, with @p piece behind it, but for a character at its end which wants more bytes.
    QByteArray next(const QByteArray& piece);

private:
    QByteArray held;
};

} // namespace toolkit

#endif
