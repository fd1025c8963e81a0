#include "check/settingscheck.h"

#include "support/files.h"
#include "support/processortime.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using check::checkSettings;
using check::Finding;
using check::Findings;

/// What is said of a settings file, and at which place.
class TestSettingsCheck : public QObject {
    Q_OBJECT

private slots:
    void syntax_data();
    void syntax();
    void names_data();
    void names();
    void values_data();
    void values();
    void columns_data();
    void columns();
    void xml_data();
    void xml();
    void catalogue_data();
    void catalogue();
    void password_data();
    void password();
    void texts_data();
    void texts();
    void suggestions_data();
    void suggestions();
    void examplesDeserveNoWarning();
    void hostileFiles_data();
    void hostileFiles();
    void everyCodeOfSettingsIsYielded();
};

namespace {

QString lineOf(const Finding& finding)
{
    return QString("%1:%2 %3")
        .arg(QString::number(finding.place.line), QString::number(finding.place.column),
             QString(check::entry(finding.code).name));
}

/// Such as "2:3 unknown-key", in the order of the file.
QStringList linesOf(const Findings& findings)
{
    QStringList lines;
    for (const Finding& finding : findings)
        lines += lineOf(finding);
    return lines;
}

QSet<int> yieldedCodes; // by all tests of this file

QStringList found(const QByteArray& bytes, const QString& format = "cfg", const QString& path = QString())
{
    const Findings findings = checkSettings(bytes, format, path);
    for (const Finding& finding : findings)
        yieldedCodes += static_cast<int>(finding.code);
    return linesOf(findings);
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

void checkRow(const QString& format = "cfg")
{
    QFETCH(QByteArray, bytes);
    QTEST(found(bytes, format), "expected");
}

/// A settings file in which @p settings are those of a receipt: they begin at 1:24.
QByteArray receipt(const QByteArray& settings)
{
    return "zelmora: { receiptdoc: {" + settings + "}; };";
}

QByteArray document(const QByteArray& group, const QByteArray& settings)
{
    return "zelmora: {\n" + group + ": {\n" + settings + "}; };";
}

} // namespace

void TestSettingsCheck::syntax_data()
{
    addColumns();

    row("nothing of a good file", "zelmora: \n{\n    doc: \n    {\n        paperWidth = \"32\";\n    };\n\n};\n\n", {});
    row("nothing of an empty file", "", {});
    row("nothing of white space", " \n\t\n", {});

    row("no semicolon after a quoted value", receipt("\npaperWidth = \"30\"\nprintDate = \"true\";\n"),
        {"2:18 missing-semicolon"});
    row("no semicolon after a plain value", receipt("\n paperWidth = 30 \n  printDate = true;\n"),
        {"2:17 missing-semicolon"});
    row("no semicolon before a group", "zelmora: { doc: { style = \n\"/\"\n};\n};", {"2:4 missing-semicolon"});
    row("no semicolon on one line", receipt("style = \"a\" printDate = true;"), {"1:36 missing-semicolon"});
    row("no semicolon before the brace on one line", "zelmora: { doc: { style = a }; };", {"1:28 missing-semicolon"});
    row("no value and no semicolon", receipt("\nstyle =\nprintDate = true;"), {"2:8 missing-semicolon"});
    row("no semicolon at the end of the file", "zelmora: { doc: { style = \"a\"", {"1:30 missing-semicolon"});
    row("no semicolon behind a value that holds no characters, at the end of the file",
        "zelmora: { doc: { style = ", {"1:26 missing-semicolon"});
    row("characters outside the basic plane before the missing semicolon",
        receipt("style = \"\xF0\x9F\x8D\x95\" printDate = true;"), {"1:36 missing-semicolon"});
    row("signs of ISO-8859-1 before the missing semicolon", receipt("style = \"\xB0\xE8\xA7\" printDate = true;"),
        {"1:38 missing-semicolon"});
    row("a value of several lines is a value", receipt("style = \"a\nb\n c d\";"), {});
    row("a value in quotes may look like settings", receipt("style = \"a\nb = c\n}\";"), {});
    row("a value with an equals sign on its line", receipt("style = a = b;"), {});
    row("a value on the next line", receipt("style =\n \"a\";"), {});
    row("a value with braces of its own", receipt("style = { a };"), {});

    row("no semicolon after the brace of a group", "zelmora: { doc: { style = a; }\n fiscaldoc: { style = b; }; };",
        {"1:31 missing-semicolon"});
    row("no semicolon between two braces", "zelmora: { doc: { style = a; } }", {"1:31 missing-semicolon"});
    row("no semicolon after the last brace of all, where nothing follows", "zelmora: { doc: { style = a; }; }\n", {});
    row("text behind a brace", "zelmora: { doc: { style = a; } # of doc\n; };", {"1:32 skipped-text"});
    row("a file that is cut off in a group", "zelmora: { doc: { style = a; ", {"1:30 missing-semicolon"});
    row("a file that is cut off behind a word", "zelmora: { doc: { style = a; pap", {"1:30 skipped-text"});

    row("text between colon and brace", "zelmora: of our till { doc: { style = a; }; };", {"1:10 skipped-text"});
    row("text before the end of a group", receipt("style = a; paperWidth 40;"), {"1:36 skipped-text"});
    row("text at the end of the file", "zelmora: { doc: { style = a; }; };\nend", {"2:1 skipped-text"});
    row("text behind a brace too many", "zelmora: { doc: { style = a; }; };\n};\nfiscaldoc: { style = a; };",
        {"3:1 skipped-text"});
    row("text behind a brace too many, twice", "zelmora: { doc: { style = a; }; }; } x ; y", {"1:38 skipped-text"});
    row("a brace too many with nothing behind it", "zelmora: { doc: { style = a; }; };\n};\n", {});
    row("a semicolon too many at the end of a group", receipt("style = a;;"), {});
    row("groups nested too deep", QByteArray("g: {").repeated(1001) + " a = 1; ",
        {"1:1 wrong-top-group", "1:4006 skipped-text"});
}

void TestSettingsCheck::syntax()
{
    checkRow();
}

void TestSettingsCheck::names_data()
{
    addColumns();

    row("a slip in the name of the first group", "zelmore: { doc: { style = a; }; };", {"1:1 wrong-top-group"});
    row("a first group of another case", "Zelmora: { doc: { style = a; }; };", {"1:1 wrong-top-group"});
    row("an empty group before the suite's is not the first", "other: { };\nzelmora: { doc: { style = a; }; };",
        {"1:1 empty-group"});
    row("another group before the suite's", "other: { a = 1; };\nzelmora: { doc: { style = a; }; };",
        {"1:1 wrong-top-group", "2:1 second-top-group"});
    row("a remark before the suite's group", "# of our till\nzelmora: { doc: { style = a; }; };",
        {"1:1 wrong-top-group", "1:1 remark"});
    row("a second group at the top, of which nothing is judged",
        "zelmora: { doc: { style = a; }; };\nother: { papper = 1; a = 2; a = 3; };", {"2:1 second-top-group"});
    row("the suite's group twice", "zelmora: { doc: { style = a; }; };\nzelmora: { doc: { style = a; }; };",
        {"2:1 second-top-group"});
    row("a remark with an equals sign before the suite's group", "# till = 2;\nzelmora: { doc: { style = a; }; };",
        {"1:1 remark"});
    row("words before a key outside every group", "old paperWidth = 40; zelmora: { doc: { style = a; }; };",
        {"1:1 remark"});
    row("a setting outside every group", "\n paperWidth = 40; zelmora: { doc: { style = a; }; };",
        {"2:2 outside-group"});

    row("a slip in the name of a group", "zelmora: {\n reciptdoc: { papper = 1; }; };", {"2:2 unknown-group"});
    row("a group that nobody knows", "zelmora: { till: { a = 1; }; };", {"1:12 unknown-group"});
    row("a group inside a group", "zelmora: { doc: { style = a; more: { a = 1; }; }; };", {"1:30 unknown-group"});
    row("a document's group inside another", "zelmora: { doc: { style = a;\nreceiptdoc: { style = b; }; }; };",
        {"2:1 unknown-group"});
    row("the same group twice", "zelmora: { doc: { style = a; };\n doc: { style = b; }; };", {"2:2 repeated-group"});
    row("the same group twice, one of them empty", "zelmora: { doc: { style = a; }; doc: { }; };",
        {"1:33 empty-group"});
    row("groups of different names", "zelmora: { doc: { style = a; }; solddoc: { style = b; }; };", {});
    row("an empty group", "zelmora: {\n doc: { }; fiscaldoc: { style = a; }; };", {"2:2 empty-group"});
    row("groups that hold empty groups alone", "zelmora: { doc: { more: { }; }; };",
        {"1:1 empty-group", "1:12 empty-group", "1:19 empty-group"});
    row("an empty group without a name", "zelmora: { doc: { style = a; }; : { }; };", {"1:33 empty-group"});

    row("a slip in a key", receipt("\n papperWidth = 40;"), {"2:2 unknown-key"});
    row("a key of another case", receipt("paperwidth = 40;"), {"1:25 unknown-key"});
    row("a key of another group", "zelmora: { logger: { password = a; }; };", {"1:22 unknown-key"});
    row("a setting directly in the suite's group", "zelmora: { paperWidth = 40; doc: { style = a; }; };",
        {"1:12 unknown-key"});
    row("a setting without a name", receipt("= 40;"), {"1:25 unknown-key"});
    row("a key in quotes", receipt("\"paperWidth\" = 30;"), {"1:25 unknown-key"});
    row("a key twice", receipt("style = a;\n style = b; style = c;"), {"2:2 repeated-key", "2:13 repeated-key"});
    row("an unknown key twice", receipt("x = 1;\nx = 1;"), {"1:25 unknown-key", "2:1 repeated-key", "2:1 unknown-key"});
    row("a key twice, in two groups", "zelmora: { doc: { style = a; }; solddoc: { style = a; }; };", {});
    row("of a repeated setting the last value is judged",
        receipt("paperWidth = wide;\npaperWidth = 30;\nprintDate = true; printDate = True;"),
        {"2:1 repeated-key", "3:19 repeated-key", "3:19 not-a-flag"});

    row("a remark before a setting", receipt("\n # the till's paper\n paperWidth = 30;"), {"2:2 remark"});
    row("a setting behind a remark's mark", receipt("#paperWidth = 30;"), {"1:25 remark"});
    row("a remark in the manner of C", receipt("/* old */ paperWidth = 30;"), {"1:25 remark"});
    row("a remark in the manner of C++", receipt("// old\npaperWidth = 30;"), {"1:25 remark"});
    row("a remark in the manner of SQL", receipt("-- old\npaperWidth = 30;"), {"1:25 remark"});
    row("words before a key", receipt("old paperWidth = 30;"), {"1:25 remark"});
    row("a semicolon before a key", receipt("; paperWidth = 30;"), {"1:25 remark"});
    row("a remark before a group", "zelmora: {\n# receipts\nreceiptdoc: { style = a; }; };", {"2:1 remark"});
    row("a remark with a colon", "zelmora: {\n# till: 2\nreceiptdoc: { style = a; }; };",
        {"2:1 remark", "2:9 skipped-text"});
    row("a remark with an equals sign", receipt("# paper = 40 mm\nprintDate = true;"), {"1:25 remark"});
    row("a remark directly in the suite's group", "zelmora: { # x\n a = 1; doc: { style = a; }; };", {"1:12 remark"});
    row("two words that are no remark", receipt("paper width = 30;"), {"1:25 unknown-key"});
    row("a remark that is a value is one", receipt("style = # x;"), {});

    row("a character beyond Latin-1 in a value", receipt("style = caff\xC3\xA8 \xE2\x82\xAC;"),
        {"1:25 lossy-character"});
    row("an accent in a value", receipt("style = caff\xC3\xA8;"), {});
    row("an accent in a value, in ISO-8859-1", receipt("style = caff\xE8;"), {});
    row("the first character beyond Latin-1", receipt("style = \xC4\x80;"), {"1:25 lossy-character"});
    row("the last character of Latin-1", receipt("style = \xC3\xBF;"), {});
    row("a Cyrillic letter in a key", receipt("p\xD0\xB0perWidth = 30;"), {"1:25 lossy-character", "1:25 unknown-key"});
    row("a Cyrillic letter in the name of a group",
        "zelmora: { d\xD0\xBE"
        "c: { style = a; }; };",
        {"1:12 lossy-character", "1:12 unknown-group"});
}

void TestSettingsCheck::names()
{
    checkRow();
}

void TestSettingsCheck::values_data()
{
    addColumns();

    row("True is no flag", receipt("\nprintHeader = \"True\";"), {"2:1 not-a-flag"});
    row("blanks inside the quotes are part of a flag", receipt("printHeader = \" true \";"), {"1:25 not-a-flag"});
    row("1 is no flag", receipt("printHeader = 1;"), {"1:25 not-a-flag"});
    row("flags", receipt("printHeader = \"true\"; printDate = false; printTime = ;"), {});

    row("a word for a number", receipt("paperWidth = \"wide\";"), {"1:25 not-a-number"});
    row("a number with a unit", receipt("paperWidth = 32 mm;"), {"1:25 not-a-number"});
    row("a number with a point", receipt("paperWidth = 32.0;"), {"1:25 not-a-number"});
    row("numbers", receipt("paperWidth = +32; quantityFieldWidth = \" 3 \"; topMargin = 0; copyNumber = 02;"), {});
    row("numbers out of range",
        receipt("\npaperRows = -1;\ntopMargin = 10001;\ncopyNumber = 2147483648;\nquantityFieldWidth = -1;"),
        {"2:1 out-of-range", "3:1 out-of-range", "4:1 out-of-range", "5:1 out-of-range"});
    row("numbers at the ends of their range",
        receipt("paperRows = 0;topMargin = 10000;copyNumber = 2147483647;quantityFieldWidth = 0;"), {});

    row("no level of a log", "zelmora: { logger: { level = DEBUGGING;\n type = \"APPEND \"; }; };",
        {"1:22 not-a-word", "2:2 not-a-word"});
    row("words of a log", "zelmora: { logger: { level = debug; type = Overwrite; }; };", {});
    row("empty values are none", "zelmora: { logger: { level = ; type = \"\"; }; doc: { paperWidth = ; }; };", {});

    row("a paper wider than the register's", receipt("paperWidth = 33;"), {"1:25 paper-wider-than-register"});
    row("the register's paper", receipt("paperWidth = 32;"), {});
    row("a paper for a document that has none", document("fiscaldoc", "paperWidth = 40;"), {"3:1 no-effect"});
    row("a width of a document that has no such column", document("doc", "priceFieldWidth = 6;"), {"3:1 no-effect"});
    row("a flag of a document without that part", document("reportdoc", "printCustomer = true;"), {"3:1 no-effect"});
    row("a key that nobody reads in this document", document("receiptdoc", "descriptionWidth = 20;"),
        {"3:1 no-effect"});
    row("the same whose value, which nobody reads, is not judged", document("receiptdoc", "descriptionWidth = wide;"),
        {"3:1 no-effect"});
    row("the same whose value is beyond 32 bits", document("fiscaldoc", "topMargin = 99999999999;"), {"3:1 no-effect"});
    row("a number that is none, and would have no effect", document("fiscaldoc", "paperWidth = wide;"),
        {"3:1 not-a-number"});
    row("copies of the list of dishes sold", document("solddoc", "copyNumber = 2;"), {"3:1 no-effect"});
    row("copies of another document", document("receiptdoc", "copyNumber = 2;"), {});
    row("settings without effect that say what absence means",
        document("fiscaldoc", "paperWidth = 32; priceFieldWidth = 0; printDate = false; topMargin = ;"), {});
    row("settings that act nowhere", document("fiscaldoc", "printLogo = true; style = a; paperRows = 9;"), {});
    row("a flag that is none, and would have no effect", document("fiscaldoc", "printDate = TRUE;"),
        {"3:1 not-a-flag"});
}

void TestSettingsCheck::values()
{
    checkRow();
}

void TestSettingsCheck::columns_data()
{
    addColumns();
    const QStringList wide {"3:1 columns-wider-than-paper"};
    const auto widths = [](int paper, int quantity, int price, int total) {
        return QString("paperWidth = %1; quantityFieldWidth = %2; priceFieldWidth = %3; totalPriceFieldWidth = %4;")
            .arg(paper)
            .arg(quantity)
            .arg(price)
            .arg(total)
            .toUtf8();
    };

    // The columns of a receipt and of the sold list have three characters between them.
    row("a receipt that leaves nothing", document("receiptdoc", widths(20, 3, 6, 8)), wide);
    row("a receipt that leaves one character", document("receiptdoc", widths(21, 3, 6, 8)), {});
    row("a sold list that leaves nothing", document("solddoc", widths(20, 3, 6, 8)), wide);
    row("a sold list that leaves one character", document("solddoc", widths(21, 3, 6, 8)), {});
    // Those of an order or an invoice have one.
    row("an order that leaves nothing", document("prefiscaldoc", widths(18, 3, 6, 8)), wide);
    row("an order that leaves one character", document("prefiscaldoc", widths(19, 3, 6, 8)), {});
    row("an invoice that leaves nothing", document("invoicedoc", widths(18, 3, 6, 8)), wide);
    row("an invoice that leaves one character", document("invoicedoc", widths(19, 3, 6, 8)), {});
    // A kitchen order and a delivery note have the quantity alone, and three characters less.
    row("a kitchen order that leaves nothing", document("doc", "quantityFieldWidth = 29;"), wide);
    row("a kitchen order that leaves one character", document("doc", "quantityFieldWidth = 28;"), {});
    row("a delivery note that leaves nothing", document("deliverydoc", "quantityFieldWidth = 29;"), wide);
    row("a delivery note that leaves one character", document("deliverydoc", "quantityFieldWidth = 28;"), {});
    // A statement has the date, 15 characters wide, the amount, and three characters less.
    row("a statement that leaves nothing", document("reportdoc", "priceFieldWidth = 14;"), wide);
    row("a statement that leaves one character", document("reportdoc", "priceFieldWidth = 13;"), {});

    row("columns of a document without columns", document("fiscaldoc", "descriptionWidth = 30;"), {});
    row("the finding stands at the paper's width", document("doc", "quantityFieldWidth = 29;\npaperWidth = 32;"),
        {"4:1 columns-wider-than-paper"});
    row("the widths of groups that stand twice count together",
        "zelmora: { doc: { paperWidth = 20; };\n doc: { quantityFieldWidth = 17; paperWidth = 30; }; };",
        {"1:19 columns-wider-than-paper", "2:2 repeated-group"});
    row("a paper of no width is the register's", document("doc", "paperWidth = 0; quantityFieldWidth = 28;"), {});
}

void TestSettingsCheck::columns()
{
    checkRow();
}

void TestSettingsCheck::xml_data()
{
    addColumns();

    row("nothing of a good file", "<zelmora>\n <doc paperWidth='32'/>\n</zelmora>\n", {});
    row("XML that breaks off", "<zelmora>\n <doc>\n</zelmora>", {"3:10 unreadable"});
    row("no XML at all", "", {"1:1 unreadable"});
    row("a comment hides the first group", "<!-- x --><zelmore/>", {"1:1 skipped-text"});
    row("a declaration hides the first group", "<?xml version='1.0'?>\n<!-- x --><zelmora/>", {"1:1 skipped-text"});
    row("a document type hides nothing", "<!DOCTYPE zelmora><zelmora><doc style='a'/></zelmora>", {});
    row("comments and instructions elsewhere", "<zelmora><!-- x --><doc style='a'/><?a b?></zelmora><!-- y -->", {});
    row("text between the tags", "<zelmora>\n <doc style='a'/> paperWidth = 32; </zelmora>", {"2:19 skipped-text"});
    row("an entity that stands for nothing", "<zelmora><doc style='&x;'/></zelmora>", {"1:10 skipped-text"});
    row("a slip in the name of the root", "<zelmore><doc style='a'/></zelmore>", {"1:1 wrong-top-group"});
    row("slips in names", "<zelmora a='1'><dok style='a'/>\n<doc stile='a'\n papperWidth='1'/></zelmora>",
        {"1:10 unknown-key", "1:16 unknown-group", "2:6 unknown-key", "3:2 unknown-key"});
    row("what stands twice", "<zelmora><doc style='a' style='b'/><doc style='c'/></zelmora>",
        {"1:25 repeated-key", "1:36 repeated-group"});
    row("an empty group", "<zelmora><doc/><solddoc style='a'/></zelmora>", {"1:10 empty-group"});
    row("values", "<zelmora><doc printDate='True'\n paperWidth='wide' topMargin='-1' style='&#8364;'/></zelmora>",
        {"1:15 not-a-flag", "2:2 not-a-number", "2:20 out-of-range", "2:35 lossy-character"});
    row("values that look like a missing semicolon", "<zelmora><doc style='a\nb = c }'/></zelmora>", {});
}

void TestSettingsCheck::xml()
{
    checkRow("xml");
}

void TestSettingsCheck::catalogue_data()
{
    addColumns();
    // ROOT stands for the folder in which the test runs; translations/zelmora_it.qm is in it.
    row("a whole path", "basedir = \"ROOT/translations/\"; file = zelmora_it.qm;", {});
    row("a whole path without the ending", "basedir = \"ROOT/translations/\"; file = zelmora_it;", {});
    row("a relative path", "basedir = \"translations/\";\n file = zelmora_it.qm;", {"2:2 relative-catalogue"});
    row("no slash between folder and name", "basedir = \"ROOT/translations\";\nfile = zelmora_it.qm;",
        {"2:1 catalogue-missing"});
    row("a relative path that leads nowhere", "file = no.qm;", {"1:24 catalogue-missing", "1:24 relative-catalogue"});
    row("a folder alone", "basedir = \"/\";", {"1:24 catalogue-missing"});
    row("the user's language, which is C", "basedir = \"ROOT/translations\";\nfile = /;", {"2:1 catalogue-missing"});
    row("a path longer than any", "basedir = \"/" + QByteArray(5000, 'a') + "\";", {"1:24 catalogue-missing"});
    row("no language at all", "basedir = ; file = \"\";", {});
}

void TestSettingsCheck::catalogue()
{
    QFETCH(QByteArray, bytes);
    const QTemporaryDir folder(scratchFolder());
    QVERIFY(QDir(folder.path()).mkdir("translations"));
    QVERIFY(QFile::copy(ZELMORA_CATALOGUE, folder.filePath("translations/zelmora_it.qm")));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    const QStringList lines =
        found("zelmora: { language: { " + bytes.replace("ROOT", folder.path().toUtf8()) + "}; };");
    QVERIFY(QDir::setCurrent(before));
    QTEST(lines, "expected");
}

void TestSettingsCheck::password_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("expected");
    const QByteArray secret = "username = a;\npassword = b;";
    const QStringList readable {"2:1 password-readable"};
    QTest::newRow("all may read it") << secret << 0644 << readable;
    QTest::newRow("the group may read it") << secret << 0640 << readable;
    QTest::newRow("strangers may read it") << secret << 0604 << readable;
    QTest::newRow("the owner alone may read it") << secret << 0600 << QStringList();
    QTest::newRow("others may write and run it") << secret << 0633 << QStringList();
    QTest::newRow("an empty password") << QByteArray("password = ;") << 0644 << QStringList();
    QTest::newRow("no password") << QByteArray("username = a;") << 0644 << QStringList();
}

void TestSettingsCheck::password()
{
    QFETCH(QByteArray, settings);
    QFETCH(int, mode);
    const QTemporaryDir folder(scratchFolder());
    const QString path = folder.filePath("zelmora.conf");
    const QByteArray bytes = "zelmora: { db: {" + settings + "}; };";
    writeBytes(path, bytes);
    setPermissions(path, static_cast<mode_t>(mode));
    QTEST(found(bytes, "cfg", path), "expected");
    QCOMPARE(found(bytes), QStringList()); // what is no file has no rights
}

void TestSettingsCheck::texts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    const auto says = [](const char* name, const QByteArray& bytes, const QString& text) {
        QTest::newRow(name) << bytes << text;
    };
    says("the slip's meaning", receipt("papperWidth = 40;"),
         "No program reads a setting \"papperWidth\" here. Is \"paperWidth\" meant?");
    says("the key that a remark hides", receipt("# of the till\npaperWidth = 30;"),
         "There are no comments: the text becomes part of the name, and \"paperWidth\" is not found. Remove it.");
    says("a group whose colon is missing", "zelmora: { db { dbname = x; }; };",
         "A \":\" is missing before the \"{\": no group begins here, and \"dbname\" is not found. Write it between the "
         "group's name and the \"{\".");
    says("the key that a remark with an equals sign hides", receipt("# paper = 40 mm\nprintDate = true;"),
         "There are no comments: the text becomes part of the name, and \"printDate\" is not found. Remove it.");
    says("the suite's group, which a remark with an equals sign hides", "# till = 2\nzelmora: {\n};",
         "There are no comments: the text becomes part of the name, and \"zelmora\" is not found. Remove it.");
    says("the group that a remark with a colon hides", "zelmora: {\n# till: 2\nreceiptdoc: { style = a; }; };",
         "There are no comments: the text becomes part of the name, and \"receiptdoc\" is not found. Remove it.");
    says("the setting that a value swallows", receipt("style = a\nprintDate = true;"),
         "A semicolon is missing here: the value goes on over \"printDate\", which is not found.");
    says("the group that is swallowed", "zelmora: { doc: { style = a; } fiscaldoc: { style = b; }; };",
         "A semicolon is missing here: what follows is skipped up to the next one, and \"fiscaldoc\" is not found.");
    says("no password", "zelmora: { db: { dbname = a; password \"a b\"; username x; }; };",
         "The text is no setting and no group, and is skipped: password ***; username x;");
    says("the group that is cut off", "zelmora: { doc: { style = a; ",
         "\"};\" is missing here: the file ends inside the group \"doc\". Is it cut off?");
    says("where a misplaced setting belongs", "zelmora: { topMargin = 2; };",
         "No program reads \"topMargin\" here: it belongs in one of these groups: doc, prefiscaldoc, receiptdoc, "
         "invoicedoc, deliverydoc, reportdoc, solddoc.");
    says("where a setting has an effect", document("fiscaldoc", "totalPriceFieldWidth = 8;"),
         "\"totalPriceFieldWidth\" has no effect in \"fiscaldoc\", but in: prefiscaldoc, receiptdoc, invoicedoc, "
         "solddoc.");
    says("what a number out of range becomes", receipt("topMargin = 99999;"),
         "99999 is out of range, and is taken as 10000: topMargin is a whole number from 0 to 10000.");
    says("what a number beyond 32 bits becomes", receipt("topMargin = 99999999999;"),
         "99999999999 is out of range, and is taken as 0: topMargin is a whole number from 0 to 10000.");
    says("what a width beyond 32 bits becomes", receipt("paperWidth = 99999999999;"),
         "99999999999 is out of range, and is taken as 32: paperWidth is a whole number from 0 to 10000.");
    says("what a number below its range becomes", receipt("topMargin = -3;"),
         "-3 is out of range, and is taken all the same: topMargin is a whole number from 0 to 10000.");
    says("what a number that is none becomes", receipt("topMargin = 3 lines;"),
         "\"3 lines\" is no whole number, and counts as 0: write digits alone.");
    says("what a paper's width that is none becomes", receipt("paperWidth = 40 mm;"),
         "\"40 mm\" is no whole number, and counts as 32: write digits alone.");
    says("what a log without a type does", "zelmora: { logger: { type = APEND; }; };",
         "\"APEND\" counts as absent (nothing is logged): type is one of APPEND, OVERWRITE.");
    says("the sum of the columns",
         document("receiptdoc",
                  "paperWidth = 24; quantityFieldWidth = 3; "
                  "priceFieldWidth = 10; totalPriceFieldWidth = 10;"),
         "The columns are wider than the paper (3 + 10 + 10 + 3 = 26 of 24 characters): the lines grow past it.");
    says("the sum of columns that just fit", document("doc", "quantityFieldWidth = 29;"),
         "The columns take the whole paper (29 + 3 = 32 of 32 characters): no description is printed.");
    says("the character that is lost", receipt("style = \xE2\x82\xAC;"),
         "The programs read \"?\" for \"\u20AC\" (U+20AC): it is beyond the Western European characters.");
    says("a character outside the basic plane", receipt("style = \xF0\x9F\x8D\x95;"),
         "The programs read \"?\" for \"\U0001F355\" (U+1F355): it is beyond the Western European characters.");
    says("long text is cut", receipt(QByteArray(100, 'a') + " = 1;"),
         "No program reads a setting \"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa...\" here.");
    const QByteArray pizza = "\xF0\x9F\x8D\x95"; // two units of the toolkit's text
    const QString skipped = "The text is no setting and no group, and is skipped: ";
    const auto saysSkipped = [&](const char* name, const QByteArray& text, const QString& shown) {
        says(name, receipt("style = a; " + text), "The text is no setting and no group, and is skipped: " + shown);
    };
    saysSkipped("a text of 60 letters", QByteArray(60, 'a'), QString(60, 'a'));
    saysSkipped("a text of 61 letters, which is cut", QByteArray(61, 'a'), QString(60, 'a') + "...");
    saysSkipped("a character across the cut, which goes whole", QByteArray(59, 'a') + pizza, QString(59, 'a') + "...");
    saysSkipped("a character across the end of what is looked at", "a" + QByteArray(117, ' ') + "b" + pizza, "a b");
}

void TestSettingsCheck::texts()
{
    QFETCH(QByteArray, bytes);
    QTEST(checkSettings(bytes, "cfg", QString()).value(0).text, "text");
}

void TestSettingsCheck::suggestions_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("suggestion");
    QTest::newRow("of a top-level group") << QByteArray("zelmore: { doc: { style = a; }; };") << "zelmora";
    QTest::newRow("of a group") << QByteArray("zelmora: { reciptdoc: { style = a; }; };") << "receiptdoc";
    QTest::newRow("of a key") << receipt("paperwidth = 30;") << "paperWidth";
    QTest::newRow("of a flag") << receipt("printDate = True;") << "true";
    QTest::newRow("none for a flag of another word") << receipt("printDate = yes;") << "";
    QTest::newRow("none for a far name") << receipt("till = 30;") << "";
    QTest::newRow("of a semicolon") << receipt("style = a\n};") << ";";
}

void TestSettingsCheck::suggestions()
{
    QFETCH(QByteArray, bytes);
    QTEST(checkSettings(bytes, "cfg", QString()).value(0).suggestion, "suggestion");
}

// At the mode that a file with a password has, in the folder that the catalogue's path means.
void TestSettingsCheck::examplesDeserveNoWarning()
{
    const QTemporaryDir folder(scratchFolder());
    QVERIFY(QDir(folder.path()).mkdir("translations"));
    QVERIFY(QFile::copy(ZELMORA_CATALOGUE, folder.filePath("translations/zelmora_it.qm")));
    const QByteArray bytes = fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf");
    QVERIFY(bytes.size() > 1000);
    const QString path = folder.filePath("zelmora.conf");
    writeBytes(path, bytes);
    setPermissions(path, 0600);
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    const Findings findings = checkSettings(bytes, "cfg", path);
    QVERIFY(QDir::setCurrent(before));
    for (const Finding& finding : findings)
        QVERIFY2(finding.severity == check::Severity::Note, qPrintable(lineOf(finding) + ' ' + finding.text));
}

void TestSettingsCheck::hostileFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("deep groups") << QByteArray("a: {").repeated(250000);
    QTest::newRow("deep groups in the suite's") << "zelmora: { doc: {" + QByteArray("a: {").repeated(250000);
    QTest::newRow("unknown keys") << receipt(QByteArray("a = 1;").repeated(200000));
    QTest::newRow("a key again and again, and unknown ones")
        << receipt(QByteArray("style = 1;").repeated(50000) + QByteArray("a = 1;").repeated(100000));
    QTest::newRow("groups of one name") << "zelmora: {" + QByteArray("doc: { a = 1; };").repeated(60000);
    QTest::newRow("empty groups") << "zelmora: {" + QByteArray("doc: { };").repeated(100000);
    QTest::newRow("braces in a value") << receipt("style = " + QByteArray(" }").repeated(500000) + "a;");
    QTest::newRow("names on each line of a value") << receipt("style = " + QByteArray("\naa :").repeated(200000) + ";");
    QTest::newRow("blank lines in a value") << receipt("style = a" + QByteArray("\n \t").repeated(300000) + "b;");
    QTest::newRow("words in a name") << receipt(QByteArray("a ").repeated(500000) + "= 1;");
    QTest::newRow("lines in a name") << receipt(QByteArray("#\n").repeated(500000) + "= 1;");
    QTest::newRow("braces too many") << QByteArray("};").repeated(500000);
}

void TestSettingsCheck::hostileFiles()
{
    QFETCH(QByteArray, bytes);
    const int lines = bytes.count('\n') + 1;
    const ProcessorTime time;
    for (const Finding& finding : checkSettings(bytes, "cfg", QString())) {
        QVERIFY(finding.place.line >= 1 && finding.place.line <= lines);
        QVERIFY(finding.text.size() < 1000);
    }
    QVERIFY2(time.milliseconds() < 30000, "time grows with the size's square"); // measured: 4 s at most
}

// The last test: it counts on those before it.
void TestSettingsCheck::everyCodeOfSettingsIsYielded()
{
    const int first = static_cast<int>(check::Code::WrongTopGroup);
    const int last = static_cast<int>(check::Code::NoEffect);
    for (int code = first; code <= last; ++code)
        QVERIFY2(yieldedCodes.contains(code), check::codes()[code].name.data());
    for (const check::Code code : {check::Code::Unreadable, check::Code::NotANumber})
        QVERIFY(yieldedCodes.contains(static_cast<int>(code)));
}

QTEST_GUILESS_MAIN(TestSettingsCheck)
#include "tst_settingscheck.moc"
