#include <QDomDocument>
#include <QProcess>
#include <QTranslator>
#include <QtTest>

/// The Italian catalogue holds a translation of every text that the sources mark, and of nothing else.
class TestCatalogue : public QObject {
    Q_OBJECT

private slots:
    void holdsEveryMarkedText();
    void everyTextIsTranslated();
};

static const char* const catalogueSource = ZELMORA_TRANSLATIONS "/zelmora_it.ts";

/// The source texts of a catalogue's context "QObject", sorted; any other context counts as an error.
static QStringList sourceTexts(const QString& path)
{
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        qFatal("%s can't be read.", qPrintable(path));
    const QDomNodeList contexts = document.elementsByTagName("context");
    if (contexts.size() != 1 || contexts.at(0).firstChildElement("name").text() != "QObject")
        qFatal("%s must hold just the context QObject.", qPrintable(path));
    QStringList texts;
    const QDomNodeList sources = document.elementsByTagName("source");
    for (int i = 0; i < sources.size(); ++i)
        texts += sources.at(i).toElement().text();
    texts.sort();
    return texts;
}

void TestCatalogue::holdsEveryMarkedText()
{
    const QTemporaryDir folder;
    const QString marked = folder.filePath("marked.ts");
    QProcess lupdate;
    QStringList arguments {"-silent"};
    for (const char* sources : {"app", "check", "config", "db", "driver", "editor", "log", "print", "settings",
                                "toolkit", "util", "vocabulary"})
        arguments += QString(ZELMORA_TRANSLATIONS "/../") + sources;
    lupdate.start(ZELMORA_LUPDATE, arguments + QStringList {"-ts", marked});
    QVERIFY(lupdate.waitForFinished());
    QCOMPARE(lupdate.exitCode(), 0);

    const QStringList texts = sourceTexts(marked);
    QVERIFY(texts.contains("TOTAL"));
    QCOMPARE(sourceTexts(catalogueSource), texts);
}

void TestCatalogue::everyTextIsTranslated()
{
    QTranslator translator;
    QVERIFY(translator.load(ZELMORA_CATALOGUE));
    for (const QString& text : sourceTexts(catalogueSource))
        QVERIFY2(!translator.translate("QObject", text.toUtf8()).isEmpty(), qPrintable(text));
    QCOMPARE(translator.translate("QObject", "TOTAL"), QString("TOTALE"));
}

QTEST_GUILESS_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
