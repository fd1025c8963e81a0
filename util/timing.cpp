#include "util/hlibrary.h"

#include <unistd.h>

void HLibrary::hsleep(unsigned int seconds)
{
    // A signal ends the system's sleep early; it returns what is left of it.
    while (seconds > 0)
        seconds = sleep(seconds);
}
