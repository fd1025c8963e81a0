#include "preview/printhome.h"

#include "preview/scratchfolders.h"
#include "toolkit/literals.h"
#include "toolkit/writesignals.h"

#include <QDir>
#include <QFile>

#include <cerrno>

using toolkit::operator""_L1;

namespace preview {

PrintHome::PrintHome(const std::optional<QByteArray>& settings)
    : folder(makeScratchFolder())
{
    if (folder.isEmpty())
        failure = qt_error_string(errno);
    else if (settings)
        failure = keep(*settings);
}

PrintHome::~PrintHome()
{
    removeScratchFolder(folder);
}

QString PrintHome::keep(const QByteArray& settings) const
{
    const toolkit::WriteSignalsBlocked blocked; // a full disk, or a limit, ends no window
    const QString place = folder + "/.zelmora/conf"_L1;
    QDir().mkpath(place);
    QFile file(place + "/zelmora.conf"_L1);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return file.errorString();
    // On a disk that fills up only the write behind the last that had room says why.
    for (qint64 done = 0; done < settings.size();) {
        const qint64 written = file.write(settings.constData() + done, settings.size() - done);
        if (written <= 0)
            return file.errorString();
        done += written;
    }
    return QString();
}

} // namespace preview
