#include "log/logger.h"

#include "logfile.h"
#include "support/capture.h"
#include "support/pinnedclock.h"
#include "support/processstate.h"
#include "support/toolkitmessages.h"

#include <QTextCodec>
#include <QtTest>

#include <optional>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace {

/// The size of each write of this process, while a test watches.
std::optional<std::vector<std::size_t>> watchedWrites;

const QDateTime& someMoment()
{
    static const QDateTime moment = utc("2026-07-04T13:05:09.042");
    return moment;
}

const char someTime[] = "[07-04-2026 13:05:09:042] ";

const Logger::Level levels[] = {Logger::DEBUG, Logger::INFO, Logger::WARNING, Logger::ERROR, Logger::FATAL};

void writeAtEachLevel(Logger& logger)
{
    for (const Logger::Level level : levels)
        logger.write(level, "x");
}

/// The level words of the records @p lines.
QByteArrayList wordsOf(const QByteArrayList& lines)
{
    QByteArrayList words;
    for (const QByteArray& line : lines)
        words += line.left(line.indexOf(':'));
    return words;
}

} // namespace

// Goes before that of the C library, for the toolkit too.
extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t size)
{
    if (watchedWrites)
        watchedWrites->push_back(size);
    return syscall(SYS_write, descriptor, bytes, size);
}

/// The log file: how the settings open it, what passes the threshold, and what a line looks like.
class TestLogger : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void settingsNameTheFile();
    void settingsCountWhenTheLoggerIsMade();
    void settingsStoreIsMadeWhenNeeded();
    void missingSettings_data();
    void missingSettings();
    void nameIsNotUsed();

    void levelOfTheSettings_data();
    void levelOfTheSettings();
    void setLevel_data();
    void setLevel();
    void operationForEachLevel_data();
    void operationForEachLevel();
    void levelOutsideTheEnumeration_data();
    void levelOutsideTheEnumeration();

    void typeOfTheSettings_data();
    void typeOfTheSettings();
    void setType_data();
    void setType();
    void typeThatOpensNothingMakesNoFile();
    void appendMakesTheFile();
    void openFailure_data();
    void openFailure();
    void openFailureOfTheSettings();
    void failedOpenCanBeTriedAgain();
    void secondOpenIsReported();

    void startLine();
    void line_data();
    void line();
    void text_data();
    void text();
    void localeDoesNotMatter_data();
    void localeDoesNotMatter();
    void codecOfTheProgramDoesNotMatter();
    void lineIsInTheFileWhenWriteReturns();
    void lineIsOneWrite_data();
    void lineIsOneWrite();
    void lineAfterAPartIsOneWrite();
    void fileIsOpenAsLongAsTheLogger();

private:
    void writeLog(const QByteArray& bytes);
    QByteArray log() const { return fileContents(path); }

    std::optional<QTemporaryDir> folder;
    std::optional<ToolkitMessages> messages;
    QString path;
};

void TestLogger::init()
{
    folder.emplace();
    path = folder->filePath("suite.log");
    messages.emplace();
}

void TestLogger::cleanup()
{
    messages.reset();
    QCOMPARE(ToolkitMessages::all().join(" / "), QString());
}

void TestLogger::writeLog(const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

void TestLogger::settingsNameTheFile()
{
    useSettings("zelmora: { logger: { basedir = \"" + folder->path().toUtf8()
                + "\"; filename = \"caffè del mese.log\"; type = APPEND; level = FATAL; }; };");
    Logger logger("suite");
    logger.fatal("x");
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList {"caffè del mese.log"});
    QCOMPARE(records(folder->filePath("caffè del mese.log")), QByteArrayList {"FATAL: x"});
}

void TestLogger::settingsCountWhenTheLoggerIsMade()
{
    useLog(path);
    Logger logger("suite");
    useLog(folder->filePath("other.log"), "OVERWRITE", "FATAL");
    logger.info("x");
    QCOMPARE(records(path), QByteArrayList({"DEBUG: Start Logger", "INFO: x"}));
    QVERIFY(!QFile::exists(folder->filePath("other.log")));
}

// In a process that has not asked for any setting before.
void TestLogger::settingsStoreIsMadeWhenNeeded()
{
    ProgramRun run;
    run.setSettings(logSettings(path));
    run.setEnvironment("writer", ZELMORA_LOGWRITER);
    run.startShell("\"$writer\" a 2 0 </dev/null");
    QVERIFY(run.ended);
    QCOMPARE(run.exitStatus, 0);
    QCOMPARE(run.standardOutput, QByteArray());
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(records(path), QByteArrayList({"DEBUG: Start Logger", "INFO: a 0 ", "INFO: a 1 "}));
}

void TestLogger::missingSettings_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QByteArray>("output");

    QTest::newRow("none: nothing is opened") << QByteArray() << QByteArray();
    QTest::newRow("empty ones: nothing is opened")
        << QByteArray("zelmora: { logger: { level = \"\"; basedir = \"\"; filename = \"\"; type = \"\"; }; };")
        << QByteArray();
    QTest::newRow("a type alone: the root folder is no file")
        << QByteArray("zelmora: { logger: { type = Append; }; };")
        << QByteArray("Error in the method Logger::setType(Append)\n");
}

void TestLogger::missingSettings()
{
    QFETCH(QByteArray, settings);
    QFETCH(QByteArray, output);
    useSettings(settings);

    const QByteArray said = captured(stdout, [] {
        Logger logger("suite");
        writeAtEachLevel(logger);
    });
    QCOMPARE(said, output);
}

void TestLogger::nameIsNotUsed()
{
    useLog(path, "APPEND", "ERROR");
    for (const char* name : {"suite", "", "/nowhere/at/all"}) {
        Logger logger(name);
        logger.error(name);
    }
    QCOMPARE(records(path), QByteArrayList({"ERROR: suite", "ERROR: ", "ERROR: /nowhere/at/all"}));
}

void TestLogger::levelOfTheSettings_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QByteArrayList>("passing");

    const QByteArrayList all {"DEBUG", "INFO", "WARNING", "ERROR", "FATAL"};
    QTest::newRow("DEBUG") << "DEBUG" << all;
    QTest::newRow("INFO") << "INFO" << QByteArrayList({"INFO", "WARNING", "ERROR", "FATAL"});
    QTest::newRow("WARNING") << "WARNING" << QByteArrayList({"WARNING", "ERROR", "FATAL"});
    QTest::newRow("ERROR") << "ERROR" << QByteArrayList({"ERROR", "FATAL"});
    QTest::newRow("FATAL") << "FATAL" << QByteArrayList({"FATAL"});
    QTest::newRow("lower case") << "warning" << QByteArrayList({"WARNING", "ERROR", "FATAL"});
    QTest::newRow("mixed case") << "eRRoR" << QByteArrayList({"ERROR", "FATAL"});
    QTest::newRow("empty hides nothing") << "" << all;
    QTest::newRow("an unknown word hides nothing") << "verbose" << all;
    QTest::newRow("a number hides nothing") << "3" << all;
    QTest::newRow("the beginning of a word hides nothing") << "WARN" << all;
    QTest::newRow("a word and more hides nothing") << "ERRORS" << all;
    QTest::newRow("blanks around hide nothing") << " FATAL " << all;
}

void TestLogger::levelOfTheSettings()
{
    QFETCH(QString, word);
    QFETCH(QByteArrayList, passing);
    useLog(path, "APPEND", word);

    Logger logger("suite");
    QByteArrayList start;
    if (passing.contains("DEBUG"))
        start += "DEBUG: Start Logger";
    QCOMPARE(records(path), start);
    writeAtEachLevel(logger);
    QCOMPARE(wordsOf(records(path).mid(start.size())), passing);
}

void TestLogger::setLevel_data()
{
    levelOfTheSettings_data();
}

void TestLogger::setLevel()
{
    QFETCH(QString, word);
    QFETCH(QByteArrayList, passing);

    for (const char* before : {"DEBUG", "WARNING", "FATAL"}) {
        useLog(path, "OVERWRITE", before);
        Logger logger("suite");
        const int earlier = records(path).size();
        logger.setLevel(word);
        writeAtEachLevel(logger);
        QCOMPARE(wordsOf(records(path).mid(earlier)), passing);
    }
}

void TestLogger::operationForEachLevel_data()
{
    QTest::addColumn<QString>("threshold");
    QTest::addColumn<QByteArrayList>("lines");

    QTest::newRow("DEBUG") << "DEBUG"
                           << QByteArrayList(
                                  {"DEBUG: Start Logger", "DEBUG: a", "INFO: b", "WARNING: c", "ERROR: d", "FATAL: e"});
    QTest::newRow("INFO") << "INFO" << QByteArrayList({"INFO: b", "WARNING: c", "ERROR: d", "FATAL: e"});
    QTest::newRow("WARNING") << "WARNING" << QByteArrayList({"WARNING: c", "ERROR: d", "FATAL: e"});
    QTest::newRow("ERROR") << "ERROR" << QByteArrayList({"ERROR: d", "FATAL: e"});
    QTest::newRow("FATAL") << "FATAL" << QByteArrayList({"FATAL: e"});
}

void TestLogger::operationForEachLevel()
{
    QFETCH(QString, threshold);
    QFETCH(QByteArrayList, lines);
    useLog(path, "APPEND", threshold);

    Logger logger("suite");
    logger.debug("a");
    logger.info("b");
    logger.warning("c");
    logger.error("d");
    logger.fatal("e");
    QCOMPARE(records(path), lines);
}

void TestLogger::levelOutsideTheEnumeration_data()
{
    QTest::addColumn<QString>("threshold");
    QTest::addColumn<int>("level");
    QTest::addColumn<QByteArrayList>("lines");

    const QByteArrayList withoutWord {": x"};
    QTest::newRow("below all is below the threshold") << "INFO" << -1 << QByteArrayList();
    QTest::newRow("far below") << "FATAL" << -1000000 << QByteArrayList();
    QTest::newRow("above all") << "INFO" << 5 << withoutWord;
    QTest::newRow("above all passes FATAL") << "FATAL" << 5 << withoutWord;
    QTest::newRow("far above") << "FATAL" << 1000000 << withoutWord;
}

void TestLogger::levelOutsideTheEnumeration()
{
    QFETCH(QString, threshold);
    QFETCH(int, level);
    QFETCH(QByteArrayList, lines);
    useLog(path, "APPEND", threshold);

    Logger logger("suite");
    logger.write(static_cast<Logger::Level>(level), "x");
    QCOMPARE(records(path), lines);
}

void TestLogger::typeOfTheSettings_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QByteArrayList>("lines"); // of a file that had one already

    const QByteArrayList appended {"earlier", "ERROR: x"};
    const QByteArrayList replaced {"ERROR: x"};
    const QByteArrayList untouched {"earlier"};
    QTest::newRow("APPEND") << "APPEND" << appended;
    QTest::newRow("append in lower case") << "append" << appended;
    QTest::newRow("append in mixed case") << "aPpEnD" << appended;
    QTest::newRow("OVERWRITE") << "OVERWRITE" << replaced;
    QTest::newRow("overwrite in lower case") << "overwrite" << replaced;
    QTest::newRow("overwrite in mixed case") << "OverWrite" << replaced;
    QTest::newRow("empty opens nothing") << "" << untouched;
    QTest::newRow("an unknown word opens nothing") << "TRUNCATE" << untouched;
    QTest::newRow("the beginning of a word opens nothing") << "APPEN" << untouched;
    QTest::newRow("a word and more opens nothing") << "OVERWRITES" << untouched;
    QTest::newRow("blanks around open nothing") << " APPEND " << untouched;
}

void TestLogger::typeOfTheSettings()
{
    QFETCH(QString, word);
    QFETCH(QByteArrayList, lines);
    writeLog("earlier\n");
    useLog(path, word, "ERROR");

    const QByteArray output = captured(stdout, [] { Logger("suite").error("x"); });
    QCOMPARE(records(path), lines);
    QCOMPARE(output, QByteArray());
}

void TestLogger::setType_data()
{
    typeOfTheSettings_data();
}

void TestLogger::setType()
{
    QFETCH(QString, word);
    QFETCH(QByteArrayList, lines);
    writeLog("earlier\n");
    useLog(path, "", "ERROR");

    const QByteArray output = captured(stdout, [&word] {
        Logger logger("suite");
        logger.error("lost");
        logger.setType(word);
        logger.error("x");
    });
    QCOMPARE(records(path), lines);
    QCOMPARE(output, QByteArray());
}

void TestLogger::typeThatOpensNothingMakesNoFile()
{
    useLog(path, "");
    Logger logger("suite");
    writeAtEachLevel(logger);
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList());
}

void TestLogger::appendMakesTheFile()
{
    useLog(path, "APPEND", "FATAL");
    Logger logger("suite");
    QVERIFY(QFile::exists(path));
    QCOMPARE(log(), QByteArray());
}

void TestLogger::openFailure_data()
{
    QTest::addColumn<QString>("place"); // in the scratch folder, or absolute

    QTest::newRow("the folder does not exist") << "missing/suite.log";
    QTest::newRow("a folder has the log's name") << "folder";
    QTest::newRow("a file is where the folder should be") << "file/suite.log";
    QTest::newRow("a folder that takes no new file") << "/proc/suite.log";
    QTest::newRow("the name is too long") << QString(300, 'x');
}

void TestLogger::openFailure()
{
    QFETCH(QString, place);
    QVERIFY(QDir(folder->path()).mkdir("folder"));
    QVERIFY(QFile(folder->filePath("file")).open(QIODevice::WriteOnly));

    for (const QByteArray word : {"APPEND", "OVERWRITE", "append", "oVeRwRiTe"}) {
        useLog(QDir(folder->path()).filePath(place), "");
        Logger logger("suite");
        const QByteArray output = captured(stdout, [&] {
            logger.setType(word);
            writeAtEachLevel(logger);
        });
        QCOMPARE(output, "Error in the method Logger::setType(" + word + ")\n");
    }
    QCOMPARE(QDir(folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList({"file", "folder"}));
    QCOMPARE(fileContents(folder->filePath("file")), QByteArray());
}

void TestLogger::openFailureOfTheSettings()
{
    useLog(folder->filePath("missing/suite.log"), "Append");
    const QByteArray output = captured(stdout, [] {
        Logger logger("suite");
        writeAtEachLevel(logger);
    });
    QCOMPARE(output, QByteArray("Error in the method Logger::setType(Append)\n"));
}

void TestLogger::failedOpenCanBeTriedAgain()
{
    const QString later = folder->filePath("later/suite.log");
    useLog(later, "APPEND", "ERROR");
    captured(stdout, [&] {
        Logger logger("suite");
        logger.error("lost");
        QVERIFY(QDir(folder->path()).mkdir("later"));
        logger.error("lost too");
        logger.setType("APPEND");
        logger.error("x");
    });
    QCOMPARE(records(later), QByteArrayList {"ERROR: x"});
}

void TestLogger::secondOpenIsReported()
{
    useLog(path, "APPEND", "ERROR");
    Logger logger("suite");
    logger.error("before");
    const QByteArray output = captured(stdout, [&logger] { logger.setType("Overwrite"); });
    logger.error("after");
    QCOMPARE(output, QByteArray("Error in the method Logger::setType(Overwrite)\n"));
    QCOMPARE(records(path), QByteArrayList({"ERROR: before", "ERROR: after"}));
}

void TestLogger::startLine()
{
    const PinnedClock clock(someMoment());
    useLog(path, "APPEND", "DEBUG");
    const Logger logger("suite");
    QCOMPARE(log(), someTime + QByteArray("DEBUG: Start Logger\n"));
}

void TestLogger::line_data()
{
    QTest::addColumn<QByteArray>("moment"); // UTC
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QByteArray>("time");

    const auto row = [](const char* name, const char* moment, const char* zone, const char* time) {
        QTest::newRow(name) << QByteArray(moment) << QByteArray(zone) << QByteArray(time);
    };
    const char* rome = "CET-1CEST,M3.5.0,M10.5.0/3";

    row("the month goes first", "2026-07-04T13:05:09.042", "UTC0", "07-04-2026 13:05:09:042");
    row("leading zeros everywhere", "2026-01-02T03:04:05.006", "UTC0", "01-02-2026 03:04:05:006");
    row("two digits everywhere", "2026-12-31T23:59:59.999", "UTC0", "12-31-2026 23:59:59:999");
    row("midnight is 00", "2026-03-01T00:00:00.000", "UTC0", "03-01-2026 00:00:00:000");
    row("noon is 12", "2026-03-01T12:00:00.100", "UTC0", "03-01-2026 12:00:00:100");
    row("a leap day", "2028-02-29T21:30:00.010", "UTC0", "02-29-2028 21:30:00:010");
    row("local time in winter", "2026-01-15T11:05:09.042", rome, "01-15-2026 12:05:09:042");
    row("local time in summer", "2026-07-04T11:05:09.042", rome, "07-04-2026 13:05:09:042");
    row("tomorrow already", "2026-12-31T23:30:00.000", rome, "01-01-2027 00:30:00:000");
    row("yesterday still", "2026-03-01T04:59:59.999", "EST5", "02-28-2026 23:59:59:999");
}

void TestLogger::line()
{
    QFETCH(QByteArray, moment);
    QFETCH(QByteArray, zone);
    QFETCH(QByteArray, time);
    useLog(path, "APPEND", "INFO");
    Logger logger("suite");

    const PinnedClock clock(utc(moment), zone);
    writeAtEachLevel(logger);
    const QByteArray start = '[' + time + "] ";
    QCOMPARE(log(), start + "INFO: x\n" + start + "WARNING: x\n" + start + "ERROR: x\n" + start + "FATAL: x\n");
}

void TestLogger::text_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("a word") << "refused" << QByteArray("refused");
    QTest::newRow("empty") << "" << QByteArray();
    QTest::newRow("none") << QString() << QByteArray();
    QTest::newRow("blanks around stay") << "  a  b  " << QByteArray("  a  b  ");
    QTest::newRow("several lines") << "a\nb\n\nc\n" << QByteArray("a\nb\n\nc\n");
    QTest::newRow("carriage returns and tabs") << "a\r\nb\tc\r" << QByteArray("a\r\nb\tc\r");
    QTest::newRow("a NUL") << QString("a%1b").arg(QChar(0)) << QByteArray("a\0b", 3);
    const char signs[] = R"(%1 %n %s \n "<&]: )";
    QTest::newRow("signs that mean something elsewhere") << signs << QByteArray(signs);
    QTest::newRow("UTF-8") << "è€漢😀" << QByteArray("\xC3\xA8\xE2\x82\xAC\xE6\xBC\xA2\xF0\x9F\x98\x80");
    QTest::newRow("a byte order mark") << QString(QChar(0xFEFF)) + "a"
                                       << QByteArray("\xEF\xBB\xBF"
                                                     "a");
    QTest::newRow("half a character") << QString(QChar(0xD83D)) << QByteArray("?");
    QTest::newRow("the other half") << QString(QChar(0xDE00)) << QByteArray("?");
    QTest::newRow("70,000 characters") << QString(70000, 'x') << QByteArray(70000, 'x');
    QTest::newRow("a million characters of two bytes")
        << QString(1000000, QChar(0xE8)) << QByteArray("\xC3\xA8").repeated(1000000);
}

void TestLogger::text()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    const PinnedClock clock(someMoment());
    useLog(path, "APPEND", "ERROR");
    Logger logger("suite");

    logger.error(text);
    logger.fatal(text);
    const QByteArray expected = someTime + ("ERROR: " + bytes) + '\n' + someTime + "FATAL: " + bytes + '\n';
    QVERIFY2(log() == expected, difference(expected, log()).left(1000));
}

void TestLogger::localeDoesNotMatter_data()
{
    QTest::addColumn<QString>("locale");

    QTest::newRow("UTF-8") << "C.UTF-8";
    QTest::newRow("C") << "C";
    QTest::newRow("8-bit") << "it_IT.ISO-8859-15";
}

void TestLogger::localeDoesNotMatter()
{
    QFETCH(QString, locale);
    ProgramRun run;
    run.setSettings(logSettings(path, "APPEND", "INFO"));
    run.setEnvironment("LC_ALL", locale);
    run.setEnvironment("writer", ZELMORA_LOGWRITER);
    run.startShell("\"$writer\" '\xC3\xA8 \xE2\x82\xAC' 1 0 </dev/null");
    QCOMPARE(run.exitStatus, 0);
    QCOMPARE(run.standardOutput + run.standardError, QByteArray());
    QCOMPARE(records(path), QByteArrayList {"INFO: \xC3\xA8 \xE2\x82\xAC 0 "});
}

void TestLogger::codecOfTheProgramDoesNotMatter()
{
    QTextCodec* const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-15"));
    useLog(path, "APPEND", "ERROR");
    Logger("suite").error("è €");
    QTextCodec::setCodecForLocale(before);
    QCOMPARE(records(path), QByteArrayList {"ERROR: \xC3\xA8 \xE2\x82\xAC"});
}

void TestLogger::lineIsInTheFileWhenWriteReturns()
{
    useLog(path, "APPEND", "ERROR");
    Logger logger("suite");
    QByteArrayList expected;
    for (int i = 0; i < 100; ++i) {
        logger.error(QString::number(i));
        expected += "ERROR: " + QByteArray::number(i);
        QCOMPARE(records(path), expected);
    }
}

void TestLogger::lineIsOneWrite_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("short") << "x";
    QTest::newRow("several lines of text") << "a\nb\nc";
    QTest::newRow("as long as a block of the disk") << QString(4096, 'x');
    QTest::newRow("longer than the text stream's buffer") << QString(20000, 'x');
    QTest::newRow("longer than a pipe") << QString(70000, QChar(0xE8));
    QTest::newRow("very long") << QString(3000000, 'x');
}

void TestLogger::lineIsOneWrite()
{
    QFETCH(QString, text);
    for (const char* type : {"APPEND", "OVERWRITE"}) {
        useLog(path, type, "ERROR");
        Logger logger("suite");
        const std::size_t before = static_cast<std::size_t>(log().size());

        watchedWrites.emplace();
        logger.error(text);
        const std::vector<std::size_t> writes = *watchedWrites;
        watchedWrites.reset();
        QCOMPARE(writes.size(), std::size_t(1));
        QCOMPARE(writes.front(), static_cast<std::size_t>(log().size()) - before);
        QVERIFY(writes.front() > static_cast<std::size_t>(text.size()));
    }
}

void TestLogger::lineAfterAPartIsOneWrite()
{
    useLog(path, "APPEND", "ERROR");
    Logger logger("suite");
    {
        const FileSizeLimit diskIsAlmostFull(20);
        logger.error("cut");
    }
    QCOMPARE(log().size(), 20);

    watchedWrites.emplace();
    logger.error("x");
    const std::vector<std::size_t> writes = *watchedWrites;
    watchedWrites.reset();
    QCOMPARE(writes, std::vector<std::size_t> {static_cast<std::size_t>(log().size()) - 20});
}

void TestLogger::fileIsOpenAsLongAsTheLogger()
{
    useLog(path);
    {
        Logger logger("suite");
        QCOMPARE(timesOpen(path), 1);
        writeAtEachLevel(logger);
        QCOMPARE(timesOpen(path), 1);
    }
    QCOMPARE(timesOpen(path), 0);
}

QTEST_GUILESS_MAIN(TestLogger)
#include "tst_logger.moc"
