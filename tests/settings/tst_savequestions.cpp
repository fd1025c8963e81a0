#include "settings/editedfile.h"
#include "settings/savequestions.h"

#include <QtTest>

/// What somebody is asked before a file is saved.
class TestSaveQuestions : public QObject {
    Q_OBJECT

private slots:
    void questions_data();
    void questions();
    void aGroupThatIsFilledIsNoLoss();
    void whatIsHiddenByItsBeginning();
    void changedByOthers();
};

void TestSaveQuestions::questions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("as"); // the name under which it is saved
    QTest::addColumn<QStringList>("asked"); // the text, and its lines
    QTest::newRow("nothing") << "a.conf" << QByteArray("zelmora: { a = 1; };") << "a.conf" << QStringList();
    QTest::newRow("a second group at top level")
        << "a.conf" << QByteArray("zelmora: { a = 1; };\nb: { c = 1; };") << "a.conf"
        << QStringList {"Saving will drop from the file:", "line 2: b"};
    QTest::newRow("the same, of a copy") << "a.conf" << QByteArray("zelmora: { a = 1; };\nb: { c = 1; };")
                                         << "copy.conf" << QStringList {"Saving will drop from the file:", "line 2: b"};
    QTest::newRow("a value that XML cannot hold")
        << "a.conf" << QByteArray("zelmora: { a = x<y; };") << "a.xml"
        << QStringList {"The file would not be XML, and nothing would be read back, because of:", "zelmora.a = x<y"};
    QTest::newRow("a value that the brace form cannot hold")
        << "a.xml" << QByteArray("<zelmora a='x;y'/>") << "a.conf"
        << QStringList {"These settings would read back otherwise, or not at all:", "zelmora.a = x;y"};
    QTest::newRow("a secret that the brace form cannot hold")
        << "a.xml" << QByteArray("<zelmora><db password='x;y'/></zelmora>") << "a.conf"
        << QStringList {"These settings would read back otherwise, or not at all:", "zelmora.db.password = ***"};
    QTest::newRow("two kinds of loss") << "a.xml" << QByteArray("<zelmora a='x;y'><!-- c --></zelmora>") << "a.conf"
                                       << QStringList {"Saving will drop from the file:", "line 1: c",
                                                       "These settings would read back otherwise, or not at all:",
                                                       "zelmora.a = x;y"};
}

void TestSaveQuestions::questions()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, as);
    EditedFile file(bytes, qPrintable(name));
    const QString path = QFileInfo(file.path).path() + '/' + as;
    QStringList asked;
    for (const auto& question : questionsBeforeSaving(file.file(), path, file.tryWriting(path)))
        asked += QStringList(question.text) + question.lines;
    QTEST(asked, "asked");
}

void TestSaveQuestions::aGroupThatIsFilledIsNoLoss()
{
    EditedFile file("zelmora: { a = 1; db: { }; };");
    const auto asked = [&] { return questionsBeforeSaving(file.file(), file.path, file.tryWriting(file.path)).size(); };
    QCOMPARE(asked(), 1);
    file.set("zelmora.db.dbname", "b");
    QCOMPARE(asked(), 0);
    file.undo();
    QCOMPARE(asked(), 1);
}

// The file itself would be emptied; of a copy it is what the copy would lack.
void TestSaveQuestions::whatIsHiddenByItsBeginning()
{
    EditedFile file("<!-- c -->\n<zelmora a='1'/>", "a.xml");
    const auto asked = [&](const QString& path) {
        const auto questions = questionsBeforeSaving(file.file(), path, file.tryWriting(path));
        return questions.size() == 1 ? questions[0].text : QString::number(questions.size());
    };
    QCOMPARE(asked(file.path), "Nothing of the file " + file.path + " could be read. Saving empties it.");
    QCOMPARE(asked(file.path + "2.xml"), QString("Saving will drop from the file:"));
}

void TestSaveQuestions::changedByOthers()
{
    EditedFile file("zelmora: { a = 1; };");
    writeBytes(file.path, "zelmora: { a = 2; };");
    const auto questions = questionsBeforeSaving(file.file(), file.path, file.tryWriting(file.path));
    QCOMPARE(questions.size(), 1);
    QCOMPARE(questions[0].text,
             "Another program has changed or removed the file " + file.path
                 + " since it was opened. Saving drops what it changed.");
    QVERIFY(questionsBeforeSaving(file.file(), file.path + "2", file.tryWriting(file.path)).isEmpty());
}

QTEST_GUILESS_MAIN(TestSaveQuestions)
#include "tst_savequestions.moc"
