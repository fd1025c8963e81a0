#include "settings/editedfile.h"
#include "settings/recentfiles.h"
#include "settings/search.h"
#include "settings/settinghelp.h"
#include "support/processortime.h"

#include <QtTest>

using settings::Search;
using vocabulary::SettingGroup;

/// What is found in settings, what is said of them, and the files that were opened before.
class TestSettingSearch : public QObject {
    Q_OBJECT

private slots:
    void finds_data();
    void finds();
    void inTheTree_data();
    void inTheTree();
    void manySettings();
    void help_data();
    void help();
    void recentFiles();
};

void TestSettingSearch::finds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("hits"); // "group number"
    QTest::newRow("a name, in all groups that have it") << "descriptionwidth"
                                                        << "fiscaldoc 1";
    QTest::newRow("a value") << "soup"
                             << "db 1";
    QTest::newRow("what is said of a setting") << "which must EXIST"
                                               << "logger 1";
    QTest::newRow("the plain name of a group") << "Delivery note"
                                               << "deliverydoc 1";
    QTest::newRow("the name of a group") << "invoicedoc"
                                         << "invoicedoc 1";
    QTest::newRow("the value of a secret is not looked at") << "s3cret"
                                                            << "";
    QTest::newRow("a group and settings in it") << "database"
                                                << "db 2";
    QTest::newRow("nothing") << "dinosaur"
                             << "";
}

void TestSettingSearch::finds()
{
    QFETCH(QString, text);
    EditedFile file("zelmora: { db: { dbname = soup; password = s3cret; }; };");
    QStringList hits;
    for (const SettingGroup* group : settings::groupsInOrder()) {
        if (const int count = Search(text).hitsIn(file, *group))
            hits += group->name + QString(" %1").arg(count);
    }
    QTEST(hits.join(", "), "hits");
}

void TestSettingSearch::inTheTree_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("hits");
    QTest::newRow("a group's name") << "recei" << 1;
    QTest::newRow("a setting's name and a value") << "DATE" << 2;
    QTest::newRow("outside the suite's group") << "lang" << 1;
    QTest::newRow("nothing") << "dinosaur" << 0;
    QTest::newRow("the empty text") << "" << 0;
    QTest::newRow("a blank alone") << " " << 0;
    QTest::newRow("a name, and blanks around it") << " recei " << 1;
}

void TestSettingSearch::inTheTree()
{
    QFETCH(QString, text);
    EditedFile file("lang = it; zelmora: { receiptdoc: { printDate = true; x = dated; y = \"a b\"; }; };");
    QTEST(Search(text).hitsIn(file.file()), "hits");
}

void TestSettingSearch::manySettings()
{
    QByteArray keys;
    for (int i = 0; i < 20000; ++i)
        keys += "key" + QByteArray::number(i) + " = value;\n";
    EditedFile file("zelmora: { receiptdoc: { " + keys + "}; };");
    const ProcessorTime time;
    QCOMPARE(Search("1999").hitsIn(file.file()), 1 + 1 + 10); // key1999, key11999, key19990 to key19999
    QVERIFY2(time.milliseconds() < 1000, qPrintable(QString::number(time.milliseconds()))); // more: a loop in a loop
}

void TestSettingSearch::help_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("documents");
    QTest::addColumn<QString>("help");
    QTest::newRow("a number") << "receiptdoc.paperWidth" << QStringList({"Receipt", "Summary receipt"})
                              << "zelmora.receiptdoc.paperWidth\n\nThe characters in a line of the paper.\n\n"
                                 "It takes: a whole number from 0 to 10000.\nWithout it: 32.\n"
                                 "It shows on: Receipt, Summary receipt.";
    QTest::newRow("a flag that does nothing")
        << "solddoc.printLogo" << QStringList()
        << "zelmora.solddoc.printLogo\n\nNothing: the register prints no logo.\n\n"
           "It takes: a flag, true or false.\nWithout it: false.\nNothing that this document prints depends on it.";
    QTest::newRow("of a program")
        << "db.hostname" << QStringList()
        << "zelmora.db.hostname\n\nThe server: a name, an address, or the folder of its socket.\n\n"
           "It takes: a text.\nWithout it: the server on this machine.";
    QTest::newRow("one that is not used") << "receiptdoc.style" << QStringList()
                                          << "zelmora.receiptdoc.style\n\n"
                                             "The style of the document; nothing depends on it yet.\n\n"
                                             "It takes: a text.\nWithout it: nothing changes.\n"
                                             "Nothing that this document prints depends on it.";
}

void TestSettingSearch::help()
{
    QFETCH(QString, key);
    QFETCH(QStringList, documents);
    const SettingGroup& group = *vocabulary::findGroup(key.section('.', 0, 0));
    QTEST(settings::helpOn(group, *findSetting(group, key.section('.', 1)), documents), "help");
}

void TestSettingSearch::recentFiles()
{
    QCOMPARE(settings::withRecent({"a", "b", "c"}, "b"), QStringList({"b", "a", "c"}));
    QStringList many;
    for (int i = 0; i < 20; ++i)
        many = settings::withRecent(many, QString::number(i));
    QCOMPARE(many, QStringList({"19", "18", "17", "16", "15", "14", "13", "12"}));

    const QTemporaryDir folder;
    const QString path = folder.filePath("a.conf");
    writeBytes(path, "");
    const QString gone = folder.filePath("gone.conf");
    QCOMPARE(settings::recentOnes({gone, path, folder.path()}, "other.conf"), QStringList(path));
    QCOMPARE(settings::recentOnes({gone, path}, path), QStringList());
}

QTEST_GUILESS_MAIN(TestSettingSearch)
#include "tst_settingsearch.moc"
