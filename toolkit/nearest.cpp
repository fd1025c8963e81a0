#include "toolkit/nearest.h"

#include <QStringList>
#include <QVector>

#include <algorithm>
#include <numeric>

namespace toolkit {

namespace {

const int mostSlips = 2;

/// How many characters must be put in, taken out or replaced to make one of the other.
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

/// How many slips make @p name of @p meant; more than the most where they are too many to be worth counting.
int slips(const QString& name, const QString& meant)
{
    // Nothing longer can be one; a character takes two units at most.
    if (name.size() > 2 * (meant.size() + mostSlips))
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
    int fewest = std::min(mostSlips + 1, name.size());
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
