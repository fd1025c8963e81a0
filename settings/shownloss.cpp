#include "settings/shownloss.h"

#include "check/findingtext.h"
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

/// @p text may be "key = value", or a value alone, whose quotes the format drops.
QString withoutSecrets(const QString& text, const SettingsFile& file)
{
    for (const QString& key : vocabulary::secretKeys()) {
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
    return check::shown(toolkit::inOneLine(withoutSecrets(text, file)), longestText);
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
    return texts + shownSettings(file.unwrittenGroups(), file);
}

QStringList shownSettings(const QStringList& texts, const SettingsFile& file)
{
    QStringList lines;
    for (const QString& text : texts)
        lines += shown(text, file);
    return lines;
}

} // namespace settings
