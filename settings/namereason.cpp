#include "settings/namereason.h"

#include "settings/settingsfile.h"
#include "toolkit/literals.h"

#include <QObject>

using toolkit::operator""_L1;

namespace settings {

namespace {

bool isTopLevel(const QDomElement& group)
{
    return group.isNull() || !group.parentNode().isElement();
}

/// Whether a look-up finds the setting @p key, the whole key of a name or of what is in the group @p name, in a file of
/// that form.
bool isFound(const SettingsFile& file, const QString& name, const QString& key)
{
    return !name.contains(QLatin1Char('.')) && SettingsFile::canHold(file.path(), key, QStringLiteral("1"));
}

QString unheld(const SettingsFile& file, const QString& name)
{
    const QString text = file.format() == "xml"_L1
        ? QObject::tr(
            "No program would find \"%1\": a name in XML begins with a letter, and has letters, digits, \"-\" "
            "and \"_\".")
        : QObject::tr(
            "No program would find \"%1\": a name holds no point, no \":\", \"=\" or \"}\", no character that "
            "Western European languages lack, and no blank at its ends.");
    return text.arg(name);
}

QString keyIn(const QDomElement& parent, const QString& name)
{
    return isTopLevel(parent) ? name : SettingsFile::keyOf(parent) + QLatin1Char('.') + name;
}

QString whyNoGroupName(const SettingsFile& file, const QDomElement& parent, const QString& name)
{
    if (!isTopLevel(parent) && !parent.firstChildElement(name).isNull())
        return QObject::tr("There is a group \"%1\" here already.").arg(name);
    return isFound(file, name, keyIn(parent, name) + ".a"_L1) ? QString() : unheld(file, name);
}

} // namespace

QString whyNoSetting(const SettingsFile& file, const QDomElement& group, const QString& name)
{
    if (isTopLevel(group))
        return QObject::tr("A setting outside every group is never found: choose a group first.");
    if (group.hasAttribute(name))
        return QObject::tr("There is a setting \"%1\" here already.").arg(name);
    return isFound(file, name, keyIn(group, name)) ? QString() : unheld(file, name);
}

QString whyNoGroup(const SettingsFile& file, const QDomElement& parent, const QString& name)
{
    if (isTopLevel(parent) && !SettingsFile::groupsIn(file.root()).isEmpty())
        return QObject::tr("Only the first group at the top is read: a second one beside it would never be found.");
    return whyNoGroupName(file, parent, name);
}

QString whyNotRenamed(const SettingsFile& file, const QDomElement& group, const QString& name)
{
    return whyNoGroupName(file, group.parentNode().toElement(), name);
}

} // namespace settings
