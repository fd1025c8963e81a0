#include "databasefixture.h"
#include "remarks.h"
#include "support/settings.h"
#include "util/hlibrary.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <cstdio>

/// Connections: opened, refused, replaced, left open at the end; those of the settings.
class TestDatabaseConnection : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void opened_data();
    void opened();
    void openedAsOthersSpell_data();
    void openedAsOthersSpell();
    void refused_data();
    void refused();
    void refusedWithEverythingEmpty();
    void unknownDriver();
    void replaced_data();
    void replaced();
    void replacedInVain_data();
    void replacedInVain();
    void connectionWithoutDriverIsNotTheDefault();
    void nullOfAFailureIsTheDefault();

    void settings_data();
    void settings();
    void absentSettings();

    void processes_data();
    void processes();

private:
    QString sessionOf(const QSqlDatabase& db);
    QString sessions(const QString& session);

    DatabaseFixture on;
};

namespace {

const char whoAndWhere[] = "select current_user || ' in ' || current_database()";

/// By which the toolkit has the driver "QPSQL7": Qt 6 knows its other name alone.
QString driverName()
{
    return QStringLiteral(ZELMORA_QT) == "6" ? "QPSQL" : "QPSQL7";
}

QString defaultName()
{
    return QLatin1String(QSqlDatabase::defaultConnection);
}

QString establishedRecord(const QString& database)
{
    return "DEBUG: Connection With " + database + " DB established";
}

/// As the toolkit reports it of the registered connection @p name.
QStringList refusedRecords(const QString& name)
{
    const QSqlError error = QSqlDatabase::database(name, false).lastError();
    return {"ERROR: Failed to open database: " + error.driverText(), "ERROR: " + error.databaseText()};
}

/// What @p action writes to standard output and standard error.
QByteArray outputs(const std::function<void()>& action)
{
    QByteArray said;
    const QByteArray printed = captured(stdout, [&said, &action] { said = remarks(action); });
    return printed + said;
}

QByteArray databaseSettings(const char* database, const char* password, const QString& host)
{
    return QByteArray("zelmora: { db: { dbname = \"") + database + "\"; username = \"zelmora\"; password = \""
        + password + "\"; hostname = \"" + host.toUtf8() + "\"; }; };";
}

// Tasks for a process of its own: a name, and what it does with the host. Each returns the exit status.

int leaveOpen(const QString& host)
{
    for (const char* name : {"", "kitchen", "kitchen"}) {
        QSqlDatabase* const db = SyncSingleton<DatabaseManager>::instance()->createConnection(
            "QPSQL7", PostgresCluster::database(), PostgresCluster::user(), PostgresCluster::password(), host, name);
        if (!db || SyncSingleton<DatabaseManager>::instance()->executeSelectQuery("select 7", db) != "7")
            return 1;
    }
    SyncSingleton<DatabaseManager>::instance()->begin(nullptr);
    return 0;
}

int leaveRefused(const QString& host)
{
    return SyncSingleton<DatabaseManager>::instance()->createConnection("QPSQL7", "nowhere", PostgresCluster::user(),
                                                                        PostgresCluster::password(), host, "")
        ? 1
        : 0;
}

int leaveFromSettings(const QString& host)
{
    useSettings(databaseSettings("zelmora_test", "correct-horse", host));
    return HLibrary::newDBConnection("") && QSqlDatabase::database().isOpen() ? 0 : 1;
}

/// Ended before the manager, but after the application, and with it all connections.
struct LastWords {
    LastWords()
        : manager(SyncSingleton<DatabaseManager>::instance())
    {
    }

    ~LastWords()
    {
        std::puts(qPrintable("good night" + manager->executeSelectQuery("select 7", nullptr)));
        std::fflush(stdout);
    }

    DatabaseManager* manager;
};

int speakLast(const QString& host)
{
    SyncSingleton<LastWords>::instance();
    return leaveOpen(host);
}

/// The application that the tasks run in is not made yet, or is gone.
int openWithoutApplication(const QString& host)
{
    QSqlDatabase* const db = SyncSingleton<DatabaseManager>::instance()->createConnection(
        "QPSQL7", PostgresCluster::database(), PostgresCluster::user(), PostgresCluster::password(), host, "");
    std::puts(qPrintable(SyncSingleton<DatabaseManager>::instance()->executeSelectQuery("select 'open'", db)));
    return 0;
}

int leaveOpenInAnApplication(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return leaveOpen(QCoreApplication::arguments()[2]);
}

int withoutPlugIns(const QString& host)
{
    QCoreApplication::setLibraryPaths({"/nowhere"});
    ManagerLog log;
    const QSqlDatabase* const db = SyncSingleton<DatabaseManager>::instance()->createConnection(
        "QPSQL7", PostgresCluster::database(), PostgresCluster::user(), PostgresCluster::password(), host, "");
    std::printf("%s\n", qPrintable(log.newRecords().join('\n')));
    return db ? 1 : 0;
}

const QMap<QString, int (*)(const QString&)> tasks {
    {"--leave-open", leaveOpen},
    {"--leave-refused", leaveRefused},
    {"--speak-last", speakLast},
    {"--leave-from-settings", leaveFromSettings},
    {"--without-plug-ins", withoutPlugIns},
};

} // namespace

void TestDatabaseConnection::initTestCase()
{
    // No server of the machine's may answer where the arguments say nothing.
    qputenv("PGHOST", "/nowhere");
    on.execute("create user odd with password 'it''s a \\ \"sècret\" €'", on.first);
    on.execute("create database \"o'clock \\ € = dbname\"", on.first);
    on.execute("create database zelmora", on.first);
}

void TestDatabaseConnection::cleanup()
{
    QCOMPARE(on.newRecords(), QStringList()); // each test knows them all
}

/// The number of the server's process.
QString TestDatabaseConnection::sessionOf(const QSqlDatabase& db)
{
    return on.execute("select pg_backend_pid()", &db);
}

/// How many of that number the server has.
QString TestDatabaseConnection::sessions(const QString& session)
{
    return on.execute("select count(*) from pg_stat_activity where pid = " + session, on.second);
}

void TestDatabaseConnection::opened_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("registeredName");
    QTest::newRow("the default connection") << "" << defaultName();
    QTest::newRow("a name") << "kitchen"
                            << "kitchen";
    QTest::newRow("a name of blanks and other letters") << "sala è 漢 "
                                                        << "sala è 漢 ";
    QTest::newRow("the default connection by the toolkit's name") << defaultName() << defaultName();
}

void TestDatabaseConnection::opened()
{
    QFETCH(QString, name);
    QFETCH(QString, registeredName);
    QStringList names = QSqlDatabase::connectionNames();
    names.removeAll(registeredName);

    QSqlDatabase* db = nullptr;
    const QByteArray said = outputs([this, &db, &name] {
        db = on.manager->createConnection("QPSQL7", PostgresCluster::database(), PostgresCluster::user(),
                                          PostgresCluster::password(), on.server.host(), name);
    });
    QCOMPARE(said, QByteArray());
    QVERIFY(db && db->isOpen());
    QCOMPARE(on.newRecords(), QStringList {establishedRecord("zelmora_test")});
    QCOMPARE(db->connectionName(), registeredName);
    QCOMPARE(db->driverName(), driverName());
    QVERIFY(QSqlDatabase::database(registeredName, false).isOpen());
    QStringList namesNow = QSqlDatabase::connectionNames();
    names.append(registeredName);
    names.sort();
    namesNow.sort();
    QCOMPARE(namesNow, names);
    QCOMPARE(on.execute(whoAndWhere, db), QString("zelmora in zelmora_test"));
}

void TestDatabaseConnection::openedAsOthersSpell_data()
{
    QTest::addColumn<QString>("database");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("expected");
    QTest::newRow("quotes and blanks in the password") << "zelmora_test"
                                                       << "odd"
                                                       << "it's a \\ \"sècret\" €"
                                                       << "odd in zelmora_test";
    QTest::newRow("quotes and blanks in the database's name") << "o'clock \\ € = dbname"
                                                              << "zelmora"
                                                              << "correct-horse"
                                                              << "zelmora in o'clock \\ € = dbname";
    QTest::newRow("no database: the one of the user's name") << ""
                                                             << "zelmora"
                                                             << "correct-horse"
                                                             << "zelmora in zelmora";
}

void TestDatabaseConnection::openedAsOthersSpell()
{
    QFETCH(QString, database);
    QFETCH(QString, user);
    QFETCH(QString, password);
    QFETCH(QString, expected);

    QSqlDatabase* const db =
        on.manager->createConnection("QPSQL7", database, user, password, on.server.host(), "kitchen");
    QCOMPARE(on.newRecords(), QStringList {establishedRecord(database)});
    QVERIFY(db);
    QCOMPARE(on.execute(whoAndWhere, db), expected);
}

void TestDatabaseConnection::refused_data()
{
    QTest::addColumn<QString>("database");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("host"); // empty: the right one
    QTest::addColumn<QString>("reason"); // the server's, or its library's

    const QString database = PostgresCluster::database();
    const QString user = PostgresCluster::user();
    const QString password = PostgresCluster::password();
    QTest::newRow("a wrong password") << database << user << "incorrect-horse"
                                      << ""
                                      << "password authentication failed for user \"zelmora\"";
    QTest::newRow("an empty password") << database << user << ""
                                       << ""
                                       << "no password supplied";
    QTest::newRow("an unknown user") << database << "nobody" << password << ""
                                     << "password authentication failed for user \"nobody\"";
    QTest::newRow("a missing database") << "nowhere" << user << password << ""
                                        << "database \"nowhere\" does not exist";
    QTest::newRow("a folder without a socket") << database << user << password << "/nowhere"
                                               << "\"/nowhere/.s.PGSQL.5432\" failed: No such file or directory";
    QTest::newRow("a host name that none can have") << database << user << password << "no such host"
                                                    << "could not translate host name \"no such host\"";
}

void TestDatabaseConnection::refused()
{
    QFETCH(QString, database);
    QFETCH(QString, user);
    QFETCH(QString, password);
    QFETCH(QString, host);
    QFETCH(QString, reason);

    for (const QString& name : {QString(), QString(QTest::currentDataTag())}) {
        QSqlDatabase* db = nullptr;
        const QByteArray said = outputs([&] {
            db = on.manager->createConnection("QPSQL7", database, user, password,
                                              host.isEmpty() ? on.server.host() : host, name);
        });
        QVERIFY(!db);
        QCOMPARE(said, QByteArray());
        const QString registeredName = name.isEmpty() ? defaultName() : name;
        QVERIFY(QSqlDatabase::contains(registeredName));
        QVERIFY(!QSqlDatabase::database(registeredName, false).isOpen());

        const QStringList records = on.newRecords();
        QCOMPARE(records, refusedRecords(registeredName));
        QVERIFY2(records[1].contains(reason), qPrintable(records[1]));
        QVERIFY(password.isEmpty() || !records.join('\n').contains(password));
    }
    on.connect(QString()); // it goes on
    QCOMPARE(on.manager->executeSelectQuery("select 7", nullptr), QString("7"));
    on.newRecords();
}

void TestDatabaseConnection::refusedWithEverythingEmpty()
{
    QSqlDatabase* db = nullptr;
    const QByteArray said = outputs([&] { db = on.manager->createConnection("QPSQL7", "", "", "", "", "empty"); });
    QVERIFY(!db);
    QCOMPARE(said, QByteArray());
    QVERIFY(QSqlDatabase::contains("empty"));
    const QStringList records = on.newRecords();
    QCOMPARE(records, refusedRecords("empty"));
    QVERIFY(records[1].contains("/nowhere/.s.PGSQL.5432"));
}

// The toolkit, whose own list of drivers it is, remarks on standard error that it has no such driver.
void TestDatabaseConnection::unknownDriver()
{
    for (const QString& driver : {QString("QNONE"), QString()}) {
        QSqlDatabase* db = nullptr;
        const QByteArray said = outputs([&] {
            db = on.manager->createConnection(driver, PostgresCluster::database(), PostgresCluster::user(),
                                              PostgresCluster::password(), on.server.host(), "none");
        });
        QVERIFY(!db);
        QVERIFY2(said.startsWith("QSqlDatabase: " + driver.toUtf8() + " driver not loaded"), said.constData());
        QVERIFY(!said.contains(PostgresCluster::password().toUtf8()));
        QVERIFY(!QSqlDatabase::database("none", false).isValid());
        QCOMPARE(on.newRecords(), QStringList {"ERROR: Failed to connect to driver"});
    }
    QVERIFY(on.connect("none")->isOpen()); // it goes on
    on.newRecords();
}

void TestDatabaseConnection::replaced_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the default connection") << "";
    QTest::newRow("a name") << "kitchen";
}

void TestDatabaseConnection::replaced()
{
    QFETCH(QString, name);

    QSqlDatabase* const db = on.connect(name);
    const QString session = sessionOf(*db);
    QCOMPARE(sessions(session), QString("1"));
    on.newRecords();

    QSqlDatabase* again = nullptr;
    const QByteArray said = outputs([&] { again = on.connect(name, "second"); });
    QCOMPARE(said, QByteArray());
    QCOMPARE(again, db);
    QCOMPARE(on.execute("select current_database()", db), QString("second"));
    QCOMPARE(on.execute("select current_database()", on.second), QString("second")); // not concerned
    QTRY_COMPARE_WITH_TIMEOUT(sessions(session), QString("0"), 60000);
    QCOMPARE(on.newRecords(), QStringList {establishedRecord("second")});
}

void TestDatabaseConnection::replacedInVain_data()
{
    QTest::addColumn<QString>("driver");
    QTest::newRow("by one that is refused") << "QPSQL7";
    QTest::newRow("by one without a driver") << "QNONE";
}

// The earlier one is closed all the same.
void TestDatabaseConnection::replacedInVain()
{
    QFETCH(QString, driver);

    const QString session = sessionOf(*on.connect("kitchen"));
    remarks([&] {
        QVERIFY(!on.manager->createConnection(driver, "nowhere", PostgresCluster::user(), PostgresCluster::password(),
                                              on.server.host(), "kitchen"));
    });
    QTRY_COMPARE_WITH_TIMEOUT(sessions(session), QString("0"), 60000);
    QVERIFY(!QSqlDatabase::database("kitchen", false).isOpen());
    on.newRecords();
}

// Who still has the pointer of the earlier one executes nothing with it, least of all elsewhere.
void TestDatabaseConnection::connectionWithoutDriverIsNotTheDefault()
{
    QSqlDatabase* const db = on.connect("kitchen");
    remarks([&] { QVERIFY(!on.manager->createConnection("QNONE", "", "", "", "", "kitchen")); });
    on.newRecords();
    on.newStatements();

    remarks([&] { QCOMPARE(on.manager->executeQuery("drop table if exists orders", db), -1); });
    QCOMPARE(on.newStatements(), QStringList());
    QCOMPARE(on.newRecords().filter(QRegularExpression("^ERROR: ")).size(), 2);
}

// Who does not look at the result of opening goes on in another database.
void TestDatabaseConnection::nullOfAFailureIsTheDefault()
{
    on.connect(QString());
    QSqlDatabase* const db = on.manager->createConnection("QPSQL7", "nowhere", PostgresCluster::user(),
                                                          PostgresCluster::password(), on.server.host(), "kitchen");
    QCOMPARE(on.manager->executeSelectQuery("select current_database()", db), PostgresCluster::database());
    on.newRecords();
}

void TestDatabaseConnection::settings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("database");
    QTest::newRow("the default connection") << "" << QByteArray("zelmora_test");
    QTest::newRow("a name") << "kitchen" << QByteArray("second");
}

void TestDatabaseConnection::settings()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, database);

    useSettings(databaseSettings(database, "correct-horse", on.server.host()));
    QSqlDatabase* db = nullptr;
    const QByteArray said = outputs([&] { db = HLibrary::newDBConnection(name); });
    QCOMPARE(said, QByteArray());
    QVERIFY(db);
    QCOMPARE(db->driverName(), driverName());
    QCOMPARE(db->connectionName(), name.isEmpty() ? defaultName() : name);
    QCOMPARE(on.newRecords(), QStringList {establishedRecord(database)});
    QCOMPARE(on.execute(whoAndWhere, db), "zelmora in " + database);

    useSettings(databaseSettings(database, "battery-staple", on.server.host()));
    const QByteArray saidAgain = outputs([&] { db = HLibrary::newDBConnection(name); });
    QCOMPARE(saidAgain, QByteArray());
    QVERIFY(!db);
    const QStringList records = on.newRecords();
    QCOMPARE(records, refusedRecords(name.isEmpty() ? defaultName() : name));
    QVERIFY(records[1].contains("password authentication failed for user \"zelmora\""));
    QVERIFY(!records.join('\n').contains("battery-staple"));
}

void TestDatabaseConnection::absentSettings()
{
    useSettings(QByteArray());
    QSqlDatabase* db = nullptr;
    const QByteArray said = outputs([&] { db = HLibrary::newDBConnection("absent"); });
    QVERIFY(!db);
    QCOMPARE(said, QByteArray());
    const QSqlDatabase registered = QSqlDatabase::database("absent", false);
    QCOMPARE(registered.databaseName() + registered.userName() + registered.password() + registered.hostName(),
             QString());
    QCOMPARE(on.newRecords(), refusedRecords("absent"));
}

void TestDatabaseConnection::processes_data()
{
    QTest::addColumn<QString>("task");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("remark"); // the beginning of it, on standard error

    const QByteArray noSettings = "Error in the method FileReader::open( /nowhere/.zelmora/conf/zelmora.conf ): "
                                  "File Not Found\n";
    const QByteArray noDriver = "ERROR: Failed to connect to driver\n";
    const QByteArray none;
    QTest::newRow("connections are left open") << "--leave-open" << none << none;
    QTest::newRow("a singleton has a last statement")
        << "--speak-last" << QByteArray("good night\n") << QByteArray("QSqlQuery::exec: database not open");
    QTest::newRow("a connection was refused") << "--leave-refused" << none << none;
    QTest::newRow("the settings' connection is the first use") << "--leave-from-settings" << noSettings << none;
    QTest::newRow("there is no application") << "--no-application" << QByteArray("open\n") << none;
    QTest::newRow("there is no application any more") << "--application-gone" << QByteArray("open\n") << none;
    QTest::newRow("no plug-in") << "--without-plug-ins" << noSettings + noDriver
                                << "QSqlDatabase: " + driverName().toUtf8() + " driver not loaded";
}

void TestDatabaseConnection::processes()
{
    QFETCH(QString, task);
    QFETCH(QByteArray, output);
    QFETCH(QByteArray, remark);

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", "/nowhere");
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {task, on.server.host()});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardOutput(), output);
    const QByteArray said = process.readAllStandardError();
    QCOMPARE(said.isEmpty(), remark.isEmpty());
    QVERIFY2(said.startsWith(remark), said.constData());
}

int main(int argc, char** argv)
{
    const QByteArray task = argc == 3 ? argv[1] : "";
    if (task == "--no-application")
        return openWithoutApplication(QFile::decodeName(argv[2]));
    if (task == "--application-gone") {
        leaveOpenInAnApplication(argc, argv);
        return openWithoutApplication(QFile::decodeName(argv[2]));
    }
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && tasks.contains(arguments[1]))
        return tasks[arguments[1]](arguments[2]);
    TestDatabaseConnection test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_databaseconnection.moc"
