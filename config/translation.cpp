#include "config/translation.h"

#include "config/zmconfiguration.h"
#include "toolkit/literals.h"

#include <QLocale>
#include <QTranslator>

#include <climits>

using toolkit::operator""_L1;

bool loadTranslation(QTranslator& translator, const ZMConfiguration& settings)
{
    return loadTranslation(translator, settings.getStrValue(QStringLiteral("zelmora.language.basedir")),
                           settings.getStrValue(QStringLiteral("zelmora.language.file")));
}

bool loadTranslation(QTranslator& translator, const QString& directory, const QString& file)
{
    // No file has a longer name, and the toolkit tries one shorter name after the other.
    if (directory.size() + file.size() > PATH_MAX)
        return false;
    const QString path = cataloguePath(directory, file);
    return file == "/"_L1 ? translator.load(path, QStringLiteral(".")) : translator.load(path);
}

QString cataloguePath(const QString& directory, const QString& file)
{
    return directory + (file == "/"_L1 ? "/zelmora_"_L1 + QLocale::system().name() : file);
}
