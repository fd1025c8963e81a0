#ifndef ZELMORA_TESTS_SUPPORT_PROGRAMRUN_H
#define ZELMORA_TESTS_SUPPORT_PROGRAMRUN_H

#include "support/files.h"

#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

/// The print program that is tested: the one that ZELMORA_PRINT_PROGRAM names in the environment, or else the build's.
QString printProgram();

/// Runs a real program with a home directory, a locale and a working folder of its own.
class ProgramRun {
public:
    /// The print program, in a home without settings, in the C locale, working in its scratch folder.
    ProgramRun();
    /// The program @p program, in the same surroundings.
    explicit ProgramRun(const QString& program);

    void setSettings(const QByteArray& text); ///< the settings file in the run's home
    void setEnvironment(const char* name, const QString& value);
    void setWorkingFolder(const QString& path);
    void setPatience(int minutes); ///< after which a run counts as hung; one, unless something is built

    QString path(const char* name) const; ///< a file in the scratch folder
    /// Writes @p bytes to a file in the scratch folder and returns its path.
    QString writeFile(const char* name, const QByteArray& bytes) const;

    /// Runs the program.
    void start(const QStringList& arguments);
    /// Runs shell commands in the scratch folder, in which "$program" is the program: for what only a shell can
    /// do, such as closed streams, pipes and file names that are no text.
    void startShell(const QByteArray& commands);
    /// Prints @p job with the print program to the file "script.txt" in the scratch folder and returns what that holds.
    QByteArray print(const QByteArray& job);

    /// What the last run left to see beside its files: standard output as it is, and behind it, in words, what there
    /// should not be: standard error, an exit status other than 0, an end by a signal. Empty where there is nothing.
    QByteArray remarks() const;

    QByteArray standardOutput;
    QByteArray standardError;
    bool ended = false; ///< by itself, not by a signal or as hung
    int exitStatus = -1;

private:
    void run(const QString& command, const QStringList& arguments);

    const QString program;
    QTemporaryDir folder;
    QProcessEnvironment environment;
    QString workingFolder;
    int patience = 1;
};

#endif
