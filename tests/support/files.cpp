#include "support/files.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("%s can't be written.", qPrintable(path));
}

QByteArray fileContents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray difference(const QByteArray& expected, const QByteArray& actual)
{
    if (expected == actual)
        return QByteArray();
    const QTemporaryDir folder;
    const QString expectedPath = folder.filePath(QStringLiteral("expected"));
    const QString actualPath = folder.filePath(QStringLiteral("actual"));
    writeBytes(expectedPath, expected);
    writeBytes(actualPath, actual);
    QProcess diff;
    diff.start(QStringLiteral("diff"), {QStringLiteral("-u"), expectedPath, actualPath});
    diff.waitForFinished();
    return "The bytes differ:\n" + diff.readAllStandardOutput();
}
