#include "preview/progressbar.h"

#include <QByteArray>

#include <cstdio>
#include <unistd.h>

namespace preview {

namespace {

const int width = 40; ///< with the figures behind it, it has room on any terminal

QByteArray bar(int done, int total)
{
    const auto filled = static_cast<int>(qint64 {width} * done / total);
    return '[' + QByteArray(filled, '#') + QByteArray(width - filled, ' ') + "] " + QByteArray::number(done) + '/'
        + QByteArray::number(total);
}

} // namespace

ProgressBar::ProgressBar(int total)
    : total(total)
    , isSeen(isatty(STDERR_FILENO) != 0)
{
    clock.start();
}

ProgressBar::~ProgressBar()
{
    if (shown >= 0)
        std::fprintf(stderr, "\r%*s\r", static_cast<int>(bar(total, total).size()), "");
}

void ProgressBar::show(int done)
{
    if (!isSeen || done == shown || clock.elapsed() < moment)
        return;
    shown = done;
    std::fprintf(stderr, "\r%s", bar(done, total).constData());
    std::fflush(stderr);
}

} // namespace preview
