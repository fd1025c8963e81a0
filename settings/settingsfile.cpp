#include "settings/settingsfile.h"

#include "check/findingtext.h"
#include "check/settingscheck.h"
#include "config/settingsscan.h"
#include "settings/backup.h"
#include "settings/likeness.h"
#include "toolkit/filenames.h"
#include "toolkit/filereading.h"
#include "toolkit/filereplacement.h"
#include "toolkit/literals.h"

#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <utility>

using toolkit::operator""_L1;

namespace settings {

namespace {

const int longestName = 100;
const int longestKey = 1000;

/// Something else has the name: a pipe would never end, or end once, or wait for its reader.
bool isNoFile(const QString& path)
{
    const QFileInfo found(path);
    return toolkit::unusableName(path).isEmpty() && found.exists() && !found.isFile();
}

QString noFileReason()
{
    return QObject::tr("it is not a file");
}

/// Nothing when there is no such file: an empty one is another matter.
std::optional<QByteArray> contentsOf(const QString& path)
{
    QFile file;
    if (isNoFile(path) || !toolkit::openFile(file, path, QIODevice::ReadOnly).isEmpty())
        return std::nullopt;
    return file.readAll();
}

/// Empty, or white space after a byte-order mark at the most.
bool isBlank(const QByteArray& bytes)
{
    const QByteArray mark = QByteArrayLiteral("\xEF\xBB\xBF");
    return (bytes.startsWith(mark) ? bytes.mid(mark.size()) : bytes).trimmed().isEmpty();
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

/// However deep.
bool holdsSetting(const QDomElement& group)
{
    const QVector<QDomElement> groups = SettingsFile::groupsIn(group);
    return group.hasAttributes() || std::any_of(groups.begin(), groups.end(), holdsSetting);
}

QString shownName(const QString& name)
{
    return check::shown(name, longestName);
}

} // namespace

/// Groups of the same name in the same group have the same number, in whichever tree they are. A joined key would say
/// the same, but a group's name would take its memory again with each setting.
class SettingsFile::GroupNumbers {
public:
    /// Of each of @p groups, in their order.
    QVector<int> of(const QVector<Group>& groups)
    {
        QVector<int> found;
        for (const Group& group : groups)
            found += group.parent < 0 ? 0 : numberOf(found.at(group.parent), group.element.tagName());
        return found;
    }

private:
    int numberOf(int parent, const QString& name)
    {
        const auto next = static_cast<int>(numbers.size()) + 1;
        return numbers.emplace(std::make_pair(parent, name), next).first->second;
    }

    std::map<std::pair<int, QString>, int> numbers;
};

QString SettingsFile::read(const QString& path, QByteArray& bytes)
{
    if (isNoFile(path))
        return noFileReason();
    QFile file;
    const QString reason = toolkit::openFile(file, path, QIODevice::ReadOnly);
    return reason.isEmpty() ? toolkit::readRest(file, bytes) : reason;
}

QString SettingsFile::load(const QString& path)
{
    QByteArray bytes;
    const QString reason = read(path, bytes);
    if (!reason.isEmpty())
        return reason;
    const FileReview found = reviewOf(bytes, libconfig::settingsFormat(path));
    if (!found.isWellFormed && !isBlank(bytes))
        return QObject::tr("it is not XML"); // nothing would be read, and saving would empty the file

    contents = bytes;
    filePath = path;
    isUnwritten = false;
    fileReview = found;
    readBytes(bytes, path, libconfig::settingsFormat(path));
    taken.clear();
    return QString();
}

SettingsFile::Trial SettingsFile::tryWriting(const QString& path) const
{
    Trial trial;
    trial.reason = writeBytes(trial.bytes, libconfig::settingsFormat(path));
    if (!trial.reason.isEmpty())
        return trial;

    SettingsFile readBack;
    readBack.readBytes(trial.bytes, path, libconfig::settingsFormat(path));
    trial.changed = settingsMissingIn(readBack);
    if (libconfig::settingsFormat(path) == "xml"_L1 && readBack.rootElement().isNull())
        trial.notXml = brokenXml();
    return trial;
}

/// The settings that @p other has not, or has with another value.
QStringList SettingsFile::settingsMissingIn(const SettingsFile& other) const
{
    GroupNumbers numbers;
    const QSet<Setting> found = other.writtenSettings(numbers);
    const QVector<Group> groups = writtenGroups();
    const QVector<int> groupNumbers = numbers.of(groups);
    QStringList texts;
    for (int place = 0; place < groups.size(); ++place) {
        const QDomElement& element = groups.at(place).element;
        for (const QString& name : settingNames(element)) {
            if (!found.contains({{groupNumbers.at(place), name}, element.attribute(name)}))
                texts += asText(groups, place, name);
        }
    }
    return texts;
}

QSet<SettingsFile::Setting> SettingsFile::writtenSettings(GroupNumbers& numbers) const
{
    const QVector<Group> groups = writtenGroups();
    const QVector<int> groupNumbers = numbers.of(groups);
    QSet<Setting> settings;
    for (int place = 0; place < groups.size(); ++place) {
        const QDomElement& element = groups.at(place).element;
        for (const QString& name : settingNames(element))
            settings.insert({{groupNumbers.at(place), name}, element.attribute(name)});
    }
    return settings;
}

/// The settings and the names of groups that are no XML, each by itself; those of the root element are never written
/// as XML.
QStringList SettingsFile::brokenXml() const
{
    const QVector<Group> groups = writtenGroups();
    QStringList texts;
    for (int group = 0; group < groups.size(); ++group) {
        const QDomElement& element = groups.at(group).element;
        const bool isRoot = group == 0;
        if (!isRoot && !isXmlName(element.tagName()))
            texts += shownName(element.tagName());
        for (const QString& name : settingNames(element)) {
            if (isRoot || !isXmlName(name) || !isXmlValue(element.attribute(name)))
                texts += asText(groups, group, name);
        }
    }
    return texts;
}

/// The root element, its first group and all groups in that, each before the groups in it.
QVector<SettingsFile::Group> SettingsFile::writtenGroups() const
{
    QVector<Group> groups {{rootElement(), -1}};
    addGroups(rootElement().firstChildElement(), 0, groups);
    return groups;
}

/// @p group and all groups in it.
void SettingsFile::addGroups(const QDomElement& group, int parent, QVector<Group>& groups)
{
    if (group.isNull())
        return;
    const int place = groups.size();
    groups += Group {group, parent};
    for (QDomElement child = group.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        addGroups(child, place, groups);
}

/// What the keys of the settings of the group at @p place begin with.
QString SettingsFile::keyOf(const QVector<Group>& groups, int place)
{
    QString key;
    for (; groups.at(place).parent >= 0; place = groups.at(place).parent) {
        key.prepend(shownName(groups.at(place).element.tagName()) + "."_L1);
        if (key.size() > longestKey)
            return "..."_L1 + key.right(longestKey);
    }
    return key;
}

/// The setting @p name of the group at @p place.
QString SettingsFile::asText(const QVector<Group>& groups, int place, const QString& name)
{
    return keyOf(groups, place) + shownName(name) + " = "_L1 + groups.at(place).element.attribute(name);
}

QVector<FileRemark> SettingsFile::losses() const
{
    QVector<FileRemark> lost;
    for (const FileRemark& remark : fileReview.dropped) {
        const QString key = remark.emptyGroup.chopped(remark.emptyGroup.isEmpty() ? 0 : 1); // without its point
        const QVector<QDomElement> groups = groupsOf(key);
        if (std::none_of(groups.begin(), groups.end(), holdsSetting))
            lost += remark;
    }
    return lost;
}

bool SettingsFile::isEmpty() const
{
    return !holdsSetting(rootElement());
}

QStringList SettingsFile::unwrittenGroups() const
{
    QStringList names;
    const bool areInTheFile = fileReview.topLevelGroups.size() > 1;
    for (const QDomElement& group : groupsIn(rootElement()).mid(1)) {
        if (!areInTheFile && holdsSetting(group))
            names += group.tagName();
    }
    return names;
}

bool SettingsFile::looksLikeSettings() const
{
    return settings::looksLikeSettings(fileReview.topLevelGroups, isBlank(contents));
}

void SettingsFile::beginAt(const QString& path)
{
    contents.clear();
    filePath = path;
    isUnwritten = true;
    fileReview = FileReview();
    readBytes(contents, path, libconfig::settingsFormat(path));
    taken.clear();
}

bool SettingsFile::isMissing(const QString& path)
{
    struct stat found;
    return toolkit::unusableName(path).isEmpty() && stat(toolkit::fileName(path).constData(), &found) != 0
        && (errno == ENOENT || errno == ENOTDIR);
}

QString SettingsFile::format() const
{
    return libconfig::settingsFormat(filePath);
}

check::Findings SettingsFile::findings() const
{
    return check::checkSettings(contents, libconfig::settingsFormat(filePath), filePath);
}

bool SettingsFile::changedOnDisk() const
{
    const std::optional<QByteArray> found = contentsOf(filePath);
    return isUnwritten ? found && !isBlank(*found) : found != contents;
}

QString SettingsFile::keepBackup(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return QString();
    QByteArray bytes;
    const QString reason = read(path, bytes);
    return reason.isEmpty() ? settings::keepBackup(path, bytes) : reason;
}

QString SettingsFile::valueIn(const Trial& trial, const QString& path, const QString& key)
{
    SettingsFile readBack;
    readBack.readBytes(trial.bytes, path, libconfig::settingsFormat(path));
    return readBack.value(key);
}

QString SettingsFile::makeFolderOf(const QString& path)
{
    const QString folder = QFileInfo(path).path();
    QString reason = toolkit::unusableName(folder);
    std::error_code error;
    if (reason.isEmpty())
        std::filesystem::create_directories(toolkit::fileName(folder).constData(), error);
    if (error)
        reason = qt_error_string(error.value());
    return reason.isEmpty() ? QString() : QObject::tr("The folder %1 cannot be made: %2").arg(folder, reason);
}

QString SettingsFile::create(const QString& path, const Trial& trial, const QString& like)
{
    return trial.reason.isEmpty() ? toolkit::createFile(path, trial.bytes, like) : trial.reason;
}

QString SettingsFile::save(const QString& path, const Trial& trial)
{
    if (isNoFile(path))
        return noFileReason();
    const QString reason = trial.reason.isEmpty() ? toolkit::replaceFile(path, trial.bytes) : trial.reason;
    if (reason.isEmpty() && path == filePath) {
        contents = trial.bytes;
        isUnwritten = false;
    }
    return reason;
}

void SettingsFile::moveTo(const QString& path, const Trial& trial)
{
    filePath = path;
    contents = trial.bytes;
    isUnwritten = false;
    fileReview = reviewOf(contents, format());
    setFileName(path);
}

void SettingsFile::becomeAs(const SettingsFile& written)
{
    const bool wasHidden = fileReview.isHiddenByItsBeginning;
    filePath = written.filePath;
    contents = written.contents;
    isUnwritten = false;
    fileReview = written.fileReview;
    setFileName(filePath);
    if (content() != written.content())
        take(WholeTreeStep {wholeTree(), written.wholeTree()});
    else if (wasHidden) // nothing stands in either; to bring it back would help nobody
        takeTree(written.wholeTree());
}

} // namespace settings
