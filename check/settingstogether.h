#ifndef ZELMORA_CHECK_SETTINGSTOGETHER_H
#define ZELMORA_CHECK_SETTINGSTOGETHER_H

#include "check/finding.h"

namespace check {

class PlacedSettings;

/// Adds what several settings say together, as look-ups find them: columns that the paper has no room for, a
/// translation that is not there, a password that the rights of the file @p path give away.
void checkTogether(const PlacedSettings& settings, const QString& path, Findings& findings);

} // namespace check

#endif
