#ifndef ZELMORA_TOOLKIT_WRITESIGNALS_H
#define ZELMORA_TOOLKIT_WRITESIGNALS_H

#include <signal.h>

namespace toolkit {

/// While one lives, a write of this thread to a pipe that has lost its reader (SIGPIPE), or past the process's file
/// size limit (SIGXFSZ), fails like any other write and does not end the process. For libraries, which must not
/// change how the process takes signals; afterwards the thread is as it was.
class WriteSignalsBlocked {
public:
    WriteSignalsBlocked();
    ~WriteSignalsBlocked();

    WriteSignalsBlocked(const WriteSignalsBlocked&) = delete;
    WriteSignalsBlocked& operator=(const WriteSignalsBlocked&) = delete;

private:
    sigset_t ours; ///< the write signals that were not pending before; those that come now are ours to drop
    sigset_t previousMask;
};

} // namespace toolkit

#endif
