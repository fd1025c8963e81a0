#include "databasefixture.h"
#include "remarks.h"

#include <QSqlError>
#include <QtTest>

#include <functional>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// An operation without its result.
using Operation = std::function<void(DatabaseManager*, QSqlDatabase*)>;
Q_DECLARE_METATYPE(Operation)

/// The server goes away and comes back: results, log records in order, and the program goes on.
class TestDatabaseTrouble : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void gone_data();
    void gone();
    void goneWithinATransaction_data();
    void goneWithinATransaction();
    void goneBeforeATransaction();
    void operationsOnALostConnection_data();
    void operationsOnALostConnection();
    void connectionWithoutServer();
    void connectionNeverOpened();
    void serverThatDoesNotAnswer();

private:
    void end(int trouble);
    void start();
    /// Ends the server and lets the toolkit notice that.
    void lose();

    DatabaseFixture on;
    bool running = true;
};

namespace {

const char addOrder[] = "insert into orders values (default)";
const char count[] = "select count(*) from orders";
const char queryMethod[] = "executeQuery(...)";
const char selectMethod[] = "executeSelectQuery(...)";

/// Of a failure whose reason is the server's end, and told in several ways.
void compareLoss(const QStringList& records, const QString& method, const QString& sql)
{
    QCOMPARE(records.size(), 4);
    QVERIFY(records[3].startsWith("ERROR: "));
    const QString reason = records[3].mid(7);
    QVERIFY(!reason.trimmed().isEmpty());
    QCOMPARE(records, failed(method, sql, reason));
}

/// What a statement leaves on a connection that the toolkit knows to be closed. The toolkit executes nothing then,
/// has no error to report, and remarks on standard error that it did not.
QStringList notExecuted(const QString& method, const QString& sql)
{
    return shown(method, sql, -1);
}

const char closedRemark[] = "QSqlQuery::exec: database not open\n";

/// Those of the toolkit on closed connections, and those of the server's library, which passes on what a server that
/// is killed said last.
bool onlyRemarksOnTheLoss(const QByteArray& said)
{
    for (const QByteArray& line : said.split('\n')) {
        if (!line.isEmpty() && !line.endsWith(": database not open") && !line.endsWith(": Database not open")
            && line != "WARNING:  terminating connection due to immediate shutdown command")
            return false;
    }
    return true;
}

enum Trouble { Stopped, Killed };

/// Lets everybody in and says nothing.
class SilentServer {
public:
    explicit SilentServer(const QString& path)
        : listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const QByteArray name = QFile::encodeName(path);
        sockaddr_un address {};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, name.constData(), sizeof address.sun_path);
        if (bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0
            || listen(listener, 1) != 0)
            qFatal("%s can't be made.", name.constData());
    }

    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    ~SilentServer() { close(listener); }

private:
    const int listener;
};

} // namespace

/// A server that runs, with one order.
void TestDatabaseTrouble::init()
{
    on.connect(QString());
    on.execute("set client_min_messages = warning; drop table if exists orders", on.first);
    on.execute("create table orders (id serial primary key)", on.first);
    on.execute(addOrder, on.first);
    on.newRecords();
}

void TestDatabaseTrouble::cleanup()
{
    if (!running)
        start();
    QCOMPARE(on.newRecords(), QStringList()); // each test knows them all
}

void TestDatabaseTrouble::end(int trouble)
{
    running = false;
    trouble == Stopped ? on.server.stop() : on.server.kill();
}

void TestDatabaseTrouble::start()
{
    on.server.start();
    running = true;
}

void TestDatabaseTrouble::lose()
{
    end(Killed);
    remarks([this] {
        for (int i = 0; i < 5 && on.first->isOpen(); ++i)
            on.manager->executeQuery(count, on.first);
    });
    QVERIFY(!on.first->isOpen());
    on.newRecords();
}

void TestDatabaseTrouble::gone_data()
{
    QTest::addColumn<int>("trouble");
    QTest::newRow("stopped") << int(Stopped);
    QTest::newRow("killed") << int(Killed);
}

void TestDatabaseTrouble::gone()
{
    QFETCH(int, trouble);

    QCOMPARE(on.manager->executeSelectQuery(count, on.first), QString("1"));
    QCOMPARE(on.newRecords(), shown(selectMethod, count, 1));

    // How many statements it takes until the toolkit knows is its library's affair.
    end(trouble);
    QVERIFY(on.first->isOpen());
    const QByteArray said = remarks([this] {
        for (int i = 0; i < 5 && on.first->isOpen(); ++i) {
            QCOMPARE(on.manager->executeSelectQuery(count, on.first), QString());
            compareLoss(on.newRecords(), selectMethod, count);
        }
    });
    QVERIFY(!on.first->isOpen());
    QVERIFY2(onlyRemarksOnTheLoss(said), said.constData());

    const auto notExecutedSelect = [this] {
        const QByteArray remark =
            remarks([this] { QCOMPARE(on.manager->executeSelectQuery(count, on.first), QString()); });
        QCOMPARE(remark, QByteArray(closedRemark));
        QCOMPARE(on.newRecords(), notExecuted(selectMethod, count));
    };
    notExecutedSelect();
    start();
    notExecutedSelect(); // a session that was ended is not begun again

    QCOMPARE(on.connect(QString()), on.first);
    QCOMPARE(on.manager->executeSelectQuery(count, on.first), QString("1"));
    QCOMPARE(on.manager->executeSelectQuery(count, nullptr), QString("1"));
    QCOMPARE(on.newRecords(),
             QStringList {"DEBUG: Connection With zelmora_test DB established"} + shown(selectMethod, count, 1)
                 + shown(selectMethod, count, 1));
}

void TestDatabaseTrouble::goneWithinATransaction_data()
{
    QTest::addColumn<int>("trouble");
    QTest::addColumn<bool>("byNull");
    QTest::newRow("stopped, by null") << int(Stopped) << true;
    QTest::newRow("stopped, on the connection") << int(Stopped) << false;
    QTest::newRow("killed, by null") << int(Killed) << true;
    QTest::newRow("killed, on the connection") << int(Killed) << false;
}

void TestDatabaseTrouble::goneWithinATransaction()
{
    QFETCH(int, trouble);
    QFETCH(bool, byNull);
    QSqlDatabase* const db = byNull ? nullptr : on.first;

    on.manager->begin(db);
    QCOMPARE(on.manager->executeQuery(addOrder, db), 1);
    QCOMPARE(on.manager->numRecords("orders", "1=1", db), 2);
    on.newRecords();
    end(trouble);

    const QByteArray said = remarks([this, db] {
        QCOMPARE(on.manager->executeQuery(addOrder, db), -1);
        compareLoss(on.newRecords(), queryMethod, addOrder);
        on.manager->commit(db);
        QStringList records = on.newRecords();
        QCOMPARE(records.takeLast(), QString("DEBUG: COMMIT\n\n"));
        if (db)
            QCOMPARE(records, QStringList());
        else if (records.size() == 2)
            QCOMPARE(records, notExecuted(queryMethod, "COMMIT"));
        else
            compareLoss(records, queryMethod, "COMMIT");
    });
    QVERIFY2(onlyRemarksOnTheLoss(said), said.constData());

    start();
    on.connect(QString());
    QCOMPARE(on.manager->numRecords("orders", "1=1", db), 1);
    QCOMPARE(on.manager->executeQuery(addOrder, db), 1);
    QCOMPARE(on.manager->numRecords("orders", "1=1", db), 2);
    on.newRecords();
}

// The transaction's begin takes the error to itself: no ERROR record ever tells, and at the end the connection has
// none to show. That it is not open tells.
void TestDatabaseTrouble::goneBeforeATransaction()
{
    end(Stopped);
    const QByteArray said = remarks([this] {
        on.manager->begin(on.first);
        QVERIFY(!on.first->isOpen());
        QCOMPARE(on.manager->executeQuery(addOrder, on.first), -1);
        on.manager->commit(on.first);
    });
    QVERIFY2(onlyRemarksOnTheLoss(said), said.constData());
    QCOMPARE(on.newRecords(),
             QStringList {"DEBUG: BEGIN\n\n"} + notExecuted(queryMethod, addOrder) + QStringList {"DEBUG: COMMIT\n\n"});
    QVERIFY(!on.first->lastError().isValid());
}

void TestDatabaseTrouble::operationsOnALostConnection_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QStringList>("records");

    const auto row = [](const char* name, const Operation& operation, const QStringList& records) {
        QTest::newRow(name) << operation << records;
    };
    const QString insert = "insert into orders values(default)";
    const QString select = "select max(ID) from orders";
    const QString read = "select last_value from tickets";
    const QStringList noLastId = notExecuted("getLastId", select)
        << "ERROR: getLastId( orders ): select max(ID) from orders return empty result";
    const QStringList noNewRecord = notExecuted("newRecord", insert) + noLastId;
    const auto step = [](const QString& word) { return notExecuted(queryMethod, word) << "DEBUG: " + word + "\n\n"; };
    using Manager = DatabaseManager*;
    using Connection = QSqlDatabase*;

    row(
        "a statement", [](Manager m, Connection db) { QCOMPARE(m->executeQuery(addOrder, db), -1); },
        notExecuted(queryMethod, addOrder));
    row(
        "a select", [](Manager m, Connection db) { QCOMPARE(m->executeSelectQuery(count, db), QString()); },
        notExecuted(selectMethod, count));
    row(
        "a select of a column",
        [](Manager m, Connection db) { QCOMPARE(m->executeSelectQuery2(count, db), QStringList()); },
        notExecuted(selectMethod, count));
    row(
        "a select of a row",
        [](Manager m, Connection db) { QCOMPARE(m->executeSelectQuery3(count, 1, db), QStringList()); },
        notExecuted(selectMethod, count));
    row(
        "a field", [](Manager m, Connection db) { QCOMPARE(m->getField("id", "orders", "1", db), QString()); },
        notExecuted("DatabaseManager::getField(...)", "select id from orders where id = 1"));
    row(
        "a removal", [](Manager m, Connection db) { QCOMPARE(m->removeRecord("orders", "1", db), -1); },
        notExecuted("removeRecord", "delete from orders where ID = 1"));
    row(
        "a test", [](Manager m, Connection db) { QVERIFY(!m->existRecord("orders", "1", db)); },
        notExecuted("DatabaseManager::existRecord(...)", "select * from orders where ID = 1"));
    row(
        "a count", [](Manager m, Connection db) { QCOMPARE(m->numRecords("orders", "1=1", db), -1); },
        notExecuted("DatabaseManager::existRecord(...)", "select count(*) from orders where 1=1"));
    row(
        "the last id", [](Manager m, Connection db) { QCOMPARE(m->getLastId("orders", db), QString("Error")); },
        noLastId);
    row(
        "a new record", [](Manager m, Connection db) { QCOMPARE(m->newRecord("orders", db), QString("Error")); },
        noNewRecord);
    row(
        "a safe new record",
        [](Manager m, Connection db) { QCOMPARE(m->safeNewRecord("orders", db), QString("Error")); },
        QStringList {"DEBUG: BEGIN\n\n"} + noNewRecord + QStringList {"DEBUG: COMMIT\n\n"});
    row(
        "a safe new record by null",
        [](Manager m, Connection) { QCOMPARE(m->safeNewRecord("orders", nullptr), QString("Error")); },
        step("BEGIN") + noNewRecord + step("COMMIT"));
    row("a rollback", [](Manager m, Connection db) { m->rollback(db); }, {"DEBUG: ROLLBACK\n\n"});
    row(
        "a rollback by null", [](Manager m, Connection) { m->rollback(nullptr); }, step("ROLLBACK"));
    row(
        "a sequence's value", [](Manager m, Connection db) { QCOMPARE(m->sequenceValue("tickets", db), QString()); },
        notExecuted(selectMethod, read));
    row(
        "a sequence's step",
        [](Manager m, Connection db) { QCOMPARE(m->incrementSequence("tickets", 4, db), QString()); },
        notExecuted(selectMethod, read) + notExecuted(selectMethod, "SELECT setval('tickets', 4)"));
    row(
        "a sequence's step down",
        [](Manager m, Connection db) { QVERIFY(!m->decrementSequenceIfPositive("tickets", 4, db)); },
        notExecuted(selectMethod, read));
}

void TestDatabaseTrouble::operationsOnALostConnection()
{
    QFETCH(Operation, operation);
    QFETCH(QStringList, records);

    lose();
    const QByteArray said = remarks([this, &operation] { operation(on.manager, on.first); });
    QVERIFY2(onlyRemarksOnTheLoss(said), said.constData());
    QCOMPARE(on.newRecords(), records);
}

void TestDatabaseTrouble::connectionWithoutServer()
{
    const auto connection = [this](const char* name) {
        return on.manager->createConnection("QPSQL7", PostgresCluster::database(), PostgresCluster::user(),
                                            PostgresCluster::password(), on.server.host(), name);
    };

    end(Stopped);
    QVERIFY(!connection("kitchen"));
    QVERIFY(QSqlDatabase::contains("kitchen"));
    const QStringList records = on.newRecords();
    QCOMPARE(records.size(), 2);
    QVERIFY(records[0].startsWith("ERROR: Failed to open database: "));
    QVERIFY(records[1].contains(on.server.host())); // whose socket is not there

    start();
    QSqlDatabase* const db = connection("kitchen");
    QVERIFY(db);
    QCOMPARE(on.manager->numRecords("orders", "1=1", db), 1);
    on.newRecords();
}

// As on a connection that was lost, nothing is executed.
void TestDatabaseTrouble::connectionNeverOpened()
{
    QVERIFY(!on.manager->createConnection("QPSQL7", "nowhere", PostgresCluster::user(), PostgresCluster::password(),
                                          on.server.host(), "closed"));
    on.newRecords();
    QSqlDatabase closed = QSqlDatabase::database("closed", false);
    QVERIFY(closed.isValid() && !closed.isOpen());
    const QByteArray said = remarks([this, &closed] { QCOMPARE(on.manager->executeQuery(addOrder, &closed), -1); });
    QCOMPARE(said, QByteArray(closedRemark));
    QCOMPARE(on.newRecords(), notExecuted(queryMethod, addOrder));
    QCOMPARE(on.manager->executeQuery(addOrder, on.first), 1); // others are not concerned
    on.newRecords();
}

// PostgreSQL's client waits for it as long as PGCONNECT_TIMEOUT says.
void TestDatabaseTrouble::serverThatDoesNotAnswer()
{
    const QTemporaryDir folder;
    const SilentServer server(folder.filePath(".s.PGSQL.5432"));
    qputenv("PGCONNECT_TIMEOUT", "2");
    QVERIFY(!on.manager->createConnection("QPSQL7", PostgresCluster::database(), PostgresCluster::user(),
                                          PostgresCluster::password(), folder.path(), "silent"));
    qunsetenv("PGCONNECT_TIMEOUT");
    const QStringList records = on.newRecords();
    QCOMPARE(records.size(), 2);
    QVERIFY2(records[1].contains("timeout expired"), qPrintable(records[1]));
}

QTEST_GUILESS_MAIN(TestDatabaseTrouble)
#include "tst_databasetrouble.moc"
