#include "db/databasemanager.h"

#include "db/columntext.h"
#include "toolkit/sql/columnvalue.h"

#include <QSqlQuery>
#include <QVariant>

namespace {

/// @p sql executed so that numeric columns arrive with all their digits, zeros too. A query takes that from its
/// connection, which may be a program's own and stays as it was.
///
/// Not by way of the query's constructor: that takes the default connection for an invalid one too, and does not tell
/// the connection the error, which programs ask it for.
QSqlQuery executed(const QString& sql, QSqlDatabase& connection)
{
    const QSql::NumericalPrecisionPolicy policy = connection.numericalPrecisionPolicy();
    connection.setNumericalPrecisionPolicy(QSql::HighPrecision);
    QSqlQuery query = connection.exec(sql);
    connection.setNumericalPrecisionPolicy(policy);
    return query;
}

} // namespace

int DatabaseManager::executeQuery(const QString& sql, QSqlDatabase* db)
{
    return shownQuery(QStringLiteral("executeQuery(...)"), sql, db).numRowsAffected();
}

QString DatabaseManager::executeSelectQuery(const QString& sql, QSqlDatabase* db)
{
    QSqlQuery query = selectQuery(sql, db);
    return query.next() ? columnText(toolkit::columnValue(query, 0)) : QString();
}

QStringList DatabaseManager::executeSelectQuery2(const QString& sql, QSqlDatabase* db)
{
    QSqlQuery query = selectQuery(sql, db);
    QStringList values;
    while (query.next())
        values += columnText(toolkit::columnValue(query, 0));
    return values;
}

QStringList DatabaseManager::executeSelectQuery3(const QString& sql, int columns, QSqlDatabase* db)
{
    QSqlQuery query = selectQuery(sql, db);
    QStringList values;
    if (query.next()) {
        for (int i = 0; i < columns; ++i)
            values += columnText(toolkit::columnValue(query, i));
    }
    return values;
}

QSqlQuery DatabaseManager::selectQuery(const QString& sql, QSqlDatabase* db)
{
    return shownQuery(QStringLiteral("executeSelectQuery(...)"), sql, db);
}

QSqlQuery DatabaseManager::shownQuery(const QString& method, const QString& sql, QSqlDatabase* db)
{
    QSqlDatabase connection = db ? *db : QSqlDatabase::database(QLatin1String(QSqlDatabase::defaultConnection), false);
    QSqlQuery query = executed(sql, connection);
    showQueryError(method, query);
    return query;
}
