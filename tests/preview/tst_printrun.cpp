#include "preview/fakeprogram.h"
#include "preview/printhome.h"
#include "preview/printrun.h"
#include "preview/samples.h"
#include "support/examples.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

/// A run of the print program is what the suite's own run of it is: the same script, whatever becomes of the program.
class TestPrintRun : public QObject {
    Q_OBJECT

private slots:
    void printsWhatTheSuitePrints_data();
    void printsWhatTheSuitePrints();
    void printsWithoutSettings();
    void tellsWhenItIsDone();
    void severalAtOnce();

    void aJobThatBreaksOffIsNoFailure();
    void saysThatItCannotBeStarted();
    void saysHowItFailed_data();
    void saysHowItFailed();
    void endsAProgramThatHangs();
    void endsAProgramThatHangsBehindAWindow();
    void keepsTheBeginningOfAVeryLongScript();
    void goesWithItsObject();
    void theChildTakesSignals();
    void theChildHasNothingElseOpen();
};

using preview::PrintHome;
using preview::PrintRun;

namespace {

const QString program = ZELMORA_PRINT_PROGRAM;

std::shared_ptr<const PrintHome> exampleHome()
{
    return std::make_shared<PrintHome>(exampleSettings());
}

} // namespace

void TestPrintRun::printsWhatTheSuitePrints_data()
{
    QTest::addColumn<QByteArray>("job");
    for (const preview::Sample& sample : preview::samples())
        QTest::newRow(sample.method.data()) << sample.job();
}

// The settings name their catalogue relative to the working folder.
void TestPrintRun::printsWhatTheSuitePrints()
{
    QFETCH(QByteArray, job);
    ExampleRun suite;
    suite.setEnvironment("LC_ALL", "C.UTF-8");
    const QString before = QDir::currentPath();
    QDir::setCurrent(QFileInfo(ZELMORA_CATALOGUE).path() + "/..");
    PrintRun run(program, exampleHome());
    run.print(job);
    QDir::setCurrent(before);
    QCOMPARE(run.failure(), QString());
    const QByteArray found = difference(suite.print(job), run.script());
    QVERIFY2(found.isEmpty(), found.constData());
    QVERIFY(run.script().endsWith("nofis chiudi\r\n") || run.script().endsWith("CHIUS T=1\r\n"));
}

void TestPrintRun::printsWithoutSettings()
{
    PrintRun run(program, std::make_shared<PrintHome>(std::nullopt));
    run.print("<j><method name=\"printSold\"/></j>");
    QCOMPARE(run.script(), QByteArray("nofis apri\r\nnofis chiudi\r\n"));
}

void TestPrintRun::tellsWhenItIsDone()
{
    PrintRun run(program, exampleHome());
    QSignalSpy finished(&run, &PrintRun::finished);
    run.start("<j><method name=\"printSold\"/></j>");
    QVERIFY(finished.wait());
    QVERIFY(run.script().endsWith("nofis chiudi\r\n"));
    QCOMPARE(run.failure(), QString());
    QTest::qWait(50);
    QCOMPARE(finished.size(), 1);
}

void TestPrintRun::severalAtOnce()
{
    const auto home = exampleHome();
    std::vector<std::unique_ptr<PrintRun>> runs;
    for (const preview::Sample& sample : preview::samples()) {
        runs.push_back(std::make_unique<PrintRun>(program, home));
        runs.back()->start(sample.job());
    }
    for (std::size_t i = 0; i < runs.size(); ++i) {
        PrintRun alone(program, home);
        alone.print(preview::samples()[static_cast<int>(i)].job());
        QTRY_COMPARE(runs[i]->script(), alone.script());
    }
}

void TestPrintRun::aJobThatBreaksOffIsNoFailure()
{
    PrintRun run(program, exampleHome());
    run.print("<j><method name=\"printSold\"/><");
    QCOMPARE(run.failure(), QString());
    QCOMPARE(run.script(), QByteArray("nofis apri\r\n"));
}

void TestPrintRun::saysThatItCannotBeStarted()
{
    PrintRun run("/nowhere/zelmora-print", exampleHome());
    run.print("<j/>");
    QVERIFY2(run.failure().startsWith("The print program cannot be started: "), qPrintable(run.failure()));
    QCOMPARE(run.script(), QByteArray());

    PrintRun behindAWindow("/nowhere/zelmora-print", exampleHome());
    QSignalSpy finished(&behindAWindow, &PrintRun::finished);
    behindAWindow.start("<j/>");
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(behindAWindow.failure(), run.failure());
}

void TestPrintRun::saysHowItFailed_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QString>("failure");
    QTest::newRow("by a signal") << QByteArray("kill -s SEGV $$") << "The print program was ended by a signal.";
    // Its own status is 0, whatever it prints; this is that of one whose libraries are not there.
    QTest::newRow("with a status") << QByteArray("exit 127") << "The print program ended with status 127.";
}

void TestPrintRun::saysHowItFailed()
{
    QFETCH(QByteArray, end);
    const FakeProgram fake("printf 'nofis apri\\r\\n' > \"$2\"; " + end);
    PrintRun run(fake.path(), exampleHome());
    run.print("<j/>");
    QTEST(run.failure(), "failure");
    QCOMPARE(run.script(), QByteArray("nofis apri\r\n"));
}

void TestPrintRun::endsAProgramThatHangs()
{
    const FakeProgram fake("echo $$ > pid; cat \"$1\" > \"$2\"; exec sleep 100");
    PrintRun run(fake.path(), exampleHome());
    QElapsedTimer clock;
    clock.start();
    run.print("<j/>");
    QVERIFY2(clock.elapsed() >= 10000 && clock.elapsed() < 15000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(run.failure(), QString("The print program was ended after 10 seconds."));
    QCOMPARE(run.script(), QByteArray("<j/>"));
    QVERIFY(!isAlive(fake.contents("pid").trimmed()));
}

void TestPrintRun::endsAProgramThatHangsBehindAWindow()
{
    const FakeProgram fake("exec sleep 100");
    PrintRun run(fake.path(), exampleHome());
    QSignalSpy finished(&run, &PrintRun::finished);
    run.start("<j/>");
    QVERIFY(!finished.wait(9000));
    QVERIFY(finished.wait(6000));
    QCOMPARE(run.failure(), QString("The print program was ended after 10 seconds."));
}

// Each heading has two lines as wide as the paper.
void TestPrintRun::keepsTheBeginningOfAVeryLongScript()
{
    const QByteArray settings = "zelmora: { solddoc: { printHeader = true; paperWidth = 10000; }; };";
    PrintRun run(program, std::make_shared<PrintHome>(settings));
    run.print("<j><method name=\"printSold\"/>" + QByteArray("<headers title=\"a\"/>").repeated(4000) + "</j>");
    QCOMPARE(run.failure(), QString("The script is longer than 64 MB."));
    QCOMPARE(run.script().size(), 64 * 1024 * 1024);
}

void TestPrintRun::goesWithItsObject()
{
    const FakeProgram fake("echo $$ > pid.new; mv pid.new pid; exec sleep 100");
    auto run = std::make_unique<PrintRun>(fake.path(), exampleHome());
    QSignalSpy finished(run.get(), &PrintRun::finished);
    run->start("<j/>");
    QTRY_VERIFY(!fake.contents("pid").isEmpty());
    const QByteArray pid = fake.contents("pid").trimmed();
    QVERIFY(isAlive(pid));
    run.reset();
    QVERIFY(!isAlive(pid));
    QCOMPARE(finished.size(), 0);
}

// This process leaves some signals to a thread of its own; the print program is to be ended by them. A shell would take
// them whatever it is left.
void TestPrintRun::theChildTakesSignals()
{
    const QTemporaryDir folder(scratchFolder());
    const QString program = folder.filePath("zelmora-print");
    writeBytes(
        program,
        "#!/usr/bin/awk -f\n"
        "BEGIN { while ((getline line < \"/proc/self/status\") > 0) if (line ~ /SigBlk/) print line > ARGV[2] }\n");
    setPermissions(program, 0700);
    PrintRun run(program, exampleHome());
    run.print("<j/>");
    QCOMPARE(run.script(), QByteArray("SigBlk:\t0000000000000000\n"));
}

void TestPrintRun::theChildHasNothingElseOpen()
{
    const FakeProgram fake("readlink /proc/$$/fd/* | grep memfd > open");
    PrintRun other(fake.path(), exampleHome()); // which has its own two files
    PrintRun run(fake.path(), exampleHome());
    run.print("<j/>");
    QCOMPARE(fake.contents("open").count('\n'), 2);
}

QTEST_GUILESS_MAIN(TestPrintRun)
#include "tst_printrun.moc"
