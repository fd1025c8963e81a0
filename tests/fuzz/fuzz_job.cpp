// A job printed with settings, as the program prints it: settings in the brace format, a NUL byte, the job. Without
// the NUL all of it is the job, and there are no settings. The script has a closing command when the job was whole,
// and only then.

#include "config/zmconfiguration.h"
#include "driver/companyprinterdriver.h"
#include "fuzzing.h"
#include "toolkit/xmlreader.h"

#include <QFile>

namespace {

bool print(const QString& jobPath, const QString& scriptPath)
{
    CompanyPrinterDriver driver(scriptPath);
    QFile job(jobPath);
    return toolkit::readXml(job, driver);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile settings;
    static const MemoryFile job;
    static const MemoryFile script;
    const QByteArray input = bytesOf(data, size);
    const int end = input.indexOf('\0');

    const QString settingsPath = settings.holding(input.left(qMax(0, end)));
    SyncSingleton<ZMConfiguration>::instance()->readFile(settingsPath, QStringLiteral("cfg"));
    const bool whole = print(job.holding(input.mid(end + 1)), script.path());
    const bool closed = script.endsWith("nofis chiudi\r\n") || script.endsWith("CHIUS T=1\r\n");
    require(whole == closed, "a script has a closing command when its job was whole, and only then");
    return 0;
}
