#include "preview/paperrun.h"

#include <QProcess>
#include <QtEndian>
#include <QtTest>

/// What `zelmora-paper -o` writes.
class TestPaperFiles : public QObject {
    Q_OBJECT

private slots:
    void textIsUtf8InEveryLocale();
    void plainRows();
    void svgIsXml();
    void png_data();
    void png();
    void pdfHasPages();
    void theEndOfTheNameDecides_data();
    void theEndOfTheNameDecides();
    void theSameBytesEachTime_data();
    void theSameBytesEachTime();
    void noDisplayIsAskedFor();
    void onlyThePainterTakesAWindowSystem_data();
    void onlyThePainterTakesAWindowSystem();
    void aPngHasBounds();

    void takesTheOldOnesPlace();
    void isNotWhatItIsDrawnFrom();
    void isNotAmongWhatItIsDrawnFrom();
    void isNotWrittenOfAPart();
    void isWrittenWithFindings();
    void cannotBeWritten_data();
    void cannotBeWritten();
    void nothingElseIsWritten();
};

namespace {

/// Width and height, as its header says.
QSize pngSize(const QByteArray& png)
{
    if (!png.startsWith("\x89PNG\r\n\x1A\n"))
        return QSize();
    return QSize(static_cast<int>(qFromBigEndian<quint32>(png.constData() + 16)),
                 static_cast<int>(qFromBigEndian<quint32>(png.constData() + 20)));
}

int pdfPages(const QByteArray& pdf)
{
    return pdf.startsWith("%PDF-") ? pdf.count("/Type /Page\n") : -1;
}

/// A run in a folder with a script of one line.
class OneScript : public PaperRun {
public:
    OneScript() { writeFile("a.txt", script({"Caff\xC3\xA8"})); }

    QByteArray drawn(const char* name, const QStringList& options = {})
    {
        start(options + QStringList {"-o", name, "a.txt"});
        return fileOf(name);
    }
};

} // namespace

void TestPaperFiles::textIsUtf8InEveryLocale()
{
    OneScript run;
    const QByteArray expected = framed("a.txt", {"Caffè"});
    QCOMPARE(run.drawn("b.txt"), expected);
    QCOMPARE(run.remarks(), QByteArray());
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    QCOMPARE(run.drawn("c.txt", {"--encoding", "UTF-8"}), expected);
    QCOMPARE(run.remarks(), QByteArray());
}

void TestPaperFiles::plainRows()
{
    OneScript run;
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    QCOMPARE(run.drawn("b.txt", {"--plain", "--encoding", "UTF-8"}), QByteArray("Caff\xC3\xA8\n"));
    QCOMPARE(run.remarks(), QByteArray());
}

void TestPaperFiles::svgIsXml()
{
    OneScript run;
    QVERIFY(run.drawn("b.svg").contains("<svg"));
    QCOMPARE(run.remarks(), QByteArray());
    QProcess xmllint;
    xmllint.start("xmllint", {"--noout", run.path("b.svg")});
    QVERIFY(xmllint.waitForFinished());
    QVERIFY2(xmllint.exitCode() == 0, xmllint.readAllStandardError().constData());
}

void TestPaperFiles::png_data()
{
    QTest::addColumn<int>("scale");
    for (const int scale : {1, 2, 8})
        QTest::addRow("%d pixels a unit", scale) << scale;
}

void TestPaperFiles::png()
{
    QFETCH(int, scale);
    OneScript run;
    const QSize unscaled = pngSize(run.drawn("b.png"));
    QVERIFY(unscaled.width() >= 320 && unscaled.height() >= 20);
    QCOMPARE(pngSize(run.drawn("c.png", {"--scale", QString::number(scale)})), unscaled * scale);
    QCOMPARE(run.remarks(), QByteArray());
}

void TestPaperFiles::pdfHasPages()
{
    OneScript run;
    QCOMPARE(pdfPages(run.drawn("b.pdf")), 1);
    QCOMPARE(run.remarks(), QByteArray());
    run.writeFile("a.txt", script(QVector<QByteArray>(1000, "line").toList()));
    const int pages = pdfPages(run.drawn("b.pdf"));
    QVERIFY2(pages > 5 && pages < 100, qPrintable(QString::number(pages)));
}

void TestPaperFiles::theEndOfTheNameDecides_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("beginning");
    QTest::newRow("in capitals") << QByteArray("B.PNG") << QByteArray("\x89PNG");
    QTest::newRow("in mixed letters") << QByteArray("b.Pdf") << QByteArray("%PDF-");
    QTest::newRow("behind another") << QByteArray("b.png.txt") << QByteArray("a.txt\n");
    QTest::newRow("alone") << QByteArray(".txt") << QByteArray("a.txt\n");
}

void TestPaperFiles::theEndOfTheNameDecides()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, beginning);
    OneScript run;
    const QByteArray drawing = run.drawn(name.constData());
    QCOMPARE(run.remarks(), QByteArray());
    QVERIFY2(drawing.startsWith(beginning), drawing.constData());
}

void TestPaperFiles::theSameBytesEachTime_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("SVG") << QByteArray("b.svg");
    QTest::newRow("PNG") << QByteArray("b.png");
}

void TestPaperFiles::theSameBytesEachTime()
{
    QFETCH(QByteArray, name);
    OneScript run;
    const QByteArray first = run.drawn(name.constData());
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    QVERIFY(!first.isEmpty());
    QCOMPARE(run.drawn(name.constData(), {"--encoding", "UTF-8"}), first);
}

// Whatever the surroundings say: there is none.
void TestPaperFiles::noDisplayIsAskedFor()
{
    OneScript run;
    run.setEnvironment("QT_QPA_PLATFORM", "xcb");
    run.setEnvironment("DISPLAY", ":77");
    QVERIFY(pngSize(run.drawn("b.png")).isValid());
    QCOMPARE(pdfPages(run.drawn("b.pdf")), 1);
    QCOMPARE(run.remarks(), QByteArray());
}

void TestPaperFiles::onlyThePainterTakesAWindowSystem_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("takesOne");
    QTest::newRow("on the terminal") << QStringList {} << false;
    QTest::newRow("text") << QStringList {"-o", "b.txt"} << false;
    QTest::newRow("SVG") << QStringList {"-o", "b.svg"} << false;
    QTest::newRow("PNG") << QStringList {"-o", "b.png"} << true;
    QTest::newRow("PDF") << QStringList {"-o", "b.pdf"} << true;
}

// Its plug-in, whose start costs more than a drawing. The loader tells on standard error what it loads.
void TestPaperFiles::onlyThePainterTakesAWindowSystem()
{
    QFETCH(QStringList, options);
    OneScript run;
    run.setEnvironment("LD_DEBUG", "files");
    run.start(options + QStringList {"a.txt"});
    QCOMPARE(run.exitStatus, 0);
    QVERIFY(run.standardError.contains("libQt" ZELMORA_QT "Core"));
    QTEST(run.standardError.contains("/platforms/lib"), "takesOne");
}

void TestPaperFiles::aPngHasBounds()
{
    OneScript run;
    run.writeFile("a.txt", script(QVector<QByteArray>(1600, "line").toList()));
    QCOMPARE(run.drawn("b.png"), QByteArray());
    QCOMPARE(run.exitStatus, 2);
    QVERIFY2(run.standardError.contains("30000") && run.standardError.contains("PDF"), run.standardError.constData());
    QVERIFY(!QFile::exists(run.path("b.png")));
    QVERIFY(pdfPages(run.drawn("b.pdf")) > 1);
}

void TestPaperFiles::takesTheOldOnesPlace()
{
    OneScript run;
    run.writeFile("b.txt", "before");
    setPermissions(run.path("b.txt"), 0640);
    QCOMPARE(run.drawn("b.txt"), framed("a.txt", {"Caffè"}));
    QCOMPARE(permissionsOf(run.path("b.txt")), mode_t(0640));
}

// A script that ends in .txt, through a link too; settings, those to rehearse too; one in a folder of scripts.
void TestPaperFiles::isNotWhatItIsDrawnFrom()
{
    OneScript run;
    const QByteArray before = run.fileOf("a.txt");
    makeLink("a.txt", run.path("link.txt"));
    for (const char* name : {"a.txt", "home/../a.txt", "link.txt"}) {
        run.drawn(name);
        QCOMPARE(run.exitStatus, 2);
        QVERIFY2(run.standardError.startsWith("The file " + QByteArray(name)
                                              + " cannot be drawn into: it is part of what is read.\n"),
                 run.standardError.constData());
        QCOMPARE(run.fileOf("a.txt"), before);
    }
    run.writeFile("settings.txt", "zelmora: { };");
    QCOMPARE(run.statusOf({"-o", "settings.txt", "--settings", "settings.txt", "a.txt"}), 2);
    QCOMPARE(run.fileOf("settings.txt"), QByteArray("zelmora: { };"));

    run.writeFile("others.txt", simpleSettings());
    run.writeFile("job.xml", jobOf("two"));
    QCOMPARE(run.statusOf({"--rehearse", "others.txt", "-o", "drawn.txt", "job.xml"}), 1);
    QCOMPARE(run.statusOf({"--rehearse", "others.txt", "-o", "others.txt", "job.xml"}), 2);
    QCOMPARE(run.fileOf("others.txt"), simpleSettings());

    QDir(run.path(".")).mkpath("old/sub");
    QDir(run.path(".")).mkpath("new");
    run.writeFile("old/sub/a.txt", "before");
    QCOMPARE(run.statusOf({"--compare", "-o", "old/sub/a.txt", "old", "new"}), 2);
    QCOMPARE(run.fileOf("old/sub/a.txt"), QByteArray("before"));
    run.writeFile("older.txt", "before");
    QCOMPARE(run.statusOf({"--compare", "-o", "older.txt", "old", "new"}), 1);
}

// The next comparison would compare the drawing.
void TestPaperFiles::isNotAmongWhatItIsDrawnFrom()
{
    OneScript run;
    QDir(run.path(".")).mkpath("old/sub");
    QDir(run.path(".")).mkpath("new");
    run.writeFile("old/a.txt", script({"one"}));
    makeLink("old", run.path("link"));
    for (const char* name : {"old/b.txt", "old/sub/b.svg", "new/b.png", "link/b.txt", "new/../old/b.pdf"}) {
        QCOMPARE(run.statusOf({"--compare", "-o", name, "old", "new"}), 2);
        QVERIFY2(run.standardError.startsWith("The file " + QByteArray(name)
                                              + " cannot be drawn into: it is part of what is read.\n"),
                 run.standardError.constData());
        QVERIFY(!QFile::exists(run.path(name)));
    }
    QCOMPARE(run.statusOf({"--compare", "-o", "older.txt", "old", "new"}), 1); // beside it
    QVERIFY(QFile::exists(run.path("older.txt")));
    run.setWorkingFolder(run.path("old"));
    QCOMPARE(run.statusOf({"--compare", ".", "../new"}), 1); // on the terminal
    QCOMPARE(run.statusOf({"--compare", "-o", "b.txt", ".", "../new"}), 2);
}

void TestPaperFiles::isNotWrittenOfAPart()
{
    OneScript run;
    run.writeFile("b.txt", "before");
    QCOMPARE(run.statusOf({"-o", "b.txt", "a.txt", "none.txt"}), 2);
    QCOMPARE(run.fileOf("b.txt"), QByteArray("before"));
    QCOMPARE(run.standardError, QByteArray("The file none.txt cannot be read: No such file or directory\n"));
}

void TestPaperFiles::isWrittenWithFindings()
{
    OneScript run;
    run.writeFile("a.txt", "nofis apri\r\n");
    QCOMPARE(run.drawn("b.txt"), framed("a.txt", {}));
    QCOMPARE(run.exitStatus, 1);
}

void TestPaperFiles::cannotBeWritten_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("its folder is not there")
        << QByteArray("none/b.svg") << QByteArray("The file none/b.svg cannot be written: No such file or directory\n");
    QTest::newRow("it is a folder") << QByteArray("home.txt")
                                    << QByteArray("The file home.txt cannot be written: Is a directory\n");
    QTest::newRow("there is no room") << QByteArray("full.png")
                                      << QByteArray("The file full.png cannot be written: No space left on device\n");
}

void TestPaperFiles::cannotBeWritten()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, message);
    OneScript run;
    QDir(run.path(".")).mkpath("home.txt");
    makeLink("/dev/full", run.path("full.png"));
    run.start({"-o", name, "a.txt"});
    QCOMPARE(run.exitStatus, 2);
    QCOMPARE(run.standardError, message);
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.txt", "full.png", "home", "home.txt"}));
}

void TestPaperFiles::nothingElseIsWritten()
{
    OneScript run;
    const QString temporary = run.path("temporary");
    QDir().mkpath(temporary);
    run.setEnvironment("TMPDIR", temporary);
    run.setEnvironment("XDG_RUNTIME_DIR", run.path("home")); // without one the toolkit makes one
    setPermissions(run.path("home"), 0700);
    run.writeFile("a.xml", jobOf("one"));
    QCOMPARE(run.statusOf({"-o", "b.pdf", "a.xml", "a.txt"}), 0);
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.txt", "a.xml", "b.pdf", "home", "temporary"}));
    QCOMPARE(filesIn(temporary), QStringList());
    QCOMPARE(filesIn(run.path("home")), QStringList {".zelmora"});
}

QTEST_GUILESS_MAIN(TestPaperFiles)
#include "tst_paperfiles.moc"
