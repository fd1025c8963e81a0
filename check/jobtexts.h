#ifndef ZELMORA_CHECK_JOBTEXTS_H
#define ZELMORA_CHECK_JOBTEXTS_H

#include "check/checkingdriver.h"
#include "check/jobelement.h"
#include "check/printedtext.h"

#include <QSet>

namespace check {

/// Judges the script that is made of a job: what of a text the register or the script's encoding does not take, what is
/// cut, and what is wider than the paper; each at the attribute that it came from, or else at the element.
class JobTexts {
public:
    explicit JobTexts(Findings& findings);

    /// What is made from now on to end() is made of @p element.
    void begin(const JobElement& element);
    void end();
    void judge(const ScriptCommand& command, int paperWidth);
    void judgeCut(const QString& text, int kept);

private:
    void gather();
    void judgeTrouble(const QString& text, const QString& command, bool isLine);
    bool hasTrouble(const QString& text, bool isLine) const;
    bool followRows(const QString& text, const PrintedText::Report& report);
    void judgeLabels(const QString& text, const PrintedText::Report& report);
    bool isOfTheJob(uint codePoint);
    void report(Trouble trouble, uint codePoint, const QString& command, toolkit::TextPlace place);
    void judgeWidth(const ScriptCommand& command, int paperWidth);
    bool isAlwaysTooWide(const ScriptCommand& command) const;
    toolkit::TextPlace placeOfLine(const QString& text);

    Findings& findings;
    const TroubleFinder finder;
    const JobElement* element = nullptr;
    PrintedText printerName; ///< of the last "printers"; the next "headers" prints it

    // Of the element.
    bool isGathered = false;
    bool isWatched = false; ///< its texts may make trouble that does not show in the script
    QVector<PrintedText> texts; ///< of its attributes that print by their names, once they are asked for
    int lines = 0;
    int nextRow = 0; ///< the first of its attributes in order that was not met yet
    QSet<int> labels; ///< trouble of labels that was reported
    QSet<QPair<int, int>> widePlaces; ///< line and column
    bool isWideNoted = false;
};

} // namespace check

#endif
