#include "toolkit/console.h"

#include <QByteArray>

#include <cstdio>

namespace toolkit {

void writeLine(const QByteArray& line)
{
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

} // namespace toolkit
