#include "support/settingstree.h"

#include "support/capture.h"
#include "support/hostilexml.h"
#include "support/lookup.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>

#include <random>
#include <sys/stat.h>
#include <thread>

using libconfig::Config;

/// Settings in XML: what the reader makes of good and bad files, and that its tree is the toolkit's.
class TestConfigXml : public QObject {
    Q_OBJECT

private slots:
    void xml_data();
    void xml();
    void xmlWithManyNameSpaces();
    void xmlFault_data();
    void xmlFault();

    void treeIsTheToolkits_data();
    void treeIsTheToolkits();
    void treesOfRandomFiles();
    void orderAndRepetition();

    void pipe();
    void pipeWithAnError();
};

namespace {

constexpr auto row = addLookup;

/// A group with its settings, sorted by name, and the groups in it.
QString groupText(const QDomElement& group)
{
    QStringList settings;
    const QDomNamedNodeMap attributes = group.attributes();
    for (int i = 0; i < attributes.size(); ++i)
        settings += attributes.item(i).nodeName() + '=' + attributes.item(i).nodeValue();
    settings.sort();
    QString text = group.tagName() + '(' + settings.join(',');
    for (QDomElement child = group.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        text += groupText(child);
    return text + ')';
}

/// All that a look-up can reach: the node that stands first in the file, when that is a group.
QString reachable(const QDomNode& first)
{
    return first.isElement() ? groupText(first.toElement()) : QString("nothing");
}

/// What the toolkit's own tree of the file has.
QString toolkitsTree(const QByteArray& bytes)
{
    QDomDocument document;
    QBuffer device;
    device.setData(bytes);
    return document.setContent(&device, false) ? reachable(document.firstChild()) : QString("nothing");
}

QString ourTree(const QByteArray& bytes)
{
    OpenConfig config;
    config.readBytes(bytes, "zelmora.xml", "xml");
    return reachable(config.rootElement().firstChild());
}

/// In UTF-16 with a byte-order mark.
QByteArray utf16(const QString& text)
{
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    return QByteArray(reinterpret_cast<const char*>(marked.utf16()), marked.size() * 2);
}

} // namespace

void TestConfigXml::xml_data()
{
    addLookupColumns();

    row("an attribute of the root element", "<zelmora a='1'/>", "zelmora.a", "1");
    row("an attribute of an element inside", "<zelmora><doc a='1'/></zelmora>", "zelmora.doc.a", "1");
    row("line breaks between elements", "<zelmora>\n    <doc>\n        <row a='1'/>\n    </doc>\n</zelmora>\n",
        "zelmora.doc.row.a", "1");
    row("text, comments and instructions in between",
        "<zelmora>a<!-- b --><?c d?><![CDATA[e]]><doc a='1'>f</doc></zelmora>", "zelmora.doc.a", "1");
    row("text is no value", "<zelmora><a>1</a></zelmora>", "zelmora.a", "");
    row("white space in a value stays", "<zelmora a='  one\n\ttwo  '/>", "zelmora.a", "  one\n\ttwo  ");
    row("a quote in a value stays", "<zelmora a='7\" paper'/>", "zelmora.a", "7\" paper");
    row("references in a value", "<zelmora a='&lt;&amp;&#8364;'/>", "zelmora.a", "<&€");
    row("accents in names and values", "<zelmora><menù città='è €'/></zelmora>", "zelmora.menù.città", "è €");
    row("an element again: the second answers for what the first lacks", "<zelmora><doc a='1'/><doc b='2'/></zelmora>",
        "zelmora.doc.b", "2");
    row("an element again: the first answers", "<zelmora><doc a='1'/><doc a='2'/></zelmora>", "zelmora.doc.a", "1");
    row("a name in other case", "<zelmora a='1'/>", "Zelmora.a", "");
    row("a root element of another name", "<other><zelmora a='1'/></other>", "zelmora.a", "");
    row("names with a prefix", "<p:zelmora xmlns:p='u'><p:doc p:a='1'/></p:zelmora>", "p:zelmora.p:doc.p:a", "1");
    row("names with a prefix are not found without it", "<p:zelmora xmlns:p='u' p:a='1'/>", "zelmora.a", "");
    row("a prefix that nobody declared", "<p:zelmora p:a='1'/>", "p:zelmora.p:a", "1");
    row("a name space declaration is an attribute", "<zelmora xmlns='u' a='1'/>", "zelmora.xmlns", "u");
    row("a prefix declaration is an attribute", "<zelmora xmlns:p='u' a='1'/>", "zelmora.xmlns:p", "u");
    row("white space before the root element", "\n <zelmora a='1'/>", "zelmora.a", "1");
    row("a comment after the root element", "<zelmora a='1'/><!-- end -->", "zelmora.a", "1");
    row("a byte-order mark", "\xEF\xBB\xBF<zelmora a='1'/>", "zelmora.a", "1");
    row("a declaration first hides the root element", "<?xml version='1.0'?><zelmora a='1'/>", "zelmora.a", "");
    row("a comment first hides the root element", "<!-- till 1 --><zelmora a='1'/>", "zelmora.a", "");
    row("an instruction first hides the root element", "<?till 1?><zelmora a='1'/>", "zelmora.a", "");
    row("a declaration and a comment first hide the root element",
        "<?xml version='1.0'?>\n<!-- till 1 -->\n<zelmora a='1'/>", "zelmora.a", "");
    row("what comes first is no group itself", "<?zelmora a='1'?><zelmora a='1'/>", "zelmora.a", "");
    row("a comment first does not make way for the next element", "<!-- till 1 --><other><zelmora a='1'/></other>",
        "zelmora.a", "");
    row("a comment first does not make way for an element's child", "<!-- till 1 --><other><zelmora a='1'/></other>",
        "other.zelmora.a", "");
    row("a comment first hides an element inside", "<!-- till 1 --><zelmora><doc a='1'/></zelmora>", "zelmora.doc.a",
        "");
}

void TestConfigXml::xml()
{
    checkLookup("xml");
}

// The toolkit would search them all at each element.
void TestConfigXml::xmlWithManyNameSpaces()
{
    QCOMPARE(lookup(elementsOfManyNameSpaces(20000, "zelmora", "doc"), "zelmora.p19999:doc.a", "xml"), QString("1"));
}

void TestConfigXml::xmlFault_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("an empty file") << QByteArray();
    QTest::newRow("the brace format") << QByteArray("zelmora: { a = 1; };");
    QTest::newRow("an element left open") << QByteArray("<zelmora a='1'>");
    QTest::newRow("a second root element") << QByteArray("<zelmora a='1'/><zelmora a='1'/>");
    QTest::newRow("an attribute without quotes") << QByteArray("<zelmora a='1'><doc b=2/></zelmora>");
    QTest::newRow("random bytes after the root element") << QByteArray("<zelmora a='1'/>\x80\xFF\x01");
    QTest::newRow("100,000 elements inside each other")
        << QByteArray("<zelmora a='1'>").repeated(100000) + QByteArray("</zelmora>").repeated(100000);
    QTest::newRow("20,000 entities") << "<!DOCTYPE zelmora [" + entityDeclarations(20000) + "]><zelmora a='1'/>";
}

// All or nothing: of such a file not even what was good is kept.
void TestConfigXml::xmlFault()
{
    QFETCH(QByteArray, text);

    Config config;
    const QByteArray output = captured(stdout, [&config, &text] { read(config, text, "xml"); });
    QCOMPARE(output, QByteArray());
    QCOMPARE(config.lookup("zelmora.a"), QString());
    QCOMPARE(config.lookup("a.a"), QString());
}

void TestConfigXml::treeIsTheToolkits_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("tree");
    const auto row = [](const char* name, const QByteArray& bytes, const char* tree) {
        QTest::newRow(name) << bytes << tree;
    };

    row("an undeclared entity in text", "<zelmora a='1'>&x;<doc b='2'/></zelmora>", "zelmora(a=1doc(b=2))");
    row("an undeclared entity in an attribute of the root element", "<zelmora a='1&x;2'><doc b='2'/></zelmora>",
        "zelmora(a=12doc(b=2))");
    row("an undeclared entity in an attribute of an element inside", "<zelmora a='1'><doc b='&x;'/></zelmora>",
        "zelmora(a=1doc(b=))");
    row("a declared entity in text and in an attribute",
        "<!DOCTYPE zelmora [<!ENTITY x 'y'>]><zelmora a='&x;'>&x;</zelmora>", "zelmora(a=y)");
    row("an entity that stands for an element", "<!DOCTYPE z [<!ENTITY x '<doc a=\"1\"/>'>]><z>&x;</z>", "z(doc(a=1))");
    row("character data", "<zelmora a='1'><![CDATA[<doc b='2'/>]]></zelmora>", "zelmora(a=1)");
    row("a document type declaration first", "<!DOCTYPE zelmora><zelmora a='1'/>", "zelmora(a=1)");
    row("attributes with declared defaults", "<!DOCTYPE zelmora [<!ATTLIST zelmora a CDATA 'x'>]><zelmora b='1'/>",
        "zelmora(b=1)");
    row("a comment between declaration and root element", "<!DOCTYPE zelmora><!-- x --><zelmora a='1'/>", "nothing");
    row("a comment in a document type declaration", "<!DOCTYPE zelmora [<!-- x -->]><zelmora a='1'/>", "nothing");
    row("an instruction in a document type declaration", "<!DOCTYPE zelmora [<?x y?>]><zelmora a='1'/>", "nothing");
    row("repeated attributes: the last value", "<zelmora a='1' b='2' a='3'/>", "zelmora(a=3,b=2)");
    row("name space declarations", "<zelmora xmlns='u' xmlns:p='v' p:a='1'/>", "zelmora(p:a=1,xmlns:p=v,xmlns=u)");
    row("a declaration first", "<?xml version='1.0'?><zelmora a='1'/>", "nothing");
    row("a comment first", "<!-- x --><zelmora a='1'/>", "nothing");
    row("UTF-16", utf16("<zelmora a='\u20AC'/>"), "zelmora(a=\u20AC)");
    row("ISO-8859-1, as the declaration says", "<?xml version='1.0' encoding='ISO-8859-1'?><zelmora a='\xE8'/>",
        "nothing");
    row("an error in the last line", "<zelmora a='1'>\n<doc b='2'/>\n</zelmore>", "nothing");
    row("an element that is not closed", "<zelmora a='1'>", "nothing");
}

namespace {

/// Qt 5 does, by the reader of ours; Qt 6 has its trees from another one.
bool toolkitMakesTheSameTree()
{
    return qVersion()[0] == '5';
}

} // namespace

// The tree is written out here, and the toolkit makes the same one when it reads the file by itself.
void TestConfigXml::treeIsTheToolkits()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, tree);
    QCOMPARE(ourTree(bytes), tree);
    if (toolkitMakesTheSameTree())
        QCOMPARE(toolkitsTree(bytes), tree);
}

void TestConfigXml::treesOfRandomFiles()
{
    if (!toolkitMakesTheSameTree())
        QSKIP("this toolkit's own trees are others");
    std::mt19937 random(21);
    const auto below = [&random](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    const QByteArrayList pieces {
        "<a>",  "</a>", "<a>", "</a>",       "<b c='1'/>", "<b c='&x;' d='2' c='3'>", "</b>",  "&x;",
        "text", " ",    "\n",  "<!-- c -->", "<?p i?>",    "<![CDATA[<a>]]>",         "&amp;", "<"};
    int trees = 0;
    for (int file = 0; file < 3000; ++file) {
        QByteArray bytes = below(4) == 0 ? "" : "<a e='5'>";
        const bool closed = !bytes.isEmpty();
        for (int piece = below(8); piece > 0; --piece)
            bytes += pieces.at(below(pieces.size()));
        bytes += closed ? "</a>" : "";
        const QString expected = toolkitsTree(bytes);
        QVERIFY2(ourTree(bytes) == expected, bytes);
        trees += expected == "nothing" ? 0 : 1;
    }
    QVERIFY(trees > 300); // and not errors alone
}

void TestConfigXml::orderAndRepetition()
{
    OpenConfig config;
    config.readBytes("<zelmora z='1' a='2' z='3' m='4'><doc y='5' b='6'/></zelmora>", "zelmora.xml", "xml");
    QCOMPARE(treeLines(config),
             (QStringList {"1 zelmora:", "2 z = 3", "2 a = 2", "2 m = 4", "2 doc:", "3 y = 5", "3 b = 6"}));
}

/// What @p key finds in a pipe through which @p bytes come, in pieces.
static QString lookupInAPipe(const QByteArray& bytes, const QString& key)
{
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath("zelmora.xml"));
    if (mkfifo(path.constData(), 0600) != 0)
        qFatal("The pipe can't be made.");
    std::thread writer([&] {
        QFile pipe(QFile::decodeName(path));
        if (!pipe.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            qFatal("The pipe can't be opened.");
        for (int i = 0; i < bytes.size(); i += 700)
            pipe.write(bytes.mid(i, 700));
    });
    Config config;
    config.readFile(QFile::decodeName(path), "xml");
    writer.join();
    return config.lookup(key);
}

void TestConfigXml::pipe()
{
    QByteArray bytes = "<zelmora a='1'>";
    for (int i = 0; i < 500; ++i)
        bytes += "<doc" + QByteArray::number(i) + " b='" + QByteArray::number(i) + "'/>";
    QString found;
    const QByteArray remarks =
        captured(stderr, [&] { found = lookupInAPipe(bytes + "</zelmora>", "zelmora.doc499.b"); });
    QCOMPARE(found, QString("499"));
    QCOMPARE(remarks, QByteArray());
}

void TestConfigXml::pipeWithAnError()
{
    QString found = "x";
    const QByteArray remarks = captured(stderr, [&] { found = lookupInAPipe("<zelmora a='1'>", "zelmora.a"); });
    QCOMPARE(found, QString());
    QCOMPARE(remarks, QByteArray());
}

QTEST_GUILESS_MAIN(TestConfigXml)
#include "tst_configxml.moc"
