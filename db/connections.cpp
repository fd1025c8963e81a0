#include "db/databasemanager.h"

#include "db/keptconnections.h"
#include "toolkit/literals.h"
#include "toolkit/sql/sqldriver.h"
#include "util/hlibrary.h"

#include <QSqlError>

using toolkit::operator""_L1;

QSqlDatabase* DatabaseManager::createConnection(const QString& driver, const QString& dbName, const QString& userName,
                                                const QString& password, const QString& hostName,
                                                const QString& connectionName)
{
    const QString name =
        connectionName.isEmpty() ? QString(QLatin1String(QSqlDatabase::defaultConnection)) : connectionName;
    QSqlDatabase& db = KeptConnections::instance()[name];
    // The toolkit would replace the old one too, with a remark on standard error. It makes another one if the program
    // still uses that.
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
    db = QSqlDatabase::addDatabase(toolkit::sqlDriver(driver), name);
    if (!db.isValid()) {
        logError(QStringLiteral("Failed to connect to driver"));
        return nullptr;
    }
    db.setDatabaseName(dbName);
    db.setUserName(userName);
    db.setPassword(password);
    db.setHostName(hostName);
    db.setNumericalPrecisionPolicy(QSql::HighPrecision); // amounts keep all their digits, zeros too
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
