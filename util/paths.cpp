#include "util/hlibrary.h"

#include <QDir>

QString HLibrary::appData()
{
    return QString();
}

QString HLibrary::programFiles()
{
    return QString();
}

QString HLibrary::dataPath()
{
    return QDir::homePath();
}

QString HLibrary::toWindowsFormat(QString path)
{
    return path;
}

QString HLibrary::fromUtf8(const QString& text)
{
    return text;
}

QString HLibrary::psql()
{
    return QStringLiteral("psql");
}

QString HLibrary::dropdb()
{
    return QStringLiteral("dropdb");
}

QString HLibrary::pg_dump()
{
    return QStringLiteral("pg_dump");
}

QString HLibrary::pg_restore()
{
    return QStringLiteral("pg_restore");
}
