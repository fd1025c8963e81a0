#ifndef ZELMORA_EDITOR_ICONS_H
#define ZELMORA_EDITOR_ICONS_H

#include "check/codes.h"

#include <QIcon>

class QPalette;

/// Pictures that are painted when they are needed, in the colours of the window: no theme has to have them, and they
/// are as sharp as the screen, light or dark.
namespace icons {

/// A receipt: the program (editor/programicon.h).
QIcon program();
/// How bad something is; told apart by form as well as by colour.
QIcon severity(check::Severity severity);
/// An arrow back: to what the file has.
QIcon back(const QPalette& palette);
/// A cross: to no value.
QIcon none(const QPalette& palette);
/// An eye: shows a secret.
QIcon eye(const QPalette& palette);

/// A colour for what is of less weight than text, which can still be read.
QColor muted(const QPalette& palette);
/// That of a label, and of what an empty line says, in that colour.
QPalette mutedText();

} // namespace icons

#endif
