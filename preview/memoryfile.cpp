#include "preview/memoryfile.h"

#include "toolkit/literals.h"
#include "toolkit/writesignals.h"

#include <QFile>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

using toolkit::operator""_L1;

namespace preview {

MemoryFile::MemoryFile()
    : descriptor(memfd_create("zelmora", MFD_CLOEXEC))
{
}

MemoryFile::~MemoryFile()
{
    if (isOpen())
        close(descriptor);
}

bool MemoryFile::write(const QByteArray& bytes)
{
    const toolkit::WriteSignalsBlocked blocked; // a limit on the size of files holds for it too
    QFile file;
    return file.open(descriptor, QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

qint64 MemoryFile::size() const
{
    return lseek(descriptor, 0, SEEK_END);
}

QByteArray MemoryFile::contents() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString MemoryFile::path() const
{
    return "/proc/self/fd/"_L1 + QString::number(descriptor);
}

void MemoryFile::handOver() const
{
    fcntl(descriptor, F_SETFD, 0);
}

} // namespace preview
