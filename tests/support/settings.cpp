#include "support/settings.h"

#include "config/zmconfiguration.h"

#include <QTemporaryFile>

void useSettings(const QByteArray& text)
{
    QTemporaryFile file;
    if (!file.open() || file.write(text) != text.size() || !file.flush())
        qFatal("The settings of this test can't be written.");
    SyncSingleton<ZMConfiguration>::instance()->readFile(file.fileName(), QStringLiteral("cfg"));
}
