#ifndef ZELMORA_PREVIEW_SCRIPTPAIR_H
#define ZELMORA_PREVIEW_SCRIPTPAIR_H

#include "paper/sheet.h"

class QTextCodec;

namespace preview {

/// One side of a comparison.
struct Side {
    QString title;
    bool isThere = false;
    QByteArray script;
};

/// What two scripts have on paper that is not the same.
struct Difference {
    /// The documents that differ, the left one beside the right one, with the changed parts marked.
    QVector<paper::Sheet::Band> bands;
    bool isWithoutTrace = false; ///< the scripts are not the same, and their papers are
};

/// Of a side that is not there all documents differ. @p encoding: of the scripts; null: the locale's.
Difference differenceOf(const Side& left, const Side& right, QTextCodec* encoding);

} // namespace preview

#endif
