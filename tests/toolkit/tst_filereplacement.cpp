#include "toolkit/filereplacement.h"

#include "support/files.h"
#include "support/interceptedcall.h"
#include "support/ordinaryuser.h"
#include "support/ownmounts.h"
#include "support/pipereader.h"
#include "support/processstate.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <sys/socket.h>
#include <sys/un.h>
#include <vector>

using toolkit::replaceFile;
using toolkit::replaceFileBeside;

using Action = std::function<void(const QString& file)>;

/// A place for a file that no new one can replace. Puts one with the contents @p old there, somewhere in @p folder, and
/// lets @p action have it, as an ordinary user where that matters. False where the machine has no such place.
using Place = bool (*)(const QString& folder, const QByteArray& old, const Action& action);

Q_DECLARE_METATYPE(Place)

#ifdef __SANITIZE_ADDRESS__
/// Memory that is not there is an answer, not the end of the process.
extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}
#endif

namespace {

const QByteArray oldContents = QByteArray("what was there before\n").repeated(500);
const QByteArray shortContents = "short";
const QByteArray longContents = QByteArray("longer than before\0", 19).repeated(3000);

bool inAFolderThatMayNotBeWritten(const QString& folder, const QByteArray& old, const Action& action)
{
    const QString file = folder + "/file";
    writeBytes(file, old);
    setPermissions(file, 0666);
    setPermissions(folder, 0555);
    {
        const OrdinaryUser someone;
        action(file);
    }
    setPermissions(folder, 0755);
    return true;
}

/// Where this user has nobody else's file, the system's answer to the attempt comes from the test.
bool inAStickyFolder(const QString& folder, const QByteArray& old, const Action& action)
{
    const QString file = folder + "/file";
    writeBytes(file, old);
    setPermissions(file, 0666);
    setPermissions(folder, 01777);
    std::unique_ptr<InterceptedCall> refusal;
    if (geteuid() != 0)
        refusal = std::make_unique<InterceptedCall>("rename", [] { return EPERM; });
    const OrdinaryUser someone;
    action(file);
    return true;
}

void bind(const QString& file, const QString& over)
{
    if (mount(QFile::encodeName(file), QFile::encodeName(over), nullptr, MS_BIND, nullptr) != 0)
        qFatal("%s can't be mounted.", qPrintable(file));
}

bool mountedOnAFile(const QString& folder, const QByteArray& old, const Action& action)
{
    writeBytes(folder + "/elsewhere", old);
    writeBytes(folder + "/file", "hidden");
    return withOwnMounts([&] {
        bind(folder + "/elsewhere", folder + "/file");
        action(folder + "/file");
    });
}

bool mountedInAReadOnlyFileSystem(const QString& folder, const QByteArray& old, const Action& action)
{
    const QString file = folder + "/system/file";
    const QByteArray system = QFile::encodeName(folder + "/system");
    writeBytes(folder + "/elsewhere", old);
    return QDir(folder).mkdir("system") && withOwnMounts([&] {
               if (mount("none", system, "tmpfs", 0, nullptr) != 0)
                   qFatal("A file system can't be mounted.");
               writeBytes(file, "hidden");
               bind(folder + "/elsewhere", file);
               if (mount("none", system, nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
                   qFatal("The file system can't be made read-only.");
               action(file);
           });
}

/// The longest path that the system takes.
bool withNoRoomInItsPath(const QString& folder, const QByteArray& old, const Action& action)
{
    QString deep = folder;
    while (deep.size() < 3800)
        deep += '/' + QString(200, 'd');
    deep += '/' + QString(4095 - 2 - deep.size() - 1, 'e');
    if (!QDir().mkpath(deep))
        qFatal("The folder can't be made.");
    writeBytes(deep + "/f", old);
    action(deep + "/f");
    return true;
}

/// Another one has the name that the system shows for it.
bool withoutAName(const QString& folder, const QByteArray& old, const Action& action)
{
    writeBytes(folder + "/file (deleted)", "another");
    QFile file(folder + "/file");
    writeBytes(file.fileName(), old);
    if (!file.open(QIODevice::ReadOnly) || unlink(QFile::encodeName(file.fileName())) != 0)
        qFatal("The file can't be opened.");
    action("/proc/self/fd/" + QString::number(file.handle()));
    return true;
}

/// What came of a file.
struct Result {
    QString reason;
    QByteArray contents;
    QStringList filesBeside;
    struct stat before;
    struct stat after;
};

struct stat statusOf(const QString& path)
{
    struct stat status;
    if (stat(QFile::encodeName(path), &status) != 0)
        qFatal("%s is not there.", qPrintable(path));
    return status;
}

Result resultOfReplacing(const QString& file, const QByteArray& bytes)
{
    Result result;
    result.before = statusOf(file);
    result.reason = replaceFile(file, bytes);
    result.contents = fileContents(file);
    result.after = statusOf(file);
    if (!file.startsWith("/proc/"))
        result.filesBeside = filesIn(QFileInfo(file).path());
    return result;
}

// What becomes of the calls of a function.

std::function<int()> always(int error)
{
    return [error] { return error; };
}

/// Of the call after the first @p good ones, and of no other.
std::function<int()> once(int error, int good = 0)
{
    return [error, good]() mutable { return good-- == 0 ? error : 0; };
}

std::function<int()> after(int good, int error)
{
    return [error, good]() mutable { return good-- > 0 ? 0 : error; };
}

using Faults = std::vector<std::pair<const char*, std::function<int()>>>;

void withFaults(const Faults& faults, const std::function<void()>& action)
{
    std::vector<std::unique_ptr<InterceptedCall>> calls;
    for (const auto& [function, before] : faults)
        calls.push_back(std::make_unique<InterceptedCall>(function, before));
    action();
}

/// The intercepted functions that @p action calls, each call of them.
QStringList callsOf(const std::function<void()>& action)
{
    QStringList calls;
    Faults watched;
    for (const char* function : {"read", "write", "fchmod", "fsync", "ftruncate", "posix_fallocate", "rename"})
        watched.emplace_back(function, [&calls, function] { return calls += function, 0; });
    withFaults(watched, action);
    return calls;
}

} // namespace

Q_DECLARE_METATYPE(Faults)

/// New contents for a file, whatever it is and wherever it lies, and what remains when that fails.
class TestFileReplacement : public QObject {
    Q_OBJECT

private slots:
    void init();

    void newFile_data();
    void newFile();
    void permissionsOfANewFile();
    void existingFile_data();
    void existingFile();
    void permissions_data();
    void permissions();
    void neverOpenToOthersMeanwhile();
    void ownerStays();
    void groupStays();
    void aGroupThatCannotBeKeptGivesNothingAway_data();
    void aGroupThatCannotBeKeptGivesNothingAway();
    void longName_data();
    void longName();
    void link_data();
    void link();
    void linkInACircle();
    void completeBeforeItTakesThePlace();
    void failedNewFile_data();
    void failedNewFile();
    void fullDisk();

    void pipe();
    void device();
    void notToBeWritten_data();
    void notToBeWritten();
    void readOnlyFile();
    void emptyName_data();
    void emptyName();

    void unreplaceableFile_data();
    void unreplaceableFile();
    void orderInPlace();
    void failedInPlace_data();
    void failedInPlace();
    void fullDiskInPlace();
    void fileSizeLimitInPlace();
    void fileSystemThatReservesNothing_data();
    void fileSystemThatReservesNothing();
    void interruptedInPlace_data();
    void interruptedInPlace();
    void fileThatMayNotBeRead();
    void moreThanMemoryHolds();

    void besideAFile_data();
    void besideAFile();
    void besideTheFileOfALink();
    void besideAMissingFile();
    void ownerStaysBeside();
    void neverOpenToOthersBeside();
    void alwaysANewFileBeside();
    void linkBesideGoes();
    void notToBeWrittenBeside_data();
    void notToBeWrittenBeside();
    void failedBeside_data();
    void failedBeside();

private:
    QString path(const QString& name) const { return folder->filePath(name); }
    QStringList files() const { return filesIn(folder->path()); }
    /// In a folder that may not be written.
    Result resultInPlace(const QByteArray& old, const QByteArray& bytes, const Faults& faults) const;

    QScopedPointer<QTemporaryDir> folder;
};

void TestFileReplacement::init()
{
    folder.reset(new QTemporaryDir(scratchFolder()));
    QVERIFY(folder->isValid());
    setPermissions(folder->path(), 0777); // for the ordinary user
}

void TestFileReplacement::newFile_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("a null array") << QByteArray();
    QTest::newRow("a line") << QByteArray("line\n");
    QTest::newRow("all bytes there are") << longContents + QByteArray("\r\n\x1A\xFF\xFE\0", 6);
    QTest::newRow("three megabytes") << QByteArray(3000000, 'x');
}

void TestFileReplacement::newFile()
{
    QFETCH(QByteArray, bytes);
    const QString reason = replaceFile(path("file"), bytes);
    QVERIFY2(reason.isNull(), qPrintable(reason));
    QVERIFY(fileContents(path("file")) == bytes);
    QCOMPARE(files(), QStringList("file"));
}

void TestFileReplacement::permissionsOfANewFile()
{
    const mode_t previous = umask(027);
    const QString reason = replaceFile(path("file"), "new");
    umask(previous);
    QCOMPARE(reason, QString());
    QCOMPARE(permissionsOf(path("file")), mode_t(0640));
}

void TestFileReplacement::existingFile_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("less") << shortContents;
    QTest::newRow("as much") << QByteArray(oldContents.size(), 'x');
    QTest::newRow("more") << longContents;
}

void TestFileReplacement::existingFile()
{
    QFETCH(QByteArray, bytes);
    writeBytes(path("file"), oldContents);
    const Result result = resultOfReplacing(path("file"), bytes);
    QCOMPARE(result.reason, QString());
    QVERIFY(result.contents == bytes);
    QVERIFY(result.after.st_ino != result.before.st_ino);
    QCOMPARE(files(), QStringList("file"));
}

void TestFileReplacement::permissions_data()
{
    QTest::addColumn<int>("old");
    QTest::addColumn<int>("expected");

    for (const int permissions : {0600, 0640, 0644, 0666, 0755, 0777})
        QTest::newRow(qPrintable("of " + QString::number(permissions, 8))) << permissions << permissions;
    QTest::newRow("a new program runs as whoever starts it") << 06755 << 0755;
}

void TestFileReplacement::permissions()
{
    QFETCH(int, old);
    QFETCH(int, expected);
    writeBytes(path("file"), "old");
    setPermissions(path("file"), static_cast<mode_t>(old));
    QCOMPARE(replaceFile(path("file"), "new"), QString());
    QCOMPARE(permissionsOf(path("file")), static_cast<mode_t>(expected));
    QCOMPARE(fileContents(path("file")), QByteArray("new"));
}

// Who opens a file once can read what is written to it later.
void TestFileReplacement::neverOpenToOthersMeanwhile()
{
    writeBytes(path("file"), "old");
    setPermissions(path("file"), 0600);
    QStringList seen;
    const auto look = [&] {
        for (const QString& file : files())
            seen += QString::number(permissionsOf(path(file)), 8);
        return 0;
    };
    const mode_t previous = umask(0);
    QString reason;
    withFaults({{"fchmod", look}, {"write", look}}, [&] { reason = replaceFile(path("file"), "password"); });
    umask(previous);
    QCOMPARE(reason, QString());
    QCOMPARE(seen, (QStringList {"600", "600", "600", "600"}));
}

// Root may edit the settings of the till's user, who must still be able to read them.
void TestFileReplacement::ownerStays()
{
    const bool isRoot = geteuid() == 0;
    const uid_t owner = isRoot ? 1234 : geteuid();
    const gid_t group = isRoot ? 2345 : getegid();
    writeBytes(path("file"), "old");
    setPermissions(path("file"), 0600);
    QCOMPARE(chown(QFile::encodeName(path("file")), owner, group), 0);
    const Result result = resultOfReplacing(path("file"), "new");
    QCOMPARE(result.reason, QString());
    QCOMPARE(result.after.st_uid, owner);
    QCOMPARE(result.after.st_gid, group);
    QCOMPARE(permissionsOf(path("file")), mode_t(0600));
    QCOMPARE(result.contents, QByteArray("new"));
}

// Who may write a file through its group gives it to nobody else by that: the till's user still reads it.
void TestFileReplacement::groupStays()
{
    const bool isRoot = geteuid() == 0;
    const gid_t group = isRoot ? OrdinaryUser::furtherGroup : getegid();
    writeBytes(path("file"), "old");
    setPermissions(path("file"), 0660);
    QCOMPARE(chown(QFile::encodeName(path("file")), isRoot ? 1111 : geteuid(), group), 0);
    Result result;
    {
        const OrdinaryUser someone;
        result = resultOfReplacing(path("file"), "new");
    }
    QCOMPARE(result.reason, QString());
    QCOMPARE(result.after.st_uid, isRoot ? OrdinaryUser::user : geteuid());
    QCOMPARE(result.after.st_gid, group);
    QCOMPARE(permissionsOf(path("file")), mode_t(0660));
    QCOMPARE(result.contents, QByteArray("new"));
}

void TestFileReplacement::aGroupThatCannotBeKeptGivesNothingAway_data()
{
    QTest::addColumn<int>("old"); // to be written by others, who are the one who writes
    QTest::addColumn<int>("expected");

    QTest::newRow("the group could read and write, others only write") << 0662 << 0622;
    QTest::newRow("the group could do all, others read and write") << 0776 << 0766;
    QTest::newRow("the group could do nothing, others read and write") << 0606 << 0666;
}

// The settings hold a password.
void TestFileReplacement::aGroupThatCannotBeKeptGivesNothingAway()
{
    QFETCH(int, old);
    QFETCH(int, expected);
    if (geteuid() != 0)
        QSKIP("Only root can make a file of another group.");
    writeBytes(path("file"), "old");
    QCOMPARE(chown(QFile::encodeName(path("file")), 1111, 2222), 0);
    setPermissions(path("file"), static_cast<mode_t>(old));
    QString reason;
    {
        const OrdinaryUser someone;
        reason = replaceFile(path("file"), "new");
    }
    QCOMPARE(reason, QString());
    QCOMPARE(statusOf(path("file")).st_uid, uid_t(OrdinaryUser::user));
    QVERIFY(statusOf(path("file")).st_gid != gid_t(2222));
    QCOMPARE(permissionsOf(path("file")), static_cast<mode_t>(expected));
    QCOMPARE(fileContents(path("file")), QByteArray("new"));
}

void TestFileReplacement::longName_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("exists");

    for (const int size : {244, 252, 255}) {
        QTest::addRow("%d bytes, a new file", size) << size << false;
        QTest::addRow("%d bytes, an existing file", size) << size << true;
    }
}

// A name has 255 bytes at most.
void TestFileReplacement::longName()
{
    QFETCH(int, size);
    QFETCH(bool, exists);
    const QString name(size, 'n');
    if (exists)
        writeBytes(path(name), oldContents);
    QCOMPARE(replaceFile(path(name), "new"), QString());
    QCOMPARE(fileContents(path(name)), QByteArray("new"));
    QCOMPARE(files(), QStringList(name));
}

void TestFileReplacement::link_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("target");

    QTest::newRow("a link") << "link"
                            << "sub/real";
    QTest::newRow("a link to a link in another folder") << "linkToLink"
                                                        << "sub/real";
    QTest::newRow("an absolute link") << "absolute"
                                      << "sub/real";
    QTest::newRow("a link to nothing") << "toNothing"
                                       << "sub/new";
    QTest::newRow("a link to a link to nothing") << "toToNothing"
                                                 << "sub/new";
    QTest::newRow("a file in a folder that is a link") << "folder/real"
                                                       << "sub/real";
}

void TestFileReplacement::link()
{
    QFETCH(QString, written);
    QFETCH(QString, target);

    QVERIFY(QDir(folder->path()).mkdir("sub"));
    writeBytes(path("sub/real"), "old");
    setPermissions(path("sub/real"), 0600);
    makeLink("sub/real", path("link"));
    makeLink("real", path("sub/nextToIt"));
    makeLink("sub/nextToIt", path("linkToLink"));
    makeLink(QFile::encodeName(path("sub/real")), path("absolute"));
    makeLink("sub/new", path("toNothing"));
    makeLink("toNothing", path("toToNothing"));
    makeLink("sub", path("folder"));
    const QStringList before = files();
    const ino_t old = fileStatus(path("sub/real")).st_ino;

    QCOMPARE(replaceFile(path(written), "new"), QString());
    QVERIFY(fileStatus(path(target)).st_ino != old);
    QCOMPARE(fileContents(path(target)), QByteArray("new"));
    QVERIFY(S_ISREG(fileStatus(path(target)).st_mode));
    for (const char* link : {"link", "linkToLink", "absolute", "toNothing", "toToNothing", "folder", "sub/nextToIt"})
        QVERIFY2(S_ISLNK(fileStatus(path(link)).st_mode), link);
    QCOMPARE(permissionsOf(path("sub/real")), mode_t(0600));
    QCOMPARE(files(), before);
}

void TestFileReplacement::linkInACircle()
{
    makeLink("there", path("here"));
    makeLink("here", path("there"));
    QCOMPARE(replaceFile(path("here"), "new"), QString("Too many levels of symbolic links"));
    QVERIFY(S_ISLNK(fileStatus(path("here")).st_mode));
    QCOMPARE(files(), (QStringList {"here", "there"}));
}

// A crash before that leaves the old file, one after it the new one.
void TestFileReplacement::completeBeforeItTakesThePlace()
{
    writeBytes(path("file"), oldContents);
    QString reason;
    QCOMPARE(callsOf([&] { reason = replaceFile(path("file"), "new"); }),
             (QStringList {"fchmod", "write", "fsync", "rename"}));
    QCOMPARE(reason, QString());

    QStringList seen;
    const auto look = [&] {
        for (const QString& file : files())
            seen += fileContents(path(file));
        return 0;
    };
    const InterceptedCall watched("rename", look);
    QCOMPARE(replaceFile(path("file"), "newer"), QString());
    QCOMPARE(seen, (QStringList {"newer", "new"})); // a hidden name comes first
}

void TestFileReplacement::failedNewFile_data()
{
    QTest::addColumn<Faults>("faults");
    QTest::addColumn<QString>("reason");

    QTest::newRow("the permissions can't be set") << Faults {{"fchmod", always(EIO)}} << "Input/output error";
    QTest::newRow("the first write fails") << Faults {{"write", always(ENOSPC)}} << "No space left on device";
    QTest::newRow("a later write fails") << Faults {{"write", after(2, EDQUOT)}} << "Disk quota exceeded";
    QTest::newRow("the sync fails") << Faults {{"fsync", once(EIO)}} << "Input/output error";
    QTest::newRow("the new file can't be moved") << Faults {{"rename", always(ENOSPC)}} << "No space left on device";
}

void TestFileReplacement::failedNewFile()
{
    QFETCH(Faults, faults);
    QFETCH(QString, reason);

    writeBytes(path("file"), oldContents);
    withFaults(faults, [&] { QCOMPARE(replaceFile(path("file"), longContents), reason); });
    QVERIFY(fileContents(path("file")) == oldContents);
    QCOMPARE(files(), QStringList("file"));
}

void TestFileReplacement::fullDisk()
{
    QVERIFY(QDir(folder->path()).mkdir("disk"));
    Result result;
    const bool isDone = withOwnMounts([&] {
        if (mount("none", QFile::encodeName(path("disk")), "tmpfs", 0, "size=32k") != 0)
            qFatal("A file system can't be mounted.");
        writeBytes(path("disk/file"), oldContents);
        result = resultOfReplacing(path("disk/file"), longContents);
    });
    if (!isDone)
        QSKIP("A small disk has to be mounted, which this user may not.");
    QCOMPARE(result.reason, QString("No space left on device"));
    QVERIFY(result.contents == oldContents);
    QCOMPARE(result.filesBeside, QStringList("file"));
}

void TestFileReplacement::pipe()
{
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")), 0600), 0);
    const PipeReader reader(path("pipe"), PipeReader::Waiting::No);
    QCOMPARE(replaceFile(path("pipe"), "new"), QString());
    QCOMPARE(reader.newBytes(), QByteArray("new"));
    QVERIFY(S_ISFIFO(fileStatus(path("pipe")).st_mode));
    QCOMPARE(files(), QStringList("pipe"));
}

// The machine's own devices: an ordinary user can't do them any harm, whatever is wrong here.
void TestFileReplacement::device()
{
    const OrdinaryUser someone;
    makeLink("/dev/full", path("full"));
    makeLink("/dev/null", path("null"));
    QCOMPARE(replaceFile(path("full"), "new"), QString("No space left on device"));
    QCOMPARE(replaceFile(path("null"), "new"), QString());
    QCOMPARE(files(), (QStringList {"full", "null"}));
}

void TestFileReplacement::notToBeWritten_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");

    QTest::newRow("the folder is missing") << "missing/file"
                                           << "No such file or directory";
    QTest::newRow("a folder stands in its place") << "folder"
                                                  << "Is a directory";
    QTest::newRow("a folder, with a slash") << "folder/"
                                            << "Is a directory";
    QTest::newRow("a missing folder, with a slash") << "missing/"
                                                    << "No such file or directory";
    QTest::newRow("a link to a missing folder, with a slash") << "link/"
                                                              << "No such file or directory";
    QTest::newRow("a file stands in the folder's place") << "file/other"
                                                         << "Not a directory";
    QTest::newRow("the name is too long") << QString(256, 'x') << "File name too long";
    QTest::newRow("a socket stands in its place") << "socket"
                                                  << "No such device or address";
    QTest::newRow("a name with a NUL in it") << QString("new") + QChar(QChar::Null) + "er"
                                             << "Invalid argument";
}

void TestFileReplacement::notToBeWritten()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);

    QVERIFY(QDir(folder->path()).mkdir("folder"));
    writeBytes(path("folder/inside"), "old");
    writeBytes(path("file"), "old");
    makeLink("missing", path("link"));
    const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address {AF_UNIX, {}};
    qstrncpy(address.sun_path, QFile::encodeName(path("socket")), sizeof address.sun_path);
    QCOMPARE(::bind(socketFile, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(socketFile);

    QCOMPARE(replaceFile(path(name), "new"), reason);
    QCOMPARE(files(), (QStringList {"file", "folder", "link", "socket"}));
    QCOMPARE(filesIn(path("folder")), QStringList("inside"));
    QCOMPARE(fileContents(path("file")), QByteArray("old"));
}

void TestFileReplacement::readOnlyFile()
{
    writeBytes(path("file"), "old");
    setPermissions(path("file"), 0444);
    {
        const OrdinaryUser someone;
        QCOMPARE(replaceFile(path("file"), "new"), QString("Permission denied"));
    }
    QCOMPARE(fileContents(path("file")), QByteArray("old"));
    QCOMPARE(files(), QStringList("file"));
}

void TestFileReplacement::emptyName_data()
{
    QTest::addColumn<QString>("suffix");

    QTest::newRow("without a suffix") << QString();
    QTest::newRow("with a suffix") << "~";
}

// It is no file of the current folder.
void TestFileReplacement::emptyName()
{
    QFETCH(QString, suffix);
    const QString previous = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder->path()));
    QString reason;
    const QStringList calls =
        callsOf([&] { reason = suffix.isNull() ? replaceFile({}, "new") : replaceFileBeside({}, suffix, "new"); });
    QVERIFY(QDir::setCurrent(previous));
    QCOMPARE(reason, QString("No such file or directory"));
    QCOMPARE(calls, QStringList());
    QCOMPARE(files(), QStringList());
}

void TestFileReplacement::unreplaceableFile_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QByteArray>("bytes");

    const std::pair<const char*, Place> places[] = {
        {"in a folder that may not be written", inAFolderThatMayNotBeWritten},
        {"of another user's in a sticky folder", inAStickyFolder},
        {"that is mounted on another", mountedOnAFile},
        {"that is mounted in a read-only file system", mountedInAReadOnlyFileSystem},
        {"whose path is as long as a path can be", withNoRoomInItsPath},
        {"that has no name any more", withoutAName},
    };
    for (const auto& [name, place] : places) {
        QTest::addRow("a file %s becomes shorter", name) << place << shortContents;
        QTest::addRow("a file %s becomes longer", name) << place << longContents;
        QTest::addRow("a file %s becomes empty", name) << place << QByteArray();
    }
}

void TestFileReplacement::unreplaceableFile()
{
    QFETCH(Place, place);
    QFETCH(QByteArray, bytes);

    Result result;
    QStringList before;
    const bool isDone = place(folder->path(), oldContents, [&](const QString& file) {
        before = filesIn(QFileInfo(file).path());
        result = resultOfReplacing(file, bytes);
    });
    if (!isDone)
        QSKIP("A file has to be mounted, which this user may not.");
    QCOMPARE(result.reason, QString());
    QVERIFY(result.contents == bytes);
    QCOMPARE(result.after.st_ino, result.before.st_ino);
    QCOMPARE(result.after.st_uid, result.before.st_uid);
    QCOMPARE(result.after.st_gid, result.before.st_gid);
    QCOMPARE(result.after.st_mode, result.before.st_mode);
    if (!result.filesBeside.isEmpty())
        QCOMPARE(result.filesBeside, before);
}

Result TestFileReplacement::resultInPlace(const QByteArray& old, const QByteArray& bytes, const Faults& faults) const
{
    Result result;
    inAFolderThatMayNotBeWritten(folder->path(), old, [&](const QString& file) {
        result.before = statusOf(file);
        withFaults(faults, [&] { result.reason = replaceFile(file, bytes); });
        result.contents = fileContents(file);
        result.after = statusOf(file);
    });
    return result;
}

// All that can be known beforehand is known before the first byte is lost, and what the file is too long by goes last.
void TestFileReplacement::orderInPlace()
{
    QString reason;
    QStringList calls;
    inAFolderThatMayNotBeWritten(folder->path(), oldContents, [&](const QString& file) {
        calls = callsOf([&] { reason = replaceFile(file, "new"); });
    });
    QCOMPARE(reason, QString());
    QCOMPARE(calls, (QStringList {"read", "posix_fallocate", "write", "ftruncate", "fsync"}));
}

void TestFileReplacement::failedInPlace_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Faults>("faults");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QByteArray>("contents");
    const auto row = [](const char* name, const QByteArray& bytes, const Faults& faults, const char* reason,
                        const QByteArray& contents) {
        QTest::newRow(name) << bytes << faults << QString(reason) << contents;
    };

    const char broken[] = "Input/output error";
    const char asItWas[] = "Input/output error; the file is as it was";
    const char lost[] = "Input/output error; its old contents could not be written back: Input/output error";
    const QByteArray half = QByteArray(1000, '\0') + oldContents.mid(1000);

    row("the old contents can't be read", longContents, {{"read", always(EIO)}}, broken, oldContents);
    row("there is no space, and a part of it was reserved", longContents, {{"posix_fallocate", always(ENOSPC)}},
        "No space left on device; the file is as it was", oldContents);
    row("there is no space, and what was reserved can't be given back", oldContents + QByteArray(2, 'x'),
        {{"posix_fallocate", always(ENOSPC)}, {"ftruncate", always(EIO)}},
        "No space left on device; its old contents could not be written back: Input/output error", oldContents);
    row("the first write fails", longContents, {{"write", once(EIO)}}, asItWas, oldContents);
    row("a write takes nothing", longContents, {{"write", once(InterceptedCall::nothing)}}, asItWas, oldContents);
    row("a later write of more than there was fails", longContents, {{"write", once(EIO, 20)}}, asItWas, oldContents);
    row("a later write of less than there was fails", longContents.left(5000), {{"write", once(EIO, 2)}}, asItWas,
        oldContents);
    row("the file can't be cut", shortContents, {{"ftruncate", once(EIO)}}, asItWas, oldContents);
    row("the sync fails once", shortContents, {{"fsync", once(EIO)}}, asItWas, oldContents);
    row("the sync fails once, of more than there was", longContents, {{"fsync", once(EIO)}}, asItWas, oldContents);
    row("the sync fails each time", shortContents, {{"fsync", always(EIO)}}, lost, oldContents);
    row("no write works after the first", QByteArray(5000, '\0'), {{"write", after(1, EIO)}}, lost, half);
}

void TestFileReplacement::failedInPlace()
{
    QFETCH(QByteArray, bytes);
    QFETCH(Faults, faults);
    QFETCH(QString, reason);
    QFETCH(QByteArray, contents);

    const Result result = resultInPlace(oldContents, bytes, faults);
    QCOMPARE(result.reason, reason);
    QVERIFY(result.contents == contents);
    QCOMPARE(result.after.st_ino, result.before.st_ino);
}

void TestFileReplacement::fullDiskInPlace()
{
    QVERIFY(QDir(folder->path()).mkdir("disk"));
    Result result;
    const bool isDone = withOwnMounts([&] {
        if (mount("none", QFile::encodeName(path("disk")), "tmpfs", 0, "size=32k") != 0)
            qFatal("A file system can't be mounted.");
        inAFolderThatMayNotBeWritten(path("disk"), oldContents,
                                     [&](const QString& file) { result = resultOfReplacing(file, longContents); });
    });
    if (!isDone)
        QSKIP("A small disk has to be mounted, which this user may not.");
    QCOMPARE(result.reason, QString("No space left on device; the file is as it was"));
    QVERIFY(result.contents == oldContents);
}

void TestFileReplacement::fileSizeLimitInPlace()
{
    Result result;
    inAFolderThatMayNotBeWritten(folder->path(), oldContents, [&](const QString& file) {
        const FileSizeLimit limit(rlim_t(oldContents.size()));
        result = resultOfReplacing(file, longContents);
    });
    QCOMPARE(result.reason, QString("File too large; the file is as it was"));
    QVERIFY(result.contents == oldContents);
}

void TestFileReplacement::fileSystemThatReservesNothing_data()
{
    QTest::addColumn<int>("error");

    QTest::newRow("by the C library's word") << EINVAL;
    QTest::newRow("by the system's word") << EOPNOTSUPP;
    QTest::newRow("for a file that may not be read") << EBADF;
}

void TestFileReplacement::fileSystemThatReservesNothing()
{
    QFETCH(int, error);
    const Result result = resultInPlace(oldContents, longContents, {{"posix_fallocate", always(error)}});
    QCOMPARE(result.reason, QString());
    QVERIFY(result.contents == longContents);
}

void TestFileReplacement::interruptedInPlace_data()
{
    QTest::addColumn<QByteArray>("function");

    for (const char* function : {"read", "posix_fallocate", "write", "ftruncate"})
        QTest::addRow("in %s", function) << QByteArray(function);
}

void TestFileReplacement::interruptedInPlace()
{
    QFETCH(QByteArray, function);
    const Result result = resultInPlace(oldContents, shortContents, {{function.constData(), once(EINTR)}});
    QCOMPARE(result.reason, QString());
    QVERIFY(result.contents == shortContents);
}

void TestFileReplacement::fileThatMayNotBeRead()
{
    writeBytes(path("file"), oldContents);
    setPermissions(path("file"), 0222);
    setPermissions(folder->path(), 0555);
    {
        const OrdinaryUser someone;
        QCOMPARE(replaceFile(path("file"), longContents), QString());
        const InterceptedCall fault("fsync", always(EIO));
        QCOMPARE(replaceFile(path("file"), shortContents),
                 QString("Input/output error; its old contents could not be written back: Permission denied"));
    }
    setPermissions(folder->path(), 0755);
    setPermissions(path("file"), 0644);
    QCOMPARE(fileContents(path("file")), shortContents);
}

void TestFileReplacement::moreThanMemoryHolds()
{
    const off_t terabytes = off_t(8) << 40; // most of it a hole
    Result result;
    inAFolderThatMayNotBeWritten(folder->path(), oldContents, [&](const QString& file) {
        QCOMPARE(::truncate(QFile::encodeName(file), terabytes), 0);
        const MemoryLimit limit(1 << 30);
        result.reason = replaceFile(file, "new");
        result.after = statusOf(file);
    });
    QCOMPARE(result.reason, QString("Cannot allocate memory"));
    QCOMPARE(result.after.st_size, terabytes);
    QFile file(path("file"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.read(oldContents.size()) == oldContents);
}

void TestFileReplacement::besideAFile_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QByteArray>("earlier"); // what is there already; null when nothing is
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("a sign for a suffix") << "~" << QByteArray() << QByteArray("new");
    QTest::newRow("a word for a suffix") << ".old" << QByteArray() << QByteArray("new");
    QTest::newRow("a suffix beyond ASCII") << "\u00E8" << QByteArray() << QByteArray("new");
    QTest::newRow("an empty one") << "~" << QByteArray() << QByteArray();
    QTest::newRow("in the place of a shorter one") << "~" << shortContents << longContents;
    QTest::newRow("in the place of a longer one") << "~" << longContents << shortContents;
}

void TestFileReplacement::besideAFile()
{
    QFETCH(QString, suffix);
    QFETCH(QByteArray, earlier);
    QFETCH(QByteArray, bytes);
    writeBytes(path("file"), oldContents);
    setPermissions(path("file"), 0646);
    if (!earlier.isNull())
        writeBytes(path("file" + suffix), earlier);

    const QString reason = replaceFileBeside(path("file"), suffix, bytes);
    QVERIFY2(reason.isNull(), qPrintable(reason));
    QVERIFY(fileContents(path("file" + suffix)) == bytes);
    QCOMPARE(permissionsOf(path("file" + suffix)), mode_t(0646));
    QVERIFY(fileContents(path("file")) == oldContents);
    QCOMPARE(files(), (QStringList {"file", "file" + suffix}));
}

void TestFileReplacement::besideTheFileOfALink()
{
    QVERIFY(QDir(folder->path()).mkdir("sub"));
    writeBytes(path("sub/real"), "old");
    setPermissions(path("sub/real"), 0640);
    makeLink("real", path("sub/middle"));
    makeLink("sub/middle", path("link"));
    QCOMPARE(replaceFileBeside(path("link"), "~", "new"), QString());
    QCOMPARE(fileContents(path("sub/real~")), QByteArray("new"));
    QCOMPARE(permissionsOf(path("sub/real~")), mode_t(0640));
    QCOMPARE(fileContents(path("sub/real")), QByteArray("old"));
    QVERIFY(S_ISLNK(fileStatus(path("link")).st_mode));
    QCOMPARE(files(), (QStringList {"link", "sub"}));
}

// Whom it was meant for, nobody knows any more.
void TestFileReplacement::besideAMissingFile()
{
    const mode_t previous = umask(0);
    const QString reason = replaceFileBeside(path("file"), "~", "new");
    umask(previous);
    QCOMPARE(reason, QString());
    QCOMPARE(fileContents(path("file~")), QByteArray("new"));
    QCOMPARE(permissionsOf(path("file~")), mode_t(0600));
    QCOMPARE(files(), QStringList("file~"));
}

void TestFileReplacement::ownerStaysBeside()
{
    if (geteuid() != 0)
        QSKIP("Only root can give a file away.");
    writeBytes(path("file"), "old");
    writeBytes(path("file~"), "earlier");
    QCOMPARE(chown(QFile::encodeName(path("file")), 1234, 2345), 0);
    QCOMPARE(chown(QFile::encodeName(path("file~")), 1111, 2222), 0);
    QCOMPARE(replaceFileBeside(path("file"), "~", "new"), QString());
    QCOMPARE(fileStatus(path("file~")).st_uid, uid_t(1234));
    QCOMPARE(fileStatus(path("file~")).st_gid, gid_t(2345));
}

// Who opens a file once can read what is written to it later.
void TestFileReplacement::neverOpenToOthersBeside()
{
    writeBytes(path("file"), "old");
    setPermissions(path("file"), 0604);
    QStringList seen;
    const auto look = [&] {
        seen += QString::number(permissionsOf(path(files().constFirst())), 8); // a hidden name comes first
        return 0;
    };
    const mode_t previous = umask(0);
    QString reason;
    withFaults({{"fchmod", look}, {"write", look}}, [&] { reason = replaceFileBeside(path("file"), "~", "password"); });
    umask(previous);
    QCOMPARE(reason, QString());
    QCOMPARE(seen, (QStringList {"600", "604"}));
}

// Where the folder takes none, an earlier one stays, though it could be written.
void TestFileReplacement::alwaysANewFileBeside()
{
    writeBytes(path("file"), "old");
    writeBytes(path("file~"), "earlier");
    setPermissions(path("file~"), 0666);
    QCOMPARE(::link(QFile::encodeName(path("file~")), QFile::encodeName(path("kept"))), 0);
    setPermissions(folder->path(), 0555);
    {
        const OrdinaryUser someone;
        QCOMPARE(replaceFileBeside(path("file"), "~", "new"), QString("Permission denied"));
    }
    setPermissions(folder->path(), 0755);
    QCOMPARE(fileContents(path("file~")), QByteArray("earlier"));

    QString reason;
    QCOMPARE(callsOf([&] { reason = replaceFileBeside(path("file"), "~", "new"); }),
             (QStringList {"fchmod", "write", "fsync", "rename"}));
    QCOMPARE(reason, QString());
    QCOMPARE(fileContents(path("file~")), QByteArray("new"));
    QCOMPARE(fileContents(path("kept")), QByteArray("earlier"));
}

void TestFileReplacement::linkBesideGoes()
{
    writeBytes(path("file"), "old");
    writeBytes(path("elsewhere"), "precious");
    makeLink("elsewhere", path("file~"));
    QCOMPARE(replaceFileBeside(path("file"), "~", "new"), QString());
    QVERIFY(S_ISREG(fileStatus(path("file~")).st_mode));
    QCOMPARE(fileContents(path("file~")), QByteArray("new"));
    QCOMPARE(fileContents(path("elsewhere")), QByteArray("precious"));
}

void TestFileReplacement::notToBeWrittenBeside_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QString& file, const QString& suffix, const char* reason) {
        QTest::newRow(name) << file << suffix << reason;
    };

    const QString nul = QChar(QChar::Null);
    row("the folder is missing", "missing/file", "~", "No such file or directory");
    row("a file stands in the folder's place", "file/other", "~", "Not a directory");
    row("a folder has the name with the suffix", "fol", "der", "Is a directory");
    row("links in a circle", "circle", "~", "Too many levels of symbolic links");
    row("the name is too long", QString(256, 'x'), "~", "File name too long");
    row("the name is too long with the suffix", QString(255, 'x'), "~", "File name too long");
    row("a name with a NUL in it", "fi" + nul + "le", "~", "Invalid argument");
    row("a file's name and a NUL behind it", "file" + nul, "~", "Invalid argument");
    row("a link's name and a NUL behind it", "link" + nul, "~", "Invalid argument");
    row("a suffix with a NUL in it", "file", "~" + nul, "Invalid argument");
}

void TestFileReplacement::notToBeWrittenBeside()
{
    QFETCH(QString, name);
    QFETCH(QString, suffix);
    QFETCH(QString, reason);
    QVERIFY(QDir(folder->path()).mkdir("folder"));
    writeBytes(path("folder/inside"), "old");
    writeBytes(path("file"), "old");
    makeLink("folder/inside", path("link"));
    makeLink("circle", path("circle"));

    QCOMPARE(replaceFileBeside(path(name), suffix, "new"), reason);
    QCOMPARE(files(), (QStringList {"circle", "file", "folder", "link"}));
    QCOMPARE(filesIn(path("folder")), QStringList("inside"));
    QCOMPARE(fileContents(path("file")), QByteArray("old"));
}

void TestFileReplacement::failedBeside_data()
{
    failedNewFile_data();
}

void TestFileReplacement::failedBeside()
{
    QFETCH(Faults, faults);
    QFETCH(QString, reason);
    writeBytes(path("file"), "old");
    writeBytes(path("file~"), oldContents);
    withFaults(faults, [&] { QCOMPARE(replaceFileBeside(path("file"), "~", longContents), reason); });
    QVERIFY(fileContents(path("file~")) == oldContents);
    QCOMPARE(files(), (QStringList {"file", "file~"}));
}

QTEST_GUILESS_MAIN(TestFileReplacement)
#include "tst_filereplacement.moc"
