#include "log/logger.h"

#include <QProcess>
#include <QtTest>

/// A program that has a macro with the name of a level: the compiler says so, and nothing else.
class TestLevelMacros : public QObject {
    Q_OBJECT

private slots:
    void program_data();
    void program();
};

/// What the compiler says of @p program. It finds the headers that it finds for this test.
static QByteArray compilerMessages(const QByteArray& program, const QStringList& options)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("CPLUS_INCLUDE_PATH", ZELMORA_INCLUDES);
    QProcess compiler;
    compiler.setProcessEnvironment(environment);
    compiler.setProcessChannelMode(QProcess::MergedChannels);
    compiler.start(ZELMORA_COMPILER, QStringList {"-std=c++17", "-fPIC", "-fsyntax-only", "-x", "c++", "-"} + options);
    compiler.write(program);
    compiler.closeWriteChannel();
    return compiler.waitForFinished(120000) ? compiler.readAll() : "no compiler: " + compiler.errorString().toUtf8();
}

void TestLevelMacros::program_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArrayList>("macros"); // those that are complained about

    const auto row = [](const char* name, const QByteArray& head, const QStringList& options,
                        const QByteArrayList& macros) { QTest::newRow(name) << head << options << macros; };
    row("none", "", {}, {});
    row("-DDEBUG", "", {"-DDEBUG"}, {"DEBUG"});
    row("all five", "", {"-DDEBUG", "-DINFO=2", "-DWARNING", "-DERROR=0", "-DFATAL="},
        {"DEBUG", "INFO", "WARNING", "ERROR", "FATAL"});
    row("one with arguments", "#define INFO(text) text\n", {}, {"INFO"});
    row("taken back before the header", "#undef DEBUG\n", {"-DDEBUG"}, {});
    row("names that are almost the same", "", {"-DNDEBUG", "-DDEBUGGING", "-DQT_DEBUG"}, {});
}

void TestLevelMacros::program()
{
    QFETCH(QByteArray, head);
    QFETCH(QStringList, options);
    QFETCH(QByteArrayList, macros);

    const QByteArray messages = compilerMessages(
        head + "#include \"log/logger.h\"\nint main() { Logger(QString()).write(Logger::FATAL, QString()); }\n",
        options);
    QVERIFY2(messages.isEmpty() == macros.isEmpty(), messages);
    QVERIFY2(messages.count("error:") == macros.size(), messages);
    for (const QByteArray& macro : macros) {
        const QByteArray remedy = "build without -D" + macro + ", or #undef it before this include";
        QVERIFY2(messages.contains('"' + macro + " is a macro, but must be a level of Logger: " + remedy + '"'),
                 messages);
    }
}

QTEST_GUILESS_MAIN(TestLevelMacros)
#include "tst_levelmacros.moc"
