#include "settings/filereview.h"

#include "support/programrun.h"

#include <QtTest>

#include <random>

using settings::FileRemark;
using settings::FileReview;
using settings::reviewOf;

/// What is to be said of a settings file, and at which place.
class TestFileReview : public QObject {
    Q_OBJECT

private slots:
    void dropped_data();
    void dropped();
    void droppedFromXml_data();
    void droppedFromXml();
    void longKeysAreCut();
    void topLevelGroups();
    void xmlThatIsHidden_data();
    void xmlThatIsHidden();
    void xmlThatBreaksOff();
    void examplesHaveNothing();
    void missingSemicolonInTheExample();
    void hostileFiles_data();
    void hostileFiles();
    void randomBytes();
};

namespace {

/// Such as "2:3 a = 1": line, column and text of each remark of that kind.
QStringList remarks(const FileReview& review)
{
    QStringList texts;
    for (const FileRemark& remark : review.dropped)
        texts += QString("%1:%2 %3")
                     .arg(QString::number(remark.place.line), QString::number(remark.place.column), remark.text);
    return texts;
}

void addColumns()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");
}

void row(const char* name, const QByteArray& bytes, const QStringList& expected)
{
    QTest::newRow(name) << bytes << expected;
}

void checkRemarks(const char* format)
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    QCOMPARE(remarks(reviewOf(bytes, format)), expected);
}

} // namespace

void TestFileReview::dropped_data()
{
    addColumns();

    row("nothing of a good file", "a = 1; zelmora: { a = \"1\"; b = 2; doc: { c = \" 3 \"; }; };", {});
    row("nothing of an empty file", " \n", {});
    row("no byte-order mark and no white space", "\xEF\xBB\xBF zelmora \n: \n{ a = 1;\n}\n;\n\n", {});
    row("text between ':' and '{'", "zelmora: of our a = 1;\n till { a = 1; };", {"1:10 of our a = 1;\n till"});
    row("text between '}' and ';'", "zelmora: { doc: { a = 1; } end = 2 ; }\n # x\n;", {"1:28 end = 2", "2:2 # x"});
    row("text before '}'", "zelmora: { a = 1;\n # the end\n};", {"2:2 # the end"});
    row("text at the end of the file", "zelmora: { a = 1; };\n# caff\xE8", {"2:1 # caffè"});
    row("text at the end, in a group", "zelmora: { a = 1; nam", {"1:19 nam"});
    row("a remark that becomes part of a name is not dropped", "zelmora: { # x\n a = 1; };", {});
    row("text after a '}' too many", "zelmora: { a = 1; }; } b = 2;\n c: { d = 3; };",
        {"1:24 b = 2", "2:2 c: { d = 3; };"});
    row("text before and after a '}' too many", "x } ; y", {"1:1 x", "1:7 y"});
    row("white space after a '}' too many", "zelmora: { a = 1; }; };\n \n", {});
    row("a ':' without a '{'", "zelmora: { a = 1;\n doc: b = 2; };", {"2:2 doc", "2:7 b = 2; };"});
    row("an empty group", "zelmora: { a = 1;\nnone: { }; };", {"2:1 none"});
    row("an empty top-level group", "none: { }; zelmora: { a = 1; };", {"1:1 none"});
    row("an empty group without a name", "zelmora: { a = 1; : { }; };", {});
    row("groups that hold empty groups alone", "zelmora: { a = 1; x: { y: { z: { }; }; }; };",
        {"1:19 x", "1:24 y", "1:29 z"});
    row("an empty group beside a setting", "zelmora: { x: { y: { }; a = 1; }; };", {"1:17 y"});
    row("a group that begins at the end of the file", "zelmora: { a = 1; doc: {", {"1:19 doc"});
    row("the earlier values of a setting", "zelmora: { a = 1; b = 2;\n a = 3; a = 4; }; b = 5; b = 5;",
        {"1:12 zelmora.a = 1", "2:2 zelmora.a = 3", "2:19 b = 5"});
    row("the same name in other groups", "a = 1; zelmora: { a = 1; doc: { a = 1; }; doc: { a = 1; }; };", {});
    row("quotes in the middle", "zelmora: { a = 7\" paper; };", {"1:16 7\" paper"});
    row("two quotes in the middle", "zelmora: { a = 7\" x 5\" paper; };", {"1:16 7\" x 5\" paper"});
    row("quotes inside quotes", "zelmora: { a = \"7\" x 5\"\"; };", {"1:16 \"7\" x 5\"\""});
    row("a quote at one end", "zelmora: { a = \"7; b = 5\"; c = \"; };", {"1:16 \"7", "1:24 5\"", "1:32 \""});
    row("quotes around nothing", "zelmora: { a = \"\"; b = \" \"; };", {});
    row("a semicolon in quotes, which leaves a quote on each side", "zelmora: { a = \"1;2\"; b = 3; };", {"1:16 \"1"});
    row("groups nested too deep", QByteArray("g: { a = 1;\n").repeated(1000) + "deep: { b = 2; };",
        {"1001:1 deep", "1001:9 b = 2; };"});

    row("the second group at top level", "zelmora: { a = 1; };\nother: { b = 2; };", {"2:1 other"});
    row("a second group of the same name", "zelmora: { a = 1; };\nzelmora: { b = 2; };", {"2:1 zelmora"});
    row("a second group without a name", "zelmora: { a = 1; };\n: { b = 2; };", {"2:1 :"});
    row("all groups but the first that holds something",
        "x: { y: { }; }; zelmora: { a = 1; }; other: { b: { c = 1; }; };", {"1:1 x", "1:6 y", "1:38 other"});
    row("a first group that holds a group which holds one, all of them empty",
        "x: { y: { z: { }; }; }; zelmora: { a = 1; };", {"1:1 x", "1:6 y", "1:11 z", "1:25 zelmora"});
    row("an empty group within the second group", "zelmora: { a = 1; }; other: { b = 2; c: { }; };",
        {"1:22 other", "1:38 c"});

    const QByteArray name91(91, 'g'); // with "zelmora." and a dot 100 characters
    row("a key of 100 characters before the setting's name", "zelmora: { " + name91 + ": { a = 1; a = 2; }; };",
        {"1:107 zelmora." + name91 + ".a = 1"});
    row("a key of 101 characters before the setting's name, which is cut",
        "zelmora: { g" + name91 + ": { a = 1; a = 2; }; };", {"1:108 zelmora....a = 1"});
}

void TestFileReview::dropped()
{
    checkRemarks("cfg");
}

void TestFileReview::droppedFromXml_data()
{
    addColumns();

    row("nothing of a good file", "<zelmora a='7&quot;' b=''>\n <doc xmlns='u' c=' 3 '/>\n</zelmora>\n", {});
    row("nothing of an empty file", "", {});
    row("text and comments", "<zelmora a='1'>one<!-- two --><doc b='2'>\n three\n</doc></zelmora><!--four-->",
        {"1:16 one", "1:19 two", "2:2 three", "3:17 four"});
    row("instructions and character data", "<zelmora a='1'><?one two?><![CDATA[ three ]]></zelmora>",
        {"1:16 <?one two?>", "1:27 three"});
    row("groups without settings", "<zelmora a='1'><x><y/></x><doc><row b='2'/>\n<z/></doc></zelmora>",
        {"1:16 x", "1:19 y", "2:1 z"});
    row("a document type declaration", "<!DOCTYPE zelmora><zelmora a='1'/>", {"1:1 DOCTYPE zelmora"});
    row("the earlier values of an attribute", "<zelmora a='1' b='2'\n a='3'><doc a='4' a='4'/></zelmora>",
        {"1:10 zelmora.a = 1", "2:13 zelmora.doc.a = 4"});
    row("an entity that nobody declared", "<zelmora a='1'>\n&x;<doc b='&y;'/></zelmora>", {"2:1 &x;", "2:4 &y;"});
    row("an empty comment", "<zelmora a='1'><!----></zelmora>", {});
}

void TestFileReview::droppedFromXml()
{
    checkRemarks("xml");
}

void TestFileReview::longKeysAreCut()
{
    const QByteArray name(60, 'g');
    const QString longest = QString(60, 'g') + '.';
    const QByteArray text =
        name + ": { a = 1; a = 2; " + name + ": { b = 1; b = 2; " + name + ": { c = 1; c = 2; };};};";
    QCOMPARE(
        remarks(reviewOf(text, "cfg")),
        (QStringList {"1:65 " + longest + "a = 1", "1:143 " + longest + "...b = 1", "1:221 " + longest + "...c = 1"}));
}

void TestFileReview::topLevelGroups()
{
    QCOMPARE(reviewOf("none: { }; zelmora: { doc: { a = 1; }; }; other: { b = 2; };", "cfg").topLevelGroups,
             (QStringList {"none", "zelmora", "other"}));
    QCOMPARE(reviewOf("a = 1;", "cfg").topLevelGroups, QStringList());
    QCOMPARE(reviewOf("zelmora: { a = 1; }; } other: { b = 2; };", "cfg").topLevelGroups, QStringList("zelmora"));
    QCOMPARE(reviewOf("<zelmora><doc a='1'/></zelmora>", "xml").topLevelGroups, QStringList("zelmora"));
}

void TestFileReview::xmlThatIsHidden_data()
{
    addColumns();
    row("by a declaration", "<?xml version='1.0'?>\n<zelmora a='1'/>", {"1:1 <?xml version='1.0'?>", "2:1 zelmora"});
    row("by a comment", "<!-- one --><zelmora a='1'><doc b='2'/></zelmora><!-- two -->",
        {"1:1 one", "1:13 zelmora", "1:50 two"});
    row("by an empty comment", "<!----><zelmora a='1'/>", {"1:8 zelmora"});
}

void TestFileReview::xmlThatIsHidden()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    const FileReview review = reviewOf(bytes, "xml");
    QVERIFY(review.isHiddenByItsBeginning);
    QCOMPARE(remarks(review), expected);

    QVERIFY(!reviewOf("<zelmora a='1'/><!-- after -->", "xml").isHiddenByItsBeginning);
}

void TestFileReview::xmlThatBreaksOff()
{
    QVERIFY(reviewOf("<zelmora a='1'/>", "xml").isWellFormed);
    QVERIFY(!reviewOf("<zelmora a='1'>", "xml").isWellFormed);
    QVERIFY(!reviewOf("zelmora: { a = 1; };", "xml").isWellFormed);
    QVERIFY(reviewOf("<zelmora a='1'>", "cfg").isWellFormed);
}

void TestFileReview::examplesHaveNothing()
{
    const QByteArray bytes = fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf");
    QVERIFY(bytes.size() > 1000);
    QCOMPARE(reviewOf(bytes, "cfg").dropped.size(), 0);
}

// A forgotten ';' after the brace of a group: the next one is skipped up to its first ';', and what then reads as the
// end of that group ends all of them.
void TestFileReview::missingSemicolonInTheExample()
{
    const QByteArray text = "zelmora: {\n"
                            "    doc: {\n"
                            "        a = 1;\n"
                            "    }\n"
                            "    receiptdoc: {\n"
                            "        b = 2;\n"
                            "        c = 3;\n"
                            "    };\n"
                            "    solddoc: {\n"
                            "        d = 4;\n"
                            "    };\n"
                            "};\n";
    QCOMPARE(remarks(reviewOf(text, "cfg")), (QStringList {"5:5 receiptdoc: {\n        b = 2", "9:5 solddoc"}));
}

void TestFileReview::hostileFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("remarks");

    QTest::newRow("a value of empty lines") << "zelmora: { a = x" + QByteArray(3000000, '\n') + "; };"
                                            << "cfg" << 0;
    QTest::newRow("a value of words") << "zelmora: { a = x" + QByteArray("\nword").repeated(500000) + "; };"
                                      << "cfg" << 0;
    QTest::newRow("stray words in one line") << QByteArray("g: x {}; ").repeated(200000) << "cfg" << 400000;
    QTest::newRow("a setting again and again") << "zelmora: {" + QByteArray("a=1;").repeated(300000) + "};"
                                               << "cfg" << 299999;
    QTest::newRow("a long group name over many settings")
        << "zelmora: { " + QByteArray(20000, 'g') + ": {" + QByteArray("a b=;").repeated(100000) + "}; };"
        << "cfg" << 99999;
    QTest::newRow("a long name again and again")
        << "zelmora: {" + QByteArray(QByteArray(1000, 'a') + "=1;").repeated(3000) + "};"
        << "cfg" << 2999;
    QTest::newRow("long names inside each other")
        << QByteArray(QByteArray(10000, 'g') + ":{ a=1; a=2; ").repeated(999) << "cfg" << 999;
    QTest::newRow("an attribute again and again") << "<zelmora" + QByteArray(" a='1'").repeated(100000) + "/>"
                                                  << "xml" << 99999;
    QTest::newRow("a comment again and again")
        << "<zelmora a='1'>" + QByteArray("<!--x-->").repeated(200000) + "</zelmora>"
        << "xml" << 200000;
}

// In proportion to their size: what is squared would take hours here.
void TestFileReview::hostileFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, format);
    QFETCH(int, remarks);
    QCOMPARE(reviewOf(bytes, format).dropped.size(), remarks);
}

// Under the sanitizers this is more than a search for crashes.
void TestFileReview::randomBytes()
{
    std::mt19937 random(22);
    const auto below = [&random](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    const QByteArray common = ":::{{{}};;;===\" .\nga\xC3\xA8\xE8</>!-'&x;";
    for (int file = 0; file < 2000; ++file) {
        QByteArray bytes;
        for (int size = below(200); size > 0; --size)
            bytes += common.at(below(common.size()));
        int lastLine = 1;
        for (const FileRemark& remark : reviewOf(bytes, "cfg").dropped) {
            QVERIFY(remark.place.line >= lastLine);
            lastLine = remark.place.line;
        }
        QVERIFY(lastLine <= bytes.count('\n') + 1);
        reviewOf("<g>" + bytes + "</g>", "xml");
    }
}

QTEST_GUILESS_MAIN(TestFileReview)
#include "tst_filereview.moc"
