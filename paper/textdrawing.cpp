#include "driver/registercommands.h"
#include "paper/cells.h"
#include "paper/characters.h"
#include "paper/drawing.h"
#include "paper/strips.h"

#include <algorithm>

namespace paper {

namespace {

using registercommands::paperWidth;

struct FrameParts {
    QChar upperLeft, upperRight, lowerLeft, lowerRight;
    QChar across, down;
};

const FrameParts boxParts {QChar(0x250C), QChar(0x2510), QChar(0x2514), QChar(0x2518), QChar(0x2500), QChar(0x2502)};
const FrameParts asciiParts {u'+', u'+', u'+', u'+', u'-', u'|'};

const int gap = 2; ///< blanks between strips
const int frameWidth = 2; ///< columns

QString blanks(int count)
{
    return QString(std::max(0, count), QLatin1Char(' '));
}

/// A text and the columns that it takes.
struct Piece {
    QString text = {};
    int width = 0;
};

Piece edge(QChar left, QChar across, QChar right)
{
    return {left + QString(paperWidth, across) + right, frameWidth + paperWidth};
}

/// The row in its frame, and past its edge what has no room, in at most @p most columns.
Piece rowPiece(const Row& row, const FrameParts& parts, int most)
{
    const int end = goesPastEdge(row) ? most : paperWidth;
    Piece onPaper;
    Piece past;
    CellReader reader(row.text);
    while (reader.next() && reader.cell().column + reader.cell().width <= end) {
        Piece& piece = reader.cell().column < paperWidth ? onPaper : past;
        piece.text += reader.cell().drawn;
        piece.width += reader.cell().width;
    }
    return {parts.down + onPaper.text + blanks(paperWidth - onPaper.width) + parts.down + past.text,
            frameWidth + paperWidth + past.width};
}

/// What stands below the row in the place of its marks; empty where there are none.
Piece marksPiece(const Row& row, int most)
{
    Piece piece;
    for (const MarkedColumns& columns : markedColumns(row)) {
        for (int column = columns.begin; column < std::min(most, columns.begin + columns.width); ++column) {
            const int position = column + (column < paperWidth ? 1 : frameWidth);
            piece.text += blanks(position + 1 - piece.text.size());
            piece.text[position] = QLatin1Char('^');
        }
    }
    piece.width = piece.text.size();
    return piece;
}

/// Draws strips side by side, line by line.
class BandDrawing {
public:
    BandDrawing(const Sheet::Band& band, const FrameParts& parts, QString& drawing);

    void draw();

private:
    template <typename PieceOf>
    void addLine(PieceOf pieceOf);
    Piece paperPiece(const Strip& strip, int row, int most) const;

    const Sheet::Band& band;
    const FrameParts& parts;
    QString& drawing;
    QVector<int> most; ///< columns of each strip that are drawn
    QVector<int> widths; ///< columns that each takes, its frame too
};

BandDrawing::BandDrawing(const Sheet::Band& band, const FrameParts& parts, QString& drawing)
    : band(band)
    , parts(parts)
    , drawing(drawing)
{
    for (int i = 0; i < band.size(); ++i) {
        most += mostColumns(band, i);
        widths += i + 1 < band.size() ? frameWidth + drawnColumns(band.at(i), most.at(i)) : 0;
    }
}

/// A line of what @p pieceOf gives for each strip; none where all of that is empty.
template <typename PieceOf>
void BandDrawing::addLine(PieceOf pieceOf)
{
    QString line;
    int width = 0;
    int begin = 0;
    for (int i = 0; i < band.size(); ++i) {
        const Piece piece = pieceOf(band.at(i), most.at(i));
        if (!piece.text.isEmpty()) {
            line += blanks(begin - width) + piece.text;
            width = begin + piece.width;
        }
        begin += widths.at(i) + gap;
    }
    if (!line.isEmpty())
        drawing += line + QLatin1Char('\n');
}

/// The row of a strip, or what stands in its place behind the last one.
Piece BandDrawing::paperPiece(const Strip& strip, int row, int most) const
{
    if (!strip.isThere || row > strip.rows.size())
        return {};
    return row < strip.rows.size() ? rowPiece(strip.rows.at(row), parts, most)
                                   : edge(parts.lowerLeft, parts.across, parts.lowerRight);
}

void BandDrawing::draw()
{
    addLine([](const Strip& strip, int) { return Piece {withPictures(strip.title), columns(strip.title)}; });
    addLine([this](const Strip& strip, int) {
        return strip.isThere ? edge(parts.upperLeft, parts.across, parts.upperRight) : Piece();
    });
    for (int row = 0; row <= rowCount(band); ++row) {
        addLine([&](const Strip& strip, int most) { return paperPiece(strip, row, most); });
        addLine([&](const Strip& strip, int most) {
            return row < strip.rows.size() && strip.isThere ? marksPiece(strip.rows.at(row), most) : Piece();
        });
    }
}

} // namespace

QString textDrawing(const Sheet& sheet, Frame frame)
{
    QString drawing;
    for (const Sheet::Band& band : sheet.bands) {
        if (!drawing.isEmpty())
            drawing += QLatin1Char('\n');
        BandDrawing(band, frame == Frame::Box ? boxParts : asciiParts, drawing).draw();
    }
    return drawing;
}

QString plainText(const Document& document)
{
    QString text;
    for (const Row& row : document.rows)
        text += withPictures(row.text) + QLatin1Char('\n');
    return text;
}

} // namespace paper
