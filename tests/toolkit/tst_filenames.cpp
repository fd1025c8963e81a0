#include "toolkit/filenames.h"

#include "support/unusablenames.h"

#include <QFile>
#include <QProcess>
#include <QtTest>

#include <cstdio>
#include <cstring>
#include <unistd.h>

/// File names as text, and the files that these name. With Qt 5 what a name reads as holds for a whole process, so this
/// program starts itself for each case; Qt 6 has UTF-8 alone.
class TestFileNames : public QObject {
    Q_OBJECT

private slots:
    void paths_data();
    void paths();
    void fileOfThatVeryName_data();
    void fileOfThatVeryName();
    void anyNameIsOpened_data();
    void anyNameIsOpened();
    void unusable_data();
    void unusable();
    void unusableNamesAreLeftAlone();
    void home_data();
    void home();
};

namespace {

/// Half of a surrogate pair, as which Qt 6 has a byte that is no UTF-8.
QString kept(uchar byte)
{
    return QChar(0xdc00 + byte);
}

QByteArray unitsOf(const QString& text)
{
    QByteArray units;
    for (const QChar unit : text)
        units += QByteArray::number(unit.unicode(), 16) + ',';
    return units;
}

/// What this program does when it is started with "--paths" and names in hexadecimal: a line for each, the path's units
/// and the name that is made of it again, both in hexadecimal, with a blank between.
void printPaths(int count, char** names)
{
    const auto name = [names](int i) { return QByteArray::fromHex(names[i]); };
    toolkit::setFileNameEncoding({name(0), name(count - 1)});
    for (int i = 0; i < count; ++i) {
        const QString path = toolkit::filePath(name(i));
        std::printf("%s %s\n", unitsOf(path).constData(), toolkit::fileName(path).toHex().constData());
    }
}

QByteArray pathsOf(const QByteArrayList& names, const QString& locale)
{
    QStringList arguments {"--paths"};
    for (const QByteArray& name : names)
        arguments += name.toHex();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", locale);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return "the program did not end well";
    return process.readAllStandardOutput() + process.readAllStandardError();
}

} // namespace

void TestFileNames::paths_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArrayList>("names");
    QTest::addColumn<QStringList>("pathsOnQt5");
    QTest::addColumn<QStringList>("pathsOnQt6");

    const QByteArray utf8 = "caff\xc3\xa8";
    const QByteArray latin = "caff\xe8";
    const QByteArray euro = "\xa4";
    const QString keptLatin = "caff" + kept(0xe8);
    const auto row = [](const char* name, const char* locale, const QByteArrayList& names, const QStringList& onQt5,
                        const QStringList& onQt6) { QTest::newRow(name) << locale << names << onQt5 << onQt6; };
    const auto sameRow = [&row](const char* name, const char* locale, const QByteArrayList& names,
                                const QStringList& paths) { row(name, locale, names, paths, paths); };
    sameRow("UTF-8 in a UTF-8 locale", "C.UTF-8", {utf8, "/till/a b"}, {"caffè", "/till/a b"});
    sameRow("UTF-8 in the C locale", "C", {utf8}, {"caffè"});
    sameRow("UTF-8 beyond 16 bits", "C", {"\xf0\x9f\x8d\x95"}, {"🍕"});
    row("one that is no UTF-8, the first", "C.UTF-8", {latin, utf8}, {"caffè", "caffÃ¨"}, {keptLatin, "caffè"});
    row("one that is no UTF-8, the last", "C.UTF-8", {utf8, latin}, {"caffÃ¨", "caffè"}, {"caffè", keptLatin});
    row("an 8-bit locale's own", "it_IT.ISO-8859-15", {latin, euro}, {"caffè", "€"}, {keptLatin, kept(0xa4)});
    row("UTF-8 in an 8-bit locale", "it_IT.ISO-8859-15", {utf8}, {"caffÃš"}, {"caffè"});
    row("both beside each other", "C.UTF-8", {"\xc3\xa8\xe8\xf0\x9f\x8d\x95\xff"},
        {"\u00c3\u00a8\u00e8\u00f0\u009f\u008d\u0095\u00ff"}, {"è" + kept(0xe8) + "🍕" + kept(0xff)});
    row("a character that is cut off", "C.UTF-8", {"a\xe2\x82"}, {"a\u00e2\u0082"}, {"a" + kept(0xe2) + kept(0x82)});
    row("a surrogate, which no UTF-8 has", "C.UTF-8", {"\xed\xb3\xa8"}, {"\u00ed\u00b3\u00a8"},
        {kept(0xed) + kept(0xb3) + kept(0xa8)});
    row("a longer form than there need be", "C.UTF-8", {"\xc0\xaf"}, {"\u00c0\u00af"}, {kept(0xc0) + kept(0xaf)});
    row("what the toolkit makes of others: kept as bytes", "C.UTF-8", {"\xef\xbf\xbd"}, {"\ufffd"},
        {kept(0xef) + kept(0xbf) + kept(0xbd)});
    row("a byte-order mark, which the toolkit drops: kept as bytes", "C.UTF-8",
        {"\xef\xbb\xbf"
         "a"},
        {"\u00ef\u00bb\u00bf"
         "a"},
        {kept(0xef) + kept(0xbb) + kept(0xbf) + "a"});

    sameRow("a colon first would make a resource of it", "C", {":job.xml", "::", ":/job.xml"},
            {"./:job.xml", "./::", "./:/job.xml"});
    sameRow("a colon later makes none", "C", {"a:", "/:", "./:", "", " :"}, {"a:", "/:", "./:", "", " :"});
}

void TestFileNames::paths()
{
    QFETCH(QString, locale);
    QFETCH(QByteArrayList, names);
    QFETCH(QStringList, pathsOnQt5);
    QFETCH(QStringList, pathsOnQt6);

    const QStringList& paths = refusesNames() ? pathsOnQt6 : pathsOnQt5;
    QByteArray expected;
    for (int i = 0; i < names.size(); ++i) {
        const QByteArray prefix = names[i].startsWith(':') ? "./" : "";
        expected += unitsOf(paths[i]) + ' ' + (prefix + names[i]).toHex() + '\n';
    }
    QCOMPARE(pathsOf(names, locale), expected);
}

void TestFileNames::fileOfThatVeryName_data()
{
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("a plain name") << QByteArray("job.xml");
    QTest::newRow("an accent") << QByteArray("caff\xc3\xa8");
    QTest::newRow("the name of a resource") << QByteArray(":job.xml");
}

void TestFileNames::fileOfThatVeryName()
{
    QFETCH(QByteArray, name);
    const QTemporaryDir folder;
    const QString previous = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));

    QFile file(toolkit::filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(access(name.constData(), F_OK), 0);
    QVERIFY(QDir::setCurrent(previous));
}

void TestFileNames::anyNameIsOpened_data()
{
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("UTF-8") << QByteArray("caff\xc3\xa8");
    if (refusesNames()) // with Qt 5 setFileNameEncoding() is asked first
        QTest::newRow("ISO-8859-1") << QByteArray("caff\xe8");
}

void TestFileNames::anyNameIsOpened()
{
    QFETCH(QByteArray, name);
    const QTemporaryDir folder;
    const QByteArray there = folder.path().toUtf8() + '/' + name;
    const QString path = toolkit::filePath(there);
    QVERIFY(folder.isValid());

    QFile missing;
    QVERIFY(!toolkit::openAnyFile(missing, path, QIODevice::ReadOnly));
    QVERIFY(!missing.isOpen());
    const auto write = [&path](const char* bytes, QIODevice::OpenMode mode) {
        QFile file;
        return toolkit::openAnyFile(file, path, mode) && file.write(bytes) == qint64(std::strlen(bytes));
    };
    QVERIFY(write("a longer text", QIODevice::WriteOnly));
    QVERIFY(write("a text", QIODevice::WriteOnly));
    QVERIFY(write(", more", QIODevice::WriteOnly | QIODevice::Append));
    QFile file;
    QVERIFY(toolkit::openAnyFile(file, path, QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("a text, more"));
    QCOMPARE(namesIn(folder.path()), QByteArrayList {name});
}

void TestFileNames::unusable_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isUsableOnQt6");

    QTest::newRow("letters") << "/till/a b" << true;
    QTest::newRow("none") << "" << true;
    QTest::newRow("accents and beyond 16 bits") << "caffè/€/🍕" << true;
    QTest::newRow("a byte that is no UTF-8") << "caff" + kept(0xe8) << false;
    QTest::newRow("one in a folder's name") << "caff" + kept(0xe8) + "/zelmora.conf" << false;
    QTest::newRow("the toolkit's own text of such a name") << QStringLiteral("caff\ufffd") << false;
    QTest::newRow("the first half of a surrogate pair") << QString(QChar(0xd800)) << false;
    QTest::newRow("a byte-order mark") << QStringLiteral("\ufeff") + "a" << false;
}

void TestFileNames::unusable()
{
    QFETCH(QString, path);
    QFETCH(bool, isUsableOnQt6);
    QCOMPARE(toolkit::unusableName(path), QString(refusesNames() && !isUsableOnQt6 ? nameRefused : ""));
}

// As the toolkit has a name that it could not read. Qt 5 opens what that text means in UTF-8.
void TestFileNames::unusableNamesAreLeftAlone()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(unusableName());
    for (const QIODevice::OpenMode mode : {QIODevice::WriteOnly, QIODevice::ReadOnly}) {
        QFile file;
        QCOMPARE(toolkit::openFile(file, path, mode), QString(refusesNames() ? nameRefused : ""));
        QCOMPARE(file.isOpen(), !refusesNames());
    }
    QCOMPARE(namesIn(folder.path()), refusesNames() ? QByteArrayList() : QByteArrayList {"caff\xef\xbf\xbd"});
    QFile file;
    QCOMPARE(toolkit::openFile(file, folder.filePath("none"), QIODevice::ReadOnly),
             QString("No such file or directory"));
}

void TestFileNames::home_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QString>("path");

    QTest::newRow("a folder") << QByteArray("/home/nino") << "/home/nino";
    QTest::newRow("UTF-8") << QByteArray("/caff\xc3\xa8") << "/caffè";
    QTest::newRow("a slash at its end, and two") << QByteArray("/home//nino/") << "/home/nino";
    QTest::newRow("none") << QByteArray() << "/";
    if (refusesNames())
        QTest::newRow("no UTF-8") << QByteArray("/caff\xe8/") << "/caff" + kept(0xe8);
}

void TestFileNames::home()
{
    QFETCH(QByteArray, variable);
    QFETCH(QString, path);
    const QByteArray previous = qgetenv("HOME");
    qputenv("HOME", variable);
    const QString home = toolkit::homePath();
    qputenv("HOME", previous);
    QCOMPARE(home, path);
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc > 2 && std::strcmp(argv[1], "--paths") == 0) {
        printPaths(argc - 2, argv + 2);
        return 0;
    }
    TestFileNames test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_filenames.moc"
