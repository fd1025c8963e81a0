#include "check/checkingdriver.h"

#include "driver/registercommands.h"

namespace check {

CheckingDriver::CheckingDriver(ZMConfiguration& settings, ScriptListener& listener)
    : CompanyPrinterDriver(settings)
    , listener(listener)
{
}

void CheckingDriver::print(unsigned int width, const QString& text)
{
    line += QString(static_cast<int>(width), QLatin1Char(' '));
    line += text;
    CompanyPrinterDriver::print(width, text);
}

void CheckingDriver::printSeparatorLine()
{
    isRule = true;
    CompanyPrinterDriver::printSeparatorLine();
    isRule = false;
}

void CheckingDriver::printColumnsHeader(const QString& quantity, const QString& description, const QString& price,
                                        const QString& totalPrice)
{
    isTitle = true;
    CompanyPrinterDriver::printColumnsHeader(quantity, description, price, totalPrice);
    isTitle = false;
}

void CheckingDriver::textCut(const QString& text, int kept)
{
    if (!isTitle)
        listener.descriptionCut(text, kept);
}

void CheckingDriver::write(const QString& command)
{
    const bool isLine = !line.isEmpty(); // the end of one is printed, too
    if (isLine)
        line.chop(registercommands::lineSuffix.size());
    listener.commandMade({command, line, isLine, followsRule});
    line.truncate(0);
    followsRule = isRule;
}

} // namespace check
