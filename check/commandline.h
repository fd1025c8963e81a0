#ifndef ZELMORA_CHECK_COMMANDLINE_H
#define ZELMORA_CHECK_COMMANDLINE_H

#include "check/report.h"

#include <QString>
#include <QStringList>

namespace check {

/// What `zelmora-check [options] job.xml|script.txt...` is called for.
struct Call {
    enum class Task {
        Check,
        Trace, ///< what each line of the script comes from
        Codes, ///< the list of all codes
        Schema, ///< the XML schema of jobs
        Help,
        Version
    };

    Task task = Task::Check;
    QString settings; ///< the path of the settings file
    bool ownSettings = true; ///< the user's own, which need not be there
    ReportOptions report;
    QStringList files; ///< paths of jobs and scripts, "-" for standard input
};

/// Reads @p arguments, of which the first is the program. Empty when that succeeded, else what is wrong with them in
/// one sentence. Of other tasks than a check or a trace nothing but settings is read.
QString readCall(const QStringList& arguments, Call& call);

/// What `--help` shows.
QString helpText();

} // namespace check

#endif
