#ifndef ZELMORA_PREVIEW_SCRATCHFOLDERS_H
#define ZELMORA_PREVIEW_SCRATCHFOLDERS_H

#include <signal.h>

class QString;

/// Folders that are gone when the process is, also when one of the signals ends it that mean no fault of its own:
/// SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGALRM, SIGXCPU, SIGVTALRM, SIGPROF and SIGIO. (SIGPIPE and
/// SIGXFSZ the programs ignore. SIGKILL leaves them.)
namespace preview {

/// From now on a thread of its own takes these signals: it removes what there is of scratch folders, and then
/// lets the signal end the process as it would have. A signal that was ignored stays ignored. All other threads must
/// block them: a program with threads calls this in its main(), before the first one is started. Further calls do
/// nothing.
void takeEndingSignals();

/// The signals that were blocked before that: for a process that is started, which inherits those of its parent.
const sigset_t& formerSignalMask();

/// Makes a folder which the user alone may enter, in the system's place for temporary files, and gives its path; empty
/// when that failed, with errno set.
QString makeScratchFolder();
/// Removes it, and all that is in it.
void removeScratchFolder(const QString& path);

} // namespace preview

#endif
