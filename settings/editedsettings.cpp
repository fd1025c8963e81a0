#include "settings/editedsettings.h"

#include "settings/newsettings.h"
#include "settings/remedies.h"
#include "settings/settingrows.h"
#include "toolkit/literals.h"

#include <QFileInfo>
#include <QObject>

using check::Severity;
using toolkit::operator""_L1;

namespace settings {

namespace {

/// Those of @p file that are not among @p shown: an equal text stands for one of them.
check::Findings slipsOf(const SettingsFile& file, const TreeFindings& shown)
{
    QHash<QString, int> known;
    for (const TreeFinding& finding : shown)
        ++known[finding.finding.text];
    check::Findings slips;
    for (const check::Finding& finding : file.findings()) {
        if (finding.severity != Severity::Note && --known[finding.text] < 0)
            slips += finding;
    }
    return slips;
}

QString groupKeyOf(const QString& key)
{
    return key.section(QLatin1Char('.'), 0, -2);
}

} // namespace

QString EditedSettings::load(const QString& path)
{
    const QString reason = tree.load(path);
    if (reason.isEmpty())
        noteRead();
    return reason;
}

void EditedSettings::beginAt(const QString& path)
{
    tree.beginAt(path);
    noteRead();
}

void EditedSettings::noteRead()
{
    editable = tree.looksLikeSettings();
    history.clear();
    noteStored();
}

void EditedSettings::noteStored()
{
    isContentKnown = true;
    storedContent = tree.content();
    storedValues = writtenValues(tree);
    storedGroups.clear();
    for (auto key = storedValues.keyBegin(); key != storedValues.keyEnd(); ++key) {
        const QString group = groupKeyOf(*key);
        if (!storedGroups.contains(group))
            storedGroups.insert(group, tree.settingsIn(group));
    }
    history.endTyping();
    forget();
    storedSlips = slipsOf(tree, findings());
    listener({});
}

void EditedSettings::noteUnstored()
{
    isContentKnown = false;
    tell({});
}

void EditedSettings::set(const QString& key, const QString& value)
{
    if (!tree.holds(key))
        putBack(key);
    tree.set(key, value);
    record(key);
}

/// As the file has it.
void EditedSettings::putBack(const QString& key)
{
    tree.putBack(key, storedGroups.value(groupKeyOf(key)));
}

void EditedSettings::type(const QString& key, const QString& value)
{
    if (!tree.holds(key))
        putBack(key);
    if (value.isEmpty() && !stored(key))
        tree.unset(key);
    else
        tree.set(key, value);
    record(key, key);
}

void EditedSettings::unset(const QString& key)
{
    tree.unset(key);
    record(key);
}

void EditedSettings::restore(const QString& key)
{
    putBack(key);
    const std::optional<QString> value = stored(key);
    if (value)
        tree.set(key, *value);
    else
        tree.unset(key);
    record(key);
}

void EditedSettings::apply(const Remedy& remedy)
{
    switch (remedy.what) {
    case Remedy::What::Value:
        tree.setValue(remedy.group, remedy.name, remedy.after);
        break;
    case Remedy::What::SettingName:
        tree.renameSetting(remedy.group, remedy.name, remedy.after);
        break;
    case Remedy::What::GroupName:
        tree.renameGroup(remedy.group, remedy.after);
        break;
    }
    record(remedy.after);
}

void EditedSettings::fill()
{
    fillWithSettings(tree);
    record(QObject::tr("a complete file"));
}

void EditedSettings::setValue(const QDomElement& group, const QString& name, const QString& value)
{
    if (group.attribute(name) != value)
        tree.setValue(group, name, value);
    record(name);
}

void EditedSettings::addSetting(const QDomElement& group, const QString& name)
{
    tree.addSetting(group, name, QString());
    record(name);
}

void EditedSettings::addGroup(const QDomElement& parent, const QString& name)
{
    tree.addGroup(parent, name);
    record(name);
}

void EditedSettings::renameSetting(const QDomElement& group, const QString& name, const QString& newName)
{
    tree.renameSetting(group, name, newName);
    record(newName);
}

void EditedSettings::renameGroup(const QDomElement& group, const QString& newName)
{
    tree.renameGroup(group, newName);
    record(newName);
}

void EditedSettings::removeSetting(const QDomElement& group, const QString& name)
{
    tree.removeSetting(group, name);
    record(name);
}

void EditedSettings::removeGroup(const QDomElement& group)
{
    const QString name = group.tagName();
    tree.removeGroup(group);
    record(name);
}

/// Notes what was done to the tree, if anything was.
void EditedSettings::record(const QString& text, const QString& typing)
{
    const TreeChange change = tree.takeChange();
    if (change.isEmpty())
        return;
    history.add(change, text, typing);
    tell(change);
}

void EditedSettings::undo()
{
    const TreeChange change = history.undo();
    tree.apply(change);
    tell(change);
}

void EditedSettings::redo()
{
    const TreeChange change = history.redo();
    tree.apply(change);
    tell(change);
}

/// What was worked out for another tree, or another file.
void EditedSettings::forget()
{
    knownFindings.reset();
    knownModified.reset();
}

void EditedSettings::tell(const TreeChange& change)
{
    forget();
    listener(change);
}

bool EditedSettings::isModified() const
{
    if (!knownModified)
        knownModified = !isContentKnown || tree.content() != storedContent;
    return *knownModified;
}

const TreeFindings& EditedSettings::findings() const
{
    if (!knownFindings)
        knownFindings = findingsOf(tree);
    return *knownFindings;
}

bool EditedSettings::isWhole(const SettingsFile::Trial& trial) const
{
    return trial.changed.isEmpty() && tree.losses().isEmpty() && tree.unwrittenGroups().isEmpty();
}

QString EditedSettings::save(const QString& path, const SettingsFile::Trial& trial)
{
    const bool isThere = !SettingsFile::isMissing(path) || QFileInfo(path).isSymLink();
    const QString reason = isThere ? tree.save(path, trial) : SettingsFile::create(path, trial);
    if (reason.isEmpty() && isWhole(trial)) {
        tree.moveTo(path, trial);
        noteStored();
    } else if (!reason.isEmpty() && path == tree.path()) {
        noteUnstored();
    }
    return reason;
}

QString EditedSettings::readBack(const QString& path)
{
    SettingsFile written;
    const QString reason = written.load(path);
    if (!reason.isEmpty()) {
        noteUnstored();
        return reason;
    }
    tree.becomeAs(written);
    record(QObject::tr("what saving dropped"));
    noteStored();
    return QString();
}

} // namespace settings
