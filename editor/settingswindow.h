#ifndef ZELMORA_EDITOR_SETTINGSWINDOW_H
#define ZELMORA_EDITOR_SETTINGSWINDOW_H

#include "preview/settingsbytes.h"
#include "settings/editedsettings.h"

#include <QFileSystemWatcher>
#include <QMainWindow>
#include <QTimer>

class FilePage;
class GroupList;
class GroupTable;
class Notice;
class Panes;
class PaperPane;
class QAction;
class QFileDialog;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTabWidget;

/// The settings editor: the settings that the suite's programs read, described and changed in a table for each group,
/// beside them the paper that they make, and on a second page all that stands in the file. Nothing is lost without a
/// word: what saving would drop or change is asked before and kept beside the file, what cannot be saved stays in the
/// window, and a file that does not look like settings can only be read.
class SettingsWindow : public QMainWindow {
    Q_OBJECT

public:
    /// @p firstPath is opened as soon as the window stands on the screen, with all of it, so that boxes stand over it;
    /// when it is empty, none is. Where there is no such file, the window begins with an empty one.
    explicit SettingsWindow(const QString& firstPath = QString());
    ~SettingsWindow() override;

    /// Shows the file @p path. False, after a message, when it cannot be read: then the window shows what it
    /// showed before.
    bool openFile(const QString& path);

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // What it is made of, and what it shows (settingswindow.cpp).
    void addPages();
    QWidget* newNotices();
    void showSettings();
    void follow(const settings::TreeChange& change);
    void showState();
    void showNotices();
    void showPage();
    bool isFilePage() const;

    // Menus (windowmenus.cpp).
    void addMenus();
    void addFileMenu();
    void addEditMenu();
    void addPageMenu();
    void addHelpMenu();
    QAction* addTo(QMenu& menu, const QString& text, const QKeySequence& key, void (SettingsWindow::*command)());
    QStringList recentFiles() const;
    void showRecentFiles(QMenu& menu);
    void updateActions();
    void undo();
    void redo();
    void editValue();
    void showHelp();
    QString helpOnCurrentItem() const;
    void showAbout();

    // The paper (windowpaper.cpp).
    PaperPane* newPaper();
    void addPaperMenu();
    void noteStoredSettings();
    void showPaperSoon();
    void showPaper();

    // Finding (windowfinding.cpp).
    void addFindBar();
    void startFinding();
    void find();
    void findNext();

    // Reading and writing (windowfiles.cpp).
    void openFirst(const QString& path);
    void open();
    void openRecent(const QString& path);
    void save();
    void saveAs();
    void reload();
    void quit() { close(); }
    QString chosenPath(QFileDialog& dialog);
    bool saveTo(const QString& path);
    bool mayDiscardChanges();
    bool mayBeWritten(const QString& path, const settings::SettingsFile::Trial& trial);
    bool confirmed(const QString& warning);
    void sayThatItCannotBeRead(const QString& path, const QString& reason);
    void sayThatItIsReadOnly();
    void tellBesideGroups();
    void showBesideGroups();
    void putRightBesideGroups();
    void noteOpened();
    void watch();
    bool hasUnsaved() const;

    settings::EditedSettings settings;
    QFileSystemWatcher watcher;
    preview::SettingsBytes storedSettings; ///< as the file has them
    QTimer paperTimer;

    GroupList* groups = nullptr;
    GroupTable* table = nullptr;
    PaperPane* paper = nullptr;
    FilePage* filePage = nullptr;
    Panes* panes = nullptr; ///< the first page
    QTabWidget* pages = nullptr;

    Notice* firstStart = nullptr;
    QPushButton* recentButton = nullptr; ///< of that
    Notice* notWritable = nullptr;
    Notice* changedByOthers = nullptr;
    Notice* besideGroups = nullptr;
    QPushButton* remedyButton = nullptr; ///< of that

    QLineEdit* findField = nullptr;
    QLabel* hits = nullptr;

    QAction* saveAction = nullptr;
    QAction* saveAsAction = nullptr;
    QAction* reloadAction = nullptr;
    QAction* undoAction = nullptr;
    QAction* redoAction = nullptr;
};

#endif
