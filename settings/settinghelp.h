#ifndef ZELMORA_SETTINGS_SETTINGHELP_H
#define ZELMORA_SETTINGS_SETTINGHELP_H

#include "vocabulary/settings.h"

namespace settings {

/// What its absence means: "32", "the labels are English". Translated.
QString absenceText(const vocabulary::Setting& setting);

/// What a group is for, and its name in the file. Translated.
QString groupText(const vocabulary::SettingGroup& group);

/// Help on @p group, in lines for a person; @p documents: the titles of those that are printed with it. Translated.
QString helpOn(const vocabulary::SettingGroup& group, const QStringList& documents);

/// All that there is to say about @p setting in @p group, in lines for a person: its key, what it does, what it takes,
/// what holds without it, which documents depend on it: @p documents are their titles. Translated.
QString helpOn(const vocabulary::SettingGroup& group, const vocabulary::Setting& setting, const QStringList& documents);

} // namespace settings

#endif
