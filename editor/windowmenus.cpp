// The menus of the window, and what they do that concerns no file.

#include "editor/filepage.h"
#include "editor/grouplist.h"
#include "editor/grouptable.h"
#include "editor/message.h"
#include "editor/panes.h"
#include "editor/settingswindow.h"
#include "preview/samples.h"
#include "settings/recentfiles.h"
#include "settings/settinghelp.h"
#include "toolkit/literals.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QTabWidget>

using toolkit::operator""_L1;

namespace {

/// Of the documents that these print, as the box above the paper has them.
QStringList titlesOf(const QVector<const vocabulary::Method*>& methods)
{
    QStringList titles;
    for (const vocabulary::Method* const method : methods)
        titles += preview::findSample(method->name)->title();
    return titles;
}

/// On @p setting in @p group; on the group when that is null.
QString helpOn(const vocabulary::SettingGroup& group, const vocabulary::Setting* setting)
{
    return setting ? settings::helpOn(group, *setting, titlesOf(methodsAffected(group, *setting)))
                   : settings::helpOn(group, titlesOf(methodsOf(group)));
}

} // namespace

void SettingsWindow::addMenus()
{
    addFileMenu();
    addEditMenu();
    addPageMenu();
    addPaperMenu();
    addHelpMenu();
}

QAction* SettingsWindow::addTo(QMenu& menu, const QString& text, const QKeySequence& key,
                               void (SettingsWindow::*command)())
{
    QAction* const action = menu.addAction(text, this, command);
    action->setShortcut(key);
    return action;
}

void SettingsWindow::addFileMenu()
{
    QMenu& menu = *menuBar()->addMenu(QObject::tr("&File"));
    connect(&menu, &QMenu::aboutToShow, this, &SettingsWindow::updateActions);
    addTo(menu, QObject::tr("&Open..."), QKeySequence::Open, &SettingsWindow::open);
    QMenu* const recent = menu.addMenu(QObject::tr("Open &recent"));
    connect(&menu, &QMenu::aboutToShow, recent, [this, recent] { showRecentFiles(*recent); });
    saveAction = addTo(menu, QObject::tr("&Save"), QKeySequence::Save, &SettingsWindow::save);
    // Not all platforms have a standard key for saving under another name, and for quitting.
    saveAsAction =
        addTo(menu, QObject::tr("Save &as..."), QKeySequence(QStringLiteral("Ctrl+Shift+S")), &SettingsWindow::saveAs);
    reloadAction = addTo(menu, QObject::tr("Re&load"), QKeySequence::Refresh, &SettingsWindow::reload);
    menu.addSeparator();
    addTo(menu, QObject::tr("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), &SettingsWindow::quit);
}

QStringList SettingsWindow::recentFiles() const
{
    return settings::recentOnes(QSettings().value(QStringLiteral("recent")).toStringList(), settings.file().path());
}

void SettingsWindow::showRecentFiles(QMenu& menu)
{
    menu.clear();
    const QStringList files = recentFiles();
    for (const QString& file : files)
        menu.addAction(QString(file).replace(QLatin1Char('&'), "&&"_L1), this, [this, file] { openRecent(file); });
    menu.setEnabled(!files.isEmpty());
}

void SettingsWindow::addEditMenu()
{
    QMenu& menu = *menuBar()->addMenu(QObject::tr("&Edit"));
    connect(&menu, &QMenu::aboutToShow, this, &SettingsWindow::updateActions);
    undoAction = addTo(menu, QString(), QKeySequence::Undo, &SettingsWindow::undo);
    redoAction = addTo(menu, QString(), QKeySequence(), &SettingsWindow::redo);
    redoAction->setShortcuts({QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    menu.addSeparator();
    menu.addActions(filePage->commands());
    menu.addSeparator();
    addTo(menu, QObject::tr("Edit &value"), QKeySequence(Qt::Key_F2), &SettingsWindow::editValue);
    addTo(menu, QObject::tr("&Find"), QKeySequence::Find, &SettingsWindow::startFinding);
    addTo(menu, QObject::tr("Find &next"), QKeySequence::FindNext, &SettingsWindow::findNext);
}

void SettingsWindow::addPageMenu()
{
    QMenu* const menu = menuBar()->addMenu(QObject::tr("&View"));
    for (int page = 0; page < pages->count(); ++page)
        menu->addAction(pages->tabText(page), this, [this, page] { pages->setCurrentIndex(page); })
            ->setShortcut(QStringLiteral("Ctrl+%1").arg(page + 1));
    menu->addSeparator();
    menu->addAction(panes->paperAction());
}

void SettingsWindow::addHelpMenu()
{
    QMenu& menu = *menuBar()->addMenu(QObject::tr("&Help"));
    addTo(menu, QObject::tr("Help on this &setting"), QKeySequence(Qt::Key_F1), &SettingsWindow::showHelp);
    addTo(menu, QObject::tr("&About Zelmora settings"), QKeySequence(), &SettingsWindow::showAbout);
}

/// Saving is for what the file does not hold.
void SettingsWindow::updateActions()
{
    const QString path = settings.file().path();
    const bool mayWrite = !path.isEmpty() && settings.isEditable();
    saveAction->setEnabled(mayWrite && (hasUnsaved() || !QFileInfo::exists(path)));
    saveAsAction->setEnabled(mayWrite);
    reloadAction->setEnabled(!path.isEmpty());
    undoAction->setEnabled(settings.canUndo());
    redoAction->setEnabled(settings.canRedo());
    undoAction->setText(QObject::tr("&Undo %1").arg(settings.undoText()).trimmed());
    redoAction->setText(QObject::tr("&Redo %1").arg(settings.redoText()).trimmed());
}

void SettingsWindow::undo()
{
    if (settings.canUndo())
        settings.undo();
}

void SettingsWindow::redo()
{
    if (settings.canRedo())
        settings.redo();
}

void SettingsWindow::editValue()
{
    if (isFilePage())
        filePage->editCurrentValue();
    else
        table->takeFocus();
}

/// On the setting with the keyboard; else on the group.
void SettingsWindow::showHelp()
{
    const QString help = isFilePage() ? helpOnCurrentItem() : helpOn(groups->current(), table->currentSetting());
    Message(this, QStyle::SP_MessageBoxInformation, help).ask();
}

/// Of the page of the file, on which there may be any.
QString SettingsWindow::helpOnCurrentItem() const
{
    const auto [element, name] = filePage->currentSubject();
    const QString key = settings::SettingsFile::keyOf(element);
    const bool isGroup = name.isNull();
    if (isGroup && (key.isEmpty() || settings.file().groupsOf(QStringLiteral("zelmora")).contains(element)))
        return settings::helpOnFile();
    const vocabulary::SettingGroup* const group = groupReadAs(settings.file(), element);
    const vocabulary::Setting* const setting = settings::settingReadAs(group, name);
    if (isGroup ? group != nullptr : setting != nullptr)
        return helpOn(*group, setting);
    return settings::helpOnUnread(isGroup || key.isEmpty() ? key + name : key + QLatin1Char('.') + name);
}

void SettingsWindow::showAbout()
{
    const QString text = QObject::tr("Zelmora settings %1\nChanges the settings of the suite, and shows what is wrong "
                                     "with them.");
    Message(this, QStyle::SP_MessageBoxInformation, text.arg(QCoreApplication::applicationVersion())).ask();
}
