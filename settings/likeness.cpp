#include "settings/likeness.h"

#include "toolkit/nearest.h"

#include <QStringList>

#include <algorithm>

namespace settings {

namespace {

const QString suite = QStringLiteral("zelmora");

} // namespace

bool looksLikeSettings(const QStringList& topLevelGroups, bool isBlank)
{
    return isBlank || std::any_of(topLevelGroups.begin(), topLevelGroups.end(), [](const QString& name) {
               return name.endsWith(suite) || toolkit::isSlip(name, suite);
           });
}

} // namespace settings
