#ifndef ZELMORA_SETTINGS_SHOWNLOSS_H
#define ZELMORA_SETTINGS_SHOWNLOSS_H

#include <QString>
#include <QStringList>

namespace settings {

class SettingsFile;

/// What a file that is written from @p file would lack: each in one line of text, after the number of its line, or
/// lines, if it stands in the file. What is long is cut, and a secret is "***".
QStringList shownLosses(const SettingsFile& file);

/// @p texts, "key = value" each, likewise.
QStringList shownSettings(const QStringList& texts, const SettingsFile& file);

} // namespace settings

#endif
