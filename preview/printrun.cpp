#include "preview/printrun.h"

#include "preview/printhome.h"
#include "preview/scratchfolders.h"
#include "toolkit/childprocess.h"

#include <QFile>

#include <algorithm>
#include <sys/prctl.h>
#include <sys/resource.h>

namespace preview {

/// What the print program starts with. Between fork and exec: system calls only.
void PrintRun::prepareProcess() const
{
    prctl(PR_SET_PDEATHSIG, SIGKILL); // whatever this process ends of, that one does not go on alone
    pthread_sigmask(SIG_SETMASK, &formerSignalMask(), nullptr);
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_cur, longestScript);
    setrlimit(RLIMIT_FSIZE, &limit);
    input.handOver();
    output.handOver();
}

PrintRun::PrintRun(const QString& program, std::shared_ptr<const PrintHome> home, QObject* parent)
    : QObject(parent)
    , home(std::move(home))
    , process(std::make_unique<toolkit::ChildProcess>([this] { prepareProcess(); }))
{
    process->setProgram(program);
    process->setArguments({input.path(), output.path()});
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    connect(process.get(), QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &PrintRun::processFinished);
    connect(process.get(), &QProcess::errorOccurred, this, &PrintRun::processFailed);
    connect(&deadline, &QTimer::timeout, this, &PrintRun::giveUp);
    deadline.setSingleShot(true);
}

PrintRun::~PrintRun()
{
    process->disconnect(this);
    process->kill();
    process->waitForFinished();
}

void PrintRun::start(const QByteArray& job)
{
    deadline.start(patience);
    begin(job);
}

void PrintRun::print(const QByteArray& job)
{
    begin(job);
    if (!isOver && !process->waitForFinished(patience))
        giveUp();
}

void PrintRun::begin(const QByteArray& job)
{
    if (!output.isOpen() || !input.isOpen() || !input.write(job)) {
        end(QObject::tr("There is no memory for the job and its script."));
        return;
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home->path());
    process->setProcessEnvironment(environment);
    process->start();
}

void PrintRun::giveUp()
{
    process->disconnect(this);
    process->kill();
    process->waitForFinished();
    end(QObject::tr("The print program was ended after %1 seconds.").arg(patience / 1000));
}

void PrintRun::end(const QString& failure)
{
    if (isOver)
        return;
    isOver = true;
    deadline.stop();
    itsFailure = failure;
    emit finished();
}

/// The print program's own status is 0, whatever becomes of the job.
void PrintRun::processFinished(int exitCode, QProcess::ExitStatus status)
{
    if (status == QProcess::CrashExit)
        end(QObject::tr("The print program was ended by a signal."));
    else if (output.size() >= longestScript)
        end(QObject::tr("The script is longer than %1 MB.").arg(longestScript / 1024 / 1024));
    else if (exitCode != 0)
        end(QObject::tr("The print program ended with status %1.").arg(exitCode));
    else
        end(QString());
}

void PrintRun::processFailed(QProcess::ProcessError error)
{
    if (error == QProcess::FailedToStart)
        end(QObject::tr("The print program cannot be started: %1").arg(process->errorString()));
}

} // namespace preview
