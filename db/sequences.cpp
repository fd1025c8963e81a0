#include "db/databasemanager.h"

#include "toolkit/literals.h"
#include "toolkit/numbertext.h"

using toolkit::operator""_L1;

namespace {

/// The sum within 32 bits; past the ends it wraps around instead of being undefined.
int wrappedSum(int a, int b)
{
    return static_cast<int>(static_cast<unsigned int>(a) + static_cast<unsigned int>(b));
}

int negated(int value)
{
    return static_cast<int>(0U - static_cast<unsigned int>(value));
}

} // namespace

QString DatabaseManager::sequenceValue(const QString& sequence, QSqlDatabase* db)
{
    return SyncSingleton<DatabaseManager>::instance()->executeSelectQuery("select last_value from "_L1 + sequence, db);
}

void DatabaseManager::setSequence(const QString& sequence, int value, QSqlDatabase* db)
{
    executeSelectQuery("SELECT setval('"_L1 + sequence + "', "_L1 + QString::number(value) + ")"_L1, db);
}

QString DatabaseManager::incrementSequence(const QString& sequence, int step, QSqlDatabase* db)
{
    const QString before = sequenceValue(sequence, db);
    setSequence(sequence, wrappedSum(toolkit::toInteger(before), step), db);
    return before;
}

QString DatabaseManager::decrementSequence(const QString& sequence, int step, QSqlDatabase* db)
{
    return incrementSequence(sequence, negated(step), db);
}

bool DatabaseManager::decrementSequenceIfPositive(const QString& sequence, int step, QSqlDatabase* db)
{
    if (toolkit::toInteger(sequenceValue(sequence, nullptr)) < step)
        return false;
    incrementSequence(sequence, negated(step), db);
    return true;
}
