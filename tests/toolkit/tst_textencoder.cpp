#include "toolkit/textencoder.h"

#include <QtTest>

using toolkit::TextEncoder;

/// Text as bytes, in pieces.
class TestTextEncoder : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void pieces_data();
    void pieces();
};

void TestTextEncoder::initTestCase()
{
    qputenv("LC_ALL", "it_IT.ISO-8859-15");
}

void TestTextEncoder::pieces_data()
{
    QTest::addColumn<bool>("inTheLocale");
    QTest::addColumn<QStringList>("pieces");
    QTest::addColumn<QByteArray>("bytes");

    const QString emoji = QStringLiteral("\U0001F600");
    QTest::newRow("UTF-8") << false << QStringList {"è", "€"} << QByteArray("\xc3\xa8\xe2\x82\xac");
    QTest::newRow("UTF-8, a character that is split between two pieces")
        << false << QStringList {emoji.left(1), emoji.mid(1)} << QByteArray("\xf0\x9f\x98\x80");
    QTest::newRow("UTF-8, half of a character") << false << QStringList {emoji.left(1) + "a"} << QByteArray("?a");
    QTest::newRow("the locale's encoding") << true << QStringList {"è", "€"} << QByteArray("\xe8\xa4");
    QTest::newRow("what the locale lacks") << true << QStringList {"a漢", "b"} << QByteArray("a?b");
    QTest::newRow("nothing") << true << QStringList {""} << QByteArray();
}

void TestTextEncoder::pieces()
{
    QFETCH(bool, inTheLocale);
    QFETCH(QStringList, pieces);
    QFETCH(QByteArray, bytes);

    TextEncoder encoder(inTheLocale ? TextEncoder::Encoding::Locale : TextEncoder::Encoding::Utf8);
    QByteArray written;
    for (const QString& piece : pieces)
        written += encoder.encoded(piece);
    QCOMPARE(written, bytes);
}

QTEST_GUILESS_MAIN(TestTextEncoder)
#include "tst_textencoder.moc"
