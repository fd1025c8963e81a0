#ifndef ZELMORA_CHECK_JOBNAMES_H
#define ZELMORA_CHECK_JOBNAMES_H

#include "check/jobelement.h"

namespace check {

/// Whether some print method reads elements of that name, or it is "method".
bool isKnownElement(const QString& name);

/// Finds names that nobody reads, or that the element's own method does not, and attributes that stand twice.
void judgeNames(const JobElement& element, Findings& findings);
/// The name of a print method that is none, in @p element.
void judgeUnknownMethod(const JobElement& element, Findings& findings);

} // namespace check

#endif
