#ifndef ZELMORA_CHECK_REPORT_H
#define ZELMORA_CHECK_REPORT_H

#include "check/finding.h"
#include "check/jsonarray.h"

namespace check {

enum class Format {
    Gcc, ///< a line for each finding: FILE:LINE:COLUMN: error|warning|note: TEXT [CODE]
    Json ///< one array with an object for each finding, in UTF-8
};

struct ReportOptions {
    Format format = Format::Gcc;
    bool strict = false; ///< warnings count as errors
    bool quiet = false; ///< no notes
    QVector<Code> excluded; ///< neither shown nor counted
};

/// Whether a report with these @p options has the finding.
bool isShown(const Finding& finding, const ReportOptions& options);
/// Whether the finding makes the exit status that of an error; only one that is shown does.
bool countsAsError(const Finding& finding, const ReportOptions& options);

/// The finding in the form Gcc, with its line end: in the locale's encoding, @p file as the system knows it. A line
/// break or another control character inside a finding becomes a blank.
QByteArray gccLine(const QByteArray& file, const Finding& finding);

/// Writes findings to standard output, file by file, in the form that was asked for.
class Report {
public:
    explicit Report(const ReportOptions& options);

    /// Writes what was found in @p file, in the order given.
    void add(const QString& file, const Findings& findings);

    /// Writes what closes the report; to be called once, at the end. False when something could not be written.
    bool finish();

    bool hasErrors() const { return anyErrors; } ///< countsAsError() of any so far

private:
    const ReportOptions options;
    JsonArray objects;
    bool anyErrors = false;
};

} // namespace check

#endif
