#ifndef ZELMORA_PREVIEW_PRINTPROGRAM_H
#define ZELMORA_PREVIEW_PRINTPROGRAM_H

class QString;

namespace preview {

/// The path of the print program: the one beside this program's own file, which a link may lead to; else the one in
/// "../bin" from there; else the first one on PATH. Empty when there is none. Needs the application object.
QString findPrintProgram();

} // namespace preview

#endif
