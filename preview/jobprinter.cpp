#include "preview/jobprinter.h"

#include "preview/printprogram.h"
#include "preview/printrun.h"
#include "preview/settingsbytes.h"

namespace preview {

JobPrinter::JobPrinter(const SettingsBytes& settings)
    : settings(settings.bytes)
    , itsObstacle(settings.reason)
{
}

void JobPrinter::prepare()
{
    if (!itsObstacle.isEmpty())
        return;
    program = findPrintProgram();
    home = std::make_shared<PrintHome>(settings);
    if (program.isEmpty())
        itsObstacle = QObject::tr("There is no program zelmora-print: neither beside this program, nor in ../bin from "
                                  "there, nor on PATH.");
    else if (!home->reason().isEmpty())
        itsObstacle = QObject::tr("No folder for the settings can be made: %1").arg(home->reason());
}

QString JobPrinter::obstacle()
{
    std::call_once(isPrepared, [this] { prepare(); });
    return itsObstacle;
}

PrintedJob JobPrinter::print(const QByteArray& job)
{
    if (!obstacle().isEmpty())
        return {{}, itsObstacle};
    const std::unique_ptr<PrintRun> run = newRun();
    run->print(job);
    return {run->script(), run->failure()};
}

std::unique_ptr<PrintRun> JobPrinter::newRun()
{
    return std::make_unique<PrintRun>(program, home);
}

} // namespace preview
