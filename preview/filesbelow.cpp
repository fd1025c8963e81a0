#include "preview/filesbelow.h"

#include <QDir>
#include <QDirIterator>

namespace preview {

QStringList filesBelow(const QString& folder)
{
    const QDir base(folder);
    QStringList files;
    QDirIterator found(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        found.next();
        files += base.relativeFilePath(found.fileInfo().absoluteFilePath());
    }
    files.sort();
    return files;
}

} // namespace preview
