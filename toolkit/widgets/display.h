#ifndef ZELMORA_TOOLKIT_WIDGETS_DISPLAY_H
#define ZELMORA_TOOLKIT_WIDGETS_DISPLAY_H

class QString;

namespace toolkit {

/// From now on what is drawn is scaled as a whole, and pictures are as sharp as the screen, as Qt 6 has it in any case.
/// Before the application object is made.
void useEveryDot();

/// The folder of the toolkit's own texts in other languages.
QString ownTextsFolder();

} // namespace toolkit

#endif
