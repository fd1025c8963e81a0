#include "paper/rows.h"

#include "driver/registercommands.h"
#include "paper/cells.h"
#include "paper/commandreader.h"

#include <QStringList>

#include <algorithm>

namespace paper {

namespace {

using registercommands::paperWidth;

/// Where in @p text the first cell past the edge begins; its size where there is none.
int edgeOf(const QString& text)
{
    CellReader reader(text);
    while (reader.next()) {
        if (reader.cell().column >= paperWidth)
            return reader.cell().begin;
    }
    return text.size();
}

} // namespace

bool isBlank(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit == QLatin1Char(' '); });
}

Row withEdge(Row row)
{
    const int edge = row.text.size() > paperWidth / 2 ? edgeOf(row.text) : row.text.size();
    if (edge < row.text.size() && !isBlank(row.text))
        row.marked += MarkedPart {Mark::PastEdge, edge, row.text.size() - edge};
    return row;
}

Row textRow(const Command& command, toolkit::TextPlace place)
{
    Row row {command.text + command.behindQuote, {}, place};
    if (!command.behindQuote.isEmpty())
        row.marked += MarkedPart {Mark::BehindQuote, command.text.size(), command.behindQuote.size()};
    return row;
}

void addBeside(Rows& rows, Row left, const QString& right)
{
    const int leftWidth = columns(left.text);
    const int rightWidth = columns(right);
    const bool hasRoom = leftWidth + (leftWidth > 0 ? 1 : 0) + rightWidth <= paperWidth;
    const toolkit::TextPlace place = left.place;
    const int taken = rightWidth + (hasRoom ? leftWidth : 0);
    const QString atTheEdge = QString(std::max(0, paperWidth - taken), QLatin1Char(' ')) + right;
    if (hasRoom)
        left.text += atTheEdge;
    rows += withEdge(std::move(left));
    if (!hasRoom)
        rows += withEdge({atTheEdge, {}, place});
}

void addWrapped(Rows& rows, const QString& text, toolkit::TextPlace place)
{
    QString line;
    for (const QString& word : text.split(QLatin1Char(' '))) {
        const bool isFirst = line.isEmpty();
        if (!isFirst && columns(line) + 1 + columns(word) > paperWidth) {
            rows += withEdge({line, {}, place});
            line = word;
        } else {
            line += isFirst ? word : QLatin1Char(' ') + word;
        }
    }
    rows += withEdge({line, {}, place});
}

} // namespace paper
