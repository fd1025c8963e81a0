#include "settings/backup.h"
#include "support/ordinaryuser.h"
#include "support/processstate.h"
#include "support/programrun.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

class TestBackup : public QObject {
    Q_OBJECT

private slots:
    void init() { folder = std::make_unique<QTemporaryDir>(); }

    void keepsTheBytes_data();
    void keepsTheBytes();
    void keepsTheMode_data();
    void keepsTheMode();
    void keepsTheOwner();
    void aGroupThatCannotBeKeptGivesNothingAway();
    void standsBesideTheTargetOfLinks();
    void theFileIsGone();
    void takesThePlaceOfAnEarlierOne();
    void doesNotWriteThroughALink();
    void doesNotChangeAnotherNameOfAnEarlierOne();
    void longNames_data();
    void longNames();
    void cannotBeMade_data();
    void cannotBeMade();
    void fullDisk_data();
    void fullDisk();

private:
    QString path(const QString& name) const { return folder->filePath(name); }
    QString write(const QString& name, const QByteArray& bytes, mode_t mode = 0644) const;
    QStringList names() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> folder;
};

static const QByteArray oldBytes = "zelmora: { a = 1 }; b = 2; };";

QString TestBackup::write(const QString& name, const QByteArray& bytes, mode_t mode) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || fchmod(file.handle(), mode) != 0)
        qFatal("A file of the test can't be written.");
    return file.fileName();
}

static struct stat statusOf(const QString& path)
{
    struct stat status { };
    if (lstat(QFile::encodeName(path).constData(), &status) != 0)
        qFatal("%s isn't there.", qPrintable(path));
    return status;
}

void TestBackup::keepsTheBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("a text") << oldBytes;
    QTest::newRow("bytes of all kinds") << QByteArray("\0\xff\r\n\x1a\xe8", 6);
    QTest::newRow("many") << QByteArray(10000000, 'x');
}

void TestBackup::keepsTheBytes()
{
    QFETCH(QByteArray, bytes);
    const QString file = write("zelmora.conf", "what another program has written since");
    QCOMPARE(settings::keepBackup(file, bytes), QString());
    QVERIFY(fileContents(file + '~') == bytes);
    QCOMPARE(fileContents(file), QByteArray("what another program has written since"));
    QCOMPARE(names(), QStringList({"zelmora.conf", "zelmora.conf~"}));
}

void TestBackup::keepsTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("for all to read") << 0644;
    QTest::newRow("for the owner alone") << 0600;
    QTest::newRow("for nobody to write") << 0444;
    QTest::newRow("for all to write") << 0666;
    QTest::newRow("for the group") << 0720;
    QTest::newRow("for nobody") << 0000;
}

void TestBackup::keepsTheMode()
{
    QFETCH(int, mode);
    const QString file = write("zelmora.conf", oldBytes, static_cast<mode_t>(mode));
    const mode_t mask = umask(027);
    const QString reason = settings::keepBackup(file, oldBytes);
    umask(mask);
    QCOMPARE(reason, QString());
    QCOMPARE(statusOf(file + '~').st_mode & 07777, static_cast<mode_t>(mode));
}

void TestBackup::keepsTheOwner()
{
    if (geteuid() != 0)
        QSKIP("Only root can give a file away.");
    const QString file = write("zelmora.conf", oldBytes, 0640);
    QCOMPARE(chown(QFile::encodeName(file).constData(), 1111, 2222), 0);
    QCOMPARE(settings::keepBackup(file, oldBytes), QString());
    QCOMPARE(statusOf(file + '~').st_uid, uid_t(1111));
    QCOMPARE(statusOf(file + '~').st_gid, gid_t(2222));
    QCOMPARE(statusOf(file + '~').st_mode & 07777, mode_t(0640));
}

// The settings hold a password.
void TestBackup::aGroupThatCannotBeKeptGivesNothingAway()
{
    if (geteuid() != 0)
        QSKIP("Only root can make a file of another group.");
    QCOMPARE(chmod(QFile::encodeName(folder->path()).constData(), 0777), 0);
    const QString file = write("zelmora.conf", oldBytes, 0664);
    const QString ours = write("ours.conf", oldBytes, 0660);
    QCOMPARE(chown(QFile::encodeName(file).constData(), 1111, 2222), 0);
    QCOMPARE(chown(QFile::encodeName(ours).constData(), 1111, OrdinaryUser::furtherGroup), 0);
    {
        const OrdinaryUser someone;
        QCOMPARE(settings::keepBackup(file, oldBytes), QString());
        QCOMPARE(settings::keepBackup(ours, oldBytes), QString());
    }
    QCOMPARE(statusOf(file + '~').st_uid, uid_t(OrdinaryUser::user));
    QVERIFY(statusOf(file + '~').st_gid != gid_t(2222));
    QCOMPARE(statusOf(file + '~').st_mode & 07777, mode_t(0644));
    QCOMPARE(statusOf(ours + '~').st_uid, uid_t(OrdinaryUser::user));
    QCOMPARE(statusOf(ours + '~').st_gid, gid_t(OrdinaryUser::furtherGroup));
    QCOMPARE(statusOf(ours + '~').st_mode & 07777, mode_t(0660));
}

void TestBackup::standsBesideTheTargetOfLinks()
{
    QVERIFY(QDir(folder->path()).mkpath("shared/conf"));
    const QString target = write("shared/conf/till.conf", oldBytes, 0640);
    QVERIFY(QFile::link("conf/till.conf", path("shared/middle.conf"))); // relative to its own folder
    QVERIFY(QFile::link(path("shared/middle.conf"), path("zelmora.conf")));
    QCOMPARE(settings::keepBackup(path("zelmora.conf"), oldBytes), QString());
    QCOMPARE(fileContents(target + '~'), oldBytes);
    QCOMPARE(statusOf(target + '~').st_mode & 07777, mode_t(0640));
    QCOMPARE(names(), QStringList({"shared", "zelmora.conf"}));
    QVERIFY(S_ISLNK(statusOf(path("zelmora.conf")).st_mode));
}

void TestBackup::theFileIsGone()
{
    const mode_t mask = umask(0);
    const QString reason = settings::keepBackup(path("zelmora.conf"), oldBytes);
    umask(mask);
    QCOMPARE(reason, QString());
    QCOMPARE(fileContents(path("zelmora.conf~")), oldBytes);
    QCOMPARE(statusOf(path("zelmora.conf~")).st_mode & 07777, mode_t(0600));
    QCOMPARE(names(), QStringList("zelmora.conf~"));
}

void TestBackup::takesThePlaceOfAnEarlierOne()
{
    const QString file = write("zelmora.conf", oldBytes, 0640);
    write("zelmora.conf~", QByteArray(1000, 'e'), 0400);
    QCOMPARE(settings::keepBackup(file, oldBytes), QString());
    QCOMPARE(fileContents(file + '~'), oldBytes);
    QCOMPARE(statusOf(file + '~').st_mode & 07777, mode_t(0640));
}

void TestBackup::doesNotWriteThroughALink()
{
    const QString file = write("zelmora.conf", oldBytes);
    const QString elsewhere = write("elsewhere", "precious");
    QVERIFY(QFile::link(elsewhere, file + '~'));
    QCOMPARE(settings::keepBackup(file, oldBytes), QString());
    QCOMPARE(fileContents(elsewhere), QByteArray("precious"));
    QVERIFY(S_ISREG(statusOf(file + '~').st_mode));
    QCOMPARE(fileContents(file + '~'), oldBytes);
}

void TestBackup::doesNotChangeAnotherNameOfAnEarlierOne()
{
    const QString file = write("zelmora.conf", oldBytes);
    const QString earlier = write("zelmora.conf~", "earlier");
    const QString kept = path("kept");
    QCOMPARE(::link(QFile::encodeName(earlier).constData(), QFile::encodeName(kept).constData()), 0);
    QCOMPARE(settings::keepBackup(file, oldBytes), QString());
    QCOMPARE(fileContents(kept), QByteArray("earlier"));
}

void TestBackup::longNames_data()
{
    QTest::addColumn<int>("size"); // in bytes; the system takes 255
    QTest::addColumn<QString>("reason");
    QTest::newRow("room for the sign and no more") << 254 << QString();
    QTest::newRow("no room for the sign") << 255 << "File name too long";
}

void TestBackup::longNames()
{
    QFETCH(int, size);
    QFETCH(QString, reason);
    const QString name(size, 'n');
    const QString file = write(name, oldBytes);
    QCOMPARE(settings::keepBackup(file, oldBytes), reason);
    QCOMPARE(names(), reason.isEmpty() ? QStringList({name, name + '~'}) : QStringList(name));
    if (reason.isEmpty())
        QCOMPARE(fileContents(file + '~'), oldBytes);
}

void TestBackup::cannotBeMade_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QString>("reason");
    QTest::newRow("the folder cannot be written") << "folder"
                                                  << "Permission denied";
    QTest::newRow("the folder is sticky, and the earlier one another's") << "sticky"
                                                                         << "Operation not permitted";
    QTest::newRow("a folder has its name") << "directory"
                                           << "Is a directory";
    QTest::newRow("its folder is gone") << "gone"
                                        << "No such file or directory";
}

void TestBackup::cannotBeMade()
{
    QFETCH(QString, obstacle);
    QFETCH(QString, reason);
    if (geteuid() != 0)
        QSKIP("Only root can be another user for a while.");
    const QString file = write("zelmora.conf", oldBytes, 0666);
    if (obstacle == "directory")
        QVERIFY(QDir(folder->path()).mkdir("zelmora.conf~"));
    else
        write("zelmora.conf~", "earlier");
    const QStringList before = names();
    const mode_t mode = obstacle == "folder" ? 0555 : obstacle == "sticky" ? 01777 : 0777;
    QCOMPARE(chmod(QFile::encodeName(folder->path()).constData(), mode), 0);
    const QString wanted = obstacle == "gone" ? path("nowhere/zelmora.conf") : file;
    {
        const OrdinaryUser someone;
        QCOMPARE(settings::keepBackup(wanted, oldBytes), reason);
    }
    QCOMPARE(names(), before);
    if (obstacle != "directory")
        QCOMPARE(fileContents(file + '~'), QByteArray("earlier"));
}

void TestBackup::fullDisk_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("room");
    QTest::newRow("no room") << 100 << 0;
    QTest::newRow("room for a part") << 100 << 10;
    QTest::newRow("room for all but a byte") << 100000 << 99999;
}

void TestBackup::fullDisk()
{
    QFETCH(int, size);
    QFETCH(int, room);
    const QString file = write("zelmora.conf", oldBytes);
    write("zelmora.conf~", "earlier");
    QString reason;
    {
        const FileSizeLimit limit(static_cast<rlim_t>(room));
        reason = settings::keepBackup(file, QByteArray(size, 'x'));
    }
    QCOMPARE(reason, QString("File too large"));
    QCOMPARE(fileContents(file + '~'), QByteArray("earlier"));
    QCOMPARE(names(), QStringList({"zelmora.conf", "zelmora.conf~"}));
}

QTEST_GUILESS_MAIN(TestBackup)
#include "tst_backup.moc"
