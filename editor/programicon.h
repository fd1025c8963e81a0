#ifndef ZELMORA_EDITOR_PROGRAMICON_H
#define ZELMORA_EDITOR_PROGRAMICON_H

#include <QByteArray>

class QPainter;

/// The program's picture, a receipt: for its windows, and for the files that a desktop shows it by.
namespace programicon {

/// Paints it in the square from (0, 0) to (16, 16).
void paint(QPainter& painter);

/// The same as SVG.
QByteArray svg();

} // namespace programicon

#endif
