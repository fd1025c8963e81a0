#include "settings/configrun.h"

#include "support/ordinaryuser.h"
#include "support/toolkitlibraries.h"
#include "support/unusablenames.h"
#include "vocabulary/settings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

/// `zelmora-config` as a process: how it is called, and what it shows of files that it leaves as they are.
class TestConfigProgram : public QObject {
    Q_OBJECT

private slots:
    void loadsNoMoreThanItNeeds();
    void wrongCall_data();
    void wrongCall();
    void help_data();
    void help();
    void version();
    void optionsBeforeAndAfterTheCommand_data();
    void optionsBeforeAndAfterTheCommand();

    void gets_data();
    void gets();
    void namesTheKeyThatIsNear();
    void lists_data();
    void lists();
    void listsAllThatIsRead();
    void listsAsJson();
    void longValueMovesItsOwnLineAlone();
    void effective_data();
    void effective();
    void effectiveSettingsOfAMethod_data();
    void effectiveSettingsOfAMethod();
    void effectiveAsJson();

    void checks_data();
    void checks();
    void checksAsJson();
    void checkCannotRead_data();
    void checkCannotRead();
    void fileThatCannotBeRead_data();
    void fileThatCannotBeRead();
    void ownFileIsMissing_data();
    void ownFileIsMissing();
    void speaksTheLanguageOfTheSettings();
    void encodings_data();
    void encodings();
    void fileNameThatIsNoText();
    void surroundings_data();
    void surroundings();
    void hostileFile_data();
    void hostileFile();
};

namespace {

QJsonArray arrayIn(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isArray() ? document.array() : QJsonArray {"no array"};
}

} // namespace

void TestConfigProgram::loadsNoMoreThanItNeeds()
{
    QCOMPARE(toolkitLibraries(ZELMORA_CONFIG_PROGRAM), coreLibraries());
}

void TestConfigProgram::wrongCall_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* name, const char* arguments, const char* message) {
        QTest::newRow(name) << QString(arguments).split(' ', Qt::SkipEmptyParts) << QByteArray(message);
    };

    row("nothing at all", "", "There is no command. The commands are check, list, effective,");
    row("options alone", "--format json", "There is no command.");
    row("a command that there is not", "lsit", "\"lsit\" is no command. Is \"list\" meant?");
    row("a command that is like none", "remove", "\"remove\" is no command. The commands are check,");
    row("an option that there is not", "--files a.conf list", "files");
    row("an option that there is not, after the command", "list --colour", "colour");
    row("an option without its value", "list --file", "file");
    row("an empty file name", "--file= list", "The option --file needs the name of a file.");
    row("a form that there is not", "--format xml list", "\"xml\" is no format");
    row("a code that there is not", "--exclude nothing check", "\"nothing\" is no code");
    row("an option of another command", "list --force", "The command \"list\" has no option --force.");
    row("another option of another command", "get --format json zelmora.a",
        "The command \"get\" has no option --format.");
    row("a file for a conversion", "--file a.conf convert b.conf b.xml",
        "The command \"convert\" has no option --file.");
    row("too much to check", "check a.conf", "The call is: zelmora-config [options] check\n");
    row("two groups", "list doc solddoc", "The call is: zelmora-config [options] list [GROUP]\n");
    row("no method", "effective", "The call is: zelmora-config [options] effective METHOD\n");
    row("no key to get", "get", "The call is: zelmora-config [options] get KEY\n");
    row("an option behind the key", "get zelmora.a --file=a.conf", "The call is: zelmora-config [options] get KEY\n");
    row("no value", "set zelmora.a", "The call is: zelmora-config [options] set KEY VALUE\n");
    row("two values", "set zelmora.a 1 2", "The call is: zelmora-config [options] set KEY VALUE\n");
    row("two keys to unset", "unset zelmora.a zelmora.b", "The call is: zelmora-config [options] unset KEY\n");
    row("a name for a new file that is no option", "new a.conf", "The call is: zelmora-config [options] new\n");
    row("one file to convert", "convert a.conf", "The call is: zelmora-config [options] convert FROM TO\n");
    row("a group that there is not", "list recieptdoc", "There is no group \"recieptdoc\". Is \"receiptdoc\" meant?");
    row("a group that is like none", "list printers",
        "There is no group \"printers\". There are: language, logger, db,");
    row("an empty group", "list --quiet=", "quiet");
    row("a method that there is not", "effective printfullorder",
        "There is no print method \"printfullorder\". Is \"printFullOrder\" meant?");
    row("files of one form", "convert a.conf b.conf", "The name of one of them must end in .xml.");
    row("XML files both", "convert a.xml b.XML", "have the same form");
}

void TestConfigProgram::wrongCall()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    ConfigRun run;
    run.start(arguments);
    QVERIFY2(run.standardError.contains(message), run.standardError.constData());
    QCOMPARE(run.standardOutput, QByteArray());
    QCOMPARE(run.exitStatus, 2);
    QCOMPARE(filesIn(run.path(".")), QStringList("home"));
}

void TestConfigProgram::help_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("asked for") << QStringList {"--help"};
    QTest::newRow("asked for in short") << QStringList {"-h"};
    QTest::newRow("asked for behind a command without its arguments") << QStringList {"set", "--help"};
}

void TestConfigProgram::help()
{
    QFETCH(QStringList, arguments);
    ConfigRun run;
    QCOMPARE(run.ownStatusOf(arguments), 0);
    for (const char* text :
         {"check ", "list [GROUP]", "effective METHOD", "get KEY", "set KEY VALUE", "unset KEY", "new ",
          "convert FROM TO", "--file", "--format", "--show-secrets", "--force", "exit status"})
        QVERIFY2(run.standardOutput.contains(text), text);
    QCOMPARE(run.standardError, QByteArray());
}

void TestConfigProgram::version()
{
    ConfigRun run;
    QCOMPARE(run.ownStatusOf({"--version"}), 0);
    QCOMPARE(run.standardOutput, QByteArray("zelmora-config 1.0\n"));
}

void TestConfigProgram::optionsBeforeAndAfterTheCommand_data()
{
    QTest::addColumn<QStringList>("arguments");
    const auto row = [](const char* name, const char* arguments) {
        QTest::newRow(name) << QString(arguments).split(' ');
    };

    row("before the command", "--file a.conf --show-secrets list db");
    row("after the command", "list --file a.conf --show-secrets db");
    row("after its argument", "list db --show-secrets --file a.conf");
    row("on all sides", "--file a.conf list --show-secrets db");
    row("with an equals sign", "--file=a.conf list db --show-secrets");
    row("the last one of two files", "--file b.conf list db --show-secrets --file a.conf");
}

void TestConfigProgram::optionsBeforeAndAfterTheCommand()
{
    QFETCH(QStringList, arguments);
    ConfigRun run;
    run.setContents("zelmora: { db: { password = cat; }; };");
    QCOMPARE(run.ownStatusOf(arguments), 0);
    QVERIFY2(run.standardOutput.contains("zelmora.db.password  cat "), run.standardOutput.constData());
    QCOMPARE(run.standardOutput.count('\n'), 4);
}

void TestConfigProgram::gets_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("output"); // empty: it is absent

    const QByteArray plain = "zelmora: { a = \" x y \"; b = ; doc: { c = 1; }; doc: { d = 2; }; }; other: { e = 3; };";
    QTest::newRow("a value, blanks and all") << plain << "zelmora.a" << QByteArray(" x y \n");
    QTest::newRow("a value of a group inside") << plain << "zelmora.doc.c" << QByteArray("1\n");
    QTest::newRow("a value of the second group of the name") << plain << "zelmora.doc.d" << QByteArray("2\n");
    QTest::newRow("an empty value") << plain << "zelmora.b" << QByteArray();
    QTest::newRow("a key that is not there") << plain << "zelmora.x" << QByteArray();
    QTest::newRow("a group") << plain << "zelmora.doc" << QByteArray();
    QTest::newRow("a key in another letter case") << plain << "zelmora.A" << QByteArray();
    QTest::newRow("in the second group at top level") << plain << "other.e" << QByteArray();
    QTest::newRow("a key without its groups") << plain << "c" << QByteArray();
    QTest::newRow("an empty key") << plain << "" << QByteArray();
    QTest::newRow("a secret") << QByteArray("zelmora: { db: { password = cat; }; };") << "zelmora.db.password"
                              << QByteArray("cat\n");
    QTest::newRow("in its 8-bit form") << QByteArray("zelmora: { a = \xE2\x82\xAC; };") << "zelmora.a"
                                       << QByteArray("?\n");
    QTest::newRow("of a repeated setting the later")
        << QByteArray("zelmora: { a = 1; a = 2; };") << "zelmora.a" << QByteArray("2\n");
    QTest::newRow("of an empty file") << QByteArray() << "zelmora.a" << QByteArray();
}

void TestConfigProgram::gets()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, key);
    QFETCH(QByteArray, output);
    ConfigRun run;
    run.setContents(settings);
    QCOMPARE(run.statusOf({"get", key}), output.isEmpty() ? 1 : 0);
    QCOMPARE(run.standardOutput, output);
    QCOMPARE(run.standardError, output.isEmpty() ? key.toUtf8() + " is not set.\n" : QByteArray());
}

void TestConfigProgram::namesTheKeyThatIsNear()
{
    ConfigRun run;
    run.setContents("zelmora: { receiptdoc: { paperWidth = 40; }; };");
    QCOMPARE(run.statusOf({"get", "zelmora.receiptdoc.papperWidth"}), 1);
    const QByteArray near = "zelmora.receiptdoc.papperWidth is not set. Is \"zelmora.receiptdoc.paperWidth\" meant?\n";
    QCOMPARE(run.standardError, near);
    QCOMPARE(run.statusOf({"unset", "zelmora.receiptdoc.papperWidth"}), 1);
    QCOMPARE(run.standardError, near);
    QCOMPARE(run.statusOf({"get", "zelmora.doc.printTime"}), 1); // which is near printDate, and read
    QCOMPARE(run.standardError, QByteArray("zelmora.doc.printTime is not set.\n"));
}

void TestConfigProgram::lists_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("output"); // FILE: the file's name

    QTest::newRow("what is there, and what the absence of the rest means")
        << QByteArray("zelmora: \n{\n    language:\n    {\n        file = \"/\";\n    };\n};\n")
        << QStringList {"list", "language"}
        << QByteArray("zelmora.language.basedir  (the labels are English)  default\n"
                      "zelmora.language.file     /                         FILE:5\n");
    QTest::newRow("a value that absence stands for")
        << QByteArray("zelmora: { logger: { type = APPEND; }; };") << QStringList {"list", "logger"}
        << QByteArray("zelmora.logger.level     DEBUG                default\n"
                      "zelmora.logger.basedir   (the root folder)    default\n"
                      "zelmora.logger.filename  (nothing is logged)  default\n"
                      "zelmora.logger.type      APPEND               FILE:1\n");
    const QByteArray secret =
        "zelmora: { bin: { path = /bin; };\n db: { dbname = z; username = t;\npassword = cat; hostname = h; }; };";
    QTest::newRow("a secret is hidden") << secret << QStringList {"list", "db"}
                                        << QByteArray("zelmora.db.dbname    z    FILE:2\n"
                                                      "zelmora.db.username  t    FILE:2\n"
                                                      "zelmora.db.password  ***  FILE:3\n"
                                                      "zelmora.db.hostname  h    FILE:3\n");
    QTest::newRow("a secret is shown when that is asked for") << secret << QStringList {"list", "--show-secrets", "db"}
                                                              << QByteArray("zelmora.db.dbname    z    FILE:2\n"
                                                                            "zelmora.db.username  t    FILE:2\n"
                                                                            "zelmora.db.password  cat  FILE:3\n"
                                                                            "zelmora.db.hostname  h    FILE:3\n");
    QTest::newRow("a value of two lines stands in one")
        << QByteArray("zelmora: { bin: { path = a\nb; }; };") << QStringList {"list", "bin"}
        << QByteArray("zelmora.bin.path  a b  FILE:1\n");
    QTest::newRow("an empty value is absent")
        << QByteArray("zelmora: { bin: { path = ; }; };") << QStringList {"list", "bin"}
        << QByteArray("zelmora.bin.path  (the root folder)  default\n");
    QTest::newRow("nothing of another first group")
        << QByteArray("zelmore: { bin: { path = /; }; };") << QStringList {"list", "bin"}
        << QByteArray("zelmora.bin.path  (the root folder)  default\n");
}

void TestConfigProgram::lists()
{
    QFETCH(QByteArray, settings);
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, output);
    ConfigRun run;
    run.setContents(settings);
    QCOMPARE(run.statusOf(arguments), 0);
    QCOMPARE(run.standardOutput, output.replace("FILE", run.file().toUtf8()));
    QCOMPARE(run.standardError, QByteArray());
}

void TestConfigProgram::listsAllThatIsRead()
{
    QStringList keys;
    for (const vocabulary::SettingGroup& group : vocabulary::settingGroups()) {
        for (const vocabulary::Setting& setting : group.settings) {
            if (vocabulary::isRead(group, setting))
                keys += QString("zelmora.%1.%2").arg(group.name, setting.key);
        }
    }
    ConfigRun run;
    QCOMPARE(run.ownStatusOf({"list"}), 0);
    QStringList listed;
    for (const QString& line : QString::fromUtf8(run.standardOutput).split('\n', Qt::SkipEmptyParts)) {
        listed += line.section(' ', 0, 0);
        QVERIFY2(line.endsWith("  default"), qPrintable(line));
    }
    QCOMPARE(listed, keys);
    QVERIFY(listed.contains("zelmora.fiscaldoc.descriptionWidth"));
    QVERIFY(!listed.contains("zelmora.receiptdoc.descriptionWidth"));
}

void TestConfigProgram::listsAsJson()
{
    ConfigRun run;
    run.setContents("zelmora: { logger: { level = \"è\";\n basedir = /log; }; db: { password = cat; }; };");
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    QCOMPARE(run.statusOf({"list", "--format", "json", "logger"}), 0);
    const QJsonValue null;
    const QJsonArray expected {
        QJsonObject {{"key", "zelmora.logger.level"},
                     {"value", "è"},
                     {"default", "DEBUG"},
                     {"source", "file"},
                     {"file", run.file()},
                     {"line", 1}},
        QJsonObject {{"key", "zelmora.logger.basedir"},
                     {"value", "/log"},
                     {"default", null},
                     {"source", "file"},
                     {"file", run.file()},
                     {"line", 2}},
        QJsonObject {{"key", "zelmora.logger.filename"},
                     {"value", null},
                     {"default", null},
                     {"source", "default"},
                     {"file", null},
                     {"line", null}},
        QJsonObject {{"key", "zelmora.logger.type"},
                     {"value", null},
                     {"default", null},
                     {"source", "default"},
                     {"file", null},
                     {"line", null}},
    };
    QCOMPARE(arrayIn(run.standardOutput), expected);
    QCOMPARE(run.statusOf({"list", "--format=json", "db"}), 0);
    QCOMPARE(arrayIn(run.standardOutput).at(2).toObject().value("value"), QJsonValue("***"));
    QCOMPARE(run.statusOf({"list", "--format=json", "--show-secrets", "db"}), 0);
    QCOMPARE(arrayIn(run.standardOutput).at(2).toObject().value("value"), QJsonValue("cat"));
}

void TestConfigProgram::longValueMovesItsOwnLineAlone()
{
    ConfigRun run;
    run.setContents("zelmora: { language: { basedir = " + QByteArray(60, 'x') + "; file = /; }; };");
    QCOMPARE(run.statusOf({"list", "language"}), 0);
    const QByteArray file = run.file().toUtf8();
    QCOMPARE(run.standardOutput,
             "zelmora.language.basedir  " + QByteArray(60, 'x') + "  " + file + ":1\nzelmora.language.file     /"
                 + QByteArray(39, ' ') + "  " + file + ":1\n");
}

void TestConfigProgram::effective_data()
{
    QTest::addColumn<QByteArray>("width"); // in the file
    QTest::addColumn<QByteArray>("taken");
    const auto row = [](const char* name, const char* width, const char* taken) {
        QTest::newRow(name) << QByteArray(width) << QByteArray(taken);
    };

    row("a number", "24", "24     FILE:2");
    row("0 stands for the register's width", "0", "32     FILE:2  (the file says \"0\")");
    row("no number is 0", "24 mm", "32     FILE:2  (the file says \"24 mm\")");
    row("too great", "99999", "10000  FILE:2  (the file says \"99999\")");
    row("too small", "-99999", "-10000  FILE:2  (the file says \"-99999\")");
    row("below 0", "-5", "-5     FILE:2");
    row("beyond 32 bits", "4294967300", "32     FILE:2  (the file says \"4294967300\")");
    row("another spelling", "+024", "24     FILE:2  (the file says \"+024\")");
    row("empty", "", "32     default");
}

// Of a fiscal receipt one thing can be set.
void TestConfigProgram::effective()
{
    QFETCH(QByteArray, width);
    QFETCH(QByteArray, taken);
    ConfigRun run;
    run.setContents("zelmora: { fiscaldoc: { paperWidth = 20;\n descriptionWidth = \"" + width + "\"; }; };");
    QCOMPARE(run.statusOf({"effective", "printFullOrderFiscal"}), 0);
    // The column is as wide as its one value.
    taken.replace("FILE", run.file().toUtf8());
    const QByteArray expected = "zelmora.fiscaldoc.descriptionWidth  " + taken + '\n';
    QCOMPARE(run.standardOutput.simplified(), expected.simplified());
}

void TestConfigProgram::effectiveSettingsOfAMethod_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QByteArray>("keys"); // as docs/settings-file.md has them

    const QByteArray labels = "basedir file "; // of the language
    const QByteArray sections = "paperWidth printGeometry printHeader printCompany ";
    const QByteArray customer = "printDeliveryAddress printBillingAddress printTelephone ";
    const QByteArray order = "printDate printTime printTable ";
    const QByteArray customerToo = "printCustomer printLicenseNumber printFiscalCode ";
    const QByteArray rest = "printCredit printWaiter printNote topMargin";
    const QByteArray columns = "quantityFieldWidth priceFieldWidth totalPriceFieldWidth ";
    QTest::newRow("an order") << "printPartialOrder"
                              << labels + "quantityFieldWidth " + sections + customer + order + customerToo + rest;
    QTest::newRow("a receipt") << "printFullOrderReceipt"
                               << labels + columns + sections + customer + order + customerToo + rest;
    QTest::newRow("a summary receipt, which has no customer")
        << "printAbstractOrderReceipt" << labels + columns + sections + order + rest;
    QTest::newRow("a statement of account")
        << "printStatementOfAccount" << labels + "priceFieldWidth " + sections + order + rest;
    QTest::newRow("a report") << "printReport" << labels + sections + order + rest;
    QTest::newRow("a fiscal receipt, which has no labels") << "printFullOrderFiscal" << QByteArray("descriptionWidth");
}

void TestConfigProgram::effectiveSettingsOfAMethod()
{
    QFETCH(QString, method);
    QFETCH(QByteArray, keys);
    ConfigRun run;
    QCOMPARE(run.ownStatusOf({"effective", method}), 0);
    QByteArrayList listed;
    for (const QByteArray& line : run.standardOutput.split('\n'))
        listed += line.left(line.indexOf(' ')).mid(line.lastIndexOf('.') + 1);
    QCOMPARE(listed.join(' ').trimmed(), keys);
}

void TestConfigProgram::effectiveAsJson()
{
    ConfigRun run;
    run.setContents("zelmora: { solddoc: { printDate = True; printTime = true; }; language: { file = it; }; };");
    QCOMPARE(run.statusOf({"effective", "printSold", "--format", "json"}), 0);
    QHash<QString, QJsonObject> objects;
    for (const QJsonValue& value : arrayIn(run.standardOutput))
        objects.insert(value.toObject().value("key").toString(), value.toObject());
    QCOMPARE(objects.value("zelmora.solddoc.printDate").value("value"), QJsonValue("false"));
    QCOMPARE(objects.value("zelmora.solddoc.printTime").value("value"), QJsonValue("true"));
    QCOMPARE(objects.value("zelmora.solddoc.printTime").value("line"), QJsonValue(1));
    QCOMPARE(objects.value("zelmora.language.file").value("value"), QJsonValue("it"));
    QCOMPARE(objects.value("zelmora.language.basedir").value("default"), QJsonValue());
    QCOMPARE(objects.value("zelmora.solddoc.printTable").value("value"), QJsonValue());
    QCOMPARE(objects.value("zelmora.solddoc.printTable").value("default"), QJsonValue("false"));
    QCOMPARE(run.statusOf({"effective", "printAbstractOrder", "--format", "json"}), 0);
    QCOMPARE(run.standardOutput, QByteArray("[]\n"));
    QCOMPARE(run.statusOf({"effective", "printAbstractOrder"}), 0);
    QCOMPARE(run.standardOutput, QByteArray("No setting changes what a document of this method prints.\n"));
}

void TestConfigProgram::checks_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArrayList>("findings"); // the place, the severity and the code of each
    const auto row = [](const char* name, const char* file, const QByteArray& settings, const char* options, int status,
                        const QByteArrayList& findings) {
        QTest::newRow(name) << file << settings << QString(options).split(' ', Qt::SkipEmptyParts) << status
                            << findings;
    };

    const QByteArray slip = "zelmora:\n{\n  receiptdoc:\n  {\n    papperWidth = 40;\n  };\n  doc: { };\n};\n";
    row("nothing to find", "a.conf", "zelmora: { bin: { path = /bin; }; };", "", 0, {});
    row("a warning and a note", "a.conf", slip, "", 0, {"5:5 warning unknown-key", "7:3 note empty-group"});
    row("without notes", "a.conf", slip, "--quiet", 0, {"5:5 warning unknown-key"});
    row("without a code", "a.conf", slip, "--exclude unknown-key", 0, {"7:3 note empty-group"});
    row("a warning that counts", "a.conf", slip, "--strict", 1, {"5:5 warning unknown-key", "7:3 note empty-group"});
    row("a warning that is left out does not count", "a.conf", slip, "--strict --exclude unknown-key,empty-group", 0,
        {});
    row("an error", "a.conf", "zelmore: { bin: { path = /bin; }; };", "", 1, {"1:1 error wrong-top-group"});
    row("XML that breaks off", "a.xml", "<zelmora>", "", 1, {"1:10 error unreadable"});
}

void TestConfigProgram::checks()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, settings);
    QFETCH(QStringList, options);
    ConfigRun run;
    setPermissions(run.writeFile(file.toUtf8().constData(), settings), 0600);
    QTEST(run.ownStatusOf(QStringList {"--file", file, "check"} + options), "status");
    QCOMPARE(run.standardError, QByteArray());
    QByteArrayList findings;
    for (const QString& line : QString::fromUtf8(run.standardOutput).split('\n', Qt::SkipEmptyParts)) {
        const QRegularExpression form("\\A" + QRegularExpression::escape(file)
                                      + ":(\\d+:\\d+): (\\w+): .+ \\[([a-z-]+)\\]\\z");
        const QRegularExpressionMatch match = form.match(line);
        findings += (match.captured(1) + ' ' + match.captured(2) + ' ' + match.captured(3)).toUtf8();
    }
    QTEST(findings, "findings");
}

void TestConfigProgram::checksAsJson()
{
    ConfigRun run;
    run.setContents("zelmora: { bin: { Path = /bin; }; };");
    QCOMPARE(run.statusOf({"check", "--format", "json"}), 0);
    const QJsonArray findings = arrayIn(run.standardOutput);
    QCOMPARE(findings.size(), 1);
    const QJsonObject finding = findings.first().toObject();
    QCOMPARE(finding.value("file"), QJsonValue(run.file()));
    QCOMPARE(finding.value("line"), QJsonValue(1));
    QCOMPARE(finding.value("column"), QJsonValue(19));
    QCOMPARE(finding.value("code"), QJsonValue("unknown-key"));
    QCOMPARE(finding.value("suggestion"), QJsonValue("path"));
    run.setContents("zelmora: { bin: { path = /bin; }; };");
    QCOMPARE(run.statusOf({"check", "--format", "json"}), 0);
    QCOMPARE(run.standardOutput, QByteArray("[]\n"));
}

void TestConfigProgram::checkCannotRead_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("output"); // OWN: the user's own file

    QTest::newRow("the user's own file is missing")
        << QStringList() << 0
        << QByteArray(
               "OWN:1:1: note: There is no settings file: what holds without one is taken. [settings-missing]\n");
    QTest::newRow("a missing file that is named")
        << QStringList {"--file", "b.conf"} << 2
        << QByteArray("b.conf:1:1: error: The file cannot be read: No such file or directory [unreadable]\n");
    QTest::newRow("a folder") << QStringList {"--file", "home"} << 2
                              << QByteArray(
                                     "home:1:1: error: The file cannot be read: it is not a file [unreadable]\n");
    QTest::newRow("what is not shown counts all the same")
        << QStringList {"--file", "home", "--exclude", "unreadable"} << 2 << QByteArray();
}

void TestConfigProgram::checkCannotRead()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, output);
    ConfigRun run;
    QTEST(run.ownStatusOf(options + QStringList {"check"}), "status");
    QCOMPARE(run.standardOutput, output.replace("OWN", run.ownFile().toUtf8()));
    QCOMPARE(run.standardError, QByteArray());
}

void TestConfigProgram::fileThatCannotBeRead_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("reason");
    QTest::addColumn<QStringList>("arguments");

    const std::pair<const char*, const char*> files[] = {
        {"missing.conf", "No such file or directory"},
        {"a.conf/below a file", ""},
        {"home", "it is not a file"},
        {"pipe", "it is not a file"},
        {"closed.conf", "Permission denied"},
        {"broken.xml", "it is not XML"},
    };
    for (const auto& [file, reason] : files) {
        for (const char* command : {"list", "effective printSold", "get zelmora.a", "unset zelmora.a"})
            QTest::addRow("%s: %s", file, command) << file << QByteArray(reason) << QString(command).split(' ');
    }
}

void TestConfigProgram::fileThatCannotBeRead()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, reason);
    QFETCH(QStringList, arguments);
    ConfigRun run;
    run.setContents("zelmora: { a = 1; };");
    run.writeFile("broken.xml", "<zelmora a='1'>");
    setPermissions(run.writeFile("closed.conf", "zelmora: { a = 1; };"), 0);
    QCOMPARE(mkfifo(QFile::encodeName(run.path("pipe")).constData(), 0666), 0);
    setPermissions(run.path("."), 0755);
    {
        const OrdinaryUser someone;
        run.start(QStringList {"--file", run.path(file.toUtf8().constData())} + arguments);
    }
    QCOMPARE(run.exitStatus, 2);
    QVERIFY2(run.standardError.contains(reason), run.standardError.constData());
    QCOMPARE(run.standardOutput, QByteArray());
}

void TestConfigProgram::ownFileIsMissing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("output");

    QTest::newRow("list") << QStringList {"list", "bin"} << 0
                          << QByteArray("zelmora.bin.path  (the root folder)  default\n");
    QTest::newRow("effective") << QStringList {"effective", "printFullOrderFiscal"} << 0
                               << QByteArray("zelmora.fiscaldoc.descriptionWidth  32  default\n");
    QTest::newRow("get") << QStringList {"get", "zelmora.bin.path"} << 1 << QByteArray();
    QTest::newRow("unset") << QStringList {"unset", "zelmora.bin.path"} << 1 << QByteArray();
}

void TestConfigProgram::ownFileIsMissing()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, output);
    ConfigRun run;
    QTEST(run.ownStatusOf(arguments), "status");
    QCOMPARE(run.standardOutput, output);
    QVERIFY(!QFile::exists(run.ownFile()));
}

void TestConfigProgram::speaksTheLanguageOfTheSettings()
{
    const QByteArray folder = QFileInfo(ZELMORA_CATALOGUE).path().toUtf8();
    ConfigRun run;
    run.setContents("zelmora: { language: { basedir = \"" + folder + "/\"; file = zelmora_it.qm; }; }; words");
    QCOMPARE(run.statusOf({"set", "zelmora.bin.path", "/bin"}), 1);
    QVERIFY2(run.standardError.startsWith("Il salvataggio toglier\xC3\xA0 dal file:\n"), run.standardError.constData());
}

void TestConfigProgram::encodings_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArray>("output");

    QTest::newRow("UTF-8") << "C.UTF-8" << QByteArray("caff\xC3\xA8\n");
    QTest::newRow("ISO-8859-15") << "it_IT.ISO-8859-15" << QByteArray("caff\xE8\n");
}

void TestConfigProgram::encodings()
{
    QFETCH(QString, locale);
    QFETCH(QByteArray, output);
    ConfigRun run;
    run.setContents("zelmora: { bin: { path = caff\xC3\xA8; }; };");
    run.setEnvironment("LC_ALL", locale);
    QCOMPARE(run.statusOf({"get", "zelmora.bin.path"}), 0);
    QCOMPARE(run.standardOutput, output);
    QCOMPARE(run.statusOf({"list", "bin"}), 0);
    QVERIFY(run.standardOutput.startsWith("zelmora.bin.path  " + output.trimmed() + "  "));
}

void TestConfigProgram::fileNameThatIsNoText()
{
    if (refusesNames())
        QSKIP("this toolkit refuses them");
    ConfigRun run;
    run.setEnvironment("LC_ALL", "C.UTF-8");
    run.startShell("name=$(printf 'caff\\350.conf'); \"$program\" set --file \"$name\" zelmora.bin.path '\xC3\xA8' && "
                   "\"$program\" get zelmora.bin.path 2>&1; \"$program\" --file \"$name\" get zelmora.bin.path; "
                   "\"$program\" --file \"$name\" list bin; "
                   "\"$program\" convert \"$name\" \"$name.xml\" && rm \"$name\" \"$name.xml\"");
    QCOMPARE(run.standardOutput,
             QByteArray("zelmora.bin.path is not set.\n\xC3\xA8\nzelmora.bin.path  \xC3\xA8  caff\350.conf:5\n"));
    QCOMPARE(run.exitStatus, 0);
}

void TestConfigProgram::surroundings_data()
{
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("error");

    QTest::newRow("standard output is closed") << QByteArray("\"$program\" list >&-") << 0 << QByteArray();
    QTest::newRow("all streams are closed") << QByteArray("\"$program\" list <&- >&- 2>&-") << 0 << QByteArray();
    QTest::newRow("standard error is closed") << QByteArray("\"$program\" nothing 2>&-") << 2 << QByteArray();
    QTest::newRow("the reader went away") << QByteArray("\"$program\" list | true") << 0 << QByteArray();
    QTest::newRow("the disk is full") << QByteArray("\"$program\" list >/dev/full") << 2
                                      << QByteArray("Standard output cannot be written.\n");
    QTest::newRow("the disk is full for the help") << QByteArray("\"$program\" --help >/dev/full") << 2 << QByteArray();
    QTest::newRow("there is no home") << QByteArray("unset HOME; \"$program\" list >/dev/null") << 0 << QByteArray();
    QTest::newRow("there is no argument at all")
        << QByteArray("perl -e 'exec {$ENV{program}} ()' || exit $?") << 2 << QByteArray();
}

void TestConfigProgram::surroundings()
{
    QFETCH(QByteArray, commands);
    QFETCH(QByteArray, error);
    ConfigRun run;
    run.startShell(commands);
    QVERIFY(run.ended);
    QTEST(run.exitStatus, "status");
    if (!error.isEmpty())
        QCOMPARE(run.standardError, error);
}

void TestConfigProgram::hostileFile_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    QTest::newRow("every byte") << all.repeated(100);
    QTest::newRow("groups inside each other") << QByteArray("zelmora: {").repeated(20000);
    QTest::newRow("ends alone") << QByteArray("};").repeated(100000);
    QTest::newRow("one long value") << "zelmora: { bin: { path = " + QByteArray(500000, 'x');
    QTest::newRow("a zero in a value") << QByteArray("zelmora: { bin: { path = a\0b; }; };", 35);
    QTest::newRow("many groups of the name") << "zelmora: { " + QByteArray("bin: { a = 1; }; ").repeated(2000) + "};";
}

void TestConfigProgram::hostileFile()
{
    QFETCH(QByteArray, bytes);
    ConfigRun run;
    run.setContents(bytes);
    QCOMPARE(run.statusOf({"list"}), 0);
    QCOMPARE(run.statusOf({"effective", "printFullOrderReceipt"}), 0);
    run.statusOf({"get", "zelmora.bin.path"});
    QVERIFY(run.ended);
    run.statusOf({"set", "--force", "zelmora.bin.path", "/bin"});
    QVERIFY(run.ended);
    run.statusOf({"unset", "--force", "zelmora.bin.path"});
    QVERIFY(run.ended);
    QCOMPARE(run.standardError.contains("memory"), false);
}

QTEST_GUILESS_MAIN(TestConfigProgram)
#include "tst_configprogram.moc"
