#include "toolkit/filenames.h"

#include <QFile>
#include <QProcess>
#include <QtTest>

#include <cstdio>
#include <cstring>
#include <unistd.h>

/// File names as text, and the files that these name. What a name reads as holds for a whole process, so this program
/// starts itself for each case.
class TestFileNames : public QObject {
    Q_OBJECT

private slots:
    void paths_data();
    void paths();
    void fileOfThatVeryName_data();
    void fileOfThatVeryName();
};

namespace {

/// What this program does when it is started with "--paths" and names in hexadecimal: a line for each, the path in
/// UTF-8, a blank, and the bytes that the toolkit makes of it in hexadecimal again.
void printPaths(int count, char** names)
{
    const auto name = [names](int i) { return QByteArray::fromHex(names[i]); };
    toolkit::setFileNameEncoding({name(0), name(count - 1)});
    for (int i = 0; i < count; ++i) {
        const QString path = toolkit::filePath(name(i));
        std::printf("%s %s\n", path.toUtf8().constData(), QFile::encodeName(path).toHex().constData());
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
    QTest::addColumn<QStringList>("paths");

    const QByteArray utf8 = "caff\xc3\xa8";
    const QByteArray latin = "caff\xe8";
    const QByteArray euro = "\xa4";
    const auto row = [](const char* name, const char* locale, const QByteArrayList& names, const QStringList& paths) {
        QTest::newRow(name) << locale << names << paths;
    };
    row("UTF-8 in a UTF-8 locale", "C.UTF-8", {utf8, "/till/a b"}, {"caffè", "/till/a b"});
    row("UTF-8 in the C locale", "C", {utf8}, {"caffè"});
    row("one that is no UTF-8, the first: every byte is a character", "C.UTF-8", {latin, utf8}, {"caffè", "caffÃ¨"});
    row("one that is no UTF-8, the last: every byte is a character", "C.UTF-8", {utf8, latin}, {"caffÃ¨", "caffè"});
    row("an 8-bit locale's own", "it_IT.ISO-8859-15", {latin, euro}, {"caffè", "€"});
    row("UTF-8 in an 8-bit locale: every byte is a character", "it_IT.ISO-8859-15", {utf8}, {"caffÃš"});

    row("a colon first would make a resource of it", "C", {":job.xml", "::", ":/job.xml"},
        {"./:job.xml", "./::", "./:/job.xml"});
    row("a colon later makes none", "C", {"a:", "/:", "./:", "", " :"}, {"a:", "/:", "./:", "", " :"});
}

void TestFileNames::paths()
{
    QFETCH(QString, locale);
    QFETCH(QByteArrayList, names);
    QFETCH(QStringList, paths);

    QByteArray expected;
    for (int i = 0; i < names.size(); ++i) {
        const QByteArray prefix = names[i].startsWith(':') ? "./" : "";
        expected += paths[i].toUtf8() + ' ' + (prefix + names[i]).toHex() + '\n';
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
