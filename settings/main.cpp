#include "config/translation.h"
#include "config/zmconfiguration.h"
#include "settings/commands.h"
#include "settings/settingsfile.h"
#include "toolkit/console.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/program.h"

#include <QCoreApplication>
#include <QTranslator>

#include <algorithm>
#include <cerrno>
#include <new>

using settings::Call;
using toolkit::operator""_L1;

namespace {

/// In the language that the settings name which the call is about.
void loadTexts(QTranslator& texts, const Call& call)
{
    settings::SettingsFile file;
    if (!file.load(settings::pathOf(call)).isEmpty())
        return;
    loadTranslation(texts, ZMConfiguration(file.bytes(), file.path(), file.format()));
    QCoreApplication::installTranslator(&texts);
}

settings::Status run(const Call& call)
{
    QTranslator texts;
    loadTexts(texts, call);
    const settings::Status status = call.command->run(call);
    if (!toolkit::finishWriting())
        return settings::complain(settings::Failed, QObject::tr("Standard output cannot be written."));
    return status;
}

int show(const QString& text)
{
    toolkit::write(toolkit::localeText(text));
    return toolkit::finishWriting() ? settings::Done : settings::Failed;
}

int run(const QByteArrayList& arguments)
{
    Call call;
    const QString wrong = settings::readCall(arguments, call);
    if (!wrong.isEmpty())
        return settings::complain(settings::Failed, wrong + "\nTry 'zelmora-config --help' for more information."_L1);
    if (call.task == Call::Task::Help)
        return show(settings::helpText());
    if (call.task == Call::Task::Version)
        return show(QStringLiteral("zelmora-config " ZELMORA_VERSION "\n"));
    // After the application has loaded the locale: then it costs nothing.
    toolkit::setFileNameEncoding(QByteArrayList(call.arguments) << call.file << qgetenv("HOME"));
    return run(call);
}

} // namespace

int main(int argc, char** argv)
{
    toolkit::prepareProgram();
    // The toolkit sees the program's name alone: no argument of ours is ever an option of its own.
    int applicationArguments = std::min(argc, 1);
    const QCoreApplication application(applicationArguments, argv);
    QByteArrayList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += argv[i];
    try {
        return run(arguments);
    } catch (const std::bad_alloc&) {
        return settings::complain(settings::Failed, qt_error_string(ENOMEM));
    }
}
