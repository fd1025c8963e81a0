#include <zelmora/db/databasemanager.h>
#include <zelmora/log/hlogmanager.h>
#include <zelmora/util/hlibrary.h>

#include <QCoreApplication>

#include <cstdio>

namespace {

int failure(const char* text)
{
    std::fprintf(stderr, "%s The log says why.\n", text);
    return 1;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("PGCONNECT_TIMEOUT", "5"); // seconds: PostgreSQL's client waits without limit for a server that is silent
    const QCoreApplication application(argc, argv);

    // Before the database manager is first asked for: it takes the default logger then, and keeps it.
    SyncSingleton<HLogManager>::instance()->set("suite-program", "default");

    QSqlDatabase* const db = HLibrary::newDBConnection("");
    if (!db)
        return failure("The database cannot be opened.");

    DatabaseManager* const manager = SyncSingleton<DatabaseManager>::instance();
    const QString order = manager->safeNewRecord("orders", db);
    if (order == "Error")
        return failure("There is no order.");
    // Not incrementSequence(): the server steps the sequence, so that no number comes twice.
    const QString receipt = manager->executeSelectQuery("select nextval('receiptnumber')", db);
    if (receipt.isEmpty())
        return failure("There is no receipt number.");

    std::printf("order %s, receipt %s, copies to print: %s\n", qPrintable(order), qPrintable(receipt),
                qPrintable(HLibrary::copyNumber("receipt")));
    return 0;
}
