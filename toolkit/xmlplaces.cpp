#include "toolkit/xmlplaces.h"

namespace toolkit {

namespace {

bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || (character >= QLatin1Char('\t') && character <= QLatin1Char('\r'));
}

} // namespace

TextPlace XmlPlaces::attribute(int index)
{
    findAttributes();
    return attributePlaces.value(index, markup());
}

int XmlPlaces::attributesBegun()
{
    findAttributes();
    return attributePlaces.size();
}

/// Each character is looked at once, however often this is called before the markup's end.
void XmlPlaces::findAttributes()
{
    if (searched == 0)
        searchPlace = markupPlace;
    for (; searched < markupText.size(); ++searched) {
        const QChar character = markupText.at(searched);
        findAttribute(character);
        searchPlace = after(searchPlace, character);
    }
}

/// The next @p character of a start tag that the reader has found to be well-formed so far.
void XmlPlaces::findAttribute(QChar character)
{
    switch (tagPart) {
    case TagPart::ElementName:
        if (isBlank(character))
            tagPart = TagPart::Gap;
        break;
    case TagPart::Gap:
        if (!isBlank(character) && character != QLatin1Char('/') && character != QLatin1Char('>')) {
            attributePlaces += searchPlace;
            tagPart = TagPart::AttributeName;
        }
        break;
    case TagPart::AttributeName:
        if (character == QLatin1Char('"') || character == QLatin1Char('\'')) {
            quote = character;
            tagPart = TagPart::Value;
        }
        break;
    case TagPart::Value:
        if (character == quote)
            tagPart = TagPart::Gap;
        break;
    }
}

void XmlPlaces::pass(QChar character)
{
    const QLatin1Char begin('<');
    const QLatin1Char end('>');
    if (isEnding) {
        isEnding = character != end;
    } else if (isInsideMarkup() || character == begin) {
        if (markupText.isEmpty())
            markupPlace = here;
        markupText += character;
    } else if (!textBegan && !isBlank(character)) {
        textBegan = true;
        textPlace = here;
    }
    here = after(here, character);
}

void XmlPlaces::markupIsDelivered()
{
    // Tags are delivered as soon as their end is seen, the rest when it has been passed.
    if (isInsideMarkup())
        isEnding = !markupText.endsWith(QLatin1Char('>'));
    markupText.clear();
    attributePlaces.clear();
    searched = 0;
    tagPart = TagPart::ElementName;
    textBegan = false;
}

} // namespace toolkit
