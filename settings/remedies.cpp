#include "settings/remedies.h"

#include "settings/settingsfile.h"
#include "toolkit/eightbit.h"
#include "toolkit/literals.h"
#include "toolkit/nearest.h"
#include "toolkit/numbertext.h"

#include <QRegularExpression>

#include <algorithm>

using check::Code;
using toolkit::operator""_L1;
using vocabulary::Setting;
using vocabulary::SettingKind;

namespace settings {

namespace {

QString nearestFlag(const QString& value)
{
    const QString lower = value.trimmed().toLower();
    return lower == "true"_L1 || lower == "false"_L1 ? lower : QString();
}

/// The number that it begins with, when there is no other: nobody knows which of two is meant. A greater one than the
/// greatest is taken for that anyway; what is meant by a negative one, nobody knows either.
QString nearestNumber(const Setting& setting, const QString& value)
{
    static const QRegularExpression oneNumber(QStringLiteral("\\A\\s*(\\+?[0-9]+)(?:\\.0*)?\\s*[^0-9.,]*\\z"));
    const QRegularExpressionMatch match = oneNumber.match(value);
    if (!match.hasMatch())
        return QString();
    const std::optional<int> number = toolkit::wholeNumber(match.captured(1));
    if (!number) // too great for the programs
        return QString();
    return QString::number(std::min(*number, setting.greatest));
}

QString nearestWord(const Setting& setting, const QString& value)
{
    QStringList words;
    for (const QLatin1String word : setting.words)
        words += word;
    return toolkit::nearest(value.trimmed().toUpper(), words);
}

/// Whether a group of @p parent has that name.
bool holdsGroup(const QDomElement& parent, const QString& name)
{
    return !parent.firstChildElement(name).isNull();
}

/// Whether some group beside @p group, of the same name, has a setting @p name, or that group itself.
bool holdsSetting(const SettingsFile& file, const QDomElement& group, const QString& name)
{
    const QVector<QDomElement> groups = file.groupsOf(SettingsFile::keyOf(group));
    return std::any_of(groups.begin(), groups.end(),
                       [&](const QDomElement& candidate) { return candidate.hasAttribute(name); });
}

} // namespace

QString nearestValue(const Setting& setting, const QString& value)
{
    switch (setting.kind) {
    case SettingKind::Flag:
        return nearestFlag(value);
    case SettingKind::Number:
        return nearestNumber(setting, value);
    case SettingKind::Word:
        return nearestWord(setting, value);
    case SettingKind::Path:
    case SettingKind::Text:
    case SettingKind::Secret:
        break;
    }
    return QString();
}

std::optional<Remedy> otherName(const SettingsFile& file, const TreeFinding& finding)
{
    const QString& meant = finding.finding.suggestion;
    const QDomElement& group = finding.group;
    if (meant.isEmpty())
        return std::nullopt;
    switch (finding.finding.code) {
    case Code::UnknownKey:
        if (holdsSetting(file, group, meant))
            return std::nullopt;
        return Remedy {Remedy::What::SettingName, group, finding.name, finding.name, meant};
    case Code::UnknownGroup:
    case Code::WrongTopGroup:
        if (holdsGroup(group.parentNode().toElement(), meant))
            return std::nullopt;
        return Remedy {Remedy::What::GroupName, group, QString(), group.tagName(), meant};
    default:
        return std::nullopt;
    }
}

} // namespace settings
