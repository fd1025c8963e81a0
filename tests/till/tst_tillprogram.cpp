#include "support/examples.h"
#include "support/smalljob.h"

#include <QtTest>

/// What the static print program needs of a machine: nothing.
class TestTillProgram : public QObject {
    Q_OBJECT

private slots:
    void staticProgram();
    void openedFiles_data();
    void openedFiles();
    void ordinaryProgramIsSeenToOpenLibraries();
    void emptyRoot_data();
    void emptyRoot();
};

static const QString ordinaryProgram = ZELMORA_PRINT_PROGRAM;

/// The files of the system that make code: what @p program opens of them in the locale @p locale while it prints.
static QStringList openedCode(const QString& program, const QString& locale)
{
    ProgramRun run(program);
    run.setEnvironment("LC_ALL", locale);
    run.setSettings("zelmora: { };");
    run.writeFile("job.xml", smallJob);
    run.startShell(R"(strace -f -qq -s 4096 -o trace -e trace=?open,openat "$program" job.xml script.txt)");
    if (run.remarks() != "" || fileContents(run.path("script.txt")) != smallScript())
        qFatal("It did not print: %s", run.remarks().constData());

    const QString trace = QString::fromUtf8(fileContents(run.path("trace")));
    if (!trace.contains("\"job.xml\""))
        qFatal("The trace does not show what is opened: %s", qPrintable(trace));
    // The table of converter modules is read by the C library with each locale; it is no module.
    static const QRegularExpression code("\"([^\"]*(\\.so[^\"]*|/gconv/(?!gconv-modules)[^\"]*))\"");
    QStringList files;
    for (auto found = code.globalMatch(trace); found.hasNext();)
        files += found.next().captured(1);
    return files;
}

void TestTillProgram::staticProgram()
{
    QVERIFY2(qEnvironmentVariableIsSet("ZELMORA_PRINT_PROGRAM"), "Run it by scripts/test --till.");
    QProcess readelf;
    readelf.start("readelf", {"--wide", "--program-headers", "--dynamic", printProgram()});
    QVERIFY(readelf.waitForFinished());
    const QByteArray said = readelf.readAllStandardOutput();
    QVERIFY2(said.contains("There is no dynamic section in this file."), said.constData());
    QVERIFY2(!said.contains("INTERP"), said.constData());
}

void TestTillProgram::openedFiles_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("in the C locale") << "C";
    QTest::newRow("in a locale that is not installed") << "xx_YY.ISO-8859-1";
    QTest::newRow("in a UTF-8 locale") << "C.UTF-8";
    QTest::newRow("in an 8-bit locale") << "it_IT.ISO-8859-15";
}

void TestTillProgram::openedFiles()
{
    QFETCH(QString, locale);
    QCOMPARE(openedCode(printProgram(), locale), QStringList());
}

void TestTillProgram::ordinaryProgramIsSeenToOpenLibraries()
{
    QVERIFY(!openedCode(ordinaryProgram, "C").filter("libQt5Core.so").isEmpty());
}

void TestTillProgram::emptyRoot_data()
{
    QTest::addColumn<QString>("job");
    for (const QString& job : examples.entryList({"*.xml"}))
        QTest::newRow(qPrintable(job)) << job;
}

/// A root with the program, the catalogue, the settings and the job: no /usr, no /dev, no /proc.
void TestTillProgram::emptyRoot()
{
    QFETCH(QString, job);
    ProgramRun ordinary(ordinaryProgram);
    ordinary.setSettings(exampleSettings());
    ordinary.setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path() + "/..");
    const QByteArray script = ordinary.print(fileContents(examples.filePath(job)));
    QCOMPARE(ordinary.remarks(), QByteArray());
    QVERIFY(script.contains("\r\n"));

    ProgramRun run;
    run.setSettings(exampleSettings().replace("\"translations/\"", "\"/\""));
    run.writeFile("job.xml", fileContents(examples.filePath(job)));
    QVERIFY(QFile::copy(ZELMORA_CATALOGUE, run.path("zelmora_it.qm")));
    run.setEnvironment("HOME", "/home");
    run.startShell(R"sh(
        mkdir root
        mv home job.xml zelmora_it.qm root
        cp "$program" root/zelmora-print
        set -- chroot root /zelmora-print /job.xml /script.txt
        [ "$(id -u)" = 0 ] || set -- unshare --map-root-user "$@"
        "$@"
    )sh");
    QCOMPARE(run.remarks(), QByteArray());
    QCOMPARE(fileContents(run.path("root/script.txt")), script);
}

QTEST_GUILESS_MAIN(TestTillProgram)
#include "tst_tillprogram.moc"
