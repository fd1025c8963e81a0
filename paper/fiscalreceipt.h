#ifndef ZELMORA_PAPER_FISCALRECEIPT_H
#define ZELMORA_PAPER_FISCALRECEIPT_H

#include "paper/receiptsums.h"
#include "paper/roll.h"

namespace paper {

struct Command;

/// A fiscal receipt as we read it: how the register arranges one is its own affair.
///
///     Coperto                     7.50     a sale: its description and amount,
///       3 x 2.50                 REP 1     quantity, price and department
///       ALIQ 10                            a rate, which changes no sum
///     SCONTO                     -1.50     a discount
///     =10*2M  10% of 6.00        -0.60     a discount on the sum so far
///     --------------------------------
///     TOTAL                       5.40     before the payments behind the last amount
///     CASH                       10.00
///     CHANGE                      4.60     or MISSING; where there are payments
///
/// Amounts have two decimals, and more where the figures have more. What is no figure is drawn as it stands; then its
/// amount is "?", and so is what depends on it.
class FiscalReceipt {
public:
    /// A text line, which stands at its place.
    void addLine(const Row& row);
    /// A sale, a discount, a rate or a payment.
    void add(const Command& command, toolkit::TextPlace place);

    bool hasSale() const { return isSold; }
    /// Where the last payment stands, and what it leaves open. Nothing where there is no payment, nothing is open, or a
    /// figure is not known.
    struct Missing {
        toolkit::TextPlace place;
        toolkit::Decimal amount;
    };
    std::optional<Missing> missing() const;

    /// All rows. @p end: the place of what ends the receipt.
    Rows rows(toolkit::TextPlace end) const;

private:
    void addSale(const Command& command, toolkit::TextPlace place);
    void addDiscount(const Command& command, toolkit::TextPlace place);
    void addSubtotalDiscount(const Command& command, toolkit::TextPlace place);
    void addPayment(const Command& command, toolkit::TextPlace place);
    void addAmount(const Row& label, const ReceiptSums::Figure& amount);
    Rows totalRows(toolkit::TextPlace place) const;

    ReceiptSums sums;
    Rows soFar;
    bool isSold = false;
    int firstPayment = -1; ///< the row of the first one behind the last amount; -1: there is none
    toolkit::TextPlace lastPayment;
};

} // namespace paper

#endif
