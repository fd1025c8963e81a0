#include "vocabulary/jobs.h"

#include <algorithm>

using toolkit::operator""_L1;

namespace vocabulary {

namespace {

using Kind = AttributeKind;

// clang-format off

// --- The sections that most documents share --------------------------------------------------------------------

constexpr Attribute printers[] = {
    {"name"_L1, Kind::Text, Presence::Optional}, // by the next "headers"
    {"charsize"_L1, Kind::Text, Presence::Optional, {}, false},
    {"ipaddress"_L1, Kind::Text, Presence::Optional, {}, false},
    {"port"_L1, Kind::Text, Presence::Optional, {}, false},
};

constexpr Attribute line[] = {
    {""_L1, Kind::Text, Presence::Optional},
};

constexpr Attribute serialNumber[] = {
    {"serialnumber"_L1, Kind::SerialNumber},
};

constexpr Attribute orderInfo[] = {
    {"date"_L1, Kind::Date, Presence::Expected, "printDate"_L1},
    {"time"_L1, Kind::Text, Presence::Expected, "printTime"_L1},
    {"table"_L1, Kind::Text, Presence::Expected, "printTable"_L1},
    {"waiter"_L1, Kind::Text, Presence::Expected, "printWaiter"_L1},
    {"note"_L1, Kind::Text, Presence::Expected, "printNote"_L1},
    {"credit"_L1, Kind::Text, Presence::Expected, "printCredit"_L1},
};

constexpr Element commonElements[] = {
    {"printers"_L1, printers},
    {"geometry"_L1, {}, {}, "printGeometry"_L1},
    {"headers"_L1, {}, line, "printHeader"_L1},
    {"logo"_L1},
    {"company"_L1, {}, line, "printCompany"_L1},
    {"receipt"_L1, serialNumber},
    {"invoice"_L1, serialNumber},
    {"delivery"_L1, serialNumber},
    {"orderinfo"_L1, orderInfo},
};

constexpr Attribute customer[] = {
    {"name"_L1, Kind::Text},
    {"billingaddress"_L1, Kind::Address, Presence::Optional, "printBillingAddress"_L1},
    {"deliveryaddress"_L1, Kind::Address, Presence::Optional, "printDeliveryAddress"_L1},
    {"telephone"_L1, Kind::Text, Presence::Expected, "printTelephone"_L1},
    {"licensenumber"_L1, Kind::Text, Presence::Expected, "printLicenseNumber"_L1},
    {"fiscalcode"_L1, Kind::Text, Presence::Expected, "printFiscalCode"_L1},
};

constexpr Element customerElement[] = {
    {"customer"_L1, customer, {}, "printCustomer"_L1},
};

// --- Kitchen orders and delivery notes -------------------------------------------------------------------------

constexpr Attribute kitchenDish[] = {
    {"name"_L1, Kind::Description},
    {"number"_L1, Kind::Quantity},
};

constexpr Attribute kitchenVariant[] = {
    {"quantity"_L1, Kind::VariantQuantity, Presence::Optional},
    {"name"_L1, Kind::Description},
    {"number"_L1, Kind::Quantity},
};

constexpr Element kitchenOrder[] = {
    {"receipe"_L1, kitchenDish},
    {"otherreceipe"_L1, kitchenDish},
    {"variant"_L1, kitchenVariant},
};

// --- Orders with prices ----------------------------------------------------------------------------------------

constexpr Attribute dish[] = {
    {"number"_L1, Kind::Quantity},
    {"name"_L1, Kind::Description},
    {"price"_L1, Kind::Amount},
    {"totalPrice"_L1, Kind::Amount},
};

constexpr Attribute variant[] = {
    {"quantity"_L1, Kind::VariantQuantity, Presence::Optional},
    {"name"_L1, Kind::Description},
    {"number"_L1, Kind::Quantity},
    {"price"_L1, Kind::Amount},
    {"totalPrice"_L1, Kind::Amount},
};

constexpr Attribute amount[] = {
    {"price"_L1, Kind::Amount},
};

constexpr Attribute taxBlock[] = {
    {"taxable"_L1, Kind::Amount},
    {"taxrate"_L1, Kind::Rate},
    {"tax"_L1, Kind::Amount},
    {"total"_L1, Kind::Amount},
};

constexpr Element fullOrder[] = {
    {"receipe"_L1, dish},
    {"variant"_L1, variant},
    {"total"_L1, amount},
};

constexpr Element fullReceipt[] = {
    {"receipe"_L1, dish},
    {"total"_L1, amount},
    {"notPaid"_L1, amount},
};

constexpr Element fullInvoice[] = {
    {"receipe"_L1, dish},
    {"totals"_L1, taxBlock},
};

// --- Summaries by dish type ------------------------------------------------------------------------------------

constexpr Attribute dishType[] = {
    {"number"_L1, Kind::Quantity},
    {"name"_L1, Kind::Description},
    {"price"_L1, Kind::Amount},
};

constexpr Element summaryReceipt[] = {
    {"receipe_type"_L1, dishType},
    {"total"_L1, amount},
    {"notPaid"_L1, amount},
};

constexpr Element summaryInvoice[] = {
    {"receipe_type"_L1, dishType},
    {"totals"_L1, taxBlock},
};

// --- Fiscal receipts -------------------------------------------------------------------------------------------

constexpr Attribute fiscalDish[] = {
    {"department"_L1, Kind::Text},
    {"number"_L1, Kind::FiscalQuantity},
    {"name"_L1, Kind::Description},
    {"price"_L1, Kind::FiscalPrice},
};

constexpr Attribute fiscalDishType[] = {
    {"department"_L1, Kind::Text},
    {"name"_L1, Kind::Text},
    {"price"_L1, Kind::FiscalPrice},
};

// The register gets payments of an element "totals" alone, which no method sends.
constexpr Attribute payments[] = {
    {"cash"_L1, Kind::Amount, Presence::Optional, {}, false},
    {"creditCard"_L1, Kind::Amount, Presence::Optional, {}, false},
    {"cheque"_L1, Kind::Amount, Presence::Optional, {}, false},
    {"ticket"_L1, Kind::Amount, Presence::Optional, {}, false},
    {"discountRate"_L1, Kind::Rate, Presence::Optional, {}, false},
};

constexpr Element fullFiscal[] = {
    {"receipe"_L1, fiscalDish},
    {"total"_L1, payments},
};

constexpr Element summaryFiscal[] = {
    {"receipe_type"_L1, fiscalDishType},
    {"total"_L1, payments},
};

// --- Reports and lists -----------------------------------------------------------------------------------------

constexpr Attribute period[] = {
    {"begindate"_L1, Kind::Date},
    {"enddate"_L1, Kind::Date},
};

constexpr Attribute prefiscals[] = {
    {"number"_L1, Kind::Quantity},
    {"total"_L1, Kind::Amount},
};

constexpr Attribute receipts[] = {
    {"number"_L1, Kind::Quantity},
    {"firstserial"_L1, Kind::SerialNumber},
    {"lastserial"_L1, Kind::SerialNumber},
    {"notPaid"_L1, Kind::Amount},
    {"cash"_L1, Kind::Amount},
    {"creditCard"_L1, Kind::Amount},
    {"bancomat"_L1, Kind::Amount},
    {"other"_L1, Kind::Amount},
    {"total"_L1, Kind::Amount},
};

constexpr Attribute taxRate[] = {
    {"taxrate"_L1, Kind::BareRate},
    {"taxable"_L1, Kind::Amount},
    {"tax"_L1, Kind::Amount},
    {"amount"_L1, Kind::Amount},
};

constexpr Attribute invoices[] = {
    {"number"_L1, Kind::Quantity},
    {"firstserial"_L1, Kind::SerialNumber},
    {"lastserial"_L1, Kind::SerialNumber},
    {"taxable"_L1, Kind::Amount},
    {"tax"_L1, Kind::Amount},
    {"total"_L1, Kind::Amount},
};

constexpr Attribute cancelled[] = {
    {"number"_L1, Kind::Quantity},
    {"totals"_L1, Kind::Amount},
};

constexpr Attribute cancelledDocument[] = {
    {""_L1, Kind::SerialNumber},
    {""_L1, Kind::Amount},
    {""_L1, Kind::Rate},
};

constexpr Element report[] = {
    {"date"_L1, period},
    {"prefiscalssummary"_L1, prefiscals},
    {"receiptssummary"_L1, receipts},
    {"taxrate_item"_L1, taxRate},
    {"invoicessummary"_L1, invoices},
    {"cancelledsummary"_L1, cancelled, cancelledDocument},
};

constexpr Attribute soldDish[] = {
    {"quantity"_L1, Kind::Quantity},
    {"description"_L1, Kind::Description},
    {"amount"_L1, Kind::Amount},
};

constexpr Element sold[] = {
    {"receipe"_L1, soldDish},
};

constexpr Attribute movement[] = {
    {"date"_L1, Kind::Date},
    {"type"_L1, Kind::MovementType},
    {"amount"_L1, Kind::Amount},
};

constexpr Element statement[] = {
    {"statement_list"_L1},
    {"statement"_L1, movement},
};

constexpr Method methodTable[] = {
    {"printPartialOrder"_L1, "order"_L1, commonElements, customerElement, kitchenOrder},
    {"printFullOrder"_L1, "prefiscal"_L1, commonElements, customerElement, fullOrder},
    {"printFullOrderReceipt"_L1, "receipt"_L1, commonElements, customerElement, fullReceipt},
    {"printFullOrderInvoice"_L1, "invoice"_L1, commonElements, customerElement, fullInvoice},
    {"printFullOrderDelivery"_L1, "delivery"_L1, commonElements, customerElement, kitchenOrder},
    {"printFullOrderFiscal"_L1, "fiscal"_L1, {}, {}, fullFiscal},
    {"printAbstractOrder"_L1, "order"_L1, {}, {}, {}},
    {"printAbstractOrderReceipt"_L1, "receipt"_L1, commonElements, {}, summaryReceipt},
    {"printAbstractOrderInvoice"_L1, "invoice"_L1, commonElements, customerElement, summaryInvoice},
    {"printAbstractOrderFiscal"_L1, "fiscal"_L1, {}, {}, summaryFiscal},
    {"printReport"_L1, "report"_L1, commonElements, {}, report},
    {"printSold"_L1, "sold"_L1, commonElements, {}, sold},
    {"printStatementOfAccount"_L1, "report"_L1, commonElements, {}, statement},
};

// clang-format on

const QLatin1String methodElement = "method"_L1;
const QLatin1String methodAttribute = "name"_L1;

template <typename Row>
const Row* find(Table<Row> table, const QString& name)
{
    const auto found = std::find_if(table.begin(), table.end(), [&](const Row& row) { return name == row.name; });
    return found == table.end() ? nullptr : found;
}

void addOnce(QStringList& names, QLatin1String name)
{
    if (!names.contains(name))
        names += name;
}

} // namespace

Table<Method> methods()
{
    return methodTable;
}

const Method* findMethod(const QString& name)
{
    return find(methods(), name);
}

QVector<const Element*> elementsOf(const Method& method)
{
    QVector<const Element*> elements;
    for (const Table<Element>& part : {method.common, method.customer, method.own}) {
        for (const Element& element : part)
            elements += &element;
    }
    return elements;
}

const Element* findElement(const Method& method, const QString& name)
{
    for (const Table<Element>& part : {method.common, method.customer, method.own}) {
        if (const Element* const element = find(part, name))
            return element;
    }
    return nullptr;
}

const Attribute* findAttribute(const Element& element, const QString& name)
{
    return find(element.attributes, name);
}

QVector<const Method*> methodsReading(const QString& element)
{
    QVector<const Method*> found;
    for (const Method& method : methods()) {
        if (element == methodElement || findElement(method, element))
            found += &method;
    }
    return found;
}

QVector<const Method*> methodsReading(const QString& element, const QString& attribute)
{
    if (element == methodElement)
        return attribute == methodAttribute ? methodsReading(element) : QVector<const Method*>();
    QVector<const Method*> found;
    for (const Method& method : methods()) {
        const Element* const candidate = findElement(method, element);
        if (candidate && (!candidate->inOrder.isEmpty() || findAttribute(*candidate, attribute)))
            found += &method;
    }
    return found;
}

QStringList elementNames()
{
    QStringList names {methodElement};
    for (const Method& method : methods()) {
        for (const Element* const element : elementsOf(method))
            addOnce(names, element->name);
    }
    return names;
}

QStringList attributeNames(const QString& element)
{
    QStringList names;
    if (element == methodElement)
        names += methodAttribute;
    for (const Method& method : methods()) {
        if (const Element* const candidate = findElement(method, element)) {
            for (const Attribute& attribute : candidate->attributes)
                addOnce(names, attribute.name);
        }
    }
    return names;
}

bool takesAnyAttribute(const QString& element)
{
    const auto takesAny = [&](const Method& method) {
        const Element* const candidate = findElement(method, element);
        return candidate && !candidate->inOrder.isEmpty();
    };
    return std::any_of(methods().begin(), methods().end(), takesAny);
}

} // namespace vocabulary
