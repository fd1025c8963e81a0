#include "db/databasemanager.h"
#include "remarks.h"
#include "support/postgrescluster.h"
#include "support/threads.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QtTest>

/// A process in which nobody set a logger: every operation works and is silent, and threads may use the one manager
/// side by side.
class TestDatabaseWithoutLogger : public QObject {
    Q_OBJECT

private slots:
    void operations();
    void failures();
    void threads();

private:
    QSqlDatabase* connect(const QString& name, const QString& database = PostgresCluster::database());

    PostgresCluster server;
    DatabaseManager* const manager = SyncSingleton<DatabaseManager>::instance();
};

QSqlDatabase* TestDatabaseWithoutLogger::connect(const QString& name, const QString& database)
{
    return manager->createConnection("QPSQL7", database, PostgresCluster::user(), PostgresCluster::password(),
                                     server.host(), name);
}

void TestDatabaseWithoutLogger::operations()
{
    const QByteArray said = remarks([this] {
        QVERIFY(connect(QString()));
        QCOMPARE(manager->executeQuery("create table orders (id serial primary key, name text)", nullptr), 0);
        manager->begin(nullptr);
        QCOMPARE(manager->newRecord("orders", nullptr), QString("1"));
        manager->rollback(nullptr);
        QCOMPARE(manager->safeNewRecord("orders", nullptr), QString("2"));
        manager->begin(nullptr);
        QCOMPARE(manager->executeQuery("update orders set name = 'x'", nullptr), 1);
        manager->commit(nullptr);
        QCOMPARE(manager->executeSelectQuery("select name from orders", nullptr), QString("x"));
        QCOMPARE(manager->executeSelectQuery2("select id from orders", nullptr), QStringList {"2"});
        QCOMPARE(manager->executeSelectQuery3("select name, id from orders", 2, nullptr), QStringList({"x", "2"}));
        QCOMPARE(manager->getField("name", "orders", "2", nullptr), QString("x"));
        QVERIFY(manager->existRecord("orders", "2", nullptr));
        QCOMPARE(manager->numRecords("orders", "1=1", nullptr), 1);
        QCOMPARE(manager->removeRecord("orders", "2", nullptr), 1);
        manager->setSequence("orders_id_seq", 5, nullptr);
        QCOMPARE(manager->incrementSequence("orders_id_seq", 3, nullptr), QString("5"));
        QCOMPARE(manager->decrementSequence("orders_id_seq", 2, nullptr), QString("8"));
        QVERIFY(manager->decrementSequenceIfPositive("orders_id_seq", 5, nullptr));
        QCOMPARE(manager->sequenceValue("orders_id_seq", nullptr), QString("1"));
    });
    QCOMPARE(said, QByteArray());
}

void TestDatabaseWithoutLogger::failures()
{
    const QByteArray said = remarks([this] {
        QVERIFY(!connect("nowhere", "nowhere"));
        QCOMPARE(manager->executeQuery("selec", nullptr), -1);
        QCOMPARE(manager->getLastId("drinks", nullptr), QString("Error"));
        QSqlQuery query("selec");
        manager->showQueryError("failures()", query);
        QSqlTableModel cursor;
        cursor.setTable("drinks");
        QCOMPARE(cursor.lastError().type(), QSqlError::StatementError);
        manager->showCursorError("failures()", cursor);
    });
    QCOMPARE(said, QByteArray());
    remarks([this] { // of the toolkit, which misses the driver
        QVERIFY(!manager->createConnection("QNONE", QString(), QString(), QString(), QString(), "none"));
    });
}

// Each thread with a connection of its own, made and replaced while the others make and use theirs.
void TestDatabaseWithoutLogger::threads()
{
    const int threadCount = 8;
    std::atomic<int> good {0};
    const QByteArray said = remarks([this, &good] {
        runTogether(threadCount, [this, &good](int i) {
            const QString name = QString("thread %1").arg(i);
            const QString table = QString("orders_%1").arg(i);
            for (int round = 0; round < 3; ++round) {
                QSqlDatabase* const db = connect(name);
                if (!db)
                    return;
                manager->executeQuery("create temporary table " + table + " (id serial primary key)", db);
                for (int id = 1; id <= 20; ++id)
                    good += manager->safeNewRecord(table, db) == QString::number(id);
                good += manager->numRecords(table, "1=1", db) == 20;
                if (round == 2)
                    db->close(); // by the thread that it belongs to
            }
        });
    });
    QCOMPARE(said, QByteArray());
    QCOMPARE(good.load(), threadCount * 3 * 21);
}

QTEST_GUILESS_MAIN(TestDatabaseWithoutLogger)
#include "tst_databasewithoutlogger.moc"
