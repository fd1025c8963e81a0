#include "check/commandline.h"

#include "check/reportoptions.h"
#include "config/zmconfiguration.h"
#include "toolkit/literals.h"

#include <QCommandLineParser>

using toolkit::operator""_L1;

namespace check {

namespace {

const QString settingsOption = QStringLiteral("settings");

struct TaskOption {
    Call::Task task;
    QLatin1String letter; ///< of its short form; empty where it has none
    QLatin1String name;
    QLatin1String description;
};

// clang-format off
/// Of several the first one is done.
constexpr TaskOption taskOptions[] = {
    {Call::Task::Help, "h"_L1, "help"_L1, "Show this text."_L1},
    {Call::Task::Version, "v"_L1, "version"_L1, "Show the version."_L1},
    {Call::Task::Codes, {}, "codes"_L1, "List the codes of all findings, of settings too, each with its severity and a sentence."_L1},
    {Call::Task::Schema, {}, "schema"_L1, "Show the XML schema of jobs, for editors."_L1},
    {Call::Task::Trace, {}, "trace"_L1, "Show what each line of a job's script comes from, in place of the findings."_L1},
};
// clang-format on

QStringList namesOf(const TaskOption& option)
{
    const QStringList name(option.name);
    return option.letter.isEmpty() ? name : QStringList(option.letter) + name;
}

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Checks print jobs as they would print with your settings, and the register's scripts.\n"
                       "What begins with \"<\" is a job. A script is read in the locale's encoding.\n"
                       "Exit status: 2 when the call was wrong or a file could not be read, else 1 when\n"
                       "there is an error, else 0."));
    parser.addOption(
        {settingsOption,
         QStringLiteral("Check with these settings in place of your own; XML where the name ends in .xml."),
         QStringLiteral("file")});
    addReportOptions(parser);
    for (const TaskOption& option : taskOptions)
        parser.addOption({namesOf(option), QString(option.description)});
    parser.addPositionalArgument(QStringLiteral("job.xml|script.txt"),
                                 QStringLiteral("The jobs and scripts; \"-\" is standard input."),
                                 QStringLiteral("job.xml|script.txt..."));
}

Call::Task taskOf(const QCommandLineParser& parser)
{
    for (const TaskOption& option : taskOptions) {
        if (parser.isSet(option.name))
            return option.task;
    }
    return Call::Task::Check;
}

} // namespace

QString readCall(const QStringList& arguments, Call& call)
{
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(arguments))
        return parser.errorText();
    call.task = taskOf(parser);
    call.ownSettings = !parser.isSet(settingsOption);
    call.settings = call.ownSettings ? ZMConfiguration::path() : parser.value(settingsOption);
    call.files = parser.positionalArguments();
    if (call.files.isEmpty() && (call.task == Call::Task::Check || call.task == Call::Task::Trace))
        return QStringLiteral("There is nothing to check: name a file, or \"-\" for standard input.");
    return readReportOptions(parser, call.report);
}

QString helpText()
{
    QCommandLineParser parser;
    describe(parser);
    return parser.helpText();
}

} // namespace check
