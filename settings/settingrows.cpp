#include "settings/settingrows.h"

#include "settings/editedsettings.h"
#include "toolkit/literals.h"

#include <QObject>

#include <algorithm>

using check::Code;
using check::Severity;
using toolkit::operator""_L1;
using vocabulary::Setting;
using vocabulary::SettingGroup;

namespace settings {

namespace {

const QString suite = QStringLiteral("zelmora");

QString keyOfGroup(const SettingGroup& group)
{
    return suite + QLatin1Char('.') + group.name;
}

/// What the first of @p groups that has a value for @p name has; an empty text where they have it without one.
std::optional<QString> writtenIn(const QVector<QDomElement>& groups, const QString& name)
{
    std::optional<QString> found;
    for (const QDomElement& group : groups) {
        if (group.hasAttribute(name) && (!found || found->isEmpty()))
            found = group.attribute(name);
    }
    return found;
}

/// Where that stands.
QDomElement holderIn(const QVector<QDomElement>& groups, const QString& name)
{
    for (const QDomElement& group : groups) {
        if (!group.attribute(name).isEmpty())
            return group;
    }
    return QDomElement();
}

/// The name of the group below "zelmora" that a program reads and that @p finding is about; empty when there is none. A
/// group that nobody reads counts to the one that is meant.
QString groupOf(const TreeFinding& finding, const QDomElement& first)
{
    if (finding.group.parentNode() != first || first.tagName() != suite)
        return QString();
    const QString name = finding.group.tagName();
    if (vocabulary::findGroup(name))
        return name;
    return finding.name.isNull() && finding.finding.code == Code::UnknownGroup ? finding.finding.suggestion : QString();
}

/// Whether a finding of that code is that a value is none of those that its setting takes.
bool saysThatItIsNone(Code code)
{
    return code == Code::NotAFlag || code == Code::NotANumber || code == Code::OutOfRange || code == Code::NotAWord;
}

QDomElement firstGroup(const EditedSettings& settings)
{
    return settings.file().root().firstChild().toElement();
}

Note noteOf(const EditedSettings& settings, const TreeFinding& finding)
{
    return {finding.finding.severity, finding.finding.text, otherName(settings.file(), finding)};
}

/// What is to be known about the settings and the groups of one name.
class GroupNotes {
public:
    GroupNotes(const EditedSettings& settings, const SettingGroup& group)
        : settings(settings)
        , groups(settings.file().groupsOf(keyOfGroup(group)))
    {
        const QDomElement first = firstGroup(settings);
        for (const TreeFinding& finding : settings.findings()) {
            if (groupOf(finding, first) == group.name)
                findings += finding;
        }
    }

    /// Gives @p row those about its setting, be it under another name.
    void giveTo(SettingRow& row)
    {
        for (TreeFinding& finding : findings) {
            if (finding.name.isNull() || !isAbout(finding, row))
                continue;
            if (row.notes.size() < mostNotes)
                row.notes += finding.name == row.setting->key ? noteOnValue(finding, row) : noteOf(settings, finding);
            else
                ++row.furtherNotes;
            finding.name = QString();
            finding.group = QDomElement();
        }
    }

    void addRest(GroupRows& rows) const
    {
        for (const TreeFinding& finding : findings) {
            if (finding.group.isNull())
                continue;
            if (rows.notes.size() < mostNotes)
                rows.notes += noteOf(settings, finding);
            else
                ++rows.furtherNotes;
        }
    }

private:
    /// A slip of its name is about a setting that is not there.
    static bool isAbout(const TreeFinding& finding, const SettingRow& row)
    {
        return finding.name == row.setting->key
            || (!row.written && finding.finding.code == Code::UnknownKey
                && finding.finding.suggestion == row.setting->key);
    }

    Note noteOnValue(const TreeFinding& finding, const SettingRow& row) const
    {
        Note note {finding.finding.severity, finding.finding.text, std::nullopt};
        const QDomElement holder = holderIn(groups, row.setting->key);
        if (!saysThatItIsNone(finding.finding.code) || finding.group != holder)
            return note;
        const QString nearest = nearestValue(*row.setting, *row.written);
        if (!nearest.isEmpty())
            note.remedy = Remedy {Remedy::What::Value, holder, row.setting->key, *row.written, nearest};
        return note;
    }

    const EditedSettings& settings;
    const QVector<QDomElement> groups;
    TreeFindings findings;
};

bool isWorse(Severity one, Severity other)
{
    return static_cast<int>(one) < static_cast<int>(other);
}

} // namespace

QVector<const SettingGroup*> groupsInOrder()
{
    QVector<const SettingGroup*> groups;
    for (const SettingGroup& group : vocabulary::settingGroups())
        groups += &group;
    std::stable_partition(groups.begin(), groups.end(), [](const SettingGroup* group) { return group->isDocument; });
    return groups;
}

QVector<SettingRow> plainRowsOf(const EditedSettings& settings, const SettingGroup& group)
{
    const QVector<QDomElement> groups = settings.file().groupsOf(keyOfGroup(group));
    QVector<SettingRow> rows;
    for (const Setting& setting : group.settings) {
        const QString key = vocabulary::keyOf(group, setting);
        const SettingRow row {key, &setting, writtenIn(groups, setting.key), settings.stored(key), {}, 0};
        if (isRead(group, setting) || row.written || row.stored)
            rows += row;
    }
    return rows;
}

GroupRows rowsOf(const EditedSettings& settings, const SettingGroup& group)
{
    GroupNotes notes(settings, group);
    GroupRows result {plainRowsOf(settings, group), {}};
    for (SettingRow& row : result.rows)
        notes.giveTo(row);
    notes.addRest(result);
    return result;
}

QHash<QString, Severity> worstOf(const EditedSettings& settings)
{
    QHash<QString, Severity> worst;
    const QDomElement first = firstGroup(settings);
    for (const TreeFinding& finding : settings.findings()) {
        const QString name = groupOf(finding, first);
        if (!name.isEmpty() && (!worst.contains(name) || isWorse(finding.finding.severity, worst.value(name))))
            worst.insert(name, finding.finding.severity);
    }
    return worst;
}

QVector<Note> notesBesideGroups(const EditedSettings& settings)
{
    QVector<Note> notes;
    const QDomElement first = firstGroup(settings);
    for (const TreeFinding& finding : settings.findings()) {
        if (finding.finding.severity != Severity::Note && groupOf(finding, first).isEmpty())
            notes += noteOf(settings, finding);
    }
    for (const check::Finding& slip : settings.slips()) {
        const QString text = QObject::tr("line %1: %2").arg(QString::number(slip.place.line), slip.text);
        notes += Note {slip.severity, text, std::nullopt};
    }
    return notes;
}

QHash<QString, std::optional<QString>> writtenValues(const SettingsFile& file)
{
    QHash<QString, std::optional<QString>> values;
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        const QVector<QDomElement> groups = file.groupsOf(keyOfGroup(group));
        for (const Setting& setting : group.settings) {
            if (const auto written = writtenIn(groups, setting.key))
                values.insert(vocabulary::keyOf(group, setting), written);
        }
    }
    return values;
}

} // namespace settings
