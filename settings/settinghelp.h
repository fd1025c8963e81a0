#ifndef ZELMORA_SETTINGS_SETTINGHELP_H
#define ZELMORA_SETTINGS_SETTINGHELP_H

#include "vocabulary/settings.h"

namespace settings {

/// What its absence means: "32", "the labels are English". Translated.
QString absenceText(const vocabulary::Setting& setting);

/// All that there is to say about @p setting in @p group, in lines for a person: its key, what it does, what it takes,
/// what holds without it, which documents depend on it. Translated.
QString helpOn(const vocabulary::SettingGroup& group, const vocabulary::Setting& setting);

} // namespace settings

#endif
