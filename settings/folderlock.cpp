#include "settings/folderlock.h"

#include "toolkit/filenames.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace settings {

namespace {

/// The file's, without the links that the file itself may be. As many as the system follows.
QByteArray folderOf(const QString& path)
{
    QFileInfo file(path);
    for (int links = 0; links < 40 && file.isSymLink(); ++links)
        file.setFile(file.symLinkTarget());
    return toolkit::fileName(file.absolutePath());
}

bool isTakenByAnother(int folder)
{
    return TEMP_FAILURE_RETRY(flock(folder, LOCK_EX | LOCK_NB)) != 0 && errno == EWOULDBLOCK;
}

} // namespace

FolderLock::FolderLock(const QString& path)
    : folder(open(folderOf(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
}

FolderLock::~FolderLock()
{
    if (folder >= 0)
        close(folder);
}

bool FolderLock::take(int milliseconds)
{
    const int pause = 20;
    QElapsedTimer waited;
    waited.start();
    while (isTakenByAnother(folder)) {
        if (waited.elapsed() >= milliseconds)
            return false;
        QThread::msleep(pause);
    }
    return true;
}

} // namespace settings
