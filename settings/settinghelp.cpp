#include "settings/settinghelp.h"

#include <QObject>

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

QString helpOn(const SettingGroup& group, const QStringList& documents)
{
    QStringList lines {QObject::tr(group.title), QString(), groupText(group)};
    if (!documents.isEmpty())
        lines += QObject::tr("These are printed with it: %1.").arg(documents.join(QStringLiteral(", ")));
    lines << QString() << QObject::tr("Each setting has its own help: go to its field and press F1.");
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
