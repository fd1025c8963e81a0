#include "databasefixture.h"
#include "util/hlibrary.h"

#include <QtTest>

/// PostgreSQL's own programs, under the names that the library gives and from the search path: the database is dumped
/// and restored into another one, which then holds the same.
class TestDatabaseTools : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void dumpAndRestore_data();
    void dumpAndRestore();
    void failure();

private:
    bool run(const QString& program, const QStringList& arguments);
    QStringList contents(QSqlDatabase* db);

    DatabaseFixture on;
    QByteArray said; ///< by the program that ran last, on standard error
};

/// Whether the program succeeds. It learns the server from its surroundings, as it would from a script.
bool TestDatabaseTools::run(const QString& program, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PGHOST", on.server.host());
    environment.insert("PGUSER", PostgresCluster::user());
    environment.insert("PGPASSWORD", PostgresCluster::password());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(60000);
    said = process.readAllStandardError();
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

/// All that the tests put in.
QStringList TestDatabaseTools::contents(QSqlDatabase* db)
{
    const QString dishes = "select (id, name, price, encode(picture, 'hex'))::text from dishes order by id";
    return on.manager->executeSelectQuery2(dishes, db)
        << on.manager->sequenceValue("dishes_id_seq", db)
        << QString::number(on.manager->numRecords("orders", "1=1", db)) << on.manager->getLastId("orders", db);
}

void TestDatabaseTools::initTestCase()
{
    on.execute("create table dishes (id serial primary key, name text unique, price numeric(8, 2), picture bytea)",
               on.first);
    on.execute("insert into dishes (name, price, picture) values (E'Caffè \\n\\t€ ''\\\\', 1.20, '\\x00ff0a'),"
               " (null, null, null), ('', 0, '')",
               on.first);
    on.execute("create table orders (id serial primary key, dish integer references dishes)", on.first);
    on.execute("insert into orders (dish) select 1 + i % 3 from generate_series(1, 1000) i", on.first);
}

void TestDatabaseTools::dumpAndRestore_data()
{
    QTest::addColumn<QStringList>("dumpOptions");
    QTest::addColumn<bool>("plain"); // text, which psql reads
    QTest::newRow("an archive") << QStringList {"--format=custom"} << false;
    QTest::newRow("plain SQL") << QStringList {"--format=plain"} << true;
}

void TestDatabaseTools::dumpAndRestore()
{
    QFETCH(QStringList, dumpOptions);
    QFETCH(bool, plain);
    const QTemporaryDir folder;
    const QString dump = folder.filePath("dump");
    const QString database = PostgresCluster::database();
    const QStringList expected {
        "(1,\"Caffè \n\t€ '\\\\\",1.20,00ff0a)", "(2,,,)", "(3,\"\",0.00,\"\")", "3", "1000", "1000"};
    QCOMPARE(contents(on.first), expected);

    QVERIFY2(run(HLibrary::pg_dump(), dumpOptions + QStringList {"--file=" + dump, database}), said);
    QVERIFY2(run(HLibrary::psql(), {"--quiet", "--command=create database copy", database}), said);
    if (plain)
        QVERIFY2(run(HLibrary::psql(),
                     {"--quiet", "--set=ON_ERROR_STOP=1", "--output=" + folder.filePath("output"), "--file=" + dump,
                      "copy"}),
                 said);
    else
        QVERIFY2(run(HLibrary::pg_restore(), {"--exit-on-error", "--dbname=copy", dump}), said);
    QCOMPARE(said, QByteArray());

    QSqlDatabase* const copy = on.connect("copy", "copy");
    QCOMPARE(contents(copy), expected);
    QCOMPARE(on.manager->newRecord("dishes", copy), QString("4")); // the sequence goes on
    QCOMPARE(contents(on.first), expected);

    copy->close();
    QVERIFY2(run(HLibrary::dropdb(), {"copy"}), said);
    QVERIFY(!on.manager->createConnection("QPSQL7", "copy", PostgresCluster::user(), PostgresCluster::password(),
                                          on.server.host(), "copy"));
    QVERIFY(on.newRecords().last().contains("database \"copy\" does not exist"));
}

void TestDatabaseTools::failure()
{
    QVERIFY(!run(HLibrary::dropdb(), {"nowhere"}));
    QVERIFY2(said.contains("database \"nowhere\" does not exist"), said);
    QVERIFY(!run(HLibrary::psql(), {"--command=selec", PostgresCluster::database()}));
    QVERIFY2(said.contains("syntax error at or near \"selec\""), said);
    QVERIFY(!run(HLibrary::pg_dump(), {"nowhere"}));
    QVERIFY2(said.contains("database \"nowhere\" does not exist"), said);
    QVERIFY(!run(HLibrary::pg_restore(), {"--list", "/nowhere"}));
    QVERIFY2(said.contains("could not open input file \"/nowhere\""), said);
}

QTEST_GUILESS_MAIN(TestDatabaseTools)
#include "tst_databasetools.moc"
