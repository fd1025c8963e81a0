// Commands that leave the file as it is.

#include "check/findingtext.h"
#include "check/settingscheck.h"
#include "config/settingsscan.h"
#include "settings/commands.h"
#include "settings/settingsfile.h"
#include "settings/settingslist.h"
#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/nearest.h"

#include <QObject>

using check::PlacedSettings;
using toolkit::operator""_L1;

namespace settings {

namespace {

bool isOwn(const Call& call)
{
    return call.file.isEmpty();
}

/// The user's own file may be missing: then nothing is set. Empty when that succeeded, else the reason.
QString load(SettingsFile& file, const Call& call)
{
    const QString path = pathOf(call);
    if (isOwn(call) && SettingsFile::isMissing(path)) {
        file.beginAt(path);
        return QString();
    }
    const QString reason = file.load(path);
    return reason.isEmpty() ? QString() : QObject::tr("The file %1 cannot be read: %2").arg(path, reason);
}

Status show(const SettingsList& list, const Call& call)
{
    const ListForm form {pathOf(call), call.showsSecrets};
    if (call.report.format == check::Format::Json)
        writeJson(list, form);
    else
        toolkit::write(asTable(list, form));
    return Done;
}

/// Of the names of the rows of @p table.
template <typename Row>
QStringList namesIn(vocabulary::Table<Row> table)
{
    QStringList names;
    for (const Row& row : table)
        names += row.name;
    return names;
}

QString unknownName(const QString& text, const QString& name, const QStringList& names)
{
    const QString meant = toolkit::nearest(name, names);
    if (meant.isEmpty())
        return text.arg(name) + QLatin1Char(' ') + QObject::tr("There are: %1.").arg(names.join(", "_L1));
    return check::withQuestion(text.arg(name), meant);
}

} // namespace

Status checkFile(const Call& call)
{
    const QString path = pathOf(call);
    const bool isMissing = isOwn(call) && SettingsFile::isMissing(path);
    QByteArray bytes;
    const QString reason = isMissing ? QString() : SettingsFile::read(path, bytes);
    check::Report report(call.report);
    if (isMissing)
        report.add(path,
                   {check::finding(check::Code::SettingsMissing, {},
                                   QObject::tr(check::entry(check::Code::SettingsMissing).explanation))});
    else if (reason.isEmpty())
        report.add(path, check::checkSettings(bytes, libconfig::settingsFormat(path), path));
    else
        report.add(path, {check::unreadable(reason)});
    report.finish();
    if (!reason.isEmpty())
        return Failed;
    return report.hasErrors() ? Refused : Done;
}

Status listSettings(const Call& call)
{
    const QString name = call.text(0);
    const vocabulary::SettingGroup* const group = vocabulary::findGroup(name);
    if (!group && !call.arguments.isEmpty())
        return complain(
            Failed, unknownName(QObject::tr("There is no group \"%1\"."), name, namesIn(vocabulary::settingGroups())));
    SettingsFile file;
    const QString reason = load(file, call);
    if (!reason.isEmpty())
        return complain(Failed, reason);
    const PlacedSettings placed = PlacedSettings::of(file.bytes(), file.format());
    SettingsList list;
    for (const vocabulary::SettingGroup& candidate : vocabulary::settingGroups()) {
        if (!group || group == &candidate)
            list += settingsOf(candidate, placed);
    }
    return show(list, call);
}

Status showEffectiveSettings(const Call& call)
{
    const QString name = call.text(0);
    const vocabulary::Method* const method = vocabulary::findMethod(name);
    if (!method)
        return complain(
            Failed, unknownName(QObject::tr("There is no print method \"%1\"."), name, namesIn(vocabulary::methods())));
    SettingsFile file;
    const QString reason = load(file, call);
    if (!reason.isEmpty())
        return complain(Failed, reason);
    const SettingsList list = settingsFor(*method, PlacedSettings::of(file.bytes(), file.format()));
    if (list.isEmpty() && call.report.format != check::Format::Json)
        toolkit::write(toolkit::localeText(QObject::tr("No setting changes what a document of this method prints."))
                       + '\n');
    return show(list, call);
}

Status getValue(const Call& call)
{
    SettingsFile file;
    const QString reason = load(file, call);
    if (!reason.isEmpty())
        return complain(Failed, reason);
    const QString value = file.value(call.text(0));
    if (value.isEmpty())
        return complain(Refused, notSet(call.text(0)));
    toolkit::write(toolkit::localeText(value) + '\n');
    return Done;
}

} // namespace settings
