#include "support/files.h"

#include <QDirIterator>
#include <QtTest>

/// What differs between Qt 5 and Qt 6 is met in toolkit/, so that all else reads the same and does the same.
class TestToolkitVersion : public QObject {
    Q_OBJECT

private slots:
    void isAskedForInOneFolderAlone();
};

void TestToolkitVersion::isAskedForInOneFolderAlone()
{
    const QDir sources(ZELMORA_DOCS "/..");
    const QRegularExpression directive("^ *#.*QT_VERSION", QRegularExpression::MultilineOption);
    int inToolkit = 0;
    QDirIterator found(sources.path(), {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        const QString path = sources.relativeFilePath(found.next());
        if (path.startsWith("build/") || !QString::fromUtf8(fileContents(found.filePath())).contains(directive))
            continue;
        QVERIFY2(path.startsWith("toolkit/"), qPrintable(path));
        ++inToolkit;
    }
    QVERIFY(inToolkit > 0); // it is asked for
}

QTEST_GUILESS_MAIN(TestToolkitVersion)
#include "tst_toolkitversion.moc"
