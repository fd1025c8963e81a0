#include "support/examples.h"

#include <QtTest>

/// What scripts/build-till puts into dist/.
class TestTillPackage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void contents();
    void readmeHasTenLines();
    void licences();
    void noPathOfTheMachine();
    void smallEnough();
    void installed_data();
    void installed();
    void everybodyMayPrint();
    void refused_data();
    void refused();
    void relinked();
    void twoBuildsGiveTheSameBytes();

private:
    QByteArray shell(const QByteArray& commands);

    ProgramRun run;
};

static const QString archive = ZELMORA_SOURCE "/dist/" ZELMORA_PACKAGE ".tar.gz";
static const QString objects = ZELMORA_SOURCE "/dist/" ZELMORA_PACKAGE "-objects.tar.gz";
static const QString ordinaryProgram = ZELMORA_PRINT_PROGRAM;
static const QByteArray inside = "cd " ZELMORA_PACKAGE "\n";

/// What the commands say in the scratch folder, in which both archives are unpacked.
QByteArray TestTillPackage::shell(const QByteArray& commands)
{
    run.startShell("exec 2>&1\n" + commands);
    return run.remarks();
}

void TestTillPackage::initTestCase()
{
    run.setPatience(30);
    run.setEnvironment("archive", archive);
    run.setEnvironment("objects", objects);
    run.setEnvironment("source", ZELMORA_SOURCE);
    run.setEnvironment("package", ZELMORA_PACKAGE);
    run.setEnvironment("PATH", qEnvironmentVariable("PATH"));
    static const QRegularExpression prefix("\nCMAKE_PREFIX_PATH:[A-Z]+=(.+)\n");
    const QString toolkit =
        prefix.match(QString::fromUtf8(fileContents(ZELMORA_SOURCE "/build/till/CMakeCache.txt"))).captured(1);
    QVERIFY(QFile::exists(toolkit + "/source.dsc"));
    run.setEnvironment("toolkit", toolkit);
    QCOMPARE(shell(R"(tar -xf "$archive" && tar -xf "$objects")"), QByteArray());
}

void TestTillPackage::contents()
{
    QCOMPARE(shell(inside + "find . -type f | LC_ALL=C sort"),
             QByteArray("./README\n./bin/zelmora-print\n./install\n"
                        "./licenses/GPL-3\n./licenses/LGPL-2.1\n./licenses/LGPL-3\n./licenses/README\n"
                        "./licenses/libc6.copyright\n./licenses/libstdc++.copyright\n./licenses/qtbase.copyright\n"
                        "./share/zelmora/printjob.xsd\n./share/zelmora/translations/zelmora_it.qm\n"
                        "./share/zelmora/zelmora.conf\n"));
    QCOMPARE(shell(inside + R"(find . ! -perm 755 -type f -perm /111; find . -perm /022 ! -type l)"), QByteArray());
    QCOMPARE(shell(R"(tar --utc -tvf "$archive" | grep -v ' 0/0 .* 1970-01-01 ')"), QByteArray("\nexit status 1"));
}

void TestTillPackage::readmeHasTenLines()
{
    const QByteArray readme = fileContents(run.path(ZELMORA_PACKAGE "/README"));
    QCOMPARE(readme.count('\n'), 10);
    QVERIFY2(!readme.contains('@'), readme.constData());
    QVERIFY2(readme.contains("/opt/zelmora"), readme.constData());
}

void TestTillPackage::licences()
{
    const auto licence = [&](const char* name) {
        return QString::fromUtf8(fileContents(run.path((QByteArray(ZELMORA_PACKAGE "/licenses/") + name).constData())));
    };
    QVERIFY(licence("LGPL-3").contains("GNU LESSER GENERAL PUBLIC LICENSE"));
    QVERIFY(licence("LGPL-2.1").contains("GNU LESSER GENERAL PUBLIC LICENSE"));
    QVERIFY(licence("GPL-3").contains("GNU GENERAL PUBLIC LICENSE"));
    QVERIFY(licence("qtbase.copyright").contains("src/3rdparty/zlib"));
    QVERIFY(licence("libstdc++.copyright").contains("GCC Runtime Library Exception"));
    static const QRegularExpression version("Source package qtbase-opensource-src 5\\.15\\.\\S+, with all");
    QVERIFY2(version.match(licence("README")).hasMatch(), qPrintable(licence("README")));
}

void TestTillPackage::noPathOfTheMachine()
{
    QVERIFY(shell(R"(strings -a */bin/zelmora-print | grep -c 'nofis riga=')").startsWith('1'));
    QCOMPARE(shell(R"(grep -rlaF -e "$source" -e "${toolkit%/*}" . --include='*' --exclude=commands.sh)"),
             QByteArray("\nexit status 1"));
}

void TestTillPackage::smallEnough()
{
    const qint64 size = QFileInfo(run.path(ZELMORA_PACKAGE "/bin/zelmora-print")).size();
    QVERIFY2(size > 0 && size <= 6000000, QByteArray::number(size).constData());
}

void TestTillPackage::installed_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::newRow("a folder that is not there yet") << "a/b/c";
    QTest::newRow("a name with a blank, a slash at its end") << "my till/";
    QTest::newRow("a name with marks of the shell and the stream editor") << "a&b|c,d$(e)`'f#*={}";
    QTest::newRow("what is there is replaced") << "a/b/c";
}

void TestTillPackage::installed()
{
    QFETCH(QString, prefix);
    run.setEnvironment("prefix", prefix);
    QVERIFY(shell(R"(")" ZELMORA_PACKAGE R"(/install" "$prefix")").startsWith("Installed: "));
    const QString settings =
        QString::fromUtf8(fileContents(run.path((prefix + "/share/zelmora/zelmora.conf").toUtf8())));
    const QString folder = QDir::cleanPath(run.path(prefix.toUtf8().constData()));
    QVERIFY2(settings.contains("basedir = \"" + folder + "/share/zelmora/translations/\";"), qPrintable(settings));

    ProgramRun installed(folder + "/bin/zelmora-print");
    installed.setSettings(settings.toUtf8());
    const QByteArray job = fileContents(examples.filePath("receipt.xml"));
    QCOMPARE(installed.print(job), ExampleRun(ordinaryProgram).print(job));
    ProgramRun check(ZELMORA_CHECK_PROGRAM);
    check.start({"--schema"});
    QCOMPARE(fileContents(folder + "/share/zelmora/printjob.xsd"), check.standardOutput);
}

/// Whatever root's own files are made with.
void TestTillPackage::everybodyMayPrint()
{
    QVERIFY(shell("umask 077; " ZELMORA_PACKAGE "/install guarded").startsWith("Installed: "));
    QCOMPARE(shell("find guarded -type d ! -perm 755; find guarded -type f ! -perm -444"), QByteArray());
}

void TestTillPackage::refused_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("two folders") << QByteArray("a b") << QByteArray("one folder at most is expected, not: a b");
    QTest::newRow("a folder without a name") << QByteArray("''") << QByteArray("the folder has no name.");
    QTest::newRow("a quote") << QByteArray("'a\"b'") << QByteArray("the settings could not name the catalogue there.");
    QTest::newRow("a semicolon") << QByteArray("'a;b'")
                                 << QByteArray("the settings could not name the catalogue there.");
    QTest::newRow("an accent") << QByteArray("caff\xc3\xa8") << QByteArray("the settings could not name the catalogue");
    QTest::newRow("a line break at the end") << QByteArray("'a\n'") << QByteArray("the settings could not name the");
    QTest::newRow("a call for help") << QByteArray("--help")
                                     << QByteArray("there is no option --help; a folder of that");
    QTest::newRow("a program that is a folder")
        << QByteArray("taken") << QByteArray("taken/bin/zelmora-print cannot be");
    QTest::newRow("a folder that is a file")
        << QByteArray("file/x") << QByteArray("file/x/bin/zelmora-print cannot be");
}

void TestTillPackage::refused()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QByteArray, said);
    const QByteArray answer =
        shell("touch file; mkdir -p taken/bin/zelmora-print; ./" ZELMORA_PACKAGE "/install " + arguments);
    QVERIFY2(answer.contains("install: ") && answer.contains(said) && answer.endsWith("exit status 1"),
             answer.constData());
    QCOMPARE(shell("ls -d file/* b a\\\"* a\\;* 'a\n'* *help* taken/bin/*/* caff* 2>/dev/null"),
             QByteArray("\nexit status 2"));
}

/// With the toolkit that the program was built with, and the objects of the archive: a program that prints the same.
void TestTillPackage::relinked()
{
    const QByteArray answer = shell("cd " ZELMORA_PACKAGE R"sh(-objects
        ./relink /nowhere; ./relink "$toolkit" ../relinked)sh");
    QVERIFY2(answer.startsWith("relink: there is no /nowhere/lib/libQt5Core.a\n"), answer.constData());
    for (const QString& job : examples.entryList({"*.xml"})) {
        ExampleRun relinked(run.path("relinked"));
        QCOMPARE(relinked.printExample(job), ExampleRun(ordinaryProgram).printExample(job));
        QCOMPARE(relinked.remarks(), QByteArray());
    }
}

/// The tree in another folder, whose name has a blank, and the toolkit in another; built by an ordinary user who is
/// used to another compiler.
void TestTillPackage::twoBuildsGiveTheSameBytes()
{
    QTemporaryDir folder;
    run.setEnvironment("other", folder.path());
    const QByteArray answer = shell(R"sh(set -e
        mkdir -p "$other/another tree" "$other/home" "$other/cache/zelmora"
        cp -r "$toolkit" "$other/cache/zelmora"
        cd "$source"
        tar -c --exclude=./build --exclude=./dist --exclude=./.git . | tar -x -C "$other/another tree"
        cd "$other/another tree"
        export HOME="$other/home" XDG_CACHE_HOME="$other/cache" CXX=/bin/false
        set -- scripts/build-till --source "$(echo "$other/cache"/zelmora/toolkit-*)/source.dsc"
        if [ "$(id -u)" = 0 ]; then
            chown -R nobody:nogroup "$other"
            set -- setpriv --reuid=nobody --regid=nogroup --clear-groups "$@"
        fi
        "$@"
        cmp "dist/$package.tar.gz" "$archive"
        cmp "dist/$package-objects.tar.gz" "$objects"
        echo the same)sh");
    QVERIFY2(answer.endsWith("the same\n"), answer.constData());
    QVERIFY2(!answer.contains("Building the toolkit"), answer.constData());
}

QTEST_GUILESS_MAIN(TestTillPackage)
#include "tst_tillpackage.moc"
