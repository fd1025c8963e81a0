#ifndef ZELMORA_CHECK_CHECKEDFILE_H
#define ZELMORA_CHECK_CHECKEDFILE_H

#include "check/finding.h"
#include "check/jobcheck.h"

namespace check {

/// What became of a file that was to be checked.
struct CheckedFile {
    enum Outcome {
        Checked,
        Unreadable, ///< or not to its end
        Empty,
        NotTraced, ///< it is a script, of which there is no trace
    };

    Outcome outcome = Checked;
    Findings findings = {};
    QString reason = {}; ///< why it cannot be read
};

/// Checks the file at @p path, "-" for standard input, as the job or the script that its contents are. A job is read
/// piece by piece, whatever its size. @p trace hears of a job; it may be null, and a script is not checked where it is
/// not.
CheckedFile checkFile(const QString& path, const JobSettings& settings, JobTrace* trace = nullptr);

} // namespace check

#endif
