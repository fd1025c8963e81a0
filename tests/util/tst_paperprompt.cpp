#include "support/programrun.h"

#include <QProcess>
#include <QtTest>

#include <csignal>

namespace {

const char prompt[] = "PaperWindow: Insert a new sheet\n";

/// Both programs, with and without an application object: none has boxes.
void addPrograms()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("application");

    QTest::newRow("no application") << ZELMORA_PAPERCOPY << "none";
    QTest::newRow("a QCoreApplication") << ZELMORA_PAPERCOPY << "core";
    QTest::newRow("no application, though widgets are linked") << ZELMORA_PAPERCOPYWIDGETS << "none";
    QTest::newRow("a QCoreApplication, though widgets are linked") << ZELMORA_PAPERCOPYWIDGETS << "core";
}

} // namespace

/// The request for paper on the console, seen in programs of their own that copy to their standard output: so the
/// request shows between the pieces.
class TestPaperPrompt : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void endOfInputAnswers_data();
    void endOfInputAnswers();
    void waitsForALine_data();
    void waitsForALine();
    void eachRequestTakesOneLine_data();
    void eachRequestTakesOneLine();
    void translated();

private:
    void start(QProcess& process, const QString& program, const QString& application) const;
    /// The whole output for @p input, which then ends.
    QByteArray outputFor(const QByteArray& input, const QString& program, const QString& application) const;

    const QTemporaryDir folder;
};

void TestPaperPrompt::initTestCase()
{
    QFile source(folder.filePath("source"));
    QVERIFY(source.open(QIODevice::WriteOnly));
    QVERIFY(source.write("1\n2\n3\n4\n5\n") > 0);
}

void TestPaperPrompt::start(QProcess& process, const QString& program, const QString& application) const
{
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, {application, folder.filePath("source"), "/proc/self/fd/1", "2"});
}

QByteArray TestPaperPrompt::outputFor(const QByteArray& input, const QString& program, const QString& application) const
{
    QProcess process;
    start(process, program, application);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return "the program did not end well: " + process.readAll();
    return process.readAll();
}

void TestPaperPrompt::endOfInputAnswers_data()
{
    addPrograms();
}

void TestPaperPrompt::endOfInputAnswers()
{
    QFETCH(QString, program);
    QFETCH(QString, application);
    QCOMPARE(outputFor("", program, application), "1\n2\n3\n" + QByteArray(prompt) + "4\n5\n" + prompt);
}

void TestPaperPrompt::waitsForALine_data()
{
    addPrograms();
}

void TestPaperPrompt::waitsForALine()
{
    QFETCH(QString, program);
    QFETCH(QString, application);
    const QByteArray firstSheet = "1\n2\n3\n" + QByteArray(prompt);
    const QByteArray secondSheet = "4\n5\n" + QByteArray(prompt);
    const int longEnough = 150; // milliseconds: a program that does not wait has ended by then
    QProcess process;
    QByteArray output;
    start(process, program, application);

    while (output.size() < firstSheet.size() && process.waitForReadyRead())
        output += process.readAll();
    QVERIFY(!process.waitForFinished(longEnough));
    QCOMPARE(output + process.readAll(), firstSheet);

    kill(pid_t(process.processId()), SIGUSR1); // is no answer
    QVERIFY(!process.waitForFinished(longEnough));
    QCOMPARE(process.readAll(), QByteArray());

    process.write("yes"); // is no line yet
    QVERIFY(process.waitForBytesWritten());
    QVERIFY(!process.waitForFinished(longEnough));
    QCOMPARE(process.readAll(), QByteArray());

    output.clear();
    process.write("\n");
    while (output.size() < secondSheet.size() && process.waitForReadyRead())
        output += process.readAll();
    QVERIFY(!process.waitForFinished(longEnough));
    QCOMPARE(output + process.readAll(), secondSheet);

    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAll(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
}

void TestPaperPrompt::eachRequestTakesOneLine_data()
{
    addPrograms();
}

void TestPaperPrompt::eachRequestTakesOneLine()
{
    QFETCH(QString, program);
    QFETCH(QString, application);
    QCOMPARE(outputFor("yes\n\nthe rest", program, application),
             "1\n2\n3\n" + QByteArray(prompt) + "4\n5\n" + prompt + "the rest");
}

void TestPaperPrompt::translated()
{
    const QByteArray italian = "Carta: Inserire un nuovo foglio\n";
    QCOMPARE(outputFor("", ZELMORA_PAPERCOPY, ZELMORA_CATALOGUE), "1\n2\n3\n" + italian + "4\n5\n" + italian);
}

QTEST_GUILESS_MAIN(TestPaperPrompt)
#include "tst_paperprompt.moc"
