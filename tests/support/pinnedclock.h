#ifndef ZELMORA_TESTS_SUPPORT_PINNEDCLOCK_H
#define ZELMORA_TESTS_SUPPORT_PINNEDCLOCK_H

#include <QDateTime>

/// As long as it lives, the time of day of this process stands still, in a time zone of the test's own. The clocks
/// that measure how long something takes go on. One at a time.
class PinnedClock {
public:
    /// @p zone as the environment variable TZ has it, such as "EST5".
    explicit PinnedClock(const QDateTime& now, const char* zone = "UTC0");
    ~PinnedClock();

    PinnedClock(const PinnedClock&) = delete;
    PinnedClock& operator=(const PinnedClock&) = delete;
};

/// The moment that is @p text, such as "2026-07-04T13:05:09.042", in UTC.
QDateTime utc(const char* text);

#endif
