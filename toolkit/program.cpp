#include "toolkit/program.h"

#include <QtGlobal>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace toolkit {

namespace {

void keepStandardStreamsOpen()
{
    int descriptor = 0;
    do
        descriptor = open("/dev/null", O_RDWR);
    while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0)
        close(descriptor);
}

void dropMessage(QtMsgType, const QMessageLogContext&, const QString&)
{
}

} // namespace

void prepareProgram()
{
    keepStandardStreamsOpen();
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    qInstallMessageHandler(dropMessage);
    qunsetenv("QT_FATAL_WARNINGS");
    qunsetenv("QT_FATAL_CRITICALS");
}

} // namespace toolkit
