#ifndef ZELMORA_PAPER_CHARACTERS_H
#define ZELMORA_PAPER_CHARACTERS_H

#include <QString>

/// What characters are on paper: our own tables, so that every machine and every toolkit agrees.
namespace paper {

enum class Shape {
    Plain, ///< takes a cell
    Wide, ///< takes two
    Combining, ///< joins what stands before it
    Hidden, ///< shows nothing, or reorders what stands beside it
};

/// @p codePoint may be any number, half of a surrogate pair too.
Shape shapeOf(uint codePoint);

/// What is drawn for a character: itself, or a picture of what does not show.
uint picture(uint codePoint);

/// Takes the character at @p index of @p text, and moves the index behind it.
uint nextCharacter(const QString& text, int& index);

/// @p text with pictures in place of what does not show. Combining marks stay as they are.
QString withPictures(const QString& text);

} // namespace paper

#endif
