#include "settings/newsettings.h"

#include "settings/settingsfile.h"
#include "toolkit/literals.h"
#include "vocabulary/settings.h"

using toolkit::operator""_L1;
using vocabulary::Setting;
using vocabulary::SettingGroup;

namespace settings {

namespace {

struct FirstValue {
    QLatin1String key;
    QLatin1String value;
};

/// Where they act. The columns leave room for the Italian titles, and 12 characters for the name of a dish on a
/// receipt.
constexpr FirstValue firstValues[] = {
    {"quantityFieldWidth"_L1, "3"_L1}, {"priceFieldWidth"_L1, "6"_L1}, {"totalPriceFieldWidth"_L1, "8"_L1},
    {"printGeometry"_L1, "true"_L1},   {"printHeader"_L1, "true"_L1},  {"printCompany"_L1, "true"_L1},
    {"printDate"_L1, "true"_L1},       {"printTime"_L1, "true"_L1},    {"printTable"_L1, "true"_L1},
    {"printCustomer"_L1, "true"_L1},   {"printWaiter"_L1, "true"_L1},
};

QLatin1String firstValueOf(const SettingGroup& group, const Setting& setting)
{
    const bool acts = group.isDocument && !vocabulary::methodsAffected(group, setting).isEmpty();
    for (const FirstValue& first : firstValues) {
        if (acts && setting.key == first.key)
            return first.value;
    }
    return setting.absent;
}

} // namespace

void fillWithSettings(SettingsFile& file)
{
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        for (const Setting& setting : group.settings) {
            if (vocabulary::isRead(group, setting))
                file.set(vocabulary::keyOf(group, setting), firstValueOf(group, setting));
        }
    }
}

} // namespace settings
