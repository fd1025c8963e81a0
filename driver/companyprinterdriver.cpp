#include "driver/companyprinterdriver.h"

#include "driver/registercommands.h"
#include "toolkit/numbertext.h"
#include "toolkit/textwriter.h"

using toolkit::operator""_L1;

namespace {

QString withDecimalPoint(QString text)
{
    return text.replace(QLatin1Char(','), QLatin1Char('.'));
}

double toAmount(const QString& text)
{
    return toolkit::toNumber(withDecimalPoint(text));
}

} // namespace

CompanyPrinterDriver::CompanyPrinterDriver(const QString& path)
    : PrinterDriver(path, false)
    , lineBuffer(registercommands::linePrefix)
{
}

CompanyPrinterDriver::CompanyPrinterDriver(ZMConfiguration& settings)
    : PrinterDriver(settings)
    , lineBuffer(registercommands::linePrefix)
{
}

CompanyPrinterDriver::~CompanyPrinterDriver() = default;

int CompanyPrinterDriver::getPaperWidth()
{
    return registercommands::paperWidth;
}

void CompanyPrinterDriver::setBold()
{
}

void CompanyPrinterDriver::setCharSize()
{
    justify = QStringLiteral("left");
}

void CompanyPrinterDriver::setCharSize(int)
{
    setCharSize();
}

void CompanyPrinterDriver::setCenterJustify()
{
    justify = QStringLiteral("center");
}

void CompanyPrinterDriver::fullCut()
{
}

void CompanyPrinterDriver::generatePulse()
{
}

void CompanyPrinterDriver::printLogo()
{
}

bool CompanyPrinterDriver::isFiscal() const
{
    return method == "printAbstractOrderFiscal"_L1 || method == "printFullOrderFiscal"_L1;
}

void CompanyPrinterDriver::startSection()
{
    if (isFiscal()) {
        write(registercommands::clear);
        write(registercommands::registeringMode);
    } else {
        write(registercommands::openNonFiscal);
    }
}

void CompanyPrinterDriver::endSection()
{
    write(isFiscal() ? registercommands::closeFiscal : registercommands::closeNonFiscal);
}

void CompanyPrinterDriver::print(unsigned int width, const QString& text)
{
    lineBuffer += QString(static_cast<int>(width), QLatin1Char(' '));
    // Looked for first: replacing costs much more, and nearly no text has the word.
    lineBuffer += text.contains("TOTALE"_L1) ? QString(text).replace("TOTALE"_L1, "SOMMA"_L1) : text;
}

void CompanyPrinterDriver::println(unsigned int width, const QString& text)
{
    print(width, text);
    print(0, registercommands::lineSuffix);
    lineBuffer.insert(registercommands::linePrefix.size(), QString(centringBlanks(), QLatin1Char(' ')));
    write(lineBuffer);
    lineBuffer.truncate(registercommands::linePrefix.size());
}

void CompanyPrinterDriver::println(const QString& text)
{
    println(0, text);
}

/// Blanks before the text of the finished line. The suffix counts as text, so that a centred line stands a little
/// left of the middle and text of more than 29 characters is not moved. The document's own paper width plays no
/// part: the register centres on its roll.
int CompanyPrinterDriver::centringBlanks()
{
    const int available = getPaperWidth() + registercommands::linePrefix.size() - lineBuffer.size();
    return justify == "center"_L1 && available > 0 ? available / 2 : 0;
}

void CompanyPrinterDriver::write(const QString& command)
{
    if (stream)
        *stream << command;
}

void CompanyPrinterDriver::printRowFiscal(const QString& qName, const QXmlAttributes& atts)
{
    struct Payment {
        QLatin1String attribute;
        QLatin1String command;
    };
    static constexpr Payment payments[] = {
        {"cash"_L1, registercommands::cash},
        {"creditCard"_L1, registercommands::creditCard},
        {"cheque"_L1, registercommands::cheque},
        {"ticket"_L1, registercommands::mealTicket},
    };
    if (qName != "totals"_L1)
        return;
    // What counts is the text: an amount that it cannot express, such as an infinite one, reads as 0 again.
    const QString discount = toolkit::numberText(toAmount(atts.value("discountRate"_L1)));
    if (toolkit::toNumber(discount) != 0.0)
        write(registercommands::subtotalDiscount(discount));
    for (const Payment& payment : payments) {
        const QString hundredths = toolkit::numberText(toAmount(atts.value(payment.attribute)) * 100.0);
        if (toolkit::toNumber(hundredths) != 0.0)
            write(registercommands::payment(hundredths, payment.command));
    }
}

void CompanyPrinterDriver::printRowFiscal(const QString& department, const QString& quantity,
                                          const QString& description, const QString& price)
{
    const QString pointed = withDecimalPoint(price);
    const double amount = toolkit::toNumber(pointed);
    if (amount < 0.0)
        write(registercommands::discount(toolkit::numberText(-amount)));
    else
        write(registercommands::sale(department, quantity, pointed, description));
}

void CompanyPrinterDriver::printRowFiscal(const QString& department, const QString& quantity,
                                          const QString& description, const QString& price, const QString& rate)
{
    printRowFiscal(department, quantity, description, price);
    write(registercommands::rate(rate));
}
