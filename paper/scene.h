#ifndef ZELMORA_PAPER_SCENE_H
#define ZELMORA_PAPER_SCENE_H

#include "paper/sheet.h"

#include <QRect>
#include <QSize>
#include <QVector>

namespace paper {

/// Takes a drawing, in units from its upper left corner. What comes later lies above.
class Canvas {
public:
    virtual ~Canvas() = default;

    virtual void drawPaper(const QRect& area) = 0;
    /// The ground of marked cells.
    virtual void drawMark(const QRect& area, Mark mark) = 0;
    /// At the left of a row that changed.
    virtual void drawChangeBar(const QRect& area) = 0;
    /// One cell's characters in the middle of @p area.
    virtual void drawCell(const QRect& area, const QString& characters) = 0;
};

/// Where everything of a sheet stands in a drawing for the eye: papers on a ground, a cell for each character, so that
/// columns are straight whatever the font.
class Scene {
public:
    static constexpr int cellWidth = 10;
    static constexpr int cellHeight = 20;
    static constexpr int titleHeight = 24;

    /// @p sheet must outlive it.
    explicit Scene(const Sheet& sheet);

    QSize size() const { return wholeSize; }
    /// Draws the rows and titles that lie between @p top and @p bottom as a whole; papers are cut there.
    void draw(Canvas& canvas, int top, int bottom) const;
    void draw(Canvas& canvas) const { draw(canvas, 0, wholeSize.height()); }
    /// Where a page that begins at @p top and has room for @p height ends: between two rows, or before a title. It may
    /// end a little below that room, where nothing but margin lies beyond.
    int pageEnd(int top, int height) const;
    /// The top of row number @p row in band number @p band.
    int rowTop(int band, int row) const { return places.at(band).rows + row * cellHeight; }

private:
    struct BandPlace {
        int top = 0; ///< of the titles
        int papers = 0; ///< top of the papers
        int rows = 0; ///< top of the rows
        int bottom = 0; ///< of the longest paper
        QVector<int> lefts = {}; ///< of the strips' papers
        QVector<int> most = {}; ///< columns of each strip that are drawn
    };

    /// Of a drawing, from its top.
    struct Extent {
        int top;
        int bottom;
    };

    BandPlace placeBand(const Sheet::Band& band, int top);
    int bandAt(int y) const;
    void drawStrip(Canvas& canvas, const BandPlace& place, int index, const Strip& strip, Extent extent) const;
    void drawRow(Canvas& canvas, const Row& row, int most, QPoint begin) const;

    const Sheet& sheet;
    QVector<BandPlace> places;
    QSize wholeSize;
};

} // namespace paper

#endif
