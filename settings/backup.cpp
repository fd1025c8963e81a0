#include "settings/backup.h"

#include "toolkit/filereplacement.h"

#include <QString>

namespace settings {

QString keepBackup(const QString& path, const QByteArray& bytes)
{
    return toolkit::replaceFileBeside(path, QStringLiteral("~"), bytes);
}

} // namespace settings
