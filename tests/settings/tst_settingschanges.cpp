#include "settings/settingsfile.h"

#include "support/files.h"

#include <QTemporaryDir>
#include <QtTest>

using settings::SettingsFile;

/// A setting looked up, changed and taken out in the tree of a file.
class TestSettingsChanges : public QObject {
    Q_OBJECT

private slots:
    void value_data();
    void value();
    void sets_data();
    void sets();
    void doesNotSet_data();
    void doesNotSet();
    void unsets_data();
    void unsets();
    void doesNotUnset_data();
    void doesNotUnset();
    void beginsAnXmlFile();
    void saysWhatIsMissing();
    void keyOfManyGroups();

private:
    QTemporaryDir folder {scratchFolder()};
};

namespace {

/// The brace format as it is written: four blanks for each level, an empty line after each group.
const QByteArray plain = "zelmora: \n{\n    a = \"1\";\n    doc: \n    {\n        b = \"2\";\n    };\n\n};\n\n";

} // namespace

void TestSettingsChanges::value_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");

    QTest::newRow("as it stands") << QByteArray("zelmora: { a = x; };") << "zelmora.a"
                                  << "x";
    QTest::newRow("absent") << QByteArray("zelmora: { a = x; };") << "zelmora.b"
                            << "";
    QTest::newRow("in its 8-bit form") << QByteArray("zelmora: { a = \xC3\xA8\xE2\x82\xAC; };") << "zelmora.a"
                                       << "è?";
    QTest::newRow("of a key in its 8-bit form") << QByteArray("zelmora: { ? = x; };") << "zelmora.€"
                                                << "x";
    QTest::newRow("in the second group at top level") << QByteArray("a: { b = 1; }; c: { d = 2; };") << "c.d"
                                                      << "";
}

void TestSettingsChanges::value()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, key);
    writeBytes(folder.filePath("a.conf"), bytes);
    SettingsFile file;
    QCOMPARE(file.load(folder.filePath("a.conf")), QString());
    QTEST(file.value(key), "value");
}

void TestSettingsChanges::sets_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const QByteArray& before, const char* key, const char* value,
                        const QByteArray& after) { QTest::newRow(name) << before << key << value << after; };

    row("a setting of the first group", plain, "zelmora.a", "x", QByteArray(plain).replace("\"1\"", "\"x\""));
    row("a setting of a group inside", plain, "zelmora.doc.b", "x y", QByteArray(plain).replace("\"2\"", "\"x y\""));
    row("a new setting comes after the others", plain, "zelmora.doc.c", "3",
        QByteArray(plain).replace("\"2\";\n", "\"2\";\n        c = \"3\";\n"));
    row("a new group comes after the others", plain, "zelmora.bin.c", "3",
        QByteArray(plain).replace("    };\n\n", "    };\n\n    bin: \n    {\n        c = \"3\";\n    };\n\n"));
    row("the first setting of all", "", "zelmora.bin.c", "3",
        "zelmora: \n{\n    bin: \n    {\n        c = \"3\";\n    };\n\n};\n\n");
    row("beside a setting outside every group", "lang = it;", "zelmora.c", "3",
        "lang = \"it\";\nzelmora: \n{\n    c = \"3\";\n};\n\n");
    row("of two groups of the name, in the one that answers",
        "zelmora: { a: { }; a: { b = ; c = 1; }; a: { b = 2; }; };", "zelmora.a.b", "3",
        "zelmora: \n{\n    a: \n    {\n        b = \"\";\n        c = \"1\";\n    };\n\n    a: \n    {\n        b = "
        "\"3\";\n    };"
        "\n\n};\n\n");
    row("of two groups of the name, in the first when none has it", "zelmora: { a: { b = 1; }; a: { c = 2; }; };",
        "zelmora.a.d", "3",
        "zelmora: \n{\n    a: \n    {\n        b = \"1\";\n        d = \"3\";\n    };\n\n    a: \n    {\n        c = "
        "\"2\";\n    "
        "};\n\n};\n\n");
    row("to nothing, in all groups of the name", "zelmora: { a: { b = 1; }; a: { b = 2; }; };", "zelmora.a.b", "",
        "zelmora: \n{\n    a: \n    {\n        b = \"\";\n    };\n\n    a: \n    {\n        b = \"\";\n    "
        "};\n\n};\n\n");
}

void TestSettingsChanges::sets()
{
    QFETCH(QByteArray, before);
    QFETCH(QString, key);
    QFETCH(QString, value);
    const QString path = folder.filePath("a.conf");
    writeBytes(path, before);
    SettingsFile file;
    QCOMPARE(file.load(path), QString());
    QVERIFY(file.set(key, value));
    const SettingsFile::Trial trial = file.tryWriting(path);
    QTEST(trial.bytes, "after");
    QCOMPARE(file.value(key), value);
    QCOMPARE(SettingsFile::valueIn(trial, path, key), value);
    QVERIFY(!file.set(key, value));
}

void TestSettingsChanges::doesNotSet_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("key");

    QTest::newRow("what it is already") << plain << "zelmora.doc.b";
    QTest::newRow("a key without a group") << plain << "paperWidth";
    QTest::newRow("a key that ends in a point") << plain << "zelmora.a.";
    QTest::newRow("a key with an empty name inside") << plain << "zelmora..a";
    QTest::newRow("the empty key") << plain << "";
    QTest::newRow("in a group beside the first") << plain << "other.a";
    QTest::newRow("in the second group at top level") << plain + "other: { a = 1; };"
                                                      << "other.a";
}

void TestSettingsChanges::doesNotSet()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, key);
    const QString path = folder.filePath("a.conf");
    writeBytes(path, bytes);
    SettingsFile file;
    QCOMPARE(file.load(path), QString());
    QVERIFY(!file.set(key, "2"));
    QCOMPARE(file.tryWriting(path).bytes, plain);
}

void TestSettingsChanges::unsets_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("a setting of the first group")
        << plain << "zelmora.a" << QByteArray(plain).replace("    a = \"1\";\n", "");
    QTest::newRow("the last setting of its group")
        << plain << "zelmora.doc.b" << QByteArray("zelmora: \n{\n    a = \"1\";\n};\n\n");
    QTest::newRow("an empty setting") << QByteArray("zelmora: { a = ; b = 1; };") << "zelmora.a"
                                      << QByteArray("zelmora: \n{\n    b = \"1\";\n};\n\n");
    QTest::newRow("the one setting that there is") << QByteArray("zelmora: { a = 1; };") << "zelmora.a" << QByteArray();
    QTest::newRow("in all groups of the name")
        << QByteArray("zelmora: { a: { b = 1; }; a: { b = 2; c = 3; }; };") << "zelmora.a.b"
        << QByteArray("zelmora: \n{\n    a: \n    {\n        c = \"3\";\n    };\n\n};\n\n");
}

void TestSettingsChanges::unsets()
{
    QFETCH(QByteArray, before);
    QFETCH(QString, key);
    const QString path = folder.filePath("a.conf");
    writeBytes(path, before);
    SettingsFile file;
    QCOMPARE(file.load(path), QString());
    QVERIFY(file.unset(key));
    QTEST(file.tryWriting(path).bytes, "after");
    QVERIFY(!file.unset(key));
}

void TestSettingsChanges::doesNotUnset_data()
{
    QTest::addColumn<QString>("key");

    for (const char* key :
         {"zelmora.b", "zelmora.doc", "zelmora.doc.a", "other.a", "a", "zelmora.a.", "", "zelmora.Doc.b"})
        QTest::addRow("\"%s\"", key) << key;
}

void TestSettingsChanges::doesNotUnset()
{
    QFETCH(QString, key);
    const QString path = folder.filePath("a.conf");
    writeBytes(path, plain);
    SettingsFile file;
    QCOMPARE(file.load(path), QString());
    QVERIFY(!file.unset(key));
    QCOMPARE(file.tryWriting(path).bytes, plain);
}

void TestSettingsChanges::beginsAnXmlFile()
{
    SettingsFile file;
    file.beginAt(folder.filePath("new.xml"));
    QCOMPARE(file.format(), QString("xml"));
    QVERIFY(file.set("zelmora.doc.b", "2"));
    QCOMPARE(file.tryWriting(file.path()).bytes,
             QByteArray("\n<zelmora>\n\n    <doc\n        b = \"2\">\n    </doc>\n</zelmora>\n"));
}

void TestSettingsChanges::saysWhatIsMissing()
{
    writeBytes(folder.filePath("there"), "x");
    makeLink("nowhere", folder.filePath("link"));
    makeLink("circle", folder.filePath("circle"));
    QVERIFY(!SettingsFile::isMissing(folder.filePath("there")));
    QVERIFY(!SettingsFile::isMissing(folder.filePath("circle"))); // it cannot be read, and the reason is another
    QVERIFY(SettingsFile::isMissing(folder.filePath("not there")));
    QVERIFY(SettingsFile::isMissing(folder.filePath("there/below a file")));
    QVERIFY(SettingsFile::isMissing(folder.filePath("link")));
}

// The writer goes down once for each group.
void TestSettingsChanges::keyOfManyGroups()
{
    SettingsFile file;
    file.beginAt(folder.filePath("a.conf"));
    QVERIFY(!file.set(QString("a.").repeated(60000) + "b", "1"));
    QVERIFY(file.set(QString("a.").repeated(999) + "b", "1"));
    QCOMPARE(SettingsFile::valueIn(file.tryWriting(file.path()), file.path(), QString("a.").repeated(999) + "b"),
             QString("1"));
}

QTEST_GUILESS_MAIN(TestSettingsChanges)
#include "tst_settingschanges.moc"
