#include "support/pinnedclock.h"

#include <atomic>
#include <ctime>
#include <sys/time.h>

namespace {

const qint64 notPinned = -1;
std::atomic<qint64> pinnedMsecs {notPinned};

timeval timeOfDay()
{
    const qint64 msecs = pinnedMsecs;
    if (msecs != notPinned)
        return {msecs / 1000, msecs % 1000 * 1000};
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    return {now.tv_sec, now.tv_nsec / 1000};
}

} // namespace

// A program's own functions go before those of the C library, for the toolkit too: it takes the time of day from the
// first, std::time() is the second.
extern "C" {

int gettimeofday(timeval* now, void*) noexcept
{
    *now = timeOfDay();
    return 0;
}

std::time_t time(std::time_t* now) noexcept
{
    const std::time_t seconds = timeOfDay().tv_sec;
    if (now)
        *now = seconds;
    return seconds;
}

} // extern "C"

PinnedClock::PinnedClock(const QDateTime& now, const char* zone)
{
    qputenv("TZ", zone);
    tzset();
    pinnedMsecs = now.toMSecsSinceEpoch();
}

PinnedClock::~PinnedClock()
{
    pinnedMsecs = notPinned;
    qunsetenv("TZ");
    tzset();
}

QDateTime utc(const char* text)
{
    QDateTime moment = QDateTime::fromString(QString::fromLatin1(text), Qt::ISODateWithMs);
    moment.setTimeSpec(Qt::UTC);
    if (!moment.isValid())
        qFatal("%s is no moment.", text);
    return moment;
}
