#ifndef ZELMORA_APP_COMPILE_H
#define ZELMORA_APP_COMPILE_H

/// Prints one job: `prog input_file output_file`, with at most one further argument, which is ignored. Any other
/// number of arguments gives a usage line on standard output, and nothing is opened. Failures are reported on
/// standard output, if at all; nothing is ever written to standard error.
void compile(int argc, char** argv);

#endif
