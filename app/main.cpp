#include "app/compile.h"
#include "toolkit/program.h"

#include <new>

/// Always 0: the suite reads the script, never the status.
int main(int argc, char** argv)
{
    toolkit::prepareProgram();
    try {
        compile(argc, argv);
    } catch (const std::bad_alloc&) {
        // A job or a setting larger than the memory: the script holds what came before it.
    }
    return 0;
}
