#ifndef ZELMORA_CHECK_CHECKPROGRAM_H
#define ZELMORA_CHECK_CHECKPROGRAM_H

namespace check {

/// `zelmora-check [options] job.xml|script.txt...`: does what the arguments say, and gives the exit status. What was
/// asked for goes to standard output; why something was not done to standard error.
int runCheckProgram(int argc, char** argv);

} // namespace check

#endif
