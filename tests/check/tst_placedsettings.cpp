#include "check/placedsettings.h"

#include "support/settingstree.h"

#include <QtTest>

#include <random>

using check::PlacedSetting;
using check::PlacedSettings;

/// A look-up with places: it finds what the programs find, and says where that stands.
class TestPlacedSettings : public QObject {
    Q_OBJECT

private slots:
    void find_data();
    void find();
    void agreesWithTheLookUpOfPrograms_data();
    void agreesWithTheLookUpOfPrograms();
};

namespace {

/// Such as "2:3 40"; empty when nothing is found.
QString found(const QByteArray& bytes, const QString& format, const QString& key)
{
    const std::optional<PlacedSetting> setting = PlacedSettings::of(bytes, format).find(key);
    if (!setting)
        return QString();
    return QString("%1:%2 %3")
        .arg(QString::number(setting->place.line), QString::number(setting->place.column), setting->value);
}

} // namespace

void TestPlacedSettings::find_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    const auto cfg = [](const char* name, const char* bytes, const char* key, const char* expected) {
        QTest::newRow(name) << "cfg" << QByteArray(bytes) << key << expected;
    };
    const auto xml = [](const char* name, const char* bytes, const char* key, const char* expected) {
        QTest::newRow(name) << "xml" << QByteArray(bytes) << key << expected;
    };

    cfg("a setting in a group", "zelmora: {\n doc: {\n  w = \" 4\";\n };\n};", "zelmora.doc.w", "3:3  4");
    cfg("a setting in the first group itself", "zelmora: {\n w = 4; };", "zelmora.w", "2:2 4");
    cfg("an absent setting", "zelmora: { doc: { w = 4; }; };", "zelmora.doc.x", "");
    cfg("an empty value is no value", "zelmora: { doc: { w = \"\"; }; };", "zelmora.doc.w", "");
    cfg("the last of a repeated setting", "zelmora: { doc: {\n w = 4;\n w = 5; }; };", "zelmora.doc.w", "3:2 5");
    cfg("the first value of repeated groups that is not empty",
        "zelmora: { doc: { w = ; };\n doc: { w = 5; };\n doc: { w = 6; }; };", "zelmora.doc.w", "2:9 5");
    cfg("only the first group at top level", "other: { a = 1; };\nzelmora: { w = 4; };", "zelmora.w", "");
    cfg("an empty group at top level is not there", "other: { };\nzelmora: { w = 4; };", "zelmora.w", "2:12 4");
    cfg("a setting outside every group", "w = 4; zelmora: { a = 1; };", "zelmora.w", "");
    cfg("nothing behind a brace too many", "zelmora: { a = 1; }; };\nzelmora: { w = 4; };", "zelmora.w", "");
    cfg("characters outside the basic plane and byte-order marks count as one and none",
        "\xEF\xBB\xBFzelmora: { a = \xF0\x9F\x8D\x95; w = 4; };", "zelmora.w", "1:19 4");
    xml("an attribute of an element", "<zelmora>\n <doc a='1'\n  w='4'/></zelmora>", "zelmora.doc.w", "3:3 4");
    xml("the last of a repeated attribute", "<zelmora w='4' w='5'/>", "zelmora.w", "1:16 5");
    xml("nothing of what a comment hides", "<!-- x --><zelmora w='4'/>", "zelmora.w", "");
    xml("a comment at another place", "<zelmora w='4'/><!-- x -->", "zelmora.w", "1:10 4");
    xml("nothing of what breaks off", "<zelmora w='4'>", "zelmora.w", "");
}

void TestPlacedSettings::find()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, key);
    QTEST(found(bytes, format, key), "expected");
}

void TestPlacedSettings::agreesWithTheLookUpOfPrograms_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QStringList>("pieces");
    QTest::newRow("brace format") << "cfg"
                                  << QStringList {"a", "b",    ".",      ":",        "{",   "a:{", "b : {", "}",  "};",
                                                  "=", "a=1;", "a = 2;", "b=\"3\";", "a=;", ";",   " ",     "\n", "\""};
    QTest::newRow("XML") << "xml"
                         << QStringList {"<a>",  "<a a='1'>", "<b b='2' a='3'>", "<a b='' b='4'/>", "<b/>", "</a>",
                                         "</b>", "x",         "<!---->",         "<?p q?>",         " ",    "\n"};
}

void TestPlacedSettings::agreesWithTheLookUpOfPrograms()
{
    QFETCH(QString, format);
    QFETCH(QStringList, pieces);
    const QStringList keys {"a",       "a.a",    "a.b",  "b.a", "a.a.a", "a.a.b", "a.b.a", "b.a.b",
                            "a.b.a.b", "a.a..b", "a..b", "a.",  ".a",    "",      "a.a.",  "a.b.."};
    std::mt19937 random(20260714);
    int hits = 0;
    for (int run = 0; run < 5000; ++run) {
        QString text = format == "xml" ? "<a b='1'>" : "a: { b = 1; ";
        for (auto count = random() % 15; count > 0; --count)
            text += pieces.at(static_cast<int>(random() % static_cast<unsigned int>(pieces.size())));
        if (format == "xml")
            text += "</a>";
        const QByteArray bytes = text.toUtf8();
        OpenConfig config;
        config.readBytes(bytes, "settings", format);
        const PlacedSettings placed = PlacedSettings::of(bytes, format);
        for (const QString& key : keys) {
            const std::optional<PlacedSetting> setting = placed.find(key);
            const QString value = config.lookup(key);
            QVERIFY2(setting.has_value() == !value.isEmpty(), qPrintable(key + " of " + text));
            if (setting)
                QCOMPARE(setting->value, value);
            hits += setting ? 1 : 0;
        }
    }
    QVERIFY(hits > 1000);
}

QTEST_GUILESS_MAIN(TestPlacedSettings)
#include "tst_placedsettings.moc"
