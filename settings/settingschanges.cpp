// A setting looked up, changed and taken out in the tree of a file.

#include "settings/settingsfile.h"

#include "config/bracescanner.h"
#include "toolkit/eightbit.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace settings {

namespace {

/// The names of the groups of @p key and, at the end, that of the setting; empty when no look-up could find it.
QStringList namesOf(const QString& key)
{
    const QStringList names = key.split(QLatin1Char('.'));
    const bool isWhole = names.size() > 1 && names.size() <= libconfig::BraceScanner::greatestGroupDepth;
    return isWhole && !names.contains(QString()) ? names : QStringList();
}

/// The groups of one name in @p parent, in the order of the file.
QVector<QDomElement> namesakesIn(const QDomElement& parent, const QString& name)
{
    QVector<QDomElement> found;
    for (QDomElement child = parent.firstChildElement(name); !child.isNull(); child = child.nextSiblingElement(name))
        found += child;
    return found;
}

/// The first place in @p names behind all that are in @p before.
int placeBehind(const QStringList& names, const QSet<QString>& before)
{
    int place = names.size();
    while (place > 0 && !before.contains(names.at(place - 1)))
        --place;
    return place;
}

/// Those of @p group in @p former; none when it is not there.
QVector<NamedValue> settingsOf(const QDomElement& group, const QVector<SettingsFile::GroupSettings>& former)
{
    const auto found = std::find_if(former.begin(), former.end(),
                                    [&](const SettingsFile::GroupSettings& its) { return its.group == group; });
    return found == former.end() ? QVector<NamedValue>() : found->settings;
}

} // namespace

QString SettingsFile::value(const QString& key) const
{
    return toolkit::eightBit(lookup(toolkit::eightBit(key)));
}

/// The groups that a look-up goes through for a setting in the group of these names, in its order.
QVector<QDomElement> SettingsFile::groupsOf(const QStringList& names) const
{
    const QDomElement first = rootElement().firstChild().toElement();
    QVector<QDomElement> groups;
    if (!first.isNull() && first.tagName() == names.value(0))
        groups += first;
    for (const QString& name : names.mid(1)) {
        QVector<QDomElement> inside;
        for (const QDomElement& group : std::as_const(groups))
            inside += namesakesIn(group, name);
        groups = inside;
    }
    return groups;
}

/// The first of the groups of these names; as many as are missing are made, inside the first that there are.
QDomElement SettingsFile::madeGroup(const QStringList& names)
{
    const QVector<QDomElement> groups = groupsOf(names);
    if (!groups.isEmpty())
        return groups.first();
    const QDomElement around = names.size() > 1 ? madeGroup(names.mid(0, names.size() - 1)) : QDomElement();
    return addGroup(around, names.last());
}

bool SettingsFile::reaches(const QString& key) const
{
    const QStringList names = namesOf(key);
    const bool hasNoGroup = rootElement().firstChild().isNull();
    return !names.isEmpty() && (hasNoGroup || !groupsOf({names.first()}).isEmpty());
}

bool SettingsFile::canHold(const QString& path, const QString& key, const QString& value)
{
    SettingsFile file;
    file.beginAt(path);
    file.set(key, value);
    return file.reaches(key) && valueIn(file.tryWriting(path), path, key) == value;
}

bool SettingsFile::set(const QString& key, const QString& newValue)
{
    if (!reaches(key))
        return false;
    QStringList names = namesOf(key);
    const QString name = names.takeLast();
    QVector<QDomElement> holders = holdersOf(names, name);
    if (holders.isEmpty())
        holders += madeGroup(names);
    const auto answers = [&](const QDomElement& group) { return !group.attribute(name).isEmpty(); };
    const auto answering = std::find_if(holders.constBegin(), holders.constEnd(), answers);
    const QDomElement target = answering == holders.constEnd() ? holders.first() : *answering;
    const bool changes = !target.hasAttribute(name) || target.attribute(name) != newValue;
    if (newValue.isEmpty()) // or the next group of the name would answer
        std::for_each(holders.begin(), holders.end(), [&](const QDomElement& group) { put(group, name, newValue); });
    else
        put(target, name, newValue);
    return changes;
}

bool SettingsFile::unset(const QString& key)
{
    QStringList names = namesOf(key);
    if (names.isEmpty())
        return false;
    const QString name = names.takeLast();
    const QVector<QDomElement> holders = holdersOf(names, name);
    for (const QDomElement& group : holders)
        removeSetting(group, name);
    return !holders.isEmpty();
}

bool SettingsFile::holds(const QString& key) const
{
    QStringList names = namesOf(key);
    return !names.isEmpty() && !holdersOf(names.mid(0, names.size() - 1), names.last()).isEmpty();
}

QVector<SettingsFile::GroupSettings> SettingsFile::settingsIn(const QString& key) const
{
    QVector<GroupSettings> found;
    for (const QDomElement& group : groupsOf(key)) {
        GroupSettings its {group, {}};
        for (const QString& name : settingNames(group))
            its.settings += NamedValue {name, group.attribute(name)};
        found += its;
    }
    return found;
}

void SettingsFile::putBack(const QString& key, const QVector<GroupSettings>& former)
{
    QStringList names = namesOf(key);
    if (names.isEmpty())
        return;
    const QString name = names.takeLast();
    const QVector<QDomElement> groups = groupsOf(names);
    const bool areOfThisTree =
        std::any_of(former.begin(), former.end(), [&](const GroupSettings& its) { return groups.contains(its.group); });
    for (int i = 0; i < groups.size(); ++i)
        putBack(groups.at(i), name, areOfThisTree ? settingsOf(groups.at(i), former) : former.value(i).settings);
}

/// What @p group lacks comes behind all that stood before it.
void SettingsFile::putBack(const QDomElement& group, const QString& name, const QVector<NamedValue>& former)
{
    QSet<QString> before;
    auto setting = former.begin();
    for (; setting != former.end() && setting->name != name; ++setting)
        before += setting->name;
    if (setting != former.end() && group.hasAttribute(name))
        put(group, name, setting->value);
    else if (setting != former.end())
        take(SettingStep {group, placeBehind(settingNames(group), before), std::nullopt, *setting});
    else if (group.hasAttribute(name))
        removeSetting(group, name);
}

/// Those of groupsOf(@p names) that have the setting @p name, be it empty.
QVector<QDomElement> SettingsFile::holdersOf(const QStringList& names, const QString& name) const
{
    QVector<QDomElement> groups = groupsOf(names);
    const auto lacksIt = [&](const QDomElement& group) { return !group.hasAttribute(name); };
    groups.erase(std::remove_if(groups.begin(), groups.end(), lacksIt), groups.end());
    return groups;
}

} // namespace settings
