#ifndef ZELMORA_TESTS_SUPPORT_PROCESSSTATE_H
#define ZELMORA_TESTS_SUPPORT_PROCESSSTATE_H

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstddef>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

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

/// As long as it lives, this process has no more than @p most of a resource.
class ResourceLimit {
public:
    ResourceLimit(decltype(RLIMIT_FSIZE) limited, rlim_t most)
        : resource(limited)
    {
        getrlimit(resource, &previous);
        const rlimit limit {most, previous.rlim_max};
        if (setrlimit(resource, &limit) != 0)
            qFatal("The resource can't be limited.");
    }

    ~ResourceLimit() { setrlimit(resource, &previous); }

    ResourceLimit(const ResourceLimit&) = delete;
    ResourceLimit& operator=(const ResourceLimit&) = delete;

private:
    const decltype(RLIMIT_FSIZE) resource;
    rlimit previous;
};

/// As long as it lives, no file may grow beyond @p bytes: a disk that is full.
class FileSizeLimit : ResourceLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : ResourceLimit(RLIMIT_FSIZE, bytes)
    {
    }
};

/// As long as it lives, this process gets no more than about @p bytes of memory beside what it has.
class MemoryLimit : ResourceLimit {
public:
    explicit MemoryLimit(rlim_t bytes)
        : ResourceLimit(RLIMIT_AS, addressSpace() + bytes)
    {
    }

private:
    static rlim_t addressSpace()
    {
        QFile file(QStringLiteral("/proc/self/statm")); // in pages, the whole first
        if (!file.open(QIODevice::ReadOnly))
            qFatal("The size of this process can't be read.");
        return file.readAll().split(' ').first().toULongLong() * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    }
};

#endif
