#include "toolkit/console.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstdio>

namespace toolkit {

namespace {

bool endsLine(QChar character)
{
    const ushort unit = character.unicode();
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || unit == QChar::LineSeparator
        || unit == QChar::ParagraphSeparator;
}

} // namespace

void writeLine(const QByteArray& line)
{
    write(line);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void write(const QByteArray& bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
}

bool finishWriting()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

QString inOneLine(const QString& text)
{
    if (std::none_of(text.begin(), text.end(), endsLine))
        return text; // as nearly all are: nothing is copied
    QString line = text;
    std::replace_if(line.begin(), line.end(), endsLine, QLatin1Char(' '));
    return line;
}

} // namespace toolkit
