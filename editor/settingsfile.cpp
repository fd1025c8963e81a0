#include "editor/settingsfile.h"

#include "toolkit/literals.h"

#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>

using toolkit::operator""_L1;

namespace {

QString formatOf(const QString& path)
{
    return path.endsWith(".xml"_L1, Qt::CaseInsensitive) ? QStringLiteral("xml") : QStringLiteral("cfg");
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A look-up splits its key at the points; all else that is no letter, digit, "_" or "-" came there by a slip.
bool canBeLookedUp(const QString& name)
{
    static const QRegularExpression word(QStringLiteral("\\A[\\w-]+\\z"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    return word.match(name).hasMatch();
}

/// Of a name that comes out of the settings: begins with a letter, "_" or ":". XML 1.0 allows a few signs more.
bool isXmlName(const QString& name)
{
    static const QRegularExpression xmlName(QStringLiteral("\\A[^\\W\\d][\\w.:-]*\\z"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    return xmlName.match(name).hasMatch();
}

/// Of a value between quotation marks, which the writer does not escape.
bool isXmlValue(const QString& value)
{
    static const QRegularExpression markup(QStringLiteral("[<&\"\\x{0}-\\x{8}\\x{b}\\x{c}\\x{e}-\\x{1f}]"));
    return !value.contains(markup);
}

} // namespace

QString SettingsFile::load(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).exists() && !QFileInfo(path).isFile())
        return QObject::tr("it is not a file"); // a pipe would never end, or end once
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return file.errorString();
    if (formatOf(path) == "xml"_L1 && !bytes.isEmpty()) {
        SettingsFile trial; // where that reads nothing, the reader is silent, and saving would empty the file
        trial.readFile(path, formatOf(path));
        if (trial.rootElement().isNull())
            return QObject::tr("it is not XML");
    }

    contents = bytes;
    filePath = path;
    droppedTexts.clear();
    dropped = &droppedTexts;
    readFile(path, formatOf(path));
    dropped = nullptr;
    hiddenByItsBeginning = rootElement().hasChildNodes() && !rootElement().firstChild().isElement();
    return QString();
}

QStringList SettingsFile::losses() const
{
    QStringList texts = droppedTexts;
    QDomElement first = rootElement().firstChildElement();
    while (!first.isNull() && !first.hasAttributes() && !first.hasChildNodes())
        first = first.nextSiblingElement(); // the list has no place for it
    for (QDomElement group = first.nextSiblingElement(); !group.isNull(); group = group.nextSiblingElement())
        texts += group.tagName();
    return texts;
}

QStringList SettingsFile::unreachableNames() const
{
    QStringList names;
    for (const Group& group : writtenGroups().mid(1))
        names += QStringList(group.element.tagName()) + settingNames(group.element);
    names.erase(std::remove_if(names.begin(), names.end(), canBeLookedUp), names.end());
    return names;
}

QStringList SettingsFile::settingsOutside() const
{
    return settingsOf(writtenGroups().first());
}

QStringList SettingsFile::swallowingSettings() const
{
    // A line that ends the group, or begins a setting or a group.
    static const QRegularExpression nextLine(QStringLiteral("\\n\\s*(\\}|[\\w-]+\\s*(=|:\\s*\\{))"));
    QStringList settings;
    for (const Group& group : writtenGroups()) {
        for (const QString& name : settingNames(group.element)) {
            if (group.element.attribute(name).contains(nextLine))
                settings += asText(group, name);
        }
    }
    return settings;
}

void SettingsFile::takeEdits(const QTreeWidget& list)
{
    rebuildTree(list);
}

SettingsFile::Trial SettingsFile::tryWriting(const QString& path) const
{
    Trial trial;
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        trial.reason = QObject::tr("a trial copy cannot be made, %1").arg(folder.errorString());
        return trial;
    }
    const QString file = folder.filePath(QStringLiteral("trial"));
    const QString reason = writeFile(file, formatOf(path));
    if (!reason.isEmpty()) {
        trial.reason = QObject::tr("a trial copy cannot be made, %1").arg(reason);
        return trial;
    }

    SettingsFile readBack;
    readBack.readFile(file, formatOf(path));
    const QStringList kept = readBack.writtenSettings();
    const QSet<QString> keptSettings(kept.begin(), kept.end());
    for (const QString& setting : writtenSettings()) {
        if (!keptSettings.contains(setting))
            trial.changed += setting;
    }
    if (formatOf(path) == "xml"_L1 && readBack.rootElement().isNull())
        trial.notXml = brokenXml();
    return trial;
}

/// The settings and the names of groups that are no XML, each by itself; those of the root element are never written
/// as XML.
QStringList SettingsFile::brokenXml() const
{
    const QVector<Group> groups = writtenGroups();
    QStringList texts = settingsOf(groups.first());
    for (const Group& group : groups.mid(1)) {
        if (!isXmlName(group.element.tagName()))
            texts += group.element.tagName();
        for (const QString& name : settingNames(group.element)) {
            if (!isXmlName(name) || !isXmlValue(group.element.attribute(name)))
                texts += asText(group, name);
        }
    }
    return texts;
}

/// The root element, its first group and all groups in that, each before the groups in it.
QVector<SettingsFile::Group> SettingsFile::writtenGroups() const
{
    QVector<Group> groups {{rootElement(), QString()}};
    addGroups(rootElement().firstChildElement(), QString(), groups);
    return groups;
}

/// @p group and all groups in it.
void SettingsFile::addGroups(const QDomElement& group, const QString& parentKey, QVector<Group>& groups)
{
    if (group.isNull())
        return;
    const QString key = parentKey + group.tagName() + "."_L1;
    groups += Group {group, key};
    for (QDomElement child = group.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        addGroups(child, key, groups);
}

QString SettingsFile::asText(const Group& group, const QString& name)
{
    return group.key + name + " = "_L1 + group.element.attribute(name);
}

QStringList SettingsFile::settingsOf(const Group& group) const
{
    QStringList settings;
    for (const QString& name : settingNames(group.element))
        settings += asText(group, name);
    return settings;
}

QStringList SettingsFile::writtenSettings() const
{
    QStringList settings;
    for (const Group& group : writtenGroups())
        settings += settingsOf(group);
    return settings;
}

bool SettingsFile::changedOnDisk() const
{
    return contentsOf(filePath) != contents;
}

QString SettingsFile::save(const QString& path)
{
    const QString reason = writeFile(path, formatOf(path));
    if (reason.isEmpty() && path == filePath)
        contents = contentsOf(path);
    return reason;
}
