#ifndef ZELMORA_SETTINGS_REMEDIES_H
#define ZELMORA_SETTINGS_REMEDIES_H

#include "settings/treefindings.h"
#include "vocabulary/settings.h"

#include <optional>

namespace settings {

class SettingsFile;

/// What puts something right where there is one right text, and it is near.
struct Remedy {
    enum class What { Value, SettingName, GroupName };

    What what;
    QDomElement group; ///< that holds the setting, or that is named otherwise
    QString name; ///< of the setting
    QString before; ///< the value or the name
    QString after;
};

/// The value of @p setting that is nearest to @p value, which is none: "true" for "True", "32" for "32 mm", "10000" for
/// "99999", "INFO" for "INFOO". Empty where none is.
QString nearestValue(const vocabulary::Setting& setting, const QString& value);

/// The other name for what @p finding is about, a setting or a group that no program reads; nothing where none is
/// near, or something of that name is there.
std::optional<Remedy> otherName(const SettingsFile& file, const TreeFinding& finding);

} // namespace settings

#endif
