// Files: opened, saved and closed without losing what nobody gave up.

#include "check/findingtext.h"
#include "editor/filepage.h"
#include "editor/message.h"
#include "editor/notice.h"
#include "editor/placement.h"
#include "editor/settingswindow.h"
#include "settings/recentfiles.h"
#include "settings/savequestions.h"
#include "settings/settingrows.h"
#include "toolkit/literals.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>

#include <algorithm>

using settings::SettingsFile;
using toolkit::operator""_L1;

namespace {

const QString recentKey = QStringLiteral("recent");

/// As much of a list as there is in a box that somebody must be able to answer; the rest is counted.
const int mostLines = 1000;
const int longestLine = 100;
const int longestFinding = 300; // they say what will happen and what to do

QString oneLine(const QString& text, int longest)
{
    return check::shown(text.simplified(), longest);
}

QString bulletList(const QStringList& texts, int longest = longestLine)
{
    QString list;
    for (const QString& text : texts.mid(0, mostLines))
        list += "\n\xB7 "_L1 + oneLine(text, longest);
    if (texts.size() > mostLines)
        list += "\n"_L1 + QObject::tr("and %1 more").arg(texts.size() - mostLines);
    return list;
}

/// Null where there is nothing to tell.
const settings::Note* firstToTell(const QVector<settings::Note>& notes)
{
    const auto isRemedied = [](const settings::Note& note) { return note.remedy.has_value(); };
    const auto found = std::find_if(notes.begin(), notes.end(), isRemedied);
    if (notes.isEmpty())
        return nullptr;
    return found != notes.end() ? &*found : &notes.first();
}

} // namespace

/// Where there is none yet, it begins with nothing.
void SettingsWindow::openFirst(const QString& path)
{
    const QString whole = QFileInfo(path).absoluteFilePath();
    if (!SettingsFile::isMissing(whole)) {
        openFile(whole);
        return;
    }
    settings.beginAt(whole);
    showSettings();
}

bool SettingsWindow::openFile(const QString& path)
{
    const QString reason = settings.load(QFileInfo(path).absoluteFilePath());
    if (!reason.isEmpty()) {
        sayThatItCannotBeRead(path, reason);
        return false;
    }
    showSettings();
    noteOpened();
    if (!settings.isEditable())
        sayThatItIsReadOnly();
    return true;
}

void SettingsWindow::sayThatItCannotBeRead(const QString& path, const QString& reason)
{
    Message(this, QStyle::SP_MessageBoxCritical, QObject::tr("The file %1 cannot be read: %2").arg(path, reason)).ask();
}

void SettingsWindow::noteOpened()
{
    QSettings store;
    store.setValue(recentKey, settings::withRecent(store.value(recentKey).toStringList(), settings.file().path()));
}

void SettingsWindow::sayThatItIsReadOnly()
{
    Message(this, QStyle::SP_MessageBoxWarning,
            QObject::tr("The file %1 does not look like the settings of the suite: none of its outermost groups is "
                        "named zelmora. It is open for reading only, since saving would leave little of it.")
                .arg(settings.file().path()))
        .ask();
}

/// What is wrong with the file that is shown at no group has a bar, which says the first of it: what can be put right
/// there, if anything can.
void SettingsWindow::tellBesideGroups()
{
    const QVector<settings::Note> notes =
        settings.isEditable() ? notesBesideGroups(settings) : QVector<settings::Note>();
    const settings::Note* const first = firstToTell(notes);
    QString text = first ? oneLine(first->text, longestFinding) : QString();
    if (notes.size() > 1)
        text += "\n"_L1 + QObject::tr("and %1 more").arg(notes.size() - 1);
    remedyButton->setVisible(first && first->remedy);
    besideGroups->tell(text);
}

void SettingsWindow::putRightBesideGroups()
{
    const QVector<settings::Note> notes = notesBesideGroups(settings);
    const settings::Note* const first = firstToTell(notes);
    if (first && first->remedy)
        settings.apply(*first->remedy);
}

void SettingsWindow::showBesideGroups()
{
    QStringList texts;
    for (const settings::Note& note : notesBesideGroups(settings))
        texts += note.text;
    Message(this, QStyle::SP_MessageBoxWarning, QObject::tr("In this file:") + bulletList(texts, longestFinding)).ask();
}

/// Of the file, which may be replaced by another, and of its folder, in which that happens.
void SettingsWindow::watch()
{
    const QFileInfo file(settings.file().path());
    QStringList paths;
    if (!settings.file().path().isEmpty())
        paths = QStringList {file.path(), file.filePath()};
    for (const QString& path : watcher.files() + watcher.directories()) {
        if (!paths.contains(path))
            watcher.removePath(path);
    }
    for (const QString& path : paths) {
        if (QFileInfo::exists(path) && !watcher.files().contains(path) && !watcher.directories().contains(path))
            watcher.addPath(path);
    }
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

void SettingsWindow::openRecent(const QString& path)
{
    if (mayDiscardChanges())
        openFile(path);
}

/// Empty when none is chosen.
QString SettingsWindow::chosenPath(QFileDialog& dialog)
{
    const QFileInfo current(settings.file().path());
    dialog.setDirectory(current.path());
    dialog.selectFile(current.fileName());
    settleOnScreen(dialog);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void SettingsWindow::save()
{
    saveTo(settings.file().path());
}

void SettingsWindow::saveAs()
{
    QFileDialog dialog(this, QObject::tr("Save as"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const QString path = chosenPath(dialog);
    if (!path.isEmpty())
        saveTo(path);
}

bool SettingsWindow::saveTo(const QString& path)
{
    filePage->finishEditing();
    const SettingsFile::Trial trial = settings.tryWriting(path);
    if (!mayBeWritten(path, trial))
        return false;
    const bool isWhole = settings.isWhole(trial);
    QString reason = settings.file().isNew() ? SettingsFile::makeFolderOf(path) : QString();
    if (reason.isEmpty())
        reason = settings.save(path, trial);
    if (!reason.isEmpty()) {
        Message(
            this, QStyle::SP_MessageBoxCritical,
            QObject::tr("The file %1 cannot be written: %2\nYour changes are still in this window.").arg(path, reason))
            .ask();
        return false;
    }
    const QString unread = isWhole ? QString() : settings.readBack(path);
    if (!unread.isEmpty()) {
        sayThatItCannotBeRead(path, unread);
        return false;
    }
    noteOpened();
    statusBar()->showMessage(QObject::tr("Saved."));
    return true;
}

/// Asks what there is to ask. What is lost then is kept beside the file; so is another file that is written over, of
/// which the dialog has asked.
bool SettingsWindow::mayBeWritten(const QString& path, const SettingsFile::Trial& trial)
{
    const QVector<settings::SaveQuestion> questions = questionsBeforeSaving(settings.file(), path, trial);
    for (const settings::SaveQuestion& question : questions) {
        if (!confirmed(question.text + bulletList(question.lines)))
            return false;
    }
    if (questions.isEmpty() && path == settings.file().path())
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
        openFile(settings.file().path());
}

/// The text of a cell that is being edited too.
bool SettingsWindow::hasUnsaved() const
{
    return isWindowModified() || filePage->isTypingAnotherValue();
}

/// True when nothing has changed, when the changes are saved now, or when they may go.
bool SettingsWindow::mayDiscardChanges()
{
    filePage->finishEditing();
    if (!isWindowModified())
        return true;
    const Message::Button answer =
        Message(this, QStyle::SP_MessageBoxWarning, QObject::tr("The settings have changed. Save the changes?"),
                QDialogButtonBox::Save | QDialogButtonBox::Discard | QDialogButtonBox::Cancel, QDialogButtonBox::Save)
            .ask();
    return answer == QDialogButtonBox::Discard || (answer == QDialogButtonBox::Save && saveTo(settings.file().path()));
}

void SettingsWindow::closeEvent(QCloseEvent* event)
{
    if (!mayDiscardChanges()) {
        event->ignore();
        return;
    }
    QSettings().setValue(QStringLiteral("geometry"), saveGeometry());
    event->accept();
}
