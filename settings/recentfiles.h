#ifndef ZELMORA_SETTINGS_RECENTFILES_H
#define ZELMORA_SETTINGS_RECENTFILES_H

#include <QStringList>

namespace settings {

/// @p files, those that were opened last, the last one first, when now @p path is opened: once, and not too many.
QStringList withRecent(const QStringList& files, const QString& path);

/// Those of @p files that are there, but for @p path, which is open.
QStringList recentOnes(const QStringList& files, const QString& path);

} // namespace settings

#endif
