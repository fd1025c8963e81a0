#ifndef ZELMORA_SETTINGS_FILEREVIEW_H
#define ZELMORA_SETTINGS_FILEREVIEW_H

#include "toolkit/textplaces.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace settings {

/// Something in a settings file that whoever saves it, or looks for an effect of it, should know.
struct FileRemark {
    enum class Kind {
        Dropped, ///< a file that is written from what was read lacks it: a stray word, a comment, an empty group, a
                 ///< top-level group but the first, the earlier value of a repeated setting, quotes in a value
        NoKey, ///< no program finds what has this name: a stray sign, or a whole remark, is part of it
        Outside, ///< a setting outside every group, which no program finds
        Swallowing ///< a setting whose value runs on into the next line, and over what stands there
    };

    Kind kind;
    /// The name (":" or "=" for a group or setting without one), or "key = value" (where a long key is cut), or what
    /// else is meant, as it stands in the file.
    QString text;
    toolkit::TextPlace place; ///< of the name or the text
};

/// A settings file looked through from its first byte to its last.
struct FileReview {
    QVector<FileRemark> remarks; ///< in the order of the file
    QStringList topLevelGroups; ///< their names, in the order of the file; those that hold nothing too
    bool isWellFormed = true; ///< false: XML that breaks off, of which nothing is read
    bool isHiddenByItsBeginning = false; ///< XML whose first group is not what comes first: nothing of it is found

    /// The remarks of one kind.
    QVector<FileRemark> only(FileRemark::Kind kind) const;
};

/// Looks through the settings file that holds @p bytes, in the brace format ("cfg") or XML ("xml"). Takes time and
/// memory in proportion to them.
FileReview reviewOf(const QByteArray& bytes, const QString& format);

} // namespace settings

#endif
