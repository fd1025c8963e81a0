#ifndef ZELMORA_TESTS_SUPPORT_PIPEREADER_H
#define ZELMORA_TESTS_SUPPORT_PIPEREADER_H

#include <QByteArray>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

/// The reading end of a named pipe.
class PipeReader {
public:
    /// Whether it waits for a writer, and then for what that writes.
    enum class Waiting { No, Yes };

    PipeReader(const QString& path, Waiting waiting)
        : descriptor(open(QFile::encodeName(path), O_RDONLY | (waiting == Waiting::No ? O_NONBLOCK : 0)))
    {
        if (descriptor < 0)
            qFatal("The pipe can't be opened.");
    }

    ~PipeReader() { close(descriptor); }

    PipeReader(const PipeReader&) = delete;
    PipeReader& operator=(const PipeReader&) = delete;

    /// What has arrived since the last call. Of one that waits: none at the end.
    QByteArray newBytes() const
    {
        char bytes[4096];
        const ssize_t size = read(descriptor, bytes, sizeof bytes);
        return QByteArray(bytes, size > 0 ? int(size) : 0);
    }

private:
    const int descriptor;
};

#endif
