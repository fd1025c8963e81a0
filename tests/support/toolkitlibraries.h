#ifndef ZELMORA_TESTS_SUPPORT_TOOLKITLIBRARIES_H
#define ZELMORA_TESTS_SUPPORT_TOOLKITLIBRARIES_H

#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

/// The toolkit's library of @p module, such as "libQt5Core".
inline QString toolkitLibrary(const QString& module)
{
    return "libQt" ZELMORA_QT + module;
}

/// Those of a program without widgets and without SQL, sorted.
inline QStringList coreLibraries()
{
    return QString(ZELMORA_CORE_MODULES)
        .split(' ')
        .replaceInStrings(QRegularExpression("^"), toolkitLibrary(QString()));
}

/// The libraries of the toolkit that @p program loads when it starts, of whichever version, sorted.
inline QStringList toolkitLibraries(const QString& program)
{
    QProcess ldd;
    ldd.start("ldd", {program});
    if (!ldd.waitForFinished() || ldd.exitCode() != 0)
        qFatal("ldd can't tell what %s loads.", qPrintable(program));

    QStringList libraries;
    QRegularExpressionMatchIterator found = QRegularExpression("libQt\\d\\w+").globalMatch(ldd.readAllStandardOutput());
    while (found.hasNext())
        libraries += found.next().captured();
    libraries.removeDuplicates();
    libraries.sort();
    return libraries;
}

#endif
