#include "toolkit/textencoder.h"

#include "toolkit/localecodec.h"

#include <QTextCodec>

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

} // namespace toolkit
