#ifndef ZELMORA_SETTINGS_SETTINGROWS_H
#define ZELMORA_SETTINGS_SETTINGROWS_H

#include "settings/remedies.h"
#include "settings/treefindings.h"
#include "vocabulary/settings.h"

#include <QHash>
#include <QVector>

#include <optional>

namespace settings {

class EditedSettings;

/// Something to know, with what would put it right.
struct Note {
    check::Severity severity;
    QString text; ///< translated
    std::optional<Remedy> remedy;
};

/// How many notes there are in one place; the rest is counted. A file may hold a setting, or a group, any number of
/// times.
const int mostNotes = 3;

/// A setting that a program reads in a group, as a person changes it.
struct SettingRow {
    QString key; ///< whole: "zelmora.receiptdoc.paperWidth"
    const vocabulary::Setting* setting;
    std::optional<QString> written; ///< what the tree has; nothing when it has no such setting
    std::optional<QString> stored; ///< what the file had when it was last read or written
    QVector<Note> notes; ///< what there is to know about it: at most mostNotes
    int furtherNotes = 0; ///< how many there are beside those

    /// To the programs an empty value is none.
    bool isAbsent() const { return !written || written->isEmpty(); }
    bool isChanged() const { return written != stored; }
    /// Whether a field of the setting's kind can show the value: a check box "true", a number field 32. Else it is a
    /// text, whatever the kind.
    bool fitsItsField() const { return isAbsent() || vocabulary::takes(*setting, *written); }
};

/// A group of settings, and what is to be known about it that is about no row.
struct GroupRows {
    QVector<SettingRow> rows; ///< in the order of the vocabulary
    QVector<Note> notes; ///< at most mostNotes
    int furtherNotes = 0; ///< how many there are beside those
};

/// All groups, in the order in which a person looks for them: documents, then the rest.
QVector<const vocabulary::SettingGroup*> groupsInOrder();

/// What @p settings has for @p group: the settings that a program reads there, and those of its table that nobody reads
/// but that are there.
GroupRows rowsOf(const EditedSettings& settings, const vocabulary::SettingGroup& group);
/// The rows of that without their notes, for which nothing has to be checked.
QVector<SettingRow> plainRowsOf(const EditedSettings& settings, const vocabulary::SettingGroup& group);

/// The worst of what there is to know about each group that a program reads, by its name; nothing for those of which
/// there is nothing to say.
QHash<QString, check::Severity> worstOf(const EditedSettings& settings);

/// What is wrong in none of the groups that a program reads: with what stands in the tree beside them, then with the
/// text of the file, after the number of its line.
QVector<Note> notesBesideGroups(const EditedSettings& settings);

/// What @p file has for all settings of all groups that a program reads, by their whole keys.
QHash<QString, std::optional<QString>> writtenValues(const SettingsFile& file);

} // namespace settings

#endif
