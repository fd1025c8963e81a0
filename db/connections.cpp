#include "db/databasemanager.h"
#include "toolkit/literals.h"
#include "util/hlibrary.h"

#include <QMutex>
#include <QSqlError>

#include <map>

using toolkit::operator""_L1;

namespace {

/// The place where the connection of that name is kept. It stays the same for good. Threads may ask side by side, as
/// they may of the toolkit's own registry.
QSqlDatabase& keptConnection(const QString& name)
{
    static QMutex mutex;
    static std::map<QString, QSqlDatabase> connections;
    const QMutexLocker locker(&mutex);
    return connections[name];
}

} // namespace

QSqlDatabase* DatabaseManager::createConnection(const QString& driver, const QString& dbName, const QString& userName,
                                                const QString& password, const QString& hostName,
                                                const QString& connectionName)
{
    const QString name =
        connectionName.isEmpty() ? QString(QLatin1String(QSqlDatabase::defaultConnection)) : connectionName;
    QSqlDatabase& db = keptConnection(name);
    // The toolkit would replace the old one too, with a remark on standard error.
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
    db = QSqlDatabase::addDatabase(driver, name);
    if (!db.isValid()) {
        logError(QStringLiteral("Failed to connect to driver"));
        return nullptr;
    }
    db.setDatabaseName(dbName);
    db.setUserName(userName);
    db.setPassword(password);
    db.setHostName(hostName);
    if (!db.open()) {
        logError("Failed to open database: "_L1 + db.lastError().driverText());
        logError(db.lastError().databaseText());
        return nullptr;
    }
    logDebug("Connection With "_L1 + dbName + " DB established"_L1);
    return &db;
}

QSqlDatabase* HLibrary::newDBConnection(const QString& connectionName)
{
    const QString host = hostname();
    const QString secret = password();
    const QString user = username();
    const QString database = dbname();
    return SyncSingleton<DatabaseManager>::instance()->createConnection(QStringLiteral("QPSQL7"), database, user,
                                                                        secret, host, connectionName);
}
