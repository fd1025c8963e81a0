#include "preview/paperrun.h"
#include "support/unusablenames.h"

#include <QtTest>

/// `zelmora-paper --compare` and `--rehearse`.
class TestPaperPairs : public QObject {
    Q_OBJECT

private slots:
    void sameScripts();
    void differentScripts();
    void onlyTheDocumentsThatDiffer();
    void aDocumentMore();
    void noDocumentIsAnEmptyOne();
    void differentWithoutATrace();
    void findingsDoNotCount();
    void intoAFile();
    void folders();
    void aScriptOfNoDocumentOnOneSide();
    void wholeFoldersAreRead();
    void filesOfAnyName();
    void oneThatIsMissingHidesNoOther();
    void standardInput();
    void encodings();
    void whatCannotBeCompared_data();
    void whatCannotBeCompared();

    void rehearsalWithoutAChange();
    void rehearsalOfAChange();
    void rehearsalOfOtherSettingsThanTodays();
    void aJobThatFailsHidesNoOther();
    void whatCannotBeRehearsed_data();
    void whatCannotBeRehearsed();
};

namespace {

/// The line that sums up.
QByteArray scripts(int all, int onPaper, int withoutTrace)
{
    return QStringLiteral("Scripts compared: %1. Different on paper: %2. Different without a trace on paper: %3.\n")
        .arg(all)
        .arg(onPaper)
        .arg(withoutTrace)
        .toUtf8();
}

QByteArray jobs(int all, int onPaper, int withoutTrace)
{
    return scripts(all, onPaper, withoutTrace).replace("Scripts compared", "Jobs rehearsed");
}

/// The lines of a drawing that hold @p text.
QStringList linesWith(const QByteArray& drawing, const QString& text)
{
    return QString::fromUtf8(drawing).split('\n').filter(text);
}

} // namespace

void TestPaperPairs::sameScripts()
{
    PaperRun run;
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("b.txt", script({"one"}));
    QCOMPARE(run.statusOf({"--compare", "a.txt", "b.txt"}), 0);
    QCOMPARE(run.standardOutput, scripts(1, 0, 0));
    QCOMPARE(run.standardError, QByteArray());
}

void TestPaperPairs::differentScripts()
{
    PaperRun run;
    run.writeFile("a.txt", script({"one", "two"}));
    run.writeFile("b.txt", script({"one", "four"}));
    QCOMPARE(run.statusOf({"--compare", "a.txt", "b.txt"}), 1);
    const QString drawing = QString::fromUtf8(run.standardOutput);
    QCOMPARE(drawing.section('\n', 0, 0), "a.txt" + QString(31, ' ') + "b.txt");
    QCOMPARE(linesWith(run.standardOutput, "two"),
             (QStringList {"│two" + QString(29, ' ') + "│  │four" + QString(28, ' ') + "│"}));
    QVERIFY(drawing.contains('^'));
    QVERIFY(run.standardOutput.endsWith(scripts(1, 1, 0)));
}

void TestPaperPairs::onlyTheDocumentsThatDiffer()
{
    PaperRun run;
    run.writeFile("a.txt", script({"one"}) + script({"two"}));
    run.writeFile("b.txt", script({"one"}) + script({"four"}));
    QCOMPARE(run.statusOf({"--compare", "a.txt", "b.txt"}), 1);
    QVERIFY(!run.standardOutput.contains("│one"));
    QVERIFY(run.standardOutput.startsWith("a.txt (2)" + QByteArray(27, ' ') + "b.txt (2)\n"));
    QVERIFY(run.standardOutput.endsWith(scripts(1, 1, 0)));
}

void TestPaperPairs::aDocumentMore()
{
    PaperRun run;
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("b.txt", script({"one"}) + script({"two"}));
    QCOMPARE(run.statusOf({"--compare", "a.txt", "b.txt"}), 1);
    QCOMPARE(linesWith(run.standardOutput, "two"), QStringList {QString(36, ' ') + "│two" + QString(29, ' ') + "│"});
    QVERIFY(!run.standardOutput.contains("│one"));
}

// They are drawn alike. A fiscal document is never empty: it has its total.
void TestPaperPairs::noDocumentIsAnEmptyOne()
{
    PaperRun run;
    run.writeFile("none.txt", "words\n");
    run.writeFile("empty.txt", script({}));
    run.writeFile("fiscal.txt", "CLEAR \r\nCHIAVE REG\r\nCHIUS T=1\r\n");
    QCOMPARE(run.statusOf({"--compare", "none.txt", "empty.txt"}), 0);
    QCOMPARE(run.standardOutput, scripts(1, 0, 1));
    QCOMPARE(run.statusOf({"--compare", "empty.txt", "none.txt"}), 0);
    QCOMPARE(run.standardOutput, scripts(1, 0, 1));
    QCOMPARE(run.statusOf({"--compare", "none.txt", "fiscal.txt"}), 1);
    QVERIFY(run.standardOutput.endsWith(scripts(1, 1, 0)));
}

void TestPaperPairs::differentWithoutATrace()
{
    PaperRun run;
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("b.txt", script({"one"}).replace("\r\n", "\n"));
    QCOMPARE(run.statusOf({"--compare", "a.txt", "b.txt"}), 0);
    QCOMPARE(run.standardOutput, scripts(1, 0, 1));
}

void TestPaperPairs::findingsDoNotCount()
{
    PaperRun run;
    run.writeFile("a.txt", "nofis apri\r\n");
    run.writeFile("b.txt", "nofis apri\r\nwords\r\n");
    QCOMPARE(run.statusOf({"--compare", "a.txt", "b.txt"}), 0);
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.standardOutput, scripts(1, 0, 1));
}

void TestPaperPairs::intoAFile()
{
    PaperRun run;
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("b.txt", script({"two"}));
    QCOMPARE(run.statusOf({"--compare", "-o", "c.txt", "a.txt", "b.txt"}), 1);
    QCOMPARE(run.standardOutput, scripts(1, 1, 0));
    QVERIFY(run.fileOf("c.txt").contains("│one"));

    run.writeFile("c.txt", "before");
    QCOMPARE(run.statusOf({"--compare", "-o", "c.txt", "a.txt", "a.txt"}), 0);
    QCOMPARE(run.fileOf("c.txt"), QByteArray("before"));
}

void TestPaperPairs::folders()
{
    PaperRun run;
    QDir(run.path(".")).mkpath("old/sub");
    QDir(run.path(".")).mkpath("new/sub");
    for (const char* name : {"old/same.txt", "new/same.txt", "old/sub/same.txt", "new/sub/same.txt"})
        run.writeFile(name, script({"same"}));
    run.writeFile("old/b.txt", script({"one"}));
    run.writeFile("new/b.txt", script({"two"}));
    run.writeFile("old/sub/gone.txt", script({"gone"}));
    run.writeFile("new/.hidden", script({"came"}));
    run.writeFile("old/quiet.txt", script({"quiet"}));
    run.writeFile("new/quiet.txt", script({"quiet"}).replace("\r\n", "\n"));
    QCOMPARE(run.statusOf({"--compare", "old", "new"}), 1);
    QVERIFY2(run.standardOutput.endsWith(scripts(6, 3, 1)), run.standardOutput.constData());
    QVERIFY(!run.standardOutput.contains("same") && !run.standardOutput.contains("quiet"));

    const QString drawing = QString::fromUtf8(run.standardOutput);
    const int came = drawing.indexOf("│came");
    const int changed = drawing.indexOf("│one");
    const int gone = drawing.indexOf("│gone");
    QVERIFY2(0 < came && came < changed && changed < gone, run.standardOutput.constData());
    QCOMPARE(linesWith(run.standardOutput, "│came"), QStringList {QString(36, ' ') + "│came" + QString(28, ' ') + "│"});
    QCOMPARE(linesWith(run.standardOutput, "│gone"), QStringList {"│gone" + QString(28, ' ') + "│"});
    QVERIFY(drawing.contains("old/b.txt" + QString(27, ' ') + "new/b.txt\n"));
}

/// An empty paper, since there is none of that name on the other side.
void TestPaperPairs::aScriptOfNoDocumentOnOneSide()
{
    PaperRun run;
    QDir(run.path(".")).mkpath("old");
    QDir(run.path(".")).mkpath("new");
    run.writeFile("new/words.txt", "words\n");
    QCOMPARE(run.statusOf({"--compare", "old", "new"}), 1);
    QByteArray expected;
    for (const QByteArray& line : framed("new/words.txt", {}).split('\n'))
        expected += line.isEmpty() ? line : QByteArray(36, ' ') + line + '\n';
    QCOMPARE(run.standardOutput, expected + scripts(1, 1, 0));

    run.writeFile("old/words.txt", "other words\n");
    QCOMPARE(run.statusOf({"--compare", "old", "new"}), 0);
    QCOMPARE(run.standardOutput, scripts(1, 0, 1));
}

// With a slash at its end, through a link to it; a link in it leads out of the folder, or round in a circle.
void TestPaperPairs::wholeFoldersAreRead()
{
    PaperRun run;
    QDir(run.path(".")).mkpath("old/sub");
    run.writeFile("old/sub/a.txt", script({"one"}));
    makeLink("..", run.path("old/sub/circle"));
    makeLink("old", run.path("link"));
    QCOMPARE(run.statusOf({"--compare", "old/", "link"}), 0);
    QCOMPARE(run.standardOutput, scripts(1, 0, 0));

    QDir(run.path(".")).mkpath("empty");
    QCOMPARE(run.statusOf({"--compare", "empty", "empty"}), 0);
    QCOMPARE(run.standardOutput, scripts(0, 0, 0));
    QCOMPARE(run.statusOf({"--compare", "empty", "old"}), 1);
    QVERIFY(run.standardOutput.endsWith(scripts(1, 1, 0)));
}

// Of another encoding than the locale's.
void TestPaperPairs::filesOfAnyName()
{
    if (refusesNames())
        QSKIP("this toolkit refuses them");
    PaperRun run;
    run.writeFile("a.txt", script({"one"}));
    run.startShell("mkdir old new; cp a.txt \"old/$(printf 'l\\350.txt')\"; cp a.txt \"new/$(printf '\\351.txt')\"; "
                   "\"$program\" --compare old new; status=$?; rm -r old new; exit $status");
    QCOMPARE(run.exitStatus, 1);
    QVERIFY2(run.standardOutput.endsWith(scripts(2, 2, 0)), run.standardOutput.constData());
}

// What is missing cannot be in the file that is to hold all.
void TestPaperPairs::oneThatIsMissingHidesNoOther()
{
    PaperRun run;
    for (const char* side : {"old", "new"}) {
        QDir(run.path(".")).mkpath(side);
        run.writeFile(side + QByteArray("/empty.txt"), "");
        run.writeFile(side + QByteArray("/z.txt"), script({side}));
    }
    const QByteArray reason = "The file old/empty.txt is empty.\n";
    QCOMPARE(run.statusOf({"--compare", "old", "new"}), 2);
    QCOMPARE(run.standardError, reason);
    QVERIFY(run.standardOutput.contains("│new"));
    QVERIFY(run.standardOutput.endsWith(scripts(1, 1, 0)));

    run.writeFile("c.txt", "before");
    QCOMPARE(run.statusOf({"--compare", "-o", "c.txt", "old", "new"}), 2);
    QCOMPARE(run.standardError, reason);
    QCOMPARE(run.standardOutput, scripts(1, 1, 0));
    QCOMPARE(run.fileOf("c.txt"), QByteArray("before"));

    run.writeFile("new/z.txt", script({"old"}));
    QCOMPARE(run.statusOf({"--compare", "old", "new"}), 2);
    QCOMPARE(run.standardOutput, scripts(1, 0, 0));

    run.writeFile("new/job.xml", jobOf("one")); // which is a wrong call
    QCOMPARE(run.statusOf({"--compare", "old", "new"}), 2);
    QCOMPARE(run.standardOutput, QByteArray());
    QVERIFY(run.standardError.contains("new/job.xml is a job"));
}

void TestPaperPairs::standardInput()
{
    PaperRun run;
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("b.txt", script({"two"}));
    run.startShell("\"$program\" --compare - a.txt < a.txt");
    QCOMPARE(run.remarks(), scripts(1, 0, 0));
    run.startShell("\"$program\" --compare a.txt - < b.txt");
    QCOMPARE(run.exitStatus, 1);
    QVERIFY(run.standardOutput.startsWith("a.txt" + QByteArray(31, ' ') + "-\n"));
    QVERIFY(run.standardOutput.endsWith(scripts(1, 1, 0)));
}

void TestPaperPairs::encodings()
{
    PaperRun run;
    run.writeFile("a.txt", script({"\xE8"}));
    run.writeFile("b.txt", script({"\xE9"}));
    QCOMPARE(run.statusOf({"--compare", "a.txt", "b.txt"}), 0); // neither is UTF-8
    QCOMPARE(run.standardOutput, scripts(1, 0, 1));
    QCOMPARE(run.statusOf({"--compare", "--encoding", "latin1", "a.txt", "b.txt"}), 1);
    QVERIFY(run.standardOutput.contains("│é"));
}

void TestPaperPairs::whatCannotBeCompared_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QByteArray>("message");

    QTest::newRow("a job") << QStringList {"a.txt", "a.xml"}
                           << QByteArray("a.xml is a job: --compare takes scripts, --rehearse jobs.\n");
    QTest::newRow("a job in a folder") << QStringList {
        "jobs", "jobs"} << QByteArray("jobs/a.xml is a job: --compare takes scripts, --rehearse jobs.\n");
    QTest::newRow("a file and a folder") << QStringList {
        "a.txt", "jobs"} << QByteArray("The option --compare takes two scripts or two folders, not one of each.\n");
    QTest::newRow("no such folder") << QStringList {"none", "jobs"}
                                    << QByteArray("The file none cannot be read: No such file or directory\n");
    QTest::newRow("no such file") << QStringList {"a.txt", "none"}
                                  << QByteArray("The file none cannot be read: No such file or directory\n");
    QTest::newRow("an empty file") << QStringList {"empty.txt", "a.txt"}
                                   << QByteArray("The file empty.txt is empty.\n");
}

void TestPaperPairs::whatCannotBeCompared()
{
    QFETCH(QStringList, files);
    QFETCH(QByteArray, message);
    PaperRun run;
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("a.xml", jobOf("two"));
    run.writeFile("empty.txt", "");
    QDir(run.path(".")).mkpath("jobs");
    run.writeFile("jobs/a.xml", jobOf("two"));
    QCOMPARE(run.statusOf(QStringList {"--compare"} + files), 2);
    QCOMPARE(run.standardError, message);
    QCOMPARE(run.standardOutput, QByteArray());
}

void TestPaperPairs::rehearsalWithoutAChange()
{
    PaperRun run;
    run.setSettings(simpleSettings());
    run.writeFile("new.conf", simpleSettings() + " more");
    run.writeFile("a.xml", jobOf("one"));
    run.writeFile("b.xml", jobOf("it's")); // which the register would not print as it is meant
    QCOMPARE(run.statusOf({"--rehearse", "new.conf", "a.xml", "b.xml"}), 0);
    QCOMPARE(run.standardOutput, jobs(2, 0, 0));
    QCOMPARE(run.standardError, QByteArray());
}

void TestPaperPairs::rehearsalOfAChange()
{
    PaperRun run;
    run.setSettings(simpleSettings());
    run.writeFile("new.conf", simpleSettings("false"));
    run.writeFile("a.xml", jobOf("one"));
    run.writeFile("b.xml", "<j><method name=\"printSold\"/></j>");
    QCOMPARE(run.statusOf({"--rehearse", "new.conf", "b.xml", "a.xml"}), 1);
    QVERIFY(run.standardOutput.startsWith("a.xml, today" + QByteArray(24, ' ') + "a.xml, new.conf\n"));
    QCOMPARE(linesWith(run.standardOutput, "one").size(), 1);
    QVERIFY(run.standardOutput.endsWith(jobs(2, 1, 0)));
}

void TestPaperPairs::rehearsalOfOtherSettingsThanTodays()
{
    PaperRun run;
    run.writeFile("today.conf", simpleSettings());
    run.writeFile("new.xml", "<zelmora><solddoc printNote=\"true\"/></zelmora>");
    run.writeFile("a.xml", jobOf("one"));
    QCOMPARE(run.statusOf({"--rehearse", "new.xml", "a.xml"}), 1); // there are none
    QCOMPARE(run.statusOf({"--rehearse", "new.xml", "--settings", "today.conf", "a.xml"}), 0);
    run.startShell("\"$program\" --rehearse today.conf - < a.xml");
    QCOMPARE(run.exitStatus, 1);
    QVERIFY(run.standardOutput.startsWith("-, today"));
}

void TestPaperPairs::aJobThatFailsHidesNoOther()
{
    PaperRun run;
    run.setSettings(simpleSettings());
    run.writeFile("new.conf", simpleSettings("false"));
    run.writeFile("a.xml", jobOf("one"));
    run.writeFile("a.txt", script({"one"}));
    QCOMPARE(run.statusOf({"--rehearse", "new.conf", "none.xml", "a.xml"}), 2);
    QCOMPARE(run.standardError, QByteArray("The file none.xml cannot be read: No such file or directory\n"));
    QVERIFY(run.standardOutput.startsWith("a.xml, today"));
    QVERIFY(run.standardOutput.endsWith(jobs(1, 1, 0)));

    QCOMPARE(run.statusOf({"--rehearse", "new.conf", "a.xml", "a.txt"}), 2);
    QCOMPARE(run.standardError, QByteArray("a.txt is no job: --rehearse takes jobs, --compare scripts.\n"));
    QCOMPARE(run.standardOutput, QByteArray());
}

void TestPaperPairs::whatCannotBeRehearsed_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");

    QTest::newRow("a script") << QStringList {"new.conf", "a.txt"}
                              << QByteArray("a.txt is no job: --rehearse takes jobs, --compare scripts.\n");
    QTest::newRow("no such job") << QStringList {"new.conf", "none.xml"}
                                 << QByteArray("The file none.xml cannot be read: No such file or directory\n");
    QTest::newRow("no such settings") << QStringList {"none.conf", "a.xml"}
                                      << QByteArray("The file none.conf cannot be read: No such file or directory\n");
    QTest::newRow("an empty job") << QStringList {"new.conf", "empty.xml"}
                                  << QByteArray("The file empty.xml is empty.\n");
    QTest::newRow("a job of which nothing is printed")
        << QStringList {"new.conf", "cut.xml"}
        << QByteArray("cut.xml: Nothing of this job is printed. zelmora-check says why.\n");
    QTest::newRow("settings that the brace form cannot hold")
        << QStringList {"new.xml", "a.xml"}
        << QByteArray("The print program reads the brace form alone, which cannot hold this of the file new.xml:\n"
                      "  zelmora.doc.style = a;b\n");
}

void TestPaperPairs::whatCannotBeRehearsed()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    PaperRun run;
    run.writeFile("new.conf", simpleSettings());
    run.writeFile("new.xml", "<zelmora><doc style=\"a;b\"/></zelmora>");
    run.writeFile("a.xml", jobOf("one"));
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("empty.xml", "");
    run.writeFile("cut.xml", "<printjob");
    QCOMPARE(run.statusOf(QStringList {"--rehearse"} + arguments), 2);
    QCOMPARE(run.standardError, message);
    QCOMPARE(run.standardOutput, QByteArray());
}

QTEST_GUILESS_MAIN(TestPaperPairs)
#include "tst_paperpairs.moc"
