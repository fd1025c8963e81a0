#include "log/logger.h"

#include <cstdio>

// logwriter <name> <lines> <length>: once standard input has ended, logs that many lines, each of that many
// characters and a few more. Needs no application object.
int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    Logger log {QString()};
    while (std::getchar() != EOF) {
    }
    const QString name = QString::fromUtf8(argv[1]);
    const QString filling(QByteArray(argv[3]).toInt(), QLatin1Char('x'));
    const int lines = QByteArray(argv[2]).toInt();
    for (int i = 0; i < lines; ++i)
        log.info(QStringLiteral("%1 %2 %3").arg(name).arg(i).arg(filling));
    return 0;
}
