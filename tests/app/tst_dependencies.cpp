#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

/// What the print program loads at run time. Each further library of the toolkit would be felt at every receipt.
class TestDependencies : public QObject {
    Q_OBJECT

private slots:
    void toolkitLibraries();
};

void TestDependencies::toolkitLibraries()
{
    QProcess ldd;
    ldd.start("ldd", {ZELMORA_PRINT_PROGRAM});
    QVERIFY(ldd.waitForFinished());
    QCOMPARE(ldd.exitCode(), 0);

    QStringList libraries;
    QRegularExpressionMatchIterator found = QRegularExpression("libQt5\\w+").globalMatch(ldd.readAllStandardOutput());
    while (found.hasNext())
        libraries += found.next().captured();
    libraries.removeDuplicates();
    libraries.sort();
    QCOMPARE(libraries, QStringList({"libQt5Core", "libQt5Xml"}));
}

QTEST_GUILESS_MAIN(TestDependencies)
#include "tst_dependencies.moc"
