#ifndef ZELMORA_EDITOR_COMMANDLINE_H
#define ZELMORA_EDITOR_COMMANDLINE_H

#include <QString>

/// The path of the file that the arguments of `zelmora-settings [options] [file]` name: without one, the user's own.
///
/// Needs no display, and there must be no application yet. Where a text is asked for, the help or the version, it
/// writes that to standard output and ends the process with status 0; where the arguments cannot be understood, it
/// writes the reason to standard error and ends it with status 2.
QString pathToOpen(int argc, char** argv);

#endif
