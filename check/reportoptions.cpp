#include "check/reportoptions.h"

#include "toolkit/literals.h"
#include "toolkit/nearest.h"

#include <QCommandLineParser>
#include <QStringList>

using toolkit::operator""_L1;

namespace check {

namespace {

const QString formatOption = QStringLiteral("format");
const QString strictOption = QStringLiteral("strict");
const QString quietOption = QStringLiteral("quiet");
const QString excludeOption = QStringLiteral("exclude");

QString readFormat(const QString& text, Format& format)
{
    if (text != "gcc"_L1 && text != "json"_L1)
        return QStringLiteral("\"%1\" is no format: take \"gcc\" or \"json\".").arg(text);
    format = text == "json"_L1 ? Format::Json : Format::Gcc;
    return QString();
}

QStringList codeNames()
{
    QStringList names;
    for (const CodeEntry& candidate : codes())
        names += candidate.name;
    return names;
}

QString unknownCode(const QString& name)
{
    const QString meant = toolkit::nearest(name, codeNames());
    if (meant.isEmpty())
        return QStringLiteral("\"%1\" is no code of a finding: \"zelmora-check --codes\" lists them.").arg(name);
    return QStringLiteral("\"%1\" is no code of a finding. Is \"%2\" meant?").arg(name, meant);
}

QString readCodes(const QString& text, QVector<Code>& excluded)
{
    for (const QString& part : text.split(u',', Qt::SkipEmptyParts)) {
        const QString name = part.trimmed();
        const CodeEntry* const found = findCode(name);
        if (!found)
            return unknownCode(name);
        excluded += found->code;
    }
    return QString();
}

} // namespace

void addReportOptions(QCommandLineParser& parser)
{
    parser.addOption({formatOption,
                      QStringLiteral("The form of the findings: \"gcc\", which is FILE:LINE:COLUMN: SEVERITY: TEXT "
                                     "[CODE], or \"json\"."),
                      QStringLiteral("gcc|json"), QStringLiteral("gcc")});
    parser.addOption({strictOption, QStringLiteral("Let warnings count as errors for the exit status.")});
    parser.addOption({quietOption, QStringLiteral("Show no notes.")});
    parser.addOption({excludeOption, QStringLiteral("Leave out the findings with these codes, separated by commas."),
                      QStringLiteral("codes")});
}

QString readReportOptions(const QCommandLineParser& parser, ReportOptions& options)
{
    options.strict = parser.isSet(strictOption);
    options.quiet = parser.isSet(quietOption);
    const QString wrong = readFormat(parser.value(formatOption), options.format);
    if (!wrong.isEmpty())
        return wrong;
    return readCodes(parser.values(excludeOption).join(u','), options.excluded);
}

} // namespace check
