#ifndef ZELMORA_PAPER_DRAWING_H
#define ZELMORA_PAPER_DRAWING_H

#include <QString>

/// Drawings of a sheet that need no font and no display: the same sheet gives the same bytes everywhere.
namespace paper {

struct Document;
struct Sheet;

enum class Frame {
    Box, ///< of box-drawing characters
    Ascii, ///< of "+", "-" and "|"
};

/// Lines of text, each ended by a line feed. Marked parts have a row of "^" below them.
QString textDrawing(const Sheet& sheet, Frame frame);

/// The rows of a document as they stand, unframed and without marks, each ended by a line feed. Control characters are
/// their pictures here too.
QString plainText(const Document& document);

/// A whole SVG document, in UTF-8.
QByteArray svgDrawing(const Sheet& sheet);

} // namespace paper

#endif
