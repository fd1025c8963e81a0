#include "databasefixture.h"
#include "remarks.h"

#include <QSqlError>
#include <QtTest>

/// Transactions: on the default connection by null they are statements like any other, on a connection that is given
/// they are the toolkit's.
class TestDatabaseTransactions : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data(); // for all of them
    void initTestCase();
    void init();
    void cleanup();

    void words();
    void effect();
    void outsideOfATransaction();
    void failedTransaction();
    void refusedCommit();
    void errorOfTheConnection();
    void safeNewRecord();
    void safeNewRecordThatFails();
    void safeNewRecordWithinATransaction();

private:
    QSqlDatabase* connection() const;
    /// The records of the transaction's step @p word.
    QStringList stepRecords(const QString& word) const;
    QString count(); ///< of the rows, as another session sees them

    DatabaseFixture on;
    QSqlDatabase* const observer = on.connect("observer");
    QSqlDatabase* const secondObserver = on.connect("second observer", "second");
};

namespace {

const char addRow[] = "insert into orders values (default)";

} // namespace

void TestDatabaseTransactions::initTestCase_data()
{
    QTest::addColumn<bool>("second"); // the other connection, or null
    QTest::newRow("by null") << false;
    QTest::newRow("on the second connection") << true;
}

void TestDatabaseTransactions::initTestCase()
{
    on.executeInBoth("create table orders (id serial primary key)");
    on.executeInBoth("create table named_tables (id serial primary key, name text not null)");
    on.executeInBoth("create table bills (paid integer references orders deferrable initially deferred)");
}

void TestDatabaseTransactions::init()
{
    on.executeInBoth("truncate orders, bills restart identity");
    on.newRecords(); // of the observers
}

void TestDatabaseTransactions::cleanup()
{
    QCOMPARE(on.newRecords(), QStringList()); // each test knows them all
    QCOMPARE(on.newStatements(), QStringList());
}

QSqlDatabase* TestDatabaseTransactions::connection() const
{
    QFETCH_GLOBAL(bool, second);
    return second ? on.second : nullptr;
}

QStringList TestDatabaseTransactions::stepRecords(const QString& word) const
{
    const QStringList query = connection() ? QStringList() : shown("executeQuery(...)", word, 0);
    return query + QStringList {"DEBUG: " + word + "\n\n"};
}

QString TestDatabaseTransactions::count()
{
    return on.execute("select count(*) from orders", connection() ? secondObserver : observer);
}

void TestDatabaseTransactions::words()
{
    QSqlDatabase* const db = connection();
    on.manager->begin(db);
    QCOMPARE(on.newStatements(), QStringList {"BEGIN"});
    QCOMPARE(on.newRecords(), stepRecords("BEGIN"));
    on.manager->commit(db);
    QCOMPARE(on.newStatements(), QStringList {"COMMIT"});
    QCOMPARE(on.newRecords(), stepRecords("COMMIT"));
    on.manager->begin(db);
    on.manager->rollback(db);
    QCOMPARE(on.newStatements(), QStringList({"BEGIN", "ROLLBACK"}));
    QCOMPARE(on.newRecords(), stepRecords("BEGIN") + stepRecords("ROLLBACK"));
}

void TestDatabaseTransactions::effect()
{
    QSqlDatabase* const db = connection();
    on.manager->begin(db);
    on.manager->executeQuery(addRow, db);
    QCOMPARE(count(), QString("0"));
    on.manager->commit(db);
    QCOMPARE(count(), QString("1"));

    on.manager->begin(db);
    on.manager->executeQuery(addRow, db);
    QCOMPARE(on.manager->numRecords("orders", "1=1", db), 2);
    on.manager->rollback(db);
    QCOMPARE(on.manager->numRecords("orders", "1=1", db), 1);
    QCOMPARE(count(), QString("1"));
    on.newRecords();
}

// The server warns, and its library passes that on to standard error: it is no error, and not in the log.
void TestDatabaseTransactions::outsideOfATransaction()
{
    QSqlDatabase* const db = connection();
    const QByteArray said = remarks([this, db] {
        on.manager->commit(db);
        on.manager->rollback(db);
        on.manager->begin(db);
        on.manager->begin(db);
        on.manager->rollback(db);
    });
    QCOMPARE(said,
             QByteArray("WARNING:  there is no transaction in progress\n"
                        "WARNING:  there is no transaction in progress\n"
                        "WARNING:  there is already a transaction in progress\n"));
    QCOMPARE(on.newStatements(), QStringList({"COMMIT", "ROLLBACK", "BEGIN", "BEGIN", "ROLLBACK"}));
    QCOMPARE(on.newRecords(),
             stepRecords("COMMIT") + stepRecords("ROLLBACK") + stepRecords("BEGIN") + stepRecords("BEGIN")
                 + stepRecords("ROLLBACK"));
}

// After a failure nothing counts until the end, which is a rollback whatever it is called. The toolkit's own end of a
// transaction knows that, and its result is of no interest.
void TestDatabaseTransactions::failedTransaction()
{
    QSqlDatabase* const db = connection();
    const QString bad = "select 1 / 0";
    const QString text = databaseText(bad, *on.first);
    on.newStatements();

    on.manager->begin(db);
    on.manager->executeQuery(addRow, db);
    on.manager->executeQuery(bad, db);
    on.newRecords();
    const QString ignored = "current transaction is aborted, commands ignored until end of transaction block";
    QCOMPARE(on.manager->executeQuery(addRow, db), -1);
    const QString ignoredText = databaseText(addRow, *on.orDefault(db));
    QVERIFY(ignoredText.contains(ignored));
    QCOMPARE(on.newRecords(), failed("executeQuery(...)", addRow, ignoredText));
    on.manager->commit(db);
    QCOMPARE(on.newRecords(), stepRecords("COMMIT"));
    QCOMPARE(on.newStatements(), QStringList({"BEGIN", addRow, bad, addRow, addRow, "COMMIT"}));
    QCOMPARE(count(), QString("0"));
    QCOMPARE(on.manager->executeQuery(addRow, db), 1); // it goes on
    QCOMPARE(count(), QString("1"));
    on.newRecords();
}

// What is checked only at the end can be refused there. By null that is a statement like any other; on a connection
// that is given it shows in that connection's error alone.
void TestDatabaseTransactions::refusedCommit()
{
    QSqlDatabase* const db = connection();
    on.manager->begin(db);
    QCOMPARE(on.manager->executeQuery("insert into bills values (99)", db), 1);
    QVERIFY(!on.orDefault(db)->lastError().isValid());
    on.newRecords();
    on.manager->commit(db);

    const QString reason = "ERROR:  insert or update on table \"bills\" violates foreign key constraint "
                           "\"bills_paid_fkey\"\nDETAIL:  Key (paid)=(99) is not present in table \"orders\".\n"
                           "(23503)";
    const QStringList query = db ? QStringList() : failed("executeQuery(...)", "COMMIT", reason);
    QCOMPARE(on.newRecords(), query + QStringList {"DEBUG: COMMIT\n\n"});
    QCOMPARE(on.orDefault(db)->lastError().databaseText(), reason);
    QCOMPARE(on.manager->numRecords("bills", "1=1", db), 0);
    on.newRecords();
    on.newStatements();
}

// It is that of the last statement, whoever asks.
void TestDatabaseTransactions::errorOfTheConnection()
{
    QSqlDatabase* const db = connection();
    on.manager->executeQuery("select 1 / 0", db);
    QVERIFY(on.orDefault(db)->lastError().databaseText().contains("division by zero"));
    on.manager->executeQuery("select 1", db);
    QVERIFY(!on.orDefault(db)->lastError().isValid());
    on.newRecords();
    on.newStatements();
}

void TestDatabaseTransactions::safeNewRecord()
{
    QSqlDatabase* const db = connection();
    on.execute("insert into orders (id) values (41)", on.orDefault(db));
    on.execute("select setval('orders_id_seq', 41)", on.orDefault(db));

    QCOMPARE(on.manager->safeNewRecord("orders", db), QString("42"));
    const QString insert = "insert into orders values(default)";
    const QString select = "select max(ID) from orders";
    QCOMPARE(on.newStatements(), QStringList({"BEGIN", insert, select, "COMMIT"}));
    QCOMPARE(on.newRecords(),
             stepRecords("BEGIN") + shown("newRecord", insert, 1) + shown("getLastId", select, 1)
                 + stepRecords("COMMIT"));
    QCOMPARE(count(), QString("2"));
}

void TestDatabaseTransactions::safeNewRecordThatFails()
{
    QSqlDatabase* const db = connection();
    const QString insert = "insert into named_tables values(default)";
    const QString select = "select max(ID) from named_tables";
    on.execute("truncate named_tables restart identity", on.orDefault(db)); // the text names the failing row's id
    const QString insertText = databaseText(insert, *on.orDefault(db));
    on.execute("truncate named_tables restart identity", on.orDefault(db));

    const QByteArray said =
        remarks([this, db] { QCOMPARE(on.manager->safeNewRecord("named_tables", db), QString("Error")); });
    QCOMPARE(said, QByteArray());
    QCOMPARE(on.newStatements(), QStringList({"BEGIN", insert, select, "COMMIT"}));

    on.execute("begin", on.orDefault(db));
    databaseText("select 1 / 0", *on.orDefault(db));
    const QString selectText = databaseText(select, *on.orDefault(db));
    on.execute("rollback", on.orDefault(db));
    QCOMPARE(on.newRecords(),
             stepRecords("BEGIN") + failed("newRecord", insert, insertText) + failed("getLastId", select, selectText)
                 + QStringList {"ERROR: getLastId( named_tables ): " + select + " return empty result"}
                 + stepRecords("COMMIT"));
    QCOMPARE(on.manager->numRecords("named_tables", "1=1", db), 0); // it goes on
    on.newRecords();
    on.newStatements();
}

// It ends the one around it, with all that this has done so far.
void TestDatabaseTransactions::safeNewRecordWithinATransaction()
{
    QSqlDatabase* const db = connection();
    const QByteArray said = remarks([this, db] {
        on.manager->begin(db);
        on.manager->executeQuery(addRow, db);
        QCOMPARE(on.manager->safeNewRecord("orders", db), QString("2"));
        on.manager->rollback(db);
    });
    QCOMPARE(said,
             QByteArray("WARNING:  there is already a transaction in progress\n"
                        "WARNING:  there is no transaction in progress\n"));
    QCOMPARE(count(), QString("2"));
    on.newRecords();
}

QTEST_GUILESS_MAIN(TestDatabaseTransactions)
#include "tst_databasetransactions.moc"
