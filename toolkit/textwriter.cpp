#include "toolkit/textwriter.h"

#include <QFileDevice>

namespace toolkit {

namespace {

const int enough = 16384; // characters

} // namespace

TextWriter::TextWriter(QFileDevice& file, TextEncoder::Encoding encoding)
    : file(file)
    , encoder(encoding)
{
}

TextWriter::~TextWriter()
{
    flush();
}

TextWriter& TextWriter::operator<<(const QString& text)
{
    if (failed)
        return *this;
    gathered += text;
    if (gathered.size() > enough)
        flush();
    return *this;
}

void TextWriter::flush()
{
    if (gathered.isEmpty())
        return;
    const QByteArray bytes = encoder.encoded(gathered);
    gathered.clear();
    failed = file.write(bytes) != bytes.size() || !file.flush();
}

} // namespace toolkit
