#include "settings/backup.h"

#include "toolkit/writesignals.h"

#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace settings {

namespace {

/// The path of the file itself, where @p path leads to it through links.
QString behindLinks(const QString& path)
{
    const QString target = QFileInfo(path).canonicalFilePath();
    return target.isEmpty() ? path : target;
}

/// False with the reason in errno. A full disk takes a part first, without an error; it comes with the rest.
bool writeAll(int descriptor, const QByteArray& bytes)
{
    for (int size = 0; size < bytes.size();) {
        const ssize_t written =
            write(descriptor, bytes.constData() + size, static_cast<std::size_t>(bytes.size() - size));
        if (written < 0 && errno != EINTR)
            return false;
        size += static_cast<int>(qMax<ssize_t>(written, 0));
    }
    return true;
}

/// As those of the file @p path, if there is one. Users but root may not give files away, but keep a group of theirs.
bool takeOwnerAndMode(int descriptor, const QString& path)
{
    struct stat old;
    if (stat(QFile::encodeName(path).constData(), &old) != 0)
        return errno == ENOENT;
    const uid_t unchanged = static_cast<uid_t>(-1);
    const bool isSameGroup =
        fchown(descriptor, old.st_uid, old.st_gid) == 0 || fchown(descriptor, unchanged, old.st_gid) == 0;
    const mode_t forOthers = old.st_mode & S_IRWXO;
    const mode_t forGroup = isSameGroup ? old.st_mode & S_IRWXG : forOthers << 3;
    return fchmod(descriptor, (old.st_mode & S_IRWXU) | forGroup | forOthers) == 0;
}

} // namespace

QString keepBackup(const QString& path, const QByteArray& bytes)
{
    const toolkit::WriteSignalsBlocked writeSignalsBlocked;
    const QString original = behindLinks(path);
    // Under a short name of its own: that of the backup may leave no room for more.
    QTemporaryFile file(QFileInfo(original).path() + QStringLiteral("/.XXXXXX"));
    if (!file.open())
        return file.errorString();
    const QByteArray temporary = QFile::encodeName(file.fileName());
    const QByteArray backup = QFile::encodeName(original + QLatin1Char('~'));
    if (!writeAll(file.handle(), bytes) || !takeOwnerAndMode(file.handle(), original) || fsync(file.handle()) != 0
        || std::rename(temporary.constData(), backup.constData()) != 0)
        return qt_error_string(errno);
    file.setAutoRemove(false);
    return QString();
}

} // namespace settings
