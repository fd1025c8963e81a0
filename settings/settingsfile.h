#ifndef ZELMORA_SETTINGS_SETTINGSFILE_H
#define ZELMORA_SETTINGS_SETTINGSFILE_H

#include "config/config.h"
#include "settings/filereview.h"

#include <QVector>

#include <set>
#include <tuple>

namespace settings {

/// A settings file that is changed and saved without a loss that nobody heard of: it says beforehand what the format,
/// or the writer, would lose.
///
/// Where a list holds settings, each is a text "key = value". Of a name longer than 100 characters these and "..."
/// stand there; of a key that is longer than 1000, the groups at its end, after "...".
class SettingsFile : public libconfig::Config {
public:
    /// Reads the file @p path: XML where its name ends in ".xml", the brace format otherwise. Empty when that
    /// succeeded; else the reason, and nothing has changed.
    QString load(const QString& path);

    QString path() const { return filePath; } ///< as given; empty when nothing was loaded

    /// What load() found in the file's bytes.
    const FileReview& review() const { return fileReview; }

    /// Whether it is one at all, as looksLikeSettings() has it: any other text is not to be written over.
    bool looksLikeSettings() const;

    /// Takes the tree over from the list that is edited. Link Zelmora::configwidgets.
    using Config::rebuildTree;

    struct Trial {
        QByteArray bytes; ///< what would be written
        QString reason; ///< why nothing would be written; empty when it would
        QStringList changed; ///< the settings that read back otherwise, or not at all
        QStringList notXml; ///< what keeps the whole file from being read: settings, and names of groups
    };

    /// What would be read back from a file named @p path, which itself is not touched.
    Trial tryWriting(const QString& path) const;

    /// Once a file is loaded: whether that on disk is no longer what load() or save() left there.
    bool changedOnDisk() const;

    /// Keeps what the file @p path holds now as settings::keepBackup() does; nothing where there is no such file. Empty
    /// when that succeeded, else the system's reason.
    static QString keepBackup(const QString& path);

    /// Writes what @p trial holds, which tryWriting() of @p path gave, to the file @p path, another one than path()
    /// too. Empty when that succeeded; else the reason: that of the trial, or one of toolkit::replaceFile(), which says
    /// what becomes of the file then. Nothing is written to what is there but is no file, such as a pipe.
    QString save(const QString& path, const Trial& trial);

private:
    struct Group {
        QDomElement element;
        int parent; ///< where the group around is in the same list; -1 when there is none
    };
    using Setting = std::tuple<int, QString, QString>; ///< the group's number, name, value
    class GroupNumbers;

    static void addGroups(const QDomElement& group, int parent, QVector<Group>& groups);
    QVector<Group> writtenGroups() const;
    std::set<Setting> writtenSettings(GroupNumbers& numbers) const;
    QStringList settingsMissingIn(const SettingsFile& other) const;
    static QString keyOf(const QVector<Group>& groups, int place);
    static QString asText(const QVector<Group>& groups, int place, const QString& name);
    QStringList brokenXml() const;

    QString filePath;
    QByteArray contents; ///< of the file, as it was loaded or saved
    FileReview fileReview;
};

} // namespace settings

#endif
