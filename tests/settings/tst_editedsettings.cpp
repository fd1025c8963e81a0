#include "settings/editedfile.h"
#include "settings/remedies.h"
#include "settings/savequestions.h"
#include "support/processstate.h"

#include <QtTest>

#include <functional>

using settings::TreeChange;

/// A settings file while somebody changes it: every change, back and forth, and whether it differs from the file.
class TestEditedSettings : public QObject {
    Q_OBJECT

private slots:
    void changes_data();
    void changes();
    void stepsAreTakenBackFromTheLast();
    void nothingChanges_data();
    void nothingChanges();
    void typingIsOneChange();
    void typingGoesOnOnlyInOneSetting();
    void typingInTwoGroupsIsTakenBackInBoth();
    void typedToNothing_data();
    void typedToNothing();
    void aNewChangeForgetsWhatWasTakenBack();
    void saysWhatWouldBeTakenBack();
    void goesBackBeyondASave();
    void goesBackBeyondASaveThatDrops_data();
    void goesBackBeyondASaveThatDrops();
    void goesBackUnderTheNameOfTheLastSave();
    void aSaveThatDropsNoSettingIsNoChange();
    void aFurtherGroupWithoutSettingsIsNoLoss();
    void aHiddenFileIsEmptyOnceItIsSaved();
    void aNewFileThatIsReadBackIsNoNewOne();
    void whatCannotBeReadBackIsTheOnlyCopy();
    void aCopyThatFailsIsNoChange();
    void slipsAreWhatTheTreeDoesNotShow();
    void savesUnderAnotherName();
    void whatIsNotWholeIsToBeReadAgain();
    void aNewFileIsForItsUserAlone();
    void comparesWithWhatTheFileHolds();
    void comesBackToItsPlace_data();
    void comesBackToItsPlace();
    void comesBackToItsPlaceAfterASave();
    void comesBackToItsGroup();
    void comesBackWithItsGroup();
    void leavesAloneWhatDoesNotAnswer();
    void comesBackAsOneChange();
    void anEmptyGroupIsNoChange();
    void nobodyKnowsWhatAFailureLeaves();
    void tellsOfEachChange();
    void fillsAnEmptyFile();
};

namespace {

using Action = std::function<void(EditedFile&)>;

const QByteArray begin = "zelmora: { db: { dbname = \"1\"; username = \"2\"; }; bin: { path = \"3\"; }; };";

} // namespace

Q_DECLARE_METATYPE(Action)

void TestEditedSettings::changes_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<Action>("action");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const Action& action, const QByteArray& after) {
        QTest::newRow(name) << begin << action << after;
    };
    row(
        "another value", [](EditedFile& file) { file.set("zelmora.db.dbname", "7"); },
        "zelmora: { db: { dbname = \"7\"; username = \"2\"; }; bin: { path = \"3\"; }; };");
    row(
        "a new setting", [](EditedFile& file) { file.set("zelmora.db.hostname", "7"); },
        "zelmora: { db: { dbname = \"1\"; username = \"2\"; hostname = \"7\"; }; bin: { path = \"3\"; }; };");
    row(
        "a new group", [](EditedFile& file) { file.set("zelmora.logger.filename", "7"); },
        "zelmora: { db: { dbname = \"1\"; username = \"2\"; }; bin: { path = \"3\"; }; logger: { filename = \"7\"; }; "
        "};");
    row(
        "a setting less", [](EditedFile& file) { file.unset("zelmora.db.dbname"); },
        "zelmora: { db: { username = \"2\"; }; bin: { path = \"3\"; }; };");
    row(
        "the last setting of a group less", [](EditedFile& file) { file.unset("zelmora.bin.path"); },
        "zelmora: { db: { dbname = \"1\"; username = \"2\"; }; };");
    row(
        "a setting of another name, in its place",
        [](EditedFile& file) {
            file.renameSetting(file.group({"zelmora", "db"}), "dbname", "n");
        },
        "zelmora: { db: { n = \"1\"; username = \"2\"; }; bin: { path = \"3\"; }; };");
    row(
        "a group of another name, in its place",
        [](EditedFile& file) {
            file.renameGroup(file.group({"zelmora", "db"}), "c");
        },
        "zelmora: { c: { dbname = \"1\"; username = \"2\"; }; bin: { path = \"3\"; }; };");
    row(
        "a setting taken out of the list",
        [](EditedFile& file) {
            file.removeSetting(file.group({"zelmora", "db"}), "dbname");
        },
        "zelmora: { db: { username = \"2\"; }; bin: { path = \"3\"; }; };");
    row(
        "the first group taken out of the list",
        [](EditedFile& file) {
            file.removeGroup(file.group({"zelmora", "db"}));
        },
        "zelmora: { bin: { path = \"3\"; }; };");
    row(
        "all of it taken out of the list", [](EditedFile& file) { file.removeGroup(file.group({"zelmora"})); }, "");
    row(
        "a setting added to the list",
        [](EditedFile& file) {
            file.addSetting(file.group({"zelmora", "bin"}), "n");
        },
        "zelmora: { db: { dbname = \"1\"; username = \"2\"; }; bin: { path = \"3\"; n = \"\"; }; };");
    row(
        "a value in the list",
        [](EditedFile& file) {
            file.setValue(file.group({"zelmora", "bin"}), "path", "7");
        },
        "zelmora: { db: { dbname = \"1\"; username = \"2\"; }; bin: { path = \"7\"; }; };");
    QTest::newRow("the first setting of all")
        << QByteArray() << Action([](EditedFile& file) { file.set("zelmora.logger.filename", "7"); })
        << QByteArray("zelmora: { logger: { filename = \"7\"; }; };");
    QTest::newRow("an empty value, in all groups of the name")
        << QByteArray("zelmora: { db: { dbname = \"1\"; }; db: { dbname = \"2\"; }; };")
        << Action([](EditedFile& file) { file.set("zelmora.db.dbname", ""); })
        << QByteArray("zelmora: { db: { dbname = \"\"; }; db: { dbname = \"\"; }; };");
    QTest::newRow("in the one of two groups that answers")
        << QByteArray("zelmora: { db: { username = \"1\"; }; db: { dbname = \"2\"; }; };")
        << Action([](EditedFile& file) { file.set("zelmora.db.dbname", "7"); })
        << QByteArray("zelmora: { db: { username = \"1\"; }; db: { dbname = \"7\"; }; };");
}

// Done, taken back, done once more, and taken back again.
void TestEditedSettings::changes()
{
    QFETCH(QByteArray, before);
    QFETCH(Action, action);
    QFETCH(QByteArray, after);
    EditedFile file(before);
    QVERIFY(!file.canUndo());
    action(file);
    for (int turn = 0; turn < 2; ++turn) {
        QCOMPARE(file.now(), after);
        QVERIFY(file.isModified());
        QVERIFY(file.canUndo() && !file.canRedo());
        file.undo();
        QCOMPARE(file.now(), before);
        QVERIFY(!file.isModified());
        QVERIFY(!file.canUndo() && file.canRedo());
        file.redo();
    }
}

// The place of each is that which it had when those before it were gone.
void TestEditedSettings::stepsAreTakenBackFromTheLast()
{
    EditedFile edited(begin);
    settings::SettingsFile file;
    QCOMPARE(file.load(edited.path), QString());
    const QDomElement group = file.groupsOf("zelmora.db").value(0);
    file.removeSetting(group, "dbname");
    file.removeSetting(group, "username");
    const TreeChange change = file.takeChange();
    QCOMPARE(change.size(), 2);
    QVERIFY(file.takeChange().isEmpty());
    file.apply(reversed(change));
    QCOMPARE(file.tryWriting(edited.path).bytes.simplified(), begin);
    QVERIFY(file.takeChange().isEmpty());
}

void TestEditedSettings::nothingChanges_data()
{
    QTest::addColumn<Action>("action");
    const auto row = [](const char* name, const Action& action) { QTest::newRow(name) << action; };
    row("the value that there is", [](EditedFile& file) { file.set("zelmora.db.dbname", "1"); });
    row("the value that there is, in the list", [](EditedFile& file) {
        file.setValue(file.group({"zelmora", "db"}), "dbname", "1");
    });
    row("what is absent taken out", [](EditedFile& file) { file.unset("zelmora.db.hostname"); });
    row("restored unchanged", [](EditedFile& file) { file.restore("zelmora.db.dbname"); });
    row("where no look-up reaches", [](EditedFile& file) { file.set("other.db.dbname", "1"); });
}

void TestEditedSettings::nothingChanges()
{
    QFETCH(Action, action);
    EditedFile file(begin);
    int changes = 0;
    file.setListener([&](const TreeChange&) { ++changes; });
    action(file);
    QVERIFY(!file.canUndo());
    QCOMPARE(changes, 0);
    QCOMPARE(file.now(), begin);
}

void TestEditedSettings::typingIsOneChange()
{
    EditedFile file(begin);
    for (const char* text : {"", "4", "48"})
        file.type("zelmora.db.dbname", text);
    QCOMPARE(file.now(), QByteArray(begin).replace("dbname = \"1\"", "dbname = \"48\""));
    file.undo();
    QCOMPARE(file.now(), begin);
    QVERIFY(!file.canUndo());
    file.redo();
    QCOMPARE(file.now(), QByteArray(begin).replace("dbname = \"1\"", "dbname = \"48\""));
}

void TestEditedSettings::typingGoesOnOnlyInOneSetting()
{
    EditedFile file(begin);
    file.type("zelmora.db.dbname", "7");
    file.type("zelmora.db.username", "8"); // another setting
    file.endTyping(); // the field is left
    file.type("zelmora.db.username", "9");
    file.undo();
    QCOMPARE(file.now(), QByteArray(begin).replace("\"1\"", "\"7\"").replace("\"2\"", "\"8\""));
    file.type("zelmora.db.username", "6"); // after a change that was taken back
    file.undo();
    QCOMPARE(file.now(), QByteArray(begin).replace("\"1\"", "\"7\"").replace("\"2\"", "\"8\""));
    file.undo();
    QCOMPARE(file.now(), QByteArray(begin).replace("\"1\"", "\"7\""));
    file.undo();
    QVERIFY(!file.canUndo());
}

// To type nothing goes to all groups that have the setting, what follows to the one that answers.
void TestEditedSettings::typingInTwoGroupsIsTakenBackInBoth()
{
    const QByteArray two = "zelmora: { db: { dbname = \"1\"; }; db: { dbname = \"3\"; }; };";
    EditedFile file(two);
    file.type("zelmora.db.dbname", "");
    QCOMPARE(file.now(), QByteArray("zelmora: { db: { dbname = \"\"; }; db: { dbname = \"\"; }; };"));
    file.type("zelmora.db.dbname", "5");
    file.undo();
    QCOMPARE(file.now(), two);
    QVERIFY(!file.canUndo());
    file.redo();
    QCOMPARE(file.now(), QByteArray("zelmora: { db: { dbname = \"5\"; }; db: { dbname = \"\"; }; };"));
}

void TestEditedSettings::typedToNothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<bool>("isChange");
    QTest::newRow("of a setting that the file has")
        << "zelmora.db.dbname" << QByteArray(begin).replace("dbname = \"1\"", "dbname = \"\"") << true;
    QTest::newRow("of a setting that the file lacks") << "zelmora.db.hostname" << begin << false;
    QTest::newRow("of a group that the file lacks")
        << "zelmora.logger.filename" << begin << true; // an empty group is left
}

void TestEditedSettings::typedToNothing()
{
    QFETCH(QString, key);
    QFETCH(QByteArray, after);
    QFETCH(bool, isChange);
    EditedFile file(begin);
    file.set("zelmora.bin.path", "4");
    for (const char* text : {"7", "78", "7", ""})
        file.type(key, text);
    QCOMPARE(file.now(), after.replace("\"3\"", "\"4\""));
    QCOMPARE(file.undoText(), isChange ? key : QString("zelmora.bin.path"));
    if (isChange)
        file.undo();
    file.type(key, "5");
    file.undo();
    QCOMPARE(file.now(), QByteArray(begin).replace("\"3\"", "\"4\""));
    file.undo();
    QVERIFY(!file.canUndo());
}

void TestEditedSettings::aNewChangeForgetsWhatWasTakenBack()
{
    EditedFile file(begin);
    file.set("zelmora.db.dbname", "7");
    file.set("zelmora.db.dbname", "8");
    file.undo();
    file.set("zelmora.db.username", "9");
    QVERIFY(!file.canRedo());
    file.undo();
    QCOMPARE(file.now(), QByteArray(begin).replace("\"1\"", "\"7\""));
}

void TestEditedSettings::saysWhatWouldBeTakenBack()
{
    EditedFile file(begin);
    QCOMPARE(file.undoText(), QString());
    QCOMPARE(file.redoText(), QString());
    file.set("zelmora.db.dbname", "7");
    file.removeGroup(file.group({"zelmora", "bin"}));
    QCOMPARE(file.undoText(), QString("bin"));
    file.undo();
    QCOMPARE(file.undoText(), QString("zelmora.db.dbname"));
    QCOMPARE(file.redoText(), QString("bin"));
}

void TestEditedSettings::goesBackBeyondASave()
{
    EditedFile file(begin);
    file.type("zelmora.db.dbname", "7");
    QCOMPARE(file.save(file.path, file.tryWriting(file.path)), QString());
    QVERIFY(!file.isModified());
    QCOMPARE(file.stored("zelmora.db.dbname"), std::optional<QString>("7"));
    file.type("zelmora.db.dbname", "78"); // what was saved stays a step of its own
    file.undo();
    QVERIFY(!file.isModified());
    file.undo();
    QVERIFY(file.isModified());
    QCOMPARE(file.now(), begin);
    QCOMPARE(fileContents(file.path).simplified(), QByteArray(begin).replace("\"1\"", "\"7\""));
    file.redo();
    QVERIFY(!file.isModified());
}

/// Saves it under the name @p name, whatever is lost.
static QString saveAll(EditedFile& file, const QString& name)
{
    const QString path = QFileInfo(file.path).path() + '/' + name;
    const auto trial = file.tryWriting(path);
    const bool isWhole = file.isWhole(trial);
    const QString reason = file.save(path, trial);
    return reason.isEmpty() && !isWhole ? file.readBack(path) : reason;
}

void TestEditedSettings::goesBackBeyondASaveThatDrops_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("as");
    QTest::addColumn<QByteArray>("saved"); // when dbname is 7
    QTest::addColumn<QStringList>("askedAgain"); // when that is undone
    const QByteArray only7 = "zelmora: { db: { dbname = \"7\"; }; };";
    QTest::newRow("a second group at top level")
        << "a.conf" << QByteArray("zelmora: { db: { dbname = 1; }; };\nb: { c = 1; };") << "a.conf" << only7
        << QStringList("b");
    QTest::newRow("the same, under another name")
        << "a.conf" << QByteArray("zelmora: { db: { dbname = 1; }; };\nb: { c = 1; };") << "b.conf" << only7
        << QStringList("b");
    QTest::newRow("a value that the brace form cannot hold")
        << "a.xml" << QByteArray("<zelmora><db dbname='1' username='x;y'/></zelmora>") << "a.conf"
        << QByteArray("zelmora: { db: { dbname = \"7\"; username = \"x;y\"; }; };")
        << QStringList {"line 6: \"x", "line 6: y\";", "zelmora.db.username = x;y"};
}

// Each step back and forth shows what was there, and compares it with what the file holds now.
void TestEditedSettings::goesBackBeyondASaveThatDrops()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, before);
    QFETCH(QString, as);
    QFETCH(QByteArray, saved);
    const QString key = "zelmora.db.dbname";
    EditedFile file(before, qPrintable(name));
    const QStringList first = file.file().content();
    file.set(key, "7");
    const QStringList second = file.file().content();
    QCOMPARE(saveAll(file, as), QString());
    const QString path = file.file().path();
    QCOMPARE(QFileInfo(path).fileName(), as);
    QCOMPARE(fileContents(path).simplified(), saved);
    QVERIFY(!file.isModified());
    QVERIFY(!file.file().changedOnDisk());
    const QStringList third = file.file().content();
    file.set(key, "8"); // in what was read back

    for (int turn = 0; turn < 2; ++turn) {
        file.undo();
        QCOMPARE(file.file().content(), third);
        QVERIFY(!file.isModified());
        QCOMPARE(file.undoText(), QString("what saving dropped"));
        file.undo();
        QCOMPARE(file.file().content(), second);
        QVERIFY(file.isModified());
        QCOMPARE(file.stored(key), std::optional<QString>("7"));
        const auto trial = file.tryWriting(path);
        QStringList asked;
        for (const auto& question : questionsBeforeSaving(file.file(), path, trial))
            asked += question.lines;
        QTEST(asked, "askedAgain");
        QVERIFY(!file.isWhole(trial));
        file.undo();
        QCOMPARE(file.file().content(), first);
        QVERIFY(!file.canUndo());
        QCOMPARE(file.file().root().tagName(), path);
        for (int i = 0; i < 3; ++i)
            file.redo();
        QVERIFY(!file.canRedo());
        QCOMPARE(file.file().value(key), QString("8"));
    }
}

void TestEditedSettings::goesBackUnderTheNameOfTheLastSave()
{
    EditedFile file(begin + "other: { b = 1; };");
    QCOMPARE(saveAll(file, "a.conf"), QString());
    QCOMPARE(saveAll(file, "b.conf"), QString());
    file.undo();
    QCOMPARE(file.file().root().lastChildElement().tagName(), QString("other"));
    QCOMPARE(QFileInfo(file.file().root().tagName()).fileName(), QString("b.conf"));
}

// There is nothing in the window to be brought back.
void TestEditedSettings::aSaveThatDropsNoSettingIsNoChange()
{
    EditedFile file("zelmora: { db: { dbname = 1; }; bin: { }; stray };");
    file.set("zelmora.db.dbname", "7");
    QCOMPARE(saveAll(file, "a.conf"), QString());
    QVERIFY(!file.isModified());
    QVERIFY(file.file().losses().isEmpty());
    QCOMPARE(file.undoText(), QString("zelmora.db.dbname"));
    file.undo();
    QVERIFY(!file.canUndo());
    QVERIFY(file.isModified());
    QVERIFY(file.isWhole(file.tryWriting(file.path)));
}

void TestEditedSettings::aFurtherGroupWithoutSettingsIsNoLoss()
{
    EditedFile file("zelmora: { db: { dbname = 1; }; }; b: { c = 1; };");
    file.removeSetting(file.file().root().lastChildElement(), "c");
    QCOMPARE(saveAll(file, "a.conf"), QString());
    QVERIFY(file.isWhole(file.tryWriting(file.path)));
    file.undo();
    QCOMPARE(file.file().unwrittenGroups(), QStringList("b"));
    QVERIFY(!file.isWhole(file.tryWriting(file.path)));
}

// Nothing of it was found, and nothing of it was written: what stood before the first group is in the way no more.
void TestEditedSettings::aHiddenFileIsEmptyOnceItIsSaved()
{
    EditedFile file("<!-- c --><zelmora><db dbname='1'/></zelmora>", "a.xml");
    file.set("zelmora.db.dbname", "2");
    QVERIFY(!file.canUndo());
    QCOMPARE(saveAll(file, "a.xml"), QString());
    QVERIFY(fileContents(file.path).trimmed().isEmpty());
    QVERIFY(!file.canUndo()); // nothing was in sight before, either
    file.set("zelmora.db.dbname", "2");
    QCOMPARE(file.file().value("zelmora.db.dbname"), QString("2"));
    QVERIFY(file.isWhole(file.tryWriting(file.path)));
}

void TestEditedSettings::aNewFileThatIsReadBackIsNoNewOne()
{
    EditedFile file("");
    QVERIFY(QFile::remove(file.path));
    file.beginAt(file.path);
    file.set("zelmora.db.dbname", "x;y");
    QCOMPARE(saveAll(file, "a.conf"), QString());
    QVERIFY(!file.file().isNew());
    QVERIFY(!file.file().changedOnDisk());
    QCOMPARE(file.file().value("zelmora.db.dbname"), QString("x"));
}

void TestEditedSettings::whatCannotBeReadBackIsTheOnlyCopy()
{
    EditedFile file("zelmora: { db: { dbname = x<y; }; };");
    QVERIFY(!saveAll(file, "a.xml").isEmpty());
    QCOMPARE(file.file().path(), file.path);
    QVERIFY(file.isModified());
    QCOMPARE(file.file().value("zelmora.db.dbname"), QString("x<y"));
}

void TestEditedSettings::aCopyThatFailsIsNoChange()
{
    EditedFile file(begin);
    const QString other = QFileInfo(file.path).path() + "/nowhere/b.conf";
    QVERIFY(!file.save(other, file.tryWriting(other)).isEmpty());
    QVERIFY(!file.isModified());
    QCOMPARE(file.file().path(), file.path);
}

// The empty group is but a note, and its loss is asked about.
void TestEditedSettings::slipsAreWhatTheTreeDoesNotShow()
{
    EditedFile file("zelmora: { db: { dbnam = 1; }; bin: { };\nreceiptdoc: { paperWidth = 32; }\n};");
    QCOMPARE(file.slips().size(), 1);
    QCOMPARE(file.slips().first().code, check::Code::MissingSemicolon);
    QCOMPARE(file.slips().first().place.line, 2);
}

void TestEditedSettings::savesUnderAnotherName()
{
    EditedFile file(begin);
    file.set("zelmora.db.dbname", "7");
    const QString other = QFileInfo(file.path).path() + "/b.xml";
    QCOMPARE(file.save(other, file.tryWriting(other)), QString());
    QCOMPARE(file.file().path(), other);
    QCOMPARE(file.file().root().tagName(), other);
    QVERIFY(!file.isModified());
    QVERIFY(!file.file().changedOnDisk());
    QCOMPARE(fileContents(file.path), begin);
    file.undo();
    QVERIFY(file.isModified());
    QCOMPARE(file.now(), begin);
}

// The window reads it then, so that it shows what the file holds.
void TestEditedSettings::whatIsNotWholeIsToBeReadAgain()
{
    EditedFile file(begin + "other: { b = 1; };");
    const auto trial = file.tryWriting(file.path);
    QVERIFY(!file.isWhole(trial));
    QCOMPARE(file.save(file.path, trial), QString());
    QCOMPARE(fileContents(file.path).simplified(), begin);

    EditedFile filled("zelmora: { db: { dbname = 1; }; bin: { }; };");
    QVERIFY(!filled.isWhole(filled.tryWriting(filled.path))); // the group b, which holds nothing
    filled.set("zelmora.bin.path", "2");
    QVERIFY(filled.isWhole(filled.tryWriting(filled.path)));

    EditedFile xml("<zelmora a='x;y'/>", "a.xml");
    QVERIFY(xml.isWhole(xml.tryWriting("a.xml")));
    QVERIFY(!xml.isWhole(xml.tryWriting("a.conf")));
}

void TestEditedSettings::aNewFileIsForItsUserAlone()
{
    EditedFile file(begin);
    const QString path = QFileInfo(file.path).path() + "/new.conf";
    QCOMPARE(file.save(path, file.tryWriting(path)), QString());
    QCOMPARE(permissionsOf(path), mode_t(0600));
}

void TestEditedSettings::comparesWithWhatTheFileHolds()
{
    EditedFile file("zelmora: { receiptdoc: { paperWidth = 32; }; };");
    const QString key = "zelmora.receiptdoc.paperWidth";
    QCOMPARE(file.stored(key), std::optional<QString>("32"));
    file.set(key, "40");
    QVERIFY(file.isModified());
    QCOMPARE(file.stored(key), std::optional<QString>("32"));
    file.set(key, "32");
    QVERIFY(!file.isModified());
    file.set(key, "40");
    file.restore(key);
    QVERIFY(!file.isModified());

    file.set("zelmora.receiptdoc.printDate", "true");
    QVERIFY(file.isModified());
    file.restore("zelmora.receiptdoc.printDate");
    QVERIFY(!file.isModified());
    QCOMPARE(file.now(), QByteArray("zelmora: { receiptdoc: { paperWidth = \"32\"; }; };"));
}

// What was taken out and has come back differs in nothing from the file, in whatever way that went.
void TestEditedSettings::comesBackToItsPlace_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<Action>("action");
    const QByteArray three = "zelmora: { db: { dbname = 1; hostname = 2; username = 3; }; };";
    const auto row = [](const char* name, const QByteArray& before, const Action& action) {
        QTest::newRow(name) << before << action;
    };
    row("the first", three, [](EditedFile& file) {
        file.unset("zelmora.db.dbname");
        file.restore("zelmora.db.dbname");
    });
    row("one in the middle", three, [](EditedFile& file) {
        file.unset("zelmora.db.hostname");
        file.restore("zelmora.db.hostname");
    });
    row("all, the last one first", three, [](EditedFile& file) {
        for (const char* key : {"zelmora.db.dbname", "zelmora.db.hostname", "zelmora.db.username"})
            file.unset(key);
        for (const char* key : {"zelmora.db.username", "zelmora.db.dbname", "zelmora.db.hostname"})
            file.restore(key);
    });
    row("before what was added meanwhile", three, [](EditedFile& file) {
        file.unset("zelmora.db.username");
        file.set("zelmora.db.password", "4");
        file.restore("zelmora.db.username");
        file.restore("zelmora.db.password");
    });
    row("by its own value, set anew", three, [](EditedFile& file) {
        file.unset("zelmora.db.hostname");
        file.set("zelmora.db.hostname", "7");
        file.set("zelmora.db.hostname", "2");
    });
    row("by its own value, typed anew", three, [](EditedFile& file) {
        file.unset("zelmora.db.hostname");
        for (const char* text : {"7", "", "2"})
            file.type("zelmora.db.hostname", text);
    });
    row("an empty one", "zelmora: { db: { dbname = ; username = 3; }; };", [](EditedFile& file) {
        file.set("zelmora.db.dbname", "1");
        file.unset("zelmora.db.dbname");
        file.restore("zelmora.db.dbname");
    });
    row("in each of the groups that repeat it",
        "zelmora: { db: { dbname = 1; username = 2; }; db: { dbname = 3; hostname = 4; }; };", [](EditedFile& file) {
            file.unset("zelmora.db.dbname");
            file.restore("zelmora.db.dbname");
        });
    row("from the first group of the name to the second", "zelmora: { db: { username = 2; }; db: { dbname = 3; }; };",
        [](EditedFile& file) {
            file.addSetting(file.group({"zelmora", "db"}), "dbname");
            file.setValue(file.group({"zelmora", "db"}), "dbname", "7");
            file.restore("zelmora.db.dbname");
        });
    row("in the second group of the name", "zelmora: { db: { username = 2; }; db: { dbname = 3; hostname = 4; }; };",
        [](EditedFile& file) {
            file.unset("zelmora.db.dbname");
            file.set("zelmora.db.dbname", "7");
            file.restore("zelmora.db.dbname");
        });
}

void TestEditedSettings::comesBackToItsPlace()
{
    QFETCH(QByteArray, before);
    QFETCH(Action, action);
    EditedFile file(before);
    const QByteArray asItWas = file.now();
    action(file);
    QCOMPARE(file.now(), asItWas);
    QVERIFY(!file.isModified());
    while (file.canUndo())
        file.undo();
    QCOMPARE(file.now(), asItWas);
}

// It is the place in the file as it was saved.
void TestEditedSettings::comesBackToItsPlaceAfterASave()
{
    EditedFile file(begin);
    file.set("zelmora.db.hostname", "7");
    file.set("zelmora.db.password", "8");
    QCOMPARE(file.save(file.path, file.tryWriting(file.path)), QString());
    file.unset("zelmora.db.hostname");
    QVERIFY(file.isModified());
    file.restore("zelmora.db.hostname");
    QVERIFY(!file.isModified());
}

// Whatever has become of the other groups of its name.
void TestEditedSettings::comesBackToItsGroup()
{
    EditedFile file("zelmora: { db: { username = x; }; db: { dbname = 3; hostname = 4; }; };");
    file.removeGroup(file.group({"zelmora", "db"}));
    file.set("zelmora.db.dbname", "7");
    file.restore("zelmora.db.dbname");
    QCOMPARE(file.now(), QByteArray("zelmora: { db: { dbname = \"3\"; hostname = \"4\"; }; };"));
    file.unset("zelmora.db.dbname");
    file.addGroup(file.group({"zelmora"}), "db");
    file.restore("zelmora.db.dbname"); // not to the new one
    QCOMPARE(file.now(), QByteArray("zelmora: { db: { dbname = \"3\"; hostname = \"4\"; }; };"));
}

void TestEditedSettings::comesBackWithItsGroup()
{
    EditedFile file(begin);
    file.removeGroup(file.group({"zelmora", "db"}));
    file.restore("zelmora.db.dbname");
    QCOMPARE(file.file().value("zelmora.db.dbname"), QString("1"));
    file.restore("zelmora.db.hostname"); // which the file lacks
    QCOMPARE(file.now(), QByteArray("zelmora: { bin: { path = \"3\"; }; db: { dbname = \"1\"; }; };"));
}

void TestEditedSettings::leavesAloneWhatDoesNotAnswer()
{
    EditedFile file("zelmora: { db: { dbname = 1; }; db: { dbname = 3; }; };");
    file.setValue(file.group({"zelmora"}).lastChildElement(), "dbname", "5");
    file.set("zelmora.db.dbname", "7");
    QCOMPARE(file.now(), QByteArray("zelmora: { db: { dbname = \"7\"; }; db: { dbname = \"5\"; }; };"));
    file.type("zelmora.db.dbname", "8");
    QCOMPARE(file.now(), QByteArray("zelmora: { db: { dbname = \"8\"; }; db: { dbname = \"5\"; }; };"));
}

void TestEditedSettings::comesBackAsOneChange()
{
    EditedFile file(begin);
    file.unset("zelmora.db.dbname");
    const QByteArray without = file.now();
    for (const char* text : {"7", "78"})
        file.type("zelmora.db.dbname", text);
    QCOMPARE(file.now(), QByteArray(begin).replace("\"1\"", "\"78\""));
    file.undo();
    QCOMPARE(file.now(), without);
    file.redo();
    QCOMPARE(file.now(), QByteArray(begin).replace("\"1\"", "\"78\""));
}

void TestEditedSettings::anEmptyGroupIsNoChange()
{
    EditedFile file(begin);
    file.addGroup(file.group({"zelmora"}), "c");
    QVERIFY(file.canUndo());
    QVERIFY(!file.isModified());
    file.addGroup(file.group({"zelmora", "c"}), "d");
    QVERIFY(!file.isModified());
    file.addSetting(file.group({"zelmora", "c", "d"}), "n");
    QVERIFY(file.isModified());
}

void TestEditedSettings::nobodyKnowsWhatAFailureLeaves()
{
    EditedFile file(begin);
    file.set("zelmora.db.dbname", "7");
    {
        const FileSizeLimit limit(0);
        QVERIFY(!file.save(file.path, file.tryWriting(file.path)).isEmpty());
    }
    file.undo();
    QVERIFY(file.isModified());
    QCOMPARE(file.save(file.path, file.tryWriting(file.path)), QString());
    QVERIFY(!file.isModified());
}

void TestEditedSettings::tellsOfEachChange()
{
    EditedFile file(begin);
    QVector<int> steps;
    file.setListener([&](const TreeChange& change) { steps += change.size(); });
    file.set("zelmora.logger.filename", "7"); // the group, and the setting in it
    file.undo();
    file.redo();
    file.type("zelmora.db.dbname", "7");
    file.type("zelmora.db.dbname", "78");
    file.undo(); // both at once
    QCOMPARE(file.save(file.path, file.tryWriting(file.path)), QString()); // what the file holds has changed
    QCOMPARE(steps, QVector<int>({2, 2, 2, 1, 1, 1, 0}));
}

void TestEditedSettings::fillsAnEmptyFile()
{
    EditedFile file(" \n");
    QVERIFY(file.isEmpty());
    file.addGroup(QDomElement(), "zelmora"); // with nothing in it
    QVERIFY(file.isEmpty());
    file.undo();
    file.fill();
    QVERIFY(!file.isEmpty());
    QCOMPARE(file.file().value("zelmora.receiptdoc.paperWidth"), QString("32"));
    file.undo();
    QVERIFY(file.isEmpty());
    QVERIFY(!file.canUndo());
}

QTEST_GUILESS_MAIN(TestEditedSettings)
#include "tst_editedsettings.moc"
