#ifndef ZELMORA_CHECK_SETTINGSSYNTAX_H
#define ZELMORA_CHECK_SETTINGSSYNTAX_H

#include "check/finding.h"

#include <QString>

#include <optional>

namespace libconfig {
struct ScannedSetting;
}

namespace check {

struct PlacedGroup;
class PlacedSettings;

/// What @p text is in a finding: on one line, and not longer than one looks at.
QString excerpt(const QString& text);

/// A name that holds a remark, which the format does not have.
struct Remark {
    QString hidden; ///< the name that nobody finds because of it; empty where there is none
    bool isGroup = false; ///< it is a group's name and "{", and the ":" between them is missing
};

/// Nothing where the name of the setting holds none: a name of another spelling is none.
std::optional<Remark> remarkIn(const libconfig::ScannedSetting& setting);
std::optional<Remark> remarkIn(const PlacedGroup& group);
Finding remarkFound(const Remark& remark, toolkit::TextPlace place);

/// Whether the value, in the brace format, goes on over what stands behind it, since a semicolon is missing.
bool runsOn(const libconfig::ScannedSetting& setting);

/// Adds what the grammar makes of slips, wherever they stand: text that is skipped, semicolons that are missing.
void checkSyntax(const PlacedSettings& settings, Findings& findings);

} // namespace check

#endif
