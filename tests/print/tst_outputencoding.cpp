#include "support/capture.h"
#include "support/job.h"
#include "toolkit/textwriter.h"

#include <QtTest>

/// The output file in an 8-bit locale.
class TestOutputEncoding : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void text_data();
    void text();
};

void TestOutputEncoding::initTestCase()
{
    qputenv("LOCPATH", ZELMORA_TEST_LOCALES);
    qputenv("LC_ALL", "it_IT.ISO-8859-15");
    useSettings(QByteArray());
}

void TestOutputEncoding::text_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("ASCII") << "nofis riga='Bar'\r\n" << QByteArray("nofis riga='Bar'\r\n");
    QTest::newRow("an accent is one byte") << "è" << QByteArray("\xe8");
    QTest::newRow("the euro sign is one byte") << "€" << QByteArray("\xa4");
    QTest::newRow("what the locale lacks is a question mark") << "a漢b¤c" << QByteArray("a?b?c");
}

void TestOutputEncoding::text()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    const QTemporaryDir folder;
    const QString path = folder.filePath("script.txt");

    {
        RecordingDriver driver(path);
        *driver.stream << text;
    }
    QCOMPARE(fileContents(path), bytes);
}

QTEST_GUILESS_MAIN(TestOutputEncoding)
#include "tst_outputencoding.moc"
