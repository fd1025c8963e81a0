#ifndef ZELMORA_SETTINGS_QUESTION_H
#define ZELMORA_SETTINGS_QUESTION_H

class QString;

namespace settings {

/// Whether there is a person at a terminal to ask.
bool canAsk();

/// Asks @p question on the terminal. True when the answer begins with the first letter of "yes", in the language of the
/// texts; no answer is no.
bool confirmed(const QString& question);

} // namespace settings

#endif
