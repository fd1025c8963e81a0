#include "util/hlibrary.h"

#include "support/programrun.h"
#include "support/toolkitmessages.h"

#include <QDir>
#include <QtTest>

#include <optional>

/// The two small file helpers.
class TestFiles : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void coreFile_data();
    void coreFile();
    void coreFileOfARemovedDirectory();

    void touchEmptiesAFile();
    void touchMakesAFile();
    void touchFailsInSilence_data();
    void touchFailsInSilence();

private:
    void makeFile(const QString& name, const QByteArray& bytes);

    std::optional<QTemporaryDir> folder;
    std::optional<ToolkitMessages> messages;
};

// Each test has a current directory of its own.
void TestFiles::init()
{
    folder.emplace();
    QVERIFY(QDir::setCurrent(folder->path()));
    messages.emplace();
}

void TestFiles::cleanup()
{
    messages.reset();
    QVERIFY(QDir::setCurrent("/"));
    QCOMPARE(ToolkitMessages::all().join(" / "), QString());
}

void TestFiles::makeFile(const QString& name, const QByteArray& bytes)
{
    QFile file(folder->filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

void TestFiles::coreFile_data()
{
    QTest::addColumn<QStringList>("entries"); // a folder's name ends in "/"
    QTest::addColumn<QString>("core");

    QTest::newRow("an empty directory") << QStringList() << "";
    QTest::newRow("no core file") << QStringList({"a", "score", ".core", "cor", "a core"}) << "";
    QTest::newRow("one") << QStringList({"a", "core", "z"}) << "core";
    QTest::newRow("with a process number") << QStringList({"core.4711"}) << "core.4711";
    QTest::newRow("the first by name") << QStringList({"core.9", "core.10", "core.2"}) << "core.10";
    QTest::newRow("the bare name goes first") << QStringList({"core.1", "core"}) << "core";
    QTest::newRow("in any case") << QStringList({"CORE.1", "core.2"}) << "CORE.1";
    QTest::newRow("a folder counts") << QStringList({"core.d/", "core.x"}) << "core.d";
    QTest::newRow("not in folders below") << QStringList({"a/", "a/core"}) << "";
}

void TestFiles::coreFile()
{
    QFETCH(QStringList, entries);
    QFETCH(QString, core);
    for (const QString& entry : entries) {
        if (entry.endsWith('/'))
            QVERIFY(QDir().mkdir(entry));
        else
            makeFile(entry, "x");
    }
    QCOMPARE(HLibrary::getCoreFile(), core);
}

void TestFiles::coreFileOfARemovedDirectory()
{
    QVERIFY(folder->remove());
    QCOMPARE(HLibrary::getCoreFile(), QString());
}

void TestFiles::touchEmptiesAFile()
{
    makeFile("orders", "one\ntwo\n");
    HLibrary::touch(folder->filePath("orders"));
    QVERIFY(QFile::exists("orders"));
    QCOMPARE(fileContents("orders"), QByteArray());
}

void TestFiles::touchMakesAFile()
{
    HLibrary::touch("orders");
    QCOMPARE(QDir().entryList(QDir::Files), QStringList {"orders"});
    QCOMPARE(fileContents("orders"), QByteArray());
}

void TestFiles::touchFailsInSilence_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("the folder does not exist") << "missing/orders";
    QTest::newRow("a folder") << ".";
    QTest::newRow("a folder that takes no new file") << "/proc/orders";
    QTest::newRow("no name") << "";
}

void TestFiles::touchFailsInSilence()
{
    QFETCH(QString, path);
    HLibrary::touch(path);
    QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    QVERIFY(!QFileInfo(path).isFile());
}

QTEST_GUILESS_MAIN(TestFiles)
#include "tst_files.moc"
