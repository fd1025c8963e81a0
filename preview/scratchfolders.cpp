#include "preview/scratchfolders.h"

#include "toolkit/filenames.h"

#include <QDir>
#include <QSet>

#include <cerrno>
#include <initializer_list>
#include <mutex>
#include <pthread.h>
#include <stdlib.h>
#include <system_error>
#include <thread>

namespace preview {

namespace {

/// Never destroyed: a signal may come at the very end.
struct Folders {
    std::mutex mutex;
    QSet<QString> paths;
};

Folders& folders()
{
    static Folders* const them = new Folders;
    return *them;
}

sigset_t formerMask;

sigset_t endingSignals()
{
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal :
         {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGALRM, SIGXCPU, SIGVTALRM, SIGPROF, SIGIO}) {
        struct sigaction action;
        const bool isIgnored = sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
        if (!isIgnored)
            sigaddset(&ending, signal);
    }
    return ending;
}

/// A name for a folder that is not there yet, in the place for temporary files, which may not be there itself: the
/// toolkit would take another one then. Empty where the toolkit cannot have a folder there.
QByteArray newName()
{
    const QByteArray place = qEnvironmentVariableIsEmpty("TMPDIR") ? "/tmp" : qgetenv("TMPDIR");
    const QString path = QDir(toolkit::fileText(place)).absoluteFilePath(QStringLiteral("zelmora-XXXXXX"));
    return toolkit::unusableName(path).isEmpty() ? toolkit::fileName(path) : QByteArray();
}

void removeAll(const QString& path)
{
    QDir(path).removeRecursively();
}

/// Ends the process. The lock stays taken: no folder is made any more.
[[noreturn]] void leave(int signal)
{
    folders().mutex.lock();
    for (const QString& path : folders().paths)
        removeAll(path);
    ::signal(signal, SIG_DFL);
    sigset_t its;
    sigemptyset(&its);
    sigaddset(&its, signal);
    pthread_sigmask(SIG_UNBLOCK, &its, nullptr);
    raise(signal);
    _Exit(128 + signal);
}

void waitForSignal(const sigset_t& ending)
{
    int signal = 0;
    if (sigwait(&ending, &signal) == 0)
        leave(signal);
}

} // namespace

void takeEndingSignals()
{
    static std::once_flag once;
    std::call_once(once, [] {
        const sigset_t ending = endingSignals();
        pthread_sigmask(SIG_BLOCK, &ending, &formerMask);
        try {
            std::thread(waitForSignal, ending).detach();
        } catch (const std::system_error&) { // there is none to be had: they end the process at once
            pthread_sigmask(SIG_SETMASK, &formerMask, nullptr);
        }
    });
}

const sigset_t& formerSignalMask()
{
    return formerMask;
}

QString makeScratchFolder()
{
    takeEndingSignals();
    const std::lock_guard<std::mutex> lock(folders().mutex);
    QByteArray name = newName();
    if (name.isEmpty())
        errno = EILSEQ;
    if (name.isEmpty() || !mkdtemp(name.data()))
        return QString();
    const QString path = toolkit::fileText(name);
    folders().paths.insert(path);
    return path;
}

void removeScratchFolder(const QString& path)
{
    const std::lock_guard<std::mutex> lock(folders().mutex);
    if (folders().paths.remove(path))
        removeAll(path);
}

} // namespace preview
