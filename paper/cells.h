#ifndef ZELMORA_PAPER_CELLS_H
#define ZELMORA_PAPER_CELLS_H

#include "paper/roll.h"

#include <QString>

namespace paper {

/// One place on the paper, and what is drawn there.
struct Cell {
    QString drawn; ///< a character, or its picture, and the combining marks that joined it
    int column = 0; ///< from 0
    int width = 0; ///< 1 or 2
    int begin = 0; ///< of its characters in the row's text, in UTF-16 units
    int end = 0;
};

/// Goes through the cells of a row's text, one after the other.
///
/// A combining mark joins the cell before it, the first eight of them; further ones are not drawn. One with nothing
/// before it stands on a dotted circle. A wide character that has no room for both its halves moves past the edge of
/// the paper as a whole.
class CellReader {
public:
    /// @p text must outlive it.
    explicit CellReader(const QString& text);

    /// Moves to the next cell; false behind the last one.
    bool next();
    const Cell& cell() const { return current; }

private:
    void join();

    const QString& text;
    Cell current;
};

/// How many columns @p text takes.
int columns(const QString& text);

/// A marked part of a row, as columns.
struct MarkedColumns {
    Mark mark;
    int begin;
    int width; ///< 1 at least: what is gone is marked where it stood
};

QVector<MarkedColumns> markedColumns(const Row& row);

} // namespace paper

#endif
