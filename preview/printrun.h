#ifndef ZELMORA_PREVIEW_PRINTRUN_H
#define ZELMORA_PREVIEW_PRINTRUN_H

#include "preview/memoryfile.h"

#include <QProcess>
#include <QTimer>

#include <memory>

namespace preview {

class PrintHome;

/// One run of the print program, as the suite starts it: a job's bytes become the script's. Its working folder and its
/// locale are those of this process. What it says on standard output and standard error goes nowhere.
///
/// For a window start(), and finished() when it is over, which may be at once; without an event loop print(). One of
/// them is called, once.
class PrintRun : public QObject {
    Q_OBJECT

public:
    static const int patience = 10000; ///< milliseconds; a run that takes longer is ended
    static const int longestScript = 64 * 1024 * 1024; ///< bytes; of a longer one this is the beginning

    /// @p program: the path of the print program. @p home is there; it holds the settings.
    PrintRun(const QString& program, std::shared_ptr<const PrintHome> home, QObject* parent = nullptr);
    /// Ends the run if it is under way; finished() does not come then.
    ~PrintRun() override;

    void start(const QByteArray& job);
    /// Returns when it is over.
    void print(const QByteArray& job);

    /// Once it is over. Of a run that failed, what there is.
    QByteArray script() const { return output.contents(); }
    /// Why the program did not print to its end, in a translated sentence; empty when it did. A job that breaks off is
    /// no failure: the script says so by having no closing command.
    QString failure() const { return itsFailure; }

signals:
    void finished();

private:
    void prepareProcess() const;
    void begin(const QByteArray& job);
    void giveUp();
    void end(const QString& failure);
    void processFinished(int exitCode, QProcess::ExitStatus status);
    void processFailed(QProcess::ProcessError error);

    const std::shared_ptr<const PrintHome> home;
    MemoryFile input;
    MemoryFile output;
    const std::unique_ptr<QProcess> process;
    QTimer deadline;
    QString itsFailure;
    bool isOver = false;
};

} // namespace preview

#endif
