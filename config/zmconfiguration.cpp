#include "config/zmconfiguration.h"

#include "toolkit/eightbit.h"
#include "toolkit/filenames.h"

template class SyncSingleton<ZMConfiguration>;

QString ZMConfiguration::path()
{
    return toolkit::homePath() + QStringLiteral("/.zelmora/conf/zelmora.conf");
}

ZMConfiguration::ZMConfiguration()
{
    readFile(path(), QStringLiteral("cfg"));
}

ZMConfiguration::ZMConfiguration(const QByteArray& bytes, const QString& name, const QString& format)
{
    readBytes(bytes, name, format);
}

QString ZMConfiguration::getStrValue(const QString& key) const
{
    return toolkit::eightBit(lookup(toolkit::eightBit(key)));
}
