#ifndef ZELMORA_CHECK_JOBSUMS_H
#define ZELMORA_CHECK_JOBSUMS_H

#include "check/jobelement.h"
#include "toolkit/decimal.h"

#include <optional>

namespace check {

/// Adds up what a document says and finds where it does not agree with itself. Figures are exact; a figure that is
/// missing, no number, or longer than 30 digits leaves what it belongs to unjudged.
class JobSums {
public:
    /// An element whose method reads it. What stands in it alone is judged at once.
    void add(const JobElement& element);
    /// The document has ended: its rows are judged against its totals, and a new document may begin.
    void endDocument();

    /// What was found so far.
    const Findings& findings() const { return found; }

private:
    using Figure = std::optional<toolkit::Decimal>;

    /// A figure that is compared when the document has ended.
    struct Pending {
        Figure figure;
        toolkit::TextPlace place;
    };

    /// Sums of figures that come one by one; nothing once one of them is missing.
    struct Sum {
        Figure value = toolkit::Decimal();

        void add(const Figure& figure);
    };

    void addRow(const Figure& amount);
    void judgeProduct(const JobElement& element, const Figure& stated);
    /// Two attributes add up to a third, @p total.
    void judgeTax(const JobElement& element, QLatin1String total);
    void judgeRate(const JobElement& element);
    void judgePayments(const JobElement& element);
    void judgeCancelled(const JobElement& element);
    void addTaxBlock(const JobElement& element);
    void judgeTotals();
    void judgeTaxBlocks();
    void judgeNotPaid();
    /// A finding when @p stated is not @p calculated, at @p place; nothing when one of them is missing.
    void compare(const Figure& calculated, const Figure& stated, toolkit::TextPlace place, const char* text,
                 int decimals = 2);

    Findings found;

    // Of the document.
    Sum rows;
    int rowCount = 0;
    QVector<Pending> totals;
    QVector<Pending> notPaid;
    Sum taxables;
    Sum blockTotals;
    std::optional<toolkit::TextPlace> blockPlace; ///< of the last tax block's total
};

} // namespace check

#endif
