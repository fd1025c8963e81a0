#include "editor/settingwidget.h"

#include "editor/icons.h"
#include "editor/notelist.h"
#include "editor/valuefield.h"
#include "settings/editedsettings.h"
#include "settings/settinghelp.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

using settings::EditedSettings;
using settings::Remedy;
using settings::SettingRow;

namespace {

const int fieldWidth = 190; ///< a path and a word have room, and all fields stand below each other
const int markWidth = 4;

} // namespace

SettingWidget::SettingWidget(EditedSettings& theSettings, const SettingRow& theRow)
    : settings(theSettings)
    , shownRow(theRow)
    , name(new QLabel)
    , description(new QLabel)
    , backButton(new QToolButton)
    , noneButton(new QToolButton)
    , notes(new NoteList)
{
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(markWidth + 6, 4, 4, 4);
    layout->setVerticalSpacing(2);
    layout->setColumnStretch(0, 1);
    addNames(*layout);
    takeField();
    addButtons(*layout);
    layout->addWidget(notes, 2, 0, 1, 4);
    connect(notes, &NoteList::remedyChosen, this, [this](const Remedy& remedy) {
        settings.apply(remedy);
        takeFocus(); // the button has gone
    });
    show(theRow);
}

void SettingWidget::addNames(QGridLayout& layout)
{
    name->setText(shownRow.setting->key);
    description->setText(QObject::tr(shownRow.setting->description));
    description->setWordWrap(true);
    QPalette colours;
    colours.setColor(QPalette::WindowText, icons::muted(colours));
    description->setPalette(colours);
    layout.addWidget(name, 0, 0);
    layout.addWidget(description, 1, 0);
}

void SettingWidget::addButtons(QGridLayout& layout)
{
    backButton->setIcon(icons::back(palette()));
    noneButton->setIcon(icons::none(palette()));
    noneButton->setToolTip(
        QObject::tr("Take it out of the file; then holds: %1").arg(settings::absenceText(*shownRow.setting)));
    noneButton->setAccessibleName(QObject::tr("Take %1 out of the file").arg(shownRow.setting->key));
    backButton->setAccessibleName(QObject::tr("Take back the change of %1").arg(shownRow.setting->key));
    int column = 2;
    for (QToolButton* const button : {backButton, noneButton}) {
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::StrongFocus);
        layout.addWidget(button, 0, column++, 2, 1, Qt::AlignVCenter);
    }
    connect(backButton, &QToolButton::clicked, this, [this] { settings.restore(shownRow.key); });
    connect(noneButton, &QToolButton::clicked, this, [this] { settings.unset(shownRow.key); });
}

/// The field that can show the value, in place of one that cannot.
void SettingWidget::takeField()
{
    if (field) {
        field->hide();
        field->deleteLater(); // it may be what has just told of a change
    }
    field = ValueField::make(shownRow);
    field->setFixedWidth(fieldWidth);
    static_cast<QGridLayout*>(layout())->addWidget(field, 0, 1, 2, 1, Qt::AlignVCenter);
    setTabOrder(field, backButton);
    const QString& key = shownRow.key;
    connect(field, &ValueField::chosen, this, [this, key](const QString& value) { settings.set(key, value); });
    connect(field, &ValueField::typed, this, [this, key](const QString& value) { settings.type(key, value); });
    connect(field, &ValueField::cleared, this, [this, key] { settings.unset(key); });
    connect(
        field, &ValueField::left, this,
        [this] {
            settings.endTyping();
            show(shownRow);
        },
        Qt::QueuedConnection); // the field may be another one then
}

void SettingWidget::show(const SettingRow& row)
{
    shownRow = row;
    if (!field->isFor(row) && !field->holdsFocus()) // somebody may be typing in it
        takeField();
    field->show(row);
    const QString absence = row.isAbsent()
        ? QLatin1Char(' ') + QObject::tr("not set: %1").arg(settings::absenceText(*row.setting))
        : QString();
    field->describe(row.setting->key, QObject::tr(row.setting->description) + absence);
    showNames();
    showButtons();
    notes->show(row.notes);
    update();
}

void SettingWidget::showNames()
{
    QFont font = name->font();
    font.setBold(shownRow.isChanged());
    name->setFont(font);
    name->setAccessibleDescription(shownRow.isChanged() ? QObject::tr("changed") : QString());
}

void SettingWidget::showButtons()
{
    backButton->setEnabled(shownRow.isChanged());
    backButton->setToolTip(shownRow.stored ? QObject::tr("Back to what the file has: %1").arg(*shownRow.stored)
                                           : QObject::tr("Back to what the file has: nothing"));
    noneButton->setEnabled(shownRow.written.has_value());
}

void SettingWidget::takeFocus()
{
    field->takeFocus();
}

/// A mark at the left where it is changed, and a line below.
void SettingWidget::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    if (shownRow.isChanged())
        painter.fillRect(0, 0, markWidth, height(), palette().color(QPalette::Highlight));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, height() - 1, width(), height() - 1);
}
