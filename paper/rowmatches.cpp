#include "paper/rowmatches.h"

#include <algorithm>

namespace paper {

namespace {

/// Steps that are looked for: so many that the work stays bounded, whatever the rows.
int mostSteps(int rows)
{
    const int fewest = 16;
    const int most = 500;
    const int work = 100000000; // comparisons of two numbers
    return std::clamp(work / (rows + 1), fewest, most);
}

/// The shortest way from one paper to the other (Myers, "An O(ND) Difference Algorithm"): a step takes a row of the
/// left one away, or adds one of the right one. A diagonal is told by how many more rows of the left one are passed on
/// it than of the right one.
class ShortestWay {
public:
    ShortestWay(const int* left, int leftSize, const int* right, int rightSize)
        : left(left)
        , right(right)
        , leftSize(leftSize)
        , rightSize(rightSize)
    {
    }

    /// What stays as it is on the way, from the end to the beginning; nothing where it has more than @p most steps.
    QVector<RowMatch> matches(int most);

private:
    int at(int steps, int diagonal) const { return reached.at(steps).at((diagonal + steps) / 2); }
    bool adds(int steps, int diagonal) const;
    int begin(int steps, int diagonal) const;
    bool advance(int steps);
    QVector<RowMatch> wayBack(int steps) const;

    const int* const left;
    const int* const right;
    const int leftSize;
    const int rightSize;
    QVector<QVector<int>> reached; ///< after so many steps: rows of the left one, on each diagonal that can be reached
};

/// Whether the last of @p steps to a diagonal adds a row: the way that got farther is taken.
bool ShortestWay::adds(int steps, int diagonal) const
{
    return diagonal == -steps || (diagonal != steps && at(steps - 1, diagonal - 1) < at(steps - 1, diagonal + 1));
}

/// Rows of the left one that are passed right behind the last of @p steps.
int ShortestWay::begin(int steps, int diagonal) const
{
    if (steps == 0)
        return 0;
    return adds(steps, diagonal) ? at(steps - 1, diagonal + 1) : at(steps - 1, diagonal - 1) + 1;
}

/// Whether the end is reached with @p steps.
bool ShortestWay::advance(int steps)
{
    QVector<int> ends;
    ends.reserve(steps + 1);
    for (int diagonal = -steps; diagonal <= steps; diagonal += 2) {
        int x = begin(steps, diagonal);
        while (x < leftSize && x - diagonal < rightSize && left[x] == right[x - diagonal])
            ++x;
        ends += x;
    }
    reached += ends;
    const int last = leftSize - rightSize;
    return std::abs(last) <= steps && (last + steps) % 2 == 0 && at(steps, last) >= leftSize;
}

QVector<RowMatch> ShortestWay::wayBack(int steps) const
{
    QVector<RowMatch> matches;
    int diagonal = leftSize - rightSize;
    for (; steps >= 0; --steps) {
        const int first = begin(steps, diagonal);
        for (int x = at(steps, diagonal); x > first; --x)
            matches += RowMatch {x - 1, x - 1 - diagonal};
        if (steps > 0)
            diagonal += adds(steps, diagonal) ? 1 : -1;
    }
    return matches;
}

QVector<RowMatch> ShortestWay::matches(int most)
{
    for (int steps = 0; steps <= most; ++steps) {
        if (advance(steps))
            return wayBack(steps);
    }
    return {};
}

} // namespace

QVector<RowMatch> rowMatches(const QVector<int>& left, const QVector<int>& right)
{
    const int shorter = std::min(left.size(), right.size());
    const int begin =
        static_cast<int>(std::mismatch(left.begin(), left.begin() + shorter, right.begin()).first - left.begin());
    const int end = static_cast<int>(
        std::mismatch(left.rbegin(), left.rbegin() + (shorter - begin), right.rbegin()).first - left.rbegin());

    QVector<RowMatch> all;
    for (int i = 0; i < begin; ++i)
        all += RowMatch {i, i};
    ShortestWay way(left.constData() + begin, left.size() - begin - end, right.constData() + begin,
                    right.size() - begin - end);
    const QVector<RowMatch> between = way.matches(mostSteps(left.size() + right.size()));
    for (auto match = between.rbegin(); match != between.rend(); ++match)
        all += RowMatch {match->left + begin, match->right + begin};
    for (int i = end; i > 0; --i)
        all += RowMatch {left.size() - i, right.size() - i};
    return all;
}

} // namespace paper
