#include "toolkit/filereading.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>

namespace toolkit {

QString readRest(QFile& file, QByteArray& bytes)
{
    bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return file.errorString();
    // Of more than its byte arrays hold the toolkit reads nothing, without a word.
    return bytes.isEmpty() && file.pos() < file.size() ? qt_error_string(EFBIG) : QString();
}

} // namespace toolkit
