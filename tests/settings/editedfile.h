#ifndef ZELMORA_TESTS_SETTINGS_EDITEDFILE_H
#define ZELMORA_TESTS_SETTINGS_EDITEDFILE_H

#include "settings/editedsettings.h"
#include "support/files.h"

#include <QTemporaryDir>

/// A settings file in a folder of its own, while somebody changes it.
class EditedFile : public settings::EditedSettings {
public:
    explicit EditedFile(const QByteArray& bytes, const char* name = "a.conf")
        : path(folder.filePath(name))
    {
        writeBytes(path, bytes);
        if (!load(path).isEmpty())
            qFatal("The file of the test can't be read.");
    }

    /// What saving it would write, each run of white space as one blank.
    QByteArray now() const { return tryWriting(path).bytes.simplified(); }

    /// The group that these names lead to; null when there is none.
    QDomElement group(const QStringList& names) const
    {
        QDomElement found = file().root();
        for (const QString& name : names)
            found = found.firstChildElement(name);
        return found;
    }

private:
    QTemporaryDir folder {scratchFolder()};

public:
    const QString path;
};

#endif
