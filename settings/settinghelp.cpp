#include "settings/settinghelp.h"

#include "settings/settingrows.h"

#include <QObject>
#include <QStringList>

using vocabulary::Setting;
using vocabulary::SettingGroup;

namespace settings {

namespace {

QString namesOf(const QVector<const vocabulary::Method*>& methods)
{
    QStringList names;
    for (const vocabulary::Method* const method : methods)
        names += method->name;
    return names.join(QStringLiteral(", "));
}

/// Empty where no document is meant to.
QString effectText(const SettingGroup& group, const Setting& setting)
{
    const QVector<const vocabulary::Method*> methods = methodsAffected(group, setting);
    if (!methods.isEmpty())
        return QObject::tr("What these print depends on it: %1.").arg(namesOf(methods));
    return group.isDocument ? QObject::tr("Nothing that this document prints depends on it.") : QString();
}

} // namespace

QString absenceText(const Setting& setting)
{
    return setting.absence ? QObject::tr(setting.absence) : QString(setting.absent);
}

QString helpOn(const SettingGroup& group, const Setting& setting)
{
    QStringList lines {vocabulary::keyOf(group, setting),
                       QString(),
                       QObject::tr(setting.description),
                       QString(),
                       QObject::tr("It takes: %1.").arg(vocabulary::valueText(setting)),
                       QObject::tr("Without it: %1.").arg(absenceText(setting))};
    const QString effect = effectText(group, setting);
    if (!effect.isEmpty())
        lines += effect;
    return lines.join(QLatin1Char('\n'));
}

} // namespace settings
