#ifndef ZELMORA_PAPER_RECEIPTSUMS_H
#define ZELMORA_PAPER_RECEIPTSUMS_H

#include "toolkit/decimal.h"

#include <optional>

namespace paper {

/// The figure that @p text is: a sign or none, digits, at most one point with digits behind it; nothing else, and at
/// most toolkit::Decimal::greatestDigits. Nothing where it is no such figure.
std::optional<toolkit::Decimal> plainDecimal(const QString& text);

/// What a fiscal receipt adds up to, exactly. Nothing stands for a figure that is not known; sums leave those out and
/// know that they are incomplete.
class ReceiptSums {
public:
    using Figure = std::optional<toolkit::Decimal>;

    /// A sale, or with its sign turned a discount.
    void add(const Figure& amount);
    /// What @p percent of the sum so far is, rounded half up to hundredths.
    Figure part(const Figure& percent) const;
    void pay(const Figure& amount);

    /// Of what is known.
    const toolkit::Decimal& total() const { return sum; }
    bool isIncomplete() const { return lacksAmount; }
    bool hasPayments() const { return isPaid; }
    /// What was paid beyond the total, below 0 where something is missing. Nothing where a figure is not known.
    Figure change() const;

private:
    toolkit::Decimal sum;
    toolkit::Decimal paid;
    bool isPaid = false;
    bool lacksAmount = false;
    bool lacksPayment = false;
};

} // namespace paper

#endif
