#include "toolkit/nearest.h"

#include <QStringList>
#include <QVector>
#include <QtAlgorithms>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace toolkit {

namespace {

const int mostSlips = 2;

/// How many characters must be put in, taken out or replaced to make one of the other; where that is more than the most
/// slips, some number beyond those. Beginnings whose lengths differ by more than these are not looked at.
int distance(const QVector<uint>& one, const QVector<uint>& other)
{
    const int tooMany = mostSlips + 1;
    if (std::abs(one.size() - other.size()) > mostSlips)
        return tooMany;
    // From the characters of one so far to the beginnings of the other that are shorter by the most slips, up to those
    // that are longer by these; a border on each side.
    std::array<int, 2 * mostSlips + 3> row;
    row.fill(tooMany);
    for (int longer = 0; longer <= mostSlips; ++longer)
        row[static_cast<std::size_t>(mostSlips + 1 + longer)] = longer;
    for (int done = 1; done <= one.size(); ++done) {
        for (int cell = 1; cell <= 2 * mostSlips + 1; ++cell) {
            const auto place = static_cast<std::size_t>(cell);
            const int length = done + cell - mostSlips - 1;
            const bool isOutside = length < 0 || length > other.size();
            const bool isSame = length > 0 && !isOutside && one.at(done - 1) == other.at(length - 1);
            const int replaced = length > 0 ? row[place] + (isSame ? 0 : 1) : tooMany;
            row[place] = isOutside ? tooMany : std::min({replaced, row[place - 1] + 1, row[place + 1] + 1});
        }
        if (*std::min_element(row.begin(), row.end()) > mostSlips)
            return tooMany;
    }
    return row[static_cast<std::size_t>(other.size() - one.size() + mostSlips + 1)];
}

/// A bit for each letter in @p text; some share one. The halves of a character of two units have none.
quint64 lettersOf(const QString& text)
{
    quint64 letters = 0;
    for (const QChar letter : text)
        letters |= letter.isSurrogate() ? 0 : quint64(1) << (letter.unicode() % 64);
    return letters;
}

/// Whether one of them has more letters that the other lacks than there may be slips: each mends one of these.
bool haveOtherLetters(const QString& one, const QString& other)
{
    const quint64 ofOne = lettersOf(one);
    const quint64 ofOther = lettersOf(other);
    return qPopulationCount(ofOne & ~ofOther) > mostSlips || qPopulationCount(ofOther & ~ofOne) > mostSlips;
}

/// How many slips make @p name of @p meant; more than the most where they are too many to be worth counting.
int slips(const QString& name, const QString& meant)
{
    // A character takes two units at most, so that a slip makes no more difference in length: most pairs of names are
    // told apart here, and nearly all others by their letters.
    if (std::abs(name.size() - meant.size()) > 2 * mostSlips || haveOtherLetters(name, meant))
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
    int fewest = std::min<int>(mostSlips, name.size() / 2) + 1; // of a short name two would leave little
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
