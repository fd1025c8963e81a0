#include "check/report.h"

#include "toolkit/literals.h"
#include "toolkit/localecodec.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

using toolkit::operator""_L1;

namespace check {

namespace {

void write(const QByteArray& bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
}

/// @p text without what would end a line, or upset a terminal.
QString inOneLine(QString text)
{
    for (QChar& character : text) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line
            || category == QChar::Separator_Paragraph)
            character = u' ';
    }
    return text;
}

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

Report::Report(const ReportOptions& options)
    : options(options)
{
}

bool Report::isWanted(const Finding& finding) const
{
    return !options.excluded.contains(finding.code) && !(options.quiet && finding.severity == Severity::Note);
}

void Report::add(const QString& file, const Findings& findings)
{
    for (const Finding& finding : findings) {
        if (!isWanted(finding))
            continue;
        if (finding.severity == Severity::Error || (options.strict && finding.severity == Severity::Warning))
            anyErrors = true;
        if (options.format == Format::Json)
            addObject(file, finding);
        else
            addLine(file, finding);
    }
}

void Report::addLine(const QString& file, const Finding& finding)
{
    const QString place = QStringLiteral(":%1:%2: ").arg(finding.place.line).arg(finding.place.column);
    const QString text = inOneLine(finding.text) + " ["_L1 + entry(finding.code).name + "]\n"_L1;
    write(QFile::encodeName(inOneLine(file)) + toolkit::localeText(place + word(finding.severity) + ": "_L1 + text));
}

void Report::addObject(const QString& file, const Finding& finding)
{
    // Each by itself, so that no list of all of them is made; an object in a line.
    write(anyObjects ? ",\n" : "[\n");
    anyObjects = true;
    write(QJsonDocument(asObject(file, finding)).toJson(QJsonDocument::Compact));
}

bool Report::finish()
{
    if (options.format == Format::Json)
        write(anyObjects ? "\n]\n" : "[]\n");
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

} // namespace check
