#include "check/codes.h"

#include "check/finding.h"

#include <QObject>

#include <algorithm>

using toolkit::operator""_L1;

namespace check {

namespace {

constexpr Severity error = Severity::Error;
constexpr Severity warning = Severity::Warning;
constexpr Severity note = Severity::Note;

// clang-format off
constexpr CodeEntry table[] = {
    {Code::Unreadable, "unreadable"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "The file cannot be read.")},
    {Code::SettingsMissing, "settings-missing"_L1, note, note, QT_TRANSLATE_NOOP("QObject", "There is no settings file: what holds without one is taken.")},
    {Code::NotANumber, "not-a-number"_L1, error, warning, QT_TRANSLATE_NOOP("QObject", "A number is due, and the text is none.")},
    {Code::NotWellFormed, "not-well-formed"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "The XML breaks off here: nothing after it is printed.")},
    {Code::NoMethod, "no-method"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "The job has no element \"method\": nothing is printed.")},
    {Code::UnknownMethod, "unknown-method"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "There is no print method of that name: printing stops here.")},
    {Code::ElementBeforeMethod, "element-before-method"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "An element before \"method\" is ignored.")},
    {Code::SecondMethod, "second-method"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "A second \"method\" opens the document again: it is opened twice and closed once.")},
    {Code::UnknownElement, "unknown-element"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "No print method reads an element of that name.")},
    {Code::UnknownAttribute, "unknown-attribute"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "No print method reads an attribute of that name of this element.")},
    {Code::IgnoredElement, "ignored-element"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "Other print methods read this element, this one does not.")},
    {Code::IgnoredAttribute, "ignored-attribute"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "Other print methods read this attribute of the element, this one does not.")},
    {Code::RepeatedAttribute, "repeated-attribute"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The attribute stands twice in its element, which XML forbids: the second one counts for nothing.")},
    {Code::MissingAttribute, "missing-attribute"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The attribute is absent or empty: a column or a line stays empty.")},
    {Code::NotADate, "not-a-date"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "A date is due, and the text is none in a usual form.")},
    {Code::WrongSum, "wrong-sum"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "Figures of the document do not agree.")},
    {Code::QuoteInText, "quote-in-text"_L1, error, warning, QT_TRANSLATE_NOOP("QObject", "An apostrophe ends the register's text early.")},
    {Code::ControlCharacter, "control-character"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "A line break, a tab or another control character stands inside a line.")},
    {Code::UnprintableCharacter, "unprintable-character"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "A character that the script cannot hold prints as \"?\".")},
    {Code::UnknownEntity, "unknown-entity"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The entity is not declared and stands for nothing.")},
    {Code::LostText, "lost-text"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The fields of an address after an empty one do not print.")},
    {Code::IncompleteRow, "incomplete-row"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The last cancelled document has fewer than three attributes.")},
    {Code::TooWide, "too-wide"_L1, warning, note, QT_TRANSLATE_NOOP("QObject", "A line is wider than the paper.")},
    {Code::CutText, "cut-text"_L1, note, note, QT_TRANSLATE_NOOP("QObject", "A description is cut to its column.")},
    {Code::ChangedText, "changed-text"_L1, note, note, QT_TRANSLATE_NOOP("QObject", "\"TOTALE\" prints as \"SOMMA\".")},
    {Code::PrintsNothing, "prints-nothing"_L1, note, note, QT_TRANSLATE_NOOP("QObject", "What the job says here does not reach the paper.")},
    {Code::WrongTopGroup, "wrong-top-group"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "The first group is not \"zelmora\": no setting is found.")},
    {Code::MissingSemicolon, "missing-semicolon"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "A semicolon is missing: what follows is swallowed.")},
    {Code::SkippedText, "skipped-text"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "The text is skipped, and what stands in it is not found.")},
    {Code::SecondTopGroup, "second-top-group"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "Only the first group at the top is read.")},
    {Code::OutsideGroup, "outside-group"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "A setting outside every group is never found.")},
    {Code::UnknownGroup, "unknown-group"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "No program reads a group of that name here.")},
    {Code::UnknownKey, "unknown-key"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "No program reads a setting of that name here.")},
    {Code::NotAFlag, "not-a-flag"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "A flag is \"true\" or \"false\" in just these letters: anything else reads as false.")},
    {Code::OutOfRange, "out-of-range"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The number is outside its range.")},
    {Code::NotAWord, "not-a-word"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The value is none of the words that the setting takes.")},
    {Code::ColumnsWiderThanPaper, "columns-wider-than-paper"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The columns leave no room for the description.")},
    {Code::RepeatedKey, "repeated-key"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The setting stands twice in its group: the later value holds.")},
    {Code::RepeatedGroup, "repeated-group"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The group stands twice: the first value that is not empty holds.")},
    {Code::Remark, "remark"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "There are no comments: the text becomes part of the name that follows, which is not found.")},
    {Code::LossyCharacter, "lossy-character"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The programs read \"?\" for a character beyond Western European ones.")},
    {Code::CatalogueMissing, "catalogue-missing"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The translation cannot be loaded: the labels stay English.")},
    {Code::PasswordReadable, "password-readable"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "Other users of the machine may read the password.")},
    {Code::PaperWiderThanRegister, "paper-wider-than-register"_L1, note, note, QT_TRANSLATE_NOOP("QObject", "The paper is wider than the register's 32 characters, within which lines are centred.")},
    {Code::EmptyGroup, "empty-group"_L1, note, note, QT_TRANSLATE_NOOP("QObject", "The group holds nothing: it is as if it were not there.")},
    {Code::RelativeCatalogue, "relative-catalogue"_L1, note, note, QT_TRANSLATE_NOOP("QObject", "The translation is found in one working folder only.")},
    {Code::NoEffect, "no-effect"_L1, note, note, QT_TRANSLATE_NOOP("QObject", "The setting has no effect in this document.")},
    {Code::NoCommand, "no-command"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "The line is no command of the register.")},
    {Code::NotOpened, "not-opened"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "The command needs an open document, and there is none of its kind.")},
    {Code::NotClosed, "not-closed"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "The script ends without the document's closing command.")},
    {Code::OpenedTwice, "opened-twice"_L1, error, error, QT_TRANSLATE_NOOP("QObject", "A document is opened while another one is open.")},
    {Code::NoSale, "no-sale"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "A fiscal receipt sells nothing.")},
    {Code::PaymentsBelowSum, "payments-below-sum"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "The payments of a fiscal receipt are less than its sum.")},
    {Code::InvalidBytes, "invalid-bytes"_L1, warning, warning, QT_TRANSLATE_NOOP("QObject", "Bytes are no characters in the script's encoding.")},
};
// clang-format on

} // namespace

QLatin1String word(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return "error"_L1;
    case Severity::Warning:
        return "warning"_L1;
    case Severity::Note:
        break;
    }
    return "note"_L1;
}

vocabulary::Table<CodeEntry> codes()
{
    return table;
}

const CodeEntry& entry(Code code)
{
    return table[static_cast<int>(code)];
}

const CodeEntry* findCode(const QString& name)
{
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [&](const CodeEntry& candidate) { return name == candidate.name; });
    return found == std::end(table) ? nullptr : found;
}

void sortByPlace(Findings& findings)
{
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& left, const Finding& right) { return left.place < right.place; });
}

} // namespace check
