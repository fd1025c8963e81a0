#include "util/hlibrary.h"

#include <QComboBox>
#include <QtTest>

/// The search for an item of a combo box.
class TestComboBoxes : public QObject {
    Q_OBJECT

private slots:
    void index_data();
    void index();
    void typedTextIsNoItem();
    void userDataIsNoText();
    void choiceStays();
};

void TestComboBoxes::index_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("index");

    const QStringList tables {"bar", "1", "01", "Terrace", "caffè", " 2 ", "1"};
    QTest::newRow("an empty box") << QStringList() << "bar" << -1;
    QTest::newRow("an empty box, empty text") << QStringList() << "" << -1;
    QTest::newRow("the first item") << tables << "bar" << 0;
    QTest::newRow("one in the middle") << tables << "Terrace" << 3;
    QTest::newRow("the last item") << QStringList({"a", "b"}) << "b" << 1;
    QTest::newRow("the first of two that are the same") << tables << "1" << 1;
    QTest::newRow("a number is text") << tables << "01" << 2;
    QTest::newRow("no such item") << tables << "kitchen" << -1;
    QTest::newRow("another case") << tables << "terrace" << -1;
    QTest::newRow("the beginning of an item") << tables << "Terr" << -1;
    QTest::newRow("an item and more") << tables << "bars" << -1;
    QTest::newRow("blanks count") << tables << " 2 " << 5;
    QTest::newRow("without the blanks") << tables << "2" << -1;
    QTest::newRow("beyond ASCII") << tables << "caffè" << 4;
    QTest::newRow("no pattern") << tables << "b*" << -1;
    QTest::newRow("empty text is in no item") << tables << "" << -1;
    QTest::newRow("an empty item") << QStringList({"a", ""}) << "" << 1;
}

void TestComboBoxes::index()
{
    QFETCH(QStringList, items);
    QFETCH(QString, text);
    QFETCH(int, index);
    QComboBox box;
    box.addItems(items);
    QCOMPARE(HLibrary::comboBoxIndexOf(&box, text), index);
}

void TestComboBoxes::typedTextIsNoItem()
{
    QComboBox box;
    box.setEditable(true);
    box.addItem("bar");
    box.setEditText("terrace");
    QCOMPARE(HLibrary::comboBoxIndexOf(&box, "terrace"), -1);
    QCOMPARE(HLibrary::comboBoxIndexOf(&box, "bar"), 0);
}

void TestComboBoxes::userDataIsNoText()
{
    QComboBox box;
    box.addItem("bar", "terrace");
    QCOMPARE(HLibrary::comboBoxIndexOf(&box, "terrace"), -1);
}

void TestComboBoxes::choiceStays()
{
    QComboBox box;
    box.addItems({"bar", "terrace"});
    QCOMPARE(HLibrary::comboBoxIndexOf(&box, "terrace"), 1);
    QCOMPARE(box.currentIndex(), 0);
}

QTEST_MAIN(TestComboBoxes)
#include "tst_comboboxes.moc"
