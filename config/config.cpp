#include "config/config.h"

#include "toolkit/literals.h"

using toolkit::operator""_L1;

namespace libconfig {

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
    document = std::make_unique<QDomDocument>();
    if (format == "cfg"_L1)
        loadFile();
    else if (format == "xml"_L1)
        loadXmlFile();
}

/// An element of the tree. createElement() refuses the empty name, which the brace format allows.
QDomElement Config::newElement(const QString& name)
{
    QDomElement element = document->createElement(QStringLiteral("group"));
    element.setTagName(name);
    return element;
}

QString Config::lookup(const QString& key) const
{
    return document ? lookup(document->documentElement().firstChild(), key) : QString();
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
