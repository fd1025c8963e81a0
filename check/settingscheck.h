#ifndef ZELMORA_CHECK_SETTINGSCHECK_H
#define ZELMORA_CHECK_SETTINGSCHECK_H

#include "check/finding.h"

#include <QByteArray>
#include <QString>

namespace check {

class PlacedSettings;

/// What there is to know about the settings file that holds @p bytes, in the brace format ("cfg") or XML ("xml"), in
/// the order of the file. A finding stands at the name of the setting or the group, or at the text, that it is about.
///
/// The rights of the file @p path are looked at when it holds a password; an empty path is no file. A translation that
/// the settings name is looked for as the programs do it, from the working folder. Takes time and memory in proportion
/// to the bytes.
Findings checkSettings(const QByteArray& bytes, const QString& format, const QString& path);
/// The same of settings that were read, or told, before.
Findings checkSettings(const PlacedSettings& settings, const QString& path);

} // namespace check

#endif
