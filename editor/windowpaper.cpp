// The paper beside the settings.

#include "editor/grouplist.h"
#include "editor/paperpane.h"
#include "editor/settingswindow.h"

#include <QMenu>
#include <QMenuBar>

PaperPane* SettingsWindow::newPaper()
{
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

/// As the print program would find the settings if they were saved now; what differs from the file is marked there.
void SettingsWindow::showPaper()
{
    const preview::SettingsBytes now = preview::settingsOf(settings.file());
    if (!settings.isModified())
        storedSettings = now;
    paper->setSettings(now, storedSettings);
}
