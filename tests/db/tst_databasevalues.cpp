#include "db/databasemanager.h"
#include "managerlog.h"
#include "remarks.h"
#include "support/postgrescluster.h"
#include "toolkit/sql/columnvalue.h"
#include "toolkit/sql/sqldriver.h"

#include <QSqlQuery>
#include <QtTest>

#include <ctime>

/// What a column becomes as text: the same on every connection, whoever made it, and in every time zone. All expected
/// texts are derived by hand.
class TestDatabaseValues : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data(); // for all of them
    void initTestCase();
    void init();
    void cleanup();

    void value_data();
    void value();
    void zoneOfTheSession_data();
    void zoneOfTheSession();
    void records();
    void connectionStaysAsItIs_data();
    void connectionStaysAsItIs();
    void programsQueries();
    void queryThatGoesForwardOnly();

private:
    void openAsAProgramDoes(const QString& name);
    void openByTheLibrary(const QString& name);
    QString ownQuery(const QString& sql);
    void compareSelects(const QString& expression, const QString& expected);

    PostgresCluster server;
    ManagerLog log;
    DatabaseManager* const manager = SyncSingleton<DatabaseManager>::instance();
    QSqlDatabase connection;
    QPair<bool, QString> opened; ///< by whom, and under which name
    QSqlDatabase* db = nullptr; ///< of the operations
};

namespace {

/// The clocks go forward on 29 March 2026, from 2:00 to 3:00.
const char zone[] = "CET-1CEST,M3.5.0,M10.5.0/3";

const char selectMethod[] = "executeSelectQuery(...)";

} // namespace

void TestDatabaseValues::initTestCase_data()
{
    QTest::addColumn<bool>("byProgram"); // with the toolkit alone
    QTest::addColumn<QString>("name"); // empty: the default connection, which null stands for
    QTest::newRow("a program's default connection") << true << "";
    QTest::newRow("a program's connection") << true << "own";
    QTest::newRow("the library's default connection") << false << "";
    QTest::newRow("a library's connection") << false << "library";
}

void TestDatabaseValues::initTestCase()
{
    qputenv("TZ", zone);
    tzset();
}

void TestDatabaseValues::init()
{
    QFETCH_GLOBAL(bool, byProgram);
    QFETCH_GLOBAL(QString, name);
    const QPair<bool, QString> wanted(byProgram, name);
    if (!connection.isOpen() || wanted != opened) {
        connection = QSqlDatabase();
        byProgram ? openAsAProgramDoes(name) : openByTheLibrary(name);
        opened = wanted;
    }
    QVERIFY(connection.isOpen());
    db = name.isEmpty() ? nullptr : &connection;
    log.newRecords();
    server.newStatements();
}

void TestDatabaseValues::cleanup()
{
    QCOMPARE(log.newRecords(), QStringList()); // each test knows them all
}

void TestDatabaseValues::openAsAProgramDoes(const QString& name)
{
    remarks([this, &name] { // the toolkit's, if the library has a default connection
        const QString driver = toolkit::sqlDriver("QPSQL7");
        connection = name.isEmpty() ? QSqlDatabase::addDatabase(driver) : QSqlDatabase::addDatabase(driver, name);
    });
    connection.setDatabaseName(PostgresCluster::database());
    connection.setUserName(PostgresCluster::user());
    connection.setPassword(PostgresCluster::password());
    connection.setHostName(server.host());
    connection.open();
}

void TestDatabaseValues::openByTheLibrary(const QString& name)
{
    const QSqlDatabase* const made =
        manager->createConnection("QPSQL7", PostgresCluster::database(), PostgresCluster::user(),
                                  PostgresCluster::password(), server.host(), name);
    QVERIFY(made);
    connection = *made;
}

/// The first value of @p sql, which the library does not see.
QString TestDatabaseValues::ownQuery(const QString& sql)
{
    QSqlQuery query(sql, connection);
    const QString text = query.next() ? query.value(0).toString() : QString();
    server.newStatements();
    return text;
}

/// Each select operation gives @p expected for @p expression, and sends nothing else.
void TestDatabaseValues::compareSelects(const QString& expression, const QString& expected)
{
    const QString sql = "select " + expression;
    const QString value = manager->executeSelectQuery(sql, db);
    const QStringList column = manager->executeSelectQuery2(sql, db);
    const QStringList row = manager->executeSelectQuery3(sql, 1, db);
    const QByteArray sent = sql.toUtf8();
    QCOMPARE(server.newStatements(), QByteArrayList({sent, sent, sent}));
    const QStringList records = shown(selectMethod, sql, 1);
    QCOMPARE(log.newRecords(), records + records + records);
    QCOMPARE(value, expected);
    QCOMPARE(column, QStringList {expected});
    QCOMPARE(row, QStringList {expected});
}

void TestDatabaseValues::value_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* expression, const QString& expected) {
        QTest::newRow(name) << expression << expected;
    };

    row("an empty text", "''", "");
    row("a text of three alphabets", "'Caffè € 漢字 λ 𝄞'", "Caffè € 漢字 λ 𝄞");
    row("a text with line ends, blanks and quotes", "E'  a\\n\\tb''\"\\\\ '", "  a\n\tb'\"\\ ");
    row("a text of 100,000 characters", "repeat('è', 100000)", QString(100000, QChar(0xE8)));
    row("a padded text", "'ab'::char(4)", "ab  ");
    row("a list", "array[1, 2]", "{1,2}");
    row("true", "true", "true");
    row("false", "false", "false");

    row("a negative number", "-7", "-7");
    row("a number of 64 bits", "9223372036854775807", "9223372036854775807");
    row("an amount", "12.25::numeric(8, 2)", "12.25");
    row("an amount that ends in zero", "4.50::numeric(8, 2)", "4.50");
    row("a whole amount", "12.00::numeric(8, 2)", "12.00");
    row("nothing, in cents", "0.00::numeric(8, 2)", "0.00");
    row("a negative amount", "-0.10::numeric(8, 2)", "-0.10");
    row("an amount of 20 digits", "123456789012345678.91::numeric", "123456789012345678.91");
    row("a small amount", "0.00001::numeric", "0.00001");
    row("an amount that is no number", "'NaN'::numeric", "NaN");
    row("a computed number, in 15 digits", "8.29::float8 * 100", "829");
    row("a third, in 15 digits", "1::float8 / 3", "0.333333333333333");
    row("a number of few digits", "0.1::float4", "0.1");
    row("no number", "'NaN'::float8", "nan");

    row("a date", "date '2026-07-04'", "2026-07-04");
    row("the first date that ISO 8601 has with four digits", "date '0001-01-01'", "0001-01-01");
    row("the last", "date '9999-12-31'", "9999-12-31");
    row("a time", "time '13:05:09'", "13:05:09");
    row("midnight", "time '00:00:00'", "00:00:00");
    row("a time with parts of a second", "time '13:05:09.75'", "13:05:09");
    row("a time just before midnight", "time '23:59:59.999999'", "23:59:59");
    row("a time with its zone", "timetz '13:05:09+02'", "13:05:09");
    row("a point in time", "timestamp '2026-07-04 13:05:09'", "2026-07-04T13:05:09");
    row("a point in time with parts of a second", "timestamp '2026-07-04 13:05:09.999999'", "2026-07-04T13:05:09");
    row("midnight of a day", "timestamp '2026-07-04 00:00:00'", "2026-07-04T00:00:00");
    row("a point in time that no clock showed", "timestamp '2026-03-29 02:30:00'", "2026-03-29T02:30:00");
    row("a point in time in summer, with its zone", "timestamptz '2026-07-04 11:05:09.5+00'", "2026-07-04T13:05:09");
    row("a point in time in winter, with its zone", "timestamptz '2025-11-14 21:05:09+01'", "2025-11-14T21:05:09");
    row("a point in time that is in the next year here", "timestamptz '2025-12-31 18:30:00-05'", "2026-01-01T00:30:00");
    row("a date without end", "date 'infinity'", "");
    row("a point in time without end", "timestamptz '-infinity'", "");
    row("a date beyond four digits", "date '10000-01-01'", "");

    row("bytes", "'\\x50616e65'::bytea", "Pane");
    row("bytes that are no UTF-8", "'\\x43616666e8'::bytea", "Caffè");
    row("bytes that are UTF-8", "'\\xc3a8'::bytea", "\u00c3\u00a8");
    row("every byte from 80 to ff has a character of its own", "'\\x80a4ff'::bytea", "\u0080\u00a4\u00ff");
    row("bytes up to a NUL", "'\\x610062'::bytea", "a");
    row("no bytes", "''::bytea", "");

    for (const char* type : {"text", "integer", "bigint", "numeric", "float8", "boolean", "date", "time", "timestamp",
                             "timestamptz", "bytea"})
        QTest::newRow(qPrintable(QString("NULL, as ") + type)) << QString("null::") + type << "";
}

void TestDatabaseValues::value()
{
    QFETCH(QString, expression);
    QFETCH(QString, expected);
    compareSelects(expression, expected);
}

void TestDatabaseValues::zoneOfTheSession_data()
{
    QTest::addColumn<QString>("session");
    QTest::newRow("the program's") << zone;
    QTest::newRow("west of it") << "EST5";
    QTest::newRow("with minutes") << "<+0530>-5:30";
}

// The text is that of the clock where the program runs.
void TestDatabaseValues::zoneOfTheSession()
{
    QFETCH(QString, session);
    ownQuery("set timezone to '" + session + "'");
    compareSelects("timestamptz '2026-07-04 11:05:09+00'", "2026-07-04T13:05:09");
    compareSelects("timestamp '2026-07-04 11:05:09'", "2026-07-04T11:05:09");
}

void TestDatabaseValues::records()
{
    ownQuery("create temporary table bills (id numeric(8, 2), paid timestamp, stamp bytea)");
    ownQuery("insert into bills values (4.50, '2026-07-04 13:05:09', '\\xe8')");
    QCOMPARE(manager->getLastId("bills", db), QString("4.50"));
    QCOMPARE(manager->getField("paid", "bills", "4.50", db), QString("2026-07-04T13:05:09"));
    QCOMPARE(manager->getField("stamp", "bills", "4.50", db), QString("è"));
    QCOMPARE(manager->executeSelectQuery3("select id, paid, stamp from bills", 3, db),
             QStringList({"4.50", "2026-07-04T13:05:09", "è"}));
    log.newRecords();
}

void TestDatabaseValues::connectionStaysAsItIs_data()
{
    QTest::addColumn<int>("policy");
    QTest::addColumn<QString>("text"); // of 4.50, to a query of the program's
    QTest::newRow("doubles") << int(QSql::LowPrecisionDouble) << "4.5";
    QTest::newRow("whole numbers") << int(QSql::LowPrecisionInt32) << "4";
    QTest::newRow("all digits") << int(QSql::HighPrecision) << "4.50";
}

// A program's own queries go on as it has set its connection for them.
void TestDatabaseValues::connectionStaysAsItIs()
{
    QFETCH(int, policy);
    QFETCH(QString, text);
    const QString sql = "select 4.50::numeric";
    connection.setNumericalPrecisionPolicy(static_cast<QSql::NumericalPrecisionPolicy>(policy));
    compareSelects("4.50::numeric", "4.50");
    QCOMPARE(ownQuery(sql), text);
}

// Whoever wants all digits in them has made the connection with the library.
void TestDatabaseValues::programsQueries()
{
    connection.close();
    init();
    QFETCH_GLOBAL(bool, byProgram);
    QCOMPARE(ownQuery("select 4.50::numeric"), QString(byProgram ? "4.5" : "4.50"));
}

// It holds one row at a time.
void TestDatabaseValues::queryThatGoesForwardOnly()
{
    QSqlQuery query(connection);
    query.setForwardOnly(true);
    QVERIFY(query.exec("VALUES (1, time '13:05:09.999999'), (2, time '13:05:10.999999')"));
    for (const QTime& time : {QTime(13, 5, 9), QTime(13, 5, 10)}) {
        QVERIFY(query.next());
        QCOMPARE(toolkit::columnValue(query, 1).toTime().toString(), time.toString());
    }
}

QTEST_GUILESS_MAIN(TestDatabaseValues)
#include "tst_databasevalues.moc"
