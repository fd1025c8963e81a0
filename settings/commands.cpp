#include "settings/commands.h"

#include "check/findingtext.h"
#include "config/zmconfiguration.h"
#include "toolkit/filenames.h"
#include "toolkit/localecodec.h"
#include "toolkit/nearest.h"
#include "vocabulary/settings.h"

#include <QObject>

#include <cstdio>

namespace settings {

QString pathOf(const Call& call)
{
    return call.file.isEmpty() ? ZMConfiguration::path() : toolkit::filePath(call.file);
}

QStringList readKeys()
{
    QStringList keys;
    for (const vocabulary::SettingGroup& group : vocabulary::settingGroups()) {
        for (const vocabulary::Setting& setting : group.settings) {
            if (vocabulary::isRead(group, setting))
                keys += vocabulary::keyOf(group, setting);
        }
    }
    return keys;
}

QString notSet(const QString& key)
{
    const QString text = QObject::tr("%1 is not set.").arg(key);
    const QStringList keys = readKeys();
    const QString meant = keys.contains(key) ? QString() : toolkit::nearest(key, keys);
    return check::withQuestion(text, meant);
}

void say(const QString& text)
{
    std::fprintf(stderr, "%s\n", toolkit::localeText(text).constData());
}

Status complain(Status status, const QString& reason)
{
    say(reason);
    return status;
}

} // namespace settings
