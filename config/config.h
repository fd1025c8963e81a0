#ifndef ZELMORA_CONFIG_CONFIG_H
#define ZELMORA_CONFIG_CONFIG_H

#include "../toolkit/export.h"

#include <QDomDocument>
#include <QString>
#include <QStringList>

#include <atomic>
#include <memory>
#include <mutex>

class QIODevice;
class QTextStream;
class QTreeWidget;
class QTreeWidgetItem;

namespace libconfig {

class AttributeOrder;
class BraceScanner;
struct SettingsGroup;
class TextBlocks;

/// The tree of a Config as a whole, to be set aside and taken back. Who copies it has the same tree.
struct ConfigTree {
    std::shared_ptr<QDomDocument> document;
    std::shared_ptr<AttributeOrder> order; ///< of the settings of each group, in the file
};

/// A settings file as a tree: read, looked up by dotted keys, written back, shown for editing.
///
/// The tree: its root element is named after the file's path; a group is an element named after the group, its
/// sub-groups are child elements in the order of the file, and a setting is an attribute of its group's element.
/// Settings come in the order of the file as well; one that is repeated has its first place and its last value.
/// All values are text. Only loadListView(), and classes that derive from this one, change a loaded tree. Making the
/// tree, when it is first asked for, is all that takes a lock.
///
/// There are two formats: the brace format, named "cfg" (docs/settings-file.md has its grammar), and XML, named
/// "xml". No file is ever rejected: a missing or malformed one gives what could be read of it, or an empty tree.
///
/// The print program needs no widgets: the operations of the tree view are defined in Zelmora::configwidgets.
class ZELMORA_EXPORT Config {
public:
    /// No file, no tree: every look-up gives an empty string until readFile().
    Config();
    /// As the default constructor followed by readFile().
    Config(const QString& file, const QString& format);
    ~Config();

    Config(const Config&) = delete;
    Config& operator=(const Config&) = delete;

    /// Loads @p file in place of what was loaded before. @p format is "cfg" or "xml", in lower case; any other
    /// word gives an empty tree. A "cfg" file that cannot be opened is reported in one line on standard output.
    void readFile(const QString& file, const QString& format);

    /// The value of a dotted key such as "zelmora.receiptdoc.paperWidth", as it is stored. Empty when the key
    /// is absent or its value is empty; the two cannot be told apart.
    ///
    /// Only the first top-level group of the file answers, and the key must begin with its name. Of several
    /// groups of the same name the first that gives a value that is not empty answers.
    QString lookup(const QString& key) const;

    /// Writes the tree to the file @p path, or to the one it was read from when that is empty: the settings of the
    /// root element and its first group, in UTF-8. Further top-level groups, which no look-up reaches, are left out.
    ///
    /// The old file stays whole until the new one is complete and on the disk, and also, without a word, when the new
    /// one cannot be written. An existing file keeps its permissions and, as far as the user may, its owner; of a link
    /// the file it points to is written. A device or a pipe is written directly.
    ///
    /// Where no new file can take the old one's place (the user may write the file but not its folder, the folder is
    /// sticky and the file another's, something is mounted on it), the old one is overwritten as it is. When that
    /// fails, what it held is written back; a crash in the middle can lose it.
    ///
    /// The name of the file is written in the toolkit's encoding for file names, also where the reader found a file by
    /// the 8-bit form of its name alone. With Qt 6 that is UTF-8: under a name that came from other bytes, which has
    /// U+FFFD in it, nothing is read, and nothing is written.
    ///
    /// Names and values go out as they are, without escaping: in the brace format a value with '"' or ';' reads back
    /// changed, and a setting whose name holds ':', which an XML file may bring, does not read back at all. A
    /// group that holds no setting, however deep, is left out, as the reader would drop it.
    void buildConfigFile(QString path) const;
    /// As above in XML, but for the settings of the root element, which are lines of the brace format here too. An
    /// XML file read with this class has none. A value with '<', '&' or '"' does not read back, nor does a name that
    /// XML does not allow.
    void buildConfigXmlFile(QString path) const;
    /// The same for one group, at the indentation of a top-level one.
    void buildConfigFile(QDomNode node, QTextStream& out) const;
    void buildConfigXmlFile(QDomNode node, QTextStream& out) const;

    /// Writes the whole tree to standard output, in the locale's encoding: a line for each group with its name, a
    /// line "name = value" for each setting.
    void printConfigTree() const;
    void printConfigTree(QDomNode node) const;

    // The tree view: link Zelmora::configwidgets.

    /// A new list of the tree with the one column "ConfigurationFile", owned by the caller. The item of a group has
    /// below it an item for each setting, labelled with the name, and below that one with the value; then its
    /// groups. The values alone can be edited.
    QTreeWidget* newConfigListView() const;
    QTreeWidget* buildConfigListView() const;
    /// The same for one group, added to @p list or below @p parent.
    void buildConfigListView(QDomNode node, QTreeWidget* list) const;
    void buildConfigListView(QDomNode node, QTreeWidgetItem* parent) const;

    /// Replaces the tree by the one that @p list shows, and writes it to the file that was read, in its format; by a
    /// failure to write nothing changes but the tree. Nothing happens when @p list is null. A child whose first child
    /// has no children is a setting, any other a group; an empty group that newConfigListView() made counts as no
    /// value. So a group collapses to one setting, named like the group, when the value of its first setting is taken
    /// out of the list. A group without children is dropped, as the reader drops an empty one: when it was the first,
    /// the second one takes its place, and is written and found.
    void loadListView(QTreeWidget* list);
    void loadListView(QTreeWidgetItem* item, QDomDocument* doc);
    void loadListView(QTreeWidgetItem* item, QDomNode parent);

protected:
    /// One step of the look-up: the value of @p key, whose first part must name @p node.
    QString lookup(QDomNode node, const QString& key) const;

    void constructor(const QString& file, const QString& format);
    /// Opens the stream on fileName. False, after a line on standard output, when that fails.
    bool openFile();
    bool openFile(const QString& name);
    void closeFile();
    /// Reads from the stream up to and including @p target; false when the input ended before it.
    bool jump(char target);
    /// Reads the whole brace file.
    void loadFile();
    /// Reads the body of the group @p name, which becomes a child of @p parent once it holds anything.
    void loadFile(const QString& name, QDomNode parent);
    void loadXmlFile();

    /// The tree, which is made when it is first asked for: a program that looks settings up does without. From then on
    /// look-ups, too, are answered from it, and see what becomes of it.
    const ConfigTree& wholeTree() const;
    /// Takes @p other, which an object of this class has or had, in place of the tree that there is.
    void takeTree(const ConfigTree& other);
    /// The tree is that of the file @p file now.
    void setFileName(const QString& file);

    /// Null when nothing was read.
    QDomElement rootElement() const;
    /// As readFile(), of the bytes of the file @p name: nothing is opened, and nothing is reported.
    void readBytes(const QByteArray& bytes, const QString& name, const QString& fileFormat);
    /// The names of a group's settings in their order; in that of their names when the group came from elsewhere.
    QStringList settingNames(const QDomElement& group) const;
    /// The root element, which is made where nothing was read.
    QDomElement madeRoot();
    /// A new group, which stands nowhere yet. It must get a setting, or it is never written.
    QDomElement newGroup(const QString& name);
    /// Puts a setting that @p group has not into it, at @p place of its settings.
    void insertSetting(QDomElement group, int place, const QString& name, const QString& value);
    /// Takes a setting out of @p group, if it is there.
    void removeSetting(QDomElement group, const QString& name);
    /// Writes the tree in the format @p fileFormat, as buildConfigFile() does. Empty when that succeeded, else the
    /// reason, which in nearly all cases is the system's ("No space left on device"). Then the file is as it was, or
    /// the reason says that it could not be brought back. An unknown format writes nothing. Settings that take more
    /// than 2 GiB when they are written are not written: a group's lines are indented by its depth, so that a small
    /// file of deeply nested groups can become that large.
    QString writeFile(const QString& path, const QString& fileFormat) const;
    /// Makes @p bytes what writeFile() would write: "cfg" or "xml". Empty when that succeeded, else the reason.
    QString writeBytes(QByteArray& bytes, const QString& fileFormat) const;
    /// The tree that @p list shows, in place of the old one; nothing is written.
    void rebuildTree(const QTreeWidget& list);

private:
    enum class LevelEnd { Brace, EndOfInput };

    class Q_DECL_HIDDEN XmlListener;

    static QDomElement newElement(QDomDocument& owner, const QString& name);
    /// @p names are those of the group's settings so far, in their order, for @p order when there are no more.
    static void setSetting(QDomElement group, QStringList& names, const QString& name, const QString& value);
    /// The settings of @p group stand in the order of @p names.
    void setSettingNames(const QDomElement& group, const QStringList& names);
    void begin(const QString& file, const QString& fileFormat);
    void newDocument();
    void makeTree() const;
    bool writeTree(QIODevice& device, const QString& fileFormat) const;
    void writeTree(QTextStream& out, const QString& fileFormat) const;
    void writeGroup(const QDomElement& group, QTextStream& out, const QString& indentation, QString& heads) const;
    void writeElement(const QDomElement& element, QTextStream& out, const QString& indentation) const;
    /// A line for each setting, between @p before its name and @p after its value.
    void writeSettings(const QDomElement& group, QTextStream& out, const QString& before, const QString& after) const;
    void readTopLevel();
    LevelEnd readLevel(SettingsGroup& group);
    /// Makes an element of @p group, which becomes a child of @p parent if it holds anything.
    static void addGroup(const SettingsGroup& group, QDomNode parent, const ConfigTree& tree);
    void readXml(QIODevice& device);

    QString fileName;
    QString format;
    std::unique_ptr<BraceScanner> stream; ///< of the brace reader; null when closed
    std::unique_ptr<SettingsGroup> settings; ///< of a file in the brace format: never null, and fixed once it is read
    std::shared_ptr<const TextBlocks> texts; ///< of settings
    mutable ConfigTree tree; ///< empty until it is made, of settings or otherwise
    mutable std::atomic<bool> isTreeMade {false};
    mutable std::mutex treeMaking; ///< by whichever thread asks first
};

} // namespace libconfig

#endif
