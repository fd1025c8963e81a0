#include "settings/settingsfile.h"

#include "support/files.h"
#include "support/interceptedcall.h"
#include "support/processstate.h"

#include <QDomElement>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <sys/stat.h>

using settings::SettingsFile;

/// A settings file loaded, tried, and saved.
class TestSettingsFile : public QObject {
    Q_OBJECT

private slots:
    void init();

    void loads_data();
    void loads();
    void doesNotLoad_data();
    void doesNotLoad();
    void failureChangesNothing();
    void pipeIsNotOpened();
    void theNewFileIsReviewed();

    void trial_data();
    void trial();
    void trialTouchesNoFile();
    void trialTakesLittleMemory_data();
    void trialTakesLittleMemory();

    void saves_data();
    void saves();
    void savesUnderAnotherName();
    void savesWhatWasTried();
    void savesNothingAfterAFailedTrial();
    void doesNotSaveToWhatIsNoFile_data();
    void doesNotSaveToWhatIsNoFile();
    void changedOnDisk();
    void emptyFileChangedOnDisk();
    void changedToAPipeOnDisk();
    void changedWhileItIsSaved();

private:
    QString path(const QString& name) const { return folder->filePath(name); }

    QScopedPointer<QTemporaryDir> folder;
};

namespace {

const QByteArray braces = "zelmora: \n{\n    lang = \"it\";\n};\n\n";
const QByteArray xml = "\n<zelmora\n    lang = \"it\">\n</zelmora>\n";

/// @p settings in the groups of @p key, each of which has a dot behind it.
QByteArray nested(const QByteArray& key, QByteArray settings)
{
    const QList<QByteArray> names = key.split('.');
    for (int i = names.size() - 2; i >= 0; --i)
        settings = names.at(i) + ": { " + settings + " };";
    return settings;
}

/// "a0 = value; a1 = value; ..."
QByteArray manySettings(int count, const QByteArray& value)
{
    QByteArray settings;
    for (int i = 0; i < count; ++i)
        settings += 'a' + QByteArray::number(i) + " = " + value + "; ";
    return settings;
}

} // namespace

void TestSettingsFile::init()
{
    folder.reset(new QTemporaryDir(scratchFolder()));
}

void TestSettingsFile::loads_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("lang");

    QTest::newRow("the brace format") << "zelmora.conf" << braces << "it";
    QTest::newRow("the brace format, whatever its name") << "till" << braces << "it";
    QTest::newRow("XML by its name") << "zelmora.xml" << xml << "it";
    QTest::newRow("XML by its name in capitals") << "ZELMORA.XML" << xml << "it";
    QTest::newRow("an empty file") << "zelmora.conf" << QByteArray() << "";
    QTest::newRow("an empty XML file") << "zelmora.xml" << QByteArray() << "";
    QTest::newRow("an XML file of white space") << "zelmora.xml" << QByteArray(" \n") << "";
    QTest::newRow("an XML file of a byte-order mark") << "zelmora.xml" << QByteArray("\xEF\xBB\xBF\n") << "";
}

void TestSettingsFile::loads()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, lang);
    writeBytes(path(name), bytes);
    SettingsFile file;
    QCOMPARE(file.path(), QString());
    QCOMPARE(file.load(path(name)), QString());
    QCOMPARE(file.path(), path(name));
    QCOMPARE(file.lookup("zelmora.lang"), lang);
    QVERIFY(file.looksLikeSettings());
}

void TestSettingsFile::doesNotLoad_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");

    QTest::newRow("a missing file") << "missing.conf"
                                    << "No such file or directory";
    QTest::newRow("a folder") << "."
                              << "it is not a file";
    QTest::newRow("XML that breaks off") << "broken.xml"
                                         << "it is not XML";
    QTest::newRow("the brace format under a name of XML") << "braces.xml"
                                                          << "it is not XML";
}

void TestSettingsFile::doesNotLoad()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    writeBytes(path("broken.xml"), "<zelmora lang='it'>");
    writeBytes(path("braces.xml"), braces);
    SettingsFile file;
    QCOMPARE(file.load(path(name)), reason);
}

void TestSettingsFile::failureChangesNothing()
{
    writeBytes(path("zelmora.conf"), braces + "other: { };");
    SettingsFile file;
    QCOMPARE(file.load(path("zelmora.conf")), QString());
    QVERIFY(!file.load(path("missing.conf")).isEmpty());
    QCOMPARE(file.path(), path("zelmora.conf"));
    QCOMPARE(file.lookup("zelmora.lang"), QString("it"));
    QCOMPARE(file.review().dropped.size(), 1);
    QVERIFY(!file.changedOnDisk());
}

// It would never end, or end once.
void TestSettingsFile::pipeIsNotOpened()
{
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    SettingsFile file;
    QCOMPARE(file.load(path("pipe")), QString("it is not a file"));
}

void TestSettingsFile::theNewFileIsReviewed()
{
    writeBytes(path("a.conf"), "zelmora: { a = 1; };\nother: { b = 2; };");
    writeBytes(path("b.xml"), "<zelmora a='1'>\n\nword</zelmora>");
    SettingsFile file;
    file.load(path("a.conf"));
    QCOMPARE(file.review().dropped.size(), 1);
    QCOMPARE(file.review().dropped.first().text, QString("other"));
    file.load(path("b.xml"));
    QCOMPARE(file.review().dropped.size(), 1);
    QCOMPARE(file.review().dropped.first().place.line, 3);
}

void TestSettingsFile::trial_data()
{
    QTest::addColumn<QByteArray>("bytes"); // of a file in the brace format, or in XML when they begin so
    QTest::addColumn<QString>("savedAs");
    QTest::addColumn<QStringList>("changed");
    QTest::addColumn<QStringList>("notXml");
    const auto row = [](const char* name, const QByteArray& bytes, const char* savedAs, const QStringList& changed,
                        const QStringList& notXml) { QTest::newRow(name) << bytes << savedAs << changed << notXml; };

    const QByteArray name100(100, 'n');
    row("nothing changes", "lang = it; zelmora: { a = 1; doc: { b = \"c:d=e{f}\"; }; };", "a.conf", {}, {});
    row("groups of the same name, one in another", "zelmora: { a: { a: { b = 1; }; b = 2; }; a: { b = 3; }; };",
        "a.conf", {}, {});
    row("nothing changes in XML", "zelmora: { a = 1; doc: { b = \"c:d=e{f}'\"; }; };", "a.xml", {}, {});
    row("what is left out anyway does not change", "zelmora: { a = 1; }; other: { b = 2; };", "a.conf", {}, {});
    row("XML values with signs of the brace format", "<zelmora a='1;2' b='say \"x\"' c='3'/>", "a.conf",
        {"zelmora.a = 1;2", "zelmora.b = say \"x\""}, {});
    row("an XML name with a colon", "<zelmora p:a='1' b='2'/>", "a.conf", {"zelmora.p:a = 1", "zelmora.b = 2"}, {});
    row("a value with a less-than sign", "zelmora: { a = x<y; b = 1; };", "a.xml", {"zelmora.a = x<y", "zelmora.b = 1"},
        {"zelmora.a = x<y"});
    row("a value with an ampersand", "zelmora: { a = x & y; };", "a.xml", {"zelmora.a = x & y"}, {"zelmora.a = x & y"});
    row("a setting's name that begins with a digit", "zelmora: { 1st = x; };", "a.xml", {"zelmora.1st = x"},
        {"zelmora.1st = x"});
    row("a group's name that begins with a digit", "zelmora: { 2nd: { a = x; }; };", "a.xml", {"zelmora.2nd.a = x"},
        {"2nd"});
    row("a setting outside every group", "lang = it; zelmora: { b = 1; };", "a.xml", {"lang = it", "zelmora.b = 1"},
        {"lang = it"});
    row("a reference in a value", "zelmora: { a = &amp; };", "a.xml", {"zelmora.a = &amp"}, {"zelmora.a = &amp"});
    row("a lost setting that stands in another group of the same name too",
        "<zelmora><b><a p='1'/></b><a k='\";};' p='1'/></zelmora>", "a.conf",
        {"zelmora.a.k = \";};", "zelmora.a.p = 1"}, {});
    row("names of 100 characters", "zelmora: { " + name100 + ": { " + name100 + " = <; }; };", "a.xml",
        {"zelmora." + name100 + "." + name100 + " = <"}, {"zelmora." + name100 + "." + name100 + " = <"});
    row("names of 101 characters", "zelmora: { " + name100 + "n: { " + name100 + "n = <; }; };", "a.xml",
        {"zelmora." + name100 + "...." + name100 + "... = <"}, {"zelmora." + name100 + "...." + name100 + "... = <"});
    row("a group's name of 101 characters that is no XML", "zelmora: { 1" + name100 + ": { a = 1; }; };", "a.xml",
        {"zelmora.1" + name100.left(99) + "....a = 1"}, {"1" + name100.left(99) + "..."});
    const QByteArray name99(99, 'm');
    row("a name whose hundredth place halves a character", "zelmora: { " + name99 + "\xF0\x9F\x8D\x95 = <; };", "a.xml",
        {"zelmora." + name99 + "... = <"}, {"zelmora." + name99 + "... = <"});
    const QByteArray key908 = "zelmora." + (name99 + '.').repeated(9);
    const QByteArray key1000 = key908 + QByteArray(91, 'k') + '.';
    const QByteArray key1001 = key908 + QByteArray(92, 'k') + '.';
    row("a key of 1000 characters before the setting's name", nested(key1000, "a = <;"), "a.xml", {key1000 + "a = <"},
        {key1000 + "a = <"});
    row("a key of 1001 characters before the setting's name", nested(key1001, "a = <;"), "a.xml",
        {"..." + key1001.mid(1) + "a = <"}, {"..." + key1001.mid(1) + "a = <"});
}

void TestSettingsFile::trial()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, savedAs);
    QFETCH(QStringList, changed);
    QFETCH(QStringList, notXml);
    const QString name = path(bytes.startsWith('<') ? "file.xml" : "file.conf");
    writeBytes(name, bytes);
    SettingsFile file;
    QCOMPARE(file.load(name), QString());

    const SettingsFile::Trial trial = file.tryWriting(path(savedAs));
    QCOMPARE(trial.reason, QString());
    QCOMPARE(trial.changed, changed);
    QCOMPARE(trial.notXml, notXml);
}

void TestSettingsFile::trialTouchesNoFile()
{
    writeBytes(path("zelmora.conf"), "zelmora: { a = 1; }; other: { b = 2; };");
    SettingsFile file;
    file.load(path("zelmora.conf"));
    file.tryWriting(path("zelmora.conf"));
    file.tryWriting(path("other.conf"));
    QCOMPARE(filesIn(folder->path()), QStringList("zelmora.conf"));
    QCOMPARE(fileContents(path("zelmora.conf")), QByteArray("zelmora: { a = 1; }; other: { b = 2; };"));
}

void TestSettingsFile::trialTakesLittleMemory_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("savedAs");
    QTest::addColumn<int>("changed");

    const QByteArray longKey = "zelmora." + QByteArray(20000, 'n') + '.';
    const QByteArray deepKey = "zelmora." + (QByteArray(100, 'n') + '.').repeated(998);
    QTest::newRow("a long group name over many settings") << nested(longKey, manySettings(10000, "1")) << "a.conf" << 0;
    QTest::newRow("a long group name over many settings that change")
        << nested(longKey, manySettings(10000, "<")) << "a.xml" << 10000;
    QTest::newRow("long names nested deeply over many settings")
        << nested(deepKey, manySettings(1000, "1")) << "a.conf" << 0;
    QTest::newRow("long names nested deeply over many settings that change")
        << nested(deepKey, manySettings(1000, "<")) << "a.xml" << 1000;
}

// A name stands once in the file, however many settings are below it.
void TestSettingsFile::trialTakesLittleMemory()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("The sanitizer takes memory of its own.");
#endif
    QFETCH(QByteArray, bytes);
    QFETCH(QString, savedAs);
    QFETCH(int, changed);
    writeBytes(path("file.conf"), bytes);
    SettingsFile file;
    QCOMPARE(file.load(path("file.conf")), QString());
    SettingsFile::Trial trial;
    {
        const MemoryLimit limit(100000000);
        trial = file.tryWriting(path(savedAs));
    }
    QCOMPARE(trial.reason, QString());
    QCOMPARE(trial.changed.size(), changed);
    QCOMPARE(trial.notXml.size(), changed);
}

void TestSettingsFile::saves_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("saved");

    QTest::newRow("the brace format") << "zelmora.conf" << QByteArray("zelmora:{lang=it;};") << braces;
    QTest::newRow("XML") << "zelmora.xml" << QByteArray("<zelmora lang='it'/>") << xml;
}

void TestSettingsFile::saves()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, saved);
    writeBytes(path(name), bytes);
    SettingsFile file;
    file.load(path(name));
    QCOMPARE(file.save(path(name), file.tryWriting(path(name))), QString());
    QCOMPARE(fileContents(path(name)), saved);
    QVERIFY(!file.changedOnDisk());
}

void TestSettingsFile::savesUnderAnotherName()
{
    writeBytes(path("zelmora.conf"), braces);
    SettingsFile file;
    file.load(path("zelmora.conf"));
    const SettingsFile::Trial trial = file.tryWriting(path("zelmora.xml"));
    QCOMPARE(file.save(path("zelmora.xml"), trial), QString());
    QCOMPARE(fileContents(path("zelmora.xml")), xml);
    QCOMPARE(file.path(), path("zelmora.conf"));
    QCOMPARE(file.save(path("no such folder/zelmora.conf"), trial), QString("No such file or directory"));
}

void TestSettingsFile::savesWhatWasTried()
{
    writeBytes(path("zelmora.conf"), braces);
    writeBytes(path("other.conf"), "zelmora: { lang = en; };");
    SettingsFile file;
    file.load(path("zelmora.conf"));
    const SettingsFile::Trial trial = file.tryWriting(path("zelmora.conf"));
    QCOMPARE(trial.bytes, braces);
    QCOMPARE(fileContents(path("zelmora.conf")), braces);
    file.load(path("other.conf"));
    QCOMPARE(file.save(path("zelmora.conf"), trial), QString());
    QCOMPARE(fileContents(path("zelmora.conf")), braces);
}

void TestSettingsFile::savesNothingAfterAFailedTrial()
{
    writeBytes(path("zelmora.conf"), braces);
    SettingsFile file;
    file.load(path("zelmora.conf"));
    SettingsFile::Trial trial;
    trial.reason = "too large";
    QCOMPARE(file.save(path("zelmora.conf"), trial), QString("too large"));
    QCOMPARE(fileContents(path("zelmora.conf")), braces);
    QVERIFY(!file.changedOnDisk());
}

void TestSettingsFile::doesNotSaveToWhatIsNoFile_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("a pipe without a reader") << "pipe";
    QTest::newRow("a link to a pipe") << "link";
    QTest::newRow("a device") << "device";
    QTest::newRow("a folder") << ".";
}

// The window would wait for the reader for ever.
void TestSettingsFile::doesNotSaveToWhatIsNoFile()
{
    QFETCH(QString, name);
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")), 0600), 0);
    QVERIFY(QFile::link(path("pipe"), path("link")));
    QVERIFY(QFile::link("/dev/null", path("device")));
    writeBytes(path("zelmora.conf"), braces);
    SettingsFile file;
    file.load(path("zelmora.conf"));
    QCOMPARE(file.save(path(name), file.tryWriting(path(name))), QString("it is not a file"));
    QVERIFY(!file.changedOnDisk());
}

void TestSettingsFile::changedOnDisk()
{
    writeBytes(path("zelmora.conf"), braces);
    SettingsFile file;
    file.load(path("zelmora.conf"));
    QVERIFY(!file.changedOnDisk());
    writeBytes(path("zelmora.conf"), braces + " ");
    QVERIFY(file.changedOnDisk());
    writeBytes(path("zelmora.conf"), braces);
    QVERIFY(!file.changedOnDisk());
    QVERIFY(QFile::remove(path("zelmora.conf")));
    QVERIFY(file.changedOnDisk());
}

// It holds as little when it is gone.
void TestSettingsFile::emptyFileChangedOnDisk()
{
    writeBytes(path("zelmora.conf"), QByteArray());
    SettingsFile file;
    QCOMPARE(file.load(path("zelmora.conf")), QString());
    QVERIFY(!file.changedOnDisk());
    QVERIFY(QFile::remove(path("zelmora.conf")));
    QVERIFY(file.changedOnDisk());
    QCOMPARE(mkfifo(QFile::encodeName(path("zelmora.conf")), 0600), 0);
    QVERIFY(file.changedOnDisk());
}

void TestSettingsFile::changedToAPipeOnDisk()
{
    writeBytes(path("zelmora.conf"), braces);
    SettingsFile file;
    file.load(path("zelmora.conf"));
    QVERIFY(QFile::remove(path("zelmora.conf")));
    QCOMPARE(mkfifo(QFile::encodeName(path("zelmora.conf")), 0600), 0);
    QVERIFY(file.changedOnDisk());
    QCOMPARE(file.save(path("zelmora.conf"), file.tryWriting(path("zelmora.conf"))), QString("it is not a file"));
}

// Another program writes the file as soon as the new one is in its place.
void TestSettingsFile::changedWhileItIsSaved()
{
    writeBytes(path("zelmora.conf"), braces);
    SettingsFile file;
    file.load(path("zelmora.conf"));
    const SettingsFile::Trial trial = file.tryWriting(path("zelmora.conf"));
    const InterceptedCall another("rename", [&] {
        std::rename(QFile::encodeName(path("theirs")), QFile::encodeName(path("zelmora.conf")));
        return InterceptedCall::nothing;
    });
    writeBytes(path("theirs"), braces + " ");
    QCOMPARE(file.save(path("zelmora.conf"), trial), QString());
    QCOMPARE(fileContents(path("zelmora.conf")), braces + " ");
    QVERIFY(file.changedOnDisk());
}

QTEST_GUILESS_MAIN(TestSettingsFile)
#include "tst_settingsfile.moc"
