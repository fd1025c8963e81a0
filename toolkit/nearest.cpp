#include "toolkit/nearest.h"

#include <QStringList>
#include <QVector>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <vector>

namespace toolkit {

namespace {

const int mostSlips = 2;

/// How many characters must be put in, taken out or replaced to make one of the other; where that is more than the most
/// slips, some number beyond those.
int distance(const QVector<uint>& one, const QVector<uint>& other)
{
    std::vector<int> row(static_cast<std::size_t>(other.size())
                         + 1); // from the characters of one so far to each beginning of the other
    std::iota(row.begin(), row.end(), 0);
    for (const uint character : one) {
        int diagonal = row[0]++;
        int fewest = row[0]; // what is still to come only adds to it
        auto cell = row.begin();
        for (const uint otherCharacter : other) {
            const int replaced = diagonal + (character == otherCharacter ? 0 : 1);
            const int left = *cell++;
            diagonal = *cell;
            *cell = std::min({replaced, diagonal + 1, left + 1});
            fewest = std::min(fewest, *cell);
        }
        if (fewest > mostSlips)
            return fewest;
    }
    return row.back();
}

/// How many slips make @p name of @p meant; more than the most where they are too many to be worth counting.
int slips(const QString& name, const QString& meant)
{
    // A character takes two units at most, so that a slip makes no more difference in length: most pairs of names are
    // told apart here.
    if (std::abs(name.size() - meant.size()) > 2 * mostSlips)
        return mostSlips + 1;
    return distance(name.toUcs4(), meant.toUcs4());
}

} // namespace

bool isSlip(const QString& name, const QString& meant)
{
    return slips(name, meant) <= mostSlips;
}

QString nearest(const QString& name, const QStringList& names)
{
    const auto sameLetters = std::find_if(names.begin(), names.end(), [&](const QString& candidate) {
        return name.compare(candidate, Qt::CaseInsensitive) == 0;
    });
    if (sameLetters != names.end())
        return *sameLetters;
    QString best;
    int fewest = std::min(mostSlips, name.size() / 2) + 1; // of a short name two would leave little
    for (const QString& candidate : names) {
        const int count = slips(name, candidate);
        if (count < fewest) {
            fewest = count;
            best = candidate;
        }
    }
    return best;
}

} // namespace toolkit
