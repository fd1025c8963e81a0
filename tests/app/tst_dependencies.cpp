#include "support/toolkitlibraries.h"

#include <QtTest>

/// What programs load at run time. Each further library of the toolkit would be felt at every receipt, and is missing
/// on a till without a screen.
class TestDependencies : public QObject {
    Q_OBJECT

private slots:
    void coreAndXmlAlone_data();
    void coreAndXmlAlone();
};

void TestDependencies::coreAndXmlAlone_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("the print program") << ZELMORA_PRINT_PROGRAM;
    QTest::newRow("the check of jobs") << ZELMORA_CHECK_PROGRAM;
}

void TestDependencies::coreAndXmlAlone()
{
    QFETCH(QString, program);
    QCOMPARE(toolkitLibraries(program), coreLibraries());
}

QTEST_GUILESS_MAIN(TestDependencies)
#include "tst_dependencies.moc"
