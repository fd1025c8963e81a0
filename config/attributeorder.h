#ifndef ZELMORA_CONFIG_ATTRIBUTEORDER_H
#define ZELMORA_CONFIG_ATTRIBUTEORDER_H

#include <QDomElement>
#include <QHash>
#include <QStringList>

namespace libconfig {

/// The order in which the attributes of elements stand in their file: the toolkit keeps them in the order of a hash
/// that is another in every process.
class AttributeOrder {
public:
    /// Notes that the attributes of @p element stand in the order of @p names.
    void set(const QDomElement& element, const QStringList& names);

    /// The names of the attributes of @p element in their order; in that of their names where nothing was noted, or not
    /// of as many.
    QStringList names(const QDomElement& element) const;

private:
    struct Order {
        QDomElement element; ///< kept, so that no other element gets the same identity
        QStringList names;
    };

    QHash<const void*, Order> orders; ///< by the element's identity
};

} // namespace libconfig

#endif
