#ifndef ZELMORA_TESTS_LOG_LOGFILE_H
#define ZELMORA_TESTS_LOG_LOGFILE_H

#include "support/programrun.h"
#include "support/settings.h"

#include <QByteArrayList>
#include <QFileInfo>
#include <QRegularExpression>

/// The settings text for a log at @p path.
inline QByteArray logSettings(const QString& path, const QString& type = "APPEND", const QString& level = "DEBUG")
{
    const QFileInfo file(path);
    return QString("zelmora: { logger: { level = \"%1\"; basedir = \"%2\"; filename = \"%3\"; type = \"%4\"; }; };")
        .arg(level, file.path(), file.fileName(), type)
        .toUtf8();
}

/// For the loggers made afterwards.
inline void useLog(const QString& path, const QString& type = "APPEND", const QString& level = "DEBUG")
{
    useSettings(logSettings(path, type, level));
}

/// The lines of a log without their times: "ERROR: connection refused". A line without a good time stays as it is.
inline QByteArrayList records(const QString& path)
{
    const QRegularExpression time(R"(^\[\d\d-\d\d-\d{4} \d\d:\d\d:\d\d:\d{3}\] )", QRegularExpression::MultilineOption);
    QByteArrayList lines = QString::fromUtf8(fileContents(path)).remove(time).toUtf8().split('\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    else
        lines.last() += " (no line end)";
    return lines;
}

#endif
