#include "databasefixture.h"
#include "remarks.h"

#include <QtTest>

#include <functional>

/// The record operations, on the default connection by null and on another one: statement at the server, result, log
/// records.
class TestDatabaseRecords : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void getField_data();
    void getField();
    void removeRecord_data();
    void removeRecord();
    void existRecord_data();
    void existRecord();
    void numRecords_data();
    void numRecords();
    void getLastId_data();
    void getLastId();
    void newRecord_data();
    void newRecord();
    void failures_data();
    void failures();
    void failedInsert_data();
    void failedInsert();
    void failedGetLastId_data();
    void failedGetLastId();

private:
    QSqlDatabase* fetchedConnection() const;

    DatabaseFixture on;
};

/// An operation with its check.
using Operation = std::function<void(DatabaseManager*, QSqlDatabase*)>;
Q_DECLARE_METATYPE(Operation)

namespace {

/// Whether it is the other connection, or null.
void addConnectionColumn()
{
    QTest::addColumn<bool>("second");
}

void addConnectionRows()
{
    addConnectionColumn();
    QTest::newRow("by null") << false;
    QTest::newRow("in the second database") << true;
}

const char existMethod[] = "DatabaseManager::existRecord(...)";

} // namespace

// The two tables of a name differ in all rows.
void TestDatabaseRecords::initTestCase()
{
    on.executeInBoth("create table orders (id serial primary key, name text default 'a new one', seats integer)");
    on.executeInBoth("create table named_tables (id serial primary key, name text not null)");
    on.executeInBoth("create table empty_tables (id integer)");
    on.executeInBoth("create table words (id text)");
}

void TestDatabaseRecords::init()
{
    on.executeInBoth("truncate orders, named_tables, words restart identity");
    on.execute("insert into orders (name, seats) values ('first', 4), ('second', null), ('third', 0)", on.first);
    on.execute("insert into orders (name) values ('è €')", on.second);
    on.executeInBoth("insert into words values ('a'), ('b')");
}

void TestDatabaseRecords::cleanup()
{
    QCOMPARE(on.newRecords(), QStringList()); // each test knows them all
    QCOMPARE(on.newStatements(), QStringList());
}

QSqlDatabase* TestDatabaseRecords::fetchedConnection() const
{
    QFETCH(bool, second);
    return second ? on.second : nullptr;
}

void TestDatabaseRecords::getField_data()
{
    addConnectionColumn();
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("value");

    const auto row = [](const char* name, bool second, const char* field, const char* id, const char* sql, int rows,
                        const char* value) { QTest::newRow(name) << second << field << id << sql << rows << value; };
    row("a text", false, "name", "2", "select name from orders where id = 2", 1, "second");
    row("a text of the second database", true, "name", "1", "select name from orders where id = 1", 1, "è €");
    row("a number", false, "seats", "1", "select seats from orders where id = 1", 1, "4");
    row("a number that is 0", false, "seats", "3", "select seats from orders where id = 3", 1, "0");
    row("NULL", false, "seats", "2", "select seats from orders where id = 2", 1, "");
    row("a row that is not there", true, "name", "2", "select name from orders where id = 2", 0, "");
    row("an expression", false, "upper(name)", "1", "select upper(name) from orders where id = 1", 1, "FIRST");
    row("the first of several fields", false, "name, seats", "1", "select name, seats from orders where id = 1", 1,
        "first");
    row("a condition instead of an id", false, "name", "3 or name = 'first' order by id",
        "select name from orders where id = 3 or name = 'first' order by id", 2, "first");
}

void TestDatabaseRecords::getField()
{
    QFETCH(QString, field);
    QFETCH(QString, id);
    QFETCH(QString, sql);
    QFETCH(int, rows);
    QFETCH(QString, value);

    const QString result = on.manager->getField(field, "orders", id, fetchedConnection());
    QCOMPARE(on.newStatements(), QStringList {sql});
    QCOMPARE(on.newRecords(), shown("DatabaseManager::getField(...)", sql, rows));
    QCOMPARE(result, value);
}

void TestDatabaseRecords::removeRecord_data()
{
    addConnectionColumn();
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("left");

    QTest::newRow("a row") << false << "2"
                           << "delete from orders where ID = 2" << 1 << "first, third";
    QTest::newRow("a row of the second database") << true << "1"
                                                  << "delete from orders where ID = 1" << 1 << "";
    QTest::newRow("a row that is not there") << true << "2"
                                             << "delete from orders where ID = 2" << 0 << "è €";
    QTest::newRow("two rows by a condition") << false << "1 or ID = 3"
                                             << "delete from orders where ID = 1 or ID = 3" << 2 << "second";
}

void TestDatabaseRecords::removeRecord()
{
    QFETCH(QString, id);
    QFETCH(QString, sql);
    QFETCH(int, rows);
    QFETCH(QString, left);

    QCOMPARE(on.manager->removeRecord("orders", id, fetchedConnection()), rows);
    QCOMPARE(on.newStatements(), QStringList {sql});
    QCOMPARE(on.newRecords(), shown("removeRecord", sql, rows));
    QCOMPARE(on.execute("select string_agg(name, ', ' order by id) from orders", on.orDefault(fetchedConnection())),
             left);
}

void TestDatabaseRecords::existRecord_data()
{
    addConnectionColumn();
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("rows");

    QTest::newRow("a row") << false << "3"
                           << "select * from orders where ID = 3" << 1;
    QTest::newRow("a row that is not there") << false << "4"
                                             << "select * from orders where ID = 4" << 0;
    QTest::newRow("a row of the second database") << true << "1"
                                                  << "select * from orders where ID = 1" << 1;
    QTest::newRow("a row of the first database alone") << true << "3"
                                                       << "select * from orders where ID = 3" << 0;
    QTest::newRow("several rows by a condition") << false << "1 or ID = 2"
                                                 << "select * from orders where ID = 1 or ID = 2" << 2;
}

void TestDatabaseRecords::existRecord()
{
    QFETCH(QString, id);
    QFETCH(QString, sql);
    QFETCH(int, rows);

    QCOMPARE(on.manager->existRecord("orders", id, fetchedConnection()), rows > 0);
    QCOMPARE(on.newStatements(), QStringList {sql});
    QCOMPARE(on.newRecords(), shown(existMethod, sql, rows));
}

void TestDatabaseRecords::numRecords_data()
{
    addConnectionColumn();
    QTest::addColumn<QString>("condition");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("rows"); // of the answer
    QTest::addColumn<int>("count");

    const QString all = "select count(*) from orders where 1=1";
    QTest::newRow("all") << false << "1=1" << all << 1 << 3;
    QTest::newRow("all of the second database") << true << "1=1" << all << 1 << 1;
    QTest::newRow("some") << false << "id > 1"
                          << "select count(*) from orders where id > 1" << 1 << 2;
    QTest::newRow("none") << false << "id > 9"
                          << "select count(*) from orders where id > 9" << 1 << 0;
    QTest::newRow("no answer") << false << "1=1 having false"
                               << "select count(*) from orders where 1=1 having false" << 0 << -1;
}

void TestDatabaseRecords::numRecords()
{
    QFETCH(QString, condition);
    QFETCH(QString, sql);
    QFETCH(int, rows);
    QFETCH(int, count);

    QCOMPARE(on.manager->numRecords("orders", condition, fetchedConnection()), count);
    QCOMPARE(on.newStatements(), QStringList {sql});
    QCOMPARE(on.newRecords(), shown(existMethod, sql, rows));
}

void TestDatabaseRecords::getLastId_data()
{
    addConnectionColumn();
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("id");

    QTest::newRow("the largest") << false << "orders"
                                 << "3";
    QTest::newRow("the largest of the second database") << true << "orders"
                                                        << "1";
    QTest::newRow("a text") << false << "words"
                            << "b";
    QTest::newRow("none in an empty table") << false << "empty_tables"
                                            << "";
    QTest::newRow("none in an empty table of the second database") << true << "empty_tables"
                                                                   << "";
}

void TestDatabaseRecords::getLastId()
{
    QFETCH(QString, table);
    QFETCH(QString, id);

    const QString sql = "select max(ID) from " + table;
    const QString result = on.manager->getLastId(table, fetchedConnection());
    QCOMPARE(on.newStatements(), QStringList {sql});
    QCOMPARE(on.newRecords(), shown("getLastId", sql, 1));
    QCOMPARE(result, id);
}

void TestDatabaseRecords::newRecord_data()
{
    addConnectionColumn();
    QTest::addColumn<QString>("id");
    QTest::newRow("a fourth row") << false << "4";
    QTest::newRow("a second row of the second database") << true << "2";
}

void TestDatabaseRecords::newRecord()
{
    QFETCH(QString, id);

    QCOMPARE(on.manager->newRecord("orders", fetchedConnection()), id);
    const QString insert = "insert into orders values(default)";
    const QString select = "select max(ID) from orders";
    QCOMPARE(on.newStatements(), QStringList({insert, select}));
    QCOMPARE(on.newRecords(), shown("newRecord", insert, 1) + shown("getLastId", select, 1));
    QCOMPARE(
        on.execute("select name from orders where seats is null and id = " + id, on.orDefault(fetchedConnection())),
        QString("a new one"));
}

void TestDatabaseRecords::failures_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("reason"); // the server's

    const auto getField = [](const char* field, const char* table, const char* id) {
        return Operation([=](DatabaseManager* manager, QSqlDatabase* db) {
            QCOMPARE(manager->getField(field, table, id, db), QString());
        });
    };
    const auto removeRecord = [](const char* table, const char* id) {
        return Operation(
            [=](DatabaseManager* manager, QSqlDatabase* db) { QCOMPARE(manager->removeRecord(table, id, db), -1); });
    };
    const auto existRecord = [](const char* table, const char* id) {
        return Operation(
            [=](DatabaseManager* manager, QSqlDatabase* db) { QVERIFY(!manager->existRecord(table, id, db)); });
    };
    const auto numRecords = [](const char* table, const char* condition) {
        return Operation([=](DatabaseManager* manager, QSqlDatabase* db) {
            QCOMPARE(manager->numRecords(table, condition, db), -1);
        });
    };

    const QString getMethod = "DatabaseManager::getField(...)";
    QTest::newRow("getField, a missing table")
        << getField("name", "drinks", "1") << getMethod << "select name from drinks where id = 1"
        << "relation \"drinks\" does not exist";
    QTest::newRow("getField, a missing column")
        << getField("colour", "orders", "1") << getMethod << "select colour from orders where id = 1"
        << "column \"colour\" does not exist";
    QTest::newRow("getField, no id") << getField("name", "orders", "") << getMethod
                                     << "select name from orders where id = "
                                     << "syntax error at end of input";
    QTest::newRow("removeRecord, a missing table") << removeRecord("drinks", "1") << "removeRecord"
                                                   << "delete from drinks where ID = 1"
                                                   << "relation \"drinks\" does not exist";
    QTest::newRow("removeRecord, a wrong id") << removeRecord("orders", "one") << "removeRecord"
                                              << "delete from orders where ID = one"
                                              << "column \"one\" does not exist";
    QTest::newRow("existRecord, a missing table")
        << existRecord("drinks", "1") << existMethod << "select * from drinks where ID = 1"
        << "relation \"drinks\" does not exist";
    QTest::newRow("numRecords, a missing table")
        << numRecords("drinks", "1=1") << existMethod << "select count(*) from drinks where 1=1"
        << "relation \"drinks\" does not exist";
    QTest::newRow("numRecords, no condition")
        << numRecords("orders", "") << existMethod << "select count(*) from orders where "
        << "syntax error at end of input";
}

void TestDatabaseRecords::failures()
{
    QFETCH(Operation, operation);
    QFETCH(QString, method);
    QFETCH(QString, sql);
    QFETCH(QString, reason);
    const QString text = databaseText(sql, *on.second);
    QVERIFY2(text.contains("ERROR:  " + reason), qPrintable(text));
    on.newStatements();

    const QByteArray said = remarks([this, &operation] { operation(on.manager, on.second); });
    QCOMPARE(said, QByteArray());
    QCOMPARE(on.newStatements(), QStringList {sql});
    QCOMPARE(on.newRecords(), failed(method, sql.trimmed(), text));
}

void TestDatabaseRecords::failedInsert_data()
{
    addConnectionRows();
}

// The rows that are there already have a last id.
void TestDatabaseRecords::failedInsert()
{
    QSqlDatabase* const db = fetchedConnection();
    const QString insert = "insert into named_tables values(default)";
    const QString select = "select max(ID) from named_tables";
    const QString text = databaseText(insert, *on.orDefault(db));
    QVERIFY(text.contains("null value in column \"name\""));
    on.execute("truncate named_tables restart identity", on.orDefault(db)); // the text names the failing row's id
    on.execute("insert into named_tables (id, name) values (7, 'window')", on.orDefault(db));

    const QString id = on.manager->newRecord("named_tables", db);
    QCOMPARE(on.newStatements(), QStringList({insert, select}));
    QCOMPARE(on.newRecords(), failed("newRecord", insert, text) + shown("getLastId", select, 1));
    QCOMPARE(id, QString("7"));
}

void TestDatabaseRecords::failedGetLastId_data()
{
    addConnectionRows();
}

void TestDatabaseRecords::failedGetLastId()
{
    QSqlDatabase* const db = fetchedConnection();
    const QString insert = "insert into drinks values(default)";
    const QString select = "select max(ID) from drinks";
    const QString insertText = databaseText(insert, *on.orDefault(db));
    const QString selectText = databaseText(select, *on.orDefault(db));
    const QStringList lastIdRecords = failed("getLastId", select, selectText)
        << "ERROR: getLastId( drinks ): select max(ID) from drinks return empty result";
    on.newStatements();

    QCOMPARE(on.manager->getLastId("drinks", db), QString("Error"));
    QCOMPARE(on.newStatements(), QStringList {select});
    QCOMPARE(on.newRecords(), lastIdRecords);

    QCOMPARE(on.manager->newRecord("drinks", db), QString("Error"));
    QCOMPARE(on.newStatements(), QStringList({insert, select}));
    QCOMPARE(on.newRecords(), failed("newRecord", insert, insertText) + lastIdRecords);
}

QTEST_GUILESS_MAIN(TestDatabaseRecords)
#include "tst_databaserecords.moc"
