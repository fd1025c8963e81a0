#ifndef ZELMORA_SETTINGS_FOLDERLOCK_H
#define ZELMORA_SETTINGS_FOLDERLOCK_H

class QString;

namespace settings {

/// Keeps others who use it from the settings files of a folder while one of them is read, changed and written.
///
/// It is the system's lock (flock) of the folder itself. So it is there before the file is, and stays the same when a
/// new file takes the place of the old one; it needs no leave to write in the folder; it is gone with its holder,
/// however that ends; and there is never a file left of it. Where the system has no lock to give, for a folder that may
/// not be read or in a file system without locks, nobody waits for anybody.
class FolderLock {
public:
    /// Of the folder of the file @p path; when that is a link, of the one that it leads to. The folder must exist.
    explicit FolderLock(const QString& path);
    /// Gives it back.
    ~FolderLock();

    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Takes the lock; while another one has it, tries for so many milliseconds. False when that is not enough.
    bool take(int milliseconds);

private:
    const int folder;
};

} // namespace settings

#endif
