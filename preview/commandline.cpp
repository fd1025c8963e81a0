#include "preview/commandline.h"

#include "config/zmconfiguration.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"

#include <QCommandLineParser>
#include <QTextCodec>

#include <algorithm>

using toolkit::operator""_L1;

namespace preview {

namespace {

const QString outputOption = QStringLiteral("output");
const QString settingsOption = QStringLiteral("settings");
const QString plainOption = QStringLiteral("plain");
const QString rehearseOption = QStringLiteral("rehearse");
const QString encodingOption = QStringLiteral("encoding");
const QString scaleOption = QStringLiteral("scale");
const int greatestScale = 8;

struct TaskRules {
    Call::Task task;
    QLatin1String name; ///< of its option; empty: what is done without one
    QLatin1String options; ///< the names of those that it has a use for, with blanks between them
    int fewest; ///< files
    int most; ///< -1: any number
    QLatin1String wrongFiles; ///< what is wrong with another number
};

// clang-format off
constexpr TaskRules taskRules[] = {
    {Call::Task::Help, "help"_L1, {}, 0, -1, {}},
    {Call::Task::Version, "version"_L1, {}, 0, -1, {}},
    {Call::Task::Proof, "proof"_L1, "output settings plain scale"_L1, 0, 0,
     "The option --proof draws the built-in samples: it takes no files."_L1},
    {Call::Task::Compare, "compare"_L1, "output encoding scale"_L1, 2, 2,
     "The option --compare takes two scripts or two folders, the old and the new."_L1},
    {Call::Task::Rehearse, "rehearse"_L1, "output settings scale"_L1, 1, -1,
     "There is no job to rehearse: name one behind the settings file."_L1},
    {Call::Task::Draw, {}, "output settings plain encoding scale"_L1, 1, -1,
     "There is nothing to draw: name a script or a job, or \"-\" for standard input."_L1},
};

struct OutputForm {
    QLatin1String ending;
    Form form;
};

constexpr OutputForm outputForms[] = {
    {".txt"_L1, Form::Text},
    {".svg"_L1, Form::Svg},
    {".png"_L1, Form::Png},
    {".pdf"_L1, Form::Pdf},
};
// clang-format on

void describeTasks(QCommandLineParser& parser)
{
    parser.addOption(
        {QStringLiteral("proof"), QStringLiteral("Draw all documents, of built-in samples, on one sheet.")});
    parser.addOption({QStringLiteral("compare"),
                      QStringLiteral("Draw what differs between two scripts, or between two folders of scripts.")});
    parser.addOption({rehearseOption,
                      QStringLiteral("Print jobs with your settings and with those of file, and draw the documents "
                                     "whose paper changes."),
                      QStringLiteral("file")});
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this text.")});
    parser.addOption({{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Show the version.")});
}

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Draws the paper of the register's scripts, and of jobs as they would print with your settings.\n"
        "Exit status: 2 when the call was wrong or a file could not be read or written, else 1 when\n"
        "there is an error in a script or a difference, else 0."));
    parser.addOption({{QStringLiteral("o"), outputOption},
                      QStringLiteral("Draw into a file; .txt, .svg, .png or .pdf at its end says how."),
                      QStringLiteral("file")});
    parser.addOption(
        {settingsOption,
         QStringLiteral("Print with these settings in place of your own; XML where the name ends in .xml."),
         QStringLiteral("file")});
    parser.addOption({plainOption, QStringLiteral("Show the rows and nothing else.")});
    parser.addOption(
        {encodingOption, QStringLiteral("The encoding of scripts; the locale's otherwise."), QStringLiteral("name")});
    parser.addOption({scaleOption, QStringLiteral("Draw a PNG 1 to 8 times as large."), QStringLiteral("number")});
    describeTasks(parser);
    parser.addPositionalArgument(QStringLiteral("file"),
                                 QStringLiteral("Scripts and jobs; what begins with \"<\" is a job. \"-\" is standard "
                                                "input. With --compare the old and the new."),
                                 QStringLiteral("file..."));
}

bool isAskedFor(const QCommandLineParser& parser, const TaskRules& rules)
{
    return rules.name.isEmpty() || parser.isSet(rules.name);
}

const TaskRules& rulesOf(const QCommandLineParser& parser)
{
    return *std::find_if(std::begin(taskRules), std::end(taskRules),
                         [&](const TaskRules& rules) { return isAskedFor(parser, rules); });
}

QString wrongOptions(const QCommandLineParser& parser, const TaskRules& rules)
{
    const QStringList taken = QString(rules.options).split(QLatin1Char(' ')) + QStringList(rules.name);
    for (QString option : parser.optionNames()) {
        if (option == "o"_L1)
            option = outputOption;
        if (!taken.contains(option))
            return QStringLiteral("The options --%1 and --%2 cannot be had together.").arg(rules.name, option);
    }
    return QString();
}

QString wrongFiles(const QStringList& files, const TaskRules& rules)
{
    if (files.size() < rules.fewest || (rules.most >= 0 && files.size() > rules.most))
        return rules.wrongFiles;
    if (files.count(QStringLiteral("-")) > 1)
        return QStringLiteral("Standard input can be read only once: there are several \"-\".");
    return QString();
}

/// The path of the file that the caller means.
QString pathOf(const QString& name)
{
    return toolkit::filePath(toolkit::fileName(name));
}

void readNames(const QCommandLineParser& parser, Call& call)
{
    for (const QString& name : parser.positionalArguments())
        call.files += pathOf(name);
    call.ownSettings = !parser.isSet(settingsOption);
    call.settings = call.ownSettings ? ZMConfiguration::path() : pathOf(parser.value(settingsOption));
    call.otherSettings = pathOf(parser.value(rehearseOption));
}

QString readOutput(const QCommandLineParser& parser, Call& call)
{
    if (!parser.isSet(outputOption))
        return QString();
    call.output = pathOf(parser.value(outputOption));
    for (const OutputForm& known : outputForms) {
        if (call.output.endsWith(known.ending, Qt::CaseInsensitive)) {
            call.form = known.form;
            return QString();
        }
    }
    return QStringLiteral("The name of the file to draw into must end in .txt, .svg, .png or .pdf: \"%1\" does not.")
        .arg(call.output);
}

QString readPlain(const QCommandLineParser& parser, Call& call)
{
    call.isPlain = parser.isSet(plainOption);
    if (call.isPlain && call.form != Form::Text)
        return QStringLiteral("With --plain the file to draw into must end in .txt.");
    return QString();
}

QString readScale(const QCommandLineParser& parser, Call& call)
{
    if (!parser.isSet(scaleOption))
        return QString();
    if (call.form != Form::Png)
        return QStringLiteral("The option --scale is for a drawing into a .png file alone.");
    call.scale = parser.value(scaleOption).toInt();
    if (call.scale < 1 || call.scale > greatestScale)
        return QStringLiteral("The scale is a whole number from 1 to 8, and \"%1\" is none.")
            .arg(parser.value(scaleOption));
    return QString();
}

QString readEncoding(const QCommandLineParser& parser, Call& call)
{
    if (!parser.isSet(encodingOption))
        return QString();
    call.encoding = QTextCodec::codecForName(parser.value(encodingOption).toLatin1());
    return call.encoding ? QString() : QStringLiteral("There is no encoding \"%1\".").arg(parser.value(encodingOption));
}

/// What is wrong with the values of options.
QString readValues(const QCommandLineParser& parser, Call& call)
{
    for (const auto& read : {readOutput, readPlain, readScale, readEncoding}) {
        const QString wrong = read(parser, call);
        if (!wrong.isEmpty())
            return wrong;
    }
    return QString();
}

} // namespace

QString readCall(const QStringList& arguments, Call& call)
{
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(arguments))
        return parser.errorText();
    const TaskRules& rules = rulesOf(parser);
    call.task = rules.task;
    if (call.task == Call::Task::Help || call.task == Call::Task::Version)
        return QString();
    readNames(parser, call);
    QString wrong = wrongOptions(parser, rules);
    if (wrong.isEmpty())
        wrong = wrongFiles(call.files, rules);
    return wrong.isEmpty() ? readValues(parser, call) : wrong;
}

QString helpText()
{
    QCommandLineParser parser;
    describe(parser);
    return parser.helpText();
}

bool mayTakePainter(int argc, char** argv)
{
    return std::any_of(argv, argv + argc, [](const QByteArray& argument) {
        const QByteArray name = argument.toLower();
        return name.endsWith(".png") || name.endsWith(".pdf");
    });
}

} // namespace preview
