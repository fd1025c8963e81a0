#ifndef ZELMORA_TESTS_FUZZ_FUZZING_H
#define ZELMORA_TESTS_FUZZ_FUZZING_H

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

/// What libFuzzer calls with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// The input without a copy: it lives as long as the call.
inline QByteArray bytesOf(const std::uint8_t* data, std::size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
}

/// Ends the process, which libFuzzer notes as a finding, when the @p invariant does not hold.
inline void require(bool holds, const char* invariant)
{
    if (holds)
        return;
    std::fprintf(stderr, "Violated: %s\n", invariant);
    std::abort();
}

/// A file of this process that touches no disk. One object serves all inputs, one after the other.
class MemoryFile {
public:
    MemoryFile()
        : descriptor(memfd_create("zelmora", MFD_CLOEXEC))
    {
    }
    ~MemoryFile() { close(descriptor); }

    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    /// To be opened like any other file.
    QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(descriptor); }

    /// The path of the file, which now holds @p bytes and nothing else.
    QString holding(const QByteArray& bytes) const
    {
        const auto size = static_cast<std::size_t>(bytes.size());
        require(ftruncate(descriptor, 0) == 0 && pwrite(descriptor, bytes.constData(), size, 0) == bytes.size(),
                "the memory takes the input");
        return path();
    }

    bool endsWith(const QByteArray& bytes) const
    {
        const off_t begin = lseek(descriptor, 0, SEEK_END) - bytes.size();
        QByteArray end(bytes.size(), '\0');
        return begin >= 0 && pread(descriptor, end.data(), static_cast<std::size_t>(end.size()), begin) == end.size()
            && end == bytes;
    }

private:
    const int descriptor;
};

#endif
