#include "toolkit/xmlplaces.h"

namespace toolkit {

namespace {

bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || (character >= QLatin1Char('\t') && character <= QLatin1Char('\r'));
}

/// The end of the attribute at @p begin of the start tag @p tag, which the reader has found to be well-formed; the
/// tag's own end where there is none.
int attributeEnd(const QString& tag, int begin)
{
    int quote = tag.indexOf(QLatin1Char('='), begin) + 1;
    while (quote < tag.size() && isBlank(tag.at(quote)))
        ++quote;
    const int end = quote < tag.size() ? tag.indexOf(tag.at(quote), quote + 1) : -1;
    return end < 0 ? tag.size() : end + 1;
}

} // namespace

TextPlace XmlPlaces::attribute(int index)
{
    if (attributePlaces.isEmpty())
        findAttributes();
    return attributePlaces.value(index, markup());
}

void XmlPlaces::findAttributes()
{
    TextPlace place = markupPlace;
    int next = 0;
    while (next < markupText.size() && !isBlank(markupText.at(next)))
        place = after(place, markupText.at(next++)); // the element's name
    while (next < markupText.size()) {
        const bool isGap = isBlank(markupText.at(next));
        const int end = isGap ? next + 1 : attributeEnd(markupText, next);
        if (!isGap)
            attributePlaces += place;
        for (; next < end; ++next)
            place = after(place, markupText.at(next));
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
    textBegan = false;
}

} // namespace toolkit
