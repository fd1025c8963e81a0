#ifndef ZELMORA_EDITOR_SETTINGSFILE_H
#define ZELMORA_EDITOR_SETTINGSFILE_H

#include "config/config.h"

#include <QVector>

/// The settings file in the editor. It says beforehand what the format, or the writer, would lose.
///
/// Where a list holds settings, each is a text "key = value".
class SettingsFile : public libconfig::Config {
public:
    /// Reads the file @p path: XML where its name ends in ".xml", the brace format otherwise. Empty when that
    /// succeeded; else the reason, and nothing has changed.
    QString load(const QString& path);

    QString path() const { return filePath; } ///< as given; empty when nothing was loaded

    /// What is in the file and not in the tree as a saved file would have it: remarks, stray words, top-level groups
    /// but the first, earlier values of a repeated setting.
    QStringList losses() const;

    /// The groups and settings that no program finds, because something is part of their names that no key has: a
    /// remark, a blank, a point.
    QStringList unreachableNames() const;

    /// The settings that no program finds, because they stand outside every group.
    QStringList settingsOutside() const;

    /// The settings whose values run on into the next line, with a setting, a group or the end of one: a semicolon is
    /// missing.
    QStringList swallowingSettings() const;

    /// Whether a declaration or a comment stands before the first group of an XML file: then no setting is found.
    bool isHiddenByItsBeginning() const { return hiddenByItsBeginning; }

    /// Takes the tree over from the list that is edited.
    void takeEdits(const QTreeWidget& list);

    struct Trial {
        QString reason; ///< why there was none; empty when there was
        QStringList changed; ///< the settings that read back otherwise, or not at all
        QStringList notXml; ///< what keeps the whole file from being read: settings, and names of groups
    };

    /// What would be read back from a file named @p path, which itself is not touched.
    Trial tryWriting(const QString& path) const;

    /// Whether the file on disk is no longer what load() or save() left there.
    bool changedOnDisk() const;

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
    QStringList droppedTexts;
    bool hiddenByItsBeginning = false;
};

#endif
