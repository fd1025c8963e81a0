#ifndef ZELMORA_TESTS_EDITOR_PERSON_H
#define ZELMORA_TESTS_EDITOR_PERSON_H

#include "editor/boxanswers.h"
#include "editor/settingswindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTreeWidget>
#include <QtTest>

#include <algorithm>

/// The person before a settings window: reads it, presses keys, and answers the boxes that come up.
class Person : public BoxAnswers {
public:
    /// Boxes without an answer are cancelled.
    explicit Person(SettingsWindow& theWindow)
        : window(theWindow)
    {
    }

    void willName(const QString& name) ///< in a box that asks for a name; one that is refused is cancelled
    {
        will([this, name](QWidget* box) {
            auto* const field = box->findChild<QLineEdit*>();
            if (!field)
                return false;
            field->selectAll();
            QTest::keyClicks(field, name);
            for (const QLabel* label : box->findChildren<QLabel*>())
                refusal = label->text(); // the last one says why
            QTest::keyClick(field, Qt::Key_Return);
            if (box->isVisible())
                QTest::keyClick(field, Qt::Key_Escape);
            return true;
        });
    }
    QString refusal; ///< of the name that was typed last; empty when it was taken

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        activate();
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        QCoreApplication::processEvents(); // a cell hands its text over when the key has gone its way
    }
    void type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }

    /// The list of all that stands in the file; once its page was shown.
    QTreeWidget* tree() const { return window.findChild<QTreeWidget*>(); }

    /// The item that these labels lead to from the root's item; null when there is none.
    QTreeWidgetItem* item(const QStringList& labels) const
    {
        QTreeWidgetItem* found = tree()->topLevelItem(0);
        for (const QString& label : labels) {
            QTreeWidgetItem* const parent = found;
            found = nullptr;
            for (int i = 0; parent && i < parent->childCount() && !found; ++i) {
                if (parent->child(i)->text(0) == label)
                    found = parent->child(i);
            }
        }
        return found;
    }
    /// The value of the setting that these labels lead to.
    QString value(const QStringList& labels) const
    {
        const QTreeWidgetItem* const setting = item(labels);
        return setting ? setting->child(0)->text(0) : QStringLiteral("no such setting");
    }
    /// The labels from the root's item to the current item, without the root's own.
    QStringList currentLabels() const
    {
        QStringList labels;
        for (const QTreeWidgetItem* item = tree()->currentItem(); item && item->parent(); item = item->parent())
            labels.prepend(item->text(0));
        return labels;
    }
    void goTo(const QStringList& labels) { tree()->setCurrentItem(item(labels)); }
    /// The field or the button of that name, as it is read to those who cannot see it; null when none is shown.
    template <class Kind>
    Kind* named(const QString& name) const
    {
        for (Kind* candidate : window.findChildren<Kind*>()) {
            if (candidate->isVisible() && candidate->accessibleName() == name)
                return candidate;
        }
        return nullptr;
    }
    /// The button with that text; null when none is shown.
    QAbstractButton* button(const QString& text) const
    {
        for (QAbstractButton* candidate : window.findChildren<QAbstractButton*>()) {
            if (candidate->isVisible() && candidate->text() == text)
                return candidate;
        }
        return nullptr;
    }
    /// Whether some text on the window holds @p text.
    bool reads(const QString& text) const
    {
        const QChar breakHere(0x200B); // is not seen
        const auto labels = window.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
            return label->isVisible() && label->text().remove(breakHere).contains(text);
        });
    }
    void focus(QWidget* widget) ///< by Tab, however many times
    {
        widget->setFocus(Qt::TabFocusReason);
    }
    /// Chooses an entry of a menu.
    void choose(const QString& menu, const QString& entry)
    {
        for (const QAction* candidate : window.menuBar()->actions()) {
            if (candidate->text() != menu)
                continue;
            emit candidate->menu()->aboutToShow();
            for (QAction* action : candidate->menu()->actions()) {
                if (action->text() == entry && action->isEnabled()) {
                    action->trigger();
                    activate();
                    return;
                }
            }
        }
        qFatal("There is no %s in the menu.", qPrintable(entry));
    }

    bool isEditing() const { return tree()->findChild<QLineEdit*>() != nullptr; }

    /// Gives the setting another value; nothing is saved.
    void change(const QStringList& labels, const QString& value)
    {
        goTo(labels);
        press(Qt::Key_F2);
        type(value);
        press(Qt::Key_Return);
    }

    QString status() const { return window.statusBar()->currentMessage(); }

private:
    /// As a desktop does when a box has gone.
    void activate()
    {
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("The window is not active.");
    }

    SettingsWindow& window;
};

#endif
