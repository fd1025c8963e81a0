// How long a person waits for the picture: bench-paperpane SETTINGS GROUP. Changes a width in that group of these
// settings fifty times, each time to another one than before, and prints the median of the milliseconds until the paper
// is painted with it.

#include "editor/paperpane.h"
#include "editor/paperview.h"
#include "toolkit/program.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

const int changes = 50;

[[noreturn]] void fail(const char* reason)
{
    std::fprintf(stderr, "bench-paperpane: %s\n", reason);
    std::exit(1);
}

QByteArray contents(const char* path)
{
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::ReadOnly))
        fail("the settings cannot be read");
    return file.readAll();
}

/// @p settings with another width of the paper in the group @p group.
QByteArray withPaperWidth(QByteArray settings, const QByteArray& group, int width)
{
    const QByteArray before = "paperWidth = \"32\"";
    const int place = settings.indexOf(before, settings.indexOf("    " + group + ":"));
    if (place < 0)
        fail("no paper of 32 characters in this group");
    return settings.replace(place, before.size(), "paperWidth = \"" + QByteArray::number(width) + '"');
}

/// Until the view tells another text than @p before, and has painted it.
void waitForPaper(PaperView& view, const QString& before)
{
    while (view.accessibleDescription() == before)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    view.viewport()->repaint();
}

} // namespace

int main(int argc, char** argv)
{
    toolkit::prepareProgram();
    QApplication application(argc, argv);
    if (argc != 3)
        fail("usage: bench-paperpane SETTINGS GROUP");
    QTimer::singleShot(60000, [] { fail("no paper comes"); });
    const QByteArray settings = contents(argv[1]);
    PaperPane pane;
    PaperView& view = *pane.findChild<PaperView*>();
    pane.resize(pane.sizeHint());
    pane.show();
    QString before = view.accessibleDescription();
    pane.setSettings({settings, {}}, {settings, {}});
    pane.setGroup(QString::fromLatin1(argv[2]));
    waitForPaper(view, before);

    QVector<qint64> times;
    for (int i = 0; i < changes; ++i) {
        before = view.accessibleDescription();
        const QByteArray changed = withPaperWidth(settings, argv[2], 33 + i % 5);
        QElapsedTimer clock;
        clock.start();
        pane.setSettings({changed, {}}, {settings, {}});
        waitForPaper(view, before);
        times += clock.nsecsElapsed();
    }
    std::nth_element(times.begin(), times.begin() + changes / 2, times.end());
    std::printf("%.2f\n", double(times.at(changes / 2)) / 1e6);
    return 0;
}
