#ifndef ZELMORA_TOOLKIT_SQL_COLUMNVALUE_H
#define ZELMORA_TOOLKIT_SQL_COLUMNVALUE_H

class QSqlQuery;
class QVariant;

namespace toolkit {

/// The value of @p column in the row where @p query stands, of a connection to PostgreSQL, as Qt 5 has it. Qt 6 by
/// itself knows no time that has a zone, and rounds parts of a second up into the next one.
QVariant columnValue(const QSqlQuery& query, int column);

} // namespace toolkit

#endif
