#include "preview/scriptpair.h"

#include "paper/comparison.h"
#include "preview/papersource.h"

#include <algorithm>

namespace preview {

namespace {

/// The documents of a script one by one; those that are not there too. Where it has none, there is an empty paper.
class Documents {
public:
    Documents(const Side& side, QTextCodec* encoding)
        : side(side)
    {
        if (side.isThere)
            roll = paper::readRoll(side.script, encoding);
        if (side.isThere && roll.documents.isEmpty())
            roll.documents.resize(1);
    }

    int count() const { return roll.documents.size(); }
    bool has(int number) const { return number < count(); }
    paper::Roll only(int number) const { return {roll.documents.mid(number, 1), {}}; }
    paper::Strip strip(int number) const
    {
        const QString title = documentTitle(side.title, number);
        return has(number) ? paper::Strip {title, roll.documents.at(number).rows} : paper::Strip {title, {}, false};
    }

private:
    const Side& side;
    paper::Roll roll;
};

paper::Sheet::Band bandOf(const Documents& left, const Documents& right, int number)
{
    paper::Strip leftStrip = left.strip(number);
    paper::Strip rightStrip = right.strip(number);
    if (leftStrip.isThere && rightStrip.isThere) {
        const paper::AlignedRows aligned = paper::alignedRows(leftStrip.rows, rightStrip.rows);
        leftStrip.rows = aligned.left;
        rightStrip.rows = aligned.right;
    }
    return {leftStrip, rightStrip};
}

} // namespace

Difference differenceOf(const Side& left, const Side& right, QTextCodec* encoding)
{
    Difference difference;
    if (left.isThere && right.isThere && left.script == right.script)
        return difference;
    const Documents leftOnes(left, encoding);
    const Documents rightOnes(right, encoding);
    for (int number = 0; number < std::max(leftOnes.count(), rightOnes.count()); ++number) {
        if (!paper::looksAlike(leftOnes.only(number), rightOnes.only(number)))
            difference.bands += bandOf(leftOnes, rightOnes, number);
    }
    difference.isWithoutTrace = difference.bands.isEmpty();
    return difference;
}

} // namespace preview
