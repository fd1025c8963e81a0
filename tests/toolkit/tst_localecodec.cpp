#include "toolkit/localecodec.h"

#include "toolkit/console.h"

#include <QProcess>
#include <QTextCodec>
#include <QtTest>

#include <clocale>
#include <cstring>
#include <unistd.h>

/// The locale's encoding and lines on standard output. A process has one encoding for its whole life, so this
/// program starts itself for each.
class TestLocaleCodec : public QObject {
    Q_OBJECT

private slots:
    void encoding_data();
    void encoding();
    void environmentIsReadOnce();
    void localeOfTheProcessStays();
    void lineArrivesByteForByte();
};

namespace {

const char sample[] = "aè€漢";
const char sampleInUtf8[] = "a\xC3\xA8\xE2\x82\xAC\xE6\xBC\xA2";
const char sampleInLatin9[] = "a\xE8\xA4?";
const char latin9Locale[] = "it_IT.ISO-8859-15";

void writeSample()
{
    toolkit::writeLine(toolkit::localeText(sample));
}

/// What this program does when it is started with @p task; false when there is no such task.
bool runTask(const QByteArray& task)
{
    if (task == "--sample") {
        writeSample();
    } else if (task == "--sample-again-in-c") {
        writeSample();
        qputenv("LC_ALL", "C");
        writeSample();
    } else if (task == "--process-locale") {
        toolkit::localeCodec();
        toolkit::writeLine(std::setlocale(LC_ALL, nullptr));
    } else if (task == "--lines") {
        toolkit::writeLine(QByteArray("\xE8\0\r%s\n\x80", 7));
        toolkit::writeLine(QByteArray());
        toolkit::writeLine("end");
        _exit(0); // what is not flushed is lost
    } else {
        return false;
    }
    return true;
}

/// Standard output of this program, doing @p task in an environment with @p locale for its only locale
/// variables, such as "LC_ALL=C".
QByteArray outputOf(const QString& task, const QStringList& locale = {})
{
    QProcessEnvironment environment;
    const QStringList ours = QProcessEnvironment::systemEnvironment().toStringList();
    for (const QString& variable : ours + locale) {
        const bool inherited = !variable.startsWith("LC_") && !variable.startsWith("LANG");
        if (inherited || locale.contains(variable))
            environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {task});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return "the program did not end well";
    return process.readAllStandardOutput() + process.readAllStandardError();
}

} // namespace

void TestLocaleCodec::encoding_data()
{
    QTest::addColumn<QStringList>("locale");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray utf8 = sampleInUtf8;
    const QByteArray latin9 = sampleInLatin9;
    const auto set = [](const char* variable, const char* locale) { return QString("%1=%2").arg(variable, locale); };
    const QString allLatin9 = set("LC_ALL", latin9Locale);
    const QString ctypeLatin9 = set("LC_CTYPE", latin9Locale);
    const QString langLatin9 = set("LANG", latin9Locale);

    QTest::newRow("no locale at all is UTF-8") << QStringList() << utf8;
    QTest::newRow("C is UTF-8") << QStringList {"LC_ALL=C"} << utf8;
    QTest::newRow("POSIX is UTF-8") << QStringList {"LC_ALL=POSIX"} << utf8;
    QTest::newRow("C.UTF-8 is UTF-8") << QStringList {"LC_ALL=C.UTF-8"} << utf8;
    QTest::newRow("an 8-bit locale has its own codec") << QStringList {allLatin9} << latin9;
    QTest::newRow("an unknown locale is UTF-8") << QStringList {"LC_ALL=xx_YY.ISO-8859-15"} << utf8;
    QTest::newRow("LC_CTYPE alone") << QStringList {ctypeLatin9} << latin9;
    QTest::newRow("LANG alone") << QStringList {langLatin9} << latin9;
    QTest::newRow("LC_ALL goes before LC_CTYPE") << QStringList {"LC_ALL=C", ctypeLatin9} << utf8;
    QTest::newRow("LC_ALL goes before LANG") << QStringList {allLatin9, "LANG=C"} << latin9;
    QTest::newRow("LC_CTYPE goes before LANG") << QStringList {ctypeLatin9, "LANG=C.UTF-8"} << latin9;
    QTest::newRow("an empty LC_ALL counts as absent") << QStringList {"LC_ALL=", langLatin9} << latin9;
    QTest::newRow("an unknown LANG does not matter below LC_CTYPE") << QStringList {ctypeLatin9, "LANG=xx"} << latin9;
    QTest::newRow("other categories do not matter") << QStringList {set("LC_NUMERIC", latin9Locale)} << utf8;
}

void TestLocaleCodec::encoding()
{
    QFETCH(QStringList, locale);
    QFETCH(QByteArray, expected);

    QCOMPARE(outputOf("--sample", locale), expected + '\n');
}

void TestLocaleCodec::environmentIsReadOnce()
{
    const QByteArray line = QByteArray(sampleInLatin9) + '\n';
    QCOMPARE(outputOf("--sample-again-in-c", {QString("LC_ALL=") + latin9Locale}), line + line);
}

// With the process's locale its decimal point would change.
void TestLocaleCodec::localeOfTheProcessStays()
{
    QCOMPARE(outputOf("--process-locale", {QString("LC_ALL=") + latin9Locale}), QByteArray("C\n"));
}

void TestLocaleCodec::lineArrivesByteForByte()
{
    QCOMPARE(outputOf("--lines"), QByteArray("\xE8\0\r%s\n\x80\n\nend\n", 13));
}

int main(int argc, char** argv)
{
    // Before any application object: that would set the process's locale.
    if (argc == 2 && runTask(argv[1]))
        return 0;
    QCoreApplication application(argc, argv);
    TestLocaleCodec test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_localecodec.moc"
