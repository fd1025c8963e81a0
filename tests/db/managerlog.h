#ifndef ZELMORA_TESTS_DB_MANAGERLOG_H
#define ZELMORA_TESTS_DB_MANAGERLOG_H

#include <QSqlDatabase>
#include <QStringList>
#include <QTemporaryDir>

/// A log file for the managers that are made from now on: it belongs to the logger of the empty name. The settings
/// are those of this log and nothing else.
class ManagerLog {
public:
    explicit ManagerLog(const QByteArray& level = "DEBUG");

    /// The records since the last call, without their times: "DEBUG: BEGIN\n\n".
    QStringList newRecords();

private:
    QTemporaryDir folder;
    qint64 bytesRead = 0;
};

/// The records of a statement that succeeded.
QStringList shown(const QString& method, const QString& sql, int rows);
/// The records of a statement that failed, with the database's text as it must be.
QStringList failed(const QString& method, const QString& sql, const QString& databaseText);

/// What the toolkit reports of @p sql, which must fail, when it is executed without a manager.
QString databaseText(const QString& sql, const QSqlDatabase& db);

#endif
