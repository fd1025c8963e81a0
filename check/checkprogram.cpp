#include "check/checkprogram.h"

#include "check/checkedfile.h"
#include "check/codelist.h"
#include "check/commandline.h"
#include "check/findingtext.h"
#include "check/placedsettings.h"
#include "check/schema.h"
#include "check/tracewriter.h"
#include "config/settingsscan.h"
#include "config/translation.h"
#include "config/zmconfiguration.h"
#include "toolkit/console.h"
#include "toolkit/filenames.h"
#include "toolkit/filereading.h"
#include "toolkit/localecodec.h"

#include <QCoreApplication>
#include <QFile>
#include <QTranslator>

#include <algorithm>
#include <cstdio>

namespace check {

namespace {

enum ExitStatus { Done = 0, ErrorFound = 1, NotDone = 2 };

/// Says on standard error why something is not done.
ExitStatus refuse(const QString& reason)
{
    std::fputs(toolkit::localeText(reason + u'\n').constData(), stderr);
    return NotDone;
}

ExitStatus refuseCall(const QString& reason)
{
    const QString program = QCoreApplication::arguments().value(0);
    return refuse(QStringLiteral("%1\nTry '%2 --help' for more information.").arg(reason, program));
}

ExitStatus refuseOutput()
{
    return refuse(QObject::tr("Standard output cannot be written."));
}

ExitStatus showText(const QByteArray& text)
{
    toolkit::write(text);
    return toolkit::finishWriting() ? Done : refuseOutput();
}

QString pathOf(const QString& name)
{
    return toolkit::filePath(toolkit::fileName(name));
}

ExitStatus refuseFile(const QString& path, const QString& reason)
{
    return refuse(QObject::tr("The file %1 cannot be read: %2").arg(path, reason));
}

// --- Settings --------------------------------------------------------------------------------------------------

struct SettingsBytes {
    bool isThere = false;
    QByteArray bytes;
    QString reason; ///< why they cannot be read; empty when they can, or when there are none
};

/// The user's own need not be there.
SettingsBytes readSettings(const Call& call)
{
    const QString path = pathOf(call.settings);
    SettingsBytes read;
    QFile file;
    read.reason = toolkit::openFile(file, path, QIODevice::ReadOnly);
    read.isThere = read.reason.isEmpty();
    if (read.isThere)
        read.reason = toolkit::readRest(file, read.bytes);
    else if (call.ownSettings && toolkit::unusableName(path).isEmpty() && !file.exists())
        read.reason.clear();
    return read;
}

/// The settings in use; their catalogue translates from now on.
class SettingsInUse {
public:
    SettingsInUse(const QString& path, const SettingsBytes& read);

    JobSettings forJobs() { return {store, isThere ? &places : nullptr, path}; }

private:
    const QString path;
    const bool isThere;
    const PlacedSettings places;
    ZMConfiguration store;
    QTranslator translator;
};

SettingsInUse::SettingsInUse(const QString& path, const SettingsBytes& read)
    : path(path)
    , isThere(read.isThere)
    , places(PlacedSettings::of(read.bytes, libconfig::settingsFormat(path)))
    , store(read.bytes, path, libconfig::settingsFormat(path))
{
    loadTranslation(translator, store);
    QCoreApplication::installTranslator(&translator);
}

// --- Files -----------------------------------------------------------------------------------------------------

ExitStatus statusOf(bool allRead, bool anyErrors)
{
    if (!allRead)
        return NotDone;
    return anyErrors ? ErrorFound : Done;
}

Findings findingsOf(const CheckedFile& file)
{
    switch (file.outcome) {
    case CheckedFile::Unreadable:
        return {unreadable(file.reason)};
    case CheckedFile::Empty:
        return {finding(Code::Unreadable, {}, QObject::tr("The file is empty."))};
    case CheckedFile::Checked:
    case CheckedFile::NotTraced:
        break;
    }
    return file.findings;
}

ExitStatus reportFiles(const Call& call, const JobSettings& settings)
{
    Report report(call.report);
    bool allRead = true;
    for (const QString& path : call.files) {
        const CheckedFile checked = checkFile(path, settings);
        report.add(path, findingsOf(checked));
        allRead = allRead && checked.outcome == CheckedFile::Checked;
    }
    return report.finish() ? statusOf(allRead, report.hasErrors()) : refuseOutput();
}

/// Says why the file at @p path was not traced; nothing where it was.
void refuseTrace(const QString& path, const CheckedFile& file)
{
    switch (file.outcome) {
    case CheckedFile::Checked:
        break;
    case CheckedFile::Unreadable:
        refuseFile(path, file.reason);
        break;
    case CheckedFile::Empty:
        refuse(QObject::tr("The file %1 is empty.").arg(path));
        break;
    case CheckedFile::NotTraced:
        refuse(QObject::tr("The file %1 is a script: a trace is of jobs.").arg(path));
        break;
    }
}

ExitStatus traceFiles(const Call& call, const JobSettings& settings)
{
    TraceWriter trace(call.report.format);
    bool allRead = true;
    bool anyErrors = false;
    for (const QString& path : call.files) {
        trace.setFile(path);
        const CheckedFile checked = checkFile(path, settings, &trace);
        refuseTrace(path, checked);
        allRead = allRead && checked.outcome == CheckedFile::Checked;
        anyErrors = anyErrors
            || std::any_of(checked.findings.begin(), checked.findings.end(),
                           [&](const Finding& found) { return countsAsError(found, call.report); });
    }
    return trace.finish() ? statusOf(allRead, anyErrors) : refuseOutput();
}

// --- Calls -----------------------------------------------------------------------------------------------------

ExitStatus reportSettings(const Call& call, const QString& reason)
{
    if (call.task != Call::Task::Check)
        return refuseFile(call.settings, reason);
    Report report(call.report);
    report.add(call.settings, {unreadable(reason)});
    report.finish();
    return NotDone;
}

/// What depends on the settings.
ExitStatus doWithSettings(const Call& call)
{
    const SettingsBytes read = readSettings(call);
    if (!read.reason.isEmpty())
        return reportSettings(call, read.reason);
    SettingsInUse settings(call.settings, read);
    if (call.task == Call::Task::Codes)
        return showText(toolkit::localeText(codeList()));
    const JobSettings forJobs = settings.forJobs();
    return call.task == Call::Task::Trace ? traceFiles(call, forJobs) : reportFiles(call, forJobs);
}

ExitStatus perform(const Call& call)
{
    switch (call.task) {
    case Call::Task::Help:
        return showText(toolkit::localeText(helpText()));
    case Call::Task::Version:
        return showText("zelmora-check " ZELMORA_VERSION "\n");
    case Call::Task::Schema:
        return showText(jobSchema());
    case Call::Task::Codes:
    case Call::Task::Check:
    case Call::Task::Trace:
        break;
    }
    return doWithSettings(call);
}

} // namespace

int runCheckProgram(int argc, char** argv)
{
    // The toolkit sees the program's name alone: no argument of ours is ever an option of its own.
    int applicationArguments = 1;
    QCoreApplication application(applicationArguments, argv);
    QByteArrayList names {qgetenv("HOME")};
    for (int i = 1; i < argc; ++i)
        names += argv[i];
    toolkit::setFileNameEncoding(names);

    QStringList arguments = QCoreApplication::arguments();
    for (int i = 1; i < argc; ++i)
        arguments += toolkit::fileText(argv[i]);
    Call call;
    const QString wrong = readCall(arguments, call);
    return wrong.isEmpty() ? perform(call) : refuseCall(wrong);
}

} // namespace check
