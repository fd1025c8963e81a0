#ifndef ZELMORA_PREVIEW_TASKS_H
#define ZELMORA_PREVIEW_TASKS_H

#include <QString>

/// What `zelmora-paper` does. Drawings go to standard output or into a file; findings, and why something is not done,
/// to standard error.
namespace preview {

struct Call;
struct SettingsBytes;

/// The exit status of the program; of several the greatest.
enum ExitStatus {
    Done = 0,
    Remarkable = 1, ///< a script has an error, or something differs
    NotDone = 2 ///< a wrong call, or a file that cannot be read or written
};

/// Says on standard error why something is not done.
ExitStatus refuse(const QString& reason);

// Of files one by one (drawingtasks.cpp).

ExitStatus draw(const Call& call, const SettingsBytes& settings);
ExitStatus drawProof(const Call& call, const SettingsBytes& settings);

// Of two papers beside each other (comparingtasks.cpp).

ExitStatus compare(const Call& call, const SettingsBytes& settings);
ExitStatus rehearse(const Call& call, const SettingsBytes& settings);

} // namespace preview

#endif
