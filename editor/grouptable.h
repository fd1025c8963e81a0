#ifndef ZELMORA_EDITOR_GROUPTABLE_H
#define ZELMORA_EDITOR_GROUPTABLE_H

#include "settings/search.h"

#include <QScrollArea>

class NoteList;
class QLabel;
class QVBoxLayout;
class SettingWidget;

namespace settings {
class EditedSettings;
}

/// The settings of one group, one below the other, to be changed.
class GroupTable : public QScrollArea {
    Q_OBJECT

public:
    explicit GroupTable(settings::EditedSettings& settings);

    void showGroup(const vocabulary::SettingGroup& group);
    /// Shows what the settings are now.
    void refresh();
    /// Shows those rows alone in which @p search finds something, or all where it finds the group itself.
    void filter(const settings::Search& search);

    const vocabulary::SettingGroup& group() const { return *shownGroup; }
    /// The setting with the keyboard; null when none has it.
    const vocabulary::Setting* currentSetting() const;
    /// Gives the keyboard to the first field that is shown.
    void takeFocus();
    /// To the next one that is shown after that with the keyboard, or to the first when none has it. False when there
    /// is none behind it.
    bool goOn();

    /// As wide as the widest row needs.
    QSize sizeHint() const override;

private:
    SettingWidget* newRow(const settings::SettingRow& row);
    void alignFields();
    void orderTabs();
    int currentRow() const;
    bool takeFocusFrom(int first);

    settings::EditedSettings& settings;
    const vocabulary::SettingGroup* shownGroup = nullptr;
    QVBoxLayout* const lines;
    QLabel* const title;
    QLabel* const description;
    NoteList* const notes;
    QVector<SettingWidget*> rows;
    QWidget* const table;
};

#endif
