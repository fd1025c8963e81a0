#include "config/zmconfiguration.h"
#include "support/settingstree.h"

#include "support/capture.h"
#include "support/ownprocess.h"

#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QPointer>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtTest>

#include <functional>
#include <memory>
#include <random>

using libconfig::Config;

/// An item of a list, to build one by hand: its text and its children.
struct Item {
    QString text;
    QVector<Item> children;
};

using Items = QVector<Item>;

Q_DECLARE_METATYPE(Items)

/// The tree of settings as a list, and the tree that an edited list becomes.
class TestConfigTreeView : public QObject {
    Q_OBJECT

private slots:
    void init();

    void items_data();
    void items();
    void valuesAloneAreEditable();
    void columnAndOwner();
    void nothingLoaded();
    void order_data();
    void order();
    void elementOfAnotherDocument();
    void listOfTheStore();

    void noList();
    void unchangedListSavesTheSame_data();
    void unchangedListSavesTheSame();
    void randomListsSaveTheSame();
    void editedValue_data();
    void editedValue();
    void reorderedList();
    void formatThatIsNeither_data();
    void formatThatIsNeither();
    void unwritableFile();
    void emptyList();

    void builtList_data();
    void builtList();
    void groupThatLosesItsFirstValue();
    void builtListHasItsOrder();
    void deepList();
    void rebuildingWritesNothing();
    void itemIntoADocument_data();
    void itemIntoADocument();
    void itemBelowANode();
    void itemWithoutChildrenGoesNowhere();

private:
    QString path(const QString& name = "zelmora.conf") const { return folder->filePath(name); }
    /// A Config that has read @p text.
    std::unique_ptr<OpenConfig> configOf(const QByteArray& text, const char* format = "cfg") const;

    QScopedPointer<QTemporaryDir> folder;
};

namespace {

/// Tells this program to do nothing but to read a file and print its list.
const char listOnly[] = "--list";

/// Ends the depth-first path of texts such as {"zelmora", "doc", "a", "1"} below @p parent; null when there is none.
QTreeWidgetItem* itemAt(QTreeWidgetItem* parent, const QStringList& texts)
{
    QTreeWidgetItem* item = parent;
    for (const QString& text : texts) {
        QTreeWidgetItem* next = nullptr;
        for (int i = 0; i < item->childCount() && !next; ++i)
            next = item->child(i)->text(0) == text ? item->child(i) : nullptr;
        if (!next)
            return nullptr;
        item = next;
    }
    return item;
}

QStringList itemLines(const QTreeWidgetItem* item, int depth)
{
    QStringList lines;
    for (int i = 0; i < item->childCount(); ++i) {
        lines += QString::number(depth) + ' ' + item->child(i)->text(0);
        lines += itemLines(item->child(i), depth + 1);
    }
    return lines;
}

/// The items of a list, a line "depth text" for each.
QStringList itemLines(const QTreeWidget& list)
{
    return itemLines(list.invisibleRootItem(), 0);
}

QTreeWidgetItem* newItem(const Item& item)
{
    auto* const result = new QTreeWidgetItem(QStringList(item.text));
    for (const Item& child : item.children)
        result->addChild(newItem(child));
    return result;
}

std::unique_ptr<QTreeWidget> listOf(const Items& items)
{
    auto list = std::make_unique<QTreeWidget>();
    for (const Item& item : items)
        list->addTopLevelItem(newItem(item));
    return list;
}

std::unique_ptr<QTreeWidget> listOf(const Config& config)
{
    return std::unique_ptr<QTreeWidget>(config.newConfigListView());
}

Item setting(const char* name, const char* value)
{
    return {name, {{value, {}}}};
}

} // namespace

void TestConfigTreeView::init()
{
    folder.reset(new QTemporaryDir(scratchFolder()));
    QVERIFY(folder->isValid());
}

std::unique_ptr<OpenConfig> TestConfigTreeView::configOf(const QByteArray& text, const char* format) const
{
    writeBytes(path(), text);
    return std::make_unique<OpenConfig>(path(), format);
}

void TestConfigTreeView::items_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QStringList>("expected"); // below the item of the file

    QTest::newRow("a setting is its name, and below that its value")
        << QByteArray("zelmora: { a = 1; };") << "cfg" << QStringList {"1 zelmora", "2 a", "3 1"};
    QTest::newRow("settings first, then the groups, both in the order of the file")
        << QByteArray("zelmora: { z: { b = 1; a = 2; }; y = 3; x: { c = 4; }; w = 5; };") << "cfg"
        << QStringList {"1 zelmora", "2 y", "3 3", "2 w", "3 5", "2 z", "3 b",
                        "4 1",       "3 a", "4 2", "2 x", "3 c", "4 4"};
    QTest::newRow("settings and groups at top level")
        << QByteArray("b = 1; zelmora: { c = 2; }; a = 3; other: { d = 4; };") << "cfg"
        << QStringList {"1 b", "2 1", "1 a", "2 3", "1 zelmora", "2 c", "3 2", "1 other", "2 d", "3 4"};
    QTest::newRow("empty names and values") << QByteArray(": { = ; };") << "cfg" << QStringList {"1 ", "2 ", "3 "};
    QTest::newRow("a repeated setting has its first place and its last value")
        << QByteArray("z: { b = 1; a = 2; b = 3; };") << "cfg" << QStringList {"1 z", "2 b", "3 3", "2 a", "3 2"};
    QTest::newRow("a group that holds no setting")
        << QByteArray("z: { doc: { none: { }; }; };") << "cfg" << QStringList {"1 z", "2 doc"};
    QTest::newRow("a value of several lines, with accents")
        << QByteArray("z: { a = \" caff\xC3\xA8\n\xE2\x82\xAC \"; };") << "cfg"
        << QStringList {"1 z", "2 a", QString("3  caffè\n€ ")};
    QTest::newRow("XML, of which text and comments are no part")
        << QByteArray("<z b='1' xmlns='u' a='2'>text<!-- c --><doc d='3'/><none/></z><!-- e -->") << "xml"
        << QStringList {"1 z", "2 b", "3 1", "2 xmlns", "3 u", "2 a", "3 2", "2 doc", "3 d", "4 3", "2 none"};
    QTest::newRow("XML that does not begin with its root element")
        << QByteArray("<!-- c --><z a='1'/>") << "xml" << QStringList();
}

void TestConfigTreeView::items()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, format);
    QFETCH(QStringList, expected);

    const auto config = configOf(text, qPrintable(format));
    expected.prepend("0 " + path());
    QCOMPARE(itemLines(*listOf(*config)), expected);
    QCOMPARE(itemLines(*std::unique_ptr<QTreeWidget>(config->buildConfigListView())), expected);
}

void TestConfigTreeView::valuesAloneAreEditable()
{
    const auto list = listOf(*configOf("b = 1; z: { a = ; c = 2; doc: { a = 3; none: { x: { }; }; }; };"));
    QStringList editable;
    const std::function<void(const QTreeWidgetItem*)> visit = [&](const QTreeWidgetItem* item) {
        for (int i = 0; i < item->childCount(); ++i) {
            const QTreeWidgetItem* const child = item->child(i);
            QVERIFY(child->flags() & Qt::ItemIsEnabled && child->flags() & Qt::ItemIsSelectable);
            if (child->flags() & Qt::ItemIsEditable)
                editable += item->text(0) + '=' + child->text(0);
            visit(child);
        }
    };
    visit(list->invisibleRootItem());
    QCOMPARE(editable, (QStringList {"b=1", "a=", "c=2", "a=3"}));
}

void TestConfigTreeView::columnAndOwner()
{
    QPointer<QTreeWidget> list;
    {
        const auto config = configOf("zelmora: { a = 1; };");
        list = config->newConfigListView();
        QVERIFY(list != listOf(*config).get()); // each is a list of its own
    }
    QVERIFY(list); // it outlives the tree
    QVERIFY(!list->parent());
    QCOMPARE(list->columnCount(), 1);
    QCOMPARE(list->headerItem()->text(0), QString("ConfigurationFile"));
    QCOMPARE(list->header()->sectionSize(0), QTreeWidget().header()->sectionSize(0));
    QCOMPARE(itemLines(*list), (QStringList {"0 " + path(), "1 zelmora", "2 a", "3 1"}));
    delete list;
}

void TestConfigTreeView::nothingLoaded()
{
    const Config config;
    const auto list = listOf(config);
    QCOMPARE(list->topLevelItemCount(), 0);
    QCOMPARE(list->headerItem()->text(0), QString("ConfigurationFile"));
}

void TestConfigTreeView::order_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("hashSeed");

    for (const char* format : {"cfg", "xml"}) {
        for (const char* seed : {"0", "1", "2", "random"})
            QTest::addRow("%s, the toolkit's hash seed '%s'", format, seed) << format << seed;
    }
}

void TestConfigTreeView::order()
{
    QFETCH(QString, format);
    QFETCH(QString, hashSeed);

    QByteArray brace = "zelmora: { ";
    QByteArray xml = "<zelmora";
    QByteArray expected = "0 " + path().toUtf8() + "\n1 zelmora\n";
    for (int i = 0; i < 40; ++i) {
        const QByteArray name = "k" + QByteArray::number(i * 7 % 40);
        brace += name + "=1; ";
        xml += ' ' + name + "='1'";
        expected += "2 " + name + "\n3 1\n";
    }
    writeBytes(path(), format == "cfg" ? brace + "};" : xml + "/>");

    const QByteArray list = outputOfOwnProcess({listOnly, path(), format}, {"QT_HASH_SEED=" + hashSeed});
    QCOMPARE(difference(expected, list), QByteArray());
}

void TestConfigTreeView::elementOfAnotherDocument()
{
    QDomDocument document;
    QDomElement element = document.createElement("doc");
    element.setAttribute("a", "1");
    element.appendChild(document.createTextNode("text"));
    element.appendChild(document.createElement("row"));

    const Config config;
    QTreeWidget list;
    auto* const item = new QTreeWidgetItem(&list, QStringList("top"));
    config.buildConfigListView(element, item);
    config.buildConfigListView(element, &list);
    for (const QDomNode& node : {QDomNode(), element.firstChild(), QDomNode(document)}) {
        config.buildConfigListView(node, item);
        config.buildConfigListView(node, &list);
    }
    QCOMPARE(itemLines(list), (QStringList {"0 top", "1 doc", "2 a", "3 1", "2 row", "0 doc", "1 a", "2 1", "1 row"}));
}

void TestConfigTreeView::listOfTheStore()
{
    qputenv("HOME", QFile::encodeName(folder->path()));
    QVERIFY(QDir(folder->path()).mkpath(".zelmora/conf"));
    writeBytes(ZMConfiguration::path(), "zelmora: { a = 1; };");
    const ZMConfiguration store;
    const std::unique_ptr<QTreeWidget> list(store.newConfigListView());
    QCOMPARE(itemLines(*list), (QStringList {"0 " + path(".zelmora/conf/zelmora.conf"), "1 zelmora", "2 a", "3 1"}));
    QCOMPARE(list->headerItem()->text(0), QString("ConfigurationFile"));
}

void TestConfigTreeView::noList()
{
    const auto config = configOf("zelmora:{a=1;};");
    config->loadListView(nullptr);
    QCOMPARE(config->lookup("zelmora.a"), QString("1"));
    QCOMPARE(fileContents(path()), QByteArray("zelmora:{a=1;};"));
    Config().loadListView(nullptr);
}

void TestConfigTreeView::unchangedListSavesTheSame_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray written = "b = \"1\";\n"
                               "zelmora: \n"
                               "{\n"
                               "    z = \"2\";\n"
                               "    a = \"\";\n"
                               "    doc: \n"
                               "    {\n"
                               "        m = \" 3 \";\n"
                               "    };\n"
                               "\n"
                               "};\n"
                               "\n";
    const QByteArray example = fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf");
    QVERIFY(example.startsWith("zelmora: \n{\n"));
    QTest::newRow("as it was written") << written << "cfg" << written;
    QTest::newRow("the examples' settings") << example << "cfg" << example;
    QTest::newRow("laid out in another way")
        << QByteArray("zelmora:{doc:{m=\" 3 \";};z=2;a=;};b=1;") << "cfg" << written;
    QTest::newRow("with a second top-level group, which is lost") << written + "other: { c = 4; };"
                                                                  << "cfg" << written;
    QTest::newRow("with a group that holds no setting, which no value is made of")
        << QByteArray("zelmora: { doc: { none: { x: { }; }; y = 1; }; z: { none: { x: { }; }; }; };") << "cfg"
        << QByteArray("zelmora: \n"
                      "{\n"
                      "    doc: \n"
                      "    {\n"
                      "        y = \"1\";\n"
                      "    };\n"
                      "\n"
                      "};\n"
                      "\n");
    QTest::newRow("with a first group that holds nothing: the second takes its place")
        << QByteArray("first: { none: { }; }; b = 2; zelmora: { z = 2; a =; doc: { m = \" 3 \"; }; }; b = 1;") << "cfg"
        << written;
    const QByteArray xml = "\n"
                           "<zelmora\n"
                           "    z = \"1\"\n"
                           "    xmlns = \"u\"\n"
                           "    a = \"2\">\n"
                           "\n"
                           "    <doc\n"
                           "        b = \"3\">\n"
                           "    </doc>\n"
                           "</zelmora>\n";
    QTest::newRow("XML as it was written") << xml << "xml" << xml;
    QTest::newRow("XML with a comment and an element without settings")
        << QByteArray("<zelmora z='1' xmlns='u' a='2'><!-- c --><doc b='3'><none/></doc><none/></zelmora>") << "xml"
        << xml;
}

void TestConfigTreeView::unchangedListSavesTheSame()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, format);
    QFETCH(QByteArray, expected);

    const auto config = configOf(text, qPrintable(format));
    const auto list = listOf(*config);
    const QStringList lines = itemLines(*list);
    config->loadListView(list.get());
    QCOMPARE(difference(expected, fileContents(path())), QByteArray());
    QCOMPARE(itemLines(*list), lines);
    config->loadListView(list.get());
    QCOMPARE(difference(expected, fileContents(path())), QByteArray());
    config->buildConfigFile(path("again")); // the path is still known, and empty is still the file read
    config->readFile(path(), format);
    config->loadListView(listOf(*config).get());
    QCOMPARE(difference(expected, fileContents(path())), QByteArray());
}

void TestConfigTreeView::randomListsSaveTheSame()
{
    std::mt19937 random(20);
    const auto below = [&random](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    const QByteArray common = ":{:{=;=;=;};}; ab\"\n.\xC3\xA8\xE8";
    for (int file = 0; file < 1000; ++file) {
        QByteArray bytes = "z: { a = 1; ";
        const int size = below(300);
        while (bytes.size() < size)
            bytes += below(50) == 0 ? static_cast<char>(below(256)) : common.at(below(common.size()));
        const auto config = configOf(bytes);
        config->buildConfigFile(path("written"));
        const QStringList lasting = lastingLines(*config);
        const auto list = listOf(*config);
        config->loadListView(list.get());
        QCOMPARE(difference(fileContents(path("written")), fileContents(path())), QByteArray());
        QCOMPARE(lastingLines(*config), lasting);
    }
}

void TestConfigTreeView::editedValue_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("in the brace format") << QByteArray(
        "zelmora: { doc: { paperWidth = 32; style = ; }; doc: { paperWidth = 1; }; };")
                                         << "cfg"
                                         << QByteArray("zelmora: \n"
                                                       "{\n"
                                                       "    doc: \n"
                                                       "    {\n"
                                                       "        paperWidth = \"40 caff\xC3\xA8\";\n"
                                                       "        style = \"\";\n"
                                                       "    };\n"
                                                       "\n"
                                                       "    doc: \n"
                                                       "    {\n"
                                                       "        paperWidth = \"1\";\n"
                                                       "    };\n"
                                                       "\n"
                                                       "};\n"
                                                       "\n");
    QTest::newRow("in XML") << QByteArray("<zelmora><doc paperWidth='32' style=''/></zelmora>") << "xml"
                            << QByteArray("\n"
                                          "<zelmora>\n"
                                          "\n"
                                          "    <doc\n"
                                          "        paperWidth = \"40 caff\xC3\xA8\"\n"
                                          "        style = \"\">\n"
                                          "    </doc>\n"
                                          "</zelmora>\n");
}

void TestConfigTreeView::editedValue()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, format);
    QFETCH(QByteArray, expected);

    const auto config = configOf(text, qPrintable(format));
    const auto list = listOf(*config);
    QTreeWidgetItem* const value = itemAt(list->topLevelItem(0), {"zelmora", "doc", "paperWidth", "32"});
    QVERIFY(value);
    value->setText(0, "40 caffè");
    QCOMPARE(config->lookup("zelmora.doc.paperWidth"), QString("32")); // not before it is taken over

    config->loadListView(list.get());
    QCOMPARE(config->lookup("zelmora.doc.paperWidth"), QString("40 caffè"));
    QCOMPARE(difference(expected, fileContents(path())), QByteArray());
    QCOMPARE(Config(path(), format).lookup("zelmora.doc.paperWidth"), QString("40 caffè"));
    QVERIFY(itemAt(listOf(*config)->topLevelItem(0), {"zelmora", "doc", "paperWidth", "40 caffè"}));
}

void TestConfigTreeView::reorderedList()
{
    const auto config = configOf("zelmora: { a = 1; b = 2; c = 3; x: { d = 4; }; y: { e = 5; }; };");
    const auto list = listOf(*config);
    QTreeWidgetItem* const group = list->topLevelItem(0)->child(0);
    group->insertChild(0, group->takeChild(2)); // c
    group->insertChild(3, group->takeChild(4)); // y
    group->addChild(group->takeChild(1)); // a, after the groups
    config->loadListView(list.get());
    QCOMPARE(treeLines(*config),
             (QStringList {"1 zelmora:", "2 c = 3", "2 b = 2", "2 a = 1", "2 y:", "3 e = 5", "2 x:", "3 d = 4"}));
    QCOMPARE(treeLines(OpenConfig(path(), "cfg")), treeLines(*config));
}

void TestConfigTreeView::formatThatIsNeither_data()
{
    QTest::addColumn<QString>("format");

    for (const char* format : {"", "CFG", "Xml", "ini"})
        QTest::addRow("\"%s\"", format) << format;
}

void TestConfigTreeView::formatThatIsNeither()
{
    QFETCH(QString, format);

    const auto config = configOf("zelmora: { a = 1; };", qPrintable(format));
    const auto list = listOf({{"file", {{"zelmora", {setting("a", "2")}}}}});
    config->loadListView(list.get());
    QCOMPARE(config->lookup("zelmora.a"), QString("2"));
    QCOMPARE(fileContents(path()), QByteArray("zelmora: { a = 1; };"));

    Config unloaded;
    unloaded.loadListView(list.get());
    QCOMPARE(unloaded.lookup("zelmora.a"), QString("2"));
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList("zelmora.conf"));
}

void TestConfigTreeView::unwritableFile()
{
    const auto config = configOf("zelmora: { a = 1; };");
    QVERIFY(QFile::remove(path()) && QDir(folder->path()).mkdir("zelmora.conf"));
    const auto list = listOf({{"file", {{"zelmora", {setting("a", "2")}}}}});
    QCOMPARE(captured(stdout, [&] { config->loadListView(list.get()); }), QByteArray());
    QCOMPARE(config->lookup("zelmora.a"), QString("2"));
    QVERIFY(QFileInfo(path()).isDir());
}

void TestConfigTreeView::emptyList()
{
    const auto config = configOf("zelmora: { a = 1; };");
    QTreeWidget list;
    config->loadListView(&list);
    QCOMPARE(config->lookup("zelmora.a"), QString());
    QCOMPARE(fileContents(path()), QByteArray());
    QCOMPARE(listOf(*config)->topLevelItemCount(), 0);
}

void TestConfigTreeView::builtList_data()
{
    QTest::addColumn<Items>("items");
    QTest::addColumn<QStringList>("tree"); // below the root element
    const auto row = [](const char* name, const Items& items, const QStringList& tree) {
        QTest::newRow(name) << items << tree;
    };
    const auto file = [](const Items& items) { return Items {{"file", items}}; };
    const auto zelmora = [&file](const Items& items) { return file({{"zelmora", items}}); };
    const Item a = setting("a", "1");
    const Item b = setting("b", "2");
    const Item none {"none", {}};

    row("a setting of the file", file({a}), {"1 a = 1"});
    row("settings and groups", zelmora({a, {"doc", {b}}}), {"1 zelmora:", "2 a = 1", "2 doc:", "3 b = 2"});
    row("settings between and after groups", zelmora({{"x", {a}}, a, {"y", {b}}, b}),
        {"1 zelmora:", "2 a = 1", "2 b = 2", "2 x:", "3 a = 1", "2 y:", "3 b = 2"});
    row("a setting twice has its first place and its last value", zelmora({b, a, setting("b", "3")}),
        {"1 zelmora:", "2 b = 3", "2 a = 1"});
    row("empty texts", file({{"", {setting("", "")}}}), {"1 :", "2  = "});

    row("a file without items", {{"file", {}}}, {});
    row("no children at the level of groups, in the middle", zelmora({a, none, b}),
        {"1 zelmora:", "2 a = 1", "2 b = 2"});
    row("no children at the level of groups, last", zelmora({a, none}), {"1 zelmora:", "2 a = 1"});
    row("no children at the top level of the file", file({none, {"zelmora", {a}}}), {"1 zelmora:", "2 a = 1"});
    row("no children in the next item", {{"file", {{"zelmora", {a}}}}, {"other", {}}}, {"1 zelmora:", "2 a = 1"});
    row("no children in the first item", {{"other", {}}, {"file", {{"zelmora", {a}}}}}, {"1 zelmora:", "2 a = 1"});
    row("a name and nothing else", file({none}), {});
    row("a first child without children makes a setting", zelmora({a, {"doc", {none, b}}}),
        {"1 zelmora:", "2 a = 1", "2 doc = none"});

    row("of several values the first", zelmora({{"a", {{"1", {}}, {"2", {}}}}}), {"1 zelmora:", "2 a = 1"});
    row("a value with a child makes a group", zelmora({{"a", {{"1", {{"x", {}}}}}}}),
        {"1 zelmora:", "2 a:", "3 1 = x"});
    row("a value before one with a child", zelmora({{"a", {{"1", {}}, {"2", {{"x", {}}}}}}}),
        {"1 zelmora:", "2 a = 1"});
    row("a value after one with a child", zelmora({{"a", {{"1", {{"x", {}}}}, {"2", {}}}}}),
        {"1 zelmora:", "2 a:", "3 1 = x"});
    row("several items: the first is the root element", {{"file", {{"zelmora", {a}}}}, {"other", {b}}},
        {"1 zelmora:", "2 a = 1"});
}

void TestConfigTreeView::builtList()
{
    QFETCH(Items, items);
    QFETCH(QStringList, tree);

    const auto config = configOf("zelmora: { old = 1; };");
    const auto list = listOf(items);
    config->loadListView(list.get());
    QCOMPARE(treeLines(*config), tree);
    QCOMPARE(config->lookup("zelmora.old"), QString());
    QCOMPARE(treeLines(OpenConfig(path(), "cfg")), lastingLines(*config));

    const auto xml = configOf("<zelmora old='1'/>", "xml");
    xml->loadListView(list.get());
    QCOMPARE(treeLines(*xml), tree);
    xml->buildConfigXmlFile(path("written"));
    QCOMPARE(fileContents(path()), fileContents(path("written")));
}

// The group's first child has no children then, like the name of a setting.
void TestConfigTreeView::groupThatLosesItsFirstValue()
{
    const auto config = configOf("zelmora: { a = 1; doc: { b = 2; c = 3; }; };");
    const auto list = listOf(*config);
    const QTreeWidgetItem* const doc = list->topLevelItem(0)->child(0)->child(1);
    QCOMPARE(doc->text(0), QString("doc"));
    delete doc->child(0)->takeChild(0);
    config->loadListView(list.get());
    QCOMPARE(treeLines(*config), (QStringList {"1 zelmora:", "2 a = 1", "2 doc = b"}));
}

void TestConfigTreeView::builtListHasItsOrder()
{
    Items settings;
    QByteArray expected = "zelmora: \n{\n";
    for (int i = 0; i < 40; ++i) {
        const QByteArray name = "k" + QByteArray::number(i * 7 % 40);
        settings += setting(name, "1");
        expected += "    " + name + " = \"1\";\n";
    }
    const auto config = configOf("");
    config->loadListView(listOf({{"file", {{"zelmora", settings}}}}).get());
    QCOMPARE(difference(expected + "};\n\n", fileContents(path())), QByteArray());
}

void TestConfigTreeView::deepList()
{
    Item item = setting("a", "1");
    for (int depth = 0; depth < 1000; ++depth)
        item = Item {"g", {item}};
    const auto config = configOf("");
    config->loadListView(listOf({{"file", {item}}}).get());
    const QString key = QString("g.").repeated(1000) + 'a';
    QCOMPARE(config->lookup(key), QString("1"));
    const auto readBack = std::make_unique<OpenConfig>(path(), "cfg");
    QCOMPARE(readBack->lookup(key), QString("1"));
    QCOMPARE(itemLines(*listOf(*readBack)).size(), 1 + 1000 + 2);
    readBack->loadListView(listOf(*readBack).get());
    QCOMPARE(readBack->lookup(key), QString("1"));
}

void TestConfigTreeView::rebuildingWritesNothing()
{
    const auto config = configOf("zelmora: { a = 1; };");
    config->rebuildTree(*listOf({{"file", {{"zelmora", {setting("a", "2")}}}}}));
    QCOMPARE(config->lookup("zelmora.a"), QString("2"));
    QCOMPARE(fileContents(path()), QByteArray("zelmora: { a = 1; };"));
}

void TestConfigTreeView::itemIntoADocument_data()
{
    QTest::addColumn<bool>("named");
    QTest::addColumn<QByteArray>("loaded");

    QTest::newRow("a new one") << false << QByteArray();
    QTest::newRow("one with a name") << true << QByteArray();
    QTest::newRow("one beside the tree that is loaded") << false << QByteArray("other: { c = 3; };");
}

void TestConfigTreeView::itemIntoADocument()
{
    QFETCH(bool, named);
    QFETCH(QByteArray, loaded);

    QDomDocument document;
    if (named)
        document = QDomDocument("settings");
    const auto config = loaded.isEmpty() ? std::make_unique<OpenConfig>() : configOf(loaded);
    const auto list = listOf({{"doc", {setting("b", "1"), {"row", {setting("a", "2")}}, setting("a", "3")}}});
    config->loadListView(list->topLevelItem(0), &document);

    const QDomElement element = document.documentElement();
    QCOMPARE(element.tagName(), QString("doc"));
    QCOMPARE(element.attribute("b"), QString("1"));
    QCOMPARE(element.firstChildElement().tagName(), QString("row"));
    QVERIFY(element.nextSibling().isNull());
    QCOMPARE(config->lookup("other.c"), loaded.isEmpty() ? QString() : QString("3"));

    // In the order of the list.
    QString text;
    QTextStream out(&text);
    config->buildConfigFile(element, out);
    QCOMPARE(text,
             QString("doc: \n{\n    b = \"1\";\n    a = \"3\";\n"
                     "    row: \n    {\n        a = \"2\";\n    };\n\n};\n\n"));

    document = QDomDocument();
    QCOMPARE(element.attribute("a"), QString("3"));
}

void TestConfigTreeView::itemBelowANode()
{
    const auto config = configOf("zelmora: { a = 1; };");
    const auto list = listOf({{"doc", {setting("b", "2")}}});
    config->loadListView(list->topLevelItem(0), config->rootElement().firstChild());
    QCOMPARE(treeLines(*config), (QStringList {"1 zelmora:", "2 a = 1", "2 doc:", "3 b = 2"}));
    QCOMPARE(config->lookup("zelmora.doc.b"), QString("2"));
    QCOMPARE(fileContents(path()), QByteArray("zelmora: { a = 1; };"));

    // An element of nobody's, and its settings after many others have come and gone.
    Config unloaded;
    for (int i = 0; i < 1000; ++i) {
        QDomDocument document;
        QDomElement element = document.createElement("top");
        const QByteArray first = "k" + QByteArray::number(i);
        const auto items = listOf({{"doc", {setting(first, "1"), setting("a", "2")}}});
        unloaded.loadListView(items->topLevelItem(0), element);
        QString text;
        QTextStream out(&text);
        unloaded.buildConfigFile(element.firstChild(), out);
        QCOMPARE(text, "doc: \n{\n    " + first + " = \"1\";\n    a = \"2\";\n};\n\n");
    }
}

void TestConfigTreeView::itemWithoutChildrenGoesNowhere()
{
    OpenConfig config;
    QTreeWidgetItem item(QStringList("doc"));
    QDomDocument document("settings");
    config.loadListView(&item, &document);
    QVERIFY(document.documentElement().isNull());
    QDomElement element = document.createElement("top");
    config.loadListView(&item, element);
    QVERIFY(!element.hasChildNodes());
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments.at(1) == listOnly) {
        const Config config(arguments.at(2), arguments.at(3));
        std::fputs(itemLines(*listOf(config)).join('\n').toUtf8() + '\n', stdout);
        return 0;
    }
    TestConfigTreeView test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_configtreeview.moc"
