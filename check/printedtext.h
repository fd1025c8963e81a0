#ifndef ZELMORA_CHECK_PRINTEDTEXT_H
#define ZELMORA_CHECK_PRINTEDTEXT_H

#include "check/scripttrouble.h"
#include "toolkit/textplaces.h"

#include <QSet>
#include <QString>
#include <QStringView>

#include <functional>

namespace vocabulary {
struct Attribute;
}

namespace check {

/// The text of an attribute as it is printed, and how much of it was met in the script.
class PrintedText {
public:
    /// Gets each trouble, its character and where that stands in the script's text.
    using Report = std::function<void(Trouble trouble, uint codePoint, int position)>;

    PrintedText() = default;
    /// @p value is that of an attribute that is read as @p attribute says.
    PrintedText(const vocabulary::Attribute& attribute, const QString& value, toolkit::TextPlace place);

    toolkit::TextPlace place() const { return itsPlace; }
    int size() const { return source.size(); }
    /// Whether the job's text has the character, or the half of one.
    bool holds(uint codePoint) const;
    /// Whether the line @p text ends with it; of an address, whether it is one of its lines.
    bool ends(const QString& text);
    /// Whether there is trouble in it, for the script that @p finder knows, that was not met yet.
    bool hasTrouble(const TroubleFinder& finder);
    /// Reports the trouble in the part of it that @p text holds: of each kind the first, each unprintable character
    /// once. False when @p text holds none of it that makes trouble.
    bool follow(const QString& text, const TroubleFinder& finder, const Report& report);

private:
    struct Piece {
        int begin;
        int end;
        int following; ///< where the next one begins
    };

    Trouble troubleAt(const TroubleFinder& finder, int index) const;
    Piece pieceFrom(int from) const;
    Piece next() const { return pieceFrom(begin); }
    bool hasLine(QStringView line);
    int positionIn(const QString& text, const Piece& piece, const TroubleFinder& finder) const;
    void reportOnce(Trouble kind, uint codePoint, int position, const Report& report);

    QString source; ///< as the job has it
    QString printed; ///< character by character what becomes of it
    toolkit::TextPlace itsPlace;
    bool isAddress = false;
    bool isCut = false; ///< to its column, where it is wider
    bool isEightBit = false;
    QSet<QStringView> lines; ///< of an address, once they are asked for: there may be as many as in the script
    int begin = 0; ///< of what was not met yet
    int trouble = -1; ///< the first from there on, once it was looked for
    QSet<int> reported;
};

} // namespace check

#endif
