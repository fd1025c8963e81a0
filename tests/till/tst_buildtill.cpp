#include "support/ownmounts.h"
#include "support/programrun.h"

#include <QtTest>

/// What keeps scripts/build-till from building: it says so, and what to do, and leaves nothing behind.
class TestBuildTill : public QObject {
    Q_OBJECT

private slots:
    void wrongCall_data();
    void wrongCall();
    void refused_data();
    void refused();
    void noNetwork();
    void noNetworkAndASourceOfTheLastTime();
    void diskTooSmall();
    void interrupted();
};

/// Runs of the script with a cache folder of their own, and an apt that reaches nobody.
class BuildRun : public ProgramRun {
public:
    BuildRun()
        : ProgramRun(ZELMORA_SOURCE "/scripts/build-till")
    {
        setEnvironment("XDG_CACHE_HOME", path("cache"));
        setEnvironment("APT_CONFIG",
                       writeFile("apt.conf",
                                 "Acquire::http::Proxy \"http://127.0.0.1:9\";\n"
                                 "Acquire::https::Proxy \"http://127.0.0.1:9\";\n"));
        writeFile("toolkit.dsc", "Source: qtbase-opensource-src\nVersion: 5.15.99-1\n");
        writeFile("other.dsc", "Source: hello\nVersion: 1\n");
    }

    /// Everything that a failed run may leave in the cache folder.
    QStringList left() const { return QDir(path("cache/zelmora")).entryList({"building*", "toolkit*"}); }
};

void TestBuildTill::wrongCall_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("a call for help") << QStringList {"--help"};
    QTest::newRow("a source without a file") << QStringList {"--source"};
    QTest::newRow("a source that is not there") << QStringList {"--source", "/nowhere/x.dsc"};
    QTest::newRow("something more") << QStringList {"--source", "/dev/null", "x"};
}

void TestBuildTill::wrongCall()
{
    QFETCH(QStringList, arguments);
    BuildRun run;
    run.start(arguments);
    QCOMPARE(QString::fromUtf8(run.standardError),
             "build-till: expected nothing, or --source FILE.dsc with a file that can be read, not: "
                 + arguments.join(' ') + '\n');
    QCOMPARE(run.exitStatus, 2);
}

void TestBuildTill::refused_data()
{
    QTest::addColumn<QString>("cache");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("another source package") << "cache"
                                            << "other.dsc" << QByteArray("is not the source package qtbase-");
    QTest::newRow("a source package whose files are missing")
        << "cache"
        << "toolkit.dsc" << QByteArray("Debian's patches: that failed. The lines above");
    QTest::newRow("a cache folder with a blank") << "my cache"
                                                 << "toolkit.dsc" << QByteArray("which has a blank: name");
    QTest::newRow("a cache folder that cannot be made")
        << "other.dsc"
        << "toolkit.dsc" << QByteArray("Name a folder that you may write in XDG_CACHE_HOME.");
}

void TestBuildTill::refused()
{
    QFETCH(QString, cache);
    QFETCH(QString, source);
    QFETCH(QByteArray, reason);
    BuildRun run;
    run.setEnvironment("XDG_CACHE_HOME", run.path(cache.toUtf8()));
    run.start({"--source", run.path(source.toUtf8())});
    QVERIFY2(run.standardError.contains(reason), run.standardError);
    QCOMPARE(run.exitStatus, 1);
    QCOMPARE(run.left(), QStringList());
}

void TestBuildTill::noNetwork()
{
    BuildRun run;
    run.start({});
    const QByteArray reason = "Debian's lists of source packages cannot be read. Without a network: scripts/build-till "
                              "--source FILE.dsc, with Debian's source package qtbase-opensource-src.\n";
    QVERIFY2(run.standardError.endsWith(reason), run.standardError);
    QCOMPARE(run.exitStatus, 1);
    QCOMPARE(run.left(), QStringList());
}

void TestBuildTill::noNetworkAndASourceOfTheLastTime()
{
    BuildRun run;
    QVERIFY(QDir(run.path("cache")).mkpath("zelmora/source"));
    const QString source = run.writeFile("cache/zelmora/source/last.dsc", "Version: 1\n");
    run.start({});
    QVERIFY2(run.standardError.endsWith(" The one that came last is " + QFile::encodeName(source) + '\n'),
             run.standardError);
    QCOMPARE(run.exitStatus, 1);
}

void TestBuildTill::diskTooSmall()
{
    BuildRun run;
    QVERIFY(QDir(run.path("cache")).mkpath("."));
    const bool isAllowed = withOwnMounts([&] {
        if (mount("small", qPrintable(run.path("cache")), "tmpfs", 0, "size=8m") == 0)
            run.start({"--source", run.path("toolkit.dsc")});
    });
    if (!isAllowed)
        QSKIP("Only root mounts a small disk.");
    QVERIFY2(run.standardError.contains("has 8 MB left, and 1500 are needed. Make room, or name another folder"),
             run.standardError);
    QCOMPARE(run.exitStatus, 1);
}

/// A build that was killed leaves its folder; the next call takes it away.
void TestBuildTill::interrupted()
{
    BuildRun run;
    QVERIFY(QDir(run.path("cache")).mkpath("zelmora/building.abcdef/source"));
    run.start({});
    QCOMPARE(run.left(), QStringList());
}

QTEST_GUILESS_MAIN(TestBuildTill)
#include "tst_buildtill.moc"
