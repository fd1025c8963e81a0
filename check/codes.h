#ifndef ZELMORA_CHECK_CODES_H
#define ZELMORA_CHECK_CODES_H

#include "toolkit/literals.h"
#include "vocabulary/table.h"

#include <QString>

/// All that is ever found, as one table: for the checkers, their documents and the translation.
namespace check {

enum class Severity { Error, Warning, Note };

/// "error", "warning" or "note", in every language: for programs that read them.
QLatin1String word(Severity severity);

enum class Code {
    // Of several kinds of files.
    Unreadable,
    SettingsMissing,
    NotANumber,
    // Of jobs; a quote in a text and a line that is too wide also of scripts.
    NotWellFormed,
    NoMethod,
    UnknownMethod,
    ElementBeforeMethod,
    SecondMethod,
    UnknownElement,
    UnknownAttribute,
    IgnoredElement,
    IgnoredAttribute,
    RepeatedAttribute,
    MissingAttribute,
    NotADate,
    WrongSum,
    QuoteInText,
    ControlCharacter,
    UnprintableCharacter,
    UnknownEntity,
    LostText,
    IncompleteRow,
    TooWide,
    CutText,
    ChangedText,
    PrintsNothing,
    // Of settings.
    WrongTopGroup,
    MissingSemicolon,
    SkippedText,
    SecondTopGroup,
    OutsideGroup,
    UnknownGroup,
    UnknownKey,
    NotAFlag,
    OutOfRange,
    NotAWord,
    ColumnsWiderThanPaper,
    RepeatedKey,
    RepeatedGroup,
    Remark,
    LossyCharacter,
    CatalogueMissing,
    PasswordReadable,
    PaperWiderThanRegister,
    EmptyGroup,
    RelativeCatalogue,
    NoEffect,
    // Of scripts.
    NoCommand,
    NotOpened,
    NotClosed,
    OpenedTwice,
    NoSale,
    PaymentsBelowSum,
    InvalidBytes,
};

struct CodeEntry {
    Code code;
    QLatin1String name; ///< as it is shown and excluded: "not-a-number"
    Severity severity; ///< the graver one where there are two
    Severity lesser; ///< the other one, or the same
    const char* explanation; ///< one sentence, to be translated
};

/// In the order of Code.
vocabulary::Table<CodeEntry> codes();
const CodeEntry& entry(Code code);
/// Null when there is no such code.
const CodeEntry* findCode(const QString& name);

} // namespace check

#endif
