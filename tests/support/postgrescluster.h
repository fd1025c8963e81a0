#ifndef ZELMORA_TESTS_SUPPORT_POSTGRESCLUSTER_H
#define ZELMORA_TESTS_SUPPORT_POSTGRESCLUSTER_H

#include <QByteArrayList>
#include <QHash>
#include <QString>

/// A PostgreSQL server of the test's own: initdb and pg_ctl in a scratch folder, as an unprivileged user, reached
/// through a Unix socket in that folder and nothing else. It stops and its folder goes when this is destroyed, and
/// also when the test's process ends in any other way.
///
/// The server wants passwords and logs every statement. What cannot be done is fatal to the test, a missing server
/// package too.
class PostgresCluster {
public:
    /// Started. The environment loses what PostgreSQL's programs take from it, such as a developer's PGHOST.
    PostgresCluster();
    ~PostgresCluster();

    PostgresCluster(const PostgresCluster&) = delete;
    PostgresCluster& operator=(const PostgresCluster&) = delete;

    QString host() const; ///< for the setting "zelmora.db.hostname": the socket's folder
    static QString database(); ///< an empty one
    static QString user(); ///< a superuser
    static QString password();

    void start();
    void stop(); ///< as an operator does: sessions are ended
    void kill(); ///< at once, as a power cut does

    /// The statements that arrived at the server since the last call, one entry each, as they were sent.
    QByteArrayList newStatements();

private:
    void obey(const QByteArray& command);
    /// What the script says when it has done something. What else it says is of a failure, and fatal.
    QByteArray answer();
    QByteArrayList newLogRecords();

    int script; ///< a socket, its standard input and output
    QByteArray folder;
    qint64 logBytesRead = 0;
    QHash<QByteArray, QByteArray> lastLogged; ///< of each process of the server: a statement that may fail yet
};

#endif
