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
    const bool isKept = file.open(QIODevice::WriteOnly) && file.write(settings) == settings.size() && file.flush();
    return isKept ? QString() : file.errorString(); // closing it would forget the reason
}

} // namespace preview
