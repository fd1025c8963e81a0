#include "check/report.h"

#include "toolkit/console.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"

#include <QJsonObject>

using toolkit::operator""_L1;

namespace check {

namespace {

QJsonObject asObject(const QString& file, const Finding& finding)
{
    QJsonObject object {
        {"file"_L1, file},
        {"line"_L1, finding.place.line},
        {"column"_L1, finding.place.column},
        {"severity"_L1, word(finding.severity)},
        {"code"_L1, entry(finding.code).name},
        {"text"_L1, finding.text},
    };
    if (!finding.suggestion.isEmpty())
        object.insert("suggestion"_L1, finding.suggestion);
    return object;
}

} // namespace

// Findings may be many: what is plain ASCII goes past the codec.
QByteArray gccLine(const QByteArray& file, const Finding& finding)
{
    const int around = 64; // what stands beside the file's name and the text, and more
    QByteArray line;
    line.reserve(file.size() + finding.text.size() + around);
    line += file;
    line += ':';
    line += QByteArray::number(finding.place.line);
    line += ':';
    line += QByteArray::number(finding.place.column);
    line += ": ";
    line += word(finding.severity).data();
    line += ": ";
    line += toolkit::localeText(toolkit::inOneLine(finding.text));
    line += " [";
    line += entry(finding.code).name.data();
    line += "]\n";
    return line;
}

bool isShown(const Finding& finding, const ReportOptions& options)
{
    return !options.excluded.contains(finding.code) && !(options.quiet && finding.severity == Severity::Note);
}

bool countsAsError(const Finding& finding, const ReportOptions& options)
{
    const bool isGrave =
        finding.severity == Severity::Error || (options.strict && finding.severity == Severity::Warning);
    return isGrave && isShown(finding, options);
}

Report::Report(const ReportOptions& options)
    : options(options)
{
}

void Report::add(const QString& file, const Findings& findings)
{
    const QByteArray encodedFile = toolkit::fileName(toolkit::inOneLine(file));
    for (const Finding& finding : findings) {
        anyErrors = anyErrors || countsAsError(finding, options);
        if (!isShown(finding, options))
            continue;
        if (options.format == Format::Json)
            objects.add(asObject(file, finding));
        else
            toolkit::write(gccLine(encodedFile, finding));
    }
}

bool Report::finish()
{
    if (options.format == Format::Json)
        objects.finish();
    return toolkit::finishWriting();
}

} // namespace check
