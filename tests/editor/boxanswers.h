#ifndef ZELMORA_TESTS_EDITOR_BOXANSWERS_H
#define ZELMORA_TESTS_EDITOR_BOXANSWERS_H

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

#include <functional>

/// The person who answers the boxes that come up over a window, in their order, and notes what they say.
class BoxAnswers : public QObject {
public:
    BoxAnswers() { answer(); }

    /// False when the box is another one than was expected.
    using Answer = std::function<bool(QWidget*)>;
    void will(const Answer& next) { answers += next; }
    void willPress(QMessageBox::StandardButton button)
    {
        will([button](QWidget* box) {
            const auto* const buttons = box->findChild<QDialogButtonBox*>();
            QPushButton* const found = buttons->button(static_cast<QDialogButtonBox::StandardButton>(button));
            if (found)
                QTest::mouseClick(found, Qt::LeftButton);
            return found != nullptr;
        });
    }
    void willPress(Qt::Key key)
    {
        will([key](QWidget* box) {
            QTest::keyClick(box->focusWidget(), key);
            return true;
        });
    }
    /// Into a file dialog; an empty path cancels it.
    void willType(const QString& path)
    {
        will([path](QWidget* box) {
            auto* const field = box->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            if (!field)
                return false;
            field->selectAll();
            QTest::keyClicks(field, path);
            QTest::keyClick(path.isEmpty() ? box : field, path.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
            return true;
        });
    }

    /// The texts of the messages since this was last asked. Answers that are left over count as boxes that did not
    /// come.
    QStringList readBoxes()
    {
        for (; !answers.isEmpty(); answers.removeFirst())
            texts += QStringLiteral("An expected box did not come up.");
        return std::exchange(texts, QStringList());
    }

private:
    void answer()
    {
        QTimer::singleShot(5, this, &BoxAnswers::answer); // a box may bring up the next before this returns
        QWidget* const box = QApplication::activeModalWidget();
        if (!box || !box->isVisible())
            return;
        if (!box->isActiveWindow()) {
            box->activateWindow(); // as a desktop does
            return;
        }
        if (const auto* const message = box->findChild<QTextEdit*>())
            texts += message->toPlainText();
        else if (const auto* const toolkitsOwn = qobject_cast<QMessageBox*>(box))
            texts += toolkitsOwn->text();
        if (answers.isEmpty() || !answers.takeFirst()(box)) {
            texts += QStringLiteral("A box came up that was not expected: ") + box->windowTitle();
            box->close();
        }
    }

    QVector<Answer> answers;
    QStringList texts;
};

#endif
