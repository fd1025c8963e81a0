#ifndef ZELMORA_SETTINGS_LIKENESS_H
#define ZELMORA_SETTINGS_LIKENESS_H

#include <QStringList>

namespace settings {

/// Whether a file looks like the suite's settings, from the names of its groups at top level as the reader gives them.
/// By the grammar almost any text holds a "setting", a letter or a program too, and saving would leave nothing else of
/// it.
///
/// One name is enough that is "zelmora", ends in it (a remark before a name becomes part of the name), or is a slip of
/// it: at most two characters are missing, too many or others. Upper case is another character, as it is in the
/// look-up. A file that @p isBlank, empty or nothing but white space, has nothing to lose and looks like settings too.
///
/// The time is bounded for each name, whatever its length.
bool looksLikeSettings(const QStringList& topLevelGroups, bool isBlank);

} // namespace settings

#endif
