#ifndef ZELMORA_TESTS_SUPPORT_TOOLKITLIBRARIES_H
#define ZELMORA_TESTS_SUPPORT_TOOLKITLIBRARIES_H

#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

/// The libraries of the toolkit that @p program loads when it starts, such as "libQt5Core", sorted.
inline QStringList toolkitLibraries(const QString& program)
{
    QProcess ldd;
    ldd.start("ldd", {program});
    if (!ldd.waitForFinished() || ldd.exitCode() != 0)
        qFatal("ldd can't tell what %s loads.", qPrintable(program));

    QStringList libraries;
    QRegularExpressionMatchIterator found = QRegularExpression("libQt5\\w+").globalMatch(ldd.readAllStandardOutput());
    while (found.hasNext())
        libraries += found.next().captured();
    libraries.removeDuplicates();
    libraries.sort();
    return libraries;
}

#endif
