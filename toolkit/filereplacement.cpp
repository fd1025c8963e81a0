// The toolkit's QSaveFile is not enough here: it does not say when the sync fails, nor which failures mean that the
// folder takes no new file, and its temporary name needs room behind the file's own.

#include "toolkit/filereplacement.h"

#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/writesignals.h"

#include <QByteArray>
#include <QRandomGenerator>

#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace toolkit {

namespace {

// Steps report as posix_fallocate() does: 0, or the number of the error.

int outcome(bool succeeded)
{
    return succeeded ? 0 : errno;
}

QString reason(int error)
{
    return error == 0 ? QString() : qt_error_string(error);
}

/// Null where @p names, one or several in a row, can be those of files.
QString unusableReason(const QString& names)
{
    const QString unusable = unusableName(names);
    if (!unusable.isEmpty())
        return unusable;
    return names.contains(QChar::Null) ? reason(EINVAL) : QString();
}

int openFile(const QByteArray& name, int flags, mode_t mode = 0)
{
    return static_cast<int>(TEMP_FAILURE_RETRY(open(name.constData(), flags | O_CLOEXEC | O_NOCTTY, mode)));
}

/// An open file, or the error of opening it. Closing has nothing left to report: whatever matters has been synced.
class Descriptor {
public:
    explicit Descriptor(int opened)
        : number(opened)
        , error(outcome(opened >= 0))
    {
    }

    ~Descriptor()
    {
        if (number >= 0)
            close(number);
    }

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    const int number;
    const int error;
};

int writeAll(int file, const char* bytes, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = TEMP_FAILURE_RETRY(write(file, bytes, size));
        if (written <= 0)
            return written < 0 ? errno : EIO;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return 0;
}

/// Pipes and many devices have nothing to sync, which is EINVAL.
int sync(int file)
{
    return outcome(fsync(file) == 0 || errno == EINVAL);
}

QByteArray folderOf(const QByteArray& name)
{
    return name.left(name.lastIndexOf('/') + 1);
}

/// The name that @p name leads to, which may be missing. As many links as the system follows.
QByteArray withoutLinks(QByteArray name)
{
    char link[PATH_MAX];
    for (int links = 0; links < 40; ++links) {
        const ssize_t size = readlink(name.constData(), link, sizeof link);
        if (size < 0)
            break;
        const QByteArray next(link, static_cast<int>(size));
        name = next.startsWith('/') ? next : folderOf(name) + next;
    }
    return name;
}

/// False when the file has lost its name: a link in /proc then leads to a text that is not its name.
bool isNameOf(const QByteArray& name, const struct stat& file)
{
    struct stat named;
    return lstat(name.constData(), &named) == 0 && named.st_dev == file.st_dev && named.st_ino == file.st_ino;
}

/// What root writes for another user stays that user's. Others may not give files away, but keep a group of theirs.
/// False when the group is another one.
bool keepOwner(int file, const struct stat& old)
{
    const uid_t unchanged = static_cast<uid_t>(-1);
    return fchown(file, old.st_uid, old.st_gid) == 0 || fchown(file, unchanged, old.st_gid) == 0;
}

/// Another group may no more than others may: what the file holds was not meant for it.
int keepAttributes(int file, const struct stat& old)
{
    const mode_t forOthers = old.st_mode & S_IRWXO;
    const mode_t forGroup = keepOwner(file, old) ? old.st_mode & S_IRWXG : forOthers << 3;
    return outcome(fchmod(file, (old.st_mode & S_IRWXU) | forGroup | forOthers) == 0);
}

int writeAndSync(int file, const QByteArray& bytes)
{
    const int error = writeAll(file, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return error == 0 ? sync(file) : error;
}

int writeDirectly(const QByteArray& name, const QByteArray& bytes)
{
    const Descriptor file(openFile(name, O_WRONLY));
    return file.error == 0 ? writeAndSync(file.number, bytes) : file.error;
}

const mode_t forTheUserAlone = S_IRUSR | S_IWUSR;
const mode_t asTheUmaskLeavesIt = 0666;

int rename(const QByteArray& from, const QByteArray& to)
{
    return outcome(std::rename(from.constData(), to.constData()) == 0);
}

/// EEXIST when something has the name @p to.
int renameToFree(const QByteArray& from, const QByteArray& to)
{
    const int error = outcome(renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0);
    if (error != EINVAL && error != ENOSYS)
        return error;
    // A file system that can't tell has hard links, which replace nothing either.
    const int unlinked = outcome(link(from.constData(), to.constData()) == 0);
    return unlinked == 0 ? outcome(unlink(from.constData()) == 0) : unlinked;
}

/// The new file is made with @p mode. It gets the owner and the permissions of @p old, unless that is null, before
/// anything is written to it. @p giveName lets it take its place.
int putNewFileInPlace(const QByteArray& name, const QByteArray& bytes, mode_t mode, const struct stat* old = nullptr,
                      int (*giveName)(const QByteArray& from, const QByteArray& to) = rename)
{
    const quint64 number = QRandomGenerator::system()->generate64();
    const QByteArray newName = folderOf(name) + ".zelmora-" + QByteArray::number(number, 36);
    const Descriptor file(openFile(newName, O_WRONLY | O_CREAT | O_EXCL, mode));
    if (file.error != 0)
        return file.error;
    int error = old ? keepAttributes(file.number, *old) : 0;
    if (error == 0)
        error = writeAndSync(file.number, bytes);
    if (error == 0)
        error = giveName(newName, name);
    if (error != 0)
        unlink(newName.constData());
    return error;
}

/// The folder's refusal of a new file, or of one in the old one's place. A full disk is none.
bool isRefusal(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY || error == EXDEV
        || error == ENAMETOOLONG;
}

/// What a file holds, in memory. Memory that is not there is an error, not an exception: files can be large.
class Contents {
public:
    /// The first @p size bytes of @p file, or all when it has become shorter.
    int read(int file, std::size_t size)
    {
        if ((fcntl(file, F_GETFL) & O_ACCMODE) == O_WRONLY)
            return EACCES;
        bytes.reset(new (std::nothrow) char[size]);
        return bytes ? readUpTo(file, size) : ENOMEM;
    }

    const char* data() const { return bytes.get(); }
    std::size_t size() const { return length; }

private:
    int readUpTo(int file, std::size_t size)
    {
        while (length < size) {
            const ssize_t added = TEMP_FAILURE_RETRY(::read(file, bytes.get() + length, size - length));
            if (added <= 0)
                return outcome(added == 0);
            length += static_cast<std::size_t>(added);
        }
        return 0;
    }

    std::unique_ptr<char[]> bytes;
    std::size_t length = 0;
};

/// Where a file system can't reserve, the C library writes a byte into each new block; where that can't be done either,
/// the old contents still can be written back.
int reserve(int file, std::size_t size)
{
    int error = size == 0 ? 0 : EINTR;
    while (error == EINTR)
        error = posix_fallocate(file, 0, static_cast<off_t>(size));
    return error == EOPNOTSUPP || error == EINVAL || error == EBADF ? 0 : error;
}

int truncate(int file, off_t size)
{
    return outcome(TEMP_FAILURE_RETRY(ftruncate(file, size)) == 0);
}

/// What the file is too long by goes last.
int overwrite(int file, const char* bytes, std::size_t size)
{
    int error = outcome(lseek(file, 0, SEEK_SET) == 0);
    if (error == 0)
        error = writeAll(file, bytes, size);
    if (error == 0)
        error = truncate(file, static_cast<off_t>(size));
    return error == 0 ? sync(file) : error;
}

/// @p undoing is the outcome of bringing the old contents back.
QString reasonAfterUndoing(int error, int undoing)
{
    if (undoing == 0)
        return reason(error) + "; the file is as it was"_L1;
    return reason(error) + "; its old contents could not be written back: "_L1 + reason(undoing);
}

QString overwriteFile(int file, const QByteArray& bytes, off_t oldSize)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    Contents old;
    const int unread = old.read(file, static_cast<std::size_t>(oldSize));
    if (unread != 0 && unread != EACCES)
        return reason(unread);
    if (const int error = reserve(file, size))
        return reasonAfterUndoing(error, truncate(file, oldSize));
    if (const int error = overwrite(file, bytes.constData(), size))
        return reasonAfterUndoing(error, unread == 0 ? overwrite(file, old.data(), old.size()) : unread);
    return QString();
}

/// Without leave to make it, which the system refuses for another's file in a sticky folder. To be read too, if it may.
int openForWriting(const QByteArray& name)
{
    const int file = openFile(name, O_RDWR);
    return file < 0 && errno == EACCES ? openFile(name, O_WRONLY) : file;
}

QString replaceExistingFile(const QByteArray& name, const QByteArray& bytes)
{
    const Descriptor file(openForWriting(name));
    struct stat old;
    if (file.error != 0 || fstat(file.number, &old) != 0)
        return reason(file.error != 0 ? file.error : errno);
    const QByteArray target = withoutLinks(name);
    const int error = isNameOf(target, old) ? putNewFileInPlace(target, bytes, forTheUserAlone, &old) : EPERM;
    return isRefusal(error) ? overwriteFile(file.number, bytes, old.st_size) : reason(error);
}

} // namespace

QString replaceFile(const QString& name, const QByteArray& bytes)
{
    const WriteSignalsBlocked writeSignalsBlocked;
    const QByteArray file = fileName(name);
    const QString unusable = unusableReason(name);
    if (!unusable.isNull())
        return unusable;
    struct stat found;
    const int error = outcome(stat(file.constData(), &found) == 0);
    if (error == ENOENT && !file.isEmpty())
        return reason(putNewFileInPlace(withoutLinks(file), bytes, asTheUmaskLeavesIt));
    if (error != 0)
        return reason(error);
    return S_ISREG(found.st_mode) ? replaceExistingFile(file, bytes) : reason(writeDirectly(file, bytes));
}

QString replaceFileBeside(const QString& name, const QString& suffix, const QByteArray& bytes)
{
    const WriteSignalsBlocked writeSignalsBlocked;
    const QString unusable = unusableReason(name + suffix);
    if (!unusable.isNull())
        return unusable;
    const QByteArray original = withoutLinks(fileName(name));
    struct stat found;
    const int error = outcome(stat(original.constData(), &found) == 0);
    if (original.isEmpty() || (error != 0 && error != ENOENT))
        return reason(error);
    return reason(
        putNewFileInPlace(original + fileName(suffix), bytes, forTheUserAlone, error == 0 ? &found : nullptr));
}

QString createFile(const QString& name, const QByteArray& bytes, const QString& like)
{
    const WriteSignalsBlocked writeSignalsBlocked;
    const QString unusable = unusableReason(name + like);
    if (!unusable.isNull())
        return unusable;
    const QByteArray file = withoutLinks(fileName(name));
    struct stat old;
    const bool hasModel = !like.isEmpty();
    if (hasModel && stat(fileName(like).constData(), &old) != 0)
        return reason(errno);
    return reason(putNewFileInPlace(file, bytes, forTheUserAlone, hasModel ? &old : nullptr, renameToFree));
}

} // namespace toolkit
