#ifndef ZELMORA_EDITOR_PAPEROUTPUT_H
#define ZELMORA_EDITOR_PAPEROUTPUT_H

#include "paper/sheet.h"

class QWidget;

/// Paper that leaves the window: boxes over @p window ask where to, and say what failed. Until that is said, nobody
/// waits for anything else.
namespace paperoutput {

/// A file's name is asked for, which is at first @p title with ".pdf" or ".png" at its end in @p folder; that becomes
/// the folder that is chosen. The file is whole, or as it was.
void savePdf(QWidget& window, const paper::Sheet& sheet, const QString& title, QString& folder);
void savePng(QWidget& window, const paper::Sheet& sheet, const QString& title, QString& folder);

/// On a printer that is asked for.
void print(QWidget& window, const paper::Sheet& sheet, const QString& title);

} // namespace paperoutput

#endif
