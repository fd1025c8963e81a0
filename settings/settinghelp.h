#ifndef ZELMORA_SETTINGS_SETTINGHELP_H
#define ZELMORA_SETTINGS_SETTINGHELP_H

#include "vocabulary/settings.h"

class QDomElement;

namespace settings {

class SettingsFile;

/// What its absence means: "32", "the labels are English". Translated.
QString absenceText(const vocabulary::Setting& setting);

/// What a group is for, and its name in the file. Translated.
QString groupText(const vocabulary::SettingGroup& group);

/// The one that @p element of @p file is; null where no program reads it.
const vocabulary::SettingGroup* groupReadAs(const SettingsFile& file, const QDomElement& element);
/// The one of that name in it; null where there is no @p group, and where no program reads it there.
const vocabulary::Setting* settingReadAs(const vocabulary::SettingGroup* group, const QString& name);

/// Help on @p group, in lines for a person; @p documents: the titles of those that are printed with it. Translated.
QString helpOn(const vocabulary::SettingGroup& group, const QStringList& documents);

/// Help on the file as a whole. Translated.
QString helpOnFile();

/// Help on the setting or the group @p key of a file, which no program reads. Translated.
QString helpOnUnread(const QString& key);

/// All that there is to say about @p setting in @p group, in lines for a person: its key, what it does, what it takes,
/// what holds without it, which documents depend on it: @p documents are their titles. Translated.
QString helpOn(const vocabulary::SettingGroup& group, const vocabulary::Setting& setting, const QStringList& documents);

} // namespace settings

#endif
