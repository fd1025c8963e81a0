#include "db/databasemanager.h"

#include "toolkit/literals.h"

using toolkit::operator""_L1;

// Two empty lines after each record set transactions apart in the log.

void DatabaseManager::begin(QSqlDatabase* db)
{
    if (db)
        db->transaction();
    else
        executeQuery(QStringLiteral("BEGIN"), db);
    logDebug(QStringLiteral("BEGIN\n\n"));
}

void DatabaseManager::commit(QSqlDatabase* db)
{
    if (db)
        db->commit();
    else
        executeQuery(QStringLiteral("COMMIT"), db);
    logDebug(QStringLiteral("COMMIT\n\n"));
}

void DatabaseManager::rollback(QSqlDatabase* db)
{
    if (db)
        db->rollback();
    else
        executeQuery(QStringLiteral("ROLLBACK"), db);
    logDebug(QStringLiteral("ROLLBACK\n\n"));
}
