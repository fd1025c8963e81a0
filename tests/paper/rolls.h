#ifndef ZELMORA_TESTS_PAPER_ROLLS_H
#define ZELMORA_TESTS_PAPER_ROLLS_H

#include "paper/roll.h"

#include <QStringList>

// Rolls as texts that a test can state.

/// "2:1 opened-twice nofis apri" for each fault.
inline QStringList faultsOf(const paper::Roll& roll)
{
    // In the order of their kinds.
    static const char* const names[] = {"no-command",    "not-opened",   "not-closed", "opened-twice",
                                        "quote-in-text", "behind-quote", "no-sale",    "payments-below-sum",
                                        "invalid-bytes", "too-wide"};
    QStringList faults;
    for (const paper::Fault& fault : roll.faults)
        faults += QStringLiteral("%1:%2 %3%4")
                      .arg(fault.place.line)
                      .arg(fault.place.column)
                      .arg(names[fault.kind], fault.text.isEmpty() ? QString() : u' ' + fault.text);
    return faults;
}

inline QStringList textsOf(const paper::Rows& rows)
{
    QStringList texts;
    for (const paper::Row& row : rows)
        texts += row.text;
    return texts;
}

#endif
