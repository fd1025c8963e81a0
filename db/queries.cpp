#include "db/databasemanager.h"

#include "toolkit/numbertext.h"

#include <QSqlQuery>
#include <QVariant>

int DatabaseManager::executeQuery(const QString& sql, QSqlDatabase* db)
{
    return shownQuery(QStringLiteral("executeQuery(...)"), sql, db).numRowsAffected();
}

QString DatabaseManager::executeSelectQuery(const QString& sql, QSqlDatabase* db)
{
    QSqlQuery query = selectQuery(sql, db);
    return query.next() ? textOf(query, 0) : QString();
}

QStringList DatabaseManager::executeSelectQuery2(const QString& sql, QSqlDatabase* db)
{
    QSqlQuery query = selectQuery(sql, db);
    QStringList values;
    while (query.next())
        values += textOf(query, 0);
    return values;
}

QStringList DatabaseManager::executeSelectQuery3(const QString& sql, int columns, QSqlDatabase* db)
{
    QSqlQuery query = selectQuery(sql, db);
    QStringList values;
    if (query.next()) {
        for (int i = 0; i < columns; ++i)
            values += textOf(query, i);
    }
    return values;
}

QString DatabaseManager::textOf(const QSqlQuery& query, int column)
{
    const QVariant value = query.value(column);
    if (value.isNull()) // the toolkit has "0" for it in a column of numbers, and "false" in one of booleans
        return QString();
    return value.type() == QVariant::Double ? toolkit::numberText(value.toDouble()) : value.toString();
}

QSqlQuery DatabaseManager::selectQuery(const QString& sql, QSqlDatabase* db)
{
    return shownQuery(QStringLiteral("executeSelectQuery(...)"), sql, db);
}

QSqlQuery DatabaseManager::shownQuery(const QString& method, const QString& sql, QSqlDatabase* db)
{
    // Not by way of the constructor for both: the toolkit would take the default connection for an invalid one too.
    QSqlQuery query = db ? db->exec(sql) : QSqlQuery(sql);
    showQueryError(method, query);
    return query;
}
