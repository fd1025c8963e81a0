#ifndef ZELMORA_PAPER_COMPARISON_H
#define ZELMORA_PAPER_COMPARISON_H

#include "paper/sheet.h"

namespace paper {

/// Whether two rolls look the same on paper: the same documents with the same rows, wherever these come from.
bool looksAlike(const Roll& left, const Roll& right);

/// The rows of both, made equally many by empty ones where one has nothing for the other's, with the parts that differ
/// marked as changed. Takes time and memory in proportion to them.
struct AlignedRows {
    Rows left;
    Rows right;
};
AlignedRows alignedRows(const Rows& left, const Rows& right);

/// @p rows with the parts marked as changed that are not what they were in @p before. Rows that are gone leave no
/// trace.
Rows withChanges(const Rows& rows, const Rows& before);

} // namespace paper

#endif
