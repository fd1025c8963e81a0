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

/// The end of @p bytes that in UTF-8 is a character which wants more bytes; empty where there is none.
QByteArray cutOffCharacter(const QByteArray& bytes);

} // namespace toolkit

#endif
