#include "toolkit/widgets/display.h"

#include <QGuiApplication>
#include <QLibraryInfo>

namespace toolkit {

#if QT_VERSION_MAJOR < 6

void useEveryDot()
{
    QGuiApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QGuiApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

QString ownTextsFolder()
{
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
}

#else

void useEveryDot()
{
}

QString ownTextsFolder()
{
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
}

#endif

} // namespace toolkit
