#include "app/compile.h"

#include <csignal>
#include <fcntl.h>
#include <new>
#include <unistd.h>

namespace {

/// With a closed standard stream the next file opened would take its number, and our messages would end up in
/// the script.
void keepStandardStreamsOpen()
{
    int descriptor = 0;
    do
        descriptor = open("/dev/null", O_RDWR);
    while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0)
        close(descriptor);
}

} // namespace

/// Always 0: the suite reads the script, never the status.
int main(int argc, char** argv)
{
    keepStandardStreamsOpen();
    // A write that fails is like any other, not the end of the process: a reader that went away, a size limit.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        compile(argc, argv);
    } catch (const std::bad_alloc&) {
        // A job or a setting larger than the memory: the script holds what came before it.
    }
    return 0;
}
