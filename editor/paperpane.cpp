#include "editor/paperpane.h"

#include "editor/message.h"
#include "editor/papernotice.h"
#include "editor/paperoutput.h"
#include "editor/paperview.h"
#include "editor/placement.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

const int unnoticedWait = 300; ///< milliseconds

/// A wheel that passes by changes nothing.
class ChoiceBox : public QComboBox {
protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QToolButton* newButton(QAction* action)
{
    auto* const button = new QToolButton;
    button->setDefaultAction(action);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(action->toolTip());
    return button;
}

} // namespace

PaperPane::PaperPane(QWidget* parent)
    : QWidget(parent)
    , folder(QDir::homePath())
    , menu(new QMenu(this))
    , notice(new PaperNotice)
{
    addActions();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(newControls());
    layout->addWidget(newPages(), 1);
    layout->addWidget(notice);

    patience.setSingleShot(true);
    patience.setInterval(unnoticedWait);
    connect(&patience, &QTimer::timeout, this, &PaperPane::sayThatItPrints);
    connect(&live, &preview::LivePaper::begun, &patience, qOverload<>(&QTimer::start));
    connect(&live, &preview::LivePaper::changed, this, &PaperPane::showPaper);
    connect(view, &PaperView::scaleChanged, this, &PaperPane::updateActions);
    updateActions();
}

QWidget* PaperPane::newControls()
{
    choiceBox = new ChoiceBox;
    choiceBox->setAccessibleName(QObject::tr("Document"));
    choiceBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choiceBox->setMinimumContentsLength(6);
    choiceBox->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(choiceBox, qOverload<int>(&QComboBox::activated), this, &PaperPane::choose);

    auto* const controls = new QWidget;
    auto* const layout = new QHBoxLayout(controls);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(choiceBox, 1);
    layout->addWidget(newButton(smallerAction));
    layout->addWidget(newButton(largerAction));
    return controls;
}

QWidget* PaperPane::newPages()
{
    auto* const empty =
        new QLabel(QObject::tr("Here stands the paper of a document, as it prints with these settings.\n\n"
                               "Choose the settings of a document, such as Receipt."));
    empty->setWordWrap(true);
    empty->setAlignment(Qt::AlignCenter);
    empty->setMargin(empty->fontMetrics().height());
    view = new PaperView;
    pages = new QStackedWidget;
    pages->addWidget(empty);
    pages->addWidget(view);
    return pages;
}

void PaperPane::addActions()
{
    ownJobAction = addAction(QObject::tr("A &job of your own..."), {}, &PaperPane::chooseOwnJob);
    menu->addSeparator();
    largerAction = addAction(QObject::tr("&Larger"), QKeySequence::ZoomIn, &PaperPane::makeLarger);
    largerAction->setIconText(QStringLiteral("+"));
    smallerAction = addAction(QObject::tr("&Smaller"), QKeySequence::ZoomOut, &PaperPane::makeSmaller);
    smallerAction->setIconText(QChar(0x2212));
    addAction(QObject::tr("&Fit the width"), QKeySequence(QStringLiteral("Ctrl+0")), &PaperPane::fitWidth);
    menu->addSeparator();
    outputActions = {addAction(QObject::tr("Save as P&DF..."), {}, &PaperPane::savePdf),
                     addAction(QObject::tr("Save as P&NG..."), {}, &PaperPane::savePng),
                     addAction(QObject::tr("&Print..."), QKeySequence::Print, &PaperPane::print)};
}

QAction* PaperPane::addAction(const QString& text, const QKeySequence& key, void (PaperPane::*command)())
{
    QAction* const action = menu->addAction(text, this, command);
    action->setShortcut(key);
    QWidget::addAction(action); // its key works wherever the menu hangs
    return action;
}

void PaperPane::setSettings(const preview::SettingsBytes& now, const preview::SettingsBytes& stored)
{
    live.setSettings(now, stored);
}

void PaperPane::setGroup(const QString& name)
{
    if (choice.setGroup(name))
        showChoice();
}

void PaperPane::choose(int index)
{
    choice.choose(index);
    showChoice();
}

void PaperPane::chooseOwnJob()
{
    QFileDialog dialog(this, QObject::tr("A job of your own"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDirectory(folder);
    settleOnScreen(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString path = dialog.selectedFiles().value(0);
    folder = QFileInfo(path).path();
    const preview::OwnJob own = preview::readOwnJob(path);
    if (own.failure.isEmpty()) {
        choice.chooseOwn(own.job);
        showChoice();
    } else {
        Message(this, QStyle::SP_MessageBoxCritical, own.failure).ask();
    }
}

void PaperPane::showChoice()
{
    choiceBox->clear();
    choiceBox->addItems(choice.titles());
    choiceBox->setCurrentIndex(choice.current());
    isOtherPaper = live.setJobs(choice.jobs()) || isOtherPaper;
    updateActions();
}

void PaperPane::sayThatItPrints()
{
    notice->tell(QObject::tr("It is being printed..."), QStyle::SP_MessageBoxInformation);
}

void PaperPane::showPaper()
{
    patience.stop();
    if (live.trouble().isEmpty())
        notice->clear();
    else
        notice->tell(live.trouble(), QStyle::SP_MessageBoxWarning);
    if (std::exchange(isOtherPaper, false))
        view->showSheet(live.sheet());
    else
        view->updateSheet(live.sheet());
    updateActions();
}

void PaperPane::updateActions()
{
    const bool isChosen = choice.current() >= 0;
    pages->setCurrentIndex(isChosen ? 1 : 0);
    choiceBox->setEnabled(isChosen);
    ownJobAction->setEnabled(isChosen);
    largerAction->setEnabled(view->canBeLarger());
    smallerAction->setEnabled(view->canBeSmaller());
    for (QAction* action : qAsConst(outputActions))
        action->setEnabled(!live.sheet().bands.isEmpty());
}

void PaperPane::makeLarger()
{
    view->makeLarger();
}

void PaperPane::makeSmaller()
{
    view->makeSmaller();
}

void PaperPane::fitWidth()
{
    view->fitWidth();
}

void PaperPane::savePdf()
{
    paperoutput::savePdf(*this, live.sheet(), title(), folder);
}

void PaperPane::savePng()
{
    paperoutput::savePng(*this, live.sheet(), title(), folder);
}

void PaperPane::print()
{
    paperoutput::print(*this, live.sheet(), title());
}

/// Of the paper: a document's, or the name of the job's file without what it ends in.
QString PaperPane::title() const
{
    return QFileInfo(choiceBox->currentText()).completeBaseName();
}
