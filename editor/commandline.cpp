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

/// An option that the toolkit takes out of the arguments when it opens the display.
struct ToolkitOption {
    const char* name;
    bool hasValue;
};

const ToolkitOption toolkitOptions[] = {
    {"platform", true},
    {"platformpluginpath", true},
    {"platformtheme", true},
    {"plugin", true},
    {"qwindowgeometry", true},
    {"qwindowicon", true},
    {"qwindowtitle", true},
    {"reverse", false},
    {"session", true}, // added by a desktop that brings a session back
    {"style", true},
    {"stylesheet", true},
    {"testability", false},
    {"widgetcount", false},
    // On X11 only:
    {"display", true},
    {"dograb", false},
    {"geometry", true},
    {"icon", true},
    {"name", true},
    {"nograb", false},
    {"title", true},
    {"visual", true},
};

void describeOwnOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral("Shows a settings file in a window, to change its values."));
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOption({{QStringLiteral("h"), helpOption}, QStringLiteral("Shows this text.")});
    parser.addOption({{QStringLiteral("v"), versionOption}, QStringLiteral("Shows the version.")});
    parser.addPositionalArgument(QStringLiteral("file"),
                                 "The settings file; XML when its name ends in .xml. Without it your own is opened: "_L1
                                     + ZMConfiguration::path(),
                                 QStringLiteral("[file]"));
}

void describeToolkitOptions(QCommandLineParser& parser)
{
    for (const ToolkitOption& toolkitOption : toolkitOptions) {
        QCommandLineOption option(QString::fromLatin1(toolkitOption.name));
        if (toolkitOption.hasValue)
            option.setValueName(QStringLiteral("value"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
}

[[noreturn]] void refuse(const QString& reason)
{
    const QString text = QStringLiteral("%1\nTry '%2 --help' for more information.\n");
    std::fputs(qPrintable(text.arg(reason, QCoreApplication::arguments().value(0))), stderr);
    std::exit(wrongUsage);
}

void parseOrRefuse(QCommandLineParser& parser)
{
    if (!parser.parse(QCoreApplication::arguments()))
        refuse(parser.errorText());
}

} // namespace

QString pathToOpen(int argc, char** argv)
{
    const QCoreApplication application(argc, argv); // one with windows ends the process where there is no display
    QCoreApplication::setApplicationName(QStringLiteral("zelmora-settings"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZELMORA_VERSION));

    QCommandLineParser parser;
    describeOwnOptions(parser);
    describeToolkitOptions(parser);
    parseOrRefuse(parser);
    if (parser.isSet(helpOption))
        parser.showHelp();
    if (parser.isSet(versionOption))
        parser.showVersion();
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        refuse(QStringLiteral("Only one file can be opened."));
    return files.value(0, ZMConfiguration::path());
}

void refuseRemainingOptions()
{
    QCommandLineParser parser;
    describeOwnOptions(parser);
    parseOrRefuse(parser);
}
