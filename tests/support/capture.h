#ifndef ZELMORA_TESTS_SUPPORT_CAPTURE_H
#define ZELMORA_TESTS_SUPPORT_CAPTURE_H

#include "support/files.h"

#include <QTemporaryFile>

#include <cstdio>
#include <functional>
#include <unistd.h>

/// What @p action writes to @p channel, which is stdout or stderr.
inline QByteArray captured(std::FILE* channel, const std::function<void()>& action)
{
    QTemporaryFile file;
    if (!file.open())
        qFatal("The scratch file can't be made.");
    std::fflush(channel);
    const int descriptor = fileno(channel);
    const int kept = dup(descriptor);
    if (kept < 0 || dup2(file.handle(), descriptor) < 0)
        qFatal("The channel can't be redirected.");
    action();
    std::fflush(channel);
    dup2(kept, descriptor);
    close(kept);
    return fileContents(file.fileName());
}

#endif
