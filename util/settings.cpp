#include "util/hlibrary.h"

#include "config/zmconfiguration.h"
#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "vocabulary/documentgroups.h"

using toolkit::operator""_L1;

namespace {

/// The settings group in which the number of copies of such documents stands. The list of dishes sold has none.
QLatin1String groupWithCopies(const QString& type)
{
    const QLatin1String group = type == "sold"_L1 ? QLatin1String() : documentgroups::ofType(type);
    if (!group.isEmpty())
        return group;
    toolkit::writeLine(toolkit::localeText("Error into HLibrary::copyNumber::documentPath: "_L1 + type));
    return documentgroups::prefiscal;
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
    return store.getStrValue("zelmora."_L1 + groupWithCopies(documentType.toLower()) + ".copyNumber"_L1);
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
