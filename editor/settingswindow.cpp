#include "editor/settingswindow.h"

#include "editor/message.h"
#include "editor/placement.h"
#include "editor/valuedelegate.h"
#include "settings/shownloss.h"
#include "toolkit/literals.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

using settings::SettingsFile;
using toolkit::operator""_L1;

namespace {

const QSize firstSize(480, 640);
const QString geometryKey = QStringLiteral("geometry");

/// As much of a list as is read at a glance, and as there is in a question that somebody must be able to answer; the
/// rest is counted.
const int linesToGlanceAt = 12;
const int linesToDecideBy = 1000;
const int longestLine = 100;
const int longestFinding = 300; // they say what will happen and what to do

QString oneLine(const QString& text, int longest)
{
    const QString line = text.simplified();
    return line.size() <= longest ? line : line.left(longest) + "..."_L1;
}

/// What is wrong with the file; what the programs make of it all the same is no matter for a box.
QStringList withLines(const check::Findings& findings)
{
    QStringList texts;
    for (const check::Finding& finding : findings) {
        if (finding.severity != check::Severity::Note)
            texts += QObject::tr("line %1: %2").arg(QString::number(finding.place.line), finding.text);
    }
    return texts;
}

QString bulletList(const QStringList& texts, int mostLines = linesToGlanceAt, int longest = longestLine)
{
    QString list;
    for (const QString& text : texts.mid(0, mostLines))
        list += "\n\xB7 "_L1 + oneLine(text, longest);
    if (texts.size() > mostLines)
        list += "\n"_L1 + QObject::tr("and %1 more").arg(texts.size() - mostLines);
    return list;
}

} // namespace

SettingsWindow::SettingsWindow(const QString& firstPath)
{
    addActions();
    addFindBar();
    statusBar(); // or the window would change with its first message
    showTree();
    resize(firstSize.boundedTo(roomOnScreen(*this)));
    restoreGeometry(QSettings().value(geometryKey).toByteArray());
    settleOnScreen(*this, [this, firstPath] {
        if (!firstPath.isEmpty())
            openFile(firstPath);
    });
}

void SettingsWindow::addActions()
{
    QMenu* const fileMenu = menuBar()->addMenu(QObject::tr("&File"));
    connect(fileMenu, &QMenu::aboutToShow, this, &SettingsWindow::updateSave);
    fileMenu->addAction(QObject::tr("&Open..."), this, &SettingsWindow::open, QKeySequence::Open);
    // Not all platforms have a standard key for saving under another name, and for quitting.
    const QKeySequence saveAsKey(QStringLiteral("Ctrl+Shift+S"));
    saveAction = fileMenu->addAction(QObject::tr("&Save"), this, &SettingsWindow::save, QKeySequence::Save);
    saveAsAction = fileMenu->addAction(QObject::tr("Save &as..."), this, &SettingsWindow::saveAs, saveAsKey);
    reloadAction = fileMenu->addAction(QObject::tr("&Reload"), this, &SettingsWindow::reload, QKeySequence::Refresh);
    fileMenu->addSeparator();
    const QKeySequence quitKey(QStringLiteral("Ctrl+Q"));
    fileMenu->addAction(QObject::tr("&Quit"), this, &SettingsWindow::close, quitKey);

    QMenu* const editMenu = menuBar()->addMenu(QObject::tr("&Edit"));
    const QKeySequence editKey(Qt::Key_F2);
    editMenu->addAction(QObject::tr("Edit &value"), this, &SettingsWindow::editCurrentValue, editKey);
    editMenu->addAction(QObject::tr("&Find"), this, &SettingsWindow::startFinding, QKeySequence::Find);
    editMenu->addAction(QObject::tr("Find &next"), this, &SettingsWindow::findNext, QKeySequence::FindNext);
}

void SettingsWindow::addFindBar()
{
    QToolBar* const bar = addToolBar(QObject::tr("Find"));
    bar->setMovable(false);
    findField = new QLineEdit;
    findField->setPlaceholderText(QObject::tr("Find a name or a value"));
    findField->setClearButtonEnabled(true);
    bar->addWidget(findField);
    connect(findField, &QLineEdit::returnPressed, this, &SettingsWindow::findNext);
}

bool SettingsWindow::openFile(const QString& path)
{
    const QString reason = file.load(QFileInfo(path).absoluteFilePath());
    if (!reason.isEmpty()) {
        Message(this, QStyle::SP_MessageBoxCritical, QObject::tr("The file %1 cannot be read: %2").arg(path, reason))
            .ask();
        return false;
    }
    isReadOnly = !file.looksLikeSettings();
    showTree();
    sayWhatIsWrong();
    return true;
}

void SettingsWindow::sayWhatIsWrong()
{
    if (isReadOnly) {
        Message(this, QStyle::SP_MessageBoxWarning,
                QObject::tr("The file %1 does not look like the settings of the suite: none of its outermost groups is "
                            "named zelmora. It is open for reading only, since saving would leave little of it.")
                    .arg(file.path()))
            .ask();
        return;
    }
    const QStringList warnings = withLines(file.findings());
    if (!warnings.isEmpty())
        Message(this, QStyle::SP_MessageBoxWarning,
                QObject::tr("In this file:") + bulletList(warnings, linesToGlanceAt, longestFinding))
            .ask();
}

void SettingsWindow::showTree()
{
    tree = file.newConfigListView();
    tree->setItemDelegate(new ValueDelegate(tree));
    tree->setEditTriggers(isReadOnly ? QAbstractItemView::NoEditTriggers : QAbstractItemView::DoubleClicked);
    unfoldTree();
    setCentralWidget(tree); // the window owns it, and deletes the one before
    tree->setCurrentItem(tree->topLevelItem(0));
    tree->show(); // what is not shown yet gets no focus
    tree->setFocus();

    // On the tree alone: in the cell being edited these keys end the editing.
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const shortcut = new QShortcut(QKeySequence(key), tree);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, &SettingsWindow::editCurrentValue);
    }
    connect(tree, &QTreeWidget::itemChanged, this, &SettingsWindow::noteEdit);
    noteStored();
    showPath();
}

/// So that the groups of the first group are seen at a glance, and where one is unfolded, its values.
void SettingsWindow::unfoldTree()
{
    for (QTreeWidgetItemIterator value(tree, QTreeWidgetItemIterator::Editable); *value; ++value)
        (*value)->parent()->setExpanded(true);
    QTreeWidgetItem* const root = tree->topLevelItem(0);
    if (!root)
        return;
    root->setExpanded(true);
    for (int i = 0; i < root->childCount(); ++i)
        root->child(i)->setExpanded(true);
}

void SettingsWindow::showPath()
{
    const bool isLoaded = !file.path().isEmpty();
    const QString mark = isReadOnly ? QObject::tr(" (read only)") : QString();
    setWindowTitle((isLoaded ? file.path() : QObject::tr("no file")) + mark + "[*] - "_L1 + QObject::tr("Settings"));
    saveAsAction->setEnabled(isLoaded && !isReadOnly);
    reloadAction->setEnabled(isLoaded);
    updateSave();
}

/// All values of the tree, in its order; their names cannot change.
QStringList SettingsWindow::shownValues() const
{
    QStringList values;
    for (QTreeWidgetItemIterator value(tree, QTreeWidgetItemIterator::Editable); *value; ++value)
        values += (*value)->text(0);
    return values;
}

/// What is shown is what the file holds.
void SettingsWindow::noteStored()
{
    isStored = true;
    storedValues = shownValues();
    setWindowModified(false);
}

/// What is shown may stand in no file, whatever was read or written before.
void SettingsWindow::noteUnstored()
{
    isStored = false;
    setWindowModified(true);
}

void SettingsWindow::noteEdit()
{
    setWindowModified(!isStored || shownValues() != storedValues);
}

/// Whether the text of a cell that is being edited is not the value any more.
bool SettingsWindow::isTypingAnotherValue() const
{
    const auto* const cell = tree->findChild<QLineEdit*>();
    return cell && cell->isVisible() && tree->currentItem() && cell->text() != tree->currentItem()->text(0);
}

/// Saving is for what the file does not hold.
void SettingsWindow::updateSave()
{
    const QString path = file.path();
    saveAction->setEnabled(!path.isEmpty() && !isReadOnly
                           && (isWindowModified() || isTypingAnotherValue() || !QFileInfo::exists(path)));
}

bool SettingsWindow::event(QEvent* event)
{
    // Others may remove the file, and a cell keeps its text for itself until it is closed: so that is asked when it
    // counts, before a key is taken for a shortcut.
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::ModifiedChange)
        updateSave();
    return QMainWindow::event(event);
}

/// The current value, or that of the current setting.
void SettingsWindow::editCurrentValue()
{
    const auto isValue = [](const QTreeWidgetItem* cell) { return cell && cell->flags().testFlag(Qt::ItemIsEditable); };
    QTreeWidgetItem* item = tree->currentItem();
    if (item && isValue(item->child(0)))
        item = item->child(0);
    if (isReadOnly || !isValue(item) || tree->isPersistentEditorOpen(item))
        return;
    tree->setCurrentItem(item);
    tree->editItem(item);
}

/// A cell that is being edited gives its text to the tree.
void SettingsWindow::finishEditing()
{
    if (QWidget* const focus = tree->focusWidget())
        focus->clearFocus();
    tree->setFocus();
}

void SettingsWindow::open()
{
    if (!mayDiscardChanges())
        return;
    QFileDialog dialog(this, QObject::tr("Open"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QString path = chosenPath(dialog);
    if (!path.isEmpty())
        openFile(path);
}

/// Empty when none is chosen.
QString SettingsWindow::chosenPath(QFileDialog& dialog)
{
    const QFileInfo current(file.path());
    dialog.setDirectory(current.path());
    dialog.selectFile(current.fileName());
    settleOnScreen(dialog);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool SettingsWindow::save()
{
    return saveTo(file.path());
}

bool SettingsWindow::saveAs()
{
    QFileDialog dialog(this, QObject::tr("Save as"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const QString path = chosenPath(dialog);
    return !path.isEmpty() && saveTo(path);
}

bool SettingsWindow::saveTo(const QString& path)
{
    finishEditing();
    file.rebuildTree(*tree);
    const SettingsFile::Trial trial = file.tryWriting(path);
    if (!mayBeWritten(path, trial))
        return false;
    const QString reason = file.save(path, trial);
    if (!reason.isEmpty()) {
        Message(
            this, QStyle::SP_MessageBoxCritical,
            QObject::tr("The file %1 cannot be written: %2\nYour changes are still in this window.").arg(path, reason))
            .ask();
        if (path == file.path())
            noteUnstored();
        return false;
    }
    noteStored();
    // The window shows what the file holds now; where that cannot be read, this is still the only copy.
    const bool holdsOtherThings = path != file.path() || !trial.changed.isEmpty() || !file.review().dropped.isEmpty();
    if (holdsOtherThings && !openFile(path)) {
        noteUnstored();
        return false;
    }
    statusBar()->showMessage(QObject::tr("Saved."));
    return true;
}

/// What saving to @p path would cost, a question for each kind of loss.
QStringList SettingsWindow::lossesOf(const QString& path, const SettingsFile::Trial& trial) const
{
    const bool isSameFile = path == file.path();
    const QStringList dropped = settings::shownLosses(file);
    QStringList questions;
    if (file.review().isHiddenByItsBeginning && isSameFile)
        questions += QObject::tr("Nothing of the file %1 could be read. Saving empties it.").arg(path)
            + bulletList(dropped, linesToDecideBy);
    else if (!dropped.isEmpty())
        questions += QObject::tr("Saving will drop from the file:") + bulletList(dropped, linesToDecideBy);
    if (!trial.notXml.isEmpty())
        questions += QObject::tr("The file would not be XML, and nothing would be read back, because of:")
            + bulletList(trial.notXml);
    else if (!trial.changed.isEmpty())
        questions +=
            QObject::tr("These settings would read back otherwise, or not at all:") + bulletList(trial.changed);
    if (isSameFile && file.changedOnDisk())
        questions += QObject::tr("Another program has changed or removed the file %1 since it was opened. Saving drops "
                                 "what it changed.")
                         .arg(path);
    return questions;
}

/// Asks what there is to ask. What is lost then is kept beside the file; so is another file that is written over, of
/// which the dialog has asked.
bool SettingsWindow::mayBeWritten(const QString& path, const SettingsFile::Trial& trial)
{
    const QStringList losses = lossesOf(path, trial);
    for (const QString& loss : losses) {
        if (!confirmed(loss))
            return false;
    }
    if (losses.isEmpty() && path == file.path())
        return true;
    const QString reason = SettingsFile::keepBackup(path);
    return reason.isEmpty()
        || confirmed(
               QObject::tr("The file as it is now cannot be kept as %1: %2").arg(path + QLatin1Char('~'), reason));
}

bool SettingsWindow::confirmed(const QString& warning)
{
    Message message(this, QStyle::SP_MessageBoxWarning, warning, QDialogButtonBox::Save | QDialogButtonBox::Cancel,
                    QDialogButtonBox::Cancel);
    message.setButtonText(QDialogButtonBox::Save, QObject::tr("Save all the same"));
    return message.ask() == QDialogButtonBox::Save;
}

void SettingsWindow::reload()
{
    if (mayDiscardChanges())
        openFile(file.path());
}

/// True when nothing has changed, when the changes are saved now, or when they may go.
bool SettingsWindow::mayDiscardChanges()
{
    finishEditing();
    if (!isWindowModified())
        return true;
    const Message::Button answer =
        Message(this, QStyle::SP_MessageBoxWarning, QObject::tr("The settings have changed. Save the changes?"),
                QDialogButtonBox::Save | QDialogButtonBox::Discard | QDialogButtonBox::Cancel, QDialogButtonBox::Save)
            .ask();
    return answer == QDialogButtonBox::Discard || (answer == QDialogButtonBox::Save && save());
}

void SettingsWindow::startFinding()
{
    findField->setFocus();
    findField->selectAll();
}

void SettingsWindow::findNext()
{
    const QString text = findField->text();
    if (text.isEmpty() || !tree->topLevelItem(0))
        return;
    // From the item after the current one to the end, then from the beginning up to the current one itself.
    QTreeWidgetItem* const start = tree->currentItem() ? tree->currentItem() : tree->topLevelItem(0);
    QTreeWidgetItemIterator item(start);
    do {
        if (!*++item)
            item = QTreeWidgetItemIterator(tree);
        if ((*item)->text(0).contains(text, Qt::CaseInsensitive)) {
            statusBar()->clearMessage();
            (*item)->setExpanded(true);
            tree->setCurrentItem(*item);
            return;
        }
    } while (*item != start);
    statusBar()->showMessage(QObject::tr("\"%1\" is not found.").arg(text));
}

void SettingsWindow::closeEvent(QCloseEvent* event)
{
    if (!mayDiscardChanges()) {
        event->ignore();
        return;
    }
    QSettings().setValue(geometryKey, saveGeometry());
    event->accept();
}
