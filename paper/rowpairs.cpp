#include "paper/rowpairs.h"

#include "paper/characters.h"

#include <algorithm>

namespace paper {

namespace {

/// Whether a character may be told from the one before it: no half of one, and no mark that joins it.
bool isBoundary(const QString& text, int index)
{
    if (index >= text.size())
        return true;
    int next = index;
    return !text.at(index).isLowSurrogate() && shapeOf(nextCharacter(text, next)) != Shape::Combining;
}

int commonBegin(const QString& left, const QString& right)
{
    const int most = std::min(left.size(), right.size());
    int length = static_cast<int>(std::mismatch(left.begin(), left.begin() + most, right.begin()).first - left.begin());
    while (length > 0 && !(isBoundary(left, length) && isBoundary(right, length)))
        --length;
    return length;
}

/// At the end, of what lies behind the first @p begin units.
int commonEnd(const QString& left, const QString& right, int begin)
{
    const int most = std::min(left.size(), right.size()) - begin;
    int length =
        static_cast<int>(std::mismatch(left.rbegin(), left.rbegin() + most, right.rbegin()).first - left.rbegin());
    while (length > 0 && !(isBoundary(left, left.size() - length) && isBoundary(right, right.size() - length)))
        --length;
    return length;
}

/// What two rows have in common, in characters; 0 where that is less than half of the longer one: such rows are
/// different ones.
int likeness(const QString& left, const QString& right)
{
    const CommonParts common = commonParts(left, right);
    const int both = common.begin + common.end;
    return 2 * both >= std::max(left.size(), right.size()) ? both : 0;
}

QStringList withoutBlanksAround(const QStringList& rows)
{
    QStringList trimmed;
    for (const QString& row : rows)
        trimmed += row.trimmed();
    return trimmed;
}

qint64 charactersOf(const QStringList& rows)
{
    qint64 characters = 0;
    for (const QString& row : rows)
        characters += row.size();
    return characters;
}

/// The pairs that are most alike together, and of such the most: found from the end, where there is nothing to choose.
class BestPairs {
public:
    BestPairs(const QStringList& left, const QStringList& right);

    QVector<RowMatch> pairs() const;

private:
    int worth(int leftRow, int rightRow) const;
    int& best(int leftRow, int rightRow) { return worths[leftRow * (right.size() + 1) + rightRow]; }
    int best(int leftRow, int rightRow) const { return worths.at(leftRow * (right.size() + 1) + rightRow); }

    const QStringList left; ///< what stands at the left or in the middle tells nothing: without the blanks around it
    const QStringList right;
    const int pairWorth; ///< of a character in common: more than all pairs there can be
    QVector<int> worths; ///< of all pairs of these rows and those behind them
};

BestPairs::BestPairs(const QStringList& left, const QStringList& right)
    : left(withoutBlanksAround(left))
    , right(withoutBlanksAround(right))
    , pairWorth(std::min(left.size(), right.size()) + 1)
    , worths((left.size() + 1) * (right.size() + 1))
{
    for (int i = left.size() - 1; i >= 0; --i) {
        for (int k = right.size() - 1; k >= 0; --k)
            best(i, k) = std::max({worth(i, k) + best(i + 1, k + 1), best(i + 1, k), best(i, k + 1)});
    }
}

int BestPairs::worth(int leftRow, int rightRow) const
{
    return likeness(left.at(leftRow), right.at(rightRow)) * pairWorth + 1;
}

QVector<RowMatch> BestPairs::pairs() const
{
    QVector<RowMatch> pairs;
    for (RowMatch next {0, 0}; next.left < left.size() && next.right < right.size();) {
        const int most = best(next.left, next.right);
        if (most == worth(next.left, next.right) + best(next.left + 1, next.right + 1))
            pairs += RowMatch {next.left++, next.right++};
        else
            ++(most == best(next.left + 1, next.right) ? next.left : next.right);
    }
    return pairs;
}

QVector<RowMatch> pairsInOrder(int count)
{
    QVector<RowMatch> pairs;
    for (int i = 0; i < count; ++i)
        pairs += RowMatch {i, i};
    return pairs;
}

} // namespace

CommonParts commonParts(const QString& left, const QString& right)
{
    const int begin = commonBegin(left, right);
    return {begin, commonEnd(left, right, begin)};
}

QVector<RowMatch> rowPairs(const QStringList& left, const QStringList& right)
{
    const qint64 mostWork = 5000000; // comparisons of two characters
    const qint64 work = qint64 {left.size()} * right.size()
        + std::min(charactersOf(left) * right.size(), charactersOf(right) * left.size());
    return work > mostWork ? pairsInOrder(std::min(left.size(), right.size())) : BestPairs(left, right).pairs();
}

} // namespace paper
