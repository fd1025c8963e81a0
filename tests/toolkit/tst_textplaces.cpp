#include "toolkit/textplaces.h"

#include <QtTest>

using toolkit::TextPlace;
using toolkit::TextPlaces;

/// Lines and columns of bytes.
class TestTextPlaces : public QObject {
    Q_OBJECT

private slots:
    void place_data();
    void place();
    void inAnyOrder();
    void behindAText();
};

void TestTextPlaces::place_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    const auto row = [](const char* name, const QByteArray& bytes, int offset, int line, int column) {
        QTest::newRow(name) << bytes << offset << line << column;
    };

    row("the beginning", "abc", 0, 1, 1);
    row("the beginning of nothing", "", 0, 1, 1);
    row("in the first line", "abc", 2, 1, 3);
    row("the line end belongs to its line", "ab\ncd", 2, 1, 3);
    row("the next line", "ab\ncd", 3, 2, 1);
    row("an empty line", "\n\nab", 1, 2, 1);
    row("after empty lines", "\n\nab", 3, 3, 2);
    row("a carriage return is a column", "ab\r\ncd", 3, 1, 4);
    row("a carriage return ends no line", "ab\rcd", 4, 1, 5);
    row("a tab is one column", "\t\ta", 2, 1, 3);
    row("an accent is one column", "\xC3\xA8\xC3\xA8-", 4, 1, 3);
    row("an emoji is one column", "\xF0\x9F\x8D\x95-", 4, 1, 2);
    row("a byte-order mark is none", "\xEF\xBB\xBF-", 3, 1, 1);
    row("a byte-order mark in the middle is none", "a\xEF\xBB\xBF-", 4, 1, 2);
    row("another character that begins like one", "\xEF\xBB\xBE-", 3, 1, 2);
    row("ISO-8859-1", "\xE8\xE0-", 2, 1, 3);
    row("a byte that continues nothing", "\x80-", 1, 1, 2);
    row("signs of ISO-8859-1 that continue nothing", "\xB0\xA7-", 2, 1, 3);
    row("a sequence of UTF-8 that breaks off", "\xF0\x9F\x8D-", 3, 1, 4);
    row("a NUL is a column", QByteArray("\0\0-", 3), 2, 1, 3);
    row("past the end", "ab\nc", 100, 2, 2);
}

void TestTextPlaces::place()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, offset);
    const TextPlace place = TextPlaces(bytes).at(offset);
    QTEST(place.line, "line");
    QTEST(place.column, "column");
}

void TestTextPlaces::inAnyOrder()
{
    TextPlaces places("ab\ncd\nef");
    QVERIFY((places.at(7) == TextPlace {3, 2}));
    QVERIFY((places.at(7) == TextPlace {3, 2}));
    QVERIFY((places.at(1) == TextPlace {1, 2}));
    QVERIFY((places.at(4) == TextPlace {2, 2}));
}

void TestTextPlaces::behindAText()
{
    const TextPlace begin {3, 4};
    QVERIFY(after(begin, QString()) == begin);
    QVERIFY(after(begin, QString("ab")) == (TextPlace {3, 6}));
    QVERIFY(after(begin, QString("ab\nc\u00E8\U0001F355\uFEFF")) == (TextPlace {4, 4}));
}

QTEST_GUILESS_MAIN(TestTextPlaces)
#include "tst_textplaces.moc"
