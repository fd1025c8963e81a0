#ifndef ZELMORA_SETTINGS_HISTORY_H
#define ZELMORA_SETTINGS_HISTORY_H

#include "settings/treechange.h"

namespace settings {

/// The changes of a tree that can be taken back, and of those that were, done once more.
class History {
public:
    /// Notes @p change, which was done. What was taken back before is forgotten. @p text says what was done, for the
    /// menu: "paperWidth".
    ///
    /// Changes that follow each other with the same @p typing, that is not empty, are one: somebody types a value. When
    /// nothing of it is left, it is none.
    void add(const TreeChange& change, const QString& text, const QString& typing = QString());
    /// What follows is a change of its own.
    void endTyping() { typed.clear(); }
    void clear();

    bool canUndo() const { return done > 0; }
    bool canRedo() const { return done < entries.size(); }
    QString undoText() const; ///< of what would be taken back; empty when there is nothing
    QString redoText() const;

    /// What takes the last change back; to be applied to the tree. There must be one.
    TreeChange undo();
    /// What does it once more.
    TreeChange redo();

private:
    struct Entry {
        TreeChange change;
        QString text;
    };

    QVector<Entry> entries;
    int done = 0; ///< of the entries; the rest was taken back
    QString typed; ///< the typing of the last entry, while it goes on
};

} // namespace settings

#endif
