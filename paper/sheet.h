#ifndef ZELMORA_PAPER_SHEET_H
#define ZELMORA_PAPER_SHEET_H

#include "paper/roll.h"

namespace paper {

/// A piece of paper on a sheet.
struct Strip {
    QString title; ///< above it; may be empty
    Rows rows;
    bool isThere = true; ///< false: a place is kept for it, with its title, and no paper is drawn
};

/// Pieces of paper side by side, and such bands below each other. A strip is as wide as the paper.
struct Sheet {
    using Band = QVector<Strip>;
    QVector<Band> bands;
};

} // namespace paper

#endif
