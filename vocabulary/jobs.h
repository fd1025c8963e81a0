#ifndef ZELMORA_VOCABULARY_JOBS_H
#define ZELMORA_VOCABULARY_JOBS_H

#include "toolkit/literals.h"
#include "vocabulary/table.h"

#include <QString>
#include <QStringList>

/// What a job may say (docs/job-file.md), as tables: for checkers, editors, the schema and the documents. The print
/// program has no use for them; that they say what it does is tested by running it.
namespace vocabulary {

/// How the text of an attribute is meant.
enum class AttributeKind {
    Text,
    Description, ///< text that is cut to its column
    MovementType, ///< the same, looked up in the catalogue; a character above U+00FF becomes "?"
    Address, ///< lines separated by commas, up to the first empty one
    Quantity,
    VariantQuantity, ///< with a point, never a comma; 1, -1 and 0 print as signs
    FiscalQuantity, ///< with a point: a comma would begin the register's next field
    Amount,
    FiscalPrice, ///< sign, digits and one comma or point alone; below 0 its row is a discount
    Rate, ///< with or without "%"
    BareRate, ///< without: the document prints one behind it
    Date,
    SerialNumber,
};

enum class Presence {
    Expected, ///< without it a column or a line of the document stays empty
    Optional,
};

struct Attribute {
    QLatin1String name; ///< empty where the attribute is read by its position
    AttributeKind kind;
    Presence presence = Presence::Expected;
    QLatin1String flag = {}; ///< the document's print flag without which it does not print; empty: there is none
    bool prints = true; ///< false: it is read, and the script is the same whatever it says
};

/// An element, as one method or several read it.
struct Element {
    QLatin1String name;
    Table<Attribute> attributes = {}; ///< those read by their names
    /// Those that are read in the order of the file, whatever their names: as many as this has rows make one group, and
    /// groups follow each other to the element's end. Where there are attributes read by name, as many of the file's
    /// first ones are skipped.
    Table<Attribute> inOrder = {};
    QLatin1String flag = {}; ///< the document's print flag without which none of its attributes prints; empty: none
};

struct Method {
    QLatin1String name;
    QLatin1String documentType; ///< documentgroups::ofType() gives the group of its settings
    Table<Element> common; ///< the sections that most documents share; empty: the method reads none of them
    Table<Element> customer; ///< the customer block, or nothing
    Table<Element> own; ///< in the order in which the method looks for them
};

/// The thirteen print methods, in the order in which the program looks for them.
Table<Method> methods();
/// Null when there is none of that name. Names are case-sensitive here and below.
const Method* findMethod(const QString& name);

/// The elements that @p method reads, in the order in which it looks for them; "method" itself is none of them.
QVector<const Element*> elementsOf(const Method& method);
/// Null when the method does not read it.
const Element* findElement(const Method& method, const QString& name);
/// Null when the element does not read an attribute of that name by its name.
const Attribute* findAttribute(const Element& element, const QString& name);

/// The methods that read an element @p element; with @p attribute those that read that attribute of it, by its name or
/// in the order of the file. "method" with its "name" is read by all.
QVector<const Method*> methodsReading(const QString& element);
QVector<const Method*> methodsReading(const QString& element, const QString& attribute);

/// The names of all elements of all methods, "method" first, and of all attributes that some method reads by name from
/// an element of that name: each once.
QStringList elementNames();
QStringList attributeNames(const QString& element);
/// Whether some method reads the attributes of elements of that name in their order, whatever their names.
bool takesAnyAttribute(const QString& element);

} // namespace vocabulary

#endif
