#include "toolkit/sql/sqldriver.h"

#include "toolkit/literals.h"

#include <QString>

namespace toolkit {

QString sqlDriver(const QString& name)
{
#if QT_VERSION_MAJOR < 6
    return name;
#else
    return name == "QPSQL7"_L1 ? QStringLiteral("QPSQL") : name;
#endif
}

} // namespace toolkit
