// The settings of a document type: where they stand and what the engine takes from them.

#include "print/printerdriver.h"

#include "config/zmconfiguration.h"
#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/numbertext.h"
#include "vocabulary/documentgroups.h"

#include <algorithm>

using toolkit::operator""_L1;

QString PrinterDriver::documentPath(const QString& type)
{
    const QString name = type.toLower();
    QLatin1String group = documentgroups::ofType(name);
    if (group.isEmpty()) {
        toolkit::writeLine("Error into PrinterDriver::documentPath:  " + toolkit::localeText(name));
        group = documentgroups::prefiscal;
    }
    return "zelmora."_L1 + group + QLatin1Char('.');
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
