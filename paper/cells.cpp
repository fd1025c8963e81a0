#include "paper/cells.h"

#include "driver/registercommands.h"
#include "paper/characters.h"

namespace paper {

namespace {

const int mostMarks = 8;
const QChar dottedCircle(0x25CC);

void append(QString& text, uint codePoint)
{
    if (QChar::requiresSurrogates(codePoint))
        text += QChar(QChar::highSurrogate(codePoint));
    text +=
        QChar(QChar::requiresSurrogates(codePoint) ? QChar::lowSurrogate(codePoint) : static_cast<ushort>(codePoint));
}

} // namespace

CellReader::CellReader(const QString& text)
    : text(text)
{
}

bool CellReader::next()
{
    if (current.end == text.size())
        return false;
    current.begin = current.end;
    current.column += current.width;
    current.drawn.truncate(0);
    int index = current.end;
    const uint codePoint = nextCharacter(text, index);
    const Shape shape = shapeOf(codePoint);
    if (shape == Shape::Combining)
        current.drawn += dottedCircle;
    else
        current.end = index;
    if (shape != Shape::Combining)
        append(current.drawn, picture(codePoint));
    current.width = shape == Shape::Wide ? 2 : 1;
    if (current.column == registercommands::paperWidth - 1 && current.width == 2)
        ++current.column;
    join();
    return true;
}

void CellReader::join()
{
    for (int marks = 0; current.end < text.size(); ++marks) {
        int index = current.end;
        const uint codePoint = nextCharacter(text, index);
        if (shapeOf(codePoint) != Shape::Combining)
            return;
        if (marks < mostMarks)
            append(current.drawn, codePoint);
        current.end = index;
    }
}

int columns(const QString& text)
{
    CellReader reader(text);
    while (reader.next()) {
    }
    return reader.cell().column + reader.cell().width;
}

QVector<MarkedColumns> markedColumns(const Row& row)
{
    QVector<MarkedColumns> all;
    for (const MarkedPart& part : row.marked) {
        CellReader reader(row.text);
        while (reader.next() && reader.cell().end <= part.begin) {
        }
        const bool isBehind = reader.cell().end <= part.begin;
        MarkedColumns columns {part.mark, reader.cell().column + (isBehind ? reader.cell().width : 0), 1};
        if (!isBehind) {
            while (reader.cell().end < part.begin + part.length && reader.next()) {
            }
            columns.width = reader.cell().column + reader.cell().width - columns.begin;
        }
        all += columns;
    }
    return all;
}

} // namespace paper
