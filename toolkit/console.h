#ifndef ZELMORA_TOOLKIT_CONSOLE_H
#define ZELMORA_TOOLKIT_CONSOLE_H

class QByteArray;
class QString;

namespace toolkit {

/// Writes @p line and a line end to standard output and flushes it. The bytes go out as they are.
void writeLine(const QByteArray& line);

/// Writes @p bytes to standard output, through its buffer.
void write(const QByteArray& bytes);
/// Writes what the buffer holds. False when that failed, or anything that was written to standard output before.
bool finishWriting();

/// @p text with a blank for each character that would end a line or upset a terminal: control characters, line and
/// paragraph separators.
QString inOneLine(const QString& text);

} // namespace toolkit

#endif
