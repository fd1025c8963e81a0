#include "settings/likeness.h"

#include "support/processortime.h"

#include <QtTest>

class TestLikeness : public QObject {
    Q_OBJECT

private slots:
    void looksLikeSettings_data();
    void looksLikeSettings();
    void aBlankFile();
    void longNames();
};

void TestLikeness::looksLikeSettings_data()
{
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<bool>("looksLike");
    const auto row = [](const char* title, const QStringList& groups, bool looksLike) {
        QTest::newRow(title) << groups << looksLike;
    };
    row("no group", {}, false);
    row("the suite's group", {"zelmora"}, true);
    row("the suite's group, the last of many", {"main", "if", "zelmora"}, true);
    row("other groups", {"main", "if", "printf"}, false);
    row("a group without a name", {""}, false);

    row("after a remark", {"# the till\nzelmora"}, true);
    row("after a word", {"the zelmora"}, true);
    row("at the end of a word", {"oldzelmora"}, true);
    row("before a remark of three signs", {"zelmora ##"}, false);
    row("in the middle", {"my zelmora settings"}, false);

    row("a character missing", {"zelmra"}, true);
    row("two characters missing", {"zemra"}, true);
    row("three characters missing", {"zema"}, false);
    row("two characters missing at the beginning", {"lmora"}, true);
    row("two characters missing at the end", {"zelmo"}, true);
    row("a character too many", {"zellmora"}, true);
    row("two characters too many at the end", {"zelmora2."}, true);
    row("three characters too many at the end", {"zelmora2.0"}, false);
    row("two characters too many, apart", {"zzelmmora"}, true);
    row("a character replaced", {"zelmara"}, true);
    row("two characters replaced", {"telmara"}, true);
    row("three characters replaced", {"telmare"}, false);
    row("two neighbours exchanged", {"zlemora"}, true);
    row("two pairs of neighbours exchanged", {"ezlmoar"}, false);
    row("the same letters, in another order", {"aromlez"}, false);
    row("one missing and one too many", {"elmoraz"}, true);
    row("one replaced, one missing and one too many", {"elmuraz"}, false);

    row("a capital", {"Zelmora"}, true);
    row("two capitals", {"ZelmorA"}, true);
    row("three capitals", {"ZELmora"}, false);
    row("all capitals", {"ZELMORA"}, false);
    row("an accent is another character", {"zelmor\u00E0"}, true);
    row("two characters of two units each too many", {"zelmora\U0001F355\U0001F355"}, true);
    row("two characters of two units each in place of two", {"\U0001F355elmor\U0001F355"}, true);
    row("three characters of two units each", {"\U0001F355elmo\U0001F355\U0001F355"}, false);
    row("half of a character", {QString("zelmor") + QChar(0xD83C)}, true);
}

void TestLikeness::looksLikeSettings()
{
    QFETCH(QStringList, groups);
    QFETCH(bool, looksLike);
    QCOMPARE(settings::looksLikeSettings(groups, false), looksLike);
}

void TestLikeness::aBlankFile()
{
    QVERIFY(settings::looksLikeSettings({}, true));
}

void TestLikeness::longNames()
{
    const QString name(1 << 20, 'z');
    const ProcessorTime time;
    QVERIFY(!settings::looksLikeSettings({name, name + "zelmore", name + "zelmora2"}, false));
    QVERIFY(settings::looksLikeSettings({name + "zelmora"}, false));
    QStringList many;
    for (int i = 0; i < 10000; ++i)
        many += name;
    QVERIFY(!settings::looksLikeSettings(many, false));
    // A walk through each name would take 10 gigabytes' time.
    QVERIFY2(time.milliseconds() < 1000, qPrintable(QString::number(time.milliseconds())));
}

QTEST_GUILESS_MAIN(TestLikeness)
#include "tst_likeness.moc"
