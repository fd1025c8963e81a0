#include "util/hlibrary.h"
#include "util/sleepthread.h"

// Needs of the library all that wants no widget and no database: to be looked at, not run.
int main()
{
    const QString texts = HLibrary::appData() + HLibrary::programFiles() + HLibrary::dataPath()
        + HLibrary::toWindowsFormat(QString()) + HLibrary::fromUtf8(QString()) + HLibrary::psql() + HLibrary::dropdb()
        + HLibrary::pg_dump() + HLibrary::pg_restore() + HLibrary::pathWithBinaryFile(QString())
        + HLibrary::copyNumber(QString()) + HLibrary::dbname() + HLibrary::username() + HLibrary::password()
        + HLibrary::hostname() + HLibrary::getCoreFile() + HLibrary::truncateDecimal(0) + HLibrary::getNewRand();
    HLibrary::touch(texts);
    HLibrary::hsleep(0);
    SleepThread(0);
    return HLibrary::copy(texts, texts, 0u, 0u) || HLibrary::copy(texts, texts, QString(), QString())
        || HLibrary::copy(texts, texts, 0u, 0u, 0u);
}
