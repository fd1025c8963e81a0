#include "paper/comparison.h"
#include "rolls.h"
#include "sheets.h"
#include "support/comparedtimes.h"
#include "support/processortime.h"
#include "support/registerscript.h"

#include <QtTest>

#include <algorithm>
#include <random>

using paper::AlignedRows;
using paper::alignedRows;
using paper::readRoll;
using paper::Row;
using paper::Rows;

/// What is not the same on two papers.
class TestPaperComparison : public QObject {
    Q_OBJECT

private slots:
    void likeness_data();
    void likeness();
    void alignments_data();
    void alignments();
    void changedParts_data();
    void changedParts();
    void changesOfOnePaper();
    void sameRowsAreKept();
    void timeGrowsWithTheRows_data();
    void timeGrowsWithTheRows();
};

namespace {

/// "=a|a", "-a", "+b", "~a|b" for each pair of rows: the same, only left, only right, changed.
QString shown(const AlignedRows& rows)
{
    QStringList pairs;
    for (int i = 0; i < rows.left.size(); ++i) {
        const Row& left = rows.left.at(i);
        const Row& right = rows.right.at(i);
        const bool onLeft = !left.marked.isEmpty();
        const bool onRight = !right.marked.isEmpty();
        pairs += onLeft && onRight ? '~' + left.text + '|' + right.text
            : onLeft               ? '-' + left.text
            : onRight              ? '+' + right.text
                                   : '=' + left.text;
    }
    return pairs.join(' ');
}

/// At most twenty of four letters.
QStringList randomLetters(std::mt19937& random)
{
    QStringList letters;
    for (auto i = random() % 20; i > 0; --i)
        letters += QString(QLatin1Char("abcd"[random() % 4]));
    return letters;
}

/// How many of both can be kept in their order: the slow way, which is sure.
int longestCommon(const QStringList& left, const QStringList& right)
{
    QVector<QVector<int>> longest(left.size() + 1, QVector<int>(right.size() + 1));
    for (int i = 1; i <= left.size(); ++i) {
        for (int k = 1; k <= right.size(); ++k)
            longest[i][k] = left.at(i - 1) == right.at(k - 1) ? longest[i - 1][k - 1] + 1
                                                              : std::max(longest[i - 1][k], longest[i][k - 1]);
    }
    return longest[left.size()][right.size()];
}

} // namespace

void TestPaperComparison::likeness_data()
{
    QTest::addColumn<QByteArray>("left");
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<bool>("isAlike");
    const auto row = [](const char* name, const QByteArray& left, const QByteArray& right, bool isAlike) {
        QTest::newRow(name) << left << right << isAlike;
    };
    const QByteArray x32(32, 'x');
    row("the same script", document({"a"}), document({"a"}), true);
    row("nothing and nothing", "", "", true);
    row("other line ends", document({"a"}), document({"a"}).replace("\r\n", "\n"), true);
    row("what is no command leaves no trace", document({"a"}), document({"a"}) + "Hello\r\n", true);
    row("blanks at the end leave none", document({"a", ""}), document({"a  ", " "}), true);
    row("a control character looks like its picture", document({"\t"}), document({"\xE2\x90\x89"}), true);
    row("another text", document({"a"}), document({"b"}), false);
    row("another case", document({"a"}), document({"A"}), false);
    row("a blank at the beginning", document({"a"}), document({" a"}), false);
    row("a line more", document({"a"}), document({"a", ""}), false);
    row("a document more", document({"a"}), document({"a"}) + document({}), false);
    row("two documents in place of one", document({"a", "b"}), document({"a"}) + document({"b"}), false);
    row("more blanks past the edge", document({x32 + " "}), document({x32 + "  "}), false);
    row("blanks past the edge are marked", document({x32}), document({x32 + "  "}), false);
    row("a text behind a quote is marked", document({"ab"}), document({"a'b"}), false);
    const QByteArray eightMarks = QByteArray("e") + QByteArray("\xCC\x81").repeated(8);
    row("marks that have no room on a character before what is past the edge", document({eightMarks + x32}),
        document({eightMarks + "\xCC\x81" + x32}), true);
    row("what takes more bytes behind a quote and is drawn alike", document({"'\xE2\x80\x8B"}),
        document({"'\xF3\xA0\x80\x81"}), true);
    row("another price", fiscalReceipt({"VEND REP=1,QTY=1,PREZZO=1,DES='a'"}),
        fiscalReceipt({"VEND REP=1,QTY=1,PREZZO=2,DES='a'"}), false);
    row("another way to write a price", fiscalReceipt({"VEND REP=1,QTY=1,PREZZO=1,DES='a'"}),
        fiscalReceipt({"VEND REP=1,QTY=1,PREZZO=1.00,DES='a'"}), true);
}

void TestPaperComparison::likeness()
{
    QFETCH(QByteArray, left);
    QFETCH(QByteArray, right);
    QTEST(paper::looksAlike(readRoll(left), readRoll(right)), "isAlike");
    QTEST(paper::looksAlike(readRoll(right), readRoll(left)), "isAlike");
}

void TestPaperComparison::alignments_data()
{
    QTest::addColumn<QStringList>("left");
    QTest::addColumn<QStringList>("right");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QStringList& left, const QStringList& right, const char* expected) {
        QTest::newRow(name) << left << right << expected;
    };
    row("nothing", {}, {}, "");
    row("the same", {"a", "b"}, {"a", "b"}, "=a =b");
    row("all new", {}, {"a", "b"}, "+a +b");
    row("all gone", {"a", "b"}, {}, "-a -b");
    row("a row added", {"a", "c"}, {"a", "b", "c"}, "=a +b =c");
    row("a row gone", {"a", "b", "c"}, {"a", "c"}, "=a -b =c");
    row("a row changed", {"a", "b", "c"}, {"a", "x", "c"}, "=a ~b|x =c");
    row("two changed and one added", {"a", "b", "c", "d"}, {"a", "x", "y", "z", "d"}, "=a ~b|x ~c|y +z =d");
    row("one row moved", {"a", "b", "c", "d"}, {"b", "c", "d", "a"}, "-a =b =c =d +a");
    row("changes apart", {"a", "b", "c", "d", "e"}, {"a", "x", "c", "y", "e"}, "=a ~b|x =c ~d|y =e");
    row("nothing in common", {"a", "b"}, {"x"}, "~a|x -b");
    row("an empty row gone", {"a", "", "b"}, {"a", "b"}, "=a - =b");
    row("repeated rows", {"a", "a", "a"}, {"a", "a"}, "=a =a -a");
    row("one added before two that changed", {"a", "fish1", "soup1", "d"}, {"a", "x", "fish2", "soup2", "d"},
        "=a +x ~fish1|fish2 ~soup1|soup2 =d");
    row("one gone before two that changed", {"a", "x", "fish1", "soup1"}, {"a", "fish2", "soup2"},
        "=a -x ~fish1|fish2 ~soup1|soup2");
    row("one added and one gone around two that changed", {"fish1", "soup1", "y"}, {"x", "fish2", "soup2"},
        "+x ~fish1|fish2 ~soup1|soup2 -y");
    row("a row that moved to the right and one before it", {"fish"}, {"x", "    fish"}, "+x ~fish|    fish");
    row("blanks around are no likeness", {"      fish      "}, {"x", "      soup      "},
        "~      fish      |x +      soup      ");
    row("less than half in common is no likeness", {"fish12"}, {"x", "fi3456"}, "~fish12|x +fi3456");
    row("half in common is one", {"fish12"}, {"x", "fis456"}, "+x ~fish12|fis456");
    row("one character more in common is better than one more pair", {"f1", "x"}, {"y", "f2"}, "+y ~f1|f2 -x");
    row("of rows that changed places those that leave more pairs", {"soup1", "fish1"}, {"fish2", "soup2", "x"},
        "+fish2 ~soup1|soup2 ~fish1|x");
}

void TestPaperComparison::alignments()
{
    QFETCH(QStringList, left);
    QFETCH(QStringList, right);
    const AlignedRows rows = alignedRows(rowsOf(left), rowsOf(right));
    QCOMPARE(rows.left.size(), rows.right.size());
    QTEST(shown(rows), "expected");
}

void TestPaperComparison::changedParts_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("expected"); // begin and length on both sides
    const auto row = [](const char* name, const QString& left, const QString& right, const char* expected) {
        QTest::newRow(name) << left << right << expected;
    };
    const QString acute(QChar(0x0301));
    const QString grave(QChar(0x0300));
    row("in the middle", "abcd", "axxd", "1+2 1+2");
    row("at the beginning", "abc", "xbc", "0+1 0+1");
    row("at the end", "abc", "abx", "2+1 2+1");
    row("all of it", "abc", "xyz", "0+3 0+3");
    row("something added", "ad", "abcd", "1+0 1+2");
    row("something gone from the end", "abc", "ab", "2+1 2+0");
    row("repeated letters", "aa", "aaa", "2+0 2+1");
    row("another mark on a letter", "xe" + acute + 'y', "xe" + grave + 'y', "1+2 1+2");
    row("a mark more", "xey", "xe" + acute + 'y', "1+1 1+2");
    row("a mark that both end with", 'a' + acute, 'b' + acute, "0+2 0+2");
    row("characters of a pair that share a half", QString::fromUtf8("\xF0\x9F\x8D\x95"),
        QString::fromUtf8("\xF0\x9F\x8D\x96"), "0+2 0+2");
}

void TestPaperComparison::changedParts()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    const AlignedRows rows = alignedRows({Row {left}}, {Row {right}});
    const auto part = [](const Row& row) {
        return QString("%1+%2").arg(row.marked.value(0).begin).arg(row.marked.value(0).length);
    };
    QTEST(part(rows.left.first()) + ' ' + part(rows.right.first()), "expected");
}

void TestPaperComparison::changesOfOnePaper()
{
    const Rows rows = paper::withChanges(rowsOf({"a", "new", "cx"}), rowsOf({"a", "b gone", "c"}));
    QCOMPARE(textsOf(rows), QStringList({"a", "new", "cx"}));
    QVERIFY(rows.at(0).marked.isEmpty());
    QCOMPARE(rows.at(1).marked.size(), 1);
    QCOMPARE(rows.at(2).marked.first().begin, 1);
    QVERIFY(paper::withChanges(rowsOf({"a"}), rowsOf({"a", "gone"})).first().marked.isEmpty());
    // One more at the beginning is no change of those behind it.
    const Rows more = paper::withChanges(rowsOf({"new", "fish 2", "soup 2"}), rowsOf({"fish 1", "soup 1"}));
    QCOMPARE(more.at(0).marked.first().length, 3);
    QCOMPARE(more.at(1).marked.first().begin, 5);
    QCOMPARE(more.at(2).marked.first().begin, 5);
    // Marks that stood there stay.
    const Row marked {"it's", {{paper::Mark::BehindQuote, 2, 2}}, {}};
    QCOMPARE(paper::withChanges({marked}, rowsOf({"x"})).first().marked.size(), 2);
    QCOMPARE(paper::withChanges({marked}, {marked}).first().marked.size(), 1);
}

/// Whatever was changed at random: both papers are whole and in their order, and as many rows are kept as can be.
void TestPaperComparison::sameRowsAreKept()
{
    std::mt19937 random(1);
    for (int round = 0; round < 500; ++round) {
        const QStringList left = randomLetters(random);
        const QStringList right = randomLetters(random);
        const AlignedRows rows = alignedRows(rowsOf(left), rowsOf(right));
        QStringList foundLeft = textsOf(rows.left);
        QStringList foundRight = textsOf(rows.right);
        int same = 0;
        for (int i = 0; i < rows.left.size(); ++i) {
            const bool isSame = rows.left.at(i).marked.isEmpty() && rows.right.at(i).marked.isEmpty();
            same += isSame ? 1 : 0;
            QVERIFY(!isSame || rows.left.at(i).text == rows.right.at(i).text);
        }
        foundLeft.removeAll(QString());
        foundRight.removeAll(QString());
        QCOMPARE(foundLeft, left);
        QCOMPARE(foundRight, right);
        QCOMPARE(same, longestCommon(left, right));
    }
}

void TestPaperComparison::timeGrowsWithTheRows_data()
{
    QTest::addColumn<QString>("beginning");
    QTest::addColumn<int>("count");
    QTest::newRow("long rows") << QString(20000, 'x') << 100;
    QTest::newRow("many rows, none of them in both") << QString() << 25000;
}

void TestPaperComparison::timeGrowsWithTheRows()
{
    QFETCH(QString, beginning);
    QFETCH(int, count);
    const auto milliseconds = [&](int rows) {
        QStringList left;
        QStringList right;
        for (int i = 0; i < rows; ++i) {
            left += beginning + QString::number(i);
            right += beginning + QString::number(2 * rows - i);
        }
        const ProcessorTime time;
        const AlignedRows aligned = alignedRows(rowsOf(left), rowsOf(right));
        return aligned.left.size() == rows ? time.milliseconds() : INT_MAX; // pairs in their order
    };
    const ComparedTimes times = growth(milliseconds, count);
    QVERIFY2(times.hold(), times.text());
}

QTEST_APPLESS_MAIN(TestPaperComparison)

#include "tst_papercomparison.moc"
