#include "settings/settingsfile.h"

#include "settings/backup.h"
#include "settings/likeness.h"
#include "toolkit/literals.h"

#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QRegularExpression>
#include <QSet>

using toolkit::operator""_L1;

namespace settings {

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
    const FileReview found = reviewOf(bytes, formatOf(path));
    if (!found.isWellFormed && !bytes.isEmpty())
        return QObject::tr("it is not XML"); // nothing would be read, and saving would empty the file

    contents = bytes;
    filePath = path;
    fileReview = found;
    readBytes(bytes, path, formatOf(path));
    return QString();
}

SettingsFile::Trial SettingsFile::tryWriting(const QString& path) const
{
    Trial trial;
    QByteArray bytes;
    trial.reason = writeBytes(bytes, formatOf(path));
    if (!trial.reason.isEmpty())
        return trial;

    SettingsFile readBack;
    readBack.readBytes(bytes, path, formatOf(path));
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

bool SettingsFile::looksLikeSettings() const
{
    return settings::looksLikeSettings(fileReview.topLevelGroups, contents.trimmed().isEmpty());
}

bool SettingsFile::changedOnDisk() const
{
    return contentsOf(filePath) != contents;
}

QString SettingsFile::keepBackup(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return QString();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? settings::keepBackup(path, bytes) : file.errorString();
}

QString SettingsFile::save(const QString& path)
{
    const QString reason = writeFile(path, formatOf(path));
    if (reason.isEmpty() && path == filePath)
        contents = contentsOf(path);
    return reason;
}

} // namespace settings
