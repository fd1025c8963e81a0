#include "support/checkrun.h"
#include "support/examples.h"

#include <QtTest>

/// Slips that print without a word, as a person makes them on the first evening: each is found, at its place.
class TestSlips : public QObject {
    Q_OBJECT

private slots:
    void inAJob_data();
    void inAJob();
    void inTheSettings_data();
    void inTheSettings();
    void theExamplesHaveNone_data();
    void theExamplesHaveNone();
};

namespace {

const QByteArray settings = "zelmora: { receiptdoc: { paperWidth = 32; quantityFieldWidth = 3; priceFieldWidth = 6; "
                            "totalPriceFieldWidth = 8; }; };";

const QByteArray dish = "  <receipe number=\"1\" name=\"Acqua\" price=\"5.00\" totalPrice=\"5.00\"/>\n";
const QByteArray total = "  <total price=\"5.00\"/>\n";

QByteArray job(const QByteArray& method, const QByteArray& elements)
{
    return "<job>\n  <method name=\"" + method + "\"/>\n" + elements + "</job>\n";
}

QByteArray receipt(const QByteArray& elements)
{
    return job("printFullOrderReceipt", elements);
}

/// Each line of @p text without its words, and which name it suggests: "job.xml:3:3: warning: [unknown-element]".
QStringList places(const QByteArray& text)
{
    QStringList lines = QString::fromUtf8(text).split('\n', Qt::SkipEmptyParts);
    return lines.replaceInStrings(QRegularExpression("^(.*?:\\d+:\\d+: \\w+: ).+(\\[[a-z-]+\\])$"), "\\1\\2");
}

} // namespace

void TestSlips::inAJob_data()
{
    QTest::addColumn<QByteArray>("job");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("a dish that is spelt as English spells it")
        << receipt(QByteArray(dish).replace("receipe", "recipe") + total)
        << QStringList {"job.xml:3:3: warning: [unknown-element]"};
    QTest::newRow("prize for price") << receipt(QByteArray(dish).replace("price", "prize") + total)
                                     << QStringList {"job.xml:3:3: warning: [missing-attribute]",
                                                     "job.xml:3:36: warning: [unknown-attribute]"};
    QTest::newRow("a dish before the method") << "<job>\n" + dish + "  <method name=\"printFullOrderReceipt\"/>\n"
            + total + "</job>\n" << QStringList {"job.xml:2:3: warning: [element-before-method]"};
    QTest::newRow("500.00 for a total of 5.00") << receipt(dish + QByteArray(total).replace("5.00", "500.00"))
                                                << QStringList {"job.xml:4:10: warning: [wrong-sum]"};
    QTest::newRow("an \"&\" that is not escaped") << receipt(QByteArray(dish).replace("Acqua", "Acqua & vino") + total)
                                                  << QStringList {"job.xml:3:36: error: [not-well-formed]"};
    QTest::newRow("an apostrophe that ends the register's text")
        << job("printFullOrderFiscal", "  <receipe department=\"1\" number=\"1\" name=\"L'acqua\" price=\"5.00\"/>\n")
        << QStringList {"job.xml:3:38: warning: [quote-in-text]"};
}

void TestSlips::inAJob()
{
    QFETCH(QByteArray, job);
    CheckRun run;
    run.setSettings(settings);
    run.writeFile("job.xml", job);
    QTEST(places(run.output({"job.xml"})), "expected");
}

void TestSlips::inTheSettings_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("a capital in a flag") << QByteArray(
        "zelmora: {\n  receiptdoc: {\n    printHeader = \"True\";\n  };\n};\n")
                                         << QStringList {"till.conf:3:5: warning: [not-a-flag]"};
    QTest::newRow("papperWidth") << QByteArray("zelmora: {\n  receiptdoc: {\n    papperWidth = 40;\n  };\n};\n")
                                 << QStringList {"till.conf:3:5: warning: [unknown-key]"};
    QTest::newRow("zelmore") << QByteArray("zelmore: {\n  receiptdoc: {\n    paperWidth = 32;\n  };\n};\n")
                             << QStringList {"till.conf:1:1: error: [wrong-top-group]"};
}

void TestSlips::inTheSettings()
{
    QFETCH(QByteArray, settings);
    ProgramRun run(ZELMORA_CONFIG_PROGRAM);
    run.writeFile("till.conf", settings);
    run.start({"--file", "till.conf", "check"});
    QCOMPARE(run.standardError, QByteArray());
    QTEST(places(run.standardOutput), "expected");
}

void TestSlips::theExamplesHaveNone_data()
{
    QTest::addColumn<QString>("job");
    for (const QString& name : examples.entryList({"*.xml"}))
        QTest::newRow(qPrintable(name)) << examples.filePath(name);
}

/// No error and no warning, with their settings and where these find their catalogue.
void TestSlips::theExamplesHaveNone()
{
    QFETCH(QString, job);
    CheckRun run;
    run.setSettings(exampleSettings());
    run.setEnvironment("LC_ALL", "C.UTF-8");
    run.setWorkingFolder(QFileInfo(ZELMORA_CATALOGUE).path() + "/..");
    QCOMPARE(run.output({"--quiet", job}), QByteArray());
    QCOMPARE(run.exitStatus, 0);
}

QTEST_GUILESS_MAIN(TestSlips)
#include "tst_slips.moc"
