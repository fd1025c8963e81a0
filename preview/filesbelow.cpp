#include "preview/filesbelow.h"

#include <QDir>
#include <QDirIterator>

namespace preview {

namespace {

/// Whether all there is in it can be found. Links are not followed.
bool isOpenFolder(const QFileInfo& entry)
{
    return entry.isDir() && (entry.isSymLink() || entry.isReadable());
}

} // namespace

QStringList filesBelow(const QString& folder)
{
    const QDir base(folder);
    QStringList files;
    QDirIterator found(folder, QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (found.hasNext()) {
        found.next();
        if (!isOpenFolder(found.fileInfo()))
            files += base.relativeFilePath(found.fileInfo().absoluteFilePath());
    }
    files.sort();
    return files;
}

} // namespace preview
