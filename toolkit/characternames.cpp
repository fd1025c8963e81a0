#include "toolkit/characternames.h"

#include "toolkit/literals.h"

#include <QObject>
#include <QString>
#include <QVector>

#include <algorithm>
#include <iterator>

using toolkit::operator""_L1;

namespace toolkit {

namespace {

struct Character {
    uint codePoint;
    const char* name; ///< to be translated; null where its kind says enough
    QLatin1String spelling; ///< empty where its decomposition gives one, or there is none
};

// clang-format off

/// In the order of their numbers.
constexpr Character characters[] = {
    {0x0009, QT_TRANSLATE_NOOP("QObject", "tab"), ""_L1},
    {0x000A, QT_TRANSLATE_NOOP("QObject", "line break"), ""_L1},
    {0x000D, QT_TRANSLATE_NOOP("QObject", "line break"), ""_L1},
    {0x0027, QT_TRANSLATE_NOOP("QObject", "apostrophe"), "`"_L1},
    {0x00A0, QT_TRANSLATE_NOOP("QObject", "blank that does not break"), " "_L1},
    {0x00A1, QT_TRANSLATE_NOOP("QObject", "exclamation mark upside down"), "!"_L1},
    {0x00A2, QT_TRANSLATE_NOOP("QObject", "cent sign"), "c"_L1},
    {0x00A3, QT_TRANSLATE_NOOP("QObject", "pound sign"), "GBP"_L1},
    {0x00A5, QT_TRANSLATE_NOOP("QObject", "yen sign"), "JPY"_L1},
    {0x00A7, QT_TRANSLATE_NOOP("QObject", "section sign"), "par."_L1},
    {0x00A9, QT_TRANSLATE_NOOP("QObject", "copyright sign"), "(c)"_L1},
    {0x00AB, QT_TRANSLATE_NOOP("QObject", "angled quotation mark"), "\""_L1},
    {0x00AD, QT_TRANSLATE_NOOP("QObject", "hyphen that is not seen"), ""_L1},
    {0x00AE, QT_TRANSLATE_NOOP("QObject", "registered trademark sign"), "(R)"_L1},
    {0x00B0, QT_TRANSLATE_NOOP("QObject", "degree sign"), ""_L1},
    {0x00B1, QT_TRANSLATE_NOOP("QObject", "plus-minus sign"), "+-"_L1},
    {0x00B4, QT_TRANSLATE_NOOP("QObject", "acute accent"), "`"_L1},
    {0x00B5, QT_TRANSLATE_NOOP("QObject", "micro sign"), "u"_L1},
    {0x00B7, QT_TRANSLATE_NOOP("QObject", "dot in the middle"), "-"_L1},
    {0x00BB, QT_TRANSLATE_NOOP("QObject", "angled quotation mark"), "\""_L1},
    {0x00BF, QT_TRANSLATE_NOOP("QObject", "question mark upside down"), "?"_L1},
    {0x00C6, QT_TRANSLATE_NOOP("QObject", "A and E in one letter"), "AE"_L1},
    {0x00D0, nullptr, "D"_L1},
    {0x00D7, QT_TRANSLATE_NOOP("QObject", "multiplication sign"), "x"_L1},
    {0x00D8, QT_TRANSLATE_NOOP("QObject", "O with a stroke"), "O"_L1},
    {0x00DE, nullptr, "Th"_L1},
    {0x00DF, QT_TRANSLATE_NOOP("QObject", "German sharp s"), "ss"_L1},
    {0x00E6, QT_TRANSLATE_NOOP("QObject", "a and e in one letter"), "ae"_L1},
    {0x00F0, nullptr, "d"_L1},
    {0x00F7, QT_TRANSLATE_NOOP("QObject", "division sign"), "/"_L1},
    {0x00F8, QT_TRANSLATE_NOOP("QObject", "o with a stroke"), "o"_L1},
    {0x00FE, nullptr, "th"_L1},
    {0x0110, QT_TRANSLATE_NOOP("QObject", "D with a stroke"), "D"_L1},
    {0x0111, QT_TRANSLATE_NOOP("QObject", "d with a stroke"), "d"_L1},
    {0x0131, QT_TRANSLATE_NOOP("QObject", "i without its dot"), "i"_L1},
    {0x0141, QT_TRANSLATE_NOOP("QObject", "L with a stroke"), "L"_L1},
    {0x0142, QT_TRANSLATE_NOOP("QObject", "l with a stroke"), "l"_L1},
    {0x0152, QT_TRANSLATE_NOOP("QObject", "O and E in one letter"), "OE"_L1},
    {0x0153, QT_TRANSLATE_NOOP("QObject", "o and e in one letter"), "oe"_L1},
    {0x0192, QT_TRANSLATE_NOOP("QObject", "florin sign"), "f"_L1},
    {0x02BB, QT_TRANSLATE_NOOP("QObject", "curved apostrophe"), "`"_L1},
    {0x02BC, QT_TRANSLATE_NOOP("QObject", "curved apostrophe"), "`"_L1},
    {0x02C6, QT_TRANSLATE_NOOP("QObject", "circumflex"), "^"_L1},
    {0x02DC, QT_TRANSLATE_NOOP("QObject", "tilde"), "~"_L1},
    {0x1E9E, QT_TRANSLATE_NOOP("QObject", "German sharp s"), "SS"_L1},
    {0x200B, QT_TRANSLATE_NOOP("QObject", "blank of no width"), ""_L1},
    {0x2010, QT_TRANSLATE_NOOP("QObject", "hyphen"), "-"_L1},
    {0x2011, QT_TRANSLATE_NOOP("QObject", "hyphen that does not break"), "-"_L1},
    {0x2012, QT_TRANSLATE_NOOP("QObject", "dash"), "-"_L1},
    {0x2013, QT_TRANSLATE_NOOP("QObject", "dash"), "-"_L1},
    {0x2014, QT_TRANSLATE_NOOP("QObject", "long dash"), "-"_L1},
    {0x2015, QT_TRANSLATE_NOOP("QObject", "long dash"), "-"_L1},
    {0x2018, QT_TRANSLATE_NOOP("QObject", "curved single quotation mark"), "`"_L1},
    {0x2019, QT_TRANSLATE_NOOP("QObject", "curved apostrophe"), "`"_L1},
    {0x201A, QT_TRANSLATE_NOOP("QObject", "low single quotation mark"), "`"_L1},
    {0x201B, QT_TRANSLATE_NOOP("QObject", "curved single quotation mark"), "`"_L1},
    {0x201C, QT_TRANSLATE_NOOP("QObject", "curved quotation mark"), "\""_L1},
    {0x201D, QT_TRANSLATE_NOOP("QObject", "curved quotation mark"), "\""_L1},
    {0x201E, QT_TRANSLATE_NOOP("QObject", "low quotation mark"), "\""_L1},
    {0x201F, QT_TRANSLATE_NOOP("QObject", "curved quotation mark"), "\""_L1},
    {0x2020, QT_TRANSLATE_NOOP("QObject", "dagger"), "+"_L1},
    {0x2022, QT_TRANSLATE_NOOP("QObject", "bullet"), "*"_L1},
    {0x2026, QT_TRANSLATE_NOOP("QObject", "three dots in one character"), "..."_L1},
    {0x2028, QT_TRANSLATE_NOOP("QObject", "line break"), ""_L1},
    {0x2029, QT_TRANSLATE_NOOP("QObject", "line break"), ""_L1},
    {0x2030, QT_TRANSLATE_NOOP("QObject", "per thousand sign"), "o/oo"_L1},
    {0x2032, QT_TRANSLATE_NOOP("QObject", "sign for feet or minutes"), "`"_L1},
    {0x2033, QT_TRANSLATE_NOOP("QObject", "sign for inches or seconds"), "\""_L1},
    {0x2039, QT_TRANSLATE_NOOP("QObject", "angled single quotation mark"), "<"_L1},
    {0x203A, QT_TRANSLATE_NOOP("QObject", "angled single quotation mark"), ">"_L1},
    {0x2044, QT_TRANSLATE_NOOP("QObject", "fraction bar"), "/"_L1},
    {0x20AC, QT_TRANSLATE_NOOP("QObject", "euro sign"), "EUR"_L1},
    {0x2116, QT_TRANSLATE_NOOP("QObject", "number sign"), "No"_L1},
    {0x2117, nullptr, "(P)"_L1},
    {0x2122, QT_TRANSLATE_NOOP("QObject", "trademark sign"), "(TM)"_L1},
    {0x2190, QT_TRANSLATE_NOOP("QObject", "arrow"), "<-"_L1},
    {0x2192, QT_TRANSLATE_NOOP("QObject", "arrow"), "->"_L1},
    {0x2212, QT_TRANSLATE_NOOP("QObject", "minus sign"), "-"_L1},
    {0x2215, QT_TRANSLATE_NOOP("QObject", "division sign"), "/"_L1},
    {0x2248, QT_TRANSLATE_NOOP("QObject", "sign for about"), "~"_L1},
    {0x2264, QT_TRANSLATE_NOOP("QObject", "less or equal sign"), "<="_L1},
    {0x2265, QT_TRANSLATE_NOOP("QObject", "greater or equal sign"), ">="_L1},
    {0x2605, QT_TRANSLATE_NOOP("QObject", "star"), "*"_L1},
    {0x2713, QT_TRANSLATE_NOOP("QObject", "tick"), "v"_L1},
    {0x2714, QT_TRANSLATE_NOOP("QObject", "tick"), "v"_L1},
    {0x2764, QT_TRANSLATE_NOOP("QObject", "heart"), "<3"_L1},
    {0xFEFF, QT_TRANSLATE_NOOP("QObject", "byte-order mark, which is not seen"), ""_L1},
    {0xFFFD, QT_TRANSLATE_NOOP("QObject", "sign for a character that could not be read"), ""_L1},
};

struct Accent {
    uint codePoint; ///< of the combining mark
    const char* name;
};

constexpr Accent accents[] = {
    {0x0300, QT_TRANSLATE_NOOP("QObject", "%1 with grave accent")},
    {0x0301, QT_TRANSLATE_NOOP("QObject", "%1 with acute accent")},
    {0x0302, QT_TRANSLATE_NOOP("QObject", "%1 with circumflex")},
    {0x0303, QT_TRANSLATE_NOOP("QObject", "%1 with tilde")},
    {0x0304, QT_TRANSLATE_NOOP("QObject", "%1 with a bar above")},
    {0x0306, QT_TRANSLATE_NOOP("QObject", "%1 with breve")},
    {0x0307, QT_TRANSLATE_NOOP("QObject", "%1 with a dot above")},
    {0x0308, QT_TRANSLATE_NOOP("QObject", "%1 with two dots")},
    {0x030A, QT_TRANSLATE_NOOP("QObject", "%1 with a ring")},
    {0x030B, QT_TRANSLATE_NOOP("QObject", "%1 with double acute accent")},
    {0x030C, QT_TRANSLATE_NOOP("QObject", "%1 with caron")},
    {0x0323, QT_TRANSLATE_NOOP("QObject", "%1 with a dot below")},
    {0x0326, QT_TRANSLATE_NOOP("QObject", "%1 with a comma below")},
    {0x0327, QT_TRANSLATE_NOOP("QObject", "%1 with cedilla")},
    {0x0328, QT_TRANSLATE_NOOP("QObject", "%1 with ogonek")},
};

struct Script {
    QChar::Script script;
    const char* letter;
};

constexpr Script scripts[] = {
    {QChar::Script_Latin, QT_TRANSLATE_NOOP("QObject", "Latin letter")},
    {QChar::Script_Greek, QT_TRANSLATE_NOOP("QObject", "Greek letter")},
    {QChar::Script_Cyrillic, QT_TRANSLATE_NOOP("QObject", "Cyrillic letter")},
    {QChar::Script_Hebrew, QT_TRANSLATE_NOOP("QObject", "Hebrew letter")},
    {QChar::Script_Arabic, QT_TRANSLATE_NOOP("QObject", "Arabic letter")},
    {QChar::Script_Han, QT_TRANSLATE_NOOP("QObject", "Chinese character")},
    {QChar::Script_Hiragana, QT_TRANSLATE_NOOP("QObject", "Japanese character")},
    {QChar::Script_Katakana, QT_TRANSLATE_NOOP("QObject", "Japanese character")},
    {QChar::Script_Hangul, QT_TRANSLATE_NOOP("QObject", "Korean character")},
};

struct Kind {
    QChar::Category category;
    const char* name;
};

/// All but the letters.
constexpr Kind kinds[] = {
    {QChar::Mark_NonSpacing, QT_TRANSLATE_NOOP("QObject", "accent by itself")},
    {QChar::Mark_SpacingCombining, QT_TRANSLATE_NOOP("QObject", "accent by itself")},
    {QChar::Mark_Enclosing, QT_TRANSLATE_NOOP("QObject", "accent by itself")},
    {QChar::Number_DecimalDigit, QT_TRANSLATE_NOOP("QObject", "digit or fraction")},
    {QChar::Number_Letter, QT_TRANSLATE_NOOP("QObject", "digit or fraction")},
    {QChar::Number_Other, QT_TRANSLATE_NOOP("QObject", "digit or fraction")},
    {QChar::Separator_Space, QT_TRANSLATE_NOOP("QObject", "blank of a special width")},
    {QChar::Other_Control, QT_TRANSLATE_NOOP("QObject", "control character")},
    {QChar::Other_Format, QT_TRANSLATE_NOOP("QObject", "character that is not seen")},
    {QChar::Other_Surrogate, QT_TRANSLATE_NOOP("QObject", "half of a character")},
    {QChar::Other_PrivateUse, QT_TRANSLATE_NOOP("QObject", "character without a meaning")},
    {QChar::Other_NotAssigned, QT_TRANSLATE_NOOP("QObject", "character without a meaning")},
    {QChar::Punctuation_Connector, QT_TRANSLATE_NOOP("QObject", "punctuation mark")},
    {QChar::Punctuation_Dash, QT_TRANSLATE_NOOP("QObject", "punctuation mark")},
    {QChar::Punctuation_Open, QT_TRANSLATE_NOOP("QObject", "punctuation mark")},
    {QChar::Punctuation_Close, QT_TRANSLATE_NOOP("QObject", "punctuation mark")},
    {QChar::Punctuation_InitialQuote, QT_TRANSLATE_NOOP("QObject", "punctuation mark")},
    {QChar::Punctuation_FinalQuote, QT_TRANSLATE_NOOP("QObject", "punctuation mark")},
    {QChar::Punctuation_Other, QT_TRANSLATE_NOOP("QObject", "punctuation mark")},
    {QChar::Symbol_Currency, QT_TRANSLATE_NOOP("QObject", "currency sign")},
    {QChar::Symbol_Math, QT_TRANSLATE_NOOP("QObject", "sign")},
    {QChar::Symbol_Modifier, QT_TRANSLATE_NOOP("QObject", "sign")},
    {QChar::Symbol_Other, QT_TRANSLATE_NOOP("QObject", "sign")},
};

// clang-format on

template <typename Row>
const Row* find(const Row* begin, const Row* end, uint codePoint)
{
    const Row* const found = std::find_if(begin, end, [&](const Row& row) { return row.codePoint == codePoint; });
    return found == end ? nullptr : found;
}

const Character* findCharacter(uint codePoint)
{
    return find(std::begin(characters), std::end(characters), codePoint);
}

QString textOf(uint codePoint)
{
    return QString::fromUcs4(&codePoint, 1);
}

/// "e with acute accent"; empty where it is no Latin letter with one accent.
QString nameOfAccented(uint codePoint)
{
    const QVector<uint> parts = textOf(codePoint).normalized(QString::NormalizationForm_D).toUcs4();
    const bool isAccented = parts.size() == 2 && QChar::script(parts[0]) == QChar::Script_Latin;
    const Accent* const accent = isAccented ? find(std::begin(accents), std::end(accents), parts[1]) : nullptr;
    return accent ? QObject::tr(accent->name).arg(textOf(parts[0])) : QString();
}

QString nameOfLetter(uint codePoint)
{
    const QChar::Script script = QChar::script(codePoint);
    for (const Script& candidate : scripts) {
        if (candidate.script == script)
            return QObject::tr(candidate.letter);
    }
    return QObject::tr("letter of a foreign script");
}

bool isPicture(uint codePoint)
{
    return (codePoint >= 0x1F000 && codePoint <= 0x1FAFF) || (codePoint >= 0x2600 && codePoint <= 0x27BF);
}

QString nameOfKind(uint codePoint)
{
    const QChar::Category category = QChar::category(codePoint);
    for (const Kind& candidate : kinds) {
        if (candidate.category == category)
            return QObject::tr(candidate.name);
    }
    return nameOfLetter(codePoint);
}

QString nameAlone(uint codePoint)
{
    const Character* const known = findCharacter(codePoint);
    if (known && known->name)
        return QObject::tr(known->name);
    if (isPicture(codePoint))
        return QObject::tr("picture (emoji)");
    const QString accented = nameOfAccented(codePoint);
    return accented.isEmpty() ? nameOfKind(codePoint) : accented;
}

/// The characters that one falls apart into, each with a spelling of its own where it has one, without accents.
QString simplified(uint codePoint)
{
    QString spelling;
    for (const uint part : textOf(codePoint).normalized(QString::NormalizationForm_KD).toUcs4()) {
        const Character* const known = findCharacter(part);
        if (known && !known->spelling.isEmpty())
            spelling += known->spelling;
        else if (!QChar::isMark(part))
            spelling += textOf(part);
    }
    return spelling;
}

} // namespace

QString nameOf(uint codePoint)
{
    return QStringLiteral("%1 (U+%2)")
        .arg(nameAlone(codePoint), QString::number(codePoint, 16).toUpper().rightJustified(4, u'0'));
}

QString plainSpelling(uint codePoint, const std::function<bool(uint)>& canPrint)
{
    const Character* const known = findCharacter(codePoint);
    const QString spelling = known && !known->spelling.isEmpty() ? QString(known->spelling) : simplified(codePoint);
    const QVector<uint> parts = spelling.toUcs4();
    const bool prints = parts != textOf(codePoint).toUcs4() && std::all_of(parts.begin(), parts.end(), canPrint);
    // An accent that stands by itself leaves a blank at most: no spelling of it.
    const bool isSeen = !spelling.trimmed().isEmpty() || QChar::isSpace(codePoint);
    return prints && isSeen ? spelling : QString();
}

} // namespace toolkit
