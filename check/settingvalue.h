#ifndef ZELMORA_CHECK_SETTINGVALUE_H
#define ZELMORA_CHECK_SETTINGVALUE_H

#include "check/finding.h"

#include <optional>

namespace libconfig {
struct ScannedSetting;
}
namespace vocabulary {
struct Setting;
struct SettingGroup;
}

namespace check {

/// The first character of @p text for which the programs read "?"; nothing when there is none.
std::optional<QString> lossyCharacterOf(const QString& text);
Finding lossyFound(const QString& character, toolkit::TextPlace place);

/// Adds what there is to know about the value of a setting, which stands in @p group and means @p meaning. An empty one
/// is as good as none.
void checkSettingValue(const vocabulary::SettingGroup& group, const vocabulary::Setting& meaning,
                       const libconfig::ScannedSetting& setting, Findings& findings);

} // namespace check

#endif
