#ifndef ZELMORA_TESTS_DB_DATABASEFIXTURE_H
#define ZELMORA_TESTS_DB_DATABASEFIXTURE_H

#include "db/databasemanager.h"
#include "managerlog.h"
#include "support/postgrescluster.h"

/// The shared manager with its log, and a server on which it has two databases open.
class DatabaseFixture {
public:
    DatabaseFixture();

    /// A connection of the manager's; @p database may be a further one of the server. Fatal when it fails.
    QSqlDatabase* connect(const QString& connectionName, const QString& database = PostgresCluster::database());

    /// Executes @p sql without the manager, which knows nothing of it, and returns the first column of the first row.
    /// newStatements() then begins anew.
    QString execute(const QString& sql, const QSqlDatabase* db);
    /// The same, in both databases.
    void executeInBoth(const QString& sql);

    /// The connection to whose database a null connection belongs too.
    QSqlDatabase* orDefault(QSqlDatabase* db) const { return db ? db : first; }

    QStringList newStatements(); ///< which arrived at the server since the last call
    QStringList newRecords() { return log.newRecords(); }

    PostgresCluster server;
    ManagerLog log;
    DatabaseManager* const manager;
    QSqlDatabase* const first; ///< the toolkit's default connection
    QSqlDatabase* const second; ///< to another database, "second", under the same name
};

#endif
