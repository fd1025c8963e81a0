#ifndef ZELMORA_TESTS_SUPPORT_PROCESSSTATE_H
#define ZELMORA_TESTS_SUPPORT_PROCESSSTATE_H

#include <QDir>
#include <QFileInfo>

#include <cstddef>
#include <malloc.h>
#include <sys/resource.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // whose header is not always installed
#endif

// What this process holds.

inline std::size_t allocatedBytes()
{
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 memory = mallinfo2();
    return memory.uordblks + memory.hblkhd;
#endif
}

inline int threadCount()
{
    return QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}

/// How many times the file at @p path is open.
inline int timesOpen(const QString& path)
{
    int count = 0;
    for (const QFileInfo& descriptor : QDir("/proc/self/fd").entryInfoList(QDir::Files | QDir::System))
        count += descriptor.symLinkTarget() == path ? 1 : 0;
    return count;
}

/// As long as it lives, no file may grow beyond @p bytes: a disk that is full.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &previous);
        const rlimit limited {bytes, previous.rlim_max};
        if (setrlimit(RLIMIT_FSIZE, &limited) != 0)
            qFatal("The file size can't be limited.");
    }

    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &previous); }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit previous;
};

#endif
