// Commands that write a file.

#include "check/findingtext.h"
#include "config/settingsscan.h"
#include "settings/commands.h"
#include "settings/filechange.h"
#include "settings/newsettings.h"
#include "settings/question.h"
#include "settings/shownloss.h"
#include "toolkit/console.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/nearest.h"
#include "vocabulary/settings.h"

#include <QFileInfo>
#include <QObject>

#include <cerrno>

using toolkit::operator""_L1;
using vocabulary::Setting;
using vocabulary::SettingGroup;

namespace settings {

namespace {

/// Null when no program reads that key.
const Setting* settingOf(const QString& key)
{
    const SettingGroup* const group = vocabulary::findGroup(key.section(QLatin1Char('.'), 1, 1));
    const Setting* const setting = group ? vocabulary::findSetting(*group, key.section(QLatin1Char('.'), 2)) : nullptr;
    const bool isSuites = key.startsWith("zelmora."_L1) && setting && vocabulary::isRead(*group, *setting);
    return isSuites ? setting : nullptr;
}

QString unreadKey(const QString& key)
{
    const QString meant = toolkit::nearest(key, readKeys());
    if (!meant.isEmpty())
        return check::withQuestion(QObject::tr("No program reads %1.").arg(key), meant);
    if (!key.contains(QLatin1Char('.')))
        return QObject::tr("No program reads %1. A key is whole, such as zelmora.receiptdoc.paperWidth.").arg(key);
    return QObject::tr("No program reads %1. \"zelmora-config list\" shows what is read.").arg(key);
}

/// Why the programs would make nothing of that value; empty when they would.
QString senselessness(const QString& key, const QString& value)
{
    const Setting* const setting = settingOf(key);
    if (!setting)
        return unreadKey(key);
    if (!vocabulary::takes(*setting, value))
        return QObject::tr("%1 is %2, and \"%3\" is none.").arg(key, vocabulary::valueText(*setting), value);
    return QString();
}

/// Why no file of this name would give the programs that value; empty when it would.
QString unkeepable(const QString& path, const QString& key, const QString& value)
{
    if (SettingsFile::canHold(path, key, value))
        return QString();
    if (!SettingsFile::canHold(path, key, QStringLiteral("1"))) // an empty value would be found where nothing is
        return QObject::tr("%1 cannot be kept in the file: no program would find a setting of that name.").arg(key);
    if (libconfig::settingsFormat(path) == "xml"_L1)
        return QObject::tr(
                   "The value of %1 cannot be kept in XML: it may hold no \"<\", no \"&\", no quotation mark and "
                   "no character that Western European languages lack.")
            .arg(key);
    return QObject::tr("The value of %1 cannot be kept in the file: it may hold no semicolon, no quotation mark and no "
                       "character that Western European languages lack.")
        .arg(key);
}

/// Whether what the file would lose may go; it is shown in any case.
bool mayDrop(const QStringList& losses, const Call& call)
{
    if (losses.isEmpty())
        return true;
    say(QObject::tr("Saving will drop from the file:") + "\n  "_L1 + losses.join("\n  "_L1));
    if (call.isForced)
        return true;
    if (canAsk())
        return confirmed(QObject::tr("Save all the same?"));
    say(QObject::tr("Nothing was changed. With --force that is dropped."));
    return false;
}

/// Writes what was changed.
Status finish(FileChange& change, const Call& call)
{
    const QString broken = change.tryWriting();
    if (!broken.isEmpty())
        return complain(change.trial().reason.isEmpty() ? Refused : Failed, broken);
    if (!mayDrop(change.losses(), call))
        return Refused;
    const QString reason = change.save();
    return reason.isEmpty() ? Done : complain(Failed, reason);
}

bool isThere(const QString& path)
{
    return toolkit::unusableName(path).isEmpty() && QFileInfo::exists(path);
}

QString alreadyThere(const QString& path)
{
    return QObject::tr("There is a file %1 already, and it stays as it is.").arg(path);
}

/// With what the file @p like has, or for the user alone.
Status create(const QString& path, const SettingsFile::Trial& trial, const QString& like = QString())
{
    const QString reason = SettingsFile::create(path, trial, like);
    if (reason.isEmpty())
        return Done;
    if (reason == qt_error_string(EEXIST)) // since it was looked for
        return complain(Refused, alreadyThere(path));
    return complain(Failed, QObject::tr("The file %1 cannot be written: %2").arg(path, reason));
}

} // namespace

Status setValue(const Call& call)
{
    const QString path = pathOf(call);
    const QString key = call.text(0);
    const QString value = call.text(1);
    QString reason = call.isForced ? QString() : senselessness(key, value);
    if (reason.isEmpty())
        reason = unkeepable(path, key, value);
    if (!reason.isEmpty())
        return complain(Refused, reason);
    reason = SettingsFile::makeFolderOf(path);
    if (!reason.isEmpty())
        return complain(Failed, reason);

    FileChange change(path);
    reason = change.begin();
    if (!reason.isEmpty())
        return complain(Failed, reason);
    reason = whyNotWritten(change.file);
    if (reason.isEmpty() && !change.file.reaches(key))
        reason = QObject::tr("%1 would not be found: the first group of the file is not \"%2\".")
                     .arg(key, key.section(QLatin1Char('.'), 0, 0));
    if (!reason.isEmpty())
        return complain(Refused, reason);
    return change.file.set(key, value) ? finish(change, call) : Done;
}

Status unsetValue(const Call& call)
{
    const QString path = pathOf(call);
    const QString absent = notSet(call.text(0));
    if (SettingsFile::isMissing(path)) // without a folder there is nothing to lock
        return call.file.isEmpty()
            ? complain(Refused, absent)
            : complain(Failed, QObject::tr("The file %1 cannot be read: %2").arg(path, qt_error_string(ENOENT)));
    FileChange change(path);
    QString reason = change.begin();
    if (!reason.isEmpty())
        return complain(Failed, reason);
    if (!change.file.unset(call.text(0)))
        return complain(Refused, absent);
    reason = whyNotWritten(change.file);
    return reason.isEmpty() ? finish(change, call) : complain(Refused, reason);
}

Status makeFile(const Call& call)
{
    const QString path = pathOf(call);
    if (isThere(path))
        return complain(Refused, alreadyThere(path));
    const QString reason = SettingsFile::makeFolderOf(path);
    if (!reason.isEmpty())
        return complain(Failed, reason);
    SettingsFile file;
    file.beginAt(path);
    fillWithSettings(file);
    const Status status = create(path, file.tryWriting(path));
    if (status == Done)
        toolkit::write(toolkit::localeText(QObject::tr("The file %1 was made.").arg(path)) + '\n');
    return status;
}

Status convertFile(const Call& call)
{
    const QString from = toolkit::filePath(call.arguments.at(0));
    const QString to = toolkit::filePath(call.arguments.at(1));
    if (libconfig::settingsFormat(from) == libconfig::settingsFormat(to))
        return complain(
            Failed,
            QObject::tr("%1 and %2 have the same form. The name of one of them must end in .xml.").arg(from, to));
    SettingsFile file;
    QString reason = file.load(from);
    if (!reason.isEmpty())
        return complain(Failed, QObject::tr("The file %1 cannot be read: %2").arg(from, reason));
    reason = whyNotWritten(file);
    if (!reason.isEmpty())
        return complain(Refused, reason);
    const SettingsFile::Trial trial = file.tryWriting(to);
    const QStringList unheld =
        shownLosses(file) + shownSettings(trial.notXml.isEmpty() ? trial.changed : trial.notXml, file);
    if (!unheld.isEmpty())
        return complain(Refused,
                        QObject::tr("The file %1 could not hold this, and is not made:").arg(to) + "\n  "_L1
                            + unheld.join("\n  "_L1));
    return isThere(to) ? complain(Refused, alreadyThere(to)) : create(to, trial, from);
}

} // namespace settings
