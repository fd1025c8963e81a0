#ifndef ZELMORA_EDITOR_PAPERPANE_H
#define ZELMORA_EDITOR_PAPERPANE_H

#include "preview/livepaper.h"
#include "preview/paperchoice.h"

#include <QKeySequence>
#include <QWidget>

class PaperNotice;
class PaperView;
class QAction;
class QComboBox;
class QMenu;
class QStackedWidget;

/// The paper beside the settings: the document of the chosen group, as the print program prints it with the settings as
/// they are now.
class PaperPane : public QWidget {
    Q_OBJECT

public:
    explicit PaperPane(QWidget* parent = nullptr);

    /// @p now: the settings as they are in the window; @p stored: as the file has them.
    void setSettings(const preview::SettingsBytes& now, const preview::SettingsBytes& stored);
    /// Shows the documents of the group @p name of the settings; where no document reads it, what was shown stays.
    void setGroup(const QString& name);

    /// What can be done with the paper. Its keys work in the whole window.
    QMenu* paperMenu() const { return menu; }

private:
    QWidget* newControls();
    QWidget* newPages();
    void addActions();
    QAction* addAction(const QString& text, const QKeySequence& key, void (PaperPane::*command)());

    void choose(int index);
    void chooseOwnJob();
    void showChoice();
    void sayThatItPrints();
    void showPaper();
    void updateActions();

    void makeLarger();
    void makeSmaller();
    void fitWidth();
    void savePdf();
    void savePng();
    void print();
    QString title() const;

    preview::PaperChoice choice;
    preview::LivePaper live;
    QTimer patience; ///< until it is worth saying that it prints
    bool isOtherPaper = false; ///< that what comes next is not of the same job
    QString folder; ///< where a file was chosen last

    QComboBox* choiceBox = nullptr;
    QMenu* menu = nullptr;
    QAction* ownJobAction = nullptr;
    QAction* largerAction = nullptr;
    QAction* smallerAction = nullptr;
    QVector<QAction*> outputActions;
    QStackedWidget* pages = nullptr; ///< what will stand here, and the paper
    PaperView* view = nullptr;
    PaperNotice* notice = nullptr;
};

#endif
