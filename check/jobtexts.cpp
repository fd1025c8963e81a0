#include "check/jobtexts.h"

#include "check/findingtext.h"
#include "driver/registercommands.h"
#include "toolkit/characternames.h"

#include <QObject>

#include <algorithm>

using toolkit::operator""_L1;

namespace check {

namespace {

using vocabulary::Attribute;
using Kind = vocabulary::AttributeKind;

/// The part of a command in which an apostrophe ends the register's text: of a line all, of a sale its description.
struct TextRange {
    int begin;
    int end;

    bool contains(int position) const { return begin <= position && position < end; }
};

TextRange quotable(const QString& text, bool isLine)
{
    if (isLine)
        return {0, text.size()};
    const int begin = text.indexOf(registercommands::saleDescription);
    return begin < 0 ? TextRange {0, 0} : TextRange {begin + registercommands::saleDescription.size(), text.size() - 1};
}

bool counts(Trouble trouble, int position, const TextRange& text, bool isLine)
{
    switch (trouble) {
    case Trouble::None:
        return false;
    case Trouble::Quote:
        return text.contains(position);
    case Trouble::RegistersWord:
        return isLine; // a sale keeps it
    case Trouble::Control:
    case Trouble::Unprintable:
        break;
    }
    return true;
}

/// Elements whose lines are rows of several columns, or of a label and a column.
bool printsRows(const QString& element)
{
    static constexpr QLatin1String names[] = {"receipe"_L1,   "otherreceipe"_L1,   "variant"_L1,
                                              "total"_L1,     "totals"_L1,         "receipe_type"_L1,
                                              "statement"_L1, "statement_list"_L1, "taxrate_item"_L1};
    return std::any_of(std::begin(names), std::end(names), [&](QLatin1String name) { return element == name; });
}

bool isCut(const Attribute& attribute)
{
    return attribute.kind == Kind::Description || attribute.kind == Kind::MovementType;
}

bool isBeyondEightBits(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() > 0xFF; });
}

int characters(QStringView text)
{
    const auto isWhole = [](QChar unit) { return !unit.isLowSurrogate(); };
    return static_cast<int>(std::count_if(text.begin(), text.end(), isWhole));
}

bool isBlank(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit == QLatin1Char(' '); });
}

} // namespace

JobTexts::JobTexts(Findings& findings)
    : findings(findings)
{
}

void JobTexts::begin(const JobElement& begun)
{
    element = &begun;
    isGathered = false;
    isWatched = element->entry && element->name() == "statement"_L1 && isBeyondEightBits(element->value("type"_L1));
    lines = 0;
    nextRow = element->entry ? element->entry->attributes.size() : 0;
    labels.clear();
    widePlaces.clear();
    isWideNoted = false;
    if (element->entry && element->name() == "printers"_L1) {
        const Attribute* const name = vocabulary::findAttribute(*element->entry, QStringLiteral("name"));
        printerName = PrintedText(*name, element->value(name->name), element->placeOf(name->name));
    }
}

void JobTexts::end()
{
    element = nullptr;
    isWatched = false;
}

/// The texts of the attributes that print by their names. Most elements make no trouble and are not looked at.
void JobTexts::gather()
{
    if (isGathered)
        return;
    isGathered = true;
    texts.clear();
    if (!element->entry)
        return;
    for (const Attribute& attribute : element->entry->attributes) {
        const int index = element->attributes().index(attribute.name);
        if (index >= 0 && element->isPrinted(attribute) && attribute.prints)
            texts += PrintedText(attribute, element->attributes().value(index), element->placeOf(index));
    }
}

void JobTexts::judge(const ScriptCommand& command, int paperWidth)
{
    const QString& text = command.isLine ? command.text : command.command;
    if (isWatched || hasTrouble(text, command.isLine))
        judgeTrouble(command.isLine ? text : text.chopped(registercommands::lineEnd.size()),
                     command.command.chopped(registercommands::lineEnd.size()), command.isLine);
    if (command.isLine)
        judgeWidth(command, paperWidth);
    ++lines;
}

/// Looks no closer than is needed to say that there is none.
bool JobTexts::hasTrouble(const QString& text, bool isLine) const
{
    const int end = text.size() - (isLine ? 0 : registercommands::lineSuffix.size());
    int quotes = isLine ? 0 : -1; // a sale has one of its own
    for (int i = 0; i < end; ++i) {
        if (TroubleFinder::isHarmless(text.at(i)))
            continue;
        const Trouble trouble = finder.at(text, i);
        if (trouble == Trouble::Quote && quotes++ < 0)
            continue;
        if (trouble != Trouble::None)
            return true;
    }
    return false;
}

void JobTexts::judgeTrouble(const QString& text, const QString& command, bool isLine)
{
    gather();
    const TextRange quotes = quotable(text, isLine);
    toolkit::TextPlace place = element->place();
    const auto tell = [&](Trouble trouble, uint codePoint, int position) {
        if (counts(trouble, position, quotes, isLine))
            report(trouble, codePoint, command, place);
    };
    bool isFound = followRows(text, [&](Trouble trouble, uint codePoint, int position) {
        place = element->placeOf(nextRow);
        tell(trouble, codePoint, position);
    });
    for (PrintedText& printed : texts) {
        place = printed.place();
        isFound = printed.follow(text, finder, tell) || isFound;
    }
    if (element->name() == "headers"_L1) {
        place = printerName.place();
        isFound = printerName.follow(text, finder, tell) || isFound;
    }
    if (!isFound) {
        place = element->place();
        judgeLabels(text, tell);
    }
}

/// Attributes that print in their order print whole, one after the other, so many in a line as make a group.
bool JobTexts::followRows(const QString& text, const PrintedText::Report& tell)
{
    if (!element->isPrinted() || element->entry->inOrder.isEmpty())
        return false;
    const vocabulary::Table<Attribute>& group = element->entry->inOrder;
    const int first = element->entry->attributes.size();
    bool isFound = false;
    for (; nextRow < element->attributes().count(); ++nextRow) {
        const int column = (nextRow - first) % group.size();
        PrintedText printed(group[column], element->attributes().value(nextRow), toolkit::TextPlace());
        if (isFound && column == 0)
            break; // of the next line
        if (!printed.hasTrouble(finder))
            continue;
        if (!printed.follow(text, finder, tell))
            break;
        isFound = true;
    }
    return isFound;
}

/// What no attribute holds came from a label, which is the translation's: once for an element.
void JobTexts::judgeLabels(const QString& text, const PrintedText::Report& tell)
{
    for (int i = 0; i < text.size(); ++i) {
        const Trouble trouble = finder.at(text, i);
        if (trouble == Trouble::None || trouble == Trouble::RegistersWord)
            continue;
        const uint codePoint = codePointAt(text, i);
        if (labels.contains(static_cast<int>(codePoint)) || isOfTheJob(codePoint))
            continue;
        labels.insert(static_cast<int>(codePoint));
        tell(trouble, codePoint, i);
    }
}

bool JobTexts::isOfTheJob(uint codePoint)
{
    const auto holds = [&](const PrintedText& printed) { return printed.holds(codePoint); };
    return std::any_of(texts.begin(), texts.end(), holds) || (element->name() == "headers"_L1 && holds(printerName));
}

void JobTexts::report(Trouble trouble, uint codePoint, const QString& command, toolkit::TextPlace place)
{
    switch (trouble) {
    case Trouble::None:
        break;
    case Trouble::Quote:
        addLesser(
            findings, Code::QuoteInText, place,
            QObject::tr("The apostrophe ends the register's text early: write ` in its place. The command becomes: %1")
                .arg(shown(command)));
        break;
    case Trouble::Control:
        add(findings, Code::ControlCharacter, place,
            QObject::tr("The text has a %1, which breaks the command: write a blank in its place.")
                .arg(toolkit::nameOf(codePoint)));
        break;
    case Trouble::Unprintable: {
        const auto canPrint = [this](uint other) { return finder.canPrint(other) && other <= 0xFF; };
        const QString spelling = toolkit::plainSpelling(codePoint, canPrint);
        const QString text = QObject::tr("The script cannot hold \"%1\", %2: \"?\" prints in its place.")
                                 .arg(QString::fromUcs4(&codePoint, 1), toolkit::nameOf(codePoint));
        add(findings, Code::UnprintableCharacter, place,
            spelling.isEmpty() ? text : text + QLatin1Char(' ') + QObject::tr("\"%1\" would print.").arg(spelling),
            spelling);
        break;
    }
    case Trouble::RegistersWord:
        add(findings, Code::ChangedText, place,
            QObject::tr("TOTALE prints as SOMMA: the register keeps the word for itself."));
        break;
    }
}

void JobTexts::judgeCut(const QString& text, int kept)
{
    if (!element->entry || element->isDiscount())
        return;
    const auto& attributes = element->entry->attributes;
    const auto description = std::find_if(attributes.begin(), attributes.end(), isCut);
    if (description == attributes.end())
        return;
    const toolkit::TextPlace place = element->placeOf(description->name);
    QString rest = text.left(kept);
    const bool isHalved = kept > 0 && text.at(kept - 1).isHighSurrogate(); // half a character is none
    if (isHalved)
        rest[kept - 1] = QLatin1Char('?');
    add(findings, Code::CutText, place, QObject::tr("\"%1\" is cut to \"%2\".").arg(shown(text), shown(rest)));
    if (isHalved)
        report(Trouble::Unprintable, codePointAt(text, kept - 1), QString(), place);
}

/// The rate table and the line of what is not paid on a summary receipt have their width whatever anybody does.
bool JobTexts::isAlwaysTooWide(const ScriptCommand& command) const
{
    if (element->name() == "receiptssummary"_L1)
        return command.followsRule;
    if (element->name() == "notPaid"_L1)
        return element->method->name == "printAbstractOrderReceipt"_L1;
    return element->name() == "taxrate_item"_L1 && element->value("taxrate"_L1).size() <= 6
        && element->value("taxable"_L1).size() <= 10 && element->value("tax"_L1).size() <= 10
        && element->value("amount"_L1).size() <= 10;
}

void JobTexts::judgeWidth(const ScriptCommand& command, int paperWidth)
{
    const int framing = registercommands::linePrefix.size() + registercommands::lineSuffix.size();
    const int units = command.command.size() - framing;
    if (units <= paperWidth)
        return;
    const QStringView line = QStringView(command.command).mid(registercommands::linePrefix.size(), units);
    const int width = characters(line);
    if (width <= paperWidth || isBlank(line))
        return;
    if (isAlwaysTooWide(command)) {
        if (!std::exchange(isWideNoted, true))
            addLesser(findings, Code::TooWide, element->place(),
                      QObject::tr("The line has %1 characters, and the paper %2. It is always so long.")
                          .arg(QString::number(width), QString::number(paperWidth)));
        return;
    }
    const toolkit::TextPlace place = placeOfLine(command.text);
    const QPair<int, int> key(place.line, place.column);
    if (!widePlaces.contains(key)) {
        widePlaces.insert(key);
        add(findings, Code::TooWide, place,
            QObject::tr("The line has %1 characters, and the paper %2: make the text shorter, or the columns narrower.")
                .arg(QString::number(width), QString::number(paperWidth)));
    }
}

/// The attribute whose text is all of the line but a label; the element where there is none.
toolkit::TextPlace JobTexts::placeOfLine(const QString& text)
{
    if (!element->entry || printsRows(element->name()))
        return element->place();
    if (element->isPrinted() && element->entry->inOrder.size() == 1 && lines < element->attributes().count())
        return element->placeOf(lines);
    if (element->name() == "headers"_L1)
        return printerName.ends(text) ? printerName.place() : element->place();
    gather();
    const PrintedText* longest = nullptr;
    for (PrintedText& printed : texts) {
        if (printed.ends(text) && (!longest || longest->size() < printed.size()))
            longest = &printed;
    }
    return longest ? longest->place() : element->place();
}

} // namespace check
