#ifndef ZELMORA_TOOLKIT_XMLPLACES_H
#define ZELMORA_TOOLKIT_XMLPLACES_H

#include "toolkit/textplaces.h"

#include <QString>
#include <QVector>

namespace toolkit {

/// Where that stands which readXml() delivers: to be asked from within the handler. A column counts characters, one
/// outside the basic plane once; a byte-order mark counts none.
class XmlPlaces {
public:
    /// The "<" of the element, comment or instruction that is being delivered.
    /// Of what an entity brought, the reference to it.
    TextPlace markup() { return isInsideMarkup() ? markupPlace : textPlace; }
    /// The first letter of the name of attribute number @p index, from 0, of the element whose start is being
    /// delivered, counted as they stand in the file.
    TextPlace attribute(int index);
    /// The first character, white space apart, of the text that is being delivered.
    TextPlace text();
    /// Whether the reader is between a "<" and what ends it: a reference that is delivered then stands in an attribute.
    bool isInsideMarkup();
    /// The character that the reader looks at; after an error, the one that it stumbled over.
    TextPlace reached();
    /// The attributes that have begun between that "<" and where the reader is: what it is inside of is the last one.
    int attributesBegun();

    // For the reader, which looks one character ahead: the one that it got last is not passed yet.

    void beginChunk(const QString& text); ///< the input goes on with @p text; all before it is passed
    void advance() { ++got; } ///< the reader has got one character more, or was told that there is none
    void markupIsDelivered(); ///< what comes next begins anew
    void textIsDelivered();

private:
    enum class TagPart { ElementName, Gap, AttributeName, Value };

    void catchUp();
    void pass(int end);
    int passText(int end);
    void findAttributes(int most);
    void findAttribute(QChar character);

    // Characters are looked at when somebody asks: many at a time, since there are more of them than events.
    QString chunk;
    int got = 0; ///< characters of it that the reader has
    int passed = 0; ///< those that were looked at

    TextPlace here; ///< of the next character
    TextPlace markupPlace;
    TextPlace textPlace;
    bool textBegan = false;
    bool isEnding = false; ///< the markup was delivered, and its ">" is still to come
    QString markupText; ///< from its "<" on; empty between two of them

    // Of the markup as far as it was searched for attributes: once one is asked for.
    QVector<TextPlace> attributePlaces;
    int searched = 0; ///< characters
    TextPlace searchPlace;
    TagPart tagPart = TagPart::ElementName;
    QChar quote; ///< of the value
};

} // namespace toolkit

#endif
