#include "paper/strips.h"

#include "driver/registercommands.h"
#include "paper/cells.h"

#include <algorithm>
#include <climits>

namespace paper {

using registercommands::paperWidth;

int mostColumns(const Sheet::Band& band, int strip)
{
    const int besides = 100; // else one long row would move all that stands beside it out of sight
    return strip + 1 < band.size() ? paperWidth + besides : INT_MAX;
}

bool goesPastEdge(const Row& row)
{
    return std::any_of(row.marked.begin(), row.marked.end(),
                       [](const MarkedPart& part) { return part.mark == Mark::PastEdge; });
}

int drawnColumns(const Row& row)
{
    int drawn = goesPastEdge(row) ? columns(row.text) : std::min(paperWidth, columns(row.text));
    for (const MarkedColumns& marked : markedColumns(row))
        drawn = std::max(drawn, marked.begin + marked.width);
    return drawn;
}

int drawnColumns(const Strip& strip, int most)
{
    int drawn = std::max(paperWidth, columns(strip.title));
    for (const Row& row : strip.rows)
        drawn = std::max(drawn, drawnColumns(row));
    return std::min(drawn, most);
}

int rowCount(const Sheet::Band& band)
{
    int count = 0;
    for (const Strip& strip : band)
        count = std::max<int>(count, strip.rows.size());
    return count;
}

bool hasTitle(const Sheet::Band& band)
{
    return std::any_of(band.begin(), band.end(), [](const Strip& strip) { return !strip.title.isEmpty(); });
}

} // namespace paper
