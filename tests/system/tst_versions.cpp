#include "support/programrun.h"

#include <QtTest>

/// The version stands in project(VERSION); what else names one has it at its top.
class TestVersions : public QObject {
    Q_OBJECT

private slots:
    void topEntry_data();
    void topEntry();
    void releaseDate();
    void programs_data();
    void programs();
};

static QString source(const char* name)
{
    const QString text = QString::fromUtf8(fileContents(QString(ZELMORA_SOURCE "/") + name));
    if (text.isEmpty())
        qFatal("%s is missing.", name);
    return text;
}

/// What the first match of @p pattern in a file of the source has captured.
static QString firstIn(const char* name, const QString& pattern)
{
    return QRegularExpression(pattern, QRegularExpression::MultilineOption).match(source(name)).captured(1);
}

static const char* const catalogueFile = "install/desktop/arpa.home.zelmora.settings.metainfo.xml";

void TestVersions::topEntry_data()
{
    QTest::addColumn<QString>("version");
    QTest::newRow("of the package") << firstIn("debian/changelog", "\\A\\S+ \\(([^)]+)\\) ");
    QTest::newRow("of the changelog") << firstIn("CHANGELOG.md", "^## \\[([^\\]]+)\\]");
    QTest::newRow("of the catalogue's file") << firstIn(catalogueFile, "<release version=\"([^\"]+)\"");
}

void TestVersions::topEntry()
{
    QFETCH(QString, version);
    QCOMPARE(version, QString(ZELMORA_VERSION));
}

void TestVersions::releaseDate()
{
    const QString date = firstIn("CHANGELOG.md", "^## \\[.*\\] - (\\d{4}-\\d\\d-\\d\\d)$");
    QVERIFY(!date.isEmpty());
    QCOMPARE(firstIn(catalogueFile, "<release .*date=\"([^\"]+)\""), date);
}

void TestVersions::programs_data()
{
    QTest::addColumn<QString>("program");
    for (const char* program :
         {ZELMORA_CHECK_PROGRAM, ZELMORA_CONFIG_PROGRAM, ZELMORA_PAPER_PROGRAM, ZELMORA_SETTINGS_PROGRAM})
        QTest::newRow(qPrintable(QFileInfo(program).fileName())) << QString(program);
}

void TestVersions::programs()
{
    QFETCH(QString, program);
    ProgramRun run(program);
    run.start({"--version"});
    QCOMPARE(run.remarks(), QFileInfo(program).fileName().toUtf8() + " " ZELMORA_VERSION "\n");
}

QTEST_GUILESS_MAIN(TestVersions)
#include "tst_versions.moc"
