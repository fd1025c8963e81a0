#include "support/toolkitlibraries.h"

#include <QtTest>

/// What a program of the suite loads of the toolkit with the libraries it links: without need, no widgets.
class TestLibraryDependencies : public QObject {
    Q_OBJECT

private slots:
    void program_data();
    void program();
};

void TestLibraryDependencies::program_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("that logs") << ZELMORA_LOGWRITER;
    QTest::newRow("that uses the helpers") << ZELMORA_LIBRARYUSER;
}

void TestLibraryDependencies::program()
{
    QFETCH(QString, path);
    QCOMPARE(toolkitLibraries(path), coreLibraries());
}

QTEST_GUILESS_MAIN(TestLibraryDependencies)
#include "tst_librarydependencies.moc"
