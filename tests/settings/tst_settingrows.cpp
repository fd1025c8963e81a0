#include "settings/editedfile.h"
#include "settings/settingrows.h"

#include <QtTest>

using check::Severity;
using settings::GroupRows;
using settings::Note;
using settings::Remedy;
using settings::SettingRow;
using vocabulary::SettingGroup;

/// A group of settings as a person changes it: its rows, what is wrong with them, and what puts it right.
class TestSettingRows : public QObject {
    Q_OBJECT

private slots:
    void documentsComeFirst();
    void rowsAreWhatIsRead_data();
    void rowsAreWhatIsRead();
    void value_data();
    void value();
    void fitsItsField_data();
    void fitsItsField();
    void isChanged();
    void notes_data();
    void notes();
    void notesFollowTheChanges();
    void remedy_data();
    void remedy();
    void noRemedy_data();
    void noRemedy();
    void aRemedyIsTakenBack();
    void notesOfTheGroup_data();
    void notesOfTheGroup();
    void aNameThatAnotherGroupHasIsNotFree();
    void manyNotesAreCounted();
    void manyNotesOfASettingAreCounted();
    void worst_data();
    void worst();
    void besideTheGroups_data();
    void besideTheGroups();
};

namespace {

const SettingGroup& groupOf(const char* name)
{
    return *vocabulary::findGroup(name);
}

SettingRow rowOf(const EditedFile& file, const QString& key)
{
    for (const SettingRow& row : rowsOf(file, *vocabulary::findGroup(key.section('.', 0, 0))).rows) {
        if (row.key == "zelmora." + key)
            return row;
    }
    qFatal("There is no row for %s.", qPrintable(key));
}

QByteArray suite(const QByteArray& groups)
{
    return "zelmora: { " + groups + " };";
}

/// "db: old -> new", without the name of the setting for one of a group.
QString shown(const std::optional<Remedy>& remedy)
{
    if (!remedy)
        return "none";
    const QString place = remedy->group.tagName() + (remedy->name.isEmpty() ? QString() : '.' + remedy->name);
    return place + ": " + remedy->before + " -> " + remedy->after;
}

} // namespace

void TestSettingRows::documentsComeFirst()
{
    QStringList names;
    QStringList titles;
    for (const SettingGroup* group : settings::groupsInOrder()) {
        names += group->name;
        titles += group->title;
    }
    QCOMPARE(names.join(' '),
             "doc prefiscaldoc fiscaldoc receiptdoc invoicedoc deliverydoc reportdoc solddoc language logger db bin");
    QCOMPARE(titles.join(", "),
             "Kitchen order, Order with prices, Fiscal receipt, Receipt, Invoice, Delivery note, "
             "Report and statement, Dishes sold, Language, Log, Database, Programs");
}

void TestSettingRows::rowsAreWhatIsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QStringList>("some"); // of its rows
    QTest::addColumn<QStringList>("none");
    QTest::newRow("of a program") << QByteArray() << "db" << QStringList {"dbname", "username", "password", "hostname"}
                                  << QStringList {"paperWidth"};
    QTest::newRow("of a document") << QByteArray() << "fiscaldoc" << QStringList {"paperWidth", "descriptionWidth"}
                                   << QStringList {"topMargin"};
    QTest::newRow("a setting that nobody reads there, but that is there")
        << suite("fiscaldoc: { topMargin = 2; };") << "fiscaldoc" << QStringList {"topMargin"} << QStringList();
    QTest::newRow("none that the suite does not know")
        << suite("db: { port = 5432; };") << "db" << QStringList {"dbname"} << QStringList {"port"};
}

void TestSettingRows::rowsAreWhatIsRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, group);
    QFETCH(QStringList, some);
    QFETCH(QStringList, none);
    EditedFile file(bytes);
    QStringList keys;
    for (const SettingRow& row : rowsOf(file, *vocabulary::findGroup(group)).rows)
        keys += row.setting->key;
    for (const QString& key : some)
        QVERIFY2(keys.contains(key), qPrintable(key));
    for (const QString& key : none)
        QVERIFY2(!keys.contains(key), qPrintable(key));
}

void TestSettingRows::value_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("value"); // null: there is no such setting
    QTest::addColumn<bool>("isAbsent"); // to the programs
    QTest::newRow("one that there is") << suite("db: { dbname = a; };") << "a" << false;
    QTest::newRow("none") << suite("db: { username = a; };") << QString() << true;
    QTest::newRow("an empty one") << suite("db: { dbname = ; };") << "" << true;
    QTest::newRow("of two groups, the one that answers")
        << suite("db: { dbname = ; }; db: { dbname = b; };") << "b" << false;
    QTest::newRow("of two groups, the first that answers")
        << suite("db: { dbname = a; }; db: { dbname = b; };") << "a" << false;
    QTest::newRow("with a character that the programs lose")
        << suite("db: { dbname = \xE2\x82\xAC; };") << "\u20AC" << false;
    QTest::newRow("of a second group at top level")
        << QByteArray("other: { a = 1; }; zelmora: { db: { dbname = a; }; };") << QString() << true;
}

void TestSettingRows::value()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, value);
    EditedFile file(bytes);
    const SettingRow row = rowOf(file, "db.dbname");
    QCOMPARE(row.written.has_value(), !value.isNull());
    QCOMPARE(row.written.value_or(QString()), value);
    QTEST(row.isAbsent(), "isAbsent");
    QVERIFY(!row.isChanged());
}

void TestSettingRows::fitsItsField_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("fits");
    const auto row = [](const char* name, const QByteArray& value, const char* key, bool fits) {
        const QByteArray names = key;
        const int point = names.indexOf('.');
        QTest::newRow(name) << names.left(point) + ": { " + names.mid(point + 1) + " = " + value + "; };" << key
                            << fits;
    };
    row("a flag that is true", "true", "receiptdoc.printDate", true);
    row("a flag that is false", "false", "receiptdoc.printDate", true);
    row("a flag that is absent", "", "receiptdoc.printDate", true);
    row("a flag in a capital", "True", "receiptdoc.printDate", false);
    row("a flag with a blank", "\" true\"", "receiptdoc.printDate", false);
    row("a number", "32", "receiptdoc.paperWidth", true);
    row("the greatest number", "10000", "receiptdoc.paperWidth", true);
    row("a number that is too great", "10001", "receiptdoc.paperWidth", false);
    row("a negative number", "-1", "receiptdoc.paperWidth", false);
    row("a number with a unit", "32 mm", "receiptdoc.paperWidth", false);
    row("a word", "INFO", "logger.level", true);
    row("a word in small letters", "info", "logger.level", true);
    row("another word", "LOUD", "logger.level", false);
    row("any text", "anything", "db.dbname", true);
}

void TestSettingRows::fitsItsField()
{
    QFETCH(QByteArray, group);
    QFETCH(QString, key);
    EditedFile file(suite(group));
    QTEST(rowOf(file, key).fitsItsField(), "fits");
}

void TestSettingRows::isChanged()
{
    EditedFile file(suite("receiptdoc: { paperWidth = 32; printDate = ; };"));
    file.set("zelmora.receiptdoc.paperWidth", "40");
    file.set("zelmora.receiptdoc.printTime", "true");
    file.unset("zelmora.receiptdoc.printDate");
    QCOMPARE(rowOf(file, "receiptdoc.paperWidth").stored, std::optional<QString>("32"));
    for (const char* key : {"paperWidth", "printTime", "printDate"})
        QVERIFY2(rowOf(file, QString("receiptdoc.") + key).isChanged(), key);
    QVERIFY(!rowOf(file, "receiptdoc.printNote").isChanged());
    file.restore("zelmora.receiptdoc.paperWidth");
    QVERIFY(!rowOf(file, "receiptdoc.paperWidth").isChanged());
}

void TestSettingRows::notes_data()
{
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("note"); // how it begins; empty: there is none
    QTest::newRow("a flag that is none") << QByteArray("receiptdoc: { printDate = True; };") << "receiptdoc.printDate"
                                         << "\"True\" reads as false:";
    QTest::newRow("a good value") << QByteArray("receiptdoc: { printDate = true; };") << "receiptdoc.printDate"
                                  << "";
    QTest::newRow("of the same setting in another group")
        << QByteArray("receiptdoc: { printDate = True; };") << "solddoc.printDate"
        << "";
    QTest::newRow("what two settings say together")
        << QByteArray("receiptdoc: { paperWidth = 20; quantityFieldWidth = 30; };") << "receiptdoc.paperWidth"
        << "The columns are wider than the paper";
    QTest::newRow("a slip of its name") << QByteArray("receiptdoc: { papperWidth = 20; };") << "receiptdoc.paperWidth"
                                        << "No program reads a setting \"papperWidth\" here.";
    QTest::newRow("a slip of its name, where it is there as well")
        << QByteArray("receiptdoc: { papperWidth = 20; paperWidth = 32; };") << "receiptdoc.paperWidth"
        << "";
}

void TestSettingRows::notes()
{
    QFETCH(QByteArray, groups);
    QFETCH(QString, key);
    QFETCH(QString, note);
    EditedFile file(suite(groups));
    const QVector<Note> notes = rowOf(file, key).notes;
    QCOMPARE(notes.size(), note.isEmpty() ? 0 : 1);
    if (!note.isEmpty())
        QVERIFY2(notes[0].text.startsWith(note), qPrintable(notes[0].text));
}

void TestSettingRows::notesFollowTheChanges()
{
    EditedFile file(suite("receiptdoc: { printDate = True; };"));
    QCOMPARE(rowOf(file, "receiptdoc.printDate").notes.size(), 1);
    file.set("zelmora.receiptdoc.printDate", "true");
    QCOMPARE(rowOf(file, "receiptdoc.printDate").notes.size(), 0);
    file.undo();
    QCOMPARE(rowOf(file, "receiptdoc.printDate").notes.size(), 1);
}

void TestSettingRows::remedy_data()
{
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("remedy");
    QTest::addColumn<QByteArray>("after");
    const auto value = [](const char* name, const char* key, const QByteArray& wrong, const QByteArray& right) {
        const QByteArray group = QByteArray(key).left(QByteArray(key).indexOf('.'));
        const QByteArray setting = QByteArray(key).mid(group.size() + 1);
        const QByteArray before = group + ": { " + setting + " = \"" + wrong + "\"; };";
        QTest::newRow(name) << before << key << key + QString(": ") + wrong + " -> " + right
                            << QByteArray(before).replace(wrong, right);
    };
    value("a flag in a capital", "receiptdoc.printDate", "True", "true");
    value("a flag with blanks", "receiptdoc.printDate", " FALSE ", "false");
    value("a number with a unit", "receiptdoc.paperWidth", "32 mm", "32");
    value("a number with a unit right behind it", "receiptdoc.paperWidth", "32mm", "32");
    value("a number with nothing behind its point", "receiptdoc.paperWidth", "32.0", "32");
    value("a number that is too great", "receiptdoc.topMargin", "99999", "10000");
    value("a word with a letter too many", "logger.level", "INFOO", "INFO");
    QTest::newRow("a slip of a name") << QByteArray("receiptdoc: { papperWidth = \"40\"; printDate = \"true\"; };")
                                      << "receiptdoc.paperWidth"
                                      << "receiptdoc.papperWidth: papperWidth -> paperWidth"
                                      << QByteArray("receiptdoc: { paperWidth = \"40\"; printDate = \"true\"; };");
}

void TestSettingRows::remedy()
{
    QFETCH(QByteArray, groups);
    QFETCH(QString, key);
    QFETCH(QString, remedy);
    QFETCH(QByteArray, after);
    EditedFile file(suite(groups));
    const QVector<Note> notes = rowOf(file, key).notes;
    QCOMPARE(notes.size(), 1);
    QCOMPARE(shown(notes[0].remedy), remedy);
    file.apply(*notes[0].remedy);
    QCOMPARE(file.now(), suite(after));
}

void TestSettingRows::noRemedy_data()
{
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<QString>("key");
    QTest::newRow("a flag that could be either")
        << QByteArray("receiptdoc: { printDate = yes; };") << "receiptdoc.printDate";
    QTest::newRow("two numbers") << QByteArray("receiptdoc: { paperWidth = 32 x 40; };") << "receiptdoc.paperWidth";
    QTest::newRow("a fraction") << QByteArray("receiptdoc: { paperWidth = 32.5; };") << "receiptdoc.paperWidth";
    QTest::newRow("a number of another notation")
        << QByteArray("receiptdoc: { paperWidth = 0x20; };") << "receiptdoc.paperWidth";
    QTest::newRow("a negative number") << QByteArray("receiptdoc: { topMargin = -3; };") << "receiptdoc.topMargin";
    QTest::newRow("a number beyond all numbers")
        << QByteArray("receiptdoc: { paperWidth = 99999999999; };") << "receiptdoc.paperWidth";
    QTest::newRow("a word like none") << QByteArray("logger: { level = loud; };") << "logger.level";
    QTest::newRow("a good value of which there is something to say")
        << QByteArray("receiptdoc: { paperWidth = 40; };") << "receiptdoc.paperWidth";
}

void TestSettingRows::noRemedy()
{
    QFETCH(QByteArray, groups);
    QFETCH(QString, key);
    EditedFile file(suite(groups));
    const QVector<Note> notes = rowOf(file, key).notes;
    QCOMPARE(notes.size(), 1);
    QCOMPARE(shown(notes[0].remedy), QString("none"));
}

void TestSettingRows::aRemedyIsTakenBack()
{
    const QByteArray before = suite("receiptdoc: { papperWidth = \"40\"; printDate = \"true\"; };");
    EditedFile file(before);
    file.apply(*rowOf(file, "receiptdoc.paperWidth").notes[0].remedy);
    QVERIFY(rowOf(file, "receiptdoc.paperWidth").notes[0].severity == Severity::Note); // wider than the register's
    file.undo();
    QCOMPARE(file.now(), before);
}

void TestSettingRows::notesOfTheGroup_data()
{
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<QString>("note");
    QTest::addColumn<QString>("remedy");
    QTest::newRow("a key that nobody reads")
        << QByteArray("receiptdoc: { colour = red; };") << "No program reads a setting \"colour\" here."
        << "none";
    QTest::newRow("a slip of a name that is there as well")
        << QByteArray("receiptdoc: { paperWidth = 32; papperWidth = 20; };")
        << "No program reads a setting \"papperWidth\" here. Is \"paperWidth\" meant?"
        << "none";
    QTest::newRow("a group that stands twice")
        << QByteArray("receiptdoc: { paperWidth = 32; }; receiptdoc: { printDate = true; };")
        << "The group \"receiptdoc\" stands twice: of each setting the first value that is not empty holds."
        << "none";
    QTest::newRow("a slip of the group's name")
        << QByteArray("recieptdoc: { paperWidth = 32; };")
        << "No program reads a group \"recieptdoc\" here: nothing in it is found. Is \"receiptdoc\" meant?"
        << "recieptdoc: recieptdoc -> receiptdoc";
    QTest::newRow("a slip of the group's name, where it is there as well")
        << QByteArray("receiptdoc: { paperWidth = 32; }; recieptdoc: { paperWidth = 32; };")
        << "No program reads a group \"recieptdoc\" here: nothing in it is found. Is \"receiptdoc\" meant?"
        << "none";
}

// The slip, and that the group stands twice.
void TestSettingRows::aNameThatAnotherGroupHasIsNotFree()
{
    EditedFile file("zelmora: { receiptdoc: { papperWidth = 20; }; receiptdoc: { paperWidth = 32; }; };");
    const auto found = rowsOf(file, *vocabulary::findGroup("receiptdoc"));
    QCOMPARE(found.notes.size(), 2);
    for (const auto& note : found.notes)
        QVERIFY2(!note.remedy, qPrintable(note.text));
}

void TestSettingRows::notesOfTheGroup()
{
    QFETCH(QByteArray, groups);
    QFETCH(QString, note);
    QFETCH(QString, remedy);
    EditedFile file(suite(groups));
    const GroupRows found = rowsOf(file, groupOf("receiptdoc"));
    QCOMPARE(found.notes.size(), 1);
    QCOMPARE(found.notes[0].text, note);
    QCOMPARE(shown(found.notes[0].remedy), remedy);
    QCOMPARE(found.furtherNotes, 0);
    for (const SettingRow& row : found.rows)
        QCOMPARE(row.notes.size(), 0);
    QCOMPARE(rowsOf(file, groupOf("solddoc")).notes.size(), 0);
}

void TestSettingRows::manyNotesAreCounted()
{
    QByteArray keys;
    for (int i = 0; i < 100; ++i)
        keys += "colour" + QByteArray::number(i) + " = red; ";
    EditedFile file(suite("receiptdoc: { " + keys + "};"));
    const GroupRows found = rowsOf(file, groupOf("receiptdoc"));
    QCOMPARE(found.notes.size(), 3);
    QCOMPARE(found.furtherNotes, 97);
}

// Each that is no flag, and as many times that the group stands there once more.
void TestSettingRows::manyNotesOfASettingAreCounted()
{
    EditedFile file(suite(QByteArray("receiptdoc: { printDate = True; }; ").repeated(100)));
    const SettingRow row = rowOf(file, "receiptdoc.printDate");
    QCOMPARE(row.notes.size(), 3);
    QCOMPARE(row.furtherNotes, 97);
    QCOMPARE(shown(row.notes[0].remedy), QString("receiptdoc.printDate: True -> true"));
    const GroupRows found = rowsOf(file, groupOf("receiptdoc"));
    QCOMPARE(found.furtherNotes, 96);
}

void TestSettingRows::worst_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("worst"); // "group severity"
    QTest::newRow("nothing") << suite("receiptdoc: { paperWidth = 32; };") << "";
    QTest::newRow("a note") << suite("receiptdoc: { paperWidth = 40; };") << "receiptdoc note";
    QTest::newRow("a warning beside a note")
        << suite("receiptdoc: { paperWidth = 40; printDate = True; };") << "receiptdoc warning";
    QTest::newRow("an error beside a warning")
        << suite("receiptdoc: { paperWidth = 32 mm; printDate = True; };") << "receiptdoc error";
    QTest::newRow("a slip of the group's name") << suite("recieptdoc: { paperWidth = 32; };") << "receiptdoc warning";
    QTest::newRow("in a group that nobody reads") << suite("colours: { paper = white; };") << "";
}

void TestSettingRows::worst()
{
    QFETCH(QByteArray, bytes);
    EditedFile file(bytes);
    QStringList found;
    const QHash<QString, Severity> worst = worstOf(file);
    for (auto group = worst.begin(); group != worst.end(); ++group)
        found += group.key() + ' ' + check::word(group.value());
    QTEST(found.join(", "), "worst");
}

void TestSettingRows::besideTheGroups_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("note"); // how it begins; empty: there is none
    QTest::addColumn<QString>("remedy");
    QTest::newRow("nothing") << suite("receiptdoc: { printDate = True; };") << ""
                             << "";
    QTest::newRow("a slip of the outermost name")
        << QByteArray("zelmore: { db: { dbname = a; }; };") << "The first group is \"zelmore\" and not \"zelmora\":"
        << "zelmore: zelmore -> zelmora";
    QTest::newRow("a slip of the outermost name, where it is there as well")
        << QByteArray("zelmore: { db: { dbname = a; }; }; zelmora: { db: { dbname = b; }; };")
        << "The first group is \"zelmore\" and not \"zelmora\":"
        << "none";
    QTest::newRow("a second group at top level")
        << suite("db: { dbname = a; };") + "other: { a = 1; };"
        << "Only the first group at the top is read: nothing in \"other\" is found."
        << "none";
    QTest::newRow("a setting outside every group")
        << "lang = it;" + suite("db: { dbname = a; };") << "The setting \"lang\" stands outside every group,"
        << "none";
    QTest::newRow("a group that nobody reads")
        << suite("colours: { paper = white; };") << "No program reads a group \"colours\" here:"
        << "none";
    QTest::newRow("a text that is skipped") << QByteArray("zelmora: { db: { dbname = a; } stray; };")
                                            << "line 1: The text between \"}\" and \";\" is skipped: stray"
                                            << "none";
    QTest::newRow("a missing semicolon") << QByteArray("zelmora: { db: { dbname = a; }\nbin: { path = b; };\n};")
                                         << "line 1: A semicolon is missing here: what follows is skipped"
                                         << "none";
    QTest::newRow("what is said at its setting") << suite("doc: { papperWidth = 32; printDate = True; };") << ""
                                                 << "";
}

void TestSettingRows::besideTheGroups()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, note);
    QFETCH(QString, remedy);
    EditedFile file(bytes);
    const QVector<Note> notes = notesBesideGroups(file);
    QCOMPARE(notes.isEmpty(), note.isEmpty());
    if (!note.isEmpty()) {
        QVERIFY2(notes[0].text.startsWith(note), qPrintable(notes[0].text));
        QCOMPARE(shown(notes[0].remedy), remedy);
    }
}

QTEST_GUILESS_MAIN(TestSettingRows)
#include "tst_settingrows.moc"
