#include "check/tracewriter.h"

#include "toolkit/console.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"

#include <QJsonObject>
#include <QObject>

using toolkit::operator""_L1;

namespace check {

namespace {

const QLatin1String commandKind = "command"_L1;
const QLatin1String reasonKind = "reason"_L1;

/// "receipe (printFullOrderReceipt)"; before a method the element alone.
QString nameOf(const TracedElement& element)
{
    return element.method.isEmpty() ? element.name : element.name + " ("_L1 + element.method + u')';
}

} // namespace

TraceWriter::TraceWriter(Format format)
    : format(format)
{
}

void TraceWriter::commandWritten(const TracedElement& element, const QString& command)
{
    write(element, commandKind, command);
}

void TraceWriter::nothingWritten(const TracedElement& element, const QString& reason)
{
    write(element, reasonKind, reason);
}

void TraceWriter::write(const TracedElement& element, QLatin1String kind, const QString& text)
{
    if (format == Format::Json) {
        objects.add({{"file"_L1, file},
                     {"line"_L1, element.place.line},
                     {"column"_L1, element.place.column},
                     {"element"_L1, element.name},
                     {"method"_L1, element.method},
                     {kind, text}});
        return;
    }
    const QString place = QStringLiteral(":%1:%2: ").arg(element.place.line).arg(element.place.column);
    const QString made = kind == reasonKind ? QObject::tr("nothing: %1").arg(text) : text;
    toolkit::write(toolkit::fileName(toolkit::inOneLine(file))
                   + toolkit::localeText(toolkit::inOneLine(place + nameOf(element) + ": "_L1 + made)) + '\n');
}

bool TraceWriter::finish()
{
    if (format == Format::Json)
        objects.finish();
    return toolkit::finishWriting();
}

} // namespace check
