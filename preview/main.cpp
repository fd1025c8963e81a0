#include "preview/commandline.h"
#include "preview/paperprogram.h"
#include "preview/scratchfolders.h"
#include "toolkit/program.h"

#include <QGuiApplication>

#include <cstdio>
#include <memory>
#include <new>

namespace {

/// The painter takes an application for windows, which costs more to start. It never needs a display.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv, bool hasPainter)
{
    if (!hasPainter)
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv)
{
    toolkit::prepareProgram();
    preview::takeEndingSignals();
    // The toolkit sees the program's name alone: no argument of ours is ever an option of its own.
    int applicationArguments = 1;
    const auto application = makeApplication(applicationArguments, argv, preview::mayTakePainter(argc, argv));
    try {
        return preview::runPaperProgram(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("There is not enough memory to draw this.\n", stderr);
        return 2; // as for what cannot be read
    }
}
