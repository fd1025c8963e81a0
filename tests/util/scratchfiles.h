#ifndef ZELMORA_TESTS_UTIL_SCRATCHFILES_H
#define ZELMORA_TESTS_UTIL_SCRATCHFILES_H

#include "support/programrun.h"

#include <QFile>

/// A folder of the test's own with a file to copy, and the path of its copy.
class ScratchFiles {
public:
    explicit ScratchFiles(const QByteArray& sourceBytes)
    {
        QFile file(source);
        if (!file.open(QIODevice::WriteOnly) || file.write(sourceBytes) != sourceBytes.size())
            qFatal("The source can't be written.");
    }

    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    QByteArray copied() const { return fileContents(destination); }

private:
    const QTemporaryDir folder;

public:
    const QString source = path("source");
    const QString destination = path("destination");
};

/// The lines "1", "2" and so on up to @p last.
inline QByteArray numberedLines(int last, int first = 1)
{
    QByteArray lines;
    for (int i = first; i <= last; ++i)
        lines += QByteArray::number(i) + '\n';
    return lines;
}

#endif
