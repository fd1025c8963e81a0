// Finding: as one types, on the page that is shown.

#include "editor/filepage.h"
#include "editor/grouplist.h"
#include "editor/grouptable.h"
#include "editor/icons.h"
#include "editor/settingswindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>

using settings::Search;

void SettingsWindow::addFindBar()
{
    QToolBar* const bar = addToolBar(QObject::tr("Find"));
    bar->setMovable(false);
    findField = new QLineEdit;
    findField->setPlaceholderText(QObject::tr("Find a name or a value"));
    findField->setAccessibleName(QObject::tr("Find a name or a value"));
    findField->setPalette(icons::mutedText());
    findField->setClearButtonEnabled(true);
    findField->setMaximumWidth(50 * findField->fontMetrics().averageCharWidth()); // the hits stand beside it
    hits = new QLabel;
    hits->setMargin(4);
    bar->addWidget(findField);
    bar->addWidget(hits);
    connect(findField, &QLineEdit::textChanged, this, &SettingsWindow::find);
    connect(findField, &QLineEdit::returnPressed, this, &SettingsWindow::findNext);
    auto* const clearing = new QShortcut(QKeySequence(Qt::Key_Escape), findField);
    clearing->setContext(Qt::WidgetShortcut);
    connect(clearing, &QShortcut::activated, findField, &QLineEdit::clear);
}

void SettingsWindow::startFinding()
{
    findField->setFocus();
    findField->selectAll();
}

/// Shows what is found, and how much it is.
void SettingsWindow::find()
{
    if (!findField)
        return; // the window is not whole yet
    const Search search(findField->text());
    int count = 0;
    if (isFilePage()) {
        count = search.hitsIn(settings.file());
    } else {
        count = groups->filter(search);
        table->filter(search);
    }
    hits->setText(search.isEmpty() ? QString() : QObject::tr("%1 found").arg(count));
}

void SettingsWindow::findNext()
{
    const Search search(findField->text());
    if (search.isEmpty() || settings.file().root().isNull())
        return;
    if (!isFilePage()) {
        if (!table->goOn()) {
            groups->goOn();
            table->takeFocus();
        }
        return;
    }
    if (filePage->goToNext(search))
        statusBar()->clearMessage();
    else
        statusBar()->showMessage(QObject::tr("\"%1\" is not found.").arg(findField->text()));
}
