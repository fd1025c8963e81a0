#ifndef ZELMORA_CHECK_JOBVALUES_H
#define ZELMORA_CHECK_JOBVALUES_H

#include "check/jobelement.h"

namespace check {

/// Judges the values of an element that its method reads, where they print: what is missing, is no number or no date,
/// and what a print flag or the method itself keeps off the paper.
void judgeValues(const JobElement& element, Findings& findings);

/// Why nothing of an element prints, for the trace, translated: that it is ignored, switched off, only kept ...
QString reasonOfSilence(const JobElement& element);

} // namespace check

#endif
