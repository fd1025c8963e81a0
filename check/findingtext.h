#ifndef ZELMORA_CHECK_FINDINGTEXT_H
#define ZELMORA_CHECK_FINDINGTEXT_H

#include "check/finding.h"

namespace vocabulary {
struct Method;
}

namespace check {

/// @p text of the job as a finding shows it: its beginning, when it is long.
QString shown(const QString& text);
/// "printFullOrder, printSold".
QString namesOf(const QVector<const vocabulary::Method*>& methods);

/// With the usual severity of @p code: the graver one where there are two.
void add(Findings& findings, Code code, toolkit::TextPlace place, const QString& text,
         const QString& suggestion = QString());
/// With the lesser one.
void addLesser(Findings& findings, Code code, toolkit::TextPlace place, const QString& text);

} // namespace check

#endif
