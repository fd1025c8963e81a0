#include "config/config.h"

#include "config/attributeorder.h"
#include "config/settingsgroup.h"
#include "toolkit/literals.h"

#include <QBuffer>
#include <QVector>

#include <algorithm>

using toolkit::operator""_L1;

namespace libconfig {

namespace {

ConfigTree emptyTree()
{
    // A document made without a name would be a null node.
    return {std::make_shared<QDomDocument>(QString()), std::make_shared<AttributeOrder>()};
}

// What a look-up asks of a group, which is one of the file or one of the tree.

const QString& nameOf(const SettingsGroup& group)
{
    return group.name;
}

QString nameOf(const QDomElement& group)
{
    return group.tagName();
}

QString valueIn(const SettingsGroup& group, QStringView name)
{
    const auto hasName = [name](const SettingsGroup::Setting& setting) { return setting.name == name; };
    const auto found = std::find_if(group.settings.rbegin(), group.settings.rend(), hasName);
    return found == group.settings.rend() ? QString() : found->value();
}

QString valueIn(const QDomElement& group, QStringView name)
{
    return group.attribute(name.toString());
}

const std::vector<SettingsGroup>& groupsIn(const SettingsGroup& group)
{
    return group.groups;
}

QVector<QDomElement> groupsIn(const QDomElement& group)
{
    QVector<QDomElement> groups;
    for (QDomElement below = group.firstChildElement(); !below.isNull(); below = below.nextSiblingElement())
        groups += below;
    return groups;
}

template <class Group>
QString lookUp(const Group& group, QStringView key)
{
    const auto firstDot = key.indexOf(QLatin1Char('.'));
    if (firstDot < 0 || nameOf(group) != key.left(firstDot))
        return QString();

    const QStringView rest = key.mid(firstDot + 1);
    const auto secondDot = rest.indexOf(QLatin1Char('.'));
    if (secondDot < 0)
        return valueIn(group, rest);
    const bool endsHere = secondDot + 1 == rest.size() || rest.at(secondDot + 1) == QLatin1Char('.');
    if (endsHere)
        return valueIn(group, rest.left(secondDot));

    for (const Group& below : groupsIn(group)) {
        const QString value = lookUp(below, rest);
        if (!value.isEmpty())
            return value;
    }
    return QString();
}

} // namespace

Config::Config()
    : settings(std::make_unique<SettingsGroup>())
{
}

Config::Config(const QString& file, const QString& format)
    : Config()
{
    constructor(file, format);
}

Config::~Config() = default;

void Config::readFile(const QString& file, const QString& format)
{
    constructor(file, format);
}

void Config::constructor(const QString& file, const QString& format)
{
    begin(file, format);
    if (format == "cfg"_L1)
        loadFile();
    else if (format == "xml"_L1)
        loadXmlFile();
}

void Config::readBytes(const QByteArray& bytes, const QString& name, const QString& fileFormat)
{
    begin(name, fileFormat);
    if (format == "cfg"_L1) {
        stream = BraceScanner::over(bytes);
        readTopLevel();
        closeFile();
    } else if (format == "xml"_L1) {
        QBuffer device;
        device.setData(bytes);
        readXml(device);
    }
}

/// An empty tree for @p file, whatever was loaded before.
void Config::begin(const QString& file, const QString& fileFormat)
{
    fileName = file;
    format = fileFormat;
    closeFile();
    settings = std::make_unique<SettingsGroup>();
    texts.reset();
    isTreeMade = false;
    tree = {};
}

void Config::newDocument()
{
    tree = emptyTree();
    isTreeMade = true;
}

const ConfigTree& Config::wholeTree() const
{
    if (!isTreeMade)
        makeTree();
    return tree;
}

void Config::makeTree() const
{
    const std::lock_guard<std::mutex> lock(treeMaking);
    if (isTreeMade)
        return;
    tree = emptyTree();
    addGroup(*settings, *tree.document, tree);
    isTreeMade = true;
}

void Config::addGroup(const SettingsGroup& group, QDomNode parent, const ConfigTree& tree)
{
    if (!group.holdsAnything)
        return;
    const QDomElement element = newElement(*tree.document, group.name);
    parent.appendChild(element);
    QStringList names;
    for (const SettingsGroup::Setting& setting : group.settings)
        setSetting(element, names, setting.name.text(), setting.value());
    tree.order->set(element, names);
    for (const SettingsGroup& below : group.groups)
        addGroup(below, element, tree);
}

/// An element for the tree @p owner. createElement() refuses the empty name, which the brace format allows.
QDomElement Config::newElement(QDomDocument& owner, const QString& name)
{
    QDomElement element = owner.createElement(QStringLiteral("group"));
    element.setTagName(name);
    return element;
}

void Config::setSetting(QDomElement group, QStringList& names, const QString& name, const QString& value)
{
    if (!group.hasAttribute(name))
        names += name;
    group.setAttribute(name, value);
}

QStringList Config::settingNames(const QDomElement& group) const
{
    return wholeTree().order->names(group);
}

void Config::setSettingNames(const QDomElement& group, const QStringList& names)
{
    wholeTree().order->set(group, names);
}

QDomElement Config::madeRoot()
{
    if (rootElement().isNull())
        tree.document->appendChild(newGroup(fileName));
    return rootElement();
}

QDomElement Config::newGroup(const QString& name)
{
    return newElement(*wholeTree().document, name);
}

void Config::insertSetting(QDomElement group, int place, const QString& name, const QString& value)
{
    QStringList names = settingNames(group);
    names.insert(place, name);
    group.setAttribute(name, value);
    setSettingNames(group, names);
}

void Config::removeSetting(QDomElement group, const QString& name)
{
    QStringList names = settingNames(group);
    names.removeOne(name);
    group.removeAttribute(name);
    setSettingNames(group, names);
}

void Config::takeTree(const ConfigTree& other)
{
    tree = other;
    isTreeMade = true;
    setFileName(fileName);
}

void Config::setFileName(const QString& file)
{
    fileName = file;
    if (!rootElement().isNull())
        rootElement().setTagName(fileName);
}

QDomElement Config::rootElement() const
{
    return wholeTree().document->documentElement();
}

QString Config::lookup(const QString& key) const
{
    if (isTreeMade)
        return lookup(rootElement().firstChild(), key);
    return settings->groups.empty() ? QString() : lookUp(settings->groups.front(), key);
}

QString Config::lookup(QDomNode node, const QString& key) const
{
    const QDomElement element = node.toElement();
    return element.isNull() ? QString() : lookUp(element, key);
}

} // namespace libconfig
