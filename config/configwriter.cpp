// Writes the tree: to a file in either format, and to standard output for diagnosis. What the brace writer writes is
// what the reader reads back to the same tree; an element of another kind (text or a comment of an XML file) is no
// part of the settings.

#include "config/config.h"

#include "toolkit/console.h"
#include "toolkit/literals.h"
#include "toolkit/localecodec.h"
#include "toolkit/writesignals.h"

#include <QFile>
#include <QSaveFile>
#include <QTextStream>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

using toolkit::operator""_L1;

namespace libconfig {

namespace {

const QString indentationStep = QStringLiteral("    ");

/// What root saves for another user stays that user's. Others may not give files away, but keep a group of theirs.
void keepOwner(const QFileDevice& file, const struct stat& old)
{
    const uid_t unchanged = static_cast<uid_t>(-1);
    if (fchown(file.handle(), old.st_uid, old.st_gid) != 0 && fchown(file.handle(), unchanged, old.st_gid) != 0)
        return; // then the permissions are for the new owner
}

/// A full disk takes a part first, without an error; the reason comes with the next write.
bool writeAll(QFileDevice& file, const QByteArray& bytes)
{
    qint64 size = 0;
    while (size < bytes.size()) {
        const qint64 written = file.write(bytes.constData() + size, bytes.size() - size);
        if (written <= 0)
            return false;
        size += written;
    }
    return true;
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
    const toolkit::WriteSignalsBlocked writeSignalsBlocked;
    const QString target = path.isEmpty() ? fileName : path;
    struct stat old;
    const bool exists = stat(QFile::encodeName(target).constData(), &old) == 0;
    const bool isReplaceable = exists ? S_ISREG(old.st_mode) : errno == ENOENT;
    if (!isReplaceable) {
        QFile file(target); // a save file would take the place of the device or the pipe
        return writeTree(file, fileFormat) ? QString() : file.errorString();
    }
    QSaveFile file(target);
    if (!writeTree(file, fileFormat))
        return file.errorString();
    if (exists)
        keepOwner(file, old);
    return file.commit() ? QString() : file.errorString();
}

bool Config::writeTree(QFileDevice& file, const QString& fileFormat) const
{
    QByteArray bytes;
    QTextStream out(&bytes);
    out.setCodec("UTF-8");
    writeTree(out, fileFormat);
    out.flush();
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && writeAll(file, bytes);
}

void Config::writeTree(QTextStream& out, const QString& fileFormat) const
{
    const QDomElement root = rootElement();
    writeSettings(root, out, QString());
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
    if (group.isNull())
        return;
    const QString head = indentation + group.tagName() + ": \n"_L1 + indentation + "{\n"_L1;
    heads += head;
    if (group.hasAttributes()) {
        out << heads;
        heads.clear();
        writeSettings(group, out, indentation + indentationStep);
    }
    for (QDomNode child = group.firstChild(); !child.isNull(); child = child.nextSibling())
        writeGroup(child.toElement(), out, indentation + indentationStep, heads);
    if (heads.isEmpty())
        out << indentation << "};\n\n";
    else
        heads.chop(head.size());
}

void Config::writeSettings(const QDomElement& group, QTextStream& out, const QString& indentation) const
{
    for (const QString& name : settingNames(group))
        out << indentation << name << " = \"" << group.attribute(name) << "\";\n";
}

void Config::writeElement(const QDomElement& element, QTextStream& out, const QString& indentation) const
{
    if (element.isNull())
        return;
    out << '\n' << indentation << '<' << element.tagName();
    for (const QString& name : settingNames(element))
        out << '\n' << indentation << indentationStep << name << " = \"" << element.attribute(name) << '"';
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
