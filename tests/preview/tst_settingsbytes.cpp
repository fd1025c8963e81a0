#include "config/zmconfiguration.h"
#include "preview/settingsbytes.h"
#include "support/files.h"

#include <QTemporaryDir>
#include <QtTest>

class TestSettingsBytes : public QObject {
    Q_OBJECT

private slots:
    void theBraceFormIsTakenByteForByte();
    void xmlIsConverted();
    void whatNobodyReadsIsLeftOut();
    void namesWhatTheBraceFormCannotHold();
    void hidesSecrets();
    void saysWhatCannotBeRead();
    void ownOnesNeedNotBeThere();
};

namespace {

class Folder {
public:
    QString file(const char* name, const QByteArray& bytes) const
    {
        writeBytes(path(name), bytes);
        return path(name);
    }
    QString path(const char* name) const { return folder.filePath(name); }

private:
    QTemporaryDir folder {scratchFolder()};
};

QString value(const preview::SettingsBytes& settings, const QString& key)
{
    return ZMConfiguration(settings.bytes.value_or(QByteArray()), "zelmora.conf", "cfg").getStrValue(key);
}

} // namespace

using preview::readSettings;

void TestSettingsBytes::theBraceFormIsTakenByteForByte()
{
    const Folder folder;
    for (const QByteArray& bytes :
         {QByteArrayLiteral("zelmora: { doc: { a = \xE8; };\r\n}; and\0more"), QByteArray("")}) {
        const preview::SettingsBytes settings = readSettings(folder.file("a.conf", bytes));
        QCOMPARE(settings.reason, QString());
        QVERIFY(settings.bytes.has_value());
        QCOMPARE(*settings.bytes, bytes);
    }
}

void TestSettingsBytes::xmlIsConverted()
{
    const Folder folder;
    const preview::SettingsBytes settings = readSettings(
        folder.file("a.xml", "<zelmora><receiptdoc paperWidth=\"40\" style=\"è\"/><doc paperWidth=\"24\"/></zelmora>"));
    QCOMPARE(settings.reason, QString());
    QCOMPARE(value(settings, "zelmora.receiptdoc.paperWidth"), QString("40"));
    QCOMPARE(value(settings, "zelmora.receiptdoc.style"), QString("è"));
    QCOMPARE(value(settings, "zelmora.doc.paperWidth"), QString("24"));
}

void TestSettingsBytes::whatNobodyReadsIsLeftOut()
{
    const Folder folder;
    const preview::SettingsBytes settings =
        readSettings(folder.file("a.xml", "<zelmora><!-- remark --><doc a=\"1\"/>words</zelmora>"));
    QCOMPARE(settings.reason, QString());
    QCOMPARE(value(settings, "zelmora.doc.a"), QString("1"));
}

void TestSettingsBytes::namesWhatTheBraceFormCannotHold()
{
    const Folder folder;
    const QString path = folder.file("a.xml", "<zelmora><doc paperWidth=\"32\" style=\"a;b\"/></zelmora>");
    const preview::SettingsBytes settings = readSettings(path);
    QVERIFY(!settings.bytes.has_value());
    QCOMPARE(settings.reason,
             "The print program reads the brace form alone, which cannot hold this of the file " + path
                 + ":\n  zelmora.doc.style = a;b");
}

void TestSettingsBytes::hidesSecrets()
{
    const Folder folder;
    const preview::SettingsBytes settings =
        readSettings(folder.file("a.xml", "<zelmora><db password=\"pa;ss\"/></zelmora>"));
    QVERIFY2(settings.reason.endsWith("\n  zelmora.db.password = ***"), qPrintable(settings.reason));
}

void TestSettingsBytes::saysWhatCannotBeRead()
{
    const Folder folder;
    const auto reason = [](const QString& path) { return readSettings(path).reason; };
    QCOMPARE(reason(folder.path("none.conf")),
             "The file " + folder.path("none.conf") + " cannot be read: No such file or directory");
    QCOMPARE(reason(folder.path("none.xml")),
             "The file " + folder.path("none.xml") + " cannot be read: No such file or directory");
    QCOMPARE(reason(folder.path(".")), "The file " + folder.path(".") + " cannot be read: it is not a file");
    const QString broken = folder.file("a.xml", "zelmora: { };");
    QCOMPARE(reason(broken), "The file " + broken + " cannot be read: it is not XML");
}

void TestSettingsBytes::ownOnesNeedNotBeThere()
{
    const Folder folder;
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(folder.path(".")));
    const preview::SettingsBytes none = preview::readOwnSettings();
    QDir(folder.path(".")).mkpath(".zelmora/conf");
    folder.file(".zelmora/conf/zelmora.conf", "zelmora: { };");
    const preview::SettingsBytes some = preview::readOwnSettings();
    qputenv("HOME", home);
    QVERIFY(none.reason.isEmpty() && !none.bytes.has_value());
    QCOMPARE(*some.bytes, QByteArray("zelmora: { };"));
}

QTEST_GUILESS_MAIN(TestSettingsBytes)
#include "tst_settingsbytes.moc"
