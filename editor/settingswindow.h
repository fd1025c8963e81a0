#ifndef ZELMORA_EDITOR_SETTINGSWINDOW_H
#define ZELMORA_EDITOR_SETTINGSWINDOW_H

#include "settings/settingsfile.h"

#include <QMainWindow>

class QAction;
class QFileDialog;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

/// The settings editor: one file as a tree of groups, settings and values, of which the values can be edited. Nothing
/// is lost without a word: what saving would drop or change is asked before and kept beside the file, what cannot be
/// saved stays in the window, and a file that does not look like settings can only be read.
class SettingsWindow : public QMainWindow {
    Q_OBJECT

public:
    /// @p firstPath is opened as soon as the window stands on the screen, with all of it, so that boxes stand over it;
    /// when it is empty, none is.
    explicit SettingsWindow(const QString& firstPath = QString());

    /// Shows the file @p path. False, after a message, when it cannot be read: then the window shows what it
    /// showed before.
    bool openFile(const QString& path);

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void addActions();
    void addFindBar();

    void open();
    bool save();
    bool saveAs();
    void reload();
    void startFinding();
    void findNext();

    QString chosenPath(QFileDialog& dialog);
    bool saveTo(const QString& path);
    void finishEditing();
    bool mayDiscardChanges();
    QStringList lossesOf(const QString& path, const settings::SettingsFile::Trial& trial) const;
    bool mayBeWritten(const QString& path, const settings::SettingsFile::Trial& trial);
    bool confirmed(const QString& warning);
    void sayWhatIsWrong();
    void showTree();
    void unfoldTree();
    void editCurrentValue();
    void showPath();

    QStringList shownValues() const;
    void noteStored();
    void noteUnstored();
    void noteEdit();
    bool isTypingAnotherValue() const;
    void updateSave();

    settings::SettingsFile file;
    QTreeWidget* tree = nullptr;
    QLineEdit* findField = nullptr;
    QAction* saveAction = nullptr;
    QAction* saveAsAction = nullptr;
    QAction* reloadAction = nullptr;
    QStringList storedValues; ///< all values, as they were last read or written
    bool isReadOnly = false; ///< a file that does not look like settings
    bool isStored = true; ///< false after a failure: then the file is not what was last read or written
};

#endif
