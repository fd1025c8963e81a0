#ifndef ZELMORA_PAPER_STRIPS_H
#define ZELMORA_PAPER_STRIPS_H

#include "paper/sheet.h"

/// What drawings of all kinds agree on.
namespace paper {

/// Columns of a strip that are drawn at most. Only where nothing stands to its right that is all there are.
int mostColumns(const Sheet::Band& band, int strip);

/// Whether something past the edge of the paper is drawn. Blanks that are not marked are not.
bool goesPastEdge(const Row& row);

/// The columns that the row and its marks take, past the edge too.
int drawnColumns(const Row& row);
/// Those of the widest row or of the title, but no more than @p most; at least those of the paper.
int drawnColumns(const Strip& strip, int most);

/// Of the longest strip.
int rowCount(const Sheet::Band& band);
bool hasTitle(const Sheet::Band& band);

} // namespace paper

#endif
