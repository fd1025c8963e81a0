#include "paper/fiscalreceipt.h"

#include "driver/registercommands.h"
#include "paper/commandreader.h"
#include "paper/rows.h"

#include <QObject>

using toolkit::operator""_L1;

namespace paper {

namespace {

using toolkit::Decimal;
using toolkit::TextPlace;

struct PaymentLabel {
    QLatin1String command;
    const char* label;
};

constexpr PaymentLabel paymentLabels[] = {
    {registercommands::cash, QT_TRANSLATE_NOOP("QObject", "CASH")},
    {registercommands::cheque, QT_TRANSLATE_NOOP("QObject", "CHEQUE")},
    {registercommands::creditCard, QT_TRANSLATE_NOOP("QObject", "CREDIT CARD")},
    {registercommands::mealTicket, QT_TRANSLATE_NOOP("QObject", "MEAL TICKET")},
};

QString labelOf(QLatin1String payment)
{
    const PaymentLabel* label = std::begin(paymentLabels);
    while (label->command != payment)
        ++label;
    return QObject::tr(label->label);
}

QString textOf(const ReceiptSums::Figure& figure)
{
    return figure ? figure->text() : QStringLiteral("?");
}

/// What stands in a command for its figure, where that is not shown as an amount.
QString unless(const ReceiptSums::Figure& figure, const QString& asItStands)
{
    return figure || asItStands.isEmpty() ? QString() : QLatin1Char(' ') + asItStands;
}

} // namespace

void FiscalReceipt::addLine(const Row& row)
{
    soFar += row;
}

void FiscalReceipt::add(const Command& command, TextPlace place)
{
    switch (command.kind) {
    case Command::Sale:
        return addSale(command, place);
    case Command::Discount:
        return addDiscount(command, place);
    case Command::SubtotalDiscount:
        return addSubtotalDiscount(command, place);
    case Command::Payment:
        return addPayment(command, place);
    default: // a rate
        soFar += withEdge({"  ALIQ "_L1 + command.figure, {}, place});
    }
}

void FiscalReceipt::addSale(const Command& command, TextPlace place)
{
    isSold = true;
    const ReceiptSums::Figure quantity = plainDecimal(command.quantity);
    const ReceiptSums::Figure price = plainDecimal(command.figure);
    addAmount(textRow(command, place), quantity && price ? ReceiptSums::Figure(*quantity * *price) : std::nullopt);
    const QString priceText = price ? price->text() : command.figure;
    addBeside(soFar, {"  "_L1 + command.quantity + " x "_L1 + priceText, {}, place}, "REP "_L1 + command.department);
}

void FiscalReceipt::addDiscount(const Command& command, TextPlace place)
{
    const ReceiptSums::Figure amount = plainDecimal(command.figure);
    addAmount({"SCONTO"_L1 + unless(amount, command.figure), {}, place},
              amount ? ReceiptSums::Figure(-*amount) : std::nullopt);
}

void FiscalReceipt::addSubtotalDiscount(const Command& command, TextPlace place)
{
    const ReceiptSums::Figure part = sums.part(plainDecimal(command.figure));
    const QString sum = sums.isIncomplete() ? QStringLiteral("?") : sums.total().text();
    const QString shown = registercommands::subtotalDiscountBegin + command.figure
        + registercommands::subtotalDiscountEnd + "  "_L1 + QObject::tr("%1% of %2").arg(command.figure, sum);
    addAmount({shown, {}, place}, part ? ReceiptSums::Figure(-*part) : std::nullopt);
}

void FiscalReceipt::addAmount(const Row& label, const ReceiptSums::Figure& amount)
{
    firstPayment = -1;
    sums.add(amount);
    addBeside(soFar, label, textOf(amount));
}

void FiscalReceipt::addPayment(const Command& command, TextPlace place)
{
    if (firstPayment < 0)
        firstPayment = soFar.size();
    lastPayment = place;
    const ReceiptSums::Figure hundredths = plainDecimal(command.figure);
    const ReceiptSums::Figure amount = hundredths ? ReceiptSums::Figure(hundredths->hundredth()) : std::nullopt;
    sums.pay(amount);
    addBeside(soFar, {labelOf(command.payment) + unless(amount, command.figure), {}, place}, textOf(amount));
}

std::optional<FiscalReceipt::Missing> FiscalReceipt::missing() const
{
    const ReceiptSums::Figure change = sums.change();
    if (!sums.hasPayments() || !change || !change->isNegative())
        return std::nullopt;
    return Missing {lastPayment, change->magnitude()};
}

Rows FiscalReceipt::totalRows(TextPlace place) const
{
    Rows rows;
    rows += Row {QString(registercommands::paperWidth, QLatin1Char('-')), {}, place};
    const QString label = sums.isIncomplete() ? QObject::tr("TOTAL (incomplete)") : QObject::tr("TOTAL");
    addBeside(rows, {label, {}, place}, sums.total().text());
    return rows;
}

Rows FiscalReceipt::rows(TextPlace end) const
{
    const int before = firstPayment < 0 ? soFar.size() : firstPayment;
    Rows all = soFar.mid(0, before);
    all += totalRows(firstPayment < 0 ? end : soFar.at(firstPayment).place);
    all += soFar.mid(before);
    if (sums.hasPayments()) {
        const ReceiptSums::Figure change = sums.change();
        const bool isMissing = change && change->isNegative();
        const QString label = isMissing ? QObject::tr("MISSING") : QObject::tr("CHANGE");
        addBeside(all, {label, {}, end}, textOf(isMissing ? change->magnitude() : change));
    }
    all += Row {QString(), {}, end};
    addWrapped(all, QObject::tr("This is our reading of the script: the register arranges a receipt in its own way."),
               end);
    return all;
}

} // namespace paper
