#ifndef ZELMORA_TESTS_SUPPORT_EXAMPLES_H
#define ZELMORA_TESTS_SUPPORT_EXAMPLES_H

#include "support/programrun.h"

#include <QDir>
#include <QFileInfo>

// The examples that come with the project.

const QDir examples(ZELMORA_EXAMPLES);

inline QByteArray exampleSettings()
{
    return fileContents(examples.filePath("home/.zelmora/conf/zelmora.conf"));
}

/// Prints examples with their own settings, and where these find the Italian catalogue.
class ExampleRun : public ProgramRun {
public:
    explicit ExampleRun(const QString& program = printProgram())
        : ProgramRun(program)
    {
        setSettings(exampleSettings());
        setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path() + "/..");
    }

    /// The script of the job @p name.
    QByteArray printExample(const QString& name) { return print(fileContents(examples.filePath(name))); }
};

#endif
