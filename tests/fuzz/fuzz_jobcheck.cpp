// A job checked with settings: settings in the brace format, a NUL byte, the job. Without the NUL all of it is the job,
// and there are no settings. Findings come in the order of the job and stand in its lines; a job is said to break off
// exactly when it does; and the trace holds the script that the print program writes.

#include "check/jobcheck.h"
#include "check/placedsettings.h"
#include "config/zmconfiguration.h"
#include "driver/companyprinterdriver.h"
#include "fuzzing.h"
#include "toolkit/textencoder.h"
#include "toolkit/xmlreader.h"

#include <QBuffer>
#include <QFile>

namespace {

/// Keeps the script.
class Script : public check::JobTrace {
public:
    QByteArray bytes;

private:
    void commandWritten(const check::TracedElement&, const QString& command) override
    {
        bytes += encoder.encoded(command + QStringLiteral("\r\n"));
    }
    void nothingWritten(const check::TracedElement&, const QString&) override { }

    toolkit::TextEncoder encoder {toolkit::TextEncoder::Encoding::Locale};
};

void requireOrder(const check::Findings& findings, const QByteArray& job)
{
    const int lines = job.count('\n') + 1; // as many as there can be, whatever the encoding
    toolkit::TextPlace last;
    for (const check::Finding& finding : findings) {
        require(!(finding.place < last), "findings ascend");
        require(finding.place.line <= lines && finding.place.column >= 1, "places exist");
        require(!finding.text.isEmpty(), "findings say something");
        last = finding.place;
    }
}

bool has(const check::Findings& findings, check::Code code)
{
    return std::any_of(findings.begin(), findings.end(),
                       [&](const check::Finding& finding) { return finding.code == code; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile script;
    const QByteArray input = bytesOf(data, size);
    const int end = input.indexOf('\0');
    const QByteArray settings = QByteArray(input.constData(), qMax(0, end));
    QByteArray job = QByteArray(input.constData() + end + 1, input.size() - end - 1);

    const QString format = QStringLiteral("cfg");
    ZMConfiguration store(settings, QStringLiteral("till.conf"), format);
    const check::PlacedSettings places = check::PlacedSettings::of(settings, format);
    Script traced;
    QBuffer checked(&job);
    const check::Findings findings = check::checkJob(checked, {store, &places, QStringLiteral("till.conf")}, &traced);
    requireOrder(findings, job);

    SyncSingleton<ZMConfiguration>::instance()->readFile(script.holding(settings), format);
    bool whole = false;
    {
        CompanyPrinterDriver driver(script.path());
        QBuffer printed(&job);
        whole = toolkit::readXml(printed, driver);
    }
    const bool isStopped = has(findings, check::Code::UnknownMethod);
    require(whole == !(isStopped || has(findings, check::Code::NotWellFormed)), "what breaks off is said to");
    QFile written(script.path());
    require(written.open(QIODevice::ReadOnly) && written.readAll() == traced.bytes, "the trace is the script");
    return 0;
}
