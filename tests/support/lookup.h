#ifndef ZELMORA_TESTS_SUPPORT_LOOKUP_H
#define ZELMORA_TESTS_SUPPORT_LOOKUP_H

#include "support/files.h"
#include "support/settingstree.h"

#include <QTemporaryDir>
#include <QtTest>

// What a key finds in a settings file of a format: "cfg" or "xml".

/// Reads a file that holds @p bytes.
inline void read(libconfig::Config& config, const QByteArray& bytes, const char* format = "cfg")
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("zelmora.conf"));
    writeBytes(path, bytes);
    config.readFile(path, QString::fromLatin1(format));
}

/// What @p key finds before the tree is asked for, and after that; where the two differ, both.
inline QString lookupWithAndWithoutTree(const OpenConfig& config, const QString& key)
{
    const QString value = config.lookup(key);
    config.rootElement();
    const QString inTree = config.lookup(key);
    return value == inTree ? value : "without the tree " + value + ", with it " + inTree;
}

inline QString lookup(const QByteArray& bytes, const QString& key, const char* format = "cfg")
{
    OpenConfig config;
    read(config, bytes, format);
    return lookupWithAndWithoutTree(config, key);
}

// A table of files, each with a key and what it finds; all are UTF-8.

inline void addLookupColumns()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
}

inline void addLookup(const char* name, const char* text, const char* key, const char* expected)
{
    QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(key) << QString::fromUtf8(expected);
}

inline void checkLookup(const char* format)
{
    QFETCH(QString, text);
    QFETCH(QString, key);
    QFETCH(QString, expected);
    QCOMPARE(lookup(text.toUtf8(), key, format), expected);
}

#endif
