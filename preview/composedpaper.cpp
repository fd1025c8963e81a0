#include "preview/composedpaper.h"

#include "paper/comparison.h"
#include "preview/papersource.h"
#include "toolkit/literals.h"

#include <QObject>

#include <algorithm>

using toolkit::operator""_L1;

namespace preview {

namespace {

void markChanges(paper::Roll& roll, const PrintedPaper& printed)
{
    if (!printed.before || !printed.before->failure.isEmpty() || printed.before->script == printed.now.script)
        return;
    const paper::Roll before = paper::readRoll(printed.before->script);
    for (int i = 0; i < roll.documents.size(); ++i) {
        paper::Rows& rows = roll.documents[i].rows;
        rows = paper::withChanges(rows, before.documents.value(i).rows);
    }
}

bool isClosed(const paper::Roll& roll)
{
    return std::none_of(roll.faults.begin(), roll.faults.end(),
                        [](const paper::Fault& fault) { return fault.kind == paper::Fault::NotClosed; });
}

QString troubleOf(const PrintedJob& printed, const paper::Roll& roll)
{
    if (!printed.failure.isEmpty())
        return printed.failure;
    if (roll.documents.isEmpty())
        return nothingPrinted();
    if (!isClosed(roll))
        return QObject::tr("The script has no closing command, since the job breaks off. zelmora-check says where.");
    return QString();
}

/// What troubles all of them in the same way is said once.
QString inSentences(const QStringList& troubles, const QVector<PrintedPaper>& papers)
{
    if (troubles.count(troubles.value(0)) == papers.size())
        return troubles.value(0);
    QStringList sentences;
    for (int i = 0; i < troubles.size(); ++i) {
        if (!troubles.at(i).isEmpty())
            sentences += papers.at(i).title + ": "_L1 + troubles.at(i);
    }
    return sentences.join(QLatin1Char('\n'));
}

} // namespace

ComposedPaper compose(const QVector<PrintedPaper>& papers)
{
    ComposedPaper made;
    QStringList troubles;
    for (const PrintedPaper& printed : papers) {
        paper::Roll roll = paper::readRoll(printed.now.script);
        markChanges(roll, printed);
        troubles += troubleOf(printed.now, roll);
        for (int i = 0; i < roll.documents.size(); ++i)
            made.sheet.bands += {paper::Strip {documentTitle(printed.title, i), roll.documents.at(i).rows}};
    }
    made.trouble = inSentences(troubles, papers);
    return made;
}

} // namespace preview
