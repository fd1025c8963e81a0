#include "settings/likeness.h"

#include <QStringList>
#include <QVector>

#include <algorithm>
#include <numeric>

namespace settings {

namespace {

const QString suite = QStringLiteral("zelmora");
const int mostSlips = 2;

/// How many characters must be put in, taken out or replaced to make one of the other (Levenshtein).
int distance(const QVector<uint>& one, const QVector<uint>& other)
{
    QVector<int> row(other.size() + 1); // from the characters of one so far to each beginning of the other
    std::iota(row.begin(), row.end(), 0);
    for (const uint character : one) {
        int diagonal = row[0]++;
        for (int i = 0; i < other.size(); ++i) {
            const int replaced = diagonal + (character == other[i] ? 0 : 1);
            diagonal = row[i + 1];
            row[i + 1] = std::min({replaced, diagonal + 1, row[i] + 1});
        }
    }
    return row.last();
}

bool isSlip(const QString& name)
{
    // Nothing longer can be one; a character takes two units at most.
    if (name.size() > 2 * (suite.size() + mostSlips))
        return false;
    return distance(name.toUcs4(), suite.toUcs4()) <= mostSlips;
}

} // namespace

bool looksLikeSettings(const QStringList& topLevelGroups, bool isBlank)
{
    return isBlank || std::any_of(topLevelGroups.begin(), topLevelGroups.end(), [](const QString& name) {
               return name.endsWith(suite) || isSlip(name);
           });
}

} // namespace settings
