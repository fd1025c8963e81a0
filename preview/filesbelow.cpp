#include "preview/filesbelow.h"

#include <QDir>
#include <QDirIterator>

namespace preview {

QStringList filesBelow(const QString& folder)
{
    const QDir base(folder);
    QStringList files;
    QDirIterator found(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (found.hasNext())
        files += base.relativeFilePath(found.next());
    files.sort();
    return files;
}

} // namespace preview
