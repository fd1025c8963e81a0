#ifndef ZELMORA_PREVIEW_COMPOSEDPAPER_H
#define ZELMORA_PREVIEW_COMPOSEDPAPER_H

#include "paper/sheet.h"
#include "preview/jobprinter.h"

#include <optional>

namespace preview {

/// A job, as it was printed.
struct PrintedPaper {
    QString title;
    PrintedJob now;
    std::optional<PrintedJob> before; ///< what it is to be compared with; nothing: no change is marked
};

struct ComposedPaper {
    paper::Sheet sheet; ///< the papers, one below the other
    QString trouble; ///< why that is not all, in translated sentences, a line each; empty when it is
};

/// The papers with what changed marked on them. Of a job that did not come to its end before, no change is known.
ComposedPaper compose(const QVector<PrintedPaper>& papers);

} // namespace preview

#endif
