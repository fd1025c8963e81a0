#include "config/zmconfiguration.h"
#include "db/databasemanager.h"
#include "log/hlogmanager.h"
#include "log/logger.h"
#include "support/files.h"
#include "util/sleepthread.h"

#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

/// What the shared libraries give to the programs that link them, and what they need themselves.
class TestSharedLibraries : public QObject {
    Q_OBJECT

private slots:
    void exportedNames_data();
    void exportedNames();
    void sizes_data();
    void sizes();
    void stateIsKeptOnce_data();
    void stateIsKeptOnce();
    void needs_data();
    void needs();
    void names_data();
    void names();
    void staysInTheProcess_data();
    void staysInTheProcess();
};

/// The file of the library @p name, such as "zelmora-db".
static QString file(const QString& name)
{
    return QString(ZELMORA_LIBRARIES "/lib%1" ZELMORA_SUFFIX ".so").arg(name);
}

/// What @p command prints of the file.
static QString said(const QString& command, const QStringList& options, const QString& path)
{
    QProcess process;
    process.start(command, options + QStringList(path));
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s can't read %s.", qPrintable(command), qPrintable(path));
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The names that the library defines, sorted; those that others see, or all of them. Both toolkits' lists of texts are
/// the same to those who read them.
static QStringList definedNames(const QString& library, bool visible)
{
    QStringList options {"--demangle", "--defined-only"};
    if (visible)
        options += "--dynamic";
    QStringList names;
    for (const QString& line : said("nm", options, file(library)).split('\n', Qt::SkipEmptyParts))
        names += line.section(' ', 2).replace("QList<QString>", "QStringList");
    names.removeDuplicates(); // a constructor has two symbols
    names.sort();
    return names;
}

/// The names that the symbols file @p symbols lists, sorted; the optional ones are those that a compiler may leave out.
static QStringList listedNames(const QByteArray& symbols, bool optional)
{
    QStringList names;
    const QRegularExpression entry("^ \\((.*)\\)\"(.*)@Base\"", QRegularExpression::MultilineOption);
    QRegularExpressionMatchIterator found = entry.globalMatch(QString::fromUtf8(symbols));
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        if (match.captured(1).contains("optional") == optional)
            names += match.captured(2);
    }
    names.sort();
    return names;
}

static QByteArray lines(const QStringList& names)
{
    return names.join('\n').toUtf8() + '\n';
}

/// The values of the entries @p tag, such as "NEEDED", in the library's dynamic section.
static QStringList dynamicEntries(const QString& library, const QString& tag)
{
    QStringList values;
    const QRegularExpression entry("\\(" + tag + "\\).*[\\[:] ?([^\\]\n]*)\\]?\n");
    QRegularExpressionMatchIterator found = entry.globalMatch(said("readelf", {"--wide", "--dynamic"}, file(library)));
    while (found.hasNext())
        values += found.next().captured(1);
    values.sort();
    return values;
}

static void addLibraries()
{
    QTest::addColumn<QString>("library");
    QTest::newRow("settings, logs, helpers") << "zelmora";
    QTest::newRow("the database") << "zelmora-db";
    QTest::newRow("what needs widgets") << "zelmora-widgets";
}

void TestSharedLibraries::exportedNames_data()
{
    addLibraries();
}

void TestSharedLibraries::exportedNames()
{
    QFETCH(QString, library);
    const QString list = "lib" + library + ZELMORA_MAJOR_VERSION ".symbols";
    const QByteArray symbols = fileContents(ZELMORA_SYMBOLS "/" + list);
    QStringList names = definedNames(library, true);
    for (const QString& name : listedNames(symbols, true))
        names.removeOne(name);
    const QByteArray expected = lines(listedNames(symbols, false));
    const QByteArray exported = lines(names);
    QVERIFY2(exported == expected,
             "The names that " + library.toUtf8() + " exports are not those of debian/" + list.toUtf8() + ":\n"
                 + difference(expected, exported)
                 + "A program that is linked with the library and uses a name that is gone (-) no longer starts: keep "
                   "it, or raise the major version, with which the library gets another name.\n"
                   "A new name (+) has to stay: if others are to use it, add it to the list and raise the minor "
                   "version; if not, take ZELMORA_EXPORT away from it.\n");
}

void TestSharedLibraries::sizes_data()
{
    QTest::addColumn<std::size_t>("size");
    QTest::addColumn<std::size_t>("withQt5");
    QTest::addColumn<std::size_t>("withQt6"); // a text has 24 bytes there, not 8
    const auto row = [](const char* name, std::size_t size, std::size_t withQt5, std::size_t withQt6) {
        QTest::newRow(name) << size << withQt5 << withQt6;
    };
    row("Config", sizeof(libconfig::Config), 128, 160);
    row("ZMConfiguration", sizeof(ZMConfiguration), 128, 160);
    row("Logger", sizeof(Logger), 32, 48);
    row("HLogManager", sizeof(HLogManager), 32, 32);
    row("SleepThread", sizeof(SleepThread), 24, 24);
    row("DatabaseManager", sizeof(DatabaseManager), 8, 8);
}

// A program that has such an object, or a class of its own that derives from one, has its size in itself.
void TestSharedLibraries::sizes()
{
    if (sizeof(void*) != 8)
        QSKIP("Sizes are known where an address has eight bytes.");
    QFETCH(std::size_t, size);
    QFETCH(std::size_t, withQt5);
    QFETCH(std::size_t, withQt6);
    QVERIFY2(size == (ZELMORA_QT[0] == '6' ? withQt6 : withQt5),
             qPrintable(QString("%1 bytes: programs that are linked with 1.0 cannot use that.").arg(size)));
}

void TestSharedLibraries::stateIsKeptOnce_data()
{
    QTest::addColumn<QString>("library");
    QTest::newRow("the database") << "zelmora-db";
    QTest::newRow("what needs widgets") << "zelmora-widgets";
}

// What the base library gives to others is in no other one a second time, hidden there.
void TestSharedLibraries::stateIsKeptOnce()
{
    QFETCH(QString, library);
    const QStringList base = definedNames("zelmora", true);
    QVERIFY(base.contains("SyncSingleton<ZMConfiguration>::instance_pointer"));
    for (const QString& name : definedNames(library, false))
        QVERIFY2(!base.contains(name), qPrintable(name));
}

void TestSharedLibraries::needs_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<QStringList>("needed");
    const QString ours = "libzelmora" ZELMORA_SUFFIX ".so." ZELMORA_MAJOR_VERSION;
    const QString core = "libQt" ZELMORA_QT "Core.so." ZELMORA_QT;
    const QString xml = "libQt" ZELMORA_QT "Xml.so." ZELMORA_QT;
    // Qt 6 has the codecs and the streaming XML classes in a library of their own.
    const QStringList compatibility = ZELMORA_QT[0] == '6' ? QStringList("libQt6Core5Compat.so.6") : QStringList();
    QTest::newRow("settings, logs, helpers: no Sql, no Widgets")
        << "zelmora" << QStringList({core}) + compatibility + QStringList({xml});
    QTest::newRow("the database: no Widgets")
        << "zelmora-db" << QStringList({core, "libQt" ZELMORA_QT "Sql.so." ZELMORA_QT, ours});
    QTest::newRow("what needs widgets: no Sql")
        << "zelmora-widgets" << QStringList({core, "libQt" ZELMORA_QT "Widgets.so." ZELMORA_QT, xml, ours});
}

void TestSharedLibraries::needs()
{
    QFETCH(QString, library);
    QFETCH(QStringList, needed);
    QCOMPARE(dynamicEntries(library, "NEEDED").filter(QRegularExpression("^lib(Qt|zelmora)")), needed);
}

void TestSharedLibraries::names_data()
{
    addLibraries();
}

// The file has the whole version; a program looks for its major number, and the compiler for neither.
void TestSharedLibraries::names()
{
    QFETCH(QString, library);
    const QString path = file(library);
    const QString fileName = QFileInfo(path).fileName();
    QCOMPARE(dynamicEntries(library, "SONAME"), QStringList(fileName + "." ZELMORA_MAJOR_VERSION));
    QCOMPARE(QFile::symLinkTarget(path), path + "." ZELMORA_MAJOR_VERSION);
    QCOMPARE(QFile::symLinkTarget(path + "." ZELMORA_MAJOR_VERSION), path + "." ZELMORA_VERSION);
}

void TestSharedLibraries::staysInTheProcess_data()
{
    addLibraries();
}

// Unloaded with the last plug-in that links it, it would take its instances along.
void TestSharedLibraries::staysInTheProcess()
{
    QFETCH(QString, library);
    QVERIFY(dynamicEntries(library, "FLAGS_1").join(' ').contains("NODELETE"));
}

QTEST_GUILESS_MAIN(TestSharedLibraries)
#include "tst_sharedlibraries.moc"
