#include "editor/icons.h"
#include "support/programrun.h"

#include <QtTest>

#include <QGuiApplication>
#include <QIcon>
#include <QImage>

/// A desktop finds the settings editor by its entry, shows it by its picture, and says of it what is true.
class TestDesktop : public QObject {
    Q_OBJECT

private slots:
    void isValid_data();
    void isValid();
    void entryStartsTheEditor();
    void everyTextIsInItalian_data();
    void everyTextIsInItalian();
    void pictures_data();
    void pictures();
    void scalablePicture();
};

namespace {

const QString sources = ZELMORA_DESKTOP_SOURCES "/";
const QString pictureFolder = ZELMORA_DESKTOP_PICTURES "/";
const QString catalogueFile = "arpa.home.zelmora.settings.metainfo.xml";

/// What the command says of a file; nothing where it is content.
QByteArray judgement(const QByteArray& command, const QString& file)
{
    ProgramRun run;
    run.setEnvironment("PATH", qEnvironmentVariable("PATH"));
    run.setEnvironment("LC_ALL", "C.UTF-8");
    run.setEnvironment("file", file);
    run.startShell(command + " \"$file\"");
    return run.remarks();
}

/// The greatest difference of a channel, and the mean of all.
struct Difference {
    int greatest = 0;
    double mean = 0;
};

Difference differenceOf(QImage one, QImage other)
{
    one = one.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    other = other.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    Difference found;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < 4 * one.width(); ++x) {
            const int difference = qAbs(one.constScanLine(y)[x] - other.constScanLine(y)[x]);
            found.greatest = qMax(found.greatest, difference);
            found.mean += difference;
        }
    }
    found.mean /= 4.0 * one.width() * one.height();
    return found;
}

} // namespace

void TestDesktop::isValid_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("content"); // what the command says of a file that is in order
    QTest::newRow("the entry") << "zelmora-settings.desktop" << QByteArray("desktop-file-validate --warn-kde")
                               << QByteArray();
    QTest::newRow("the catalogue's file")
        << catalogueFile << QByteArray("appstreamcli validate --no-net --pedantic --no-color")
        << QByteArray("Validation was successful.");
}

void TestDesktop::isValid()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, content);
    const QByteArray said = judgement(command, sources + file);
    // No status other than 0, no warning and no hint: one line at most, with a tick before it.
    QVERIFY2(content.isEmpty() ? said.isEmpty() : said.trimmed().endsWith(content), said.constData());
    QVERIFY2(said.trimmed().count('\n') == 0, said.constData());
}

void TestDesktop::entryStartsTheEditor()
{
    const QByteArray entry = fileContents(sources + "zelmora-settings.desktop");
    QVERIFY(entry.contains("\nExec=zelmora-settings %f\n"));
    QVERIFY(entry.contains("\nIcon=zelmora-settings\n"));
    QCOMPARE(QFileInfo(ZELMORA_SETTINGS_PROGRAM).fileName(), QString("zelmora-settings"));
    const QByteArray catalogue = fileContents(sources + catalogueFile);
    QVERIFY(catalogue.contains("<launchable type=\"desktop-id\">zelmora-settings.desktop</launchable>"));
    QVERIFY(catalogue.contains("<binary>zelmora-settings</binary>"));
    // No licence has been chosen: only this file, which must have one, names its own.
    QVERIFY(catalogue.contains("<metadata_license>FSFAP</metadata_license>"));
    QVERIFY(!catalogue.contains("project_license"));
}

void TestDesktop::everyTextIsInItalian_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("italian");
    QTest::newRow("the entry") << "zelmora-settings.desktop"
                               << "^(Name|GenericName|Comment|Keywords)=."
                               << "^(Name|GenericName|Comment|Keywords)\\[it\\]=.";
    QTest::newRow("the catalogue's file") << catalogueFile << "<(name|summary|p|li)>."
                                          << "<(name|summary|p|li) xml:lang=\"it\">.";
}

static QStringList texts(const QString& text, const QString& pattern)
{
    QStringList names;
    const QRegularExpression wanted(pattern, QRegularExpression::MultilineOption);
    for (QRegularExpressionMatchIterator found = wanted.globalMatch(text); found.hasNext();)
        names += found.next().captured(1);
    return names;
}

void TestDesktop::everyTextIsInItalian()
{
    QFETCH(QString, file);
    QFETCH(QString, english);
    QFETCH(QString, italian);
    const QString text = QString::fromUtf8(fileContents(sources + file));
    QVERIFY(texts(text, english).size() >= 4);
    QCOMPARE(texts(text, italian), texts(text, english));
}

void TestDesktop::pictures_data()
{
    QTest::addColumn<int>("side");
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256})
        QTest::newRow(qPrintable(QString::number(side))) << side;
}

// Those of the window.
void TestDesktop::pictures()
{
    QFETCH(int, side);
    const QImage picture(pictureFolder + QString("%1x%1.png").arg(side));
    QCOMPARE(picture.size(), QSize(side, side));
    const QImage shown = icons::program().pixmap(side).toImage();
    QCOMPARE(shown.size(), picture.size());
    const Difference found = differenceOf(picture, shown);
    QVERIFY2(found.greatest <= 2, qPrintable(QString::number(found.greatest))); // rounding
    // A corner outside of the receipt, its paper, and the line of its total.
    QCOMPARE(qAlpha(picture.pixel(0, 0)), 0);
    QCOMPARE(picture.pixelColor(side / 2, side * 19 / 32), QColor(Qt::white));
    const QColor total = picture.pixelColor(side / 2, side * 11 / 16);
    QVERIFY2(total.red() > total.green() + 50, qPrintable(total.name()));
}

// Drawn by another hand.
void TestDesktop::scalablePicture()
{
    ProgramRun run;
    run.setEnvironment("PATH", qEnvironmentVariable("PATH"));
    run.setEnvironment("svg", pictureFolder + "zelmora-settings.svg");
    run.startShell("rsvg-convert --width 256 --height 256 --output drawn.png \"$svg\"");
    QCOMPARE(run.remarks(), QByteArray());
    const QImage drawn(run.path("drawn.png"));
    QCOMPARE(drawn.size(), QSize(256, 256));
    const Difference found = differenceOf(drawn, QImage(pictureFolder + "256x256.png"));
    QVERIFY2(found.mean < 0.5, qPrintable(QString::number(found.mean)));
}

QTEST_MAIN(TestDesktop)
#include "tst_desktop.moc"
