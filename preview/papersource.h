#ifndef ZELMORA_PREVIEW_PAPERSOURCE_H
#define ZELMORA_PREVIEW_PAPERSOURCE_H

#include "check/finding.h"
#include "paper/sheet.h"

namespace preview {

class JobPrinter;
struct PrintedJob;

/// A file, or what stands for one, that is to become paper.
struct Source {
    QByteArray bytes;
    QString failure; ///< why there are none, in a translated sentence; empty when there are
};

/// Reads the file with the path @p name; "-" is standard input. One that is empty is a failure.
Source readSource(const QString& name);

/// What was made of a source.
struct Paper {
    paper::Roll roll;
    check::Findings findings; ///< of the script
    bool isOfJob = false;
    QString failure; ///< why there is none, or not all of it, in a translated sentence; empty when it is whole
    bool isThere() const { return failure.isEmpty() || !roll.documents.isEmpty(); }
};

/// The paper of a script. @p encoding: its own; null: the locale's.
Paper paperOfScript(const QByteArray& script, QTextCodec* encoding = nullptr);
/// That of a job, which @p printer prints; it is called @p name where that fails.
Paper paperOfJob(const QByteArray& job, const QString& name, JobPrinter& printer);

/// Why @p printed is not all that there should be, in a translated sentence: a job of which nothing is printed has
/// failed too. Empty when it is.
QString failureOf(const PrintedJob& printed);

/// What is to be said of a job that has no script.
QString nothingPrinted();

/// A strip for each document of @p roll, one at least; those behind the first have their number in the title.
QVector<paper::Strip> stripsOf(const paper::Roll& roll, const QString& title);

/// The title of document number @p number, from 0.
QString documentTitle(const QString& title, int number);

} // namespace preview

#endif
