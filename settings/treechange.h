#ifndef ZELMORA_SETTINGS_TREECHANGE_H
#define ZELMORA_SETTINGS_TREECHANGE_H

#include "config/config.h"

#include <QDomElement>
#include <QString>
#include <QVector>

#include <optional>
#include <variant>

namespace settings {

/// A setting as its group holds it.
struct NamedValue {
    QString name;
    QString value;
};

/// A setting that was added, taken out, renamed or given another value.
struct SettingStep {
    QDomElement group; ///< that holds it
    int place; ///< among the settings of the group, before and after
    std::optional<NamedValue> before; ///< nothing: it was not there
    std::optional<NamedValue> after; ///< nothing: it is not there any more
};

/// A group that was added, taken out or renamed.
struct GroupStep {
    QDomElement group;
    QDomElement parent; ///< that holds it
    QDomNode next; ///< what stands behind it in its parent; null: nothing
    std::optional<QString> before; ///< its name; nothing: it was not there
    std::optional<QString> after; ///< its name; nothing: it is not there any more
};

/// Another tree in place of the one that there was.
struct WholeTreeStep {
    libconfig::ConfigTree before;
    libconfig::ConfigTree after;
};

using TreeStep = std::variant<SettingStep, GroupStep, WholeTreeStep>;

/// What one change does to the tree of a settings file, step by step. Each step finds the tree as the one before has
/// left it; so they are taken back from the last to the first.
using TreeChange = QVector<TreeStep>;

/// What takes @p change back.
TreeChange reversed(const TreeChange& change);

} // namespace settings

#endif
