#include "databasefixture.h"
#include "remarks.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QtTest>

/// Statements of any kind and the four ways to execute them: what arrives at the server, what comes back, what the
/// log says.
class TestDatabaseQueries : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void executeQuery_data();
    void executeQuery();
    void selects_data();
    void selects();
    void columnsThatAreNotThere();
    void database();
    void emptyStatement();
    void blanksAround();

    void failures_data();
    void failures();

    void showQueryError();
    void typedText();
    void showCursorError_data();
    void showCursorError();
    void threshold();
    void otherLogger();

private:
    QStringList selected(int operation, const QString& sql, QSqlDatabase* db);

    DatabaseFixture on;
};

namespace {

/// What all three select operations call themselves.
const char selectMethod[] = "executeSelectQuery(...)";

enum Operation { Query, Select, Select2, Select3 };

} // namespace

void TestDatabaseQueries::initTestCase()
{
    on.execute("create table dishes (id serial primary key, name text, price numeric(8, 2))", on.first);
    on.execute("create table guests (id integer)", on.second);
}

void TestDatabaseQueries::init()
{
    on.execute("truncate dishes restart identity", on.first);
    on.execute("insert into dishes (name, price) values ('Caffè', 1.25), (null, null), ('Coperto', 2.75)", on.first);
}

void TestDatabaseQueries::cleanup()
{
    QCOMPARE(on.newRecords(), QStringList()); // each test knows them all
    QCOMPARE(on.newStatements(), QStringList());
}

/// As a list, whichever of the select operations it is. Of the third it is two columns.
QStringList TestDatabaseQueries::selected(int operation, const QString& sql, QSqlDatabase* db)
{
    switch (operation) {
    case Select:
        return {on.manager->executeSelectQuery(sql, db)};
    case Select2:
        return on.manager->executeSelectQuery2(sql, db);
    default:
        return on.manager->executeSelectQuery3(sql, 2, db);
    }
}

void TestDatabaseQueries::executeQuery_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("rows");

    QTest::newRow("one row added") << "insert into dishes (name) values ('Tiramisù')" << 1;
    QTest::newRow("two rows added") << "insert into dishes (name) values ('Pane'), ('Vino')" << 2;
    QTest::newRow("all rows changed") << "update dishes set price = 3" << 3;
    QTest::newRow("no row changed") << "update dishes set price = 3 where id = 99" << 0;
    QTest::newRow("rows removed") << "delete from dishes where id > 1" << 2;
    QTest::newRow("of several lines, with a tab") << "update dishes\n\tset name = 'a\nb\n'\nwhere id = 1" << 1;
    QTest::newRow("rows selected") << "select * from dishes" << 3;
    QTest::newRow("no row selected") << "select * from dishes where id = 99" << 0;
    QTest::newRow("the definition of a view: no rows")
        << "create or replace view names as select name from dishes" << 0;
    QTest::newRow("a setting of the session: no rows") << "set search_path to public" << 0;
    QTest::newRow("two statements: the rows of the first")
        << "delete from dishes where id = 2; select * from dishes" << 1;
}

void TestDatabaseQueries::executeQuery()
{
    QFETCH(QString, sql);
    QFETCH(int, rows);

    QCOMPARE(on.manager->executeQuery(sql, on.first), rows);
    QCOMPARE(on.newStatements(), QStringList {sql});
    QCOMPARE(on.newRecords(), shown("executeQuery(...)", sql, rows));
}

void TestDatabaseQueries::selects_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QStringList>("expected");

    const QString all = "select name, id from dishes order by id";
    const QString none = "select name, id from dishes where id = 99";
    const QString nulls = "select name, id from dishes where id = 2";
    const QString noColumns = "select from dishes where id = 99";
    QTest::newRow("one value: of the first row") << int(Select) << all << 3 << QStringList {"Caffè"};
    QTest::newRow("one value: no row") << int(Select) << none << 0 << QStringList {""};
    QTest::newRow("one value: NULL") << int(Select) << nulls << 1 << QStringList {""};
    QTest::newRow("one value: no columns") << int(Select) << noColumns << 0 << QStringList {""};
    QTest::newRow("a column: every row in order, NULL too")
        << int(Select2) << all << 3 << QStringList {"Caffè", "", "Coperto"};
    QTest::newRow("a column: in the order of the rows")
        << int(Select2) << "select id from dishes order by id desc" << 3 << QStringList {"3", "2", "1"};
    QTest::newRow("a column: no row") << int(Select2) << none << 0 << QStringList {};
    QTest::newRow("a row: the first, its first columns")
        << int(Select3) << "select name, id, price from dishes order by id" << 3 << QStringList {"Caffè", "1"};
    QTest::newRow("a row: NULL") << int(Select3) << nulls << 1 << QStringList {"", "2"};
    QTest::newRow("a row: no row") << int(Select3) << none << 0 << QStringList {};
}

void TestDatabaseQueries::selects()
{
    QFETCH(int, operation);
    QFETCH(QString, sql);
    QFETCH(int, rows);
    QFETCH(QStringList, expected);

    QCOMPARE(selected(operation, sql, on.first), expected);
    QCOMPARE(on.newStatements(), QStringList {sql});
    QCOMPARE(on.newRecords(), shown(selectMethod, sql, rows));
}

// The toolkit remarks upon each column that is not there.
void TestDatabaseQueries::columnsThatAreNotThere()
{
    const QString sql = "select id, name from dishes order by id";
    const QByteArray said = remarks([this, &sql] {
        QCOMPARE(on.manager->executeSelectQuery3(sql, 4, on.first), QStringList({"1", "Caffè", "", ""}));
    });
    QCOMPARE(said.count('\n'), 2);
    for (const int columns : {0, -1})
        QCOMPARE(on.manager->executeSelectQuery3(sql, columns, on.first), QStringList());
    QCOMPARE(on.newStatements(), QStringList({sql, sql, sql}));
    const QStringList records = shown(selectMethod, sql, 3);
    QCOMPARE(on.newRecords(), records + records + records);
}

void TestDatabaseQueries::database()
{
    const QString sql = "select current_database()";
    QCOMPARE(on.manager->executeSelectQuery(sql, nullptr), PostgresCluster::database());
    QCOMPARE(on.manager->executeSelectQuery(sql, on.second), QString("second"));
    QCOMPARE(on.manager->executeSelectQuery2(sql, nullptr), QStringList {PostgresCluster::database()});
    QCOMPARE(on.manager->executeSelectQuery2(sql, on.second), QStringList {"second"});
    QCOMPARE(on.manager->executeSelectQuery3(sql, 1, nullptr), QStringList {PostgresCluster::database()});
    QCOMPARE(on.manager->executeSelectQuery3(sql, 1, on.second), QStringList {"second"});
    QCOMPARE(on.manager->executeQuery("delete from dishes", nullptr), 3);
    QCOMPARE(on.manager->executeQuery("delete from guests", on.second), 0);

    QStringList statements;
    QStringList records;
    for (int i = 0; i < 6; ++i) {
        statements << sql;
        records << shown(selectMethod, sql, 1);
    }
    QCOMPARE(on.newStatements(),
             statements << "delete from dishes"
                        << "delete from guests");
    QCOMPARE(on.newRecords(),
             records << shown("executeQuery(...)", "delete from dishes", 3)
                     << shown("executeQuery(...)", "delete from guests", 0));
}

// The toolkit executes nothing then, and finds no error.
void TestDatabaseQueries::emptyStatement()
{
    QCOMPARE(on.manager->executeQuery("", on.first), -1);
    QCOMPARE(on.manager->executeSelectQuery("", on.first), QString());
    QCOMPARE(on.newStatements(), QStringList());
    QCOMPARE(on.newRecords(), shown("executeQuery(...)", "", -1) + shown(selectMethod, "", -1));
}

// The server gets them, the toolkit's lastQuery() does not have them.
void TestDatabaseQueries::blanksAround()
{
    QCOMPARE(on.manager->executeQuery("\n  delete from dishes \t\n", on.first), 3);
    QCOMPARE(on.newStatements(), QStringList {"\n  delete from dishes \t\n"});
    QCOMPARE(on.newRecords(), shown("executeQuery(...)", "delete from dishes", 3));
}

void TestDatabaseQueries::failures_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("reason"); // the server's

    QTest::newRow("wrong syntax") << "selec * from dishes"
                                  << "syntax error at or near \"selec\"";
    QTest::newRow("wrong syntax in the second line") << "select *\n\tfrom dishes were id = 1"
                                                     << "syntax error at or near \"id\"";
    QTest::newRow("a missing table") << "select * from drinks"
                                     << "relation \"drinks\" does not exist";
    QTest::newRow("a missing column") << "select colour from dishes"
                                      << "column \"colour\" does not exist";
    QTest::newRow("a key that is there already") << "insert into dishes (id) values (1)"
                                                 << "duplicate key value violates unique constraint \"dishes_pkey\"";
    QTest::newRow("what shows only with the third row") << "select 1 / (3 - id) from dishes order by id"
                                                        << "division by zero";
}

void TestDatabaseQueries::failures()
{
    QFETCH(QString, sql);
    QFETCH(QString, reason);
    const QString text = databaseText(sql, *on.first);
    QVERIFY2(text.contains("ERROR:  " + reason), qPrintable(text));
    on.newStatements();

    const QByteArray said = remarks([this, &sql] {
        QCOMPARE(on.manager->executeQuery(sql, on.first), -1);
        QCOMPARE(on.manager->executeSelectQuery(sql, on.first), QString());
        QCOMPARE(on.manager->executeSelectQuery2(sql, on.first), QStringList());
        QCOMPARE(on.manager->executeSelectQuery3(sql, 2, on.first), QStringList());
    });
    QCOMPARE(said, QByteArray());
    QCOMPARE(on.newStatements(), QStringList({sql, sql, sql, sql}));
    QStringList records = failed("executeQuery(...)", sql, text);
    for (int i = 0; i < 3; ++i)
        records += failed(selectMethod, sql, text);
    QCOMPARE(on.newRecords(), records);

    QCOMPARE(on.execute("select count(*) from dishes", on.first), QString("3")); // it goes on
}

void TestDatabaseQueries::showQueryError()
{
    const QString good = "select id from dishes";
    const QString bad = "select * from drinks";
    QSqlQuery query(good, *on.first);
    on.manager->showQueryError("Kitchen::orders()", query);
    QCOMPARE(on.newRecords(), shown("Kitchen::orders()", good, 3));

    query.exec(bad);
    on.manager->showQueryError("", query);
    QCOMPARE(on.newRecords(), failed("", bad, query.lastError().databaseText()));

    QSqlQuery unused(*on.first);
    on.manager->showQueryError("unused %1", unused);
    QCOMPARE(on.newRecords(), shown("unused %1", "", -1));

    const QString marked = "select id from dishes where name like '%1'";
    query.exec(marked);
    on.manager->showQueryError("%2", query);
    QCOMPARE(on.newRecords(), shown("%2", marked, 0));
    QCOMPARE(on.newStatements(), QStringList({good, bad, marked}));
}

// A text that somebody has typed belongs beside the statement, not in it.
void TestDatabaseQueries::typedText()
{
    const QString within = "insert into dishes (name) values ('Pizza D'Angelo')";
    QCOMPARE(on.manager->executeQuery(within, on.first), -1);
    QVERIFY(on.newRecords().last().startsWith("ERROR: ERROR:  syntax error at or near \"Angelo\""));

    const QString beside = "insert into dishes (id, name) values (7, ?)";
    QSqlQuery query(*on.first);
    query.prepare(beside);
    query.addBindValue("Pizza D'Angelo");
    QVERIFY(query.exec());
    on.manager->showQueryError("Menu::add()", query);
    QCOMPARE(on.newRecords(), shown("Menu::add()", beside, 1)); // without the text
    QCOMPARE(on.manager->getField("name", "dishes", "7", on.first), QString("Pizza D'Angelo"));
    on.newRecords();

    QVERIFY(!query.exec());
    on.manager->showQueryError("Menu::add()", query);
    QCOMPARE(on.newRecords(),
             failed("Menu::add()", beside,
                    "ERROR:  duplicate key value violates unique constraint \"dishes_pkey\"\n"
                    "DETAIL:  Key (id)=(7) already exists.\n(23505)"));
    query.clear(); // which is a statement too
    on.newStatements();
}

void TestDatabaseQueries::showCursorError_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<bool>("wrong");
    QTest::newRow("rows") << "dishes"
                          << "id > 1" << false;
    QTest::newRow("no rows") << "dishes"
                             << "id > 99" << false;
    QTest::newRow("a wrong filter") << "dishes"
                                    << "colour = 1" << true;
    QTest::newRow("a missing table") << "drinks"
                                     << "" << true;
}

void TestDatabaseQueries::showCursorError()
{
    QFETCH(QString, table);
    QFETCH(QString, filter);
    QFETCH(bool, wrong);

    QSqlTableModel cursor(nullptr, *on.first);
    cursor.setTable(table);
    cursor.setFilter(filter);
    QCOMPARE(cursor.select(), !wrong);
    on.newStatements();

    on.manager->showCursorError("Kitchen::orders()", cursor);
    const QStringList errors {"ERROR: Error in the method Kitchen::orders(), to cursor: " + table,
                              "ERROR: " + cursor.lastError().databaseText()};
    QCOMPARE(on.newRecords(), wrong ? errors : QStringList());
}

void TestDatabaseQueries::threshold()
{
    ManagerLog errorsOnly("ERROR");
    DatabaseManager manager;
    const QString bad = "select * from drinks";
    const QString text = databaseText(bad, *on.first);
    on.newStatements();

    QCOMPARE(manager.executeQuery("delete from dishes where id = 1", on.first), 1);
    QCOMPARE(manager.executeSelectQuery(bad, on.first), QString());
    manager.begin(on.first);
    manager.rollback(on.first);
    QCOMPARE(on.newStatements(), QStringList({"delete from dishes where id = 1", bad, "BEGIN", "ROLLBACK"}));
    QCOMPARE(errorsOnly.newRecords(), failed("executeSelectQuery(...)", bad, text).mid(2));
}

// A manager keeps the logger that it found when it was made.
void TestDatabaseQueries::otherLogger()
{
    ManagerLog later;
    DatabaseManager manager;
    manager.executeQuery("delete from dishes", on.first);
    QCOMPARE(later.newRecords(), shown("executeQuery(...)", "delete from dishes", 3));
    QCOMPARE(on.newRecords(), QStringList());

    on.manager->executeQuery("delete from dishes", on.first);
    QCOMPARE(later.newRecords(), QStringList());
    QCOMPARE(on.newRecords(), shown("executeQuery(...)", "delete from dishes", 0));
    on.newStatements();
}

QTEST_GUILESS_MAIN(TestDatabaseQueries)
#include "tst_databasequeries.moc"
