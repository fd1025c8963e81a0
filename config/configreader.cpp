// Reads a settings file into the tree. The brace format, character by character:
//
//     group   = name ":" ... "{" { setting | group } "}" ... ";"      (what stands at the dots is ignored)
//     setting = key "=" value ";"                                     (quotes in the value are dropped)
//
// A file is one level without braces around it. Names, keys and values lose their outer white space. There is no
// comment syntax, and nothing is ever an error.

#include "config/config.h"

#include "toolkit/console.h"
#include "toolkit/localecodec.h"
#include "toolkit/xmlreader.h"

#include <QFile>
#include <QTextCodec>
#include <QXmlDefaultHandler>

#include <algorithm>
#include <string>
#include <utility>

namespace libconfig {

namespace {

/// Each group is one level of recursion; deeper files are read up to here.
const int greatestGroupDepth = 1000;

/// Bytes of the file as text without outer white space: UTF-8 where they are that, ISO-8859-1 otherwise.
QString strippedText(const std::string& bytes)
{
    const int size = static_cast<int>(bytes.size());
    // Nearly all of them are plain ASCII, which needs no converter.
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    if (!std::all_of(bytes.begin(), bytes.end(), isAscii)) {
        QTextCodec::ConverterState state;
        const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), size, &state);
        if (state.invalidChars == 0 && state.remainingChars == 0)
            return text.trimmed();
    }
    return QString::fromLatin1(bytes.data(), size).trimmed();
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
    int character = 0;
    do
        character = nextCharacter();
    while (character != EOF && character != static_cast<unsigned char>(target));
    return character != EOF;
}

void Config::loadFile()
{
    openFile();
    groupDepth = 0;
    const QDomElement root = newElement(fileName); // first: a document without any element yet is a null node
    if (readLevel(root, *document) == LevelEnd::EndOfInput)
        closeFile();
}

void Config::loadFile(const QString& name, QDomNode parent)
{
    if (groupDepth == greatestGroupDepth) {
        closeFile(); // all levels end, as they do at the end of input
        return;
    }
    ++groupDepth;
    readLevel(newElement(name), parent);
    --groupDepth;
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
            element.setAttribute(strippedText(buffer), readValue());
            join();
            buffer.clear();
            break;
        case '}':
            jump(';');
            return LevelEnd::Brace;
        default:
            buffer += static_cast<char>(character);
        }
    }
    return LevelEnd::EndOfInput;
}

QString Config::readValue()
{
    std::string bytes;
    for (int character = nextCharacter(); character != EOF && character != ';'; character = nextCharacter())
        bytes += static_cast<char>(character);
    return strippedText(bytes).remove(QLatin1Char('"'));
}

void Config::loadXmlFile()
{
    QFile file(fileName);
    // A first pass within the reader's bounds: what it accepts cannot overflow the stack in the second.
    QXmlDefaultHandler nothing;
    if (!toolkit::readXml(file, nothing) || !file.seek(0))
        return;

    if (!document->setContent(&file, false)) {
        document->clear();
        return;
    }
    const QDomNode first = document->firstChild();
    QDomElement root = newElement(fileName);
    root.appendChild(first);
    document->appendChild(root);
}

} // namespace libconfig
