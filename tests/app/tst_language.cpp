#include "support/programrun.h"
#include "support/smalljob.h"

#include <QtTest>

/// The catalogue that the settings name, and the encoding that the locale names.
class TestLanguage : public QObject {
    Q_OBJECT

private slots:
    void catalogue_data();
    void catalogue();
    void encoding_data();
    void encoding();
    void variables_data();
    void variables();
    void pathInAMessageIsInTheLocalesEncoding();
};

void TestLanguage::catalogue_data()
{
    QTest::addColumn<QString>("placedAt"); // the Italian catalogue, in the folder that the program runs in
    QTest::addColumn<QByteArray>("directory"); // "FOLDER" is that folder
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("italian");

    QTest::newRow("no settings") << "it.qm" << QByteArray() << QByteArray() << "C" << false;
    QTest::newRow("directory and file") << "x/it.qm" << QByteArray("FOLDER/x/") << QByteArray("it.qm") << "C" << true;
    QTest::newRow("no separator is added") << "xit.qm" << QByteArray("FOLDER/x") << QByteArray("it.qm") << "C" << true;
    QTest::newRow("a missing separator is not guessed")
        << "x/it.qm" << QByteArray("FOLDER/x") << QByteArray("it.qm") << "C" << false;
    QTest::newRow("relative to the working folder") << "it.qm" << QByteArray() << QByteArray("it.qm") << "C" << true;
    QTest::newRow("a missing file") << "it.qm" << QByteArray("FOLDER/") << QByteArray("de.qm") << "C" << false;
    QTest::newRow("by the locale") << "x/zelmora_it_IT.qm" << QByteArray("FOLDER/x") << QByteArray("/") << "it_IT.UTF-8"
                                   << true;
    QTest::newRow("by the locale's language alone")
        << "x/zelmora_it.qm" << QByteArray("FOLDER/x") << QByteArray("/") << "it_IT.UTF-8" << true;
    QTest::newRow("by the locale, relative")
        << "x/zelmora_it.qm" << QByteArray("x") << QByteArray("/") << "it_IT.UTF-8" << true;
    QTest::newRow("by another locale") << "x/zelmora_it.qm" << QByteArray("FOLDER/x") << QByteArray("/")
                                       << "de_DE.UTF-8" << false;
    QTest::newRow("the C locale has a name too")
        << "x/zelmora_C.qm" << QByteArray("FOLDER/x") << QByteArray("/") << "C" << true;
}

void TestLanguage::catalogue()
{
    QFETCH(QString, placedAt);
    QFETCH(QByteArray, directory);
    QFETCH(QByteArray, file);
    QFETCH(QString, locale);
    QFETCH(bool, italian);

    ProgramRun run;
    const QString folder = QFileInfo(run.path("x")).path();
    QVERIFY(QDir(folder).mkpath("x"));
    QVERIFY(QFile::copy(ZELMORA_CATALOGUE, folder + '/' + placedAt));
    run.setSettings("zelmora: { language: { basedir = " + directory.replace("FOLDER", folder.toUtf8())
                    + "; file = " + file + "; }; };");
    run.setEnvironment("LC_ALL", locale);

    QCOMPARE(run.print(smallJob), italian ? document({" Numero progressivo: 7", rule()}) : smallScript());
    QCOMPARE(run.remarks(), QByteArray());
}

void TestLanguage::encoding_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArray>("printed"); // of: è|€|漢|🍕
    const QByteArray utf8 = "è|€|漢|🍕";
    QTest::newRow("C") << "C" << utf8;
    QTest::newRow("POSIX") << "POSIX" << utf8;
    QTest::newRow("UTF-8") << "C.UTF-8" << utf8;
    QTest::newRow("a locale that is not installed") << "xx_YY.ISO-8859-1" << utf8;
    QTest::newRow("ISO-8859-15") << "it_IT.ISO-8859-15" << QByteArray("\xe8|\xa4|?|?");
}

void TestLanguage::encoding()
{
    QFETCH(QString, locale);
    QFETCH(QByteArray, printed);

    ProgramRun run;
    run.setSettings("zelmora: { fiscaldoc: { }; };");
    run.setEnvironment("LC_ALL", locale);
    QCOMPARE(run.print("<job><method name='printAbstractOrderFiscal'/>"
                       "<receipe_type name='è|€|漢|🍕'/></job>"),
             fiscalReceipt({"VEND REP=,QTY=1,PREZZO=,DES='" + printed + "'"}));
    QCOMPARE(run.remarks(), QByteArray());
}

void TestLanguage::variables_data()
{
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<bool>("italian"); // the labels, by the file "/"
    QTest::addColumn<QByteArray>("bytes"); // of e with grave accent

    const QByteArray utf8 = "\xc3\xa8", latin = "\xe8";
    const QString italian = "it_IT.ISO-8859-15";
    const auto row = [](const char* name, const QStringList& variables, bool inItalian, const QByteArray& bytes) {
        QTest::newRow(name) << variables << inItalian << bytes;
    };
    row("none is set", {}, false, utf8);
    row("LANG alone gives both", {"LANG=" + italian}, true, latin);
    row("LC_ALL goes before the others", {"LC_ALL=" + italian, "LC_MESSAGES=C", "LC_CTYPE=C", "LANG=C"}, true, latin);
    row("LC_MESSAGES gives the language", {"LC_MESSAGES=" + italian, "LANG=C"}, true, utf8);
    row("LC_CTYPE gives the encoding", {"LC_CTYPE=" + italian, "LANG=C"}, false, latin);
    row("LANGUAGE goes before LC_ALL", {"LANGUAGE=en", "LC_ALL=" + italian}, false, latin);
    row("LANGUAGE gives the language alone", {"LANGUAGE=it", "LANG=C.UTF-8"}, true, utf8);
    row("LANGUAGE: the first that it lists", {"LANGUAGE=it:en", "LANG=C.UTF-8"}, true, utf8);
    row("LANGUAGE: no other that it lists", {"LANGUAGE=de:it", "LANG=" + italian}, false, latin);
    row("LANGUAGE is not asked in the C locale", {"LANGUAGE=it", "LANG=C"}, false, utf8);
    row("LANGUAGE is not asked in the POSIX locale", {"LANGUAGE=it", "LC_ALL=POSIX", "LANG=" + italian}, false, utf8);
    row("LANGUAGE is not asked without a locale", {"LANGUAGE=it"}, false, utf8);
}

void TestLanguage::variables()
{
    QFETCH(QStringList, variables);
    QFETCH(bool, italian);
    QFETCH(QByteArray, bytes);

    ProgramRun run;
    QVERIFY(QFile::copy(ZELMORA_CATALOGUE, run.path("zelmora_it.qm")));
    run.setSettings("zelmora: { language: { basedir = .; file = /; }; };");
    run.setEnvironment("LC_ALL", QString()); // an empty one counts as absent
    for (const QString& variable : variables)
        run.setEnvironment(variable.section('=', 0, 0).toLatin1().constData(), variable.section('=', 1));

    const QByteArray label = italian ? "Numero progressivo: " : "Serial Number: ";
    const QByteArray script =
        run.print("<job><method name='printFullOrderReceipt'/><receipt serialnumber='\xc3\xa8'/></job>");
    QVERIFY2(script.contains("nofis riga=' " + label + bytes + "'\r\n"), script.constData());
}

void TestLanguage::pathInAMessageIsInTheLocalesEncoding()
{
    ProgramRun run;
    run.setEnvironment("LC_ALL", "it_IT.ISO-8859-15");
    run.startShell(R"sh(HOME="$(printf '/caff\350')" "$program" job.xml script.txt)sh");
    QCOMPARE(
        run.remarks(),
        QByteArray("Error in the method FileReader::open( /caff\xe8/.zelmora/conf/zelmora.conf ): File Not Found\n"));
}

QTEST_GUILESS_MAIN(TestLanguage)
#include "tst_language.moc"
