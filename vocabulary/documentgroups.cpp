#include "vocabulary/documentgroups.h"

QLatin1String documentgroups::ofType(const QString& type)
{
    struct DocumentType {
        QLatin1String name;
        QLatin1String group;
    };
    // clang-format off
    static constexpr DocumentType types[] = {
        {"order"_L1, "doc"_L1},
        {"prefiscal"_L1, prefiscal},
        {"fiscal"_L1, "fiscaldoc"_L1},
        {"receipt"_L1, "receiptdoc"_L1},
        {"invoice"_L1, "invoicedoc"_L1},
        {"delivery"_L1, "deliverydoc"_L1},
        {"report"_L1, "reportdoc"_L1},
        {"sold"_L1, "solddoc"_L1},
    };
    // clang-format on
    for (const DocumentType& candidate : types) {
        if (type == candidate.name)
            return candidate.group;
    }
    return QLatin1String();
}
