#ifndef ZELMORA_PREVIEW_JOBPRINTER_H
#define ZELMORA_PREVIEW_JOBPRINTER_H

#include "preview/printhome.h"

#include <memory>
#include <mutex>

namespace preview {

class PrintRun;
struct SettingsBytes;

struct PrintedJob {
    QByteArray script; ///< what there is of it
    QString failure; ///< why it is not whole, in a translated sentence; empty when the print program came to its end
};

/// Prints jobs with the same settings, one after the other or several at once, each in a thread of its own. What that
/// takes is made with the first one.
class JobPrinter {
public:
    /// Settings that cannot be had are an obstacle.
    explicit JobPrinter(const SettingsBytes& settings);

    /// Why none can be printed, in a translated sentence; empty when they can.
    QString obstacle();
    PrintedJob print(const QByteArray& job);
    /// A run for an event loop to start. There must be no obstacle.
    std::unique_ptr<PrintRun> newRun();

private:
    void prepare();

    const std::optional<QByteArray> settings;
    std::once_flag isPrepared;
    QString program;
    std::shared_ptr<const PrintHome> home;
    QString itsObstacle;
};

} // namespace preview

#endif
