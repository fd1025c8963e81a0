#ifndef ZELMORA_EDITOR_SETTINGWIDGET_H
#define ZELMORA_EDITOR_SETTINGWIDGET_H

#include "settings/settingrows.h"

#include <QFrame>
#include <QLabel>

class NoteList;
class QGridLayout;
class QToolButton;
class ValueField;

namespace settings {
class EditedSettings;
}

/// A row of the table: the setting's name and what it does, its field, the ways back, and what is wrong with it.
class SettingWidget : public QFrame {
    Q_OBJECT

public:
    SettingWidget(settings::EditedSettings& settings, const settings::SettingRow& row);

    void show(const settings::SettingRow& row);
    const settings::SettingRow& row() const { return shownRow; }
    void takeFocus();
    /// Lets Tab go from @p stop through the row as it reads; returns where it is then.
    QWidget* orderTabs(QWidget* stop);

    /// What the name needs, changed or not.
    int nameWidth() const;
    /// The room that it gets, so that the fields of all rows stand below each other.
    void setNameWidth(int width) { name->setFixedWidth(width); }

signals:
    void fieldTaken(); ///< another field is in the place of the one before

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void addNames(QGridLayout& layout);
    void addButtons(QGridLayout& layout);
    void takeField();
    void fitField();
    void showNames();
    void showButtons();

    settings::EditedSettings& settings;
    settings::SettingRow shownRow;
    QLabel* const name;
    QLabel* const description;
    ValueField* field = nullptr;
    QToolButton* const backButton;
    QToolButton* const noneButton;
    NoteList* const notes;
};

#endif
