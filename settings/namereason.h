#ifndef ZELMORA_SETTINGS_NAMEREASON_H
#define ZELMORA_SETTINGS_NAMEREASON_H

#include <QDomElement>
#include <QString>

namespace settings {

class SettingsFile;

/// Why no setting of @p group, in the tree of @p file, can have that name, in a sentence; empty when one can. There
/// must be none of it yet, and a look-up must find what a file of that form has under it.
QString whyNoSetting(const SettingsFile& file, const QDomElement& group, const QString& name);

/// The same for a group in @p parent; when that is null, or the root element, at top level, where one group alone is
/// ever read.
QString whyNoGroup(const SettingsFile& file, const QDomElement& parent, const QString& name);
/// The same for a group that there is already, and that is to be renamed.
QString whyNotRenamed(const SettingsFile& file, const QDomElement& group, const QString& name);

} // namespace settings

#endif
