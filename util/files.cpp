#include "util/hlibrary.h"

#include "toolkit/writesignals.h"
#include "util/paperprompt.h"
#include "util/sleepthread.h"

#include <QDir>
#include <QFile>

namespace {

/// A copy under way, a piece at a time.
class PieceCopier {
public:
    PieceCopier(const QString& sourcePath, const QString& destinationPath, unsigned int pause)
        : source(sourcePath)
        , destination(destinationPath)
        , pause(pause)
    {
    }

    bool open()
    {
        // Unbuffered: each piece goes out at once, and none that was refused is kept.
        return source.open(QIODevice::ReadOnly)
            && destination.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    bool atEnd() { return source.atEnd(); }

    /// False when there is none, for a file can promise more than it gives: one that is cut meanwhile, one of the
    /// system's own.
    bool readPiece()
    {
        size = source.readLine(piece, sizeof piece);
        return size > 0;
    }

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
    QFile(path).open(QIODevice::WriteOnly);
}

bool HLibrary::copy(const QString& source, const QString& destination, unsigned int linesPerSheet, unsigned int pause)
{
    PieceCopier copier(source, destination, pause);
    if (!copier.open())
        return false;
    // The check stands between a piece and its count: the first sheet takes one more than the others.
    for (unsigned int pieces = 0; !copier.atEnd() && copier.readPiece(); ++pieces) {
        copier.writePiece();
        if (linesPerSheet != 0 && pieces >= linesPerSheet) {
            paperprompt::askForSheet();
            pieces = 0;
        }
        copier.rest();
    }
    return true;
}

bool HLibrary::copy(const QString& source, const QString& destination, const QString& linesPerSheet,
                    const QString& pause)
{
    return copy(source, destination, static_cast<unsigned int>(linesPerSheet.toInt()),
                static_cast<unsigned int>(pause.toInt()));
}

bool HLibrary::copy(const QString& source, const QString& destination, unsigned int linesPerPage, unsigned int pause,
                    unsigned int page)
{
    PieceCopier copier(source, destination, pause);
    if (!copier.open())
        return false;
    for (quint64 toSkip = quint64(linesPerPage) * page; toSkip > 0; --toSkip) {
        if (!copier.readPiece() || copier.atEnd())
            return false;
    }
    const unsigned int last = linesPerPage - 1; // of 0 the largest there is: the whole file
    for (unsigned int piece = 0; !copier.atEnd() && copier.readPiece(); ++piece) {
        copier.writePiece();
        if (piece >= last)
            break;
        copier.rest();
    }
    return true;
}
