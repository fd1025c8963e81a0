#ifndef ZELMORA_TESTS_DB_REMARKS_H
#define ZELMORA_TESTS_DB_REMARKS_H

#include "support/capture.h"

/// What @p action writes to standard error, with the toolkit's own messages, which the test library would take.
inline QByteArray remarks(const std::function<void()>& action)
{
    const QtMessageHandler kept = qInstallMessageHandler(nullptr);
    const QByteArray written = captured(stderr, action);
    qInstallMessageHandler(kept);
    return written;
}

#endif
