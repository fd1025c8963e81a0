#include "settings/configrun.h"

#include "support/ordinaryuser.h"
#include "vocabulary/settings.h"

#include <QtTest>

/// `zelmora-config` as a process: what it writes, and what it refuses to.
class TestConfigWriting : public QObject {
    Q_OBJECT

private slots:
    void setMakesTheFile_data();
    void setMakesTheFile();
    void setChangesNothingElse_data();
    void setChangesNothingElse();
    void setTakesAnyValueBehindTheKey_data();
    void setTakesAnyValueBehindTheKey();
    void setWritesOnlyWhatChanges();
    void setRefuses_data();
    void setRefuses();
    void setRefusesEvenForced_data();
    void setRefusesEvenForced();
    void setFollowsALink();
    void folderMayNotBeWritten();
    void folderCannotBeMade();

    void unsets();
    void unsetsNothing();
    void unsetKeepsWhatItCannotRead();

    void whatWouldBeLostIsNotLost_data();
    void whatWouldBeLostIsNotLost();
    void anEmptyGroupThatIsFilledIsNotLost();
    void whatIsLostIsKeptBeside();
    void nothingIsLostThatCannotBeKept();
    void settingsTooLargeToWrite();
    void secretsAreNotShown_data();
    void secretsAreNotShown();

    void newFileIsComplete_data();
    void newFileIsComplete();
    void newFileIsTheUsersAlone();
    void newFileTakesNobodysPlace_data();
    void newFileTakesNobodysPlace();
    void newFilePrintsWithinThePaper();

    void convertsThereAndBack_data();
    void convertsThereAndBack();
    void convertedFileHasTheMode();
    void convertRefuses_data();
    void convertRefuses();
    void convertTakesNobodysPlace();
    void convertCannotRead_data();
    void convertCannotRead();
};

namespace {

const QByteArray braces =
    "zelmora: \n{\n    top = \"1\";\n    bin: \n    {\n        path = \"/bin\";\n    };\n\n    doc: \n    {\n"
    "        style = \"a\";\n        odd = \"b\";\n    };\n\n};\n\n";
const QByteArray xml =
    "\n<zelmora\n    top = \"1\">\n\n    <bin\n        path = \"/bin\">\n    </bin>\n\n    <doc\n        "
    "style = \"a\"\n        odd = \"b\">\n    </doc>\n</zelmora>\n";

} // namespace

void TestConfigWriting::setMakesTheFile_data()
{
    QTest::addColumn<QString>("file"); // empty: the user's own
    QTest::addColumn<QByteArray>("contents");

    const QByteArray inBraces = "zelmora: \n{\n    bin: \n    {\n        path = \"/opt\";\n    };\n\n};\n\n";
    QTest::newRow("the user's own") << "" << inBraces;
    QTest::newRow("another one") << "a.conf" << inBraces;
    QTest::newRow("in folders that are not there") << "one/two/a.conf" << inBraces;
    QTest::newRow("XML") << "a.xml"
                         << QByteArray("\n<zelmora>\n\n    <bin\n        path = \"/opt\">\n    </bin>\n</zelmora>\n");
}

void TestConfigWriting::setMakesTheFile()
{
    QFETCH(QString, file);
    ConfigRun run;
    QDir(run.path("home")).removeRecursively();
    const mode_t previous = umask(0);
    run.start((file.isEmpty() ? QStringList() : QStringList {"--file", file})
              + QStringList {"set", "zelmora.bin.path", "/opt"});
    umask(previous);
    QCOMPARE(run.remarks(), QByteArray());
    const QString path = file.isEmpty() ? run.ownFile() : run.path(file.toUtf8().constData());
    QTEST(fileContents(path), "contents");
    QCOMPARE(permissionsOf(path), mode_t(0600));
    QCOMPARE(filesIn(QFileInfo(path).path()).filter("a.conf~"), QStringList());
}

void TestConfigWriting::setChangesNothingElse_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("a value in the brace form")
        << "a.conf" << braces << "zelmora.bin.path" << QByteArray(braces).replace("/bin", "/x y/è");
    QTest::newRow("a value in XML") << "a.xml" << xml << "zelmora.bin.path"
                                    << QByteArray(xml).replace("\"/bin\"", "\"/x y/è\"");
    QTest::newRow("a new setting") << "a.conf" << braces << "zelmora.language.basedir"
                                   << QByteArray(braces).replace("};\n\n};\n\n",
                                                                 "};\n\n    language: \n    {\n        basedir = "
                                                                 "\"/x y/è\";\n    };\n\n};\n\n");
}

void TestConfigWriting::setChangesNothingElse()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, before);
    QFETCH(QString, key);
    ConfigRun run;
    run.setEnvironment("LC_ALL", "C.UTF-8");
    const QString path = run.writeFile(file.toUtf8().constData(), before);
    setPermissions(path, 0640);
    run.start({"--file", file, "set", key, "/x y/è"});
    QCOMPARE(run.remarks(), QByteArray());
    QTEST(fileContents(path), "after");
    QCOMPARE(permissionsOf(path), mode_t(0640));
    QCOMPARE(filesIn(run.path(".")), (QStringList {file, "home"}));
}

void TestConfigWriting::setTakesAnyValueBehindTheKey_data()
{
    QTest::addColumn<QString>("value");

    for (const char* value : {"-1", "--force", "--file=b.conf", "--", "-", "", " a ", "a=b:{}", "a\nb", "'"})
        QTest::addRow("\"%s\"", value) << value;
}

void TestConfigWriting::setTakesAnyValueBehindTheKey()
{
    QFETCH(QString, value);
    ConfigRun run;
    QCOMPARE(run.statusOf({"set", "zelmora.doc.style", value}), 0);
    QCOMPARE(run.contents(),
             "zelmora: \n{\n    doc: \n    {\n        style = \"" + value.toUtf8() + "\";\n    };\n\n};\n\n");
}

// Not even where writing the file would drop something.
void TestConfigWriting::setWritesOnlyWhatChanges()
{
    ConfigRun run;
    const QByteArray odd = "words zelmora: { bin: { path=/bin; }; }; more words";
    const QByteArray good = "zelmora:{bin:{path=/bin;};};";
    for (const QByteArray& contents : {good, good + "more words"}) {
        run.setContents(contents);
        const ino_t before = fileStatus(run.file()).st_ino;
        QCOMPARE(run.statusOf({"set", "zelmora.bin.path", "/bin"}), 0);
        QCOMPARE(run.remarks(), QByteArray());
        QCOMPARE(run.contents(), contents);
        QCOMPARE(fileStatus(run.file()).st_ino, before);
    }
    run.setContents(odd);
    QCOMPARE(run.statusOf({"set", "zelmora.bin.path", "/bin"}), 1); // there it is not found
}

void TestConfigWriting::setRefuses_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* name, const char* key, const char* value, const char* message) {
        QTest::newRow(name) << key << value << QByteArray(message) + '\n';
    };

    row("a flag in capitals", "zelmora.doc.printDate", "True",
        "zelmora.doc.printDate is a flag, true or false, and \"True\" is none.");
    row("no number", "zelmora.doc.paperWidth", "40 mm",
        "zelmora.doc.paperWidth is a whole number from 0 to 10000, and \"40 mm\" is none.");
    row("an empty number", "zelmora.doc.paperWidth", "",
        "zelmora.doc.paperWidth is a whole number from 0 to 10000, and \"\" is none.");
    row("a number below its range", "zelmora.doc.topMargin", "-1",
        "zelmora.doc.topMargin is a whole number from 0 to 10000, and \"-1\" is none.");
    row("a number above its range", "zelmora.doc.paperWidth", "10001",
        "zelmora.doc.paperWidth is a whole number from 0 to 10000, and \"10001\" is none.");
    row("a word that there is not", "zelmora.logger.type", "ADD",
        "zelmora.logger.type is one of APPEND, OVERWRITE, and \"ADD\" is none.");
    row("a slip in a key", "zelmora.receiptdoc.papperWidth", "40",
        "No program reads zelmora.receiptdoc.papperWidth. Is \"zelmora.receiptdoc.paperWidth\" meant?");
    row("a key in another letter case", "zelmora.receiptDoc.paperWidth", "40",
        "No program reads zelmora.receiptDoc.paperWidth. Is \"zelmora.receiptdoc.paperWidth\" meant?");
    row("a key that is like none", "zelmora.doc.colour", "red",
        "No program reads zelmora.doc.colour. \"zelmora-config list\" shows what is read.");
    row("a key without its groups", "paperWidth", "40",
        "No program reads paperWidth. A key is whole, such as zelmora.receiptdoc.paperWidth.");
    row("a key that no program reads in this group", "zelmora.receiptdoc.descriptionWidth", "20",
        "No program reads zelmora.receiptdoc.descriptionWidth. \"zelmora-config list\" shows what is read.");
    row("a key of another suite", "other.doc.paperWidth", "40",
        "No program reads other.doc.paperWidth. \"zelmora-config list\" shows what is read.");
    row("a group", "zelmora.doc", "40", "No program reads zelmora.doc. \"zelmora-config list\" shows what is read.");
    row("a key of too many groups", "zelmora.doc.paperWidth.x", "40",
        "No program reads zelmora.doc.paperWidth.x. Is \"zelmora.doc.paperWidth\" meant?");
}

void TestConfigWriting::setRefuses()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(QByteArray, message);
    ConfigRun run;
    QCOMPARE(run.statusOf({"set", key, value}), 1);
    QCOMPARE(run.standardError, message);
    QVERIFY(!QFile::exists(run.file()));

    // What is forced is done where a look-up finds it.
    const bool isReached = key.contains('.') && !value.isEmpty();
    QCOMPARE(run.statusOf({"set", "--force", key, value}), key.contains('.') ? 0 : 1);
    if (isReached) {
        QCOMPARE(run.statusOf({"get", key}), 0);
        QCOMPARE(run.standardOutput, value.toUtf8() + '\n');
    }
}

void TestConfigWriting::setRefusesEvenForced_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* name, const char* file, const QByteArray& contents, const char* key,
                        const char* value, const char* message) {
        QTest::newRow(name) << file << contents << key << value << QByteArray(message);
    };

    const char* const value = "The value of zelmora.db.password cannot be kept";
    row("a semicolon", "a.conf", braces, "zelmora.db.password", "a;b", value);
    row("a quotation mark", "a.conf", braces, "zelmora.db.password", "a\"b", value);
    row("a character beyond Western European ones", "a.conf", braces, "zelmora.db.password", "a€b", value);
    row("a less-than sign in XML", "a.xml", xml, "zelmora.db.password", "a<b", value);
    row("an ampersand in XML", "a.xml", xml, "zelmora.db.password", "a&b", value);
    row("an ampersand of a reference in XML", "a.xml", xml, "zelmora.db.password", "a&amp;b", value);
    row("a blank in a name of XML", "a.xml", xml, "zelmora.a b", "1", "zelmora.a b cannot be kept");
    row("a sign of the format in the name of a group", "a.conf", braces, "zelmora.a}.x", "1",
        "zelmora.a}.x cannot be kept");
    row("a blank at the end of a group's name", "a.conf", braces, "zelmora.a .x", "1", "zelmora.a .x cannot be kept");
    row("a sign of the format in a name", "a.conf", braces, "zelmora.a=b", "1", "zelmora.a=b cannot be kept");
    row("a name beyond Western European ones", "a.conf", braces, "zelmora.€", "1", "cannot be kept");
    row("a key without a group", "a.conf", braces, "zelmora", "1", "zelmora cannot be kept");
    row("an empty name", "a.conf", braces, "zelmora..a", "1", "zelmora..a cannot be kept");
    row("a key of another first group", "a.conf", braces, "other.a", "1",
        "other.a would not be found: the first group of the file is not \"other\".");
    row("a first group that is a slip", "a.conf", "zelmore: { a = 1; };", "zelmora.a", "2",
        "zelmora.a would not be found: the first group of the file is not \"zelmora\".");
    row("a text that is no settings file", "a.conf", "Dear guest: {we = you;}", "zelmora.a", "2",
        "does not look like the settings of the suite");
    row("XML that is hidden by its beginning", "a.xml", "<?xml version='1.0'?>\n<zelmora a='1'/>", "zelmora.a", "2",
        "Nothing may stand before the first group of an XML file");
    row("XML that cannot be written as it was read", "a.xml", "<zelmora a='1' b='x&amp;y'/>", "zelmora.a", "2",
        "would not be XML, and nothing would be read back, because of: zelmora.b = x&y");
}

void TestConfigWriting::setRefusesEvenForced()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, contents);
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(QByteArray, message);
    ConfigRun run;
    run.setEnvironment("LC_ALL", "C.UTF-8");
    const QString path = run.writeFile(file.toUtf8().constData(), contents);
    run.start({"--file", path, "--force", "set", key, value});
    QCOMPARE(run.exitStatus, 1);
    QVERIFY2(run.standardError.contains(message), run.standardError.constData());
    QCOMPARE(fileContents(path), contents);
    QCOMPARE(filesIn(run.path(".")), (QStringList {file, "home"}));
}

void TestConfigWriting::setFollowsALink()
{
    ConfigRun run;
    QVERIFY(QDir(run.path(".")).mkdir("real"));
    run.writeFile("real/zelmora.conf", "zelmora: { a: { b = 1; b = 2; }; };");
    makeLink("real/zelmora.conf", run.file());
    makeLink("real/new.conf", run.path("new.conf"));
    QCOMPARE(run.statusOf({"--force", "set", "zelmora.bin.path", "/x"}), 0);
    QVERIFY(S_ISLNK(fileStatus(run.file()).st_mode));
    QVERIFY(fileContents(run.path("real/zelmora.conf")).contains("path = \"/x\";"));
    QCOMPARE(fileContents(run.path("real/zelmora.conf~")), QByteArray("zelmora: { a: { b = 1; b = 2; }; };"));
    QCOMPARE(run.ownStatusOf({"--file", run.path("new.conf"), "set", "zelmora.bin.path", "/x"}), 0);
    QVERIFY(fileContents(run.path("real/new.conf")).contains("path = \"/x\";"));
    QCOMPARE(permissionsOf(run.path("real/new.conf")), mode_t(0600));
}

// An ordinary user may change the file, and keep nothing beside it.
void TestConfigWriting::folderMayNotBeWritten()
{
    ConfigRun run;
    const QByteArray losing = braces + "words";
    setPermissions(run.writeFile("good.conf", braces), 0666);
    setPermissions(run.writeFile("losing.conf", losing), 0666);
    setPermissions(run.path("."), 0555);
    int statuses[4] = {};
    QByteArray message;
    {
        const OrdinaryUser someone;
        statuses[0] = run.ownStatusOf({"--file", "good.conf", "set", "zelmora.bin.path", "/x"});
        statuses[1] = run.ownStatusOf({"--file", "losing.conf", "set", "--force", "zelmora.bin.path", "/x"});
        message = run.standardError;
        statuses[2] = run.ownStatusOf({"--file", "new.conf", "set", "zelmora.bin.path", "/x"});
        statuses[3] = run.ownStatusOf({"--file", "new.conf", "new"});
    }
    setPermissions(run.path("."), 0755);
    QCOMPARE(statuses[0], 0);
    QCOMPARE(fileContents(run.path("good.conf")), QByteArray(braces).replace("/bin", "/x"));
    QCOMPARE(statuses[1], 2);
    QVERIFY2(message.contains("cannot be kept as losing.conf~: Permission denied"), message.constData());
    QCOMPARE(fileContents(run.path("losing.conf")), losing);
    QCOMPARE(statuses[2], 2);
    QCOMPARE(statuses[3], 2);
    QCOMPARE(filesIn(run.path(".")), (QStringList {"good.conf", "home", "losing.conf"}));
}

void TestConfigWriting::folderCannotBeMade()
{
    ConfigRun run;
    run.setContents(braces);
    for (const QStringList& arguments : {QStringList {"set", "zelmora.bin.path", "/x"}, QStringList {"new"}}) {
        QCOMPARE(run.ownStatusOf(QStringList {"--file", "a.conf/below/b.conf"} + arguments), 2);
        QCOMPARE(run.standardError, QByteArray("The folder a.conf/below cannot be made: Not a directory\n"));
    }
}

void TestConfigWriting::unsets()
{
    ConfigRun run;
    run.setContents(braces);
    setPermissions(run.file(), 0644);
    QCOMPARE(run.statusOf({"unset", "zelmora.doc.odd"}), 0); // no program reads it, and it may go
    QCOMPARE(run.remarks(), QByteArray());
    QCOMPARE(run.contents(), QByteArray(braces).replace("        odd = \"b\";\n", ""));
    QCOMPARE(permissionsOf(run.file()), mode_t(0644));
    QCOMPARE(run.statusOf({"unset", "zelmora.bin.path"}), 0);
    QCOMPARE(run.contents(),
             QByteArray("zelmora: \n{\n    top = \"1\";\n    doc: \n    {\n        style = \"a\";\n    };\n\n};\n\n"));
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.conf", "home"}));
}

void TestConfigWriting::unsetsNothing()
{
    ConfigRun run;
    run.setContents(braces + "words");
    for (const char* key : {"zelmora.doc.paperWidth", "zelmora.doc", "style", "", "--force"}) {
        QCOMPARE(run.statusOf({"unset", "--", key}), 1);
        QCOMPARE(run.standardError, QByteArray(key) + " is not set.\n");
    }
    QCOMPARE(run.contents(), braces + "words");
}

void TestConfigWriting::unsetKeepsWhatItCannotRead()
{
    ConfigRun run;
    const QByteArray letter = "Dear zelmore: {we = you;}";
    run.setContents(letter);
    QCOMPARE(run.statusOf({"unset", "--force", "Dear zelmore.we"}), 1);
    QVERIFY2(run.standardError.contains("does not look like"), run.standardError.constData());
    QCOMPARE(run.contents(), letter);
}

void TestConfigWriting::whatWouldBeLostIsNotLost_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QByteArray>("loss");
    const auto row = [](const char* name, const char* file, const QByteArray& contents, const QByteArray& loss) {
        QTest::newRow(name) << file << contents << loss;
    };

    row("words behind the end", "a.conf", "zelmora: { bin: { path = 1; }; };\nmore words", "  line 2: more words\n");
    row("a second group", "a.conf", "zelmora: { bin: { path = 1; }; };\n\nother: { a = 1; };", "  line 3: other\n");
    row("an earlier value", "a.conf", "zelmora: { bin: { path = 0; path = 1; }; };",
        "  line 1: zelmora.bin.path = 0\n");
    row("an empty group", "a.conf", "zelmora: { bin: { path = 1; }; doc: { }; };", "  line 1: doc\n");
    row("a remark of two lines in XML", "a.xml", "<zelmora><bin path='1'/>\n<!-- one\ntwo --></zelmora>",
        "  lines 2 to 3: one two\n");
    const QByteArray good = "zelmora: { bin: { path = 1; }; };\n";
    const QByteArray word99(99, 'w');
    const QByteArray pizza = "\xF0\x9F\x8D\x95"; // two units of the toolkit's text
    row("a word of 100 letters", "a.conf", good + word99 + 'w', "  line 2: " + word99 + "w\n");
    row("a word of 101 letters, which is cut", "a.conf", good + word99 + "ww", "  line 2: " + word99 + "w...\n");
    row("a character across the cut, which goes whole", "a.conf", good + word99 + pizza,
        "  line 2: " + word99 + "...\n");
}

// No terminal is here to ask.
void TestConfigWriting::whatWouldBeLostIsNotLost()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, contents);
    QFETCH(QByteArray, loss);
    ConfigRun run;
    const QString path = run.writeFile(file.toUtf8().constData(), contents);
    for (const QStringList& arguments :
         {QStringList {"set", "zelmora.bin.path", "/x"}, QStringList {"unset", "zelmora.bin.path"}}) {
        QCOMPARE(run.ownStatusOf(QStringList {"--file", file} + arguments), 1);
        QCOMPARE(run.standardError,
                 "Saving will drop from the file:\n" + loss + "Nothing was changed. With --force that is dropped.\n");
        QCOMPARE(fileContents(path), contents);
        QCOMPARE(filesIn(run.path(".")), (QStringList {file, "home"}));
    }
    QCOMPARE(run.ownStatusOf({"--file", file, "set", "--force", "zelmora.bin.path", "/x"}), 0);
    QCOMPARE(run.standardError, "Saving will drop from the file:\n" + loss);
    QCOMPARE(fileContents(path + '~'), contents);
    QCOMPARE(run.ownStatusOf({"--file", file, "get", "zelmora.bin.path"}), 0);
    QCOMPARE(run.standardOutput, QByteArray("/x\n"));
}

// Another one is, though it holds as little.
void TestConfigWriting::anEmptyGroupThatIsFilledIsNotLost()
{
    ConfigRun run;
    run.setContents("zelmora: { receiptdoc: { }; };");
    QCOMPARE(run.statusOf({"set", "zelmora.receiptdoc.paperWidth", "40"}), 0);
    QCOMPARE(run.standardError, QByteArray());
    QCOMPARE(run.contents(),
             QByteArray("zelmora: \n{\n    receiptdoc: \n    {\n        paperWidth = \"40\";\n    };\n\n};\n\n"));
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.conf", "home"}));

    run.setContents("zelmora: { receiptdoc: { }; receipt: { }; };");
    QCOMPARE(run.statusOf({"set", "zelmora.receiptdoc.paperWidth", "40"}), 1);
    QCOMPARE(run.standardError,
             QByteArray("Saving will drop from the file:\n  line 1: receipt\n"
                        "Nothing was changed. With --force that is dropped.\n"));
}

void TestConfigWriting::whatIsLostIsKeptBeside()
{
    ConfigRun run;
    run.setContents(braces + "words");
    setPermissions(run.file(), 0640);
    run.writeFile("a.conf~", "an earlier one");
    QCOMPARE(run.statusOf({"unset", "--force", "zelmora.doc.odd"}), 0);
    QCOMPARE(fileContents(run.path("a.conf~")), braces + "words");
    QCOMPARE(permissionsOf(run.path("a.conf~")), mode_t(0640));
    QCOMPARE(permissionsOf(run.file()), mode_t(0640));
    QCOMPARE(run.contents(), QByteArray(braces).replace("        odd = \"b\";\n", ""));
}

void TestConfigWriting::nothingIsLostThatCannotBeKept()
{
    ConfigRun run;
    run.setContents(braces + "words");
    QVERIFY(QDir(run.path(".")).mkdir("a.conf~"));
    QCOMPARE(run.statusOf({"set", "--force", "zelmora.bin.path", "/x"}), 2);
    QVERIFY2(run.standardError.contains("cannot be kept"), run.standardError.constData());
    QCOMPARE(run.contents(), braces + "words");
}

// Each line of the inner groups begins with 4,000 blanks.
void TestConfigWriting::settingsTooLargeToWrite()
{
    ConfigRun run;
    const QByteArray settings = QByteArray("zelmora:{").repeated(998) + QByteArray("g:{a=;};").repeated(140000)
        + QByteArray("};").repeated(998);
    run.setContents(settings);
    QCOMPARE(run.statusOf({"set", "--force", "zelmora.x", "1"}), 2);
    QVERIFY2(run.standardError.endsWith("cannot be written: the settings are larger than 2 GiB\n"),
             run.standardError.constData());
    QVERIFY(run.contents() == settings);
}

void TestConfigWriting::secretsAreNotShown_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QByteArray>("loss");

    QTest::newRow("the earlier value") << QByteArray("zelmora: { db: { password = cat; password = dog; }; };")
                                       << QByteArray("line 1: zelmora.db.password = ***\n");
    QTest::newRow("quotes in the value") << QByteArray("zelmora: { db: { password = ca\"t; }; };")
                                         << QByteArray("line 1: ***\n");
}

void TestConfigWriting::secretsAreNotShown()
{
    QFETCH(QByteArray, contents);
    QFETCH(QByteArray, loss);
    ConfigRun run;
    run.setContents(contents);
    QCOMPARE(run.statusOf({"set", "zelmora.bin.path", "/x"}), 1);
    QVERIFY2(run.standardError.contains(loss), run.standardError.constData());
    run.writeFile("b.xml", "<zelmora><db password='c&amp;t'/></zelmora>");
    QCOMPARE(run.ownStatusOf({"--file", "b.xml", "set", "zelmora.bin.path", "/x"}), 1);
    QVERIFY2(run.standardError.contains("zelmora.db.password = ***"), run.standardError.constData());
    QVERIFY(!run.standardError.contains("c&t"));
}

void TestConfigWriting::newFileIsComplete_data()
{
    QTest::addColumn<QString>("file");

    QTest::newRow("in the brace form") << "one/two/a.conf";
    QTest::newRow("in XML") << "one/two/a.xml";
}

void TestConfigWriting::newFileIsComplete()
{
    QFETCH(QString, file);
    ConfigRun run;
    QCOMPARE(run.ownStatusOf({"--file", file, "new"}), 0);
    QCOMPARE(run.standardOutput, "The file " + file.toUtf8() + " was made.\n");
    const QByteArray contents = fileContents(run.path(file.toUtf8().constData()));
    int settings = 0;
    for (const vocabulary::SettingGroup& group : vocabulary::settingGroups()) {
        QVERIFY2(contents.contains(group.name.data()), group.name.data());
        for (const vocabulary::Setting& setting : group.settings)
            settings += vocabulary::isRead(group, setting) ? 1 : 0;
    }
    QCOMPARE(contents.count(" = \""), settings);
    QCOMPARE(run.ownStatusOf({"--file", file, "get", "zelmora.receiptdoc.paperWidth"}), 0);
    QCOMPARE(run.standardOutput, QByteArray("32\n"));
    QCOMPARE(run.ownStatusOf({"--file", file, "check", "--strict"}), 0);
    QCOMPARE(run.standardOutput, QByteArray()); // not even a note
}

void TestConfigWriting::newFileIsTheUsersAlone()
{
    ConfigRun run;
    QDir(run.path("home")).removeRecursively();
    const mode_t previous = umask(0);
    QCOMPARE(run.ownStatusOf({"new"}), 0);
    umask(previous);
    QCOMPARE(permissionsOf(run.ownFile()), mode_t(0600));
    QCOMPARE(filesIn(QFileInfo(run.ownFile()).path()), QStringList("zelmora.conf"));
}

void TestConfigWriting::newFileTakesNobodysPlace_data()
{
    QTest::addColumn<QString>("file");

    for (const char* name : {"a.conf", "empty.conf", "home", "link.conf", "pipe"})
        QTest::newRow(name) << name;
}

void TestConfigWriting::newFileTakesNobodysPlace()
{
    QFETCH(QString, file);
    ConfigRun run;
    run.setContents("mine");
    run.writeFile("empty.conf", QByteArray());
    makeLink("a.conf", run.path("link.conf"));
    QCOMPARE(mkfifo(QFile::encodeName(run.path("pipe")).constData(), 0600), 0);
    const QStringList before = filesIn(run.path("."));
    QCOMPARE(run.ownStatusOf({"new", "--file", file}), 1);
    QCOMPARE(run.standardError, "There is a file " + file.toUtf8() + " already, and it stays as it is.\n");
    QCOMPARE(run.contents(), QByteArray("mine"));
    QCOMPARE(filesIn(run.path(".")), before);
}

// The columns leave something to the description in each document.
void TestConfigWriting::newFilePrintsWithinThePaper()
{
    ConfigRun run;
    QCOMPARE(run.ownStatusOf({"new"}), 0);
    for (const vocabulary::Method& method : vocabulary::methods()) {
        QCOMPARE(run.ownStatusOf({"effective", method.name}), 0);
        int columns = 0;
        int paper = 32;
        for (const QByteArray& line : run.standardOutput.split('\n')) {
            const int value = line.simplified().split(' ').value(1).toInt();
            if (line.contains(".paperWidth "))
                paper = value;
            else if (line.contains("FieldWidth "))
                columns += value;
        }
        QVERIFY2(paper - columns - 3 >= 12, method.name.data());
    }
}

void TestConfigWriting::convertsThereAndBack_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QByteArray>("firstContents");
    QTest::addColumn<QByteArray>("secondContents");

    const QByteArray odd = "zelmora: \n{\n    a = \" it's > 1 = 2: {}\nè \";\n};\n\n";
    const QByteArray oddXml = "\n<zelmora\n    a = \" it's > 1 = 2: {}\nè \">\n</zelmora>\n";
    QTest::newRow("from braces to XML") << "a.conf"
                                        << "b.xml" << braces << xml;
    QTest::newRow("from XML to braces") << "a.xml"
                                        << "b.conf" << xml << braces;
    QTest::newRow("by the end of the name alone") << "a"
                                                  << "b.XML" << braces << xml;
    QTest::newRow("signs that both can hold") << "a.conf"
                                              << "b.xml" << odd << oddXml;
    QTest::newRow("an empty file") << "a.conf"
                                   << "b.xml" << QByteArray() << QByteArray();
}

void TestConfigWriting::convertsThereAndBack()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QByteArray, firstContents);
    ConfigRun run;
    run.writeFile(first.toUtf8().constData(), firstContents);
    QCOMPARE(run.ownStatusOf({"convert", first, second}), 0);
    QCOMPARE(run.remarks(), QByteArray());
    QTEST(fileContents(run.path(second.toUtf8().constData())), "secondContents");
    QCOMPARE(run.ownStatusOf({"convert", second, "back" + first}), 0);
    QCOMPARE(fileContents(run.path(("back" + first).toUtf8().constData())), firstContents);
    QCOMPARE(fileContents(run.path(first.toUtf8().constData())), firstContents);
}

void TestConfigWriting::convertedFileHasTheMode()
{
    ConfigRun run;
    run.setContents(braces);
    for (const mode_t mode : {0600U, 0644U, 0400U, 0660U}) {
        setPermissions(run.file(), mode);
        QFile::remove(run.path("b.xml"));
        QCOMPARE(run.ownStatusOf({"convert", "a.conf", "b.xml"}), 0);
        QCOMPARE(permissionsOf(run.path("b.xml")), mode);
    }
}

void TestConfigWriting::convertRefuses_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* name, const char* from, const char* to, const char* contents, const char* message) {
        QTest::newRow(name) << from << to << QByteArray(contents) << QByteArray(message);
    };

    row("a semicolon in a value", "a.xml", "b.conf", "<zelmora><bin path='a;b'/></zelmora>",
        "zelmora.bin.path = a;b\n");
    row("a quotation mark in a value", "a.xml", "b.conf", "<zelmora a='x\"y'/>", "zelmora.a = x\"y\n");
    row("a secret with a semicolon", "a.xml", "b.conf", "<zelmora><db password='a;b'/></zelmora>",
        "zelmora.db.password = ***\n");
    row("a colon in a name", "a.xml", "b.conf", "<zelmora x:y='1'/>", "zelmora.x:y = 1\n");
    row("a less-than sign in a value", "a.conf", "b.xml", "zelmora: { a = x<y; };", "zelmora.a = x<y\n");
    row("an ampersand in a value", "a.conf", "b.xml", "zelmora: { a = x&y; b = 1; };", "zelmora.a = x&y\n");
    row("a name that is none in XML", "a.conf", "b.xml", "zelmora: { 1st: { a = 1; }; };", "1st\n");
    row("a setting outside every group", "a.conf", "b.xml", "a = 1; zelmora: { b = 1; };", "  a = 1\n");
    row("a second group at top level", "a.conf", "b.xml", "zelmora: { b = 1; };\nother: { c = 1; };",
        "line 2: other\n");
    row("a remark in XML", "a.xml", "b.conf", "<zelmora a='1'>\n<!-- mine --></zelmora>", "line 2: mine\n");
    row("the earlier value of a repeated setting", "a.conf", "b.xml", "zelmora: { b = 1; b = 2; };",
        "line 1: zelmora.b = 1\n");
    row("XML that is hidden by its beginning", "a.xml", "b.conf", "<?xml version='1.0'?><zelmora a='1'/>",
        "Nothing may stand before the first group of an XML file");
    row("a text that is no settings file", "a.conf", "b.xml", "Dear guest: {we = you;}",
        "does not look like the settings");
}

void TestConfigWriting::convertRefuses()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QByteArray, contents);
    QFETCH(QByteArray, message);
    ConfigRun run;
    run.writeFile(from.toUtf8().constData(), contents);
    QCOMPARE(run.ownStatusOf({"convert", from, to}), 1);
    QVERIFY2(run.standardError.contains(message), run.standardError.constData());
    QCOMPARE(filesIn(run.path(".")), (QStringList {from, "home"}));
}

void TestConfigWriting::convertTakesNobodysPlace()
{
    ConfigRun run;
    run.setContents(braces);
    run.writeFile("b.xml", "mine");
    QCOMPARE(run.ownStatusOf({"convert", "a.conf", "b.xml"}), 1);
    QCOMPARE(run.standardError, QByteArray("There is a file b.xml already, and it stays as it is.\n"));
    QCOMPARE(fileContents(run.path("b.xml")), QByteArray("mine"));
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.conf", "b.xml", "home"}));
}

void TestConfigWriting::convertCannotRead_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");

    QTest::newRow("a file that is missing") << "missing.conf"
                                            << "b.xml";
    QTest::newRow("XML that breaks off") << "broken.xml"
                                         << "b.conf";
    QTest::newRow("a folder") << "home"
                              << "b.xml";
    QTest::newRow("into a folder that is missing") << "a.conf"
                                                   << "missing/b.xml";
}

void TestConfigWriting::convertCannotRead()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    ConfigRun run;
    run.setContents(braces);
    run.writeFile("broken.xml", "<zelmora");
    QCOMPARE(run.ownStatusOf({"convert", from, to}), 2);
    QVERIFY(!run.standardError.isEmpty());
    QCOMPARE(filesIn(run.path(".")), (QStringList {"a.conf", "broken.xml", "home"}));
}

QTEST_GUILESS_MAIN(TestConfigWriting)
#include "tst_configwriting.moc"
