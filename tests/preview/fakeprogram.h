#ifndef ZELMORA_TESTS_PREVIEW_FAKEPROGRAM_H
#define ZELMORA_TESTS_PREVIEW_FAKEPROGRAM_H

#include "support/files.h"

#include <QTemporaryDir>

/// A shell script in the print program's place, with the job's and the script's path as $1 and $2. It works in a folder
/// of its own.
class FakeProgram {
public:
    explicit FakeProgram(const QByteArray& commands)
    {
        writeBytes(path(), "#!/bin/sh\ncd '" + folder.path().toUtf8() + "'\n" + commands);
        setPermissions(path(), 0700);
    }

    QString path() const { return folder.filePath("zelmora-print"); }
    QString folderPath() const { return folder.path(); }
    QByteArray contents(const QString& file) const { return fileContents(folder.filePath(file)); }

private:
    QTemporaryDir folder {scratchFolder()};
};

inline bool isAlive(const QByteArray& pid)
{
    const QByteArray state = fileContents("/proc/" + pid + "/stat");
    return !state.isEmpty() && !state.contains(") Z ");
}

#endif
