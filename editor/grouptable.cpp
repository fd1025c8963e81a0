#include "editor/grouptable.h"

#include "editor/icons.h"
#include "editor/notelist.h"
#include "editor/settingwidget.h"
#include "editor/taborder.h"
#include "settings/editedsettings.h"
#include "settings/settinghelp.h"

#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using settings::EditedSettings;
using settings::GroupRows;
using settings::Remedy;
using settings::Search;
using settings::SettingRow;
using vocabulary::Setting;
using vocabulary::SettingGroup;

namespace {

bool areSameSettings(const QVector<SettingWidget*>& widgets, const QVector<SettingRow>& rows)
{
    return std::equal(widgets.begin(), widgets.end(), rows.begin(), rows.end(),
                      [](const SettingWidget* widget, const SettingRow& row) { return widget->row().key == row.key; });
}

const int margin = 10; ///< that of the rows

/// Larger than what stands below it.
QFont titleFont(QFont font)
{
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.25);
    return font;
}

} // namespace

GroupTable::GroupTable(EditedSettings& theSettings)
    : settings(theSettings)
    , lines(new QVBoxLayout)
    , title(new QLabel)
    , description(new QLabel)
    , notes(new NoteList)
    , table(new QWidget)
{
    auto* const contents = new QWidget;
    auto* const layout = new QVBoxLayout(contents);
    layout->setContentsMargins(0, 0, 0, 0);
    title->setFont(titleFont(title->font()));
    title->setContentsMargins(margin, margin, margin, 0);
    description->setWordWrap(true);
    description->setContentsMargins(margin, 0, margin, margin);
    description->setPalette(icons::mutedText());
    notes->setContentsMargins(margin, 0, margin, margin);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    table->setLayout(lines);
    layout->addWidget(title);
    layout->addWidget(description);
    layout->addWidget(notes);
    layout->addWidget(table);
    layout->addStretch(1);
    layout->setSpacing(2);
    setWidget(contents);
    setWidgetResizable(true);
    setMinimumHeight(40); // on a small screen with bars above it
    setFocusPolicy(Qt::NoFocus); // its fields have the keyboard
    connect(notes, &NoteList::remedyChosen, this, [this](const Remedy& remedy) { settings.apply(remedy); });
}

void GroupTable::showGroup(const SettingGroup& group)
{
    shownGroup = &group;
    title->setText(QObject::tr(group.title));
    description->setText(settings::groupText(group));
    verticalScrollBar()->setValue(0);
    refresh();
}

void GroupTable::refresh()
{
    const GroupRows found = rowsOf(settings, *shownGroup);
    notes->show(found.notes, found.furtherNotes);
    if (!areSameSettings(rows, found.rows)) {
        for (SettingWidget* const widget : std::as_const(rows)) {
            widget->hide();
            widget->deleteLater(); // it may be what has just told of a change
        }
        rows.clear();
        for (const SettingRow& row : found.rows)
            rows += newRow(row);
        alignFields();
    }
    for (int i = 0; i < rows.size(); ++i)
        rows.at(i)->show(found.rows.at(i));
    orderTabs();
    table->setEnabled(settings.isEditable() && settings.file().reaches(QStringLiteral("zelmora.a")));
}

SettingWidget* GroupTable::newRow(const SettingRow& row)
{
    auto* const widget = new SettingWidget(settings, row);
    lines->addWidget(widget);
    connect(widget, &SettingWidget::fieldTaken, this, &GroupTable::orderTabs);
    return widget;
}

/// As it reads: rows, fields and buttons are made whenever they are needed, and Tab would come to them last.
void GroupTable::orderTabs()
{
    QWidget* stop = taborder::stopBefore(*this);
    if (!stop)
        return; // it stands in no window yet
    stop = taborder::append(stop, *notes);
    for (SettingWidget* const row : std::as_const(rows))
        stop = row->orderTabs(stop);
}

/// Below each other, beside the longest name.
void GroupTable::alignFields()
{
    int widest = 0;
    for (const SettingWidget* const row : std::as_const(rows))
        widest = qMax(widest, row->nameWidth());
    for (SettingWidget* const row : std::as_const(rows))
        row->setNameWidth(widest);
}

QSize GroupTable::sizeHint() const
{
    const int bar = verticalScrollBar()->sizeHint().width();
    return {widget()->minimumSizeHint().width() + bar + 2 * frameWidth(), QScrollArea::sizeHint().height()};
}

void GroupTable::filter(const Search& search)
{
    const auto hasIt = [&](const SettingWidget* widget) { return search.finds(widget->row()); };
    const bool isAny = std::any_of(rows.begin(), rows.end(), hasIt);
    for (SettingWidget* const widget : rows)
        widget->setVisible(!isAny || hasIt(widget));
}

/// -1 when none has the keyboard.
int GroupTable::currentRow() const
{
    const auto current = std::find_if(rows.begin(), rows.end(), [this](const SettingWidget* widget) {
        return widget->isAncestorOf(window()->focusWidget());
    });
    return current == rows.end() ? -1 : static_cast<int>(current - rows.begin());
}

const Setting* GroupTable::currentSetting() const
{
    const int row = currentRow();
    return row < 0 ? nullptr : rows.at(row)->row().setting;
}

void GroupTable::takeFocus()
{
    takeFocusFrom(0);
}

bool GroupTable::goOn()
{
    return takeFocusFrom(currentRow() + 1);
}

bool GroupTable::takeFocusFrom(int first)
{
    for (int i = first; i < rows.size(); ++i) {
        if (rows.at(i)->isVisibleTo(this)) {
            rows.at(i)->takeFocus();
            ensureWidgetVisible(rows.at(i));
            return true;
        }
    }
    return false;
}
