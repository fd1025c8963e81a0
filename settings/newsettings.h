#ifndef ZELMORA_SETTINGS_NEWSETTINGS_H
#define ZELMORA_SETTINGS_NEWSETTINGS_H

namespace settings {

class SettingsFile;

/// Gives @p file, which is empty, every setting that a program reads: what its absence means, and in the documents,
/// where a setting acts, columns that share the register's paper and the lines that most sites want. So its owner has
/// values to change, and no names to look for.
void fillWithSettings(SettingsFile& file);

} // namespace settings

#endif
