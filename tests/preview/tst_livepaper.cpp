#include "paper/drawing.h"
#include "preview/fakeprogram.h"
#include "preview/livepaper.h"
#include "preview/paperchoice.h"
#include "preview/paperrun.h"

#include <QSignalSpy>
#include <QtTest>

#include <ctime>

/// The paper beside settings that are being changed: what the print program prints, and what changed on it.
class TestLivePaper : public QObject {
    Q_OBJECT

private slots:
    void init();

    void showsWhatIsPrinted();
    void showsWhatIsPrintedWithoutSettings();
    void aChangeIsSeen();
    void marksWhatChanged();
    void whatIsSavedIsNoChange();
    void settingsThatCannotBeReadMarkNothing();
    void settingsThatDoNotPrintMarkNothing();
    void allThirteenForTheLanguage();
    void withoutJobsThereIsNoPaper();

    void severalChangesAtOnceAreOne();
    void printsTheSameOnce();
    void keepsNoMoreHomesThanItNeeds();
    void anotherJobIsPrinted();
    void aChangeEndsTheOlderRun();
    void anotherJobEndsTheOlderRun();
    void anEarlierRunIsNotHeardOf();
    void printsTwoAtATime();
    void theWindowGoesOn();
    void aLongScriptIsReadBehindTheWindow();
    void endsWithARunUnderWay();

    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void saysThatThereIsNoPrintProgram();
    void saysWhySettingsAreNotToBeHad();
    void saysWhichDocumentHasTrouble();
    void saysTheSameOfAllOnce();
};

using preview::LivePaper;
using preview::PaperJob;
using preview::SettingsBytes;

namespace {

/// The program of that path is the one that is found.
void usePrintProgram(const QString& path)
{
    qputenv("PATH", QFile::encodeName(QFileInfo(path).path()) + ":/usr/bin:/bin");
}

SettingsBytes bytes(const QByteArray& settings)
{
    return {settings, {}};
}

/// Each line as it is, in brackets where it is marked as changed.
QStringList shownLines(const paper::Sheet& sheet)
{
    QStringList lines;
    for (const paper::Sheet::Band& band : sheet.bands) {
        for (const paper::Row& row : band.at(0).rows) {
            QString line = row.text;
            for (const paper::MarkedPart& part : row.marked) {
                if (part.mark == paper::Mark::Changed)
                    line.insert(part.begin + part.length, ']').insert(part.begin, '[');
            }
            lines += line;
        }
    }
    return lines;
}

QStringList titles(const paper::Sheet& sheet)
{
    QStringList titles;
    for (const paper::Sheet::Band& band : sheet.bands)
        titles += band.at(0).title;
    return titles;
}

bool isShown(LivePaper& live)
{
    QSignalSpy changed(&live, &LivePaper::changed);
    return changed.wait(30000);
}

const QString separator(32, '=');

/// Notes its runs, and prints the job's bytes as the one line of a document.
const QByteArray notingProgram = "echo run >> runs\n"
                                 "printf 'nofis apri\\r\\nnofis riga='\"'\"'%s'\"'\"'\\r\\nnofis chiudi\\r\\n' "
                                 "\"$(cat \"$1\")\" > \"$2\"\n";

int runsOf(const FakeProgram& fake)
{
    return fake.contents("runs").count("run\n");
}

} // namespace

void TestLivePaper::init()
{
    usePrintProgram(ZELMORA_PRINT_PROGRAM);
}

void TestLivePaper::showsWhatIsPrinted()
{
    LivePaper live;
    live.setSettings(bytes(simpleSettings()), bytes(simpleSettings()));
    live.setJobs({{"My list", jobOf("hello")}});
    QVERIFY(isShown(live));
    QCOMPARE(titles(live.sheet()), QStringList("My list"));
    QCOMPARE(shownLines(live.sheet()), (QStringList {" Note: hello", separator}));
    QCOMPARE(live.trouble(), QString());
}

void TestLivePaper::showsWhatIsPrintedWithoutSettings()
{
    LivePaper live;
    live.setJobs({{"My list", jobOf("hello")}});
    QVERIFY(isShown(live));
    QCOMPARE(titles(live.sheet()), QStringList("My list"));
    QCOMPARE(shownLines(live.sheet()), QStringList(separator));
    QCOMPARE(live.trouble(), QString());
}

void TestLivePaper::aChangeIsSeen()
{
    LivePaper live;
    live.setSettings(bytes(simpleSettings("false")), bytes(simpleSettings("false")));
    live.setJobs({{"My list", jobOf("hello")}});
    QVERIFY(isShown(live));
    QCOMPARE(shownLines(live.sheet()), QStringList(separator));
    live.setSettings(bytes(simpleSettings("true")), bytes(simpleSettings("false")));
    QVERIFY(isShown(live));
    QCOMPARE(shownLines(live.sheet()), (QStringList {"[ Note: hello]", separator}));
}

// A row is new, and another one has lost its end.
void TestLivePaper::marksWhatChanged()
{
    const QByteArray settings = "zelmora: { solddoc: { paperWidth = %w; printTable = true; printWaiter = %f; "
                                "printNote = true; }; };";
    const QByteArray before = QByteArray(settings).replace("%w", "32").replace("%f", "false");
    const QByteArray now = QByteArray(settings).replace("%w", "30").replace("%f", "true");
    LivePaper live;
    live.setSettings(bytes(now), bytes(before));
    live.setJobs(
        {{"My list", "<j><method name=\"printSold\"/><orderinfo table=\"7\" waiter=\"Ann\" note=\"hello\"/></j>"}});
    QVERIFY(isShown(live));
    QCOMPARE(shownLines(live.sheet()),
             (QStringList {" Table: 7", "[ Waiter: Ann]", " Note: hello", QString(30, '=') + "[]"}));
}

void TestLivePaper::whatIsSavedIsNoChange()
{
    LivePaper live;
    live.setSettings(bytes(simpleSettings("true")), bytes(simpleSettings("false")));
    live.setJobs({{"My list", jobOf("hello")}});
    QVERIFY(isShown(live));
    QCOMPARE(shownLines(live.sheet()), (QStringList {"[ Note: hello]", separator}));
    live.setSettings(bytes(simpleSettings("true")), bytes(simpleSettings("true")));
    QVERIFY(isShown(live));
    QCOMPARE(shownLines(live.sheet()), (QStringList {" Note: hello", separator}));
}

void TestLivePaper::settingsThatCannotBeReadMarkNothing()
{
    LivePaper live;
    live.setSettings(bytes(simpleSettings()), {std::nullopt, "The file is gone."});
    live.setJobs({{"My list", jobOf("hello")}});
    QVERIFY(isShown(live));
    QCOMPARE(shownLines(live.sheet()), (QStringList {" Note: hello", separator}));
    QCOMPARE(live.trouble(), QString());
}

void TestLivePaper::settingsThatDoNotPrintMarkNothing()
{
    const FakeProgram fake("grep -q bad \"$HOME/.zelmora/conf/zelmora.conf\" && kill -s SEGV $$\n" + notingProgram);
    usePrintProgram(fake.path());
    LivePaper live;
    live.setSettings(bytes("good"), bytes("bad"));
    live.setJobs({{"x", "hello"}});
    QVERIFY(isShown(live));
    QCOMPARE(shownLines(live.sheet()), QStringList("hello"));
    QCOMPARE(live.trouble(), QString());
}

void TestLivePaper::allThirteenForTheLanguage()
{
    preview::PaperChoice choice;
    choice.setGroup("language");
    LivePaper live;
    const QByteArray english = "zelmora: { invoicedoc: { printDate = true; }; };";
    const QByteArray italian = "zelmora: { invoicedoc: { printDate = true; }; language: { basedir = \""
        + QByteArray(QFileInfo(ZELMORA_CATALOGUE).path().toUtf8()) + "/\"; file = \"zelmora_it.qm\"; }; };";
    live.setSettings(bytes(italian), bytes(english));
    live.setJobs(choice.jobs());
    QVERIFY(isShown(live));
    QCOMPARE(titles(live.sheet()).size(), 13);
    QCOMPARE(titles(live.sheet()), choice.titles().mid(1));
    QCOMPARE(live.trouble(), QString());
    QVERIFY(shownLines(live.sheet()).contains(" Dat[a]: 14/11/2025")); // it was " Date: 14/11/2025"
}

void TestLivePaper::withoutJobsThereIsNoPaper()
{
    LivePaper live;
    live.setJobs({{"My list", jobOf("hello")}});
    QVERIFY(isShown(live));
    live.setJobs({});
    QVERIFY(isShown(live));
    QVERIFY(live.sheet().bands.isEmpty());
    QCOMPARE(live.trouble(), QString());
}

void TestLivePaper::severalChangesAtOnceAreOne()
{
    const FakeProgram fake(notingProgram);
    usePrintProgram(fake.path());
    LivePaper live;
    QSignalSpy changed(&live, &LivePaper::changed);
    live.setJobs({{"a", "first"}});
    for (const char* settings : {"one", "two", "three"})
        live.setSettings(bytes(settings), bytes(settings));
    live.setJobs({{"a", "second"}});
    QVERIFY(changed.wait());
    QCOMPARE(shownLines(live.sheet()), QStringList("second"));
    QTest::qWait(100);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(runsOf(fake), 1);
}

void TestLivePaper::printsTheSameOnce()
{
    const FakeProgram fake(notingProgram);
    usePrintProgram(fake.path());
    LivePaper live;
    live.setSettings(bytes("a"), bytes("a"));
    live.setJobs({{"x", "hello"}});
    QVERIFY(isShown(live));
    QCOMPARE(runsOf(fake), 1); // for the window and for the file
    live.setSettings(bytes("b"), bytes("a"));
    QVERIFY(isShown(live));
    QCOMPARE(runsOf(fake), 2);
    live.setSettings(bytes("c"), bytes("a"));
    QVERIFY(isShown(live));
    QCOMPARE(runsOf(fake), 3); // what the file has is known
    live.setSettings(bytes("c"), bytes("c")); // saved
    QVERIFY(isShown(live));
    QCOMPARE(runsOf(fake), 3);
    QSignalSpy begun(&live, &LivePaper::begun);
    live.setSettings(bytes("c"), bytes("c"));
    QVERIFY(!live.setJobs({{"x", "hello"}}));
    QCOMPARE(begun.size(), 0);
    live.setSettings(bytes("b"), bytes("c"));
    QVERIFY(isShown(live));
    QCOMPARE(runsOf(fake), 4);
}

// One for the settings in the window, and one for those of the file.
void TestLivePaper::keepsNoMoreHomesThanItNeeds()
{
    const QTemporaryDir temporary(scratchFolder());
    qputenv("TMPDIR", temporary.path().toUtf8());
    auto live = std::make_unique<LivePaper>();
    live->setJobs({{"x", jobOf("hello")}});
    for (const char* settings : {"a", "b", "c", "d"}) {
        live->setSettings(bytes(settings), bytes("stored"));
        QVERIFY(isShown(*live));
        QCOMPARE(filesIn(temporary.path()).size(), 2);
    }
    live.reset();
    QCOMPARE(filesIn(temporary.path()), QStringList());
    qunsetenv("TMPDIR");
}

void TestLivePaper::anotherJobIsPrinted()
{
    const FakeProgram fake(notingProgram);
    usePrintProgram(fake.path());
    LivePaper live;
    live.setSettings(bytes("b"), bytes("a"));
    live.setJobs({{"x", "hello"}});
    QVERIFY(isShown(live));
    QCOMPARE(runsOf(fake), 2);
    live.setJobs({{"x", "good evening"}});
    QVERIFY(isShown(live));
    QCOMPARE(shownLines(live.sheet()), QStringList("good evening"));
    QCOMPARE(runsOf(fake), 4);
}

/// Hangs with settings that say so.
static const QByteArray hangingProgram =
    "if grep -q hang \"$HOME/.zelmora/conf/zelmora.conf\" || grep -q hang \"$1\"; then\n"
    "    echo $$ > pid.new; mv pid.new pid; exec sleep 100\n"
    "fi\n";

void TestLivePaper::aChangeEndsTheOlderRun()
{
    const FakeProgram fake(hangingProgram + notingProgram);
    usePrintProgram(fake.path());
    LivePaper live;
    QSignalSpy changed(&live, &LivePaper::changed);
    live.setSettings(bytes("hang"), bytes("hang"));
    live.setJobs({{"x", "hello"}});
    QTRY_VERIFY(!fake.contents("pid").isEmpty());
    const QByteArray pid = fake.contents("pid").trimmed();
    QVERIFY(isAlive(pid));
    live.setSettings(bytes("work"), bytes("work"));
    QVERIFY(!isAlive(pid));
    QVERIFY(changed.wait());
    QCOMPARE(shownLines(live.sheet()), QStringList("hello"));
    QCOMPARE(live.trouble(), QString());
    QCOMPARE(changed.size(), 1);
}

void TestLivePaper::anotherJobEndsTheOlderRun()
{
    const FakeProgram fake(hangingProgram + notingProgram);
    usePrintProgram(fake.path());
    LivePaper live;
    live.setJobs({{"x", "hang"}, {"y", "hang"}, {"z", "waits"}});
    QTRY_VERIFY(!fake.contents("pid").isEmpty());
    live.setJobs({{"x", "hello"}});
    QVERIFY(!isAlive(fake.contents("pid").trimmed()));
    QVERIFY(isShown(live));
    QCOMPARE(shownLines(live.sheet()), QStringList("hello"));
    QCOMPARE(runsOf(fake), 1); // what waited is not printed any more
}

// Its end is told, and waits in the queue of the loop while the change comes.
void TestLivePaper::anEarlierRunIsNotHeardOf()
{
    const FakeProgram fake(notingProgram);
    usePrintProgram(fake.path());
    for (int wait = 0; wait < 20; ++wait) {
        LivePaper live;
        QSignalSpy changed(&live, &LivePaper::changed);
        live.setSettings(bytes("a"), bytes("a"));
        live.setJobs({{"a", "first"}, {"b", "first"}, {"c", "first"}, {"d", "first"}});
        QTest::qWait(wait); // where the first ones are by then is as it happens
        changed.clear();
        live.setJobs({{"y", "second"}, {"z", "third"}});
        QVERIFY(changed.wait());
        QCOMPARE(titles(live.sheet()), (QStringList {"y", "z"}));
        QCOMPARE(shownLines(live.sheet()), (QStringList {"second", "third"}));
        QCOMPARE(changed.size(), 1);
    }
}

void TestLivePaper::printsTwoAtATime()
{
    const FakeProgram fake("echo begin >> log; sleep 0.2; echo end >> log\n" + notingProgram);
    usePrintProgram(fake.path());
    LivePaper live;
    live.setJobs({{"1", "one"}, {"2", "two"}, {"3", "three"}, {"4", "four"}, {"5", "five"}});
    QVERIFY(isShown(live));
    int running = 0;
    int most = 0;
    for (const QByteArray& word : fake.contents("log").trimmed().split('\n')) {
        running += word == "begin" ? 1 : -1;
        most = qMax(most, running);
    }
    QCOMPARE(most, 2);
    QCOMPARE(shownLines(live.sheet()), (QStringList {"one", "two", "three", "four", "five"}));
}

void TestLivePaper::theWindowGoesOn()
{
    const FakeProgram fake("sleep 1\n" + notingProgram);
    usePrintProgram(fake.path());
    LivePaper live;
    int beats = 0;
    QTimer heart;
    connect(&heart, &QTimer::timeout, this, [&beats] { ++beats; });
    heart.start(20);
    live.setJobs({{"x", "hello"}});
    QVERIFY(isShown(live));
    QVERIFY2(beats > 10, qPrintable(QString::number(beats))); // fifty on an idle machine
}

/// What the calling thread alone has worked.
static int threadMilliseconds()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<int>(time.tv_sec * 1000 + time.tv_nsec / 1000000);
}

void TestLivePaper::aLongScriptIsReadBehindTheWindow()
{
    const FakeProgram fake("echo 'nofis apri'; yes \"nofis riga='a line of a very long document'\" | head -200000; "
                           "echo 'nofis chiudi'");
    const FakeProgram writer("'" + fake.path().toUtf8() + "' > \"$2\"");
    usePrintProgram(writer.path());
    LivePaper live;
    live.setJobs({{"x", "hello"}});
    const int before = threadMilliseconds();
    const std::clock_t allBefore = std::clock();
    QVERIFY(isShown(live));
    const int mine = threadMilliseconds() - before;
    const int all = static_cast<int>((std::clock() - allBefore) / (CLOCKS_PER_SEC / 1000));
    QCOMPARE(shownLines(live.sheet()).size(), 200000);
    QVERIFY2(mine < all / 2, qPrintable(QString("%1 of %2").arg(mine).arg(all)));
}

void TestLivePaper::endsWithARunUnderWay()
{
    const FakeProgram fake(hangingProgram);
    usePrintProgram(fake.path());
    auto live = std::make_unique<LivePaper>();
    live->setJobs({{"x", "hang"}, {"y", "hang"}, {"z", "hang"}});
    QTRY_VERIFY(!fake.contents("pid").isEmpty());
    live.reset();
    QVERIFY(!isAlive(fake.contents("pid").trimmed()));
}

void TestLivePaper::saysWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("job");
    QTest::addColumn<QString>("trouble");
    QTest::addColumn<int>("papers");
    QTest::newRow("the job breaks off")
        << QByteArray("<j><method name=\"printSold\"/><")
        << "The script has no closing command, since the job breaks off. zelmora-check says where." << 1;
    QTest::newRow("no method of that name") << QByteArray("<j><method name=\"printNothing\"/></j>")
                                            << "Nothing of this job is printed. zelmora-check says why." << 0;
    QTest::newRow("nothing but XML") << QByteArray("<j/>") << "Nothing of this job is printed. zelmora-check says why."
                                     << 0;
}

void TestLivePaper::saysWhatIsWrong()
{
    QFETCH(QByteArray, job);
    QFETCH(QString, trouble);
    LivePaper live;
    live.setJobs({{"My list", job}});
    QVERIFY(isShown(live));
    QCOMPARE(live.trouble(), trouble);
    QTEST(static_cast<int>(live.sheet().bands.size()), "papers");
}

void TestLivePaper::saysThatThereIsNoPrintProgram()
{
    const QTemporaryDir empty(scratchFolder());
    qputenv("PATH", empty.path().toUtf8());
    LivePaper live;
    live.setJobs({{"x", jobOf("hello")}});
    QVERIFY(isShown(live));
    QVERIFY2(live.trouble().startsWith("There is no program zelmora-print: "), qPrintable(live.trouble()));
    QVERIFY(live.sheet().bands.isEmpty());
}

// An earlier paper would not be that of these settings.
void TestLivePaper::saysWhySettingsAreNotToBeHad()
{
    LivePaper live;
    live.setSettings(bytes(simpleSettings()), bytes(simpleSettings()));
    live.setJobs({{"x", jobOf("hello")}});
    QVERIFY(isShown(live));
    live.setSettings({std::nullopt, "The brace form cannot hold this."}, bytes(simpleSettings()));
    QVERIFY(isShown(live));
    QCOMPARE(live.trouble(), QString("The brace form cannot hold this."));
    QVERIFY(live.sheet().bands.isEmpty());
}

void TestLivePaper::saysWhichDocumentHasTrouble()
{
    const FakeProgram fake("grep -q bad \"$1\" && kill -s SEGV $$\n" + notingProgram);
    usePrintProgram(fake.path());
    LivePaper live;
    live.setJobs({{"A", "good"}, {"B", "bad"}, {"C", "good"}});
    QVERIFY(isShown(live));
    QCOMPARE(live.trouble(), QString("B: The print program was ended by a signal."));
    QCOMPARE(titles(live.sheet()), (QStringList {"A", "C"}));
}

void TestLivePaper::saysTheSameOfAllOnce()
{
    const FakeProgram fake("kill -s SEGV $$\n");
    usePrintProgram(fake.path());
    LivePaper live;
    live.setJobs({{"A", "good"}, {"B", "bad"}, {"C", "good"}});
    QVERIFY(isShown(live));
    QCOMPARE(live.trouble(), QString("The print program was ended by a signal."));
}

QTEST_GUILESS_MAIN(TestLivePaper)
#include "tst_livepaper.moc"
