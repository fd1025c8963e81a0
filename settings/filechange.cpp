#include "settings/filechange.h"

#include "settings/shownloss.h"

#include <QObject>

namespace settings {

QString whyNotWritten(const SettingsFile& file)
{
    if (!file.looksLikeSettings())
        return QObject::tr("The file %1 does not look like the settings of the suite: none of its outermost groups is "
                           "named zelmora. Nothing was written.")
            .arg(file.path());
    if (file.review().isHiddenByItsBeginning)
        return QObject::tr("Nothing may stand before the first group of an XML file, no declaration and no comment. "
                           "Take it out of the file %1 first. Nothing was written.")
            .arg(file.path());
    return QString();
}

FileChange::FileChange(const QString& path)
    : path(path)
    , lock(path)
{
}

QString FileChange::begin()
{
    if (!lock.take(patience))
        return QObject::tr("Another program is changing the file %1. Try again when it is done.").arg(path);
    isNew = SettingsFile::isMissing(path);
    if (isNew) {
        file.beginAt(path);
        return QString();
    }
    const QString reason = file.load(path);
    return reason.isEmpty() ? QString() : QObject::tr("The file %1 cannot be read: %2").arg(path, reason);
}

QString FileChange::tryWriting()
{
    tried = file.tryWriting(path);
    if (!tried.reason.isEmpty())
        return QObject::tr("The file %1 cannot be written: %2").arg(path, tried.reason);
    if (!tried.notXml.isEmpty())
        return QObject::tr("The file %1 would not be XML, and nothing would be read back, because of: %2")
            .arg(path, shownSettings(tried.notXml, file).join(QStringLiteral("; ")));
    return QString();
}

QStringList FileChange::losses() const
{
    return shownLosses(file) + shownSettings(tried.changed, file);
}

QString FileChange::save()
{
    if (!isNew && file.changedOnDisk())
        return QObject::tr("Another program has changed or removed the file %1 meanwhile. Nothing was written.")
            .arg(path);
    const QString unkept = losses().isEmpty() ? QString() : SettingsFile::keepBackup(path);
    if (!unkept.isEmpty())
        return QObject::tr("The file as it is now cannot be kept as %1: %2").arg(path + QLatin1Char('~'), unkept);
    const QString reason = isNew ? SettingsFile::create(path, tried) : file.save(path, tried);
    return reason.isEmpty() ? QString() : QObject::tr("The file %1 cannot be written: %2").arg(path, reason);
}

} // namespace settings
