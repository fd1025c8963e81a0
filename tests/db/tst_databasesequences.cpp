#include "databasefixture.h"

#include <QtTest>

#include <climits>

/// Sequences, on the default connection by null and on another one: statements at the server, result, log records,
/// and what the sequence's next number is.
class TestDatabaseSequences : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void sequenceValue_data();
    void sequenceValue();
    void setSequence_data();
    void setSequence();
    void incrementSequence_data();
    void incrementSequence();
    void decrementSequence_data();
    void decrementSequence();
    void decrementSequenceIfPositive_data();
    void decrementSequenceIfPositive();
    void decrementSequenceIfPositiveOfTheDefaultDatabase();
    void valueThatIsNoNumber_data();
    void valueThatIsNoNumber();
    void missingSequence();
    void valueThatMayNotBeRead();
    void valueOutOfBounds();
    void sharedManagerReads();

private:
    void checkStep(QString (DatabaseManager::*move)(const QString&, int, QSqlDatabase*));
    void makeSequence(const QString& start, const QSqlDatabase* db);
    QString lastValue(const QSqlDatabase* db);

    DatabaseFixture on;
};

namespace {

const char method[] = "executeSelectQuery(...)";
const char readSql[] = "select last_value from tickets";

QString setSql(const QString& value)
{
    return "SELECT setval('tickets', " + value + ")";
}

/// Of two tables that are alike: the first value, the step, what is set.
void addStepRows(const QString& sign)
{
    QTest::addColumn<bool>("second"); // the other connection, or null
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("set");

    const auto row = [&sign](const char* name, bool second, const char* value, int step, const char* set) {
        QTest::newRow(qPrintable(sign + name)) << second << value << step << set;
    };
    if (sign == "+") {
        row("3 at 10", false, "10", 3, "13");
        row("3 at 10 of the second database", true, "10", 3, "13");
        row("nothing", false, "10", 0, "10");
        row("a negative step", false, "10", -12, "-2");
        row("1 at the largest number", true, "2147483647", 1, "-2147483648");
        row("3 at what is larger", false, "2147483648", 3, "3");
        row("3 at what is smaller", false, "-2147483649", 3, "3");
    } else {
        row("3 at 10", false, "10", 3, "7");
        row("3 at 10 of the second database", true, "10", 3, "7");
        row("3 at 2", false, "2", 3, "-1");
        row("a negative step", false, "10", -12, "22");
        row("1 at the smallest number", true, "-2147483648", 1, "2147483647");
        row("the smallest number", false, "5", INT_MIN, "-2147483643");
    }
}

} // namespace

void TestDatabaseSequences::cleanup()
{
    QCOMPARE(on.newRecords(), QStringList()); // each test knows them all
    QCOMPARE(on.newStatements(), QStringList());
}

/// Not used yet, without bounds that matter.
void TestDatabaseSequences::makeSequence(const QString& start, const QSqlDatabase* db)
{
    on.execute("set client_min_messages = warning; drop sequence if exists tickets", db);
    on.execute("create sequence tickets minvalue -9000000000 start " + start, db);
}

QString TestDatabaseSequences::lastValue(const QSqlDatabase* db)
{
    return on.execute("select last_value from tickets", db);
}

void TestDatabaseSequences::sequenceValue_data()
{
    QTest::addColumn<bool>("second");
    QTest::addColumn<QString>("start");
    QTest::newRow("where it starts") << false << "1";
    QTest::newRow("where that of the second database starts") << true << "17";
    QTest::newRow("negative") << false << "-4";
    QTest::newRow("beyond 32 bits") << true << "4294967297";
}

void TestDatabaseSequences::sequenceValue()
{
    QFETCH(bool, second);
    QFETCH(QString, start);
    makeSequence(start, second ? on.second : on.first);

    QCOMPARE(on.manager->sequenceValue("tickets", second ? on.second : nullptr), start);
    QCOMPARE(on.newStatements(), QStringList {readSql});
    QCOMPARE(on.newRecords(), shown(method, readSql, 1));
}

void TestDatabaseSequences::setSequence_data()
{
    QTest::addColumn<bool>("second");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("sql");
    QTest::newRow("5") << false << 5 << "SELECT setval('tickets', 5)";
    QTest::newRow("of the second database") << true << 12 << "SELECT setval('tickets', 12)";
    QTest::newRow("0") << false << 0 << "SELECT setval('tickets', 0)";
    QTest::newRow("the smallest") << true << INT_MIN << "SELECT setval('tickets', -2147483648)";
    QTest::newRow("the largest") << false << INT_MAX << "SELECT setval('tickets', 2147483647)";
}

void TestDatabaseSequences::setSequence()
{
    QFETCH(bool, second);
    QFETCH(int, value);
    QFETCH(QString, sql);
    QSqlDatabase* const db = second ? on.second : on.first;
    makeSequence("1", db);

    on.manager->setSequence("tickets", value, second ? db : nullptr);
    QCOMPARE(on.newStatements(), QStringList {sql});
    QCOMPARE(on.newRecords(), shown(method, sql, 1));
    QCOMPARE(on.execute("select nextval('tickets')", db), QString::number(qint64(value) + 1));
}

void TestDatabaseSequences::incrementSequence_data()
{
    addStepRows("+");
}

/// The current row, with the operation that takes its step.
void TestDatabaseSequences::checkStep(QString (DatabaseManager::*move)(const QString&, int, QSqlDatabase*))
{
    QFETCH(bool, second);
    QFETCH(QString, value);
    QFETCH(int, step);
    QFETCH(QString, set);
    QSqlDatabase* const db = second ? on.second : on.first;
    makeSequence(value, db);

    QCOMPARE((on.manager->*move)("tickets", step, second ? db : nullptr), value);
    QCOMPARE(on.newStatements(), QStringList({readSql, setSql(set)}));
    QCOMPARE(on.newRecords(), shown(method, readSql, 1) + shown(method, setSql(set), 1));
    QCOMPARE(lastValue(db), set);
}

void TestDatabaseSequences::incrementSequence()
{
    checkStep(&DatabaseManager::incrementSequence);
}

void TestDatabaseSequences::decrementSequence_data()
{
    addStepRows("-");
}

void TestDatabaseSequences::decrementSequence()
{
    checkStep(&DatabaseManager::decrementSequence);
}

void TestDatabaseSequences::decrementSequenceIfPositive_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("set"); // empty: nothing is
    QTest::newRow("less than the step") << "2" << 3 << "";
    QTest::newRow("the step") << "3" << 3 << "0";
    QTest::newRow("more than the step") << "4" << 3 << "1";
    QTest::newRow("0 and no step") << "0" << 0 << "0";
    QTest::newRow("negative") << "-1" << 0 << "";
    QTest::newRow("a negative step") << "-1" << -1 << "0";
    QTest::newRow("beyond 32 bits counts 0") << "4294967396" << 1 << "";
    QTest::newRow("the smallest number as the step") << "5" << INT_MIN << "-2147483643";
}

void TestDatabaseSequences::decrementSequenceIfPositive()
{
    QFETCH(QString, value);
    QFETCH(int, step);
    QFETCH(QString, set);

    for (QSqlDatabase* const db : {static_cast<QSqlDatabase*>(nullptr), on.first}) {
        makeSequence(value, on.first);
        QCOMPARE(on.manager->decrementSequenceIfPositive("tickets", step, db), !set.isEmpty());
        if (set.isEmpty()) {
            QCOMPARE(on.newStatements(), QStringList {readSql});
            QCOMPARE(on.newRecords(), shown(method, readSql, 1));
            QCOMPARE(lastValue(on.first), value);
        } else {
            QCOMPARE(on.newStatements(), QStringList({readSql, readSql, setSql(set)}));
            QCOMPARE(on.newRecords(),
                     shown(method, readSql, 1) + shown(method, readSql, 1) + shown(method, setSql(set), 1));
            QCOMPARE(lastValue(on.first), set);
        }
    }
}

// The sequence of the default database decides whether that of the other one is moved.
void TestDatabaseSequences::decrementSequenceIfPositiveOfTheDefaultDatabase()
{
    makeSequence("10", on.first);
    makeSequence("2", on.second);
    QVERIFY(on.manager->decrementSequenceIfPositive("tickets", 3, on.second));
    QCOMPARE(on.newStatements(), QStringList({readSql, readSql, setSql("-1")}));
    QCOMPARE(lastValue(on.first), QString("10"));
    QCOMPARE(lastValue(on.second), QString("-1"));

    makeSequence("2", on.first);
    makeSequence("10", on.second);
    QVERIFY(!on.manager->decrementSequenceIfPositive("tickets", 3, on.second));
    QCOMPARE(on.newStatements(), QStringList {readSql});
    QCOMPARE(lastValue(on.first), QString("2"));
    QCOMPARE(lastValue(on.second), QString("10"));

    QCOMPARE(on.newRecords(),
             shown(method, readSql, 1) + shown(method, readSql, 1) + shown(method, setSql("-1"), 1)
                 + shown(method, readSql, 1));
}

void TestDatabaseSequences::valueThatIsNoNumber_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("set");
    QTest::newRow("a word") << "seven"
                            << "3";
    QTest::newRow("empty") << ""
                           << "3";
    QTest::newRow("a number and a word") << "7 tickets"
                                         << "3";
    QTest::newRow("with decimals") << "7.0"
                                   << "3";
    QTest::newRow("hexadecimal") << "0x10"
                                 << "3";
    QTest::newRow("a minus sign that is not ASCII") << "\u22127"
                                                    << "3";
    QTest::newRow("not octal") << "010"
                               << "13";
}

// What is read need not be a sequence's; only to set it fails then.
void TestDatabaseSequences::valueThatIsNoNumber()
{
    QFETCH(QString, value);
    QFETCH(QString, set);
    on.execute("create or replace view odd as select '" + value + "'::text as last_value", on.second);
    const QString read = "select last_value from odd";
    const QString change = "SELECT setval('odd', " + set + ")";
    const QString text = databaseText(change, *on.second);
    QVERIFY2(text.contains("\"odd\" is not a sequence"), qPrintable(text));
    on.newStatements();

    QCOMPARE(on.manager->incrementSequence("odd", 3, on.second), value);
    QCOMPARE(on.newStatements(), QStringList({read, change}));
    QCOMPARE(on.newRecords(), shown(method, read, 1) + failed(method, change, text));
}

void TestDatabaseSequences::missingSequence()
{
    const QString read = "select last_value from nowhere";
    const QString add = "SELECT setval('nowhere', 3)";
    const QString subtract = "SELECT setval('nowhere', -3)";
    const QString reset = "SELECT setval('nowhere', 0)";
    const QString readText = databaseText(read, *on.first);
    const QString setText = databaseText(add, *on.first);
    QVERIFY(setText.contains("relation \"nowhere\" does not exist"));
    on.newStatements();
    const QStringList readRecords = failed(method, read, readText);

    QCOMPARE(on.manager->sequenceValue("nowhere", nullptr), QString());
    QCOMPARE(on.newStatements(), QStringList {read});
    QCOMPARE(on.newRecords(), readRecords);

    on.manager->setSequence("nowhere", 3, nullptr);
    QCOMPARE(on.newStatements(), QStringList {add});
    QCOMPARE(on.newRecords(), failed(method, add, databaseText(add, *on.first)));
    on.newStatements();

    QCOMPARE(on.manager->incrementSequence("nowhere", 3, nullptr), QString());
    QCOMPARE(on.newStatements(), QStringList({read, add}));
    QCOMPARE(on.newRecords(), readRecords + failed(method, add, databaseText(add, *on.first)));
    on.newStatements();

    QCOMPARE(on.manager->decrementSequence("nowhere", 3, nullptr), QString());
    QCOMPARE(on.newStatements(), QStringList({read, subtract}));
    QCOMPARE(on.newRecords(), readRecords + failed(method, subtract, databaseText(subtract, *on.first)));
    on.newStatements();

    QVERIFY(!on.manager->decrementSequenceIfPositive("nowhere", 3, nullptr));
    QCOMPARE(on.newStatements(), QStringList {read});
    QCOMPARE(on.newRecords(), readRecords);

    QVERIFY(on.manager->decrementSequenceIfPositive("nowhere", 0, nullptr)); // 0 is not less than 0
    QCOMPARE(on.newStatements(), QStringList({read, read, reset}));
    QCOMPARE(on.newRecords(), readRecords + readRecords + failed(method, reset, databaseText(reset, *on.first)));
    on.newStatements();
}

// The numbering begins anew where only the reading fails: a value that is not there counts as 0.
void TestDatabaseSequences::valueThatMayNotBeRead()
{
    makeSequence("1078", on.second);
    on.execute("create role clerk; grant update on sequence tickets to clerk; set role clerk", on.second);
    const QString text = databaseText(readSql, *on.second);
    QVERIFY2(text.contains("permission denied for sequence tickets"), qPrintable(text));
    on.newStatements();

    QCOMPARE(on.manager->incrementSequence("tickets", 1, on.second), QString());
    QCOMPARE(on.newStatements(), QStringList({readSql, setSql("1")}));
    QCOMPARE(on.newRecords(), failed(method, readSql, text) + shown(method, setSql("1"), 1));
    on.execute("reset role", on.second);
    QCOMPARE(lastValue(on.second), QString("1"));
    on.execute("drop sequence tickets; drop role clerk", on.second);
}

void TestDatabaseSequences::valueOutOfBounds()
{
    on.execute("create sequence tables maxvalue 12", on.first);
    const QString read = "select last_value from tables";
    const QString set = "SELECT setval('tables', 14)";
    const QString text = databaseText(set, *on.first);
    QVERIFY2(text.contains("out of bounds"), qPrintable(text));
    on.execute("select setval('tables', 11)", on.first);

    QCOMPARE(on.manager->incrementSequence("tables", 3, nullptr), QString("11"));
    QCOMPARE(on.newStatements(), QStringList({read, set}));
    QCOMPARE(on.newRecords(), shown(method, read, 1) + failed(method, set, text));
    QCOMPARE(on.execute("select nextval('tables')", on.first), QString("12"));
}

// Another manager reads through the shared one, and writes itself.
void TestDatabaseSequences::sharedManagerReads()
{
    makeSequence("10", on.first);
    ManagerLog otherLog;
    DatabaseManager other;
    QCOMPARE(other.incrementSequence("tickets", 3, on.first), QString("10"));
    QCOMPARE(on.newRecords(), shown(method, readSql, 1));
    QCOMPARE(otherLog.newRecords(), shown(method, setSql("13"), 1));
    QCOMPARE(on.newStatements(), QStringList({readSql, setSql("13")}));
}

QTEST_GUILESS_MAIN(TestDatabaseSequences)
#include "tst_databasesequences.moc"
