#ifndef ZELMORA_TESTS_SUPPORT_FILES_H
#define ZELMORA_TESTS_SUPPORT_FILES_H

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

// Files that a test makes and looks at. What can't be made ends the test program.

/// For QTemporaryDir: in memory where there is such a place, because each saved file waits for the disk otherwise.
inline QString scratchFolder()
{
    return QFileInfo(QStringLiteral("/dev/shm")).isWritable() ? QStringLiteral("/dev/shm/zelmora-XXXXXX")
                                                              : QDir::tempPath() + QStringLiteral("/zelmora-XXXXXX");
}

/// Makes the file at @p path hold @p bytes and nothing else.
void writeBytes(const QString& path, const QByteArray& bytes);

/// What the file at @p path holds; nothing where it can't be read.
QByteArray fileContents(const QString& path);

/// Empty when both are the same; else what `diff -u` says of them.
QByteArray difference(const QByteArray& expected, const QByteArray& actual);

inline void makeLink(const QByteArray& target, const QString& path)
{
    if (symlink(target.constData(), QFile::encodeName(path).constData()) != 0)
        qFatal("The link can't be made.");
}

/// Of a link its own.
inline struct stat fileStatus(const QString& path)
{
    struct stat status;
    if (lstat(QFile::encodeName(path).constData(), &status) != 0)
        qFatal("%s is not there.", qPrintable(path));
    return status;
}

inline mode_t permissionsOf(const QString& path)
{
    return fileStatus(path).st_mode & 07777;
}

inline void setPermissions(const QString& path, mode_t permissions)
{
    if (chmod(QFile::encodeName(path).constData(), permissions) != 0)
        qFatal("The permissions of %s can't be set.", qPrintable(path));
}

/// Of all kinds, hidden ones too, in the order of their names.
inline QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

#endif
