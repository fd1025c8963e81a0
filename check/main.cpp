#include "check/checkprogram.h"
#include "toolkit/program.h"

#include <cstdio>
#include <new>

int main(int argc, char** argv)
{
    toolkit::prepareProgram();
    try {
        return check::runCheckProgram(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("There is not enough memory to check this.\n", stderr);
        return 2; // as for what cannot be read
    }
}
