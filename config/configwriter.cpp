// Writes the tree: to a file in either format, and to standard output for diagnosis. What the brace writer writes is
// what the reader reads back to the same tree; an element of another kind (text or a comment of an XML file) is no
// part of the settings.

#include "config/config.h"

#include "toolkit/console.h"
#include "toolkit/filereplacement.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/textencoder.h"

#include <QBuffer>
#include <QTextStream>

#include <cerrno>
#include <limits>
#include <new>

using toolkit::operator""_L1;

namespace libconfig {

namespace {

const QString indentationStep = QStringLiteral("    ");
const QString braceSettingEnd = QStringLiteral("\";\n");

/// What a byte array holds at most, less some room for its own head.
const qint64 mostBytes = std::numeric_limits<int>::max() - 64;

/// Counts what is written to it, and takes no more than a byte array could hold: indented by its depth, a small file
/// of nested groups can become any size.
class ByteCounter : public QIODevice {
public:
    ByteCounter() { open(WriteOnly | Unbuffered); }

    int count() const { return static_cast<int>(bytes); }

protected:
    qint64 readData(char*, qint64) override { return -1; }

    qint64 writeData(const char*, qint64 size) override
    {
        if (size > mostBytes - bytes)
            return -1;
        bytes += size;
        return size;
    }

private:
    qint64 bytes = 0;
};

/// A stream that has failed keeps all that follows.
bool goesOn(const QTextStream& out)
{
    return out.status() != QTextStream::WriteFailed;
}

} // namespace

void Config::buildConfigFile(QString path) const
{
    writeFile(path, QStringLiteral("cfg"));
}

void Config::buildConfigXmlFile(QString path) const
{
    writeFile(path, QStringLiteral("xml"));
}

QString Config::writeFile(const QString& path, const QString& fileFormat) const
{
    if (fileFormat != "cfg"_L1 && fileFormat != "xml"_L1)
        return QString();
    QByteArray bytes;
    const QString reason = writeBytes(bytes, fileFormat);
    return reason.isEmpty() ? toolkit::replaceFile(path.isEmpty() ? fileName : path, bytes) : reason;
}

QString Config::writeBytes(QByteArray& bytes, const QString& fileFormat) const
try {
    ByteCounter counter; // before any memory is taken for the text
    if (!writeTree(counter, fileFormat))
        return QStringLiteral("the settings are larger than 2 GiB");
    bytes.reserve(counter.count());
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !writeTree(buffer, fileFormat))
        return qt_error_string(ENOMEM);
    return QString();
} catch (const std::bad_alloc&) { // for the tree, which may be made only now, or for the text
    return qt_error_string(ENOMEM);
}

bool Config::writeTree(QIODevice& device, const QString& fileFormat) const
{
    QTextStream out(&device);
    toolkit::setUtf8(out);
    writeTree(out, fileFormat);
    out.flush();
    return out.status() == QTextStream::Ok;
}

void Config::writeTree(QTextStream& out, const QString& fileFormat) const
{
    const QDomElement root = rootElement();
    writeSettings(root, out, QString(), braceSettingEnd);
    if (fileFormat == "xml"_L1)
        buildConfigXmlFile(root.firstChild(), out);
    else
        buildConfigFile(root.firstChild(), out);
}

void Config::buildConfigFile(QDomNode node, QTextStream& out) const
{
    QString heads;
    writeGroup(node.toElement(), out, QString(), heads);
}

void Config::buildConfigXmlFile(QDomNode node, QTextStream& out) const
{
    writeElement(node.toElement(), out, QString());
}

/// @p heads are those of the groups around that are not written yet: they wait for a setting, which may never come.
void Config::writeGroup(const QDomElement& group, QTextStream& out, const QString& indentation, QString& heads) const
{
    if (group.isNull() || !goesOn(out))
        return;
    const QString head = indentation + group.tagName() + ": \n"_L1 + indentation + "{\n"_L1;
    heads += head;
    if (group.hasAttributes()) {
        out << heads;
        heads.clear();
        writeSettings(group, out, indentation + indentationStep, braceSettingEnd);
    }
    for (QDomNode child = group.firstChild(); !child.isNull(); child = child.nextSibling())
        writeGroup(child.toElement(), out, indentation + indentationStep, heads);
    if (heads.isEmpty())
        out << indentation << "};\n\n";
    else
        heads.chop(head.size());
}

void Config::writeSettings(const QDomElement& group, QTextStream& out, const QString& before,
                           const QString& after) const
{
    for (const QString& name : settingNames(group)) {
        if (goesOn(out))
            out << before << name << " = \"" << toolkit::withoutHalves(group.attribute(name)) << after;
    }
}

void Config::writeElement(const QDomElement& element, QTextStream& out, const QString& indentation) const
{
    if (element.isNull() || !goesOn(out))
        return;
    out << '\n' << indentation << '<' << element.tagName();
    writeSettings(element, out, "\n"_L1 + indentation + indentationStep, QStringLiteral("\""));
    out << ">\n";
    for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling())
        writeElement(child.toElement(), out, indentation + indentationStep);
    out << indentation << "</" << element.tagName() << ">\n";
}

void Config::printConfigTree() const
{
    toolkit::writeLine("Tree ");
    printConfigTree(rootElement());
}

void Config::printConfigTree(QDomNode node) const
{
    const QDomElement element = node.toElement();
    if (element.isNull())
        return;
    toolkit::writeLine(toolkit::localeText(element.tagName()));
    for (const QString& name : settingNames(element))
        toolkit::writeLine(toolkit::localeText(name + " = "_L1 + element.attribute(name)));
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        printConfigTree(child);
}

} // namespace libconfig
