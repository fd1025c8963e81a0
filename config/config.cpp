#include "config/config.h"

#include "config/attributeorder.h"
#include "config/bracescanner.h"
#include "toolkit/literals.h"

#include <QBuffer>

using toolkit::operator""_L1;

namespace libconfig {

Config::Config()
    : tree {nullptr, std::make_shared<AttributeOrder>()}
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
    newDocument();
}

void Config::newDocument()
{
    // A document made without a name would be a null node.
    tree = {std::make_shared<QDomDocument>(QString()), std::make_shared<AttributeOrder>()};
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
    return tree.order->names(group);
}

QDomElement Config::madeRoot()
{
    if (rootElement().isNull())
        tree.document->appendChild(newElement(*tree.document, fileName));
    return rootElement();
}

QDomElement Config::newGroup(const QString& name)
{
    return newElement(*tree.document, name);
}

void Config::insertSetting(QDomElement group, int place, const QString& name, const QString& value)
{
    QStringList names = settingNames(group);
    names.insert(place, name);
    group.setAttribute(name, value);
    tree.order->set(group, names);
}

void Config::removeSetting(QDomElement group, const QString& name)
{
    QStringList names = settingNames(group);
    names.removeOne(name);
    group.removeAttribute(name);
    tree.order->set(group, names);
}

void Config::takeTree(const ConfigTree& other)
{
    tree = other;
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
    return tree.document ? tree.document->documentElement() : QDomElement();
}

QString Config::lookup(const QString& key) const
{
    return lookup(rootElement().firstChild(), key);
}

QString Config::lookup(QDomNode node, const QString& key) const
{
    const QDomElement element = node.toElement();
    const int firstDot = key.indexOf(QLatin1Char('.'));
    if (element.isNull() || firstDot < 0 || element.tagName() != QStringView(key).left(firstDot))
        return QString();

    const QString rest = key.mid(firstDot + 1);
    const int secondDot = rest.indexOf(QLatin1Char('.'));
    const bool endsHere = secondDot < 0 || secondDot + 1 == rest.size() || rest.at(secondDot + 1) == QLatin1Char('.');
    if (endsHere)
        return element.attribute(rest.left(secondDot));

    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
        const QString value = lookup(child, rest);
        if (!value.isEmpty())
            return value;
    }
    return QString();
}

} // namespace libconfig
