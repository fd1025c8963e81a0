#ifndef ZELMORA_TESTS_SETTINGS_CONFIGRUN_H
#define ZELMORA_TESTS_SETTINGS_CONFIGRUN_H

#include "support/programrun.h"

/// Runs the real `zelmora-config`. The settings file is "a.conf" in the scratch folder, unless the arguments name none.
class ConfigRun : public ProgramRun {
public:
    ConfigRun()
        : ProgramRun(QStringLiteral(ZELMORA_CONFIG_PROGRAM))
    {
    }

    QString file() const { return path("a.conf"); }
    QString ownFile() const { return path("home/.zelmora/conf/zelmora.conf"); }
    QByteArray contents() const { return fileContents(file()); }
    void setContents(const QByteArray& bytes) const { writeBytes(file(), bytes); }

    /// The exit status of a run with these arguments behind "--file a.conf".
    int statusOf(const QStringList& arguments)
    {
        start(QStringList {QStringLiteral("--file"), file()} + arguments);
        return exitStatus;
    }

    /// Of a run with these arguments alone.
    int ownStatusOf(const QStringList& arguments)
    {
        start(arguments);
        return exitStatus;
    }
};

#endif
