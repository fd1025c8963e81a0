#include "preview/filesbelow.h"

#include "toolkit/filenames.h"

#include <QDir>
#include <QDirIterator>

#include <filesystem>
#include <system_error>

namespace preview {

namespace {

/// Also what cannot be had: a folder that is closed, a link that leads nowhere.
bool isListed(const QFileInfo& entry)
{
    if (entry.isSymLink())
        return entry.isFile() || !entry.exists();
    return entry.isFile() || (entry.isDir() && !entry.isReadable());
}

} // namespace

QStringList filesBelow(const QString& folder)
{
    const QDir base(folder);
    QStringList files;
    QDirIterator found(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (found.hasNext()) {
        found.next();
        if (isListed(found.fileInfo()))
            files += base.relativeFilePath(found.fileInfo().absoluteFilePath());
    }
    for (const QByteArray& name : namesBelow(toolkit::fileName(folder))) {
        const QString path = toolkit::fileText(name);
        if (!toolkit::unusableName(path).isEmpty()) // the toolkit leaves it out; nobody should miss it unawares
            files += path.mid(folder.size() + (folder.endsWith(QLatin1Char('/')) ? 0 : 1));
    }
    files.sort();
    return files;
}

QByteArrayList namesBelow(const char* folder)
{
    using Entries = std::filesystem::recursive_directory_iterator;
    QByteArrayList names;
    std::error_code error;
    Entries entry(folder, std::filesystem::directory_options::skip_permission_denied, error);
    for (; !error && entry != Entries(); entry.increment(error))
        names += QByteArray::fromStdString(entry->path().native());
    return names;
}

} // namespace preview
