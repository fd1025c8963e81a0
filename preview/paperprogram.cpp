#include "preview/paperprogram.h"

#include "config/translation.h"
#include "config/zmconfiguration.h"
#include "preview/commandline.h"
#include "preview/filesbelow.h"
#include "preview/output.h"
#include "preview/settingsbytes.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTranslator>

#include <algorithm>
#include <cstdio>

using toolkit::operator""_L1;

namespace preview {

namespace {

ExitStatus refuseCall(const QString& reason)
{
    const QString program = QCoreApplication::arguments().value(0);
    return refuse(QStringLiteral("%1\nTry '%2 --help' for more information.").arg(reason, program));
}

/// Of a file that is not there yet, in the folder where it would be.
QString canonicalPath(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() ? file.canonicalFilePath()
                         : QDir(QFileInfo(file.path()).canonicalFilePath()).filePath(file.fileName());
}

/// Whether the file @p path is @p source, or lies in it.
bool isOf(const QString& source, const QString& path)
{
    const QString sourcePath = QFileInfo(source).canonicalFilePath();
    return !sourcePath.isEmpty() && (path == sourcePath || path.startsWith(sourcePath + u'/'));
}

/// Nobody means that: a drawing in the place of what it was drawn from, or among it, where the next one would be drawn
/// from this.
bool drawsIntoItsSource(const Call& call)
{
    const QString output = canonicalPath(call.output); // no whole path where there is no output, or no folder for it
    const QStringList sources = QStringList(call.files) << call.settings << call.otherSettings;
    return std::any_of(sources.begin(), sources.end(), [&](const QString& source) { return isOf(source, output); });
}

/// All that may be met, as the system has them.
QByteArrayList fileNames(int argc, char** argv)
{
    const bool hasFolders = std::any_of(argv, argv + argc, [](const QByteArray& name) { return name == "--compare"; });
    QByteArrayList names {qgetenv("HOME")};
    for (int i = 1; i < argc; ++i) {
        names += argv[i];
        if (hasFolders)
            names += namesBelow(argv[i]);
    }
    return names;
}

using Task = ExitStatus (*)(const Call& call, const SettingsBytes& settings);

Task taskOf(const Call& call)
{
    switch (call.task) {
    case Call::Task::Proof:
        return drawProof;
    case Call::Task::Compare:
        return compare;
    case Call::Task::Rehearse:
        return rehearse;
    case Call::Task::Draw:
    case Call::Task::Help:
    case Call::Task::Version:
        break;
    }
    return draw;
}

/// In the language of the settings. Those that the call names are there; the user's own are missed by jobs alone.
ExitStatus perform(const Call& call)
{
    const SettingsBytes settings = call.ownSettings ? readOwnSettings() : readSettings(call.settings);
    if (!call.ownSettings && !settings.reason.isEmpty())
        return refuse(settings.reason);
    QTranslator translator;
    loadTranslation(translator, ZMConfiguration(settings.bytes.value_or(QByteArray()), call.settings, "cfg"_L1));
    QCoreApplication::installTranslator(&translator);
    return taskOf(call)(call, settings);
}

} // namespace

ExitStatus refuse(const QString& reason)
{
    std::fputs(toolkit::localeText(reason + u'\n').constData(), stderr);
    return NotDone;
}

int runPaperProgram(int argc, char** argv)
{
    toolkit::setFileNameEncoding(fileNames(argc, argv));

    QStringList arguments = QCoreApplication::arguments();
    for (int i = 1; i < argc; ++i)
        arguments += toolkit::fileText(argv[i]);
    Call call;
    const QString wrong = readCall(arguments, call);
    if (!wrong.isEmpty())
        return refuseCall(wrong);
    if (drawsIntoItsSource(call))
        return refuseCall(
            QStringLiteral("The file %1 cannot be drawn into: it is part of what is read.").arg(call.output));
    if (call.task == Call::Task::Help)
        return say(helpText().trimmed());
    if (call.task == Call::Task::Version)
        return say(QStringLiteral("zelmora-paper " ZELMORA_VERSION));
    return perform(call);
}

} // namespace preview
