#ifndef ZELMORA_SETTINGS_EDITEDSETTINGS_H
#define ZELMORA_SETTINGS_EDITEDSETTINGS_H

#include "settings/history.h"
#include "settings/settingsfile.h"
#include "settings/treefindings.h"

#include <QHash>

#include <functional>
#include <optional>

namespace settings {

struct Remedy;

/// A settings file while somebody changes it: what it held, what it would hold, and every change on the way, to be
/// taken back and done again. All that shows it is told of each change.
class EditedSettings {
public:
    /// Hears what was done to the tree; nothing when another tree has taken its place, or what the file holds has
    /// changed.
    using Listener = std::function<void(const TreeChange& change)>;

    void setListener(const Listener& newListener) { listener = newListener; }

    // The file.

    /// SettingsFile::load(). No change can be taken back any more.
    QString load(const QString& path);
    /// SettingsFile::beginAt(), likewise.
    void beginAt(const QString& path);
    const SettingsFile& file() const { return tree; }
    /// False for a text that does not look like settings: it is to be read only.
    bool isEditable() const { return editable; }
    /// Whether no setting stands in it.
    bool isEmpty() const { return tree.isEmpty(); }

    // Changes of what some program reads, by whole keys. Nothing happens where no look-up reaches.

    /// SettingsFile::set(). What the file has and somebody took out comes back to its place in the file.
    void set(const QString& key, const QString& value);
    /// As it is typed, letter by letter: all together one change. Without a letter a setting that the file has is
    /// empty, and another one is absent.
    void type(const QString& key, const QString& value);
    /// What is typed from here on is another change.
    void endTyping() { history.endTyping(); }
    /// SettingsFile::unset().
    void unset(const QString& key);
    /// Gives the setting what the file has for it: its value, in its place, or none.
    void restore(const QString& key);
    void apply(const Remedy& remedy);
    /// fillWithSettings().
    void fill();

    // Changes of whatever stands in the tree: as SettingsFile has them.

    void setValue(const QDomElement& group, const QString& name, const QString& value);
    void addSetting(const QDomElement& group, const QString& name);
    void addGroup(const QDomElement& parent, const QString& name);
    void renameSetting(const QDomElement& group, const QString& name, const QString& newName);
    void renameGroup(const QDomElement& group, const QString& newName);
    void removeSetting(const QDomElement& group, const QString& name);
    void removeGroup(const QDomElement& group);

    bool canUndo() const { return history.canUndo(); }
    bool canRedo() const { return history.canRedo(); }
    QString undoText() const { return history.undoText(); } ///< what would be taken back, for a menu
    QString redoText() const { return history.redoText(); }
    void undo();
    void redo();

    // What there is to know.

    /// Whether it is another content than that of the file, as far as that is known. A group without settings is none.
    bool isModified() const;
    /// What the file had for @p key when it was last read or written; nothing when it had no such setting.
    std::optional<QString> stored(const QString& key) const { return storedValues.value(key); }
    /// findingsOf() the tree as it is now; worked out when they are asked for.
    const TreeFindings& findings() const;
    /// What is wrong with the text of the file, as it was last read or written, that findings() of its tree had not: a
    /// missing semicolon, a text that is skipped. Each with its place, and no notes.
    const check::Findings& slips() const { return storedSlips; }

    // Saving.

    SettingsFile::Trial tryWriting(const QString& path) const { return tree.tryWriting(path); }
    /// Whether a file with what @p trial holds has all that is here: else it is to be read again when it is saved.
    bool isWhole(const SettingsFile::Trial& trial) const;
    /// SettingsFile::save(), or create() where there is no such file: for the user alone. When it is whole, it is the
    /// file that is edited from here on, and the changes can still be taken back.
    QString save(const QString& path, const SettingsFile::Trial& trial);
    /// To be called once what is not whole is saved as @p path: that is the file that is edited from here on, with what
    /// it holds now. What it does not hold any more is a change, which can be taken back like those before it. Empty
    /// when that succeeded, else the reason why the file cannot be read: then this is the only copy.
    QString readBack(const QString& path);

private:
    void record(const QString& text, const QString& typing = QString());
    void putBack(const QString& key);
    void noteRead();
    void noteStored();
    /// Nobody knows what the file holds: whatever is here counts as another content, until it is saved or read.
    void noteUnstored();
    void forget();
    void tell(const TreeChange& change);

    SettingsFile tree;
    History history;
    Listener listener = [](const TreeChange&) {};
    bool editable = false;
    bool isContentKnown = true; ///< of the file
    QStringList storedContent;
    check::Findings storedSlips;
    QHash<QString, std::optional<QString>> storedValues; ///< of all settings that some program reads
    QHash<QString, QVector<SettingsFile::GroupSettings>> storedGroups; ///< that some program reads, by their keys
    mutable std::optional<TreeFindings> knownFindings; ///< of the tree as it is
    mutable std::optional<bool> knownModified;
};

} // namespace settings

#endif
