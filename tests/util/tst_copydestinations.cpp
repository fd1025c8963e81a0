#include "util/hlibrary.h"

#include "scratchfiles.h"
#include "support/pipereader.h"
#include "support/processstate.h"
#include "support/toolkitmessages.h"

#include <QtTest>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

/// Copies @p source to @p destination with a pause of that many milliseconds after each piece.
using Copy = std::function<bool(const QString& source, const QString& destination, unsigned int pause)>;

void makePipe(const QString& path)
{
    if (mkfifo(QFile::encodeName(path), 0600) != 0)
        qFatal("The pipe can't be made.");
}

std::atomic<bool> pausesAreCounted {false};
std::mutex pausesMutex;
QVector<qint64> countedPauses;

/// The pauses that @p action would make, in milliseconds. None is made.
QVector<qint64> pausesOf(const std::function<void()>& action)
{
    countedPauses.clear();
    pausesAreCounted = true;
    action();
    pausesAreCounted = false;
    return countedPauses;
}

} // namespace

// Goes before that of the C library, for the toolkit's threads too.
extern "C" int nanosleep(const timespec* length, timespec* left)
{
    if (pausesAreCounted) {
        const std::lock_guard<std::mutex> lock(pausesMutex);
        countedPauses += length->tv_sec * 1000 + length->tv_nsec / 1000000;
        return 0;
    }
    errno = clock_nanosleep(CLOCK_MONOTONIC, 0, length, left);
    return errno == 0 ? 0 : -1;
}

Q_DECLARE_METATYPE(Copy)

/// Copies to what is no plain file, or is one no longer; how fast; and from files that promise more than they give.
class TestCopyDestinations : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fullDisk_data();
    void fullDisk();
    void roomEndsWithinAPiece_data();
    void roomEndsWithinAPiece();
    void readerGoesAway_data();
    void readerGoesAway();
    void destinationIsRemoved_data();
    void destinationIsRemoved();
    void pieceArrivesAtOnce_data();
    void pieceArrivesAtOnce();
    void noThreadIsLeft_data();
    void noThreadIsLeft();

    void pauses_data();
    void pauses();
    void lengthOfThePause_data();
    void lengthOfThePause();

    void sourceGivesLessThanItPromises_data();
    void sourceGivesLessThanItPromises();
    void pageBeyondTheEndOfSuchASource_data();
    void pageBeyondTheEndOfSuchASource();

private:
    std::optional<ToolkitMessages> messages;
};

namespace {

void addCopies()
{
    QTest::addColumn<Copy>("copy");

    const auto row = [](const char* name, const Copy& copy) { QTest::newRow(name) << copy; };
    row("sheets", [](const QString& source, const QString& destination, unsigned int pause) {
        return HLibrary::copy(source, destination, 0u, pause);
    });
    row("numbers as text", [](const QString& source, const QString& destination, unsigned int pause) {
        return HLibrary::copy(source, destination, QString("0"), QString::number(pause));
    });
    row("a page", [](const QString& source, const QString& destination, unsigned int pause) {
        return HLibrary::copy(source, destination, 100u, pause, 0u);
    });
}

} // namespace

void TestCopyDestinations::init()
{
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
    messages.emplace();
}

void TestCopyDestinations::cleanup()
{
    messages.reset();
    QCOMPARE(ToolkitMessages::all().join(" / "), QString());
}

void TestCopyDestinations::fullDisk_data()
{
    addCopies();
}

void TestCopyDestinations::fullDisk()
{
    QFETCH(Copy, copy);
    const ScratchFiles files(numberedLines(50));
    QVERIFY(copy(files.source, "/dev/full", 0));
}

void TestCopyDestinations::roomEndsWithinAPiece_data()
{
    addCopies();
}

void TestCopyDestinations::roomEndsWithinAPiece()
{
    QFETCH(Copy, copy);
    const ScratchFiles files(numberedLines(50));
    {
        const FileSizeLimit diskIsAlmostFull(5);
        QVERIFY(copy(files.source, files.destination, 0));
    }
    QCOMPARE(files.copied(), QByteArray("1\n2\n3"));
}

void TestCopyDestinations::readerGoesAway_data()
{
    addCopies();
}

void TestCopyDestinations::readerGoesAway()
{
    QFETCH(Copy, copy);
    const ScratchFiles files(numberedLines(3));
    makePipe(files.destination);
    bool copied = false;
    std::thread copier([&] { copied = copy(files.source, files.destination, 50); });
    const QByteArray first = PipeReader(files.destination, PipeReader::Waiting::Yes).newBytes(); // and no more
    copier.join();
    QCOMPARE(first, QByteArray("1\n"));
    QVERIFY(copied);
}

void TestCopyDestinations::destinationIsRemoved_data()
{
    addCopies();
}

void TestCopyDestinations::destinationIsRemoved()
{
    QFETCH(Copy, copy);
    const ScratchFiles files(numberedLines(3));
    bool copied = false;
    std::thread copier([&] { copied = copy(files.source, files.destination, 50); });
    const bool begun = QTest::qWaitFor([&files] { return !files.copied().isEmpty(); });
    const bool removed = QFile::remove(files.destination);
    copier.join();
    QVERIFY(begun);
    QVERIFY(removed);
    QVERIFY(copied);
    QVERIFY(!QFile::exists(files.destination));
}

void TestCopyDestinations::pieceArrivesAtOnce_data()
{
    addCopies();
}

void TestCopyDestinations::pieceArrivesAtOnce()
{
    QFETCH(Copy, copy);
    const QByteArray longLine(300, 'x');
    const ScratchFiles files("one\n" + longLine);
    makePipe(files.destination);
    std::atomic<bool> ended {false};
    std::thread copier([&] {
        copy(files.source, files.destination, 70);
        ended = true;
    });
    const PipeReader reader(files.destination, PipeReader::Waiting::Yes);
    QByteArrayList arrived {reader.newBytes()};
    const bool endedBeforeTheFirst = ended;
    while (!arrived.last().isEmpty())
        arrived += reader.newBytes();
    copier.join();
    QVERIFY(!endedBeforeTheFirst);
    QCOMPARE(arrived, QByteArrayList({"one\n", longLine.left(127), longLine.left(127), longLine.left(46), ""}));
}

void TestCopyDestinations::noThreadIsLeft_data()
{
    addCopies();
}

void TestCopyDestinations::noThreadIsLeft()
{
    QFETCH(Copy, copy);
    const ScratchFiles files(numberedLines(10));
    const int before = threadCount();
    for (const QString& destination : {files.destination, QString("/dev/full")}) {
        QVERIFY(copy(files.source, destination, 1));
        QTRY_VERIFY(threadCount() <= before); // the last one is about to end, as one of before may have been
    }
}

void TestCopyDestinations::pauses_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<bool>("page"); // else sheets
    QTest::addColumn<unsigned int>("lines"); // of a page or sheet
    QTest::addColumn<int>("pauses");

    const QByteArray longLine(300, 'x');
    QTest::newRow("no lines") << QByteArray() << false << 0u << 0;
    QTest::newRow("after the only line") << numberedLines(1) << false << 0u << 1;
    QTest::newRow("after every line") << numberedLines(3) << false << 0u << 3;
    QTest::newRow("after every line of the sheets") << numberedLines(3) << false << 5u << 3;
    QTest::newRow("after every piece of a long line") << longLine << false << 0u << 3;
    QTest::newRow("not after the only line of a page") << numberedLines(3) << true << 1u << 0;
    QTest::newRow("not after the last line of a page") << numberedLines(3) << true << 3u << 2;
    QTest::newRow("not after the last piece of a page") << longLine << true << 2u << 1;
    QTest::newRow("after every line of a page that is not full") << numberedLines(2) << true << 10u << 2;
    QTest::newRow("after every line of the whole file as a page") << numberedLines(2) << true << 0u << 2;
}

void TestCopyDestinations::pauses()
{
    QFETCH(QByteArray, source);
    QFETCH(bool, page);
    QFETCH(unsigned int, lines);
    QFETCH(int, pauses);
    const unsigned int pause = 70;
    const ScratchFiles files(source);

    const QVector<qint64> made = pausesOf([&] {
        if (page)
            QVERIFY(HLibrary::copy(files.source, files.destination, lines, pause, 0u));
        else
            QVERIFY(HLibrary::copy(files.source, files.destination, lines, pause));
    });
    QCOMPARE(made, QVector<qint64>(pauses, pause));
}

void TestCopyDestinations::lengthOfThePause_data()
{
    QTest::addColumn<QString>("pause");
    QTest::addColumn<QVector<qint64>>("made"); // with one line

    QTest::newRow("none") << "0" << QVector<qint64>();
    QTest::newRow("a millisecond") << "1" << QVector<qint64> {1};
    QTest::newRow("a second and a half") << "1500" << QVector<qint64> {1500};
    QTest::newRow("the longest") << "2147483647" << QVector<qint64> {2147483647};
    QTest::newRow("negative: 2^32 more") << "-1" << QVector<qint64> {4294967295};
    QTest::newRow("beyond 32 bits: none") << "2147483648" << QVector<qint64>();
    QTest::newRow("a number and a word: none") << "5 ms" << QVector<qint64>();
}

void TestCopyDestinations::lengthOfThePause()
{
    QFETCH(QString, pause);
    QFETCH(QVector<qint64>, made);
    const ScratchFiles files("one\n");
    QCOMPARE(pausesOf([&] { HLibrary::copy(files.source, files.destination, QString("0"), pause); }), made);
}

void TestCopyDestinations::sourceGivesLessThanItPromises_data()
{
    addCopies();
}

// Such are the system's own: a block of 4096 bytes, says the size.
void TestCopyDestinations::sourceGivesLessThanItPromises()
{
    QFETCH(Copy, copy);
    const QString source = "/sys/devices/system/cpu/online";
    const QByteArray given = fileContents(source);
    QVERIFY(!given.isEmpty());
    QVERIFY(QFileInfo(source).size() > given.size());

    const ScratchFiles files {QByteArray()};
    QVERIFY(copy(source, files.destination, 0));
    QCOMPARE(files.copied(), given);
}

void TestCopyDestinations::pageBeyondTheEndOfSuchASource_data()
{
    QTest::addColumn<unsigned int>("linesPerPage");
    QTest::addColumn<unsigned int>("page");

    QTest::newRow("the file ends with the page before") << 1u << 1u;
    QTest::newRow("the file ends within the page before") << 10u << 1u;
    QTest::newRow("far beyond") << 10u << 4000000000u;
}

void TestCopyDestinations::pageBeyondTheEndOfSuchASource()
{
    QFETCH(unsigned int, linesPerPage);
    QFETCH(unsigned int, page);
    const ScratchFiles files {QByteArray()};
    QVERIFY(!HLibrary::copy("/sys/devices/system/cpu/online", files.destination, linesPerPage, 0u, page));
    QCOMPARE(files.copied(), QByteArray());
}

QTEST_GUILESS_MAIN(TestCopyDestinations)
#include "tst_copydestinations.moc"
