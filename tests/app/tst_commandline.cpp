#include "support/programrun.h"
#include "support/smalljob.h"

#include <QtTest>

/// What the command line accepts and what the process leaves behind, on the real program.
class TestCommandLine : public QObject {
    Q_OBJECT

private slots:
    void wrongArgumentCount_data();
    void wrongArgumentCount();
    void fourthArgumentIsIgnored();
    void argumentIsNeverAToolkitOption();
    void emptyArguments();
    void outputCannotBeOpened_data();
    void outputCannotBeOpened();
    void outputIsTheJobItself();
    void closedStandardStreams();
    void readerWentAway();
    void fileSizeLimit();
    void fileNamesThatLookLikeResources();
    void outOfMemory();
    void warningsAreNeverFatal();
    void homeIsBytes_data();
    void homeIsBytes();
    void fileNamesAreBytes_data();
    void fileNamesAreBytes();
};

static const QByteArray unopened = "PrintManager::printAbstractOrder(...): Unable To Open File\n";
static const QByteArray unsupported = "File Format Not Supported\n";
static const QByteArray unknownMethod = "<job><method name='printInvoice'/></job>";

/// A run that finds a settings file without settings, and the small job in "job.xml".
class SmallJobRun : public ProgramRun {
public:
    SmallJobRun()
    {
        setSettings("zelmora: { };");
        writeFile("job.xml", smallJob);
    }
};

void TestCommandLine::wrongArgumentCount_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no argument") << QStringList {};
    QTest::newRow("one argument") << QStringList {"job.xml"};
    QTest::newRow("four arguments") << QStringList {"job.xml", "script.txt", "a", "b"};
    QTest::newRow("seven arguments") << QStringList {"job.xml", "script.txt", "a", "b", "c", "d", "e"};
    QTest::newRow("a call for help is an argument like any other") << QStringList {"--help"};
}

void TestCommandLine::wrongArgumentCount()
{
    QFETCH(QStringList, arguments);
    ProgramRun run; // without settings, of which nothing is said either
    run.writeFile("job.xml", smallJob);
    run.start(arguments);

    QCOMPARE(run.remarks(), "Usage: " + QFile::encodeName(printProgram()) + " input_file output_file\n");
    QVERIFY(!QFile::exists(run.path("script.txt")));
}

void TestCommandLine::fourthArgumentIsIgnored()
{
    SmallJobRun run;
    run.start({"job.xml", run.path("script.txt"), "extra"});

    QCOMPARE(fileContents(run.path("script.txt")), smallScript());
    QVERIFY(!QFile::exists(run.path("extra")));
    QCOMPARE(run.remarks(), QByteArray());
}

void TestCommandLine::argumentIsNeverAToolkitOption()
{
    SmallJobRun run;
    run.writeFile("-qmljsdebugger=job", smallJob);
    run.start({"-qmljsdebugger=job", "-qmljsdebugger=script"});

    QCOMPARE(fileContents(run.path("-qmljsdebugger=script")), smallScript());
    QCOMPARE(run.remarks(), QByteArray());
}

void TestCommandLine::emptyArguments()
{
    SmallJobRun run;
    run.start({"", ""});

    QCOMPARE(run.remarks(), unopened);
}

void TestCommandLine::outputCannotBeOpened_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("in a folder that does not exist") << "missing/script.txt";
    QTest::newRow("a folder") << "home";
}

void TestCommandLine::outputCannotBeOpened()
{
    QFETCH(QString, path);
    SmallJobRun run;
    run.start({"job.xml", path});

    QCOMPARE(run.remarks(), unopened);

    // The parse still runs: what it has to say is said.
    run.start({run.writeFile("job.xml", unknownMethod), path});
    QCOMPARE(run.remarks(), unopened + unsupported);
}

void TestCommandLine::outputIsTheJobItself()
{
    // The output is opened, and so emptied, before the job is read.
    SmallJobRun run;
    run.start({"job.xml", "job.xml"});

    QCOMPARE(fileContents(run.path("job.xml")), QByteArray());
    QCOMPARE(run.remarks(), QByteArray());
}

void TestCommandLine::closedStandardStreams()
{
    ProgramRun run; // without settings, so that there is something to say
    run.writeFile("job.xml", smallJob);
    run.startShell(R"("$program" job.xml script.txt <&- >&- 2>&-; echo "status $?")");

    QCOMPARE(run.remarks(), QByteArray("status 0\n"));
    QCOMPARE(fileContents(run.path("script.txt")), smallScript());

    // A message after the script was opened: with nothing in its place, the script would be standard output.
    run.writeFile("job.xml", unknownMethod);
    run.startShell(R"("$program" job.xml script.txt <&- >&-; echo "status $?")");
    QCOMPARE(run.remarks(), QByteArray("status 0\n"));
    QVERIFY(QFile::exists(run.path("script.txt")));
    QCOMPARE(fileContents(run.path("script.txt")), QByteArray());
}

void TestCommandLine::readerWentAway()
{
    ProgramRun run; // without settings, so that there is something to say
    run.writeFile("job.xml", smallJob);
    run.startShell(R"(
        mkfifo gone
        exec 3<>gone 4>gone 3<&- # 4 writes to a pipe that nobody reads
        "$program" job.xml script.txt >&4; echo "status $?"
    )");

    QCOMPARE(run.remarks(), QByteArray("status 0\n"));
    QCOMPARE(fileContents(run.path("script.txt")), smallScript());
}

void TestCommandLine::fileSizeLimit()
{
    SmallJobRun run;
    run.startShell(R"(ulimit -f 0; "$program" job.xml script.txt; echo "status $?")");

    QCOMPARE(run.remarks(), QByteArray("status 0\n"));
    QCOMPARE(fileContents(run.path("script.txt")), QByteArray());
}

void TestCommandLine::fileNamesThatLookLikeResources()
{
    SmallJobRun run;
    run.writeFile("./:job.xml", smallJob);
    run.start({":job.xml", ":script.txt"});

    QCOMPARE(fileContents(run.path("./:script.txt")), smallScript());
    QCOMPARE(run.remarks(), QByteArray());
}

void TestCommandLine::outOfMemory()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("The sanitizers need more memory than the limit.");
#endif
    SmallJobRun run;
    const QByteArray tooMuch = "<receipt serialnumber='" + QByteArray(60000000, 'y') + "'/>";
    run.writeFile("job.xml", QByteArray(smallJob).replace("</job>", tooMuch + "</job>"));
    run.startShell(R"(ulimit -v 200000; "$program" job.xml script.txt; echo "status $?")");

    QCOMPARE(run.remarks(), QByteArray("status 0\n"));
    QCOMPARE(fileContents(run.path("script.txt")), openDocument({" Serial Number: 7", rule()}));
}

void TestCommandLine::warningsAreNeverFatal()
{
    SmallJobRun run;
    run.setEnvironment("QT_FATAL_WARNINGS", "1");
    run.start({"", ""}); // the toolkit warns of a file without a name

    QCOMPARE(run.remarks(), unopened);
}

void TestCommandLine::homeIsBytes_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArray>("home"); // as printf writes it
    QTest::newRow("UTF-8 in a UTF-8 locale") << "C.UTF-8" << QByteArray(R"(caff\303\250)");
    QTest::newRow("ISO-8859-1 in a UTF-8 locale") << "C.UTF-8" << QByteArray(R"(caff\350)");
    QTest::newRow("ISO-8859-15 in its own locale") << "it_IT.ISO-8859-15" << QByteArray(R"(caff\350)");
}

void TestCommandLine::homeIsBytes()
{
    QFETCH(QString, locale);
    QFETCH(QByteArray, home);
    SmallJobRun run;
    run.setEnvironment("LC_ALL", locale);
    run.setSettings("zelmora: { receiptdoc: { paperWidth = 20; }; };");
    run.startShell("home=$PWD/$(printf '" + home + "')" + R"(
        cp -r home "$home"
        HOME=$home "$program" job.xml script.txt
        rm -r "$home"
    )");

    QCOMPARE(run.remarks(), QByteArray());
    QCOMPARE(fileContents(run.path("script.txt")), smallScript(20));
}

void TestCommandLine::fileNamesAreBytes_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("in the C locale") << "C";
    QTest::newRow("in a UTF-8 locale") << "C.UTF-8";
    QTest::newRow("in an 8-bit locale") << "it_IT.ISO-8859-15";
}

void TestCommandLine::fileNamesAreBytes()
{
    QFETCH(QString, locale);
    SmallJobRun run;
    run.setEnvironment("LC_ALL", locale);
    // A name in UTF-8 and one in ISO-8859-15: each is the very file that the suite named.
    run.startShell(R"sh(
        for name in "$(printf 'caff\303\250')" "$(printf 'caff\350')"; do
            cp job.xml "$name.xml"
            "$program" "$name.xml" "$name.txt"
            cat "$name.txt"
            rm "$name.xml" "$name.txt"
        done
    )sh");

    QCOMPARE(run.remarks(), smallScript() + smallScript());
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
