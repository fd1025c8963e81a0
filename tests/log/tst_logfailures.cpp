#include "log/logger.h"

#include "logfile.h"
#include "support/capture.h"
#include "support/pinnedclock.h"
#include "support/pipereader.h"
#include "support/processstate.h"
#include "support/toolkitmessages.h"

#include <QProcess>
#include <QtTest>

#include <csignal>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

/// With time and level of the lines in this test.
QByteArray lineOf(const QByteArray& text)
{
    return "[07-04-2026 13:05:09:042] ERROR: " + text + '\n';
}

} // namespace

/// A log that cannot take its lines: they are lost in silence, the program goes on, and the log does as soon as it
/// can. And a log that several programs write.
class TestLogFailures : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fullDisk_data();
    void fullDisk();
    void lostLinesTakeNoMemory();
    void roomAgain();
    void roomForAPart_data();
    void roomForAPart();
    void pipeWithoutReader_data();
    void pipeWithoutReader();
    void fileRemoved();
    void folderRemoved();
    void fileRenamed();
    void fileEmptied_data();
    void fileEmptied();
    void fileGrowsBeneath_data();
    void fileGrowsBeneath();
    void emptiedByASecondLogger();
    void processOfItsOwn_data();
    void processOfItsOwn();
    void severalProgramsAppend();

private:
    std::optional<QTemporaryDir> folder;
    std::optional<ToolkitMessages> messages;
    std::optional<PinnedClock> clock;
    QString path;
};

void TestLogFailures::init()
{
    folder.emplace();
    path = folder->filePath("suite.log");
    messages.emplace();
    clock.emplace(utc("2026-07-04T13:05:09.042"));
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
}

void TestLogFailures::cleanup()
{
    clock.reset();
    messages.reset();
    QCOMPARE(ToolkitMessages::all().join(" / "), QString());
}

void TestLogFailures::fullDisk_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("append") << "APPEND";
    QTest::newRow("overwrite") << "OVERWRITE";
}

void TestLogFailures::fullDisk()
{
    QFETCH(QString, type);
    useLog("/dev/full", type);

    const QByteArray output = captured(stdout, [] {
        Logger logger("suite");
        for (int i = 0; i < 100; ++i)
            logger.error(QString(i * 1000, 'x'));
    });
    QCOMPARE(output, QByteArray());
}

void TestLogFailures::lostLinesTakeNoMemory()
{
    const int length = 10000;
    useLog("/dev/full", "APPEND", "ERROR");
    Logger logger("suite");
    const QString text(length, 'x');
    logger.error(text);

    const std::size_t before = allocatedBytes();
    for (int i = 0; i < 2000; ++i)
        logger.error(text);
    QVERIFY(allocatedBytes() < before + length);
}

void TestLogFailures::roomAgain()
{
    useLog(path, "APPEND", "ERROR");
    Logger logger("suite");
    logger.error("first");
    {
        const FileSizeLimit diskIsFull(rlim_t(lineOf("first").size()));
        for (int i = 0; i < 100; ++i)
            logger.error("lost");
    }
    QCOMPARE(fileContents(path), lineOf("first"));
    logger.error("second");
    logger.error("third");
    QCOMPARE(fileContents(path), lineOf("first") + lineOf("second") + lineOf("third"));
}

void TestLogFailures::roomForAPart_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<int>>("rooms"); // in bytes, for a try to write the text each
    QTest::addColumn<QByteArray>("kept");

    const QByteArray line = lineOf("cut");
    const QByteArray fragment = line.left(20);
    const auto row = [](const char* name, const QVector<int>& rooms, const QByteArray& kept) {
        QTest::newRow(name) << "cut" << rooms << kept;
    };
    row("for the beginning of a line", {20}, fragment + '\n');
    row("for one byte", {1}, "[\n");
    row("for all but the line end", {line.size() - 1}, line);
    row("for a whole line", {line.size()}, line);
    row("for nothing at all", {0}, QByteArray());
    row("for the beginnings of two lines", {20, 30}, fragment + '\n' + line.left(29) + '\n');
    row("for a beginning and then nothing", {20, 0, 0}, fragment + '\n');
    row("for a beginning and then the missing line end alone", {20, 1}, fragment + '\n');
    row("for a beginning, the line end, and another beginning", {20, 1, 20}, fragment + '\n' + fragment + '\n');
    row("for a beginning and then a whole line", {20, 1 + line.size()}, fragment + '\n' + line);
    const QByteArray firstLine = lineOf("cut");
    QTest::newRow("up to a line break in the text") << "cut\nhere" << QVector<int> {firstLine.size()} << firstLine;
    QTest::newRow("up to what follows a line break in the text")
        << "cut\nhere" << QVector<int> {firstLine.size() + 2} << firstLine + "he\n";
    QTest::newRow("for half a character") << "è" << QVector<int> {lineOf("").size()} << lineOf("\xC3");
}

void TestLogFailures::roomForAPart()
{
    QFETCH(QString, text);
    QFETCH(QVector<int>, rooms);
    QFETCH(QByteArray, kept);

    for (const char* type : {"APPEND", "OVERWRITE"}) {
        QFile::remove(path);
        useLog(path, type, "ERROR");
        Logger logger("suite");
        logger.error("first");
        for (const int room : rooms) {
            const FileSizeLimit diskIsAlmostFull(rlim_t(fileContents(path).size() + room));
            logger.error(text);
        }
        logger.error("second");
        logger.error("third");
        QCOMPARE(fileContents(path), lineOf("first") + kept + lineOf("second") + lineOf("third"));
    }
}

void TestLogFailures::pipeWithoutReader_data()
{
    fullDisk_data();
}

void TestLogFailures::pipeWithoutReader()
{
    QFETCH(QString, type);
    QCOMPARE(mkfifo(QFile::encodeName(path), 0600), 0);
    auto reader = std::make_unique<PipeReader>(path, PipeReader::Waiting::No);
    useLog(path, type, "ERROR");
    Logger logger("suite");
    logger.error("first");
    QCOMPARE(reader->newBytes(), lineOf("first"));

    reader.reset();
    logger.error("lost");
    logger.error(QString(100000, 'x'));

    reader = std::make_unique<PipeReader>(path, PipeReader::Waiting::No);
    logger.error("second");
    QCOMPARE(reader->newBytes(), lineOf("second"));
}

void TestLogFailures::fileRemoved()
{
    useLog(path, "APPEND", "ERROR");
    Logger logger("suite");
    logger.error("first");
    QVERIFY(QFile::remove(path));
    logger.error("lost");
    QVERIFY(!QFile::exists(path));
}

void TestLogFailures::folderRemoved()
{
    QVERIFY(QDir(folder->path()).mkdir("logs"));
    useLog(folder->filePath("logs/suite.log"), "APPEND", "ERROR");
    Logger logger("suite");
    logger.error("first");
    QVERIFY(QDir(folder->filePath("logs")).removeRecursively());
    logger.error("lost");
    QVERIFY(!QFile::exists(folder->filePath("logs")));
}

// As a rotation of logs does: the file stays open, whatever its name.
void TestLogFailures::fileRenamed()
{
    const QString renamed = folder->filePath("suite.log.1");
    useLog(path, "APPEND", "ERROR");
    Logger logger("suite");
    logger.error("first");
    QVERIFY(QFile::rename(path, renamed));
    logger.error("second");
    QCOMPARE(fileContents(renamed), lineOf("first") + lineOf("second"));
    QVERIFY(!QFile::exists(path));
}

void TestLogFailures::fileEmptied_data()
{
    fullDisk_data();
}

// As a rotation does that copies the file and then empties it.
void TestLogFailures::fileEmptied()
{
    QFETCH(QString, type);
    useLog(path, type, "ERROR");
    Logger logger("suite");
    logger.error("first");
    logger.error("second");

    QVERIFY(QFile::resize(path, 0));
    logger.error("third");
    QCOMPARE(fileContents(path), lineOf("third"));
    QVERIFY(QFile::resize(path, 0));
    logger.error("fourth");
    logger.error("fifth");
    QCOMPARE(fileContents(path), lineOf("fourth") + lineOf("fifth"));
}

void TestLogFailures::fileGrowsBeneath_data()
{
    fullDisk_data();
}

void TestLogFailures::fileGrowsBeneath()
{
    QFETCH(QString, type);
    useLog(path, type, "ERROR");
    Logger logger("suite");
    logger.error("first");

    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Append));
    QVERIFY(file.write("of another program\n") > 0);
    file.close();
    logger.error("second");
    QCOMPARE(fileContents(path), lineOf("first") + "of another program\n" + lineOf("second"));
}

void TestLogFailures::emptiedByASecondLogger()
{
    useLog(path, "OVERWRITE", "ERROR");
    Logger first("suite");
    first.error("lost");
    Logger second("suite");
    first.error("of the first");
    second.error("of the second");
    first.error("of the first again");
    QCOMPARE(fileContents(path), lineOf("of the first") + lineOf("of the second") + lineOf("of the first again"));
}

void TestLogFailures::processOfItsOwn_data()
{
    QTest::addColumn<QString>("log"); // in the run's folder, or absolute
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<QByteArray>("output");

    const QByteArray writesALot = "\"$writer\" a 100 5000 </dev/null";
    QTest::newRow("a full disk") << "/dev/full" << writesALot << QByteArray();
    QTest::newRow("a file size limit") << "log"
                                       << "ulimit -f 8; " + writesALot << QByteArray();
    QTest::newRow("a missing folder") << "missing/log" << writesALot
                                      << QByteArray("Error in the method Logger::setType(APPEND)\n");
    // The reader leaves after the start line, and only then the writer goes on.
    QTest::newRow("a pipe whose reader has left") << "log"
                                                  << QByteArray("mkfifo log gate; head -n 1 log >first & reader=$!; "
                                                                "\"$writer\" a 3 5000 <gate & writer_id=$!; "
                                                                "exec 3>gate; wait $reader; exec 3>&-; wait $writer_id")
                                                  << QByteArray();
}

void TestLogFailures::processOfItsOwn()
{
    QFETCH(QString, log);
    QFETCH(QByteArray, commands);
    QFETCH(QByteArray, output);
    ProgramRun run;
    run.setSettings(logSettings(QDir(run.path("")).filePath(log)));
    run.setEnvironment("writer", ZELMORA_LOGWRITER);

    run.startShell(commands);
    QVERIFY(run.ended);
    QCOMPARE(run.standardOutput, output);
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.exitStatus, 0);
}

void TestLogFailures::severalProgramsAppend()
{
    // Short lines, and such as are longer than any buffer on their way.
    const QStringList lengths {"0", "3000", "17000", "70000"};
    const int lineCount = 50;
    ProgramRun surroundings;
    surroundings.setSettings(logSettings(path, "APPEND", "INFO"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", surroundings.path("home"));

    std::vector<std::unique_ptr<QProcess>> writers;
    for (const QString& length : lengths) {
        writers.push_back(std::make_unique<QProcess>());
        writers.back()->setProcessEnvironment(environment);
        writers.back()->start(ZELMORA_LOGWRITER, {"writer-" + length, QString::number(lineCount), length});
    }
    for (const auto& writer : writers)
        QVERIFY(writer->waitForStarted());
    for (const auto& writer : writers)
        writer->closeWriteChannel(); // they go
    for (const auto& writer : writers)
        QVERIFY(writer->waitForFinished());

    const QByteArrayList lines = records(path);
    QCOMPARE(lines.size(), lengths.size() * lineCount);
    for (const QString& length : lengths) {
        const QByteArray start = "INFO: writer-" + length.toUtf8() + ' ';
        int number = 0;
        for (const QByteArray& line : lines) {
            if (line.startsWith(start))
                QVERIFY(line == start + QByteArray::number(number++) + ' ' + QByteArray(length.toInt(), 'x'));
        }
        QCOMPARE(number, lineCount);
    }
}

QTEST_GUILESS_MAIN(TestLogFailures)
#include "tst_logfailures.moc"
