#include "check/printflags.h"

#include "check/placedsettings.h"
#include "config/zmconfiguration.h"
#include "vocabulary/documentgroups.h"

#include <QObject>

using toolkit::operator""_L1;

namespace check {

PrintFlags::PrintFlags(const JobSettings& settings)
    : settings(settings)
{
}

void PrintFlags::select(const vocabulary::Method& method)
{
    group = "zelmora."_L1 + documentgroups::ofType(method.documentType) + QLatin1Char('.');
    known.clear();
}

QString PrintFlags::keyOf(QLatin1String key) const
{
    return group + key;
}

QString PrintFlags::value(QLatin1String key) const
{
    return settings.store.getStrValue(keyOf(key));
}

bool PrintFlags::isOn(QLatin1String flag) const
{
    if (flag.isEmpty())
        return true;
    const auto found = known.constFind(flag);
    if (found != known.constEnd())
        return *found;
    return *known.insert(flag, value(flag) == "true"_L1);
}

QString PrintFlags::whyOff(QLatin1String flag) const
{
    const QString key = keyOf(flag);
    const std::optional<PlacedSetting> setting = settings.places ? settings.places->find(key) : std::nullopt;
    if (!setting)
        return QObject::tr("%1 is not set to true").arg(key);
    return QObject::tr("%1 is \"%2\" in %3:%4")
        .arg(key, setting->value, settings.file, QString::number(setting->place.line));
}

} // namespace check
