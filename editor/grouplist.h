#ifndef ZELMORA_EDITOR_GROUPLIST_H
#define ZELMORA_EDITOR_GROUPLIST_H

#include "settings/search.h"

#include <QListWidget>

namespace settings {
class EditedSettings;
}

/// The groups of settings under their plain names, with a mark where something is wrong.
class GroupList : public QListWidget {
    Q_OBJECT

public:
    explicit GroupList(const settings::EditedSettings& settings);

    const vocabulary::SettingGroup& current() const;
    void choose(const vocabulary::SettingGroup& group);
    /// Marks what is wrong now.
    void refresh();
    /// Shows those groups alone in which @p search finds something, each with the number of hits; goes to the first of
    /// them where the current one has none. How many hits there are in all.
    int filter(const settings::Search& search);
    /// Goes to the next group that is shown; after the last one comes the first.
    void goOn();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void chosen(const vocabulary::SettingGroup& group);

private:
    const settings::EditedSettings& settings;
    const QVector<const vocabulary::SettingGroup*> groups;
};

#endif
