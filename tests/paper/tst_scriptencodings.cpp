#include "rolls.h"
#include "support/registerscript.h"

#include <QTextCodec>
#include <QtTest>

using paper::readRoll;
using paper::Roll;

/// Scripts in all encodings, and bytes that are no characters.
class TestScriptEncodings : public QObject {
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void byteOrderMarksAreNotSkipped();
    void aByteOrderMarkTellsTheOrder();
    void theLocalesEncodingIsTheDefault();
};

void TestScriptEncodings::texts_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QStringList>("faults");
    const auto row = [](const char* name, const char* encoding, const QByteArray& text, const QString& read,
                        const QStringList& faults = {}) {
        QTest::newRow(name) << QByteArray(encoding) << text << read << faults;
    };
    row("ASCII", "UTF-8", "Caffe", "Caffe");
    row("UTF-8", "UTF-8", "Caff\xC3\xA8", "Caff\u00E8");
    row("four bytes", "UTF-8", "\xF0\x9F\x8D\x95", QString::fromUtf8("\xF0\x9F\x8D\x95"));
    row("a replacement character of the script's own", "UTF-8", "a\xEF\xBF\xBDz", "a\uFFFDz");
    row("a byte that begins nothing", "UTF-8", "Caff\xE8 x", "Caff\uFFFD x", {"2:17 invalid-bytes e8"});
    row("a run of bytes is one fault", "UTF-8", "a\x80\x81\x82z", "a\uFFFD\uFFFD\uFFFDz",
        {"2:14 invalid-bytes 808182"});
    row("two runs are two", "UTF-8", "\xE8 \xE8", "\uFFFD \uFFFD", {"2:13 invalid-bytes e8", "2:15 invalid-bytes e8"});
    row("a character right behind an invalid byte", "UTF-8", "\xE8\xC3\xA8", "\uFFFD\u00E8", {"2:13 invalid-bytes e8"});
    row("an invalid byte and a replacement character of the script's own", "UTF-8", "\xE8-\xEF\xBF\xBD",
        "\uFFFD-\uFFFD", {"2:13 invalid-bytes e8"});
    row("a replacement character of the script's own between two", "UTF-8", "\xE8\xEF\xBF\xBD\xE8 ",
        "\uFFFD\uFFFD\uFFFD ", {"2:13 invalid-bytes e8", "2:15 invalid-bytes e8"});
    row("a column is a character, also behind invalid bytes", "UTF-8", "\xC3\xA8\xE8\xC3\xA8\xE8 ",
        "\u00E8\uFFFD\u00E8\uFFFD ", {"2:14 invalid-bytes e8", "2:16 invalid-bytes e8"});
    row("a quote behind an invalid byte ends the text", "UTF-8", "a\xE8", "a\uFFFD", {"2:14 invalid-bytes e8"});
    row("Western European", "ISO-8859-15", "Caff\xE8 \xA4", "Caff\u00E8 \u20AC");
    row("a byte that an encoding leaves free", "ISO-8859-7", "a\xFFz", "a\uFFFDz", {"2:14 invalid-bytes ff"});
    row("Windows", "windows-1252", "\x80", "\u20AC");
    row("Japanese", "Shift_JIS", "\x83\x65\x83\x58\x83\x67", QString::fromUtf8("\u30C6\u30B9\u30C8"));
    row("Japanese whose second byte is a quote's neighbour", "Shift_JIS", "\x83\x5C", QString::fromUtf8("\u30BD"));
    row("half a Japanese character before a blank", "Shift_JIS", "a\x83 z", "a\uFFFD z", {"2:14 invalid-bytes 83"});
    row("Chinese", "GB18030", "\xBA\xBA", QString::fromUtf8("\u6C49"));
}

void TestScriptEncodings::texts()
{
    QFETCH(QByteArray, encoding);
    QFETCH(QByteArray, text);
    QTextCodec* const codec = QTextCodec::codecForName(encoding);
    QVERIFY(codec);
    const Roll roll = readRoll(document({text}), codec);
    QCOMPARE(roll.documents.size(), 1);
    QTEST(textsOf(roll.documents.first().rows).join('|'), "row");
    QTEST(faultsOf(roll), "faults");
}

/// The register does not skip it either.
void TestScriptEncodings::byteOrderMarksAreNotSkipped()
{
    const Roll roll = readRoll("\xEF\xBB\xBFnofis apri\r\nnofis chiudi\r\n", QTextCodec::codecForName("UTF-8"));
    QCOMPARE(
        faultsOf(roll),
        QStringList({"1:1 no-command " + QString(QChar::ByteOrderMark) + "nofis apri", "2:1 not-opened nofis chiudi"}));
}

void TestScriptEncodings::aByteOrderMarkTellsTheOrder()
{
    const QString script = QString::fromLatin1(document({"Caff\xE8"}));
    for (const char* order : {"UTF-16LE", "UTF-16BE", "UTF-32LE", "UTF-32BE"}) {
        QTextCodec* const named = QTextCodec::codecForName(order);

        QByteArray bytes = named->fromUnicode(QString(QChar(QChar::ByteOrderMark)) + script);
        bytes = bytes.mid(bytes.size() - (script.size() + 1) * QByteArray(order).mid(4, 2).toInt() / 8);
        const Roll roll = readRoll(bytes, QTextCodec::codecForName(QByteArray(order).left(6)));
        QCOMPARE(faultsOf(roll), QStringList());
        QCOMPARE(textsOf(roll.documents.value(0).rows), QStringList(QString::fromUtf8("Caff\u00E8")));
    }
}

void TestScriptEncodings::theLocalesEncodingIsTheDefault()
{
    const Roll roll = readRoll(document({"Caff\xC3\xA8"})); // the tests' locale has UTF-8
    QCOMPARE(textsOf(roll.documents.first().rows), QStringList(QString::fromUtf8("Caff\u00E8")));
}

QTEST_APPLESS_MAIN(TestScriptEncodings)

#include "tst_scriptencodings.moc"
