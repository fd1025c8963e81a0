#include "util/hlibrary.h"

#include "config/zmconfiguration.h"
#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"

using toolkit::operator""_L1;

namespace {

struct DocumentType {
    QLatin1String type;
    QLatin1String group; ///< of the settings
};

constexpr QLatin1String prefiscalGroup = "prefiscaldoc"_L1;

// clang-format off
constexpr DocumentType documentTypes[] = {
    {"order"_L1, "doc"_L1},
    {"prefiscal"_L1, prefiscalGroup},
    {"fiscal"_L1, "fiscaldoc"_L1},
    {"receipt"_L1, "receiptdoc"_L1},
    {"invoice"_L1, "invoicedoc"_L1},
    {"delivery"_L1, "deliverydoc"_L1},
    {"report"_L1, "reportdoc"_L1},
};
// clang-format on

QLatin1String groupOf(const QString& type)
{
    for (const DocumentType& known : documentTypes) {
        if (type == known.type)
            return known.group;
    }
    toolkit::writeLine(toolkit::localeText("Error into HLibrary::copyNumber::documentPath: "_L1 + type));
    return prefiscalGroup;
}

const ZMConfiguration& settings()
{
    return *SyncSingleton<ZMConfiguration>::instance();
}

QString setting(const QString& key)
{
    return settings().getStrValue(key);
}

} // namespace

QString HLibrary::pathWithBinaryFile(const QString& name)
{
    return setting(QStringLiteral("zelmora.bin.path")) + "/"_L1 + name;
}

QString HLibrary::copyNumber(const QString& documentType)
{
    const ZMConfiguration& store = settings(); // first: what it says of a missing file comes before an unknown type
    return store.getStrValue("zelmora."_L1 + groupOf(documentType.toLower()) + ".copyNumber"_L1);
}

QString HLibrary::dbname()
{
    return setting(QStringLiteral("zelmora.db.dbname"));
}

QString HLibrary::username()
{
    return setting(QStringLiteral("zelmora.db.username"));
}

QString HLibrary::password()
{
    return setting(QStringLiteral("zelmora.db.password"));
}

QString HLibrary::hostname()
{
    return setting(QStringLiteral("zelmora.db.hostname"));
}
