#include "config/config.h"

#include "support/capture.h"
#include "support/lookup.h"
#include "support/processstate.h"
#include "support/settingstree.h"

#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QtTest>

#include <random>

using libconfig::Config;

/// The settings file: what the two readers make of good and bad files, and what a key finds.
class TestConfig : public QObject {
    Q_OBJECT

private slots:
    void brace_data();
    void brace();
    void slip_data();
    void slip();
    void oddName_data();
    void oddName();
    void emptyName_data();
    void emptyName();
    void writtenFormIsReadBack();

    void key_data();
    void key();
    void lookupStep();

    void encoding_data();
    void encoding();
    void longText_data();
    void longText();
    void nesting_data();
    void nesting();
    void groupsSideBySideAreNotNested();
    void everyPrefixIsRead();
    void randomBytesAreRead();

    void nothingLoaded();
    void readingAgainReplaces_data();
    void readingAgainReplaces();
    void readingXmlKeepsNoBraces();
    void unknownFormat_data();
    void unknownFormat();

    void fileThatCannotBeOpened_data();
    void fileThatCannotBeOpened();
    void missingXmlFileIsNotReported();
    void folderReadsAsEmpty_data();
    void folderReadsAsEmpty();
    void path_data();
    void path();
    void stream();
};

namespace {

constexpr auto row = addLookup;

const char goodFile[] = "zelmora: { a = good; };";

/// Writes a file whose name is the bytes @p path, whatever the encoding of file names.
void writeFile(const QByteArray& path, const QByteArray& bytes)
{
    std::FILE* const file = std::fopen(path.constData(), "wb");
    const auto size = static_cast<std::size_t>(bytes.size());
    if (!file || std::fwrite(bytes.constData(), 1, size, file) != size || std::fclose(file) != 0)
        qFatal("%s can't be written.", path.constData());
}

QByteArray notFound(const QByteArray& path)
{
    return "Error in the method FileReader::open( " + path + " ): File Not Found\n";
}

/// @p count groups inside each other, each with the setting "a" before and "b" after the next group.
QByteArray nestedGroups(int count)
{
    return QByteArray("g: { a = 1; ").repeated(count) + QByteArray("b = 2; }; ").repeated(count);
}

QString nestedKey(int depth, const char* name)
{
    return QString("g.").repeated(depth) + name;
}

} // namespace

void TestConfig::brace_data()
{
    addLookupColumns();

    row("an empty file", "", "zelmora.a", "");
    row("white space alone", " \t\r\n\n ", "zelmora.a", "");
    row("a setting of the top-level group", "zelmora: { a = 1; };", "zelmora.a", "1");
    row("a setting of a group inside it", "zelmora: { doc: { a = 1; }; };", "zelmora.doc.a", "1");
    row("a setting four groups deep", "zelmora: { a: { b: { c: { d = 1; }; }; }; };", "zelmora.a.b.c.d", "1");
    row("a setting after a group", "zelmora: { doc: { a = 1; }; b = 2; };", "zelmora.b", "2");
    row("a group after a setting", "zelmora: { b = 2; doc: { a = 1; }; };", "zelmora.doc.a", "1");
    row("a group after a group", "zelmora: { doc: { a = 1; }; sub: { a = 2; }; };", "zelmora.sub.a", "2");
    row("a setting and a group of one name: the setting", "zelmora: { a = 1; a: { a = 2; }; };", "zelmora.a", "1");
    row("a setting and a group of one name: the group", "zelmora: { a = 1; a: { a = 2; }; };", "zelmora.a.a", "2");
    row("no white space at all", "zelmora:{doc:{a=1;};b=2;};", "zelmora.b", "2");
    row("white space around everything", "\r\n zelmora \t:\r\n\r\n{\n doc\n:\n{\n\ta\n=\n1\n;\n}\n;\n}\n;\n",
        "zelmora.doc.a", "1");

    row("outer white space of a value is lost", "zelmora: { a = \t one two \r\n ; };", "zelmora.a", "one two");
    row("inner white space of a value stays", "zelmora: { a = one \n\t two; };", "zelmora.a", "one \n\t two");
    row("with quotes", "zelmora: { a = \"DEBUG\"; };", "zelmora.a", "DEBUG");
    row("without quotes", "zelmora: { a = DEBUG; };", "zelmora.a", "DEBUG");
    row("blanks inside quotes stay", "zelmora: { a = \" one  two \"; };", "zelmora.a", " one  two ");
    row("blanks outside quotes are lost", "zelmora: { a =   \" x \"  ; };", "zelmora.a", " x ");
    row("a quote in the middle is dropped", "zelmora: { a = 7\" paper; };", "zelmora.a", "7 paper");
    row("all quotes are dropped", "zelmora: { a = \"\"x\" \"y\"\"; };", "zelmora.a", "x y");
    row("quotes around nothing", "zelmora: { a = \"\"; };", "zelmora.a", "");
    row("nothing for a value", "zelmora: { a =; b = 2; };", "zelmora.a", "");
    row("a setting after nothing for a value", "zelmora: { a =; b = 2; };", "zelmora.b", "2");
    row("apostrophes and backslashes stay", "zelmora: { a = '\\x\\\"'; };", "zelmora.a", "'\\x\\'");
    row("a time keeps its colon", "zelmora: { a = 12:30; };", "zelmora.a", "12:30");
    row("equals signs in a value", "zelmora: { a = x=y==z; };", "zelmora.a", "x=y==z");
    row("braces in a value", "zelmora: { a = {x: { y }}; b = 2; };", "zelmora.a", "{x: { y }}");
    row("a setting after braces in a value", "zelmora: { a = {x: { y }}; b = 2; };", "zelmora.b", "2");
    row("a semicolon ends the value, quoted or not", "zelmora: { a = \"x;y\"; };", "zelmora.a", "x");

    row("what stands between ':' and '{' is ignored", "zelmora: of = our; a } \"till\" : 2 \n { a = 1; };", "zelmora.a",
        "1");
    row("what stands between '}' and ';' is ignored", "zelmora: { doc: { a = 1; } end: of = { doc } \n; b = 2; };",
        "zelmora.b", "2");

    row("a key again: the later value holds", "zelmora: { a = 1; b = 2; a = 3; };", "zelmora.a", "3");
    row("a key again after a group", "zelmora: { a = 1; doc: { a = 2; }; a = 3; };", "zelmora.a", "3");
    row("a key again, empty", "zelmora: { a = 1; a = ; };", "zelmora.a", "");
    row("a group again: the first answers", "zelmora: { doc: { a = 1; }; doc: { a = 2; }; };", "zelmora.doc.a", "1");
    row("a group again: the second answers for what the first lacks", "zelmora: { doc: { a = 1; }; doc: { b = 2; }; };",
        "zelmora.doc.b", "2");
    row("a group again: the second answers for what is empty in the first",
        "zelmora: { doc: { a = ; }; doc: { a = 2; }; };", "zelmora.doc.a", "2");
    row("a group again: the third answers, other groups between",
        "zelmora: { doc: { a = 1; }; sub: { c = 4; }; doc: { b = 2; }; sub: { d = 5; }; doc: { c = 3; }; };",
        "zelmora.doc.c", "3");
    row("a group again: each is searched to its depth",
        "zelmora: { doc: { row: { a = 1; }; }; doc: { row: { b = 2; }; }; };", "zelmora.doc.row.b", "2");

    row("a top-level setting is not found by its name", "a = 1; zelmora: { b = 2; };", "a", "");
    row("a top-level setting is not found as the group's", "a = 1; zelmora: { b = 2; };", "zelmora.a", "");
    row("a top-level setting does not hide the group", "a = 1; zelmora: { b = 2; };", "zelmora.b", "2");
    row("a second top-level group is not found", "zelmora: { a = 1; }; other: { b = 2; };", "other.b", "");
    row("a second top-level group of the same name is not found", "zelmora: { a = 1; }; zelmora: { b = 2; };",
        "zelmora.b", "");
    row("a first top-level group of another name hides the second", "other: { a = 1; }; zelmora: { b = 2; };",
        "zelmora.b", "");
    row("an empty group leaves no trace", "other: { }; zelmora: { b = 2; };", "zelmora.b", "2");
    row("a group with an empty group inside is there", "other: { doc: { }; }; zelmora: { b = 2; };", "zelmora.b", "");
}

void TestConfig::brace()
{
    checkLookup("cfg");
}

void TestConfig::slip_data()
{
    addLookupColumns();

    const char* text = "zelmora: { # the paper\n a = 1; b = 2; };";
    row("a remark before a setting hides it", text, "zelmora.a", "");
    row("a remark before a setting is part of its name", text, "zelmora.# the paper\n a", "1");
    row("a remark leaves the next setting alone", text, "zelmora.b", "2");
    text = "// our settings\nzelmora: { a = 1; };";
    row("a remark before the top-level group hides it", text, "zelmora.a", "");
    row("a remark before the top-level group is part of its name", text, "// our settings\nzelmora.a", "1");
    text = "zelmora: { # a = 1;\n b = 2; };";
    row("a setting made a remark is not found", text, "zelmora.a", "");
    row("the setting after a setting made a remark is found", text, "zelmora.b", "2");
    text = "zelmora: { # x = 5\n a = 1; b = 2; };";
    row("a remark with '=' swallows the next setting", text, "zelmora.a", "");
    row("a remark with '=' ends at the next ';'", text, "zelmora.b", "2");
    text = "zelmora: { # note: wide\n a = 1; doc: { b = 2; }; };";
    row("a remark with ':' swallows all to the next '{'", text, "zelmora.a", "");
    row("a remark with ':' takes the place of the next group's name", text, "zelmora.doc.b", "");
    row("a remark with ':' begins a group", text, "zelmora.# note.b", "2");
    text = "zelmora: { a = 1; # end }\n b = 2; c = 3; };";
    row("a remark with '}' keeps what was before", text, "zelmora.a", "1");
    row("a remark with '}' ends the group", text, "zelmora.c", "");
    row("a remark at the end of a group does no harm", "zelmora: { doc: { a = 1; # end\n }; b = 2; };", "zelmora.b",
        "2");
    row("a remark at the end of the file does no harm", "zelmora: { a = 1; }; # end", "zelmora.a", "1");

    text = "zelmora: { a = 1;; b = 2; c = 3; };";
    row("a stray ';' hides the next setting", text, "zelmora.b", "");
    row("a stray ';' is part of the next name", text, "zelmora.; b", "2");
    row("a stray ';' leaves the setting after that alone", text, "zelmora.c", "3");
    row("a stray ';' at top level hides the group", "; zelmora: { a = 1; };", "zelmora.a", "");
    row("a name without a value hides the next setting", "zelmora: { a; b = 2; };", "zelmora.b", "");

    text = "zelmora: { a = 1 b = 2; c = 3; };";
    row("no ';' after a value: it runs on", text, "zelmora.a", "1 b = 2");
    row("no ';' after a value: the next setting is swallowed", text, "zelmora.b", "");
    row("no ';' after a value: the setting after that is found", text, "zelmora.c", "3");
    text = "zelmora: { doc: { a = 1 }; b = 2; };";
    row("no ';' after a group's last value: it takes the brace", text, "zelmora.doc.a", "1 }");
    row("no ';' after a group's last value: the group goes on", text, "zelmora.doc.b", "2");
    text = "zelmora: { doc: { a = 1; } sub: { b = 2; c = 3; }; d = 4; };";
    row("no ';' after '}': the group itself is whole", text, "zelmora.doc.a", "1");
    row("no ';' after '}': the next group loses its first setting", text, "zelmora.sub.b", "");
    row("no ';' after '}': the next group's others fall to the group around", text, "zelmora.c", "3");
    row("no ';' after '}': the next '}' closes the group around", text, "zelmora.d", "");

    text = "zelmora: { doc { a = 1; b = 2; }; c = 3; };";
    row("no ':' before '{': no group begins", text, "zelmora.doc.a", "");
    row("no ':' before '{': the words are part of the next name", text, "zelmora.doc { a", "1");
    row("no ':' before '{': the settings fall to the group around", text, "zelmora.b", "2");
    row("no ':' before '{': the '}' closes the group around", text, "zelmora.c", "");
    row("no '{' in the rest of the file", "zelmora: a = 1; };", "zelmora.a", "");

    row("the file ends in a group", "zelmora: { doc: { a = 1;", "zelmora.doc.a", "1");
    row("the file ends in a value", "zelmora: { a = 1 2 ", "zelmora.a", "1 2");
    row("the file ends in a quoted value", "zelmora: { a = \"1 2 ", "zelmora.a", "1 2");
    row("the file ends after '='", "zelmora: { a = 1; b =", "zelmora.a", "1");
    row("the file ends in a name", "zelmora: { a = 1; nam", "zelmora.a", "1");
    row("the file ends after ':'", "zelmora: { a = 1; doc:", "zelmora.a", "1");
    row("the file ends after '}'", "zelmora: { a = 1; }", "zelmora.a", "1");

    row("'}' first of all: the rest is not read", "} zelmora: { a = 1; };", "zelmora.a", "");
    row("'}' and ';' first of all: the rest is not read", "}; zelmora: { a = 1; };", "zelmora.a", "");
    row("'}' after a top-level setting: the rest is not read", "b = 2; }; zelmora: { a = 1; };", "zelmora.a", "");
    row("one '}' too many at the end", "zelmora: { a = 1; }; }; };", "zelmora.a", "1");
    row("one '}' too many in a group closes the group around", "zelmora: { doc: { a = 1; }; }; b = 2; };", "zelmora.b",
        "");
}

void TestConfig::slip()
{
    checkLookup("cfg");
}

void TestConfig::oddName_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("a digit") << "1";
    QTest::newRow("inner blanks") << "receipt  doc";
    QTest::newRow("an inner line break and a tab") << "receipt\n\tdoc";
    QTest::newRow("quotes") << "\"receipt\"";
    QTest::newRow("an opening brace") << "{receipt {";
    QTest::newRow("semicolons") << ";receipt;";
    QTest::newRow("characters that XML takes for its own") << "<a>&b;'c'<!--/>";
    QTest::newRow("slashes and signs") << "/a\\b-_#?*%1@€";
    QTest::newRow("accents") << "menù";
    QTest::newRow("Chinese") << "漢字";
    QTest::newRow("a character beyond the first 65,536") << "🍕";
}

void TestConfig::oddName()
{
    QFETCH(QString, name);

    const auto filled = [&name](QString pattern) { return pattern.replace('@', name); };
    const auto value = [&filled](const char* text, const char* key) {
        return lookup(filled(text).toUtf8(), filled(key));
    };
    QCOMPARE(value("@: { a = 1; };", "@.a"), QString("1"));
    QCOMPARE(value("zelmora: { \n@ \n: { a = 1; }; };", "zelmora.@.a"), QString("1"));
    QCOMPARE(value("zelmora: { \n@ \n= 1; };", "zelmora.@"), QString("1"));
}

void TestConfig::emptyName_data()
{
    addLookupColumns();

    row("of a setting", "zelmora: { = 1; };", "zelmora.", "1");
    row("of a group", "zelmora: { : { a = 1; }; };", "zelmora..a", "1");
    row("of the top-level group", " : { a = 1; };", ".a", "1");
    row("of two groups", ": { : { = 1; b = 2; }; };", "..b", "2");
    row("two points ask for a nameless setting of the top-level group", ": { : { = 1; }; };", "..", "");
    row("a setting's name with a point is never met", "zelmora: { a.b = 1; };", "zelmora.a.b", "");
    row("a group's name with a point is never met", "zelmora: { a.b: { c = 1; }; };", "zelmora.a.b.c", "");
}

void TestConfig::emptyName()
{
    checkLookup("cfg");
}

// As the writer of such files lays them out.
void TestConfig::writtenFormIsReadBack()
{
    const char text[] = "lang = \"it\";\n"
                        "zelmora: \n"
                        "{\n"
                        "    style = \"  bold  \";\n"
                        "    receiptdoc: \n"
                        "    {\n"
                        "        paperWidth = \"32\";\n"
                        "        printDate = \"true\";\n"
                        "        row: \n"
                        "        {\n"
                        "            layout = \"qxdpt\";\n"
                        "        };\n"
                        "\n"
                        "    };\n"
                        "\n"
                        "    invoicedoc: \n"
                        "    {\n"
                        "        paperWidth = \"40\";\n"
                        "    };\n"
                        "\n"
                        "};\n"
                        "\n";
    Config config;
    read(config, text);
    QCOMPARE(config.lookup("zelmora.style"), QString("  bold  "));
    QCOMPARE(config.lookup("zelmora.receiptdoc.paperWidth"), QString("32"));
    QCOMPARE(config.lookup("zelmora.receiptdoc.printDate"), QString("true"));
    QCOMPARE(config.lookup("zelmora.receiptdoc.row.layout"), QString("qxdpt"));
    QCOMPARE(config.lookup("zelmora.invoicedoc.paperWidth"), QString("40"));
}

void TestConfig::key_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    const auto find = [](const char* key, const char* expected) {
        QTest::newRow(qPrintable('"' + QString(key) + '"')) << key << expected;
    };

    find("", "");
    find(".", "");
    find("..", "");
    find("....", "");
    find("zelmora", "");
    find("lang", "");

    find("zelmora.lang", "it");
    find("zelmora.zelmora", "self");
    find("zelmora.", "nameless");
    find("zelmora.sub", "");
    find("zelmora.absent", "");
    find("sub.x", "");
    find(".lang", "");

    find("zelmora.sub.x", "1");
    find("zelmora.lang.", "it"); // an empty third part ends the key
    find("zelmora.sub.", "");
    find("zelmora..", "nameless");
    find("zelmora..x", "5");
    find("zelmora.sub.y", "");
    find("zelmora.lang.x", "");
    find("zelmora.absent.x", "");
    find(".zelmora.lang", "");

    find("zelmora.sub.sub.y", "2");
    find("zelmora.lang..", "it");
    find("zelmora.lang..x", "it");
    find("zelmora.sub..x", "");
    find("zelmora...x", "nameless");
    find("zelmora.sub.x.", "1");
    find("zelmora..x.", "5");
    find("zelmora.sub.sub.deep", "");
    find("zelmora.sub.x.x", "");

    find("zelmora.sub.sub.deep.z", "3");
    find("zelmora.sub.x..", "1");
    find("zelmora.sub.x..z", "1");
    find("zelmora.sub.sub.y.", "2");
    find("zelmora.sub..deep.z", "");
    find("zelmora.sub.sub.deep.", "");
    find("zelmora.sub.sub.deep.z.", "3");
    find("zelmora.sub.sub.deep.z.z", "");

    find("Zelmora.lang", "");
    find("zelmora.Lang", "");
    find("zelmora.SUB.x", "");
    find("zelmor.lang", "");
    find("zelmoras.lang", "");
    find(" zelmora.lang", "");
    find("zelmora .lang", "");
    find("zelmora. lang", "");
    find("zelmora.lang ", "");
}

void TestConfig::key()
{
    QFETCH(QString, key);
    QFETCH(QString, expected);

    const char text[] = "zelmora: { lang = it; zelmora = self; = nameless;"
                        " sub: { x = 1; sub: { y = 2; deep: { z = 3; }; }; };"
                        " : { x = 5; }; };";
    QCOMPARE(lookup(text, key), expected);
}

void TestConfig::lookupStep()
{
    QDomDocument document;
    QDomElement element = document.createElement("doc");
    element.setAttribute("a", "1");
    QDomElement child = document.createElement("row");
    child.setAttribute("b", "2");
    element.appendChild(document.createTextNode("doc"));
    element.appendChild(document.createComment("row"));
    element.appendChild(child);

    const OpenConfig config;
    QCOMPARE(config.lookup(element, "doc.a"), QString("1"));
    QCOMPARE(config.lookup(element, "doc.row.b"), QString("2"));
    QCOMPARE(config.lookup(element, "row.b"), QString());
    QCOMPARE(config.lookup(child, "row.b"), QString("2"));
    QCOMPARE(config.lookup(element.firstChild(), "doc.a"), QString());
    QCOMPARE(config.lookup(element.attributeNode("a"), "a.a"), QString());
    document.appendChild(element);
    QCOMPARE(config.lookup(document, ".doc.a"), QString());
    QCOMPARE(config.lookup(QDomNode(), "doc.a"), QString());
    QCOMPARE(config.lookup(QDomNode(), QString()), QString());
}

void TestConfig::encoding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* name, const QByteArray& bytes, const QString& key, const QString& value) {
        QTest::newRow(name) << bytes << key << value;
    };
    const QByteArray mixed = "zelmora: { a = caff\xC3\xA8 \xE2\x82\xAC; b = caff\xE8; c = \xC3\xA8\xE8;"
                             " citt\xE0 = 3; menu\xCC\x80 = 4; };";

    add("a value in UTF-8", mixed, "zelmora.a", "caffè €");
    add("a value in ISO-8859-1", mixed, "zelmora.b", "caffè");
    add("a name in ISO-8859-1", mixed, "zelmora.città", "3");
    add("a name in UTF-8", mixed, QString("zelmora.menu") + QChar(0x300), "4");
    add("a value in both is ISO-8859-1", mixed, "zelmora.c", "Ã¨è");
    add("four bytes of UTF-8", "zelmora: { a = \xF0\x9F\x8D\x95; };", "zelmora.a", "🍕");
    add("a cut UTF-8 sequence is ISO-8859-1", "zelmora: { a = \"caff\xC3\"; };", "zelmora.a", "caffÃ");
    add("a UTF-8 sequence that is cut at the end", "zelmora: { a = caff\xC3", "zelmora.a", "caffÃ");
    add("an overlong UTF-8 sequence is ISO-8859-1", "zelmora: { a = \xC1\xA1.; };", "zelmora.a", "Á¡.");
    add("half a surrogate pair is ISO-8859-1", "zelmora: { a = \xED\xA1\xA1.; };", "zelmora.a", "í¡¡.");
    add("the last of the bytes", "zelmora: { a = \xFF; b = 2; };", "zelmora.a", "ÿ");
    add("the last of the bytes is no end of the file", "zelmora: { a = \xFF; b = 2; };", "zelmora.b", "2");
    add("Ctrl-Z is no end of the file", "zelmora: { a = \x1A; b = 2; };", "zelmora.b", "2");
    add("Ctrl-Z is a character like others", "zelmora: { a = \x1A; };", "zelmora.a", "\x1A");
    add("a byte-order mark", "\xEF\xBB\xBFzelmora: { a = 1; };", "zelmora.a", "1");
    const QByteArray mark = "\xEF\xBB\xBF";
    const QString character(QChar::ByteOrderMark);
    add("several byte-order marks", mark + mark + " \n" + mark + "zelmora: { a = 1; };", "zelmora.a", "1");
    add("byte-order marks before a name", "zelmora: { " + mark + mark + "a = 1; };", "zelmora.a", "1");
    add("byte-order marks before a group's name", "zelmora: { " + mark + ' ' + mark + " doc: { a = 1; }; };",
        "zelmora.doc.a", "1");
    add("byte-order marks before a value", "zelmora: { a = " + mark + mark + " 1; };", "zelmora.a", "1");
    add("byte-order marks before the quotes of a value", "zelmora: { a =" + mark + "\" 1\"; };", "zelmora.a", " 1");
    add("a name of nothing but byte-order marks", "zelmora: { " + mark + mark + " = 1; };", "zelmora.", "1");
    add("a value of nothing but byte-order marks", "zelmora: { a = " + mark + mark + "; };", "zelmora.a", "");
    add("a byte-order mark inside quotes stays", "zelmora: { a = \"" + mark + "1\"; };", "zelmora.a", character + '1');
    add("a byte-order mark in a value stays", "zelmora: { a = 1" + mark + "2" + mark + "; };", "zelmora.a",
        '1' + character + '2' + character);
    add("a byte-order mark in a name stays", "zelmora: { a" + mark + " = 1; };", "zelmora.a" + character, "1");
    add("a byte-order mark beside ISO-8859-1 is three characters", "zelmora: { a = " + mark + "\xE8; };", "zelmora.a",
        "ï»¿è");

    const QByteArray nul(1, '\0');
    add("a NUL in a value", "zelmora: { a = 1" + nul + "2; b = 2; };", "zelmora.a", QString("1") + QChar(0) + '2');
    add("a setting after a NUL", "zelmora: { a = 1" + nul + "2; b = 2; };", "zelmora.b", "2");
    add("a NUL in a name", "zelmora: { a" + nul + "b = 1; };", QString("zelmora.a") + QChar(0) + 'b', "1");
    add("a NUL before a name", "zelmora: { " + nul + "a = 1; };", "zelmora.a", "");
    add("a file in UTF-16", "z" + nul + ":" + nul + "{" + nul + "a" + nul + "=" + nul + "1" + nul + ";" + nul, "z.a",
        "");
}

void TestConfig::encoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, key);
    QFETCH(QString, expected);

    QCOMPARE(lookup(bytes, key), expected);
}

void TestConfig::longText_data()
{
    QTest::addColumn<int>("size");

    for (const int size : {2046, 2047, 2048, 2049, 5000, 10 * 1024 * 1024})
        QTest::newRow(qPrintable(QString("%1 characters").arg(size))) << size;
}

// Of a text of ten megabytes a failure should not show both copies.
void TestConfig::longText()
{
    QFETCH(int, size);

    const QByteArray text = QByteArray("0123456789").repeated(size / 10 + 1).left(size);
    Config config;
    read(config, "zelmora: { a = " + text + "; b = 2; " + text + " = 3; " + text + ": { c = 4; }; d = 5; };");
    QVERIFY(config.lookup("zelmora.a") == text);
    QVERIFY(config.lookup("zelmora.b") == "2");
    QVERIFY(config.lookup("zelmora." + text) == "3");
    QVERIFY(config.lookup("zelmora." + text + ".c") == "4");
    QVERIFY(config.lookup("zelmora.d") == "5");
}

void TestConfig::nesting_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("readWhole");

    QTest::newRow("1,000 groups inside each other") << 1000 << true;
    QTest::newRow("1,001 groups inside each other") << 1001 << false;
    QTest::newRow("100,000 groups inside each other") << 100000 << false;
}

void TestConfig::nesting()
{
    QFETCH(int, depth);
    QFETCH(bool, readWhole);

    Config config;
    read(config, nestedGroups(depth));
    const QString atTheEnd = readWhole ? "2" : "";
    QCOMPARE(config.lookup(nestedKey(1, "a")), QString("1"));
    QCOMPARE(config.lookup(nestedKey(1000, "a")), QString("1"));
    QCOMPARE(config.lookup(nestedKey(1001, "a")), QString());
    QCOMPARE(config.lookup(nestedKey(1000, "b")), atTheEnd);
    QCOMPARE(config.lookup(nestedKey(1, "b")), atTheEnd);

    read(config, nestedGroups(1000));
    QCOMPARE(config.lookup(nestedKey(1000, "b")), QString("2"));
}

void TestConfig::groupsSideBySideAreNotNested()
{
    const QByteArray text = "zelmora: { " + QByteArray("doc: { a = 1; }; ").repeated(5000) + "b = 2; };";
    QCOMPARE(lookup(text, "zelmora.b"), QString("2"));
}

void TestConfig::everyPrefixIsRead()
{
    const QByteArray text = "# settings of the till\n"
                            "zelmora: \n{\n"
                            "    doc: \n    {\n        style = \" b{o:l=d} \";\n        empty: { };\n    };\n"
                            "    time = 12:30;\n"
                            "};\n"
                            "other: { a = 1; };\n}\n after";
    const QString group = "# settings of the till\nzelmora";
    Config config;
    for (int size = 0; size <= text.size(); ++size) {
        read(config, text.left(size));
        const QString style = config.lookup(group + ".doc.style");
        const QString time = config.lookup(group + ".time");
        QVERIFY2(QString(" b{o:l=d} ").startsWith(style), qPrintable(style));
        QVERIFY2(QString("12:30").startsWith(time), qPrintable(time));
        QCOMPARE(style.size() == 10, size >= text.indexOf(" \";") + 2);
        QCOMPARE(time.size() == 5, size >= text.indexOf("30;") + 2);
    }
}

// Under the sanitizers this is more than a search for crashes.
void TestConfig::randomBytesAreRead()
{
    std::mt19937 random(20);
    const auto below = [&random](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    const QByteArray common = ":::{{{}};;;===\" .\nga\xC3\xA8\xE8";
    OpenConfig config;
    for (int file = 0; file < 500; ++file) {
        const int size = below(2000);
        const int rareInTen = below(10);
        QByteArray bytes;
        while (bytes.size() < size) {
            const bool rare = below(10) < rareInTen;
            bytes += rare ? static_cast<char>(below(256)) : common.at(below(common.size()));
        }
        read(config, bytes);
        for (const char* key : {"", ".", "g", "g.a", "g.g.a", "...", "g..a", "è.è.è"}) {
            const QString value = lookupWithAndWithoutTree(config, key);
            QVERIFY2(!value.startsWith("without the tree"), qPrintable(value));
            config.readBytes(bytes, "again", "cfg");
        }

        read(config, goodFile);
        QCOMPARE(config.lookup("zelmora.a"), QString("good"));
    }
}

void TestConfig::nothingLoaded()
{
    const Config config;
    QCOMPARE(config.lookup("zelmora.a"), QString());
    QCOMPARE(config.lookup(QString()), QString());
}

void TestConfig::readingAgainReplaces_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("format");

    QTest::newRow("a file without faults") << QByteArray("zelmora: { a = 1; b = 2; };") << "cfg";
    QTest::newRow("a file that ended at a '}'") << QByteArray("zelmora: { b = 2; }; } more") << "cfg";
    QTest::newRow("a file that ended in a value") << QByteArray("zelmora: { b = 2") << "cfg";
    QTest::newRow("a file that ended too deep") << "zelmora: { b = 2; " + nestedGroups(1001) << "cfg";
    QTest::newRow("an XML file") << QByteArray("<zelmora b='2'/>") << "xml";
}

void TestConfig::readingAgainReplaces()
{
    QFETCH(QByteArray, before);
    QFETCH(QString, format);

    Config config;
    const auto readBefore = [&] {
        read(config, before, qPrintable(format));
        return config.lookup("zelmora.b");
    };
    QCOMPARE(readBefore(), QString("2"));
    read(config, goodFile);
    QCOMPARE(config.lookup("zelmora.a"), QString("good"));
    QCOMPARE(config.lookup("zelmora.b"), QString());

    QCOMPARE(readBefore(), QString("2"));
    QVERIFY(!captured(stdout, [&config] { config.readFile("/nowhere/zelmora.conf", "cfg"); }).isEmpty());
    QCOMPARE(config.lookup("zelmora.b"), QString());

    QCOMPARE(readBefore(), QString("2"));
    config.readFile("/nowhere/zelmora.conf", "ini");
    QCOMPARE(config.lookup("zelmora.b"), QString());

    QCOMPARE(readBefore(), QString("2"));
    read(config, "<", "xml");
    QCOMPARE(config.lookup("zelmora.b"), QString());
}

void TestConfig::readingXmlKeepsNoBraces()
{
    Config config;
    read(config, "<zelmora a='1'/>", "xml");
    const std::size_t before = allocatedBytes();
    read(config, "zelmora: { a = " + QByteArray(5000000, 'x') + "; };");
    QVERIFY(allocatedBytes() > before + 5000000);
    read(config, "<zelmora a='1'/>", "xml");
    QVERIFY2(allocatedBytes() < before + 65536, qPrintable(QString::number(allocatedBytes() - before)));
}

void TestConfig::unknownFormat_data()
{
    QTest::addColumn<QByteArray>("format");

    for (const char* format : {"", "CFG", "Cfg", "XML", "Xml", "cfg ", " xml", "ini", "c"})
        QTest::newRow(qPrintable('"' + QString(format) + '"')) << QByteArray(format);
}

// Nothing is opened, so nothing is missed either.
void TestConfig::unknownFormat()
{
    QFETCH(QByteArray, format);

    QCOMPARE(lookup("zelmora: { a = 1; };", "zelmora.a", format), QString());
    QCOMPARE(lookup("<zelmora a='1'/>", "zelmora.a", format), QString());
    QCOMPARE(captured(stdout, [&format] { const Config config("/nowhere/zelmora.conf", format); }), QByteArray());
}

void TestConfig::fileThatCannotBeOpened_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("in a missing folder") << "/nowhere/zelmora.conf";
    QTest::newRow("with blanks in its name") << "/nowhere/our till/ zelmora.conf ";
    QTest::newRow("with accents and more in its name") << "/nowhere/caffè € 漢.conf";
    QTest::newRow("without a name") << "";
}

void TestConfig::fileThatCannotBeOpened()
{
    QFETCH(QString, path);

    Config config;
    QCOMPARE(captured(stdout, [&config, &path] { config.readFile(path, "cfg"); }), notFound(path.toUtf8()));
    QCOMPARE(config.lookup("zelmora.a"), QString());
    QCOMPARE(captured(stdout, [&path] { const Config another(path, "cfg"); }), notFound(path.toUtf8()));
}

void TestConfig::missingXmlFileIsNotReported()
{
    Config config;
    QCOMPARE(captured(stdout, [&config] { config.readFile("/nowhere/zelmora.xml", "xml"); }), QByteArray());
    QCOMPARE(config.lookup("zelmora.a"), QString());
}

void TestConfig::folderReadsAsEmpty_data()
{
    QTest::addColumn<QString>("format");

    QTest::newRow("for the brace reader") << "cfg";
    QTest::newRow("for the XML reader") << "xml";
}

void TestConfig::folderReadsAsEmpty()
{
    QFETCH(QString, format);

    const QTemporaryDir folder;
    Config config(folder.path(), format);
    QCOMPARE(config.lookup("zelmora.a"), QString());
    read(config, goodFile);
    QCOMPARE(config.lookup("zelmora.a"), QString("good"));
}

void TestConfig::path_data()
{
    QTest::addColumn<QVector<QByteArray>>("stored"); // names of the files in the folder, in bytes
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QByteArray>("answering");

    const QByteArray inUtf8 = "caff\xC3\xA8.conf";
    const QByteArray inLatin1 = "caff\xE8.conf";
    const QByteArray chinese = "\xE6\xBC\xA2.conf";

    QTest::newRow("a plain name") << QVector<QByteArray> {"till.conf"} << "till.conf" << QByteArray("till.conf");
    QTest::newRow("accents in the file system's own form") << QVector<QByteArray> {inUtf8} << "caffè.conf" << inUtf8;
    QTest::newRow("accents in the 8-bit form") << QVector<QByteArray> {inLatin1} << "caffè.conf" << inLatin1;
    QTest::newRow("accents in both forms: the 8-bit form answers")
        << QVector<QByteArray> {inUtf8, inLatin1} << "caffè.conf" << inLatin1;
    QTest::newRow("beyond Latin-1") << QVector<QByteArray> {chinese} << "漢.conf" << chinese;
    QTest::newRow("beyond Latin-1, and a file that has the 8-bit form for its name")
        << QVector<QByteArray> {chinese, "?.conf"} << "漢.conf" << QByteArray("?.conf");
}

void TestConfig::path()
{
    QFETCH(QVector<QByteArray>, stored);
    QFETCH(QString, asked);
    QFETCH(QByteArray, answering);

    const QTemporaryDir folder;
    const auto pathOf = [&folder](const QByteArray& name) { return QFile::encodeName(folder.path()) + '/' + name; };
    for (const QByteArray& name : qAsConst(stored))
        writeFile(pathOf(name), "zelmora: { a = " + name.toHex() + "; };");

    Config config;
    const QByteArray output = captured(stdout, [&] { config.readFile(folder.filePath(asked), "cfg"); });
    // The toolkit cannot remove what it cannot spell.
    for (const QByteArray& name : qAsConst(stored))
        std::remove(pathOf(name).constData());
    QCOMPARE(output, QByteArray());
    QCOMPARE(config.lookup("zelmora.a"), QString(answering.toHex()));
}

void TestConfig::stream()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("zelmora.conf");
    writeFile(QFile::encodeName(path), "ab{cd{{");

    OpenConfig config;
    QVERIFY(!config.jump('{')); // nothing is open
    QVERIFY(config.openFile(path));
    QVERIFY(config.jump('{'));
    QVERIFY(config.jump('d'));
    QVERIFY(config.jump('{'));
    QVERIFY(config.jump('{'));
    QVERIFY(!config.jump('{'));

    QVERIFY(config.openFile(path)); // from its beginning
    QVERIFY(config.jump('b'));
    QVERIFY(!config.jump('a'));

    QVERIFY(config.openFile(path));
    config.closeFile();
    QVERIFY(!config.jump('a'));

    bool opened = true;
    QCOMPARE(captured(stdout, [&] { opened = config.openFile(folder.filePath("absent")); }),
             notFound(QFile::encodeName(folder.filePath("absent"))));
    QVERIFY(!opened);

    // Without a name given, the file loaded last.
    config.readFile(path, "cfg");
    QVERIFY(config.openFile());
    QVERIFY(config.jump('a'));
}

QTEST_GUILESS_MAIN(TestConfig)
#include "tst_config.moc"
