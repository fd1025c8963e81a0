#ifndef ZELMORA_CONFIG_CONFIG_H
#define ZELMORA_CONFIG_CONFIG_H

#include <QDomDocument>
#include <QString>

#include <cstdio>
#include <memory>

namespace libconfig {

/// A settings file as a tree, and the look-up of dotted keys in it.
///
/// The tree: its root element is named after the file's path; a group is an element named after the group, its
/// sub-groups are child elements in the order of the file, and a setting is an attribute of its group's element.
/// All values are text. After loading the tree never changes. No operation takes a lock.
///
/// Two formats are read: the brace format, named "cfg" (docs/settings-file.md has its grammar), and XML, named
/// "xml". No file is ever rejected: a missing or malformed one gives what could be read of it, or an empty tree.
class Config {
public:
    /// No file, no tree: every look-up gives an empty string until readFile().
    Config() = default;
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

private:
    enum class LevelEnd { Brace, EndOfInput };

    struct FileCloser {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    QDomElement newElement(const QString& name);
    LevelEnd readLevel(QDomElement element, QDomNode parent);
    QString readValue();
    /// The next byte of the stream, or EOF: at its end, after an error, and when it is closed.
    int nextCharacter();

    QString fileName;
    QString format;
    std::unique_ptr<std::FILE, FileCloser> stream; ///< of the brace reader; null when closed
    std::unique_ptr<QDomDocument> document;
    int groupDepth = 0;
};

} // namespace libconfig

#endif
