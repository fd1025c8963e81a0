#ifndef ZELMORA_SETTINGS_FILEREVIEW_H
#define ZELMORA_SETTINGS_FILEREVIEW_H

#include "toolkit/textplaces.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace settings {

/// Something in a settings file that a file lacks which is written from what was read: a stray word, a comment, an
/// empty group, a top-level group but the first, the earlier value of a repeated setting, quotes in a value.
struct FileRemark {
    /// The name (":" for a group without one), or "key = value" (where a long key is cut), or what else is meant, as it
    /// stands in the file.
    QString text;
    toolkit::TextPlace place; ///< of the name or the text
    QString emptyGroup; ///< of a group that holds nothing: what the keys in it would begin with
};

/// A settings file looked through from its first byte to its last, for those who save it. What is wrong with it is for
/// check/settingscheck.h.
struct FileReview {
    QVector<FileRemark> dropped; ///< in the order of the file
    QStringList topLevelGroups; ///< their names, in the order of the file; those that hold nothing too
    bool isWellFormed = true; ///< false: XML that breaks off, of which nothing is read
    bool isHiddenByItsBeginning = false; ///< XML whose first group is not what comes first: nothing of it is found
};

/// Looks through the settings file that holds @p bytes, in the brace format ("cfg") or XML ("xml"). Takes time and
/// memory in proportion to them.
FileReview reviewOf(const QByteArray& bytes, const QString& format);

} // namespace settings

#endif
