#include "settings/shownloss.h"

#include "settings/settingsfile.h"
#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "vocabulary/settings.h"

#include <QObject>

using toolkit::operator""_L1;

namespace settings {

namespace {

const int longestText = 100;
const QString hidden = QStringLiteral("***");

/// The whole keys of all secrets.
QStringList secretKeys()
{
    QStringList keys;
    for (const vocabulary::SettingGroup& group : vocabulary::settingGroups()) {
        for (const vocabulary::Setting& setting : group.settings) {
            if (setting.kind == vocabulary::SettingKind::Secret)
                keys += "zelmora."_L1 + group.name + QLatin1Char('.') + setting.key;
        }
    }
    return keys;
}

/// @p text may be "key = value", or a value alone, whose quotes the format drops.
QString withoutSecrets(const QString& text, const SettingsFile& file)
{
    for (const QString& key : secretKeys()) {
        const QString beginning = key + " = "_L1;
        if (text.startsWith(beginning))
            return beginning + hidden;
        const QString secret = file.lookup(key);
        if (!secret.isEmpty() && QString(text).remove(QLatin1Char('"')) == secret)
            return hidden;
    }
    return text;
}

QString shown(const QString& text, const SettingsFile& file)
{
    const QString line = toolkit::inOneLine(withoutSecrets(text, file));
    return line.size() <= longestText ? line : line.left(longestText) + "..."_L1;
}

} // namespace

QStringList shownLosses(const SettingsFile& file)
{
    QStringList texts;
    for (const FileRemark& remark : file.losses()) {
        const int first = remark.place.line;
        const int last = first + remark.text.count(QLatin1Char('\n'));
        const QString text = shown(remark.text, file);
        texts += last == first
            ? QObject::tr("line %1: %2").arg(QString::number(first), text)
            : QObject::tr("lines %1 to %2: %3").arg(QString::number(first), QString::number(last), text);
    }
    return texts;
}

QStringList shownSettings(const QStringList& texts, const SettingsFile& file)
{
    QStringList lines;
    for (const QString& text : texts)
        lines += shown(text, file);
    return lines;
}

} // namespace settings
