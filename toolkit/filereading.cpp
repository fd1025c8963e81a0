#include "toolkit/filereading.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <limits>

namespace toolkit {

namespace {

const int pieceSize = 1 << 20;
/// What a byte array of Qt 5 holds; those of Qt 6 hold more than the rest of a program counts in an int.
const int mostBytes = std::numeric_limits<int>::max() - 2 * pieceSize;

} // namespace

QString readRest(QFile& file, QByteArray& bytes)
{
    bytes.clear();
    const qint64 size = std::max<qint64>(0, file.size() - file.pos()); // a pipe has none
    if (size > mostBytes)
        return qt_error_string(EFBIG);
    bytes.reserve(static_cast<int>(size));
    while (bytes.size() <= mostBytes) {
        const QByteArray piece = file.read(pieceSize);
        if (piece.isEmpty())
            return file.error() == QFileDevice::NoError ? QString() : file.errorString();
        bytes += piece;
    }
    bytes.clear();
    return qt_error_string(EFBIG);
}

} // namespace toolkit
