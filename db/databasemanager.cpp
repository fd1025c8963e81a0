#include "db/databasemanager.h"

#include "db/keptconnections.h"
#include "log/hlogmanager.h"
#include "toolkit/literals.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlTableModel>

template class SyncSingleton<DatabaseManager>;

using toolkit::operator""_L1;

DatabaseManager::DatabaseManager()
    : logger(SyncSingleton<HLogManager>::instance()->getLog(QString()))
{
    KeptConnections::instance(); // made before the manager, they outlive it
}

void DatabaseManager::showQueryError(const QString& method, QSqlQuery& query)
{
    logDebug("Query called from method "_L1 + method + ": "_L1 + query.lastQuery());
    logDebug("    numRowsAffected: "_L1 + QString::number(query.numRowsAffected()));
    if (query.lastError().type() == QSqlError::NoError)
        return;
    logError("Error in the method "_L1 + method + ", to query: "_L1 + query.lastQuery());
    logError(query.lastError().databaseText());
}

void DatabaseManager::showCursorError(const QString& method, QSqlTableModel& cursor)
{
    if (cursor.lastError().type() == QSqlError::NoError)
        return;
    logError("Error in the method "_L1 + method + ", to cursor: "_L1 + cursor.tableName());
    logError(cursor.lastError().databaseText());
}

void DatabaseManager::logDebug(const QString& text)
{
    if (logger)
        logger->debug(text);
}

void DatabaseManager::logError(const QString& text)
{
    if (logger)
        logger->error(text);
}
