#include "preview/filesbelow.h"
#include "support/files.h"
#include "support/ordinaryuser.h"

#include <QtTest>

/// The files in a folder.
class TestFilesBelow : public QObject {
    Q_OBJECT

private slots:
    void aClosedFolderIsNamed();
    void ofLinksThoseToFilesAndToNothing();
};

void TestFilesBelow::aClosedFolderIsNamed()
{
    const OrdinaryUser user;
    const QTemporaryDir folder;
    QDir(folder.path()).mkpath("closed/deep");
    QDir(folder.path()).mkpath("open/empty");
    writeBytes(folder.filePath("open/a.txt"), "a");
    writeBytes(folder.filePath("closed/b.txt"), "b");
    setPermissions(folder.filePath("closed"), 0);
    QCOMPARE(preview::filesBelow(folder.path()), (QStringList {"closed", "open/a.txt"}));
    setPermissions(folder.filePath("closed"), 0700);
    QCOMPARE(preview::filesBelow(folder.path()), (QStringList {"closed/b.txt", "open/a.txt"}));
}

void TestFilesBelow::ofLinksThoseToFilesAndToNothing()
{
    const QTemporaryDir folder;
    writeBytes(folder.filePath("a.txt"), "a");
    makeLink("a.txt", folder.filePath("file"));
    makeLink("/dev/null", folder.filePath("device"));
    makeLink(".", folder.filePath("folder"));
    makeLink("none", folder.filePath("nothing"));
    QCOMPARE(preview::filesBelow(folder.path()), (QStringList {"a.txt", "file", "nothing"}));
}

QTEST_GUILESS_MAIN(TestFilesBelow)

#include "tst_filesbelow.moc"
