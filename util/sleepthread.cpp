#include "util/sleepthread.h"

SleepThread::SleepThread(unsigned long msecs)
    : msecs(msecs)
{
    start();
}

SleepThread::~SleepThread()
{
    wait();
}

void SleepThread::run()
{
    msleep(msecs);
}
