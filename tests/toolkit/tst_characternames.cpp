#include "toolkit/characternames.h"

#include <QtTest>

using toolkit::nameOf;
using toolkit::plainSpelling;

/// What a character is called, and what prints in its place.
class TestCharacterNames : public QObject {
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void spellings_data();
    void spellings();
    void manyNumbers();
};

void TestCharacterNames::names_data()
{
    QTest::addColumn<uint>("codePoint");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* title, uint codePoint, const QString& name) {
        QTest::newRow(title) << codePoint << name;
    };
    row("what keyboards have", 0x20AC, "euro sign (U+20AC)");
    row("what word processors make of two signs", 0x2014, "long dash (U+2014)");
    row("what word processors make of an apostrophe", 0x2019, "curved apostrophe (U+2019)");
    row("a small number is written with four digits", 0x0009, "tab (U+0009)");
    row("a control character without a name of its own", 0x001B, "control character (U+001B)");
    row("a letter with an accent", 0x00E9, "e with acute accent (U+00E9)");
    row("a capital with an accent", 0x010C, "C with caron (U+010C)");
    row("a letter with two accents", 0x1EC7, "Latin letter (U+1EC7)");
    row("a letter with a stroke, which is no accent", 0x0142, "l with a stroke (U+0142)");
    row("a Greek letter", 0x03B1, "Greek letter (U+03B1)");
    row("a Greek letter with an accent", 0x03AC, "Greek letter (U+03AC)");
    row("a Chinese character", 0x6F22, "Chinese character (U+6F22)");
    row("a letter of a script without a name", 0x0E01, "letter of a foreign script (U+0E01)");
    row("an emoji", 0x1F355, "picture (emoji) (U+1F355)");
    row("an old emoji", 0x2615, "picture (emoji) (U+2615)");
    row("an emoji with a name", 0x2764, "heart (U+2764)");
    row("an accent by itself", 0x0301, "accent by itself (U+0301)");
    row("a fraction", 0x00BD, "digit or fraction (U+00BD)");
    row("a currency", 0x20BF, "currency sign (U+20BF)");
    row("a punctuation mark", 0x3002, "punctuation mark (U+3002)");
    row("half of a character", 0xD83C, "half of a character (U+D83C)");
    row("no character", 0xFFFF, "character without a meaning (U+FFFF)");
    row("the last number", 0x10FFFF, "character without a meaning (U+10FFFF)");
}

void TestCharacterNames::names()
{
    QFETCH(uint, codePoint);
    QTEST(nameOf(codePoint), "name");
}

namespace {

bool isAscii(uint codePoint)
{
    return codePoint < 0x80;
}

bool isLatin1(uint codePoint)
{
    return codePoint < 0x100;
}

bool isAny(uint)
{
    return true;
}

using Printable = bool (*)(uint);

} // namespace

Q_DECLARE_METATYPE(Printable)

void TestCharacterNames::spellings_data()
{
    QTest::addColumn<uint>("codePoint");
    QTest::addColumn<Printable>("canPrint");
    QTest::addColumn<QString>("spelling");
    const auto row = [](const char* title, uint codePoint, Printable canPrint, const QString& spelling) {
        QTest::newRow(title) << codePoint << canPrint << spelling;
    };
    row("the euro sign", 0x20AC, isLatin1, "EUR");
    row("a dash", 0x2013, isAscii, "-");
    row("three dots", 0x2026, isAscii, "...");
    row("a curved quotation mark", 0x201C, isAscii, "\"");
    row("a curved apostrophe: no straight one, which ends the text", 0x2019, isAscii, "`");
    row("a straight apostrophe", 0x0027, isAny, "`");
    row("a wide apostrophe, which falls apart to a straight one", 0xFF07, isAscii, "`");
    row("a letter behind an apostrophe", 0x0149, isAscii, "`n");
    row("a fraction", 0x00BD, isAscii, "1/2");
    row("a ligature", 0xFB01, isAscii, "fi");
    row("o and e in one letter", 0x0153, isLatin1, "oe");
    row("a and e in one letter, with an accent", 0x01FD, isAscii, "ae");
    row("the same where the letter prints", 0x01FD, isLatin1, "ae");
    row("a letter without its accent", 0x010D, isLatin1, "c");
    row("a letter without its two accents", 0x1EC7, isAscii, "e");
    row("a Greek letter without its accent, where that prints", 0x03AC, isAny, "\u03B1");
    row("a Greek letter where none prints", 0x03AC, isLatin1, "");
    row("a letter in a circle", 0x24B6, isAscii, "A");
    row("a blank that does not break", 0x00A0, isAscii, " ");
    row("a blank of a special width", 0x2009, isAscii, " ");
    row("an accent by itself leaves nothing", 0x0301, isAny, "");
    row("an accent on a blank leaves nothing", 0x00A8, isAscii, "");
    row("an emoji", 0x1F355, isAny, "");
    row("a Chinese character", 0x6F22, isAny, "");
    row("a Korean character falls apart to what does not print", 0xD55C, isLatin1, "");
    row("a control character", 0x0009, isAny, "");
    row("what is not seen", 0x200B, isAny, "");
    row("half of a character", 0xD83C, isAny, "");
}

void TestCharacterNames::spellings()
{
    QFETCH(uint, codePoint);
    QFETCH(Printable, canPrint);
    QTEST(plainSpelling(codePoint, canPrint), "spelling");
}

/// All of what Europe writes, and some of all others, of numbers that stand for no character too.
void TestCharacterNames::manyNumbers()
{
    for (uint codePoint = 0; codePoint < 0x110100; codePoint += codePoint < 0x3000 ? 1 : 61) {
        const QString name = nameOf(codePoint);
        QVERIFY2(name.contains(" (U+") && !name.contains('%'), qPrintable(name));
        const QString spelling = plainSpelling(codePoint, isLatin1);
        const bool isFit = std::all_of(spelling.begin(), spelling.end(), [](QChar character) {
            return character.unicode() < 0x100 && character.category() != QChar::Other_Control && character != '\'';
        });
        QVERIFY2(isFit, qPrintable(name));
    }
    nameOf(~0U);
    QCOMPARE(plainSpelling(~0U, isLatin1), QString());
}

QTEST_GUILESS_MAIN(TestCharacterNames)
#include "tst_characternames.moc"
