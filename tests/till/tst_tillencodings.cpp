#include "support/programrun.h"
#include "support/smalljob.h"

#include <QtTest>

/// The encodings of jobs and scripts: the tables of docs/till.md, held to both programs.
class TestTillEncodings : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void same_data();
    void same();
    void different_data();
    void different();

private:
    QByteArray script(const QString& program, const QString& encoding, const QString& text);
    QString jobText(const QString& program, const QString& encoding, const QString& text);

    QTemporaryDir locales;
};

static const QString ordinaryProgram = ZELMORA_PRINT_PROGRAM;

/// The cells of the rows below the line that begins with @p title, without marks of code.
static QList<QStringList> table(const QString& title)
{
    QList<QStringList> rows;
    bool isInside = false;
    for (const QString& line : QString::fromUtf8(fileContents(ZELMORA_DOCS "/till.md")).split('\n')) {
        if (line.startsWith(title))
            isInside = true;
        else if (!line.startsWith('|'))
            isInside = false;
        else if (isInside && !line.startsWith("|---"))
            rows += QString(line).remove('`').mid(2).chopped(2).split(" | ");
    }
    return rows;
}

/// @p text in the encoding, as the C library's converters have it.
static QByteArray encoded(const QString& text, const QString& encoding)
{
    QProcess iconv;
    iconv.start("iconv", {"--from-code=UTF-8", "--to-code=" + encoding});
    iconv.write(text.toUtf8());
    iconv.closeWriteChannel();
    iconv.waitForFinished();
    const QByteArray bytes = iconv.readAllStandardOutput();
    if (iconv.exitCode() != 0 || bytes.isEmpty())
        qFatal("There are characters of %s that %s does not have.", qPrintable(text), qPrintable(encoding));
    return bytes;
}

/// A job in the encoding. Where ASCII keeps its bytes, only the text is converted.
static QByteArray job(const QString& encoding, const QString& text)
{
    const QString declaration = "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>";
    const bool isWide = encoding.startsWith("UTF-16") || encoding.startsWith("UTF-32");
    const QByteArray whole = declaration.toUtf8() + QByteArray(smallJob).replace("\"7\"", "\"TEXT\"");
    return isWide ? encoded(QString::fromUtf8(whole).replace("TEXT", text), encoding)
                  : QByteArray(whole).replace("TEXT", encoded(text, encoding));
}

/// The text in the one row that the small job prints.
static QByteArray printedText(const QByteArray& script)
{
    const QByteArray before = "nofis riga=' Serial Number: ";
    const int begin = script.indexOf(before) + before.size();
    return script.contains(before) ? script.mid(begin, script.indexOf("'\r\n", begin) - begin) : script;
}

QString TestTillEncodings::jobText(const QString& program, const QString& encoding, const QString& text)
{
    ProgramRun run(program);
    run.setSettings("zelmora: { };");
    return QString::fromUtf8(printedText(run.print(job(encoding, text))));
}

QByteArray TestTillEncodings::script(const QString& program, const QString& encoding, const QString& text)
{
    const QString locale = locales.filePath("xx_XX." + encoding);
    QProcess localedef;
    if (!QFile::exists(locale))
        localedef.start("localedef",
                        {"-c", "--no-archive", "--no-warnings=ascii", "-i", "POSIX", "-f", encoding, locale});
    localedef.waitForFinished(300000);
    if (!QFile::exists(locale + "/LC_CTYPE"))
        qFatal("The locale %s can't be made.", qPrintable(locale));

    ProgramRun run(program);
    run.setSettings("zelmora: { };");
    run.setEnvironment("LOCPATH", locales.path());
    run.setEnvironment("LC_ALL", "xx_XX." + encoding);
    return printedText(run.print(job("UTF-8", text)));
}

void TestTillEncodings::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("ZELMORA_PRINT_PROGRAM"), "Run it by scripts/test --till.");
    QVERIFY(locales.isValid());
}

void TestTillEncodings::same_data()
{
    QTest::addColumn<QStringList>("row");
    for (const QStringList& row : table("| The same in both"))
        QTest::newRow(qPrintable(row.join(' '))) << row;
}

void TestTillEncodings::same()
{
    QFETCH(QStringList, row);
    QCOMPARE(row.size(), 3);
    QVERIFY(QStringList({"jobs", "scripts", "jobs and scripts"}).contains(row[1]));
    for (const QString& program : {ordinaryProgram, printProgram()}) {
        if (row[1].contains("jobs"))
            QCOMPARE(jobText(program, row[0], row[2]), row[2]);
        if (row[1].contains("scripts"))
            QCOMPARE(script(program, row[0], row[2]), encoded(row[2], row[0]));
    }
}

void TestTillEncodings::different_data()
{
    QTest::addColumn<QStringList>("row");
    for (const QStringList& row : table("| Different"))
        QTest::newRow(qPrintable(row.mid(0, 3).join(' '))) << row;
}

void TestTillEncodings::different()
{
    QFETCH(QStringList, row);
    QCOMPARE(row.size(), 5);
    QVERIFY(row[3] != row[4]);
    const auto printed = [&](const QString& program) {
        return row[1] == "jobs" ? jobText(program, row[0], row[2])
                                : QString::fromLatin1(script(program, row[0], row[2]).toHex(' '));
    };
    QCOMPARE(printed(ordinaryProgram), row[3]);
    QCOMPARE(printed(printProgram()), row[4]);
}

QTEST_GUILESS_MAIN(TestTillEncodings)
#include "tst_tillencodings.moc"
