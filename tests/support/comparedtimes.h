#ifndef ZELMORA_TESTS_SUPPORT_COMPAREDTIMES_H
#define ZELMORA_TESTS_SUPPORT_COMPAREDTIMES_H

#include <QByteArray>

#include <algorithm>
#include <climits>
#include <functional>

/// The milliseconds that two works take, compared. A busy machine only ever adds time: of each work the least of up to
/// five tries counts, and as soon as the comparison holds for these there are no more.
class ComparedTimes {
public:
    using Milliseconds = std::function<int()>;
    using Comparison = std::function<bool(int first, int second)>;

    ComparedTimes(const Milliseconds& firstTime, const Milliseconds& secondTime, const Comparison& holds)
    {
        for (int tries = 0; tries < 5 && !comparisonHolds; ++tries) {
            first = std::min(first, firstTime());
            second = std::min(second, secondTime());
            comparisonHolds = holds(first, second);
        }
    }

    bool hold() const { return comparisonHolds; }
    QByteArray text() const { return QByteArray::number(first) + " ms, then " + QByteArray::number(second) + " ms"; }

private:
    int first = INT_MAX;
    int second = INT_MAX;
    bool comparisonHolds = false;
};

/// Compares a work of some size with one of four times that size, which takes no more than some eight times as long; if
/// it grew with the size's square it would take sixteen.
inline ComparedTimes growth(const std::function<int(int size)>& milliseconds, int size)
{
    return {[&] { return milliseconds(size); }, [&] { return milliseconds(4 * size); },
            [](int few, int many) { return many < 8 * few + 200; }};
}

#endif
