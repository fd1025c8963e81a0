#include "managerlog.h"

#include "log/hlogmanager.h"
#include "support/settings.h"

#include <QFile>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>

ManagerLog::ManagerLog(const QByteArray& level)
{
    useSettings("zelmora: { logger: { level = " + level + "; basedir = \"" + QFile::encodeName(folder.path())
                + "\"; filename = log; type = OVERWRITE; }; };");
    SyncSingleton<HLogManager>::instance()->set(QString(), QString());
    newRecords(); // "Start Logger"
}

QStringList ManagerLog::newRecords()
{
    QFile log(folder.filePath("log"));
    if (!log.open(QIODevice::ReadOnly) || !log.seek(bytesRead))
        qFatal("The log can't be read.");
    const QString text = QString::fromUtf8(log.readAll());
    bytesRead = log.pos();

    const QRegularExpression time("^\\[\\d\\d-\\d\\d-\\d{4} \\d\\d:\\d\\d:\\d\\d:\\d{3}\\] ",
                                  QRegularExpression::MultilineOption);
    QStringList records = text.split(time);
    if (!records.takeFirst().isEmpty())
        qFatal("The log does not begin with a time.");
    for (QString& record : records) {
        if (!record.endsWith('\n'))
            qFatal("A record of the log has no end.");
        record.chop(1);
    }
    return records;
}

QStringList shown(const QString& method, const QString& sql, int rows)
{
    return {"DEBUG: Query called from method " + method + ": " + sql,
            "DEBUG:     numRowsAffected: " + QString::number(rows)};
}

QStringList failed(const QString& method, const QString& sql, const QString& databaseText)
{
    return shown(method, sql, -1) << "ERROR: Error in the method " + method + ", to query: " + sql
                                  << "ERROR: " + databaseText;
}

QString databaseText(const QString& sql, const QSqlDatabase& db)
{
    const QString text = QSqlQuery(sql, db).lastError().databaseText();
    if (text.isEmpty())
        qFatal("The server has nothing against \"%s\".", qPrintable(sql));
    return text;
}
