#ifndef ZELMORA_CHECK_SETTINGNAMES_H
#define ZELMORA_CHECK_SETTINGNAMES_H

#include "check/finding.h"

namespace check {

class PlacedSettings;

/// Whether a program reads a group or a setting of that name.
bool isKnownName(const QString& name);

/// Adds what there is to know about groups and settings one by one: names that nobody reads or that stand twice, and
/// the values of those that are read. What stands in a group that nobody reads is not judged.
void checkNames(const PlacedSettings& settings, Findings& findings);

} // namespace check

#endif
