#ifndef ZELMORA_UTIL_PAPERPROMPT_H
#define ZELMORA_UTIL_PAPERPROMPT_H

#include "toolkit/export.h"

class QString;

/// How the operator is asked for a new sheet of paper.
namespace paperprompt {

/// Shows caption and text in a box and waits until it is closed. False when the program has no QApplication, and so no
/// boxes.
using MessageBox = bool (*)(const QString& caption, const QString& text);

/// Gives the prompt its box, as the widgets' library does before main() begins: another library, which no program's
/// code calls, so that this is a name of ours which no installed header has.
ZELMORA_EXPORT void setMessageBox(MessageBox box);

/// Asks, and returns when the operator has answered: in the box, or on the console where there is none.
void askForSheet();

} // namespace paperprompt

#endif
