#ifndef ZELMORA_CONFIG_SETTINGSGROUP_H
#define ZELMORA_CONFIG_SETTINGSGROUP_H

#include <QString>

#include <vector>

namespace libconfig {

/// A group as it stands in a file in the brace format: all that a look-up needs, at a tenth of what it costs to make the
/// toolkit's tree of it.
struct SettingsGroup {
    struct Setting {
        QString name;
        QString value;
    };

    QString name;
    std::vector<Setting> settings; ///< in the order of the file; of several with one name the last one counts
    std::vector<SettingsGroup> groups; ///< likewise; those that hold nothing are left out
    bool holdsAnything = false; ///< a setting or a group begins in it: also one that is left out
};

} // namespace libconfig

#endif
