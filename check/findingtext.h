#ifndef ZELMORA_CHECK_FINDINGTEXT_H
#define ZELMORA_CHECK_FINDINGTEXT_H

#include "check/finding.h"

namespace vocabulary {
struct Method;
}

namespace check {

/// The first @p longest UTF-16 units of @p text; one less where that would halve a character.
QString beginning(const QString& text, int longest);
/// @p text as a person is shown it: of what is longer than @p longest units the beginning and "...". A file may hold
/// megabytes, which nobody reads and each finding would keep.
QString shown(const QString& text, int longest = 80);
/// @p text, and the question whether @p meant is; the text alone when that is empty.
QString withQuestion(const QString& text, const QString& meant);
/// "printFullOrder, printSold".
QString namesOf(const QVector<const vocabulary::Method*>& methods);

/// That a file cannot be read, and why.
Finding unreadable(const QString& reason);

/// With the usual severity of @p code: the graver one where there are two.
void add(Findings& findings, Code code, toolkit::TextPlace place, const QString& text,
         const QString& suggestion = QString());
/// With the lesser one.
void addLesser(Findings& findings, Code code, toolkit::TextPlace place, const QString& text);

} // namespace check

#endif
