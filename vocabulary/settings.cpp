#include "vocabulary/settings.h"

#include "toolkit/numbertext.h"
#include "vocabulary/documentgroups.h"

#include <QObject>

#include <algorithm>

using toolkit::operator""_L1;

namespace vocabulary {

namespace {

using Kind = SettingKind;

// The bits of Setting::actsIn, in the order of methods().
constexpr unsigned int partialOrder = 1U << 0U;
constexpr unsigned int fullOrder = 1U << 1U;
constexpr unsigned int fullReceipt = 1U << 2U;
constexpr unsigned int fullInvoice = 1U << 3U;
constexpr unsigned int deliveryNote = 1U << 4U;
constexpr unsigned int fullFiscal = 1U << 5U;
constexpr unsigned int summaryReceipt = 1U << 7U;
constexpr unsigned int summaryInvoice = 1U << 8U;
constexpr unsigned int report = 1U << 10U;
constexpr unsigned int sold = 1U << 11U;
constexpr unsigned int statement = 1U << 12U;

constexpr unsigned int pricedRows = fullOrder | fullReceipt | fullInvoice | summaryReceipt | summaryInvoice | sold;
constexpr unsigned int rowsWithQuantity = pricedRows | partialOrder | deliveryNote;
constexpr unsigned int rowsWithPrice = pricedRows | statement;
constexpr unsigned int withCustomer =
    partialOrder | fullOrder | fullReceipt | fullInvoice | deliveryNote | summaryInvoice;
constexpr unsigned int withSections = withCustomer | summaryReceipt | report | sold | statement;

constexpr int greatestWidth = 10000; ///< the print program takes more for this
constexpr int greatestNumber = 2147483647;

// clang-format off

constexpr QLatin1String levels[] = {"DEBUG"_L1, "INFO"_L1, "WARNING"_L1, "ERROR"_L1, "FATAL"_L1};
constexpr QLatin1String types[] = {"APPEND"_L1, "OVERWRITE"_L1};

constexpr Setting language[] = {
    {"basedir"_L1, Kind::Path, {}, QT_TRANSLATE_NOOP("QObject", "the labels are English"), QT_TRANSLATE_NOOP("QObject", "The folder of the translation, with a slash at its end unless file is \"/\"."), 0, 0, {}, withSections},
    {"file"_L1, Kind::Text, {}, QT_TRANSLATE_NOOP("QObject", "the labels are English"), QT_TRANSLATE_NOOP("QObject", "The name of the translation, or \"/\" for that of the user's language."), 0, 0, {}, withSections},
};

constexpr Setting logger[] = {
    {"level"_L1, Kind::Word, "DEBUG"_L1, nullptr, QT_TRANSLATE_NOOP("QObject", "The least severe messages that are logged."), 0, 0, levels},
    {"basedir"_L1, Kind::Path, {}, QT_TRANSLATE_NOOP("QObject", "the root folder"), QT_TRANSLATE_NOOP("QObject", "The folder of the log, which must exist.")},
    {"filename"_L1, Kind::Text, {}, QT_TRANSLATE_NOOP("QObject", "nothing is logged"), QT_TRANSLATE_NOOP("QObject", "The name of the log in its folder.")},
    {"type"_L1, Kind::Word, {}, QT_TRANSLATE_NOOP("QObject", "nothing is logged"), QT_TRANSLATE_NOOP("QObject", "APPEND adds to the log, OVERWRITE empties it at each start."), 0, 0, types},
};

constexpr Setting database[] = {
    {"dbname"_L1, Kind::Text, {}, QT_TRANSLATE_NOOP("QObject", "the database with the role's name"), QT_TRANSLATE_NOOP("QObject", "The database.")},
    {"username"_L1, Kind::Text, {}, QT_TRANSLATE_NOOP("QObject", "the name of the system's user"), QT_TRANSLATE_NOOP("QObject", "The role that the programs take in the database.")},
    {"password"_L1, Kind::Secret, {}, QT_TRANSLATE_NOOP("QObject", "no password"), QT_TRANSLATE_NOOP("QObject", "The password of that role.")},
    {"hostname"_L1, Kind::Text, {}, QT_TRANSLATE_NOOP("QObject", "the server on this machine"), QT_TRANSLATE_NOOP("QObject", "The server: a name, an address, or the folder of its socket.")},
};

constexpr Setting programs[] = {
    {"path"_L1, Kind::Path, {}, QT_TRANSLATE_NOOP("QObject", "the root folder"), QT_TRANSLATE_NOOP("QObject", "The folder of the suite's programs, without a slash at its end.")},
};

// A flag and a number that the documents have.
constexpr Setting flag(QLatin1String key, unsigned int actsIn, const char* description)
{
    return {key, Kind::Flag, "false"_L1, nullptr, description, 0, 0, {}, actsIn};
}

constexpr Setting width(QLatin1String key, QLatin1String absent, unsigned int actsIn, const char* description,
                        Setting::ReadIn readIn = Setting::ReadIn::EveryDocument)
{
    return {key, Kind::Number, absent, nullptr, description, 0, greatestWidth, {}, actsIn, readIn};
}

constexpr Setting documentSettings[] = {
    width("quantityFieldWidth"_L1, "0"_L1, rowsWithQuantity, QT_TRANSLATE_NOOP("QObject", "The width of the quantity column, in characters.")),
    width("priceFieldWidth"_L1, "0"_L1, rowsWithPrice, QT_TRANSLATE_NOOP("QObject", "The width of the unit price column, in characters; in a statement of account that of the amount.")),
    width("totalPriceFieldWidth"_L1, "0"_L1, pricedRows, QT_TRANSLATE_NOOP("QObject", "The width of the total column, in characters.")),
    width("paperWidth"_L1, "32"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "The characters in a line of the paper.")),
    {"paperRows"_L1, Kind::Number, "0"_L1, nullptr, QT_TRANSLATE_NOOP("QObject", "The lines of a page; nothing depends on it yet."), 0, greatestNumber},
    {"style"_L1, Kind::Text, {}, QT_TRANSLATE_NOOP("QObject", "nothing changes"), QT_TRANSLATE_NOOP("QObject", "The style of the document; nothing depends on it yet.")},
    flag("printGeometry"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "Prints the top margin.")),
    flag("printHeader"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "Prints the lines of the heading.")),
    flag("printLogo"_L1, 0, QT_TRANSLATE_NOOP("QObject", "Nothing: the register prints no logo.")),
    flag("printCompany"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "Prints the lines about the company.")),
    flag("printDeliveryAddress"_L1, withCustomer, QT_TRANSLATE_NOOP("QObject", "Prints the customer's delivery address, if printCustomer is true.")),
    flag("printBillingAddress"_L1, withCustomer, QT_TRANSLATE_NOOP("QObject", "Prints the customer's billing address, if printCustomer is true.")),
    flag("printTelephone"_L1, withCustomer, QT_TRANSLATE_NOOP("QObject", "Prints the customer's telephone number, if printCustomer is true.")),
    flag("printDate"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "Prints the date of the order.")),
    flag("printTime"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "Prints the time of the order.")),
    flag("printTable"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "Prints the table.")),
    flag("printCustomer"_L1, withCustomer, QT_TRANSLATE_NOOP("QObject", "Prints the customer's block; without it none of its lines.")),
    flag("printLicenseNumber"_L1, withCustomer, QT_TRANSLATE_NOOP("QObject", "Prints the customer's licence number, if printCustomer is true.")),
    flag("printFiscalCode"_L1, withCustomer, QT_TRANSLATE_NOOP("QObject", "Prints the customer's fiscal code, if printCustomer is true.")),
    flag("printCredit"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "Prints the credit.")),
    flag("printWaiter"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "Prints the waiter's name.")),
    flag("printNote"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "Prints the note.")),
    flag("openCashDrawer"_L1, 0, QT_TRANSLATE_NOOP("QObject", "Nothing: no command opens the drawer.")),
    width("topMargin"_L1, "0"_L1, withSections, QT_TRANSLATE_NOOP("QObject", "The empty lines at the top, if printGeometry is true."), Setting::ReadIn::DocumentsItActsIn),
    width("descriptionWidth"_L1, "32"_L1, fullFiscal, QT_TRANSLATE_NOOP("QObject", "The characters to which a dish's name is cut on a fiscal receipt."), Setting::ReadIn::DocumentsItActsIn),
    {"copyNumber"_L1, Kind::Number, {}, QT_TRANSLATE_NOOP("QObject", "the suite's programs decide"), QT_TRANSLATE_NOOP("QObject", "The copies that the suite prints; the print program prints one."), 0, greatestNumber, {}, 0, Setting::ReadIn::AllButSold},
};

constexpr SettingGroup groupTable[] = {
    {"language"_L1, QT_TRANSLATE_NOOP("QObject", "Language"), QT_TRANSLATE_NOOP("QObject", "The language of the labels."), language},
    {"logger"_L1, QT_TRANSLATE_NOOP("QObject", "Log"), QT_TRANSLATE_NOOP("QObject", "The log of the suite's programs."), logger},
    {"db"_L1, QT_TRANSLATE_NOOP("QObject", "Database"), QT_TRANSLATE_NOOP("QObject", "The database of the suite's programs."), database},
    {"bin"_L1, QT_TRANSLATE_NOOP("QObject", "Programs"), QT_TRANSLATE_NOOP("QObject", "The suite's programs."), programs},
    {"doc"_L1, QT_TRANSLATE_NOOP("QObject", "Kitchen order"), QT_TRANSLATE_NOOP("QObject", "Kitchen orders."), documentSettings, true},
    {"prefiscaldoc"_L1, QT_TRANSLATE_NOOP("QObject", "Order with prices"), QT_TRANSLATE_NOOP("QObject", "Whole orders with prices."), documentSettings, true},
    {"fiscaldoc"_L1, QT_TRANSLATE_NOOP("QObject", "Fiscal receipt"), QT_TRANSLATE_NOOP("QObject", "Fiscal receipts."), documentSettings, true},
    {"receiptdoc"_L1, QT_TRANSLATE_NOOP("QObject", "Receipt"), QT_TRANSLATE_NOOP("QObject", "Receipts."), documentSettings, true},
    {"invoicedoc"_L1, QT_TRANSLATE_NOOP("QObject", "Invoice"), QT_TRANSLATE_NOOP("QObject", "Invoices."), documentSettings, true},
    {"deliverydoc"_L1, QT_TRANSLATE_NOOP("QObject", "Delivery note"), QT_TRANSLATE_NOOP("QObject", "Delivery notes."), documentSettings, true},
    {"reportdoc"_L1, QT_TRANSLATE_NOOP("QObject", "Report and statement"), QT_TRANSLATE_NOOP("QObject", "Reports and statements of account."), documentSettings, true},
    {"solddoc"_L1, QT_TRANSLATE_NOOP("QObject", "Dishes sold"), QT_TRANSLATE_NOOP("QObject", "Lists of dishes sold."), documentSettings, true},
};

// clang-format on

bool actsIn(const Setting& setting, const Method& method)
{
    return (setting.actsIn >> static_cast<unsigned int>(&method - methods().begin()) & 1U) != 0;
}

QString wordList(const Setting& setting)
{
    QStringList words;
    for (const QLatin1String word : setting.words)
        words += word;
    return words.join(QStringLiteral(", "));
}

bool isNumberWithin(const Setting& setting, const QString& value)
{
    const std::optional<int> number = toolkit::wholeNumber(value);
    return number && *number >= setting.least && *number <= setting.greatest;
}

bool isOneOf(Table<QLatin1String> words, const QString& value)
{
    return std::any_of(words.begin(), words.end(),
                       [&](QLatin1String word) { return value.compare(word, Qt::CaseInsensitive) == 0; });
}

} // namespace

Table<SettingGroup> settingGroups()
{
    return groupTable;
}

const SettingGroup* findGroup(const QString& name)
{
    for (const SettingGroup& group : settingGroups()) {
        if (name == group.name)
            return &group;
    }
    return nullptr;
}

const Setting* findSetting(const SettingGroup& group, const QString& key)
{
    for (const Setting& setting : group.settings) {
        if (key == setting.key)
            return &setting;
    }
    return nullptr;
}

QString keyOf(const SettingGroup& group, const Setting& setting)
{
    return "zelmora."_L1 + group.name + QLatin1Char('.') + setting.key;
}

QStringList secretKeys()
{
    QStringList keys;
    for (const SettingGroup& group : settingGroups()) {
        for (const Setting& setting : group.settings) {
            if (setting.kind == Kind::Secret)
                keys += keyOf(group, setting);
        }
    }
    return keys;
}

bool isRead(const SettingGroup& group, const Setting& setting)
{
    if (!group.isDocument || setting.readIn == Setting::ReadIn::EveryDocument)
        return true;
    if (setting.readIn == Setting::ReadIn::AllButSold)
        return group.name != documentgroups::ofType(QStringLiteral("sold"));
    return !methodsAffected(group, setting).isEmpty();
}

QVector<const Method*> methodsOf(const SettingGroup& group)
{
    QVector<const Method*> found;
    for (const Method& method : methods()) {
        if (group.name == documentgroups::ofType(method.documentType))
            found += &method;
    }
    return found;
}

QVector<const Method*> methodsAffected(const SettingGroup& group, const Setting& setting)
{
    QVector<const Method*> found;
    for (const Method& method : methods()) {
        const bool takesGroup = !group.isDocument || group.name == documentgroups::ofType(method.documentType);
        if (takesGroup && actsIn(setting, method))
            found += &method;
    }
    return found;
}

bool actsSomewhere(const Setting& setting)
{
    const auto isDocuments = [&](const Setting& candidate) { return &candidate == &setting; };
    const bool isOfDocuments = std::any_of(std::begin(documentSettings), std::end(documentSettings), isDocuments);
    return !isOfDocuments || setting.actsIn != 0 || setting.readIn == Setting::ReadIn::AllButSold;
}

QString valueText(const Setting& setting)
{
    switch (setting.kind) {
    case Kind::Flag:
        return QObject::tr("a flag, true or false");
    case Kind::Number:
        return QObject::tr("a whole number from %1 to %2").arg(setting.least).arg(setting.greatest);
    case Kind::Word:
        return QObject::tr("one of %1").arg(wordList(setting));
    case Kind::Path:
        return QObject::tr("a path");
    case Kind::Text:
        return QObject::tr("a text");
    case Kind::Secret:
        return QObject::tr("a secret text");
    }
    return QString();
}

int numberTaken(const Setting& setting, const QString& written)
{
    const int number = std::clamp(toolkit::toInteger(written), -setting.greatest, setting.greatest);
    return number != 0 ? number : toolkit::toInteger(setting.absent);
}

bool takes(const Setting& setting, const QString& value)
{
    switch (setting.kind) {
    case Kind::Flag:
        return value == "true"_L1 || value == "false"_L1;
    case Kind::Number:
        return isNumberWithin(setting, value);
    case Kind::Word:
        return isOneOf(setting.words, value);
    case Kind::Path:
    case Kind::Text:
    case Kind::Secret:
        return true;
    }
    return false;
}

} // namespace vocabulary
