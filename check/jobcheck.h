#ifndef ZELMORA_CHECK_JOBCHECK_H
#define ZELMORA_CHECK_JOBCHECK_H

#include "check/finding.h"

#include <QString>

class QIODevice;
class ZMConfiguration;

namespace check {

class PlacedSettings;

/// What a job is checked with.
struct JobSettings {
    /// What a document would be printed with. Not owned; not changed.
    ZMConfiguration& store;
    /// Where these settings stand, to name the line that keeps something off the paper; null when there is no file.
    const PlacedSettings* places = nullptr;
    /// The settings file as a person knows it, also the one that is not there.
    QString file;
};

/// An element of a job, for those who follow what becomes of it.
struct TracedElement {
    toolkit::TextPlace place; ///< its "<"
    QString name;
    QString method; ///< the print method that it goes to; empty before one was accepted
};

/// Hears what becomes of a job, in the order of the script.
class JobTrace {
public:
    virtual ~JobTrace() = default;
    /// The element makes a line of the script: @p command, without its line end. That of the end of the document is the
    /// root's, at its end tag.
    virtual void commandWritten(const TracedElement& element, const QString& command) = 0;
    /// The element makes none, for the translated @p reason.
    virtual void nothingWritten(const TracedElement& element, const QString& reason) = 0;
};

/// Prints the job that @p device holds, to no file, and says what there is to know about it, in the order of the job.
/// The device is read once, piece by piece, and is opened if it is not open yet. Whether it can be read is the caller's
/// concern. Labels and findings are translated by the translator that is installed.
Findings checkJob(QIODevice& device, const JobSettings& settings, JobTrace* trace = nullptr);

} // namespace check

#endif
