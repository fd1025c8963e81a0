#include "util/hlibrary.h"

#include <chrono>
#include <unistd.h>

void HLibrary::hsleep(unsigned int seconds)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + std::chrono::seconds(seconds);
    // A signal ends the system's sleep early. What is left is slept in whole seconds again: longer rather than shorter.
    for (Clock::duration left = end - Clock::now(); left.count() > 0; left = end - Clock::now())
        sleep(static_cast<unsigned int>(std::chrono::ceil<std::chrono::seconds>(left).count()));
}
