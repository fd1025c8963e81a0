#ifndef ZELMORA_EDITOR_VALUEFIELD_H
#define ZELMORA_EDITOR_VALUEFIELD_H

#include "settings/settingrows.h"

#include <QWidget>

/// The field in which one setting is changed. Each change is told at once, and nothing else changes anything: not to
/// come or go with Tab, and not the wheel. Where the setting is absent, it shows in grey what that means.
class ValueField : public QWidget {
    Q_OBJECT

public:
    /// The field for @p row: that of the setting's kind, or a line for a text where that cannot show its value. Owned
    /// by the caller.
    static ValueField* make(const settings::SettingRow& row);

    /// Whether it is the field that make() would give.
    virtual bool isFor(const settings::SettingRow& row) const = 0;
    /// Whether it can show the row's value, though make() may give another one.
    virtual bool canShow(const settings::SettingRow& row) const { return isFor(row); }
    virtual void show(const settings::SettingRow& row) = 0;
    /// Names it for those who cannot see it.
    void describe(const QString& name, const QString& description);
    /// With all of the value selected, so that one types another.
    void takeFocus() { keys->setFocus(Qt::ShortcutFocusReason); }
    bool holdsFocus() const { return keys->hasFocus(); }

signals:
    void chosen(const QString& value);
    void typed(const QString& value); ///< letter by letter
    void cleared(); ///< absence was chosen
    void left(); ///< by the keyboard

protected:
    ValueField() = default;

    /// @p widget is what has the keyboard; it is laid out first, and guarded against wheels.
    void setKeys(QWidget* widget);
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QWidget* keys = nullptr;
};

#endif
