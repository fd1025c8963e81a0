#include "settings/commands.h"

#include "config/zmconfiguration.h"
#include "toolkit/filenames.h"
#include "toolkit/localecodec.h"

#include <cstdio>

namespace settings {

QString pathOf(const Call& call)
{
    return call.file.isEmpty() ? ZMConfiguration::path() : toolkit::filePath(call.file);
}

Status complain(Status status, const QString& reason)
{
    std::fprintf(stderr, "%s\n", toolkit::localeText(reason).constData());
    return status;
}

} // namespace settings
