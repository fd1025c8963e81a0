#include "support/programrun.h"

#include <QtTest>

/// Every job under tests/golden/, printed by the real program with its settings, against the script beside it. A job
/// whose run says something on standard output has that beside it too, with "$HOME" for the run's home.
class TestGolden : public QObject {
    Q_OBJECT

private slots:
    void everyMethodHasCases();
    void everyFileIsOfACase();
    void settingsAreNoCopies();
    void script_data();
    void script();
};

static const QDir golden(ZELMORA_GOLDEN);

/// The files under the golden folder whose names end in @p suffix.
static QStringList files(const QString& suffix = QString())
{
    QStringList paths;
    QDirIterator found(golden.path(), {'*' + suffix}, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext())
        paths += found.next();
    paths.sort();
    return paths;
}

/// The cases: their jobs' paths without ".xml".
static QStringList cases()
{
    return files(".xml").replaceInStrings(QRegularExpression("\\.xml$"), QString());
}

/// The case's own settings; else those that cases of its name share, whatever the document; else the default.
static QString settingsOf(const QString& stem)
{
    for (const QString& path : {stem + ".conf", golden.filePath(QFileInfo(stem).fileName() + ".conf")}) {
        if (QFile::exists(path))
            return path;
    }
    return golden.filePath("default.conf");
}

/// A case with an empty file of this kind runs without a settings file.
static bool runsWithoutSettings(const QString& stem)
{
    return QFile::exists(stem + ".no-conf");
}

void TestGolden::everyMethodHasCases()
{
    const QStringList methods {
        "printAbstractOrder",
        "printAbstractOrderFiscal",
        "printAbstractOrderInvoice",
        "printAbstractOrderReceipt",
        "printFullOrder",
        "printFullOrderDelivery",
        "printFullOrderFiscal",
        "printFullOrderInvoice",
        "printFullOrderReceipt",
        "printPartialOrder",
        "printReport",
        "printSold",
        "printStatementOfAccount",
    };
    QCOMPARE(golden.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name), methods);
    for (const QString& method : methods)
        QVERIFY2(QDir(golden.filePath(method)).entryList({"*.xml"}).size() >= 5, qPrintable(method));
}

void TestGolden::everyFileIsOfACase()
{
    QSet<QString> used;
    for (const QString& stem : cases()) {
        for (const char* suffix : {".xml", ".script", ".stdout"})
            used += stem + suffix;
        used += runsWithoutSettings(stem) ? stem + ".no-conf" : settingsOf(stem);
    }
    for (const QString& path : files())
        QVERIFY2(used.contains(path), qPrintable("of no case: " + golden.relativeFilePath(path)));
}

void TestGolden::settingsAreNoCopies()
{
    QHash<QByteArray, QString> paths;
    for (const QString& path : files(".conf")) {
        QString& first = paths[fileContents(path)];
        QVERIFY2(first.isEmpty(), qPrintable(path + " is the same as " + first));
        first = path;
    }
}

void TestGolden::script_data()
{
    QTest::addColumn<QString>("stem");
    for (const QString& stem : cases())
        QTest::newRow(qPrintable(golden.relativeFilePath(stem))) << stem;
}

void TestGolden::script()
{
    QFETCH(QString, stem);
    QVERIFY2(QFile::exists(stem + ".script"), "There is no expected script beside the job.");
    QVERIFY2(QFile::exists(settingsOf(stem)), "There are no settings for the job.");

    ProgramRun run;
    if (!runsWithoutSettings(stem))
        run.setSettings(fileContents(settingsOf(stem)));
    run.setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path());
    const QByteArray printed = run.print(fileContents(stem + ".xml"));

    const QByteArray found = difference(fileContents(stem + ".script"), printed);
    QVERIFY2(found.isEmpty(), found.constData());
    QCOMPARE(run.remarks().replace(run.path("home").toUtf8(), "$HOME"), fileContents(stem + ".stdout"));
}

QTEST_GUILESS_MAIN(TestGolden)
#include "tst_golden.moc"
