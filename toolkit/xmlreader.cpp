#include "toolkit/xmlreader.h"

#include "toolkit/bytedecoder.h"
#include "toolkit/literals.h"
#include "toolkit/textsize.h"
#include "toolkit/xmlplaces.h"

#include <QHash>
#include <QIODevice>
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

#include <utility>

namespace toolkit {

namespace {

// The reader recurses for each element and for each parenthesis of a content model (measured: 100,000 elements,
// or 200,000 parentheses, overflow an 8 MB stack).
const int greatestNesting = 1000;
// The bytes that the input source asks for at a time.
const int chunkSize = 1024;
// It compares each new entity with all earlier ones (measured: 20,000 of them take 40 s).
const int greatestDeclarationChunks = 16;
// A reference of three bytes may stand for millions of characters (measured: 200 references to one entity that
// refers 2,700 times to one of 4,000 characters end after 34 s, at 2 GB, in an exception).
const int greatestEntitySize = 1000;
const int greatestReferenceCount = 10000;

/// Where the parse is: what the guard and the bounded source tell each other.
struct ParseState {
    bool insideDeclaration = false; // the document type's
    bool entityDeclared = false;
    QString boundPassed; // the message for it; empty as long as there is none
};

/// Stands between reader and handler: watches nesting and entities, drops xmlns attributes if asked to, passes the
/// rest on.
class Guard : public QXmlDefaultHandler {
public:
    Guard(QXmlDefaultHandler& handler, ParseState& state, NamespaceDeclarations declarations, XmlPlaces* places)
        : handler(handler)
        , state(state)
        , dropsNamespaces(declarations == NamespaceDeclarations::Drop)
        , places(places)
    {
    }

    bool startDocument() override { return handler.startDocument(); }
    bool endDocument() override { return handler.endDocument(); }

    bool startElement(const QString&, const QString&, const QString& qName, const QXmlAttributes& atts) override
    {
        if (++nesting > greatestNesting)
            return within(xmlbounds::nesting, false);
        for (int i = 0; i < atts.count(); ++i)
            takeTextOfSize(atts.value(i).size());
        for (int i = 0; dropsNamespaces && i < atts.count(); ++i) {
            if (isNamespaceDeclaration(atts.qName(i)))
                return markupDelivered(handler.startElement(QString(), QString(), qName, withoutNamespaces(atts)));
        }
        return markupDelivered(handler.startElement(QString(), QString(), qName, atts));
    }

    bool endElement(const QString&, const QString&, const QString& qName) override
    {
        --nesting;
        return markupDelivered(handler.endElement(QString(), QString(), qName));
    }

    bool processingInstruction(const QString& target, const QString& data) override
    {
        return markupDelivered(handler.processingInstruction(target, data));
    }

    bool comment(const QString& text) override { return markupDelivered(handler.comment(text)); }
    bool startCDATA() override { return handler.startCDATA(); }
    bool endCDATA() override { return markupDelivered(handler.endCDATA()); }
    bool characters(const QString& text) override { return textDelivered(handler.characters(text)); }
    bool skippedEntity(const QString& name) override { return textDelivered(handler.skippedEntity(name)); }

    bool startDTD(const QString& name, const QString& publicId, const QString& systemId) override
    {
        state.insideDeclaration = true;
        return handler.startDTD(name, publicId, systemId);
    }

    bool endDTD() override
    {
        state.insideDeclaration = false;
        return markupDelivered(true);
    }

    bool internalEntityDecl(const QString& name, const QString& value) override
    {
        const bool isParameterEntity = name.startsWith(QLatin1Char('%'));
        const QString reference = isParameterEntity ? name : QLatin1Char('&') + name;
        const int size = expandedSize(value, reference.at(0));
        entitySizes.insert(reference, size);
        state.entityDeclared = true;
        return within(xmlbounds::entity, size <= greatestEntitySize);
    }

    bool fatalError(const QXmlParseException& error) override
    {
        if (state.boundPassed.isEmpty())
            return handler.fatalError(error);
        return handler.fatalError(QXmlParseException(state.boundPassed, error.columnNumber(), error.lineNumber()));
    }

private:
    bool within(QLatin1String bound, bool isWithin) const
    {
        if (!isWithin)
            state.boundPassed = bound;
        return isWithin;
    }

    bool markupDelivered(bool goOn) const
    {
        if (places)
            places->markupIsDelivered();
        return goOn;
    }

    bool textDelivered(bool goOn) const
    {
        if (places)
            places->textIsDelivered();
        return goOn;
    }

    /// At least the characters that @p value becomes when the references in it, which begin with @p mark, are
    /// followed; more than the greatest size allowed when one leads to an entity that is not declared yet.
    int expandedSize(const QString& value, QChar mark) const
    {
        int size = value.size();
        int begin = value.indexOf(mark);
        while (begin >= 0 && size <= greatestEntitySize) {
            const int end = value.indexOf(QLatin1Char(';'), begin);
            const bool byNumber = QStringView(value).mid(begin + 1).startsWith(QLatin1Char('#'));
            if (end >= 0 && !byNumber)
                size += entitySizes.value(value.mid(begin, end - begin), greatestEntitySize);
            begin = value.indexOf(mark, begin + 1);
        }
        return size;
    }

    static QXmlAttributes withoutNamespaces(const QXmlAttributes& atts)
    {
        QXmlAttributes kept;
        for (int i = 0; i < atts.count(); ++i) {
            if (!isNamespaceDeclaration(atts.qName(i)))
                kept.append(atts.qName(i), atts.uri(i), atts.localName(i), atts.value(i));
        }
        return kept;
    }

    QXmlDefaultHandler& handler;
    ParseState& state;
    const bool dropsNamespaces;
    XmlPlaces* const places;
    int nesting = 0;
    /// Characters that a reference such as "&name" or "%name" stands for in the end. Those that XML declares
    /// itself stand for one.
    QHash<QString, int> entitySizes {{QStringLiteral("&amp"), 1},
                                     {QStringLiteral("&lt"), 1},
                                     {QStringLiteral("&gt"), 1},
                                     {QStringLiteral("&quot"), 1},
                                     {QStringLiteral("&apos"), 1}};
};

/// Feeds the reader chunk by chunk and ends the input, which is a syntax error, where a bound is passed.
class BoundedSource : public QXmlInputSource {
public:
    BoundedSource(QIODevice& device, ParseState& state)
        : QXmlInputSource(&device)
        , device(device)
        , state(state)
    {
    }

    void fetchData() override
    {
        if (withinBounds())
            QXmlInputSource::fetchData();
        else
            setData(QString());
        if (state.entityDeclared)
            references += data().count(QLatin1Char('&'));
    }

protected:
    /// A decoder that remembers the end of a piece makes mistakes: that of Qt 6 takes the byte behind a character which
    /// is cut off for a part of it, also a quotation mark. What is left at the end of the input is nothing.
    QString fromRawData(const QByteArray& data, bool) override
    {
        const QByteArray chunk = filled(data);
        const QByteArray whole = pieces.next(chunk);
        if (!std::exchange(isBegun, true))
            return begin(whole, chunk);
        return QXmlInputSource::fromRawData(isUtf8 ? whole : chunk, false);
    }

private:
    /// @p data with what the device has left for a chunk: one may give less at a time, and the declaration be cut off.
    QByteArray filled(QByteArray data)
    {
        QByteArray more = data;
        while (!more.isEmpty() && data.size() < chunkSize) {
            more = device.read(chunkSize - data.size());
            data += more;
        }
        return data;
    }

    /// The mark, the declaration or the want of both says how the document is encoded; it is in UTF-8 when a character
    /// that is added comes out. Behind it a decoder takes no U+FEFF for a mark any more. (That of Qt 5 would, after
    /// ASCII.)
    QString begin(const QByteArray& whole, const QByteArray& data)
    {
        const QString character(QChar(0xe8));
        const QString text = QXmlInputSource::fromRawData(whole + character.toUtf8(), true);
        isUtf8 = text.endsWith(character);
        return isUtf8 ? text.chopped(1) : QXmlInputSource::fromRawData(data, true);
    }

    bool withinBounds()
    {
        if (state.insideDeclaration)
            ++declarationChunks;
        if (declarationChunks > greatestDeclarationChunks)
            state.boundPassed = xmlbounds::declaration;
        else if (references > greatestReferenceCount)
            state.boundPassed = xmlbounds::references;
        return state.boundPassed.isEmpty();
    }

    QIODevice& device;
    ParseState& state;
    int declarationChunks = 0;
    int references = 0;
    Utf8Pieces pieces;
    bool isBegun = false;
    bool isUtf8 = false;
};

/// Says what the reader goes past.
class PlacedSource : public BoundedSource {
public:
    PlacedSource(QIODevice& device, ParseState& state, XmlPlaces& places)
        : BoundedSource(device, state)
        , places(places)
    {
    }

    QChar next() override
    {
        const QChar character = BoundedSource::next();
        places.advance();
        return character;
    }

    void fetchData() override
    {
        BoundedSource::fetchData();
        places.beginChunk(data());
    }

private:
    XmlPlaces& places;
};

} // namespace

bool isNamespaceDeclaration(const QString& name)
{
    return name.startsWith("xmlns"_L1) && (name.size() == 5 || name.at(5) == QLatin1Char(':'));
}

bool readXml(QIODevice& device, QXmlDefaultHandler& handler, NamespaceDeclarations declarations, XmlPlaces* places)
{
    ParseState state;
    Guard guard(handler, state, declarations, places);
    QXmlSimpleReader reader;
    // The reader's name space tables cost a search for each element and prefix (measured: 2,000 of each take
    // 22 s). Nobody here asks for name spaces, and the guard drops their declarations just as the tables would.
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setContentHandler(&guard);
    reader.setLexicalHandler(&guard);
    reader.setDeclHandler(&guard);
    reader.setErrorHandler(&guard);
    if (places) {
        PlacedSource source(device, state, *places);
        return reader.parse(&source);
    }
    BoundedSource source(device, state);
    return reader.parse(&source);
}

} // namespace toolkit
