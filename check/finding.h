#ifndef ZELMORA_CHECK_FINDING_H
#define ZELMORA_CHECK_FINDING_H

#include "check/codes.h"
#include "toolkit/textplaces.h"

#include <QString>
#include <QVector>

namespace check {

/// Something in a file that whoever wrote it should know, for a person at a till: what is wrong, what will happen, what
/// to do.
struct Finding {
    Code code;
    Severity severity;
    toolkit::TextPlace place; ///< line and column from 1; a column is a character
    QString text; ///< translated; one sentence or several. It may hold what the file holds, line breaks too.
    QString suggestion = {}; ///< what should stand there instead; empty where there is no such text
};

using Findings = QVector<Finding>;

/// A finding of the severity that its code has; the graver one where it has two.
inline Finding finding(Code code, toolkit::TextPlace place, const QString& text, const QString& suggestion = {})
{
    return {code, entry(code).severity, place, text, suggestion};
}

/// Brings @p findings into the order of their file; those of one place stay in the order in which they were made.
void sortByPlace(Findings& findings);

} // namespace check

#endif
