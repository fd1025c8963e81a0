#include "preview/printhome.h"
#include "support/files.h"
#include "support/ordinaryuser.h"
#include "support/processstate.h"

#include <QTemporaryDir>
#include <QtTest>

class TestPrintHome : public QObject {
    Q_OBJECT

private slots:
    void holdsTheSettingsByteForByte();
    void holdsNothingWithoutSettings();
    void nobodyElseMayEnter();
    void goesWithAllThatIsInIt();
    void saysWhyItCannotBeMade();
    void aWriteThatFailsEndsNobody();
};

using preview::PrintHome;

void TestPrintHome::holdsTheSettingsByteForByte()
{
    const QByteArray settings = QByteArrayLiteral("zelmora: {\r\n doc: { a = \xE8\0; };\n};");
    const PrintHome home(settings);
    QCOMPARE(home.reason(), QString());
    QCOMPARE(fileContents(home.path() + "/.zelmora/conf/zelmora.conf"), settings);
}

void TestPrintHome::holdsNothingWithoutSettings()
{
    const PrintHome home(std::nullopt);
    QCOMPARE(home.reason(), QString());
    QCOMPARE(filesIn(home.path()), QStringList());

    const PrintHome another(QByteArray(""));
    QVERIFY(QFileInfo(another.path() + "/.zelmora/conf/zelmora.conf").isFile());
    QVERIFY(home.path() != another.path());
}

void TestPrintHome::nobodyElseMayEnter()
{
    const PrintHome home(QByteArray("zelmora: { db: { password = secret; }; };"));
    QCOMPARE(permissionsOf(home.path()), mode_t(0700));
}

void TestPrintHome::goesWithAllThatIsInIt()
{
    QString path;
    {
        const PrintHome home(QByteArray("zelmora: { };"));
        path = home.path();
        writeBytes(path + "/more.txt", "more");
    }
    QVERIFY(!path.isEmpty() && !QFileInfo::exists(path));
}

void TestPrintHome::saysWhyItCannotBeMade()
{
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/dev/null");
    const PrintHome home(QByteArray("zelmora: { };"));
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    QCOMPARE(home.reason(), QString("Not a directory"));
}

void TestPrintHome::aWriteThatFailsEndsNobody()
{
    const FileSizeLimit limit(1);
    const PrintHome home(QByteArray("zelmora: { };"));
    QCOMPARE(home.reason(), QString::fromLocal8Bit(strerror(EFBIG)));
}

QTEST_GUILESS_MAIN(TestPrintHome)
#include "tst_printhome.moc"
