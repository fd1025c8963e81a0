#include "check/settingssyntax.h"

#include "check/findingtext.h"
#include "check/placedsettings.h"
#include "check/settingnames.h"
#include "toolkit/literals.h"
#include "vocabulary/settings.h"

#include <QObject>
#include <QRegularExpression>

#include <algorithm>

using libconfig::ScannedSetting;
using libconfig::SkippedText;
using toolkit::TextPlace;
using toolkit::operator""_L1;

namespace check {

namespace {

const int longestExcerpt = 60;

/// Where in @p text something begins that stands behind a value or a "}" only when a semicolon is missing before it:
/// the end of a group, a setting or a group. A line begins with it; the first one too when @p fromStart.
QRegularExpressionMatch structureIn(const QString& text, bool fromStart)
{
    // Possessive, so that no text takes more than one look at each character.
    static const QString structure = QStringLiteral("[^\\S\\n]*+(?:\\}|([\\w-]++)\\s*+(?:=|:\\s*+\\{))");
    static const QRegularExpression onNextLine("\\n"_L1 + structure);
    static const QRegularExpression onAnyLine("(?:\\A|\\n)"_L1 + structure);
    return (fromStart ? onAnyLine : onNextLine).match(text);
}

/// Where the "}" of a group begin that end @p value; its size when none do.
int closingBraces(const QString& value)
{
    int begin = value.size();
    while (begin > 0 && (value.at(begin - 1).isSpace() || value.at(begin - 1) == QLatin1Char('}')))
        --begin;
    const bool areApart = begin == 0 || (begin < value.size() && value.at(begin).isSpace());
    return areApart && !value.contains(QLatin1Char('{')) ? begin : value.size();
}

/// A value that goes on over what stands behind it.
struct Overrun {
    int end; ///< where it should have ended
    QString name; ///< of the setting or the group that it swallows; empty when it is the end of a group
};

std::optional<Overrun> overrunOf(const ScannedSetting& setting)
{
    const QString& written = setting.written;
    const QLatin1Char quote('"');
    const int closing = written.startsWith(quote) ? written.indexOf(quote, 1) : -1;
    const int begin = closing + 1; // of what does not surely belong to the value
    const bool beginsBelow = setting.assignedPlace.line < setting.writtenPlace.line;
    const QRegularExpressionMatch match = structureIn(written.mid(begin), begin > 0 || beginsBelow);
    if (match.hasMatch())
        return Overrun {begin + match.capturedStart(), match.captured(1)};
    const int braces = begin > 0 ? written.size() : closingBraces(written);
    if (braces < written.size())
        return Overrun {braces, QString()};
    return std::nullopt;
}

/// Behind the first @p end characters of its value, white space apart.
TextPlace placeBehind(const ScannedSetting& setting, int end)
{
    while (end > 0 && setting.written.at(end - 1).isSpace())
        --end;
    return end == 0 ? setting.assignedPlace : after(setting.writtenPlace, setting.written.left(end));
}

/// Of letters and digits alone, as nearly all names are.
bool isWord(const QString& name)
{
    return std::all_of(name.begin(), name.end(), [](QChar character) { return character.isLetterOrNumber(); });
}

/// Whether @p name holds more than a name: a mark that begins a remark elsewhere, a second line, or words before a name
/// that a program reads.
bool holdsRemark(const QString& name)
{
    static const QRegularExpression mark(QStringLiteral("#|//|/\\*|--|;|\\n"));
    static const QRegularExpression words(QStringLiteral("\\s([\\w-]+)\\z"));
    if (isWord(name))
        return false; // the patterns take their time
    return name.contains(mark) || isKnownName(words.match(name.right(longestExcerpt)).captured(1));
}

/// Whether @p name begins as a group does, but for the ":".
bool lacksColon(const QString& name)
{
    static const QRegularExpression group(QStringLiteral("\\A[\\w-]+\\s*\\{"));
    return group.match(name.left(longestExcerpt)).hasMatch();
}

/// The word that @p text ends with.
QString lastWord(const QString& text)
{
    static const QRegularExpression other(QStringLiteral("[^\\w-]"));
    return text.mid(text.lastIndexOf(other) + 1);
}

/// @p text without what may be a secret: a report is shown to others.
QString withoutSecrets(QString text)
{
    static const QRegularExpression secrets = [] {
        QStringList keys;
        for (const QString& key : vocabulary::secretKeys())
            keys += key.section(QLatin1Char('.'), -1);
        return QRegularExpression("\\b("_L1 + keys.join(QLatin1Char('|')) + ")\\b[^;]+"_L1);
    }();
    return text.replace(secrets, QStringLiteral("\\1 ***"));
}

/// What is to be said of the slips of one settings file.
class SyntaxCheck {
public:
    explicit SyntaxCheck(Findings& findings)
        : findings(findings)
    {
    }

    void checkSkipped(const QVector<PlacedSettings::Skipped>& texts)
    {
        bool hasEnded = false; // said once, whatever follows
        for (const PlacedSettings::Skipped& text : texts) {
            if (!counts(text) || hasEnded)
                continue;
            hasEnded = text.reason == SkippedText::AfterEnd;
            checkSkipped(text);
        }
    }

    void checkValues(const PlacedGroup& group)
    {
        for (const ScannedSetting& setting : group.settings)
            checkValue(setting);
        for (const PlacedGroup& below : group.groups)
            checkValues(below);
    }

    /// @p end is where the last group lacks its end; @p depth that of the group.
    void checkOpenGroup(const PlacedGroup& top, int depth, TextPlace end)
    {
        const PlacedGroup* group = &top;
        for (; depth > 0; --depth)
            group = &group->groups.back();
        if (group != &top)
            missing(end, "};"_L1,
                    QObject::tr("\"};\" is missing here: the file ends inside the group \"%1\". Is it cut off?")
                        .arg(excerpt(group->name)));
    }

private:
    /// A semicolon more does no harm by itself, nor do remarks and declarations in XML.
    static bool counts(const PlacedSettings::Skipped& skipped)
    {
        static const QRegularExpression word(QStringLiteral("[^;\\s]"));
        return skipped.reason != SkippedText::XmlMarkup && skipped.text.contains(word);
    }

    void checkSkipped(const PlacedSettings::Skipped& skipped)
    {
        if (skipped.reason == SkippedText::AfterBrace) {
            const QRegularExpressionMatch swallowed = structureIn(skipped.text, true);
            if (swallowed.hasMatch()) {
                afterBrace(skipped, swallowed.captured(1));
                return;
            }
        }
        findings += finding(Code::SkippedText, skipped.place,
                            reasonText(skipped.reason).arg(excerpt(withoutSecrets(skipped.text))));
    }

    void afterBrace(const PlacedSettings::Skipped& skipped, const QString& name)
    {
        const TextPlace place = after(skipped.bracePlace, QLatin1Char('}'));
        missing(place, ";"_L1,
                name.isEmpty()
                    ? QObject::tr("A semicolon is missing here: the \"}\" that follows is skipped, and ends no group.")
                    : QObject::tr("A semicolon is missing here: what follows is skipped up to the next one, and \"%1\" "
                                  "is not found.")
                          .arg(excerpt(name)));
    }

    static QString reasonText(SkippedText reason)
    {
        switch (reason) {
        case SkippedText::BeforeBrace:
            return QObject::tr("The text between \":\" and \"{\" is skipped: %1");
        case SkippedText::AfterBrace:
            return QObject::tr("The text between \"}\" and \";\" is skipped: %1");
        case SkippedText::TooDeep:
            return QObject::tr("Groups nested this deep are not read, nor what follows them: %1");
        case SkippedText::AfterEnd:
            return QObject::tr(
                "The \"}\" before this text is one too many, and ends the settings: nothing of what follows "
                "is found: %1");
        case SkippedText::BeforeEnd:
            return QObject::tr("The text is no setting and no group, and is skipped: %1");
        case SkippedText::XmlText:
        case SkippedText::XmlMarkup:
        case SkippedText::XmlBeginning:
            break;
        }
        return QObject::tr("Settings are attributes: the text between the tags is skipped: %1");
    }

    void checkValue(const ScannedSetting& setting)
    {
        const std::optional<Overrun> overrun = overrunOf(setting);
        if (overrun && remarkIn(setting))
            return; // it holds the "=", and is reported as what it is
        if (overrun)
            missing(placeBehind(setting, overrun->end), ";"_L1, overrunText(overrun->name));
        else if (!setting.isEnded)
            missing(placeBehind(setting, setting.written.size()), ";"_L1,
                    QObject::tr("A semicolon is missing here: the file ends in this value. Is it cut off?"));
    }

    static QString overrunText(const QString& name)
    {
        return name.isEmpty()
            ? QObject::tr("A semicolon is missing here: the value goes on over the end of the group.")
            : QObject::tr("A semicolon is missing here: the value goes on over \"%1\", which is not found.")
                  .arg(excerpt(name));
    }

    void missing(TextPlace place, QLatin1String what, const QString& text)
    {
        findings += finding(Code::MissingSemicolon, place, text, what);
    }

    Findings& findings;
};

} // namespace

QString excerpt(const QString& text)
{
    const QString begin = beginning(text, 2 * longestExcerpt).simplified(); // a long text is not copied
    return shown(begin, longestExcerpt);
}

std::optional<Remark> remarkIn(const ScannedSetting& setting)
{
    if (!holdsRemark(setting.name))
        return std::nullopt;
    const std::optional<Overrun> overrun = overrunOf(setting);
    return Remark {overrun && !overrun->name.isEmpty() ? overrun->name : lastWord(setting.name),
                   lacksColon(setting.name)};
}

std::optional<Remark> remarkIn(const PlacedGroup& group)
{
    if (!holdsRemark(group.name))
        return std::nullopt;
    static const QRegularExpression nextName(QStringLiteral("([\\w-]+)\\s*:\\z"));
    const QString next = nextName.match(group.skipped.right(longestExcerpt)).captured(1);
    return Remark {next.isEmpty() ? lastWord(group.name) : next, lacksColon(group.name)};
}

Finding remarkFound(const Remark& remark, TextPlace place)
{
    if (remark.hidden.isEmpty())
        return finding(Code::Remark, place,
                       QObject::tr("There are no comments: the text is taken for a name. Remove it."));
    const QString text = remark.isGroup
        ? QObject::tr("A \":\" is missing before the \"{\": no group begins here, and \"%1\" is not found. Write it "
                      "between the group's name and the \"{\".")
        : QObject::tr("There are no comments: the text becomes part of the name, and \"%1\" is not found. "
                      "Remove it.");
    return finding(Code::Remark, place, text.arg(excerpt(remark.hidden)));
}

bool runsOn(const ScannedSetting& setting)
{
    return overrunOf(setting).has_value();
}

void checkSyntax(const PlacedSettings& settings, Findings& findings)
{
    SyntaxCheck check(findings);
    check.checkSkipped(settings.skippedTexts());
    if (settings.isXml())
        return;
    check.checkValues(settings.topLevel());
    // What was found so far may have cost a "}": one finding is enough for one slip.
    if (findings.isEmpty())
        check.checkOpenGroup(settings.topLevel(), settings.openGroups(), settings.end().place);
}

} // namespace check
