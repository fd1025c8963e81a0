#include "settings/savequestions.h"

#include "settings/shownloss.h"

#include <QObject>

namespace settings {

namespace {

QVector<SaveQuestion> ofDroppedText(const SettingsFile& file, const QString& path)
{
    const QStringList dropped = shownLosses(file);
    if (file.review().isHiddenByItsBeginning && path == file.path())
        return {{QObject::tr("Nothing of the file %1 could be read. Saving empties it.").arg(path), dropped}};
    if (!dropped.isEmpty())
        return {{QObject::tr("Saving will drop from the file:"), dropped}};
    return {};
}

QVector<SaveQuestion> ofUnheldSettings(const SettingsFile& file, const SettingsFile::Trial& trial)
{
    if (!trial.notXml.isEmpty())
        return {{QObject::tr("The file would not be XML, and nothing would be read back, because of:"),
                 shownSettings(trial.notXml, file)}};
    if (!trial.changed.isEmpty())
        return {{QObject::tr("These settings would read back otherwise, or not at all:"),
                 shownSettings(trial.changed, file)}};
    return {};
}

QVector<SaveQuestion> ofOthersChanges(const SettingsFile& file, const QString& path)
{
    if (path == file.path() && file.changedOnDisk())
        return {{QObject::tr("Another program has changed or removed the file %1 since it was opened. Saving drops "
                             "what it changed.")
                     .arg(path),
                 {}}};
    return {};
}

} // namespace

QVector<SaveQuestion> questionsBeforeSaving(const SettingsFile& file, const QString& path,
                                            const SettingsFile::Trial& trial)
{
    return ofDroppedText(file, path) + ofUnheldSettings(file, trial) + ofOthersChanges(file, path);
}

} // namespace settings
