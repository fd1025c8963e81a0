#ifndef ZELMORA_TESTS_SUPPORT_SETTINGSTREE_H
#define ZELMORA_TESTS_SUPPORT_SETTINGSTREE_H

#include "config/config.h"

#include "support/files.h"

#include <QString>
#include <QStringList>

/// Opens what derived classes may use.
class OpenConfig : public libconfig::Config {
public:
    using Config::Config;

    using Config::closeFile;
    using Config::jump;
    using Config::lookup;
    using Config::openFile;
    using Config::readBytes;
    using Config::rebuildTree;
    using Config::rootElement;
    using Config::settingNames;
    using Config::writeFile;
};

/// The settings of @p group, a line "depth name = value" for each.
inline QStringList settingLines(const OpenConfig& config, const QDomElement& group, int depth)
{
    QStringList lines;
    for (const QString& name : config.settingNames(group))
        lines += QString::number(depth) + ' ' + name + " = " + group.attribute(name);
    return lines;
}

enum class EmptyGroups { Keep, Drop };

/// All below @p node: before its settings and groups, a group has a line "depth name:".
inline QStringList groupLines(const OpenConfig& config, const QDomNode& node, EmptyGroups emptyGroups, int depth = 1)
{
    const QDomElement group = node.toElement();
    if (group.isNull())
        return QStringList();
    QStringList lines = settingLines(config, group, depth + 1);
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        lines += groupLines(config, child, emptyGroups, depth + 1);
    if (lines.isEmpty() && emptyGroups == EmptyGroups::Drop)
        return QStringList();
    return QStringList(QString::number(depth) + ' ' + group.tagName() + ':') + lines;
}

/// The whole tree of @p config but for the name of its root element, which is the file's path.
inline QStringList treeLines(const OpenConfig& config)
{
    return groupLines(config, config.rootElement(), EmptyGroups::Keep, 0).mid(1);
}

/// What of the tree a file can keep: the settings of the root element, its first group, no groups without settings.
inline QStringList lastingLines(const OpenConfig& config)
{
    const QDomElement root = config.rootElement();
    return settingLines(config, root, 1) + groupLines(config, root.firstChild(), EmptyGroups::Drop);
}

#endif
