#include "editor/filepage.h"

#include "editor/namedialog.h"
#include "editor/valuedelegate.h"
#include "settings/editedsettings.h"
#include "settings/namereason.h"
#include "settings/search.h"

#include <QAction>
#include <QBoxLayout>
#include <QLineEdit>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

using settings::EditedSettings;
using settings::SettingsFile;

namespace {

const int leastHeight = 40; ///< of the list, on a small screen with bars above it

bool isValue(const QTreeWidgetItem* item)
{
    return item && item->flags().testFlag(Qt::ItemIsEditable);
}

bool isWholeTree(const settings::TreeStep& step)
{
    return std::holds_alternative<settings::WholeTreeStep>(step);
}

/// The group below whose item there are others after @p step; null when only a value is another one.
QDomElement groupWithOtherItems(const settings::TreeStep& step)
{
    if (const auto* const group = std::get_if<settings::GroupStep>(&step))
        return group->parent;
    const auto& setting = std::get<settings::SettingStep>(step);
    const bool isValueAlone = setting.before && setting.after && setting.before->name == setting.after->name;
    return isValueAlone ? QDomElement() : setting.group;
}

} // namespace

FilePage::FilePage(EditedSettings& theSettings)
    : settings(theSettings)
    , layout(new QVBoxLayout(this))
{
    layout->setContentsMargins(0, 0, 0, 0);
    commandActions = {newCommand(QObject::tr("Add a &setting..."), &FilePage::addSetting),
                      newCommand(QObject::tr("Add a &group..."), &FilePage::addGroup),
                      newCommand(QObject::tr("Re&name..."), &FilePage::renameCurrent),
                      newCommand(QObject::tr("Re&move"), &FilePage::removeCurrent)};
    auto* const buttons = new QToolBar;
    buttons->setToolButtonStyle(Qt::ToolButtonTextOnly);
    buttons->addActions(commandActions);
    for (QToolButton* const button : buttons->findChildren<QToolButton*>())
        button->setAutoRaise(false); // they look like buttons
    layout->addWidget(buttons);
}

QAction* FilePage::newCommand(const QString& text, void (FilePage::*command)())
{
    auto* const action = new QAction(text, this);
    action->setEnabled(false);
    connect(action, &QAction::triggered, this, command);
    return action;
}

void FilePage::forget()
{
    if (!tree)
        return;
    tree->setParent(nullptr);
    tree->deleteLater(); // it may be what has just told of a key
    tree = nullptr;
}

void FilePage::replace()
{
    const bool hadFocus = window()->focusWidget() == tree; // or will have it, when a box before the window has gone
    forget();
    build();
    if (hadFocus)
        takeFocus();
}

void FilePage::build()
{
    if (tree)
        return;
    tree = settings.file().newConfigListView();
    tree->setAccessibleName(QObject::tr("All settings as in the file"));
    tree->setItemDelegate(new ValueDelegate(tree));
    tree->setEditTriggers(settings.isEditable() ? QAbstractItemView::DoubleClicked : QAbstractItemView::NoEditTriggers);
    unfold();
    tree->setMinimumHeight(leastHeight);
    layout->insertWidget(0, tree, 1);
    tree->show(); // what is hidden yet takes no focus
    tree->addActions(commandActions);
    tree->setContextMenuPolicy(Qt::ActionsContextMenu);
    tree->setCurrentItem(tree->topLevelItem(0));

    // On the tree alone: in the cell being edited these keys end the editing.
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const shortcut = new QShortcut(QKeySequence(key), tree);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, &FilePage::editCurrentValue);
    }
    auto* const removal = new QShortcut(QKeySequence(Qt::Key_Delete), tree);
    removal->setContext(Qt::WidgetShortcut);
    connect(removal, &QShortcut::activated, this, &FilePage::removeCurrent);
    connect(tree, &QTreeWidget::itemChanged, this, &FilePage::noteEdit);
    connect(tree, &QTreeWidget::currentItemChanged, this, &FilePage::enableCommands);
    enableCommands();
}

/// So that the groups of the first group are seen at a glance, and where one is unfolded, its values.
void FilePage::unfold()
{
    for (QTreeWidgetItemIterator value(tree, QTreeWidgetItemIterator::Editable); *value; ++value)
        (*value)->parent()->setExpanded(true);
    QTreeWidgetItem* const root = tree->topLevelItem(0);
    if (!root)
        return;
    root->setExpanded(true);
    for (int i = 0; i < root->childCount(); ++i)
        root->child(i)->setExpanded(true);
}

void FilePage::takeFocus()
{
    if (tree)
        tree->setFocus();
}

void FilePage::finishEditing()
{
    if (!tree)
        return;
    QWidget* const focus = tree->focusWidget();
    if (focus && focus != tree && focus->hasFocus()) {
        focus->clearFocus();
        tree->setFocus();
    }
}

bool FilePage::isTypingAnotherValue() const
{
    const auto* const cell = tree ? tree->findChild<QLineEdit*>() : nullptr;
    return cell && cell->isVisible() && tree->currentItem() && cell->text() != tree->currentItem()->text(0);
}

/// The current value, or that of the current setting.
void FilePage::editCurrentValue()
{
    QTreeWidgetItem* item = tree->currentItem();
    if (item && isValue(item->child(0)))
        item = item->child(0);
    if (!settings.isEditable() || !isValue(item) || tree->isPersistentEditorOpen(item))
        return;
    tree->setCurrentItem(item);
    tree->editItem(item);
}

void FilePage::noteEdit(QTreeWidgetItem* value)
{
    const Subject subject = subjectOf(value);
    if (!subject.name.isNull())
        settings.setValue(subject.group, subject.name, value->text(0));
}

bool FilePage::goToNext(const settings::Search& search)
{
    if (!tree->topLevelItem(0))
        return false;
    // From the item after the current one to the end, then from the beginning up to the current one itself.
    QTreeWidgetItem* const start = tree->currentItem() ? tree->currentItem() : tree->topLevelItem(0);
    QTreeWidgetItemIterator item(start);
    do {
        if (!*++item)
            item = QTreeWidgetItemIterator(tree);
        if (search.isIn((*item)->text(0))) {
            (*item)->setExpanded(true);
            tree->setCurrentItem(*item);
            return true;
        }
    } while (*item != start);
    return false;
}

// --- Commands ---

void FilePage::enableCommands()
{
    const Subject subject = currentSubject();
    const bool isRoot = subject.name.isNull() && !subject.group.parentNode().isElement();
    const bool mayChange = tree && settings.isEditable();
    commandActions[0]->setEnabled(mayChange && !isRoot); // a setting
    commandActions[1]->setEnabled(mayChange); // a group
    commandActions[2]->setEnabled(mayChange && !isRoot);
    commandActions[3]->setEnabled(mayChange && !isRoot);
}

void FilePage::addSetting()
{
    if (!commandActions[0]->isEnabled())
        return;
    const QDomElement group = subjectOf(tree->currentItem()).group;
    const auto why = [&](const QString& name) { return whyNoSetting(settings.file(), group, name); };
    const QString name =
        askForName(*this, QObject::tr("The name of the new setting in \"%1\":").arg(group.tagName()), QString(), why);
    if (name.isNull())
        return;
    settings.addSetting(group, name);
    goTo(group, name);
    editCurrentValue();
}

void FilePage::addGroup()
{
    if (!commandActions[1]->isEnabled())
        return;
    const QDomElement parent = subjectOf(tree->currentItem()).group;
    const auto why = [&](const QString& name) { return whyNoGroup(settings.file(), parent, name); };
    const QString name = askForName(*this, QObject::tr("The name of the new group:"), QString(), why);
    if (name.isNull())
        return;
    settings.addGroup(parent, name);
    const QDomElement around = parent.isNull() ? settings.file().root() : parent;
    goTo(SettingsFile::groupsIn(around).last(), QString());
}

void FilePage::renameCurrent()
{
    if (!commandActions[2]->isEnabled())
        return;
    const Subject subject = subjectOf(tree->currentItem());
    const bool isSetting = !subject.name.isNull();
    const QString before = isSetting ? subject.name : subject.group.tagName();
    const auto why = [&](const QString& name) {
        return isSetting ? whyNoSetting(settings.file(), subject.group, name)
                         : whyNotRenamed(settings.file(), subject.group, name);
    };
    const QString name = askForName(*this, QObject::tr("The new name of \"%1\":").arg(before), before, why);
    if (name.isNull())
        return;
    if (isSetting)
        settings.renameSetting(subject.group, before, name);
    else
        settings.renameGroup(subject.group, name);
    goTo(subject.group, isSetting ? name : QString());
}

void FilePage::removeCurrent()
{
    if (!commandActions[3]->isEnabled())
        return;
    const Subject subject = subjectOf(tree->currentItem());
    if (!subject.name.isNull())
        settings.removeSetting(subject.group, subject.name);
    else
        settings.removeGroup(subject.group);
}

// --- Items, and what they stand for ---

QDomElement FilePage::groupOf(const QTreeWidgetItem* item) const
{
    if (!item->parent())
        return settings.file().root();
    const QDomElement around = groupOf(item->parent());
    const int place = item->parent()->indexOfChild(const_cast<QTreeWidgetItem*>(item));
    return SettingsFile::groupsIn(around).value(place - settings.file().settingNames(around).size());
}

FilePage::Subject FilePage::subjectOf(const QTreeWidgetItem* item) const
{
    if (!item)
        return {};
    if (isValue(item))
        item = item->parent();
    if (!isValue(item->child(0)))
        return {groupOf(item), QString()};
    return {groupOf(item->parent()), item->text(0)};
}

FilePage::Subject FilePage::currentSubject() const
{
    return subjectOf(tree ? tree->currentItem() : nullptr);
}

/// Null where it is not in the list.
QTreeWidgetItem* FilePage::itemOf(const QDomElement& group) const
{
    if (group.isNull() || group == settings.file().root())
        return tree->topLevelItem(0);
    const QDomElement around = group.parentNode().toElement();
    QTreeWidgetItem* const parent = around.isNull() ? nullptr : itemOf(around);
    const int place = SettingsFile::groupsIn(around).indexOf(group);
    return parent && place >= 0 ? parent->child(settings.file().settingNames(around).size() + place) : nullptr;
}

void FilePage::goTo(const QDomElement& group, const QString& name)
{
    QTreeWidgetItem* const item = itemOf(group);
    if (!item)
        return;
    const int place = name.isNull() ? -1 : settings.file().placeOf(group, name);
    tree->setCurrentItem(place < 0 ? item : item->child(place));
}

// --- What was done elsewhere ---

void FilePage::showValue(const settings::SettingStep& step)
{
    QTreeWidgetItem* const group = itemOf(step.group);
    QTreeWidgetItem* const setting =
        group ? group->child(settings.file().placeOf(step.group, step.after->name)) : nullptr;
    if (setting && setting->childCount() > 0)
        setting->child(0)->setText(0, step.group.attribute(step.after->name));
}

/// Makes what is below the item of @p group anew.
void FilePage::rebuild(const QDomElement& group)
{
    QTreeWidgetItem* const item = itemOf(group);
    if (!item) {
        if (!tree->topLevelItem(0) && !settings.file().root().isNull())
            settings.file().buildConfigListView(settings.file().root(), tree);
        return;
    }
    QTreeWidgetItem holder;
    settings.file().buildConfigListView(group, &holder);
    QStringList unfolded;
    for (int i = 0; i < item->childCount(); ++i) {
        if (item->child(i)->isExpanded())
            unfolded += item->child(i)->text(0);
    }
    qDeleteAll(item->takeChildren());
    item->setText(0, group.tagName());
    item->addChildren(holder.child(0)->takeChildren());
    for (int i = 0; i < item->childCount(); ++i)
        item->child(i)->setExpanded(isValue(item->child(i)->child(0)) || unfolded.contains(item->child(i)->text(0)));
}

void FilePage::follow(const settings::TreeChange& change)
{
    if (!tree)
        return;
    if (std::any_of(change.begin(), change.end(), isWholeTree))
        return replace();
    const QSignalBlocker silence(tree);
    if (QTreeWidgetItem* const root = tree->topLevelItem(0))
        root->setText(0, settings.file().root().tagName()); // the file has another name when it was saved under one
    for (const settings::TreeStep& step : change) {
        const QDomElement group = groupWithOtherItems(step);
        if (!group.isNull()) {
            rebuild(group);
            goTo(group, QString());
        }
    }
    for (const settings::TreeStep& step : change) {
        const auto* const setting = std::get_if<settings::SettingStep>(&step);
        if (setting && setting->after)
            showValue(*setting);
    }
    enableCommands();
}
