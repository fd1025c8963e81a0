#include "support/examples.h"
#include "support/smalljob.h"

#include <QtTest>

/// Settings files that are malformed, cut off, binary or huge: the program prints with what it could read.
class TestBrokenSettings : public QObject {
    Q_OBJECT

private slots:
    void settings_data();
    void settings();
    void unreadable_data();
    void unreadable();
    void everyKindOfCut();
    void topMargin_data();
    void topMargin();
};

static QByteArray nestedGroups(int depth)
{
    return QByteArray("g: { ").repeated(depth) + "k = v; " + QByteArray("}; ").repeated(depth);
}

void TestBrokenSettings::settings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("ruleWidth"); // 32 is the register's own

    const QByteArray good = "zelmora: { receiptdoc: { paperWidth = 20; }; };";
    QTest::newRow("good") << good << 20;
    QTest::newRow("empty") << QByteArray() << 32;
    QTest::newRow("blank") << QByteArray(" \n\t ") << 32;
    QTest::newRow("binary") << QByteArray("\x00\x01\xff\xfe\x7f=\x00;:{}", 12) << 32;
    QTest::newRow("no end after the value") << QByteArray("zelmora: { receiptdoc: { paperWidth = 21") << 21;
    QTest::newRow("no closing braces") << QByteArray("zelmora: { receiptdoc: { paperWidth = 22;") << 22;
    QTest::newRow("no opening braces") << QByteArray("zelmora: receiptdoc: paperWidth = 23;") << 32;
    QTest::newRow("more closing braces than opening ones") << "};" + good << 32;
    QTest::newRow("a remark before the group") << "# settings\n" + good << 32;
    QTest::newRow("a second top-level group") << "other: { a = b; }; " + good << 32;
    QTest::newRow("a byte-order mark") << "\xef\xbb\xbf" + good << 20;
    QTest::newRow("Windows line ends") << QByteArray(good).replace(" ", "\r\n") << 20;
    QTest::newRow("a value of 10 MB before the width")
        << "zelmora: { receiptdoc: { style = " + QByteArray(10000000, 'x') + "; paperWidth = 25; }; };" << 25;
    QTest::newRow("a catalogue's name of 10 MB") << "zelmora: { language: { file = "
            + QByteArray("_.").repeated(5000000) + "; }; receiptdoc: { paperWidth = 30; }; };"
                                                 << 30;
    QTest::newRow("a catalogue's folder of 10 MB") << "zelmora: { language: { basedir = "
            + QByteArray("_.").repeated(5000000) + "; file = /; }; receiptdoc: { paperWidth = 31; }; };"
                                                   << 31;
    QTest::newRow("10 MB without any grammar") << QByteArray(10000000, 'x') << 32;
    QTest::newRow("a hundred thousand settings")
        << "zelmora: { receiptdoc: { " + QByteArray("paperWidth = 26; ").repeated(100000) + "}; };" << 26;
    QTest::newRow("a name of 10 MB beyond ASCII")
        << "zelmora: { receiptdoc: { " + QByteArray("è").repeated(5000000) + " = 1; paperWidth = 24; }; };" << 24;
    QTest::newRow("a hundred thousand groups") << "zelmora: { "
            + QByteArray("receiptdoc: { paperRows = 1; }; ").repeated(100000) + "receiptdoc: { paperWidth = 27; }; };"
                                               << 27;
    QTest::newRow("nested 100,000 deep after the width")
        << "zelmora: { receiptdoc: { paperWidth = 28; }; " + nestedGroups(100000) + "};" << 28;
    QTest::newRow("nested 100,000 deep before the width")
        << "zelmora: { " + nestedGroups(100000) + "receiptdoc: { paperWidth = 29; }; };" << 32;
}

void TestBrokenSettings::settings()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, ruleWidth);

    ProgramRun run;
    run.setSettings(bytes);
    QCOMPARE(run.print(smallJob), smallScript(ruleWidth));
    QCOMPARE(run.remarks(), QByteArray());
}

void TestBrokenSettings::unreadable_data()
{
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<bool>("reported"); // as a file that can't be opened
    QTest::newRow("a link to nowhere") << QByteArray("ln -s nowhere home/.zelmora/conf/zelmora.conf") << true;
    QTest::newRow("a folder") << QByteArray("mkdir home/.zelmora/conf/zelmora.conf") << false;
    QTest::newRow("opens, but can't be read")
        << QByteArray("ln -s /proc/self/mem home/.zelmora/conf/zelmora.conf") << false;
}

void TestBrokenSettings::unreadable()
{
    QFETCH(QByteArray, commands);
    QFETCH(bool, reported);

    ProgramRun run;
    run.writeFile("job.xml", smallJob);
    run.startShell(commands + R"(; "$program" job.xml script.txt)");
    const QByteArray report = "Error in the method FileReader::open( " + run.path("home").toUtf8()
        + "/.zelmora/conf/zelmora.conf ): File Not Found\n";
    QCOMPARE(fileContents(run.path("script.txt")), smallScript());
    QCOMPARE(run.remarks(), reported ? report : QByteArray());
}

void TestBrokenSettings::everyKindOfCut()
{
    const QByteArray width = R"(paperWidth = "30")";
    const QByteArray whole =
        exampleSettings().replace(R"(paperWidth = "32")", width).replace("zelmora_it.qm", "none.qm");
    const int begin = whole.indexOf(width, whole.indexOf("receiptdoc"));
    QVERIFY(begin > 0);
    for (int length = 0; length < whole.size(); length += 97) { // a prime: cuts of every kind
        ProgramRun run;
        run.setSettings(whole.left(length));
        const QByteArray script = run.print(smallJob);
        const QString where = QString("cut at %1").arg(length);
        if (length <= begin)
            QVERIFY2(script == smallScript(), qPrintable(where));
        else if (length >= begin + width.size())
            QVERIFY2(script == smallScript(30), qPrintable(where));
        QCOMPARE(run.remarks(), QByteArray());
    }
}

void TestBrokenSettings::topMargin_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("emptyLines"); // of each element: at most 10,000, as docs/settings-file.md says
    QTest::newRow("one less than the bound") << QByteArray("9999") << 9999;
    QTest::newRow("the bound") << QByteArray("10000") << 10000;
    QTest::newRow("one more than the bound") << QByteArray("10001") << 10000;
    QTest::newRow("the greatest number") << QByteArray("2147483647") << 10000;
    QTest::newRow("one more than the greatest number") << QByteArray("2147483648") << 0;
    QTest::newRow("the least number") << QByteArray("-2147483648") << 0;
}

void TestBrokenSettings::topMargin()
{
    QFETCH(QByteArray, value);
    QFETCH(int, emptyLines);

    ProgramRun run;
    run.setSettings("zelmora: { receiptdoc: { printGeometry = true; topMargin = " + value + "; }; };");
    const QByteArray script = run.print(R"(<job><method name="printFullOrderReceipt"/><geometry/><geometry/></job>)");
    const QByteArray expected =
        commands({"nofis apri"}) + line("").repeated(2 * emptyLines) + commands({"nofis chiudi"});
    QCOMPARE(script.count(line("")), 2 * emptyLines); // said when it fails: the bytes say no more than that they differ
    QVERIFY(script == expected);
}

QTEST_GUILESS_MAIN(TestBrokenSettings)
#include "tst_brokensettings.moc"
