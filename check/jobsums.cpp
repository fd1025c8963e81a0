#include "check/jobsums.h"

#include "check/figures.h"
#include "check/findingtext.h"

#include <QObject>

using toolkit::operator""_L1;
using toolkit::Decimal;

namespace check {

namespace {

/// The figure of the attribute @p name; nothing where it is missing or none.
std::optional<Decimal> figureOf(const JobElement& element, QLatin1String name)
{
    const vocabulary::Attribute* const entry = element.entryOf(name);
    const int index = element.attributes().index(name);
    if (!entry || index < 0)
        return std::nullopt;
    return figure(entry->kind, element.attributes().value(index));
}

/// A product may be rounded to cents, up or down.
bool isProduct(const Decimal& product, const Decimal& stated)
{
    return product == stated || (stated.isInHundredths() && (product - stated).magnitude() < Decimal(1).hundredth());
}

/// A tax may be a cent off.
bool isTax(const Decimal& calculated, const Decimal& stated)
{
    return !(Decimal(1).hundredth() < (calculated - stated).magnitude());
}

} // namespace

void JobSums::Sum::add(const Figure& figure)
{
    if (value && figure)
        *value += *figure;
    else
        value.reset();
}

void JobSums::compare(const Figure& calculated, const Figure& stated, toolkit::TextPlace place, const char* text,
                      int decimals)
{
    if (calculated && stated && *calculated != *stated)
        check::add(found, Code::WrongSum, place,
                   QObject::tr(text).arg(calculated->text(decimals), stated->text(decimals)));
}

void JobSums::add(const JobElement& element)
{
    if (element.isHiddenDish() || isFiscal(*element.method))
        return;
    const QString& name = element.name();
    if (element.entryOf("totalPrice"_L1)) {
        const Figure amount = figureOf(element, "totalPrice"_L1);
        judgeProduct(element, amount);
        addRow(amount);
    } else if (name == "receipe_type"_L1) {
        addRow(figureOf(element, "price"_L1));
    } else if (name == "total"_L1) {
        totals += Pending {figureOf(element, "price"_L1), element.placeOf("price"_L1)};
    } else if (name == "notPaid"_L1) {
        notPaid += Pending {figureOf(element, "price"_L1), element.placeOf("price"_L1)};
    } else if (name == "totals"_L1) {
        addTaxBlock(element);
    } else if (name == "receiptssummary"_L1) {
        judgePayments(element);
    } else if (name == "taxrate_item"_L1) {
        judgeTax(element, "amount"_L1);
        judgeRate(element);
    } else if (name == "invoicessummary"_L1) {
        judgeTax(element, "total"_L1);
    } else if (name == "cancelledsummary"_L1) {
        judgeCancelled(element);
    }
}

void JobSums::addRow(const Figure& amount)
{
    rows.add(amount);
    ++rowCount;
}

void JobSums::judgeProduct(const JobElement& element, const Figure& stated)
{
    const Figure number = figureOf(element, "number"_L1);
    const Figure price = figureOf(element, "price"_L1);
    if (!number || !price || !stated)
        return;
    const Decimal product = *number * *price;
    if (!isProduct(product, *stated))
        compare(product, stated, element.placeOf("totalPrice"_L1),
                QT_TRANSLATE_NOOP("QObject", "Number times price makes %1, and the row says %2."));
}

void JobSums::judgeTax(const JobElement& element, QLatin1String total)
{
    Sum sum;
    sum.add(figureOf(element, "taxable"_L1));
    sum.add(figureOf(element, "tax"_L1));
    compare(sum.value, figureOf(element, total), element.placeOf(total),
            QT_TRANSLATE_NOOP("QObject", "Taxable and tax make %1, and the total says %2."));
}

void JobSums::judgeRate(const JobElement& element)
{
    const Figure taxable = figureOf(element, "taxable"_L1);
    const Figure rate = figureOf(element, "taxrate"_L1);
    const Figure tax = figureOf(element, "tax"_L1);
    if (!taxable || !rate || !tax)
        return;
    const Decimal calculated = (*taxable * *rate).hundredth();
    if (!isTax(calculated, *tax))
        compare(calculated, tax, element.placeOf("tax"_L1),
                QT_TRANSLATE_NOOP("QObject", "The rate of the taxable makes a tax of %1, and the tax says %2."));
}

void JobSums::judgePayments(const JobElement& element)
{
    Sum sum;
    for (const QLatin1String payment : {"notPaid"_L1, "cash"_L1, "creditCard"_L1, "bancomat"_L1, "other"_L1})
        sum.add(figureOf(element, payment));
    compare(sum.value, figureOf(element, "total"_L1), element.placeOf("total"_L1),
            QT_TRANSLATE_NOOP("QObject", "The payments make %1, and the total says %2."));
}

/// Its rows are attributes in threes: the second one is the amount.
void JobSums::judgeCancelled(const JobElement& element)
{
    const int group = element.entry->inOrder.size();
    const int first = element.entry->attributes.size();
    const int count = element.attributes().count();
    if (count <= first)
        return;
    Sum sum;
    int documents = 0;
    for (int i = first; i < count; i += group) {
        const vocabulary::Attribute& amount = element.entry->inOrder[1];
        sum.add(i + 1 < count ? figure(amount.kind, element.attributes().value(i + 1)) : std::nullopt);
        ++documents;
    }
    compare(Decimal(documents), figureOf(element, "number"_L1), element.placeOf("number"_L1),
            QT_TRANSLATE_NOOP("QObject", "The cancelled documents are %1, and the number says %2."), 0);
    compare(sum.value, figureOf(element, "totals"_L1), element.placeOf("totals"_L1),
            QT_TRANSLATE_NOOP("QObject", "The rows add up to %1, and the total says %2."));
}

void JobSums::addTaxBlock(const JobElement& element)
{
    judgeTax(element, "total"_L1);
    judgeRate(element);
    taxables.add(figureOf(element, "taxable"_L1));
    blockTotals.add(figureOf(element, "total"_L1));
    blockPlace = element.placeOf("total"_L1);
}

void JobSums::endDocument()
{
    judgeTotals();
    judgeTaxBlocks();
    judgeNotPaid();
    Findings kept = std::move(found);
    *this = JobSums();
    found = std::move(kept);
}

void JobSums::judgeTotals()
{
    for (const Pending& total : qAsConst(totals)) {
        if (rowCount > 0)
            compare(rows.value, total.figure, total.place,
                    QT_TRANSLATE_NOOP("QObject", "The rows add up to %1, and the total says %2."));
    }
}

/// The rows' prices may be with the tax or without it.
void JobSums::judgeTaxBlocks()
{
    const bool isComplete = rows.value && taxables.value && blockTotals.value;
    if (rowCount > 0 && blockPlace && isComplete && *rows.value != *taxables.value)
        compare(rows.value, blockTotals.value, *blockPlace,
                QT_TRANSLATE_NOOP("QObject", "The rows add up to %1, and the total says %2."));
}

void JobSums::judgeNotPaid()
{
    if (totals.isEmpty() || !totals.last().figure)
        return;
    const Decimal& total = *totals.last().figure;
    for (const Pending& rest : qAsConst(notPaid)) {
        if (rest.figure && total < *rest.figure)
            check::add(found, Code::WrongSum, rest.place,
                       QObject::tr("%1 is not paid, and the total is %2 only.").arg(rest.figure->text(), total.text()));
    }
}

} // namespace check
