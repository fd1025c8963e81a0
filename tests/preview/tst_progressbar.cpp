#include "preview/progressbar.h"

#include <QtTest>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

/// What stands on standard error, when that is a terminal.
class TestProgressBar : public QObject {
    Q_OBJECT

private slots:
    void isNotSeenForAMoment();
    void showsHowFarItIs();
    void isGoneAtTheEnd();
    void isNotWrittenToAFile();
};

using preview::ProgressBar;

namespace {

/// As long as it lives, standard error is a terminal.
class Terminal {
public:
    Terminal()
        : terminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
        , before(dup(STDERR_FILENO))
    {
        if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
            qFatal("A terminal can't be made.");
        const int other = open(ptsname(terminal), O_RDWR | O_NOCTTY | O_CLOEXEC);
        dup2(other, STDERR_FILENO);
        close(other);
    }

    ~Terminal()
    {
        dup2(before, STDERR_FILENO);
        close(before);
        close(terminal);
    }

    /// What came to stand on it since the last call.
    QByteArray shown() const
    {
        std::fflush(stderr);
        char bytes[1000];
        pollfd event {terminal, POLLIN, 0};
        const ssize_t size = poll(&event, 1, 0) == 1 ? read(terminal, bytes, sizeof bytes) : 0;
        return QByteArray(bytes, static_cast<int>(size));
    }

private:
    const int terminal;
    const int before;
};

void waitAMoment()
{
    QTest::qSleep(ProgressBar::moment + 10);
}

} // namespace

void TestProgressBar::isNotSeenForAMoment()
{
    const Terminal terminal;
    {
        ProgressBar bar(4);
        bar.show(3);
    }
    QCOMPARE(terminal.shown(), QByteArray());
}

void TestProgressBar::showsHowFarItIs()
{
    const Terminal terminal;
    ProgressBar bar(4);
    waitAMoment();
    bar.show(1);
    QCOMPARE(terminal.shown(), "\r[" + QByteArray(10, '#') + QByteArray(30, ' ') + "] 1/4");
    bar.show(1);
    QCOMPARE(terminal.shown(), QByteArray());
    bar.show(4);
    QCOMPARE(terminal.shown(), "\r[" + QByteArray(40, '#') + "] 4/4");
}

void TestProgressBar::isGoneAtTheEnd()
{
    const Terminal terminal;
    {
        ProgressBar bar(1000);
        waitAMoment();
        bar.show(999);
        terminal.shown();
    }
    QCOMPARE(terminal.shown(), '\r' + QByteArray(43 + 9, ' ') + '\r'); // "[...] 1000/1000"
}

void TestProgressBar::isNotWrittenToAFile()
{
    const Terminal terminal;
    const int file = open("/dev/null", O_WRONLY);
    const int kept = dup(STDERR_FILENO);
    dup2(file, STDERR_FILENO);
    ProgressBar bar(4);
    dup2(kept, STDERR_FILENO); // where it would be seen now
    waitAMoment();
    bar.show(1);
    QCOMPARE(terminal.shown(), QByteArray());
    close(file);
    close(kept);
}

QTEST_GUILESS_MAIN(TestProgressBar)
#include "tst_progressbar.moc"
