#include "toolkit/writesignals.h"

#include <cerrno>
#include <ctime>
#include <initializer_list>

namespace toolkit {

WriteSignalsBlocked::WriteSignalsBlocked()
{
    sigset_t pending;
    sigpending(&pending);
    sigemptyset(&ours);
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
        if (!sigismember(&pending, signal))
            sigaddset(&ours, signal);
    }
    pthread_sigmask(SIG_BLOCK, &ours, &previousMask);
}

WriteSignalsBlocked::~WriteSignalsBlocked()
{
    const int writeError = errno;
    const timespec atOnce {0, 0};
    while (sigtimedwait(&ours, nullptr, &atOnce) > 0) {
    }
    pthread_sigmask(SIG_SETMASK, &previousMask, nullptr);
    errno = writeError;
}

} // namespace toolkit
