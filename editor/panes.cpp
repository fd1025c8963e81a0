#include "editor/panes.h"

#include <QAction>
#include <QSettings>

namespace {

/// Below that the settings take all the room; in widths of an "x", since they grow with the letters.
const int narrowestWithPaper = 90;
/// The paper of a document at its natural size, with the ground around it; what is more goes to the settings as well.
const int naturalPaperWidth = 420;

const QString sizesKey = QStringLiteral("panes");
const QString paperKey = QStringLiteral("paperShown");

} // namespace

Panes::Panes(QWidget* groups, QWidget* table, QWidget* thePaper)
    : paper(thePaper)
    , action(new QAction(QObject::tr("&Paper beside the settings"), this))
{
    for (QWidget* const pane : {groups, table, paper})
        addWidget(pane);
    setChildrenCollapsible(false);
    setStretchFactor(0, 0); // its names do not grow with the window
    setStretchFactor(1, 1);
    setStretchFactor(2, 1);
    action->setCheckable(true);
    action->setChecked(QSettings().value(paperKey, true).toBool());
    action->setShortcut(Qt::Key_F9);
    isShared = restoreState(QSettings().value(sizesKey).toByteArray());
    connect(action, &QAction::toggled, this, &Panes::keepChoice);
    connect(this, &QSplitter::splitterMoved, this, &Panes::keepSizes);
}

void Panes::resizeEvent(QResizeEvent* event)
{
    QSplitter::resizeEvent(event);
    foldPaper();
    if (!isShared)
        shareRoom();
}

bool Panes::hasRoomForPaper() const
{
    return width() >= narrowestWithPaper * fontMetrics().averageCharWidth();
}

void Panes::foldPaper()
{
    action->setEnabled(hasRoomForPaper());
    paper->setVisible(hasRoomForPaper() && action->isChecked());
}

void Panes::shareRoom()
{
    const int room = width() - 2 * handleWidth();
    const int forTable = widget(1)->sizeHint().width();
    const int forGroups = qMin(widget(0)->sizeHint().width(), qMax(0, room - forTable)); // a name can be shortened
    const int rest = room - forGroups - forTable;
    const int forPaper = paper->isHidden() ? 0 : rest - qMax(0, rest - naturalPaperWidth) / 2;
    setSizes({forGroups, room - forGroups - forPaper, forPaper});
}

/// Those without the paper are not what somebody wants beside it.
void Panes::keepSizes()
{
    isShared = true;
    if (paper->isVisible())
        QSettings().setValue(sizesKey, saveState());
}

void Panes::keepChoice(bool isShown)
{
    QSettings().setValue(paperKey, isShown);
    foldPaper();
    if (!isShared)
        shareRoom();
}
