#include "config/attributeorder.h"

#include <algorithm>

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

void AttributeOrder::set(const QDomElement& element, const QStringList& names)
{
    if (!names.isEmpty())
        orders.insert(NodeIdentity(element).value(), {element, names});
}

QStringList AttributeOrder::names(const QDomElement& element) const
{
    QStringList names = orders.value(NodeIdentity(element).value()).names;
    const QDomNamedNodeMap attributes = element.attributes();
    if (names.size() == attributes.size())
        return names;

    names.clear();
    for (int i = 0; i < attributes.size(); ++i)
        names += attributes.item(i).nodeName();
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace libconfig
