#include "editor/settingwidget.h"

#include "check/findingtext.h"
#include "editor/icons.h"
#include "editor/notelist.h"
#include "editor/taborder.h"
#include "editor/valuefield.h"
#include "settings/editedsettings.h"
#include "settings/settinghelp.h"

#include <QGridLayout>
#include <QPainter>
#include <QTextDocument>
#include <QToolButton>

using settings::EditedSettings;
using settings::Remedy;
using settings::SettingRow;

namespace {

const int markWidth = 4;
const int columns = 4; ///< the name, the field, and the two buttons

/// The font of a name that is changed, or of one that is not.
QFont nameFont(QFont font, bool isChanged)
{
    font.setBold(isChanged);
    return font;
}

/// What it does, and what its absence means where the field has no room to say so.
QString descriptionOf(const SettingRow& row)
{
    const QString text = QObject::tr(row.setting->description);
    if (!row.isAbsent() || !row.setting->absence)
        return text;
    return text + QLatin1Char(' ') + QObject::tr("Without it: %1.").arg(settings::absenceText(*row.setting));
}

/// All that stands beside and below the field, for those who cannot see it.
QString spokenText(const SettingRow& row)
{
    QStringList texts {QObject::tr(row.setting->description)};
    if (row.isAbsent())
        texts += QObject::tr("not set: %1").arg(settings::absenceText(*row.setting));
    for (const settings::Note& note : row.notes)
        texts += note.text;
    return texts.join(QLatin1Char(' '));
}

/// What the way back leads to. A secret is not told.
QString backText(const SettingRow& row)
{
    if (!row.stored)
        return QObject::tr("Back to what the file has: nothing");
    if (row.setting->kind == vocabulary::SettingKind::Secret)
        return QObject::tr("Back to what the file has");
    const QString text = QObject::tr("Back to what the file has: %1").arg(check::shown(*row.stored));
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

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
    layout->setContentsMargins(markWidth + 6, 4, 4, 6);
    layout->setVerticalSpacing(0);
    layout->setHorizontalSpacing(4);
    layout->setColumnStretch(1, 1);
    addNames(*layout);
    takeField();
    addButtons(*layout);
    layout->addWidget(notes, 2, 0, 1, columns);
    connect(notes, &NoteList::remedyChosen, this, [this](const Remedy& remedy) {
        settings.apply(remedy);
        takeFocus(); // the button has gone
    });
    show(theRow);
}

void SettingWidget::addNames(QGridLayout& layout)
{
    name->setText(shownRow.setting->key);
    description->setWordWrap(true);
    description->setPalette(icons::mutedText());
    layout.addWidget(name, 0, 0);
    layout.addWidget(description, 1, 0, 1, columns);
}

void SettingWidget::addButtons(QGridLayout& layout)
{
    backButton->setIcon(icons::back(palette()));
    noneButton->setIcon(icons::none(palette()));
    noneButton->setToolTip(
        QObject::tr("Take it out of the file. Without it: %1.").arg(settings::absenceText(*shownRow.setting)));
    noneButton->setAccessibleName(QObject::tr("Take %1 out of the file").arg(shownRow.setting->key));
    backButton->setAccessibleName(QObject::tr("Take back the change of %1").arg(shownRow.setting->key));
    int column = 2;
    for (QToolButton* const button : {backButton, noneButton}) {
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::StrongFocus);
        layout.addWidget(button, 0, column++);
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
    static_cast<QGridLayout*>(layout())->addWidget(field, 0, 1);
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
    emit fieldTaken();
}

/// Takes another field where the row has one, but not from under somebody who is typing in this one.
void SettingWidget::fitField()
{
    const bool hadFocus = field->holdsFocus();
    if (field->isFor(shownRow) || (hadFocus && field->canShow(shownRow)))
        return;
    takeField();
    if (hadFocus)
        field->takeFocus();
}

void SettingWidget::show(const SettingRow& row)
{
    shownRow = row;
    fitField();
    field->show(row);
    field->describe(row.setting->key, spokenText(row));
    description->setText(descriptionOf(row));
    showNames();
    showButtons();
    notes->show(row.notes, row.furtherNotes);
    update();
}

void SettingWidget::showNames()
{
    name->setFont(nameFont(name->font(), shownRow.isChanged()));
    name->setAccessibleDescription(shownRow.isChanged() ? QObject::tr("changed") : QString());
}

void SettingWidget::showButtons()
{
    backButton->setEnabled(shownRow.isChanged());
    backButton->setToolTip(backText(shownRow));
    noneButton->setEnabled(shownRow.written.has_value());
}

int SettingWidget::nameWidth() const
{
    return QFontMetrics(nameFont(name->font(), true)).horizontalAdvance(name->text());
}

QWidget* SettingWidget::orderTabs(QWidget* stop)
{
    stop = taborder::append(stop, *field);
    for (QWidget* const button : {backButton, noneButton}) {
        setTabOrder(stop, button);
        stop = button;
    }
    return taborder::append(stop, *notes);
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
