// Reads a settings file into the tree. The brace format, character by character:
//
//     group   = name ":" ... "{" { setting | group } "}" ... ";"      (what stands at the dots is ignored)
//     setting = key "=" value ";"                                     (quotes in the value are dropped)
//
// A file is one level without braces around it. Names, keys and values lose their outer white space. There is no
// comment syntax, and nothing is ever an error.

#include "config/config.h"

#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/xmlreader.h"

#include <QFile>
#include <QTextCodec>
#include <QVector>
#include <QXmlDefaultHandler>

#include <algorithm>
#include <string>
#include <utility>

using toolkit::operator""_L1;

namespace libconfig {

namespace {

/// Each group is one level of recursion; deeper files are read up to here.
const int greatestGroupDepth = 1000;

/// The names of the attributes of each element of an XML file, both in the order of the file; a repeated name once.
/// Its earlier values, which are lost, are kept apart.
class OrderOfAttributes : public QXmlDefaultHandler {
public:
    bool startElement(const QString&, const QString&, const QString&, const QXmlAttributes& attributes) override
    {
        QHash<QString, QString> values;
        names += QStringList();
        for (int i = 0; i < attributes.count(); ++i) {
            const QString name = attributes.qName(i);
            if (values.contains(name))
                earlierValues += name + " = "_L1 + values.value(name);
            else
                names.last() += name;
            values.insert(name, attributes.value(i));
        }
        return true;
    }

    QVector<QStringList> names;
    QStringList earlierValues;
};

/// Bytes of the file as text: UTF-8 where they are that, ISO-8859-1 otherwise.
QString decoded(const std::string& bytes)
{
    const int size = static_cast<int>(bytes.size());
    // Nearly all of them are plain ASCII, which needs no converter.
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    if (!std::all_of(bytes.begin(), bytes.end(), isAscii)) {
        QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
        const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), size, &state);
        if (state.invalidChars == 0 && state.remainingChars == 0)
            return text;
    }
    return QString::fromLatin1(bytes.data(), size);
}

/// As decoded(), without outer white space and without byte-order marks at its start: all of them, so that what is
/// written and read again stays the same.
QString strippedText(const std::string& bytes)
{
    QString text = decoded(bytes).trimmed();
    while (text.startsWith(QChar::ByteOrderMark))
        text = text.mid(1).trimmed();
    return text;
}

/// Whether @p value has other quotes than a pair around it.
bool losesQuotes(const QString& value)
{
    const QLatin1Char quote('"');
    const bool quoted = value.size() > 1 && value.startsWith(quote) && value.endsWith(quote);
    return (quoted ? value.mid(1, value.size() - 2) : value).contains(quote);
}

} // namespace

bool Config::openFile()
{
    return openFile(fileName);
}

bool Config::openFile(const QString& name)
{
    // The 8-bit form of the path first; where the file system spells the path otherwise, that second.
    const QByteArray eightBit = name.toLatin1();
    const QByteArray native = QFile::encodeName(name);
    stream.reset(std::fopen(eightBit.constData(), "rb"));
    if (!stream && native != eightBit)
        stream.reset(std::fopen(native.constData(), "rb"));
    if (stream)
        return true;
    toolkit::writeLine("Error in the method FileReader::open( " + toolkit::localeText(name) + " ): File Not Found");
    return false;
}

void Config::closeFile()
{
    stream.reset();
}

int Config::nextCharacter()
{
    // Not locked for each byte: a Config is loaded by one thread.
    return stream ? getc_unlocked(stream.get()) : EOF;
}

bool Config::jump(char target)
{
    std::string passed;
    int character = nextCharacter();
    for (; character != EOF && character != static_cast<unsigned char>(target); character = nextCharacter()) {
        if (dropped)
            passed += static_cast<char>(character);
    }
    noteDropped(passed);
    return character != EOF;
}

void Config::noteDropped(const std::string& bytes)
{
    if (!dropped)
        return;
    const QString text = strippedText(bytes);
    if (!text.isEmpty())
        *dropped += text;
}

void Config::loadFile()
{
    openFile();
    groupDepth = 0;
    if (readLevel(newElement(*document, fileName), *document) == LevelEnd::EndOfInput)
        closeFile();
    else if (dropped)
        noteDropped(restOfInput());
}

void Config::loadFile(const QString& name, QDomNode parent)
{
    const int settingsBefore = settingCount;
    if (groupDepth == greatestGroupDepth) {
        if (dropped)
            noteDropped(restOfInput());
        closeFile(); // all levels end, as they do at the end of input
    } else {
        ++groupDepth;
        readLevel(newElement(*document, name), parent);
        --groupDepth;
    }
    if (dropped && !name.isEmpty() && settingCount == settingsBefore)
        *dropped += name;
}

/// Reads one level into @p element, which joins @p parent with the first setting or group found: a level that
/// holds nothing leaves no trace.
Config::LevelEnd Config::readLevel(QDomElement element, QDomNode parent)
{
    bool joined = false;
    const auto join = [&] {
        if (!std::exchange(joined, true))
            parent.appendChild(element);
    };
    QStringList names;
    std::string buffer;
    for (int character = nextCharacter(); character != EOF; character = nextCharacter()) {
        switch (character) {
        case ':':
            jump('{');
            join();
            loadFile(strippedText(buffer), element);
            buffer.clear();
            break;
        case '=':
            setSetting(element, names, strippedText(buffer), readValue());
            join();
            buffer.clear();
            break;
        case '}':
            noteDropped(buffer);
            setOrder(element, names);
            jump(';');
            return LevelEnd::Brace;
        default:
            buffer += static_cast<char>(character);
        }
    }
    noteDropped(buffer);
    setOrder(element, names);
    return LevelEnd::EndOfInput;
}

std::string Config::restOfInput()
{
    std::string rest;
    for (int character = nextCharacter(); character != EOF; character = nextCharacter())
        rest += static_cast<char>(character);
    return rest;
}

QString Config::readValue()
{
    std::string bytes;
    for (int character = nextCharacter(); character != EOF && character != ';'; character = nextCharacter())
        bytes += static_cast<char>(character);
    QString value = strippedText(bytes);
    if (dropped && losesQuotes(value))
        *dropped += value;
    return value.remove(QLatin1Char('"'));
}

void Config::loadXmlFile()
{
    QFile file(fileName);
    // A first pass within the reader's bounds: what it accepts cannot overflow the stack in the second.
    OrderOfAttributes order;
    if (!toolkit::readXml(file, order, toolkit::NamespaceDeclarations::Keep) || !file.seek(0)
        || !document->setContent(&file, false)) {
        newDocument();
        if (dropped && file.isOpen() && file.seek(0))
            noteDropped(file.readAll().toStdString());
        return;
    }
    int next = 0;
    setOrderBelow(*document, order.names, next);

    const QDomNode first = document->firstChild();
    QDomElement root = newElement(*document, fileName);
    root.appendChild(first);
    // Before what is left where the file does not begin with its root element: that is out of reach.
    document->insertBefore(root, document->firstChild());
    if (dropped) {
        *dropped += order.earlierValues;
        if (!document->doctype().name().isEmpty())
            *dropped += "DOCTYPE "_L1 + document->doctype().name();
        noteDroppedNodes(*document);
    }
}

/// Of an XML file what is neither a group with settings nor a setting, and what is out of reach. Whether @p parent
/// holds a setting.
bool Config::noteDroppedNodes(const QDomNode& parent)
{
    bool holdsSetting = parent.hasAttributes();
    for (QDomNode node = parent.firstChild(); !node.isNull(); node = node.nextSibling()) {
        const bool outOfReach = parent.isDocument() && node != rootElement();
        if (!node.isElement() || outOfReach)
            *dropped += node.nodeValue().isEmpty() ? node.nodeName() : node.nodeValue().trimmed();
        else if (noteDroppedNodes(node))
            holdsSetting = true;
        else if (node != rootElement())
            *dropped += node.nodeName();
    }
    return holdsSetting;
}

} // namespace libconfig
