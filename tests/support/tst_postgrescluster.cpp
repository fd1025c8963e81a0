#include "support/postgrescluster.h"
#include "support/programrun.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <cstdio>
#include <cstdlib>

/// The tests' own server: nothing of it stays, whatever way a test ends.
class TestPostgresCluster : public QObject {
    Q_OBJECT

private slots:
    void nothingStays_data();
    void nothingStays();
    void missingFolder();
    void sideBySide();
    void stoppedAndStarted();
    void statements();

private:
    PostgresCluster one;
    PostgresCluster two;
};

namespace {

const int patience = 60000; // milliseconds, of which an idle machine needs few

// What a test that has a server does next.
const char returns[] = "--return";
const char exits[] = "--exit";
const char aborts[] = "--abort";
const char waits[] = "--wait";

/// A test with a server, in a process of its own, that says where that is.
int testWithServer(const QByteArray& end)
{
    const PostgresCluster server;
    std::printf("%s\n", qPrintable(server.host()));
    std::fflush(stdout);
    if (end == exits)
        std::_Exit(1);
    if (end == aborts)
        std::abort();
    if (end == waits)
        QThread::sleep(600);
    return 0;
}

QSqlDatabase openedDatabase(const PostgresCluster& server, const QString& name)
{
    QSqlDatabase::removeDatabase(name);
    QSqlDatabase db = QSqlDatabase::addDatabase("QPSQL", name);
    db.setHostName(server.host());
    db.setDatabaseName(PostgresCluster::database());
    db.setUserName(PostgresCluster::user());
    db.setPassword(PostgresCluster::password());
    db.open();
    return db;
}

/// A process that has ended and that nobody has looked after yet has no command line.
bool runs(const QByteArray& process)
{
    return !fileContents("/proc/" + process + "/cmdline").isEmpty();
}

} // namespace

void TestPostgresCluster::nothingStays_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("after a test that ends") << returns;
    QTest::newRow("after a test that exits at once") << exits;
    QTest::newRow("after a test that is aborted") << aborts;
    QTest::newRow("after a test that is killed") << waits;
}

void TestPostgresCluster::nothingStays()
{
    QFETCH(QString, end);

    QProcess test;
    test.start(QCoreApplication::applicationFilePath(), {end});
    QVERIFY(test.waitForReadyRead(patience));
    const QString folder = QString::fromUtf8(test.readLine().trimmed());
    QVERIFY(!folder.isEmpty());
    if (end == waits) {
        const QByteArray process = fileContents(folder + "/data/postmaster.pid").split('\n').first();
        QVERIFY(runs(process));
        QVERIFY(QFile::exists(folder + "/.s.PGSQL.5432"));
        test.kill();
        QTRY_VERIFY_WITH_TIMEOUT(!runs(process), patience);
    }
    QTRY_COMPARE_WITH_TIMEOUT(test.state(), QProcess::NotRunning, patience);
    QCOMPARE(test.exitStatus() == QProcess::NormalExit, end == returns || end == exits);
    if (end == returns)
        QVERIFY(!QFile::exists(folder)); // the end of the test waits for it
    else
        QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(folder), patience);
    QCOMPARE(test.readAllStandardError(), QByteArray());
}

void TestPostgresCluster::missingFolder()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TMPDIR", "/nowhere");
    QProcess test;
    test.setProcessEnvironment(environment);
    test.start(QCoreApplication::applicationFilePath(), {returns});
    QVERIFY(test.waitForFinished(patience));
    QCOMPARE(test.exitStatus(), QProcess::CrashExit);
    const QByteArray said = test.readAllStandardError();
    QVERIFY2(said.startsWith("The PostgreSQL server: ") && said.contains("/nowhere"), said);
}

void TestPostgresCluster::sideBySide()
{
    for (const QString& variable : QProcess::systemEnvironment())
        QVERIFY2(!variable.startsWith("PG"), qPrintable(variable));
    QVERIFY(one.host() != two.host());
    QCOMPARE(one.newStatements() + two.newStatements(), QByteArrayList());
    const QByteArray creation = "create table in_one (id integer)";
    QSqlQuery(QString(creation), openedDatabase(one, "one"));
    QVERIFY(openedDatabase(one, "one").tables().contains("in_one"));
    QVERIFY(!openedDatabase(two, "two").tables().contains("in_one"));
    QVERIFY(one.newStatements().contains(creation));
    QVERIFY(!two.newStatements().contains(creation));
}

void TestPostgresCluster::stoppedAndStarted()
{
    QVERIFY(openedDatabase(one, "one").isOpen());
    one.stop();
    QVERIFY(!openedDatabase(one, "one").isOpen());
    one.start();
    QVERIFY(openedDatabase(one, "one").isOpen());
    one.kill();
    QVERIFY(!openedDatabase(one, "one").isOpen());
    one.start();
    QVERIFY(openedDatabase(one, "one").isOpen());
    two.kill(); // nothing is left to stop at the end
}

void TestPostgresCluster::statements()
{
    const QSqlDatabase db = openedDatabase(one, "one");
    const QSqlDatabase otherDb = openedDatabase(one, "another");
    one.newStatements();

    const QByteArray lines = "select '\n\n\tè\n  LOG:  statement: x\n'";
    const QByteArray wrong = "selec\n\t1";
    const QByteArray fails = "select 1 / 0";
    for (const QByteArray& statement : {lines, wrong, wrong, fails, fails})
        QSqlQuery(QString::fromUtf8(statement), db);
    QCOMPARE(one.newStatements(), QByteArrayList({lines, wrong, wrong, fails, fails}));
    QCOMPARE(one.newStatements(), QByteArrayList());

    QSqlQuery(QString::fromUtf8(wrong), db);
    QSqlQuery(QString::fromUtf8(wrong), otherDb);
    QSqlQuery(QString::fromUtf8(lines), otherDb);
    QSqlQuery(QString::fromUtf8(wrong), db);
    QCOMPARE(one.newStatements(), QByteArrayList({wrong, wrong, lines, wrong}));
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QByteArray task = argc == 2 ? argv[1] : "";
    if (task == returns || task == exits || task == aborts || task == waits)
        return testWithServer(task);
    // As if the developer worked with another server.
    qputenv("PGHOST", "/nowhere");
    qputenv("PGPASSWORD", "battery-staple");
    qputenv("PGOPTIONS", "a=b=c");
    TestPostgresCluster test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_postgrescluster.moc"
