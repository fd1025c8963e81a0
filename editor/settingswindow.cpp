#include "editor/settingswindow.h"

#include "editor/filepage.h"
#include "editor/grouplist.h"
#include "editor/grouptable.h"
#include "editor/icons.h"
#include "editor/notelist.h"
#include "editor/notice.h"
#include "editor/panes.h"
#include "editor/paperpane.h"
#include "editor/placement.h"
#include "toolkit/literals.h"

#include <QEvent>
#include <QFileInfo>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

using check::Severity;
using toolkit::operator""_L1;

namespace {

const QSize firstSize(1080, 720);
const QString geometryKey = QStringLiteral("geometry");

// What the bars say of an open file; empty when there is nothing to say.

QString firstStartText(const settings::EditedSettings& settings)
{
    const QString path = settings.file().path();
    if (!settings.isEditable() || !settings.isEmpty() || settings.file().review().isHiddenByItsBeginning)
        return QString();
    return QFileInfo::exists(path) ? QObject::tr("The file %1 has no settings yet.").arg(path)
                                   : QObject::tr("There is no file %1 yet.").arg(path);
}

/// Of a file that is not there yet its folder, in which it will be made, or the nearest around it that is there.
bool isWritable(const QString& path)
{
    const QFileInfo file(path);
    if (file.exists())
        return file.isWritable();
    QFileInfo around(file.path());
    while (!around.exists() && !around.isRoot())
        around.setFile(around.path());
    return around.isDir() && around.isWritable();
}

QString notWritableText(const QString& path)
{
    if (isWritable(path))
        return QString();
    return QObject::tr("The file %1 may not be written: save under another name.").arg(path);
}

QString changedText(const settings::SettingsFile& file)
{
    if (!file.changedOnDisk())
        return QString();
    return QObject::tr("Another program has changed or removed the file %1 since it was opened.").arg(file.path());
}

} // namespace

SettingsWindow::SettingsWindow(const QString& firstPath)
{
    setWindowIcon(icons::program());
    addPages();
    addMenus();
    addFindBar();
    settings.setListener([this](const settings::TreeChange& change) { follow(change); });
    connect(&watcher, &QFileSystemWatcher::fileChanged, this, &SettingsWindow::showNotices);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, &SettingsWindow::showNotices);
    showSettings();

    resize(firstSize.boundedTo(roomOnScreen(*this)));
    restoreGeometry(QSettings().value(geometryKey).toByteArray());
    settleOnScreen(*this, [this, firstPath] {
        if (!firstPath.isEmpty())
            openFirst(firstPath);
    });
}

SettingsWindow::~SettingsWindow()
{
    settings.setListener([](const settings::TreeChange&) {}); // what is left of the window hears nothing
}

void SettingsWindow::addPages()
{
    groups = new GroupList(settings);
    table = new GroupTable(settings);
    filePage = new FilePage(settings);
    connect(groups, &GroupList::chosen, this, [this](const vocabulary::SettingGroup& group) {
        table->showGroup(group);
        find(); // its rows too
    });
    paper = newPaper();
    panes = new Panes(groups, table, paper);

    pages = new QTabWidget;
    pages->addTab(panes, QObject::tr("Settings"));
    pages->addTab(filePage, QObject::tr("All settings as in the file"));
    connect(pages, &QTabWidget::currentChanged, this, &SettingsWindow::showPage);

    auto* const contents = new QWidget;
    auto* const layout = new QVBoxLayout(contents);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(newNotices());
    layout->addWidget(pages, 1);
    setCentralWidget(contents);
}

QWidget* SettingsWindow::newNotices()
{
    firstStart = new Notice(Severity::Note);
    notWritable = new Notice(Severity::Warning);
    changedByOthers = new Notice(Severity::Warning);
    besideGroups = new Notice(Severity::Warning);
    firstStart->addButton(QObject::tr("Begin with a complete file"), [this] { settings.fill(); });
    recentButton = firstStart->addButton(QObject::tr("Open &recent"), [] {}); // its menu does it
    auto* const recent = new QMenu(recentButton);
    connect(recent, &QMenu::aboutToShow, recent, [this, recent] { showRecentFiles(*recent); });
    recentButton->setMenu(recent);
    notWritable->addButton(QObject::tr("Save as..."), [this] { saveAs(); });
    changedByOthers->addButton(QObject::tr("Read it again"), [this] { reload(); });
    remedyButton = besideGroups->addButton(QObject::tr("Put it right"), [this] { putRightBesideGroups(); });
    besideGroups->addButton(QObject::tr("Sho&w..."), [this] { showBesideGroups(); });
    auto* const bars = new QWidget;
    auto* const layout = new QVBoxLayout(bars);
    layout->setContentsMargins(0, 0, 0, 0);
    for (Notice* const notice : {firstStart, notWritable, changedByOthers, besideGroups})
        layout->addWidget(notice);
    return bars;
}

bool SettingsWindow::isFilePage() const
{
    return pages->currentWidget() == filePage;
}

/// Another file than before.
void SettingsWindow::showSettings()
{
    filePage->forget();
    table->showGroup(groups->current());
    paper->setGroup(groups->current().name);
    showState();
    showPage();
}

/// The page of the file is made when it is looked at.
void SettingsWindow::showPage()
{
    statusBar()->setVisible(isFilePage()); // the other page says all in place, and needs the room
    if (isFilePage()) {
        filePage->build();
        filePage->takeFocus();
    } else {
        groups->setFocus();
    }
    find();
}

void SettingsWindow::follow(const settings::TreeChange& change)
{
    if (change.isEmpty())
        noteStoredSettings();
    filePage->follow(change);
    table->refresh();
    showState();
}

void SettingsWindow::showState()
{
    const QString path = settings.file().path();
    const QString mark = path.isEmpty() || settings.isEditable() ? QString() : QObject::tr(" (read only)");
    setWindowTitle((path.isEmpty() ? QObject::tr("no file") : path) + mark + "[*] - "_L1 + QObject::tr("Settings"));
    setWindowModified(settings.isModified());
    groups->refresh();
    showPaperSoon();
    showNotices();
    updateActions();
    find();
}

/// What others do to the file shows at once too.
void SettingsWindow::showNotices()
{
    const bool isOpen = !settings.file().path().isEmpty();
    firstStart->tell(isOpen ? firstStartText(settings) : QString());
    recentButton->setVisible(!recentFiles().isEmpty());
    notWritable->tell(isOpen ? notWritableText(settings.file().path()) : QString());
    changedByOthers->tell(isOpen ? changedText(settings.file()) : QString());
    tellBesideGroups();
    updateActions();
    watch();
}

bool SettingsWindow::event(QEvent* event)
{
    // Others may remove the file, and a cell keeps its text for itself until it is closed: so that is asked when it
    // counts, before a key is taken for a shortcut.
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::ModifiedChange)
        updateActions();
    if (event->type() == QEvent::WindowActivate)
        showNotices();
    return QMainWindow::event(event);
}
