#include "util/hlibrary.h"

#include "scratchfiles.h"
#include "support/capture.h"
#include "support/toolkitmessages.h"

#include <QElapsedTimer>
#include <QtTest>

#include <cstdio>
#include <limits>
#include <optional>

namespace {

const unsigned int largest = std::numeric_limits<unsigned int>::max();

/// How often paper is asked for during @p copy. The end of standard input answers.
int requestsDuring(const std::function<void()>& copy)
{
    return captured(stdout, copy).count("PaperWindow: Insert a new sheet\n");
}

/// Texts, and the pieces that a copier makes of them.
void addPieces()
{
    QTest::addColumn<QByteArrayList>("pieces");

    const auto x = [](int count) { return QByteArray(count, 'x'); };
    QTest::newRow("a line") << QByteArrayList {"one\n"};
    QTest::newRow("several lines") << QByteArrayList {"one\n", "two\n", "three\n"};
    QTest::newRow("no final line end") << QByteArrayList {"one\n", "two"};
    QTest::newRow("one character") << QByteArrayList {"x"};
    QTest::newRow("empty lines") << QByteArrayList {"\n", "\n", "one\n", "\n"};
    QTest::newRow("125 characters") << QByteArrayList {x(125) + '\n', "y\n"};
    QTest::newRow("126 characters") << QByteArrayList {x(126) + '\n', "y\n"};
    QTest::newRow("126 characters, no line end") << QByteArrayList {x(126)};
    QTest::newRow("127 characters: the line end is a piece") << QByteArrayList {x(127), "\n", "y\n"};
    QTest::newRow("127 characters, no line end") << QByteArrayList {x(127)};
    QTest::newRow("128 characters") << QByteArrayList {x(127), "x\n", "y\n"};
    QTest::newRow("128 characters, no line end") << QByteArrayList {x(127), "x"};
    QTest::newRow("253 characters") << QByteArrayList {x(127), x(126) + '\n', "y\n"};
    QTest::newRow("254 characters") << QByteArrayList {x(127), x(127), "\n", "y\n"};
    QTest::newRow("300 characters") << QByteArrayList {x(127), x(127), x(46) + '\n', "y\n"};
    QTest::newRow("300 characters, no line end") << QByteArrayList {x(127), x(127), x(46)};
    QTest::newRow("carriage returns stay") << QByteArrayList {"one\r\n", "two\rthree\n"};
    QTest::newRow("form feeds stay") << QByteArrayList {"one\f\n", "\f"};
    QTest::newRow("NUL bytes") << QByteArrayList {QByteArray("a\0b\n", 4), QByteArray("\0\n", 2), QByteArray("\0", 1)};
    QTest::newRow("bytes that are no UTF-8") << QByteArrayList {"\xE8\x80\xFF\n", "\xC3"};
    QTest::newRow("a character is cut in two") << QByteArrayList {x(126) + '\xC3', "\xA8\n"};
    QTest::newRow("control sequences of a printer") << QByteArrayList {"\x1B@\x1D"
                                                                       "V\x01\n",
                                                                       "\x04\n"};
}

} // namespace

/// The three copies: what arrives, in which pieces, when paper is asked for, and where pages begin and end.
class TestCopies : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void sheetCopyIsWhole_data();
    void sheetCopyIsWhole();
    void sheetsCountPieces_data();
    void sheetsCountPieces();
    void sheets_data();
    void sheets();
    void numbersAsText_data();
    void numbersAsText();
    void pauseAsText_data();
    void pauseAsText();

    void pieces_data();
    void pieces();
    void page_data();
    void page();
    void pageBeyondTheEnd_data();
    void pageBeyondTheEnd();
    void pageOfAnEmptyFile_data();
    void pageOfAnEmptyFile();
    void noLinesPerPageIsTheWholeFile_data();
    void noLinesPerPageIsTheWholeFile();

    void destinationIsReplaced();
    void largeFile();
    void missingSource_data();
    void missingSource();
    void missingDestination_data();
    void missingDestination();
    void sourceIsTheDestination();

private:
    std::optional<ToolkitMessages> messages;
};

void TestCopies::initTestCase()
{
    QVERIFY(std::freopen("/dev/null", "r", stdin));
}

void TestCopies::init()
{
    messages.emplace();
}

void TestCopies::cleanup()
{
    messages.reset();
    QCOMPARE(ToolkitMessages::all().join(" / "), QString());
}

void TestCopies::sheetCopyIsWhole_data()
{
    addPieces();
    QTest::newRow("an empty file") << QByteArrayList();
}

void TestCopies::sheetCopyIsWhole()
{
    QFETCH(QByteArrayList, pieces);
    for (const unsigned int linesPerSheet : {0u, 1u, 2u}) {
        const ScratchFiles files(pieces.join());
        captured(stdout, [&] { QVERIFY(HLibrary::copy(files.source, files.destination, linesPerSheet, 0u)); });
        QVERIFY(QFile::exists(files.destination));
        QCOMPARE(files.copied(), pieces.join());
    }
}

void TestCopies::sheetsCountPieces_data()
{
    addPieces();
}

// With one piece for each sheet there is a request after every piece but the first.
void TestCopies::sheetsCountPieces()
{
    QFETCH(QByteArrayList, pieces);
    const ScratchFiles files(pieces.join());
    const int requests = requestsDuring([&] { HLibrary::copy(files.source, files.destination, 1u, 0u); });
    QCOMPARE(requests, pieces.size() - 1);
}

void TestCopies::sheets_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<unsigned int>("linesPerSheet");
    QTest::addColumn<int>("requests");

    QTest::newRow("no lines") << 0 << 1u << 0;
    QTest::newRow("no sheets") << 100 << 0u << 0;
    QTest::newRow("fewer lines than a sheet has") << 2 << 3u << 0;
    QTest::newRow("as many as a sheet has") << 3 << 3u << 0;
    QTest::newRow("the first sheet takes one more") << 4 << 3u << 1;
    QTest::newRow("the second sheet is not full") << 6 << 3u << 1;
    QTest::newRow("the second sheet is full") << 7 << 3u << 2;
    QTest::newRow("the third sheet is not full") << 9 << 3u << 2;
    QTest::newRow("the third sheet is full") << 10 << 3u << 3;
    QTest::newRow("five lines, sheets of two") << 5 << 2u << 2;
    QTest::newRow("sheets of one line") << 5 << 1u << 4;
    QTest::newRow("one line, a sheet of one") << 1 << 1u << 0;
    QTest::newRow("a sheet as large as can be") << 100 << largest << 0;
}

void TestCopies::sheets()
{
    QFETCH(int, lines);
    QFETCH(unsigned int, linesPerSheet);
    QFETCH(int, requests);
    const ScratchFiles files(numberedLines(lines));

    const int made =
        requestsDuring([&] { QVERIFY(HLibrary::copy(files.source, files.destination, linesPerSheet, 0u)); });
    QCOMPARE(made, requests);
    QCOMPARE(files.copied(), numberedLines(lines));
}

void TestCopies::numbersAsText_data()
{
    QTest::addColumn<QString>("linesPerSheet");
    QTest::addColumn<int>("requests"); // for five lines

    QTest::newRow("a number") << "2" << 2;
    QTest::newRow("another number") << "4" << 1;
    QTest::newRow("blanks around") << " 2 " << 2;
    QTest::newRow("a plus sign") << "+2" << 2;
    QTest::newRow("leading zeros are no octal mark") << "002" << 2;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("none") << QString() << 0;
    QTest::newRow("a word") << "two" << 0;
    QTest::newRow("a number and a word") << "2 lines" << 0;
    QTest::newRow("a decimal point") << "2.0" << 0;
    QTest::newRow("hexadecimal") << "0x2" << 0;
    QTest::newRow("one above 32 bits") << "2147483648" << 0;
    QTest::newRow("2 and 2^32") << "4294967298" << 0;
    QTest::newRow("negative is huge") << "-1" << 0;
    QTest::newRow("the least number is huge") << "-2147483648" << 0;
}

void TestCopies::numbersAsText()
{
    QFETCH(QString, linesPerSheet);
    QFETCH(int, requests);
    const ScratchFiles files(numberedLines(5));

    const int made =
        requestsDuring([&] { QVERIFY(HLibrary::copy(files.source, files.destination, linesPerSheet, QString("0"))); });
    QCOMPARE(made, requests);
    QCOMPARE(files.copied(), numberedLines(5));
}

void TestCopies::pauseAsText_data()
{
    QTest::addColumn<QString>("pause");
    QTest::addColumn<int>("msecs"); // for two lines

    QTest::newRow("a number") << "60" << 120;
    QTest::newRow("blanks around") << " 60 " << 120;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("a decimal point") << "5000.0" << 0;
    QTest::newRow("a minus sign that is not ASCII: with one that is, the pause takes weeks") << "\u22121" << 0;
}

void TestCopies::pauseAsText()
{
    QFETCH(QString, pause);
    QFETCH(int, msecs);
    const ScratchFiles files(numberedLines(2));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(HLibrary::copy(files.source, files.destination, QString("0"), pause));
    QVERIFY(timer.elapsed() >= msecs);
    QVERIFY(timer.elapsed() < msecs + 2000);
    QCOMPARE(files.copied(), numberedLines(2));
}

void TestCopies::pieces_data()
{
    addPieces();
}

// A page of one piece is that piece.
void TestCopies::pieces()
{
    QFETCH(QByteArrayList, pieces);
    const ScratchFiles files(pieces.join());
    QByteArrayList copied;
    for (unsigned int page = 0; HLibrary::copy(files.source, files.destination, 1u, 0u, page); ++page)
        copied += files.copied();
    QCOMPARE(copied, pieces);
}

void TestCopies::page_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<unsigned int>("linesPerPage");
    QTest::addColumn<unsigned int>("page");
    QTest::addColumn<QByteArray>("copied");

    QTest::newRow("the first page") << 15 << 10u << 0u << numberedLines(10);
    QTest::newRow("the last page is not full") << 15 << 10u << 1u << numberedLines(15, 11);
    QTest::newRow("the last page is full") << 20 << 10u << 1u << numberedLines(20, 11);
    QTest::newRow("a page in the middle") << 9 << 3u << 1u << numberedLines(6, 4);
    QTest::newRow("one line on the last page") << 11 << 10u << 1u << numberedLines(11, 11);
    QTest::newRow("pages of one line") << 5 << 1u << 4u << numberedLines(5, 5);
    QTest::newRow("a page as long as the file") << 10 << 10u << 0u << numberedLines(10);
    QTest::newRow("a page longer than the file") << 3 << 10u << 0u << numberedLines(3);
    QTest::newRow("a page as long as can be") << 15 << largest << 0u << numberedLines(15);
}

void TestCopies::page()
{
    QFETCH(int, lines);
    QFETCH(unsigned int, linesPerPage);
    QFETCH(unsigned int, page);
    QFETCH(QByteArray, copied);
    const ScratchFiles files(numberedLines(lines));
    QVERIFY(HLibrary::copy(files.source, files.destination, linesPerPage, 0u, page));
    QCOMPARE(files.copied(), copied);
}

void TestCopies::pageBeyondTheEnd_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<unsigned int>("linesPerPage");
    QTest::addColumn<unsigned int>("page");

    QTest::newRow("the file ends within the page before") << 15 << 10u << 2u;
    QTest::newRow("the file ends with the page before") << 20 << 10u << 2u;
    QTest::newRow("one page and no more") << 10 << 10u << 1u;
    QTest::newRow("an empty file has no second page") << 0 << 10u << 1u;
    QTest::newRow("2^32 lines before it") << 15 << 65536u << 65536u;
    QTest::newRow("2^32 and 1 lines before it") << 15 << 641u << 6700417u;
    QTest::newRow("the largest numbers") << 15 << largest << largest;
    QTest::newRow("the largest page of one line") << 15 << 1u << largest;
}

void TestCopies::pageBeyondTheEnd()
{
    QFETCH(int, lines);
    QFETCH(unsigned int, linesPerPage);
    QFETCH(unsigned int, page);
    const ScratchFiles files(numberedLines(lines));
    QVERIFY(QFile::copy(files.source, files.destination));

    QVERIFY(!HLibrary::copy(files.source, files.destination, linesPerPage, 0u, page));
    QVERIFY(QFile::exists(files.destination));
    QCOMPARE(files.copied(), QByteArray());
}

void TestCopies::pageOfAnEmptyFile_data()
{
    QTest::addColumn<unsigned int>("linesPerPage");
    QTest::addColumn<unsigned int>("page");

    QTest::newRow("the first page") << 10u << 0u;
    QTest::newRow("any page of no lines") << 0u << 7u;
}

void TestCopies::pageOfAnEmptyFile()
{
    QFETCH(unsigned int, linesPerPage);
    QFETCH(unsigned int, page);
    const ScratchFiles files {QByteArray()};
    QVERIFY(HLibrary::copy(files.source, files.destination, linesPerPage, 0u, page));
    QVERIFY(QFile::exists(files.destination));
    QCOMPARE(files.copied(), QByteArray());
}

void TestCopies::noLinesPerPageIsTheWholeFile_data()
{
    addPieces();
}

void TestCopies::noLinesPerPageIsTheWholeFile()
{
    QFETCH(QByteArrayList, pieces);
    const ScratchFiles files(pieces.join());
    for (const unsigned int page : {0u, 1u, largest}) {
        QVERIFY(HLibrary::copy(files.source, files.destination, 0u, 0u, page));
        QCOMPARE(files.copied(), pieces.join());
    }
}

void TestCopies::destinationIsReplaced()
{
    const ScratchFiles longer(numberedLines(100));
    const ScratchFiles shorter(numberedLines(3));
    const QString destination = longer.destination;
    QVERIFY(HLibrary::copy(longer.source, destination, 0u, 0u));
    QVERIFY(HLibrary::copy(shorter.source, destination, 0u, 0u));
    QCOMPARE(fileContents(destination), numberedLines(3));
    QVERIFY(HLibrary::copy(longer.source, destination, 0u, 0u));
    QVERIFY(HLibrary::copy(shorter.source, destination, 2u, 0u, 1u));
    QCOMPARE(fileContents(destination), numberedLines(3, 3));
}

void TestCopies::largeFile()
{
    const QByteArray lines = numberedLines(50000);
    const ScratchFiles files(lines);
    QVERIFY(HLibrary::copy(files.source, files.destination, 0u, 0u));
    QVERIFY(files.copied() == lines);
    QVERIFY(HLibrary::copy(files.source, files.destination, 1000u, 0u, 49u));
    QCOMPARE(files.copied(), numberedLines(50000, 49001));
    QVERIFY(!HLibrary::copy(files.source, files.destination, 1000u, 0u, 50u));
}

void TestCopies::missingSource_data()
{
    QTest::addColumn<QString>("source"); // in the scratch folder
    QTest::addColumn<bool>("destinationExists");

    QTest::newRow("missing") << "missing" << true;
    QTest::newRow("missing, nothing is made") << "missing" << false;
    QTest::newRow("a folder") << "." << true;
    QTest::newRow("below a file") << "source/below" << true;
    QTest::newRow("no name") << "" << true;
}

void TestCopies::missingSource()
{
    QFETCH(QString, source);
    QFETCH(bool, destinationExists);
    const ScratchFiles files("untouched\n");
    const QString path = source.isEmpty() ? QString() : files.path(source.toUtf8());
    if (destinationExists)
        QVERIFY(QFile::copy(files.source, files.destination));

    QVERIFY(!HLibrary::copy(path, files.destination, 2u, 0u));
    QVERIFY(!HLibrary::copy(path, files.destination, QString("2"), QString("0")));
    QVERIFY(!HLibrary::copy(path, files.destination, 10u, 0u, 0u));
    QVERIFY(!HLibrary::copy(path, files.destination, 0u, 0u, 0u));
    QCOMPARE(QFile::exists(files.destination), destinationExists);
    QCOMPARE(files.copied(), destinationExists ? QByteArray("untouched\n") : QByteArray());
}

void TestCopies::missingDestination_data()
{
    QTest::addColumn<QString>("destination"); // in the scratch folder

    QTest::newRow("the folder does not exist") << "missing/destination";
    QTest::newRow("a folder") << ".";
    QTest::newRow("below a file") << "source/destination";
    QTest::newRow("the name is too long") << QString(300, 'x');
    QTest::newRow("no name") << "";
}

void TestCopies::missingDestination()
{
    QFETCH(QString, destination);
    const ScratchFiles files(numberedLines(5));
    const QString path = destination.isEmpty() ? QString() : files.path(destination.toUtf8());

    const int requests = requestsDuring([&] {
        QVERIFY(!HLibrary::copy(files.source, path, 2u, 0u));
        QVERIFY(!HLibrary::copy(files.source, path, QString("2"), QString("0")));
        QVERIFY(!HLibrary::copy(files.source, path, 10u, 0u, 0u));
    });
    QCOMPARE(requests, 0);
    QCOMPARE(fileContents(files.source), numberedLines(5));
}

// Opening it for writing empties it, so there is nothing to copy and no second page.
void TestCopies::sourceIsTheDestination()
{
    const auto copyOntoItself = [](const auto&... numbers) {
        const ScratchFiles files(numberedLines(5));
        const bool copied = HLibrary::copy(files.source, files.source, numbers...);
        return copied && QFile::exists(files.source) && fileContents(files.source).isEmpty();
    };
    QVERIFY(copyOntoItself(0u, 0u));
    QVERIFY(copyOntoItself(2u, 0u));
    QVERIFY(copyOntoItself(2u, 0u, 0u));
    QVERIFY(!copyOntoItself(2u, 0u, 1u));
}

QTEST_GUILESS_MAIN(TestCopies)
#include "tst_copies.moc"
