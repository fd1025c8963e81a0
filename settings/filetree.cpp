// The tree of a settings file, whatever stands in it, and what is done to it step by step.

#include "settings/settingsfile.h"

#include "toolkit/literals.h"

#include <utility>

using toolkit::operator""_L1;

namespace settings {

QVector<QDomElement> SettingsFile::groupsIn(const QDomElement& group)
{
    QVector<QDomElement> groups;
    for (QDomElement child = group.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        groups += child;
    return groups;
}

QString SettingsFile::keyOf(const QDomElement& group)
{
    QStringList names;
    for (QDomElement around = group; around.parentNode().isElement(); around = around.parentNode().toElement())
        names.prepend(around.tagName());
    return names.join(QLatin1Char('.'));
}

void SettingsFile::setValue(const QDomElement& group, const QString& name, const QString& value)
{
    take(SettingStep {group, placeOf(group, name), NamedValue {name, group.attribute(name)}, NamedValue {name, value}});
}

void SettingsFile::addSetting(const QDomElement& group, const QString& name, const QString& value)
{
    take(SettingStep {group, settingNames(group).size(), std::nullopt, NamedValue {name, value}});
}

/// Where it differs from what there is.
void SettingsFile::put(const QDomElement& group, const QString& name, const QString& value)
{
    if (!group.hasAttribute(name))
        addSetting(group, name, value);
    else if (group.attribute(name) != value)
        setValue(group, name, value);
}

void SettingsFile::renameSetting(const QDomElement& group, const QString& name, const QString& newName)
{
    const QString value = group.attribute(name);
    take(SettingStep {group, placeOf(group, name), NamedValue {name, value}, NamedValue {newName, value}});
}

void SettingsFile::removeSetting(const QDomElement& group, const QString& name)
{
    take(SettingStep {group, placeOf(group, name), NamedValue {name, group.attribute(name)}, std::nullopt});
}

QDomElement SettingsFile::addGroup(const QDomElement& parent, const QString& name)
{
    const QDomElement group = newGroup(name);
    take(GroupStep {group, parent.isNull() ? madeRoot() : parent, QDomNode(), std::nullopt, name});
    return group;
}

void SettingsFile::renameGroup(const QDomElement& group, const QString& newName)
{
    take(GroupStep {group, group.parentNode().toElement(), group.nextSibling(), group.tagName(), newName});
}

void SettingsFile::removeGroup(const QDomElement& group)
{
    take(GroupStep {group, group.parentNode().toElement(), group.nextSibling(), group.tagName(), std::nullopt});
}

void SettingsFile::take(const TreeStep& step)
{
    apply(TreeChange {step});
    taken += step;
}

TreeChange SettingsFile::takeChange()
{
    return std::exchange(taken, TreeChange());
}

void SettingsFile::apply(const TreeChange& change)
{
    for (const TreeStep& step : change)
        std::visit([this](const auto& its) { apply(its); }, step);
}

void SettingsFile::apply(const SettingStep& step)
{
    if (step.before)
        Config::removeSetting(step.group, step.before->name);
    if (step.after)
        insertSetting(step.group, step.place, step.after->name, step.after->value);
}

void SettingsFile::apply(const GroupStep& step)
{
    QDomElement group = step.group;
    QDomElement parent = step.parent;
    if (!step.after) {
        parent.removeChild(group);
        return;
    }
    group.setTagName(*step.after);
    if (!step.before && step.next.isNull())
        parent.appendChild(group);
    else if (!step.before)
        parent.insertBefore(group, step.next);
}

QStringList SettingsFile::content() const
{
    QStringList texts;
    addContent(rootElement(), texts);
    return texts.mid(1); // the root element is named after the file
}

/// Each text begins with what it is, but for the value that follows a name.
void SettingsFile::addContent(const QDomElement& group, QStringList& texts) const
{
    const int before = texts.size();
    texts += "{"_L1 + group.tagName();
    for (const QString& name : settingNames(group))
        texts << "="_L1 + name << group.attribute(name);
    for (const QDomElement& below : groupsIn(group))
        addContent(below, texts);
    if (texts.size() == before + 1)
        texts.removeLast(); // nothing is in it
    else
        texts += QStringLiteral("}");
}

} // namespace settings
