// The tree of settings as a list to edit, and back. A setting is two levels of the list: its name, and below it its
// value, which alone can be edited.

#include "config/zmconfiguration.h"

#include <QTreeWidget>

namespace {

/// The type of our items of groups. A group that holds nothing could be taken for a value otherwise.
const int groupItem = QTreeWidgetItem::UserType;

QTreeWidgetItem* newItem(const QString& text, int type = QTreeWidgetItem::Type)
{
    return new QTreeWidgetItem(QStringList {text}, type);
}

QTreeWidgetItem* newSettingItem(const QString& name, const QString& value)
{
    QTreeWidgetItem* const setting = newItem(name);
    QTreeWidgetItem* const valueItem = newItem(value);
    valueItem->setFlags(valueItem->flags() | Qt::ItemIsEditable);
    setting->addChild(valueItem);
    return setting;
}

bool isSetting(const QTreeWidgetItem& item)
{
    return item.childCount() > 0 && item.child(0)->childCount() == 0 && item.child(0)->type() != groupItem;
}

} // namespace

QTreeWidget* ZMConfiguration::newConfigListView() const
{
    return Config::newConfigListView();
}

namespace libconfig {

QTreeWidget* Config::newConfigListView() const
{
    return buildConfigListView();
}

QTreeWidget* Config::buildConfigListView() const
{
    auto* const list = new QTreeWidget;
    list->setHeaderLabel(QStringLiteral("ConfigurationFile"));
    buildConfigListView(rootElement(), list);
    return list;
}

void Config::buildConfigListView(QDomNode node, QTreeWidget* list) const
{
    buildConfigListView(node, list->invisibleRootItem());
}

void Config::buildConfigListView(QDomNode node, QTreeWidgetItem* parent) const
{
    const QDomElement group = node.toElement();
    if (group.isNull())
        return;
    QTreeWidgetItem* const item = newItem(group.tagName(), groupItem);
    for (const QString& name : settingNames(group))
        item->addChild(newSettingItem(name, group.attribute(name)));
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        buildConfigListView(child, item);
    parent->addChild(item); // last, so that a list on the screen hears of each group once
}

void Config::loadListView(QTreeWidget* list)
{
    if (!list)
        return;
    rebuildTree(*list);
    writeFile(fileName, format);
}

void Config::rebuildTree(const QTreeWidget& list)
{
    newDocument();
    for (int i = 0; i < list.topLevelItemCount(); ++i)
        loadListView(list.topLevelItem(i), tree.document.get());
}

void Config::loadListView(QTreeWidgetItem* item, QDomDocument* doc)
{
    if (doc->isNull())
        *doc = QDomDocument(QString()); // made without a name it takes no elements
    loadListView(item, QDomNode(*doc));
}

void Config::loadListView(QTreeWidgetItem* item, QDomNode parent)
{
    if (item->childCount() == 0)
        return;
    QDomDocument owner = parent.ownerDocument();
    const QDomElement group = newElement(owner, item->text(0));
    parent.appendChild(group);
    QStringList names;
    for (int i = 0; i < item->childCount(); ++i) {
        QTreeWidgetItem* const child = item->child(i);
        if (isSetting(*child))
            setSetting(group, names, child->text(0), child->child(0)->text(0));
        else
            loadListView(child, group);
    }
    setSettingNames(group, names);
}

} // namespace libconfig
