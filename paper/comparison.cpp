#include "paper/comparison.h"

#include "paper/cells.h"
#include "paper/characters.h"
#include "paper/rowmatches.h"

#include <QHash>

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
    for (const MarkedPart& part : row.marked) {
        if (part.mark != Mark::Changed)
            text += QStringLiteral("\n%1 %2 %3").arg(int(part.mark)).arg(part.begin).arg(part.length);
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

/// Rows that stand beside each other, by their numbers.
struct RowPair {
    int left; ///< -1: there is none
    int right;
    bool isSame;
};

QVector<RowPair> pairsOf(const Rows& left, const Rows& right)
{
    RowNumbers numbers;
    const QVector<int> leftNumbers = numbers.of(left);
    const QVector<int> rightNumbers = numbers.of(right);
    QVector<RowMatch> matches = rowMatches(leftNumbers, rightNumbers);
    matches += RowMatch {left.size(), right.size()}; // what is behind the last one goes before this
    QVector<RowPair> pairs;
    RowMatch next {0, 0};
    for (const RowMatch& match : qAsConst(matches)) {
        while (next.left < match.left || next.right < match.right)
            pairs += RowPair {next.left < match.left ? next.left++ : -1, next.right < match.right ? next.right++ : -1,
                              false};
        pairs += RowPair {next.left++, next.right++, true};
    }
    pairs.removeLast();
    return pairs;
}

void markChanged(Row& row, int begin, int end)
{
    row.marked += MarkedPart {Mark::Changed, begin, row.text.size() - begin - end};
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
    const int begin = areBoth ? commonBegin(marked.left.text, marked.right.text) : 0;
    const int end = areBoth ? commonEnd(marked.left.text, marked.right.text, begin) : 0;
    if (pair.left >= 0)
        markChanged(marked.left, begin, end);
    if (pair.right >= 0)
        markChanged(marked.right, begin, end);
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
