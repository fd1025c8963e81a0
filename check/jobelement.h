#ifndef ZELMORA_CHECK_JOBELEMENT_H
#define ZELMORA_CHECK_JOBELEMENT_H

#include "check/finding.h"
#include "vocabulary/jobs.h"

#include <QVector>
#include <QXmlAttributes>

namespace toolkit {
class XmlPlaces;
}

namespace check {

class PrintFlags;

/// An element of a job while its start tag is delivered: places can be asked for as long.
class JobElement {
public:
    /// @p attributes as they stand in the file, with those that declare name spaces.
    JobElement(const QString& name, const QXmlAttributes& attributes, toolkit::XmlPlaces& places);

    const QString& name() const { return itsName; }
    /// As the print program gets them: without those that declare name spaces.
    const QXmlAttributes& attributes() const { return itsAttributes; }
    /// Of the first attribute of that name; an empty text when there is none.
    QString value(QLatin1String name) const { return itsAttributes.value(name); }

    /// The element's "<"; the first letter of the name of attribute number @p index.
    toolkit::TextPlace place() const;
    toolkit::TextPlace placeOf(int index) const;
    /// That of the attribute; of the element when it is absent.
    toolkit::TextPlace placeOf(QLatin1String name) const;
    /// The number of the attribute that stands @p inFile-th in the file, from 0; less than 0 when it declares a name
    /// space.
    int indexOf(int inFile) const;
    /// Whether an attribute of the same name stands before attribute number @p index.
    bool isRepeated(int index) const;

    /// Who prints it; null before a method was accepted. Its entry is null where that method does not read it.
    const vocabulary::Method* method = nullptr;
    const vocabulary::Element* entry = nullptr;
    const PrintFlags* flags = nullptr; ///< of that method's document; not owned

    /// As what an attribute of that name is read; null where its element's method does not read it.
    const vocabulary::Attribute* entryOf(QLatin1String attribute) const;
    /// As what attribute number @p index is read; null where it is not.
    const vocabulary::Attribute* entryOf(int index) const;
    /// Whether the element's print flag, or that of one of its attributes, keeps it off the paper.
    bool isPrinted() const;
    bool isPrinted(const vocabulary::Attribute& attribute) const;
    /// Of a full order: kept off the paper by its name.
    bool isHiddenDish() const;
    /// Of a fiscal receipt: its price makes it one, and nothing else of it counts.
    bool isDiscount() const;

private:
    void dropNamespaces(const QXmlAttributes& all);
    void findRepeated();

    const QString itsName;
    QXmlAttributes itsAttributes;
    toolkit::XmlPlaces& places;
    QVector<int> fileIndexes; ///< of the attributes, where some were dropped
    QVector<int> repeated; ///< ascending
};

/// Whether @p method is the one that prints nothing.
bool isSummaryOrder(const vocabulary::Method& method);
/// Whether @p method sells on the register instead of printing lines.
bool isFiscal(const vocabulary::Method& method);

} // namespace check

#endif
