#ifndef ZELMORA_TESTS_SUPPORT_PROCESSORTIME_H
#define ZELMORA_TESTS_SUPPORT_PROCESSORTIME_H

#include <ctime>

/// The time that this process has worked since the object was made: what else the machine does is no part of it.
class ProcessorTime {
public:
    int milliseconds() const { return static_cast<int>((std::clock() - start) / (CLOCKS_PER_SEC / 1000)); }

private:
    const std::clock_t start = std::clock();
};

#endif
