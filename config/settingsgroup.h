#ifndef ZELMORA_CONFIG_SETTINGSGROUP_H
#define ZELMORA_CONFIG_SETTINGSGROUP_H

#include "config/bracescanner.h"

#include <QString>

#include <vector>

namespace libconfig {

/// A group as it stands in a file in the brace format, in which a look-up finds what it finds in the tree. It costs
/// much less: of its texts, which are the scanner's, nothing is copied that is ASCII, and those values alone are
/// decoded that somebody asks for.
struct SettingsGroup {
    struct Setting {
        ScannedName name;
        ScannedText written; ///< the value, quotes and all

        QString value() const { return written.text().remove(QLatin1Char('"')); }
    };

    QString name;
    std::vector<Setting> settings; ///< in the order of the file; of several with one name the last one counts
    std::vector<SettingsGroup> groups; ///< likewise; those that hold nothing are left out
    bool holdsAnything = false; ///< a setting or a group begins in it: also one that is left out
};

} // namespace libconfig

#endif
