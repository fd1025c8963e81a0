#include "toolkit/xmlreader.h"

#include "toolkit/xmlplaces.h"

#include "support/hostilexml.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>
#include <QtTest>

#include <algorithm>

using toolkit::NamespaceDeclarations;

namespace {

/// Keeps a line for each event, such as `start row [id=1] [text=Pizza]`, and answers false to one of them.
class EventLog : public QXmlDefaultHandler {
public:
    explicit EventLog(const QString& refused = QString())
        : refused(refused)
    {
    }

    bool startDocument() override { return add("startDocument"); }
    bool endDocument() override { return add("endDocument"); }

    bool startElement(const QString&, const QString&, const QString& qName, const QXmlAttributes& atts) override
    {
        QString event = "start " + qName;
        for (int i = 0; i < atts.count(); ++i)
            event += " [" + atts.qName(i) + '=' + atts.value(i) + ']';
        return add(event);
    }

    bool endElement(const QString&, const QString&, const QString& qName) override { return add("end " + qName); }

    QStringList events;

protected:
    bool add(const QString& event)
    {
        events += event;
        return event != refused;
    }

private:
    QString refused;
};

/// As above, with all that is no element, and where everything stands.
class PlacedEventLog : public EventLog {
public:
    explicit PlacedEventLog(toolkit::XmlPlaces& places, const QString& refused = QString())
        : EventLog(refused)
        , places(places)
    {
    }

    bool startElement(const QString&, const QString&, const QString& qName, const QXmlAttributes& atts) override
    {
        QString event = at(places.markup()) + "start " + qName;
        for (int i = 0; i < atts.count(); ++i)
            event += ' ' + at(places.attribute(i)) + atts.qName(i);
        return add(event);
    }

    bool endElement(const QString&, const QString&, const QString& qName) override { return add("end " + qName); }
    bool characters(const QString& text) override
    {
        return text.trimmed().isEmpty() || add(at(insideCData ? places.markup() : places.text()) + "text " + text);
    }
    bool processingInstruction(const QString& target, const QString& data) override
    {
        return add(at(places.markup()) + "instruction " + target + ' ' + data);
    }
    bool comment(const QString& text) override { return add(at(places.markup()) + "comment" + text); }
    bool skippedEntity(const QString& name) override
    {
        if (!places.isInsideMarkup())
            return add(at(places.text()) + "entity " + name);
        return add(at(places.markup()) + QString("attribute %1's entity ").arg(places.attributesBegun()) + name);
    }
    bool fatalError(const QXmlParseException& error) override
    {
        return add(at(places.reached()) + "error: " + error.message());
    }
    bool startCDATA() override { return insideCData = true; }
    bool endCDATA() override
    {
        insideCData = false;
        return true;
    }
    bool startDTD(const QString& name, const QString&, const QString&) override
    {
        return add(at(places.markup()) + "type " + name);
    }

private:
    static QString at(toolkit::TextPlace place) { return QString("%1:%2 ").arg(place.line).arg(place.column); }

    toolkit::XmlPlaces& places;
    bool insideCData = false;
};

struct Outcome {
    bool result;
    QStringList events;
};

Outcome read(QFile& file, const QString& refused = QString(),
             NamespaceDeclarations declarations = NamespaceDeclarations::Drop)
{
    EventLog log(refused);
    const bool result = toolkit::readXml(file, log, declarations);
    return {result, log.events};
}

Outcome read(const QByteArray& text, const QString& refused = QString(),
             NamespaceDeclarations declarations = NamespaceDeclarations::Drop)
{
    QTemporaryFile file;
    if (!file.open() || file.write(text) != text.size() || !file.seek(0))
        qFatal("The input of this test can't be written.");
    return read(file, refused, declarations);
}

/// What the toolkit's reader says of @p text when it is left to itself, as far as readXml() passes it on.
Outcome readBare(const QByteArray& text)
{
    EventLog log;
    QXmlInputSource source;
    source.setData(text);
    QXmlSimpleReader reader;
    reader.setContentHandler(&log);
    const bool result = reader.parse(&source);
    return {result, log.events};
}

/// A document with @p declarations in its document type declaration.
QByteArray withDeclarations(const QByteArray& declarations, const QByteArray& root = "<a/>")
{
    return "<!DOCTYPE a [" + declarations + "]>" + root;
}

/// @p pairs "<a></a>" inside each other.
QByteArray nested(int pairs)
{
    return QByteArray("<a>").repeated(pairs) + QByteArray("</a>").repeated(pairs);
}

} // namespace

/// What a handler gets to see of a file, good or bad, and that no file hangs or kills the program.
class TestXmlReader : public QObject {
    Q_OBJECT

private slots:
    void events_data();
    void events();
    void places_data();
    void places();
    void placesOfManyAttributes();
    void placesOfManyEntities();
    void placesOfFaults_data();
    void placesOfFaults();
    void piecesOfADeviceAreNoPiecesOfTheText();
    void manyElements();
    void manyNameSpaces();
    void namespaceDeclarations_data();
    void namespaceDeclarations();
    void keptDeclarationsKeepTheBounds();
    void openFileIsReadFromWhereItStands();

    void fault_data();
    void fault();
    void fileThatCannotBeRead_data();
    void fileThatCannotBeRead();
    void refusal_data();
    void refusal();

    void encoding_data();
    void encoding();
    void bytesThatAreNoUtf8_data();
    void bytesThatAreNoUtf8();
    void cutCharacters_data();
    void cutCharacters();
    void cutCharacterBehindTheDocument();
    void bytesOfAnotherEncodingAtACut();

    void nesting_data();
    void nesting();
    void elementsSideBySideAreNotNested();
    void longAttribute();

    void longDeclaration_data();
    void longDeclaration();
    void references_data();
    void references();
    void entitySize_data();
    void entitySize();
    void entityTrouble_data();
    void entityTrouble();

    void agreesWithTheToolkit_data();
    void agreesWithTheToolkit();
    void everyPrefixAgreesWithTheToolkit();
};

void TestXmlReader::events_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected"); // between startDocument and endDocument

    QTest::newRow("an empty element") << "<job/>" << QStringList {"start job", "end job"};
    QTest::newRow("elements in the order of the file")
        << "<job><row n='1'/><total><tax/></total><row n='2'/></job>"
        << QStringList {"start job", "start row [n=1]", "end row",         "start total", "start tax",
                        "end tax",   "end total",       "start row [n=2]", "end row",     "end job"};
    QTest::newRow("attributes in the order of the file")
        << "<job z='1' a='2' m='3' b='' Z='4'/>" << QStringList {"start job [z=1] [a=2] [m=3] [b=] [Z=4]", "end job"};
    QTest::newRow("the five references of XML in an attribute")
        << "<job a='&lt;&gt;&amp;&quot;&apos;'/>" << QStringList {"start job [a=<>&\"']", "end job"};
    QTest::newRow("references by number in an attribute")
        << "<job a='&#65;&#xe8;&#x20AC;'/>" << QStringList {"start job [a=Aè€]", "end job"};
    QTest::newRow("line breaks and tabs in an attribute stay")
        << "<job a='one\ntwo\n\nthree\tfour'/>" << QStringList {"start job [a=one\ntwo\n\nthree\tfour]", "end job"};
    QTest::newRow("blanks in an attribute stay")
        << "<job a='  one  two  '/>" << QStringList {"start job [a=  one  two  ]", "end job"};
    QTest::newRow("xmlns attributes are left out, the others keep their order")
        << "<job xmlns='u' z='1' xmlns:p='v' p:a='2' m='3' xmlns:q='w'/>"
        << QStringList {"start job [z=1] [p:a=2] [m=3]", "end job"};
    QTest::newRow("nothing but xmlns attributes")
        << "<job xmlns='u' xmlns:p='v'/>" << QStringList {"start job", "end job"};
    QTest::newRow("names that only begin like xmlns stay")
        << "<job xmlnsa='1' xmlns-b='2' xmlns.c='3' p:xmlns='4' xmln='5' XMLNS='6'/>"
        << QStringList {"start job [xmlnsa=1] [xmlns-b=2] [xmlns.c=3] [p:xmlns=4] [xmln=5] [XMLNS=6]", "end job"};
    QTest::newRow("names are delivered with their prefix")
        << "<p:job xmlns:p='u'><p:row/></p:job>"
        << QStringList {"start p:job", "start p:row", "end p:row", "end p:job"};
    QTest::newRow("a prefix that nobody declared")
        << "<p:job q:a='1'/>" << QStringList {"start p:job [q:a=1]", "end p:job"};
    QTest::newRow("accents in names and values")
        << "<menù piatto='caffè'/>" << QStringList {"start menù [piatto=caffè]", "end menù"};
    QTest::newRow("an entity of the file's own in an attribute")
        << "<!DOCTYPE job [<!ELEMENT job EMPTY><!ENTITY dish 'Tagliatelle'>]><job a='&dish; al ragù'/>"
        << QStringList {"start job [a=Tagliatelle al ragù]", "end job"};
    QTest::newRow("a declaration without a body") << "<!DOCTYPE job><job/>" << QStringList {"start job", "end job"};
}

void TestXmlReader::events()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);

    const Outcome outcome = read(text.toUtf8());
    QVERIFY(outcome.result);
    QCOMPARE(outcome.events, QStringList("startDocument") + expected + QStringList("endDocument"));
}

void TestXmlReader::places_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const char* text, const QStringList& expected) {
        QTest::newRow(name) << text << expected;
    };

    row("elements", "<job>\n  <row/><row></row>\n</job>",
        {"1:1 start job", "2:3 start row", "end row", "2:9 start row", "end row", "end job"});
    row("attributes", "<job a='1'  b = \"2\"\n c='3'/>", {"1:1 start job 1:6 a 1:13 b 2:2 c", "end job"});
    row("attributes with signs of XML in them", "<job a='b=\"1\">' b='/' c='>'/>",
        {"1:1 start job 1:6 a 1:17 b 1:23 c", "end job"});
    row("a repeated attribute", "<job a='1' a='2'/>", {"1:1 start job 1:6 a 1:12 a", "end job"});
    row("attributes of one element after another", "<job a='1'><row b='2'/></job>",
        {"1:1 start job 1:6 a", "1:12 start row 1:17 b", "end row", "end job"});
    row("a character beyond the basic plane is one column", "<job a='\xF0\x9F\x8D\x95' b='1'/>",
        {"1:1 start job 1:6 a 1:12 b", "end job"});
    row("a byte-order mark is none", "\xEF\xBB\xBF<job a='\xEF\xBB\xBF' b='1'/>",
        {"1:1 start job 1:6 a 1:11 b", "end job"});
    row("text", "<job>\n one\n<row/>\n two </job>",
        {"1:1 start job", "2:2 text \n one\n", "3:1 start row", "end row", "4:2 text \n two ", "end job"});
    row("character data", "<job>\n<![CDATA[<row>]]><row/></job>",
        {"1:1 start job", "2:1 text <row>", "2:18 start row", "end row", "end job"});
    row("comments and instructions", "<?xml version='1.0'?>\n<!-- <a> --><job>\n<!--b--><?c d?></job><!--e-->",
        {"1:1 instruction xml version='1.0'", "2:1 comment <a> ", "2:13 start job", "3:1 commentb",
         "3:9 instruction c d", "end job", "3:22 commente"});
    row("a document type declaration", "\n<!DOCTYPE job [\n<!ENTITY a '<b/>'>\n]>\n<job/>",
        {"2:1 type job", "5:1 start job", "end job"});
    row("an element that an entity stands for", "<!DOCTYPE job [<!ENTITY a '<b c=\"1\"/>'>]>\n<job>\n &a;</job>",
        {"1:1 type job", "2:1 start job", "3:2 start b 3:2 c", "end b", "end job"});
    row("an entity that nobody declared, in the text", "<job>\n&x;<row/></job>",
        {"1:1 start job", "2:1 entity x", "2:4 start row", "end row", "end job"});
    row("an entity that nobody declared, in an attribute", "<job>\n <row a='&x;'/></job>",
        {"1:1 start job", "2:2 attribute 1's entity x", "2:2 start row 2:7 a", "end row", "end job"});
    row("the same, right after an end tag", "<job><row></row><row a='&x;'/></job>",
        {"1:1 start job", "1:6 start row", "end row", "1:17 attribute 1's entity x", "1:17 start row 1:22 a", "end row",
         "end job"});
    row("entities that nobody declared, in several attributes", "<job a='1' b='&x;&y;' c = '/>' d='&z;'/>",
        {"1:1 attribute 2's entity x", "1:1 attribute 2's entity y", "1:1 attribute 4's entity z",
         "1:1 start job 1:6 a 1:12 b 1:23 c 1:32 d", "end job"});
    row("a reference in an attribute takes its characters", "<job a='&lt;&#65;' b='1'/>",
        {"1:1 start job 1:6 a 1:20 b", "end job"});
}

void TestXmlReader::places()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);

    QBuffer device;
    device.setData(text.toUtf8());
    toolkit::XmlPlaces places;
    PlacedEventLog log(places);
    QVERIFY(toolkit::readXml(device, log, NamespaceDeclarations::Keep, &places));
    log.events.removeFirst(); // startDocument
    log.events.removeLast();
    QCOMPARE(log.events, expected);
}

// Each of them is found by itself, and not by counting from the first.
void TestXmlReader::placesOfManyAttributes()
{
    QByteArray text = "<job";
    for (int i = 0; i < 100000; ++i)
        text += "\na" + QByteArray::number(i) + "='1'";
    QBuffer device;
    device.setData(text + "/>");
    toolkit::XmlPlaces places;
    PlacedEventLog log(places);
    QVERIFY(toolkit::readXml(device, log, NamespaceDeclarations::Keep, &places));
    QVERIFY(log.events.at(1).endsWith(" 100001:1 a99999"));
}

// In one attribute, each is found without a look at the others.
void TestXmlReader::placesOfManyEntities()
{
    QBuffer device;
    device.setData("<job a='" + QByteArray("&x;").repeated(200000) + "'/>");
    toolkit::XmlPlaces places;
    PlacedEventLog log(places);
    QVERIFY(toolkit::readXml(device, log, NamespaceDeclarations::Keep, &places));
    QCOMPARE(log.events.count("1:1 attribute 1's entity x"), 200000);
}

void TestXmlReader::placesOfFaults_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* name, const QByteArray& text, const char* fault) {
        QTest::newRow(name) << text << fault;
    };

    row("nothing", "", "1:1 error: unexpected end of file");
    row("an end tag that does not match", "<job>\n <row>\n </rows></job>", "3:8 error: tag mismatch");
    row("an element left open", "<job>\n<row/>\n", "3:1 error: unexpected end of file");
    row("a lone '&' in an attribute", "<job>\n<row a='Franco & Figli'/></job>", "2:17 error: letter is expected");
    row("'<' in an attribute", "<job a='<'/>", "1:9 error: unexpected character");
    row("a quote in a text", "<job a='l'acqua'/>", "1:16 error: unexpected character");
    row("an attribute without quotes", "<job a=1/>", "1:8 error: unexpected character");
    row("elements nested too deep", "<job>" + nested(1000) + "</job>", "1:3005 error: elements nested too deep");
    row("an entity too large", withDeclarations("<!ENTITY e '" + QByteArray(1001, 'e') + "'>"),
        "1:1028 error: entity too large");
    row("a declaration too long", withDeclarations(QByteArray("<!ELEMENT a ANY>").repeated(2000)),
        "error: document type declaration too long");
    row("too many references", withDeclarations("<!ENTITY e 'e'>", "<a>" + QByteArray("&e;").repeated(20000) + "</a>"),
        "error: too many references");
    row("the handler's own refusal", "<job><refused/></job>", "1:14 error: error triggered by consumer");
}

void TestXmlReader::placesOfFaults()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, fault);

    QBuffer device;
    device.setData(text);
    toolkit::XmlPlaces places;
    PlacedEventLog log(places, "1:6 start refused");
    QVERIFY(!toolkit::readXml(device, log, NamespaceDeclarations::Keep, &places));
    QVERIFY2(log.events.last().endsWith(fault), qPrintable(log.events.last()));
    QCOMPARE(log.events.filter("error:").size(), 1);
}

namespace {

/// Gives at most so many bytes at a time, as a pipe may.
class ShortReads : public QBuffer {
public:
    explicit ShortReads(int most)
        : most(most)
    {
    }

protected:
    qint64 readData(char* bytes, qint64 wanted) override { return QBuffer::readData(bytes, std::min(wanted, most)); }

private:
    const qint64 most;
};

} // namespace

// Its encoding is found in a declaration that comes in parts, and a document type is no longer for having many parts.
void TestXmlReader::piecesOfADeviceAreNoPiecesOfTheText()
{
    const QByteArray text =
        "<?xml version='1.0' encoding='ISO-8859-1'?><!DOCTYPE job [<!ELEMENT job ANY>]><job a='\xE8'/>";
    const QStringList expected {"startDocument", "start job [a=è]", "end job", "endDocument"};
    for (int size = 1; size <= text.size(); ++size) {
        ShortReads device(size);
        device.setData(text);
        QVERIFY(device.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
        EventLog log;
        QVERIFY2(toolkit::readXml(device, log), qPrintable(QString::number(size)));
        QCOMPARE(log.events, expected);
    }
}

// The input arrives in chunks of 1,024 bytes, whose ends fall into names and into characters here.
void TestXmlReader::manyElements()
{
    QByteArray text = "<job>";
    QStringList expected {"startDocument", "start job"};
    for (int i = 0; i < 20000; ++i) {
        text += "<row id='" + QByteArray::number(i) + "' dish='caffè € 漢'/>\n";
        expected << QString("start row [id=%1] [dish=caffè € 漢]").arg(i) << "end row";
    }
    const Outcome outcome = read(text + "</job>");
    expected += QStringList {"end job", "endDocument"};

    QVERIFY(outcome.result);
    QCOMPARE(outcome.events, expected);
}

// The toolkit would search them all at each element.
void TestXmlReader::manyNameSpaces()
{
    const Outcome outcome = read(elementsOfManyNameSpaces(20000, "job", "row"));
    QVERIFY(outcome.result);
    QCOMPARE(outcome.events.size(), 40004);
    QCOMPARE(outcome.events.at(1), QString("start job"));
    QCOMPARE(outcome.events.at(40000), QString("start p19999:row [a=1]"));
}

void TestXmlReader::namespaceDeclarations_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("kept"); // the root element's event
    QTest::addColumn<QString>("dropped");
    const auto row = [](const char* name, const char* text, const char* kept, const char* dropped) {
        QTest::newRow(name) << QByteArray(text) << kept << dropped;
    };

    row("none", "<job b='1' a='2'/>", "start job [b=1] [a=2]", "start job [b=1] [a=2]");
    row("between other attributes", "<job z='1' xmlns='u' m='2' xmlns:p='v' a='3'/>",
        "start job [z=1] [xmlns=u] [m=2] [xmlns:p=v] [a=3]", "start job [z=1] [m=2] [a=3]");
    row("nothing else", "<p:job xmlns:p='u'/>", "start p:job [xmlns:p=u]", "start p:job");
    row("empty, and one given twice", "<job xmlns='' xmlns:p='1' xmlns:p='2'/>",
        "start job [xmlns=] [xmlns:p=1] [xmlns:p=2]", "start job");
    row("with an entity in it", "<!DOCTYPE job [<!ENTITY e 'u'>]><job xmlns:p='&e;' a='&e;'/>",
        "start job [xmlns:p=u] [a=u]", "start job [a=u]");
}

void TestXmlReader::namespaceDeclarations()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, kept);
    QFETCH(QString, dropped);

    const Outcome keeping = read(text, QString(), NamespaceDeclarations::Keep);
    QVERIFY(keeping.result);
    QCOMPARE(keeping.events.size(), 4);
    QCOMPARE(keeping.events.at(1), kept);
    QCOMPARE(read(text, QString(), NamespaceDeclarations::Drop).events.at(1), dropped);
    QCOMPARE(read(text).events.at(1), dropped); // as is usual

    const Outcome refused = read(text, kept, NamespaceDeclarations::Keep);
    QVERIFY(!refused.result);
    QCOMPARE(refused.events, (QStringList {"startDocument", kept}));
}

// Declarations on every element, by the thousands, and the greatest nesting.
void TestXmlReader::keptDeclarationsKeepTheBounds()
{
    QByteArray declarations;
    for (int i = 0; i < 5000; ++i)
        declarations += " xmlns:p" + QByteArray::number(i) + "='u'";
    const QByteArray rows = QByteArray("<row xmlns='u'/>").repeated(5000);
    const Outcome many = read("<job" + declarations + '>' + rows + "</job>", QString(), NamespaceDeclarations::Keep);
    QVERIFY(many.result);
    QCOMPARE(many.events.at(1).count("xmlns:p"), 5000);
    QCOMPARE(many.events.count("start row [xmlns=u]"), 5000);

    const auto nest = [](int depth) {
        return QByteArray("<a xmlns='u'>").repeated(depth) + QByteArray("</a>").repeated(depth);
    };
    QVERIFY(read(nest(1000), QString(), NamespaceDeclarations::Keep).result);
    QVERIFY(!read(nest(1001), QString(), NamespaceDeclarations::Keep).result);
}

void TestXmlReader::openFileIsReadFromWhereItStands()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write("not XML<job/>");
    QVERIFY(file.seek(7));

    QCOMPARE(read(file).events, (QStringList {"startDocument", "start job", "end job", "endDocument"}));
}

void TestXmlReader::fault_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("white space alone") << " \n\t" << QStringList {"startDocument"};
    QTest::newRow("text alone") << "a receipt, please" << QStringList {"startDocument"};
    QTest::newRow("a declaration alone") << "<?xml version='1.0'?>" << QStringList {"startDocument"};
    QTest::newRow("an end tag that does not match")
        << "<job><row a='1'></job>" << QStringList {"startDocument", "start job", "start row [a=1]"};
    QTest::newRow("an end tag in other case")
        << "<job><row/></Job>" << QStringList {"startDocument", "start job", "start row", "end row"};
    QTest::newRow("an element left open")
        << "<job><row/>" << QStringList {"startDocument", "start job", "start row", "end row"};
    QTest::newRow("cut off in an attribute")
        << "<job><row/><row a='12" << QStringList {"startDocument", "start job", "start row", "end row"};
    QTest::newRow("cut off in an end tag")
        << "<job><row></ro" << QStringList {"startDocument", "start job", "start row"};
    QTest::newRow("an attribute without quotes")
        << "<job><row a=1/></job>" << QStringList {"startDocument", "start job"};
    QTest::newRow("'<' in an attribute") << "<job><row a='<'/></job>" << QStringList {"startDocument", "start job"};
    QTest::newRow("a lone '&' in an attribute")
        << "<job><row a='Franco & Figli'/></job>" << QStringList {"startDocument", "start job"};
    QTest::newRow("a second root element") << "<job/><job/>" << QStringList {"startDocument", "start job", "end job"};
    QTest::newRow("text after the root element")
        << "<job/>more" << QStringList {"startDocument", "start job", "end job"};
}

void TestXmlReader::fault()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);

    const Outcome outcome = read(text.toUtf8());
    QVERIFY(!outcome.result);
    QCOMPARE(outcome.events, expected);
}

void TestXmlReader::fileThatCannotBeRead_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("an empty file") << "empty.xml";
    QTest::newRow("a missing file") << "missing.xml";
    QTest::newRow("a folder") << ".";
    QTest::newRow("a file in a missing folder") << "missing/job.xml";
    QTest::newRow("no name") << QString();
}

void TestXmlReader::fileThatCannotBeRead()
{
    QFETCH(QString, name);

    const QTemporaryDir folder;
    QFile empty(folder.filePath("empty.xml"));
    QVERIFY(empty.open(QIODevice::WriteOnly));
    empty.close();

    if (name.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, "QFSFileEngine::open: No file name specified");
    QFile file(name.isEmpty() ? QString() : folder.filePath(name));
    const Outcome outcome = read(file);
    QVERIFY(!outcome.result);
    QCOMPARE(outcome.events, QStringList("startDocument"));
}

void TestXmlReader::refusal_data()
{
    QTest::addColumn<QString>("refused");
    QTest::addColumn<int>("delivered");

    QTest::newRow("startDocument") << "startDocument" << 1;
    QTest::newRow("the start of the root element") << "start job" << 2;
    QTest::newRow("the start of an element") << "start row [xa=1]" << 3;
    QTest::newRow("the start of an element with an xmlns attribute") << "start note [a=1]" << 5;
    QTest::newRow("the end of an element") << "end row" << 4;
    QTest::newRow("the end of the root element") << "end job" << 7;
    QTest::newRow("endDocument") << "endDocument" << 8;
}

void TestXmlReader::refusal()
{
    QFETCH(QString, refused);
    QFETCH(int, delivered);

    const Outcome outcome = read("<job><row xa='1'/><note xmlns='u' a='1'/></job>", refused);
    QVERIFY(!outcome.result);
    QCOMPARE(outcome.events,
             QStringList({"startDocument", "start job", "start row [xa=1]", "end row", "start note [a=1]", "end note",
                          "end job", "endDocument"})
                 .mid(0, delivered));
}

void TestXmlReader::encoding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("value");

    const QString text = "<job a='caffè € 漢'/>";
    const QString declared = "<?xml version='1.0' encoding='UTF-16'?>" + text;
    const auto utf16 = [](const char* codec, const QString& document) {
        const QByteArray mark = codec == QByteArray("UTF-16LE") ? "\xFF\xFE" : "\xFE\xFF";
        QTextEncoder encoder(QTextCodec::codecForName(codec), QTextCodec::IgnoreHeader);
        return mark + encoder.fromUnicode(document);
    };

    QTest::newRow("UTF-8 without a declaration") << text.toUtf8() << "caffè € 漢";
    QTest::newRow("UTF-8 with a byte-order mark") << "\xEF\xBB\xBF" + text.toUtf8() << "caffè € 漢";
    QTest::newRow("UTF-8 declared") << "<?xml version='1.0' encoding='UTF-8'?>" + text.toUtf8() << "caffè € 漢";
    QTest::newRow("UTF-16, little-endian") << utf16("UTF-16LE", text) << "caffè € 漢";
    QTest::newRow("UTF-16, big-endian") << utf16("UTF-16BE", text) << "caffè € 漢";
    QTest::newRow("UTF-16 declared too") << utf16("UTF-16LE", declared) << "caffè € 漢";
    QTest::newRow("ISO-8859-1 declared") << QByteArray(
        "<?xml version='1.0' encoding='ISO-8859-1'?><job a='caff\xE8 \xA4'/>")
                                         << "caffè ¤";
    QTest::newRow("ISO-8859-15 declared")
        << QByteArray("<?xml version='1.0' encoding='ISO-8859-15'?><job a='caff\xE8 \xA4'/>") << "caffè €";
}

void TestXmlReader::encoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, value);

    const Outcome outcome = read(bytes);
    QVERIFY(outcome.result);
    QCOMPARE(outcome.events, (QStringList {"startDocument", "start job [a=" + value + ']', "end job", "endDocument"}));
}

// Each byte that is no part of a character is a U+FFFD, '?' here.
void TestXmlReader::bytesThatAreNoUtf8_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("value");
    const auto row = [](const char* name, const char* bytes, const char* value) {
        QTest::newRow(name) << QByteArray(bytes) << QString(value).replace('?', QChar::ReplacementCharacter);
    };

    row("a byte that continues nothing", "\x80x", "?x");
    row("three of them", "\x80\xbf\x80x", "???x");
    row("a character of two bytes without its second", "\xc3x", "?x");
    row("of three without its second", "\xe2x", "?x");
    row("of three without its third", "\xe2\x82x", "??x");
    row("of four without its second", "\xf0x", "?x");
    row("of four without its third", "\xf0\x9fx", "??x");
    row("of four without its fourth", "\xf0\x9f\x8dx", "???x");
    row("one of two without its second before a whole one", "\xc3\xc3\xa8", "?è");
    row("one of three without its third before a whole one", "\xe2\x82\xe2\x82\xac", "??€");
    row("a letter in two bytes", "\xc1\x81", "??");
    row("a NUL in two bytes", "\xc0\x80", "??");
    row("a letter in three bytes", "\xe0\x81\x81", "???");
    row("a letter in four bytes", "\xf0\x80\x81\x81", "????");
    row("the first half of a pair", "\xed\xa0\x80", "???");
    row("both halves of a pair", "\xed\xa0\xbc\xed\xbd\x95", "??????");
    row("what is beyond the last character", "\xf4\x90\x80\x80", "????");
    row("a byte beyond the last character's", "\xf5\x80\x80\x80", "????");
    row("a byte that begins nothing", "\xffx", "?x");
    row("U+FFFD itself", "\xef\xbf\xbd", "?");
}

void TestXmlReader::bytesThatAreNoUtf8()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, value);

    const Outcome outcome = read("<job a='" + bytes + "'/>");
    QVERIFY(outcome.result);
    QCOMPARE(outcome.events.at(1), "start job [a=" + value + ']');
}

// What stands of a character before a cut, and does not become one with what is behind it, is one U+FFFD ('?' here),
// however many bytes it has; all else is as it is anywhere.
void TestXmlReader::cutCharacters_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("behind");
    QTest::addColumn<QString>("value");
    const auto row = [](const char* name, const char* before, const char* behind, const char* value) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(behind)
                            << QString(value).replace('?', QChar::ReplacementCharacter);
    };

    row("a character of two bytes", "\xc3", "\xa8x", "èx");
    row("of three after the first", "\xe2", "\x82\xacx", "€x");
    row("of three after the second", "\xe2\x82", "\xacx", "€x");
    row("of four after the first", "\xf0", "\x9f\x8d\x95x", "\xf0\x9f\x8d\x95x");
    row("of four after the second", "\xf0\x9f", "\x8d\x95x", "\xf0\x9f\x8d\x95x");
    row("of four after the third", "\xf0\x9f\x8d", "\x95x", "\xf0\x9f\x8d\x95x");

    row("one of two bytes without its second", "\xc3", "x", "?x");
    row("of three without its second", "\xe2", "x", "?x");
    row("of three without its third, after the second", "\xe2\x82", "x", "?x");
    row("of three without its third, after the first", "\xe2", "\x82x", "??x");
    row("of four without its second", "\xf0", "xy", "?xy");
    row("of four without its third, after the second", "\xf0\x9f", "xy", "?xy");
    row("of four without its third, after the first", "\xf0", "\x9fx", "??x");
    row("of four without its fourth, after the third", "\xf0\x9f\x8d", "x", "?x");
    row("of four without its fourth, after the second", "\xf0\x9f", "\x8dx", "??x");
    row("of four without its fourth, after the first", "\xf0", "\x9f\x8dx", "???x");
    row("the quotation mark is not a part of it", "\xe2\x82", "", "?");
    row("it is broken before the cut", "\xe2\x82x", "y", "??xy");

    row("a whole one behind one of two bytes", "\xc3", "\xc3\xa8", "?è");
    row("a whole one behind one of three", "\xe2\x82", "\xe2\x82\xac", "?€");
    row("a whole one behind one of four", "\xf0\x9f\x8d", "\xc3\xa8x", "?èx");
    row("a broken one behind a broken one", "\xe2\x82", "\xe2\x82x", "???x");
    row("two broken ones before the cut", "\xf0\x9f\xe2\x82", "x", "???x");

    row("a byte that continues nothing, before", "\x80", "x", "?x");
    row("a byte that continues nothing, behind", "x", "\x80", "x?");
    row("a NUL in two bytes", "\xc0", "\x80x", "??x");
    row("a letter in three bytes, after the first", "\xe0", "\x81\x81", "???");
    row("a letter in three bytes, after the second", "\xe0\x81", "\x81", "??");
    row("half of a pair, after the first byte", "\xed", "\xa0\x80x", "???x");
    row("half of a pair, after the second byte", "\xed\xa0", "\x80x", "??x");
    row("beyond the last character, after the first byte", "\xf4", "\x90\x80\x80", "????");
    row("beyond the last character, after the second byte", "\xf4\x90", "\x80\x80", "???");
    row("beyond the last character, after the third byte", "\xf4\x90\x80", "\x80", "??");
    row("a byte beyond the last character's", "\xf5", "\x80\x80\x80", "????");
    row("one that is broken by one that goes on", "\xf0\x9f\x8d\xe2", "\x82\xac", "???€");
    row("one that is broken by one that does not", "\xf4\x90\xe2\x82", "x", "???x");
    row("two that are broken by a third", "\xf0\xe2\x82\xc3", "\xa8", "???è");

    row("a byte-order mark that is none", "\xef\xbb", "x", "?x");
    row("a byte-order mark behind the cut", "x", "\xef\xbb\xbfx", "x\ufeffx");
    row("a byte-order mark at the cut", "x\xef\xbb", "\xbfx", "x\ufeffx");
}

// The input arrives in chunks of 1,024 bytes. Between two of them is the cut.
void TestXmlReader::cutCharacters()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, behind);
    QFETCH(QString, value);

    for (const int chunks : {1, 2}) {
        const QByteArray head = "<job b='" + QByteArray(1024 * (chunks - 1), 'b') + "' a='";
        const QByteArray blanks(1024 * chunks - head.size() - before.size(), ' ');
        const Outcome outcome = read(head + blanks + before + behind + "'/>");
        QVERIFY(outcome.result);
        QVERIFY2(outcome.events.at(1).endsWith(" [a=" + blanks + value + ']'), qPrintable(outcome.events.at(1)));
    }
}

// It is nothing, and no fault.
void TestXmlReader::cutCharacterBehindTheDocument()
{
    const Outcome outcome = read("<job/>" + QByteArray(1024, '\n') + "\xe2\x82");
    QCOMPARE(outcome.events, (QStringList {"startDocument", "start job", "end job", "endDocument"}));
    QVERIFY(outcome.result);
}

// There they are characters of their own.
void TestXmlReader::bytesOfAnotherEncodingAtACut()
{
    const QByteArray head = "<?xml version='1.0' encoding='ISO-8859-15'?><job a='";
    const QByteArray blanks(1022 - head.size(), ' ');
    const Outcome outcome = read(head + blanks + "\xe8\xa4x'/>");
    QVERIFY(outcome.result);
    QCOMPARE(outcome.events.at(1), "start job [a=" + blanks + "è€x]");
}

void TestXmlReader::nesting_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("1,000 elements inside each other") << 1000 << true;
    QTest::newRow("1,001 elements inside each other") << 1001 << false;
    QTest::newRow("100,000 elements inside each other") << 100000 << false;
}

void TestXmlReader::nesting()
{
    QFETCH(int, depth);
    QFETCH(bool, accepted);

    const Outcome outcome = read(nested(depth));
    QCOMPARE(outcome.result, accepted);
    QCOMPARE(outcome.events.count("start a"), 1000);
    QCOMPARE(outcome.events.count("end a"), accepted ? 1000 : 0);
    QCOMPARE(outcome.events.contains("endDocument"), accepted);
}

void TestXmlReader::elementsSideBySideAreNotNested()
{
    const Outcome outcome = read("<job>" + nested(999) + QByteArray("<a/>").repeated(5000) + nested(999) + "</job>");
    QVERIFY(outcome.result);
    QCOMPARE(outcome.events.count("end a"), 6998);
}

void TestXmlReader::longAttribute()
{
    const QByteArray value = QByteArray("0123456789").repeated(1024 * 1024);
    const Outcome outcome = read("<job><row a='" + value + "' b='1'/></job>");
    QVERIFY(outcome.result);
    QCOMPARE(outcome.events.size(), 6);
    QVERIFY(outcome.events.at(2) == "start row [a=" + value + "] [b=1]");
}

void TestXmlReader::longDeclaration_data()
{
    QTest::addColumn<QByteArray>("declarations");
    QTest::addColumn<bool>("accepted");

    const auto parentheses = [](int count) {
        return "<!ELEMENT a " + QByteArray("(").repeated(count) + "b" + QByteArray(")").repeated(count) + ">";
    };

    QTest::newRow("700 entities, 14,000 bytes") << entityDeclarations(700) << true;
    QTest::newRow("20,000 entities") << entityDeclarations(20000) << false;
    QTest::newRow("200 parentheses inside each other") << parentheses(200) << true;
    QTest::newRow("200,000 parentheses inside each other") << parentheses(200000) << false;
    QTest::newRow("200,000 parentheses without an end") << parentheses(200000).left(200000) << false;
    const auto comment = [](int size) { return "<!--" + QByteArray(size, 'x') + "-->"; };
    QTest::newRow("a comment of 15,000 bytes") << comment(15000) << true;
    QTest::newRow("a comment of 20,000 bytes") << comment(20000) << false;
    QTest::newRow("a comment of 10 MB") << comment(10000000) << false;
}

void TestXmlReader::longDeclaration()
{
    QFETCH(QByteArray, declarations);
    QFETCH(bool, accepted);

    const QStringList whole {"startDocument", "start a", "end a", "endDocument"};
    const Outcome outcome = read(withDeclarations(declarations));
    QCOMPARE(outcome.result, accepted);
    QCOMPARE(outcome.events, accepted ? whole : QStringList {"startDocument"});
}

void TestXmlReader::references_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("accepted");

    const QByteArray declaration = "<!DOCTYPE job [<!ENTITY e 'x'>]>";
    QTest::newRow("9,000 after a declaration") << declaration << 9000 << true;
    QTest::newRow("12,000 after a declaration") << declaration << 12000 << false;
    QTest::newRow("200,000 after a declaration") << declaration << 200000 << false;
    QTest::newRow("200,000 without a declaration") << QByteArray() << 200000 << true;
    QTest::newRow("200,000 after a declaration without entities")
        << QByteArray("<!DOCTYPE job [<!ELEMENT job ANY>]>") << 200000 << true;
}

// Some references more than the bound are let through, because they are counted chunk by chunk.
void TestXmlReader::references()
{
    QFETCH(QByteArray, start);
    QFETCH(int, count);
    QFETCH(bool, accepted);

    const Outcome outcome = read(start + "<job>" + QByteArray("<a b='&amp;'/>").repeated(count) + "</job>");
    const int delivered = outcome.events.count("start a [b=&]");
    QCOMPARE(outcome.result, accepted);
    QCOMPARE(outcome.events.contains("endDocument"), accepted);
    if (accepted)
        QCOMPARE(delivered, count);
    else
        QVERIFY2(delivered > 9900 && delivered < 10100, qPrintable(QString::number(delivered)));
}

void TestXmlReader::entitySize_data()
{
    QTest::addColumn<QByteArray>("declarations");
    QTest::addColumn<QByteArray>("value"); // of the entity e; empty when the declaration is refused

    const auto entity = [](const char* name, const QByteArray& value) {
        return QByteArray("<!ENTITY ") + name + " '" + value + "'>";
    };
    const QByteArray hundred(100, 'x');
    const QByteArray refused;

    QTest::newRow("1,000 characters") << entity("e", hundred.repeated(10)) << hundred.repeated(10);
    QTest::newRow("1,001 characters") << entity("e", hundred.repeated(10) + 'x') << refused;
    QTest::newRow("references to an earlier entity") << entity("a", "x") + entity("e", "&a;-&a;") << QByteArray("x-x");
    QTest::newRow("references that XML declares itself")
        << entity("e", "&lt;&amp;&gt;&quot;&apos;") << QByteArray("<&>\"'");
    QTest::newRow("a reference by number") << entity("e", "&#38;#38;") << QByteArray("&");
    QTest::newRow("a percent sign") << entity("e", "10&#37; or 20&#37;;") << QByteArray("10% or 20%;");
    QTest::newRow("a parameter entity") << entity("% p", "x") + entity("e", "-%p;-") << QByteArray("-x-");
    // A reference counts with its own characters too: 3 + 96 + 901.
    QTest::newRow("1,000 characters with a reference") << entity("a", QByteArray(96, 'x'))
            + entity("e", "&a;" + QByteArray(901, 'y')) << QByteArray(96, 'x') + QByteArray(901, 'y');
    QTest::newRow("1,001 characters with a reference")
        << entity("a", QByteArray(97, 'x')) + entity("e", "&a;" + QByteArray(901, 'y')) << refused;
    QTest::newRow("too large by references alone")
        << entity("a", hundred) + entity("e", QByteArray("&a;").repeated(10)) << refused;
    QTest::newRow("a reference to a later entity") << entity("e", "&a;") + entity("a", "x") << refused;
    QTest::newRow("a reference to an entity that is never declared") << entity("e", "&a;") << refused;
    QTest::newRow("a parameter entity of 1,001 characters")
        << entity("% p", hundred.repeated(10) + 'x') + entity("e", "x") << refused;
    QTest::newRow("a large entity that nobody refers to")
        << entity("a", hundred.repeated(11)) + entity("e", "x") << refused;
}

void TestXmlReader::entitySize()
{
    QFETCH(QByteArray, declarations);
    QFETCH(QByteArray, value);

    const Outcome outcome = read(withDeclarations(declarations, "<a><row b='&e;'/></a>"));
    QCOMPARE(outcome.result, !value.isEmpty());
    if (value.isEmpty())
        QCOMPARE(outcome.events, QStringList {"startDocument"});
    else
        QVERIFY(outcome.events.contains("start row [b=" + QString::fromUtf8(value) + "]"));
}

void TestXmlReader::entityTrouble_data()
{
    QTest::addColumn<QByteArray>("declarations");
    QTest::addColumn<QByteArray>("row");

    QByteArray bomb = "<!ENTITY e0 'lol'>";
    for (int i = 1; i < 10; ++i) {
        const QByteArray previous = "&e" + QByteArray::number(i - 1) + ';';
        bomb += "<!ENTITY e" + QByteArray::number(i) + " '" + previous.repeated(10) + "'>";
    }
    const QByteArray loop = "<!ENTITY x '&y;'><!ENTITY y '&x;'>";

    QTest::newRow("an entity bomb in an attribute") << bomb << QByteArray("<row b='&e9;'/>");
    QTest::newRow("an entity bomb in the text") << bomb << QByteArray("<row>&e9;</row>");
    QTest::newRow("entities that name each other, in an attribute") << loop << QByteArray("<row b='&x;'/>");
    QTest::newRow("entities that name each other, in the text") << loop << QByteArray("<row>&x;</row>");
    QTest::newRow("a file as entity, in an attribute")
        << QByteArray("<!ENTITY x SYSTEM '/etc/hostname'>") << QByteArray("<row b='&x;'/>");
    QTest::newRow("parameter entities that name each other")
        << QByteArray("<!ENTITY % x '&#37;y;'><!ENTITY % y '&#37;x;'>%x;") << QByteArray("<row/>");
}

void TestXmlReader::entityTrouble()
{
    QFETCH(QByteArray, declarations);
    QFETCH(QByteArray, row);

    const Outcome outcome = read(withDeclarations(declarations, "<a>" + row + "</a>"));
    QVERIFY(!outcome.result);
    QVERIFY(!outcome.events.contains("end row"));
    QVERIFY(!outcome.events.contains("endDocument"));
    QVERIFY(outcome.events.join(QString()).size() < 100);
}

void TestXmlReader::agreesWithTheToolkit_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("a carriage return in an attribute") << QByteArray("<job a='one\r\ntwo\rthree'/>");
    QTest::newRow("line breaks by number") << QByteArray("<job a='one&#10;two&#13;three&#9;'/>");
    QTest::newRow("an attribute given twice") << QByteArray("<job a='1' b='2' a='3'/>");
    QTest::newRow("a name with two colons") << QByteArray("<p:q:job p:q:a='1'/>");
    QTest::newRow("a name that begins with a colon") << QByteArray("<:job :a='1'/>");
    QTest::newRow("a prefix declared anew") << QByteArray("<p:a xmlns:p='u'><p:a xmlns:p='v' p:b='1'/></p:a>");
    QTest::newRow("one attribute under two prefixes")
        << QByteArray("<job xmlns:p='u' xmlns:q='u' p:a='1' q:a='2' a='3'/>");
    QTest::newRow("a default value from the declaration")
        << QByteArray("<!DOCTYPE a [<!ATTLIST a b CDATA 'x' xmlns CDATA 'u'>]><a/>");
    QTest::newRow("an entity with elements in it") << QByteArray("<!DOCTYPE a [<!ENTITY e '<b/>'>]><a>&e;</a>");
    QTest::newRow("an unknown entity in an attribute") << QByteArray("<job><row a='1&euro;2'/></job>");
    QTest::newRow("an unknown entity in the text") << QByteArray("<job><row>&euro;</row></job>");
    QTest::newRow("a wrong UTF-8 sequence") << QByteArray("<job a='caff\xE8'/>");
    QTest::newRow("a NUL") << QByteArray("<job a='1\0x'/>", 14);
    QTest::newRow("an unknown encoding") << QByteArray("<?xml version='1.0' encoding='none'?><job a='\xC3\xA8'/>");
    QTest::newRow("XML 1.1") << QByteArray("<?xml version='1.1'?><job/>");
}

// What the toolkit's reader accepts and delivers is right by definition.
void TestXmlReader::agreesWithTheToolkit()
{
    QFETCH(QByteArray, text);

    const Outcome expected = readBare(text);
    const Outcome outcome = read(text);
    QCOMPARE(outcome.events, expected.events);
    QCOMPARE(outcome.result, expected.result);
}

void TestXmlReader::everyPrefixAgreesWithTheToolkit()
{
    const QByteArray text = "<?xml version='1.0' encoding='UTF-8'?>\n"
                            "<!DOCTYPE job [<!ENTITY dish 'Caffè'>]>\n"
                            "<!-- table 4 -->\n"
                            "<job xmlns='u' xmlns:p='v'>\n"
                            "    <row id='1' p:dish='&dish; €' note='&lt;3'/> text <![CDATA[x]]>\n"
                            "    <?page 2?><p:total>12</p:total>\n"
                            "</job>\n";
    for (int size = 0; size <= text.size(); ++size) {
        const Outcome expected = readBare(text.left(size));
        const Outcome outcome = read(text.left(size));
        QCOMPARE(outcome.events, expected.events);
        QCOMPARE(outcome.result, expected.result);
    }
}

QTEST_GUILESS_MAIN(TestXmlReader)
#include "tst_xmlreader.moc"
