#include "toolkit/xmlplaces.h"

#include <algorithm>
#include <limits>

namespace toolkit {

namespace {

bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || (character >= QLatin1Char('\t') && character <= QLatin1Char('\r'));
}

} // namespace

TextPlace XmlPlaces::attribute(int index)
{
    catchUp();
    findAttributes(index + 1);
    return attributePlaces.value(index, markup());
}

int XmlPlaces::attributesBegun()
{
    catchUp();
    findAttributes(std::numeric_limits<int>::max());
    return attributePlaces.size();
}

/// No further than to the name of attribute number @p most, from 1. Each character is looked at once, however often
/// this is called before the markup's end.
void XmlPlaces::findAttributes(int most)
{
    if (searched == 0)
        searchPlace = markupPlace;
    for (; searched < markupText.size() && attributePlaces.size() < most; ++searched) {
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

void XmlPlaces::beginChunk(const QString& text)
{
    pass(chunk.size());
    chunk = text;
    passed = 0;
    got = -1; // the toolkit's source asks itself once more where a chunk begins
}

void XmlPlaces::catchUp()
{
    pass(std::min<int>(got - 1, chunk.size()));
}

/// Looks at the characters up to number @p end of the chunk.
void XmlPlaces::pass(int end)
{
    while (passed < end) {
        const int begin = passed;
        if (isEnding) {
            const int sign = chunk.indexOf(QLatin1Char('>'), begin);
            isEnding = sign < 0 || sign >= end;
            passed = isEnding ? end : sign + 1;
        } else if (!markupText.isEmpty()) {
            passed = end; // it is markup until it is delivered
            markupText += QStringView(chunk).mid(begin, end - begin);
        } else {
            passed = passText(end);
        }
        for (int i = begin; i < passed; ++i)
            here = after(here, chunk.at(i));
    }
}

/// The same, up to the first character of a markup, or to the first of a text: its place is that of the next character
/// then.
int XmlPlaces::passText(int end)
{
    int next = passed;
    while (next < end && (textBegan || isBlank(chunk.at(next))) && chunk.at(next) != QLatin1Char('<'))
        ++next;
    if (next > passed || next == end)
        return next;
    if (chunk.at(next) == QLatin1Char('<')) {
        markupPlace = here;
        markupText += chunk.at(next);
    } else {
        textBegan = true;
        textPlace = here;
    }
    return next + 1;
}

bool XmlPlaces::isInsideMarkup()
{
    catchUp();
    return !markupText.isEmpty();
}

TextPlace XmlPlaces::text()
{
    catchUp();
    return textPlace;
}

TextPlace XmlPlaces::reached()
{
    catchUp();
    return here;
}

void XmlPlaces::markupIsDelivered()
{
    // Tags are delivered as soon as their end is seen, the rest when it has been passed.
    if (isInsideMarkup())
        isEnding = !markupText.endsWith(QLatin1Char('>'));
    markupText.truncate(0); // which keeps its room
    attributePlaces.clear();
    searched = 0;
    tagPart = TagPart::ElementName;
    textBegan = false;
}

void XmlPlaces::textIsDelivered()
{
    catchUp();
    textBegan = false;
}

} // namespace toolkit
