#include "db/databasemanager.h"

#include <QSqlQuery>
#include <QVariant>

int DatabaseManager::executeQuery(const QString& sql, QSqlDatabase* db)
{
    return shownQuery(QStringLiteral("executeQuery(...)"), sql, db).numRowsAffected();
}

QString DatabaseManager::executeSelectQuery(const QString& sql, QSqlDatabase* db)
{
    QSqlQuery query = selectQuery(sql, db);
    return query.next() ? query.value(0).toString() : QString();
}

QStringList DatabaseManager::executeSelectQuery2(const QString& sql, QSqlDatabase* db)
{
    QSqlQuery query = selectQuery(sql, db);
    QStringList values;
    while (query.next())
        values += query.value(0).toString();
    return values;
}

QStringList DatabaseManager::executeSelectQuery3(const QString& sql, int columns, QSqlDatabase* db)
{
    QSqlQuery query = selectQuery(sql, db);
    QStringList values;
    if (query.next()) {
        for (int i = 0; i < columns; ++i)
            values += query.value(i).toString();
    }
    return values;
}

QSqlQuery DatabaseManager::selectQuery(const QString& sql, QSqlDatabase* db)
{
    return shownQuery(QStringLiteral("executeSelectQuery(...)"), sql, db);
}

QSqlQuery DatabaseManager::shownQuery(const QString& method, const QString& sql, QSqlDatabase* db)
{
    QSqlQuery query(sql, db ? *db : QSqlDatabase());
    showQueryError(method, query);
    return query;
}
