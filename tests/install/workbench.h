#ifndef ZELMORA_TESTS_INSTALL_WORKBENCH_H
#define ZELMORA_TESTS_INSTALL_WORKBENCH_H

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// What a command said, on both channels, and whether it ended well.
struct Outcome {
    bool succeeded = false;
    QByteArray said;
};

/// A scratch folder with an installed tree, in which programs are built that know of that tree and of nothing else.
/// The tree has been moved after the installation, and there are blanks in all its paths.
///
/// Programs are compiled as this test is: same compiler, same flags, same type of build, same toolkit.
class Workbench {
public:
    /// Installs the libraries of these builds, one after the other, and what other programs are built with; the
    /// programs need not be there. Without any: all of this build. What fails is fatal to the test.
    explicit Workbench(const QStringList& builds = {});

    static QString sharedBuild(); ///< this build
    static QString staticBuild(); ///< the one beside it that has static libraries
    static QString qt5Build(); ///< the one beside it that is for Qt 5, where this one is for Qt 6

    QString installed(const QString& path = QString()) const; ///< a path in the installed tree
    QString path(const QString& name) const; ///< a path in the scratch folder
    QString built(const QString& project, const QString& name = QString()) const; ///< a path in a project's build

    /// The files of the installed tree that match @p filter: their paths in it, sorted.
    QStringList installedFiles(const QString& filter) const;

    /// Makes the folder @p project with these files.
    void makeProject(const QString& project, const QByteArray& cmake, const QByteArray& source);
    /// Adds a file to the project, or replaces it. Its folder is made.
    void addFile(const QString& project, const QString& name, const QByteArray& bytes);

    Outcome configure(const QString& project, const QStringList& options = {});
    Outcome configureAndBuild(const QString& project, const QStringList& options = {});

    /// Builds the program "till" of the project's main.cpp with nothing but the compiler and what pkg-config says of
    /// @p packages.
    Outcome compile(const QString& project, const QString& packages);

    /// All files that the compiler has read for the project, which is built.
    QByteArray filesRead(const QString& project);

    Outcome run(const QString& command, const QStringList& arguments);
    void setEnvironment(const char* name, const QString& value);

private:
    void install(const QString& build, const QStringList& options);

    QTemporaryDir folder;
    QProcessEnvironment environment;
};

#endif
