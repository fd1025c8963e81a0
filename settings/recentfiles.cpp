#include "settings/recentfiles.h"

#include <QFileInfo>

namespace settings {

QStringList withRecent(const QStringList& files, const QString& path)
{
    const int most = 8;
    QStringList recent = files;
    recent.removeAll(path);
    recent.prepend(path);
    return recent.mid(0, most);
}

QStringList recentOnes(const QStringList& files, const QString& path)
{
    QStringList found;
    for (const QString& file : files) {
        if (file != path && QFileInfo(file).isFile())
            found += file;
    }
    return found;
}

} // namespace settings
