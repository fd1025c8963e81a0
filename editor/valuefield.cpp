#include "editor/valuefield.h"

#include "editor/choicefields.h"
#include "editor/textfields.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>

using settings::SettingRow;
using vocabulary::SettingKind;

ValueField* ValueField::make(const SettingRow& row)
{
    if (!row.fitsItsField())
        return new TextField;
    switch (row.setting->kind) {
    case SettingKind::Flag:
        return new FlagField;
    case SettingKind::Number:
        return new NumberField(*row.setting);
    case SettingKind::Word:
        return new WordField(*row.setting);
    case SettingKind::Path:
        return new PathField;
    case SettingKind::Secret:
        return new SecretField;
    case SettingKind::Text:
        break;
    }
    return new TextField;
}

void ValueField::setKeys(QWidget* widget)
{
    keys = widget;
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(2);
    const bool isForAnyText = widget->sizePolicy().expandingDirections().testFlag(Qt::Horizontal);
    line->addWidget(widget, isForAnyText ? 1 : 0);
    if (!isForAnyText)
        line->addStretch(); // it is as wide as what it can hold
    widget->installEventFilter(this);
    widget->setFocusPolicy(Qt::StrongFocus); // not by the wheel
}

void ValueField::describe(const QString& name, const QString& description)
{
    keys->setAccessibleName(name);
    keys->setAccessibleDescription(description);
}

bool ValueField::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Wheel) {
        event->ignore(); // it scrolls what is around
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore(); // the window takes changes back, of whatever field
            return true;
        }
    }
    if (event->type() == QEvent::FocusOut)
        emit left();
    return QWidget::eventFilter(object, event);
}
