#include "toolkit/textencoder.h"

#include "toolkit/localecodec.h"

#include <QTextCodec>
#include <QTextStream>

namespace toolkit {

namespace {

QTextCodec* codecOf(TextEncoder::Encoding encoding)
{
    return encoding == TextEncoder::Encoding::Locale ? localeCodec() : QTextCodec::codecForName("UTF-8");
}

} // namespace

TextEncoder::TextEncoder(Encoding encoding)
    : encoder(codecOf(encoding)->makeEncoder(QTextCodec::IgnoreHeader))
{
}

TextEncoder::~TextEncoder() = default;

QByteArray TextEncoder::encoded(const QString& text)
{
    return encoder->fromUnicode(text);
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
