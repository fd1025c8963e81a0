#ifndef ZELMORA_CHECK_REPORTOPTIONS_H
#define ZELMORA_CHECK_REPORTOPTIONS_H

#include "check/report.h"

class QCommandLineParser;

namespace check {

/// Adds --format, --strict, --quiet and --exclude to what @p parser takes, with their descriptions.
void addReportOptions(QCommandLineParser& parser);

/// What @p parser, which has parsed the arguments, was given of these. Empty when they are right, else what is wrong
/// with them in one sentence; @p options are to be left alone then.
QString readReportOptions(const QCommandLineParser& parser, ReportOptions& options);

} // namespace check

#endif
