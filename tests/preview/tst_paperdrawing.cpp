#include "preview/paperrun.h"
#include "support/unusablenames.h"

#include <QTextCodec>
#include <QtTest>

/// `zelmora-paper` on the terminal.
class TestPaperDrawing : public QObject {
    Q_OBJECT

private slots:
    void drawsAScript_data();
    void drawsAScript();
    void drawsAJobAsItPrints();
    void oneBelowTheOther();
    void eachDocumentOfAScript();
    void standardInput();
    void toldByContent_data();
    void toldByContent();
    void encodings();
    void anEightBitTerminal();
    void anAsciiTerminal_data();
    void anAsciiTerminal();
    void anyFileName();
    void aNameThatBeginsWithAColon();
    void plain_data();
    void plain();
    void plainIsWhole();
    void plainOfAFiscalDocument();
    void allSamplesOnOneSheet();
    void rowsOfAllSamples();

    void statuses_data();
    void statuses();
    void wrongCalls_data();
    void wrongCalls();
    void settingsThatCannotBeHad();
    void ownSettingsThatCannotBeHad();
    void xmlSettings();
    void findingsOfAJobAreThoseOfItsScript();
    void aJobThatPrintsNothing();
    void helpAndVersion();
    void standardOutputThatIsFull();
};

void TestPaperDrawing::drawsAScript_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("as the print program writes it") << script({"Hello", " \xC3\xA8"});
    QTest::newRow("with plain line feeds") << script({"Hello", " \xC3\xA8"}).replace("\r\n", "\n");
}

void TestPaperDrawing::drawsAScript()
{
    QFETCH(QByteArray, bytes);
    PaperRun run;
    run.writeFile("a.txt", bytes);
    run.start({"a.txt"});
    QCOMPARE(run.standardOutput, framed("a.txt", {"Hello", " è"}));
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
}

void TestPaperDrawing::drawsAJobAsItPrints()
{
    PaperRun run;
    run.setSettings(simpleSettings());
    run.writeFile("a.xml", jobOf("SOLD"));
    QCOMPARE(run.statusOf({"a.xml"}), 0);
    QCOMPARE(run.standardOutput, framed("a.xml", rowsOf("SOLD")));

    run.writeFile("other.conf", simpleSettings("false"));
    QCOMPARE(run.statusOf({"--settings", "other.conf", "a.xml"}), 0);
    QCOMPARE(run.standardOutput, framed("a.xml", {QString(32, u'=')}));
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.xml", "home", "other.conf"}));
}

void TestPaperDrawing::oneBelowTheOther()
{
    PaperRun run;
    run.setSettings(simpleSettings());
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("b.xml", jobOf("two"));
    run.writeFile("c.txt", script({}));
    QCOMPARE(run.statusOf({"c.txt", "a.txt", "b.xml"}), 0);
    QCOMPARE(run.standardOutput,
             framed("c.txt", {}) + '\n' + framed("a.txt", {"one"}) + '\n' + framed("b.xml", rowsOf("two")));
}

void TestPaperDrawing::eachDocumentOfAScript()
{
    PaperRun run;
    run.writeFile("a.txt", script({"one"}) + script({"two"}));
    QCOMPARE(run.statusOf({"a.txt"}), 0);
    QCOMPARE(run.standardOutput, framed("a.txt", {"one"}) + '\n' + framed("a.txt (2)", {"two"}));

    run.writeFile("a%2b.txt", script({"one"}) + script({"two"})); // a place for no number
    QCOMPARE(run.statusOf({"a%2b.txt"}), 0);
    QCOMPARE(run.standardOutput, framed("a%2b.txt", {"one"}) + '\n' + framed("a%2b.txt (2)", {"two"}));
}

void TestPaperDrawing::standardInput()
{
    PaperRun run;
    run.setSettings(simpleSettings());
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("b.xml", jobOf("two"));
    run.startShell("\"$program\" - < a.txt && cat b.xml | \"$program\" -");
    QCOMPARE(run.remarks(), framed("-", {"one"}) + framed("-", rowsOf("two")));
    run.startShell("\"$program\" - < /dev/null");
    const QByteArray nothing = "\nstandard error: The file - is empty.\n\nexit status 2";
    QCOMPARE(run.remarks(), nothing);
    run.startShell("(cat > /dev/null; \"$program\" -) < a.txt"); // another has read it to its end
    QCOMPARE(run.remarks(), nothing);
}

void TestPaperDrawing::toldByContent_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("rows");

    const auto utf16 = [](const char* name) {
        QTextCodec::ConverterState withoutMark(QTextCodec::IgnoreHeader);
        const QString text =
            QChar(QChar::ByteOrderMark) + QString("<?xml version=\"1.0\" encoding=\"UTF-16\"?>") + jobOf("è");
        return QTextCodec::codecForName(name)->fromUnicode(text.constData(), text.size(), &withoutMark);
    };
    QTest::newRow("a job") << jobOf("job") << QStringList(rowsOf("job"));
    QTest::newRow("a job behind white space") << " \n\t" + jobOf("job") << QStringList(rowsOf("job"));
    QTest::newRow("a job behind a byte-order mark") << "\xEF\xBB\xBF" + jobOf("job") << QStringList(rowsOf("job"));
    QTest::newRow("a job in UTF-16, the small end first") << utf16("UTF-16LE") << QStringList(rowsOf("è"));
    QTest::newRow("a job in UTF-16, the big end first") << utf16("UTF-16BE") << QStringList(rowsOf("è"));
    QTest::newRow("a script that is about one") << script({"<job>"}) << QStringList {"<job>"};
}

void TestPaperDrawing::toldByContent()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, rows);
    PaperRun run;
    run.setSettings(simpleSettings());
    run.writeFile("a", bytes);
    QCOMPARE(run.statusOf({"a"}), 0);
    QCOMPARE(run.standardOutput, framed("a", rows));
}

void TestPaperDrawing::encodings()
{
    PaperRun run;
    run.writeFile("a.txt", script({"\xE8 \xA4"}));
    QCOMPARE(run.statusOf({"--encoding", "iso-8859-15", "a.txt"}), 0);
    QCOMPARE(run.standardOutput, framed("a.txt", {"è €"}));
    QCOMPARE(run.statusOf({"--encoding=latin1", "a.txt"}), 0);
    QCOMPARE(run.standardOutput, framed("a.txt", {"è ¤"}));
    QCOMPARE(run.statusOf({"a.txt"}), 0);
    QCOMPARE(run.standardOutput, framed("a.txt", {"\uFFFD \uFFFD"}));
}

void TestPaperDrawing::anEightBitTerminal()
{
    PaperRun run;
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    run.setSettings(simpleSettings());
    run.writeFile("a.txt", script({"\xE8"}));
    run.writeFile("b.xml", QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") + jobOf("\xE2\x82\xAC"));
    QCOMPARE(run.statusOf({"a.txt", "b.xml"}), 0);
    const QByteArray edge = '+' + QByteArray(32, '-') + "+\n";
    const QByteArray rest(31, ' ');
    QCOMPARE(run.standardOutput,
             "a.txt\n" + edge + "|\xE8" + rest + "|\n" + edge + "\nb.xml\n" + edge + "| Note: \xA4" + rest.mid(7)
                 + "|\n|" + QByteArray(32, '=') + "|\n" + edge);
}

void TestPaperDrawing::anAsciiTerminal_data()
{
    QTest::addColumn<QString>("locale");
    for (const char* locale : {"C", "POSIX", "xx_YY.UTF-8"}) // there is none of the last name
        QTest::newRow(locale) << locale;
}

// The frame alone is another one. A file has box characters.
void TestPaperDrawing::anAsciiTerminal()
{
    QFETCH(QString, locale);
    PaperRun run;
    run.setEnvironment("LC_ALL", locale);
    run.writeFile("a.txt", script({"\xC3\xA8"}));
    const QByteArray edge = '+' + QByteArray(32, '-') + "+\n";
    QCOMPARE(run.statusOf({"a.txt"}), 0);
    QCOMPARE(run.standardOutput, "a.txt\n" + edge + "|\xC3\xA8" + QByteArray(31, ' ') + "|\n" + edge);
    QCOMPARE(run.statusOf({"-o", "b.txt", "a.txt"}), 0);
    QCOMPARE(run.fileOf("b.txt"), framed("a.txt", {"è"}));
}

// Its bytes are no text in this locale.
void TestPaperDrawing::anyFileName()
{
    if (refusesNames())
        QSKIP("this toolkit refuses them");
    PaperRun run;
    run.setSettings(simpleSettings());
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("b.xml", jobOf("two"));
    run.startShell("mv a.txt \"$(printf 'a\\350.txt')\" && mv b.xml \"$(printf 'b\\350.xml')\" && "
                   "mkdir \"$(printf '\\350')\" && "
                   "\"$program\" --plain -o \"$(printf '\\350/\\350.txt')\" *.xml *.txt && cat */*.txt && rm -r ./*");
    QCOMPARE(run.remarks(), " Note: two\n" + QByteArray(32, '=') + "\n\none\n");
}

// To the toolkit such a name is one of its own resources.
void TestPaperDrawing::aNameThatBeginsWithAColon()
{
    PaperRun run;
    run.writeFile("./:a.xml", jobOf("one"));
    run.writeFile("./:a.conf", simpleSettings());
    QCOMPARE(run.statusOf({"--settings=:a.conf", "--output=:a.txt", "--plain", ":a.xml"}), 0);
    QCOMPARE(run.fileOf("./:a.txt"), " Note: one\n" + QByteArray(32, '=') + '\n');
    QCOMPARE(run.statusOf({"--rehearse=:a.conf", "--settings=:a.conf", ":a.xml"}), 0);
    QCOMPARE(run.statusOf({":/samples/receipt.xml"}), 2);
}

void TestPaperDrawing::plain_data()
{
    QTest::addColumn<QString>("job");
    for (const QString& job : examples.entryList({"*.xml"})) {
        if (!job.contains("fiscal"))
            QTest::newRow(qPrintable(job)) << job;
    }
}

/// The rows are what stands between the quotes of the script. The settings name their catalogue relative to the working
/// folder.
void TestPaperDrawing::plain()
{
    QFETCH(QString, job);
    const QByteArray printed = ExampleRun().printExample(job);
    QByteArray rows;
    for (const QByteArray& line : printed.split('\n')) {
        if (line.startsWith("nofis riga"))
            rows += line.mid(12, line.lastIndexOf('\'') - 12) + '\n';
    }
    PaperRun run;
    run.setSettings(exampleSettings());
    run.setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path() + "/..");
    QCOMPARE(run.statusOf({"--plain", examples.filePath(job)}), 0);
    const QByteArray found = difference(rows, run.standardOutput);
    QVERIFY2(found.isEmpty(), found.constData());
    const int count = printed.count('\n') - 2;
    QCOMPARE(run.standardOutput.count('\n'), count);

    QCOMPARE(run.statusOf({"--plain", run.writeFile("a.txt", printed)}), 0);
    QCOMPARE(run.standardOutput, rows);
}

void TestPaperDrawing::plainIsWhole()
{
    PaperRun run;
    const QByteArray longLine = "  1234567890123456789012345678901234567890  ";
    run.writeFile("a.txt", script({longLine, "", "it's"}) + script({" two "}));
    run.writeFile("b.txt", script({"three"}));
    run.start({"--plain", "a.txt", "b.txt"});
    QCOMPARE(run.standardOutput, longLine + "\n\nits'\n\n two \n\nthree\n");
}

// Added up by hand.
void TestPaperDrawing::plainOfAFiscalDocument()
{
    PaperRun run;
    run.setSettings(exampleSettings());
    run.setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path() + "/..");
    QCOMPARE(run.statusOf({"--plain", examples.filePath("fiscal-receipt.xml")}), 0);
    const QByteArray expected = "Coperto                     7.50\n"
                                "  3 x 2.50                 REP 1\n"
                                "Pappardelle al ragù di c   29.00\n"
                                "  2 x 14.50                REP 1\n"
                                "Gnocchi al gorgonzola      11.00\n"
                                "  1 x 11.00                REP 1\n"
                                "Tagliata di manzo al ros   22.00\n"
                                "  1 x 22.00                REP 1\n"
                                "Tiramisù                   18.00\n"
                                "  3 x 6.00                 REP 1\n"
                                "Bottiglia di Rosso della   14.00\n"
                                "  1 x 14.00                REP 2\n"
                                "Acqua minerale              5.00\n"
                                "  2 x 2.50                 REP 2\n"
                                "Caffè                       4.50\n"
                                "  3 x 1.50                 REP 1\n"
                                "SCONTO                     -5.50\n"
                                "--------------------------------\n"
                                "TOTALE                    105.50\n"
                                "\n";
    QVERIFY2(run.standardOutput.startsWith(expected),
             difference(expected, run.standardOutput.left(expected.size())).constData());

    QCOMPARE(run.statusOf({"--plain", examples.filePath("summary-fiscal-receipt.xml")}), 0);
    const QByteArray summary = "Coperti                    10.00\n"
                               "  1 x 10.00                REP 1\n"
                               "Antipasti della casa e fritture miste di stagione\n"
                               "                           26.50\n"
                               "  1 x 26.50                REP 1\n"
                               "Primi piatti               57.50\n"
                               "  1 x 57.50                REP 1\n"
                               "Secondi piatti             36.50\n"
                               "  1 x 36.50                REP 1\n"
                               "Dolci                      24.00\n"
                               "  1 x 24.00                REP 1\n"
                               "Bevande e caffè            25.00\n"
                               "  1 x 25.00                REP 2\n"
                               "SCONTO                     -9.50\n"
                               "--------------------------------\n"
                               "TOTALE                    170.00\n"
                               "\n";
    QVERIFY2(run.standardOutput.startsWith(summary),
             difference(summary, run.standardOutput.left(summary.size())).constData());
}

void TestPaperDrawing::allSamplesOnOneSheet()
{
    PaperRun run;
    run.setSettings(exampleSettings());
    QCOMPARE(run.statusOf({"--proof"}), 0);
    const QStringList lines = QString::fromUtf8(run.standardOutput).split('\n');
    QCOMPARE(lines.first(), QString("Kitchen order                       Full order"));
    QCOMPARE(lines.filter("┌").size(), 7); // two beside each other, and the thirteenth
    QCOMPARE(QString(run.standardOutput).count("┌"), 13);
    QVERIFY(run.standardOutput.contains("Statement of account\n"));
}

void TestPaperDrawing::rowsOfAllSamples()
{
    PaperRun run;
    run.setSettings(exampleSettings());
    QStringList arguments {"--plain"};
    for (const char* file : {"kitchen-order", "full-order", "receipt", "invoice", "delivery-note", "fiscal-receipt",
                             "summary-order", "summary-receipt", "summary-invoice", "summary-fiscal-receipt", "report",
                             "sold-list", "statement-of-account"})
        arguments += examples.filePath(QString(file) + ".xml");
    QCOMPARE(run.statusOf(arguments), 0);
    const QByteArray rows = run.standardOutput;
    QCOMPARE(run.statusOf({"--proof", "--plain"}), 0);
    QVERIFY2(run.standardOutput == rows, difference(rows, run.standardOutput).constData());
}

void TestPaperDrawing::statuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("remark"); // the last line of standard error, or its beginning

    const QStringList good {"good.txt"};
    QTest::newRow("a script in order") << good << 0 << QByteArray();
    QTest::newRow("an error") << QStringList {"open.txt"} << 1 << QByteArray("open.txt:1:1: error: ");
    QTest::newRow("an error in one of several")
        << QStringList {"open.txt", "good.txt"} << 1 << QByteArray("open.txt:1:1: error: ");
    QTest::newRow("a warning") << QStringList {"bytes.txt"} << 0 << QByteArray("bytes.txt:2:13: warning: ");
    QTest::newRow("a file of 3 GB") << QStringList {"large.txt"} << 2
                                    << QByteArray("The file large.txt cannot be read: File too large\n");
    QTest::newRow("no such file") << QStringList {"none.txt"} << 2
                                  << QByteArray("The file none.txt cannot be read: No such file or directory\n");
    QTest::newRow("a folder") << QStringList {"home"} << 2 << QByteArray("The file home cannot be read: ");
    QTest::newRow("an empty file") << QStringList {"empty.txt"} << 2 << QByteArray("The file empty.txt is empty.\n");
    QTest::newRow("one of several cannot be read")
        << QStringList {"none.txt", "good.txt"} << 2
        << QByteArray("The file none.txt cannot be read: No such file or directory\n");
    QTest::newRow("a job with an encoding") << QStringList {"--encoding", "latin1", "job.xml"} << 2
                                            << QByteArray("job.xml is a job, and --encoding is for scripts.\n");
    QTest::newRow("a job that breaks off")
        << QStringList {"broken.xml"} << 1 << QByteArray("broken.xml (script):1:1: error: ");
    QTest::newRow("a file that is neither") << QStringList {"words.txt"} << 1 << QByteArray("words.txt:1:1: error: ");
}

void TestPaperDrawing::statuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QByteArray, remark);
    PaperRun run;
    run.writeFile("good.txt", script({"one"}));
    run.writeFile("open.txt", "nofis apri\r\nnofis riga='one'\r\n");
    run.writeFile("bytes.txt", script({"\xE8"}));
    run.writeFile("empty.txt", "");
    if (truncate(run.writeFile("large.txt", "").toUtf8().constData(), 3000000000) != 0)
        qFatal("No file can be that large.");
    run.writeFile("words.txt", "words\n");
    run.writeFile("job.xml", jobOf("two"));
    run.writeFile("broken.xml", "<j><method name=\"printSold\"/><");
    run.start(arguments);
    QCOMPARE(run.exitStatus, status);
    QVERIFY2(remark.isEmpty() ? run.standardError.isEmpty() : run.standardError.startsWith(remark),
             run.standardError.constData());
    QCOMPARE(run.standardError.count('\n'), remark.isEmpty() ? 0 : 1);
    const bool isGoodOneThere = arguments.contains("good.txt");
    QCOMPARE(run.standardOutput.contains("│one"), isGoodOneThere || arguments.contains("open.txt"));
}

void TestPaperDrawing::wrongCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");

    const auto row = [](const char* name, const QStringList& arguments, const QByteArray& message) {
        QTest::newRow(name) << arguments << message;
    };
    row("no file", {}, "There is nothing to draw: name a script or a job, or \"-\" for standard input.");
    row("an unknown option", {"--nice", "a.txt"}, "Unknown option 'nice'.");
    row("an option without its value", {"a.txt", "-o"}, "Missing value after '-o'.");
    row("a file to draw into without an ending", {"-o", "a", "a.txt"},
        "The name of the file to draw into must end in .txt, .svg, .png or .pdf: \"a\" does not.");
    row("one with another ending", {"-o", "a.jpg", "a.txt"},
        "The name of the file to draw into must end in .txt, .svg, .png or .pdf: \"a.jpg\" does not.");
    row("standard output by name", {"-o", "-", "a.txt"},
        "The name of the file to draw into must end in .txt, .svg, .png or .pdf: \"-\" does not.");
    row("plain rows as a picture", {"--plain", "-o", "a.svg", "a.txt"},
        "With --plain the file to draw into must end in .txt.");
    row("a scale on the terminal", {"--scale", "2", "a.txt"},
        "The option --scale is for a drawing into a .png file alone.");
    row("a scale of what has none", {"--scale", "2", "-o", "a.pdf", "a.txt"},
        "The option --scale is for a drawing into a .png file alone.");
    row("a scale of 0", {"--scale", "0", "-o", "a.png", "a.txt"},
        "The scale is a whole number from 1 to 8, and \"0\" is none.");
    row("a scale of 9", {"--scale", "9", "-o", "a.png", "a.txt"},
        "The scale is a whole number from 1 to 8, and \"9\" is none.");
    row("a scale of half", {"--scale", "1.5", "-o", "a.png", "a.txt"},
        "The scale is a whole number from 1 to 8, and \"1.5\" is none.");
    row("an unknown encoding", {"--encoding", "klingon", "a.txt"}, "There is no encoding \"klingon\".");
    row("standard input twice", {"-", "a.txt", "-"}, "Standard input can be read only once: there are several \"-\".");
    row("a comparison of standard input with itself", {"--compare", "-", "-"},
        "Standard input can be read only once: there are several \"-\".");
    row("a rehearsal of it twice", {"--rehearse", "x.conf", "-", "-"},
        "Standard input can be read only once: there are several \"-\".");
    row("a proof of files", {"--proof", "a.txt"}, "The option --proof draws the built-in samples: it takes no files.");
    row("a proof with an encoding", {"--proof", "--encoding", "latin1"},
        "The options --proof and --encoding cannot be had together.");
    row("a comparison of one", {"--compare", "a.txt"},
        "The option --compare takes two scripts or two folders, the old and the new.");
    row("a comparison of three", {"--compare", "a.txt", "a.txt", "a.txt"},
        "The option --compare takes two scripts or two folders, the old and the new.");
    row("a comparison, plain", {"--compare", "--plain", "a.txt", "a.txt"},
        "The options --compare and --plain cannot be had together.");
    row("a comparison with settings", {"--compare", "--settings", "x", "a.txt", "a.txt"},
        "The options --compare and --settings cannot be had together.");
    row("a rehearsal of nothing", {"--rehearse", "x.conf"},
        "There is no job to rehearse: name one behind the settings file.");
    row("a rehearsal with an encoding", {"--rehearse", "x.conf", "--encoding", "latin1", "a.xml"},
        "The options --rehearse and --encoding cannot be had together.");
    row("two things at once", {"--compare", "--proof"}, "The options --proof and --compare cannot be had together.");
}

void TestPaperDrawing::wrongCalls()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    PaperRun run;
    run.writeFile("a.txt", script({"one"}));
    QCOMPARE(run.statusOf(arguments), 2);
    QCOMPARE(run.standardOutput, QByteArray());
    QCOMPARE(run.standardError, message + "\nTry '" ZELMORA_PAPER_PROGRAM " --help' for more information.\n");
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.txt", "home"}));
}

void TestPaperDrawing::settingsThatCannotBeHad()
{
    PaperRun run;
    run.writeFile("a.xml", jobOf("one"));
    QCOMPARE(run.statusOf({"--settings", "none.conf", "a.xml"}), 2);
    QCOMPARE(run.standardError, QByteArray("The file none.conf cannot be read: No such file or directory\n"));
    QCOMPARE(run.standardOutput, QByteArray());
    run.writeFile("a.txt", script({"one"}));
    QCOMPARE(run.statusOf({"--settings", "none.conf", "a.txt"}), 2); // which the call names all the same
    QCOMPARE(run.standardOutput, QByteArray());
    run.startShell("truncate -s 3G large.conf; \"$program\" --settings large.conf a.xml; rm large.conf");
    QCOMPARE(run.standardError, QByteArray("The file large.conf cannot be read: File too large\n"));
}

// A script needs none.
void TestPaperDrawing::ownSettingsThatCannotBeHad()
{
    PaperRun run;
    run.writeFile("a.xml", jobOf("one"));
    run.writeFile("a.txt", script({"one"}));
    run.writeFile("new.conf", simpleSettings());
    QDir(run.path(".")).mkpath("home/.zelmora/conf/zelmora.conf");
    const QByteArray reason =
        "The file " + run.path("home/.zelmora/conf/zelmora.conf").toUtf8() + " cannot be read: it is not a file\n";
    for (const QStringList& arguments :
         {QStringList {"a.xml"}, QStringList {"--proof"}, QStringList {"--rehearse", "new.conf", "a.xml"}}) {
        QCOMPARE(run.statusOf(arguments), 2);
        QCOMPARE(run.standardError, reason);
        QCOMPARE(run.standardOutput, QByteArray());
    }
    QCOMPARE(run.statusOf({"a.txt"}), 0);
    QCOMPARE(run.standardOutput, framed("a.txt", {"one"}));
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.statusOf({"--compare", "a.txt", "a.txt"}), 0);
    QCOMPARE(run.statusOf({"a.xml", "a.txt"}), 2);
    QCOMPARE(run.standardOutput, framed("a.txt", {"one"}));
    QCOMPARE(run.standardError, reason);
    QCOMPARE(run.statusOf({"--settings", "new.conf", "a.xml"}), 0);
}

void TestPaperDrawing::xmlSettings()
{
    PaperRun run;
    run.writeFile("a.xml", jobOf("one"));
    run.writeFile("s.xml", "<zelmora><solddoc paperWidth=\"32\" printNote=\"true\"/></zelmora>");
    QCOMPARE(run.statusOf({"--settings", "s.xml", "a.xml"}), 0);
    QCOMPARE(run.standardOutput, framed("a.xml", rowsOf("one")));
    run.writeFile("s.xml", "<zelmora><solddoc printNote=\"true\" style=\"a;b\"/></zelmora>");
    QCOMPARE(run.statusOf({"--settings", "s.xml", "a.xml"}), 2);
    QCOMPARE(run.standardError,
             QByteArray("The print program reads the brace form alone, which cannot hold this of the file s.xml:\n"
                        "  zelmora.solddoc.style = a;b\n"));
}

void TestPaperDrawing::findingsOfAJobAreThoseOfItsScript()
{
    PaperRun run;
    run.setSettings(simpleSettings());
    run.writeFile("a.xml", jobOf("it's"));
    QCOMPARE(run.statusOf({"a.xml"}), 1);
    QVERIFY2(run.standardError.startsWith("a.xml (script):2:22: error: ")
                 && run.standardError.endsWith(" [quote-in-text]\n"),
             run.standardError.constData());
}

// It breaks off before the print program has begun a document.
void TestPaperDrawing::aJobThatPrintsNothing()
{
    PaperRun run;
    run.writeFile("a.xml", "<printjob");
    run.writeFile("a.txt", script({"one"}));
    QCOMPARE(run.statusOf({"a.xml", "a.txt"}), 2);
    QCOMPARE(run.standardOutput, framed("a.txt", {"one"}));
    QCOMPARE(run.standardError, QByteArray("a.xml: Nothing of this job is printed. zelmora-check says why.\n"));
}

void TestPaperDrawing::helpAndVersion()
{
    PaperRun run;
    QCOMPARE(run.statusOf({"--version"}), 0);
    QCOMPARE(run.standardOutput, QByteArray("zelmora-paper 1.0\n"));
    QCOMPARE(run.statusOf({"--help", "--scale", "99"}), 0);
    QVERIFY(run.standardOutput.startsWith("Usage: "));
    for (const char* option :
         {"--output", "--settings", "--plain", "--proof", "--compare", "--rehearse", "--encoding", "--scale"})
        QVERIFY2(run.standardOutput.contains(option), option);
}

void TestPaperDrawing::standardOutputThatIsFull()
{
    PaperRun run;
    run.writeFile("a.txt", script({"one"}));
    run.startShell("\"$program\" a.txt > /dev/full");
    QCOMPARE(run.exitStatus, 2);
    QCOMPARE(run.standardError, QByteArray("Standard output cannot be written.\n"));
}

QTEST_GUILESS_MAIN(TestPaperDrawing)
#include "tst_paperdrawing.moc"
