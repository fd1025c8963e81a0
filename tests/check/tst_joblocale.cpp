#include "check/jobfindings.h"
#include "toolkit/localecodec.h"

#include <QTextCodec>
#include <QTranslator>
#include <QtTest>

/// Jobs checked for scripts in an 8-bit encoding, and with the Italian catalogue. The locale's codec is chosen once for
/// a process.
class TestJobLocale : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void characters_data();
    void characters();
    void suggestions_data();
    void suggestions();
    void withTheItalianCatalogue();
};

namespace {

QByteArray receipt(const QByteArray& content)
{
    return jobOf("printFullOrderReceipt", content);
}

const QByteArray settings = settingsWith("printCompany = true;");

} // namespace

void TestJobLocale::initTestCase()
{
    qputenv("LOCPATH", ZELMORA_TEST_LOCALES);
    qputenv("LC_ALL", "it_IT.ISO-8859-15");
    QCOMPARE(toolkit::localeCodec()->name(), QByteArray("ISO-8859-15"));
}

void TestJobLocale::characters_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const QByteArray& content, const QStringList& expected) {
        QTest::newRow(name) << content << expected;
    };
    const QString unprintable = "warning unprintable-character";

    row("what the encoding has", "<receipt serialnumber='è € Œ'/>", {});
    row("what it lacks", "<receipt serialnumber='a漢b'/>", {"2:10 " + unprintable});
    row("each character once", "<receipt serialnumber='漢 ¤ 漢 ¤'/>", {"2:10 " + unprintable, "2:10 " + unprintable});
    row("a picture is one character", "<receipt serialnumber='🍕'/>", {"2:10 " + unprintable});
    row("a question mark is one", "<receipt serialnumber='?'/>", {});
    row("in each attribute", "<company a='漢' b='x' c='漢'/>", {"2:10 " + unprintable, "2:22 " + unprintable});
    row("behind the cut", "<receipe number='1' name='123456789012漢' price='1' totalPrice='1'/>",
        {"2:21 note cut-text"});
    row("before the cut", "<receipe number='1' name='12345678901漢x' price='1' totalPrice='1'/>",
        {"2:21 note cut-text", "2:21 " + unprintable});
    row("where it does not print", "<printers name='漢' port='漢'/>", {});
}

void TestJobLocale::characters()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, expected);
    QCOMPARE(inShort(findingsOf(receipt(content), settings)), expected);
}

void TestJobLocale::suggestions_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("suggestion");

    QTest::newRow("quotation marks") << QByteArray("“a") << "\"";
    QTest::newRow("an apostrophe is no apostrophe's spelling") << QByteArray("l’a") << "`";
    QTest::newRow("none") << QByteArray("漢") << "";
}

void TestJobLocale::suggestions()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, suggestion);
    const check::Findings findings = findingsOf(receipt("<receipt serialnumber='" + text + "'/>"), settings);
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings.first().suggestion, suggestion);
}

// Labels are the catalogue's, TOTALE among them, and so are the movement types.
void TestJobLocale::withTheItalianCatalogue()
{
    QTranslator translator;
    QVERIFY(translator.load(ZELMORA_CATALOGUE));
    QCoreApplication::installTranslator(&translator);
    const auto found = [](const QByteArray& method, const QByteArray& content) {
        return inShort(findingsOf(jobOf(method, content), settings));
    };
    const QStringList total = found("printFullOrderReceipt", "<total price='1.00'/>");
    const QStringList heading = found("printReport",
                                      "<receiptssummary number='0' firstserial='1' lastserial='1' notPaid='0' cash='0' "
                                      "creditCard='0' bancomat='0' other='0' total='0'/>");
    const QStringList movement =
        found("printStatementOfAccount", "<statement date='14/11/2025' type='Fiscal Receipt' amount='1.00'/>");
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(total, QStringList());
    QCOMPARE(heading, QStringList {"2:1 note too-wide"});
    QCOMPARE(movement, QStringList {"2:30 note cut-text"}); // "Scontrino fiscale" in 8 characters
}

QTEST_GUILESS_MAIN(TestJobLocale)
#include "tst_joblocale.moc"
