#ifndef ZELMORA_PREVIEW_OUTPUT_H
#define ZELMORA_PREVIEW_OUTPUT_H

#include "preview/tasks.h"

namespace paper {
struct Sheet;
}

namespace preview {

/// Draws @p sheet as @p call says, to where it says. A file is whole, or as it was.
ExitStatus put(const paper::Sheet& sheet, const Call& call);
/// Writes @p text to where @p call says: in UTF-8 into a file, in the locale's encoding to standard output.
ExitStatus put(const QString& text, const Call& call);
/// Writes @p text and a line end to standard output.
ExitStatus say(const QString& text);

} // namespace preview

#endif
