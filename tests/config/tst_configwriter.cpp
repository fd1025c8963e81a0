#include "support/settingstree.h"

#include "support/capture.h"
#include "support/interceptedcall.h"
#include "support/ordinaryuser.h"
#include "support/ownprocess.h"
#include "support/pipereader.h"
#include "support/processstate.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <random>
#include <sys/stat.h>
#include <utility>

using libconfig::Config;

#ifdef __SANITIZE_ADDRESS__
/// Memory that is not there is an answer, not the end of the process.
extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}
#endif

/// Settings written back: the bytes of both formats, how files are replaced, the dump, and that what was written
/// reads back.
class TestConfigWriter : public QObject {
    Q_OBJECT

private slots:
    void init();

    void bytes_data();
    void bytes();
    void bytesFromXml_data();
    void bytesFromXml();
    void encoding_data();
    void encoding();
    void emptyPathIsTheFileRead_data();
    void emptyPathIsTheFileRead();
    void consecutiveWritesAreIdentical();
    void elementOfAnotherDocument();
    void nodeThatIsNoElement();
    void nothingLoaded();
    void unknownFormatWritesNothing();

    void order_data();
    void order();
    void readingAgainHasItsOwnOrder();
    void manyAttributesKeepTheirOrder();

    void missingPlace_data();
    void missingPlace();
    void whatTheFileWasStays();
    void pipe();
    void fullDevice();
    void folderThatMayNotBeWritten();
    void fileSizeLimit_data();
    void fileSizeLimit();
    void failedSync();
    void moreThanTwoGigabytes_data();
    void moreThanTwoGigabytes();
    void moreThanMemoryHolds();
    void treeThatMemoryDoesNotHold();
    void streamThatFails_data();
    void streamThatFails();

    void dump_data();
    void dump();
    void dumpOfAnElement();
    void dumpInTheLocalesEncoding_data();
    void dumpInTheLocalesEncoding();

    void unwritableValue_data();
    void unwritableValue();
    void exampleIsWrittenAsItIs();
    void everyPrefixOfTheExampleReadsBack();
    void generatedFilesReadBack_data();
    void generatedFilesReadBack();
    void randomBytesReadBack_data();
    void randomBytesReadBack();
    void manyGroupsWithoutSettings();
    void deepNesting();

private:
    QString path(const QString& name) const { return folder->filePath(name); }
    /// Reads @p text from the file "zelmora.conf".
    void read(OpenConfig& config, const QByteArray& text, const char* format = "cfg") const;
    QByteArray written(const Config& config, const char* format) const;
    QStringList filesInTheFolder() const { return filesIn(folder->path()); }
    void checkWritesIdentically(const QByteArray& text, const char* format);

    QScopedPointer<QTemporaryDir> folder;
};

namespace {

/// Tells this program to do nothing but read a file, and to write it in both formats and to dump it.
const char writeOnly[] = "--write";

const char goodFile[] = "zelmora: { a = 1; };";

/// @p text with the blank that ends the head of each group, as no line of a source does.
QByteArray withBlanks(QByteArray text)
{
    return text.replace(":\n", ": \n");
}

const QByteArray goodFileWritten = withBlanks(R"(zelmora:
{
    a = "1";
};

)");

const QByteArray goodXmlWritten = R"(
<zelmora
    a = "1">
</zelmora>
)";

/// A setting "b" before "a" that was 1 there, and 3 after it.
const QByteArray repeatedWritten = withBlanks(R"(zelmora:
{
    b = "3";
    a = "2";
};

)");

const QByteArray repeatedXmlWritten = R"(
<zelmora
    b = "3"
    a = "2">
</zelmora>
)";

/// What this program prints when it reads @p file in a process of its own with these variables.
QByteArray outputOfProcess(const QString& file, const char* format, const QStringList& variables)
{
    return outputOfOwnProcess({writeOnly, file, format}, variables);
}

/// Random settings files. Equal seeds give equal files.
class Generator {
public:
    enum class Alphabet { WhatXmlAllows, All };

    Generator(unsigned seed, Alphabet alphabet)
        : random(seed)
        , alphabet(alphabet)
    {
    }

    int below(int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); }

    /// A file with one group at top level, and the lines of its tree; in it, when all is allowed, settings of the
    /// top level before and a group after.
    QByteArray file()
    {
        lines.clear();
        QByteArray text;
        if (alphabet == Alphabet::All) {
            text += bytes(space()) + settings(1);
            lines += settingsRead;
        }
        text += group(1) + bytes(space());
        return text;
    }

    QStringList lines;

private:
    /// A group with its settings, some before and some after the groups in it.
    QByteArray group(int depth)
    {
        const QString name = newName();
        QByteArray text = bytes(space() + name + space()) + ':' + ignored("{") + '{';
        lines += QString::number(depth) + ' ' + name + ':';
        const int begin = lines.size();
        QByteArray settingsAfter = settings(depth + 1);
        lines += settingsRead;
        if (below(2) == 0)
            text += std::exchange(settingsAfter, QByteArray());
        for (int groups = depth < 5 ? below(4) : 0; groups > 0; --groups)
            text += group(depth + 1);
        if (lines.size() == begin)
            lines.removeLast(); // nothing is in it
        return text + settingsAfter + bytes(space()) + '}' + ignored(";") + ';';
    }

    /// Some settings, among them repeated ones.
    QByteArray settings(int depth)
    {
        QByteArray text;
        QStringList names;
        QHash<QString, QString> values;
        const int count = below(5);
        for (int i = 0; i < count; ++i) {
            const bool again = !names.isEmpty() && below(8) == 0;
            const QString name = again ? names.at(below(names.size())) : newName();
            const QString value = newValue();
            if (!values.contains(name))
                names += name;
            values.insert(name, value);
            text += bytes(space() + name + space()) + '=' + writtenValue(value) + ';';
        }
        settingsRead.clear();
        for (const QString& name : qAsConst(names))
            settingsRead += QString::number(depth) + ' ' + name + " = " + values.value(name);
        return text;
    }

    QByteArray writtenValue(const QString& value)
    {
        const bool keepsItsEnds = value.trimmed() == value && !value.startsWith(QChar::ByteOrderMark);
        if (keepsItsEnds && below(2) == 0)
            return bytes(space() + value + space());
        return bytes(space() + '"' + value + '"' + space());
    }

    /// In one of the encodings in which it is read as what it is.
    QByteArray bytes(const QString& text)
    {
        const QByteArray latin1 = text.toLatin1();
        const bool staysLatin1 =
            QString::fromLatin1(latin1) == text && QString::fromUtf8(latin1).contains(QChar::ReplacementCharacter);
        return staysLatin1 && below(2) == 0 ? latin1 : text.toUtf8();
    }

    QString newName()
    {
        QString name = text(alphabet == Alphabet::All ? ":=}" : ":=}\"<&;{ \t\n\\/>'€").trimmed();
        while (name.startsWith(QChar::ByteOrderMark))
            name = name.mid(1).trimmed();
        if (alphabet == Alphabet::WhatXmlAllows)
            name.prepend('n');
        return name;
    }

    QString newValue() { return text(alphabet == Alphabet::All ? ";\"" : ";\"<&"); }

    QString text(const QString& forbidden)
    {
        static const QString common = "ab:={};\" .\n\t\\<>&'/{}éÿ€漢";
        static const QString rare = QString(QChar(QChar::ByteOrderMark)) + QChar(0) + QChar(1) + QChar(0x1A)
            + QChar(0x7F) + QChar(0x85) + QChar(0xA0) + QChar(0x2028) + QChar(0xFFFD) + "\r🍕!?%#*$[]";
        const QString& characters = alphabet == Alphabet::All && below(4) == 0 ? rare : common;
        QString result;
        const int size = below(8);
        while (result.size() < size) {
            const QChar character = characters.at(below(characters.size()));
            if (!forbidden.contains(character) && !character.isSurrogate())
                result += character;
            else if (character.isSurrogate())
                result += "🍕";
        }
        return result;
    }

    QString space()
    {
        static const QStringList spaces {"", "", " ", "\n", "\t ", "\r\n", "\n    "};
        return spaces.at(below(spaces.size()));
    }

    QByteArray ignored(const QByteArray& end)
    {
        static const QVector<QByteArray> texts {"", "", " ", "\n", " a = \"b\" ", "é", "\xFF", "}", ":", " {", ";"};
        const QByteArray text = texts.at(below(texts.size()));
        return text.contains(end) ? QByteArray() : text;
    }

    std::mt19937 random;
    const Alphabet alphabet;
    QStringList settingsRead; ///< the lines of those made last
};

} // namespace

void TestConfigWriter::init()
{
    folder.reset(new QTemporaryDir(scratchFolder()));
    QVERIFY(folder->isValid());
}

void TestConfigWriter::read(OpenConfig& config, const QByteArray& text, const char* format) const
{
    writeBytes(path("zelmora.conf"), text);
    config.readFile(path("zelmora.conf"), format);
}

QByteArray TestConfigWriter::written(const Config& config, const char* format) const
{
    const QString file = path("written");
    if (format == QByteArray("cfg"))
        config.buildConfigFile(file);
    else
        config.buildConfigXmlFile(file);
    return fileContents(file);
}

void TestConfigWriter::bytes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("brace");
    QTest::addColumn<QByteArray>("xml");
    const auto row = [](const char* name, const QByteArray& text, const QByteArray& brace, const QByteArray& xml) {
        QTest::newRow(name) << text << withBlanks(brace) << xml;
    };

    row("an empty file", "", "", "");
    row("a group with one setting", "zelmora: { a = 1; };",
        R"(zelmora:
{
    a = "1";
};

)",
        R"(
<zelmora
    a = "1">
</zelmora>
)");
    row("groups inside each other, settings first",
        "zelmora: { doc: { row: { x = 1; y = 2; }; w = 32; }; lang: { file = it; }; a = 1; };",
        R"(zelmora:
{
    a = "1";
    doc:
    {
        w = "32";
        row:
        {
            x = "1";
            y = "2";
        };

    };

    lang:
    {
        file = "it";
    };

};

)",
        R"(
<zelmora
    a = "1">

    <doc
        w = "32">

        <row
            x = "1"
            y = "2">
        </row>
    </doc>

    <lang
        file = "it">
    </lang>
</zelmora>
)");
    row("a group without settings around one with some", "zelmora: { doc: { a = 1; }; };",
        R"(zelmora:
{
    doc:
    {
        a = "1";
    };

};

)",
        R"(
<zelmora>

    <doc
        a = "1">
    </doc>
</zelmora>
)");
    row("settings at top level, in brace form in both", "a = 1; zelmora: { b = 2; }; c = \" 3 \";",
        R"(a = "1";
c = " 3 ";
zelmora:
{
    b = "2";
};

)",
        R"(a = "1";
c = " 3 ";

<zelmora
    b = "2">
</zelmora>
)");
    row("settings at top level alone", "a = 1;", "a = \"1\";\n", "a = \"1\";\n");
    row("the first top-level group alone", "zelmora: { a = 1; }; other: { b = 2; }; zelmora: { c = 3; };",
        goodFileWritten, goodXmlWritten);
    row("a repeated setting has its first place and its last value", "zelmora: { b = 1; a = 2; b = 3; };",
        repeatedWritten, repeatedXmlWritten);
    row("groups of one name stay apart", "zelmora: { doc: { a = 1; }; doc: { a = 2; }; };",
        R"(zelmora:
{
    doc:
    {
        a = "1";
    };

    doc:
    {
        a = "2";
    };

};

)",
        R"(
<zelmora>

    <doc
        a = "1">
    </doc>

    <doc
        a = "2">
    </doc>
</zelmora>
)");
    row("groups that hold no setting are left out where they would read back as nothing",
        "zelmora: { doc: { row: { none: { }; }; }; a = 1; gone: { }; };", goodFileWritten,
        R"(
<zelmora
    a = "1">

    <doc>

        <row>
        </row>
    </doc>
</zelmora>
)");
    row("a first group that holds no setting hides the second one", "first: { doc: { }; }; zelmora: { a = 1; };", "",
        "\n<first>\n</first>\n");
    row("values as they are", "zelmora: { a = ; b = \"\"; c = 12:30; d = {x: y=z}; e = \" one\n\ttwo \"; f = <&'>; };",
        "zelmora: \n"
        "{\n"
        "    a = \"\";\n"
        "    b = \"\";\n"
        "    c = \"12:30\";\n"
        "    d = \"{x: y=z}\";\n"
        "    e = \" one\n\ttwo \";\n"
        "    f = \"<&'>\";\n"
        "};\n"
        "\n",
        "\n"
        "<zelmora\n"
        "    a = \"\"\n"
        "    b = \"\"\n"
        "    c = \"12:30\"\n"
        "    d = \"{x: y=z}\"\n"
        "    e = \" one\n\ttwo \"\n"
        "    f = \"<&'>\">\n"
        "</zelmora>\n");
    row("names as they are", ": { = 1; # remark\n b = 2; ; c = 3; \"{d{\" = 4; <e>.&f = 5; xmlns = 6; };",
        R"(:
{
     = "1";
    # remark
 b = "2";
    ; c = "3";
    "{d{" = "4";
    <e>.&f = "5";
    xmlns = "6";
};

)",
        R"(
<
     = "1"
    # remark
 b = "2"
    ; c = "3"
    "{d{" = "4"
    <e>.&f = "5"
    xmlns = "6">
</>
)");
    row("accents and more", "menù: { città = caffè € 漢 🍕; };",
        R"(menù:
{
    città = "caffè € 漢 🍕";
};

)",
        R"(
<menù
    città = "caffè € 漢 🍕">
</menù>
)");
    row("line ends of a value stay as they are", "zelmora:\r\n{\r\n a = \"1\r\n2\r3\";\r\n};\r\n",
        "zelmora: \n"
        "{\n"
        "    a = \"1\r\n2\r3\";\n"
        "};\n"
        "\n",
        "\n"
        "<zelmora\n"
        "    a = \"1\r\n2\r3\">\n"
        "</zelmora>\n");
}

void TestConfigWriter::bytes()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, brace);
    QFETCH(QByteArray, xml);

    OpenConfig config;
    read(config, text);
    QCOMPARE(difference(brace, written(config, "cfg")), QByteArray());
    QCOMPARE(difference(xml, written(config, "xml")), QByteArray());
}

void TestConfigWriter::bytesFromXml_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("brace");
    QTest::addColumn<QByteArray>("xml");
    const auto row = [](const char* name, const QByteArray& text, const QByteArray& brace, const QByteArray& xml) {
        QTest::newRow(name) << text << withBlanks(brace) << xml;
    };

    row("an element", "<zelmora a='1'/>", goodFileWritten, goodXmlWritten);
    row("elements and attributes in their order", "<zelmora z='1' a='2' m='3'><doc y='4' b='5'/><aa c='6'/></zelmora>",
        R"(zelmora:
{
    z = "1";
    a = "2";
    m = "3";
    doc:
    {
        y = "4";
        b = "5";
    };

    aa:
    {
        c = "6";
    };

};

)",
        R"(
<zelmora
    z = "1"
    a = "2"
    m = "3">

    <doc
        y = "4"
        b = "5">
    </doc>

    <aa
        c = "6">
    </aa>
</zelmora>
)");
    row("text, comments and instructions are no settings",
        "<zelmora a='1'>text<!-- b --><?c d?><![CDATA[e]]></zelmora><!-- f -->", goodFileWritten, goodXmlWritten);
    row("a repeated attribute has its first place and its last value", "<zelmora b='1' a='2' b='3'/>", repeatedWritten,
        repeatedXmlWritten);
    row("prefixes and name space declarations stay in their place", "<p:z b='1' xmlns:p='u' p:a='2' xmlns='v'/>",
        R"(p:z:
{
    b = "1";
    xmlns:p = "u";
    p:a = "2";
    xmlns = "v";
};

)",
        R"(
<p:z
    b = "1"
    xmlns:p = "u"
    p:a = "2"
    xmlns = "v">
</p:z>
)");
    row("values are not escaped again", "<zelmora a='7&quot; &lt;&amp;&#59;'/>",
        R"(zelmora:
{
    a = "7" <&;";
};

)",
        R"(
<zelmora
    a = "7" <&;">
</zelmora>
)");
    row("an element without settings is left out of the brace form alone", "<zelmora a='1'><doc/></zelmora>",
        goodFileWritten, "\n<zelmora\n    a = \"1\">\n\n    <doc>\n    </doc>\n</zelmora>\n");
    row("elements out of an entity", "<!DOCTYPE z [<!ENTITY e '<b y=\"1\" x=\"2\"/>'>]><z>&e;<c w='3' v='4'/></z>",
        R"(z:
{
    b:
    {
        y = "1";
        x = "2";
    };

    c:
    {
        w = "3";
        v = "4";
    };

};

)",
        R"(
<z>

    <b
        y = "1"
        x = "2">
    </b>

    <c
        w = "3"
        v = "4">
    </c>
</z>
)");
    row("a comment before the root element", "<!-- till 1 --><zelmora a='1'/>", "", "");
    row("a declaration before the root element", "<?xml version='1.0'?><zelmora a='1'/>", "", "");
    row("a file with an error", "<zelmora a='1'>", "", "");
}

void TestConfigWriter::bytesFromXml()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, brace);
    QFETCH(QByteArray, xml);

    OpenConfig config;
    read(config, text, "xml");
    QCOMPARE(difference(brace, written(config, "cfg")), QByteArray());
    QCOMPARE(difference(xml, written(config, "xml")), QByteArray());
}

void TestConfigWriter::encoding_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("value");
    const auto row = [](const char* name, const QByteArray& text, const QByteArray& key, const QByteArray& value) {
        QTest::newRow(name) << "zelmora: { " + text + "; };" << key << value;
    };

    row("UTF-8 stays", "citt\xC3\xA0 = \xE2\x82\xAC", "citt\xC3\xA0", "\xE2\x82\xAC");
    row("ISO-8859-1 becomes UTF-8", "citt\xE0 = caff\xE8 \xA4", "citt\xC3\xA0", "caff\xC3\xA8 \xC2\xA4");
    row("a cut UTF-8 sequence becomes two characters", "a = \"\xC3\"", "a", "\xC3\x83");
    row("the noncharacter U+FFFE", "a = \xEF\xBF\xBE", "a", "\xEF\xBF\xBE");
    row("control characters stay", "a = \x01\x7F\x1A", "a", "\x01\x7F\x1A");
    row("a NUL stays",
        QByteArray("a = 1\0"
                   "2",
                   7),
        "a",
        QByteArray("1\0"
                   "2",
                   3));
    row("a NUL for a name", QByteArray("\0 = 1", 5), QByteArray(1, '\0'), "1");
    row("byte-order marks at the beginning are dropped",
        "\xEF\xBB\xBF\xEF\xBB\xBF"
        "a = \xEF\xBB\xBF\xEF\xBB\xBF"
        "1",
        "a", "1");
    row("byte-order marks elsewhere stay",
        "a\xEF\xBB\xBF = \"\xEF\xBB\xBF"
        "1\xEF\xBB\xBF\"",
        "a\xEF\xBB\xBF",
        "\xEF\xBB\xBF"
        "1\xEF\xBB\xBF");
}

void TestConfigWriter::encoding()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, value);

    OpenConfig config;
    read(config, text);
    const QByteArray setting = "    " + name + " = \"" + value + '"';
    QCOMPARE(written(config, "cfg"), "zelmora: \n{\n" + setting + ";\n};\n\n");
    QCOMPARE(written(config, "xml"), "\n<zelmora\n" + setting + ">\n</zelmora>\n");
}

void TestConfigWriter::emptyPathIsTheFileRead_data()
{
    QTest::addColumn<QString>("empty");

    QTest::newRow("an empty text") << "";
    QTest::newRow("a null text") << QString();
}

void TestConfigWriter::emptyPathIsTheFileRead()
{
    QFETCH(QString, empty);

    const QByteArray text = "zelmora:{a=1;};";
    OpenConfig config;
    read(config, text);
    config.buildConfigFile(path("other"));
    QCOMPARE(fileContents(path("zelmora.conf")), text);
    QCOMPARE(fileContents(path("other")), goodFileWritten);

    config.buildConfigFile(empty); // not the file written last
    QCOMPARE(fileContents(path("zelmora.conf")), goodFileWritten);
    config.buildConfigXmlFile(empty);
    QCOMPARE(fileContents(path("zelmora.conf")), QByteArray("\n<zelmora\n    a = \"1\">\n</zelmora>\n"));
    QCOMPARE(config.lookup("zelmora.a"), QString("1"));
    QCOMPARE(filesInTheFolder(), (QStringList {"other", "zelmora.conf"}));
}

void TestConfigWriter::consecutiveWritesAreIdentical()
{
    OpenConfig config;
    read(config, "zelmora: { doc: { row: { a = 1; }; }; b = 2; };");
    const QByteArray brace = written(config, "cfg");
    const QByteArray xml = written(config, "xml");
    QVERIFY(brace.startsWith("zelmora: \n{\n    b"));
    QVERIFY(xml.startsWith("\n<zelmora\n    b"));
    QCOMPARE(written(config, "cfg"), brace);
    QCOMPARE(written(config, "xml"), xml);

    const Config another(path("zelmora.conf"), "cfg");
    QCOMPARE(written(another, "cfg"), brace);

    // The same without a file, and after a write that failed.
    config.buildConfigFile(path("missing/zelmora.conf"));
    QString text;
    QTextStream out(&text);
    config.buildConfigFile(config.rootElement().firstChild(), out);
    config.buildConfigFile(config.rootElement().firstChild(), out);
    QCOMPARE(text, QString(brace + brace));
    text.clear();
    config.buildConfigXmlFile(config.rootElement().firstChild(), out);
    config.buildConfigXmlFile(config.rootElement().firstChild(), out);
    QCOMPARE(text, QString(xml + xml));
    text.clear();
    config.buildConfigFile(config.rootElement().firstChild().firstChild(), out);
    QCOMPARE(text, QString("doc: \n{\n    row: \n    {\n        a = \"1\";\n    };\n\n};\n\n"));
}

// It has no order of its own: its attributes come in that of their names, in every process.
void TestConfigWriter::elementOfAnotherDocument()
{
    QDomDocument document;
    QDomElement element = document.createElement("doc");
    document.appendChild(element);
    QString settings;
    for (int i = 10; i < 30; ++i) {
        element.setAttribute("n" + QString::number(39 - i), i);
        settings += QString("    n%1 = \"%2\";\n").arg(i).arg(39 - i);
    }
    element.appendChild(document.createTextNode("text"));
    element.appendChild(document.createElement("none"));

    const Config config;
    QString text;
    QTextStream out(&text);
    config.buildConfigFile(element, out);
    QCOMPARE(text, "doc: \n{\n" + settings + "};\n\n");
    text.clear();
    config.buildConfigXmlFile(element, out);
    settings.replace(";\n", "\n").chop(1);
    QCOMPARE(text, "\n<doc\n" + settings + ">\n\n    <none>\n    </none>\n</doc>\n");
}

void TestConfigWriter::nodeThatIsNoElement()
{
    QDomDocument document;
    const Config config;
    QString text;
    QTextStream out(&text);
    for (const QDomNode& node : {QDomNode(), QDomNode(document), QDomNode(document.createTextNode("text")),
                                 QDomNode(document.createComment("text"))}) {
        config.buildConfigFile(node, out);
        config.buildConfigXmlFile(node, out);
        QCOMPARE(captured(stdout, [&] { config.printConfigTree(node); }), QByteArray());
    }
    QCOMPARE(text, QString());
}

void TestConfigWriter::nothingLoaded()
{
    const Config config;
    writeBytes(path("old"), "old");
    const QString previousFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder->path()));
    const QByteArray output = captured(stdout, [&] {
        config.buildConfigFile("");
        config.buildConfigXmlFile(QString());
        config.buildConfigFile(path("old"));
        config.buildConfigXmlFile(path("new"));
    });
    const QStringList files = filesInTheFolder();
    QVERIFY(QDir::setCurrent(previousFolder));

    QCOMPARE(output, QByteArray());
    QCOMPARE(files, (QStringList {"new", "old"}));
    QCOMPARE(fileContents(path("old")), QByteArray());
    QCOMPARE(fileContents(path("new")), QByteArray());
    QCOMPARE(captured(stdout, [&] { config.printConfigTree(); }), QByteArray("Tree \n"));
}

void TestConfigWriter::unknownFormatWritesNothing()
{
    OpenConfig config;
    read(config, goodFile);
    for (const char* format : {"", "CFG", "ini", "xml "}) {
        QCOMPARE(config.writeFile(QString(), format), QString());
        QCOMPARE(config.writeFile(path("new"), format), QString());
    }
    QCOMPARE(fileContents(path("zelmora.conf")), QByteArray(goodFile));
    QCOMPARE(filesInTheFolder(), QStringList("zelmora.conf"));
}

void TestConfigWriter::order_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("hashSeed");

    for (const char* format : {"cfg", "xml"}) {
        for (const char* seed : {"0", "1", "2", "12345", "", "random"}) // without one it is random
            QTest::addRow("%s, the toolkit's hash seed '%s'", format, seed) << format << seed;
    }
}

// The toolkit keeps attributes in the order of a hash, which is another in every process.
void TestConfigWriter::order()
{
    QFETCH(QString, format);
    QFETCH(QString, hashSeed);

    QByteArray braceInput = "zelmora: { ";
    QByteArray xmlInput = "<zelmora";
    QByteArray brace = "zelmora: \n{\n";
    QByteArray xml = "\n<zelmora";
    QByteArray dump;
    for (int i = 0; i < 40; ++i) {
        const QByteArray name = "k" + QByteArray::number(i * 7 % 40);
        braceInput += name + "=1; ";
        xmlInput += ' ' + name + "='1'";
        brace += "    " + name + " = \"1\";\n";
        xml += "\n    " + name + " = \"1\"";
        dump += name + " = 1\n";
    }
    const QString file = path("zelmora.conf");
    writeBytes(file, format == "cfg" ? braceInput + "};" : xmlInput + "/>");
    const QByteArray expected =
        brace + "};\n\n" + xml + ">\n</zelmora>\nTree \n" + file.toUtf8() + "\nzelmora\n" + dump;

    const QStringList variables = hashSeed.isEmpty() ? QStringList() : QStringList("QT_HASH_SEED=" + hashSeed);
    QCOMPARE(difference(expected, outputOfProcess(file, qPrintable(format), variables)), QByteArray());
}

// What one tree leaves behind is nothing to the next.
void TestConfigWriter::readingAgainHasItsOwnOrder()
{
    OpenConfig config;
    for (int i = 0; i < 200; ++i) {
        read(config, i % 2 == 0 ? "zelmora: { z = 1; m = 2; a = 3; };" : "zelmora: { a = 1; z = 2; m = 3; };");
        const QStringList expected = i % 2 == 0 ? QStringList {"z", "m", "a"} : QStringList {"a", "z", "m"};
        QCOMPARE(config.settingNames(config.rootElement().firstChildElement()), expected);
    }
    read(config, "<zelmora z='1'/>", "xml");
    read(config, "<zelmora a='1'", "xml");
    QCOMPARE(written(config, "xml"), QByteArray());
    QCOMPARE(config.lookup("zelmora.z"), QString());
}

void TestConfigWriter::manyAttributesKeepTheirOrder()
{
    QByteArray attributes;
    QByteArray settings;
    for (int i = 0; i < 5000; ++i) {
        const QByteArray name = (i % 3 == 0 ? "xmlns:n" : "n") + QByteArray::number(i * 7919 % 5000);
        attributes += ' ' + name + "='" + QByteArray::number(i) + '\'';
        settings += "    " + name + " = \"" + QByteArray::number(i) + "\";\n";
    }
    OpenConfig config;
    read(config, "<zelmora" + attributes + "/>", "xml");
    QVERIFY(written(config, "cfg") == "zelmora: \n{\n" + settings + "};\n\n");
}

void TestConfigWriter::missingPlace_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("the folder is missing") << "missing/zelmora.conf";
    QTest::newRow("a folder stands in its place") << "folder";
    QTest::newRow("a folder, with a slash") << "folder/";
    QTest::newRow("a file stands in the folder's place") << "zelmora.conf/other";
    QTest::newRow("the name is too long") << QString(300, 'x');
}

void TestConfigWriter::missingPlace()
{
    QFETCH(QString, name);

    OpenConfig config;
    read(config, goodFile);
    QVERIFY(QDir(folder->path()).mkdir("folder"));
    writeBytes(path("folder/inside"), "old");

    QByteArray errors;
    const QByteArray output = captured(stdout, [&] {
        errors = captured(stderr, [&] {
            config.buildConfigFile(path(name));
            config.buildConfigXmlFile(path(name));
        });
    });
    QCOMPARE(output, QByteArray());
    QCOMPARE(errors, QByteArray());
    QVERIFY(!config.writeFile(path(name), "cfg").isEmpty());
    QCOMPARE(filesInTheFolder(), (QStringList {"folder", "zelmora.conf"}));
    QCOMPARE(QDir(path("folder")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList("inside"));
    QCOMPARE(fileContents(path("zelmora.conf")), QByteArray(goodFile));
}

void TestConfigWriter::whatTheFileWasStays()
{
    OpenConfig config;
    read(config, goodFile);
    setPermissions(path("zelmora.conf"), 0600);
    makeLink("zelmora.conf", path("link"));
    config.buildConfigFile(path("link"));
    QVERIFY(S_ISLNK(fileStatus(path("link")).st_mode));
    QCOMPARE(permissionsOf(path("zelmora.conf")), mode_t(0600));
    QCOMPARE(fileContents(path("zelmora.conf")), goodFileWritten);
    QCOMPARE(filesInTheFolder(), (QStringList {"link", "zelmora.conf"}));
}

void TestConfigWriter::pipe()
{
    OpenConfig config;
    read(config, goodFile);
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")), 0600), 0);
    const PipeReader reader(path("pipe"), PipeReader::Waiting::No);
    config.buildConfigFile(path("pipe"));
    QCOMPARE(reader.newBytes(), goodFileWritten);
    QVERIFY(S_ISFIFO(fileStatus(path("pipe")).st_mode));
}

// The machine's own device: an ordinary user can't do it any harm, whatever is wrong here.
void TestConfigWriter::fullDevice()
{
    OpenConfig config;
    read(config, goodFile);
    setPermissions(folder->path(), 0777);
    const OrdinaryUser someone;
    makeLink("/dev/full", path("full"));
    QCOMPARE(captured(stdout, [&] { config.buildConfigFile(path("full")); }), QByteArray());
    QCOMPARE(config.writeFile(path("full"), "cfg"), QString("No space left on device"));
    QCOMPARE(filesInTheFolder(), (QStringList {"full", "zelmora.conf"}));
}

void TestConfigWriter::folderThatMayNotBeWritten()
{
    OpenConfig config;
    read(config, "zelmora: { a = 1; };" + QByteArray(1000, ' '));
    setPermissions(path("zelmora.conf"), 0666);
    setPermissions(folder->path(), 0555);
    {
        const OrdinaryUser someone;
        config.buildConfigFile("");
        QCOMPARE(fileContents(path("zelmora.conf")), goodFileWritten);
        config.buildConfigXmlFile("");
        QCOMPARE(config.writeFile(path("zelmora.conf"), "xml"), QString());
        QCOMPARE(config.writeFile(path("new"), "cfg"), QString("Permission denied"));
    }
    setPermissions(folder->path(), 0755);
    QCOMPARE(fileContents(path("zelmora.conf")), QByteArray("\n<zelmora\n    a = \"1\">\n</zelmora>\n"));
    QCOMPARE(filesInTheFolder(), QStringList("zelmora.conf"));
}

void TestConfigWriter::fileSizeLimit_data()
{
    QTest::addColumn<int>("size");

    QTest::newRow("a few bytes") << 10;
    QTest::newRow("a value of a megabyte") << 1000000;
}

// As on a full disk: the write fails in its middle.
void TestConfigWriter::fileSizeLimit()
{
    QFETCH(int, size);

    OpenConfig config;
    read(config, "zelmora: { a = " + QByteArray(size, 'x') + "; };");
    writeBytes(path("old"), "old");
    QByteArray output;
    QString reason;
    {
        const FileSizeLimit limit(static_cast<rlim_t>(size));
        config.buildConfigFile("");
        config.buildConfigXmlFile(path("old"));
        config.buildConfigFile(path("new"));
        reason = config.writeFile(path("old"), "cfg");
    }
    QCOMPARE(reason, QString("File too large"));
    QCOMPARE(filesInTheFolder(), (QStringList {"old", "zelmora.conf"}));
    QCOMPARE(fileContents(path("old")), QByteArray("old"));
    QVERIFY(fileContents(path("zelmora.conf")) == "zelmora: { a = " + QByteArray(size, 'x') + "; };");

    sigset_t pending;
    sigset_t blocked;
    QCOMPARE(sigpending(&pending), 0);
    QCOMPARE(pthread_sigmask(SIG_SETMASK, nullptr, &blocked), 0);
    QVERIFY(!sigismember(&pending, SIGXFSZ) && !sigismember(&blocked, SIGXFSZ));
    QCOMPARE(config.writeFile(path("old"), "cfg"), QString());
    QVERIFY(fileContents(path("old")).startsWith("zelmora: \n"));
}

void TestConfigWriter::failedSync()
{
    OpenConfig config;
    read(config, goodFile);
    const InterceptedCall fault("fsync", [] { return EIO; });
    QCOMPARE(captured(stdout, [&] { config.buildConfigFile(""); }), QByteArray());
    QCOMPARE(config.writeFile(QString(), "cfg"), QString("Input/output error"));
    QCOMPARE(fileContents(path("zelmora.conf")), QByteArray(goodFile));
    QCOMPARE(filesInTheFolder(), QStringList("zelmora.conf"));
}

namespace {

/// As deep as the reader goes about, in as many groups: each line of @p inside is indented by almost four kilobytes.
QByteArray deepFile(const QByteArray& inside)
{
    return QByteArray("g:{").repeated(990) + inside + QByteArray("};").repeated(990);
}

} // namespace

void TestConfigWriter::moreThanTwoGigabytes_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("groups");

    QTest::newRow("in the brace format, four lines for each group") << "cfg" << 140000;
    QTest::newRow("in XML, three lines for each group") << "xml" << 190000;
}

void TestConfigWriter::moreThanTwoGigabytes()
{
    QFETCH(QString, format);
    QFETCH(int, groups);

    const QByteArray text = deepFile(QByteArray("g:{a=;};").repeated(groups));
    OpenConfig config;
    read(config, text);
    QVERIFY(config.rootElement().hasChildNodes()); // the tree itself may take more
    const MemoryLimit limit(200 << 20);
    QCOMPARE(config.writeFile(QString(), format), QString("the settings are larger than 2 GiB"));
    QVERIFY(fileContents(path("zelmora.conf")) == text);
    QCOMPARE(filesInTheFolder(), QStringList("zelmora.conf"));
}

void TestConfigWriter::moreThanMemoryHolds()
{
    const QByteArray text = deepFile(QByteArray("g:{a=;};").repeated(60000)); // 950 megabytes when written
    OpenConfig config;
    read(config, text);
    QVERIFY(config.rootElement().hasChildNodes());
    const MemoryLimit limit(200 << 20);
    QCOMPARE(captured(stdout, [&] { config.buildConfigFile(""); }), QByteArray());
    QCOMPARE(config.writeFile(QString(), "cfg"), QString("Cannot allocate memory"));
    QVERIFY(fileContents(path("zelmora.conf")) == text);
    QCOMPARE(filesInTheFolder(), QStringList("zelmora.conf"));
}

// It is made when it is asked for, and again when there is room for it.
void TestConfigWriter::treeThatMemoryDoesNotHold()
{
    const QByteArray text = deepFile(QByteArray("g:{a=;};").repeated(20000));
    OpenConfig config;
    read(config, text);
    {
        const MemoryLimit limit(1 << 20);
        QCOMPARE(config.writeFile(QString(), "cfg"), QString("Cannot allocate memory"));
    }
    QVERIFY(fileContents(path("zelmora.conf")) == text);
    QCOMPARE(filesInTheFolder(), QStringList("zelmora.conf"));
    QVERIFY(config.rootElement().hasChildNodes());
}

void TestConfigWriter::streamThatFails_data()
{
    QTest::addColumn<QByteArray>("text");

    QByteArray settings;
    for (int i = 0; i < 50000; ++i)
        settings += 'a' + QByteArray::number(i) + "=;";
    QTest::newRow("with many groups to come") << deepFile(QByteArray("g:{a=;};").repeated(20000));
    QTest::newRow("with many settings to come") << deepFile(settings);
}

// Such a stream would keep in memory all that it is given.
void TestConfigWriter::streamThatFails()
{
    QFETCH(QByteArray, text);

    OpenConfig config;
    read(config, text);
    QFile full("/dev/full");
    QVERIFY(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    const QDomNode group = config.rootElement().firstChild();
    const MemoryLimit limit(100 << 20);
    const std::size_t before = allocatedBytes();
    QTextStream brace(&full);
    config.buildConfigFile(group, brace);
    QTextStream xml(&full);
    config.buildConfigXmlFile(group, xml);
    QCOMPARE(brace.status(), QTextStream::WriteFailed);
    QCOMPARE(xml.status(), QTextStream::WriteFailed);
    QVERIFY(allocatedBytes() < before + (10 << 20));
}

void TestConfigWriter::dump_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected"); // after the path
    const auto row = [](const char* name, const char* text, const char* format, const char* expected) {
        QTest::newRow(name) << text << format << expected;
    };

    row("settings and groups in their order",
        "z = 1; zelmora: { doc: { b = 2; a = 3; }; c = \" 4 \"; lang: { d = ; }; };", "cfg",
        "z = 1\nzelmora\nc =  4 \ndoc\nb = 2\na = 3\nlang\nd = \n");
    row("all top-level groups", "zelmora: { a = 1; }; other: { b = 2; };", "cfg", "zelmora\na = 1\nother\nb = 2\n");
    row("a repeated setting", "zelmora: { b = 1; a = 2; b = 3; };", "cfg", "zelmora\nb = 3\na = 2\n");
    row("a group without settings", "zelmora: { doc: { none: { }; }; };", "cfg", "zelmora\ndoc\n");
    row("no names", ": { = ; };", "cfg", "\n = \n");
    row("an XML file", "<zelmora b='1' a='2'>text<!-- c --><doc d='&lt;'/></zelmora>", "xml",
        "zelmora\nb = 1\na = 2\ndoc\nd = <\n");
}

void TestConfigWriter::dump()
{
    QFETCH(QString, text);
    QFETCH(QString, format);
    QFETCH(QString, expected);

    OpenConfig config;
    read(config, text.toUtf8(), qPrintable(format));
    const QByteArray output = captured(stdout, [&] { config.printConfigTree(); });
    QCOMPARE(QString(output), "Tree \n" + path("zelmora.conf") + '\n' + expected);
}

void TestConfigWriter::dumpOfAnElement()
{
    OpenConfig config;
    read(config, "zelmora: { doc: { b = 2; a = 3; }; };");
    const QDomNode group = config.rootElement().firstChild().firstChild();
    QCOMPARE(captured(stdout, [&] { config.printConfigTree(group); }), QByteArray("doc\nb = 2\na = 3\n"));

    QDomDocument document;
    QDomElement element = document.createElement("doc");
    element.setAttribute("a", "1");
    QCOMPARE(captured(stdout, [&] { config.printConfigTree(element); }), QByteArray("doc\na = 1\n"));
}

void TestConfigWriter::dumpInTheLocalesEncoding_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray utf8 = "men\xC3\xB9\ncaff\xC3\xA8 = \xE2\x82\xAC \xE6\xBC\xA2\n";
    QTest::newRow("in a UTF-8 locale") << "C.UTF-8" << utf8;
    QTest::newRow("in the C locale") << "C" << utf8;
    QTest::newRow("in an 8-bit locale") << "it_IT.ISO-8859-15" << QByteArray("men\xF9\ncaff\xE8 = \xA4 ?\n");
}

// A process keeps its locale's encoding. The files are in UTF-8 in all of them.
void TestConfigWriter::dumpInTheLocalesEncoding()
{
    QFETCH(QString, locale);
    QFETCH(QByteArray, expected);

    const QString file = path("zelmora.conf");
    writeBytes(file, QString("menù: { caffè = € 漢; };").toUtf8());
    const QByteArray files = QString("menù: \n{\n    caffè = \"€ 漢\";\n};\n\n"
                                     "\n<menù\n    caffè = \"€ 漢\">\n</menù>\n")
                                 .toUtf8();
    QCOMPARE(outputOfProcess(file, "cfg", {"LC_ALL=" + locale}), files + "Tree \n" + file.toUtf8() + '\n' + expected);
}

void TestConfigWriter::unwritableValue_data()
{
    QTest::addColumn<QByteArray>("value"); // as XML has it
    QTest::addColumn<QStringList>("readBack");

    QTest::newRow("a quote is lost") << QByteArray("7&quot; x 5&quot;")
                                     << QStringList {"1 zelmora:", "2 a = 7 x 5", "2 b = 2"};
    QTest::newRow("a semicolon ends the value, the rest becomes part of the next name")
        << QByteArray("one;two") << QStringList {"1 zelmora:", "2 a = one", "2 two\";\n    b = 2"};
}

void TestConfigWriter::unwritableValue()
{
    QFETCH(QByteArray, value);
    QFETCH(QStringList, readBack);

    OpenConfig config;
    read(config, "<zelmora a='" + value + "' b='2'/>", "xml");
    config.buildConfigFile("");
    QCOMPARE(treeLines(OpenConfig(path("zelmora.conf"), "cfg")), readBack);
}

void TestConfigWriter::exampleIsWrittenAsItIs()
{
    const QByteArray example = fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf");
    QVERIFY(example.startsWith("zelmora: \n{\n    language: \n"));
    OpenConfig config;
    read(config, example);
    QCOMPARE(difference(example, written(config, "cfg")), QByteArray());

    config.buildConfigXmlFile(path("zelmora.xml"));
    const OpenConfig xml(path("zelmora.xml"), "xml");
    QCOMPARE(treeLines(xml), treeLines(config));
    QCOMPARE(xml.lookup("zelmora.fiscaldoc.descriptionWidth"), QString("24"));
    QCOMPARE(difference(example, written(xml, "cfg")), QByteArray());
}

/// Read, write, read, write: the tree that is read back is that which can last, and the second file is the first.
void TestConfigWriter::checkWritesIdentically(const QByteArray& text, const char* format)
{
    OpenConfig first;
    read(first, text, format);
    const QByteArray firstWritten = written(first, format);
    const OpenConfig second(path("written"), format);
    QCOMPARE(treeLines(second), lastingLines(first));
    QCOMPARE(difference(firstWritten, written(second, format)), QByteArray());
}

void TestConfigWriter::everyPrefixOfTheExampleReadsBack()
{
    const QByteArray example = fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf");
    QVERIFY(example.size() > 5000);
    for (int size = 0; size <= example.size(); ++size) {
        checkWritesIdentically(example.left(size), "cfg");
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(size)));
    }
}

void TestConfigWriter::generatedFilesReadBack_data()
{
    QTest::addColumn<bool>("xmlToo");

    QTest::newRow("of every kind") << false;
    QTest::newRow("through XML and back") << true;
}

void TestConfigWriter::generatedFilesReadBack()
{
    QFETCH(bool, xmlToo);

    Generator generator(20, xmlToo ? Generator::Alphabet::WhatXmlAllows : Generator::Alphabet::All);
    for (int file = 0; file < 3000; ++file) {
        const QByteArray text = generator.file();
        checkWritesIdentically(text, "cfg");
        const OpenConfig config(path("zelmora.conf"), "cfg");
        if (!QTest::currentTestFailed())
            QCOMPARE(lastingLines(config), generator.lines);
        if (xmlToo && !QTest::currentTestFailed()) {
            const QByteArray brace = written(config, "cfg");
            config.buildConfigXmlFile(path("zelmora.xml"));
            const OpenConfig xml(path("zelmora.xml"), "xml");
            QCOMPARE(treeLines(xml), treeLines(config));
            QCOMPARE(difference(brace, written(xml, "cfg")), QByteArray());
        }
        QVERIFY2(!QTest::currentTestFailed(), text.toPercentEncoding(" {}=:;\"\n"));
    }
}

void TestConfigWriter::randomBytesReadBack_data()
{
    QTest::addColumn<QByteArray>("common");

    QTest::newRow("around the marks of the format")
        << QByteArray(":::{{{}};;;===\" .\nga\xC3\xA8\xE8\xEF\xBB\xBF") + '\0';
    QTest::newRow("that are mostly settings") << QByteArray("a=b;c=d;\"\n {}\xC2\xA0");
    QTest::newRow("that are mostly groups") << QByteArray(":{:{=;};}; a\xEF\xBB\xBF\xE8");
}

void TestConfigWriter::randomBytesReadBack()
{
    QFETCH(QByteArray, common);

    std::mt19937 random(20);
    const auto below = [&random](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    for (int file = 0; file < 1500; ++file) {
        const int size = below(400);
        const int rareInTwenty = below(10);
        QByteArray bytes;
        while (bytes.size() < size)
            bytes += below(20) < rareInTwenty ? static_cast<char>(below(256)) : common.at(below(common.size()));
        checkWritesIdentically(bytes, "cfg");
        QVERIFY2(!QTest::currentTestFailed(), bytes.toPercentEncoding(" {}=:;\"\n"));
    }
}

// Each level would be searched for settings again and again.
void TestConfigWriter::manyGroupsWithoutSettings()
{
    OpenConfig config;
    read(config,
         QByteArray("g: { ").repeated(990) + QByteArray("none: { none: { }; }; ").repeated(100000)
             + "last: { a = 1; }; ");
    const QByteArray bytes = written(config, "cfg");
    QCOMPARE(bytes.count("none"), 0);
    QCOMPARE(bytes.count("g: \n"), 990);
    QCOMPARE(bytes.count("a = \"1\";\n"), 1);
}

void TestConfigWriter::deepNesting()
{
    const QByteArray text = QByteArray("g: { a = 1; ").repeated(1000) + QByteArray("}; ").repeated(1000);
    checkWritesIdentically(text, "cfg");
    OpenConfig config;
    read(config, text);
    QCOMPARE(written(config, "cfg").count("g: \n"), 1000);
    config.buildConfigXmlFile(path("zelmora.xml"));
    QCOMPARE(OpenConfig(path("zelmora.xml"), "xml").lookup(QString("g.").repeated(1000) + 'a'), QString("1"));
}

namespace {

int writeInThisProcess(const QString& file, const QString& format)
{
    const QTemporaryDir folder;
    const Config config(file, format);
    config.buildConfigFile(folder.filePath("brace"));
    config.buildConfigXmlFile(folder.filePath("xml"));
    const QByteArray bytes = fileContents(folder.filePath("brace")) + fileContents(folder.filePath("xml"));
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    config.printConfigTree();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments.at(1) == writeOnly)
        return writeInThisProcess(arguments.at(2), arguments.at(3));
    TestConfigWriter test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_configwriter.moc"
