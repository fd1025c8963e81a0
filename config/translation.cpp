#include "config/translation.h"

#include "config/zmconfiguration.h"
#include "toolkit/literals.h"

#include <QLocale>
#include <QTranslator>

#include <climits>

using toolkit::operator""_L1;

void loadTranslation(QTranslator& translator, const ZMConfiguration& settings)
{
    const QString directory = settings.getStrValue(QStringLiteral("zelmora.language.basedir"));
    const QString file = settings.getStrValue(QStringLiteral("zelmora.language.file"));
    // No file has a longer name, and the toolkit tries one shorter name after the other.
    if (directory.size() + file.size() > PATH_MAX)
        return;
    if (file == "/"_L1)
        translator.load(directory + "/zelmora_"_L1 + QLocale::system().name(), QStringLiteral("."));
    else
        translator.load(directory + file);
}
