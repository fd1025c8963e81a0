#include "toolkit/filereplacement.h"

#include "support/files.h"
#include "support/interceptedcall.h"
#include "support/ordinaryuser.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>

using toolkit::createFile;

/// A new file that takes nobody's place.
class TestFileCreation : public QObject {
    Q_OBJECT

private slots:
    void init();

    void isForTheUserAlone();
    void hasWhatItsModelHas();
    void takesNobodysPlace_data();
    void takesNobodysPlace();
    void isMadeWhereALinkLeads();
    void isCompleteBeforeItHasItsName();
    void failureLeavesNothing_data();
    void failureLeavesNothing();
    void modelIsMissing();
    void folderMayNotBeWritten();

private:
    QString path(const QString& name) const { return folder->filePath(name); }
    QStringList files() const { return filesIn(folder->path()); }

    QScopedPointer<QTemporaryDir> folder;
};

void TestFileCreation::init()
{
    folder.reset(new QTemporaryDir(scratchFolder()));
    QVERIFY(folder->isValid());
}

// Whatever the umask leaves to others.
void TestFileCreation::isForTheUserAlone()
{
    const mode_t previous = umask(0);
    const QString reason = createFile(path("new"), "text", QString());
    umask(previous);
    QCOMPARE(reason, QString());
    QCOMPARE(fileContents(path("new")), QByteArray("text"));
    QCOMPARE(permissionsOf(path("new")), mode_t(0600));
    QCOMPARE(files(), QStringList("new"));
}

void TestFileCreation::hasWhatItsModelHas()
{
    writeBytes(path("model"), "x");
    setPermissions(path("model"), 0640);
    QCOMPARE(createFile(path("new"), "text", path("model")), QString());
    QCOMPARE(permissionsOf(path("new")), mode_t(0640));
    QCOMPARE(fileStatus(path("new")).st_uid, fileStatus(path("model")).st_uid);
}

void TestFileCreation::takesNobodysPlace_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("refusal"); // of the rename that replaces nothing

    for (const char* name : {"file", "folder", "link", "emptyFile"}) {
        QTest::addRow("%s", name) << name << 0;
        QTest::addRow("%s, in a file system that needs another way", name) << name << EINVAL;
    }
}

void TestFileCreation::takesNobodysPlace()
{
    QFETCH(QString, name);
    QFETCH(int, refusal);
    writeBytes(path("file"), "old");
    writeBytes(path("emptyFile"), QByteArray());
    QVERIFY(QDir(folder->path()).mkdir("folder"));
    makeLink("file", path("link"));
    const QStringList before = files();
    const InterceptedCall answer("renameat2", [&] { return refusal; });
    QCOMPARE(createFile(path(name), "new", QString()), QString("File exists"));
    QCOMPARE(fileContents(path("file")), QByteArray("old"));
    QCOMPARE(fileContents(path("emptyFile")), QByteArray());
    QCOMPARE(files(), before);
}

void TestFileCreation::isMadeWhereALinkLeads()
{
    QVERIFY(QDir(folder->path()).mkdir("sub"));
    makeLink("sub/new", path("link"));
    QCOMPARE(createFile(path("link"), "text", QString()), QString());
    QCOMPARE(fileContents(path("sub/new")), QByteArray("text"));
    QVERIFY(S_ISLNK(fileStatus(path("link")).st_mode));
}

void TestFileCreation::isCompleteBeforeItHasItsName()
{
    QByteArray seen;
    bool isThere = true;
    const InterceptedCall watched("renameat2", [&] {
        isThere = QFile::exists(path("new"));
        seen = fileContents(path(files().value(0)));
        return 0;
    });
    QCOMPARE(createFile(path("new"), "text", QString()), QString());
    QVERIFY(!isThere);
    QCOMPARE(seen, QByteArray("text"));
}

void TestFileCreation::failureLeavesNothing_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("reason");

    QTest::newRow("the write fails") << QByteArray("write") << ENOSPC << "No space left on device";
    QTest::newRow("the sync fails") << QByteArray("fsync") << EIO << "Input/output error";
    QTest::newRow("it cannot have its name") << QByteArray("renameat2") << EROFS << "Read-only file system";
}

void TestFileCreation::failureLeavesNothing()
{
    QFETCH(QByteArray, function);
    QFETCH(int, error);
    QFETCH(QString, reason);
    const InterceptedCall fault(function.constData(), [&] { return error; });
    QCOMPARE(createFile(path("new"), "text", QString()), reason);
    QCOMPARE(files(), QStringList());
}

void TestFileCreation::modelIsMissing()
{
    QCOMPARE(createFile(path("new"), "text", path("model")), QString("No such file or directory"));
    QCOMPARE(files(), QStringList());
}

void TestFileCreation::folderMayNotBeWritten()
{
    setPermissions(folder->path(), 0555);
    QString reason;
    {
        const OrdinaryUser someone;
        reason = createFile(path("new"), "text", QString());
    }
    setPermissions(folder->path(), 0700);
    QCOMPARE(reason, QString("Permission denied"));
    QCOMPARE(files(), QStringList());
}

QTEST_GUILESS_MAIN(TestFileCreation)
#include "tst_filecreation.moc"
