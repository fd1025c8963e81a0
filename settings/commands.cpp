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

void say(const QString& text)
{
    std::fprintf(stderr, "%s\n", toolkit::localeText(text).constData());
}

Status complain(Status status, const QString& reason)
{
    say(reason);
    return status;
}

} // namespace settings
