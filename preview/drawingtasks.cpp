// Files, and samples, drawn one by one.

#include "check/report.h"
#include "paper/drawing.h"
#include "preview/allcores.h"
#include "preview/commandline.h"
#include "preview/jobprinter.h"
#include "preview/output.h"
#include "preview/papersource.h"
#include "preview/samples.h"
#include "preview/tasks.h"
#include "toolkit/console.h"
#include "toolkit/filenames.h"

#include <QObject>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

namespace preview {

namespace {

const int stripsOfText = 2; ///< beside each other: as many as a terminal of 80 columns shows
const int stripsOfPicture = 4;

struct NamedPaper {
    QString file;
    QString title;
    Paper paper;
};

using Papers = std::vector<NamedPaper>;

Paper withoutRoll(const QString& failure)
{
    Paper none;
    none.failure = failure;
    return none;
}

Paper paperOfFile(const QString& name, JobPrinter& printer, const Call& call)
{
    const Source source = readSource(name);
    if (!source.failure.isEmpty())
        return withoutRoll(source.failure);
    if (!paper::isJob(source.bytes))
        return paperOfScript(source.bytes, call.encoding);
    if (call.encoding)
        return withoutRoll(QStringLiteral("%1 is a job, and --encoding is for scripts.").arg(name));
    return paperOfJob(source.bytes, name, printer);
}

/// Each reason once: of all jobs it may be the same.
ExitStatus refuseFailures(const Papers& papers)
{
    QStringList failures;
    for (const NamedPaper& named : papers) {
        if (!named.paper.failure.isEmpty())
            failures += named.paper.failure;
    }
    failures.removeDuplicates();
    ExitStatus status = Done;
    for (const QString& failure : failures)
        status = refuse(failure);
    return status;
}

ExitStatus reportFindings(const NamedPaper& named)
{
    const QString file = named.paper.isOfJob ? QObject::tr("%1 (script)").arg(named.file) : named.file;
    const QByteArray encodedFile = toolkit::fileName(toolkit::inOneLine(file));
    ExitStatus status = Done;
    for (const check::Finding& finding : named.paper.findings) {
        std::fputs(check::gccLine(encodedFile, finding).constData(), stderr);
        if (check::countsAsError(finding, {}))
            status = Remarkable;
    }
    return status;
}

ExitStatus report(const Papers& papers)
{
    ExitStatus status = refuseFailures(papers);
    for (const NamedPaper& named : papers)
        status = std::max(status, reportFindings(named));
    return status;
}

/// @p count of them beside each other.
paper::Sheet sheetOf(const Papers& papers, int count)
{
    paper::Sheet sheet;
    paper::Sheet::Band band;
    for (const NamedPaper& named : papers) {
        if (!named.paper.isThere())
            continue;
        for (const paper::Strip& strip : stripsOf(named.paper.roll, named.title)) {
            if (band.size() == count)
                sheet.bands += std::exchange(band, {});
            band += strip;
        }
    }
    sheet.bands += band;
    return sheet;
}

QString plainTextOf(const Papers& papers)
{
    QStringList texts;
    for (const NamedPaper& named : papers) {
        for (const paper::Document& document : named.paper.roll.documents)
            texts += paper::plainText(document);
    }
    return texts.join(QLatin1Char('\n'));
}

bool isWhole(const Papers& papers)
{
    return std::all_of(papers.begin(), papers.end(),
                       [](const NamedPaper& named) { return named.paper.failure.isEmpty(); });
}

/// The paper first, which is long, and what is to be said of it below. A file is not written of a part.
ExitStatus show(const Papers& papers, const Call& call, int stripsBeside)
{
    ExitStatus status = Done;
    if (call.output.isEmpty() || isWhole(papers))
        status = call.isPlain ? put(plainTextOf(papers), call) : put(sheetOf(papers, stripsBeside), call);
    return std::max(status, report(papers));
}

} // namespace

ExitStatus draw(const Call& call, const SettingsBytes& settings)
{
    JobPrinter printer(settings);
    Papers papers(static_cast<std::size_t>(call.files.size()));
    onAllCores(call.files.size(), [&](int number) {
        const QString& name = call.files.at(number);
        papers[static_cast<std::size_t>(number)] = {name, name, paperOfFile(name, printer, call)};
    });
    return show(papers, call, 1);
}

ExitStatus drawProof(const Call& call, const SettingsBytes& settings)
{
    JobPrinter printer(settings);
    Papers papers(static_cast<std::size_t>(samples().size()));
    onAllCores(samples().size(), [&](int number) {
        const Sample& sample = samples()[number];
        papers[static_cast<std::size_t>(number)] = {sample.file, sample.title(),
                                                    paperOfJob(sample.job(), sample.file, printer)};
    });
    return show(papers, call, call.form == Form::Text ? stripsOfText : stripsOfPicture);
}

} // namespace preview
