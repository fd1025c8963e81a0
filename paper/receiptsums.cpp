#include "paper/receiptsums.h"

namespace paper {

using toolkit::Decimal;

std::optional<Decimal> plainDecimal(const QString& text)
{
    const bool isPlain = !text.contains(QLatin1Char(',')) && text.size() == text.trimmed().size();
    return isPlain ? Decimal::fromText(text) : std::nullopt;
}

void ReceiptSums::add(const Figure& amount)
{
    lacksAmount = lacksAmount || !amount;
    if (amount)
        sum += *amount;
}

ReceiptSums::Figure ReceiptSums::part(const Figure& percent) const
{
    if (lacksAmount || !percent)
        return std::nullopt;
    const Figure product = Decimal::product(sum, *percent);
    return product ? Figure(product->hundredth().roundedToHundredths()) : std::nullopt;
}

void ReceiptSums::pay(const Figure& amount)
{
    isPaid = true;
    lacksPayment = lacksPayment || !amount;
    if (amount)
        paid += *amount;
}

ReceiptSums::Figure ReceiptSums::change() const
{
    return lacksAmount || lacksPayment ? Figure() : paid - sum;
}

} // namespace paper
