#include "settings/folderlock.h"

#include "support/files.h"
#include "support/ordinaryuser.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/wait.h>
#include <thread>

using settings::FolderLock;

/// The lock of the folder of a settings file.
class TestFolderLock : public QObject {
    Q_OBJECT

private slots:
    void init();

    void secondWaitsForTheFirst();
    void secondGivesUp();
    void holds_data();
    void holds();
    void isGoneWithItsHolder();
    void leavesNothingBehind();
    void folderMayNotBeWritten();
    void folderMayNotBeRead();

private:
    QString path(const QString& name) const { return folder->filePath(name); }
    bool isFree(const QString& name) const { return FolderLock(path(name)).take(0); }

    QScopedPointer<QTemporaryDir> folder;
};

void TestFolderLock::init()
{
    folder.reset(new QTemporaryDir(scratchFolder()));
    setPermissions(folder->path(), 0755); // for the ordinary user
}

void TestFolderLock::secondWaitsForTheFirst()
{
    auto first = std::make_unique<FolderLock>(path("a.conf"));
    QVERIFY(first->take(0));
    QElapsedTimer clock;
    clock.start();
    std::thread later([&] {
        QThread::msleep(300);
        first.reset();
    });
    FolderLock second(path("a.conf"));
    const bool isTaken = second.take(60000);
    const qint64 waited = clock.elapsed();
    later.join();
    QVERIFY(isTaken);
    QVERIFY2(waited >= 300, qPrintable(QString::number(waited)));
}

void TestFolderLock::secondGivesUp()
{
    FolderLock first(path("a.conf"));
    QVERIFY(first.take(0));
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!FolderLock(path("a.conf")).take(200));
    QVERIFY(clock.elapsed() >= 200);
}

void TestFolderLock::holds_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("isFree");

    QTest::newRow("a file that is there") << "sub/file"
                                          << "sub/file" << false;
    QTest::newRow("a file that is not there") << "sub/none"
                                              << "sub/none" << false;
    QTest::newRow("a link to it") << "sub/file"
                                  << "link" << false;
    QTest::newRow("a link to a link to it") << "linkToLink"
                                            << "sub/file" << false;
    QTest::newRow("a link to nothing") << "sub/none"
                                       << "toNothing" << false;
    QTest::newRow("a folder that is a link") << "folder/file"
                                             << "sub/file" << false;
    QTest::newRow("a file in another folder") << "sub/file"
                                              << "file" << true;
    QTest::newRow("a link to another folder") << "link"
                                              << "file" << true;
    QTest::newRow("links in a circle") << "circle"
                                       << "sub/file" << true;
}

void TestFolderLock::holds()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QVERIFY(QDir(folder->path()).mkdir("sub"));
    writeBytes(path("sub/file"), "x");
    makeLink("sub/file", path("link"));
    makeLink("link", path("linkToLink"));
    makeLink("sub/none", path("toNothing"));
    makeLink("sub", path("folder"));
    makeLink("circle", path("circle"));
    FolderLock lock(path(first));
    QVERIFY(lock.take(0));
    QTEST(isFree(second), "isFree");
}

void TestFolderLock::isGoneWithItsHolder()
{
    int ready[2];
    QCOMPARE(pipe(ready), 0);
    const pid_t holder = fork();
    if (holder == 0) {
        FolderLock lock(path("a.conf"));
        if (lock.take(0) && write(ready[1], "x", 1) == 1)
            pause();
        _exit(1);
    }
    char byte = 0;
    QCOMPARE(read(ready[0], &byte, 1), ssize_t(1));
    QVERIFY(!isFree("a.conf"));
    QCOMPARE(kill(holder, SIGKILL), 0);
    QCOMPARE(waitpid(holder, nullptr, 0), holder);
    QVERIFY(isFree("a.conf"));
    close(ready[0]);
    close(ready[1]);
}

void TestFolderLock::leavesNothingBehind()
{
    {
        FolderLock lock(path("a.conf"));
        QVERIFY(lock.take(0));
        QCOMPARE(filesIn(folder->path()), QStringList());
    }
    QCOMPARE(filesIn(folder->path()), QStringList());
}

void TestFolderLock::folderMayNotBeWritten()
{
    setPermissions(folder->path(), 0555);
    bool isTaken = false;
    bool isTakenTwice = true;
    {
        const OrdinaryUser someone;
        FolderLock lock(path("a.conf"));
        isTaken = lock.take(0);
        isTakenTwice = isFree("a.conf");
    }
    setPermissions(folder->path(), 0755);
    QVERIFY(isTaken);
    QVERIFY(!isTakenTwice);
}

// There is no lock to be had, and no reason to do nothing.
void TestFolderLock::folderMayNotBeRead()
{
    setPermissions(folder->path(), 0311);
    bool isTaken = false;
    {
        const OrdinaryUser someone;
        isTaken = isFree("a.conf");
    }
    setPermissions(folder->path(), 0755);
    QVERIFY(isTaken);
}

QTEST_GUILESS_MAIN(TestFolderLock)
#include "tst_folderlock.moc"
