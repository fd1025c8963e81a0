#include "driver/companyprinterdriver.h"
#include "support/examples.h"
#include "support/hostilexml.h"
#include "support/registerscript.h"
#include "support/settings.h"
#include "toolkit/xmlreader.h"

#include <QTextCodec>
#include <QtTest>

#include <sys/resource.h>

/// Jobs that are wrong, hostile or in another encoding: the script holds what came before the fault.
class TestBrokenJobs : public QObject {
    Q_OBJECT

private slots:
    void job_data();
    void job();
    void byteThatIsNoCharacterWhereverItStands();
    void unreadableJob_data();
    void unreadableJob();
    void everyPrefixOfAJob();
    void memoryIsBounded();
};

/// The lines of a receipt's number.
static QByteArrayList number(const QByteArray& serialNumber)
{
    return {" Serial Number: " + serialNumber, rule()};
}

static QByteArray receipt(const QByteArray& content)
{
    return "<job><method name='printFullOrderReceipt'/>" + content + "</job>";
}

static QByteArray nested(int depth)
{
    return QByteArray("<n>").repeated(depth) + QByteArray("</n>").repeated(depth);
}

/// With its byte-order mark.
static QByteArray utf16(const QByteArray& text, const char* codec)
{
    return QTextCodec::codecForName(codec)->fromUnicode(QString::fromUtf8(text));
}

static QByteArray entityBomb()
{
    QByteArray type = "<!DOCTYPE job [<!ENTITY a0 'aaaaaaaaaa'>";
    for (int i = 1; i < 10; ++i) {
        const QByteArray reference = "&a" + QByteArray::number(i - 1) + ';';
        type += "<!ENTITY a" + QByteArray::number(i) + " '" + reference.repeated(10) + "'>";
    }
    return type + "]>" + receipt("<receipt serialnumber='&a9;'/>");
}

/// A few bytes that stand for ten million characters, well within what the toolkit's reader allows.
static QByteArray quietEntityBomb(const QByteArray& content)
{
    return "<!DOCTYPE job [<!ENTITY q '" + QByteArray(4000, 'q') + "'><!ENTITY r '" + QByteArray("&q;").repeated(2700)
        + "'>]>" + receipt(content);
}

static QByteArray manyEntities()
{
    return "<!DOCTYPE job [" + entityDeclarations(20000) + "]>" + receipt("<receipt serialnumber='&e5;'/>");
}

static QByteArray manyParentheses()
{
    return "<!DOCTYPE job [<!ELEMENT job " + QByteArray(200000, '(') + 'b' + QByteArray(200000, ')') + ">]>"
        + receipt("<receipt serialnumber='7'/>");
}

void TestBrokenJobs::job_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("script");

    const QByteArray seven = "<receipt serialnumber='7'/>";
    const QByteArray brokenOff = openDocument(number("7"));
    const QByteArray accent = "<receipt serialnumber='è'/>";
    const QByteArray accentPrinted = document(number("è"));

    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("blank") << QByteArray(" \n ") << QByteArray();
    QTest::newRow("no XML at all") << commands({"nofis apri"}) << QByteArray();
    QTest::newRow("random bytes") << QByteArray("\x00\xff\xfe<\x80\x00>", 7) << QByteArray();
    QTest::newRow("a syntax error after a row") << receipt(seven + "<receipt serialnumber=8/>" + seven) << brokenOff;
    QTest::newRow("end tags that do not match") << receipt(seven + "<a></b>" + seven) << brokenOff;
    QTest::newRow("cut off before the root's end") << receipt(seven).chopped(6) << brokenOff;
    QTest::newRow("an undeclared entity stands for nothing")
        << receipt("<receipt serialnumber='a&x;b'/>") << document(number("ab"));

    QTest::newRow("UTF-8 with a byte-order mark") << "\xef\xbb\xbf" + receipt(accent) << accentPrinted;
    QTest::newRow("UTF-16, little end first") << utf16(receipt(accent), "UTF-16LE") << accentPrinted;
    QTest::newRow("UTF-16, big end first") << utf16(receipt(accent), "UTF-16BE") << accentPrinted;
    QTest::newRow("ISO-8859-1") << "<?xml version='1.0' encoding='ISO-8859-1'?>"
            + receipt("<receipt serialnumber='\xe8'/>")
                                << accentPrinted;
    QTest::newRow("an entity of the job's own")
        << "<!DOCTYPE job [<!ENTITY e 'è'>]>" + receipt("<receipt serialnumber='&e;'/>") << accentPrinted;
    QTest::newRow("a name space declaration is no company line")
        << receipt("<company xmlns='u' xmlns:p='v' p:line='x'/>") << document({"              x", rule()});

    QTest::newRow("an entity bomb") << entityBomb() << QByteArray();
    QTest::newRow("an entity bomb within the toolkit's own limits, in attributes")
        << quietEntityBomb(QByteArray("<receipt serialnumber='&r;'/>").repeated(200)) << QByteArray();
    QTest::newRow("an entity bomb within the toolkit's own limits, in text")
        << quietEntityBomb(QByteArray("&r;").repeated(200)) << QByteArray();
    QTest::newRow("20,000 entities") << manyEntities() << QByteArray();
    QTest::newRow("200,000 parentheses in the document type") << manyParentheses() << QByteArray();
    QTest::newRow("nested just within bounds") // the root is the first level
        << receipt(seven + nested(999)) << document(number("7"));
    QTest::newRow("nested one too deep") << receipt(seven + nested(1000) + seven) << brokenOff;
    QTest::newRow("nested 100,000 deep") << receipt(seven + nested(100000) + seven) << brokenOff;
    QTest::newRow("an attribute of 10 MB") << receipt("<receipt serialnumber='" + QByteArray(10000000, 'y') + "'/>")
                                           << document(number(QByteArray(10000000, 'y')));
}

void TestBrokenJobs::job()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, script);

    ProgramRun run;
    run.setSettings("zelmora: { receiptdoc: { printCompany = true; }; };");
    // Not QCOMPARE: it would show ten megabytes.
    QVERIFY(run.print(bytes) == script);
    QCOMPARE(run.remarks(), QByteArray());
}

void TestBrokenJobs::unreadableJob_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << "missing.xml";
    QTest::newRow("a folder") << "home";
    QTest::newRow("opens, but can't be read") << "/proc/self/mem";
}

void TestBrokenJobs::unreadableJob()
{
    QFETCH(QString, path);
    ProgramRun run;
    run.setSettings("zelmora: { };");
    run.start({path, "script.txt"});

    QVERIFY(QFile::exists(run.path("script.txt")));
    QCOMPARE(fileContents(run.path("script.txt")), QByteArray());
    QCOMPARE(run.remarks(), QByteArray());
}

// The reader has 1,024 bytes at a time: one at their end is no part of the quotation mark behind it.
void TestBrokenJobs::byteThatIsNoCharacterWhereverItStands()
{
    const QByteArray head = "<job><method name='printFullOrderReceipt'/>";
    const QByteArray element = "<receipt serialnumber='";
    for (int place = 1020; place < 1028; ++place) {
        ProgramRun run;
        run.setSettings("zelmora: { };");
        run.setEnvironment("LC_ALL", "C.UTF-8");
        const QByteArray job = head + QByteArray(place - head.size() - element.size(), ' ') + element + "\xe8'/></job>";
        QCOMPARE(run.print(job), document(number("\xef\xbf\xbd")));
    }
}

void TestBrokenJobs::everyPrefixOfAJob()
{
    const QTemporaryDir folder;
    const auto print = [&](const QByteArray& bytes) {
        QFile job(folder.filePath("job.xml"));
        writeBytes(job.fileName(), bytes);
        CompanyPrinterDriver driver(folder.filePath("script.txt"));
        toolkit::readXml(job, driver);
    };
    useSettings(exampleSettings());
    const QByteArray whole = fileContents(examples.filePath("receipt.xml"));
    print(whole);
    const QByteArray script = fileContents(folder.filePath("script.txt"));
    QVERIFY(script.endsWith(commands({"nofis chiudi"})));

    const int rootEnd = whole.lastIndexOf('>') + 1;
    for (int length = 0; length < rootEnd; ++length) {
        print(whole.left(length));
        const QByteArray part = fileContents(folder.filePath("script.txt"));
        QVERIFY2(script.startsWith(part) && (part.isEmpty() || part.endsWith("\r\n")) && part != script,
                 qPrintable(QString("prefix of %1 bytes").arg(length)));
    }
}

void TestBrokenJobs::memoryIsBounded()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("The sanitizers' own memory would be measured.");
#endif
    ProgramRun run;
    run.setSettings("zelmora: { };");
    run.print(receipt("<receipt serialnumber='" + QByteArray(10000000, 'y') + "'/>"));
    QCOMPARE(run.exitStatus, 0);
    // A full disk: the script that it does not take, 80 MB, is not kept in memory either.
    run.start(
        {run.writeFile("job.xml", receipt(QByteArray("<receipt serialnumber='7'/>").repeated(1000000))), "/dev/full"});
    QCOMPARE(run.remarks(), QByteArray());

    // The peak of all runs so far: the long attribute as UTF-16 in a handful of copies.
    rusage usage {};
    QCOMPARE(getrusage(RUSAGE_CHILDREN, &usage), 0);
    QVERIFY2(usage.ru_maxrss < 120 * 1024, qPrintable(QString("%1 KiB").arg(usage.ru_maxrss)));
}

QTEST_GUILESS_MAIN(TestBrokenJobs)
#include "tst_brokenjobs.moc"
