#include "support/files.h"
#include "support/programrun.h"

#include <QtTest>

#include <QCryptographicHash>
#include <QDirIterator>

/// What `cmake --install` puts where, that its documents stay linked, and that scripts/uninstall takes it away again.
class TestInstallation : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void placesOfFiles_data();
    void placesOfFiles();
    void linksOfDocuments();
    void examplesNameTheCatalogue();
    void examplesNameTheCatalogueInAStagedInstallation();
    void uninstallLeavesWhatIsOthers();
    void uninstallOfAStagedInstallation();
    void uninstallBesideTheOtherToolkit();
    void uninstallASecondTime();
    void uninstallWithoutPermission();
    void wrongCalls_data();
    void wrongCalls();

private:
    void install(const QString& prefix, const QString& staging = QString());
    QByteArray uninstall(const QStringList& arguments, const QString& staging = QString());
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    int status = -1; ///< of the last uninstall
};

namespace {

const QString uninstallScript = ZELMORA_SOURCE "/scripts/uninstall";
const QStringList components {"print", "tools", "settings", "libraries", "development", "documentation"};

QString listOf(const QString& component)
{
    return "install_manifest_" + component + ".txt";
}

/// What `cmake --install` runs, but for the folder of its lists, which is @p folder: those in the build are of
/// whichever test has installed last.
QByteArray installationScript(const QString& folder)
{
    QByteArray script = fileContents(ZELMORA_BUILD "/cmake_install.cmake");
    const QByteArray list = "/${CMAKE_INSTALL_MANIFEST}\"";
    if (script.count('"' + QByteArray(ZELMORA_BUILD) + list) != 1)
        qFatal("The script writes its lists to another place.");
    return script.replace(ZELMORA_BUILD + list, folder.toUtf8() + list);
}

/// All that lies below a folder: paths, with a hash of what is in a file and the target of a link.
QMap<QString, QByteArray> everythingBelow(const QString& place)
{
    QMap<QString, QByteArray> found;
    QDirIterator entries(place, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QFileInfo entry(entries.next());
        QByteArray& content = found[QDir(place).relativeFilePath(entry.filePath())];
        if (entry.isSymLink())
            content = "-> " + entry.symLinkTarget().toUtf8();
        else if (entry.isFile())
            content = QCryptographicHash::hash(fileContents(entry.filePath()), QCryptographicHash::Sha256);
    }
    return found;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

/// The files and links below a folder: their paths in it, sorted.
QStringList filesBelow(const QString& place)
{
    QStringList files;
    QDirIterator found(place, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (found.hasNext())
        files += QDir(place).relativeFilePath(found.next());
    return sorted(files);
}

/// The paths in the links of a document: of "[text](path#place)", without those to places on the page and on the net.
QStringList linkedPaths(const QString& document)
{
    QStringList paths;
    const QRegularExpression link("\\]\\(([^)#:]+)(#[^)]*)?\\)");
    const QString text = QString::fromUtf8(fileContents(document))
                             .remove(QRegularExpression("```.*?```", QRegularExpression::DotMatchesEverythingOption));
    for (QRegularExpressionMatchIterator found = link.globalMatch(text); found.hasNext();)
        paths += found.next().captured(1);
    return paths;
}

void touch(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) || file.write(content) < 0)
        qFatal("%s can't be written.", qPrintable(path));
}

} // namespace

void TestInstallation::initTestCase()
{
    touch(path("install.cmake"), installationScript(path("build")));
    install(path("opt"));
}

/// Installs all components below @p prefix; their lists are in the folder "build", for scripts/uninstall.
void TestInstallation::install(const QString& prefix, const QString& staging)
{
    for (const QString& component : components) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DESTDIR", staging);
        process.setProcessEnvironment(environment);
        process.start(ZELMORA_CMAKE,
                      {"-DCMAKE_INSTALL_PREFIX=" + prefix, "-DCMAKE_INSTALL_COMPONENT=" + component, "-P",
                       path("install.cmake")});
        if (!process.waitForFinished(60000) || process.exitCode() != 0)
            qFatal("%s: %s", qPrintable(component), process.readAllStandardError().constData());
    }
}

/// What scripts/uninstall says.
QByteArray TestInstallation::uninstall(const QStringList& arguments, const QString& staging)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DESTDIR", staging);
    environment.insert("LC_ALL", "C.UTF-8");
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(uninstallScript, arguments);
    process.waitForFinished(60000);
    status = process.exitCode();
    return process.readAll();
}

void TestInstallation::placesOfFiles_data()
{
    QTest::addColumn<QString>("component");
    QTest::addColumn<QStringList>("files");
    const auto ofProgram = [](const char* name) {
        const QString program = name;
        return QStringList {"bin/" + program, "share/man/man1/" + program + ".1",
                            "share/bash-completion/completions/" + program, "share/zsh/site-functions/_" + program,
                            "share/fish/vendor_completions.d/" + program + ".fish"};
    };
    QTest::newRow("the print program") << "print"
                                       << ofProgram("zelmora-print")
            + QStringList {"share/man/man5/zelmora.conf.5", "share/man/man5/zelmora-job.5"};
    QTest::newRow("the tools") << "tools"
                               << ofProgram("zelmora-check") + ofProgram("zelmora-config") + ofProgram("zelmora-paper");
    QTest::newRow("the settings editor") << "settings"
                                         << ofProgram("zelmora-settings")
            + QStringList {"share/applications/zelmora-settings.desktop",
                           "share/metainfo/arpa.home.zelmora.settings.metainfo.xml",
                           "share/icons/hicolor/scalable/apps/zelmora-settings.svg",
                           "share/icons/hicolor/16x16/apps/zelmora-settings.png",
                           "share/icons/hicolor/256x256/apps/zelmora-settings.png"};
    QTest::newRow("the documents") << "documentation"
                                   << QStringList {"share/doc/zelmora/README.md", "share/doc/zelmora/CHANGELOG.md",
                                                   "share/doc/zelmora/docs/job-file.md",
                                                   "share/zelmora/examples/receipt.xml",
                                                   "share/zelmora/examples/suite-program/main.cpp"};
}

void TestInstallation::placesOfFiles()
{
    QFETCH(QString, component);
    QFETCH(QStringList, files);
    const QString list = QString::fromUtf8(fileContents(path("build/" + listOf(component)))) + '\n';
    for (const QString& file : files) {
        QVERIFY2(list.contains(path("opt/" + file) + '\n'), qPrintable(file + " is not in the component"));
        QVERIFY2(QFileInfo(path("opt/" + file)).size() > 0, qPrintable(file + " is not installed"));
    }
}

void TestInstallation::linksOfDocuments()
{
    int links = 0;
    QDirIterator documents(path("opt/share"), {"*.md"}, QDir::Files, QDirIterator::Subdirectories);
    while (documents.hasNext()) {
        const QFileInfo document(documents.next());
        for (const QString& target : linkedPaths(document.filePath())) {
            QVERIFY2(document.dir().exists(target), qPrintable(document.fileName() + ": " + target));
            ++links;
        }
    }
    QVERIFY(links > 60);
}

void TestInstallation::examplesNameTheCatalogue()
{
    const QByteArray settings = fileContents(path("opt/share/zelmora/examples/home/.zelmora/conf/zelmora.conf"));
    const QByteArray folderOfCatalogues = path("opt/share/zelmora/translations/").toUtf8();
    const QByteArray found = difference(fileContents(ZELMORA_EXAMPLES "/home/.zelmora/conf/zelmora.conf")
                                            .replace("\"translations/\"", '"' + folderOfCatalogues + '"'),
                                        settings);
    QVERIFY2(found.isEmpty(), found.constData());

    ProgramRun run;
    run.setSettings(settings);
    QVERIFY(run.print(fileContents(ZELMORA_EXAMPLES "/receipt.xml")).contains("nofis riga=' Cameriere: "));
}

// Where it will lie, not where it is put for now.
void TestInstallation::examplesNameTheCatalogueInAStagedInstallation()
{
    install("/usr", path("staged"));
    QVERIFY(fileContents(path("staged/usr/share/zelmora/examples/home/.zelmora/conf/zelmora.conf"))
                .contains("basedir = \"/usr/share/zelmora/translations/\";\n"));
}

void TestInstallation::uninstallLeavesWhatIsOthers()
{
    const QString prefix = path("shared");
    // Other programs, a folder like ours, a user's home; and what somebody has added where we install.
    for (const char* file : {"bin/zelmora", "bin/other", "share/man/man1/other.1", "share/zelmora-other/file",
                             "home/cassa/.zelmora/conf/zelmora.conf", "share/doc/zelmora/notes of mine"})
        touch(prefix + '/' + file, file);
    QDir().mkpath(prefix + "/share/other/zelmora");
    const QMap<QString, QByteArray> before = everythingBelow(prefix);

    install(prefix);
    const int added = everythingBelow(prefix).size() - before.size();
    QVERIFY(added > 100);
    const QByteArray said = uninstall({path("build")});
    QCOMPARE(status, 0);
    QVERIFY2(said.startsWith("Files removed: ") && said.endsWith(". Gone before: 0. Not removed: 0.\n"),
             said.constData());

    QMap<QString, QByteArray> after = everythingBelow(prefix);
    for (auto entry = before.begin(); entry != before.end(); ++entry)
        QVERIFY2(after.contains(entry.key()) && after.take(entry.key()) == entry.value(), qPrintable(entry.key()));
    // What is left beside that are folders that any program may use.
    for (auto entry = after.begin(); entry != after.end(); ++entry) {
        QVERIFY2(QFileInfo(prefix + '/' + entry.key()).isDir(), qPrintable(entry.key()));
        QVERIFY2(!entry.key().contains("zelmora", Qt::CaseInsensitive), qPrintable(entry.key()));
    }
}

void TestInstallation::uninstallOfAStagedInstallation()
{
    install("/usr", path("staged"));
    const QByteArray said = uninstall({path("build")}, path("staged"));
    QCOMPARE(status, 0);
    QVERIFY2(said.endsWith(" Gone before: 0. Not removed: 0.\n"), said.constData());
    const QMap<QString, QByteArray> left = everythingBelow(path("staged"));
    for (auto entry = left.begin(); entry != left.end(); ++entry)
        QVERIFY2(QFileInfo(path("staged/" + entry.key())).isDir() && !entry.key().contains("zelmora"),
                 qPrintable(entry.key()));
}

// Headers and package are the same for both: they go with the last of them.
void TestInstallation::uninstallBesideTheOtherToolkit()
{
    const QString prefix = path("both");
    install(prefix);
    const QString package = filesBelow(prefix).filter("/ZelmoraConfig.cmake").value(0).remove("ZelmoraConfig.cmake");
    const QString otherTargets = package + "ZelmoraTargets-qt" + (QString(ZELMORA_QT) == "5" ? "6" : "5") + ".cmake";
    QStringList shared = filesBelow(prefix).filter(QRegularExpression("^include/"));
    QVERIFY(shared.size() > 5);
    shared += {package + "ZelmoraConfig.cmake", package + "ZelmoraConfigVersion.cmake"};
    touch(prefix + '/' + otherTargets, "of the other build");
    touch(path("other build/install_manifest_development.txt"),
          QString(prefix + '/' + (shared + QStringList(otherTargets)).join('\n' + prefix + '/')).toUtf8());

    const QByteArray said = uninstall({path("build")});
    QCOMPARE(status, 0);
    QVERIFY2(said.startsWith("Files left, which the build for the other toolkit needs: "
                             + QByteArray::number(shared.size()) + ".\n"),
             said.constData());
    QCOMPARE(filesBelow(prefix), sorted(shared + QStringList(otherTargets)));

    QCOMPARE(uninstall({path("other build")}),
             "Files removed: " + QByteArray::number(shared.size() + 1) + ". Gone before: 0. Not removed: 0.\n");
    QCOMPARE(filesBelow(prefix), QStringList());
}

void TestInstallation::uninstallASecondTime()
{
    // A place that has our name is not therefore ours.
    install(path("zelmora"));
    QVERIFY(QFile::remove(path("zelmora/bin/zelmora-print")));
    QVERIFY(uninstall({path("build")}).contains(" Gone before: 1. Not removed: 0.\n"));
    QCOMPARE(status, 0);
    QVERIFY(QFileInfo(path("zelmora/bin")).isDir());
    QVERIFY(uninstall({path("build")})
                .startsWith("There is no list of installed files in " + path("build").toUtf8() + ':'));
    QCOMPARE(status, 2);
}

// The lists stay, for another try.
void TestInstallation::uninstallWithoutPermission()
{
    QVERIFY(QDir(path("build")).removeRecursively());
    touch(path("build/install_manifest.txt"), "/proc/self/status");
    const QByteArray said = uninstall({path("build")});
    QCOMPARE(status, 1);
    QVERIFY2(
        said.contains("Files removed: 0. Gone before: 0. Not removed: 1.\nCall it again as whoever may remove them"),
        said.constData());
    QVERIFY(QFile::remove(path("build/install_manifest.txt")));
}

void TestInstallation::wrongCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("a folder that is no build")
        << QStringList("/usr/share")
        << QByteArray("There is no list of installed files in /usr/share: nothing was installed from there, or it is "
                      "taken away already.\n");
    QTest::newRow("two folders") << QStringList({"/usr", "/opt"})
                                 << "Usage: " + uninstallScript.toUtf8() + " [BUILD]\n";
}

void TestInstallation::wrongCalls()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, said);
    QCOMPARE(uninstall(arguments), said);
    QCOMPARE(status, 2);
}

QTEST_GUILESS_MAIN(TestInstallation)
#include "tst_installation.moc"
