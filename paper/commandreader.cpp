#include "paper/commandreader.h"

#include "driver/registercommands.h"

namespace paper {

namespace {

using namespace registercommands;

/// Commands that are always the same.
struct Word {
    Command::Kind kind;
    QLatin1String command; ///< with its line end
};

constexpr Word words[] = {
    {Command::OpenNonFiscal, openNonFiscal},     {Command::CloseNonFiscal, closeNonFiscal}, {Command::Clear, clear},
    {Command::RegisteringMode, registeringMode}, {Command::CloseFiscal, closeFiscal},
};

/// Commands around one figure, which may be any text.
struct Form {
    Command::Kind kind;
    QLatin1String begin;
    QLatin1String end;
};

/// Tried in this order: payments, which may begin with anything, come last.
constexpr Form forms[] = {
    {Command::Discount, discountAmount, {}},
    {Command::Rate, ratePercent, {}},
    {Command::SubtotalDiscount, subtotalDiscountBegin, subtotalDiscountEnd},
    {Command::Payment, {}, cash},
    {Command::Payment, {}, cheque},
    {Command::Payment, {}, creditCard},
    {Command::Payment, {}, mealTicket},
};

/// Begin and end of a form have no common part that a line could have once.
bool fits(const Form& form, const QString& line)
{
    return line.startsWith(form.begin) && line.endsWith(form.end);
}

/// The text of @p line from @p begin on goes to the first quote.
void takeText(const QString& line, int begin, Command& command)
{
    command.quote = line.indexOf(quote, begin);
    command.isTextEnded = command.quote >= 0;
    command.text = line.mid(begin, command.isTextEnded ? command.quote - begin : -1);
    if (command.isTextEnded)
        command.behindQuote = line.mid(command.quote + 1);
}

Command readLine(const QString& line)
{
    Command command {Command::Line};
    takeText(line, linePrefix.size(), command);
    return command;
}

/// Its fields are cut where the next one's name stands first.
Command readSale(const QString& line)
{
    const int department = saleDepartment.size();
    const int quantity = line.indexOf(saleQuantity, department);
    const int price = quantity < 0 ? -1 : line.indexOf(salePrice, quantity + saleQuantity.size());
    const int description = price < 0 ? -1 : line.indexOf(saleDescription, price + salePrice.size());
    if (description < 0)
        return {};
    Command command {Command::Sale};
    const auto between = [&](int begin, int end) { return line.mid(begin, end - begin); };
    command.department = between(department, quantity);
    command.quantity = between(quantity + saleQuantity.size(), price);
    command.figure = between(price + salePrice.size(), description);
    takeText(line, description + saleDescription.size(), command);
    return command;
}

Command readForm(const Form& form, const QString& line)
{
    Command command {form.kind};
    command.figure = line.mid(form.begin.size(), line.size() - form.begin.size() - form.end.size());
    if (form.kind == Command::Payment)
        command.payment = form.end;
    return command;
}

} // namespace

Command readCommand(const QString& line)
{
    for (const Word& word : words) {
        if (line == word.command.chopped(lineEnd.size()))
            return {word.kind};
    }
    if (line.startsWith(linePrefix))
        return readLine(line);
    if (line.startsWith(saleDepartment))
        return readSale(line);
    for (const Form& form : forms) {
        if (fits(form, line))
            return readForm(form, line);
    }
    return {};
}

} // namespace paper
