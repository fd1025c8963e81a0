#ifndef ZELMORA_PAPER_ROWS_H
#define ZELMORA_PAPER_ROWS_H

#include "paper/roll.h"

namespace paper {

struct Command;

/// Whether @p text has no character but blanks.
bool isBlank(const QString& text);

/// @p row with what goes past the edge of the paper marked, unless the row is blank.
Row withEdge(Row row);

/// The text of a line or of a sale, and what stands behind its quote, marked. The edge is not marked yet.
Row textRow(const Command& command, toolkit::TextPlace place);

/// Adds @p left with @p right at the right edge; where they have no room beside each other, @p right in a row of its
/// own.
void addBeside(Rows& rows, Row left, const QString& right);

/// Adds @p text, broken at its blanks.
void addWrapped(Rows& rows, const QString& text, toolkit::TextPlace place);

} // namespace paper

#endif
