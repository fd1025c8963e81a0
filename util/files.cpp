#include "util/hlibrary.h"

#include "toolkit/filenames.h"
#include "toolkit/numbertext.h"
#include "toolkit/writesignals.h"
#include "util/paperprompt.h"
#include "util/sleepthread.h"

#include <QDir>
#include <QFile>

namespace {

/// An empty path is no file; the toolkit would say so on standard error.
bool openFile(QFile& file, const QString& path, QIODevice::OpenMode mode)
{
    return !path.isEmpty() && toolkit::openFile(file, path, mode).isEmpty();
}

/// A copy under way, a piece at a time.
class PieceCopier {
public:
    PieceCopier(const QString& sourcePath, const QString& destinationPath, unsigned int pause)
        : sourcePath(sourcePath)
        , destinationPath(destinationPath)
        , pause(pause)
    {
    }

    bool open()
    {
        // Unbuffered: each piece goes out at once, and none that was refused is kept.
        return openFile(source, sourcePath, QIODevice::ReadOnly)
            && openFile(destination, destinationPath, QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    /// Whether there is nothing more to read. A look at the size would not do: one of the system's own files promises
    /// more than it gives.
    bool atEnd()
    {
        char next = 0;
        return source.peek(&next, 1) != 1;
    }

    void readPiece() { size = source.readLine(piece, sizeof piece); }

    void writePiece()
    {
        const toolkit::WriteSignalsBlocked writeSignalsBlocked;
        destination.write(piece, size);
    }

    void rest() const
    {
        if (pause != 0)
            SleepThread {pause};
    }

private:
    const QString sourcePath;
    const QString destinationPath;
    QFile source;
    QFile destination;
    const unsigned int pause; ///< milliseconds
    char piece[128]; ///< the toolkit ends it with a NUL
    qint64 size = 0;
};

} // namespace

QString HLibrary::getCoreFile()
{
    return QDir(QString()).entryList({QStringLiteral("core*")}).value(0);
}

void HLibrary::touch(const QString& path)
{
    QFile file;
    openFile(file, path, QIODevice::WriteOnly);
}

bool HLibrary::copy(const QString& source, const QString& destination, unsigned int linesPerSheet, unsigned int pause)
{
    PieceCopier copier(source, destination, pause);
    if (!copier.open())
        return false;
    unsigned int pieces = 0;
    while (!copier.atEnd()) {
        copier.readPiece();
        copier.writePiece();
        if (linesPerSheet != 0 && pieces >= linesPerSheet) {
            paperprompt::askForSheet();
            pieces = 0;
        }
        copier.rest();
        ++pieces; // after the check: the first sheet takes one piece more than the others
    }
    return true;
}

bool HLibrary::copy(const QString& source, const QString& destination, const QString& linesPerSheet,
                    const QString& pause)
{
    return copy(source, destination, static_cast<unsigned int>(toolkit::toInteger(linesPerSheet)),
                static_cast<unsigned int>(toolkit::toInteger(pause)));
}

bool HLibrary::copy(const QString& source, const QString& destination, unsigned int linesPerPage, unsigned int pause,
                    unsigned int page)
{
    PieceCopier copier(source, destination, pause);
    if (!copier.open())
        return false;
    for (quint64 toSkip = quint64(linesPerPage) * page; toSkip > 0; --toSkip) {
        copier.readPiece();
        if (copier.atEnd())
            return false;
    }
    const unsigned int last = linesPerPage - 1; // of 0 the largest there is: the whole file
    for (unsigned int piece = 0; !copier.atEnd(); ++piece) {
        copier.readPiece();
        copier.writePiece();
        if (piece >= last)
            break;
        copier.rest();
    }
    return true;
}
