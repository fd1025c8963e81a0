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
    void diskOfTheTreeTooSmall();
    void interrupted();
    void twice();
    void relativeCache();
    void keyOfTheToolkit();
    void sourceOfDebian();
    void notOfDebian_data();
    void notOfDebian();
};

/// Runs of the script with a cache folder of their own, on a machine whose apt has its files in the folder "machine",
/// and is set up by machine.list alone: a source that nobody reaches.
class BuildRun : public ProgramRun {
public:
    BuildRun()
        : ProgramRun(ZELMORA_SOURCE "/scripts/build-till")
    {
        setEnvironment("XDG_CACHE_HOME", path("cache"));
        writeFile("machine.list", "deb http://127.0.0.1:9/debian stable main\n");
        const QByteArray apt = R"(
            Dir::Etc::Main "/dev/null";
            Dir::Etc::Parts "/dev/null";
            Dir::Etc::SourceParts "/dev/null";
            Dir::Etc::SourceList "FOLDER/machine.list";
            Dir::State "FOLDER/machine";
            Dir::Cache "FOLDER/machine";
        )";
        setEnvironment("APT_CONFIG",
                       writeFile("apt.conf", QByteArray(apt).replace("FOLDER", QFile::encodeName(path("")))));
        if (!QDir(path("machine")).mkpath("lists/partial"))
            qFatal("The machine's folder can't be made.");
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
    for (const char* name : {"my cache", "a'b", "a$b", "a:b", "caff\xc3\xa8"})
        QTest::addRow("a cache folder by the name of %s", name)
            << name << "toolkit.dsc"
            << QByteArray("which has other characters than a-z, A-Z, 0-9 and / . _ + @ -: name");
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

void TestBuildTill::diskOfTheTreeTooSmall()
{
    ProgramRun bash("/bin/bash");
    bash.start({"-c", R"(source "$1" && till_room / 999999999 "Make room.")", "bash",
                ZELMORA_SOURCE "/scripts/till-toolkit.sh"});
    static const QRegularExpression said(
        "^build-till: The disk of / has \\d+ MB left, and 999999999 are needed. Make room.\n$");
    QVERIFY2(said.match(QString::fromUtf8(bash.standardError)).hasMatch(), bash.standardError);
    QCOMPARE(bash.exitStatus, 1);
}

/// A build that was killed leaves its folder; the next call takes it away.
void TestBuildTill::interrupted()
{
    BuildRun run;
    QVERIFY(QDir(run.path("cache")).mkpath("zelmora/building.abcdef/source"));
    run.start({});
    QCOMPARE(run.left(), QStringList());
}

/// Who comes second does nothing until the first has let go of the lock.
void TestBuildTill::twice()
{
    BuildRun run;
    run.startShell(R"sh(
        mkdir -p cache/zelmora
        exec 8>cache/zelmora/lock
        flock 8
        "$program" --source "$PWD/other.dsc" 2>said 8>&- &
        until grep -q . said; do sleep 0.1; done
        sleep 0.5
        cat said
        exec 8>&-
        wait $!
        tail -n +2 said >&2
    )sh");
    QCOMPARE(run.standardOutput,
             "build-till: Another build-till is at work in " + QFile::encodeName(run.path("cache/zelmora"))
                 + "; waiting for it.\n");
    QVERIFY2(run.standardError.contains("is not the source package qtbase-"), run.standardError);
}

/// It is beside the caller, not in the tree.
void TestBuildTill::relativeCache()
{
    BuildRun run;
    run.setEnvironment("XDG_CACHE_HOME", "beside");
    run.start({"--source", run.path("other.dsc")});
    QVERIFY2(run.standardError.contains("is not the source package qtbase-"), run.standardError);
    QVERIFY(QFile::exists(run.path("beside/zelmora/lock")));
}

/// What is kept for one source is not taken for another that only says that it is the same version.
void TestBuildTill::keyOfTheToolkit()
{
    ProgramRun bash("/bin/bash");
    const QByteArray begin = "Source: qtbase-opensource-src\nVersion: 1:5.15.99-1\nFiles:\n";
    bash.start({"-c", R"(source "$1" && for dsc in "${@:2}"; do till_key "$dsc"; done)", "bash",
                ZELMORA_SOURCE "/scripts/till-toolkit.sh", bash.writeFile("a.dsc", begin + " 1234 9 x.tar.gz\n"),
                bash.writeFile("copy.dsc", begin + " 1234 9 x.tar.gz\n"),
                bash.writeFile("b.dsc", begin + " 1235 9 x.tar.gz\n")});
    const QList<QByteArray> keys = bash.standardOutput.split('\n');
    QCOMPARE(keys.size(), 4);
    QVERIFY2(keys[0].startsWith("5.15.99-1-"), keys[0]);
    QCOMPARE(keys[1], keys[0]);
    QVERIFY2(keys[2].startsWith("5.15.99-1-") && keys[2] != keys[0], keys[2]);
}

/// Makes archives by the shell commands @p making and runs @p commands on a machine for which the key of the one in the
/// folder "debian" is Debian's. False where that can't be.
static bool startWithArchives(BuildRun& run, const QByteArray& making, const QByteArray& commands)
{
    const char* const keyring = "/usr/share/keyrings/debian-archive-keyring.gpg";
    const QByteArray preamble = "set -e\n. " ZELMORA_SOURCE "/tests/till/archive.sh\n"
                                "codename=$(. /etc/os-release && echo \"$VERSION_CODENAME\")\n";
    run.startShell(preamble + making);
    if (!run.remarks().isEmpty())
        qFatal("The archives can't be made: %s", run.remarks().constData());
    return withOwnMounts([&] {
        if (mount(qPrintable(run.path("debian/key.gpg")), keyring, nullptr, MS_BIND, nullptr) == 0)
            run.startShell(preamble + commands);
    });
}

/// It comes from where Debian's keys have signed it, for this release, whatever else the machine has, and the machine's
/// apt notices nothing. There is nothing to build in it.
void TestBuildTill::sourceOfDebian()
{
    BuildRun run;
    const bool isAllowed = startWithArchives(
        run,
        "archive debian stable $codename; archive vendor $codename $codename; archive later oldstable sid\n"
        "cat later/key.gpg >>debian/key.gpg",
        R"sh(
        echo "deb file:$PWD/debian stable main" >machine.list
        echo "deb file:$PWD/vendor $codename main" >>machine.list
        echo "deb file:$PWD/later oldstable main" >>machine.list
        "$program" >said || ls cache/zelmora/source
        find machine -type f
    )sh");
    if (!isAllowed)
        QSKIP("Only root gives a machine other keys.");
    QCOMPARE(run.standardOutput,
             QByteArray("qtbase-opensource-src_5.15.99.dsc\nqtbase-opensource-src_5.15.99.tar.gz\n"));
    const QByteArray leftOut = "build-till: Left out, as it cannot be read or Debian's keys have not signed it for ";
    QCOMPARE(run.standardError.count(leftOut), 2);
    for (const char* other : {"vendor", "later"})
        QVERIFY2(run.standardError.contains(": file:" + QFile::encodeName(run.path(other)) + ' '), run.standardError);
    QVERIFY2(run.standardError.contains("source/configure: No such file or directory\n"), run.standardError);
    QCOMPARE(run.left(), QStringList());
}

void TestBuildTill::notOfDebian_data()
{
    QTest::addColumn<QByteArray>("making");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray archive = "archive debian stable $codename\n";
    const QByteArray noList = "build-till: Debian's lists of source packages cannot be read. Without a network: ";
    QTest::newRow("signed by other keys")
        << archive + "archive vendor stable $codename; rm -r debian/dists; mv vendor/dists debian" << noList;
    QTest::newRow("signed by nobody") << archive + "cd debian/dists/stable; mv InRelease Release" << noList;
    QTest::newRow("signed for another release") << QByteArray("archive debian stable sid") << noList;
    QTest::newRow("another list than the one that was signed")
        << archive + "echo >>debian/dists/stable/main/source/Sources" << noList;
    QTest::newRow("another part than the one in the list")
        << archive + "echo changed >debian/qtbase-opensource-src_5.15.99.tar.gz"
        << QByteArray("build-till: The source package cannot be downloaded. Without a network: ");
    QTest::newRow("other packages alone")
        << "package=hello; " + archive
        << QByteArray("build-till: Debian's lists have no source package qtbase-opensource-src. Without a network: ");
}

void TestBuildTill::notOfDebian()
{
    QFETCH(QByteArray, making);
    QFETCH(QByteArray, reason);
    BuildRun run;
    const bool isAllowed = startWithArchives(run, making, R"(
        echo "deb file:$PWD/debian stable main" >machine.list
        "$program"
    )");
    if (!isAllowed)
        QSKIP("Only root gives a machine other keys.");
    QVERIFY2(run.standardError.contains(reason), run.standardError);
    QCOMPARE(run.exitStatus, 1);
    QCOMPARE(run.left(), QStringList());
}

QTEST_GUILESS_MAIN(TestBuildTill)
#include "tst_buildtill.moc"
