#include "check/settingnames.h"

#include "check/findingtext.h"
#include "check/placedsettings.h"
#include "check/settingssyntax.h"
#include "check/settingvalue.h"
#include "toolkit/nearest.h"
#include "vocabulary/settings.h"

#include <QHash>
#include <QObject>
#include <QSet>

using libconfig::ScannedSetting;
using vocabulary::SettingGroup;

namespace check {

namespace {

const QString suite = QStringLiteral("zelmora");

QStringList groupNames()
{
    QStringList names;
    for (const SettingGroup& group : vocabulary::settingGroups())
        names += group.name;
    return names;
}

QStringList keysOf(const SettingGroup& group)
{
    QStringList names;
    for (const vocabulary::Setting& setting : group.settings)
        names += setting.key;
    return names;
}

/// The groups, joined by commas, in which a program reads @p key.
QString groupsReading(const QString& key)
{
    QStringList names;
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        const vocabulary::Setting* const setting = findSetting(group, key);
        if (setting && isRead(group, *setting))
            names += group.name;
    }
    return names.join(QStringLiteral(", "));
}

/// What there is to say of the names of one settings file.
class NameCheck {
public:
    NameCheck(const PlacedSettings& settings, Findings& findings)
        : settings(settings)
        , first(settings.firstGroup())
        , findings(findings)
    {
    }

    void checkTopLevel(const PlacedGroup& top)
    {
        for (const ScannedSetting& setting : top.settings) {
            if (const std::optional<Remark> remark = remarkIn(setting))
                findings += remarkFound(*remark, setting.place);
            else
                add(Code::OutsideGroup, setting.place,
                    QObject::tr("The setting \"%1\" stands outside every group, where it is never found."),
                    setting.name);
        }
        for (const PlacedGroup& group : top.groups) {
            if (&group == first && group.name != suite)
                checkWrongTopGroup(group);
            else if (group.isEmpty())
                checkEmptyGroup(group);
            else if (&group == first)
                checkSuite(group);
            else
                add(Code::SecondTopGroup, group.place,
                    QObject::tr("Only the first group at the top is read: nothing in \"%1\" is found."), group.name);
        }
    }

private:
    void add(Code code, toolkit::TextPlace place, const QString& text, const QString& name, const QString& nearest = {})
    {
        findings += finding(code, place, withQuestion(text.arg(excerpt(name)), nearest), nearest);
    }

    void checkWrongTopGroup(const PlacedGroup& group)
    {
        const std::optional<Remark> remark = remarkIn(group);
        const QString nearest = remark ? QString() : toolkit::nearest(group.name, {suite});
        add(Code::WrongTopGroup, group.place,
            QObject::tr("The first group is \"%1\" and not \"zelmora\": no program finds a setting in this file."),
            group.name, nearest);
        if (remark)
            findings += remarkFound(*remark, group.place);
    }

    void checkEmptyGroup(const PlacedGroup& group)
    {
        add(Code::EmptyGroup, group.place,
            QObject::tr("The group \"%1\" holds nothing: it is as if it were not there."), group.name);
        for (const PlacedGroup& below : group.groups)
            checkEmptyGroup(below);
    }

    /// The group of all settings: no program reads one that stands in it directly.
    void checkSuite(const PlacedGroup& group)
    {
        for (const ScannedSetting& setting : group.settings) {
            if (const std::optional<Remark> remark = remarkIn(setting))
                findings += remarkFound(*remark, setting.place);
            else
                checkStraySetting(setting);
        }
        checkRepeatedKeys(group);
        QSet<QString> known;
        for (const PlacedGroup& below : group.groups)
            checkGroup(below, known);
    }

    void checkStraySetting(const ScannedSetting& setting)
    {
        const QString groups = groupsReading(setting.name);
        checkLossyName(setting.name, setting.place);
        if (groups.isEmpty())
            add(Code::UnknownKey, setting.place,
                QObject::tr("No program reads a setting \"%1\" here, outside the groups in \"zelmora\"."),
                setting.name);
        else
            findings += finding(Code::UnknownKey, setting.place,
                                QObject::tr("No program reads \"%1\" here: it belongs in one of these groups: %2.")
                                    .arg(setting.name, groups));
    }

    /// @p known are the names of groups before it.
    void checkGroup(const PlacedGroup& group, QSet<QString>& known)
    {
        const SettingGroup* const meaning = vocabulary::findGroup(group.name);
        if (group.isEmpty()) {
            checkEmptyGroup(group);
        } else if (!meaning) {
            checkUnknownGroup(group, groupNames());
        } else {
            if (known.contains(group.name))
                add(Code::RepeatedGroup, group.place,
                    QObject::tr(
                        "The group \"%1\" stands twice: of each setting the first value that is not empty holds."),
                    group.name);
            known += group.name;
            checkKeys(group, *meaning);
        }
    }

    void checkUnknownGroup(const PlacedGroup& group, const QStringList& names)
    {
        if (const std::optional<Remark> remark = remarkIn(group)) {
            findings += remarkFound(*remark, group.place);
            return;
        }
        checkLossyName(group.name, group.place);
        add(Code::UnknownGroup, group.place,
            QObject::tr("No program reads a group \"%1\" here: nothing in it is found."), group.name,
            toolkit::nearest(group.name, names));
    }

    /// The settings of a group that a program reads.
    void checkKeys(const PlacedGroup& group, const SettingGroup& meaning)
    {
        checkRepeatedKeys(group);
        const QStringList names = keysOf(meaning);
        QSet<QString> judged; // of a repeated setting the last one counts
        for (auto setting = group.settings.rbegin(); setting != group.settings.rend(); ++setting) {
            const vocabulary::Setting* const known = findSetting(meaning, setting->name);
            if (!known)
                checkUnknownKey(*setting, names);
            else if (!judged.contains(setting->name) && !isOverrun(*setting))
                checkSettingValue(meaning, *known, *setting, findings);
            if (known)
                judged += setting->name;
        }
        checkGroupsBelow(group);
    }

    /// Such a value says nothing about what was meant.
    bool isOverrun(const ScannedSetting& setting) const { return !settings.isXml() && runsOn(setting); }

    void checkUnknownKey(const ScannedSetting& setting, const QStringList& names)
    {
        if (const std::optional<Remark> remark = remarkIn(setting)) {
            findings += remarkFound(*remark, setting.place);
            return;
        }
        checkLossyName(setting.name, setting.place);
        add(Code::UnknownKey, setting.place, QObject::tr("No program reads a setting \"%1\" here."), setting.name,
            toolkit::nearest(setting.name, names));
    }

    /// No program reads a group in a group of the suite's.
    void checkGroupsBelow(const PlacedGroup& group)
    {
        for (const PlacedGroup& below : group.groups) {
            if (below.isEmpty())
                checkEmptyGroup(below);
            else if (vocabulary::findGroup(below.name))
                findings +=
                    finding(Code::UnknownGroup, below.place,
                            QObject::tr("The group \"%1\" stands inside \"%2\", where it is not found. Is \"};\" "
                                        "missing before it?")
                                .arg(below.name, group.name));
            else
                checkUnknownGroup(below, {});
        }
    }

    void checkRepeatedKeys(const PlacedGroup& group)
    {
        QSet<QString> known;
        for (const ScannedSetting& setting : group.settings) {
            if (known.contains(setting.name))
                add(Code::RepeatedKey, setting.place,
                    QObject::tr("The setting \"%1\" stands twice in its group: this later value holds."), setting.name);
            known += setting.name;
        }
    }

    void checkLossyName(const QString& name, toolkit::TextPlace place)
    {
        if (const std::optional<QString> character = lossyCharacterOf(name))
            findings += lossyFound(*character, place);
    }

    const PlacedSettings& settings;
    const PlacedGroup* first; ///< the one that look-ups see
    Findings& findings;
};

} // namespace

bool isKnownName(const QString& name)
{
    return !name.isEmpty() && (name == suite || vocabulary::findGroup(name) || !groupsReading(name).isEmpty());
}

void checkNames(const PlacedSettings& settings, Findings& findings)
{
    NameCheck(settings, findings).checkTopLevel(settings.topLevel());
}

} // namespace check
