#ifndef ZELMORA_DB_KEPTCONNECTIONS_H
#define ZELMORA_DB_KEPTCONNECTIONS_H

#include "config/syncsingleton.h"

#include <QSqlDatabase>

#include <map>
#include <mutex>

/// The values that the library's QSqlDatabase pointers point to, one for each connection name.
class ZELMORA_EXPORT KeptConnections {
public:
    /// The one of the process, made at the first call.
    static KeptConnections& instance();

    KeptConnections(const KeptConnections&) = delete;
    KeptConnections& operator=(const KeptConnections&) = delete;

    /// The place of the connection of that name; it stays the same for good. Threads may ask side by side, as they
    /// may of the toolkit's own registry.
    QSqlDatabase& operator[](const QString& name);

private:
    friend class SyncSingleton<KeptConnections>;
    KeptConnections();

    std::mutex mutex;
    std::map<QString, QSqlDatabase> connections;
};

#endif
