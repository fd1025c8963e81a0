#ifndef ZELMORA_CONFIG_BRACESCANNER_H
#define ZELMORA_CONFIG_BRACESCANNER_H

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <deque>
#include <memory>
#include <string_view>
#include <utility>

namespace libconfig {

class TextBlocks;

/// A piece of a settings file as it stands there, white space around it included.
struct ScannedText {
    std::string_view bytes; ///< which the scanner's texts() hold
    qint64 offset = 0; ///< of the first byte, from the beginning of the input

    /// What it says: UTF-8 where the bytes are that, ISO-8859-1 otherwise, without white space around it and without
    /// byte-order marks at its start (all of them, so that what is written and read again stays the same).
    QString text() const { return trimmed().first; }
    /// Where text() begins in the input.
    qint64 textOffset() const { return trimmed().second; }
    /// Both.
    std::pair<QString, qint64> trimmed() const;
};

/// What a text says, to be compared often: it is found out once, and costs no memory of its own where it is ASCII, as
/// nearly all are.
class ScannedName {
public:
    explicit ScannedName(const ScannedText& scanned);

    QString text() const { return decoded.isEmpty() ? QString(ascii) : decoded; }
    bool operator==(QStringView other) const { return decoded.isEmpty() ? other == ascii : other == decoded; }

private:
    QLatin1String ascii; ///< which the scanner's texts() hold
    QString decoded; ///< of what has other characters
};

/// What the scanner met.
struct ScanEvent {
    enum class Kind {
        GroupBegins, ///< text is its name
        GroupEnds, ///< by the brace where text begins; at the top level, where no group is open, the settings end
        Setting, ///< text is its name, and value is what stands between '=' and ';', quotes and all
        Skipped, ///< text counts for nothing
        EndOfInput ///< where text begins, and so on for ever
    };
    /// Why text counts for nothing.
    enum class Reason {
        None,
        BeforeBrace, ///< it stands between the ':' of a group and its '{'
        AfterBrace, ///< it stands between a '}' and the next ';'
        BeforeEnd, ///< neither ':' nor '=' comes before the '}', or before the end of the input
        TooDeep ///< all that follows a group inside more than greatestGroupDepth others
    };

    Kind kind = Kind::EndOfInput;
    ScannedText text = {};
    ScannedText value = {};
    Reason reason = Reason::None;
};

/// Reads the brace format, a byte at a time and each byte once, and says what it meets, in the order of the file:
///
///     group   = name ":" ... "{" { setting | group } "}" ... ";"      (what stands at the dots is skipped)
///     setting = name "=" value ";"
///
/// A file is one level without braces around it. There is no comment syntax, and nothing is ever an error. Who wants
/// to hear of it pulls: the tree is one listener, a review of the file another.
class BraceScanner {
public:
    /// Listeners may recurse once for each group; deeper files are read up to here.
    static const int greatestGroupDepth = 1000;

    /// Takes @p input over and closes it; it is read from where it stands, and offsets count from there.
    explicit BraceScanner(std::FILE* input);

    /// One that reads @p bytes, which must outlive it; null when there is no memory for it.
    static std::unique_ptr<BraceScanner> over(const QByteArray& bytes);

    /// The next thing that was met. Text that is white space alone is skipped without a word.
    ScanEvent next();

    /// Reads up to and including @p target; false when the input ended before it.
    bool skipTo(char target);

    /// What holds the bytes of all texts: who needs them longer than the scanner lives keeps it.
    std::shared_ptr<const TextBlocks> texts() const { return blocks; }

    /// All that has not been read yet. What was met before and not been asked for still comes from next().
    ScannedText rest();

private:
    struct FileCloser {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    void scan();
    void beginGroup(const ScannedText& name);
    void addSkipped(const ScannedText& text, ScanEvent::Reason reason);
    /// Up to and including one of these bytes, which is noted and no part of the text, or up to the end of the input.
    ScannedText readUpTo(int first, int second = EOF, int third = EOF);

    std::unique_ptr<std::FILE, FileCloser> input;
    std::shared_ptr<TextBlocks> blocks;
    qint64 offset = 0; ///< of the next byte
    int stop = EOF; ///< the byte that ended the last text, which is not part of it
    int depth = 0; ///< of groups that are open
    std::deque<ScanEvent> pending; ///< met, and not asked for yet
};

} // namespace libconfig

#endif
