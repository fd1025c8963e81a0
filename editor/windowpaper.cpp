// The paper beside the settings.

#include "editor/grouplist.h"
#include "editor/paperpane.h"
#include "editor/settingswindow.h"

#include <QMenu>
#include <QMenuBar>

PaperPane* SettingsWindow::newPaper()
{
    paperTimer.setSingleShot(true);
    connect(&paperTimer, &QTimer::timeout, this, &SettingsWindow::showPaper);
    auto* const pane = new PaperPane;
    connect(groups, &GroupList::chosen, pane,
            [pane](const vocabulary::SettingGroup& group) { pane->setGroup(group.name); });
    return pane;
}

void SettingsWindow::addPaperMenu()
{
    QMenu* const menu = paper->paperMenu();
    menu->setTitle(QObject::tr("&Paper"));
    menuBar()->addMenu(menu);
}

/// What the file has, as it was just read or written.
void SettingsWindow::noteStoredSettings()
{
    if (!settings.isModified())
        storedSettings = preview::settingsOf(settings.file());
}

/// With the next round of the event loop, so that many keys in a row write the settings once.
void SettingsWindow::showPaperSoon()
{
    paperTimer.start(0);
}

/// As the print program would find the settings if they were saved now; what differs from the file is marked there.
void SettingsWindow::showPaper()
{
    paperTimer.stop();
    paper->setSettings(settings.isModified() ? preview::settingsOf(settings.file()) : storedSettings, storedSettings);
}
