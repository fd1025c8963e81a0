#include "check/jobelement.h"

#include "check/printflags.h"
#include "toolkit/numbertext.h"
#include "toolkit/xmlplaces.h"
#include "toolkit/xmlreader.h"

#include <QSet>

#include <algorithm>

using toolkit::operator""_L1;

namespace check {

JobElement::JobElement(const QString& name, const QXmlAttributes& attributes, toolkit::XmlPlaces& places)
    : itsName(name)
    , itsAttributes(attributes)
    , places(places)
{
    for (int i = 0; i < attributes.count(); ++i) {
        if (toolkit::isNamespaceDeclaration(attributes.qName(i))) {
            dropNamespaces(attributes);
            break;
        }
    }
    findRepeated();
}

void JobElement::dropNamespaces(const QXmlAttributes& all)
{
    itsAttributes.clear();
    for (int i = 0; i < all.count(); ++i) {
        if (toolkit::isNamespaceDeclaration(all.qName(i)))
            continue;
        itsAttributes.append(all.qName(i), all.uri(i), all.localName(i), all.value(i));
        fileIndexes += i;
    }
}

void JobElement::findRepeated()
{
    const int count = itsAttributes.count();
    const int few = 16; // are compared faster than they are hashed
    QSet<QString> names;
    for (int i = 0; i < count; ++i) {
        const QString name = itsAttributes.qName(i);
        const bool isKnown = count > few ? names.contains(name) : itsAttributes.index(name) < i;
        if (isKnown)
            repeated += i;
        else if (count > few)
            names.insert(name);
    }
}

toolkit::TextPlace JobElement::place() const
{
    return places.markup();
}

toolkit::TextPlace JobElement::placeOf(int index) const
{
    return places.attribute(fileIndexes.isEmpty() ? index : fileIndexes.at(index));
}

toolkit::TextPlace JobElement::placeOf(QLatin1String name) const
{
    const int index = itsAttributes.index(name);
    return index < 0 ? place() : placeOf(index);
}

int JobElement::indexOf(int inFile) const
{
    const bool isAsInFile = fileIndexes.isEmpty() && inFile < itsAttributes.count();
    return isAsInFile ? inFile : fileIndexes.indexOf(inFile);
}

bool JobElement::isRepeated(int index) const
{
    return std::binary_search(repeated.begin(), repeated.end(), index);
}

const vocabulary::Attribute* JobElement::entryOf(QLatin1String attribute) const
{
    if (!entry)
        return nullptr;
    const auto& known = entry->attributes;
    const auto found = std::find_if(known.begin(), known.end(), [&](const vocabulary::Attribute& candidate) {
        return candidate.name == attribute;
    });
    return found == known.end() ? nullptr : found;
}

const vocabulary::Attribute* JobElement::entryOf(int index) const
{
    if (!entry)
        return nullptr;
    const vocabulary::Attribute* const named = vocabulary::findAttribute(*entry, itsAttributes.qName(index));
    if (named && !isRepeated(index))
        return named;
    const int position = index - entry->attributes.size();
    if (entry->inOrder.isEmpty() || position < 0)
        return nullptr;
    return &entry->inOrder[position % entry->inOrder.size()];
}

bool JobElement::isPrinted() const
{
    return entry && flags->isOn(entry->flag);
}

bool JobElement::isPrinted(const vocabulary::Attribute& attribute) const
{
    return attribute.prints && isPrinted() && flags->isOn(attribute.flag);
}

bool JobElement::isHiddenDish() const
{
    return method && method->name == "printFullOrder"_L1 && itsName == "receipe"_L1
        && value("name"_L1).startsWith(QLatin1Char('='));
}

bool JobElement::isDiscount() const
{
    const vocabulary::Attribute* const price = entryOf("price"_L1);
    return price && price->kind == vocabulary::AttributeKind::FiscalPrice
        && toolkit::toNumber(value("price"_L1).replace(QLatin1Char(','), QLatin1Char('.'))) < 0.0;
}

bool isSummaryOrder(const vocabulary::Method& method)
{
    return method.common.isEmpty() && method.own.isEmpty();
}

bool isFiscal(const vocabulary::Method& method)
{
    return method.documentType == "fiscal"_L1;
}

} // namespace check
