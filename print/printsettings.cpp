// The settings of a document type: where they stand and what the engine takes from them.

#include "print/printerdriver.h"

#include "config/zmconfiguration.h"
#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/numbertext.h"

#include <algorithm>

using toolkit::operator""_L1;

QString PrinterDriver::documentPath(const QString& type)
{
    struct DocumentType {
        QLatin1String name;
        QLatin1String path;
    };
    // clang-format off
    static constexpr DocumentType types[] = {
        {"order"_L1, "zelmora.doc."_L1},
        {"prefiscal"_L1, "zelmora.prefiscaldoc."_L1},
        {"fiscal"_L1, "zelmora.fiscaldoc."_L1},
        {"receipt"_L1, "zelmora.receiptdoc."_L1},
        {"invoice"_L1, "zelmora.invoicedoc."_L1},
        {"delivery"_L1, "zelmora.deliverydoc."_L1},
        {"report"_L1, "zelmora.reportdoc."_L1},
        {"sold"_L1, "zelmora.solddoc."_L1},
    };
    // clang-format on
    const QString name = type.toLower();
    for (const DocumentType& candidate : types) {
        if (name == candidate.name)
            return candidate.path;
    }
    toolkit::writeLine("Error into PrinterDriver::documentPath:  " + toolkit::localeText(name));
    return "zelmora.prefiscaldoc."_L1;
}

int PrinterDriver::numberSetting(QLatin1String key) const
{
    return toolkit::toInteger(config->getStrValue(docPath + key));
}

int PrinterDriver::widthSetting(QLatin1String key) const
{
    // No printer has more: a slip of the finger in the settings must not fill the memory or the disk.
    const int greatest = 10000;
    return std::clamp(numberSetting(key), -greatest, greatest);
}

void PrinterDriver::loadValues(const QString& type)
{
    struct Flag {
        QLatin1String key;
        bool PrinterDriver::*member;
    };
    static constexpr Flag flags[] = {
        {"printGeometry"_L1, &PrinterDriver::printGeometryFlag},
        {"printHeader"_L1, &PrinterDriver::printHeaderFlag},
        {"printLogo"_L1, &PrinterDriver::printLogoFlag},
        {"printCompany"_L1, &PrinterDriver::printCompanyFlag},
        {"printDeliveryAddress"_L1, &PrinterDriver::printDeliveryAddressFlag},
        {"printBillingAddress"_L1, &PrinterDriver::printBillingAddressFlag},
        {"printTelephone"_L1, &PrinterDriver::printTelephoneFlag},
        {"printDate"_L1, &PrinterDriver::printDateFlag},
        {"printTime"_L1, &PrinterDriver::printTimeFlag},
        {"printTable"_L1, &PrinterDriver::printTableFlag},
        {"printCustomer"_L1, &PrinterDriver::printCustomerFlag},
        {"printLicenseNumber"_L1, &PrinterDriver::printLicenseNumberFlag},
        {"printFiscalCode"_L1, &PrinterDriver::printFiscalCodeFlag},
        {"printCredit"_L1, &PrinterDriver::printCreditFlag},
        {"printWaiter"_L1, &PrinterDriver::printWaiterFlag},
        {"printNote"_L1, &PrinterDriver::printNoteFlag},
        {"openCashDrawer"_L1, &PrinterDriver::openCashDrawerFlag},
    };

    docPath = documentPath(type);
    quantityFieldWidth = widthSetting("quantityFieldWidth"_L1);
    priceFieldWidth = widthSetting("priceFieldWidth"_L1);
    totalPriceFieldWidth = widthSetting("totalPriceFieldWidth"_L1);
    paperWidth = widthSetting("paperWidth"_L1);
    paperRows = numberSetting("paperRows"_L1);
    if (paperWidth == 0)
        paperWidth = getPaperWidth();
    for (const Flag& flag : flags)
        this->*flag.member = config->getStrValue(docPath + flag.key) == "true"_L1;
}
