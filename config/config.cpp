#include "config/config.h"

#include "toolkit/literals.h"

#include <algorithm>

using toolkit::operator""_L1;

namespace libconfig {

namespace {

/// What two QDomNodes share when they are the same node; it lives as long as the document.
struct NodeIdentity : QDomNode {
    explicit NodeIdentity(const QDomNode& node)
        : QDomNode(node)
    {
    }

    const void* value() const { return impl; }
};

} // namespace

Config::Config(const QString& file, const QString& format)
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
    fileName = file;
    this->format = format;
    newDocument();
    if (format == "cfg"_L1)
        loadFile();
    else if (format == "xml"_L1)
        loadXmlFile();
}

void Config::newDocument()
{
    orderedSettings.clear();
    document = std::make_unique<QDomDocument>(QString()); // made without a name it would be a null node
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
    ++settingCount;
    if (!group.hasAttribute(name))
        names += name;
    else if (dropped)
        *dropped += name + " = "_L1 + group.attribute(name);
    group.setAttribute(name, value);
}

void Config::setOrder(const QDomElement& group, const QStringList& names)
{
    if (!names.isEmpty())
        orderedSettings.insert(NodeIdentity(group).value(), {group, names});
}

/// Takes over the names of the attributes of all elements below @p parent, in the order of the file.
void Config::setOrderBelow(const QDomNode& parent, const QVector<QStringList>& names, int& next)
{
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        setOrder(child, names.value(next++));
        setOrderBelow(child, names, next);
    }
}

QStringList Config::settingNames(const QDomElement& group) const
{
    QStringList names = orderedSettings.value(NodeIdentity(group).value()).names;
    const QDomNamedNodeMap attributes = group.attributes();
    if (names.size() == attributes.size())
        return names;

    names.clear();
    for (int i = 0; i < attributes.size(); ++i)
        names += attributes.item(i).nodeName();
    std::sort(names.begin(), names.end());
    return names;
}

QDomElement Config::rootElement() const
{
    return document ? document->documentElement() : QDomElement();
}

QString Config::lookup(const QString& key) const
{
    return lookup(rootElement().firstChild(), key);
}

QString Config::lookup(QDomNode node, const QString& key) const
{
    const QDomElement element = node.toElement();
    const int firstDot = key.indexOf(QLatin1Char('.'));
    if (element.isNull() || firstDot < 0 || element.tagName() != key.leftRef(firstDot))
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
