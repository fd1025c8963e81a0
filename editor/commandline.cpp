#include "editor/commandline.h"

#include "config/zmconfiguration.h"
#include "toolkit/literals.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using toolkit::operator""_L1;

namespace {

const int wrongUsage = 2; ///< the exit status

const QString helpOption = QStringLiteral("help");
const QString versionOption = QStringLiteral("version");

/// All that may stand on the command line.
void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral("Shows a settings file in a window, to change its values."));
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOption({{QStringLiteral("h"), helpOption}, QStringLiteral("Shows this text.")});
    parser.addOption({{QStringLiteral("v"), versionOption}, QStringLiteral("Shows the version.")});
    // Added by a desktop that brings a session back; the toolkit's affair.
    QCommandLineOption session(QStringLiteral("session"), QString(), QStringLiteral("id"));
    session.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(session);
    parser.addPositionalArgument(QStringLiteral("file"),
                                 "The settings file; XML when its name ends in .xml. Without it your own is opened: "_L1
                                     + ZMConfiguration::path(),
                                 QStringLiteral("[file]"));
}

[[noreturn]] void refuse(const QString& reason)
{
    const QString text = QStringLiteral("%1\nTry '%2 --help' for more information.\n");
    std::fputs(qPrintable(text.arg(reason, QCoreApplication::arguments().value(0))), stderr);
    std::exit(wrongUsage);
}

} // namespace

QString pathToOpen(int argc, char** argv)
{
    const QCoreApplication application(argc, argv); // one with windows ends the process where there is no display
    QCoreApplication::setApplicationName(QStringLiteral("zelmora-settings"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZELMORA_VERSION));

    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(QCoreApplication::arguments()))
        refuse(parser.errorText());
    if (parser.isSet(helpOption))
        parser.showHelp();
    if (parser.isSet(versionOption))
        parser.showVersion();
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        refuse(QStringLiteral("Only one file can be opened."));
    return files.value(0, ZMConfiguration::path());
}
