#include "support/programrun.h"

#include <QDir>
#include <QProcess>

QString printProgram()
{
    const QString named = qEnvironmentVariable("ZELMORA_PRINT_PROGRAM");
    return named.isEmpty() ? QStringLiteral(ZELMORA_PRINT_PROGRAM) : named;
}

ProgramRun::ProgramRun()
    : ProgramRun(printProgram())
{
}

ProgramRun::ProgramRun(const QString& program)
    : program(program)
    , workingFolder(folder.path())
{
    if (!folder.isValid() || !QDir(folder.path()).mkpath(QStringLiteral("home/.zelmora/conf")))
        qFatal("The scratch folder can't be made.");
    environment.insert(QStringLiteral("HOME"), path("home"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    // What the sanitizers are told, and where the test locales are, holds for the program too.
    const QProcessEnvironment ours = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS", "LSAN_OPTIONS", "LOCPATH"}) {
        const QString key = QString::fromLatin1(name);
        if (ours.contains(key))
            environment.insert(key, ours.value(key));
    }
}

void ProgramRun::setSettings(const QByteArray& text)
{
    writeFile("home/.zelmora/conf/zelmora.conf", text);
}

void ProgramRun::setEnvironment(const char* name, const QString& value)
{
    environment.insert(QString::fromLatin1(name), value);
}

void ProgramRun::setWorkingFolder(const QString& path)
{
    workingFolder = path;
}

void ProgramRun::setPatience(int minutes)
{
    patience = minutes;
}

QString ProgramRun::path(const char* name) const
{
    return folder.filePath(QString::fromUtf8(name));
}

QString ProgramRun::writeFile(const char* name, const QByteArray& bytes) const
{
    writeBytes(path(name), bytes);
    return path(name);
}

void ProgramRun::start(const QStringList& arguments)
{
    run(program, arguments);
}

void ProgramRun::startShell(const QByteArray& commands)
{
    setEnvironment("program", program);
    run(QStringLiteral("/bin/sh"), {writeFile("commands.sh", commands)});
}

void ProgramRun::run(const QString& command, const QStringList& arguments)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(workingFolder);
    process.start(command, arguments);
    ended = process.waitForFinished(patience * 60000) && process.exitStatus() == QProcess::NormalExit;
    exitStatus = ended ? process.exitCode() : -1;
    standardOutput = process.readAllStandardOutput();
    standardError = process.readAllStandardError();
}

QByteArray ProgramRun::print(const QByteArray& job)
{
    start({writeFile("job.xml", job), path("script.txt")});
    return fileContents(path("script.txt"));
}

QByteArray ProgramRun::remarks() const
{
    QByteArray text = standardOutput;
    if (!standardError.isEmpty())
        text += "\nstandard error: " + standardError;
    if (!ended)
        text += "\nended by a signal, or not at all";
    else if (exitStatus != 0)
        text += "\nexit status " + QByteArray::number(exitStatus);
    return text;
}
