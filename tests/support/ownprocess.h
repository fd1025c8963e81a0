#ifndef ZELMORA_TESTS_SUPPORT_OWNPROCESS_H
#define ZELMORA_TESTS_SUPPORT_OWNPROCESS_H

#include <QCoreApplication>
#include <QProcess>
#include <QStringList>

/// What this program prints when it runs again, in a process of its own: with these arguments, and with these
/// variables ("LC_ALL=C") in place of ours.
inline QByteArray outputOfOwnProcess(const QStringList& arguments, const QStringList& variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& variable : variables)
        environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return "the process did not end well";
    return process.readAllStandardOutput(); // on the other channel the toolkit remarks on a seed of its hashes
}

#endif
