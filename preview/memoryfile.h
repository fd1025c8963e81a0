#ifndef ZELMORA_PREVIEW_MEMORYFILE_H
#define ZELMORA_PREVIEW_MEMORYFILE_H

#include <QByteArray>
#include <QString>

namespace preview {

/// A file in memory, without a name in any folder, that a process which is started can be given.
class MemoryFile {
public:
    /// isOpen() says whether it could be made.
    MemoryFile();
    ~MemoryFile();

    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    bool isOpen() const { return descriptor >= 0; }
    /// False when there is no room for all @p bytes.
    bool write(const QByteArray& bytes);
    qint64 size() const;
    QByteArray contents() const;

    /// What a process opens that has it. Each opening reads and writes from the beginning.
    QString path() const;
    /// Leaves it to the program that this process is going to execute. For a child between fork and exec.
    void handOver() const;

private:
    const int descriptor;
};

} // namespace preview

#endif
