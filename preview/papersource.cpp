#include "preview/papersource.h"

#include "check/scriptcheck.h"
#include "preview/jobprinter.h"
#include "toolkit/filenames.h"
#include "toolkit/filereading.h"
#include "toolkit/literals.h"

#include <QFile>
#include <QObject>

#include <unistd.h>

using toolkit::operator""_L1;

namespace preview {

namespace {

/// The reason why it cannot be opened; empty when it is.
QString open(QFile& file, const QString& name)
{
    if (name != "-"_L1)
        return toolkit::openFile(file, name, QIODevice::ReadOnly);
    return file.open(STDIN_FILENO, QIODevice::ReadOnly) ? QString() : file.errorString();
}

QString unreadable(const QString& name, const QString& reason)
{
    return QObject::tr("The file %1 cannot be read: %2").arg(name, reason);
}

} // namespace

Source readSource(const QString& name)
{
    Source source;
    QFile file;
    QString reason = open(file, name);
    if (reason.isEmpty())
        reason = toolkit::readRest(file, source.bytes);
    if (!reason.isEmpty())
        source.failure = unreadable(name, reason);
    else if (source.bytes.isEmpty())
        source.failure = QObject::tr("The file %1 is empty.").arg(name);
    return source;
}

Paper paperOfScript(const QByteArray& script, QTextCodec* encoding)
{
    Paper made;
    made.roll = paper::readRoll(script, encoding);
    made.findings = check::findingsOf(made.roll, encoding);
    return made;
}

Paper paperOfJob(const QByteArray& job, const QString& name, JobPrinter& printer)
{
    Paper made;
    made.failure = printer.obstacle();
    if (made.failure.isEmpty()) {
        const PrintedJob printed = printer.print(job);
        made = paperOfScript(printed.script);
        const QString failure = failureOf(printed);
        if (!failure.isEmpty())
            made.failure = name + ": "_L1 + failure;
    }
    made.isOfJob = true;
    return made;
}

QString failureOf(const PrintedJob& printed)
{
    return printed.script.isEmpty() && printed.failure.isEmpty() ? nothingPrinted() : printed.failure;
}

QString nothingPrinted()
{
    return QObject::tr("Nothing of this job is printed. zelmora-check says why.");
}

QVector<paper::Strip> stripsOf(const paper::Roll& roll, const QString& title)
{
    QVector<paper::Strip> strips;
    for (const paper::Document& document : roll.documents)
        strips += paper::Strip {documentTitle(title, strips.size()), document.rows};
    if (strips.isEmpty())
        strips += paper::Strip {title, {}};
    return strips;
}

QString documentTitle(const QString& title, int number)
{
    return number == 0 ? title : QStringLiteral("%1 (%2)").arg(title, QString::number(number + 1));
}

} // namespace preview
