#include "util/hlibrary.h"

#include <QtTest>

/// Paths of the platform, and the names of the database's tools.
class TestPaths : public QObject {
    Q_OBJECT

private slots:
    void emptyOnThisPlatform();
    void dataPathIsTheHome();
    void unchangedOnThisPlatform_data();
    void unchangedOnThisPlatform();
    void toolNames();
};

void TestPaths::emptyOnThisPlatform()
{
    QCOMPARE(HLibrary::appData(), QString());
    QCOMPARE(HLibrary::programFiles(), QString());
}

void TestPaths::dataPathIsTheHome()
{
    for (const char* home : {"/home/cashier", "/srv/till 1/caffè"}) {
        qputenv("HOME", home);
        QCOMPARE(HLibrary::dataPath(), QString(home));
    }
}

void TestPaths::unchangedOnThisPlatform_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << "";
    QTest::newRow("a path") << "/home/cashier/orders.xml";
    QTest::newRow("backslashes") << R"(C:\till\orders.xml)";
    QTest::newRow("doubled and final separators") << "a//b/../c/";
    QTest::newRow("beyond ASCII") << "caffè € 漢";
    QTest::newRow("what looks like UTF-8 read as Latin-1") << "caffÃ¨";
}

void TestPaths::unchangedOnThisPlatform()
{
    QFETCH(QString, text);
    QCOMPARE(HLibrary::toWindowsFormat(text), text);
    QCOMPARE(HLibrary::fromUtf8(text), text);
}

void TestPaths::toolNames()
{
    QCOMPARE(HLibrary::psql(), QString("psql"));
    QCOMPARE(HLibrary::dropdb(), QString("dropdb"));
    QCOMPARE(HLibrary::pg_dump(), QString("pg_dump"));
    QCOMPARE(HLibrary::pg_restore(), QString("pg_restore"));
}

QTEST_GUILESS_MAIN(TestPaths)
#include "tst_paths.moc"
