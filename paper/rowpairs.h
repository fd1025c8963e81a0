#ifndef ZELMORA_PAPER_ROWPAIRS_H
#define ZELMORA_PAPER_ROWPAIRS_H

#include "paper/rowmatches.h"

#include <QStringList>

namespace paper {

/// How many characters two rows have in common at the beginning, and at the end behind that. No character is taken
/// apart, and no mark from what it joins.
struct CommonParts {
    int begin; ///< in UTF-16 units
    int end;
};
CommonParts commonParts(const QString& left, const QString& right);

/// Which rows of two papers stand beside each other, none of the left being the same as one of the right: those that
/// became one another, as far as that can be told by what they have in common, and else as many as there can be, the
/// first ones first. In ascending order on both sides.
///
/// Of very many rows, or very long ones, the first stands beside the first, and so on: so the work stays bounded.
QVector<RowMatch> rowPairs(const QStringList& left, const QStringList& right);

} // namespace paper

#endif
