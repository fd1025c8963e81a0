#ifndef ZELMORA_DB_DATABASEMANAGER_H
#define ZELMORA_DB_DATABASEMANAGER_H

#include "../config/syncsingleton.h"

#include <QSqlDatabase>
#include <QStringList>

class Logger;
class QSqlQuery;
class QSqlTableModel;

/// SQL for the suite's programs, with every diagnostic in the log. The programs share one manager through
/// SyncSingleton<DatabaseManager>::instance().
///
/// A null QSqlDatabase* means the toolkit's default connection. **The null of a failed open does too: who passes it on
/// works in another database.**
///
/// Statements are put together from the arguments as they are, without quoting: values come formatted, and from a
/// trusted place. **What somebody has typed ("D'Angelo") belongs in a prepared QSqlQuery**, which showQueryError()
/// logs.
///
/// No operation throws or stops the program. What the server refused is in the log, and the result is that of an
/// empty one unless its comment says otherwise. **A connection that breaks has its error in the log once, twice if the
/// server was killed, and never if begin() is what meets it; each later statement fails with its two DEBUG records and
/// no ERROR record.** QSqlDatabase::isOpen() tells, after that one failure or those two; the connection stays broken
/// until it is opened again. Without a logger nothing is logged. The toolkit and PostgreSQL's client have remarks of
/// their own for standard error: the server's notices, a connection that is not open, one still used when its name is
/// created again.
///
/// Values are given as text, on every connection alike, whoever opened it:
///
///     NULL                  empty
///     numeric               all digits: 4.50
///     floating-point        up to 15 digits
///     date                  2026-07-04
///     time                  13:05:09, without parts of a second
///     timestamp             2026-07-04T13:05:09; one with a time zone as the clock where the program runs shows it
///     bytea                 a character for each byte (Latin-1), up to the first NUL
///
/// What the toolkit has no value for is empty as well: "infinity", years after 9999, a time with both its zone and
/// parts of a second. It takes years before Christ for those after.
///
/// No operation takes a lock: a connection is for the thread that created it, as the toolkit has it. Threads with a
/// connection of their own may use one manager side by side if it has no logger.
class ZELMORA_EXPORT DatabaseManager {
public:
    /// Takes its logger, HLogManager::getLog("") of the shared manager, for good: the default logger is to be set
    /// before.
    DatabaseManager();

    DatabaseManager(const DatabaseManager&) = delete;
    DatabaseManager& operator=(const DatabaseManager&) = delete;

    // Connections

    /// Opens a connection with the toolkit's driver @p driver, "QPSQL7" for PostgreSQL, and registers it under
    /// @p connectionName, or as the default connection when that is empty. One that had the name before is closed. (Qt
    /// 6 has that driver as "QPSQL" alone: that is opened, and is the connection's driverName().)
    ///
    /// Null when there is no such driver or the database cannot be opened; what was registered stays so, closed.
    /// **Look at the result: to every other operation null is the default connection.** PostgreSQL's client waits for a
    /// server that does not answer without limit, unless the environment variable PGCONNECT_TIMEOUT says how many
    /// seconds (2 at the least).
    ///
    /// The value pointed to belongs to this library and stays until the process ends; once the name is created
    /// again it is the new connection. All connections close with the QCoreApplication, if there is one; after main()
    /// open none. The password goes to the server alone, never to the log.
    QSqlDatabase* createConnection(const QString& driver, const QString& dbName, const QString& userName,
                                   const QString& password, const QString& hostName, const QString& connectionName);

    // Statements

    /// The rows affected, -1 after a failure. For a select PostgreSQL's driver counts the rows selected.
    int executeQuery(const QString& sql, QSqlDatabase* db);
    /// The first column of the first row.
    QString executeSelectQuery(const QString& sql, QSqlDatabase* db);
    /// The first column of every row.
    QStringList executeSelectQuery2(const QString& sql, QSqlDatabase* db);
    /// The first @p columns columns of the first row; those that it has not are empty texts.
    QStringList executeSelectQuery3(const QString& sql, int columns, QSqlDatabase* db);

    // Diagnostics: what @p method says of itself, then what the toolkit says.

    /// Two DEBUG records of every query, then two ERROR records if it failed. For queries of the program's own too: of
    /// a prepared one it logs the statement, and what is bound to it only where the server names it in its error.
    void showQueryError(const QString& method, QSqlQuery& query);
    /// Two ERROR records if the cursor's last operation failed.
    void showCursorError(const QString& method, QSqlTableModel& cursor);

    // Records of a table whose key column is named ID

    QString getField(const QString& field, const QString& table, const QString& id, QSqlDatabase* db);
    /// The rows removed, -1 after a failure.
    int removeRecord(const QString& table, const QString& id, QSqlDatabase* db);
    bool existRecord(const QString& table, const QString& id, QSqlDatabase* db);
    /// The rows that meet @p condition, which is never empty: "1=1" for all. -1 after a failure.
    int numRecords(const QString& table, const QString& condition, QSqlDatabase* db);
    /// The largest ID; empty for an empty table, "Error" after a failure.
    QString getLastId(const QString& table, QSqlDatabase* db);
    /// Adds a row of default values and returns getLastId(): another program's, if it adds one in between.
    QString newRecord(const QString& table, QSqlDatabase* db);
    /// As newRecord(), within a transaction. That is committed in any case, there is no way back. **So is one that
    /// was begun before, with all it has done so far**: within a transaction use newRecord().
    QString safeNewRecord(const QString& table, QSqlDatabase* db);

    // Sequences. Values are taken as 32-bit integers: another text counts as 0, and sums wrap around.

    /// The last value, as text.
    QString sequenceValue(const QString& sequence, QSqlDatabase* db);
    void setSequence(const QString& sequence, int value, QSqlDatabase* db);
    /// Adds @p step to the last value and returns the value before. Not atomic: another program's step in between
    /// is lost. **Where the value cannot be read the result is empty, and the numbering begins anew with @p step.**
    /// Numbers that must not come twice: executeSelectQuery("select nextval('...')", db).
    QString incrementSequence(const QString& sequence, int step, QSqlDatabase* db);
    QString decrementSequence(const QString& sequence, int step, QSqlDatabase* db);
    /// Takes @p step off if the last value, read on the default connection, is not less than that. False, and
    /// nothing changed, otherwise. True says that the new value was sent: the server refuses 0 for a sequence
    /// whose minimum is 1.
    bool decrementSequenceIfPositive(const QString& sequence, int step, QSqlDatabase* db);

    // Transactions

    void begin(QSqlDatabase* db);
    /// **Does not tell whether the server has committed.** With @p db given, a COMMIT that the server refuses (a
    /// deferred constraint), or makes a rollback of (after a statement that failed), shows only in db->lastError(),
    /// which may also be an older one, or none on a connection that is broken. With null the first is logged and the
    /// second shows nowhere. What tells is the result of db->commit().
    void commit(QSqlDatabase* db);
    void rollback(QSqlDatabase* db);

private:
    void logDebug(const QString& text);
    void logError(const QString& text);
    /// @p sql executed and shown. Its method text is that of all three select operations.
    QSqlQuery selectQuery(const QString& sql, QSqlDatabase* db);
    QSqlQuery shownQuery(const QString& method, const QString& sql, QSqlDatabase* db);

    Logger* logger; ///< of the log manager, null if none was set
};

// Its code is the library's alone, so that whoever asks finds the same one.
extern template class SyncSingleton<DatabaseManager>;

#endif
