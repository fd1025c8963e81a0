#ifndef ZELMORA_UTIL_SLEEPTHREAD_H
#define ZELMORA_UTIL_SLEEPTHREAD_H

#include "../toolkit/export.h"

#include <QThread>

/// A blocking pause: the constructor starts a thread that sleeps, the destructor waits for it, so
///
///     SleepThread {250};
///
/// holds the caller for 250 milliseconds.
class ZELMORA_EXPORT SleepThread : public QThread {
public:
    explicit SleepThread(unsigned long msecs);
    /// Waits, without a limit, until the pause is over.
    ~SleepThread() override;

    void run() override;

private:
    unsigned long msecs;
};

#endif
