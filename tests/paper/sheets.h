#ifndef ZELMORA_TESTS_PAPER_SHEETS_H
#define ZELMORA_TESTS_PAPER_SHEETS_H

#include "paper/sheet.h"

#include <QStringList>

// Sheets that a test can state.

inline paper::Rows rowsOf(const QStringList& texts)
{
    paper::Rows rows;
    for (const QString& text : texts)
        rows += paper::Row {text};
    return rows;
}

/// One strip of rows without marks.
inline paper::Sheet sheetOf(const QStringList& texts, const QString& title = {})
{
    return {{{paper::Strip {title, rowsOf(texts)}}}};
}

#endif
