#ifndef ZELMORA_TOOLKIT_PROGRAM_H
#define ZELMORA_TOOLKIT_PROGRAM_H

namespace toolkit {

/// Makes a program ready for whatever surroundings it is started in; the first thing in its main(). From now on:
///
/// - A standard stream that was closed is open, on nothing: the next file to be opened does not take its number, and
///   no message ends up in it.
/// - A write that fails is like any other, not the end of the process: a reader that went away, a size limit.
/// - The toolkit's own remarks, on a file that cannot be opened for one, go nowhere.
void prepareProgram();

} // namespace toolkit

#endif
