#include "db/databasemanager.h"

#include "db/columntext.h"
#include "toolkit/literals.h"
#include "toolkit/sql/columnvalue.h"

#include <QSqlQuery>
#include <QVariant>

using toolkit::operator""_L1;

QString DatabaseManager::getField(const QString& field, const QString& table, const QString& id, QSqlDatabase* db)
{
    QSqlQuery query = shownQuery(QStringLiteral("DatabaseManager::getField(...)"),
                                 "select "_L1 + field + " from "_L1 + table + " where id = "_L1 + id, db);
    return query.next() ? columnText(toolkit::columnValue(query, 0)) : QString();
}

int DatabaseManager::removeRecord(const QString& table, const QString& id, QSqlDatabase* db)
{
    return shownQuery(QStringLiteral("removeRecord"), "delete from "_L1 + table + " where ID = "_L1 + id, db)
        .numRowsAffected();
}

bool DatabaseManager::existRecord(const QString& table, const QString& id, QSqlDatabase* db)
{
    return shownQuery(QStringLiteral("DatabaseManager::existRecord(...)"),
                      "select * from "_L1 + table + " where ID = "_L1 + id, db)
        .next();
}

int DatabaseManager::numRecords(const QString& table, const QString& condition, QSqlDatabase* db)
{
    // The log has always had these under the name of existRecord.
    QSqlQuery query = shownQuery(QStringLiteral("DatabaseManager::existRecord(...)"),
                                 "select count(*) from "_L1 + table + " where "_L1 + condition, db);
    return query.next() ? query.value(0).toInt() : -1;
}

QString DatabaseManager::getLastId(const QString& table, QSqlDatabase* db)
{
    QSqlQuery query = shownQuery(QStringLiteral("getLastId"), "select max(ID) from "_L1 + table, db);
    if (query.next())
        return columnText(toolkit::columnValue(query, 0));
    logError("getLastId( "_L1 + table + " ): "_L1 + query.lastQuery() + " return empty result"_L1);
    return QStringLiteral("Error");
}

QString DatabaseManager::newRecord(const QString& table, QSqlDatabase* db)
{
    shownQuery(QStringLiteral("newRecord"), "insert into "_L1 + table + " values(default)"_L1, db);
    return getLastId(table, db);
}

QString DatabaseManager::safeNewRecord(const QString& table, QSqlDatabase* db)
{
    begin(db);
    const QString id = newRecord(table, db);
    commit(db);
    return id;
}
