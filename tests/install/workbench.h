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
/// Programs are compiled as this test is: same compiler, same flags, same type of build.
class Workbench {
public:
    /// Installs the build. What fails is fatal to the test.
    Workbench();

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

    /// All files that the compiler has read for the project, which is built.
    QByteArray filesRead(const QString& project);

    Outcome run(const QString& command, const QStringList& arguments);
    void setEnvironment(const char* name, const QString& value);

private:
    QTemporaryDir folder;
    QProcessEnvironment environment;
};

#endif
