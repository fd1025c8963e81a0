#ifndef ZELMORA_TOOLKIT_XMLREADER_H
#define ZELMORA_TOOLKIT_XMLREADER_H

class QFile;
class QXmlDefaultHandler;

namespace toolkit {

/// What becomes of attributes named xmlns or xmlns:*.
enum class NamespaceDeclarations { Drop, Keep };

/// Streams the XML of @p file through the toolkit's reader to @p handler and returns true when the whole file
/// was well-formed and the handler never answered false. The file is opened if it is not open yet; one that
/// cannot be opened is an empty document, which is an error.
///
/// The handler receives startDocument, endDocument, startElement and endElement, the last two with the
/// qualified name alone; text, comments and processing instructions are not passed on. Attributes come in the
/// order of the file. After an error nothing more is delivered, endDocument included.
///
/// Four things are errors here that the reader by itself answers with a stack overflow, or with hours and
/// gigabytes: elements nested more than 1,000 deep; a document type declaration longer than about 16,000 bytes; in
/// it an entity that stands for more than 1,000 characters, or that refers to one not declared before it; and more
/// than 10,000 "&" in a document that declares entities.
bool readXml(QFile& file, QXmlDefaultHandler& handler,
             NamespaceDeclarations declarations = NamespaceDeclarations::Drop);

} // namespace toolkit

#endif
