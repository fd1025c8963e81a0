#include "support/toolkitlibraries.h"

#include <QtTest>

/// What the print program loads at run time. Each further library of the toolkit would be felt at every receipt.
class TestDependencies : public QObject {
    Q_OBJECT

private slots:
    void printProgram();
};

void TestDependencies::printProgram()
{
    QCOMPARE(toolkitLibraries(ZELMORA_PRINT_PROGRAM), QStringList({"libQt5Core", "libQt5Xml"}));
}

QTEST_GUILESS_MAIN(TestDependencies)
#include "tst_dependencies.moc"
