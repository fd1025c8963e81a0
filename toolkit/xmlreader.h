#ifndef ZELMORA_TOOLKIT_XMLREADER_H
#define ZELMORA_TOOLKIT_XMLREADER_H

#include "toolkit/literals.h"

class QIODevice;
class QString;
class QXmlAttributes;
class QXmlDefaultHandler;

namespace toolkit {

class XmlPlaces;

/// What becomes of attributes named xmlns or xmlns:*.
enum class NamespaceDeclarations { Drop, Keep };

/// Whether an attribute of that name is one of these.
bool isNamespaceDeclaration(const QString& name);

/// The messages of what is an error here and nowhere else.
namespace xmlbounds {

using toolkit::operator""_L1;

constexpr QLatin1String nesting = "elements nested too deep"_L1;
constexpr QLatin1String declaration = "document type declaration too long"_L1;
constexpr QLatin1String entity = "entity too large"_L1;
constexpr QLatin1String references = "too many references"_L1;

} // namespace xmlbounds

/// Streams the XML of @p device through the toolkit's reader to @p handler and returns true when all of it was
/// well-formed and the handler never answered false. The device is opened if it is not open yet; one that cannot be
/// opened is an empty document, which is an error. It is read once, piece by piece: a pipe will do.
///
/// The handler receives startDocument, endDocument, startElement and endElement, the last two with the qualified name
/// alone; characters, skippedEntity, processingInstruction, comment, startCDATA and endCDATA; and startDTD. Attributes
/// come in the order of the file, a repeated one each time. An error is delivered as fatalError, with one of xmlbounds
/// or the toolkit's own English text as its message, also where the handler answered false; after it nothing more is,
/// endDocument included.
///
/// Where things stand is found out for @p places, when there are any; they cost time.
///
/// Four things are errors here that the reader by itself answers with a stack overflow, or with hours and
/// gigabytes: elements nested more than 1,000 deep; a document type declaration longer than about 17,000 bytes; in
/// it an entity that stands for more than 1,000 characters, or that refers to one not declared before it; and more
/// than about 10,000 "&" in a document that declares entities. What is "about" acts on pieces of 1,024 bytes.
bool readXml(QIODevice& device, QXmlDefaultHandler& handler,
             NamespaceDeclarations declarations = NamespaceDeclarations::Drop, XmlPlaces* places = nullptr);

} // namespace toolkit

#endif
