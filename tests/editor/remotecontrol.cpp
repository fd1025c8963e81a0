// A person at the keyboard of a program that runs in a process of its own, and the desktop around it. Reads lines on
// standard input:
//
//     press <key sequence>      type <text>      resize <width> <height>      show      buttons      measure
//     attributes      paper
//
// and answers "show" by a line on standard output: the window's title, then the text of a message, or the labels of the
// menus and the label of the current item, all joined by "|". The answer to "buttons" is the texts of those of a box,
// in the order of the alphabet. The answer to "measure" is where things are: the screen, the main window, its status
// line, and the window with the keyboard with its undermost button, each a name, x, y, width and height; windows with
// their frames. The answer to "attributes" is the names of those that the application has.

#include <QAbstractButton>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QMenuBar>
#include <QMetaEnum>
#include <QPushButton>
#include <QScreen>
#include <QSocketNotifier>
#include <QStatusBar>
#include <QTextEdit>
#include <QTreeWidget>
#include <QtTest>

#include <cstdio>
#include <thread>
#include <unistd.h>

class RemoteControl : public QObject {
    Q_OBJECT

public:
    RemoteControl()
    {
        input.open(0, QIODevice::ReadOnly | QIODevice::Unbuffered); // a buffer would hide lines from the notifier
        connect(&notifier, &QSocketNotifier::activated, this, &RemoteControl::readLine);
        QCoreApplication::instance()->installEventFilter(this);
    }

    /// A window manager puts a new window where it thinks fit, soon after the window is shown.
    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* const window = qobject_cast<QMainWindow*>(object);
        if (window && event->type() == QEvent::Show)
            QMetaObject::invokeMethod(
                window, [window] { window->move(250, 30); }, Qt::QueuedConnection);
        return false;
    }

private:
    void readLine()
    {
        const QString line = QString::fromUtf8(input.readLine()).trimmed();
        const QString command = line.section(' ', 0, 0);
        const QString argument = line.section(' ', 1);
        if (command == "show")
            std::puts(shown().join('|').replace('\n', ' ').toUtf8().constData());
        else if (command == "buttons")
            std::puts(buttons().join('|').toUtf8().constData());
        else if (command == "measure")
            std::puts(measured().join('|').toUtf8().constData());
        else if (command == "attributes")
            std::puts(attributes().join('|').toUtf8().constData());
        else if (command == "paper")
            std::puts(paper().replace('\n', '\x1e').toUtf8().constData());
        else if (command == "resize")
            mainWindow()->resize(argument.section(' ', 0, 0).toInt(), argument.section(' ', 1).toInt());
        else if (command == "type")
            QTimer::singleShot(0, this, [argument] { QTest::keyClicks(QApplication::focusWidget(), argument); });
        else if (command == "press")
            QTimer::singleShot(0, this, [argument] { QTest::keySequence(QApplication::focusWidget(), argument); });
        std::fflush(stdout);
    }

    static QMainWindow* mainWindow()
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* const found = qobject_cast<QMainWindow*>(window))
                return found;
        }
        return nullptr;
    }

    /// A box, or else the main window, which gets the keys now as a desktop would have it.
    static QWidget* currentWindow()
    {
        if (QWidget* const box = QApplication::activeModalWidget())
            return box;
        if (QWidget* const window = mainWindow())
            window->activateWindow();
        return mainWindow();
    }

    static QStringList shown()
    {
        QWidget* const window = currentWindow();
        if (!window)
            return {};
        QStringList texts {window->windowTitle()};
        const auto* const message = window->findChild<QTextEdit*>();
        if (message && window == QApplication::activeModalWidget()) // else it is a part of the window
            texts += message->toPlainText();
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

    static QStringList buttons()
    {
        QStringList texts;
        const auto* const box = QApplication::activeModalWidget();
        for (const auto* button : box ? box->findChildren<QPushButton*>() : QList<QPushButton*>())
            texts += button->text();
        texts.sort();
        return texts;
    }

    static QStringList measured()
    {
        const QMainWindow* const main = mainWindow();
        const QWidget* const window = currentWindow();
        if (!main || !main->testAttribute(Qt::WA_Mapped)) // not painted yet
            return {};
        QRect lowestButton;
        for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
            if (button->isVisible() && onScreen(*button).bottom() > lowestButton.bottom())
                lowestButton = onScreen(*button);
        }
        return {text("screen", main->screen()->availableGeometry()), text("main", main->frameGeometry()),
                text("status", onScreen(*main->findChild<QStatusBar*>())), text("window", window->frameGeometry()),
                text("button", lowestButton)};
    }

    /// As it is told to those who do not see it.
    static QString paper()
    {
        for (const QWidget* widget : mainWindow() ? mainWindow()->findChildren<QWidget*>() : QList<QWidget*>()) {
            if (widget->inherits("PaperView"))
                return widget->accessibleDescription();
        }
        return QString();
    }

    static QStringList attributes()
    {
        QStringList names;
        const auto all = QMetaEnum::fromType<Qt::ApplicationAttribute>();
        for (int i = 0; i < all.keyCount(); ++i) {
            if (QCoreApplication::testAttribute(static_cast<Qt::ApplicationAttribute>(all.value(i))))
                names += all.key(i);
        }
        return names;
    }

    static QRect onScreen(const QWidget& widget) { return QRect(widget.mapToGlobal(QPoint(0, 0)), widget.size()); }

    static QString text(const char* name, const QRect& place)
    {
        return QString("%1 %2 %3 %4 %5").arg(name).arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
    }

    QFile input;
    QSocketNotifier notifier {0, QSocketNotifier::Read};
};

class RemoteControlPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "remotecontrol.json")

public:
    QObject* create(const QString&, const QString&) override
    {
        // The plug-ins of real screens start threads of their own, to which a signal may be given too.
        std::thread([] {
            for (;;)
                pause();
        }).detach();
        return new RemoteControl;
    }
};

#include "remotecontrol.moc"
