#include "config/zmconfiguration.h"

#include "support/capture.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// The settings store: which file it reads, when, and what a look-up gives.
class TestZMConfiguration : public QObject {
    Q_OBJECT

private slots:
    void init();

    void value_data();
    void value();
    void replacedFileIsNotReadAgain();
    void everyStoreReadsTheFile();
    void settingsFromBytes_data();
    void settingsFromBytes();

    void missingFile_data();
    void missingFile();

private:
    void writeSettings(const QByteArray& text);

    QTemporaryDir home;
};

namespace {

/// Tells this program to do nothing but ask the store for a value.
const char lookUpOnly[] = "--look-up";

} // namespace

void TestZMConfiguration::init()
{
    QVERIFY(home.isValid() && QDir(home.path()).mkpath(".zelmora/conf"));
    qputenv("HOME", QFile::encodeName(home.path()));
}

void TestZMConfiguration::writeSettings(const QByteArray& text)
{
    QFile file(home.filePath(".zelmora/conf/zelmora.conf"));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(text), qint64(text.size()));
}

void TestZMConfiguration::value_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char* name, const char* settings, const char* key, const char* expected) {
        QTest::newRow(name) << settings << key << expected;
    };

    const char* receipt = "zelmora: { receiptdoc: { paperWidth = \"32\"; }; };";
    row("a setting", receipt, "zelmora.receiptdoc.paperWidth", "32");
    row("an absent key", receipt, "zelmora.receiptdoc.paperRows", "");
    row("a Latin-1 value stays", "zelmora: { a = perché sì; };", "zelmora.a", "perché sì");
    row("beyond Latin-1 a value has question marks", "zelmora: { a = 12 € 漢; };", "zelmora.a", "12 ? ?");
    row("a Latin-1 key is found", "zelmora: { menù: { città = 1; }; };", "zelmora.menù.città", "1");
    row("a key beyond Latin-1 is not found", "zelmora: { 漢 = 1; };", "zelmora.漢", "");
    row("a key beyond Latin-1 finds what has a question mark", "zelmora: { ? = 1; };", "zelmora.漢", "1");
    row("a group beyond Latin-1 is not found", "zelmora: { €: { a = 1; }; };", "zelmora.€.a", "");
}

void TestZMConfiguration::value()
{
    QFETCH(QString, settings);
    QFETCH(QString, key);
    QFETCH(QString, expected);

    writeSettings(settings.toUtf8());
    const ZMConfiguration store;
    QCOMPARE(store.getStrValue(key), expected);
}

void TestZMConfiguration::replacedFileIsNotReadAgain()
{
    writeSettings("zelmora: { a = before; };");
    ZMConfiguration* const store = SyncSingleton<ZMConfiguration>::instance();
    QCOMPARE(store->getStrValue("zelmora.a"), QString("before"));

    writeSettings("zelmora: { a = after; b = new; };");
    QCOMPARE(SyncSingleton<ZMConfiguration>::instance(), store);
    QCOMPARE(store->getStrValue("zelmora.a"), QString("before"));
    QCOMPARE(store->getStrValue("zelmora.b"), QString());
}

void TestZMConfiguration::everyStoreReadsTheFile()
{
    writeSettings("zelmora: { a = before; };");
    const ZMConfiguration first;
    writeSettings("zelmora: { a = after; };");
    const ZMConfiguration second;
    QCOMPARE(first.getStrValue("zelmora.a"), QString("before"));
    QCOMPARE(second.getStrValue("zelmora.a"), QString("after"));
}

void TestZMConfiguration::settingsFromBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");

    QTest::newRow("in the brace format") << QByteArray("zelmora: { a = è; };") << "cfg"
                                         << "è";
    QTest::newRow("up to a NUL") << QByteArray("zelmora: { a = \"30") + '\0' + "x\"; };"
                                 << "cfg"
                                 << "30";
    QTest::newRow("in XML") << QByteArray("<zelmora a='è'/>") << "xml"
                            << "è";
    QTest::newRow("in a format that is none") << QByteArray("zelmora: { a = è; };") << "ini"
                                              << "";
    QTest::newRow("without a byte") << QByteArray() << "cfg"
                                    << "";
}

void TestZMConfiguration::settingsFromBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, format);
    QFETCH(QString, expected);

    writeSettings("zelmora: { a = the user's own; };");
    const QByteArray said = captured(stdout, [&] {
        const ZMConfiguration store(bytes, "/nowhere/till.conf", format);
        QCOMPARE(store.getStrValue("zelmora.a"), expected);
    });
    QCOMPARE(said, QByteArray());
}

void TestZMConfiguration::missingFile_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArray>("folder"); // as the message spells it

    QTest::newRow("in a UTF-8 locale") << "C.UTF-8" << QByteArray("caff\xC3\xA8 \xE2\x82\xAC");
    QTest::newRow("in the C locale") << "C" << QByteArray("caff\xC3\xA8 \xE2\x82\xAC");
    QTest::newRow("in an 8-bit locale") << "it_IT.ISO-8859-15" << QByteArray("caff\xE8 \xA4");
}

// A process keeps its locale's encoding, so each locale has a process of its own.
void TestZMConfiguration::missingFile()
{
    QFETCH(QString, locale);
    QFETCH(QByteArray, folder);

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", "/nowhere/caffè €");
    environment.insert("LC_ALL", locale);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {lookUpOnly});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.readAllStandardOutput(),
             "Error in the method FileReader::open( /nowhere/" + folder
                 + "/.zelmora/conf/zelmora.conf ): File Not Found\n");
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitCode(), 0); // the value was empty
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 2 && QByteArray(argv[1]) == lookUpOnly)
        return SyncSingleton<ZMConfiguration>::instance()->getStrValue("zelmora.a").size();
    TestZMConfiguration test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_zmconfiguration.moc"
