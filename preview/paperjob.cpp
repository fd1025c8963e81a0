#include "preview/paperjob.h"

#include "paper/roll.h"
#include "preview/papersource.h"

#include <QFileInfo>
#include <QObject>

namespace preview {

OwnJob readOwnJob(const QString& path)
{
    const Source source = readSource(path);
    if (!source.failure.isEmpty())
        return {{}, source.failure};
    if (!paper::isJob(source.bytes))
        return {{}, QObject::tr("The file %1 is no job: a job is XML, and begins with \"<\".").arg(path)};
    return {{QFileInfo(path).fileName(), source.bytes}, {}};
}

} // namespace preview
