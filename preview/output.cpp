#include "preview/output.h"

#include "paper/drawing.h"
#include "paper/painting/painting.h"
#include "preview/commandline.h"
#include "toolkit/console.h"
#include "toolkit/filereplacement.h"
#include "toolkit/localecodec.h"

#include <QObject>
#include <QTextCodec>

namespace preview {

namespace {

ExitStatus show(const QByteArray& bytes)
{
    toolkit::write(bytes);
    return toolkit::finishWriting() ? Done : refuse(QObject::tr("Standard output cannot be written."));
}

ExitStatus writeFile(const QByteArray& bytes, const QString& path)
{
    const QString reason = toolkit::replaceFile(path, bytes);
    return reason.isEmpty() ? Done : refuse(QObject::tr("The file %1 cannot be written: %2").arg(path, reason));
}

bool hasTerminalBoxes()
{
    return !toolkit::isLocaleAscii() && toolkit::localeCodec()->canEncode(QStringLiteral("─│┌┐└┘"));
}

/// A file is UTF-8, which has all; a terminal may have no box characters.
paper::Frame frameOf(const Call& call)
{
    return !call.output.isEmpty() || hasTerminalBoxes() ? paper::Frame::Box : paper::Frame::Ascii;
}

/// Of all forms but text. Null, and a reason, when it cannot be.
QByteArray pictureOf(const paper::Sheet& sheet, const Call& call, QString& reason)
{
    if (call.form == Form::Svg)
        return paper::svgDrawing(sheet);
    return call.form == Form::Pdf ? paper::pdfDrawing(sheet) : paper::pngDrawing(sheet, call.scale, reason);
}

} // namespace

ExitStatus put(const paper::Sheet& sheet, const Call& call)
{
    if (call.form == Form::Text)
        return put(paper::textDrawing(sheet, frameOf(call)), call);
    QString reason;
    const QByteArray picture = pictureOf(sheet, call, reason);
    return reason.isEmpty() ? writeFile(picture, call.output) : refuse(reason);
}

ExitStatus put(const QString& text, const Call& call)
{
    return call.output.isEmpty() ? show(toolkit::localeText(text)) : writeFile(text.toUtf8(), call.output);
}

ExitStatus say(const QString& text)
{
    return show(toolkit::localeText(text) + '\n');
}

} // namespace preview
