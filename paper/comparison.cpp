#include "paper/comparison.h"

#include "paper/cells.h"
#include "paper/rowmatches.h"
#include "paper/rowpairs.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

namespace paper {

namespace {

/// What of a row is seen: rows that look the same have the same. Blanks at the end are not seen.
QString seen(const Row& row)
{
    QString text;
    text.reserve(row.text.size());
    CellReader reader(row.text);
    while (reader.next())
        text += reader.cell().drawn;
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    for (const MarkedColumns& marked : markedColumns(row)) {
        if (marked.mark != Mark::Changed)
            text += QStringLiteral("\n%1 %2 %3").arg(int(marked.mark)).arg(marked.begin).arg(marked.width);
    }
    return text;
}

bool lookAlike(const Row& left, const Row& right)
{
    return seen(left) == seen(right);
}

bool lookAlike(const Document& left, const Document& right)
{
    return left.isFiscal == right.isFiscal
        && std::equal(left.rows.begin(), left.rows.end(), right.rows.begin(), right.rows.end(),
                      [](const Row& one, const Row& other) { return lookAlike(one, other); });
}

/// Gives rows that look the same the same number.
class RowNumbers {
public:
    QVector<int> of(const Rows& rows)
    {
        QVector<int> all;
        all.reserve(rows.size());
        for (const Row& row : rows)
            all += numberOf(seen(row));
        return all;
    }

private:
    int numberOf(const QString& text)
    {
        const auto known = numbers.constFind(text);
        return known != numbers.constEnd() ? *known : *numbers.insert(text, numbers.size());
    }

    QHash<QString, int> numbers;
};

/// Rows that stand beside each other, by their numbers.
struct RowPair {
    int left; ///< -1: there is none
    int right;
    bool isSame;
};

/// Rows of one paper from one to before another one.
struct Block {
    int begin;
    int end;
};

QStringList textsOf(const Rows& rows, Block block)
{
    QStringList texts;
    for (int row = block.begin; row < block.end; ++row)
        texts += rows.at(row).text;
    return texts;
}

/// Adds the rows of two blocks that have none in common; what stands alone goes before the next pair.
void addChanged(QVector<RowPair>& pairs, const Rows& left, Block onLeft, const Rows& right, Block onRight)
{
    const QVector<RowMatch> beside = rowPairs(textsOf(left, onLeft), textsOf(right, onRight));
    RowMatch next {onLeft.begin, onRight.begin};
    const auto addAlone = [&](int leftEnd, int rightEnd) {
        while (next.left < leftEnd)
            pairs += RowPair {next.left++, -1, false};
        while (next.right < rightEnd)
            pairs += RowPair {-1, next.right++, false};
    };
    for (const RowMatch& pair : beside) {
        addAlone(onLeft.begin + pair.left, onRight.begin + pair.right);
        pairs += RowPair {next.left++, next.right++, false};
    }
    addAlone(onLeft.end, onRight.end);
}

QVector<RowPair> pairsOf(const Rows& left, const Rows& right)
{
    RowNumbers numbers;
    const QVector<int> leftNumbers = numbers.of(left);
    const QVector<int> rightNumbers = numbers.of(right);
    QVector<RowPair> pairs;
    RowMatch next {0, 0};
    for (const RowMatch& match : rowMatches(leftNumbers, rightNumbers)) {
        addChanged(pairs, left, {next.left, match.left}, right, {next.right, match.right});
        pairs += RowPair {match.left, match.right, true};
        next = {match.left + 1, match.right + 1};
    }
    addChanged(pairs, left, {next.left, left.size()}, right, {next.right, right.size()});
    return pairs;
}

void markChanged(Row& row, CommonParts common)
{
    row.marked += MarkedPart {Mark::Changed, common.begin, row.text.size() - common.begin - common.end};
}

/// A pair, marked where it is none of rows that are the same; an empty row where there is none.
struct MarkedPair {
    Row left;
    Row right;
};

MarkedPair markedPair(const Rows& left, const Rows& right, const RowPair& pair)
{
    MarkedPair marked {left.value(pair.left), right.value(pair.right)};
    if (pair.isSame)
        return marked;
    const bool areBoth = pair.left >= 0 && pair.right >= 0;
    const CommonParts common = areBoth ? commonParts(marked.left.text, marked.right.text) : CommonParts {0, 0};
    if (pair.left >= 0)
        markChanged(marked.left, common);
    if (pair.right >= 0)
        markChanged(marked.right, common);
    return marked;
}

} // namespace

bool looksAlike(const Roll& left, const Roll& right)
{
    return std::equal(left.documents.begin(), left.documents.end(), right.documents.begin(), right.documents.end(),
                      [](const Document& one, const Document& other) { return lookAlike(one, other); });
}

AlignedRows alignedRows(const Rows& left, const Rows& right)
{
    AlignedRows aligned;
    for (const RowPair& pair : pairsOf(left, right)) {
        const MarkedPair marked = markedPair(left, right, pair);
        aligned.left += marked.left;
        aligned.right += marked.right;
    }
    return aligned;
}

Rows withChanges(const Rows& rows, const Rows& before)
{
    Rows marked;
    for (const RowPair& pair : pairsOf(before, rows)) {
        if (pair.right >= 0)
            marked += markedPair(before, rows, pair).right;
    }
    return marked;
}

} // namespace paper
