#ifndef ZELMORA_PREVIEW_PAPERPROGRAM_H
#define ZELMORA_PREVIEW_PAPERPROGRAM_H

namespace preview {

/// `zelmora-paper [options] file...`: does what the arguments say, and gives the exit status. It needs the application
/// object, which is one for windows where mayTakePainter() says so.
int runPaperProgram(int argc, char** argv);

} // namespace preview

#endif
