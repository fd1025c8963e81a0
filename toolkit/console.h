#ifndef ZELMORA_TOOLKIT_CONSOLE_H
#define ZELMORA_TOOLKIT_CONSOLE_H

class QByteArray;

namespace toolkit {

/// Writes @p line and a line end to standard output and flushes it. The bytes go out as they are.
void writeLine(const QByteArray& line);

} // namespace toolkit

#endif
