#ifndef ZELMORA_TOOLKIT_CHARACTERNAMES_H
#define ZELMORA_TOOLKIT_CHARACTERNAMES_H

#include <functional>

class QString;

/// Characters that a script cannot hold, for people who did not know that they had typed one.
namespace toolkit {

/// What a person calls the character, translated, and behind it its number: "euro sign (U+20AC)". For one that has no
/// such name what kind it is: "Greek letter (U+03B1)". @p codePoint may be any number.
QString nameOf(uint codePoint);

/// A spelling that prints in its place: "EUR" for the euro sign, a letter without its accents. All characters in it are
/// such that @p canPrint says so, and none is an apostrophe, which would end the register's text. Empty where there is
/// none.
QString plainSpelling(uint codePoint, const std::function<bool(uint)>& canPrint);

} // namespace toolkit

#endif
