#include "toolkit/textwriter.h"

#include "support/processstate.h"
#include "support/programrun.h"

#include <QFile>
#include <QtTest>

#include <csignal>
#include <optional>

using toolkit::TextEncoder;
using toolkit::TextWriter;

/// Text on its way to a file: when it goes out, as which bytes, and what becomes of it when it can't.
class TestTextWriter : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void bytes_data();
    void bytes();
    void littleWaitsForTheEnd();
    void muchGoesOutAtOnce();
    void characterSplitBetweenTwoWrites();
    void nothingFollowsAFailedWrite();
    void nothingIsGatheredAfterAFailedWrite();
    void fullDisk();

private:
    QByteArray contents() const { return fileContents(file->fileName()); }

    std::optional<QTemporaryDir> folder;
    std::optional<QFile> file; ///< open, and empty
};

void TestTextWriter::initTestCase()
{
    qputenv("LC_ALL", "it_IT.ISO-8859-15");
    std::signal(SIGXFSZ, SIG_IGN); // as the print program does
}

void TestTextWriter::init()
{
    folder.emplace();
    file.emplace(folder->filePath("text"));
    QVERIFY(file->open(QIODevice::WriteOnly));
}

void TestTextWriter::bytes_data()
{
    QTest::addColumn<bool>("inTheLocale");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QByteArray>("expected");

    const QString emoji = QStringLiteral("\U0001F600");
    QTest::newRow("UTF-8") << false << QStringList {"Caffè ", "5 €"} << QByteArray("Caff\xc3\xa8 5 \xe2\x82\xac");
    QTest::newRow("the locale's encoding") << true << QStringList {"Caffè ", "5 €"} << QByteArray("Caff\xe8 5 \xa4");
    QTest::newRow("what the locale lacks") << true << QStringList {"a漢b"} << QByteArray("a?b");
    QTest::newRow("line ends stay") << false << QStringList {"a\r\nb\nc\r"} << QByteArray("a\r\nb\nc\r");
    QTest::newRow("a NUL is a character")
        << false << QStringList {QString("a") + QChar(0) + 'b'} << QByteArray("a\0b", 3);
    QTest::newRow("half of a character") << false << QStringList {emoji.left(1), "a", emoji.mid(1), "b"}
                                         << QByteArray("?a?b");
    QTest::newRow("half of a character at the end, which waits for the other")
        << false << QStringList {"a", emoji.left(1)} << QByteArray("a");
    QTest::newRow("nothing") << false << QStringList {"", QString()} << QByteArray();
}

void TestTextWriter::bytes()
{
    QFETCH(bool, inTheLocale);
    QFETCH(QStringList, texts);
    QFETCH(QByteArray, expected);

    {
        TextWriter writer(*file, inTheLocale ? TextEncoder::Encoding::Locale : TextEncoder::Encoding::Utf8);
        for (const QString& text : texts)
            writer << text;
    }
    QCOMPARE(contents(), expected);
}

void TestTextWriter::littleWaitsForTheEnd()
{
    {
        TextWriter writer(*file, TextEncoder::Encoding::Utf8);
        writer << "one "
               << "two";
        QCOMPARE(contents(), QByteArray());
    }
    QCOMPARE(contents(), QByteArray("one two"));
    QVERIFY(file->isOpen());
}

void TestTextWriter::muchGoesOutAtOnce()
{
    TextWriter writer(*file, TextEncoder::Encoding::Utf8);
    writer << QString(60000, 'a');
    QCOMPARE(contents(), QByteArray(60000, 'a'));

    // However long the text, what is gathered is little.
    const QString line(100, 'b');
    const std::size_t before = allocatedBytes();
    for (int i = 0; i < 10000; ++i)
        writer << line;
    QVERIFY(allocatedBytes() < before + 200000);
    QVERIFY(contents().size() > 60000 + 900000);
}

// The first write ends with half of it, wherever the writer draws the line.
void TestTextWriter::characterSplitBetweenTwoWrites()
{
    const QString emoji = QStringLiteral("\U0001F600");
    {
        TextWriter writer(*file, TextEncoder::Encoding::Utf8);
        writer << QString(60000, 'a') + emoji.left(1) << emoji.mid(1) + "b";
    }
    QCOMPARE(contents(), QByteArray(60000, 'a') + emoji.toUtf8() + 'b');
}

void TestTextWriter::nothingFollowsAFailedWrite()
{
    {
        TextWriter writer(*file, TextEncoder::Encoding::Utf8);
        {
            const FileSizeLimit limit(1000);
            writer << QString(60000, 'a');
        }
        writer << QString(60000, 'b') << "c";
    }
    file->close();
    QCOMPARE(contents(), QByteArray(1000, 'a'));
}

void TestTextWriter::nothingIsGatheredAfterAFailedWrite()
{
    const FileSizeLimit limit(0);
    TextWriter writer(*file, TextEncoder::Encoding::Utf8);
    writer << QString(60000, 'a');

    const QString line(100, 'b');
    const std::size_t before = allocatedBytes();
    for (int i = 0; i < 100000; ++i)
        writer << line;
    QVERIFY(allocatedBytes() <= before);
}

void TestTextWriter::fullDisk()
{
    QFile full("/dev/full");
    QVERIFY(full.open(QIODevice::WriteOnly));
    const std::size_t before = allocatedBytes();
    {
        TextWriter writer(full, TextEncoder::Encoding::Utf8);
        for (int i = 0; i < 100000; ++i)
            writer << "one more line\r\n";
        QVERIFY(allocatedBytes() < before + 200000);
    }
}

QTEST_GUILESS_MAIN(TestTextWriter)
#include "tst_textwriter.moc"
