#include "settings/settinghelp.h"

#include "check/findingtext.h"
#include "settings/settingsfile.h"
#include "toolkit/literals.h"

#include <QObject>

using toolkit::operator""_L1;
using vocabulary::Setting;
using vocabulary::SettingGroup;

namespace settings {

namespace {

/// Empty where no document is meant to.
QString effectText(const SettingGroup& group, const QStringList& documents)
{
    if (!documents.isEmpty())
        return QObject::tr("It shows on: %1.").arg(documents.join(QStringLiteral(", ")));
    return group.isDocument ? QObject::tr("Nothing that this document prints depends on it.") : QString();
}

} // namespace

QString absenceText(const Setting& setting)
{
    return setting.absence ? QObject::tr(setting.absence) : QString(setting.absent);
}

/// A document is known by its title.
QString groupText(const SettingGroup& group)
{
    const QString text = group.isDocument ? QObject::tr("What stands on this document, and how wide it is.")
                                          : QObject::tr(group.description);
    return text + QLatin1Char(' ') + QObject::tr("In the file: %1.").arg(QString(group.name));
}

const SettingGroup* groupReadAs(const SettingsFile& file, const QDomElement& element)
{
    const SettingGroup* const group = vocabulary::findGroup(element.tagName());
    return group && file.groupsOf("zelmora."_L1 + group->name).contains(element) ? group : nullptr;
}

const Setting* settingReadAs(const SettingGroup* group, const QString& name)
{
    const Setting* const setting = group ? vocabulary::findSetting(*group, name) : nullptr;
    return setting && isRead(*group, *setting) ? setting : nullptr;
}

QString helpOnFile()
{
    return QObject::tr("The programs of the suite read the groups in \"zelmora\", the first group of the file.");
}

QString helpOnUnread(const QString& key)
{
    return check::shown(key) + "\n\n"_L1 + QObject::tr("No program of the suite reads it.");
}

QString helpOn(const SettingGroup& group, const QStringList& documents)
{
    QStringList lines {QObject::tr(group.title), QString(), groupText(group)};
    if (!documents.isEmpty())
        lines += QObject::tr("These are printed with it: %1.").arg(documents.join(QStringLiteral(", ")));
    lines << QString() << QObject::tr("Each setting has its own help: go to it and press F1.");
    return lines.join(QLatin1Char('\n'));
}

QString helpOn(const SettingGroup& group, const Setting& setting, const QStringList& documents)
{
    QStringList lines {vocabulary::keyOf(group, setting),
                       QString(),
                       QObject::tr(setting.description),
                       QString(),
                       QObject::tr("It takes: %1.").arg(vocabulary::valueText(setting)),
                       QObject::tr("Without it: %1.").arg(absenceText(setting))};
    const QString effect = effectText(group, documents);
    if (!effect.isEmpty())
        lines += effect;
    return lines.join(QLatin1Char('\n'));
}

} // namespace settings
