#ifndef ZELMORA_EDITOR_COMMANDLINE_H
#define ZELMORA_EDITOR_COMMANDLINE_H

#include <QString>

/// The path of the file that the arguments of `zelmora-settings [options] [file]` name: without one, the user's own.
///
/// The options may be those of the toolkit too, such as `-platform` and `-style`. Needs no display, and there must be
/// no application yet. Where a text is asked for, the help or the version, it writes that to standard output and ends
/// the process with status 0; where the arguments cannot be understood, it writes the reason to standard error and ends
/// it with status 2.
QString pathToOpen(int argc, char** argv);

/// Ends the process, as a call that cannot be understood does, if the application has left an option of the toolkit in
/// its arguments: one that does nothing on this platform, or that has a form which the toolkit does not know.
///
/// To be called after pathToOpen(), once the application with windows is there.
void refuseRemainingOptions();

#endif
