#include "paper/scene.h"

#include "driver/registercommands.h"
#include "paper/cells.h"
#include "paper/strips.h"

#include <algorithm>

namespace paper {

namespace {

using registercommands::paperWidth;

const int margin = 20; ///< of the drawing, and between its parts
const int padding = 10; ///< between the edge of a paper and its rows
const int barWidth = 4;
const int paperSize = paperWidth * Scene::cellWidth + 2 * padding; ///< its width

/// From the left of the paper; what is past its edge stands beside it.
int columnLeft(int column)
{
    return padding + column * Scene::cellWidth + (column < paperWidth ? 0 : padding);
}

void drawText(Canvas& canvas, const QString& text, int most, QPoint begin, int (*leftOf)(int column))
{
    CellReader reader(text);
    while (reader.next() && reader.cell().column + reader.cell().width <= most) {
        const Cell& cell = reader.cell();
        const QPoint corner = begin + QPoint(leftOf(cell.column), 0);
        if (cell.drawn != QLatin1String(" "))
            canvas.drawCell({corner, QSize(cell.width * Scene::cellWidth, Scene::cellHeight)}, cell.drawn);
    }
}

/// The ground of columns; in two parts where they reach past the edge.
void drawMark(Canvas& canvas, const MarkedColumns& columns, int most, QPoint begin)
{
    const int end = std::min(most, columns.begin + columns.width);
    const auto draw = [&](int from, int to) {
        const QSize size((to - from) * Scene::cellWidth, Scene::cellHeight);
        if (from < to)
            canvas.drawMark({begin + QPoint(columnLeft(from), 0), size}, columns.mark);
    };
    draw(columns.begin, std::min(end, paperWidth));
    draw(std::max(columns.begin, paperWidth), end);
}

bool isChanged(const Row& row)
{
    return std::any_of(row.marked.begin(), row.marked.end(),
                       [](const MarkedPart& part) { return part.mark == Mark::Changed; });
}

} // namespace

Scene::Scene(const Sheet& sheet)
    : sheet(sheet)
    , wholeSize(0, margin)
{
    for (const Sheet::Band& band : sheet.bands) {
        places += placeBand(band, wholeSize.height());
        wholeSize.setHeight(places.last().bottom + margin);
    }
    wholeSize = wholeSize.expandedTo({2 * margin, 2 * margin});
}

Scene::BandPlace Scene::placeBand(const Sheet::Band& band, int top)
{
    BandPlace place;
    place.top = top;
    place.papers = top + (hasTitle(band) ? titleHeight : 0);
    place.rows = place.papers + padding;
    place.bottom = place.rows + rowCount(band) * cellHeight + padding;
    int left = margin;
    for (int i = 0; i < band.size(); ++i) {
        place.most += mostColumns(band, i);
        place.lefts += left;
        const int columns = drawnColumns(band.at(i), place.most.last());
        left += (columns > paperWidth ? columnLeft(columns) : paperSize) + margin;
    }
    wholeSize.setWidth(std::max(wholeSize.width(), left));
    return place;
}

/// The first band that ends below @p y, or how many there are: a page looks at its own alone.
int Scene::bandAt(int y) const
{
    const auto found =
        std::partition_point(places.begin(), places.end(), [y](const BandPlace& place) { return place.bottom <= y; });
    return static_cast<int>(found - places.begin());
}

void Scene::draw(Canvas& canvas, int top, int bottom) const
{
    for (int i = bandAt(top); i < places.size() && places.at(i).top < bottom; ++i) {
        for (int strip = 0; strip < sheet.bands.at(i).size(); ++strip)
            drawStrip(canvas, places.at(i), strip, sheet.bands.at(i).at(strip), {top, bottom});
    }
}

void Scene::drawStrip(Canvas& canvas, const BandPlace& place, int index, const Strip& strip, Extent extent) const
{
    const int left = place.lefts.at(index);
    const auto leftOf = [](int column) { return column * cellWidth; };
    if (place.top >= extent.top && place.papers <= extent.bottom)
        drawText(canvas, strip.title, place.most.at(index), {left, place.top}, leftOf);
    const int bottom = place.rows + strip.rows.size() * cellHeight + padding;
    const QRect paper = QRect(left, place.papers, paperSize, bottom - place.papers)
        & QRect(left, extent.top, paperSize, extent.bottom - extent.top);
    if (!strip.isThere || paper.isEmpty())
        return;
    canvas.drawPaper(paper);
    const int first = std::max(0, (extent.top - place.rows + cellHeight - 1) / cellHeight);
    const int end = std::min<int>(strip.rows.size(), (extent.bottom - place.rows) / cellHeight);
    for (int row = first; row < end; ++row)
        drawRow(canvas, strip.rows.at(row), place.most.at(index), {left, place.rows + row * cellHeight});
}

void Scene::drawRow(Canvas& canvas, const Row& row, int most, QPoint begin) const
{
    if (isChanged(row))
        canvas.drawChangeBar({begin, QSize(barWidth, cellHeight)});
    for (const MarkedColumns& columns : markedColumns(row))
        drawMark(canvas, columns, most, begin);
    drawText(canvas, row.text, goesPastEdge(row) ? most : paperWidth, begin, columnLeft);
}

int Scene::pageEnd(int top, int height) const
{
    const int end = top + height;
    const int cut = bandAt(end + padding);
    if (cut == places.size())
        return wholeSize.height(); // what is left is margin
    const BandPlace& place = places.at(cut);
    if (end <= place.top)
        return place.top;
    const int rows = (end - place.rows) / cellHeight;
    const int between = end < place.rows + cellHeight ? place.top : place.rows + rows * cellHeight;
    return between > top ? between : end;
}

} // namespace paper
