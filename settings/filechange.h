#ifndef ZELMORA_SETTINGS_FILECHANGE_H
#define ZELMORA_SETTINGS_FILECHANGE_H

#include "settings/folderlock.h"
#include "settings/settingsfile.h"

namespace settings {

/// Why nothing is to be written from what was read of @p file, whoever asks for it: it is none of the suite's, or there
/// is text before its first group, which hides that. Empty when neither is so.
QString whyNotWritten(const SettingsFile& file);

/// One change of a settings file that others may want to change as well: read, changed and written while the folder is
/// locked, and only when nothing is lost that nobody gave up.
///
/// Each step says what is in its way, in a sentence that ends the change; empty when nothing is.
class FileChange {
public:
    static const int patience = 5000; ///< milliseconds that begin() waits for another change to end

    explicit FileChange(const QString& path);

    /// Locks the folder, which must exist, and reads the file. A missing one is empty.
    QString begin();

    SettingsFile file; ///< to be changed after begin()

    /// To be called when the file was changed: what it would hold, and why it can't.
    QString tryWriting();
    const SettingsFile::Trial& trial() const { return tried; }

    /// What the file has and would not have any more, beside what was changed: a text of one line for each, with its
    /// place. Secrets are not shown.
    QStringList losses() const;

    /// Writes what was tried, a new file for the user alone. When there are losses, what the file held is kept beside
    /// it. Nothing is written when another program has changed the file since begin().
    QString save();

private:
    const QString path;
    FolderLock lock;
    bool isNew = false;
    SettingsFile::Trial tried;
};

} // namespace settings

#endif
