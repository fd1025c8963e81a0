#include "support/files.h"

#include <QDirIterator>
#include <QtTest>

/// What differs between Qt 5 and Qt 6 is met in toolkit/, so that all else reads the same and does the same.
class TestToolkitVersion : public QObject {
    Q_OBJECT

private slots:
    void isAskedForInOneFolderAlone_data();
    void isAskedForInOneFolderAlone();
};

void TestToolkitVersion::isAskedForInOneFolderAlone_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QString>("folders");
    QTest::newRow("by sources") << QStringList {"*.cpp", "*.h"} << "^ *#.*QT_VERSION"
                                << "^toolkit/";
    QTest::newRow("by the build") << QStringList {"CMakeLists.txt"} << "ZELMORA_QT (EQUAL|STREQUAL|MATCHES)"
                                  << "^tests/"; // which know both; all else is in cmake/
}

void TestToolkitVersion::isAskedForInOneFolderAlone()
{
    QFETCH(QStringList, files);
    QFETCH(QString, question);
    QFETCH(QString, folders);

    const QDir sources(ZELMORA_DOCS "/..");
    const QRegularExpression asks(question, QRegularExpression::MultilineOption);
    int asked = 0;
    QDirIterator found(sources.path(), files, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        const QString path = sources.relativeFilePath(found.next());
        if (path.startsWith("build/") || !QString::fromUtf8(fileContents(found.filePath())).contains(asks))
            continue;
        QVERIFY2(path.contains(QRegularExpression(folders)), qPrintable(path));
        ++asked;
    }
    QVERIFY(asked > 0);
}

QTEST_GUILESS_MAIN(TestToolkitVersion)
#include "tst_toolkitversion.moc"
