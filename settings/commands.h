#ifndef ZELMORA_SETTINGS_COMMANDS_H
#define ZELMORA_SETTINGS_COMMANDS_H

#include "settings/commandline.h"

#include <QStringList>

/// What `zelmora-config` does. Answers go to standard output; what is refused, and why, to standard error.
namespace settings {

// Of files that stay as they are (readingcommands.cpp).

Status checkFile(const Call& call);
Status listSettings(const Call& call);
Status showEffectiveSettings(const Call& call);
Status getValue(const Call& call);

// Of files that are written (writingcommands.cpp).

Status setValue(const Call& call);
Status unsetValue(const Call& call);
Status makeFile(const Call& call);
Status convertFile(const Call& call);

/// The path of the settings file that @p call is about.
QString pathOf(const Call& call);

/// The keys that some program reads.
QStringList readKeys();
/// That @p key is not set; of one that no program reads, with the nearest one.
QString notSet(const QString& key);

/// Writes @p text and a line end to standard error.
void say(const QString& text);
/// The same with a reason, and gives @p status back.
Status complain(Status status, const QString& reason);

} // namespace settings

#endif
