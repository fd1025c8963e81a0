#include "log/logfile.h"
#include "log/logger.h"
#include "support/capture.h"
#include "support/settings.h"
#include "util/hlibrary.h"
#include "vocabulary/settings.h"

#include <QtTest>

using vocabulary::Setting;
using vocabulary::SettingGroup;
using vocabulary::SettingKind;

/// The tables of the settings that the suite's other programs read are held to the library through which they read
/// them: to its helpers and to its log. And the look-up in these tables.
class TestProgramSettings : public QObject {
    Q_OBJECT

private slots:
    void helpersReadTheSetting_data();
    void helpersReadTheSetting();
    void helpersReadNoOther();
    void copies_data();
    void copies();
    void logLevels_data();
    void logLevels();
    void noLogLevel();
    void logTypes_data();
    void logTypes();
    void placeOfTheLog();
    void everyGroupIsTried();

    void findGroup();
    void findSetting();
    void wholeKeys();
    void whereSettingsAct();
    void numberTaken_data();
    void numberTaken();
    void takes_data();
    void takes();
    void valueText();
    void everyRowIsSound();
};

namespace {

const Setting& setting(const char* group, const char* key)
{
    return *vocabulary::findSetting(*vocabulary::findGroup(group), key);
}

/// What the library answers from one setting.
struct Answer {
    const char* group;
    const char* key;
    QString (*ask)();
};

const Answer answers[] = {
    {"db", "dbname", [] { return HLibrary::dbname(); }},
    {"db", "username", [] { return HLibrary::username(); }},
    {"db", "password", [] { return HLibrary::password(); }},
    {"db", "hostname", [] { return HLibrary::hostname(); }},
    {"bin", "path", [] { return HLibrary::pathWithBinaryFile(QString()); }},
};

void useSetting(const QString& group, const QString& key, const QString& value)
{
    useSettings(QString("zelmora: { %1: { %2 = \"%3\"; }; };").arg(group, key, value).toUtf8());
}

QStringList words(const Setting& setting)
{
    QStringList list;
    for (const QLatin1String word : setting.words)
        list += word;
    return list;
}

/// How many of five messages, one of each level, a log with these settings takes.
int messagesLogged(const QString& type, const QString& level)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("log");
    useLog(path, type, level);
    Logger log {QString()};
    writeBytes(path, QByteArray()); // its own first line may be there
    log.debug("a");
    log.info("b");
    log.warning("c");
    log.error("d");
    log.fatal("e");
    return records(path).size();
}

} // namespace

void TestProgramSettings::helpersReadTheSetting_data()
{
    QTest::addColumn<int>("answer");
    for (int i = 0; i < int(std::size(answers)); ++i)
        QTest::addRow("%s", answers[i].key) << i;
}

void TestProgramSettings::helpersReadTheSetting()
{
    QFETCH(int, answer);
    const Answer& tried = answers[answer];
    QVERIFY(vocabulary::findGroup(tried.group));
    QVERIFY(vocabulary::findSetting(*vocabulary::findGroup(tried.group), tried.key));
    useSetting(tried.group, tried.key, "one");
    const QString one = tried.ask();
    useSetting(tried.group, tried.key, "other");
    QVERIFY(tried.ask() != one);
}

void TestProgramSettings::helpersReadNoOther()
{
    for (const char* group : {"db", "bin"}) {
        QStringList keys;
        for (const Answer& answer : answers) {
            if (qstrcmp(answer.group, group) == 0)
                keys += answer.key;
        }
        QStringList listed;
        for (const Setting& listedSetting : vocabulary::findGroup(group)->settings)
            listed += listedSetting.key;
        QCOMPARE(listed, keys);
    }
}

void TestProgramSettings::copies_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("group");
    for (const auto& document : {std::make_pair("order", "doc"), std::make_pair("prefiscal", "prefiscaldoc"),
                                 std::make_pair("fiscal", "fiscaldoc"), std::make_pair("receipt", "receiptdoc"),
                                 std::make_pair("invoice", "invoicedoc"), std::make_pair("delivery", "deliverydoc"),
                                 std::make_pair("report", "reportdoc"), std::make_pair("sold", "solddoc")})
        QTest::newRow(document.first) << document.first << document.second;
}

void TestProgramSettings::copies()
{
    QFETCH(QString, type);
    QFETCH(QString, group);
    useSetting(group, "copyNumber", "7");
    QString number;
    captured(stdout, [&] { number = HLibrary::copyNumber(type); });
    const SettingGroup& tried = *vocabulary::findGroup(group);
    QCOMPARE(number == "7", vocabulary::isRead(tried, *vocabulary::findSetting(tried, "copyNumber")));
}

void TestProgramSettings::logLevels_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("messages");
    const QStringList levels = words(setting("logger", "level"));
    QCOMPARE(levels.size(), 5);
    for (int i = 0; i < levels.size(); ++i) {
        QTest::newRow(qPrintable(levels[i])) << levels[i] << 5 - i;
        QTest::newRow(qPrintable(levels[i].toLower())) << levels[i].toLower() << 5 - i;
    }
}

void TestProgramSettings::logLevels()
{
    QFETCH(QString, word);
    QFETCH(int, messages);
    QVERIFY(vocabulary::takes(setting("logger", "level"), word));
    QCOMPARE(messagesLogged("APPEND", word), messages);
}

void TestProgramSettings::noLogLevel()
{
    const QString absent = setting("logger", "level").absent;
    QCOMPARE(absent, QString("DEBUG"));
    QCOMPARE(messagesLogged("APPEND", QString()), messagesLogged("APPEND", absent));
}

void TestProgramSettings::logTypes_data()
{
    QTest::addColumn<QString>("word");
    for (const char* word : {"APPEND", "append", "OVERWRITE", "Overwrite", "KEEP", "REPLACE", ""})
        QTest::newRow(qstrlen(word) > 0 ? word : "absent") << word;
}

// What the table does not list opens no log.
void TestProgramSettings::logTypes()
{
    QFETCH(QString, word);
    QCOMPARE(messagesLogged(word, "DEBUG") > 0, vocabulary::takes(setting("logger", "type"), word));
}

void TestProgramSettings::placeOfTheLog()
{
    const QTemporaryDir folder;
    useLog(folder.filePath("till.log"));
    Logger log {QString()};
    QVERIFY(QFile::exists(folder.filePath("till.log")));
    QVERIFY(vocabulary::findSetting(*vocabulary::findGroup("logger"), "basedir"));
    QVERIFY(vocabulary::findSetting(*vocabulary::findGroup("logger"), "filename"));
}

// The language is tried with the print program, in tst_documentsettings.
void TestProgramSettings::everyGroupIsTried()
{
    QMap<QString, QStringList> keys;
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        if (group.isDocument)
            continue;
        for (const Setting& listed : group.settings)
            keys[group.name] += listed.key;
    }
    QCOMPARE(keys.keys(), (QStringList {"bin", "db", "language", "logger"}));
    QCOMPARE(keys["logger"], (QStringList {"level", "basedir", "filename", "type"}));
    QCOMPARE(keys["language"], (QStringList {"basedir", "file"}));
}

void TestProgramSettings::findGroup()
{
    const SettingGroup* const group = vocabulary::findGroup("solddoc");
    QVERIFY(group);
    QCOMPARE(QString(group->name), QString("solddoc"));
    QVERIFY(group->isDocument);
    QVERIFY(!vocabulary::findGroup("db")->isDocument);
    QVERIFY(!vocabulary::findGroup("SoldDoc"));
    QVERIFY(!vocabulary::findGroup("zelmora"));
    QVERIFY(!vocabulary::findGroup(QString()));
}

void TestProgramSettings::findSetting()
{
    const SettingGroup& group = *vocabulary::findGroup("doc");
    QCOMPARE(QString(vocabulary::findSetting(group, "paperWidth")->key), QString("paperWidth"));
    QVERIFY(!vocabulary::findSetting(group, "paperwidth"));
    QVERIFY(!vocabulary::findSetting(group, "dbname"));
}

void TestProgramSettings::wholeKeys()
{
    QCOMPARE(vocabulary::keyOf(*vocabulary::findGroup("receiptdoc"), setting("receiptdoc", "paperWidth")),
             QString("zelmora.receiptdoc.paperWidth"));
    QCOMPARE(vocabulary::secretKeys(), QStringList {"zelmora.db.password"});
}

void TestProgramSettings::whereSettingsAct()
{
    const auto affected = [](const char* group, const char* key) {
        QStringList names;
        for (const vocabulary::Method* const method :
             vocabulary::methodsAffected(*vocabulary::findGroup(group), setting(group, key)))
            names += method->name;
        return names;
    };
    QCOMPARE(affected("receiptdoc", "printCustomer"), QStringList {"printFullOrderReceipt"});
    QCOMPARE(affected("reportdoc", "priceFieldWidth"), QStringList {"printStatementOfAccount"});
    QCOMPARE(affected("fiscaldoc", "descriptionWidth"), QStringList {"printFullOrderFiscal"});
    QCOMPARE(affected("doc", "descriptionWidth"), QStringList());
    QCOMPARE(affected("logger", "level"), QStringList());
    QVERIFY(affected("language", "file").contains("printReport"));
    QVERIFY(!affected("language", "file").contains("printFullOrderFiscal"));

    QVERIFY(vocabulary::actsSomewhere(setting("doc", "topMargin")));
    QVERIFY(vocabulary::actsSomewhere(setting("doc", "copyNumber"))); // in other programs
    QVERIFY(vocabulary::actsSomewhere(setting("language", "file")));
    QVERIFY(!vocabulary::actsSomewhere(setting("doc", "style")));
    QVERIFY(!vocabulary::actsSomewhere(setting("doc", "paperRows")));
    QVERIFY(!vocabulary::actsSomewhere(setting("doc", "printLogo")));
    QVERIFY(!vocabulary::actsSomewhere(setting("doc", "openCashDrawer")));

    const SettingGroup& orders = *vocabulary::findGroup("doc");
    QVERIFY(vocabulary::isRead(orders, setting("doc", "printLogo")));
    QVERIFY(vocabulary::isRead(orders, setting("doc", "topMargin")));
    QVERIFY(!vocabulary::isRead(orders, setting("doc", "descriptionWidth")));
    QVERIFY(!vocabulary::isRead(*vocabulary::findGroup("fiscaldoc"), setting("fiscaldoc", "topMargin")));
}

void TestProgramSettings::numberTaken_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("written");
    QTest::addColumn<int>("taken");

    const auto row = [](const char* name, const char* key, const char* written, int taken) {
        QTest::newRow(name) << key << written << taken;
    };
    row("a number", "doc paperWidth", "40", 40);
    row("a number below its range", "doc topMargin", "-3", -3);
    row("the greatest", "doc topMargin", "10000", 10000);
    row("a number above the greatest", "doc topMargin", "10001", 10000);
    row("as far below nought", "doc topMargin", "-10001", -10000);
    row("more than 32 bits", "doc topMargin", "99999999999", 0);
    row("no number", "doc topMargin", "3 lines", 0);
    row("nothing", "doc topMargin", "", 0);
    row("a paper of no width", "doc paperWidth", "0", 32);
    row("no number for the paper's width", "doc paperWidth", "wide", 32);
    row("no paper's width", "doc paperWidth", "", 32);
    row("nothing, where absence is no number", "doc copyNumber", "", 0);
}

void TestProgramSettings::numberTaken()
{
    QFETCH(QString, key);
    QFETCH(QString, written);
    const QByteArray group = key.section(' ', 0, 0).toUtf8();
    QTEST(vocabulary::numberTaken(setting(group, key.section(' ', 1).toUtf8()), written), "taken");
}

void TestProgramSettings::takes_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("taken");

    const auto row = [](const char* name, const char* key, const char* value, bool taken) {
        QTest::newRow(name) << key << value << taken;
    };
    row("a flag", "doc printDate", "true", true);
    row("a flag that is off", "doc printDate", "false", true);
    row("a flag in upper case", "doc printDate", "TRUE", false);
    row("a flag with a blank", "doc printDate", " true", false);
    row("an empty flag", "doc printDate", "", false);
    row("a number", "doc paperWidth", "40", true);
    row("the least width", "doc paperWidth", "0", true);
    row("below the least width", "doc paperWidth", "-1", false);
    row("the greatest width", "doc paperWidth", "10000", true);
    row("above the greatest width", "doc paperWidth", "10001", false);
    row("more copies than any width", "doc copyNumber", "10001", true);
    row("the most copies", "doc copyNumber", "2147483647", true);
    row("more than 32 bits", "doc copyNumber", "2147483648", false);
    row("a number with a unit", "doc paperWidth", "40 mm", false);
    row("an empty number", "doc paperWidth", "", false);
    row("a word", "logger type", "APPEND", true);
    row("a word in lower case", "logger type", "append", true);
    row("another word", "logger type", "KEEP", false);
    row("the beginning of a word", "logger type", "APP", false);
    row("a path", "bin path", "/opt/suite/bin", true);
    row("an empty path", "bin path", "", true);
    row("a text", "db dbname", "the till's", true);
    row("a secret", "db password", " s3cret ", true);
}

void TestProgramSettings::takes()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(bool, taken);
    const QByteArray group = key.section(' ', 0, 0).toUtf8();
    QCOMPARE(vocabulary::takes(setting(group, key.section(' ', 1).toUtf8()), value), taken);
}

void TestProgramSettings::valueText()
{
    QCOMPARE(vocabulary::valueText(setting("doc", "printDate")), QString("a flag, true or false"));
    QCOMPARE(vocabulary::valueText(setting("doc", "topMargin")), QString("a whole number from 0 to 10000"));
    QCOMPARE(vocabulary::valueText(setting("doc", "copyNumber")), QString("a whole number from 0 to 2147483647"));
    QCOMPARE(vocabulary::valueText(setting("logger", "type")), QString("one of APPEND, OVERWRITE"));
    QCOMPARE(vocabulary::valueText(setting("language", "basedir")), QString("a path"));
    QCOMPARE(vocabulary::valueText(setting("doc", "style")), QString("a text"));
    QCOMPARE(vocabulary::valueText(setting("db", "password")), QString("a secret text"));
}

// Whoever walks the tables takes these for granted.
void TestProgramSettings::everyRowIsSound()
{
    QStringList groups;
    for (const SettingGroup& group : vocabulary::settingGroups()) {
        groups += group.name;
        QVERIFY(qstrlen(group.description) > 0);
        QStringList keys;
        for (const Setting& listed : group.settings) {
            keys += listed.key;
            QVERIFY2(qstrlen(listed.description) > 0, listed.key.data());
            QVERIFY2(listed.absent.isEmpty() != (listed.absence == nullptr), listed.key.data());
            QVERIFY2(listed.absent.isEmpty() || vocabulary::takes(listed, listed.absent), listed.key.data());
            QCOMPARE(listed.words.isEmpty(), listed.kind != SettingKind::Word);
            QCOMPARE(listed.least < listed.greatest, listed.kind == SettingKind::Number);
        }
        QCOMPARE(keys.removeDuplicates(), 0);
        QVERIFY(group.isDocument == !vocabulary::methodsOf(group).isEmpty());
    }
    QCOMPARE(groups.removeDuplicates(), 0);
}

QTEST_GUILESS_MAIN(TestProgramSettings)
#include "tst_programsettings.moc"
