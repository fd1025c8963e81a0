#ifndef ZELMORA_EDITOR_FILEPAGE_H
#define ZELMORA_EDITOR_FILEPAGE_H

#include "settings/treechange.h"

#include <QWidget>

class QAction;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class QVBoxLayout;

namespace settings {
class EditedSettings;
class Search;
}

/// All that stands in the file, as a list of groups, settings and values, whether the suite knows them or not. Values
/// are edited in their cells; groups and settings are added, renamed and taken out by commands.
class FilePage : public QWidget {
    Q_OBJECT

public:
    explicit FilePage(settings::EditedSettings& settings);

    /// What an item stands for.
    struct Subject {
        QDomElement group; ///< that it is, or that holds it; null: nothing
        QString name; ///< of the setting; null: it is the group
    };

    /// Shows the list of the file that is open now. Until then there is none: it takes long for many settings.
    void build();
    /// There is another file: the list of the one before is none of it.
    void forget();
    bool isBuilt() const { return tree != nullptr; }
    /// Follows what was done to the tree.
    void follow(const settings::TreeChange& change);

    /// Of the current item.
    Subject currentSubject() const;
    void takeFocus();
    /// Lets a cell that is being edited give its text to the settings.
    void finishEditing();
    /// Whether the text of a cell that is being edited is not the value any more.
    bool isTypingAnotherValue() const;
    /// Goes to the next item after the current one in which @p search is, and from the last one to the first. False
    /// when there is none.
    bool goToNext(const settings::Search& search);

    /// To add, to rename, to remove: for a menu.
    const QList<QAction*>& commands() const { return commandActions; }

    void editCurrentValue();
    void addSetting();
    void addGroup();
    void renameCurrent();
    void removeCurrent();

private:
    QAction* newCommand(const QString& text, void (FilePage::*command)());
    void replace();
    void unfold();
    void noteEdit(QTreeWidgetItem* value);
    void enableCommands();
    Subject subjectOf(const QTreeWidgetItem* item) const;
    QDomElement groupOf(const QTreeWidgetItem* item) const;
    QTreeWidgetItem* itemOf(const QDomElement& group) const;
    void rebuild(const QDomElement& group);
    void showValue(const settings::SettingStep& step);
    void goTo(const QDomElement& group, const QString& name);

    settings::EditedSettings& settings;
    QVBoxLayout* const layout;
    QList<QAction*> commandActions;
    QTreeWidget* tree = nullptr;
};

#endif
