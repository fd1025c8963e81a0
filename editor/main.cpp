#include "config/translation.h"
#include "config/zmconfiguration.h"
#include "editor/commandline.h"
#include "editor/settingswindow.h"
#include "preview/scratchfolders.h"
#include "toolkit/literals.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

using toolkit::operator""_L1;

int main(int argc, char** argv)
{
    const QString path = pathToOpen(argc, argv);

    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    preview::takeEndingSignals(); // before the toolkit starts threads
    QApplication application(argc, argv);
    refuseRemainingOptions();
    QApplication::setOrganizationName(QStringLiteral("zelmora"));
    QApplication::setDesktopFileName(QStringLiteral("zelmora-settings")); // by which a desktop knows its windows

    // In the language of the documents; the toolkit has its own catalogues for the buttons it brings.
    QTranslator texts;
    loadTranslation(texts, *SyncSingleton<ZMConfiguration>::instance());
    QApplication::installTranslator(&texts);
    QTranslator buttons;
    if (buttons.load("qtbase_"_L1 + texts.language(), QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&buttons);

    SettingsWindow window(path);
    window.show();
    return QApplication::exec();
}
