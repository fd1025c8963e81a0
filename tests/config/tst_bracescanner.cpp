#include "config/bracescanner.h"

#include "support/processstate.h"

#include <QtTest>

using libconfig::BraceScanner;
using libconfig::ScanEvent;
using libconfig::ScannedName;
using libconfig::ScannedText;

/// What the scanner of the brace format meets, and where.
class TestBraceScanner : public QObject {
    Q_OBJECT

private slots:
    void events_data();
    void events();
    void endOfInputGoesOnForEver();
    void textAndItsPlace_data();
    void textAndItsPlace();
    void nameBeyondAsciiIsDecodedOnce();
    void skipTo();
    void restOfTheInput();
    void restLeavesWhatWasMet();
    void groupsInsideEachOther();
    void byteOrderMarksAreReadInOneGo_data();
    void byteOrderMarksAreReadInOneGo();
    void oneLongTextTakesNoMoreThanTwice();
};

namespace {

QString at(const ScannedText& text)
{
    return text.text() + '@' + QString::number(text.textOffset());
}

QString described(const ScanEvent& event)
{
    switch (event.kind) {
    case ScanEvent::Kind::GroupBegins:
        return "group " + at(event.text);
    case ScanEvent::Kind::GroupEnds:
        return "end@" + QString::number(event.text.offset);
    case ScanEvent::Kind::Setting:
        return "setting " + at(event.text) + " = " + at(event.value);
    case ScanEvent::Kind::Skipped:
        break;
    case ScanEvent::Kind::EndOfInput:
        return "end of input@" + QString::number(event.text.offset);
    }
    static const char* const reasons[] = {"?", "before a brace", "after a brace", "before the end", "too deep"};
    return "skipped " + at(event.text) + ", " + reasons[static_cast<int>(event.reason)];
}

QStringList eventsOf(const QByteArray& bytes)
{
    const std::unique_ptr<BraceScanner> scanner = BraceScanner::over(bytes);
    QStringList events;
    do
        events += described(scanner->next());
    while (!events.last().startsWith("end of input"));
    events.removeLast();
    return events;
}

} // namespace

void TestBraceScanner::events_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const QByteArray& bytes, const QStringList& expected) {
        QTest::newRow(name) << bytes << expected;
    };

    row("nothing", "", {});
    row("white space", " \n\t", {});
    row("a setting", "a = 1;", {"setting a@0 = 1@4"});
    row("a setting without blanks", "a=1;b=2;", {"setting a@0 = 1@2", "setting b@4 = 2@6"});
    row("a setting with quotes, which are part of it", "a = \" 1 \";", {"setting a@0 = \" 1 \"@4"});
    row("a value with the format's signs", "a = {b:c=d};", {"setting a@0 = {b:c=d}@4"});
    row("a setting without its end", "a = 1\n", {"setting a@0 = 1@4"});
    row("a setting without a name and a value", "=;", {"setting @0 = @1"});
    row("a group", "g: { a = 1; };", {"group g@0", "setting a@5 = 1@9", "end@12"});
    row("a group in a group", "g:{h:{a=1;};};", {"group g@0", "group h@3", "setting a@6 = 1@8", "end@10", "end@12"});
    row("an empty group", "g: {};", {"group g@0", "end@4"});
    row("two groups", "g:{}; h:{};", {"group g@0", "end@3", "group h@6", "end@9"});
    row("a group that does not end", "g: { a = 1;", {"group g@0", "setting a@5 = 1@9"});
    row("a group that does not begin", "g: a = 1;", {"group g@0", "skipped a = 1;@3, before a brace"});
    row("text before a brace", "g: the till { };", {"group g@0", "skipped the till@3, before a brace", "end@14"});
    row("text after a brace", "g: { } of ours ;", {"group g@0", "end@5", "skipped of ours@7, after a brace"});
    row("a missing semicolon after a brace", "g: {\n}\nh: { a = 1; };",
        {"group g@0", "end@5", "skipped h: { a = 1@7, after a brace", "end@19"});
    row("text before the end of a group", "g: { a = 1; b };",
        {"group g@0", "setting a@5 = 1@9", "skipped b@12, before the end", "end@14"});
    row("text at the end of the input", "a = 1; # end", {"setting a@0 = 1@4", "skipped # end@7, before the end"});
    row("a remark is part of the next name", "# x\na = 1;", {"setting # x\na@0 = 1@8"});
    row("a brace too many", "};a=1;", {"end@0", "setting a@2 = 1@4"});
}

void TestBraceScanner::events()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    QCOMPARE(eventsOf(bytes), expected);
}

void TestBraceScanner::endOfInputGoesOnForEver()
{
    const QByteArray bytes = "a = 1;";
    const std::unique_ptr<BraceScanner> scanner = BraceScanner::over(bytes);
    QCOMPARE(described(scanner->next()), QString("setting a@0 = 1@4"));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(described(scanner->next()), QString("end of input@6"));
}

void TestBraceScanner::textAndItsPlace_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("offset");

    QTest::newRow("nothing") << QByteArray() << "" << 100;
    QTest::newRow("white space around it") << QByteArray(" \n a b \t") << "a b" << 103;
    QTest::newRow("white space alone") << QByteArray("  ") << "" << 102;
    QTest::newRow("a byte-order mark alone") << QByteArray("\xEF\xBB\xBF ") << "" << 103;
    QTest::newRow("UTF-8") << QByteArray(" caff\xC3\xA8") << "caffè" << 101;
    QTest::newRow("ISO-8859-1") << QByteArray(" caff\xE8") << "caffè" << 101;
    QTest::newRow("a byte-order mark") << QByteArray("\xEF\xBB\xBF"
                                                     "a")
                                       << "a" << 103;
    QTest::newRow("byte-order marks and blanks") << QByteArray(" \xEF\xBB\xBF \xEF\xBB\xBF a ") << "a" << 109;
    QTest::newRow("a byte-order mark inside") << QByteArray("a\xEF\xBB\xBF") << QString("a") + QChar(0xFEFF) << 100;
    QTest::newRow("a blank of UTF-8") << QByteArray("\xC2\xA0 a") << "a" << 103;
    QTest::newRow("a blank of ISO-8859-1") << QByteArray("\xA0 a") << "a" << 102;
}

void TestBraceScanner::textAndItsPlace()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QFETCH(int, offset);
    const ScannedText scanned {{bytes.constData(), static_cast<std::size_t>(bytes.size())}, 100};
    QCOMPARE(scanned.text(), text);
    QCOMPARE(scanned.textOffset(), qint64(offset));

    const ScannedName name(scanned);
    QCOMPARE(name.text(), text);
    QVERIFY(name == text);
    QVERIFY(!(name == text + 'a'));
    QVERIFY(!(name == 'a' + text));
}

// It is compared with each key that is looked up: a million of them, decoded each time, took a receipt 12 s.
void TestBraceScanner::nameBeyondAsciiIsDecodedOnce()
{
    const ScannedName name(ScannedText {"caff\xC3\xA8", 0});
    QCOMPARE(name.text(), QString("caffè"));
    QCOMPARE(name.text().constData(), name.text().constData());
}

void TestBraceScanner::skipTo()
{
    const QByteArray bytes = "ab{c = 1; d";
    const std::unique_ptr<BraceScanner> scanner = BraceScanner::over(bytes);
    QVERIFY(scanner->skipTo('{'));
    QCOMPARE(described(scanner->next()), QString("setting c@3 = 1@7"));
    QVERIFY(!scanner->skipTo('{'));
    QCOMPARE(described(scanner->next()), QString("end of input@11"));
}

void TestBraceScanner::restOfTheInput()
{
    const QByteArray bytes = "a = 1; }; b: { c";
    const std::unique_ptr<BraceScanner> scanner = BraceScanner::over(bytes);
    scanner->next();
    QCOMPARE(described(scanner->next()), QString("end@7"));
    QCOMPARE(at(scanner->rest()), QString("b: { c@10"));
    QCOMPARE(scanner->rest().bytes, std::string_view());
}

// What stands between the brace and the semicolon was met with the brace.
void TestBraceScanner::restLeavesWhatWasMet()
{
    const QByteArray bytes = "} x ; y";
    const std::unique_ptr<BraceScanner> scanner = BraceScanner::over(bytes);
    QCOMPARE(described(scanner->next()), QString("end@0"));
    QCOMPARE(at(scanner->rest()), QString("y@6"));
    QCOMPARE(described(scanner->next()), QString("skipped x@2, after a brace"));
    QCOMPARE(described(scanner->next()), QString("end of input@7"));
}

void TestBraceScanner::groupsInsideEachOther()
{
    const QStringList most = eventsOf(QByteArray("g:{").repeated(1000) + "a=1;" + QByteArray("};").repeated(1000));
    QCOMPARE(most.size(), 2001);
    QCOMPARE(most.at(1000), QString("setting a@3000 = 1@3002"));

    const QStringList tooMany = eventsOf(QByteArray("g:{").repeated(1001) + "a=1;};");
    QCOMPARE(tooMany.size(), 1002);
    QCOMPARE(tooMany.last(), QString("skipped a=1;};@3003, too deep"));

    const QStringList closedBefore = eventsOf(QByteArray("g:{};").repeated(3000) + "};};" + "g:{a=1;};");
    QCOMPARE(closedBefore.at(closedBefore.size() - 2), QString("setting a@15007 = 1@15009"));
}

void TestBraceScanner::byteOrderMarksAreReadInOneGo_data()
{
    QTest::addColumn<int>("marks");
    QTest::newRow("few") << 4;
    QTest::newRow("as many as 12 MB hold") << 4000000;
}

// One after the other, with a copy of the rest for each, took hours.
void TestBraceScanner::byteOrderMarksAreReadInOneGo()
{
    QFETCH(int, marks);
    const std::string bytes = QByteArray("\xEF\xBB\xBF ").repeated(marks).toStdString() + "a";
    const ScannedText scanned {bytes, 0};
    QCOMPARE(scanned.text(), QString("a"));
    QCOMPARE(scanned.textOffset(), qint64(4) * marks);
}

// Its block doubles as it grows; of the smaller ones before nothing is kept.
void TestBraceScanner::oneLongTextTakesNoMoreThanTwice()
{
    const std::size_t size = (1 << 22) + 1; // the worst: the block has just doubled
    const QByteArray bytes(static_cast<int>(size), 'a');
    const std::unique_ptr<BraceScanner> scanner = BraceScanner::over(bytes);
    const std::size_t before = allocatedBytes();
    const ScanEvent event = scanner->next();
    QCOMPARE(event.text.bytes.size(), size);
    const std::size_t besides = 65536; // the file's buffer and the like
    QVERIFY2(allocatedBytes() - before < 2 * size + besides, qPrintable(QString::number(allocatedBytes() - before)));
}

QTEST_GUILESS_MAIN(TestBraceScanner)
#include "tst_bracescanner.moc"
