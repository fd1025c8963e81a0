#include "check/printedtext.h"

#include "toolkit/eightbit.h"
#include "vocabulary/jobs.h"

#include <QObject>

#include <algorithm>

namespace check {

using Kind = vocabulary::AttributeKind;

PrintedText::PrintedText(const vocabulary::Attribute& attribute, const QString& value, toolkit::TextPlace place)
    : source(value)
    , printed(value)
    , itsPlace(place)
    , isAddress(attribute.kind == Kind::Address)
    , isCut(attribute.kind == Kind::Description || attribute.kind == Kind::MovementType)
{
    if (attribute.kind == Kind::FiscalPrice) {
        printed.replace(QLatin1Char(','), QLatin1Char('.'));
    } else if (attribute.kind == Kind::MovementType) {
        const QString eightBit = toolkit::eightBit(value);
        printed = QObject::tr(eightBit.toUtf8().constData());
        isEightBit = printed == eightBit;
        if (!isEightBit)
            source = printed; // the catalogue has it, and its text prints
    }
}

bool PrintedText::holds(uint codePoint) const
{
    return QChar::requiresSurrogates(codePoint) ? source.contains(QString::fromUcs4(&codePoint, 1))
                                                : source.contains(QChar(codePoint));
}

bool PrintedText::ends(const QString& text)
{
    if (isAddress)
        return hasLine(QStringView(text).trimmed());
    return !printed.isEmpty() && text.endsWith(printed);
}

Trouble PrintedText::troubleAt(const TroubleFinder& finder, int index) const
{
    const QChar unit = source.at(index);
    if (isEightBit && unit.unicode() > 0xFF)
        return unit.isLowSurrogate() ? Trouble::None : Trouble::Unprintable;
    return finder.at(printed, index);
}

bool PrintedText::hasLine(QStringView line)
{
    if (lines.isEmpty()) {
        Piece piece {0, 0, 0};
        while (piece.following < printed.size()) {
            piece = pieceFrom(piece.following);
            lines.insert(QStringView(printed).mid(piece.begin, piece.end - piece.begin));
        }
    }
    return !line.isEmpty() && lines.contains(line);
}

/// What of it is printed whole from there on: a line of an address, which has no white space around it, or all.
PrintedText::Piece PrintedText::pieceFrom(int from) const
{
    if (!isAddress)
        return {from, printed.size(), printed.size()};
    const int comma = printed.indexOf(QLatin1Char(','), from);
    const int end = comma < 0 ? printed.size() : comma;
    if (end == from)
        return {from, from, printed.size()}; // an empty field ends it
    const QStringView line = QStringView(printed).mid(from, end - from).trimmed();
    const int first = static_cast<int>(line.data() - printed.constData());
    return {first, first + static_cast<int>(line.size()), end + 1};
}

bool PrintedText::hasTrouble(const TroubleFinder& finder)
{
    while (trouble < 0 && begin < printed.size()) {
        const Piece piece = next();
        for (int i = piece.begin; i < piece.end && trouble < 0; ++i) {
            if (troubleAt(finder, i) != Trouble::None)
                trouble = i;
        }
        if (trouble < 0)
            begin = piece.following;
    }
    return trouble >= 0;
}

/// Where @p text holds @p piece, of a description at least up to its first trouble; -1 where it does not.
int PrintedText::positionIn(const QString& text, const Piece& piece, const TroubleFinder& finder) const
{
    const QStringView whole = QStringView(printed).mid(piece.begin, piece.end - piece.begin);
    if (isAddress && QStringView(text).trimmed() != whole)
        return -1;
    if (text.endsWith(whole))
        return text.size() - static_cast<int>(whole.size());
    const QStringView line(text);
    if (isCut) {
        const int needed = trouble + sizeOf(troubleAt(finder, trouble), printed, trouble);
        return static_cast<int>(line.indexOf(whole.left(needed)));
    }
    const int longest = 1000; // of a column; what is longer is looked for at the end alone, which takes no search
    return whole.size() > longest ? -1 : static_cast<int>(line.indexOf(whole));
}

bool PrintedText::follow(const QString& text, const TroubleFinder& finder, const Report& report)
{
    if (!hasTrouble(finder))
        return false;
    const Piece piece = next();
    const int position = positionIn(text, piece, finder);
    if (position < 0)
        return false;
    // A row may hold the beginning alone.
    const auto end =
        std::mismatch(printed.begin() + piece.begin, printed.begin() + piece.end, text.begin() + position, text.end());
    const int met = static_cast<int>(end.first - printed.begin());
    for (int i = trouble; i < met; ++i) {
        const Trouble kind = troubleAt(finder, i);
        if (kind != Trouble::None && i + sizeOf(kind, source, i) <= met)
            reportOnce(kind, codePointAt(source, i), position + i - piece.begin, report);
    }
    begin = piece.following;
    trouble = -1;
    return true;
}

void PrintedText::reportOnce(Trouble kind, uint codePoint, int position, const Report& report)
{
    const int key = kind == Trouble::Unprintable ? static_cast<int>(codePoint) : -static_cast<int>(kind);
    if (reported.contains(key))
        return;
    reported.insert(key);
    report(kind, codePoint, position);
}

} // namespace check
