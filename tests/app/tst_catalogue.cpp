#include <QDomDocument>
#include <QProcess>
#include <QTranslator>
#include <QtTest>

#include <algorithm>
#include <tuple>

/// The Italian catalogue holds a translation of every text that the sources mark, and of nothing else.
class TestCatalogue : public QObject {
    Q_OBJECT

private slots:
    void holdsEveryMarkedText();
    void everyTextIsTranslated();
    void placeholdersAgree();
};

static const char* const catalogueSource = ZELMORA_TRANSLATIONS "/zelmora_it.ts";

/// A text to translate.
struct Text {
    QString source;
    QString remark; ///< what tells it from another of the same words; mostly empty

    bool operator<(const Text& other) const { return std::tie(source, remark) < std::tie(other.source, other.remark); }
};

/// The texts of a catalogue's context "QObject", sorted; any other context counts as an error.
static QVector<Text> textsIn(const QString& path)
{
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        qFatal("%s can't be read.", qPrintable(path));
    const QDomNodeList contexts = document.elementsByTagName("context");
    if (contexts.size() != 1 || contexts.at(0).firstChildElement("name").text() != "QObject")
        qFatal("%s must hold just the context QObject.", qPrintable(path));
    QVector<Text> texts;
    const QDomNodeList messages = document.elementsByTagName("message");
    for (int i = 0; i < messages.size(); ++i)
        texts +=
            {messages.at(i).firstChildElement("source").text(), messages.at(i).firstChildElement("comment").text()};
    std::sort(texts.begin(), texts.end());
    return texts;
}

static QStringList lines(const QVector<Text>& texts)
{
    QStringList lines;
    for (const Text& text : texts)
        lines += text.source + (text.remark.isEmpty() ? QString() : " // " + text.remark);
    return lines;
}

static QString translation(const QTranslator& translator, const Text& text)
{
    return translator.translate("QObject", text.source.toUtf8(), text.remark.toUtf8());
}

void TestCatalogue::holdsEveryMarkedText()
{
    const QTemporaryDir folder;
    const QString marked = folder.filePath("marked.ts");
    QProcess lupdate;
    QStringList arguments {"-silent"};
    for (const char* sources : {"app", "check", "config", "db", "driver", "editor", "log", "paper", "preview", "print",
                                "settings", "toolkit", "util", "vocabulary"})
        arguments += QString(ZELMORA_TRANSLATIONS "/../") + sources;
    lupdate.start(ZELMORA_LUPDATE, arguments + QStringList {"-ts", marked});
    QVERIFY(lupdate.waitForFinished());
    QCOMPARE(lupdate.exitCode(), 0);

    const QStringList texts = lines(textsIn(marked));
    QVERIFY(texts.contains("TOTAL"));
    QCOMPARE(lines(textsIn(catalogueSource)), texts);
}

void TestCatalogue::everyTextIsTranslated()
{
    QTranslator translator;
    QVERIFY(translator.load(ZELMORA_CATALOGUE));
    for (const Text& text : textsIn(catalogueSource))
        QVERIFY2(!translation(translator, text).isEmpty(), qPrintable(text.source));
    QCOMPARE(translator.translate("QObject", "TOTAL"), QString("TOTALE"));
}

/// The places "%1", "%2" of a text that a program fills, sorted.
static QStringList placeholders(const QString& text)
{
    QStringList places;
    QRegularExpressionMatchIterator matches = QRegularExpression("%[1-9]").globalMatch(text);
    while (matches.hasNext())
        places += matches.next().captured();
    places.sort();
    return places;
}

// A text with a place too few would lose what belongs there, and one too many would show "%2".
void TestCatalogue::placeholdersAgree()
{
    QTranslator translator;
    QVERIFY(translator.load(ZELMORA_CATALOGUE));
    for (const Text& text : textsIn(catalogueSource))
        QVERIFY2(placeholders(translation(translator, text)) == placeholders(text.source), qPrintable(text.source));
    QCOMPARE(placeholders("%2 of %1, %1"), (QStringList {"%1", "%1", "%2"}));
}

QTEST_GUILESS_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
