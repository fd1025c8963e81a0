#include "util/hlibrary.h"

#include <QCoreApplication>
#include <QTranslator>

#include <csignal>
#include <cstdio>
#include <optional>

// papercopy <application> <source> <destination> <lines per sheet>: copies, asking for paper, and then prints what is
// left of standard input. The application is "none", "core" (a QCoreApplication), or a QCoreApplication and the
// catalogue whose path is given. SIGUSR1 interrupts what the program waits for.
int main(int argc, char** argv)
{
    if (argc != 5)
        return 2;
    struct sigaction interruption = {};
    interruption.sa_handler = [](int) {}; // and no SA_RESTART
    sigaction(SIGUSR1, &interruption, nullptr);

    const QString kind = QString::fromUtf8(argv[1]);
    std::optional<QCoreApplication> application;
    QTranslator translator;
    if (kind != QLatin1String("none"))
        application.emplace(argc, argv);
    if (translator.load(kind))
        QCoreApplication::installTranslator(&translator);

    const bool copied = HLibrary::copy(QString::fromUtf8(argv[2]), QString::fromUtf8(argv[3]),
                                       QString::fromUtf8(argv[4]), QStringLiteral("0"));
    for (int character = std::getchar(); character != EOF; character = std::getchar())
        std::putchar(character);
    return copied ? 0 : 1;
}
