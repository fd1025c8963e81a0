#ifndef ZELMORA_SETTINGS_SETTINGSLIST_H
#define ZELMORA_SETTINGS_SETTINGSLIST_H

#include "check/placedsettings.h"
#include "vocabulary/settings.h"

#include <QByteArray>
#include <QVector>

namespace settings {

/// A setting that some program reads, and what holds for it.
struct ListedSetting {
    QString key; ///< whole: "zelmora.receiptdoc.paperWidth"
    const vocabulary::Setting* setting;
    QString value; ///< what the programs take, in its 8-bit form; empty when it is absent
    QString written; ///< what the file says, in its 8-bit form
    toolkit::TextPlace place; ///< in the file, when it is not absent

    bool isAbsent() const { return written.isEmpty(); }
};

using SettingsList = QVector<ListedSetting>;

/// The settings that programs read from @p group, in the order of its table, each with the value that the file has.
SettingsList settingsOf(const vocabulary::SettingGroup& group, const check::PlacedSettings& file);
/// The settings that a document of @p method depends on, each with the value that the print program makes of the
/// file's.
SettingsList settingsFor(const vocabulary::Method& method, const check::PlacedSettings& file);

/// How a list is shown.
struct ListForm {
    QString file; ///< its name
    bool showsSecrets = false; ///< else their values are "***"
};

/// Lines in columns: key; value, or what its absence means; where it comes from, "FILE:LINE" or "default"; and the
/// file's own text where the value is another. As the system knows the file's name, all else in the locale's encoding.
QByteArray asTable(const SettingsList& list, const ListForm& form);
/// Writes an array to standard output as check::JsonArray does, with these in each object: key, value (null when
/// absent), default (null where no value of its own stands for its absence), source ("file" or "default"), file and
/// line (null for a default).
void writeJson(const SettingsList& list, const ListForm& form);

} // namespace settings

#endif
