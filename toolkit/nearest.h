#ifndef ZELMORA_TOOLKIT_NEAREST_H
#define ZELMORA_TOOLKIT_NEAREST_H

#include <QStringList>

class QString;

namespace toolkit {

/// Whether @p name is a slip of @p meant: at most two characters are missing, too many or others (Levenshtein; two
/// neighbours exchanged are two others). Upper case is another character. The same text counts as one too.
///
/// The time is bounded by the length of @p meant, whatever that of @p name.
bool isSlip(const QString& name, const QString& meant);

/// Which of @p names was probably meant by @p name: the one that differs in upper and lower case alone; else the first
/// of those of which it is the smallest slip, as long as that is half of its characters at most. Empty when none is
/// near.
QString nearest(const QString& name, const QStringList& names);

} // namespace toolkit

#endif
