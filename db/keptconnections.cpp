#include "db/keptconnections.h"

#include <QSqlQuery>

KeptConnections& KeptConnections::instance()
{
    return *SyncSingleton<KeptConnections>::instance();
}

KeptConnections::KeptConnections()
{
    // What the toolkit keeps for connections and queries, the empty ones too, must outlive these and whoever asks a
    // manager at the end of the process: it is made first.
    const QSqlDatabase withoutDriver;
    const QSqlQuery withoutStatement;
}

QSqlDatabase& KeptConnections::operator[](const QString& name)
{
    const std::lock_guard<std::mutex> lock(mutex);
    return connections[name];
}
