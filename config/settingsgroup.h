#ifndef ZELMORA_CONFIG_SETTINGSGROUP_H
#define ZELMORA_CONFIG_SETTINGSGROUP_H

#include "config/bracescanner.h"

#include <QString>

#include <vector>

namespace libconfig {

/// A group as it stands in a file in the brace format: all that a look-up needs, for much less than the toolkit's tree
/// of it costs.
struct SettingsGroup {
    struct Setting {
        QString name;
        ScannedText written; ///< the value, quotes and all: a print asks for few of them

        QString value() const { return written.text().remove(QLatin1Char('"')); }
    };

    QString name;
    std::vector<Setting> settings; ///< in the order of the file; of several with one name the last one counts
    std::vector<SettingsGroup> groups; ///< likewise; those that hold nothing are left out
    bool holdsAnything = false; ///< a setting or a group begins in it: also one that is left out
};

} // namespace libconfig

#endif
