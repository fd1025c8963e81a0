#ifndef ZELMORA_TESTS_SUPPORT_CHECKRUN_H
#define ZELMORA_TESTS_SUPPORT_CHECKRUN_H

#include "support/programrun.h"

/// Runs of zelmora-check.
class CheckRun : public ProgramRun {
public:
    CheckRun()
        : ProgramRun(QStringLiteral(ZELMORA_CHECK_PROGRAM))
    {
    }

    /// What standard output says with @p arguments; standard error stays empty.
    QByteArray output(const QStringList& arguments)
    {
        start(arguments);
        if (!ended || !standardError.isEmpty())
            qFatal("zelmora-check failed: %s", standardError.constData());
        return standardOutput;
    }
};

#endif
