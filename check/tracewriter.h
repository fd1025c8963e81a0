#ifndef ZELMORA_CHECK_TRACEWRITER_H
#define ZELMORA_CHECK_TRACEWRITER_H

#include "check/jobcheck.h"
#include "check/report.h"

namespace check {

/// Writes to standard output what becomes of jobs: a line, or an object of one JSON array, for each line of the script
/// and for each element that makes none.
class TraceWriter : public JobTrace {
public:
    explicit TraceWriter(Format format);

    /// The job that is followed from now on.
    void setFile(const QString& path) { file = path; }

    void commandWritten(const TracedElement& element, const QString& command) override;
    void nothingWritten(const TracedElement& element, const QString& reason) override;

    /// Writes what closes the trace; to be called once, at the end. False when something could not be written.
    bool finish();

private:
    void write(const TracedElement& element, QLatin1String kind, const QString& text);

    const Format format;
    QString file;
    JsonArray objects;
};

} // namespace check

#endif
