#include "support/postgrescluster.h"

#include <QFile>
#include <QProcess>

#include <cstdlib>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

void forgetOtherServers()
{
    const QStringList variables = QProcess::systemEnvironment();
    for (const QString& variable : variables) {
        if (variable.startsWith("PG"))
            qunsetenv(variable.section('=', 0, 0).toLocal8Bit());
    }
}

/// Starts @p command with @p channel as its standard input and output.
void start(QByteArrayList command, int channel)
{
    std::vector<char*> arguments;
    for (QByteArray& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t redirections;
    posix_spawn_file_actions_init(&redirections);
    posix_spawn_file_actions_adddup2(&redirections, channel, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&redirections, channel, STDOUT_FILENO);
    pid_t process = 0;
    const int error = posix_spawnp(&process, arguments[0], &redirections, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&redirections);
    int status = 0;
    if (error || waitpid(process, &status, 0) != process || status != 0)
        qFatal("%s can't be started.", arguments[0]);
}

/// Starts the script and returns its standard input and output. It is a process of nobody's, in a session of its own:
/// neither a key press nor the end of a test that hangs, which takes the test's children with it, reaches it.
int startScript()
{
    int channel[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, channel) != 0)
        qFatal("The script's channel can't be made.");
    start({"setsid", "--fork", ZELMORA_POSTGRES_SCRIPT, PostgresCluster::database().toUtf8(),
           PostgresCluster::user().toUtf8(), PostgresCluster::password().toUtf8()},
          channel[1]);
    close(channel[1]);
    return channel[0];
}

/// Empty at the end. Whatever the script does is a matter of seconds.
QByteArray readSome(int channel)
{
    pollfd readable {channel, POLLIN, 0};
    if (poll(&readable, 1, 120000) != 1)
        qFatal("The PostgreSQL server hangs.");
    char bytes[4096];
    const ssize_t count = read(channel, bytes, sizeof bytes);
    return QByteArray(bytes, static_cast<int>(qMax(count, ssize_t(0))));
}

} // namespace

PostgresCluster::PostgresCluster()
{
    forgetOtherServers();
    script = startScript();
    folder = answer();
    newStatements(); // those of the script
}

PostgresCluster::~PostgresCluster()
{
    shutdown(script, SHUT_WR);
    while (!readSome(script).isEmpty()) {
    }
    close(script);
}

QString PostgresCluster::host() const
{
    return QFile::decodeName(folder);
}

QString PostgresCluster::database()
{
    return "zelmora_test";
}

QString PostgresCluster::user()
{
    return "zelmora";
}

QString PostgresCluster::password()
{
    return "correct-horse";
}

void PostgresCluster::start()
{
    obey("start");
}

void PostgresCluster::stop()
{
    obey("stop");
}

void PostgresCluster::kill()
{
    obey("kill");
}

void PostgresCluster::obey(const QByteArray& command)
{
    const QByteArray line = command + '\n';
    send(script, line.constData(), static_cast<std::size_t>(line.size()), MSG_NOSIGNAL); // answer() tells a failure
    answer();
}

QByteArray PostgresCluster::answer()
{
    const QByteArray done = "done ";
    QByteArray said = readSome(script);
    while (!said.startsWith(done) || !said.endsWith('\n')) {
        const QByteArray more = readSome(script);
        if (more.isEmpty())
            qFatal("The PostgreSQL server: %s", said.constData());
        said += more;
    }
    return said.mid(done.size()).chopped(1);
}

// The statement as it arrived is in the record "statement", and in that of the error which it ran into. The second is
// the only one when its syntax is wrong.
QByteArrayList PostgresCluster::newStatements()
{
    QByteArrayList statements;
    for (const QByteArray& record : newLogRecords()) {
        const int blank = record.indexOf(' ');
        const QByteArray process = record.left(blank);
        const QByteArray text = record.mid(blank + 1);
        const QByteArray arrived = "LOG:  statement: ";
        const QByteArray failed = "STATEMENT:  ";
        if (text.startsWith(arrived)) {
            lastLogged[process] = text.mid(arrived.size());
            statements += lastLogged[process];
        } else if (text.startsWith(failed) && lastLogged.take(process) != text.mid(failed.size())) {
            statements += text.mid(failed.size());
        }
    }
    return statements;
}

/// The records without their line ends, those within restored: in the log a tab follows them.
QByteArrayList PostgresCluster::newLogRecords()
{
    QFile log(QFile::decodeName(folder + "/log"));
    if (!log.open(QIODevice::ReadOnly) || !log.seek(logBytesRead))
        qFatal("The log of the PostgreSQL server can't be read.");
    QByteArrayList records;
    for (QByteArray line = log.readLine(); line.endsWith('\n'); line = log.readLine()) {
        logBytesRead += line.size();
        line.chop(1);
        if (line.startsWith('\t'))
            records.last() += '\n' + line.mid(1);
        else
            records += line;
    }
    return records;
}
