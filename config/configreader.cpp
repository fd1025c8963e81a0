// Makes the tree of a settings file: what the scanner of the brace format, or the reader of XML, says becomes groups
// and settings.

#include "config/config.h"

#include "config/attributeorder.h"
#include "config/bracescanner.h"
#include "config/settingsgroup.h"
#include "toolkit/console.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/xmlreader.h"

#include <QFile>
#include <QStack>
#include <QXmlDefaultHandler>

using toolkit::operator""_L1;

namespace libconfig {

bool Config::openFile()
{
    return openFile(fileName);
}

bool Config::openFile(const QString& name)
{
    // The 8-bit form of the path first; where the file system spells the path otherwise, that second.
    const QByteArray native = toolkit::fileName(name);
    const bool isText = toolkit::unusableName(name).isEmpty();
    const QByteArray eightBit = isText ? name.toLatin1() : native;
    std::FILE* file = std::fopen(eightBit.constData(), "rb");
    if (!file && native != eightBit)
        file = std::fopen(native.constData(), "rb");
    stream.reset(file ? new BraceScanner(file) : nullptr);
    if (stream)
        return true;
    const QByteArray shown = isText || native.isEmpty() ? toolkit::localeText(name) : native;
    toolkit::writeLine("Error in the method FileReader::open( " + shown + " ): File Not Found");
    return false;
}

void Config::closeFile()
{
    stream.reset();
}

bool Config::jump(char target)
{
    return stream && stream->skipTo(target);
}

void Config::loadFile()
{
    openFile();
    readTopLevel();
}

void Config::readTopLevel()
{
    settings->name = fileName;
    texts = stream ? stream->texts() : nullptr;
    if (readLevel(*settings) == LevelEnd::EndOfInput)
        closeFile();
}

void Config::loadFile(const QString& name, QDomNode parent)
{
    SettingsGroup group {name, {}, {}};
    readLevel(group);
    addGroup(group, parent, wholeTree());
}

/// Reads one level into @p group. A level that holds nothing leaves no trace in the one around it.
Config::LevelEnd Config::readLevel(SettingsGroup& group)
{
    for (;;) {
        const ScanEvent event = stream ? stream->next() : ScanEvent();
        switch (event.kind) {
        case ScanEvent::Kind::GroupBegins:
            group.holdsAnything = true;
            group.groups.push_back({event.text.text(), {}, {}});
            readLevel(group.groups.back());
            if (!group.groups.back().holdsAnything)
                group.groups.pop_back();
            break;
        case ScanEvent::Kind::Setting:
            group.holdsAnything = true;
            group.settings.push_back({ScannedName(event.text), event.value});
            break;
        case ScanEvent::Kind::Skipped:
            break;
        case ScanEvent::Kind::GroupEnds:
            return LevelEnd::Brace;
        case ScanEvent::Kind::EndOfInput:
            return LevelEnd::EndOfInput;
        }
    }
}

/// Makes groups of the elements of an XML file, and settings of their attributes, as they come.
class Config::XmlListener : public QXmlDefaultHandler {
public:
    explicit XmlListener(Config& config)
        : config(config)
    {
        groups.push(newElement(*config.tree.document, config.fileName));
        config.tree.document->appendChild(groups.top());
    }

    bool startElement(const QString&, const QString&, const QString& qName, const QXmlAttributes& attributes) override
    {
        const QDomElement group = newElement(*config.tree.document, qName);
        groups.top().appendChild(group);
        groups.push(group);
        QStringList names;
        for (int i = 0; i < attributes.count(); ++i)
            config.setSetting(group, names, attributes.qName(i), attributes.value(i));
        config.setSettingNames(group, names);
        return true;
    }

    bool endElement(const QString&, const QString&, const QString&) override
    {
        groups.pop();
        return true;
    }

    bool processingInstruction(const QString&, const QString&) override { return hideWhatFollows(); }
    bool comment(const QString&) override { return hideWhatFollows(); }

private:
    /// What stands first in the file is all that the root element holds: what is no group hides the first group. A
    /// comment without a text takes its place, since nobody asks for it.
    bool hideWhatFollows()
    {
        const bool isFirst = groups.size() == 1 && !groups.top().hasChildNodes();
        if (isFirst) {
            groups.top().appendChild(config.tree.document->createComment(QString()));
            groups.top() = newElement(*config.tree.document, QString()); // out of reach
        }
        return true;
    }

    Config& config;
    QStack<QDomElement> groups; ///< those that are open, from the root element on
};

void Config::loadXmlFile()
{
    QFile file;
    toolkit::openFile(file, fileName, QIODevice::ReadOnly);
    readXml(file);
}

void Config::readXml(QIODevice& device)
{
    newDocument();
    XmlListener listener(*this);
    if (!toolkit::readXml(device, listener, toolkit::NamespaceDeclarations::Keep))
        newDocument(); // all or nothing
}

} // namespace libconfig
