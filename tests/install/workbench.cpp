#include "workbench.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

Workbench::Workbench(const QStringList& builds)
    : folder(QDir::tempPath() + "/installed tree XXXXXX")
{
    for (const char* name : {"PATH", "LSAN_OPTIONS"})
        setEnvironment(name, qEnvironmentVariable(name));
    setEnvironment("HOME", folder.path());
    setEnvironment("LC_ALL", "C.UTF-8");

    for (const QString& build : builds)
        for (const char* component : {"libraries", "development"})
            install(build, {"--component", component});
    if (builds.isEmpty()) {
        install(ZELMORA_BUILD, {});
        for (const char* component : {"print", "tools", "settings", "documentation"}) // of Qt 6 only where it is named
            install(ZELMORA_BUILD, {"--component", component});
    }
    if (!QFile::rename(path("place of the installation"), installed()))
        qFatal("The installed tree can't be moved.");
}

void Workbench::install(const QString& build, const QStringList& options)
{
    const Outcome outcome =
        run(ZELMORA_CMAKE, QStringList {"--install", build, "--prefix", path("place of the installation")} + options);
    if (!outcome.succeeded)
        qFatal("The build can't be installed: %s", outcome.said.constData());
}

QString Workbench::sharedBuild()
{
    return ZELMORA_BUILD;
}

QString Workbench::staticBuild()
{
    return ZELMORA_BUILD "/static-libraries";
}

QString Workbench::qt5Build()
{
    return ZELMORA_BUILD "/qt5-libraries";
}

QString Workbench::installed(const QString& path) const
{
    return folder.filePath("installed/" + path);
}

QString Workbench::path(const QString& name) const
{
    return folder.filePath(name);
}

QString Workbench::built(const QString& project, const QString& name) const
{
    return path(project + "/build/" + name);
}

QStringList Workbench::installedFiles(const QString& filter) const
{
    QStringList files;
    QDirIterator found(installed(), {filter}, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (found.hasNext())
        files += QDir(installed()).relativeFilePath(found.next());
    files.sort();
    return files;
}

void Workbench::makeProject(const QString& project, const QByteArray& cmake, const QByteArray& source)
{
    addFile(project, "CMakeLists.txt", cmake);
    addFile(project, "main.cpp", source);
}

void Workbench::addFile(const QString& project, const QString& name, const QByteArray& bytes)
{
    QFile file(path(project + '/' + name));
    if (!QDir().mkpath(QFileInfo(file).path()) || !file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s can't be written.", qPrintable(file.fileName()));
}

Outcome Workbench::configure(const QString& project, const QStringList& options)
{
    const QStringList ours {"-DCMAKE_PREFIX_PATH=" + installed(),        "-DCMAKE_CXX_COMPILER=" ZELMORA_COMPILER,
                            "-DCMAKE_CXX_FLAGS=" ZELMORA_COMPILER_FLAGS, "-DCMAKE_BUILD_TYPE=" ZELMORA_BUILD_TYPE,
                            "-DCMAKE_MAKE_PROGRAM=" ZELMORA_NINJA,       "-DZELMORA_QT=" ZELMORA_QT};
    const QStringList places {"-G", "Ninja", "-S", path(project), "-B", built(project)};
    return run(ZELMORA_CMAKE, places + ours + options);
}

Outcome Workbench::configureAndBuild(const QString& project, const QStringList& options)
{
    const Outcome configured = configure(project, options);
    return configured.succeeded ? run(ZELMORA_CMAKE, {"--build", built(project), "--parallel", "2"}) : configured;
}

Outcome Workbench::compile(const QString& project, const QString& packages)
{
    const QString packageFile = installedFiles("*.pc").value(0);
    setEnvironment("PKG_CONFIG_PATH", QFileInfo(installed(packageFile)).path());
    QDir().mkpath(built(project));
    // Headers are no system headers here: those of the toolkit have warnings of their own.
    const QString command = "flags=$(pkg-config --cflags --libs " + packages
        + ") && eval \"" ZELMORA_COMPILER " " ZELMORA_COMPILER_FLAGS " -w \\\"\\$1\\\" -o \\\"\\$2\\\""
          " -Wl,--as-needed -Wl,-rpath,\\\"\\$3\\\" $flags\"";
    return run("sh", {"-c", command, "sh", path(project + "/main.cpp"), built(project, "till"), installed("lib")});
}

QByteArray Workbench::filesRead(const QString& project)
{
    return run(ZELMORA_NINJA, {"-C", built(project), "-t", "deps"}).said;
}

Outcome Workbench::run(const QString& command, const QStringList& arguments)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setWorkingDirectory(folder.path());
    process.start(command, arguments);
    const bool ended = process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit;
    return {ended && process.exitCode() == 0, process.readAll()};
}

void Workbench::setEnvironment(const char* name, const QString& value)
{
    environment.insert(name, value);
}
