#include "toolkit/eightbit.h"

#include <QtTest>

/// What a text keeps on its way through the 8-bit form.
class TestEightBit : public QObject {
    Q_OBJECT

private slots:
    void text_data();
    void text();
    void everyUnit();
};

void TestEightBit::text_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("ASCII stays") << "Pizza 4 stagioni\t\r\n"
                                 << "Pizza 4 stagioni\t\r\n";
    QTest::newRow("Latin-1 accents stay") << "caffè perché così ÿ"
                                          << "caffè perché così ÿ";
    QTest::newRow("the euro sign is not in Latin-1") << "12 €"
                                                     << "12 ?";
    QTest::newRow("one question mark for each character") << "漢字."
                                                          << "??.";
    QTest::newRow("two question marks beyond the first 65,536") << "a🍕b"
                                                                << "a??b";
    QTest::newRow("a decomposed accent loses its mark") << QString("e") + QChar(0x0300) << "e?";
    QTest::newRow("a NUL ends the text") << QString("caffè") + QChar(0) + "x€"
                                         << "caffè";
    QTest::newRow("a NUL alone is no text") << QString(QChar(0)) << "";
}

void TestEightBit::text()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QCOMPARE(toolkit::eightBit(text), expected);
}

void TestEightBit::everyUnit()
{
    for (int unit = 1; unit <= 0xffff; ++unit) {
        const QChar character(unit);
        QCOMPARE(toolkit::eightBit(character), QString(unit <= 0xff ? character : QChar('?')));
    }
}

QTEST_GUILESS_MAIN(TestEightBit)
#include "tst_eightbit.moc"
