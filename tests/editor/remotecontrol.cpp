// A person at the keyboard of a program that runs in a process of its own. Reads lines on standard input:
//
//     press <key sequence>      type <text>      show
//
// and answers "show" by a line on standard output: the window's title, then the text of a message, or the labels of the
// menus and the label of the current item, all joined by "|".

#include <QGenericPlugin>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QSocketNotifier>
#include <QTreeWidget>
#include <QtTest>

#include <cstdio>

class RemoteControl : public QObject {
    Q_OBJECT

public:
    RemoteControl()
    {
        input.open(0, QIODevice::ReadOnly | QIODevice::Unbuffered); // a buffer would hide lines from the notifier
        connect(&notifier, &QSocketNotifier::activated, this, &RemoteControl::readLine);
    }

private:
    void readLine()
    {
        const QString line = QString::fromUtf8(input.readLine()).trimmed();
        const QString command = line.section(' ', 0, 0);
        const QString argument = line.section(' ', 1);
        if (command == "show")
            std::puts(shown().join('|').replace('\n', ' ').toUtf8().constData());
        else if (command == "type")
            QTimer::singleShot(0, this, [argument] { QTest::keyClicks(QApplication::focusWidget(), argument); });
        else if (command == "press")
            QTimer::singleShot(0, this, [argument] { press(QKeySequence(argument)[0]); });
        std::fflush(stdout);
    }

    static void press(int keyAndModifiers)
    {
        const int modifiers = keyAndModifiers & static_cast<int>(Qt::KeyboardModifierMask);
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(keyAndModifiers & ~modifiers),
                        Qt::KeyboardModifiers(modifiers));
    }

    /// A box, or else the main window, which gets the keys now as a desktop would have it.
    static QWidget* currentWindow()
    {
        if (QWidget* const box = QApplication::activeModalWidget())
            return box;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (qobject_cast<QMainWindow*>(window)) {
                window->activateWindow();
                return window;
            }
        }
        return nullptr;
    }

    static QStringList shown()
    {
        QWidget* const window = currentWindow();
        if (!window)
            return {};
        QStringList texts {window->windowTitle()};
        if (const auto* const message = qobject_cast<QMessageBox*>(window))
            texts += message->text();
        if (const auto* const bar = window->findChild<QMenuBar*>()) {
            for (const QAction* menu : bar->actions())
                texts += menu->text();
        }
        if (const auto* const tree = window->findChild<QTreeWidget*>()) {
            if (tree->currentItem())
                texts += tree->currentItem()->text(0);
        }
        return texts;
    }

    QFile input;
    QSocketNotifier notifier {0, QSocketNotifier::Read};
};

class RemoteControlPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "remotecontrol.json")

public:
    QObject* create(const QString&, const QString&) override { return new RemoteControl; }
};

#include "remotecontrol.moc"
