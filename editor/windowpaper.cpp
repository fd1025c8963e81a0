// The paper beside the settings.

#include "editor/grouplist.h"
#include "editor/paperpane.h"
#include "editor/settingswindow.h"

#include <QMenu>
#include <QMenuBar>
#include <QSplitter>

namespace {

/// Below that the settings take all the room; in widths of an "x", since they grow with the letters.
const int narrowestWithPaper = 90;

const int firstShare = 400;

} // namespace

void SettingsWindow::addPaper()
{
    paper = new PaperPane;
    paperTimer.setSingleShot(true);
    connect(&paperTimer, &QTimer::timeout, this, &SettingsWindow::showPaper);
    splitter->addWidget(paper);
    // The groups keep the room that their names take, the others share the rest.
    splitter->setStretchFactor(1, 1);
    splitter->setStretchFactor(2, 1);
    splitter->setSizes({groups->sizeHint().width(), firstShare, firstShare});
    connect(groups, &GroupList::chosen, paper,
            [this](const vocabulary::SettingGroup& group) { paper->setGroup(group.name); });
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

void SettingsWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    paper->setVisible(width() >= narrowestWithPaper * fontMetrics().averageCharWidth());
}
