// Papers beside each other: of two scripts, or of a job with two settings.

#include "preview/allcores.h"
#include "preview/commandline.h"
#include "preview/filesbelow.h"
#include "preview/jobprinter.h"
#include "preview/output.h"
#include "preview/papersource.h"
#include "preview/scriptpair.h"
#include "preview/settingsbytes.h"
#include "preview/tasks.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"

#include <QFileInfo>
#include <QObject>
#include <QSet>

#include <algorithm>
#include <vector>

using toolkit::operator""_L1;

namespace preview {

namespace {

/// A pair of scripts, and what became of it.
struct Outcome {
    Difference difference;
    QString failure; ///< why there is none, in a translated sentence; empty when there is
    bool isWrongCall = false; ///< that of a file which is not of the kind that is due

    bool isThere() const { return failure.isEmpty(); }
};

using Outcomes = std::vector<Outcome>;

Outcomes outcomesOf(int count, const std::function<Outcome(int)>& outcome)
{
    Outcomes outcomes(static_cast<std::size_t>(count));
    onAllCores(count, [&](int number) { outcomes[static_cast<std::size_t>(number)] = outcome(number); });
    return outcomes;
}

ExitStatus refuseFailures(const Outcomes& outcomes)
{
    ExitStatus status = Done;
    for (const Outcome& outcome : outcomes) {
        if (!outcome.isThere())
            status = refuse(outcome.failure);
    }
    return status;
}

/// Nothing is done where the call is wrong, or none of all can be had.
bool isRefused(const Outcomes& outcomes)
{
    const auto isWrong = [](const Outcome& outcome) { return outcome.isWrongCall; };
    const auto isMissing = [](const Outcome& outcome) { return !outcome.isThere(); };
    return std::any_of(outcomes.begin(), outcomes.end(), isWrong)
        || (!outcomes.empty() && std::all_of(outcomes.begin(), outcomes.end(), isMissing));
}

QString summary(const Outcomes& outcomes, const QString& sentences)
{
    const auto done =
        std::count_if(outcomes.begin(), outcomes.end(), [](const Outcome& outcome) { return outcome.isThere(); });
    const auto differing = std::count_if(outcomes.begin(), outcomes.end(),
                                         [](const Outcome& outcome) { return !outcome.difference.bands.isEmpty(); });
    const auto withoutTrace = std::count_if(outcomes.begin(), outcomes.end(),
                                            [](const Outcome& outcome) { return outcome.difference.isWithoutTrace; });
    return sentences.arg(done).arg(differing).arg(withoutTrace);
}

/// Draws what differs of what there is. Where nothing does, there is nothing to draw: a file stays as it is. So it does
/// where something is missing.
ExitStatus drawDifferences(const Outcomes& outcomes, const Call& call)
{
    paper::Sheet sheet;
    for (const Outcome& outcome : outcomes)
        sheet.bands += outcome.difference.bands;
    if (sheet.bands.isEmpty())
        return Done;
    const bool isWhole =
        std::all_of(outcomes.begin(), outcomes.end(), [](const Outcome& outcome) { return outcome.isThere(); });
    const bool isDrawn = isWhole || call.output.isEmpty();
    return isDrawn ? std::max(Remarkable, put(sheet, call)) : Remarkable;
}

/// The differences and their sum first, and below what could not be had.
ExitStatus show(const Outcomes& outcomes, const QString& sentences, const Call& call)
{
    if (isRefused(outcomes))
        return refuseFailures(outcomes);
    const ExitStatus drawn = drawDifferences(outcomes, call);
    const ExitStatus said = say(summary(outcomes, sentences));
    return std::max({drawn, said, refuseFailures(outcomes)});
}

// --- Scripts ---------------------------------------------------------------------------------------------------

struct Names {
    QString left; ///< empty where there is none
    QString right;
};

bool isFolder(const QString& name)
{
    return QFileInfo(name).isDir();
}

bool isReadable(const QString& name)
{
    return name == "-"_L1 || (toolkit::unusableName(name).isEmpty() && QFileInfo(name).isReadable());
}

QVector<Names> namesIn(const QString& left, const QString& right)
{
    const QStringList leftFiles = filesBelow(left);
    const QStringList rightFiles = filesBelow(right);
    QStringList all = leftFiles + rightFiles;
    all.sort();
    all.removeDuplicates();
    const QSet<QString> onLeft(leftFiles.begin(), leftFiles.end());
    const QSet<QString> onRight(rightFiles.begin(), rightFiles.end());
    QVector<Names> names;
    for (const QString& file : all)
        names += Names {onLeft.contains(file) ? left + QLatin1Char('/') + file : QString(),
                        onRight.contains(file) ? right + QLatin1Char('/') + file : QString()};
    return names;
}

/// Says in @p outcome why the file is none.
Side sideOf(const QString& name, Outcome& outcome)
{
    if (name.isEmpty())
        return {};
    const Source source = readSource(name);
    if (!source.failure.isEmpty())
        outcome.failure = source.failure;
    else if (paper::isJob(source.bytes))
        outcome = {{}, QStringLiteral("%1 is a job: --compare takes scripts, --rehearse jobs.").arg(name), true};
    return {name, true, source.bytes};
}

Outcome compared(const Names& names, QTextCodec* encoding)
{
    Outcome outcome;
    const Side left = sideOf(names.left, outcome);
    const Side right = outcome.isThere() ? sideOf(names.right, outcome) : Side();
    if (outcome.isThere())
        outcome.difference = differenceOf(left, right, encoding);
    return outcome;
}

// --- Jobs ------------------------------------------------------------------------------------------------------

/// One of the two settings.
struct Trial {
    JobPrinter& printer;
    QString settings; ///< what they are called in titles
};

Side printed(const QByteArray& job, const QString& name, const Trial& trial, QString& failure)
{
    const PrintedJob done = trial.printer.print(job);
    const QString reason = failureOf(done);
    if (!reason.isEmpty())
        failure = name + ": "_L1 + reason;
    return {name + ", "_L1 + trial.settings, true, done.script};
}

Outcome rehearsed(const QString& name, const Trial& today, const Trial& tomorrow)
{
    const Source job = readSource(name);
    if (!job.failure.isEmpty())
        return {{}, job.failure};
    if (!paper::isJob(job.bytes))
        return {{}, QStringLiteral("%1 is no job: --rehearse takes jobs, --compare scripts.").arg(name), true};
    Outcome outcome;
    const Side left = printed(job.bytes, name, today, outcome.failure);
    const Side right = outcome.isThere() ? printed(job.bytes, name, tomorrow, outcome.failure) : Side();
    if (outcome.isThere())
        outcome.difference = differenceOf(left, right, nullptr);
    return outcome;
}

} // namespace

ExitStatus compare(const Call& call, const SettingsBytes&)
{
    const QString& left = call.files.first();
    const QString& right = call.files.last();
    for (const QString& name : {left, right}) {
        if (!isReadable(name))
            return refuse(readSource(name).failure);
    }
    if (isFolder(left) != isFolder(right))
        return refuse(QStringLiteral("The option --compare takes two scripts or two folders, not one of each."));
    const QVector<Names> names = isFolder(left) ? namesIn(left, right) : QVector<Names> {{left, right}};
    const Outcomes outcomes =
        outcomesOf(names.size(), [&](int number) { return compared(names.at(number), call.encoding); });
    return show(outcomes,
                QObject::tr("Scripts compared: %1. Different on paper: %2. Different without a trace on paper: %3."),
                call);
}

ExitStatus rehearse(const Call& call, const SettingsBytes& settings)
{
    JobPrinter today(settings);
    JobPrinter tomorrow(readSettings(call.otherSettings));
    for (JobPrinter* printer : {&today, &tomorrow}) {
        if (!printer->obstacle().isEmpty())
            return refuse(printer->obstacle());
    }
    const QString otherName = QFileInfo(call.otherSettings).fileName();
    const Outcomes outcomes = outcomesOf(call.files.size(), [&](int number) {
        return rehearsed(call.files.at(number), {today, QObject::tr("today")}, {tomorrow, otherName});
    });
    return show(outcomes,
                QObject::tr("Jobs rehearsed: %1. Different on paper: %2. Different without a trace on paper: %3."),
                call);
}

} // namespace preview
