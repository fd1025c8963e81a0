// How long a person waits for the window of the settings editor, which no screen shows:
//
//     bench-settingswindow picture SETTINGS   changes the width of the receipt's paper fifty times by a key; the median
//                                             until the paper beside it is painted with it
//     bench-settingswindow many SETTINGS      opens the file; until all is painted, then the longest of a few letters
//                                             that are typed to find something, then of a few keys that change a width
//
// The answers are milliseconds, in one line.

#include "editor/settingswindow.h"
#include "editor/paperview.h"
#include "toolkit/program.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace {

const int changes = 50;
const int fewKeys = 5;

[[noreturn]] void fail(const char* reason)
{
    std::fprintf(stderr, "bench-settingswindow: %s\n", reason);
    std::exit(1);
}

template <class Kind>
Kind& named(const SettingsWindow& window, const char* name)
{
    for (Kind* const candidate : window.findChildren<Kind*>()) {
        if (candidate->isVisible() && candidate->accessibleName() == QLatin1String(name))
            return *candidate;
    }
    fail("a field is missing");
}

void press(QWidget& widget, int key, const QString& text = QString())
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&widget, &up);
}

double millisecondsOf(const std::function<void()>& action)
{
    QElapsedTimer clock;
    clock.start();
    action();
    return double(clock.nsecsElapsed()) / 1e6;
}

/// Until the view tells another text than @p before, and has painted it.
void waitForPaper(PaperView& view, const QString& before)
{
    while (view.accessibleDescription() == before)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    view.viewport()->repaint();
}

/// What has to be done at once is done, what waits for its turn too, and the window is painted.
void settle(SettingsWindow& window)
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    window.repaint();
}

void measurePicture(SettingsWindow& window, const QString& path)
{
    PaperView& view = *window.findChild<PaperView*>();
    QString before = view.accessibleDescription();
    if (!window.openFile(path))
        fail("the settings cannot be read");
    waitForPaper(view, before);
    auto& width = named<QSpinBox>(window, "paperWidth");
    width.setFocus();
    QVector<double> times;
    for (int i = 0; i < changes; ++i) {
        before = view.accessibleDescription();
        times += millisecondsOf([&] {
            press(width, Qt::Key_Up);
            waitForPaper(view, before);
        });
    }
    std::nth_element(times.begin(), times.begin() + changes / 2, times.end());
    std::printf("%.2f\n", times.at(changes / 2));
}

void measureMany(SettingsWindow& window, const QString& path)
{
    const double opening = millisecondsOf([&] {
        if (!window.openFile(path))
            fail("the settings cannot be read");
        settle(window);
    });
    auto& finding = named<QLineEdit>(window, "Find a name or a value");
    double typing = 0;
    for (const char letter : {'p', 'a', 'p', 'e', 'r'}) {
        typing = std::max(typing, millisecondsOf([&] {
                              press(finding, Qt::Key_A, QString(QLatin1Char(letter)));
                              settle(window);
                          }));
    }
    finding.clear();
    auto& width = named<QSpinBox>(window, "paperWidth");
    width.setFocus();
    settle(window);
    double changing = 0;
    for (int i = 0; i < fewKeys; ++i) {
        changing = std::max(changing, millisecondsOf([&] {
                                press(width, Qt::Key_Up);
                                settle(window);
                            }));
    }
    std::printf("%.2f %.2f %.2f\n", opening, typing, changing);
}

} // namespace

int main(int argc, char** argv)
{
    toolkit::prepareProgram();
    QApplication application(argc, argv);
    const QTemporaryDir ownSettings; // what the window remembers is no part of what is measured
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, ownSettings.path());
    if (argc != 3)
        fail("usage: bench-settingswindow picture|many SETTINGS");
    QTimer::singleShot(60000, [] { fail("it takes too long"); });
    SettingsWindow window;
    window.show();
    settle(window);
    const QString path = QFile::decodeName(argv[2]);
    if (QLatin1String(argv[1]) == QLatin1String("picture"))
        measurePicture(window, path);
    else
        measureMany(window, path);
    return 0;
}
