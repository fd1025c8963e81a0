#ifndef ZELMORA_SETTINGS_SETTINGSFILE_H
#define ZELMORA_SETTINGS_SETTINGSFILE_H

#include "check/finding.h"
#include "config/config.h"
#include "settings/filereview.h"
#include "settings/treechange.h"

#include <QPair>
#include <QSet>
#include <QVector>

namespace settings {

/// A settings file that is changed and saved without a loss that nobody heard of: it says beforehand what the format,
/// or the writer, would lose.
///
/// Where a list holds settings, each is a text "key = value". Of a name longer than 100 characters these and "..."
/// stand there; of a key that is longer than 1000, the groups at its end, after "...".
class SettingsFile : public libconfig::Config {
public:
    /// Reads @p bytes of the file @p path. Empty when that succeeded, else the reason. What is no file, such as a pipe,
    /// is not opened.
    static QString read(const QString& path, QByteArray& bytes);

    /// Reads the file @p path: XML where its name ends in ".xml", the brace format otherwise. Empty when that
    /// succeeded; else the reason, and nothing has changed.
    QString load(const QString& path);

    /// Begins with an empty file, which is to be saved as @p path; nothing is there yet, or nothing that counts.
    void beginAt(const QString& path);

    /// Whether it began as an empty file, and was not saved yet.
    bool isNew() const { return isUnwritten; }

    /// Whether there is nothing under the name @p path, and no reason but that why it could not be loaded. Of a link,
    /// nothing where it leads.
    static bool isMissing(const QString& path);

    QString path() const { return filePath; } ///< as given; empty when nothing was loaded
    QString format() const; ///< by the name: "cfg" or "xml"
    const QByteArray& bytes() const { return contents; } ///< of the file, as it was loaded or saved

    /// What the programs take for the value of @p key: that of the look-up, in its 8-bit form.
    QString value(const QString& key) const;

    /// Whether a look-up would find a setting @p key if it were there. Not in a key without a group or with an empty
    /// name, in a group beside the first one, deeper than the reader goes.
    bool reaches(const QString& key) const;

    /// Gives the setting @p key, such as "zelmora.receiptdoc.paperWidth", the value @p newValue: where a look-up finds
    /// it, or where one would. Groups that are missing are made; nothing else in the tree changes. False when nothing
    /// had to change, or when no look-up reaches it. Whether the format can hold it, a trial tells.
    bool set(const QString& key, const QString& newValue);

    /// Takes the setting @p key out of all groups in which a look-up seeks it. False when it is in none.
    bool unset(const QString& key);

    /// Whether a group in which a look-up seeks the setting @p key has it, be it empty.
    bool holds(const QString& key) const;

    /// The settings of a group, in their order.
    struct GroupSettings {
        QDomElement group;
        QVector<NamedValue> settings;
    };
    /// Those of each of the groupsOf() @p key.
    QVector<GroupSettings> settingsIn(const QString& key) const;
    /// Gives the setting @p key the values and the places that it had when settingsIn() its group was @p former, of
    /// this tree or of one with the same groups.
    void putBack(const QString& key, const QVector<GroupSettings>& former);

    // The tree, whatever stands in it (filetree.cpp). A group is the element that the tree has for it; the root element
    // stands for the file, and what stands in it is outside every group.

    /// Null when there is nothing.
    QDomElement root() const { return rootElement(); }
    /// The settings of @p group in their order; their values are its attributes.
    using Config::settingNames;
    /// The groups in @p group, in their order.
    static QVector<QDomElement> groupsIn(const QDomElement& group);
    /// Where @p name stands among the settings of @p group; -1 when it is none.
    int placeOf(const QDomElement& group, const QString& name) const { return settingNames(group).indexOf(name); }
    /// The groups that a look-up goes through for a setting in the group @p key, "zelmora.receiptdoc", in its order.
    QVector<QDomElement> groupsOf(const QString& key) const { return groupsOf(key.split(QLatin1Char('.'))); }
    /// What the key of @p group would be: "zelmora.receiptdoc". Empty for the root element.
    static QString keyOf(const QDomElement& group);

    // Each takes what is there for granted, and the names that namereason.h has nothing against.
    void setValue(const QDomElement& group, const QString& name, const QString& value);
    void addSetting(const QDomElement& group, const QString& name, const QString& value);
    void renameSetting(const QDomElement& group, const QString& name, const QString& newName);
    void removeSetting(const QDomElement& group, const QString& name);
    /// The last in @p parent; when that is null, the last at top level.
    QDomElement addGroup(const QDomElement& parent, const QString& name);
    void renameGroup(const QDomElement& group, const QString& newName);
    void removeGroup(const QDomElement& group);

    /// What was done to the tree since it was read, or since this was last asked.
    TreeChange takeChange();
    /// Does what was done, or taken back, once more. takeChange() does not tell of it.
    void apply(const TreeChange& change);

    /// All groups with a setting in them, however deep, and all settings, as a list of texts: equal for files that hold
    /// the same.
    QStringList content() const;
    /// Whether no setting stands in the tree.
    bool isEmpty() const;

    /// What load() found in the file's bytes.
    const FileReview& review() const { return fileReview; }
    /// What of that is lost when the tree is written: all that the review has, but for a group that held nothing and
    /// holds something now.
    QVector<FileRemark> losses() const;
    /// The names of what is lost beside that: top-level groups that the file does not have any more, since saving
    /// dropped them, but that are back in the tree.
    QStringList unwrittenGroups() const;
    /// What there is to know about them, in their order: check::checkSettings().
    check::Findings findings() const;

    /// Whether it is one at all, as looksLikeSettings() has it: any other text is not to be written over.
    bool looksLikeSettings() const;

    struct Trial {
        QByteArray bytes; ///< what would be written
        QString reason; ///< why nothing would be written; empty when it would
        QStringList changed; ///< the settings that read back otherwise, or not at all
        QStringList notXml; ///< what keeps the whole file from being read: settings, and names of groups
    };

    /// Whether the programs would find that value in a file named @p path: with a sign in it that the form of the file
    /// lacks, or above U+00FF, they find another, or nothing.
    static bool canHold(const QString& path, const QString& key, const QString& value);

    /// What would be read back from a file named @p path, which itself is not touched.
    Trial tryWriting(const QString& path) const;

    /// Once a file is loaded: whether that on disk is no longer what load() or save() left there. Of a new one: whether
    /// there is something now.
    bool changedOnDisk() const;

    /// Keeps what the file @p path holds now as settings::keepBackup() does; nothing where there is no such file. Empty
    /// when that succeeded, else the system's reason.
    static QString keepBackup(const QString& path);

    /// What the programs take for the value of @p key in a file named @p path that holds what @p trial does.
    static QString valueIn(const Trial& trial, const QString& path, const QString& key);

    /// Makes the folder for the file @p path, and those around it, where they are missing. Empty when it is there
    /// then, else the reason, with the folder's name.
    static QString makeFolderOf(const QString& path);

    /// Makes the file @p path of what @p trial holds, which tryWriting() of @p path gave: as toolkit::createFile() does
    /// it, with what the file @p like has. Empty when that succeeded, else the reason: something has the name already,
    /// for one.
    static QString create(const QString& path, const Trial& trial, const QString& like = QString());

    /// Writes what @p trial holds, which tryWriting() of @p path gave, to the file @p path, another one than path()
    /// too. Empty when that succeeded; else the reason: that of the trial, or one of toolkit::replaceFile(), which says
    /// what becomes of the file then. Nothing is written to what is there but is no file, such as a pipe.
    QString save(const QString& path, const Trial& trial);

    /// Once @p trial is written to the file @p path without a loss: that is the file from here on, and this its tree.
    void moveTo(const QString& path, const Trial& trial);

    /// Once a file was written with a loss, and read as @p written: that is the file from here on, and what it holds is
    /// the tree. A change of the tree where it held something else.
    void becomeAs(const SettingsFile& written);

private:
    struct Group {
        QDomElement element;
        int parent; ///< where the group around is in the same list; -1 when there is none
    };
    using Setting = QPair<QPair<int, QString>, QString>; ///< the group's number, name; value
    class GroupNumbers;

    QVector<QDomElement> groupsOf(const QStringList& names) const;
    QVector<QDomElement> holdersOf(const QStringList& names, const QString& name) const;
    QDomElement madeGroup(const QStringList& names);
    void put(const QDomElement& group, const QString& name, const QString& value);
    void putBack(const QDomElement& group, const QString& name, const QVector<NamedValue>& former);
    void take(const TreeStep& step);
    void apply(const SettingStep& step);
    void apply(const GroupStep& step);
    void apply(const WholeTreeStep& step) { takeTree(step.after); }
    void addContent(const QDomElement& group, QStringList& texts) const;
    static void addGroups(const QDomElement& group, int parent, QVector<Group>& groups);
    QVector<Group> writtenGroups() const;
    QSet<Setting> writtenSettings(GroupNumbers& numbers) const;
    QStringList settingsMissingIn(const SettingsFile& other) const;
    static QString keyOf(const QVector<Group>& groups, int place);
    static QString asText(const QVector<Group>& groups, int place, const QString& name);
    QStringList brokenXml() const;

    QString filePath;
    QByteArray contents; ///< of the file, as it was loaded or saved
    FileReview fileReview;
    bool isUnwritten = false; ///< it began with beginAt()
    TreeChange taken; ///< what takeChange() tells
};

} // namespace settings

#endif
