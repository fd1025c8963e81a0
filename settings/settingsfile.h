#ifndef ZELMORA_SETTINGS_SETTINGSFILE_H
#define ZELMORA_SETTINGS_SETTINGSFILE_H

#include "config/config.h"
#include "settings/filereview.h"

#include <QVector>

namespace settings {

/// A settings file that is changed and saved without a loss that nobody heard of: it says beforehand what the format,
/// or the writer, would lose.
///
/// Where a list holds settings, each is a text "key = value".
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
        QString reason; ///< why nothing would be written; empty when it would
        QStringList changed; ///< the settings that read back otherwise, or not at all
        QStringList notXml; ///< what keeps the whole file from being read: settings, and names of groups
    };

    /// What would be read back from a file named @p path, which itself is not touched.
    Trial tryWriting(const QString& path) const;

    /// Whether the file on disk is no longer what load() or save() left there.
    bool changedOnDisk() const;

    /// Keeps what the file @p path holds now as settings::keepBackup() does; nothing where there is no such file. Empty
    /// when that succeeded, else the system's reason.
    static QString keepBackup(const QString& path);

    /// Writes the tree to the file @p path, another one than path() too. Empty when that succeeded; else the system's
    /// reason, and no file has changed.
    QString save(const QString& path);

private:
    struct Group {
        QDomElement element;
        QString key; ///< what the keys of its settings begin with
    };

    static void addGroups(const QDomElement& group, const QString& parentKey, QVector<Group>& groups);
    QVector<Group> writtenGroups() const;
    static QString asText(const Group& group, const QString& name);
    QStringList settingsOf(const Group& group) const;
    QStringList writtenSettings() const;
    QStringList brokenXml() const;

    QString filePath;
    QByteArray contents; ///< of the file, as it was loaded or saved
    FileReview fileReview;
};

} // namespace settings

#endif
