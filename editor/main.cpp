#include "config/translation.h"
#include "config/zmconfiguration.h"
#include "editor/commandline.h"
#include "editor/settingswindow.h"
#include "preview/scratchfolders.h"
#include "toolkit/filenames.h"
#include "toolkit/literals.h"
#include "toolkit/widgets/display.h"

#include <QApplication>
#include <QSettings>
#include <QTranslator>

using toolkit::operator""_L1;

namespace {

/// Where the folder of the user's own has a name that the toolkit cannot have, nothing is kept, also in no other
/// folder.
void keepPlacesOnlyWhereMeant()
{
    if (!toolkit::unusableName(QSettings().fileName()).isEmpty())
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

} // namespace

int main(int argc, char** argv)
{
    const QString path = pathToOpen(argc, argv);

    toolkit::useEveryDot();
    preview::takeEndingSignals(); // before the toolkit starts threads
    QApplication application(argc, argv);
    refuseRemainingOptions();
    QApplication::setOrganizationName(QStringLiteral("zelmora"));
    QApplication::setDesktopFileName(QStringLiteral("zelmora-settings")); // by which a desktop knows its windows
    keepPlacesOnlyWhereMeant();

    // In the language of the documents; the toolkit has its own catalogues for the buttons it brings.
    QTranslator texts;
    loadTranslation(texts, *SyncSingleton<ZMConfiguration>::instance());
    QApplication::installTranslator(&texts);
    QTranslator buttons;
    if (buttons.load("qtbase_"_L1 + texts.language(), toolkit::ownTextsFolder()))
        QApplication::installTranslator(&buttons);

    SettingsWindow window(path);
    window.show();
    return QApplication::exec();
}
