#include "config/zmconfiguration.h"

#include "toolkit/eightbit.h"

#include <QDir>

ZMConfiguration::ZMConfiguration()
{
    readFile(QDir::homePath() + QStringLiteral("/.zelmora/conf/zelmora.conf"), QStringLiteral("cfg"));
}

QString ZMConfiguration::getStrValue(const QString& key) const
{
    return toolkit::eightBit(lookup(toolkit::eightBit(key)));
}
