#ifndef ZELMORA_PAPER_ROWMATCHES_H
#define ZELMORA_PAPER_ROWMATCHES_H

#include <QVector>

namespace paper {

/// Rows of two papers that are the same.
struct RowMatch {
    int left;
    int right;
};

/// Which rows of two papers, told by numbers, are the same ones: as many as there can be where the papers differ
/// little, in ascending order on both sides.
///
/// Where they differ much the rows between the common ones at the beginning and at the end are matched with nothing:
/// so time and memory stay in proportion to the rows.
QVector<RowMatch> rowMatches(const QVector<int>& left, const QVector<int>& right);

} // namespace paper

#endif
