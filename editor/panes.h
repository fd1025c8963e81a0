#ifndef ZELMORA_EDITOR_PANES_H
#define ZELMORA_EDITOR_PANES_H

#include <QSplitter>

class QAction;

/// What stands beside each other on the first page: the groups, the settings of one, the paper. The groups take what
/// their names need, the settings what their rows need, and the paper shares the rest with them, until somebody moves
/// what stands between; that is kept for the next time. Where there is no room for three, the paper folds away.
class Panes : public QSplitter {
    Q_OBJECT

public:
    /// Takes the three over. The room that the first two need is that of their size hints.
    Panes(QWidget* groups, QWidget* table, QWidget* paper);

    /// Shows and hides the paper; to be used while there is room for it. Kept for the next time too.
    QAction* paperAction() const { return action; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    bool hasRoomForPaper() const;
    void foldPaper();
    void shareRoom();
    void keepSizes();
    void keepChoice(bool isShown);

    QWidget* const paper;
    QAction* const action;
    bool isShared = false; ///< by somebody, now or earlier
};

#endif
