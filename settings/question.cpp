#include "settings/question.h"

#include "toolkit/localecodec.h"

#include <QObject>
#include <QTextCodec>

#include <cstdio>
#include <unistd.h>

namespace settings {

bool canAsk()
{
    return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1;
}

bool confirmed(const QString& question)
{
    std::fprintf(stderr, "%s ", toolkit::localeText(question + QObject::tr(" (y/N)")).constData());
    char answer[100] = "";
    if (!std::fgets(answer, sizeof answer, stdin))
        return false;
    const QString text = toolkit::localeCodec()->toUnicode(answer).trimmed();
    return text.startsWith(QObject::tr("y", "the first letter of yes"), Qt::CaseInsensitive);
}

} // namespace settings
