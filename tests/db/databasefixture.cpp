#include "databasefixture.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

DatabaseFixture::DatabaseFixture()
    : manager(SyncSingleton<DatabaseManager>::instance())
    , first(connect(QString()))
    , second((execute("create database second", first), connect("second", "second")))
{
    newStatements();
    newRecords();
}

QSqlDatabase* DatabaseFixture::connect(const QString& connectionName, const QString& database)
{
    QSqlDatabase* const db = manager->createConnection("QPSQL7", database, PostgresCluster::user(),
                                                       PostgresCluster::password(), server.host(), connectionName);
    if (!db)
        qFatal("No connection: %s", qPrintable(newRecords().join('\n')));
    return db;
}

QString DatabaseFixture::execute(const QString& sql, const QSqlDatabase* db)
{
    QSqlQuery query(sql, *db);
    if (query.lastError().type() != QSqlError::NoError)
        qFatal("%s: %s", qPrintable(sql), qPrintable(query.lastError().databaseText()));
    server.newStatements();
    return query.next() ? query.value(0).toString() : QString();
}

void DatabaseFixture::executeInBoth(const QString& sql)
{
    execute(sql, first);
    execute(sql, second);
}

QStringList DatabaseFixture::newStatements()
{
    QStringList statements;
    for (const QByteArray& statement : server.newStatements())
        statements += QString::fromUtf8(statement);
    return statements;
}
