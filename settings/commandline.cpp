#include "settings/commandline.h"

#include "check/reportoptions.h"
#include "settings/commands.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/nearest.h"

#include <QCommandLineParser>
#include <QTextCodec>

using toolkit::operator""_L1;

namespace settings {

namespace {

const QString fileOption = QStringLiteral("file");
const QString secretsOption = QStringLiteral("show-secrets");
const QString forceOption = QStringLiteral("force");
const QString helpOption = QStringLiteral("help");
const QString versionOption = QStringLiteral("version");

// clang-format off
constexpr Command commands[] = {
    {"check"_L1, ""_L1, "findings on the file, each with its place"_L1,
     0, 0, false, "file format strict quiet exclude"_L1, checkFile},
    {"list"_L1, "[GROUP]"_L1, "every setting that the suite reads: its value, or what its absence means, and where it comes from"_L1,
     0, 1, false, "file format show-secrets"_L1, listSettings},
    {"effective"_L1, "METHOD"_L1, "what a document of this method is printed with"_L1,
     1, 1, false, "file format show-secrets"_L1, showEffectiveSettings},
    {"get"_L1, "KEY"_L1, "the value alone, secrets too"_L1,
     1, 1, true, "file"_L1, getValue},
    {"set"_L1, "KEY VALUE"_L1, "changes or adds a setting"_L1,
     2, 2, true, "file force"_L1, setValue},
    {"unset"_L1, "KEY"_L1, "takes a setting out"_L1,
     1, 1, true, "file force"_L1, unsetValue},
    {"new"_L1, ""_L1, "a complete file to start from, never over an existing one"_L1,
     0, 0, false, "file"_L1, makeFile},
    {"convert"_L1, "FROM TO"_L1, "from the brace form to XML or back, never over an existing file"_L1,
     2, 2, false, ""_L1, convertFile},
};
// clang-format on

/// Bytes as text and back: whatever their encoding, none is lost.
QString asBytes(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes);
}

QString inLocale(const QString& bytes)
{
    return toolkit::localeCodec()->toUnicode(bytes.toLatin1());
}

QStringList commandNames()
{
    QStringList names;
    for (const Command& command : commands)
        names += command.name;
    return names;
}

/// A line for each.
QString commandsText()
{
    QString text = QStringLiteral("Shows, checks and changes a settings file.\n\nCommands:");
    for (const Command& command : commands)
        text += "\n  "_L1 + QString(command.name + QLatin1Char(' ') + command.arguments).leftJustified(18)
            + command.description;
    return text;
}

/// A line for each command that takes any.
QString takenOptionsText()
{
    QString text = QStringLiteral("\n\nThe options that each takes:");
    for (const Command& command : commands) {
        if (command.options.size() > 0)
            text += "\n  "_L1 + QString(command.name).leftJustified(18) + "--"_L1
                + QString(command.options).replace(QLatin1Char(' '), " --"_L1);
    }
    return text;
}

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        commandsText() + takenOptionsText()
        + "\n\nA KEY is whole: zelmora.receiptdoc.paperWidth. Options stand before or after the command, up to the "
          "KEY.\n"
          "The exit status is 0 when it is done; 1 when the setting is absent, the change is refused or an error is\n"
          "found; 2 when the call was wrong or a file cannot be read or written."_L1);
    parser.addOption({fileOption,
                      QStringLiteral("The settings file, in place of your own; XML where its name ends in .xml."),
                      QStringLiteral("file")});
    check::addReportOptions(parser);
    parser.addOption({secretsOption, QStringLiteral("Show secrets in lists, in place of \"***\".")});
    parser.addOption({forceOption,
                      QStringLiteral("Set what no program takes or reads, and drop what the file would lose, "
                                     "without a question.")});
    parser.addOption({{QStringLiteral("h"), helpOption}, QStringLiteral("Show this text.")});
    parser.addOption({{QStringLiteral("v"), versionOption}, QStringLiteral("Show the version.")});
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("One of the commands above."),
                                 QStringLiteral("command [arguments]"));
}

const Command* findCommand(const QString& name)
{
    for (const Command& command : commands) {
        if (name == command.name)
            return &command;
    }
    return nullptr;
}

QString unknownCommand(const QString& name)
{
    const QString meant = toolkit::nearest(name, commandNames());
    if (meant.isEmpty())
        return QStringLiteral("\"%1\" is no command. The commands are %2.").arg(name, commandNames().join(", "_L1));
    return QStringLiteral("\"%1\" is no command. Is \"%2\" meant?").arg(name, meant);
}

/// The arguments without the command, all of them parsed: those behind a key as they are.
QString parseAll(QCommandLineParser& parser, QStringList arguments, const Command& command)
{
    arguments.removeAt(arguments.size() - parser.positionalArguments().size());
    parser.setOptionsAfterPositionalArgumentsMode(command.takesKey ? QCommandLineParser::ParseAsPositionalArguments
                                                                   : QCommandLineParser::ParseAsOptions);
    return parser.parse(arguments) ? QString() : parser.errorText();
}

QString wrongOption(const QCommandLineParser& parser, const Command& command)
{
    const QStringList taken = QString(command.options).split(QLatin1Char(' '));
    for (const QString& option : parser.optionNames()) {
        if (!taken.contains(option))
            return QStringLiteral("The command \"%1\" has no option --%2.").arg(command.name, option);
    }
    if (parser.isSet(fileOption) && parser.value(fileOption).isEmpty())
        return QStringLiteral("The option --file needs the name of a file.");
    return QString();
}

QString wrongArguments(const QStringList& arguments, const Command& command)
{
    if (arguments.size() >= command.fewest && arguments.size() <= command.most)
        return QString();
    return QStringLiteral("The call is: %1")
        .arg(QString("zelmora-config [options] "_L1 + command.name + QLatin1Char(' ') + command.arguments).trimmed());
}

Call::Task taskOf(const QCommandLineParser& parser)
{
    if (parser.isSet(helpOption))
        return Call::Task::Help;
    return parser.isSet(versionOption) ? Call::Task::Version : Call::Task::Run;
}

/// What is wrong with all but the command's name, which has been read.
QString wrongIn(const QCommandLineParser& parser, Call& call)
{
    QString wrong = wrongOption(parser, *call.command);
    if (wrong.isEmpty())
        wrong = wrongArguments(parser.positionalArguments(), *call.command);
    return wrong.isEmpty() ? check::readReportOptions(parser, call.report) : wrong;
}

/// readCall(), of bytes as text.
QString readTexts(const QStringList& arguments, Call& call)
{
    QCommandLineParser parser;
    describe(parser);
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (!parser.parse(arguments))
        return parser.errorText();
    call.task = taskOf(parser);
    if (call.task != Call::Task::Run)
        return QString();
    if (parser.positionalArguments().isEmpty())
        return QStringLiteral("There is no command. The commands are %1.").arg(commandNames().join(", "_L1));
    call.command = findCommand(parser.positionalArguments().first());
    if (!call.command)
        return unknownCommand(parser.positionalArguments().first());

    const QString wrong = parseAll(parser, arguments, *call.command);
    call.task = taskOf(parser);
    if (!wrong.isEmpty() || call.task != Call::Task::Run)
        return wrong;
    for (const QString& argument : parser.positionalArguments())
        call.arguments += argument.toLatin1();
    call.file = parser.value(fileOption).toLatin1();
    call.showsSecrets = parser.isSet(secretsOption);
    call.isForced = parser.isSet(forceOption);
    return wrongIn(parser, call);
}

} // namespace

QString Call::text(int argument) const
{
    return toolkit::localeCodec()->toUnicode(arguments.value(argument));
}

QString readCall(const QByteArrayList& arguments, Call& call)
{
    QStringList texts;
    for (const QByteArray& argument : arguments)
        texts += asBytes(argument);
    return inLocale(readTexts(texts, call));
}

QString helpText()
{
    QCommandLineParser parser;
    describe(parser);
    return parser.helpText();
}

} // namespace settings
