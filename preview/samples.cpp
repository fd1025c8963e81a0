#include "preview/samples.h"

#include <QFile>
#include <QObject>

using toolkit::operator""_L1;

static void initializeResource()
{
    Q_INIT_RESOURCE(samples); // which a static library does not do by itself
}

namespace preview {

namespace {

// clang-format off
constexpr Sample all[] = {
    {"printPartialOrder"_L1, "kitchen-order.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Kitchen order")},
    {"printFullOrder"_L1, "full-order.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Full order")},
    {"printFullOrderReceipt"_L1, "receipt.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Receipt")},
    {"printFullOrderInvoice"_L1, "invoice.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Invoice")},
    {"printFullOrderDelivery"_L1, "delivery-note.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Delivery note")},
    {"printFullOrderFiscal"_L1, "fiscal-receipt.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Fiscal receipt")},
    {"printAbstractOrder"_L1, "summary-order.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Summary order")},
    {"printAbstractOrderReceipt"_L1, "summary-receipt.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Summary receipt")},
    {"printAbstractOrderInvoice"_L1, "summary-invoice.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Summary invoice")},
    {"printAbstractOrderFiscal"_L1, "summary-fiscal-receipt.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Summary fiscal receipt")},
    {"printReport"_L1, "report.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Daily report")},
    {"printSold"_L1, "sold-list.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Sold items")},
    {"printStatementOfAccount"_L1, "statement-of-account.xml"_L1, QT_TRANSLATE_NOOP("QObject", "Statement of account")},
};
// clang-format on

} // namespace

QString Sample::title() const
{
    return QObject::tr(titleText);
}

QByteArray Sample::job() const
{
    initializeResource();
    QFile resource(":/samples/"_L1 + file);
    return resource.open(QIODevice::ReadOnly) ? resource.readAll() : QByteArray();
}

vocabulary::Table<Sample> samples()
{
    return all;
}

const Sample* findSample(const QString& method)
{
    for (const Sample& sample : all) {
        if (method == sample.method)
            return &sample;
    }
    return nullptr;
}

} // namespace preview
