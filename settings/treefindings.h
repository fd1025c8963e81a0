#ifndef ZELMORA_SETTINGS_TREEFINDINGS_H
#define ZELMORA_SETTINGS_TREEFINDINGS_H

#include "check/finding.h"

#include <QDomElement>
#include <QVector>

namespace settings {

class SettingsFile;

/// Something to know about a setting, or a group, of a tree that is being changed. The place of its finding means
/// nothing: it stands in no file.
struct TreeFinding {
    check::Finding finding;
    QDomElement group;
    QString name; ///< of the setting in the group; null when it is about the group itself
};

using TreeFindings = QVector<TreeFinding>;

/// What there is to know about the tree of @p file as it is now, in its order. Slips in the text that it was read from
/// are no part of it: SettingsFile::findings() has them. Takes time in proportion to the tree.
TreeFindings findingsOf(const SettingsFile& file);

} // namespace settings

#endif
