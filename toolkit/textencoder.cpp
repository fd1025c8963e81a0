#include "toolkit/textencoder.h"

#include "toolkit/localecodec.h"

#include <QTextCodec>
#include <QTextStream>

namespace toolkit {

namespace {

QTextEncoder* makeEncoder(TextEncoder::Encoding encoding)
{
    const bool isUtf8 = encoding == TextEncoder::Encoding::Utf8 || isUtf8Codec(*localeCodec());
    return isUtf8 ? nullptr : localeCodec()->makeEncoder(QTextCodec::IgnoreHeader);
}

bool isPair(const QChar* units)
{
    return units[0].isHighSurrogate() && units[1].isLowSurrogate();
}

/// One character's bytes. Of one beyond U+FFFF that they lack, the toolkit's own codecs write a '?' for each half.
QByteArray wholeCharacter(const QByteArray& bytes)
{
    return bytes == "??" ? QByteArray("?") : bytes;
}

QByteArray encodedBy(QTextEncoder& encoder, const QString& text)
{
    QByteArray bytes;
    const QChar* const units = text.constData();
    int begin = 0;
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (!isPair(units + i))
            continue;
        bytes += encoder.fromUnicode(units + begin, i - begin);
        bytes += wholeCharacter(encoder.fromUnicode(units + i, 2));
        begin = ++i + 1;
    }
    return begin == 0 ? encoder.fromUnicode(text) : bytes + encoder.fromUnicode(units + begin, text.size() - begin);
}

} // namespace

TextEncoder::TextEncoder(Encoding encoding)
    : encoder(makeEncoder(encoding))
{
}

TextEncoder::~TextEncoder() = default;

QByteArray TextEncoder::encoded(const QString& text)
{
    if (encoder)
        return encodedBy(*encoder, text);
    // Not by the codec, which in Qt 6 makes U+FFFD of half a pair.
    QString whole = half + text;
    half = whole.right(!whole.isEmpty() && whole.at(whole.size() - 1).isHighSurrogate() ? 1 : 0);
    whole.chop(half.size());
    return whole.toUtf8();
}

QString withoutHalves(const QString& text)
{
    if (text.isValidUtf16())
        return text;
    QString whole = text;
    for (int i = 0; i < whole.size(); ++i) {
        if (whole.at(i).isHighSurrogate() && i + 1 < whole.size() && whole.at(i + 1).isLowSurrogate())
            ++i;
        else if (whole.at(i).isSurrogate())
            whole[i] = u'?';
    }
    return whole;
}

bool decodeUtf8(const char* bytes, int size, QString& text)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes, size, &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

void setUtf8(QTextStream& stream)
{
#if QT_VERSION_MAJOR < 6
    stream.setCodec("UTF-8");
#else
    stream.setEncoding(QStringConverter::Utf8);
#endif
}

} // namespace toolkit
