#include "support/programrun.h"

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
    void missingSettings();
    void outputCannotBeOpened_data();
    void outputCannotBeOpened();
    void outputIsEmptiedFirst();
    void outputOnAFullDisk();
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

static const QByteArray emptySettings = "zelmora: { };";
static const QByteArray job = "<job><method name='printFullOrderReceipt'/><receipt serialnumber='7'/></job>";
static const QByteArray script = "nofis apri\r\n"
                                 "nofis riga=' Serial Number: 7'\r\n"
                                 "nofis riga='================================'\r\n"
                                 "nofis chiudi\r\n";

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
    ProgramRun run;
    run.writeFile("job.xml", job);
    run.start(arguments);

    QCOMPARE(run.standardOutput, QByteArray("Usage: " ZELMORA_PRINT_PROGRAM " input_file output_file\n"));
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
    QVERIFY(!QFile::exists(run.path("script.txt")));
}

void TestCommandLine::fourthArgumentIsIgnored()
{
    ProgramRun run;
    run.setSettings(emptySettings);
    run.start({run.writeFile("job.xml", job), run.path("script.txt"), "extra"});

    QCOMPARE(fileContents(run.path("script.txt")), script);
    QVERIFY(!QFile::exists(run.path("extra")));
    QCOMPARE(run.standardOutput + run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
}

void TestCommandLine::argumentIsNeverAToolkitOption()
{
    ProgramRun run;
    run.setSettings(emptySettings);
    run.writeFile("-qmljsdebugger=job", job);
    run.start({"-qmljsdebugger=job", "-qmljsdebugger=script"});

    QCOMPARE(fileContents(run.path("-qmljsdebugger=script")), script);
    QCOMPARE(run.standardOutput + run.standardError, QByteArray());
}

void TestCommandLine::emptyArguments()
{
    ProgramRun run;
    run.setSettings(emptySettings);
    run.start({"", ""});

    QCOMPARE(run.standardOutput, QByteArray("PrintManager::printAbstractOrder(...): Unable To Open File\n"));
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
}

void TestCommandLine::missingSettings()
{
    ProgramRun run;
    QCOMPARE(run.print(job), script);
    QCOMPARE(run.standardOutput,
             QByteArray("Error in the method FileReader::open( ") + run.path("home").toUtf8()
                 + "/.zelmora/conf/zelmora.conf ): File Not Found\n");
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
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
    ProgramRun run;
    run.setSettings(emptySettings);
    run.start({run.writeFile("job.xml", job), path});

    QCOMPARE(run.standardOutput, QByteArray("PrintManager::printAbstractOrder(...): Unable To Open File\n"));
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);

    // The parse still runs: what it has to say is said.
    run.start({run.writeFile("job.xml", "<job><method name='printInvoice'/></job>"), path});
    QCOMPARE(run.standardOutput,
             QByteArray("PrintManager::printAbstractOrder(...): Unable To Open File\nFile Format Not Supported\n"));
}

void TestCommandLine::outputIsEmptiedFirst()
{
    ProgramRun run;
    run.setSettings(emptySettings);
    run.writeFile("script.txt", QByteArray(5000, 'x'));
    QCOMPARE(run.print(job), script);
}

void TestCommandLine::outputOnAFullDisk()
{
    ProgramRun run;
    run.setSettings(emptySettings);
    run.start({run.writeFile("job.xml", job), "/dev/full"});

    QCOMPARE(run.standardOutput + run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
}

void TestCommandLine::outputIsTheJobItself()
{
    // The output is opened, and so emptied, before the job is read.
    ProgramRun run;
    run.setSettings(emptySettings);
    const QString path = run.writeFile("job.xml", job);
    run.start({path, path});

    QCOMPARE(fileContents(path), QByteArray());
    QCOMPARE(run.exitStatus, 0);
}

void TestCommandLine::closedStandardStreams()
{
    ProgramRun run; // without settings, so that there is something to say
    run.writeFile("job.xml", job);
    run.startShell("\"$program\" job.xml script.txt <&- >&- 2>&-; echo \"status $?\"");

    QCOMPARE(run.standardOutput, QByteArray("status 0\n"));
    QCOMPARE(fileContents(run.path("script.txt")), script);

    // A message after the script was opened: with nothing in its place, the script would be standard output.
    run.writeFile("job.xml", "<job><method name='printInvoice'/></job>");
    run.startShell("\"$program\" job.xml script.txt <&- >&-; echo \"status $?\"");
    QCOMPARE(run.standardOutput, QByteArray("status 0\n"));
    QVERIFY(QFile::exists(run.path("script.txt")));
    QCOMPARE(fileContents(run.path("script.txt")), QByteArray());
}

void TestCommandLine::readerWentAway()
{
    ProgramRun run;
    run.writeFile("job.xml", job);
    run.startShell("mkfifo gone\n"
                   "exec 3<>gone 4>gone 3<&-\n" // 4 writes to a pipe that nobody reads
                   "\"$program\" job.xml script.txt >&4; echo \"status $?\"\n");

    QCOMPARE(run.standardOutput, QByteArray("status 0\n"));
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(fileContents(run.path("script.txt")), script);
}

void TestCommandLine::fileSizeLimit()
{
    ProgramRun run;
    run.setSettings(emptySettings);
    run.writeFile("job.xml", job);
    run.startShell("ulimit -f 0; \"$program\" job.xml script.txt; echo \"status $?\"");

    QCOMPARE(run.standardOutput, QByteArray("status 0\n"));
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(fileContents(run.path("script.txt")), QByteArray());
}

void TestCommandLine::fileNamesThatLookLikeResources()
{
    ProgramRun run;
    run.setSettings(emptySettings);
    run.writeFile("./:job.xml", job);
    run.start({":job.xml", ":script.txt"});

    QCOMPARE(fileContents(run.path("./:script.txt")), script);
    QCOMPARE(run.standardOutput + run.standardError, QByteArray());
}

void TestCommandLine::outOfMemory()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("The sanitizers need more memory than the limit.");
#endif
    ProgramRun run;
    run.setSettings(emptySettings);
    run.writeFile(
        "job.xml",
        QByteArray(job).replace("</job>", "<receipt serialnumber='" + QByteArray(60000000, 'y') + "'/></job>"));
    run.startShell("ulimit -v 200000; \"$program\" job.xml script.txt; echo \"status $?\"");

    QCOMPARE(run.standardOutput, QByteArray("status 0\n"));
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(fileContents(run.path("script.txt")), script.left(script.indexOf("nofis chiudi")));
}

void TestCommandLine::warningsAreNeverFatal()
{
    ProgramRun run;
    run.setSettings(emptySettings);
    run.setEnvironment("QT_FATAL_WARNINGS", "1");
    run.start({"", ""}); // the toolkit warns of a file without a name

    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
}

void TestCommandLine::homeIsBytes_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArray>("home"); // as printf writes it
    QTest::newRow("UTF-8 in a UTF-8 locale") << "C.UTF-8" << QByteArray("caff\\303\\250");
    QTest::newRow("ISO-8859-1 in a UTF-8 locale") << "C.UTF-8" << QByteArray("caff\\350");
    QTest::newRow("ISO-8859-15 in its own locale") << "it_IT.ISO-8859-15" << QByteArray("caff\\350");
}

void TestCommandLine::homeIsBytes()
{
    QFETCH(QString, locale);
    QFETCH(QByteArray, home);
    ProgramRun run;
    run.setEnvironment("LC_ALL", locale);
    run.setSettings("zelmora: { receiptdoc: { paperWidth = 20; }; };");
    run.writeFile("job.xml", job);
    run.startShell("home=\"$PWD/$(printf '" + home
                   + "')\"\n"
                     "cp -r home \"$home\"\n"
                     "HOME=$home \"$program\" job.xml script.txt\n"
                     "rm -r \"$home\"\n");

    QCOMPARE(run.standardOutput + run.standardError, QByteArray());
    QVERIFY(fileContents(run.path("script.txt")).contains("nofis riga='" + QByteArray(20, '=') + "'\r\n"));
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
    ProgramRun run;
    run.setSettings(emptySettings);
    run.setEnvironment("LC_ALL", locale);
    run.writeFile("job.xml", job);
    // A name in UTF-8 and one in ISO-8859-15: each is the very file that the suite named.
    run.startShell("for name in \"$(printf 'caff\\303\\250')\" \"$(printf 'caff\\350')\"; do\n"
                   "    cp job.xml \"$name.xml\"\n"
                   "    \"$program\" \"$name.xml\" \"$name.txt\"\n"
                   "    cat \"$name.txt\"\n"
                   "    rm \"$name.xml\" \"$name.txt\"\n"
                   "done\n");

    QCOMPARE(run.standardOutput, script + script);
    QCOMPARE(run.standardError, QByteArray());
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
