#ifndef ZELMORA_SETTINGS_COMMANDLINE_H
#define ZELMORA_SETTINGS_COMMANDLINE_H

#include "check/report.h"

#include <QByteArrayList>
#include <QString>

namespace settings {

struct Call;

/// The exit status of the program.
enum Status {
    Done = 0,
    Refused = 1, ///< or absent, or an error was found
    Failed = 2 ///< a wrong call, or a file that cannot be read or written
};

/// Something that the program does.
struct Command {
    QLatin1String name;
    QLatin1String arguments; ///< as the help shows them
    QLatin1String description;
    int fewest; ///< arguments
    int most;
    bool takesKey; ///< the first argument is a key, and what stands behind it is a value, whatever it looks like
    QLatin1String options; ///< the names of those that it has a use for, with blanks between them
    Status (*run)(const Call& call);
};

/// What `zelmora-config [options] command [arguments]` is called for.
struct Call {
    enum class Task { Run, Help, Version };

    Task task = Task::Run;
    const Command* command = nullptr;
    QByteArrayList arguments; ///< of the command, as the system has them
    QByteArray file; ///< the name of the settings file; empty: the user's own
    bool showsSecrets = false;
    bool isForced = false;
    check::ReportOptions report;

    QString text(int argument) const; ///< an argument that is no file name
};

/// Reads @p arguments, of which the first is the program. Options stand before or after the command, up to a key. Empty
/// when that succeeded, else what is wrong with them in one sentence.
QString readCall(const QByteArrayList& arguments, Call& call);

/// What `--help` shows.
QString helpText();

} // namespace settings

#endif
