#include "settings/editedfile.h"
#include "settings/namereason.h"

#include <QtTest>

/// The names that a person may give to groups and settings.
class TestSettingNames : public QObject {
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void onlyOneGroupAtTheTop();
    void noSettingOutsideTheGroups();
};

void TestSettingNames::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("inBraces"); // whether a setting can have it
    QTest::addColumn<bool>("inXml");
    QTest::newRow("a word") << "colour" << true << true;
    QTest::newRow("with digits and an underscore") << "colour_2" << true << true;
    QTest::newRow("with an accent") << "caff\u00E8" << true << true;
    QTest::newRow("that begins with a digit") << "2nd" << true << false;
    QTest::newRow("with a blank inside") << "a b" << true << false;
    QTest::newRow("with a point") << "a.b" << false << false;
    QTest::newRow("with a colon") << "a:b" << false << true;
    QTest::newRow("with an equals sign") << "a=b" << false << false;
    QTest::newRow("with a brace") << "a}b" << false << false;
    QTest::newRow("with a blank at its end") << "a " << false << false;
    QTest::newRow("with a letter that Western European languages lack") << "\u0142" << false << false;
    QTest::newRow("none") << "" << false << false;
    QTest::newRow("that is there already") << "old" << false << false;
}

void TestSettingNames::names()
{
    QFETCH(QString, name);
    EditedFile braces("zelmora: { old: { a = 1; }; old = 1; };");
    EditedFile xml("<zelmora old='1'><old a='1'/></zelmora>", "a.xml");
    const QDomElement inBraces = braces.group({"zelmora"});
    const QDomElement inXml = xml.group({"zelmora"});
    QTEST(whyNoSetting(braces.file(), inBraces, name).isEmpty(), "inBraces");
    QTEST(whyNoGroup(braces.file(), inBraces, name).isEmpty(), "inBraces");
    QTEST(whyNotRenamed(braces.file(), braces.group({"zelmora", "old"}), name).isEmpty(), "inBraces");
    QTEST(whyNoSetting(xml.file(), inXml, name).isEmpty(), "inXml");
    QTEST(whyNoGroup(xml.file(), inXml, name).isEmpty(), "inXml");
}

void TestSettingNames::onlyOneGroupAtTheTop()
{
    EditedFile file("zelmora: { a = 1; };");
    QCOMPARE(whyNoGroup(file.file(), file.file().root(), "other"),
             QString("Only the first group at the top is read: a second one beside it would never be found."));
    QCOMPARE(whyNotRenamed(file.file(), file.group({"zelmora"}), "other"), QString());
    EditedFile empty("");
    QCOMPARE(whyNoGroup(empty.file(), empty.file().root(), "zelmora"), QString());
    empty.addGroup(empty.file().root(), "zelmora");
    QCOMPARE(empty.group({"zelmora"}).tagName(), QString("zelmora"));
}

void TestSettingNames::noSettingOutsideTheGroups()
{
    EditedFile file("zelmora: { a = 1; };");
    QCOMPARE(whyNoSetting(file.file(), file.file().root(), "b"),
             QString("A setting outside every group is never found: choose a group first."));
}

QTEST_GUILESS_MAIN(TestSettingNames)
#include "tst_settingnames.moc"
