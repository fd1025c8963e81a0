#include "instances.h"

#include <zelmora/config/zmconfiguration.h>
#include <zelmora/db/databasemanager.h>
#include <zelmora/log/hlogmanager.h>
#include <zelmora/util/hlibrary.h>

namespace till {

/// A class of a program's own, which its plug-ins share.
struct Q_DECL_EXPORT Drawer {
    int coins = 0;
};

} // namespace till

const void* instanceOf(Kind kind)
{
    switch (kind) {
    case Kind::Settings:
        return SyncSingleton<ZMConfiguration>::instance();
    case Kind::Logs:
        return SyncSingleton<HLogManager>::instance();
    case Kind::Databases:
        return SyncSingleton<DatabaseManager>::instance();
    case Kind::OwnClass:
        return SyncSingleton<till::Drawer>::instance();
    case Kind::Connection:
        return HLibrary::newDBConnection(QString());
    }
    return nullptr;
}
