#include "paper/decodedscript.h"

#include "toolkit/bytedecoder.h"

#include <QTextCodec>

namespace paper {

namespace {

/// A byte-order mark is text, but for the two codecs that need it to tell the order of the bytes.
QTextCodec::ConversionFlags flagFor(const QTextCodec& codec)
{
    const int utf16 = 1015; // the registered numbers of these encodings
    const int utf32 = 1017;
    const bool isTold = codec.mibEnum() == utf16 || codec.mibEnum() == utf32;
    return {isTold ? QTextCodec::DefaultConversion : QTextCodec::IgnoreHeader};
}

QByteArray encoded(const QTextCodec& codec, const QString& text)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec.fromUnicode(text.constData(), text.size(), &state);
}

/// Feeds a codec byte by byte, which alone tells what each of them becomes, with every codec.
class ScriptDecoder {
public:
    ScriptDecoder(const QByteArray& bytes, const QTextCodec& codec);

    DecodedScript decode();

private:
    void take(const QString& characters, int end);
    void addInvalid(int end);

    const QByteArray& bytes;
    const QTextCodec& codec;
    toolkit::ByteDecoder decoder;
    const QByteArray genuine; ///< the bytes of a U+FFFD that stands in the script itself
    DecodedScript script;
    int begin = 0; ///< of the bytes that became nothing yet
};

ScriptDecoder::ScriptDecoder(const QByteArray& bytes, const QTextCodec& codec)
    : bytes(bytes)
    , codec(codec)
    , decoder(codec, flagFor(codec))
    , genuine(codec.canEncode(QChar::ReplacementCharacter) ? encoded(codec, QChar(QChar::ReplacementCharacter))
                                                           : QByteArray())
{
}

DecodedScript ScriptDecoder::decode()
{
    for (int i = 0; i < bytes.size(); ++i) {
        const QString characters = decoder.decoded(bytes.at(i));
        if (!characters.isEmpty())
            take(characters, i + 1 - decoder.held()); // of which the codec keeps some for what comes next
    }
    // What is left is a part of a character, or the byte-order mark of an empty text.
    QString last;
    for (const char byte : encoded(codec, QStringLiteral("\n")))
        last += decoder.decoded(byte);
    const bool isWhole = last == QLatin1String("\n");
    if (begin < bytes.size() && !isWhole) {
        addInvalid(bytes.size());
        script.text += QChar::ReplacementCharacter;
    }
    return std::move(script);
}

/// What the bytes from begin to @p end became: of invalid ones the last may be valid again.
void ScriptDecoder::take(const QString& characters, int end)
{
    const int replaced = characters.lastIndexOf(QChar::ReplacementCharacter);
    if (replaced >= 0 && bytes.mid(begin, end - begin) != genuine) {
        const bool isAll = replaced + 1 == characters.size();
        addInvalid(isAll ? end : end - encoded(codec, characters.mid(replaced + 1)).size());
    }
    script.text += characters;
    begin = end;
}

void ScriptDecoder::addInvalid(int end)
{
    const bool goesOn =
        !script.invalid.isEmpty() && script.invalid.last().begin + script.invalid.last().length == begin;
    if (goesOn)
        script.invalid.last().length = end - script.invalid.last().begin;
    else
        script.invalid += InvalidBytes {script.text.size(), begin, end - begin};
}

} // namespace

DecodedScript decoded(const QByteArray& bytes, QTextCodec& codec)
{
    // At once where all is well. The line feed brings out what a last character lacks.
    QTextCodec::ConverterState state(flagFor(codec));
    const QByteArray whole = bytes + encoded(codec, QStringLiteral("\n"));
    QString text = codec.toUnicode(whole.constData(), whole.size(), &state);
    if (!text.endsWith(QLatin1Char('\n')) || text.contains(QChar::ReplacementCharacter))
        return ScriptDecoder(bytes, codec).decode();
    text.chop(1);
    return {text, {}};
}

} // namespace paper
